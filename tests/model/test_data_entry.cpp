// Reactions of the record to changes: stale results, coupled fields, the confirmation of the
// dimensions, the change of shape and of display units.
#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "model/DataEntry.h"
#include "model_support.h"

using namespace zarvek;
using namespace zarvek_test;

namespace {

class DataEntry : public ::testing::Test {
 protected:
  void SetUp() override { Load_Test_Messages(); }
  BeamModel m = Default_Model();

  void Solved() {  // a model that shows the results of a solve
    m.Txt_mucr = m.Txt_Mcr = m.Lbl_Iteration = m.Lbl_Comment = "12";
    m.Txt_Mmax = m.Lbl_xfMmax = {"1", "1"};
    m.Mode_Max = 1;
  }
  bool Results_Cleared() const {
    return m.Txt_mucr == "0" && m.Txt_Mcr == "0" && m.Lbl_Iteration == "0" && m.Lbl_Comment == "No result" &&
           m.Mode_Max == 0;
  }
  bool Forces_Cleared() const { return m.Txt_Mmax[0] == "0" && m.Lbl_xfMmax[1] == "0"; }
  std::string Flanges() const {
    return m.Txt_bf1 + " " + m.Txt_tf1 + " " + m.Txt_r1 + " / " + m.Txt_bf2 + " " + m.Txt_tf2 + " " + m.Txt_r2;
  }
};

TEST_F(DataEntry, ShearModulusAndPoissonRatioStayCoupled) {
  const struct { bool g_typed; const char *e, *nu, *g, *field, *nu_after, *g_after; } cases[] = {
      {false, "200000", "0.3", "1", "Txt_E", "0.3", "76923"},  // G = E / (2 (1 + nu))
      {true, "21000", "0.3", "8100", "Txt_G", "0.2963", "8100"},  // nu = E / (2 G) - 1
      {true, "21000", "0.3", "0", "Txt_G", "?", "0"},
      {true, "20800", "0.3", "1", "Txt_E", "0.3", "8000"},  // E drives G whichever is typed
      {true, "20800", "0.1", "1", "Txt_Nu", "0.1", "1"}};  // the derived field does nothing
  for (const auto& c : cases) {
    m.Opt_Nu = !(m.Opt_G = c.g_typed);
    std::tie(m.Txt_E, m.Txt_Nu, m.Txt_G) = std::make_tuple(c.e, c.nu, c.g);
    Data_Changed(m, c.field);
    EXPECT_EQ(m.Txt_Nu + " " + m.Txt_G, std::string(c.nu_after) + " " + c.g_after) << c.field;
  }
}

TEST_F(DataEntry, MomentsAndPsiStayCoupled) {
  // psi is the smaller end moment over the larger, with a minus; with psi typed, M2 = -psi M1; a
  // psi out of -1 .. 1 gives way to the previous text; the derived field does nothing
  const struct { bool psi_typed; const char *m1, *m2, *psi, *field, *m2_after, *psi_after; } cases[] = {
      {false, "-100", "100", "", "Txt_M1", "100", "1.000"}, {false, "100", "50", "", "Txt_M2", "50", "-0.500"},
      {false, "0", "0", "", "Txt_M2", "0", "?"}, {true, "-80", "1", "0.25", "Txt_Psi", "20", "0.25"},
      {true, "-80", "1", "1.5", "Txt_Psi", "1", "0.5"}, {true, "-80", "7", "0.25", "Txt_M2", "7", "0.25"}};
  for (const auto& c : cases) {
    m.Opt_M2 = !(m.Opt_Psi = c.psi_typed);
    std::tie(m.Txt_M1, m.Txt_M2, m.Txt_Psi, m.Psi_Previous) = std::make_tuple(c.m1, c.m2, c.psi, "0.5");
    ChangeEffects e = Data_Changed(m, c.field);
    EXPECT_EQ(m.Txt_M2 + " " + m.Txt_Psi, std::string(c.m2_after) + " " + c.psi_after) << c.m1;
    EXPECT_EQ(e.Select_Psi, std::string(c.psi) == "1.5");
  }
}

TEST_F(DataEntry, ResultsDoNotSurviveAChangeOfTheirData) {
  // a switched-off restraint, a dimension before the section is confirmed, what the curves show and the
  // catalogue's slot are not in the solved problem; a restraint clears the solve, a load the forces too
  const struct { bool results, forces; std::vector<const char*> fields; } cases[] = {
      {true, true, {"Txt_L", "Txt_q22", "Opt_EL", "Txt_M1", "Txt_xq22"}},
      {true, false, {"Txt_NB", "Lst_tp2", "Txt_zend2", "Txt_Iz(3)", "Chk_Continuous", "Opt_Dimensions"}},
      {false, false,
       {"Chk_v", "Txt_xfint1", "Txt_zint_p1", "Lst_ti_p2", "Lst_vpi_c", "Txt_tw", "Txt_Iz(1)"}}};
  for (const auto& c : cases)
    for (const char* field : c.fields) {
      Solved();
      Data_Changed(m, field);
      EXPECT_EQ(std::pair(Results_Cleared(), Forces_Cleared()), std::pair(c.results, c.forces)) << field;
    }
  EXPECT_EQ(m.Txt_Iz[2] + m.Txt_It[2] + m.Txt_zS[2], "");  // the dimension emptied slot 2
  m.Chk_Punctual1 = true;  // a punctual restraint that acts
  Solved();
  Data_Changed(m, "Txt_zint_p1");
  EXPECT_TRUE(Results_Cleared() && !Forces_Cleared());
  // while the program fills fields, nothing reacts
  Solved();
  m.RefreshLocked = true;
  m.Txt_E = "100000";
  for (const char* f : {"Txt_E", "Txt_L"}) Data_Changed(m, f);
  EXPECT_EQ(m.Txt_G, "80769");
  EXPECT_FALSE(Results_Cleared());
}

TEST_F(DataEntry, ConfirmedDimensionsGiveTheRolledSection) {
  Solved();
  DimensionsResult d = Cmd_Dimensions(m);
  ASSERT_TRUE(d.ok && d.Draw_Section && Results_Cleared() && !m.RefreshLocked);
  // the constants of the IPE 300 (their closed forms: tests/section) reach slot 2 in cm4 and cm6
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iz[2]), 603.8, 0.2);
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iw[2]), 126330, 150);
  EXPECT_EQ(m.Txt_zS_Hidden, "15");  // centroid at mid-height
  // in mm the same section shows in the units of the lists
  m.Fact_Dim = Unit_Factor(UnitFamily::Dim, 0);
  std::tie(m.Txt_h, m.Txt_tw, m.Txt_bf1, m.Txt_tf1, m.Txt_r1) = std::make_tuple("300", "7.1", "150", "10.7", "15");
  ASSERT_TRUE(Cmd_Dimensions(m).ok);
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iz[2]), 603.8, 0.2);  // still cm4
  EXPECT_EQ(m.Txt_zS_Hidden, "150");                    // mm
}

TEST_F(DataEntry, EachShapeCopiesItsFlanges) {
  // double symmetric: flange 2 takes flange 1; mono-symmetric: as typed; one flange: the other is the web
  const std::pair<int, const char*> shapes[] = {{0, "15 1.07 1.5 / 15 1.07 1.5"}, {1, "15 1.07 1.5 / 12 1.2 1"},
                                                {2, "15 1.07 1.5 / 0.71 0 0"}, {3, "0.71 0 0 / 12 1.2 1"}};
  for (const auto& [shape, flanges] : shapes) {
    std::tie(m.Txt_bf1, m.Txt_tf1, m.Txt_r1) = std::make_tuple("15", "1.07", "1.5");
    std::tie(m.Txt_bf2, m.Txt_tf2, m.Txt_r2) = std::make_tuple("12", "1.2", "1");
    m.Tab_Dim = shape;
    ASSERT_TRUE(Cmd_Dimensions(m).ok) << shape;
    EXPECT_EQ(Flanges(), flanges);
  }
  // from flange 2 only to double symmetric: flange 1 takes flange 2; slot 2, of the old shape, empties
  std::tie(m.Txt_bf2, m.Txt_tf2, m.Txt_r2) = std::make_tuple("12", "1.2", "1");
  ASSERT_FALSE(m.Txt_Iz[2].empty());
  Tab_Dim_Change(m, 0);
  EXPECT_EQ(Flanges() + m.Txt_Iz[2], "12 1.2 1 / 12 1.2 1");
}

TEST_F(DataEntry, FailedConfirmationChangesNothing) {
  // numbers first, then the shape's limits: shown, not pending; proportions the closed forms refuse: pending
  const char *const Out = "Value out of limits", *const Refused = "Section proportions refused";
  const struct { int shape; std::string* field; const char *value, *shown, *at, *pending; } steps[] = {
      {0, &m.Txt_h, "400", Out, "Txt_h", ""}, {0, &m.Txt_r2, "x", "Not a number", "Txt_r2", ""},
      {0, &m.Txt_r2, "1.5", Out, "Txt_h", ""}, {0, &m.Txt_h, "30", "", "", ""},
      {0, &m.Txt_tf2, "50", "", "", ""},  // shape 0 overwrites flange 2 ...
      {1, &m.Txt_tf2, "20.1", Out, "Txt_tf2", ""},  // ... shape 1 checks it
      {1, &m.Txt_tf2, "1.07", "", "", ""}, {1, &m.Txt_h, "6", Refused, "", Refused}};
  for (const auto& s : steps) {
    m.Tab_Dim = s.shape;
    *s.field = s.value;
    const std::string before = m.Txt_Iz[2];
    DimensionsResult d = Cmd_Dimensions(m);
    EXPECT_EQ(std::tuple(d.ok, d.field, d.Error_Text), std::tuple(*s.shown == 0, s.at, s.pending)) << s.value;
    EXPECT_EQ(d.Shown, *s.shown ? std::vector<std::string>{s.shown} : std::vector<std::string>{});
    if (!d.ok) { EXPECT_EQ(m.Txt_Iz[2], before) << s.value; }
  }
}

TEST(TraiterUnits, RoundTripThroughEveryUnitKeepsInternalValues) {
  BeamModel m = Default_Model();
  Set_Factors(m);
  int k = 0;  // a distinct number in every field
  for (auto& [f, texts] : Number_Fields(m))
    for (std::string* t : texts) *t = Number_To_Text(1.5 + 0.37 * k++);
  auto internal = [&] {
    std::vector<double> v;
    for (auto& [f, texts] : Number_Fields(m))
      for (std::string* t : texts) v.push_back(Num_Of_Text(*t) * Factor_Of(m, f));
    return v;
  };
  const std::vector<double> before = internal();
  // walk every family through all its units and back to where it started
  for (UnitFamily f : All_Unit_Families) {
    const int start = Unit_Index(m, f), n = Unit_ItemCount(f);
    for (int step = 1; step <= n; ++step) {
      UnitIndices old = Unit_Indices(m);
      Unit_Index(m, f) = (start + step) % n;
      Traiter_Units(m, old);
      std::vector<double> now = internal();
      for (size_t i = 0; i < now.size(); ++i) EXPECT_NEAR(now[i] / before[i], 1.0, 1e-3)
            << Unit_ListName(f) << " unit " << Unit_Index(m, f) << " field " << i;
    }
  }
}

TEST(TraiterUnits, ShownTextsFollowTheUnit) {
  BeamModel m = Default_Model();
  Set_Factors(m);
  m.Lst_v1 = RestraintList{-1, "1000"};  // kN/m
  m.Txt_Iz[2].clear();                   // not computed yet
  m.Txt_F1 = "-10.00";                   // a family whose unit stays is not even reformatted
  UnitIndices old = Unit_Indices(m);
  m.Lst_Unit_L = m.Lst_Unit_M = m.Lst_Unit_Izt = 0;  // mm, daN.cm, mm4
  m.Lst_Unit_v = 2;                                   // daN/m
  Traiter_Units(m, old);
  // 10 m; -100 kN.m = -1e6 daN.cm, a million and more in scientific form; 1000 kN/m = 100000 daN/m;
  // a state text stays; 603.78 cm4 in mm4
  EXPECT_EQ(m.Txt_L + " " + m.Txt_M1 + " " + m.Lst_v1.text + " " + m.Lst_t1.text + " " + m.Txt_Iz[1],
            "10000 -1.000E+06 100000 Fixed 6.0378E+06");
  EXPECT_EQ(m.Txt_Iz[2] + m.Txt_F1, "-10.00");
}

}  // namespace
