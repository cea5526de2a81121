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
