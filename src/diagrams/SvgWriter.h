// A surface that writes the picture as an SVG document: the same drawing as
// on the screen, as vectors, for reports and papers.
//
// The user units of the document are screen pixels (15 twips, 96 dpi), so
// that the document opens at the size the picture has on the screen; `scale`
// multiplies the stated width and height for print-quality output. Pen
// widths stay those of the screen.
#pragma once

#include <string>

#include "diagrams/Surface.h"

namespace zarvek {

class SvgWriter : public Surface {
 public:
  explicit SvgWriter(double widthTwips, double heightTwips, double scale = 1.0);
  // The complete document.
  std::string Document() const;

 protected:
  void dev_clear(Colour back) override;
  void dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) override;
  void dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
               int widthPx) override;
  void dev_text(double x, double y, const std::string& utf8, Colour c) override;
  double dev_text_width(const std::string& utf8) override;
  double dev_text_height(const std::string& utf8) override;

 private:
  double scale_ = 1;
  std::string body_;
};

// "#rrggbb" of a 0xBBGGRR colour.
std::string Svg_Colour(Colour c);

}  // namespace zarvek
