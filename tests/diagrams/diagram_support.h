// Helpers of the diagram tests: a recorder at a design size and the lines,
// arcs and texts it kept.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "diagrams/Diagrams.h"
#include "diagrams/Recorder.h"

namespace diagram_test {

using zarvek::Colour;
using zarvek::RecordedOp;
using zarvek::Recorder;

constexpr double Pi = 3.1415926535;

// Lines (of one colour, or all of them) that have a length: zero-length
// lines only move the current position.
inline std::vector<RecordedOp> Drawn_Lines(const Recorder& r, std::optional<Colour> c = {}) {
  std::vector<RecordedOp> out;
  for (const auto& o : c ? r.Of(RecordedOp::Line, *c) : r.Of(RecordedOp::Line))
    if (o.x1 != o.x2 || o.y1 != o.y2) out.push_back(o);
  return out;
}

// Lines whose ends are both at abscissa x (vertical strokes).
inline std::vector<RecordedOp> Vertical_At(const std::vector<RecordedOp>& lines, double x, double tol = 1e-6) {
  std::vector<RecordedOp> out;
  for (const auto& o : lines)
    if (std::fabs(o.x1 - x) < tol && std::fabs(o.x2 - x) < tol) out.push_back(o);
  return out;
}

inline double Length(const RecordedOp& o) { return std::hypot(o.x2 - o.x1, o.y2 - o.y1); }

}  // namespace diagram_test
