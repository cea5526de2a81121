// The buckling mode diagram: four curves each on its own scale, the
// restraint circles on v and the v scale that reaches them, the crosses,
// the read-out and the message when there is no mode.
#include <gtest/gtest.h>

#include "diagram_support.h"
#include "sine_mode.h"

using namespace diagram_test;
using zarvek::BeamModel;
using zarvek::DiagramState;

namespace {

constexpr double W = 7335, H = 2775, m = 0.05;
constexpr Colour cv = 0xC00000, ct = 0x000000, cvp = 0x0000FF, ctp = 0x008000;

// The first lateral-torsional mode of a beam with fork supports, 10
// elements: v = sin(pi x/L), theta = -0.02 sin(pi x/L) and their slopes
// (L = 1000 cm), v normalised to 1; drawn from a problem file.
struct Fork_Mode {
  BeamModel b;
  DiagramState st;
  Recorder r{W, H};
  explicit Fork_Mode(double level = 0) {
    b.Mode_Vector = Sine_Mode(10, 1000, 1, -0.02);
    b.Restraint_Level.assign(12, 0.f);
    b.Restraint_Level[6] = level;  // a lateral restraint at mid-span, this high
    b.Mode_Max = 1;
    st.ExternalMode = true;
    st.NB = 10;
    zarvek::Tracer_VecteurPropre(r, b, st);
  }
};

// Extreme ordinates of a curve's chain.
std::pair<double, double> Range(const Recorder& r, Colour c) {
  double lo = 1e9, hi = -1e9;
  for (const auto& o : Drawn_Lines(r, c)) {
    lo = std::min({lo, o.y1, o.y2});
    hi = std::max({hi, o.y1, o.y2});
  }
  return {lo, hi};
}

}  // namespace

TEST(ModeDiagram, EachCurveOnItsOwnScaleTouchesTheFrame) {
  const Recorder r = Fork_Mode().r;
  // v positive: down to the bottom line at mid-span; theta negative: up to
  // the top line; the slopes reach both lines at the ends
  EXPECT_NEAR(Range(r, cv).first, H / 2, 1e-3);
  EXPECT_NEAR(Range(r, cv).second, 0.95 * H, 1e-3);
  EXPECT_NEAR(Range(r, ct).first, 0.05 * H, 1e-3);
  EXPECT_NEAR(Range(r, ct).second, H / 2, 1e-3);
  for (Colour c : {cvp, ctp}) {
    EXPECT_NEAR(Range(r, c).first, 0.05 * H, 1e-3);
    EXPECT_NEAR(Range(r, c).second, 0.95 * H, 1e-3);
  }
  const auto v = r.Of(RecordedOp::Line, cv);
  ASSERT_EQ(v.size(), 11u);
  EXPECT_NEAR(v.back().x2, W - m * W, 1e-3);
  EXPECT_TRUE(r.Of(RecordedOp::Line, 0x808080).size() == 5u);  // no crosses from a problem file
}

TEST(ModeDiagram, RestraintAboveTheShearCentreWidensTheScaleOfV) {
  // A lateral restraint 15 cm above the shear centre at mid-span (node 6):
  // there the flange moves by d = v - z theta = 1 + 15 x 0.02 = 1.3, more
  // than the axis; the v scale takes 1.3.
  const Recorder r = Fork_Mode(15).r;
  const auto circles = r.Of(RecordedOp::Arc);
  ASSERT_EQ(circles.size(), 1u);  // on v only
  EXPECT_EQ(circles[0].colour, cv);
  EXPECT_NEAR(circles[0].r, 0.005 * H, 1e-9);
  EXPECT_NEAR(circles[0].x1, W / 2, 1e-3);
  EXPECT_NEAR(circles[0].y1, 0.95 * H, 1e-2);                     // the restraint on the frame
  EXPECT_NEAR(Range(r, cv).second, H / 2 + 0.45 * H / 1.3, 1e-2);  // the axis within it
  // the v polyline goes on from the curve, not from the circle
  const auto v = Drawn_Lines(r, cv);
  for (const auto& o : v) EXPECT_LT(o.y2, 0.95 * H - 1);
}

TEST(ModeReadOut, NamesTheCurveUnderTheMouseWithoutFlipping) {
  Fork_Mode f;
  // v' at the right end, at the very edge of the frame: the label stays to
  // the right even though it leaves the surface
  auto hit = zarvek::Eigen_ReadOut(f.r, f.st, W - m * W, 0.05 * H);
  ASSERT_TRUE(hit.hit);
  EXPECT_EQ(hit.caption, "v'");
  EXPECT_GT(hit.Left, hit.x);
  // the grey sign marks and the background are no hit
  EXPECT_FALSE(zarvek::Eigen_ReadOut(f.r, f.st, m * W / 2 + 20, 0.46 * H + 60).hit);
  EXPECT_FALSE(zarvek::Eigen_ReadOut(f.r, f.st, W / 2 + 300, 0.6 * H).hit);
}
