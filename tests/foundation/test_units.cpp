// Display units: factors to daN and cm, and the rewriting of shown numbers.
#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Mod_Zarvek.h"
#include "foundation/Units.h"

using namespace zarvek;

namespace {

int Index_Of(UnitFamily f, const std::string& text) {
  for (int i = 0; i < Unit_ItemCount(f); ++i)
    if (Unit_ItemText(f, i) == text) return i;
  return -1;
}

float Factor(UnitFamily f, const std::string& text) { return Unit_Factor(f, Index_Of(f, text)); }

TEST(UnitFactors, ExactConversionsToDaNAndCm) {
  // 1 m = 100 cm, 1 mm = 0.1 cm
  EXPECT_FLOAT_EQ(Factor(UnitFamily::L, "m"), 100.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::L, "mm"), 0.1f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::Dim, "mm"), 0.1f);
  // 1 MPa = 1 N/mm2 = 100 N/cm2 = 10 daN/cm2; 1 kN/cm2 = 100 daN/cm2
  EXPECT_FLOAT_EQ(Factor(UnitFamily::EG, "MPa"), 10.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::EG, "kN/cm2"), 100.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::EG, "kN/mm2"), 10000.0f);
  // 1 kN.m = 100 daN x 100 cm
  EXPECT_FLOAT_EQ(Factor(UnitFamily::M, "kN.m"), 10000.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::M, "daN.m"), 100.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::F, "kN"), 100.0f);
  // 1 kN/m = 100 daN / 100 cm; 1 daN/m = 0.01 daN/cm
  EXPECT_FLOAT_EQ(Factor(UnitFamily::q, "kN/m"), 1.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::q, "daN/m"), 0.01f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::v, "daN/mm"), 10.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::t, "kN.m/rd"), 10000.0f);
  // 1 kN/m/m = 100 daN / 100 cm / 100 cm
  EXPECT_FLOAT_EQ(Factor(UnitFamily::v_c, "kN/m/m"), 0.01f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::v_c, "daN/m/m"), 0.0001f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::t_c, "kN.m/rd/m"), 100.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::vp_c, "kN.m/m"), 100.0f);
  // 1 mm4 = 1e-4 cm4, 1 mm6 = 1e-6 cm6 (single precision)
  EXPECT_FLOAT_EQ(Factor(UnitFamily::Izt, "mm4"), 0.0001f);
  EXPECT_EQ(Factor(UnitFamily::Iw, "mm6"), (float)(1.0 / 1000000.0));
}

TEST(UnitFactors, TheProgramsOwnValuesStand) {
  // not the physical 1e8 and 1e12: the values the lists have always carried
  EXPECT_FLOAT_EQ(Factor(UnitFamily::Izt, "m4"), 10000.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::Iw, "m6"), 1000000.0f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::tp, "kN.m3/rd"), 1e-8f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::tp, "kN.cm3/rd"), 0.01f);
  EXPECT_FLOAT_EQ(Factor(UnitFamily::t_c, "daN.m/rd/m"), 1.0f);
}

TEST(UnitFactors, NewDocumentUnits) {
  const char* expected[] = {"m",     "MPa",   "cm4",      "cm6",    "cm",
                            "kN.m",  "kN",    "kN/m",     "kN/m",   "kN.m/rd",
                            "kN.m",  "kN.m3/rd", "kN/m/m", "kN.m/rd/m", "kN.m/m"};
  for (UnitFamily f : All_Unit_Families)
    EXPECT_EQ(Unit_ItemText(f, Unit_DefaultIndex(f)), expected[(int)f]) << Unit_ListName(f);
  EXPECT_EQ(Unit_DefaultIndices()[(int)UnitFamily::L], 2);
  // an index that no list has never yields a zero factor
  EXPECT_EQ(Unit_Factor(UnitFamily::L, 7), 1.0f);
  EXPECT_EQ(Unit_ItemText(UnitFamily::L, -1), "");
}

TEST(ChangeUnit, RewritesTheShownNumberOnly) {
  std::string t = "100";
  ChangeUnit(UnitFamily::Dim, Index_Of(UnitFamily::Dim, "mm"), Index_Of(UnitFamily::Dim, "cm"), t);
  EXPECT_EQ(t, "10");
  t = "1";
  ChangeUnit(UnitFamily::Izt, Index_Of(UnitFamily::Izt, "m4"), Index_Of(UnitFamily::Izt, "cm4"), t);
  EXPECT_EQ(t, "10000");
  // a spring of 1000 daN/cm is 100000 daN/m
  t = "1000";
  ChangeUnit(UnitFamily::v, Index_Of(UnitFamily::v, "daN/cm"), Index_Of(UnitFamily::v, "daN/m"), t);
  EXPECT_EQ(t, "100000");
  // 2.5 m -> 2500 mm
  t = "2.5";
  ChangeUnit(UnitFamily::L, 2, 0, t);
  EXPECT_EQ(t, "2500");
  // texts that are not numbers stay
  for (std::string s : {"Free", "Fixed", "", "?"}) {
    std::string u = s;
    ChangeUnit(UnitFamily::v, 4, 1, u);
    EXPECT_EQ(u, s);
  }
  // the same index: nothing, not even a reformatting
  t = "10.000";
  ChangeUnit(UnitFamily::L, 2, 2, t);
  EXPECT_EQ(t, "10.000");
}

TEST(ChangeUnit, EveryPairOfUnitsKeepsTheInternalValue) {
  for (UnitFamily f : All_Unit_Families) {
    for (int a = 0; a < Unit_ItemCount(f); ++a) {
      for (int b = 0; b < Unit_ItemCount(f); ++b) {
        std::string t = "123.4";
        const double before = Num_Of_Text(t) * Unit_Factor(f, a);
        ChangeUnit(f, a, b, t);
        const double after = Num_Of_Text(t) * Unit_Factor(f, b);
        // the text keeps four significant digits at least
        EXPECT_NEAR(after / before, 1.0, 5e-4) << Unit_ListName(f) << " " << a << "->" << b;
      }
    }
  }
}

}  // namespace
