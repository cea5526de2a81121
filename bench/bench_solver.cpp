// Whole solves of a fork-supported IPE 300 under a uniform load, by both
// methods, with the profile-skipping routines and with the plain packed
// loops (the reference). Element lengths are exact in the problem file (the
// span is 1200 cm: 12, 6 and 4 cm elements).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <unistd.h>

#include "foundation/Mod_Zarvek.h"
#include "solver/Example.h"
#include "solver/Mod_StabMat.h"

namespace {

std::string Problem_Path(int nb) {
  static std::string dir;
  if (dir.empty()) {
    char tmpl[] = "/tmp/zarvek-bench-XXXXXX";
    dir = mkdtemp(tmpl) ? tmpl : "/tmp";
  }
  std::string path = dir + "/BEAM" + std::to_string(nb) + ".ZVK";
  zarvek::Write_ProblemFile(path, zarvek::Fork_Beam_Uniform_Load(nb, 1200.0, 10.0, 0.0),
                            zarvek::ProblemLabels::Proceed);
  return path;
}

void Run(benchmark::State& state, int method, bool reference) {
  const int nb = (int)state.range(0);
  const std::string path = Problem_Path(nb);
  double mucr = 0;
  for (auto _ : state) {
    zarvek::SolverResult res;
    zarvek::SolveControl ctl;
    ctl.Reference = reference;
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

void Solve_Eigen(benchmark::State& s) { Run(s, zarvek::Method_Eigen, false); }
void Solve_Dichotomie(benchmark::State& s) { Run(s, zarvek::Method_Dichotomie, false); }
void Solve_Eigen_Reference(benchmark::State& s) { Run(s, zarvek::Method_Eigen, true); }
void Solve_Dichotomie_Reference(benchmark::State& s) { Run(s, zarvek::Method_Dichotomie, true); }

}  // namespace

// A shared machine adds its own delays to some repetitions, never takes
// time away: the smallest of ten repetitions is the steadiest figure, and
// the one to compare between sizes and with the reference.
void Setup(benchmark::internal::Benchmark* b) {
  b->Unit(benchmark::kMillisecond)->Repetitions(10)->ReportAggregatesOnly(true);
  b->ComputeStatistics("min", [](const std::vector<double>& v) {
    return *std::min_element(v.begin(), v.end());
  });
}

BENCHMARK(Solve_Eigen)->Arg(100)->Arg(200)->Arg(300)->Apply(Setup);
BENCHMARK(Solve_Dichotomie)->Arg(100)->Arg(200)->Arg(300)->Apply(Setup);
BENCHMARK(Solve_Eigen_Reference)->Arg(300)->Apply(Setup);
BENCHMARK(Solve_Dichotomie_Reference)->Arg(300)->Apply(Setup);

// The programs' own allocator setting, so that a solve here costs what it
// costs there.
int main(int argc, char** argv) {
  zarvek::Keep_Freed_Memory();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
