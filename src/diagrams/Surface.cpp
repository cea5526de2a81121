// The picture-box scale and the current position, over a back end that only
// knows device twips.
#include "diagrams/Surface.h"

#include <cmath>

namespace zarvek {

namespace {
constexpr double Two_Pi = 2.0 * Pi_Value;
}

void Surface::SetSize(double widthTwips, double heightTwips) {
  width_ = widthTwips > 0 ? widthTwips : 0;
  height_ = heightTwips > 0 ? heightTwips : 0;
  ScaleMode(Scale_Twips);
}

void Surface::ScaleMode(int mode) {
  if (mode == Scale_Pixels) {
    scaleMode_ = Scale_Pixels;
    scaleLeft_ = scaleTop_ = 0;
    scaleWidth_ = width_ / TwipsPerPixelX();
    scaleHeight_ = height_ / TwipsPerPixelY();
  } else if (mode == Scale_User) {
    scaleMode_ = Scale_User;  // keeps the present scale as the user's
  } else {
    scaleMode_ = Scale_Twips;
    scaleLeft_ = scaleTop_ = 0;
    scaleWidth_ = width_;
    scaleHeight_ = height_;
  }
}

void Surface::ScaleLeft(double v) {
  scaleMode_ = Scale_User;
  scaleLeft_ = v;
}
void Surface::ScaleTop(double v) {
  scaleMode_ = Scale_User;
  scaleTop_ = v;
}
void Surface::ScaleWidth(double v) {
  scaleMode_ = Scale_User;
  scaleWidth_ = v;
}
void Surface::ScaleHeight(double v) {
  scaleMode_ = Scale_User;
  scaleHeight_ = v;
}

// A zero extent (a surface of no size, or a user scale set to 0) maps
// everything onto the origin instead of dividing by zero.
double Surface::TwipsPerUnitX() const {
  return scaleWidth_ != 0 ? std::fabs(width_ / scaleWidth_) : 0.0;
}
double Surface::TwipsPerUnitY() const {
  return scaleHeight_ != 0 ? std::fabs(height_ / scaleHeight_) : 0.0;
}
double Surface::ToTwipsX(double x) const {
  return scaleWidth_ != 0 ? (x - scaleLeft_) * width_ / scaleWidth_ : 0.0;
}
double Surface::ToTwipsY(double y) const {
  return scaleHeight_ != 0 ? (y - scaleTop_) * height_ / scaleHeight_ : 0.0;
}
double Surface::FromTwipsX(double tx) const {
  return width_ != 0 ? scaleLeft_ + tx * scaleWidth_ / width_ : scaleLeft_;
}
double Surface::FromTwipsY(double ty) const {
  return height_ != 0 ? scaleTop_ + ty * scaleHeight_ / height_ : scaleTop_;
}

void Surface::Cls() {
  dev_clear(backColor_);
  curX_ = 0;
  curY_ = 0;
}

void Surface::Line(double x1, double y1, double x2, double y2, std::optional<Colour> c) {
  dev_line(ToTwipsX(x1), ToTwipsY(y1), ToTwipsX(x2), ToTwipsY(y2), c.value_or(foreColor_), drawWidth_);
  curX_ = x2;
  curY_ = y2;
}

void Surface::LineTo(double x2, double y2, std::optional<Colour> c) { Line(curX_, curY_, x2, y2, c); }

void Surface::LineStep(double dx1, double dy1, double dx2, double dy2, std::optional<Colour> c) {
  const double x1 = curX_ + dx1, y1 = curY_ + dy1;
  Line(x1, y1, x1 + dx2, y1 + dy2, c);
}

void Surface::LineToStep(double dx, double dy, std::optional<Colour> c) {
  Line(curX_, curY_, curX_ + dx, curY_ + dy, c);
}

void Surface::Circle(double x, double y, double r, std::optional<Colour> c, std::optional<double> start,
                     std::optional<double> end) {
  const Colour col = c.value_or(foreColor_);
  const double cx = ToTwipsX(x), cy = ToTwipsY(y);
  const double rt = std::fabs(r) * TwipsPerUnitX();  // round on the device
  curX_ = x;
  curY_ = y;
  if (!start && !end) {
    dev_arc(cx, cy, rt, rt, 0.0, Two_Pi, col, drawWidth_);
    return;
  }
  // A negative angle draws its end of the arc joined to the centre by a
  // radius, the angle itself being its magnitude.
  double a0 = start.value_or(0.0), a1 = end.value_or(Two_Pi);
  const bool radius0 = a0 < 0, radius1 = a1 < 0;
  a0 = std::fabs(a0);
  a1 = std::fabs(a1);
  double sweep = a1 - a0;
  if (sweep <= 0) sweep += Two_Pi;  // through 0 when start > end; equal: all round
  if (sweep > Two_Pi) sweep = Two_Pi;
  dev_arc(cx, cy, rt, rt, a0, sweep, col, drawWidth_);
  // y is down on the device: the mathematical angle turns the other way
  if (radius0) dev_line(cx, cy, cx + rt * std::cos(a0), cy - rt * std::sin(a0), col, drawWidth_);
  if (radius1) dev_line(cx, cy, cx + rt * std::cos(a1), cy - rt * std::sin(a1), col, drawWidth_);
}

void Surface::CircleStep(double dx, double dy, double r, std::optional<Colour> c, std::optional<double> start,
                         std::optional<double> end) {
  Circle(curX_ + dx, curY_ + dy, r, c, start, end);
}

void Surface::Print(const std::string& utf8) {
  const double tx = ToTwipsX(curX_), ty = ToTwipsY(curY_);
  if (!utf8.empty()) dev_text(tx, ty, utf8, foreColor_);
  // one line down on the device, back to the left edge of the scale
  const double lineTwips = dev_text_height(utf8.empty() ? std::string("X") : utf8);
  curX_ = scaleLeft_;
  curY_ = FromTwipsY(ty + lineTwips);
}

double Surface::TextWidth(const std::string& utf8) {
  const double k = TwipsPerUnitX();
  return k > 0 ? dev_text_width(utf8) / k : 0.0;
}

double Surface::TextHeight(const std::string& utf8) {
  const double k = TwipsPerUnitY();
  return k > 0 ? dev_text_height(utf8.empty() ? std::string("X") : utf8) / k : 0.0;
}

std::int64_t Surface::Point(double x, double y) {
  const double tx = ToTwipsX(x), ty = ToTwipsY(y);
  if (!(tx >= 0 && ty >= 0 && tx < width_ && ty < height_)) return -1;
  return dev_point(tx, ty);
}

}  // namespace zarvek
