// Text extents without a font engine, for the back ends that keep no picture
// (the recorder, the SVG writer): the advance widths of the metric-compatible
// sans serif faces ("Arial", Liberation Sans) and of the monospaced face.
#pragma once

#include <string>

namespace zarvek {

// Width and line height in twips of a UTF-8 text in a font of `points` size.
double Estimate_TextWidth(const std::string& font, double points, bool bold, const std::string& utf8);
double Estimate_TextHeight(const std::string& font, double points);

}  // namespace zarvek
