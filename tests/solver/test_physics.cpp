// The critical moments the solver finds, checked against closed forms and
// the published moment factors of lateral-torsional buckling.
#include <gtest/gtest.h>

#include "solver_support.h"

using namespace zarvek;
using namespace zarvek::test;

namespace {

const double L = 1000;  // cm; 100 elements of 10 cm are exact in the file

class BothMethods : public ::testing::TestWithParam<int> {};

TEST_P(BothMethods, UniformMomentOnForkSupportsMatchesClosedForm) {
  Solved s = Solve(Fork_Beam_Uniform_Moment(100, L, 1e6), GetParam(), 1e-6);
  ASSERT_EQ(s.res.Solve_Status, 0) << s.res.Error_Text;
  EXPECT_NEAR(s.Mcr_kNcm() / Mcr_Uniform(L), 1.0, 1e-4);
  // the moment is the same everywhere: the first node carries Mmax
  EXPECT_DOUBLE_EQ(s.res.Mmax, 1e6);
  EXPECT_DOUBLE_EQ(s.res.xMmax, 0.0);
}

TEST_P(BothMethods, AlsoHoldingLateralRotationAndWarpingHalvesTheBucklingLength) {
  ProblemData p = Fork_Beam_Uniform_Moment(100, L, 1e6);
  for (int n : {1, 101}) p.Rvp[n] = p.Rtp[n] = -1;
  Solved s = Solve(p, GetParam(), 1e-6);
  ASSERT_EQ(s.res.Solve_Status, 0) << s.res.Error_Text;
  EXPECT_NEAR(s.Mcr_kNcm() / Mcr_Uniform(L / 2), 1.0, 1e-4);
}

TEST_P(BothMethods, TheBatchToleranceStillGivesFourDigits) {
  Solved s = Solve(Fork_Beam_Uniform_Moment(100, L, 1e6), GetParam(), 1e-4, 50);
  ASSERT_EQ(s.res.Solve_Status, 0) << s.res.Error_Text;
  EXPECT_NEAR(s.Mcr_kNcm() / Mcr_Uniform(L), 1.0, 1e-4);
}

INSTANTIATE_TEST_SUITE_P(Solver, BothMethods, ::testing::Values(Method_Eigen, Method_Dichotomie),
                         [](const auto& i) { return i.param == 1 ? "Eigen" : "Dichotomie"; });

// Moment factor C1 = Mcr(moment diagram) / Mcr(uniform moment), at the same
// largest moment.
double C1(const ProblemData& p) {
  Solved s = Solve(p, Method_Dichotomie, 1e-6);
  EXPECT_EQ(s.res.Solve_Status, 0) << s.res.Error_Text;
  return s.Mcr_kNcm() / Mcr_Uniform(L);
}

TEST(MomentFactor, LinearMomentsAndUniformLoadFallInThePublishedRanges) {
  ProblemData lin0 = Fork_Beam_Uniform_Moment(100, L, 1e6);
  Set_Moments(lin0, [](double x) { return 1e6 * (1 - x / L); });  // psi = 0
  EXPECT_GT(C1(lin0), 1.77);
  EXPECT_LT(C1(lin0), 1.88);

  ProblemData linm1 = Fork_Beam_Uniform_Moment(100, L, 1e6);
  Set_Moments(linm1, [](double x) { return 1e6 * (1 - 2 * x / L); });  // psi = -1
  EXPECT_GT(C1(linm1), 2.55);
  EXPECT_LT(C1(linm1), 2.75);

  // q L^2 / 8 = 1e6 daN.cm at mid-span, load at the shear centre
  ProblemData q = Fork_Beam_Uniform_Load(100, L, 8e6 / (L * L), 0.0);
  EXPECT_GT(C1(q), 1.12);
  EXPECT_LT(C1(q), 1.14);
}

TEST(MomentFactor, BothMethodsAgreeUnderAPointLoad) {
  // mid-span point load of 4000 daN at the shear centre: C1 about 1.35
  ProblemData p = Fork_Beam_Uniform_Moment(100, L, 1e6);
  const double F = 4000;
  Set_Moments(p, [&](double x) { return F * std::min(x, L - x) / 2; });
  p.NF = 1;
  for (auto* v : {&p.F, &p.xF, &p.zF}) v->assign(2, 0.0f);
  p.F[1] = (float)-F;
  p.xF[1] = (float)(L / 2);
  Solved e = Solve(p, Method_Eigen, 1e-7), d = Solve(p, Method_Dichotomie, 1e-7);
  ASSERT_EQ(e.res.Solve_Status, 0);
  ASSERT_EQ(d.res.Solve_Status, 0);
  EXPECT_NEAR(e.res.mucr / d.res.mucr, 1.0, 1e-5);
  EXPECT_GT(d.Mcr_kNcm() / Mcr_Uniform(L), 1.30);
  EXPECT_LT(d.Mcr_kNcm() / Mcr_Uniform(L), 1.40);
}

// A load's height: gravity loads (negative q gives sagging moments) above the
// shear centre destabilise, below it they stabilise.
TEST(LoadHeight, AboveLowersAndBelowRaisesTheCriticalMoment) {
  const double q = 8e6 / (L * L);
  const double at = Solve(Fork_Beam_Uniform_Load(100, L, q, 0.0), Method_Dichotomie).Mcr_kNcm();
  const double above = Solve(Fork_Beam_Uniform_Load(100, L, q, 15.0), Method_Dichotomie).Mcr_kNcm();
  const double below = Solve(Fork_Beam_Uniform_Load(100, L, q, -15.0), Method_Dichotomie).Mcr_kNcm();
  EXPECT_LT(above, 0.9 * at);
  EXPECT_GT(below, 1.1 * at);

  // the same with a point load, by the other method
  auto point = [&](double z) {
    ProblemData p = Fork_Beam_Uniform_Moment(100, L, 1e6);
    Set_Moments(p, [&](double x) { return 4000 * std::min(x, L - x) / 2; });
    p.NF = 1;
    for (auto* v : {&p.F, &p.xF, &p.zF}) v->assign(2, 0.0f);
    p.F[1] = -4000;
    p.xF[1] = (float)(L / 2);
    p.zF[1] = (float)z;
    return Solve(p, Method_Eigen, 1e-7).Mcr_kNcm();
  };
  EXPECT_LT(point(15), point(0));
  EXPECT_GT(point(-15), point(0));
}

// Under sagging moments the top flange (z > 0) is the compressed one.
TEST(Restraints, ALateralSupportAtTheCompressedFlangeIsWorthMore) {
  auto with_support_at = [&](double z) {
    ProblemData p = Fork_Beam_Uniform_Moment(100, L, 1e6);
    p.Rv[51] = 50;  // daN/cm at mid-span: too weak to force two half waves
    p.z[51] = (float)z;
    return Solve(p, Method_Dichotomie).Mcr_kNcm();
  };
  const double none = Mcr_Uniform(L);
  const double top = with_support_at(15), centre = with_support_at(0), bottom = with_support_at(-15);
  EXPECT_GT(top, centre);
  EXPECT_GT(centre, bottom);
  EXPECT_GT(bottom, none * 0.999);
}

TEST(Restraints, ARigidMidSpanSupportHalvesTheLateralLength) {
  // v and theta held at mid-span: two fork-supported halves of 5 m
  ProblemData p = Fork_Beam_Uniform_Moment(100, L, 1e6);
  p.Rv[51] = p.Rt[51] = -1;
  Solved s = Solve(p, Method_Dichotomie);
  ASSERT_EQ(s.res.Solve_Status, 0);
  // the halves restrain each other in warping a little: slightly above
  EXPECT_GT(s.Mcr_kNcm() / Mcr_Uniform(L / 2), 0.9999);
  EXPECT_LT(s.Mcr_kNcm() / Mcr_Uniform(L / 2), 1.10);
}

TEST(Links, ATorsionAndWarpingReleaseAtMidSpanLowersTheCriticalMoment) {
  // a torsion hinge in the middle leaves each half free to twist
  ProblemData p = Fork_Beam_Uniform_Moment(100, L, 1e6);
  p.Kt[51] = 0;
  p.Ktp[51] = 0;
  Solved d = Solve(p, Method_Dichotomie);
  Solved s = Solve(Fork_Beam_Uniform_Moment(100, L, 1e6), Method_Dichotomie);
  // a twist release still transmits nothing in torsion: the halves are held
  // only at their forks, so the critical moment drops
  ASSERT_EQ(d.res.Solve_Status, 0) << d.res.Error_Text;
  EXPECT_LT(d.res.mucr, s.res.mucr);
}

}  // namespace

namespace {

// Both methods on beams whose spectrum is not the symmetric one of a doubly
// symmetric span: the vector iteration must reach what the bisection reaches.
struct MethodCase {
  Solved eigen, dicho;
};
MethodCase Both(const ProblemData& p) {
  return {Solve(p, Method_Eigen, 1e-6, 100), Solve(p, Method_Dichotomie, 1e-6, 100)};
}

// Cantilever of length Lc, root fully held (v, theta, v', theta'), tip free,
// a tip load F at the shear centre: M(x) = -F (Lc - x), hogging.
// Without warping stiffness there is no warping to hold: theta' stays free.
ProblemData Cantilever(int nb, double Lc, double F, double Iw_) {
  ProblemData p = Fork_Beam_Uniform_Moment(nb, Lc, 0.0);
  for (int e = 1; e <= nb; ++e) p.Iw[e] = (float)Iw_;
  p.Rv[nb + 1] = p.Rt[nb + 1] = 0;
  p.Rv[1] = p.Rt[1] = p.Rvp[1] = -1;
  p.Rtp[1] = Iw_ > 0 ? -1 : 0;
  Set_Moments(p, [&](double x) { return -F * (Lc - x); });
  p.NF = 1;
  for (auto* v : {&p.F, &p.xF, &p.zF}) v->assign(2, 0.0);
  p.F[1] = -F;
  p.xF[1] = Lc;
  return p;
}

TEST(Cantilever, TipLoadAtTheShearCentreByBothMethods) {
  const double Lc = 300, F = 1000;
  // without warping stiffness (a narrow rectangle): Fcr = 4.0126 sqrt(E Iz G It) / L^2
  // (Prandtl, Michell); the file holds It as 19.87, 2.5e-5 high
  {
    const MethodCase c = Both(Cantilever(100, Lc, F, 0.0));
    ASSERT_EQ(c.dicho.res.Solve_Status, 0) << c.dicho.res.Error_Text;
    ASSERT_EQ(c.eigen.res.Solve_Status, 0) << c.eigen.res.Error_Text;
    const double Fcr = 4.0126 * std::sqrt(E * Iz * G * It) / (Lc * Lc) * 100;  // daN
    EXPECT_NEAR(c.dicho.res.mucr * F / Fcr, 1.0, 2e-4);
    EXPECT_NEAR(c.eigen.res.mucr * F / Fcr, 1.0, 2e-4);
    EXPECT_TRUE(c.eigen.res.Warnings.empty());
  }
  // the IPE 300 itself, warping held at the root: the two methods agree
  {
    const MethodCase c = Both(Cantilever(100, Lc, F, Iw));
    ASSERT_EQ(c.dicho.res.Solve_Status, 0) << c.dicho.res.Error_Text;
    ASSERT_EQ(c.eigen.res.Solve_Status, 0) << c.eigen.res.Error_Text;
    EXPECT_NEAR(c.eigen.res.mucr / c.dicho.res.mucr, 1.0, 1e-5);
    EXPECT_TRUE(c.eigen.res.Converged);
    EXPECT_TRUE(c.eigen.res.Warnings.empty());  // the refined mode too
    // warping stiffness only raises the factor of 4.013
    EXPECT_GT(c.dicho.res.mucr * F, 4.0126 * std::sqrt(E * Iz * G * It) / (Lc * Lc) * 100);
  }
}

// A welded I with a top flange 300 x 20 and a bottom flange 150 x 15 (mm),
// web 10 mm, 582.5 mm between the flange centroids. Thin-walled values:
// Iz = 2 30^3/12 + 1.5 15^3/12 + 58.25/12, Iw = hs^2 Iz1 Iz2 / (Iz1 + Iz2),
// It = (30 2^3 + 15 1.5^3 + 58.25 1^3)/3. Betaz (half the usual beta) is
// about -22 cm: the big top flange draws the shear centre up.
TEST(MonoSymmetric, UniformMomentEitherWayMatchesTheClosedForm) {
  const double Iz1 = 2 * 30. * 30 * 30 / 12, Iz2 = 1.5 * 15. * 15 * 15 / 12, hs = 58.25;
  const double mIz = Iz1 + Iz2 + hs / 12, mIw = hs * hs * Iz1 * Iz2 / (Iz1 + Iz2);
  const double mIt = (30 * 8 + 15 * 3.375 + hs) / 3, bz = -22, Lm = 600;
  ProblemData p = Fork_Beam_Uniform_Moment(100, Lm, 1e6);
  for (int e = 1; e <= 100; ++e) {
    p.Iz[e] = mIz;
    p.It[e] = mIt;
    p.Iw[e] = mIw;
    p.Betaz[e] = bz;
  }
  // Mcr = pi^2 E Iz / L^2 (-+Betaz + sqrt(Betaz^2 + Iw/Iz + L^2 G It / (pi^2 E Iz)))
  const double Ez = M_PI * M_PI * 2.1e6 * mIz / (Lm * Lm);
  const double root = std::sqrt(bz * bz + mIw / mIz + Lm * Lm * 807690.0 * mIt / (M_PI * M_PI * 2.1e6 * mIz));
  const double big = Ez * (root - bz), small = Ez * (root + bz);
  ASSERT_GT(big / small, 3.0);  // the case that defeated the plain iteration
  // sagging moments compress the big top flange, hogging ones the small one
  for (double M : {1e6, -1e6}) {
    ProblemData q = p;
    for (int e = 1; e <= 100; ++e) q.M1[e] = q.M2[e] = M;
    const MethodCase c = Both(q);
    SCOPED_TRACE(M);
    ASSERT_EQ(c.dicho.res.Solve_Status, 0) << c.dicho.res.Error_Text;
    ASSERT_EQ(c.eigen.res.Solve_Status, 0) << c.eigen.res.Error_Text;
    const double expected = M > 0 ? big : small;
    EXPECT_NEAR(c.dicho.res.mucr * 1e6 / expected, 1.0, 1e-4);
    EXPECT_NEAR(c.eigen.res.mucr * 1e6 / expected, 1.0, 1e-4);
    EXPECT_TRUE(c.eigen.res.Warnings.empty()) << c.eigen.res.Warnings[0];
    EXPECT_TRUE(c.eigen.res.Converged);
  }
}

}  // namespace
