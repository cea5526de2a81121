// Validation: the first fault stops the walk through the tabs, with its
// message, tab and field.
#include <gtest/gtest.h>

#include "model/DataEntry.h"
#include "model/Validation.h"
#include "model_support.h"

using namespace zarvek;
using namespace zarvek_test;

namespace {

class Validation : public ::testing::Test {
 protected:
  void SetUp() override { Load_Test_Messages(); }
  BeamModel m = Default_Model();

  void Expect_Fault(const std::string& message, int tab, const std::string& field) {
    ValidationResult r = IsDataOK(m);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.Error_Text, message);
    EXPECT_EQ(r.tab, tab);
    EXPECT_EQ(r.field, field);
    EXPECT_FALSE(m.RefreshLocked);
  }
  void Expect_Pass() {
    ValidationResult r = IsDataOK(m);
    EXPECT_TRUE(r.ok) << r.Error_Text << " at " << r.field;
    EXPECT_FALSE(m.RefreshLocked);
  }
};

TEST_F(Validation, DefaultModelPasses) {
  m.RefreshLocked = true;  // released on return whatever it was
  Expect_Pass();
}

TEST_F(Validation, ElementLengthFromOneTo300Cm) {
  m.Txt_L = "1";  // 1 m in 100 elements: 1 cm each
  Expect_Pass();
  m.Txt_L = "0.99";
  Expect_Fault("L/N : Value out of limits", 0, "Txt_L");
  m.Txt_L = "0.99995";  // within the widening of one part in ten thousand
  Expect_Pass();
  m.Txt_L = "300";
  Expect_Pass();
  m.Txt_L = "301";
  Expect_Fault("L/N : Value out of limits", 0, "Txt_L");
  m.Txt_NB = 3;  // 200 elements: up to 600 m
  m.Txt_L = "600";
  Expect_Pass();
  m.Txt_L = "601";
  Expect_Fault("L/N : Value out of limits", 0, "Txt_L");
  // only the magnitude is judged on the beam tab; the levels of the
  // restraints, bounded by a quarter of the signed length, then fail
  m.Txt_NB = 0;
  m.Txt_L = "-10";
  EXPECT_TRUE(IsDataBeamOK(m).ok);
  Expect_Fault("Restraint out of the beam", 1, "Txt_zend1");
  m.Txt_L = "10";
  // the same length typed in mm
  m.Fact_L = Unit_Factor(UnitFamily::L, 0);
  m.Txt_L = "990";
  Expect_Fault("L/N : Value out of limits", 0, "Txt_L");
}

TEST_F(Validation, BeamTabOrder) {
  // an empty length fails as not numeric before anything else
  m.Txt_L = "";
  m.Txt_E = "x";
  Expect_Fault("Not a number", 0, "Txt_L");
  m.Txt_L = "10";
  Expect_Fault("Not a number", 0, "Txt_E");
  // E from 100 MPa (1000 daN/cm2) to 1e6 MPa
  m.Txt_E = "100";
  Expect_Pass();
  m.Txt_E = "99";
  Expect_Fault("Value out of limits", 0, "Txt_E");
  m.Txt_E = "210000";
  m.Txt_Nu = "0.5";
  Expect_Pass();
  m.Txt_Nu = "0.51";
  Expect_Fault("Value out of limits", 0, "Txt_Nu");
  // G is never checked
  m.Txt_Nu = "0.3";
  m.Txt_G = "nonsense";
  Expect_Pass();
}

TEST_F(Validation, PropertiesRoute) {
  m.Opt_Catalogue = false;
  m.Opt_Properties = true;
  Expect_Pass();
  m.Txt_Iw[3] = "0";  // a section without warping stiffness is allowed
  Expect_Pass();
  m.Txt_Iz[3] = "0";
  Expect_Fault("Value out of limits", 0, "Txt_Iz(3)");
  // every numeric test comes before the first limit
  m.Txt_Betaz[3] = "b";
  Expect_Fault("Not a number", 0, "Txt_Betaz(3)");
  m.Txt_Betaz[3] = "151";
  m.Txt_Iz[3] = "1";
  Expect_Fault("Value out of limits", 0, "Txt_Betaz(3)");
  m.Txt_Betaz[3] = "-150";
  Expect_Pass();
  m.Txt_It[3] = "0.0009";
  Expect_Fault("Value out of limits", 0, "Txt_It(3)");
  // the catalogue route checks nothing of the section
  m.Opt_Properties = false;
  m.Opt_Catalogue = true;
  Expect_Pass();
}

TEST_F(Validation, DimensionsRoute) {
  m.Opt_Catalogue = false;
  m.Opt_Dimensions = true;
  m.Txt_Iz[2] = "";
  Expect_Fault("Section not computed", 0, "Txt_Iz(2)");
  // once computed, each validation confirms the section again
  m.Txt_Iz[2] = "1";
  ValidationResult r = IsDataOK(m);
  EXPECT_TRUE(r.ok);
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iz[2]), 603.8, 3.0);  // the IPE 300 of the dimensions
  // a section the closed forms refuse stops the validation
  m.Txt_h = "5";  // deeper than 4 (tf1 + tf2) is required
  r = IsDataOK(m);
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(r.Error_Text, "Section proportions refused");
  ASSERT_EQ(r.Shown.size(), 1u);
  EXPECT_EQ(r.Shown[0], "Section proportions refused");
  // a dimension out of its limits is shown by the confirmation itself
  m.Txt_h = "2";
  r = IsDataOK(m);
  ASSERT_EQ(r.Shown.size(), 1u);
  EXPECT_EQ(r.Shown[0], "Value out of limits");
  EXPECT_EQ(r.field, "Txt_h");
}

TEST_F(Validation, RestraintsOrderAndLevels) {
  m.Txt_zint_c = "a";
  m.Txt_xfint2 = "";
  Expect_Fault("Not a number", 1, "Txt_zint_c");
  m.Txt_zint_c = "0";
  Expect_Fault("Not a number", 1, "Txt_xfint2");
  m.Txt_xfint2 = "0.5";
  // typed springs must be numbers, in the order of the lists
  m.Lst_vpi_c = RestraintList{-1, "k"};
  m.Lst_tp2 = RestraintList{-1, "1.5.2"};
  Expect_Fault("Not a number", 1, "Lst_tp2");
  m.Lst_tp2 = RestraintList{-1, "12"};
  Expect_Fault("Not a number", 1, "Lst_vpi_c");
  m.Lst_vpi_c = RestraintList{0, "Free"};
  Expect_Pass();
  // a level up to a quarter of the length: 250 cm on 10 m
  m.Txt_zint_p2 = "250";
  Expect_Pass();
  m.Txt_zint_p2 = "-250.02";  // inside the widening
  Expect_Pass();
  m.Txt_zint_p2 = "-250.03";
  Expect_Fault("Restraint out of the beam", 1, "Txt_zint_p2");
  // the same in mm
  m.Lst_Unit_Dim = 0;
  m.Fact_Dim = Unit_Factor(UnitFamily::Dim, 0);
  m.Txt_zint_p2 = "2500";
  Expect_Pass();
  m.Txt_zint_p2 = "2510";
  Expect_Fault("Restraint out of the beam", 1, "Txt_zint_p2");
}

TEST_F(Validation, ContinuousRestraintThatLocksTheBeam) {
  m.Lst_vi_c = Restraint_Item(1);
  m.Lst_ti_c = Restraint_Item(1);
  Expect_Pass();  // switched off
  m.Chk_Continuous = true;
  Expect_Fault("Continuous restraint locks the beam", -1, "");
  m.Lst_vi_c = Restraint_Item(0);
  m.Lst_vpi_c = Restraint_Item(1);
  Expect_Fault("Continuous restraint locks the beam", -1, "");
  m.Lst_ti_c = RestraintList{-1, "100"};
  Expect_Pass();
}

TEST_F(Validation, PunctualRestraintPositions) {
  m.Txt_xfint2 = "1.2";  // the first position is the one selected
  Expect_Fault("Restraint out of the beam", 1, "Txt_xfint1");
  m.Txt_xfint2 = "0.5";
  m.Txt_xfint1 = "-1";
  Expect_Fault("Restraint out of the beam", 1, "Txt_xfint1");
  // the bounds 0.05 and 0.95 themselves are valid, with no widening
  m.Txt_xfint1 = "0.05";
  m.Txt_xfint2 = "0.95";
  Expect_Pass();
  m.Txt_xfint1 = "0.0499";
  Expect_Fault("Position out of 0.05 .. 0.95", 1, "Txt_xfint1");
  m.Txt_xfint1 = "0.5";
  m.Txt_xfint2 = "0.96";
  Expect_Fault("Position out of 0.05 .. 0.95", 1, "Txt_xfint2");
  // two restraints at the same place: a fault only when both act
  m.Txt_xfint2 = "0.5";
  m.Chk_Punctual1 = true;
  Expect_Pass();
  m.Chk_Punctual2 = true;
  Expect_Fault("Punctual restraints too close", 1, "Txt_xfint2");
  m.Txt_xfint2 = "0.56";
  Expect_Pass();
}

TEST_F(Validation, Loads) {
  m.Txt_xfC = "7";  // the position of the point moment has no range
  Expect_Pass();
  m.Txt_xf1 = "1.5";  // the point loads' positions have one
  Expect_Fault("Value out of limits", 2, "Txt_xf1");
  m.Txt_xf1 = "0.5";
  m.Txt_xq22 = "1.0001";
  Expect_Pass();
  m.Txt_xq22 = "1.01";
  Expect_Fault("Value out of limits", 2, "Txt_xq22");
  m.Txt_xq22 = "1";
  // load levels: a quarter of the length, the load message
  m.Txt_zF3 = "-251";
  Expect_Fault("Value out of limits", 2, "Txt_zF3");
  m.Txt_zq2 = "300";
  Expect_Fault("Value out of limits", 2, "Txt_zq2");
  // numbers first, in the order of the list, switched-off loads too
  m.Txt_xfC = "";
  m.Txt_q22 = "?";
  Expect_Fault("Not a number", 2, "Txt_q22");
  m.Txt_q22 = "-10";
  Expect_Fault("Not a number", 2, "Txt_xfC");
  // the beam tab comes first
  m.Txt_Nu = "0.7";
  Expect_Fault("Value out of limits", 0, "Txt_Nu");
}

}  // namespace
