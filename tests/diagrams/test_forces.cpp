// The internal force diagrams: frame and grid, the curves of M and V on the
// frame lines, the step rules, the zero-moment stop, the read-out and the
// refresh test.
#include <gtest/gtest.h>

#include "diagram_support.h"
#include "foundation/Language.h"

using namespace diagram_test;
using zarvek::BeamModel;
using zarvek::DiagramState;
using zarvek::EffortsData;

namespace {

constexpr double W = 7335, H = 1755, m = 0.05;
constexpr double x0 = m * W, x1 = W - m * W;
constexpr Colour cM = 0x000000, cV = 0xC00000;

double X_At(double t) { return m * W + W * (1 - 2 * m) * t; }

// Problem-file diagrams (external mode): arrays drawn as they stand.
struct External {
  EffortsData e;
  DiagramState st;
  BeamModel b;
  explicit External(int NB) {
    st.ExternalMode = true;
    st.NB = e.NB = NB;
    e.Efforts_M.assign(2 * NB + 1, 0.f);
    e.Efforts_V.assign(2 * NB + 1, 0.f);
  }
};

// The drawn polyline of one colour as its chain of points.
std::vector<std::pair<double, double>> Chain(const Recorder& r, Colour c) {
  std::vector<std::pair<double, double>> pts;
  for (const auto& o : r.Of(RecordedOp::Line, c)) {
    if (pts.empty()) {
      pts.push_back({o.x1, o.y1});
      if (o.x1 == o.x2 && o.y1 == o.y2) continue;  // the start of the curve
    }
    pts.push_back({o.x2, o.y2});
  }
  return pts;
}

}  // namespace

TEST(ForcesDiagram, CentralPointLoadOnASimpleBeam) {
  // L = 10 m, F = 10 kN down at mid-span: M = FL/4 = 25 kN.m at mid-span,
  // sagging (drawn downward), V = -/+ 5 kN with its jump under the load.
  BeamModel b;
  b.Chk_M = false, b.Chk_F1 = true, b.Txt_F1 = "-10", b.Txt_xf1 = "0.5", b.Txt_zF1 = "0";
  EffortsData e;
  DiagramState st;
  Recorder r(W, H);
  zarvek::Tracer_Efforts(r, b, e, st);
  EXPECT_EQ(st.NB, 100);
  EXPECT_NEAR(st.Efforts_Mmax, 250000, 250000 * 1e-4);  // daN.cm

  const auto M = Chain(r, cM);
  ASSERT_EQ(M.size(), 200u);
  const auto low = *std::max_element(M.begin(), M.end(), [](auto a, auto b) { return a.second < b.second; });
  EXPECT_NEAR(low.second, 0.95 * H, 0.5);  // touches the bottom frame line
  EXPECT_NEAR(low.first, W / 2, 1);
  EXPECT_NEAR(M.front().second, H / 2, 0.5);  // zero at the supports

  const auto V = Chain(r, cV);
  ASSERT_EQ(V.size(), 200u);
  EXPECT_NEAR(V.front().second, 0.05 * H, 0.5);  // V = -5 kN: up, on the top line
  EXPECT_NEAR(V.back().second, 0.95 * H, 0.5);
  // the jump under the load: one vertical step at mid-span, frame to frame
  int steps = 0;
  for (const auto& o : Drawn_Lines(r, cV)) {
    if (std::fabs(o.x1 - o.x2) > 1e-3) continue;
    ++steps;
    EXPECT_NEAR(o.x1, W / 2, 1);
    EXPECT_NEAR(std::fabs(o.y2 - o.y1), 0.9 * H, 1);
  }
  EXPECT_EQ(steps, 1);
}

TEST(ForcesDiagram, SteepElementIsDrawnAsAStepAtItsLeftEnd) {
  External x(4);
  // element 1 rises by 1/10 of the scale (0.045H, under H/15): a slope;
  // element 2 by 9/10 (0.405H): a step at its left end, then a run to its
  // right node; element 4 falls by 1/20: a slope again.
  const float M[9] = {0, 0, 1, 1, 10, 10, 10, 10, 9.5f};
  x.e.Efforts_M.assign(M, M + 9);
  x.b.Chk_EffV = false;
  Recorder r(W, H);
  zarvek::Tracer_Efforts(r, x.b, x.e, x.st);
  auto y = [](double v) { return H / 2 + v * 0.9 / 10 * H / 2; };
  const std::vector<std::pair<double, double>> expected = {
      {X_At(0), y(0)},     {X_At(0.25), y(1)},  {X_At(0.25), y(1)},  {X_At(0.25), y(10)},
      {X_At(0.5), y(10)},  {X_At(0.75), y(10)}, {X_At(0.75), y(10)}, {X_At(1), y(9.5)}};
  const auto pts = Chain(r, cM);
  ASSERT_EQ(pts.size(), expected.size());
  for (size_t i = 0; i < pts.size(); ++i) {
    EXPECT_NEAR(pts[i].first, expected[i].first, 1e-3) << i;
    EXPECT_NEAR(pts[i].second, expected[i].second, 1e-3) << i;
  }
}

TEST(ForcesReadOut, ShowsTheValueOneElementToTheRightInTheUsersUnit) {
  // A staircase: element e carries e kN.m (e x 10^4 daN.cm) at both ends,
  // and a shear of -2 kN.
  External x(10);
  for (int el = 1; el <= 10; ++el) {
    x.e.Efforts_M[2 * el - 1] = x.e.Efforts_M[2 * el] = el * 1e4f;
    x.e.Efforts_V[2 * el - 1] = x.e.Efforts_V[2 * el] = -200;
  }
  Recorder r(W, H);
  zarvek::Tracer_Efforts(r, x.b, x.e, x.st);
  auto yM = [](double v) { return H / 2 + v * 0.9 / 10 * H / 2; };

  // over the middle of element 3: the left-end value of element 4
  auto hit = zarvek::Forces_ReadOut(r, x.b, x.e, x.st, X_At(0.25), yM(3) + 10, 600, 200);
  ASSERT_TRUE(hit.hit);
  EXPECT_EQ(hit.curve, 1);
  EXPECT_EQ(hit.caption, "M = 4");
  EXPECT_NEAR(hit.Left, hit.x + 150, 1e-9);
  EXPECT_NEAR(hit.Top, hit.y - 80, 1e-9);

  // over the last element near the right edge: n is limited to the last
  // value, and the label flips to the left of the point
  hit = zarvek::Forces_ReadOut(r, x.b, x.e, x.st, x1 - 40, yM(10), 600, 200);
  ASSERT_TRUE(hit.hit);
  EXPECT_EQ(hit.caption, "M = 10");
  EXPECT_NEAR(hit.Left, hit.x - 600 - 150, 1e-9);
  // ... and, at the bottom frame line, above the point
  EXPECT_NEAR(hit.Top, hit.y - 200 + 80, 1e-9);

  // the shear, in kN: 200 daN are 2 kN
  EXPECT_EQ(zarvek::Forces_ReadOut(r, x.b, x.e, x.st, X_At(0.55), H / 2 - 0.45 * H).caption, "V = -2");
  // away from the curves (the grid and the frame are no hit)
  EXPECT_FALSE(zarvek::Forces_ReadOut(r, x.b, x.e, x.st, X_At(0.55), H / 2 + 0.1 * H).hit);
  EXPECT_FALSE(zarvek::Forces_ReadOut(r, x.b, x.e, x.st, x0, H / 2 + 20).hit);  // frame and axis only
}

TEST(ForcesRefresh, RefusesADiagramWithoutMomentAndDrawsNoCurveOfIt) {
  // Below 10 daN.cm (0.001 kN.m) the beam carries no moment, unless the
  // program itself fills the fields or the diagram comes from a problem file.
  zarvek::Set_Msg(3, "The beam carries no bending moment.");
  const struct { const char* Mmax; bool locked, external, refused; } cases[] = {
      {"0", false, false, true}, {"0.0009", false, false, true}, {"0.001", false, false, false},
      {"0", true, false, false}, {"0", false, true, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Mmax);
    External x(10);
    x.b.Txt_Mmax[0] = c.Mmax;
    x.b.RefreshLocked = c.locked;
    x.st.ExternalMode = c.external;
    Recorder r(W, H);
    EXPECT_EQ(zarvek::Cmd_RefreshMV(r, x.b, x.e, x.st),
              c.refused ? "Mmax = 0 ! - The beam carries no bending moment." : "");
    EXPECT_EQ(r.Ops().empty(), c.refused);  // refused: not even cleared
  }
  // drawn anyway, a zero moment stops both curves; the frame stays
  External x(10);
  for (auto& v : x.e.Efforts_V) v = 3;
  Recorder r(W, H);
  zarvek::Tracer_Efforts(r, x.b, x.e, x.st);
  EXPECT_TRUE(r.Of(RecordedOp::Line, cM).empty() && r.Of(RecordedOp::Line, cV).empty());
  EXPECT_EQ(Drawn_Lines(r, 0x808080).size(), 5u);
}
