// The surface's scale, arcs and colours read back, on the recorder; the SVG writer's document.
#include <gtest/gtest.h>

#include "diagram_support.h"
#include "diagrams/SvgWriter.h"

using namespace diagram_test;

TEST(Surface, ScalesMapToTwips) {
  // A 3000 x 1500 twips box (200 x 100 pixels). Per row: ScaleMode (-1: the user scale left, top, width,
  // height), a point x, y and its device twips.
  const struct { const char* name; int mode; double left, top, width, height, x, y, tx, ty; } cases[] = {
      {"pixels", zarvek::Scale_Pixels, 0, 0, 0, 0, 100, 20, 1500, 300},
      // a centred scale with y upward, as the 3D view sets it
      {"y up", -1, -10, 5, 20, -10, 0, 0, 1500, 750},
      {"x left", -1, 10, 0, -20, 10, 10, 0, 0, 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Recorder r(3000, 1500);
    if (c.mode >= 0) r.ScaleMode(c.mode);
    else r.ScaleLeft(c.left), r.ScaleTop(c.top), r.ScaleWidth(c.width), r.ScaleHeight(c.height);
    EXPECT_EQ(r.ScaleMode(), c.mode >= 0 ? c.mode : zarvek::Scale_User);
    EXPECT_NEAR(r.ToTwipsX(c.x), c.tx, 1e-9); EXPECT_NEAR(r.ToTwipsY(c.y), c.ty, 1e-9);
    EXPECT_NEAR(r.FromTwipsX(c.tx), c.x, 1e-9); EXPECT_NEAR(r.FromTwipsY(c.ty), c.y, 1e-9);
  }
}

TEST(Surface, ArcsRunCounterClockwiseOnTheScreen) {
  const struct { const char* name; double start, end, a0, sweep; } cases[] = {
      {"right quarter, through 0", 7 * Pi / 4, Pi / 4, 7 * Pi / 4, Pi / 2},
      {"to 2 pi", 3 * Pi / 2, 2 * Pi, 3 * Pi / 2, Pi / 2},
      {"three quarters through 0", Pi, Pi / 2, Pi, 3 * Pi / 2},
  };
  for (double flip : {1.0, -1.0}) {
    for (const auto& c : cases) {
      SCOPED_TRACE(std::string(c.name) + (flip < 0 ? ", y up" : ""));
      Recorder r(3000, 3000);
      r.ScaleWidth(100), r.ScaleHeight(100 * flip);  // angles keep their screen sense
      r.Circle(50, 50 * flip, 10, {}, c.start, c.end);
      const auto arcs = r.Of(RecordedOp::Arc);
      ASSERT_EQ(arcs.size(), 1u);
      EXPECT_NEAR(arcs[0].a0, c.a0, 1e-9); EXPECT_NEAR(arcs[0].sweep, c.sweep, 1e-9);
      EXPECT_NEAR(arcs[0].tr, 300, 1e-9); EXPECT_NEAR(arcs[0].ty1, 1500, 1e-9);  // 10 units of 30 twips
    }
  }
  // pi/2 is up on the screen: the arc from 0 to pi/2 passes above the centre (top and right), not below
  Recorder r(3000, 3000);
  r.Circle(1500, 1500, 600, 0x0000FF, 0, Pi / 2);
  EXPECT_EQ(r.Point(1500, 900 + 5), 0x0000FFu); EXPECT_EQ(r.Point(2100 + 5, 1500), 0x0000FFu);
  EXPECT_EQ(r.Point(1500, 2100 + 5), 0xE0E0E0u);
  // Point reads the last colour drawn on the cleared picture, and nothing outside it
  r.Cls(), r.Line(0, 750, 3000, 750, 0x0000C0), r.Line(1500, 0, 1500, 1500, 0xC00000);
  EXPECT_EQ(r.Point(600, 755), 0x0000C0u);
  EXPECT_EQ(r.Point(1505, 755), 0xC00000u);  // the later line covers the crossing
  EXPECT_EQ(r.Point(2100 + 5, 1500), 0xE0E0E0u);
  EXPECT_TRUE(r.Point(-1, 750) == -1 && r.Point(3000, 750) == -1);
}

TEST(SvgWriter, WritesTheSamePictureInScreenPixels) {
  zarvek::SvgWriter svg(7335, 1365, 2);
  svg.Cls();
  svg.Line(750, 150, 1500, 150, 0x0000C0);
  svg.DrawWidth(2);
  svg.Circle(1500, 600, 300, 0xC00000, 7 * Pi / 4, Pi / 4);
  svg.Print("a<b");
  const std::string d = svg.Document();
  // the arc from 7pi/4 to pi/4 about (100, 40) pixels, radius 20: from below right, 20 cos 45 = 14.14 off
  // each way, to above right, the short way, counter-clockwise on the screen
  for (const char* part : {"width=\"978\" height=\"182\"",  // 489 x 91 pixels, twice
                           "<line x1=\"50\" y1=\"10\" x2=\"100\" y2=\"10\" stroke=\"#c00000\"",
                           "<path d=\"M114.14 54.14 A20 20 0 0 0 114.14 25.86\" "
                           "stroke=\"#0000c0\" stroke-width=\"2\"",
                           ">a&lt;b</text>"})
    EXPECT_NE(d.find(part), std::string::npos) << part << "\n" << d;
}
