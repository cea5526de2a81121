// The table of fields: every name is bound to the member it names, and every
// field that validation brings to the user is in the table, on its page.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "model/DataEntry.h"
#include "model/FieldTable.h"
#include "model/Validation.h"
#include "model_support.h"

using namespace zarvek;
using namespace zarvek_test;

namespace {

// The member a name must reach, through the record's own member names.
struct Expect {
  const char* name;
  std::string* text;
};

}  // namespace

TEST(FieldTable, NamesAreUniqueAndReachTheirMembers) {
  BeamModel m = Default_Model();
  std::set<std::string> names;
  for (const FieldDef& f : Field_Table()) EXPECT_TRUE(names.insert(f.name).second) << f.name;

  // slots and pairs are where a misplaced index would hide
  const Expect cases[] = {
      {"Txt_Iz(1)", &m.Txt_Iz[1]},   {"Txt_Iw(2)", &m.Txt_Iw[2]},         {"Txt_Betaz(3)", &m.Txt_Betaz[3]},
      {"Txt_zS(2)", &m.Txt_zS[2]},   {"Lbl_xfMmax(0)", &m.Lbl_xfMmax[0]}, {"Txt_q12", &m.Txt_q12},
      {"Txt_xq21", &m.Txt_xq21},     {"Txt_zint_p2", &m.Txt_zint_p2},
  };
  for (const Expect& c : cases) {
    const FieldDef* f = Find_Field(c.name);
    ASSERT_NE(f, nullptr) << c.name;
    EXPECT_EQ(Text_Member(m, *f), c.text) << c.name;
  }
  EXPECT_EQ(Restraint_Member(m, *Find_Field("Lst_vpi_c")), &m.Lst_vpi_c);
  EXPECT_EQ(Flag_Member(m, *Find_Field("Opt_EL")), &m.Opt_EL);
  EXPECT_EQ(Choice_Member(m, *Find_Field("Txt_NB")), &m.Txt_NB);
  // a kind asked of the wrong field gives nothing
  EXPECT_EQ(Text_Member(m, *Find_Field("Lst_v1")), nullptr);
  EXPECT_EQ(Find_Field("Txt_Iz(4)"), nullptr);
}

// Each text the user types, made unreadable in turn: validation stops on a
// field of the table (the one spoilt, or one it must check first), on that
// field's page.
TEST(FieldTable, EveryValidationFailureNamesAFieldOfItsPage) {
  Load_Test_Messages();
  int failures = 0;
  for (int route = 1; route <= 3; ++route) {
    for (const FieldDef& f : Field_Table()) {
      if (f.kind != FieldKind::Text || f.page > 2) continue;
      BeamModel m = Default_Model();
      m.Opt_Catalogue = route == 1;
      m.Opt_Dimensions = route == 2;
      m.Opt_Properties = route == 3;
      if (route == 2) {
        ASSERT_TRUE(Cmd_Dimensions(m).ok);
      }
      *Text_Member(m, f) = "x";
      ValidationResult r = IsDataOK(m);
      if (r.ok) continue;  // not checked on this route (a dimension off the route, G)
      ++failures;
      const FieldDef* selected = Find_Field(r.field);
      ASSERT_NE(selected, nullptr) << f.name << " -> " << r.field;
      EXPECT_EQ(selected->page, r.tab) << f.name << " -> " << r.field;
      EXPECT_EQ(r.Error_Text, Msg(43)) << f.name;
    }
  }
  // about 40 typed fields a route, all checked but G and the dimensions
  // off their route
  EXPECT_GT(failures, 100);
}
