// Section constants of the dimensions route, checked against strip
// integration of the real shape, hand calculations, classical thin-walled
// results and the tabulated values of rolled sections.
#include <gtest/gtest.h>

#include <cmath>

#include "foundation/Mod_Zarvek.h"
#include "section/Mod_Section.h"
#include "section_integration.h"

using namespace zarvek;

namespace {

SectionDims I(double h, double bf1, double tf1, double r1, double bf2, double tf2, double r2,
              double tw) {
  return SectionDims{h, bf1, tf1, r1, bf2, tf2, r2, tw};
}
const SectionDims IPE300 = I(30, 15, 1.07, 1.5, 15, 1.07, 1.5, 0.71);
const SectionDims HEB300 = I(30, 30, 1.9, 2.7, 30, 1.9, 2.7, 1.1);
// Wide top flange 20 x 1.5, bottom flange 10 x 1, web 0.6, no fillets.
const SectionDims MONO = I(40, 20, 1.5, 0, 10, 1.0, 0, 0.6);

SectionProps Compute(const SectionDims& d, int tab = 1) {
  SectionProps p;
  bool invalid = true;
  Calculer_SectionIMono(d, tab, true, p, invalid);
  EXPECT_FALSE(invalid);
  return p;
}

::testing::AssertionResult Near(double actual, double expected, double rel) {
  if (std::fabs(actual - expected) <= rel * std::fabs(expected))
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << actual << " is not within " << rel * 100 << " % of "
                                       << expected;
}

}  // namespace

TEST(SectionMono, DoublySymmetricHasCentredShearCentreAndNoWagnerTerm) {
  for (const auto& d : {IPE300, HEB300, I(50, 20, 2.5, 0, 20, 2.5, 0, 1.2)}) {
    SectionProps p = Compute(d, 0);
    EXPECT_NEAR(p.zG, d.h / 2, 1e-9);
    EXPECT_NEAR(p.zC, 0, 1e-9);
    EXPECT_EQ(p.Betaz, 0.0);  // exactly, after the cut-off
  }
}

TEST(SectionMono, RolledSectionsMatchTabulatedValues) {
  // IPE 300 tables: A 53.81, Iy 8356, Iz 603.8, Wel,y 557.1, Wpl,y 628.4,
  // Wel,z 80.5, Wpl,z 125.2, Iw 125.9e3, It 20.12 (cm powers).
  SectionProps p = Compute(IPE300, 0);
  const double got[] = {p.A, p.Iy, p.Iz, p.Wely_Top, p.Wply, p.Welz, p.Wplz, p.Iw};
  const double table[] = {53.81, 8356, 603.8, 557.1, 628.4, 80.5, 125.2, 125.9e3};
  for (int i = 0; i < 8; ++i) EXPECT_TRUE(Near(got[i], table[i], 0.005)) << i;
  EXPECT_TRUE(Near(p.It, 20.12, 0.015));  // the rectangle sum runs 1.3 % low
  EXPECT_EQ(Format_Auto(p.Iz), "603.78");
  EXPECT_EQ(Format_Auto(p.It), "19.868");
  // HEB 300 tables: Iy 25170, Iw 1688e3.
  SectionProps q = Compute(HEB300, 0);
  EXPECT_TRUE(Near(q.Iy, 25170, 0.005));
  EXPECT_TRUE(Near(q.Iw, 1688e3, 0.005));
}

TEST(SectionMono, AreaCentroidAndInertiasEqualIntegrationOfTheShape) {
  // Unequal flanges and fillets; a T (flange 2 of zero thickness).
  for (const auto& d : {I(40, 20, 1.5, 1.2, 10, 1.0, 0.6, 0.6), I(20, 15, 1.2, 1.0, 0.8, 0, 0, 0.8)}) {
    SectionProps p = Compute(d, d.tf2 == 0 ? 2 : 1);
    section_test::Moments m = section_test::Integrate(d);
    EXPECT_TRUE(Near(p.A, m.A, 1e-6));
    EXPECT_TRUE(Near(p.zG, m.zG, 1e-6));
    EXPECT_TRUE(Near(p.Iy, m.Iy, 1e-6));
    EXPECT_TRUE(Near(p.Iz, m.Iz, 1e-6));
  }
  // The T's shear centre lies where flange and web centre lines meet; the
  // web and fillets (1 of 338 cm4 of Iz) pull it down a little.
  SectionProps t = Compute(I(20, 15, 1.2, 1.0, 0.8, 0, 0, 0.8), 2);
  EXPECT_NEAR(t.zC, 20 - 0.6 - t.zG, 0.05);
}

TEST(SectionMono, WiderTopFlangeByHand) {
  SectionProps p = Compute(MONO);
  // A = 30 + 10 + 0.6 x 37.5; zG = (39.25 x 30 + 0.5 x 10 + 19.75 x 22.5) / 62.5
  EXPECT_NEAR(p.A, 62.5, 1e-9);
  EXPECT_NEAR(p.zG, 26.03, 1e-9);
  EXPECT_NEAR(p.Iz, (8000 * 1.5 + 1000 + 0.216 * 37.5) / 12, 1e-9);
  EXPECT_NEAR(p.Wplz, (400 * 1.5 + 100 + 0.36 * 37.5) / 4, 1e-9);
  EXPECT_NEAR(p.Welz, p.Iz / 10, 1e-9);  // outer fibre of the wider flange
  // Plastic axis in the web at 1 + (31.25 - 10) / 0.6 = 36.4167 above the bottom.
  EXPECT_NEAR(p.Wply, 821.7708, 1e-4);

  // Sign convention: z upward, zC = shear centre above G, and
  // Betaz = integral of z (y^2 + z^2) dA / (2 Iy) - zC. The big top flange
  // draws the shear centre up and makes Betaz negative. Thin-walled shear
  // centre: hs = 38.75 divided as the flanges' Iz, 1000 : 83.33 (the web's
  // 0.675 cm4 moves it by about 0.01).
  const double Iz1 = 1000, Iz2 = 1000.0 / 12, hs = 38.75;
  EXPECT_NEAR(p.zC, 0.5 + hs * Iz1 / (Iz1 + Iz2) - 26.03, 0.02);
  section_test::Moments m = section_test::Integrate(MONO);
  EXPECT_NEAR(p.Betaz, m.S / (2 * m.Iy) - p.zC, 1e-5);
  EXPECT_LT(p.Betaz, -5.0);
  // Two flanges on the lever arm hs: Iw = hs^2 Iz1 Iz2 / (Iz1 + Iz2), the
  // web's Iz counted with the small flange adding under 1 %.
  EXPECT_TRUE(Near(p.Iw, hs * hs * Iz1 * Iz2 / (Iz1 + Iz2), 0.01));
}

TEST(SectionMono, TurningTheSectionUpsideDownMirrorsTheResults) {
  // The big flange holds more than half the area: the plastic axis lies in
  // it, in the first case on top and in the second at the bottom.
  const SectionDims up = I(40, 40, 3.0, 1.0, 10, 1.0, 0.5, 0.8);
  const SectionDims down = I(40, 10, 1.0, 0.5, 40, 3.0, 1.0, 0.8);
  SectionProps a = Compute(up), b = Compute(down);
  EXPECT_NEAR(a.zG, 40 - b.zG, 1e-9);
  EXPECT_NEAR(a.Iy, b.Iy, 1e-7 * a.Iy);
  EXPECT_NEAR(a.zC, -b.zC, 1e-9);
  EXPECT_NEAR(a.Betaz, -b.Betaz, 1e-7);
  EXPECT_NEAR(a.Wely_Top, b.Wely_Bottom, 1e-7 * a.Wely_Top);
  EXPECT_NEAR(a.Wply, b.Wply, 1e-7 * a.Wply);
  // Without fillets, by hand: axis 79.4 / 40 = 1.985 below the top.
  EXPECT_NEAR(Compute(I(40, 40, 3.0, 0, 10, 1.0, 0, 0.8)).Wply, 1022.191, 1e-3);
}

TEST(SectionTorsion, RectanglesAndRolledSections) {
  // J = beta b a^3, beta = 0.141, 0.196, 0.229, 0.263, 0.291, 0.312, 1/3 for
  // b/a = 1, 1.5, 2, 3, 5, 10 and a thin strip.
  const double ratio[] = {1, 1.5, 2, 3, 5, 10, 1000};
  const double beta[] = {0.141, 0.196, 0.229, 0.263, 0.291, 0.312, 1.0 / 3};
  for (int i = 0; i < 7; ++i)
    EXPECT_TRUE(Near(Calculer_ItRect(2, 2 * ratio[i]), beta[i] * 16 * ratio[i], 0.005)) << i;

  auto it = [](int m, const SectionDims& d) {
    return Calculer_It(m, d.h, d.bf1, d.bf2, d.tf1, d.tf2, d.tw, d.r1, d.r2);
  };
  // Tabulated It: IPE 300 20.12, HEB 300 185.0 cm4.
  EXPECT_TRUE(Near(it(3, IPE300), 20.12, 0.005));
  EXPECT_TRUE(Near(it(3, HEB300), 185.0, 0.005));
  for (int m : {1, 2}) {
    EXPECT_TRUE(Near(it(m, IPE300), 20.12, 0.03)) << m;
    EXPECT_TRUE(Near(it(m, HEB300), 185.0, 0.03)) << m;
  }
  EXPECT_EQ(it(4, IPE300), 0.0);
}

TEST(SectionLimits, EachProportionIsRefusedInItsTurn) {
  const SectionDims base = I(16, 10, 2, 0, 10, 2, 0, 1);
  EXPECT_EQ(Check_SectionLimits(base, 0, true), 0);  // h = 4 (tf1 + tf2) exactly
  SectionDims d = base;
  d.h = 16 * (1 - 0.00005);  // short by less than 0.01 %: still accepted
  EXPECT_EQ(Check_SectionLimits(d, 0, true), 0);
  d.h = 16 * (1 - 0.0002);
  EXPECT_EQ(Check_SectionLimits(d, 0, true), 1);
  d = base;
  d.bf2 = 27;  // h < 0.6 bf2
  d.tw = 0.1;  // also too thin, but the width comes first
  EXPECT_EQ(Check_SectionLimits(d, 1, true), 2);
  EXPECT_EQ(Check_SectionLimits(I(30, 10, 2, 7, 10, 2, 7, 1), 1, true), 3);  // 14 > 13
  // Web and fillets over 0.8 of the flange: only the I shapes of the route.
  d = I(30, 10, 2, 4, 10, 2, 4, 1);
  EXPECT_EQ(Check_SectionLimits(d, 0, true), 4);
  EXPECT_EQ(Check_SectionLimits(d, 1, true), 4);
  EXPECT_EQ(Check_SectionLimits(d, 2, true), 0);
  EXPECT_EQ(Check_SectionLimits(d, 0, false), 0);
  EXPECT_EQ(Check_SectionLimits(I(30, 20, 1, 4.5, 20, 1, 0, 1), 1, true), 5);
  EXPECT_EQ(Check_SectionLimits(I(30, 20, 1, 0, 20, 2, 0, 3.5), 1, true), 6);
  EXPECT_EQ(Check_SectionLimits(I(30, 3.5, 0, 0, 20, 2, 0, 3.5), 3, true), 0);  // no flange 1
  EXPECT_EQ(Check_SectionLimits(I(30, 20, 3, 0, 20, 3, 0, 0.5), 1, true), 7);

  // A refused section, or one of no size, leaves the last constants alone.
  SectionProps p = Compute(IPE300, 0);
  const SectionProps before = p;
  for (const SectionDims& bad : {I(30, 20, 3, 0, 20, 3, 0, 0.5), SectionDims{}}) {
    bool invalid = false;
    Calculer_SectionIMono(bad, 1, true, p, invalid);
    EXPECT_TRUE(invalid);
    for (int n = 1; n <= 16; ++n) EXPECT_EQ(p.Value(n), before.Value(n)) << n;
  }
}
