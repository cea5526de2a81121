// Helpers of the diagram and 3D view tests: the lines a recorder kept, a buckling mode as the solver has it.
#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "diagrams/Diagrams.h"
#include "diagrams/Recorder.h"

namespace diagram_test {

using zarvek::BeamModel;
using zarvek::Colour;
using zarvek::RecordedOp;
using zarvek::Recorder;

constexpr double Pi = 3.1415926535;

// Lines (of one colour, or all of them) that have a length: zero-length lines only move the current position.
inline std::vector<RecordedOp> Drawn_Lines(const Recorder& r, std::optional<Colour> c = {}) {
  std::vector<RecordedOp> out;
  for (const auto& o : c ? r.Of(RecordedOp::Line, *c) : r.Of(RecordedOp::Line))
    if (o.x1 != o.x2 || o.y1 != o.y2) out.push_back(o);
  return out;
}

// Lines whose ends are both at abscissa x (vertical strokes).
inline std::vector<RecordedOp> Vertical_At(const std::vector<RecordedOp>& lines, double x) {
  std::vector<RecordedOp> out;
  for (const auto& o : lines)
    if (std::fabs(o.x1 - x) < 1e-6 && std::fabs(o.x2 - x) < 1e-6) out.push_back(o);
  return out;
}

inline double Length(const RecordedOp& o) { return std::hypot(o.x2 - o.x1, o.y2 - o.y1); }

}  // namespace diagram_test

// The first lateral-torsional mode of a fork-supported span as the solver stores it: per node (1-based) v,
// theta, v', theta', with v = vmax sin(pi x/L), theta = tmax sin(pi x/L) and slopes per cm.
inline std::vector<float> Sine_Mode(int NB, double L, double vmax, double tmax) {
  const double pi = 3.14159265358979;
  std::vector<float> m(4 * (NB + 1) + 1, 0.0f);
  for (int i = 1; i <= NB + 1; ++i) {
    const double sn = std::sin(pi * (i - 1) / NB), cs = std::cos(pi * (i - 1) / NB);
    const double dofs[] = {vmax * sn, tmax * sn, vmax * pi / L * cs, tmax * pi / L * cs};
    for (int k = 0; k < 4; ++k) m[k + 1 + 4 * (i - 1)] = static_cast<float>(dofs[k]);
  }
  return m;
}
