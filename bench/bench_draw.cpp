// The four diagrams of a 200-element beam drawn on the screen surface at
// their design size, as the main window draws them after a solve or a change
// of entries (the forces diagram includes its Calculer_Efforts).
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "diagrams/Diagrams.h"
#include "diagrams/qt/QtSurface.h"

namespace {

// Text needs the font database of a GUI application; no display is needed.
void Ensure_Gui() {
  static QGuiApplication* app = nullptr;
  if (app) return;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "zarvek-bench";
  static char* argv[] = {name, nullptr};
  app = new QGuiApplication(argc, argv);
}

// IPE 300 of 10 m in 200 elements, with every kind of load and an
// intermediate restraint, and a mode of the right shape.
zarvek::BeamModel Busy_Beam() {
  zarvek::BeamModel m;
  m.Txt_NB = 3;  // 200
  m.Chk_CC = true, m.Txt_CC = "20", m.Txt_xfC = "0.3";
  m.Chk_F1 = true, m.Txt_F1 = "-30", m.Txt_xf1 = "0.5", m.Txt_zF1 = "0.15";
  m.Chk_F2 = true, m.Txt_F2 = "10", m.Txt_xf2 = "0.8", m.Txt_zF2 = "-0.15";
  m.Chk_q1 = true, m.Txt_q11 = "-10", m.Txt_q12 = "-5";
  m.Chk_q2 = true, m.Txt_q21 = "0", m.Txt_q22 = "-3", m.Txt_xq21 = "0.5", m.Txt_xq22 = "1";
  m.Chk_Punctual1 = true, m.Txt_xfint1 = "0.5";
  m.Lst_vi_p1 = zarvek::RestraintList{1, "Fixed"};
  const int NB = 200;
  m.Mode_Vector.assign(4 * (NB + 1) + 1, 0.f);
  m.Restraint_Level.assign(NB + 2, 0.f);
  for (int i = 1; i <= NB + 1; ++i) {
    const double x = (i - 1) / (double)NB;
    m.Mode_Vector[4 * (i - 1) + 1] = (float)std::sin(2 * M_PI * x);
    m.Mode_Vector[4 * (i - 1) + 2] = (float)(-0.02 * std::sin(2 * M_PI * x));
    m.Mode_Vector[4 * (i - 1) + 3] = (float)(2 * M_PI / 1000 * std::cos(2 * M_PI * x));
    m.Mode_Vector[4 * (i - 1) + 4] = (float)(-0.04 * M_PI / 1000 * std::cos(2 * M_PI * x));
  }
  m.Restraint_Level[101] = 15;
  m.Mode_Max = 1;
  return m;
}

enum Which { Loads, Section, Forces, Mode };

void Draw(benchmark::State& state, Which which) {
  Ensure_Gui();
  zarvek::BeamModel m = Busy_Beam();
  zarvek::EffortsData e;
  zarvek::DiagramState st;
  double w = zarvek::Loads_Width, h = zarvek::Loads_Height;
  if (which == Section) w = zarvek::Section_Width, h = zarvek::Section_Height;
  if (which == Forces) w = zarvek::Forces_Width, h = zarvek::Forces_Height;
  if (which == Mode) w = zarvek::Eigenmode_Width, h = zarvek::Eigenmode_Height;
  zarvek::QtImageSurface s(w, h, 15, 1);
  for (auto _ : state) {
    switch (which) {
      case Loads: zarvek::Tracer_Loads(s, m); break;
      case Section: zarvek::Draw_Section(s, m); break;
      case Forces: zarvek::Tracer_Efforts(s, m, e, st); break;
      case Mode: zarvek::Tracer_VecteurPropre(s, m, st); break;
    }
    s.Refresh();  // the picture is complete: painting ends here
    benchmark::DoNotOptimize(s.Image().constBits());
  }
}

void Draw_Loads(benchmark::State& st) { Draw(st, Loads); }
void Draw_Section(benchmark::State& st) { Draw(st, Section); }
void Draw_Forces(benchmark::State& st) { Draw(st, Forces); }
void Draw_Mode(benchmark::State& st) { Draw(st, Mode); }

void Setup_Draw(benchmark::internal::Benchmark* b) {
  b->Unit(benchmark::kMicrosecond)->Repetitions(10)->ReportAggregatesOnly(true);
  b->ComputeStatistics("min", [](const std::vector<double>& v) { return *std::min_element(v.begin(), v.end()); });
}

}  // namespace

BENCHMARK(Draw_Loads)->Apply(Setup_Draw);
BENCHMARK(Draw_Section)->Apply(Setup_Draw);
BENCHMARK(Draw_Forces)->Apply(Setup_Draw);
BENCHMARK(Draw_Mode)->Apply(Setup_Draw);
