// Axial force with lateral-torsional buckling: the flexural, torsional and
// flexural-torsional closed forms of fork-supported members under constant N,
// alone and with a uniform moment, and the optional block of the problem file.
#include "solver_support.h"

using namespace zarvek;
using namespace zarvek::test;

namespace {

using Section = AxialSection;
const double L = Section::L;  // cm: 100 elements of 10 cm

// Fork-supported beam of 100 elements, uniform moment M (daN.cm, sagging
// positive) and axial force N (daN, compression positive).
ProblemData Beam(const Section& s, double M, double N) {
  ProblemData p = Fork_Beam_Uniform_Moment(100, L, M);
  for (int e = 1; e <= p.NB; ++e) {
    p.Iz[e] = s.Iz, p.It[e] = s.It, p.Iw[e] = s.Iw, p.Betaz[e] = s.Betaz;
    p.N[e] = N, p.A[e] = s.A, p.Iy[e] = s.Iy, p.zC[e] = s.zC;
  }
  return p;
}

class AxialBothMethods : public ::testing::TestWithParam<int> {};

// Columns: the IPE 300 buckles about its weak axis, a cruciform-like section twists first, a mono-symmetric
// one takes the flexural-torsional root, which depends on zC^2 only (Betaz plays no part without a moment).
TEST_P(AxialBothMethods, ColumnTakesTheLowestRoot) {
  const Section flexural, torsional{.It = 1, .Iw = 1000}, up{.It = 4, .zC = 10, .Betaz = 7},
      down{.It = 4, .zC = -10, .Betaz = 7};
  ASSERT_LT(torsional.Ncr_T(), torsional.Ncr_z());
  for (const Section& s : {flexural, torsional, up, down}) {
    const double lowest = std::min(s.Ncr_z(), s.Ncr_T()), Ncr = s.zC ? Closed_Form_Factor(s, 0, 1) : lowest;
    ASSERT_TRUE(!s.zC || Ncr < 0.9 * lowest) << Ncr;  // the coupling is felt
    Solved r = Solve(Beam(s, 0, 1000), GetParam());
    EXPECT_EQ(r.res.N, 1000);
    EXPECT_NEAR(r.res.mucr * 1000 / Ncr, 1.0, 1e-3) << s.It << " " << s.zC;
  }
}

// Compression lowers and tension raises the critical moment of the IPE 300;
// a mono-symmetric beam under a moment either way with a force either way.
TEST_P(AxialBothMethods, MomentAndForceMatchTheClosedForm) {
  const Section ipe, mono{.It = 8, .zC = 6, .Betaz = 5};
  const double Mcr0 = Closed_Form_Factor(ipe, 1e6, 0) * 1e6;
  EXPECT_NEAR(Mcr0 / 100 / Mcr_Uniform(L), 1.0, 1e-9);  // the two closed forms agree
  const struct { const Section* s; double M, N; } rows[] = {
      {&ipe, 1e6, 5000}, {&ipe, 1e6, -5000}, {&ipe, 1e6, -40000}, {&mono, 1e6, 3000},
      {&mono, 1e6, -3000}, {&mono, -1e6, 3000}, {&mono, -1e6, -3000}};
  for (const auto& [s, M, N] : rows) {
    // a tension beyond the column's own buckling load makes the reversed
    // load (mu < 0) the dominant one: the vector iteration then needs its
    // shifts and more than the test's iterations; the bisection does not care
    if (N < -2 * s->Ncr_z() && GetParam() == Method_Eigen) continue;
    Solved r = Solve(Beam(*s, M, N), GetParam());
    const double mu = Closed_Form_Factor(*s, M, N);
    EXPECT_NEAR(r.res.mucr / mu, 1.0, 1e-3) << M << " " << N;
    if (s != &ipe) continue;
    EXPECT_EQ(N > 0, mu * M < 0.95 * Mcr0) << N; EXPECT_EQ(N < 0, mu * M > 1.05 * Mcr0) << N;
  }
}

INSTANTIATE_TEST_SUITE_P(Axial, AxialBothMethods, ::testing::Values(Method_Eigen, Method_Dichotomie),
                         [](const auto& i) { return i.param == 1 ? "Eigen" : "Dichotomie"; });

TEST(Axial, WithoutForceTheFactorIsTodaysToTheLastBit) {
  // a block of zeros, or none: the same factor bit for bit; a force of one
  // daN beside a critical moment of some 450 kN.m: nothing measurable
  ProblemData p = Beam(Section{}, 1e6, 0);
  const std::string text = Problem_Text(p, ProblemLabels::Proceed);
  EXPECT_EQ(text.find("Axial"), std::string::npos);
  std::string zeros = text + "Axial force\n";
  for (int n = 1; n <= 100; ++n) zeros += std::to_string(n) + " 0 0 0 0\n";
  for (int method : {Method_Eigen, Method_Dichotomie}) {
    const SolverResult b = Solve_File(Write_Text(zeros, "ZEROS.ZVK"), method).res;
    const double a = Solve(p, method).res.mucr;
    ASSERT_GT(a, 0); EXPECT_EQ(a, b.mucr);
    EXPECT_EQ(b.N, 0); EXPECT_NEAR(Solve(Beam(Section{}, 1e6, 1), method).res.mucr / a, 1.0, 1e-4);
  }
}

const char* const Malformed = "The axial force block is malformed.";

SolverResult Read_Text(const std::string& text) {
  Set_Further_Text("Axial_Block_Refused", Malformed);
  return Read_File(Write_Text(text, "AX.ZVK"));
}

TEST(AxialBlock, WrittenAfterTheSpanLoadsReadBackOrRefusedWithItsOwnStatus) {
  ProblemData p = Beam(Section{.zC = -3.5}, 0, 1234.5);
  p.N[7] = -250;  // the largest magnitude is the one reported
  const std::string text = Problem_Text(p, ProblemLabels::Proceed);
  const size_t at = text.find("Axial force : i  Ni  Ai  Iyi  zCi\n");
  ASSERT_NE(at, std::string::npos); EXPECT_GT(at, text.find("NF NQ"));
  // N alone is a load: no "all moments 0" refusal
  SolverResult r = Read_Text(text);
  EXPECT_EQ(r.Solve_Status, 0) << r.Error_Text; EXPECT_EQ(r.N, 1234.5);

  // malformed blocks have their own status and message
  const std::string good = Problem_Text(Beam(Section{}, 1e6, 1000), ProblemLabels::Proceed);
  const size_t block = good.find("Axial force");
  auto edit = [&](const std::string& from, const std::string& to) {
    std::string t = good;
    const size_t at = t.find(from, block);
    EXPECT_NE(at, std::string::npos) << from;
    return t.replace(at, from.size(), to);
  };
  const std::pair<std::string, std::string> cases[] = {
      {"cut in the middle", good.substr(0, good.find("\n 50 ", block))},
      {"an index out of order", edit("\n  3 ", "\n  4 ")}, {"a word for a number", edit("53.81", "area")},
      {"no area under a force", edit("53.81", " 0")}, {"more than the block", good + "101 5 5 5 5\n"},
      {"a shear centre off the section", edit("0\n  2 ", "151.0\n  2 ")}};
  for (const auto& [what, text] : cases) Expect_Refused(Read_Text(text), 121, Malformed, what);
  // without moment and without force nothing loads the beam: refused with the message that says so
  Set_Further_Text("No_Load", "Nothing loads the beam.");
  const std::string none = Problem_Text(Beam(Section{}, 0, 0), ProblemLabels::Proceed);
  Expect_Refused(Read_Text(none), 112, "Nothing loads the beam.", "no load");
}

}  // namespace
