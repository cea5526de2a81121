// Reactions of the record to changes: stale results, coupled fields, the
// confirmation of the dimensions and the change of shape.
#include <gtest/gtest.h>

#include <cmath>

#include "model/DataEntry.h"
#include "model_support.h"

using namespace zarvek;
using namespace zarvek_test;

namespace {

class DataEntry : public ::testing::Test {
 protected:
  void SetUp() override { Load_Test_Messages(); }
  BeamModel m = Default_Model();

  // a model that shows the results of a solve
  void Solved() {
    m.Txt_mucr = "2.5";
    m.Txt_Mcr = "250";
    m.Lbl_Iteration = "12";
    m.Lbl_Comment = "Normal end";
    m.Mode_Max = 1;
    m.Txt_Mmax = {"100", "100"};
    m.Lbl_xfMmax = {"0.5", "0.5"};
  }
  bool Results_Cleared() const {
    return m.Txt_mucr == "0" && m.Txt_Mcr == "0" && m.Lbl_Iteration == "0" &&
           m.Lbl_Comment == "No result" && m.Mode_Max == 0;
  }
  bool Forces_Cleared() const { return m.Txt_Mmax[0] == "0" && m.Lbl_xfMmax[1] == "0"; }
};

TEST_F(DataEntry, ShearModulusFollowsEAndNu) {
  // G = E / (2 (1 + nu)) = 200000 / 2.6
  m.Txt_E = "200000";
  ChangeEffects e = Data_Changed(m, "Txt_E");
  EXPECT_EQ(m.Txt_G, "76923");
  EXPECT_TRUE(e.Erase_Eigenmode);
  m.Txt_Nu = "0.25";  // 200000 / 2.5
  Data_Changed(m, "Txt_Nu");
  EXPECT_EQ(m.Txt_G, "80000");
  // G typed: nu = E / (2 G) - 1, in any unit of the moduli
  m.Opt_Nu = false;
  m.Opt_G = true;
  m.Lst_Unit_EG = 4;  // kN/cm2
  m.Fact_EG = Unit_Factor(UnitFamily::EG, 4);
  m.Txt_E = "21000";
  m.Txt_G = "8100";
  Data_Changed(m, "Txt_G");
  EXPECT_EQ(m.Txt_Nu, "0.2963");  // 21000 / 16200 - 1
  m.Txt_G = "0";
  Data_Changed(m, "Txt_G");
  EXPECT_EQ(m.Txt_Nu, "?");
  // with G typed, E still overwrites G and nu keeps its text
  m.Txt_Nu = "0.3";
  m.Txt_E = "20800";
  Data_Changed(m, "Txt_E");
  EXPECT_EQ(m.Txt_G, "8000");
  EXPECT_EQ(m.Txt_Nu, "0.3");
  // the locked field's handler does nothing
  m.Txt_Nu = "0.1";
  Data_Changed(m, "Txt_Nu");
  EXPECT_EQ(m.Txt_G, "8000");
}

TEST_F(DataEntry, PsiIsTheSmallerEndMomentOverTheLarger) {
  Calculer_Psi(m);  // -100 and 100: uniform moment
  EXPECT_EQ(m.Txt_Psi, "1.000");
  m.Txt_M1 = "100";
  m.Txt_M2 = "50";
  Calculer_Psi(m);
  EXPECT_EQ(m.Txt_Psi, "-0.500");
  m.Txt_M1 = "50";
  m.Txt_M2 = "-100";
  Calculer_Psi(m);
  EXPECT_EQ(m.Txt_Psi, "0.500");
  m.Txt_M1 = "0";
  m.Txt_M2 = "0";
  Calculer_Psi(m);
  EXPECT_EQ(m.Txt_Psi, "?");
}

TEST_F(DataEntry, MomentsAndPsiStayCoupled) {
  Solved();
  m.Txt_M2 = "-40";
  Data_Changed(m, "Txt_M2");
  EXPECT_EQ(m.Txt_Psi, "-0.400");
  EXPECT_TRUE(Results_Cleared());
  EXPECT_TRUE(Forces_Cleared());
  // psi typed: M2 = -psi M1
  m.Opt_M2 = false;
  m.Opt_Psi = true;
  m.Txt_M1 = "-80";
  m.Psi_Previous = "0.5";
  m.Txt_Psi = "0.25";
  Data_Changed(m, "Txt_Psi");
  EXPECT_EQ(m.Txt_M2, "20");
  // out of -1 .. 1: the previous text comes back and is selected
  m.Psi_Previous = "0.25";
  m.Txt_Psi = "1.5";
  ChangeEffects e = Data_Changed(m, "Txt_Psi");
  EXPECT_EQ(m.Txt_Psi, "0.25");
  EXPECT_TRUE(e.Select_Psi);
  EXPECT_EQ(m.Txt_M2, "20");
  // M2 is locked now: its handler does nothing
  Solved();
  m.Txt_M2 = "7";
  Data_Changed(m, "Txt_M2");
  EXPECT_EQ(m.Txt_Psi, "0.25");
  EXPECT_FALSE(Results_Cleared());
}

TEST_F(DataEntry, ResultsDoNotSurviveAChangeOfTheirData) {
  Solved();
  Data_Changed(m, "Txt_NB");
  EXPECT_TRUE(Results_Cleared());
  EXPECT_FALSE(Forces_Cleared());  // the forces don't depend on the mesh
  Solved();
  ChangeEffects e = Data_Changed(m, "Opt_EL");
  EXPECT_TRUE(Results_Cleared() && Forces_Cleared());
  EXPECT_TRUE(e.Refresh_LoadsDiagrams);
  // a switched-off restraint is not part of the solved problem
  Solved();
  Data_Changed(m, "Txt_xfint1");
  Data_Changed(m, "Lst_ti_p2");
  Data_Changed(m, "Lst_vpi_c");
  EXPECT_FALSE(Results_Cleared());
  m.Chk_Punctual1 = true;
  Data_Changed(m, "Txt_xfint1");
  EXPECT_TRUE(Results_Cleared());
  // while the program fills fields, nothing reacts
  Solved();
  m.RefreshLocked = true;
  m.Txt_E = "100000";
  Data_Changed(m, "Txt_E");
  Data_Changed(m, "Txt_L");
  EXPECT_EQ(m.Txt_G, "80769");
  EXPECT_FALSE(Results_Cleared());
}

TEST_F(DataEntry, RestraintListItems) {
  ChangeEffects e = Restraint_Choose(m, "Lst_vi_p1", 2);
  EXPECT_EQ(m.Lst_vi_p1.index, -1);  // a typed spring of 0
  EXPECT_EQ(m.Lst_vi_p1.text, "0");
  EXPECT_TRUE(m.Lst_vi_p1.Unit_Visible);
  EXPECT_TRUE(e.Unit_Label_Changed);
  Restraint_Choose(m, "Lst_vi_p1", 1);
  EXPECT_EQ(m.Lst_vi_p1.text, "Fixed");
  EXPECT_FALSE(m.Lst_vi_p1.Unit_Visible);
  Solved();
  Restraint_Choose(m, "Lst_tp2", 0);
  EXPECT_TRUE(Results_Cleared());
}

TEST_F(DataEntry, DimensionChangeEmptiesSlot2OnEveryRoute) {
  ASSERT_TRUE(m.Opt_Catalogue);
  m.Txt_Iz[2] = "603.78";
  m.Txt_zS[2] = "0";
  Solved();
  m.Txt_tw = "0.8";
  ChangeEffects e = Data_Changed(m, "Txt_tw");
  EXPECT_EQ(m.Txt_Iz[2], "");
  EXPECT_EQ(m.Txt_It[2], "");
  EXPECT_EQ(m.Txt_zS[2], "");
  EXPECT_TRUE(e.Erase_Section);
  EXPECT_FALSE(Results_Cleared());  // results stay until the section is confirmed
}

TEST_F(DataEntry, ConfirmedDimensionsGiveTheRolledSection) {
  Solved();
  DimensionsResult d = Cmd_Dimensions(m);
  ASSERT_TRUE(d.ok);
  EXPECT_TRUE(Results_Cleared());
  EXPECT_TRUE(d.Draw_Section);
  // IPE 300 by hand: two flanges 15^3 x 1.07 / 12 = 300.94 each, web 0.86,
  // four fillets 1.07: Iz = 603.8 cm4; Iw = 28.93^2 x 300.94 x (1 - 300.94/603.8)
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iz[2]), 603.8, 0.2);
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iw[2]), 126330, 150);
  EXPECT_NEAR(Num_Of_Text(m.Txt_It[2]), 20.0, 0.5);
  EXPECT_EQ(m.Txt_Betaz[2], "0");  // doubly symmetric
  EXPECT_NEAR(Num_Of_Text(m.Txt_zS[2]), 0.0, 1e-9);
  EXPECT_NEAR(Num_Of_Text(m.Txt_zS_Hidden), 15.0, 1e-9);  // centroid at mid-height
  EXPECT_NEAR(m.Section_Props.Iz, 603.8, 0.2);
  EXPECT_FALSE(m.RefreshLocked);

  // in mm the same section shows in the units of the lists
  m.Lst_Unit_Dim = 0;
  m.Fact_Dim = Unit_Factor(UnitFamily::Dim, 0);
  m.Txt_h = "300";
  m.Txt_tw = "7.1";
  m.Txt_bf1 = "150";
  m.Txt_tf1 = "10.7";
  m.Txt_r1 = "15";
  ASSERT_TRUE(Cmd_Dimensions(m).ok);
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iz[2]), 603.8, 0.2);   // still cm4
  EXPECT_EQ(m.Txt_zS_Hidden, "150");                     // mm
}

TEST_F(DataEntry, EachShapeCopiesItsFlanges) {
  m.Txt_bf2 = "9";
  m.Tab_Dim = 0;  // double symmetric: flange 2 takes flange 1
  ASSERT_TRUE(Cmd_Dimensions(m).ok);
  EXPECT_EQ(m.Txt_bf2, "15");
  EXPECT_EQ(m.Txt_tf2, "1.07");
  EXPECT_EQ(m.Txt_r2, "1.5");

  m.Tab_Dim = 2;  // flange 1 only: flange 2 shrinks to the web
  DimensionsResult d = Cmd_Dimensions(m);
  EXPECT_EQ(m.Txt_bf2, "0.71");
  EXPECT_EQ(m.Txt_tf2, "0");
  EXPECT_EQ(m.Txt_r2, "0");
  EXPECT_TRUE(d.ok);
  // a T is not symmetric: its shear centre sits in the flange, above G
  EXPECT_GT(Num_Of_Text(m.Txt_zS[2]), 0);
  EXPECT_NE(m.Txt_Betaz[2], "0");

  m.Tab_Dim = 3;  // flange 2 only
  m.Txt_bf2 = "12";
  m.Txt_tf2 = "1.2";
  m.Txt_r2 = "1";
  d = Cmd_Dimensions(m);
  EXPECT_EQ(m.Txt_bf1, "0.71");
  EXPECT_EQ(m.Txt_tf1, "0");
  EXPECT_EQ(m.Txt_r1, "0");
  EXPECT_TRUE(d.ok);
  EXPECT_LT(Num_Of_Text(m.Txt_zS[2]), 0);  // now below G
}

TEST_F(DataEntry, FailedConfirmation) {
  // checks: numbers first (in their own order), then limits of the shape
  m.Txt_r2 = "x";
  m.Txt_h = "400";
  DimensionsResult d = Cmd_Dimensions(m);
  EXPECT_FALSE(d.ok);
  ASSERT_EQ(d.Shown.size(), 1u);
  EXPECT_EQ(d.Shown[0], "Not a number");
  EXPECT_EQ(d.field, "Txt_r2");
  EXPECT_EQ(d.Error_Text, "");  // shown, not left pending
  m.Txt_r2 = "1.5";
  d = Cmd_Dimensions(m);
  EXPECT_EQ(d.field, "Txt_h");
  EXPECT_EQ(d.Shown[0], "Value out of limits");
  // shape 0 ignores flange 2: it is overwritten
  m.Txt_h = "30";
  m.Txt_tf2 = "50";
  EXPECT_TRUE(Cmd_Dimensions(m).ok);
  m.Tab_Dim = 1;
  m.Txt_tf2 = "20.1";
  d = Cmd_Dimensions(m);
  EXPECT_EQ(d.field, "Txt_tf2");
  // proportions refused by the closed forms: the message stays pending
  m.Txt_tf2 = "1.07";
  m.Txt_h = "6";  // below 4 (tf1 + tf2)
  m.Txt_Iz[2] = "old";
  d = Cmd_Dimensions(m);
  EXPECT_FALSE(d.ok);
  EXPECT_EQ(d.Error_Text, "Section proportions refused");
  EXPECT_EQ(d.Shown, std::vector<std::string>{"Section proportions refused"});
  EXPECT_EQ(m.Txt_Iz[2], "old");  // nothing else changes
  // run by the program itself, the results are kept
  Solved();
  m.Txt_h = "30";
  m.RefreshLocked = true;
  EXPECT_TRUE(Cmd_Dimensions(m).ok);
  EXPECT_FALSE(Results_Cleared());
  EXPECT_TRUE(m.RefreshLocked);
}

TEST_F(DataEntry, ChangeOfShapeCarriesFlangeValues) {
  m.Txt_Iz[2] = "603.78";
  m.Tab_Dim = 3;
  m.Txt_bf2 = "12";
  m.Txt_tf2 = "1.2";
  m.Txt_r2 = "1";
  m.Opt_Catalogue = false;
  m.Opt_Dimensions = true;
  ChangeEffects e = Tab_Dim_Change(m, 0);
  EXPECT_EQ(m.Txt_bf1, "12");
  EXPECT_EQ(m.Txt_tf1, "1.2");
  EXPECT_EQ(m.Txt_r1, "1");
  EXPECT_EQ(m.Txt_Iz[2], "");
  EXPECT_TRUE(e.Erase_Section);
  // 0 -> 3 carries flange 1 to flange 2
  m.Txt_bf1 = "20";
  Tab_Dim_Change(m, 3);
  EXPECT_EQ(m.Txt_bf2, "20");
  // 1 -> 2 carries nothing
  Tab_Dim_Change(m, 1);
  m.Txt_bf2 = "5";
  Tab_Dim_Change(m, 2);
  EXPECT_EQ(m.Txt_bf1, "20");
  // a file being read: no copying, and the flag is cleared
  m.File_Loading = true;
  m.Txt_bf1 = "30";
  Tab_Dim_Change(m, 3);
  EXPECT_EQ(m.Txt_bf2, "5");
  EXPECT_FALSE(m.File_Loading);
  // no change of tab, no effect
  m.File_Loading = true;
  m.Txt_Iz[2] = "1";
  Tab_Dim_Change(m, 3);
  EXPECT_TRUE(m.File_Loading);
  EXPECT_EQ(m.Txt_Iz[2], "1");
}

}  // namespace
