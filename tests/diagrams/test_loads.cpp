// The scheme of the beam and its loads: arrows, strips, moment arcs,
// supports and restraint crosses, at the design size of 7335 x 1365 twips.
#include <gtest/gtest.h>

#include "diagram_support.h"

using namespace diagram_test;
using zarvek::BeamModel;

namespace {

constexpr double W = 7335, H = 1365;
constexpr double xL = 0.05 * W, xR = 0.95 * W, yc = H / 2, Len = xR - xL, g = 0.05 * H;
constexpr Colour Red = 0x0000C0, Blue = 0xC00000, Grey = 0x808080, Black = 0x000000;

// A beam with nothing on it but its end conditions: pinned ends, lateral
// displacement and twist held at both ends.
BeamModel Bare_Beam() {
  BeamModel m;
  m.Chk_M = false;
  return m;
}

// Red vertical shafts (the arrows' bodies) at abscissa x.
std::vector<RecordedOp> Shafts_At(const Recorder& r, double x) {
  return Vertical_At(Drawn_Lines(r, Red), x, 1e-6);
}

}  // namespace

TEST(LoadArrow, HasItsTipOrTailOnTheLevelOfApplication) {
  const double x = 1000;
  const struct { const char* name; double F, z; bool proportional; double yStart, yEnd, tick; } cases[] = {
      // a downward load at the shear centre ends with its tip on the axis
      {"down, at the axis", -1, 0, false, yc - 0.4 * H, yc, yc},
      // ... above it: tip 0.05H above the axis, where the tick stands
      {"down, above", -1, 3, false, yc - g - 0.4 * H, yc - g, yc - g},
      // ... below it: it starts at the level and points away from it
      {"down, below", -1, -3, false, yc + g, yc + g + 0.4 * H, yc + g},
      {"up, at the axis", 1, 0, false, yc, yc - 0.4 * H, yc},
      {"up, above", 1, 2, false, yc - g, yc - g - 0.4 * H, yc - g},
      {"up, below", 1, -2, false, yc + g + 0.4 * H, yc + g, yc + g},
      // the smallest of loads still shows at a fifth of the longest
      {"small, not proportional", -0.01, 0, false, yc - 0.4 * H * (0.2 + 0.8 * 0.01), yc, yc},
      {"half, proportional", -0.5, 0, true, yc - 0.2 * H, yc, yc},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Recorder r(W, H);
    r.Cls();
    double ys = -1, ye = -1;
    zarvek::Draw_Force(r, c.F, c.proportional, x, yc, c.z, ys, ye);
    EXPECT_NEAR(ys, c.yStart, 1e-9);
    EXPECT_NEAR(ye, c.yEnd, 1e-9);
    const auto ticks = Drawn_Lines(r, Black);  // the level tick
    ASSERT_EQ(ticks.size(), 1u);
    EXPECT_NEAR(ticks[0].y1, c.tick, 1e-9);
    EXPECT_NEAR(ticks[0].y2, c.tick, 1e-9);
  }
  // A zero load draws nothing and leaves the results alone.
  Recorder r(W, H);
  r.Cls();
  double ys = 7, ye = 8;
  zarvek::Draw_Force(r, 0, false, x, yc, 1, ys, ye);
  EXPECT_TRUE(ys == 7 && ye == 8);
  EXPECT_TRUE(Drawn_Lines(r).empty());
}

TEST(LoadStrip, AZeroEndKeepsATwentiethOfTheOther) {
  Recorder r(W, H);
  r.Cls();
  double q1 = 0, q2 = -1;
  zarvek::Draw_DistributedLoad(r, q1, q2, 1000, 3000, yc, 0);
  EXPECT_DOUBLE_EQ(q1, -0.05);
  for (auto [x, length] : {std::pair{1000.0, 0.4 * H / 20}, {3000.0, 0.4 * H}}) {
    const auto shaft = Shafts_At(r, x);
    ASSERT_EQ(shaft.size(), 1u);
    EXPECT_NEAR(Length(shaft[0]), length, 1e-9);
  }
}

TEST(LoadsScheme, NoLoadsGivesAxisSupportsAndCrossesOnly) {
  Recorder r(W, H);
  zarvek::Tracer_Loads(r, Bare_Beam());
  EXPECT_TRUE(r.Of(RecordedOp::Line, Red).empty());
  EXPECT_TRUE(r.Of(RecordedOp::Arc, Red).empty());
  EXPECT_EQ(Drawn_Lines(r, Black).size(), 1u);  // the axis
  // pinned ends: a triangle of three strokes at each end
  EXPECT_EQ(Drawn_Lines(r, Blue).size(), 6u);
  // lateral restraints at both ends: two crosses
  EXPECT_EQ(Drawn_Lines(r, Grey).size(), 4u);
}

TEST(LoadsScheme, CrossesHaveLongerRightArmsAndMarkIntermediateRestraints) {
  BeamModel m = Bare_Beam();
  m.Lst_v2 = m.Lst_t2 = zarvek::RestraintList{0, "Free"};
  m.Chk_Punctual1 = true;
  m.Txt_xfint1 = "0.3";
  m.Lst_ti_p1 = zarvek::RestraintList{-1, "5"};  // a spring counts as held
  m.Chk_Punctual2 = true;                          // ticked, but holds nothing
  m.Txt_xfint2 = "0.7";
  Recorder r(W, H);
  zarvek::Tracer_Loads(r, m);
  const auto grey = Drawn_Lines(r, Grey);
  ASSERT_EQ(grey.size(), 4u);  // the left end and the restraint at 0.3 L
  const double s = 0.05 * H;
  for (double x : {xL, xL + 0.3 * Len}) {
    int arms = 0;
    for (const auto& o : grey) {
      if (std::fabs(o.x1 - (x - s)) > 1e-9) continue;
      ++arms;
      EXPECT_NEAR(o.x2, x + 1.3 * s, 1e-9);
      EXPECT_NEAR(std::fabs(o.y2 - yc), 1.3 * s, 1e-9);
      EXPECT_NEAR(std::fabs(o.y1 - yc), s, 1e-9);
      EXPECT_LT((o.y1 - yc) * (o.y2 - yc), 0);  // through the axis
    }
    EXPECT_EQ(arms, 2) << x;
  }
}

TEST(LoadsScheme, EachLoadFamilyIsNormalisedToItsLargest) {
  BeamModel m = Bare_Beam();
  // point loads of 100 and 1 kN, the small one 0.4 m above the shear centre
  m.Chk_F1 = true, m.Txt_F1 = "-100", m.Txt_xf1 = "0.25", m.Txt_zF1 = "0";
  m.Chk_F2 = true, m.Txt_F2 = "-1", m.Txt_xf2 = "0.75", m.Txt_zF2 = "0.4";
  Recorder r(W, H);
  zarvek::Tracer_Loads(r, m);

  for (auto [x, length] : {std::pair{0.25, 0.4 * H}, {0.75, 0.4 * H * (0.2 + 0.8 * 0.01)}}) {
    const auto shaft = Shafts_At(r, xL + x * Len);
    ASSERT_EQ(shaft.size(), 1u);
    EXPECT_NEAR(Length(shaft[0]), length, 1e-9);
  }
}
