// Proceed alone and Proceed with the design check, on a beam where the check
// needs C1 (a lateral restraint at mid-span, so no shape of Table 6.6): the
// check with its two further solves should cost no more than two Proceeds.
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <unistd.h>

#include "analysis/Proceed.h"
#include "design/DesignModel.h"

namespace {

using namespace zarvek;

BeamModel Restrained_Beam(int nbItem) {
  BeamModel m;
  Init_Default(m, "/tmp");
  m.Txt_NB = nbItem;
  m.Chk_Punctual1 = true;
  m.Txt_xfint1 = "0.5";
  m.Lst_vi_p1 = Restraint_Item(1);
  m.Txt_M1 = "0";  // a triangle of moment
  return m;
}

std::string Problem() { return "/tmp/zarvek-bench-design-" + std::to_string(::getpid()) + ".ZVK"; }

void Proceed_Alone(benchmark::State& state) {
  for (auto _ : state) {
    BeamModel m = Restrained_Beam((int)state.range(0));
    SolveControl ctl;
    ProceedResult p = Proceed(m, Problem(), ctl);
    benchmark::DoNotOptimize(p.Solver.mucr);
  }
}

void Proceed_With_Check(benchmark::State& state) {
  for (auto _ : state) {
    BeamModel m = Restrained_Beam((int)state.range(0));
    SolveControl ctl;
    ProceedResult p = Proceed(m, Problem(), ctl);
    const double Mcr = p.Solver.mucr * std::fabs((double)p.Efforts.Efforts_Mmax);
    DesignRun d = Run_Design(m, p.Efforts, Mcr, ctl);
    if (d.furtherSolves != 2) state.SkipWithError("the check made no further solve");
    benchmark::DoNotOptimize(d.result.MbRd);
  }
}

}  // namespace

// items of Txt_NB: 0 is 100 elements, 3 is 200
BENCHMARK(Proceed_Alone)->Arg(0)->Arg(3)->Unit(benchmark::kMillisecond);
BENCHMARK(Proceed_With_Check)->Arg(0)->Arg(3)->Unit(benchmark::kMillisecond);
