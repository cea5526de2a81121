// The curve of a parametric study: Mcr against the value of the swept field,
// with labelled axes and their units, drawn on any surface (the window, an
// SVG document, a PNG picture).
#pragma once

#include <string>
#include <vector>

#include "analysis/Sweep.h"
#include "diagrams/Surface.h"

namespace zarvek {

// Size of the picture at design, twips (600 x 400 pixels at 96 dpi).
constexpr double SweepPlot_Width = 9000;
constexpr double SweepPlot_Height = 6000;

// Round tick values covering lo..hi: steps of 1, 2 or 5 times a power of
// ten, about `count` of them, the first at or below lo and the last at or
// above hi.
std::vector<double> Nice_Ticks(double lo, double hi, int count = 6);

// Draws the axes, their ticks and labels (x: xLabel, y: yLabel, each with its
// unit already in it), and the curve through the solved points; a failed
// point breaks the curve and is marked by a cross on the axis. The whole
// surface is used.
void Draw_SweepPlot(Surface& s, const std::vector<SweepPoint>& points, const std::string& xLabel,
                    const std::string& yLabel);

}  // namespace zarvek
