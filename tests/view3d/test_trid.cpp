// The beam the 3D view builds from a record, and the wire model of the buckled beam drawn on the recorder.
#include <gtest/gtest.h>

#include "../diagrams/diagram_support.h"
#include "view3d/TriD.h"
#include "view3d/TriD_Model.h"

using namespace zarvek;

namespace {

constexpr double Pi = 3.14159265358979;

// An 800 x 600 pixel picture of NB elements on L; the first mode sways by vmax, twists by tmax at mid-span.
struct Scene {
  Recorder rec{12000, 9000, false};
  TriD_Scene t;
  Scene(int NB, double L, double vmax, double tmax, float b = 15, float h = 30) {
    TriD_Init(t, rec, static_cast<float>(L), NB, b, b, h / 2, -h / 2, Sine_Mode(NB, L, vmax, tmax));
  }
};

// The web lines drawn, one per drawn station, in the order of x.
std::vector<RecordedOp> Webs(const Recorder& r) { return r.Of(RecordedOp::Line, TriD_WebColour); }

void Expect_Point(const TriD_Scene& t, int p, int i, double x, double y, double z, double tol) {
  SCOPED_TRACE(testing::Message() << "point " << p + 1 << " station " << i);
  EXPECT_NEAR(t.X[p][i], x, tol); EXPECT_NEAR(t.Y[p][i], y, tol); EXPECT_NEAR(t.Z[p][i], z, tol);
}

}  // namespace

// The default beam, 10 m (Fact_L 100 cm/m) in 100 elements, with a mode that sways by 1 at mid-span.
TEST(TriD_Model, SectionOfEachRouteAndTheDefaultViewOfAMode) {
  const struct { std::string route; float b1, b2, h1, h2; } cases[] = {
      // the catalogue's IPE 300: 150 wide, 300 high, axis at mid-height
      {"catalogue", 15, 15, 15, -15},
      // in mm (Fact_Dim 0.1): h 400, flanges 200 and 120, S 230 mm above the bottom as 200 shown + 30 aside
      {"dimensions", 20, 12, 17, -23},
      // properties: no dimensions; L/30 = 33.33 wide, L/40 = 25 each way
      {"properties", 1000.0f / 30, 1000.0f / 30, 25, -25},
  };
  BeamModel m;
  Init_Default(m, "/tmp");
  m.Mode_Vector = Sine_Mode(100, 1000, 1, 0), m.Mode_Max = 1;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.route);
    m.Opt_Catalogue = c.route == "catalogue", m.Opt_Dimensions = c.route == "dimensions";
    m.Opt_Properties = c.route == "properties", m.Fact_Dim = 0.1f;
    m.Txt_h = "400", m.Txt_bf1 = "200", m.Txt_bf2 = "120", m.Txt_zS[2] = "200", m.Txt_zS_Hidden = "30";
    const TriD_Beam b = TriD_BeamOf(m);
    EXPECT_TRUE(b.L == 1000 && b.NB == 100);
    for (auto [got, want] : {std::pair{b.b1, c.b1}, {b.b2, c.b2}, {b.h1, c.h1}, {b.h2, c.h2}})
      EXPECT_NEAR(got, want, 1e-4);
  }
  Recorder rec(12000, 9000, false);
  TriD_Scene t;
  ASSERT_TRUE(TriD_DefaultView(t, rec, m));
  EXPECT_NEAR(t.RapDep0, 125.0, 1e-3);  // a sway of 1, no twist: the shift L/8 = 125 cm rules
  m.Mode_Max = 0;
  EXPECT_FALSE(TriD_DefaultView(t, rec, m));  // no mode, no view
}

TEST(TriD_Ratio, LateralShiftOfAnEighthOrTwistOfThirtyDegrees) {
  const struct { const char* what; double vmax, tmax, ratio; /* by hand */ } cases[] = {
      // (L/8)/vmax = 125/2 = 62.5 against (pi/6)/0.1 = 5.236: the twist rules
      {"twist first", 2.0, 0.1, (Pi / 6) / 0.1},
      // 125/200 = 0.625 against (pi/6)/0.1: the shift rules
      {"shift first", 200.0, 0.1, 0.625},
      {"no shift", 0.0, 0.5, (Pi / 6) / 0.5},
      {"flat mode", 0.0, 0.0, 0.0},
  };
  for (const auto& c : cases) {
    const Scene s(100, 1000, c.vmax, c.tmax);
    EXPECT_NEAR(s.t.RapDep0, c.ratio, 1e-5 * std::max(1.0, c.ratio)) << c.what;
    EXPECT_EQ(s.t.RapDep, s.t.RapDep0) << c.what;
  }
}

TEST(TriD_Beam, FlangeTipsOfATwistedAndWarpedStation) {
  // One element; station 1 carries v = 3 cm, theta = 0.2, v' = 0.01, theta' = 0.002 /cm at ratio 1. Upper
  // flange 15 cm wide at +15 cm, lower 10 cm wide at -15 cm. Hand values (x of the station 0 -> -L/2):
  //   sin 0.2 = 0.198669, cos 0.2 = 0.980067
  //   upper centre (3 - 15 sin, 15 cos) = (0.019960, 14.700999)
  //   lower centre (3 + 15 sin, -15 cos) = (5.980040, -14.700999)
  //   warping angles 0.01 - 15(0.002) = -0.02 and 0.01 + 15(0.002) = 0.04
  const std::vector<float> mode = {0, 3.0f, 0.2f, 0.01f, 0.002f, 0, 0, 0, 0};
  Recorder rec(12000, 9000, false);
  TriD_Scene t;
  TriD_Init(t, rec, 400, 1, 15, 10, 15, -15, mode);
  t.RapDep = 1;
  TriD_BuildBeam(t);
  const struct { int p; double dx, y, z; } tips[] = {
      {P1, 0.0, 0.019960, 14.700999},       {P2, 0.0, 5.980040, -14.700999},
      {P3, -0.149990, -7.329039, 13.210979}, {P4, 0.149990, 7.368959, 16.191019},
      {P5, 0.199947, 1.083707, -15.694345},  {P6, -0.199947, 10.876373, -13.707652}, {P7, 0.0, 3.0, 0.0}};
  for (const auto& c : tips) Expect_Point(t, c.p, 1, -200 + c.dx, c.y, c.z, 2e-4);
}

TEST(TriD_Beam, RatioStepsByAFifthThroughZeroWithinTwiceTheDefault) {
  Scene s(100, 800, 4, 0);
  const float a = s.t.RapDep0;
  EXPECT_NEAR(a, 25.0, 1e-4);  // (L/8)/4
  auto steps = [&](int n, int dir) { while (n-- > 0) TriD_SetRapDep(s.t, dir, s.rec); return s.t.RapDep; };
  EXPECT_NEAR(steps(20, 1), 2 * a, 1e-3);  // stops at 2a after 5 steps
  EXPECT_NEAR(steps(10, -1), 0.0, 1e-3);
  EXPECT_NEAR(steps(1, -1), -a / 5, 1e-3);  // the other side
  // rebuilt, before any rotation: the mid-span axis point sways by -a/5 x 4 = -20 cm
  TriD_BuildBeam(s.t);
  EXPECT_NEAR(s.t.Y[P7][51], -20.0, 1e-3);
}

TEST(TriD_View, RotationsAccumulateAndComeBackWithStepZero) {
  for (int index = 1; index <= 4; ++index) {  // 4: about the beam's own axis
    SCOPED_TRACE(index);
    Scene s(100, 500, 3, 0.2);
    TriD_RotGlob(s.t, 1, 2, s.rec);  // tilt first, so the beam's axis is not X
    s.t.Angle[2] = 0;
    const TriD_Scene before = s.t;
    auto turn = [&](int k) { index == 4 ? TriD_RotLocX(s.t, k, s.rec) : TriD_RotGlob(s.t, k, index, s.rec); };
    for (int k = 0; k < 7; ++k) turn(1);
    for (int k = 0; k < 2; ++k) turn(-1);
    EXPECT_NEAR(index == 4 ? s.t.LocTotal : s.t.Angle[index], 5 * Pi / 120, 1e-5);
    turn(0);
    for (int p = 0; p < TriD_PointCount; ++p)
      for (int i = 1; i <= s.t.Stations; i += 25)
        Expect_Point(s.t, p, i, before.X[p][i], before.Y[p][i], before.Z[p][i], 1e-3);
  }
}

TEST(TriD_View, OneStepTurnsAboutTheFixedAxisByOneAndAHalfDegrees) {
  // The upper flange centre of the first station of a straight beam is (-L/2, 0, h1). A step about X
  // turns it to (.., -h1 sin a, h1 cos a); about Y to (-L/2 cos a + h1 sin a, .., L/2 sin a + h1 cos a);
  // about Z to (-L/2 cos a, -L/2 sin a, h1).
  const double L = 400, h1 = 12, a = 1.5 * Pi / 180;
  const struct { int index; double x, y, z; } cases[] = {
      {1, -L / 2, -h1 * std::sin(a), h1 * std::cos(a)},
      {2, -L / 2 * std::cos(a) + h1 * std::sin(a), 0, L / 2 * std::sin(a) + h1 * std::cos(a)},
      {3, -L / 2 * std::cos(a), -L / 2 * std::sin(a), h1},
  };
  for (const auto& c : cases) {
    Scene s(100, L, 0, 0, 10, 2 * h1);
    TriD_RotGlob(s.t, 1, c.index, s.rec);
    Expect_Point(s.t, P1, 1, c.x, c.y, c.z, 1e-3);
  }
}

TEST(TriD_View, ZoomStopsAtTwentyAndAtOneHalf) {
  const double L = 1000;
  Scene s(100, L, 0, 0);
  const int n = s.t.Stations;
  auto zoom = [&](int n, int step) { while (n-- > 0) TriD_Zoom(s.t, step, s.rec); return s.t.ZoomTotal; };
  // 1.1^31 = 19.19 < 20 <= 1.1^32 = 21.11: the 32nd step is the last.
  EXPECT_NEAR(zoom(40, 1), std::pow(1.1, 32), 1e-3);
  EXPECT_NEAR(s.t.X[P7][n], L / 2 * std::pow(1.1, 32), 0.5);
  EXPECT_EQ(s.t.ZoomStep, 1.0f);
  EXPECT_EQ(zoom(1, 0), 1.0f);
  EXPECT_NEAR(s.t.X[P7][n], L / 2, 1e-2);
  // 1.1^-7 = 0.513 > 0.5 >= 1.1^-8 = 0.4665.
  EXPECT_NEAR(zoom(15, -1), std::pow(1.1, -8), 1e-4);
  EXPECT_NEAR(s.t.X[P7][n], L / 2 * std::pow(1.1, -8), 1e-2);
}

TEST(TriD_Drawing, TenthOfTheStationsInADrag) {
  const double L = 1000;
  for (int NB : {100, 120, 150, 200}) {
    SCOPED_TRACE(NB);
    Scene s(NB, L, 0, 0);
    EXPECT_EQ(Webs(s.rec).size(), NB + 1u);  // at rest, all
    s.t.Dragging = true;  // a drag: always the tenth, every station NB/10, a tenth of the span apart
    TriD_Draw(s.t, s.rec);
    const auto webs = Webs(s.rec);
    ASSERT_EQ(webs.size(), 11u);
    for (int k = 0; k <= 10; ++k) EXPECT_NEAR(webs[k].x1, -L / 2 + k * L / 10, 1e-3) << k;
    // the longitudinal lines join the drawn stations: 10 runs of 6 black lines, 10 red pieces of axis
    EXPECT_EQ(s.rec.Of(RecordedOp::Line, TriD_AxisColour).size(), 10u);
    EXPECT_EQ(s.rec.Of(RecordedOp::Line, TriD_WireColour).size(), 11u * 2 + 10u * 6);
  }
}

TEST(TriD_Mouse, ZonesChooseTheRotationAndTheImage) {
  // L = 1000: W = 1100, H = 825 around the origin
  const struct { double x, y; TriD_Zone zone; TriD_Cursor cursor; } cases[] = {
      {0, 0, TriD_Zone::Upright, TriD_Cursor::RotX},
      {180, 270, TriD_Zone::Upright, TriD_Cursor::RotX},  // |dx| < 183.3, |dy| < 275
      {-190, 0, TriD_Zone::Flat, TriD_Cursor::RotZ},      // |dx| < 366.7, |dy| < 137.5
      {360, -130, TriD_Zone::Flat, TriD_Cursor::RotZ}, {200, 200, TriD_Zone::Outside, TriD_Cursor::RotY}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.x << "," << c.y);
    Scene s(100, 1000, 2, 0.1);
    EXPECT_EQ(TriD_ZoneOf(s.rec, c.x, c.y), c.zone);
    TriD_MouseDown(s.t, s.rec, c.x, c.y, 1);
    EXPECT_EQ(s.t.Cursor, c.cursor); EXPECT_TRUE(s.t.Dragging);
    // A small move turns about the zone's axis by the drag law.
    const double dX = 2, dY = 3, X = c.x + dX, Y = c.y + dY;
    const auto a0 = s.t.Angle;
    TriD_MouseMove(s.t, s.rec, X, Y, 1);
    double expected[4] = {0, 0, 0, 0};
    if (c.zone == TriD_Zone::Upright) expected[1] = 0.1 * (-2 * Pi * dY / 825);
    if (c.zone == TriD_Zone::Flat) expected[3] = 0.1 * (2 * Pi * dX / 1100);
    if (c.zone == TriD_Zone::Outside) expected[2] = 0.1 * (-(X * dY - Y * dX) / (X * X + Y * Y));
    for (int k = 1; k <= 3; ++k) EXPECT_NEAR(s.t.Angle[k] - a0[k], expected[k], 1e-6);
    // While dragging, a tenth of the stations; all of them come back after.
    EXPECT_EQ(Webs(s.rec).size(), 11u);
    TriD_MouseUp(s.t, s.rec);
    EXPECT_FALSE(s.t.Dragging); EXPECT_EQ(s.t.Cursor, TriD_Cursor::Default);
    EXPECT_EQ(Webs(s.rec).size(), 101u);
  }
}
