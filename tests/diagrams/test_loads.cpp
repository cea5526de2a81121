// The scheme of the beam and its loads: arrows, strips, supports and restraint crosses, at 7335 x 1365 twips.
#include <gtest/gtest.h>

#include "diagram_support.h"

using namespace diagram_test;

namespace {

constexpr double W = 7335, H = 1365;
constexpr double xL = 0.05 * W, xR = 0.95 * W, yc = H / 2, Len = xR - xL, g = 0.05 * H;
constexpr Colour Red = 0x0000C0, Blue = 0xC00000, Grey = 0x808080, Black = 0x000000;

// A beam without its default end moments: pinned ends, v and twist held, only the loads the test puts on.
Recorder Scheme(BeamModel m = {}) {
  m.Chk_M = false;
  Recorder r(W, H);
  zarvek::Tracer_Loads(r, m);
  return r;
}

// One red vertical shaft (an arrow's body) at abscissa x, of this length.
void Expect_Shaft(const Recorder& r, double x, double length) {
  const auto shaft = Vertical_At(Drawn_Lines(r, Red), x);
  ASSERT_EQ(shaft.size(), 1u) << x;
  EXPECT_NEAR(Length(shaft[0]), length, 1e-9) << x;
}

}  // namespace

TEST(LoadArrow, HasItsTipOrTailOnTheLevelOfApplication) {
  const struct { const char* name; double F, z; bool proportional; double yStart, yEnd, tick; } cases[] = {
      // a downward load at the shear centre ends with its tip on the axis
      {"down, at the axis", -1, 0, false, yc - 0.4 * H, yc, yc},
      // ... above it: tip 0.05H above the axis, where the tick stands
      {"down, above", -1, 3, false, yc - g - 0.4 * H, yc - g, yc - g},
      // ... below it: it starts at the level and points away from it
      {"down, below", -1, -3, false, yc + g, yc + g + 0.4 * H, yc + g},
      {"up, at the axis", 1, 0, false, yc, yc - 0.4 * H, yc},
      {"half, proportional", -0.5, 0, true, yc - 0.2 * H, yc, yc},
      // a zero load draws nothing and leaves the results alone
      {"zero", 0, 1, false, 7, 8, -1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Recorder r(W, H);
    r.Cls();
    double ys = 7, ye = 8;
    zarvek::Draw_Force(r, c.F, c.proportional, 1000, yc, c.z, ys, ye);
    EXPECT_NEAR(ys, c.yStart, 1e-9); EXPECT_NEAR(ye, c.yEnd, 1e-9);
    EXPECT_EQ(Drawn_Lines(r).empty(), c.F == 0);
    if (c.F == 0) continue;
    const auto ticks = Drawn_Lines(r, Black);  // the level tick
    ASSERT_EQ(ticks.size(), 1u);
    EXPECT_NEAR(ticks[0].y1, c.tick, 1e-9); EXPECT_NEAR(ticks[0].y2, c.tick, 1e-9);
  }
}

TEST(LoadsScheme, SupportsAndACrossAtEachRestraint) {
  const Recorder bare = Scheme();
  EXPECT_TRUE(bare.Of(RecordedOp::Line, Red).empty() && bare.Of(RecordedOp::Arc, Red).empty());
  EXPECT_EQ(Drawn_Lines(bare, Black).size(), 1u);  // the axis
  EXPECT_EQ(Drawn_Lines(bare, Blue).size(), 6u);   // pinned ends: a triangle of three strokes each
  EXPECT_EQ(Drawn_Lines(bare, Grey).size(), 4u);   // lateral restraints at both ends: two crosses

  BeamModel m;
  m.Lst_v2 = m.Lst_t2 = zarvek::RestraintList{0, "Free"};
  m.Chk_Punctual1 = true, m.Txt_xfint1 = "0.3";
  m.Lst_ti_p1 = zarvek::RestraintList{-1, "5"};  // a spring counts as held
  m.Chk_Punctual2 = true, m.Txt_xfint2 = "0.7";  // ticked, but holds nothing
  const auto grey = Drawn_Lines(Scheme(m), Grey);
  ASSERT_EQ(grey.size(), 4u);  // the left end and the restraint at 0.3 L
  for (double x : {xL, xL + 0.3 * Len})  // two arms from the left of each
    EXPECT_EQ(std::count_if(grey.begin(), grey.end(), [x](auto& o) { return std::fabs(o.x1 - (x - g)) < 1e-9; }), 2)
        << x;
}

TEST(LoadsScheme, EachLoadFamilyIsNormalisedToItsLargestAStripEndToATwentieth) {
  BeamModel m;
  // point loads of 100 and 1 kN, the small one 0.4 m above the shear centre
  m.Chk_F1 = true, m.Txt_F1 = "-100", m.Txt_xf1 = "0.25", m.Txt_zF1 = "0";
  m.Chk_F2 = true, m.Txt_F2 = "-1", m.Txt_xf2 = "0.75", m.Txt_zF2 = "0.4";
  const Recorder r = Scheme(m);
  Expect_Shaft(r, xL + 0.25 * Len, 0.4 * H);
  Expect_Shaft(r, xL + 0.75 * Len, 0.4 * H * (0.2 + 0.8 * 0.01));
  // a strip whose one end is zero keeps a twentieth of the other there
  Recorder s(W, H);
  double q1 = 0, q2 = -1;
  zarvek::Draw_DistributedLoad(s, q1, q2, 1000, 3000, yc, 0);
  EXPECT_DOUBLE_EQ(q1, -0.05);
  Expect_Shaft(s, 1000, 0.4 * H / 20); Expect_Shaft(s, 3000, 0.4 * H);
}
