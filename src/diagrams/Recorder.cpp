#include "diagrams/Recorder.h"

#include <algorithm>
#include <cmath>

#include "diagrams/TextMetrics.h"

namespace zarvek {

Recorder::Recorder(double widthTwips, double heightTwips, bool raster) : raster_(raster) {
  Resize(widthTwips, heightTwips);
}

void Recorder::Resize(double widthTwips, double heightTwips) {
  SetSize(widthTwips, heightTwips);
  pw_ = raster_ ? (int)std::ceil(Width() / TwipsPerPixelX()) : 0;
  ph_ = raster_ ? (int)std::ceil(Height() / TwipsPerPixelY()) : 0;
  pixels_.assign((size_t)pw_ * ph_, BackColor());
  ops_.clear();
}

std::vector<RecordedOp> Recorder::Of(RecordedOp::Kind kind) const {
  std::vector<RecordedOp> r;
  for (const auto& o : ops_)
    if (o.kind == kind) r.push_back(o);
  return r;
}

std::vector<RecordedOp> Recorder::Of(RecordedOp::Kind kind, Colour c) const {
  std::vector<RecordedOp> r;
  for (const auto& o : ops_)
    if (o.kind == kind && o.colour == c) r.push_back(o);
  return r;
}

void Recorder::dev_clear(Colour back) {
  ops_.clear();
  RecordedOp o;
  o.kind = RecordedOp::Clear;
  o.colour = back;
  ops_.push_back(o);
  back_ = back;
  std::fill(pixels_.begin(), pixels_.end(), back);
}

void Recorder::dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) {
  RecordedOp o;
  o.kind = RecordedOp::Line;
  o.colour = c;
  o.width = widthPx;
  o.tx1 = x1, o.ty1 = y1, o.tx2 = x2, o.ty2 = y2;
  o.x1 = FromTwipsX(x1), o.y1 = FromTwipsY(y1), o.x2 = FromTwipsX(x2), o.y2 = FromTwipsY(y2);
  ops_.push_back(o);
  // a line of no length only moves the current position
  if (x1 != x2 || y1 != y2) raster_line(x1, y1, x2, y2, c);
}

void Recorder::dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
                       int widthPx) {
  RecordedOp o;
  o.kind = RecordedOp::Arc;
  o.colour = c;
  o.width = widthPx;
  o.tx1 = cx, o.ty1 = cy, o.tr = rx;
  o.x1 = FromTwipsX(cx), o.y1 = FromTwipsY(cy);
  const double k = TwipsPerUnitX();
  o.r = k > 0 ? rx / k : 0;
  o.a0 = a0, o.sweep = sweep;
  ops_.push_back(o);
  if (!raster_ || rx <= 0 || ry <= 0) return;
  // chords short enough to touch every pixel on the way
  const int n = std::max(4, (int)std::ceil(sweep * std::max(rx, ry) / (0.5 * TwipsPerPixelX())));
  double px = cx + rx * std::cos(a0), py = cy - ry * std::sin(a0);
  for (int i = 1; i <= n; ++i) {
    const double a = a0 + sweep * i / n;
    const double qx = cx + rx * std::cos(a), qy = cy - ry * std::sin(a);
    raster_line(px, py, qx, qy, c);
    px = qx, py = qy;
  }
}

void Recorder::dev_text(double x, double y, const std::string& utf8, Colour c) {
  RecordedOp o;
  o.kind = RecordedOp::Text;
  o.colour = c;
  o.tx1 = x, o.ty1 = y;
  o.x1 = FromTwipsX(x), o.y1 = FromTwipsY(y);
  o.text = utf8;
  o.font = FontName();
  o.fontSize = FontSize();
  o.bold = FontBold();
  ops_.push_back(o);
}

double Recorder::dev_text_width(const std::string& utf8) {
  return Estimate_TextWidth(FontName(), FontSize(), FontBold(), utf8);
}

double Recorder::dev_text_height(const std::string&) { return Estimate_TextHeight(FontName(), FontSize()); }

std::int64_t Recorder::dev_point(double x, double y) {
  if (!raster_) return -1;
  const int i = (int)std::floor(x / TwipsPerPixelX()), j = (int)std::floor(y / TwipsPerPixelY());
  if (i < 0 || j < 0 || i >= pw_ || j >= ph_) return -1;
  return pixels_[(size_t)j * pw_ + i];
}

void Recorder::plot(double tx, double ty, Colour c) {
  const int i = (int)std::floor(tx / TwipsPerPixelX()), j = (int)std::floor(ty / TwipsPerPixelY());
  if (i < 0 || j < 0 || i >= pw_ || j >= ph_) return;
  pixels_[(size_t)j * pw_ + i] = c;
}

void Recorder::raster_line(double x1, double y1, double x2, double y2, Colour c) {
  if (!raster_) return;
  const double step = 0.5 * std::min(TwipsPerPixelX(), TwipsPerPixelY());
  const double len = std::hypot(x2 - x1, y2 - y1);
  const int n = std::max(1, (int)std::ceil(len / step));
  for (int i = 0; i <= n; ++i) plot(x1 + (x2 - x1) * i / n, y1 + (y2 - y1) * i / n, c);
}

}  // namespace zarvek
