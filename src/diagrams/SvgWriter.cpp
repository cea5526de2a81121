#include "diagrams/SvgWriter.h"

#include <cmath>
#include <cstdio>

#include "diagrams/TextMetrics.h"

namespace zarvek {

namespace {

constexpr double Twips_Per_Px = 15.0;

std::string Num(double v) {
  char b[32];
  std::snprintf(b, sizeof b, "%.2f", v / Twips_Per_Px);
  std::string s = b;
  // shortest form: 12.50 -> 12.5, 3.00 -> 3
  while (!s.empty() && s.back() == '0') s.pop_back();
  if (!s.empty() && s.back() == '.') s.pop_back();
  if (s == "-0") s = "0";
  return s;
}

std::string Escape(const std::string& t) {
  std::string r;
  for (char c : t) {
    switch (c) {
      case '&': r += "&amp;"; break;
      case '<': r += "&lt;"; break;
      case '>': r += "&gt;"; break;
      case '"': r += "&quot;"; break;
      default: r += c;
    }
  }
  return r;
}

std::string Family(const std::string& name) {
  if (name == "Courier New" || name == "Courier") return "'Liberation Mono', 'Courier New', monospace";
  return "'Liberation Sans', Arial, Helvetica, sans-serif";
}

}  // namespace

std::string Svg_Colour(Colour c) {
  char b[8];
  std::snprintf(b, sizeof b, "#%02x%02x%02x", c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF);
  return b;
}

SvgWriter::SvgWriter(double widthTwips, double heightTwips, double scale) : scale_(scale > 0 ? scale : 1) {
  SetSize(widthTwips, heightTwips);
}

std::string SvgWriter::Document() const {
  const std::string w = Num(Width()), h = Num(Height());
  char size[96];
  std::snprintf(size, sizeof size, "width=\"%g\" height=\"%g\"", Width() / Twips_Per_Px * scale_,
                Height() / Twips_Per_Px * scale_);
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
         "<svg xmlns=\"http://www.w3.org/2000/svg\" " +
         std::string(size) + " viewBox=\"0 0 " + w + " " + h +
         "\" stroke-linecap=\"square\" fill=\"none\">\n" + body_ + "</svg>\n";
}

void SvgWriter::dev_clear(Colour back) {
  body_ = "<rect x=\"0\" y=\"0\" width=\"" + Num(Width()) + "\" height=\"" + Num(Height()) + "\" fill=\"" +
          Svg_Colour(back) + "\"/>\n";
}

void SvgWriter::dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) {
  if (x1 == x2 && y1 == y2) return;  // only moves the current position
  body_ += "<line x1=\"" + Num(x1) + "\" y1=\"" + Num(y1) + "\" x2=\"" + Num(x2) + "\" y2=\"" + Num(y2) +
           "\" stroke=\"" + Svg_Colour(c) + "\" stroke-width=\"" + std::to_string(widthPx) + "\"/>\n";
}

void SvgWriter::dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
                        int widthPx) {
  if (rx <= 0 || ry <= 0) return;
  const std::string stroke =
      "\" stroke=\"" + Svg_Colour(c) + "\" stroke-width=\"" + std::to_string(widthPx) + "\"/>\n";
  if (sweep >= 2 * Pi_Value - 1e-9) {
    body_ += "<ellipse cx=\"" + Num(cx) + "\" cy=\"" + Num(cy) + "\" rx=\"" + Num(rx) + "\" ry=\"" + Num(ry) +
             stroke;
    return;
  }
  // counter-clockwise on the screen (y down): SVG's sweep flag 0
  const double a1 = a0 + sweep;
  const double x0 = cx + rx * std::cos(a0), y0 = cy - ry * std::sin(a0);
  const double xe = cx + rx * std::cos(a1), ye = cy - ry * std::sin(a1);
  body_ += "<path d=\"M" + Num(x0) + " " + Num(y0) + " A" + Num(rx) + " " + Num(ry) + " 0 " +
           (sweep > Pi_Value ? "1" : "0") + " 0 " + Num(xe) + " " + Num(ye) + stroke;
}

void SvgWriter::dev_text(double x, double y, const std::string& utf8, Colour c) {
  const double em = FontSize() * 20.0;  // twips
  const double baseline = y + 0.905 * em;
  body_ += "<text x=\"" + Num(x) + "\" y=\"" + Num(baseline) + "\" font-family=\"" + Family(FontName()) +
           "\" font-size=\"" + Num(em) + "\"" + (FontBold() ? " font-weight=\"bold\"" : "") + " fill=\"" +
           Svg_Colour(c) + "\" stroke=\"none\">" + Escape(utf8) + "</text>\n";
}

double SvgWriter::dev_text_width(const std::string& utf8) {
  return Estimate_TextWidth(FontName(), FontSize(), FontBold(), utf8);
}

double SvgWriter::dev_text_height(const std::string&) { return Estimate_TextHeight(FontName(), FontSize()); }

}  // namespace zarvek
