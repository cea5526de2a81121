// The drawing surface: one interface for every picture the program draws.
//
// The diagrams and the 3D view are written against the operations of a
// retained picture box of the classic desktop kind: a scale (twips by default,
// 1440 to the inch, origin at the upper left, y downward, or a user scale with
// any origin and signed extents), a current position that lines, circles and
// text move, a fore colour and a pen width. The same drawing code thus goes to
// the screen, to a printer or PDF, to an SVG file, and to a recorder that tests
// read back.
//
// Colours are 0xBBGGRR values (red in the low byte).
//
// The base class keeps the whole state and does the coordinate work; a back
// end implements only the few device primitives at the bottom, in device
// twips (origin at the upper left of the surface, y downward). A back end maps
// twips to its own pixels.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zarvek {

using Colour = std::uint32_t;  // 0xBBGGRR

constexpr double Twips_Per_Inch = 1440.0;
constexpr double Pi_Value = 3.1415926535;  // the value of pi the drawings use

// ScaleMode values.
constexpr int Scale_User = 0;
constexpr int Scale_Twips = 1;
constexpr int Scale_Pixels = 3;

class Surface {
 public:
  virtual ~Surface() = default;

  // ---- extent of the surface, in twips (the control's Width and Height) --
  double Width() const { return width_; }
  double Height() const { return height_; }

  // ---- scale ---------------------------------------------------------------
  // ScaleMode 1 (twips) or 3 (pixels) resets the origin to the upper left and
  // the extents to the surface's size in that unit. Setting any of the four
  // scale properties switches to the user scale (0). A negative ScaleHeight
  // makes y grow upward; a negative ScaleWidth makes x grow to the left.
  int ScaleMode() const { return scaleMode_; }
  void ScaleMode(int mode);
  double ScaleLeft() const { return scaleLeft_; }
  double ScaleTop() const { return scaleTop_; }
  double ScaleWidth() const { return scaleWidth_; }
  double ScaleHeight() const { return scaleHeight_; }
  void ScaleLeft(double v);
  void ScaleTop(double v);
  void ScaleWidth(double v);
  void ScaleHeight(double v);

  // ---- state ---------------------------------------------------------------
  double CurrentX() const { return curX_; }
  double CurrentY() const { return curY_; }
  void CurrentX(double v) { curX_ = v; }
  void CurrentY(double v) { curY_ = v; }
  Colour ForeColor() const { return foreColor_; }
  void ForeColor(Colour c) { foreColor_ = c; }
  Colour BackColor() const { return backColor_; }
  void BackColor(Colour c) { backColor_ = c; }
  int DrawWidth() const { return drawWidth_; }   // pen width in pixels, at least 1
  void DrawWidth(int w) { drawWidth_ = w < 1 ? 1 : w; }
  // Font of Print and TextWidth: "Arial" is drawn as Liberation Sans,
  // "Courier New" as Liberation Mono; "Symbol" text is expected as Unicode.
  const std::string& FontName() const { return fontName_; }
  void FontName(const std::string& n) { fontName_ = n; }
  double FontSize() const { return fontSize_; }  // points
  void FontSize(double pt) { fontSize_ = pt; }
  bool FontBold() const { return fontBold_; }
  void FontBold(bool b) { fontBold_ = b; }

  // ---- operations ----------------------------------------------------------
  // Clears to BackColor; the current position goes back to (0, 0).
  void Cls();
  // Line (x1, y1)-(x2, y2): the current position ends at (x2, y2). Without a
  // colour the line takes ForeColor.
  void Line(double x1, double y1, double x2, double y2, std::optional<Colour> c = {});
  // Line -(x2, y2): from the current position.
  void LineTo(double x2, double y2, std::optional<Colour> c = {});
  // Line Step(dx1, dy1)-Step(dx2, dy2): the start relative to the current
  // position, the end relative to the start.
  void LineStep(double dx1, double dy1, double dx2, double dy2, std::optional<Colour> c = {});
  // Line -Step(dx, dy): from the current position by an offset.
  void LineToStep(double dx, double dy, std::optional<Colour> c = {});
  // Circle (x, y), r, colour, start, end: radius in units of the horizontal
  // scale; with angles, the arc runs counter-clockwise as seen on the screen
  // from start to end (radians, mathematical sense: pi/2 points up on the
  // screen whatever the sign of ScaleHeight), through 0 when start > end.
  // Without angles, a full circle. The current position ends at the centre.
  void Circle(double x, double y, double r, std::optional<Colour> c = {},
              std::optional<double> start = {}, std::optional<double> end = {});
  // Circle Step(dx, dy), ...: the centre relative to the current position.
  void CircleStep(double dx, double dy, double r, std::optional<Colour> c = {},
                  std::optional<double> start = {}, std::optional<double> end = {});
  // Print text with its upper left corner at the current position, in
  // ForeColor; then CurrentX goes back to ScaleLeft and CurrentY down one
  // line of text.
  void Print(const std::string& utf8);
  // Width and height of a text in the current scale (magnitudes).
  double TextWidth(const std::string& utf8);
  double TextHeight(const std::string& utf8);
  // Colour of the picture element under (x, y); -1 outside the surface or
  // where the back end keeps no picture.
  std::int64_t Point(double x, double y);
  // Shows what was drawn (a retained picture is repainted).
  void Refresh() { dev_refresh(); }

  // ---- conversions ---------------------------------------------------------
  // Scale units to device twips and back; lengths by magnitude.
  double ToTwipsX(double x) const;
  double ToTwipsY(double y) const;
  double FromTwipsX(double tx) const;
  double FromTwipsY(double ty) const;
  double TwipsPerUnitX() const;
  double TwipsPerUnitY() const;
  // Twips a device pixel (15 at 96 dpi).
  virtual double TwipsPerPixelX() const { return 15.0; }
  virtual double TwipsPerPixelY() const { return 15.0; }

 protected:
  // A back end sets the size (twips) when it is made or resized; the scale
  // goes back to twips.
  void SetSize(double widthTwips, double heightTwips);

  // ---- device primitives, in twips ---------------------------------------
  virtual void dev_clear(Colour back) = 0;
  virtual void dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) = 0;
  // Ellipse arc of centre (cx, cy) and radii rx, ry; angles in radians in the
  // mathematical sense on the screen, counter-clockwise from a0 through a
  // sweep (> 0, at most 2 pi).
  virtual void dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep,
                       Colour c, int widthPx) = 0;
  // Text with its upper left corner at (x, y).
  virtual void dev_text(double x, double y, const std::string& utf8, Colour c) = 0;
  // Text extent in twips.
  virtual double dev_text_width(const std::string& utf8) = 0;
  virtual double dev_text_height(const std::string& utf8) = 0;
  // Colour of the device pixel at (x, y) twips, -1 when none.
  virtual std::int64_t dev_point(double x, double y) { (void)x; (void)y; return -1; }
  virtual void dev_refresh() {}

 private:
  double width_ = 0, height_ = 0;
  int scaleMode_ = Scale_Twips;
  double scaleLeft_ = 0, scaleTop_ = 0, scaleWidth_ = 0, scaleHeight_ = 0;
  double curX_ = 0, curY_ = 0;
  Colour foreColor_ = 0x000000;
  Colour backColor_ = 0xE0E0E0;
  int drawWidth_ = 1;
  std::string fontName_ = "Arial";
  double fontSize_ = 8.25;
  bool fontBold_ = false;
};

}  // namespace zarvek
