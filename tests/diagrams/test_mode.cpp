// The mode diagram: four curves on their own scales, the restraint circles on v and its scale, the read-out.
#include <gtest/gtest.h>

#include "diagram_support.h"

using namespace diagram_test;

namespace {

constexpr double W = 7335, H = 2775, m = 0.05;
constexpr Colour cv = 0xC00000, ct = 0x000000, cvp = 0x0000FF, ctp = 0x008000;

// The first lateral-torsional mode of a beam with fork supports, 10 elements: v = sin(pi x/L), theta = -0.02
// sin(pi x/L) and their slopes (L = 1000 cm), v normalised to 1; drawn from a problem file.
struct Fork_Mode {
  BeamModel b;
  zarvek::DiagramState st;
  Recorder r{W, H};
  explicit Fork_Mode(double level = 0) {
    b.Mode_Vector = Sine_Mode(10, 1000, 1, -0.02);
    b.Restraint_Level.assign(12, 0.f);
    b.Restraint_Level[6] = level;  // a lateral restraint at mid-span, this high
    b.Mode_Max = 1, st.ExternalMode = true, st.NB = 10;
    zarvek::Tracer_VecteurPropre(r, b, st);
  }
};

// A curve's chain reaches from ordinate lo to hi.
void Expect_Range(const Recorder& r, Colour c, double lo, double hi, double tol = 1e-3) {
  double top = 1e9, bottom = -1e9;
  for (const auto& o : Drawn_Lines(r, c))
    top = std::min({top, o.y1, o.y2}), bottom = std::max({bottom, o.y1, o.y2});
  EXPECT_NEAR(top, lo, tol) << std::hex << c;
  EXPECT_NEAR(bottom, hi, tol) << std::hex << c;
}

}  // namespace

TEST(ModeDiagram, EachCurveOnItsOwnScaleTouchesTheFrameAndReadsOut) {
  Fork_Mode f;
  const Recorder& r = f.r;
  // v > 0: down to the bottom line at mid-span; theta < 0: up to the top; the slopes reach both at the ends
  Expect_Range(r, cv, H / 2, 0.95 * H), Expect_Range(r, ct, 0.05 * H, H / 2);
  Expect_Range(r, cvp, 0.05 * H, 0.95 * H), Expect_Range(r, ctp, 0.05 * H, 0.95 * H);
  const auto v = r.Of(RecordedOp::Line, cv);
  ASSERT_EQ(v.size(), 11u);
  EXPECT_NEAR(v.back().x2, W - m * W, 1e-3);
  EXPECT_EQ(r.Of(RecordedOp::Line, 0x808080).size(), 5u);  // no crosses from a problem file
  // the read-out: v' at the right end, at the very edge of the frame; the background is no hit
  const auto hit = zarvek::Eigen_ReadOut(f.r, f.st, W - m * W, 0.05 * H);
  EXPECT_TRUE(hit.hit && hit.caption == "v'");
  EXPECT_FALSE(zarvek::Eigen_ReadOut(f.r, f.st, W / 2 + 300, 0.6 * H).hit);
}

TEST(ModeDiagram, RestraintAboveTheShearCentreWidensTheScaleOfV) {
  // A lateral restraint 15 cm above the shear centre at mid-span (node 6): there the flange moves by d = v -
  // z theta = 1 + 15 x 0.02 = 1.3, more than the axis; the v scale takes 1.3.
  const Recorder r = Fork_Mode(15).r;
  const auto circles = r.Of(RecordedOp::Arc);
  ASSERT_EQ(circles.size(), 1u);  // on v only
  EXPECT_EQ(circles[0].colour, cv);
  // the restraint on the frame at mid-span
  EXPECT_NEAR(circles[0].x1, W / 2, 1e-3); EXPECT_NEAR(circles[0].y1, 0.95 * H, 1e-2);
  Expect_Range(r, cv, H / 2, H / 2 + 0.45 * H / 1.3, 1e-2);  // the axis within it
  // the v polyline goes on from the curve, not from the circle
  for (const auto& o : Drawn_Lines(r, cv)) EXPECT_LT(o.y2, 0.95 * H - 1);
}
