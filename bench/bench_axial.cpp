// The solve of 300 elements with an axial force beside the same solve
// without: the force fills the lateral band of the geometric stiffness, which
// must cost little (the aim: within 10 %).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <unistd.h>

#include "solver/Example.h"
#include "solver/Mod_StabMat.h"

namespace {

std::string Axial_Problem(int nb, double N) {
  static std::string dir;
  if (dir.empty()) {
    char tmpl[] = "/tmp/zarvek-bench-axial-XXXXXX";
    dir = mkdtemp(tmpl) ? tmpl : "/tmp";
  }
  zarvek::ProblemData p = zarvek::Fork_Beam_Uniform_Load(nb, 1200.0, 10.0, 0.0);
  for (int e = 1; e <= nb; ++e) p.N[e] = N, p.A[e] = 53.81, p.Iy[e] = 8356;
  const std::string path = dir + "/AXIAL" + std::to_string(nb) + (N != 0 ? "N" : "") + ".ZVK";
  zarvek::Write_ProblemFile(path, p, zarvek::ProblemLabels::Proceed);
  return path;
}

void Run(benchmark::State& state, int method, double N) {
  const std::string path = Axial_Problem((int)state.range(0), N);
  double mucr = 0;
  for (auto _ : state) {
    zarvek::SolverResult res;
    zarvek::SolveControl ctl;
    zarvek::Solve_Problem(path, method, res, ctl);
    if (res.Solve_Status != 0) {
      state.SkipWithError("solve failed");
      break;
    }
    mucr = res.mucr;
    benchmark::DoNotOptimize(res.Mode_Vector.data());
  }
  state.counters["mucr"] = mucr;
}

// 2000 daN: a sixth of the weak-axis buckling load of the 12 m span
void Axial_Dichotomie_WithN(benchmark::State& s) { Run(s, zarvek::Method_Dichotomie, 2000); }
void Axial_Dichotomie_WithoutN(benchmark::State& s) { Run(s, zarvek::Method_Dichotomie, 0); }
void Axial_Eigen_WithN(benchmark::State& s) { Run(s, zarvek::Method_Eigen, 2000); }
void Axial_Eigen_WithoutN(benchmark::State& s) { Run(s, zarvek::Method_Eigen, 0); }

void Setup_Axial(benchmark::internal::Benchmark* b) {
  b->Unit(benchmark::kMillisecond)->Repetitions(10)->ReportAggregatesOnly(true);
  b->ComputeStatistics("min", [](const std::vector<double>& v) {
    return *std::min_element(v.begin(), v.end());
  });
}

}  // namespace

BENCHMARK(Axial_Dichotomie_WithoutN)->Arg(300)->Apply(Setup_Axial);
BENCHMARK(Axial_Dichotomie_WithN)->Arg(300)->Apply(Setup_Axial);
BENCHMARK(Axial_Eigen_WithoutN)->Arg(300)->Apply(Setup_Axial);
BENCHMARK(Axial_Eigen_WithN)->Arg(300)->Apply(Setup_Axial);
