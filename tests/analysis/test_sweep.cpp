// Solves side by side, and the sweep of one field with its table.
#include <atomic>
#include <cstring>
#include <thread>
#include <vector>

#include "analysis/Sweep.h"
#include "foundation/Mod_Zarvek.h"
#include "solver/solver_support.h"

namespace zarvek {
namespace {

using test::Mcr_Uniform;  // IPE 300 under uniform moment, kN and cm

// A new document: IPE 300, 10 m in 100 elements, fork supports, 100 kN.m.
BeamModel Default_Model() { BeamModel m; Init_Default(m, "/tmp"); return m; }

// Record i of a set varied in span, load and method, so that two threads at once never
// hold the same numbers; solved through a problem file at `path` or in memory.
ProceedResult Solve_Varied(int i, const std::string& path = "") {
  BeamModel m = Default_Model();
  m.Txt_L = Number_To_Text(2.0 + 0.5 * i);
  if (i % 3 == 1) m.Chk_F1 = true, m.Txt_zF1 = "15";  // the mid-span force on top of the end moments
  if (i % 4 == 0) m.Opt_Eigen = true, m.Opt_Dichotomie = false;
  SolveControl ctl;
  return Proceed(m, path, ctl);
}

TEST(Reentrancy, ThreadsGetWhatEachSolveGetsAlone) {
  // the reference: one at a time, through a problem file as the window does
  const int n = 24, threads = 8;
  std::vector<ProceedResult> alone(n);
  for (int i = 0; i < n; ++i) {
    alone[i] = Solve_Varied(i, test::Scratch_Dir() + "/SWEEP.ZVK");
    ASSERT_EQ(alone[i].Solve_Status, 0) << i << " " << alone[i].Message;
  }
  // eight threads, each through every record from a different start, in memory: the same bits
  std::vector<std::vector<ProceedResult>> got(threads, std::vector<ProceedResult>(n));
  std::vector<std::thread> pool;
  for (int t = 0; t < threads; ++t)
    pool.emplace_back([&, t] {
      for (int k = 0; k < n; ++k) got[t][(k + 3 * t) % n] = Solve_Varied((k + 3 * t) % n);
    });
  for (auto& th : pool) th.join();
  for (int t = 0; t < threads; ++t)
    for (int i = 0; i < n; ++i) {
      SCOPED_TRACE(testing::Message() << "thread " << t << ", record " << i);
      const SolverResult &a = alone[i].Solver, &b = got[t][i].Solver;
      ASSERT_EQ(got[t][i].Solve_Status, 0);
      EXPECT_EQ(std::memcmp(&a.mucr, &b.mucr, sizeof a.mucr), 0) << a.mucr << " " << b.mucr;
      EXPECT_EQ(a.Mode_Vector, b.Mode_Vector);
      EXPECT_EQ(alone[i].Efforts.Efforts_M, got[t][i].Efforts.Efforts_M);
    }
}

TEST(Reentrancy, ProblemTextFollowsEveryChangeOfAColumn) {
  // a row's text is reused only for the same value: moments back after a change are written again
  ProblemData p = Fork_Beam_Uniform_Moment(50, 1000.0, 5.0);
  const std::pair<int, const char*> rows[] = {{1, "5"}, {2, "5"}, {3, "7"}, {4, "5"}, {5, "0.25"}};
  for (auto [n, m] : rows) p.M1[n] = Num_Of_Text(m);
  p.Iz[2] = 700;
  const std::string t = Problem_Text(p, ProblemLabels::Proceed);
  // each value right-aligned in its field, with the digits it holds
  auto f = [](const std::string& v, size_t w) { return std::string(w - v.size(), ' ') + v; };
  for (auto [n, m] : rows)
    EXPECT_NE(t.find("\n  " + std::to_string(n) + f(m, 14) + f("5", 14) + "\n"), std::string::npos) << n;
  for (auto [n, Iz] : {std::pair{"1", "603.78"}, {"2", "700"}, {"3", "603.78"}})
    EXPECT_NE(t.find(std::string("\n  ") + n + f("20", 9) + f(Iz, 12)), std::string::npos) << n;
}

TEST(Sweep, ValuesCountedFromTheStep) {
  std::vector<double> v;
  std::string why;
  // 0.1 added thirty times is not 3: the values are counted, the last is 3
  ASSERT_TRUE(Sweep_Values(0, 3, 0.1, v, why)); ASSERT_EQ(v.size(), 31u);
  EXPECT_EQ(v.back(), 3.0); EXPECT_DOUBLE_EQ(v[7], 0.7);
  // a step that does not divide the range stops short of the end; downwards works too
  ASSERT_TRUE(Sweep_Values(10, 3, -3, v, why)); EXPECT_EQ(v, (std::vector<double>{10, 7, 4}));
  // no step, a step away from the end, more points than the limit
  for (double step : {0.0, -1.0}) EXPECT_FALSE(Sweep_Values(0, 3, step, v, why)) << step;
  EXPECT_FALSE(Sweep_Values(0, 1e6, 1e-3, v, why, 1000));
}

TEST(Sweep, SpanFollowsTheClosedFormAndFailedPointsStayRows) {
  Set_Msg(50, "Value out of limits");
  const BeamModel m = Default_Model();
  // 0.5 m and 400 m lie outside 1 m .. 300 m of a 100-element beam
  const std::vector<double> spans = {0.5, 4, 8, 400, 12};
  std::atomic<int> done{0};
  Sweep_Options opt;
  opt.jobs = 3, opt.done = &done;
  const std::vector<SweepPoint> pts = Run_Sweep(m, "Txt_L", spans, opt);
  EXPECT_EQ(done.load(), 5); ASSERT_EQ(pts.size(), 5u);
  for (size_t i = 0; i < pts.size(); ++i) {
    EXPECT_EQ(pts[i].value, spans[i]);
    if (i == 0 || i == 3) {  // refused with the window's message
      EXPECT_TRUE(pts[i].status == Sweep_Refused && pts[i].Mcr == 0) << i;
      EXPECT_EQ(pts[i].message, "L/N : Value out of limits") << i;
      continue;
    }
    ASSERT_EQ(pts[i].status, 0) << i << " " << pts[i].message;
    // Mcr in kN.m; the default moment is 100 kN.m
    EXPECT_NEAR(pts[i].Mcr / (Mcr_Uniform(spans[i] * 100) / 100), 1.0, 2e-4) << spans[i];
    EXPECT_NEAR(pts[i].Mcr, pts[i].mucr * 100, 1e-9 * pts[i].Mcr);
  }

  const std::string csv = Sweep_Csv(pts, "Txt_L", "m", "kN.m");
  std::vector<std::string> rows;
  for (size_t b = 0, e; (e = csv.find('\n', b)) != std::string::npos; b = e + 1) rows.push_back(csv.substr(b, e - b));
  ASSERT_EQ(rows.size(), 6u); EXPECT_EQ(rows[0], "Txt_L [m],mucr,Mcr [kN.m],status,message");
  EXPECT_EQ(rows[1], "0.5,,,-1,L/N : Value out of limits");
  // a solved row reads back to the numbers of the point
  double value, mucr, Mcr;
  int status;
  ASSERT_EQ(std::sscanf(rows[3].c_str(), "%lf,%lf,%lf,%d", &value, &mucr, &Mcr, &status), 4);
  EXPECT_TRUE(value == 8 && mucr == pts[2].mucr && Mcr == pts[2].Mcr && status == 0) << rows[3];
}

TEST(Sweep, FieldsAndTheirRefusals) {
  BeamModel m = Default_Model();
  std::string why;
  EXPECT_FALSE(Sweep_Field_OK("Txt_mucr", why));  // a result, not an entry
  // the minus is not typed into an unsigned field; a signed one takes it
  EXPECT_FALSE(Set_Field(m, "Txt_L", "-8", why)); EXPECT_NE(why.find('-'), std::string::npos);
  EXPECT_TRUE(Set_Field(m, "Txt_M1", "-50", why)) << why;

  // the coupled constant follows: G from E and nu, E doubled doubles G; Mcr of the fork beam
  // goes with sqrt(E Iz G It) (1 + pi^2 E Iw / (L^2 G It))^0.5, whose second factor stays
  const double E0 = Num_Of_Text(m.Txt_E);
  const std::vector<SweepPoint> one = Run_Sweep(Default_Model(), "Txt_E", {E0, 2 * E0});
  ASSERT_TRUE(one[0].ok() && one[1].ok()); EXPECT_NEAR(one[1].Mcr / one[0].Mcr, 2.0, 4e-4);

  // a restraint's spring: a very stiff lateral spring at mid-span halves the span
  BeamModel r = Default_Model();
  r.Chk_Punctual1 = true, r.Txt_xfint1 = "0.5", r.Lst_ti_p1 = Restraint_Item(1);
  const std::vector<SweepPoint> k = Run_Sweep(r, "Lst_vi_p1", {1e6});
  ASSERT_TRUE(k[0].ok()) << k[0].message;
  EXPECT_NEAR(k[0].Mcr / (Mcr_Uniform(500) / 100), 1.0, 1e-3);
}

}  // namespace
}  // namespace zarvek
