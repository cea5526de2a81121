// Display units: factors to daN and cm.
// The rewriting of shown numbers is checked on the beam record.
#include <gtest/gtest.h>

#include "foundation/Units.h"

using namespace zarvek;
using F = UnitFamily;

namespace {

int Index_Of(F f, const std::string& text) {
  for (int i = 0; i < Unit_ItemCount(f); ++i)
    if (Unit_ItemText(f, i) == text) return i;
  return -1;
}

TEST(UnitFactors, ConversionsToDaNAndCm) {
  const struct { F f; const char* unit; float factor; } cases[] = {
      // 1 m = 100 cm, 1 mm = 0.1 cm; 1 MPa = 1 N/mm2 = 100 N/cm2 = 10 daN/cm2
      {F::L, "m", 100}, {F::L, "mm", 0.1f}, {F::Dim, "mm", 0.1f}, {F::EG, "MPa", 10},
      {F::EG, "kN/cm2", 100}, {F::EG, "kN/mm2", 10000},
      // 1 kN.m = 100 daN x 100 cm; 1 kN/m = 100 daN / 100 cm
      {F::M, "kN.m", 10000}, {F::M, "daN.m", 100}, {F::F, "kN", 100}, {F::q, "kN/m", 1},
      {F::q, "daN/m", 0.01f}, {F::v, "daN/mm", 10}, {F::t, "kN.m/rd", 10000},
      // per metre of beam: once more over 100 cm
      {F::v_c, "kN/m/m", 0.01f}, {F::v_c, "daN/m/m", 0.0001f}, {F::t_c, "kN.m/rd/m", 100},
      {F::vp_c, "kN.m/m", 100}, {F::Izt, "mm4", 0.0001f}, {F::Iw, "mm6", 1e-6f},
      // not the physical 1e8 and 1e12: the values the lists have always carried
      {F::Izt, "m4", 10000}, {F::Iw, "m6", 1e6f}, {F::tp, "kN.m3/rd", 1e-8f},
      {F::tp, "kN.cm3/rd", 0.01f}, {F::t_c, "daN.m/rd/m", 1}};
  for (const auto& c : cases)
    EXPECT_FLOAT_EQ(Unit_Factor(c.f, Index_Of(c.f, c.unit)), c.factor) << c.unit;
  // an index that no list has never yields a zero factor
  EXPECT_EQ(Unit_Factor(F::L, 7), 1.0f);
  EXPECT_EQ(Unit_ItemText(F::L, -1), "");
}

}  // namespace
