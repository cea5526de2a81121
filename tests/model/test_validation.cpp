// Validation: the first fault stops the walk through the tabs with its message, tab and field. The
// field table: each name reaches its member, and every field validation brings up is in it, on its page.
#include <gtest/gtest.h>

#include <initializer_list>
#include <set>
#include <tuple>

#include "model/DataEntry.h"
#include "model/FieldTable.h"
#include "model/Validation.h"
#include "model_support.h"

using namespace zarvek;
using namespace zarvek_test;

namespace {

class Validation : public ::testing::Test {
 protected:
  void SetUp() override { Load_Test_Messages(); }
  BeamModel m = Default_Model();

  // One edit of a text, then the whole check: the message expected ("" if it passes), tab and field.
  struct Step { std::string* text; const char* value; std::string message{}; int tab = -1; std::string field{}; };
  void Walk(std::initializer_list<Step> steps) {
    for (const Step& s : steps) {
      if (s.text) *s.text = s.value;
      ValidationResult r = IsDataOK(m);
      EXPECT_EQ(std::tuple(r.Error_Text, r.tab, r.field, r.ok, m.RefreshLocked),
                std::tuple(s.message, s.tab, s.field, s.message.empty(), false)) << s.value;
    }
  }
};

const char *const L_N = "L/N : Value out of limits", *const Out = "Value out of limits",
                  *const NaN = "Not a number", *const Beyond = "Restraint out of the beam";

TEST_F(Validation, BeamTab) {
  m.RefreshLocked = true;  // released on return whatever it was
  Walk({{nullptr, ""}, {&m.Txt_L, "1"},  // 1 m in 100 elements: 1 cm each
        {&m.Txt_L, "0.99", L_N, 0, "Txt_L"},
        {&m.Txt_L, "0.99995"},  // within the widening of one part in ten thousand
        {&m.Txt_L, "301", L_N, 0, "Txt_L"}, {&m.Txt_E, "x", L_N, 0, "Txt_L"},
        {&m.Txt_L, "", NaN, 0, "Txt_L"}, {&m.Txt_L, "10", NaN, 0, "Txt_E"},
        // E from 100 MPa (1000 daN/cm2) to 1e6 MPa, nu up to 0.5, G never checked
        {&m.Txt_E, "100"}, {&m.Txt_E, "99", Out, 0, "Txt_E"}, {&m.Txt_E, "210000"},
        {&m.Txt_Nu, "0.5"}, {&m.Txt_Nu, "0.51", Out, 0, "Txt_Nu"}, {&m.Txt_Nu, "0.3"},
        {&m.Txt_G, "nonsense"}});
  // only the magnitude is judged on the beam tab; the levels of the restraints, bounded by a
  // quarter of the signed length, then fail
  Walk({{&m.Txt_L, "-10", Beyond, 1, "Txt_zend1"}});
  m.Txt_NB = 3;  // 200 elements: up to 600 m
  Walk({{&m.Txt_L, "600"}});
}

TEST_F(Validation, SectionRoutes) {
  m.Opt_Catalogue = false;
  m.Opt_Properties = true;
  Walk({{nullptr, ""}, {&m.Txt_Iw[3], "0"},  // a section without warping stiffness is allowed
        {&m.Txt_Iz[3], "0", Out, 0, "Txt_Iz(3)"},
        // every numeric test comes before the first limit
        {&m.Txt_Betaz[3], "b", NaN, 0, "Txt_Betaz(3)"}, {&m.Txt_Betaz[3], "151", Out, 0, "Txt_Iz(3)"},
        {&m.Txt_Iz[3], "1", Out, 0, "Txt_Betaz(3)"}, {&m.Txt_Betaz[3], "-150"},
        {&m.Txt_It[3], "0.0009", Out, 0, "Txt_It(3)"}});
  // the dimensions route checks slot 2 only: computed, then confirmed anew
  m.Opt_Properties = false;
  m.Opt_Dimensions = true;
  Walk({{&m.Txt_Iz[2], "", "Section not computed", 0, "Txt_Iz(2)"}, {&m.Txt_Iz[2], "1"}});
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iz[2]), 603.8, 3.0);  // the IPE 300 of the dimensions
  m.Txt_h = "5";  // the closed forms want a depth over 4 (tf1 + tf2)
  EXPECT_EQ(IsDataOK(m).Error_Text, "Section proportions refused");
}

TEST_F(Validation, RestraintsTab) {
  const char* const Pos = "Position out of 0.05 .. 0.95";
  m.Chk_Punctual2 = true;
  Walk({{&m.Txt_xfint2, "", NaN, 1, "Txt_xfint2"}, {&m.Txt_zint_c, "a", NaN, 1, "Txt_zint_c"},
        {&m.Txt_zint_c, "0", NaN, 1, "Txt_xfint2"}, {&m.Txt_xfint2, "0.5"}});
  m.Lst_vpi_c.index = m.Lst_tp2.index = -1;  // typed springs: "Free" is no number
  Walk({{&m.Lst_tp2.text, "1.5.2", NaN, 1, "Lst_tp2"},
        {&m.Lst_tp2.text, "12", NaN, 1, "Lst_vpi_c"}, {&m.Lst_vpi_c.text, "0"},
        // a level up to a quarter of the length: 250 cm on 10 m, widened
        {&m.Txt_zint_p2, "-250.02"}, {&m.Txt_zint_p2, "-250.03", Beyond, 1, "Txt_zint_p2"},
        // a second position past the beam selects the first one
        {&m.Txt_zint_p2, "0"}, {&m.Txt_xfint2, "1.2", Beyond, 1, "Txt_xfint1"},
        // the bounds 0.05 and 0.95 themselves are valid, with no widening
        {&m.Txt_xfint2, "0.95"}, {&m.Txt_xfint1, "0.05"},
        {&m.Txt_xfint1, "0.0499", Pos, 1, "Txt_xfint1"}, {&m.Txt_xfint1, "0.5"},
        {&m.Txt_xfint2, "0.96", Pos, 1, "Txt_xfint2"},
        {&m.Txt_xfint2, "0.5"}});  // one restraint alone may stand anywhere
  m.Chk_Punctual1 = true;  // both acting: 0.05 apart at least
  Walk({{&m.Txt_xfint2, "0.545", "Punctual restraints too close", 1, "Txt_xfint2"},
        {&m.Txt_xfint2, "0.555"}});
}

TEST_F(Validation, ContinuousRestraintThatLocksTheBeamSelectsNoField) {
  m.Lst_vpi_c = m.Lst_ti_c = Restraint_Item(1);  // v' and twist fixed all along
  Walk({{nullptr, ""}});  // switched off
  m.Chk_Continuous = true;
  Walk({{nullptr, "", "Continuous restraint locks the beam"}});
  m.Lst_ti_c = RestraintList{-1, "100"};  // a spring lets it go
  Walk({{nullptr, ""}});
}

TEST_F(Validation, LoadsTab) {
  Walk({{&m.Txt_xfC, "7"},  // the position of the point moment has no range
        {&m.Txt_xf1, "1.5", Out, 2, "Txt_xf1"}, {&m.Txt_xf1, "0.5"},
        {&m.Txt_xq22, "1.0001"}, {&m.Txt_xq22, "1.01", Out, 2, "Txt_xq22"}, {&m.Txt_xq22, "1"},
        // load levels: a quarter of the length, with the load message
        {&m.Txt_zF3, "-251", Out, 2, "Txt_zF3"}, {&m.Txt_zq2, "300", Out, 2, "Txt_zq2"},
        // numbers first, in the order of the list, switched-off loads too
        {&m.Txt_q22, "?", NaN, 2, "Txt_q22"}, {&m.Txt_xfC, "", NaN, 2, "Txt_q22"},
        {&m.Txt_q22, "-10", NaN, 2, "Txt_xfC"},
        {&m.Txt_Nu, "0.7", Out, 0, "Txt_Nu"}});  // the beam tab comes first
}

}  // namespace

TEST(FieldTable, NamesAreUniqueAndReachTheirMembers) {
  BeamModel m = Default_Model();
  std::set<std::string> names;
  for (const FieldDef& f : Field_Table()) EXPECT_TRUE(names.insert(f.name).second) << f.name;

  // slots and pairs are where a misplaced index would hide
  const std::pair<const char*, std::string*> cases[] = {
      {"Txt_Iz(1)", &m.Txt_Iz[1]}, {"Txt_Iw(2)", &m.Txt_Iw[2]}, {"Txt_Betaz(3)", &m.Txt_Betaz[3]},
      {"Txt_zS(2)", &m.Txt_zS[2]}, {"Lbl_xfMmax(0)", &m.Lbl_xfMmax[0]}, {"Txt_q12", &m.Txt_q12},
      {"Txt_xq21", &m.Txt_xq21}, {"Txt_zint_p2", &m.Txt_zint_p2}};
  for (const auto& [name, text] : cases) {
    const FieldDef* f = Find_Field(name);
    ASSERT_NE(f, nullptr) << name;
    EXPECT_EQ(Text_Member(m, *f), text) << name;
  }
  // a kind asked of the wrong field gives nothing
  EXPECT_EQ(Text_Member(m, *Find_Field("Lst_v1")), nullptr);
  EXPECT_EQ(Find_Field("Txt_Iz(4)"), nullptr);
}

// Each typed text spoilt in turn: validation stops on a table field (it, or one checked first), on its page.
TEST(FieldTable, EveryValidationFailureNamesAFieldOfItsPage) {
  Load_Test_Messages();
  int failures = 0;
  for (int route = 1; route <= 3; ++route) {
    for (const FieldDef& f : Field_Table()) {
      if (f.kind != FieldKind::Text || f.page > 2) continue;
      BeamModel m = Default_Model();
      std::tie(m.Opt_Catalogue, m.Opt_Dimensions, m.Opt_Properties) =
          std::tuple(route == 1, route == 2, route == 3);
      ASSERT_TRUE(route != 2 || Cmd_Dimensions(m).ok);
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
  // about 40 typed fields a route, all checked but G and the dimensions off their route
  EXPECT_GT(failures, 100);
}
