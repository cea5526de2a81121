// The force diagrams: M and V on the frame lines, the step rule, the zero-moment stop, read-out, refresh.
#include <gtest/gtest.h>

#include "diagram_support.h"
#include "foundation/Language.h"

using namespace diagram_test;

namespace {

constexpr double W = 7335, H = 1755, m = 0.05;
constexpr Colour cM = 0x000000, cV = 0xC00000;

double X_At(double t) { return m * W + W * (1 - 2 * m) * t; }
// The ordinate of a value v on a scale whose largest value is 10.
double Y_At(double v) { return H / 2 + v / 10 * 0.45 * H; }

// A diagram and its record; of NB > 0 elements: from a problem file (external mode), arrays drawn as given.
struct Forces {
  zarvek::EffortsData e;
  zarvek::DiagramState st;
  BeamModel b;
  Recorder r{W, H};
  explicit Forces(int NB = 0) {
    if (NB == 0) return;
    st.ExternalMode = true, st.NB = e.NB = NB;
    e.Efforts_M.assign(2 * NB + 1, 0.f), e.Efforts_V.assign(2 * NB + 1, 0.f);
  }
  void Draw() { zarvek::Tracer_Efforts(r, b, e, st); }
  zarvek::ReadOut At(double x, double y, double w = -1, double h = -1) {
    return zarvek::Forces_ReadOut(r, b, e, st, x, y, w, h);
  }
};
// The drawn polyline of one colour as its chain of points.
std::vector<std::pair<double, double>> Chain(const Recorder& r, Colour c) {
  std::vector<std::pair<double, double>> pts;
  for (const auto& o : r.Of(RecordedOp::Line, c)) {
    const bool first = pts.empty();  // a zero-length first line marks the start
    if (first) pts.push_back({o.x1, o.y1});
    if (!first || o.x1 != o.x2 || o.y1 != o.y2) pts.push_back({o.x2, o.y2});
  }
  return pts;
}

}  // namespace

TEST(ForcesDiagram, CentralPointLoadOnASimpleBeam) {
  // L = 10 m, F = 10 kN down at mid-span: M = FL/4 = 25 kN.m, sagging (drawn down), V = -/+ 5 kN, a jump.
  Forces f;
  f.b.Chk_M = false, f.b.Chk_F1 = true, f.b.Txt_F1 = "-10", f.b.Txt_xf1 = "0.5", f.b.Txt_zF1 = "0";
  f.Draw();
  EXPECT_EQ(f.st.NB, 100);
  EXPECT_NEAR(f.st.Efforts_Mmax, 250000, 250000 * 1e-4);  // daN.cm
  const auto M = Chain(f.r, cM), V = Chain(f.r, cV);
  ASSERT_TRUE(M.size() == 200 && V.size() == 200);
  const auto low = *std::max_element(M.begin(), M.end(), [](auto a, auto b) { return a.second < b.second; });
  // M touches the bottom frame line at mid-span and is zero at the supports
  EXPECT_NEAR(low.second, 0.95 * H, 0.5); EXPECT_NEAR(low.first, W / 2, 1);
  EXPECT_NEAR(M.front().second, H / 2, 0.5);
  // V = -5 kN: up, on the top line; +5 kN on the bottom one
  EXPECT_NEAR(V.front().second, 0.05 * H, 0.5); EXPECT_NEAR(V.back().second, 0.95 * H, 0.5);
  // the jump under the load: one vertical step at mid-span, frame to frame
  int steps = 0;
  for (const auto& o : Drawn_Lines(f.r, cV)) {
    if (std::fabs(o.x1 - o.x2) > 1e-3) continue;
    ++steps;
    EXPECT_NEAR(o.x1, W / 2, 1); EXPECT_NEAR(std::fabs(o.y2 - o.y1), 0.9 * H, 1);
  }
  EXPECT_EQ(steps, 1);
}

TEST(ForcesReadOut, ShowsTheValueOneElementToTheRightInTheUsersUnit) {
  // A staircase: element e carries e kN.m (e x 10^4 daN.cm) at both ends, and a shear of -2 kN.
  Forces f(10);
  for (int el = 1; el <= 10; ++el) {
    f.e.Efforts_M[2 * el - 1] = f.e.Efforts_M[2 * el] = el * 1e4f;
    f.e.Efforts_V[2 * el - 1] = f.e.Efforts_V[2 * el] = -200;
  }
  f.Draw();
  // over the middle of element 3: the left-end value of element 4
  auto hit = f.At(X_At(0.25), Y_At(3) + 10, 600, 200);
  EXPECT_TRUE(hit.hit && hit.curve == 1 && hit.caption == "M = 4");
  // over the last element near the right edge: n is limited to the last value
  hit = f.At(X_At(1) - 40, Y_At(10), 600, 200);
  EXPECT_TRUE(hit.hit && hit.caption == "M = 10");

  // the shear, in kN: 200 daN are 2 kN
  EXPECT_EQ(f.At(X_At(0.55), H / 2 - 0.45 * H).caption, "V = -2");
  EXPECT_FALSE(f.At(X_At(0.55), H / 2 + 0.1 * H).hit);  // away from the curves
}

TEST(ForcesRefresh, RefusesADiagramWithoutMomentAndDrawsNoCurveOfIt) {
  // Below 10 daN.cm (0.001 kN.m) no moment, unless the program fills the fields or a problem file gives it.
  zarvek::Set_Msg(3, "The beam carries no bending moment.");
  const struct { const char* Mmax; bool locked, external, refused; } cases[] = {
      {"0", false, false, true}, {"0.0009", false, false, true}, {"0.001", false, false, false},
      {"0", true, false, false}, {"0", false, true, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Mmax);
    Forces f(10);
    f.b.Txt_Mmax[0] = c.Mmax, f.b.RefreshLocked = c.locked, f.st.ExternalMode = c.external;
    EXPECT_EQ(zarvek::Cmd_RefreshMV(f.r, f.b, f.e, f.st),
              c.refused ? "Mmax = 0 ! - The beam carries no bending moment." : "");
    EXPECT_EQ(f.r.Ops().empty(), c.refused);  // refused: not even cleared
  }
  // drawn anyway, a zero moment stops both curves; the frame stays
  Forces f(10);
  f.e.Efforts_V.assign(21, 3.f);
  f.Draw();
  EXPECT_TRUE(f.r.Of(RecordedOp::Line, cM).empty() && f.r.Of(RecordedOp::Line, cV).empty());
  EXPECT_EQ(Drawn_Lines(f.r, 0x808080).size(), 5u);
}
