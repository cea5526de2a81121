// The beam the 3D view builds from a record.
#include <gtest/gtest.h>

#include <string>

#include "diagrams/Recorder.h"
#include "view3d/TriD_Model.h"

using namespace zarvek;

namespace {

// The default beam (10 m, 100 elements) with a pure sway of 1 as its mode.
BeamModel Swaying_Beam() {
  BeamModel m;
  Init_Default(m, "/tmp");
  m.Mode_Vector.assign(4 * 101 + 1, 0.0f);
  for (int i = 1; i <= 101; ++i) m.Mode_Vector[1 + 4 * (i - 1)] = 1.0f;
  m.Mode_Max = 1;
  return m;
}

}  // namespace

TEST(TriD_Model, SectionOfEachRoute) {
  // Length 10 m (Fact_L 100 cm/m), 100 elements.
  const struct { std::string route; float b1, b2, h1, h2; } cases[] = {
      // the catalogue's IPE 300: 150 wide, 300 high, axis at mid-height
      {"catalogue", 15, 15, 15, -15},
      // dimensions in mm (Fact_Dim 0.1): h 400, flanges 200 and 120, the
      // shear centre 230 mm above the bottom as 200 shown + 30 held aside
      {"dimensions", 20, 12, 17, -23},
      // properties: no dimensions; L/30 = 33.33 wide, L/40 = 25 each way
      {"properties", 1000.0f / 30, 1000.0f / 30, 25, -25},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.route);
    BeamModel m = Swaying_Beam();
    m.Opt_Catalogue = c.route == "catalogue", m.Opt_Dimensions = c.route == "dimensions";
    m.Opt_Properties = c.route == "properties", m.Fact_Dim = 0.1f;
    m.Txt_h = "400", m.Txt_bf1 = "200", m.Txt_bf2 = "120", m.Txt_zS[2] = "200", m.Txt_zS_Hidden = "30";
    const TriD_Beam b = TriD_BeamOf(m);
    EXPECT_TRUE(b.L == 1000 && b.NB == 100);
    for (auto [got, want] : {std::pair{b.b1, c.b1}, {b.b2, c.b2}, {b.h1, c.h1}, {b.h2, c.h2}})
      EXPECT_NEAR(got, want, 1e-4);
  }
}

TEST(TriD_Model, DefaultViewNeedsAMode) {
  BeamModel m = Swaying_Beam();
  Recorder rec(12000, 9000, false);
  TriD_Scene t;
  m.Mode_Max = 0;
  EXPECT_FALSE(TriD_DefaultView(t, rec, m));
  m.Mode_Max = 1;
  ASSERT_TRUE(TriD_DefaultView(t, rec, m));
  EXPECT_NEAR(t.RapDep0, 125.0, 1e-3);  // a sway of 1 everywhere: the shift L/8 = 125 cm rules
}
