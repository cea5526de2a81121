// The section drawing: a true-to-shape closed outline with fillets; centroid and shear centre by dimensions.
#include <gtest/gtest.h>

#include "diagram_support.h"
#include "foundation/Language.h"
#include "model/DataEntry.h"

using namespace diagram_test;

namespace {

constexpr double W = 3705, H = 3795;

struct P { double x, y; };
bool Same(P a, P b) { return std::fabs(a.x - b.x) < 1e-6 && std::fabs(a.y - b.y) < 1e-6; }

// The point of an arc at an angle, as drawn on the screen (y down).
P Arc_At(const RecordedOp& a, double t) { return {a.x1 + a.r * std::cos(t), a.y1 - a.r * std::sin(t)}; }

// The black outline is one chain: every line starts where the outline stood, an arc joins the line before to
// the line after, the chain ends where it began.
void Expect_ClosedPath(const Recorder& r, int arcsExpected) {
  std::vector<RecordedOp> path;
  for (const auto& o : r.Ops())
    if ((o.kind == RecordedOp::Line || o.kind == RecordedOp::Arc) && o.colour == 0x000000) path.push_back(o);
  ASSERT_GE(path.size(), 2u);
  const P start{path[0].x1, path[0].y1};
  P at = start;
  int arcs = 0;
  for (size_t i = 1; i < path.size(); ++i) {
    const auto& o = path[i];
    if (o.kind == RecordedOp::Line) {
      if (o.x1 == o.x2 && o.y1 == o.y2) continue;
      EXPECT_TRUE(Same(at, {o.x1, o.y1})) << "line " << i << " starts off the outline";
      at = {o.x2, o.y2};
    } else {
      ++arcs;
      ASSERT_LT(i + 1, path.size());  // the next line leaves from the arc's other end
      const P a = Arc_At(o, o.a0), b = Arc_At(o, o.a0 + o.sweep), n{path[i + 1].x1, path[i + 1].y1};
      EXPECT_TRUE((Same(at, a) && Same(n, b)) || (Same(at, b) && Same(n, a))) << "arc " << i;
      at = n;
    }
  }
  EXPECT_TRUE(Same(at, start)) << "the outline is not closed";
  EXPECT_EQ(arcs, arcsExpected);
}

}  // namespace

TEST(SectionDrawing, RolledSectionIsTrueToShapeAndFillsNinetyPercent) {
  BeamModel m;  // IPE 300 of the catalogue: h 30, b 15, tf 1.07, tw 0.71, r 1.5 cm
  Recorder r(W, H);
  zarvek::Draw_Section(r, m);
  Expect_ClosedPath(r, 4);
  const double k = 0.9 * H / 30;
  const auto lines = Drawn_Lines(r, 0x000000);
  std::vector<double> xs, ys;
  for (const auto& o : lines) xs.insert(xs.end(), {o.x1, o.x2}), ys.insert(ys.end(), {o.y1, o.y2});
  const auto [xmin, xmax] = std::minmax_element(xs.begin(), xs.end());
  const auto [ymin, ymax] = std::minmax_element(ys.begin(), ys.end());
  EXPECT_NEAR(*ymax - *ymin, 0.9 * H, 1e-6); EXPECT_NEAR(*xmax - *xmin, 15 * k, 1e-6);
  EXPECT_NEAR((*xmin + *xmax) / 2, W / 2, 1e-6);
  // the web's two faces, tw apart, straight between the fillets
  for (double face : {-0.71 * k / 2, 0.71 * k / 2}) {
    const auto web = Vertical_At(lines, W / 2 + face);
    ASSERT_EQ(web.size(), 1u);
    EXPECT_NEAR(Length(web[0]), (30 - 2 * 1.07 - 2 * 1.5) * k, 1e-6);
  }
  for (const auto& a : r.Of(RecordedOp::Arc)) {
    EXPECT_NEAR(a.r, 1.5 * k, 1e-9); EXPECT_NEAR(a.sweep, Pi / 2, 1e-9);
    // fillet centres stand r off the web face and r off the flange
    EXPECT_NEAR(std::fabs(a.x1 - W / 2), (0.71 / 2 + 1.5) * k, 1e-6);
    EXPECT_NEAR(std::fabs(a.y1 - H / 2), (15 - 1.07 - 1.5) * k, 1e-6);
  }
  EXPECT_TRUE(r.Of(RecordedOp::Text).empty());  // no G or S for a rolled section
}

TEST(SectionDrawing, MonoSymmetricSectionByDimensionsMarksCentroidAndShearCentre) {
  // Top flange 200 x 20, bottom flange 100 x 20, web 10 thick, 400 deep, no fillets (mm, typed in cm).
  BeamModel m;
  m.Opt_Catalogue = false, m.Opt_Dimensions = true, m.Tab_Dim = 1, m.Txt_h = "40", m.Txt_tw = "1";
  m.Txt_bf1 = "20", m.Txt_tf1 = "2", m.Txt_r1 = "0", m.Txt_bf2 = "10", m.Txt_tf2 = "2", m.Txt_r2 = "0";
  ASSERT_TRUE(zarvek::Cmd_Dimensions(m).ok);
  Recorder r(W, H);
  zarvek::Draw_Section(r, m);
  Expect_ClosedPath(r, 4);
  for (const auto& a : r.Of(RecordedOp::Arc, 0x000000)) EXPECT_EQ(a.r, 0);  // fillets of no radius

  // By hand, heights above the bottom face: the centroid from the areas (40 cm2 at 39, 36 cm2 at 20, 20 cm2
  // at 1), the shear centre from the flanges' own Iz (1333.3 and 166.7 cm4) 38 cm apart.
  const double zG = (40 * 39 + 36 * 20 + 20 * 1) / 96.0;
  const double zS = 1 + 38 * 1333.333 / (1333.333 + 166.667);
  const double k = 0.9 * H / 40;
  const auto G = r.Of(RecordedOp::Arc, 0xC00000), S = r.Of(RecordedOp::Arc, 0x008000);
  ASSERT_TRUE(G.size() == 1 && S.size() == 1);
  EXPECT_NEAR(G[0].y1, 0.95 * H - zG * k, 0.05 * k); EXPECT_NEAR(S[0].y1, 0.95 * H - zS * k, 0.05 * k);
  const auto texts = r.Of(RecordedOp::Text);
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts[0].text + texts[1].text, "GS");
}

TEST(SectionDrawing, NothingToDrawWithoutAShape) {
  // by properties there is no outline; by dimensions before the properties are worked out, neither
  zarvek::Set_Msg(67, "Section given by its properties: no drawing");
  BeamModel p, d;
  p.Opt_Catalogue = d.Opt_Catalogue = false;
  p.Opt_Properties = d.Opt_Dimensions = true;
  d.Txt_It[2] = "  ";
  Recorder r(W, H), e(W, H);
  zarvek::Draw_Section(r, p), zarvek::Draw_Section(e, d);
  EXPECT_TRUE(Drawn_Lines(r).empty());
  const auto texts = r.Of(RecordedOp::Text);
  ASSERT_EQ(texts.size(), 1u);
  EXPECT_EQ(texts[0].text, "Section given by its properties: no drawing");
  ASSERT_EQ(e.Ops().size(), 1u);
  EXPECT_EQ(e.Ops()[0].kind, RecordedOp::Clear);
}
