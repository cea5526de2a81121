// A parametric study of the example project (IPE 300, 100 elements, uniform
// moment): 1,000 spans from 2.01 m to 12 m solved by the sweep on 1 and 2
// threads. Wall-clock time, since the work is spread over threads; the
// points per second give the scaling (ideal: twice on two cores).
#include <benchmark/benchmark.h>

#include <string>

#include "analysis/Sweep.h"

namespace {

void Sweep_1000_Spans(benchmark::State& state) {
  zarvek::BeamModel m;
  zarvek::Init_Default(m, "/tmp");
  std::vector<double> spans;
  std::string why;
  zarvek::Sweep_Values(2.01, 12.0, 0.01, spans, why);
  zarvek::Sweep_Options opt;
  opt.jobs = (int)state.range(0);
  int failed = 0;
  for (auto _ : state) {
    const std::vector<zarvek::SweepPoint> pts = zarvek::Run_Sweep(m, "Txt_L", spans, opt);
    failed = 0;
    for (const auto& p : pts) failed += !p.ok();
    benchmark::DoNotOptimize(pts.data());
  }
  if (failed) state.SkipWithError("points not solved");
  state.counters["points"] = (double)spans.size();
  state.counters["points_per_s"] =
      benchmark::Counter((double)spans.size() * state.iterations(), benchmark::Counter::kIsRate);
}

}  // namespace

BENCHMARK(Sweep_1000_Spans)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime()
    ->Repetitions(5)->ReportAggregatesOnly(true);
