// Speed of the 3D view: one drawing of a 201-station beam on the screen's
// picture at 800 x 600 pixels, with all cross-sections and in the light
// drawing of a drag. Each drawing turns the model by one mouse step first,
// as a drag does.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <cmath>
#include <memory>
#include <vector>

#include "diagrams/qt/QtSurface.h"
#include "view3d/TriD.h"

namespace {

using namespace zarvek;

// Fonts of the end marks need a GUI application; no display is needed.
void Ensure_App() {
  if (QCoreApplication::instance()) return;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "zarvek-bench";
  static char* argv[] = {name, nullptr};
  static std::unique_ptr<QGuiApplication> app(new QGuiApplication(argc, argv));
}

// A lateral-torsional mode of NB elements: half sines of sway and twist.
std::vector<float> Mode(int NB, double L) {
  std::vector<float> m(4 * (NB + 1) + 1, 0.0f);
  const double pi = 3.14159265358979;
  for (int i = 1; i <= NB + 1; ++i) {
    const double x = (i - 1) * L / NB;
    m[1 + 4 * (i - 1)] = static_cast<float>(std::sin(pi * x / L));
    m[2 + 4 * (i - 1)] = static_cast<float>(0.03 * std::sin(pi * x / L));
    m[3 + 4 * (i - 1)] = static_cast<float>(pi / L * std::cos(pi * x / L));
    m[4 + 4 * (i - 1)] = static_cast<float>(0.03 * pi / L * std::cos(pi * x / L));
  }
  return m;
}

void Draw3D(benchmark::State& state, bool all, bool dragging) {
  Ensure_App();
  const int NB = static_cast<int>(state.range(0));
  const double L = 1000;
  QtImageSurface s(800 * 15.0, 600 * 15.0, 15, 1);
  s.BackColor(0xE0E0E0);
  TriD_Scene t;
  TriD_Init(t, s, static_cast<float>(L), NB, 15, 15, 15, -15, Mode(NB, L));
  TriD_ResetView(t, s);
  t.DrawAll = all;
  t.Dragging = dragging;
  const float a = 0.002f;
  for (auto _ : state) {
    // one mouse step about Z, then the drawing
    t.CosZ = std::cos(a);
    t.SinZ = std::sin(a);
    t.RotAxis = TriD_Axis::Z;
    TriD_Draw(t, s);
    benchmark::DoNotOptimize(s.Image().constBits());
  }
}

void Draw3D_AllSections(benchmark::State& state) { Draw3D(state, true, false); }
void Draw3D_Drag(benchmark::State& state) { Draw3D(state, true, true); }
void Draw3D_Light(benchmark::State& state) { Draw3D(state, false, false); }

void Setup3D(benchmark::internal::Benchmark* b) {
  b->Unit(benchmark::kMillisecond)->Repetitions(10)->ReportAggregatesOnly(true);
  b->ComputeStatistics("min", [](const std::vector<double>& v) {
    double m = v[0];
    for (double x : v) m = x < m ? x : m;
    return m;
  });
}

BENCHMARK(Draw3D_AllSections)->Arg(200)->Apply(Setup3D);
BENCHMARK(Draw3D_Drag)->Arg(200)->Apply(Setup3D);
BENCHMARK(Draw3D_Light)->Arg(200)->Apply(Setup3D);

}  // namespace
