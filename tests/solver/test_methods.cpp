// Element matrices and the two methods' exits, results and modes.
#include <cstring>
#include <tuple>

#include "solver/ElementMatrices.h"
#include "solver/Mod_Eigen.h"
#include "solver_support.h"

using namespace zarvek;
using namespace zarvek::test;

namespace {

TEST(ElementMatrices, AReleasedLinkTakesAllStiffnessOffItsDegree) {
  // v' released at the first node (links[3]): a hinge for lateral rotation
  const std::array<double, 9> links = {1e30, 1e30, 1e30, 0, 1e30, 1e30, 1e30, 1e30, 1e30};
  ElemMatrix K;
  Build_Ke(2.1e6, 807690, 10, 603.78, 19.868, 126332, links, K);
  for (int i = 1; i <= 8; ++i) EXPECT_EQ(K[Packed_Index(3, i)], 0.0) << i;
  // what remains is the stiffness of a propped member: v1,v1 = 3 E Iz / L^3
  EXPECT_NEAR(K[Packed_Index(1, 1)] / (3 * 2.1e6 * 603.78 / 1000), 1, 1e-6);
}

TEST(ElementMatrices, LoadHeightTermsOfPointAndSpanLoads) {
  // a point load at the first node touches t1,t1 only, by F z
  double F[2] = {0, -100}, xF[2] = {0, 0}, zF[2] = {0, 15};
  ElemMatrix Kg0, Kg;
  double V1 = 7, V2 = 9;
  Build_Kg(10, 0, 0, 0, 0, V1, V2, ElementLoads{}, Kg0);
  Build_Kg(10, 0, 0, 0, 0, V1, V2, ElementLoads{1, 0, F, xF, zF}, Kg);
  for (int p = 1; p <= 36; ++p)
    EXPECT_DOUBLE_EQ(Kg[p] - Kg0[p], p == Packed_Index(2, 2) ? -1500.0 : 0.0) << p;

  // a uniform span load over the whole element: the t-t entries are the
  // integrals q z L Ni Nj, e.g. t1,t1 = 13/35 q z L
  double q1[2] = {0, -2}, x1[2] = {0, 0}, q2[2] = {0, -2}, x2[2] = {0, 1}, zq[2] = {0, 15};
  ElementLoads sp{0, 1, nullptr, nullptr, nullptr, q1, x1, q2, x2, zq};
  Build_Kg(10, 0, 0, 0, 0, V1, V2, sp, Kg);
  // t1,t1, t2,t2, t1,t2, w2,w2 (L^2/105) and t1,w1, which keeps its reversed
  // primitive: the opposite of 11 L/210
  const double qzL = -2 * 15 * 10;
  const struct { int i, j; double want, tol; } entries[] = {
      {2, 2, 13.0 / 35 * qzL, 1e-4}, {6, 6, 13.0 / 35 * qzL, 1e-4}, {2, 6, 9.0 / 70 * qzL, 1e-4},
      {8, 8, qzL * 100 / 105, 1e-3}, {2, 4, -11.0 * 10 / 210 * qzL, 1e-3}};
  for (const auto& e : entries) EXPECT_NEAR(Kg[Packed_Index(e.i, e.j)], e.want, e.tol) << e.i << "," << e.j;
  // a span part of zero length adds nothing
  x2[1] = 0;
  Build_Kg(10, 0, 0, 0, 0, V1, V2, sp, Kg);
  for (int p = 1; p <= 36; ++p) EXPECT_EQ(Kg[p], Kg0[p]);
}

struct Methods : ::testing::Test {
  void SetUp() override { Set_Msg(44, "iteration limit"), Set_Msg(82, "not stable"); }
  static SolverResult Run(const ProblemData& p, int method, SolveControl& ctl) {
    SolverResult r;
    Solve_Problem(Write(p), method, r, ctl);
    return r;
  }
};

TEST_F(Methods, RefusalsOfEachMethod) {
  ProblemData p = Fork_Beam_Uniform_Moment(50, 500.0, 1e6);
  p.Rt[1] = p.Rt[51] = 0;  // nothing holds the twist
  SolveControl ctl;
  std::vector<std::string> boxes;
  ctl.Show_Box = [&](const std::string& t) { boxes.push_back(t); };
  auto refused = [&](const SolverResult& r, int status, const std::string& text) {
    EXPECT_EQ(std::tuple(r.Solve_Status, r.Error_Text, r.mucr), std::tuple(status, text, 0.0));
  };
  refused(Run(p, Method_Eigen, ctl), 5, "Unstable structure - Check Data");
  refused(Run(p, Method_Dichotomie, ctl), 2, "not stable");
  EXPECT_TRUE(boxes.empty());
  // held in twist by 0.01 daN.cm/rad at one end: stable, but the last twist pivot keeps 3e-12 of the 3.2e9
  // (12 E Iw / Le^3) it started from, ten digits lost; the text says so and names the other method
  p.Rt[1] = 0.01;
  SolverResult n = Run(p, Method_Eigen, ctl);
  EXPECT_EQ(n.Solve_Status, 5);
  EXPECT_NE(n.Error_Text.find("nearly singular"), std::string::npos) << n.Error_Text;
  EXPECT_NE(n.Error_Text.find("Dichotomic process"), std::string::npos) << n.Error_Text;
}

// The iteration limit: the bisection still gives its estimate, the vector iteration nothing but its box,
// which the result keeps even without a window to show it. Either way the result says it is not converged.
TEST_F(Methods, TheIterationLimitEndsEachMethodItsOwnWay) {
  const ProblemData p = Fork_Beam_Uniform_Moment(100, 1000.0, 1e6);
  SolveControl ctl;
  ctl.Tol = 1e-12, ctl.NbIter = 5;
  SolverResult d = Run(p, Method_Dichotomie, ctl);
  EXPECT_EQ(std::tuple(d.Solve_Status, d.Error_Text, d.Converged),
            std::tuple(0, std::string("iteration limit"), false));
  EXPECT_GT(d.mucr, 0);
  EXPECT_EQ(Run(p, Method_Eigen, ctl).Warnings, std::vector<std::string>{"Problem of convergence"});
  std::vector<std::string> boxes;
  ctl.Show_Box = [&](const std::string& t) { boxes.push_back(t); };
  SolverResult e = Run(p, Method_Eigen, ctl);
  EXPECT_EQ(std::tuple(e.mucr, e.Converged), std::tuple(0.0, false));
  EXPECT_EQ(boxes, std::vector<std::string>{"Problem of convergence"});
}

TEST_F(Methods, AStopRequestEndsWithTheCurrentBracket) {
  SolveControl ctl;
  int calls = 0;
  ctl.Show_Progress = [&](int, double) { ctl.Stop_Requested = ++calls >= 6; };  // the user presses the button
  SolverResult d = Run(Fork_Beam_Uniform_Moment(100, 1000.0, 1e6), Method_Dichotomie, ctl);
  EXPECT_EQ(d.Solve_Status, 0);
  const double exact = Mcr_Uniform(1000) * 100 / 1e6;
  EXPECT_TRUE(d.mucr > 0.25 * exact && d.mucr <= exact * 1.0001) << d.mucr / exact;
  EXPECT_LT(calls, 12);
}

TEST_F(Methods, TheModeIsNormalisedAndSymmetric) {
  for (int method : {Method_Eigen, Method_Dichotomie}) {
    const std::vector<float> v = Solve(Fork_Beam_Uniform_Moment(100, 1000.0, 1e6), method, 1e-7).res.Mode_Vector;
    ASSERT_EQ(v.size(), 4u * 101 + 1);
    const int at = std::max_element(v.begin() + 1, v.end(), [](float a, float b) { return std::fabs(a) < std::fabs(b); }) - v.begin();
    EXPECT_EQ(std::fabs(v[at]), 1.0f);  // exactly +1 or -1
    EXPECT_EQ(at, 4 * 51 - 3) << "largest: lateral displacement at mid-span";
    // a half sine, with the ratio the closed form gives (theta / v = (pi/L)^2 E Iz / Mcr)
    EXPECT_NEAR(v[4 * 26 - 3] / v[at], std::sin(M_PI / 4), 2e-3);
    const double ratio = (M_PI / 1000) * (M_PI / 1000) * E * Iz / Mcr_Uniform(1000);
    EXPECT_NEAR(std::fabs(v[at + 1] / v[at]), ratio, 1e-3 * ratio);
  }
}

TEST_F(Methods, RestraintHeightsComeBackInTheModeAtTheShearCentre) {
  // a support at the top flange: the mode at that node, read at the shear
  // centre, moves laterally by -z theta where the flange point stays put
  ProblemData p = Fork_Beam_Uniform_Moment(100, 1000.0, 1e6);
  p.Rv[51] = -1, p.z[51] = 15;
  const SolverResult r = Solve(p, Method_Dichotomie, 1e-7).res;
  ASSERT_EQ(r.Mode_Vector.size(), 4u * 101 + 1);
  EXPECT_NEAR(r.Mode_Vector[4 * 51 - 3] + 15 * r.Mode_Vector[4 * 51 - 2], 0.0, 1e-5);
  EXPECT_NE(r.Mode_Vector[4 * 51 - 2], 0.0f); EXPECT_EQ(r.Restraint_Level[51], 15.0f);
}

// The routines that skip what lies outside each column's profile must give
// exactly the numbers of the plain packed loops.
TEST_F(Methods, ProfileRoutinesGiveBitIdenticalResults) {
  // the last with a small moment: the bracket has to grow to 100 first
  std::vector<ProblemData> problems = {
      Fork_Beam_Uniform_Moment(100, 1000.0, 1e6), Fork_Beam_Uniform_Load(150, 900.0, 12.0, 15.0),
      Fork_Beam_Uniform_Moment(60, 600.0, 1e6), Fork_Beam_Uniform_Load(80, 800.0, 10.0, -10.0),
      Fork_Beam_Uniform_Moment(50, 500.0, 3e4)};
  ProblemData& p = problems[2];
  Set_Moments(p, [](double x) { return 1e6 * (1 - 1.5 * x / 600); });
  p.Rv[31] = 3000, p.z[31] = 14, p.Rvp[1] = p.Rtp[61] = -1, p.Betaz[7] = 5, p.Kvp[30] = 0;
  problems[3].Rv[1] = 1e5, problems[3].z[1] = -12;  // lateral spring and a height at the left end
  // the dichotomy also one trial factor per sweep, as without vector lanes
  const int One_Per_Sweep = 3;
  for (size_t k = 0; k < problems.size(); ++k)
    for (int method : {Method_Eigen, Method_Dichotomie, One_Per_Sweep}) {
      SolveControl a, b;
      a.One_Factor_Per_Sweep = method == One_Per_Sweep, b.Reference = true;
      const int m = method == One_Per_Sweep ? Method_Dichotomie : method;
      SCOPED_TRACE(testing::Message() << "problem " << k << " method " << method);
      SolverResult ra = Run(problems[k], m, a), rb = Run(problems[k], m, b);
      ASSERT_TRUE(ra.Solve_Status == 0 && rb.Solve_Status == 0) << ra.Error_Text << rb.Error_Text;
      EXPECT_EQ(std::memcmp(&ra.mucr, &rb.mucr, sizeof(double)), 0);
      ASSERT_EQ(ra.Mode_Vector.size(), rb.Mode_Vector.size());
      EXPECT_EQ(std::memcmp(ra.Mode_Vector.data(), rb.Mode_Vector.data(), ra.Mode_Vector.size() * sizeof(float)), 0);
      EXPECT_GT(ra.mucr, k + 1 == problems.size() ? 10 : 0);
    }
}

// A spring of 1e305 is a finite stiffness: the factorisations carry their determinant without overflow, and
// both routes reach the same factor as a rigid support at the same node (the bisection to the last bit).
TEST_F(Methods, AnEnormousSpringSolvesAlikeByBothRoutes) {
  ProblemData rigid = Fork_Beam_Uniform_Moment(50, 500.0, 1e6), spring = rigid;
  rigid.Rv[26] = -1, spring.Rv[26] = 1e305;  // lateral support at mid-span
  for (int method : {Method_Dichotomie, Method_Eigen}) {
    const double r = Solve(rigid, method).res.mucr;
    ASSERT_GT(r, 0) << method;
    double by[2];
    for (bool reference : {false, true}) {
      by[reference] = Solve(spring, method, 1e-6, 100, reference).res.mucr;
      EXPECT_NEAR(by[reference] / r, 1.0, 1e-5) << method << " reference " << reference;
    }
    EXPECT_TRUE(method != Method_Dichotomie || by[0] == by[1]) << by[0] << " " << by[1];
  }
}

}  // namespace
