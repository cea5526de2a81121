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
  struct Case {
    const char* name;
    double F, z;
    bool proportional;
    double yStart, yEnd, tick;  // expected
  } cases[] = {
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
    // the level tick, black, 0.06H wide
    const auto ticks = Drawn_Lines(r, Black);
    ASSERT_EQ(ticks.size(), 1u);
    EXPECT_NEAR(ticks[0].y1, c.tick, 1e-9);
    EXPECT_NEAR(ticks[0].y2, c.tick, 1e-9);
    EXPECT_NEAR(ticks[0].x2 - ticks[0].x1, 0.06 * H, 1e-9);
    // the head: two strokes of 0.08H back from the tip, 0.04H to each side
    const auto red = Drawn_Lines(r, Red);
    ASSERT_EQ(red.size(), 3u);
    const double back = c.F < 0 ? -0.08 * H : 0.08 * H;
    for (int i : {1, 2}) {
      EXPECT_NEAR(red[i].x1, x, 1e-9);
      EXPECT_NEAR(red[i].y1, ye, 1e-9);
      EXPECT_NEAR(red[i].y2, ye + back, 1e-9);
      EXPECT_NEAR(std::fabs(red[i].x2 - x), 0.04 * H, 1e-9);
    }
    EXPECT_NE(red[1].x2, red[2].x2);
  }
  // A zero load draws nothing and leaves the results alone.
  Recorder r(W, H);
  r.Cls();
  double ys = 7, ye = 8;
  zarvek::Draw_Force(r, 0, false, x, yc, 1, ys, ye);
  EXPECT_EQ(ys, 7);
  EXPECT_EQ(ye, 8);
  EXPECT_TRUE(Drawn_Lines(r).empty());
}

TEST(LoadStrip, AZeroEndKeepsATwentiethOfTheOther) {
  Recorder r(W, H);
  r.Cls();
  double q1 = 0, q2 = -1;
  zarvek::Draw_DistributedLoad(r, q1, q2, 1000, 3000, yc, 0);
  EXPECT_DOUBLE_EQ(q1, -0.05);
  const auto left = Shafts_At(r, 1000), right = Shafts_At(r, 3000);
  ASSERT_EQ(left.size(), 1u);
  ASSERT_EQ(right.size(), 1u);
  EXPECT_NEAR(Length(right[0]), 0.4 * H, 1e-9);
  EXPECT_NEAR(Length(left[0]), 0.4 * H / 20, 1e-9);
  // the two ends of both arrows are joined: a strip with its edges on the
  // tails and on the tips (the tips on the axis)
  int joins = 0;
  for (const auto& o : Drawn_Lines(r, Red)) {
    if (o.x1 != 1000 || o.x2 != 3000) continue;
    ++joins;
    const bool tips = std::fabs(o.y1 - yc) < 1e-9 && std::fabs(o.y2 - yc) < 1e-9;
    const bool tails = std::fabs(o.y1 - (yc - 0.02 * H)) < 1e-9 && std::fabs(o.y2 - (yc - 0.4 * H)) < 1e-9;
    EXPECT_TRUE(tips || tails);
  }
  EXPECT_EQ(joins, 2);
  // both zero: nothing
  Recorder e(W, H);
  e.Cls();
  double a = 0, b = 0;
  zarvek::Draw_DistributedLoad(e, a, b, 1000, 3000, yc, 0);
  EXPECT_TRUE(Drawn_Lines(e).empty());
}

TEST(MomentArc, QuarterArcWithItsHeadAtTheEndTheSignChooses) {
  struct Case {
    double M;
    const char* side;
    double a0;          // the arc's start; it runs a quarter turn
    double headAngle;   // angle of the head's point on the arc
    double dx1, dy1, dx2, dy2;  // the strokes, in units of b
  } cases[] = {
      {1, "G", 7 * Pi / 4, -Pi / 4, -1, 0, -0.5, 1},
      {1, "D", 3 * Pi / 4, 3 * Pi / 4, 1, 0, 0.5, -1},
      {-1, "G", 7 * Pi / 4, Pi / 4, -1, 0, -0.5, -1},
      {-1, "D", 3 * Pi / 4, 5 * Pi / 4, 1, 0, 0.5, 1},
      {0.5, "G", 7 * Pi / 4, -Pi / 4, -1, 0, -0.5, 1},
  };
  const double x = 2000;
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.M) + c.side);
    Recorder r(W, H);
    r.Cls();
    zarvek::Draw_Moment(r, c.M, x, yc, c.side);
    const double R = 0.2 * H * (0.3 + 0.7 * std::fabs(c.M)), b = R / 2;
    const auto arcs = r.Of(RecordedOp::Arc, Red);
    ASSERT_EQ(arcs.size(), 2u);
    EXPECT_NEAR(arcs[0].r, 0.01 * H, 1e-9);  // the dot at the point
    EXPECT_NEAR(arcs[0].sweep, 2 * Pi, 1e-9);
    EXPECT_NEAR(arcs[1].r, R, 1e-9);
    EXPECT_NEAR(arcs[1].a0, c.a0, 1e-9);
    EXPECT_NEAR(arcs[1].sweep, Pi / 2, 1e-9);
    // the head stands at one end of the arc (0.707 R from the centre on
    // each axis) and both strokes leave from it
    const auto strokes = Drawn_Lines(r, Red);
    ASSERT_EQ(strokes.size(), 2u);
    const double hx = x + 0.707 * R * (std::cos(c.headAngle) > 0 ? 1 : -1);
    const double hy = yc - 0.707 * R * (std::sin(c.headAngle) > 0 ? 1 : -1);  // y down
    EXPECT_NEAR(std::hypot(hx - x, hy - yc), R, 0.001 * R);
    for (const auto& s : strokes) {
      EXPECT_NEAR(s.x1, hx, 1e-9);
      EXPECT_NEAR(s.y1, hy, 1e-9);
    }
    EXPECT_NEAR(strokes[0].x2 - hx, c.dx1 * b, 1e-9);
    EXPECT_NEAR(strokes[0].y2 - hy, c.dy1 * b, 1e-9);
    EXPECT_NEAR(strokes[1].x2 - hx, c.dx2 * b, 1e-9);
    EXPECT_NEAR(strokes[1].y2 - hy, c.dy2 * b, 1e-9);
  }
}

TEST(LoadsScheme, NoLoadsGivesAxisSupportsAndCrossesOnly) {
  Recorder r(W, H);
  zarvek::Tracer_Loads(r, Bare_Beam());
  EXPECT_TRUE(r.Of(RecordedOp::Line, Red).empty());
  EXPECT_TRUE(r.Of(RecordedOp::Arc, Red).empty());
  const auto axis = Drawn_Lines(r, Black);
  ASSERT_EQ(axis.size(), 1u);
  EXPECT_NEAR(axis[0].x1, xL, 1e-9);
  EXPECT_NEAR(axis[0].x2, xR, 1e-9);
  EXPECT_NEAR(axis[0].y1, yc, 1e-9);
  // pinned ends: a triangle (three strokes 2 pixels wide) at each end, 0.1H high
  const auto blue = Drawn_Lines(r, Blue);
  ASSERT_EQ(blue.size(), 6u);
  for (const auto& o : blue) {
    EXPECT_EQ(o.width, 2);
    EXPECT_LE(std::max(o.y1, o.y2), yc + 0.1 * H + 1e-9);
  }
  // lateral restraints at both ends: two crosses
  EXPECT_EQ(Drawn_Lines(r, Grey).size(), 4u);
}

TEST(LoadsScheme, CrossesHaveLongerRightArmsAndMarkIntermediateRestraints) {
  BeamModel m = Bare_Beam();
  m.Lst_v2 = zarvek::RestraintList{0, "Free"};
  m.Lst_t2 = zarvek::RestraintList{0, "Free"};
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

TEST(LoadsScheme, CantileverHasNothingAtItsFreeEnd) {
  BeamModel m = Bare_Beam();
  m.Opt_AA = false;
  m.Opt_EL = true;
  Recorder r(W, H);
  zarvek::Tracer_Loads(r, m);
  const auto blue = Drawn_Lines(r, Blue);
  ASSERT_EQ(blue.size(), 1u);  // the bar of the fixed end
  EXPECT_NEAR(blue[0].x1, xL, 1e-9);
  EXPECT_NEAR(std::fabs(blue[0].y2 - blue[0].y1), 0.2 * H, 1e-9);
  // the cross of the restraint at the free end stays
  int atRight = 0;
  for (const auto& o : Drawn_Lines(r, Grey))
    if (o.x1 > xR - 0.1 * H) ++atRight;
  EXPECT_EQ(atRight, 2);
}

TEST(LoadsScheme, EachLoadFamilyIsNormalisedToItsLargest) {
  BeamModel m = Bare_Beam();
  // end moments: M1 = 0, M2 = 50: no arc on the left, a full-size one on the right
  m.Chk_M = true;
  m.Txt_M1 = "0";
  m.Txt_M2 = "50";
  // point loads of 100 and 1 kN, the small one 0.4 m above the shear centre
  m.Chk_F1 = true, m.Txt_F1 = "-100", m.Txt_xf1 = "0.25", m.Txt_zF1 = "0";
  m.Chk_F2 = true, m.Txt_F2 = "-1", m.Txt_xf2 = "0.75", m.Txt_zF2 = "0.4";
  // a triangular span load from 0 to 10 kN/m
  m.Chk_q1 = true, m.Txt_q11 = "0", m.Txt_q12 = "-10", m.Txt_xq11 = "0.4", m.Txt_xq12 = "0.6";
  Recorder r(W, H);
  zarvek::Tracer_Loads(r, m);

  const auto arcs = r.Of(RecordedOp::Arc, Red);
  ASSERT_EQ(arcs.size(), 2u);  // dot and arc, on the right end only
  EXPECT_NEAR(arcs[1].x1, xR, 1e-9);
  EXPECT_NEAR(arcs[1].r, 0.2 * H, 1e-9);

  const auto big = Shafts_At(r, xL + 0.25 * Len), small = Shafts_At(r, xL + 0.75 * Len);
  ASSERT_EQ(big.size(), 1u);
  ASSERT_EQ(small.size(), 1u);
  EXPECT_NEAR(Length(big[0]), 0.4 * H, 1e-9);
  EXPECT_NEAR(Length(small[0]), 0.4 * H * (0.2 + 0.8 * 0.01), 1e-9);
  // the small load acts above the shear centre: its tip ends 0.05H above the
  // axis, on its level tick
  EXPECT_NEAR(std::max(small[0].y1, small[0].y2), yc - g, 1e-9);
  bool tick = false;
  for (const auto& o : Drawn_Lines(r, Black))
    if (std::fabs(o.y1 - (yc - g)) < 1e-9 && std::fabs(o.y2 - (yc - g)) < 1e-9) tick = true;
  EXPECT_TRUE(tick);

  const auto q0 = Shafts_At(r, xL + 0.4 * Len), q1 = Shafts_At(r, xL + 0.6 * Len);
  ASSERT_EQ(q0.size(), 1u);
  ASSERT_EQ(q1.size(), 1u);
  EXPECT_NEAR(Length(q1[0]), 0.4 * H, 1e-9);
  EXPECT_NEAR(Length(q0[0]) * 20, Length(q1[0]), 1e-9);
}
