// A surface that keeps every operation, for tests and for the vector writer.
//
// Each operation is kept with its coordinates resolved twice: in the scale
// units in force when it was drawn, and in device twips. The recorder also
// keeps a coarse picture (one colour a screen pixel of 15 twips) of its lines
// and arcs so that Point, and the read-outs that rely on it, work without a
// window; text is not rasterised.
#pragma once

#include <string>
#include <vector>

#include "diagrams/Surface.h"

namespace zarvek {

struct RecordedOp {
  enum Kind { Clear, Line, Arc, Text };
  Kind kind = Line;
  Colour colour = 0;
  int width = 1;  // pen width in pixels
  // Scale units. Line: (x1, y1)-(x2, y2). Arc: centre (x1, y1), radius r in
  // units of the horizontal scale. Text: upper left corner (x1, y1).
  double x1 = 0, y1 = 0, x2 = 0, y2 = 0, r = 0;
  // Device twips, the same points.
  double tx1 = 0, ty1 = 0, tx2 = 0, ty2 = 0, tr = 0;
  // Arc: counter-clockwise on the screen from a0 through sweep, radians.
  double a0 = 0, sweep = 0;
  // Text and its font.
  std::string text, font;
  double fontSize = 0;
  bool bold = false;
};

class Recorder : public Surface {
 public:
  explicit Recorder(double widthTwips = 7335, double heightTwips = 1365, bool raster = true);
  void Resize(double widthTwips, double heightTwips);

  // Everything drawn since the last Cls (which itself stands first).
  const std::vector<RecordedOp>& Ops() const { return ops_; }
  // The operations of one kind, optionally of one colour only.
  std::vector<RecordedOp> Of(RecordedOp::Kind kind) const;
  std::vector<RecordedOp> Of(RecordedOp::Kind kind, Colour c) const;
  void Forget() { ops_.clear(); }
  int Refreshes() const { return refreshes_; }

 protected:
  void dev_clear(Colour back) override;
  void dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) override;
  void dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
               int widthPx) override;
  void dev_text(double x, double y, const std::string& utf8, Colour c) override;
  double dev_text_width(const std::string& utf8) override;
  double dev_text_height(const std::string& utf8) override;
  std::int64_t dev_point(double x, double y) override;
  void dev_refresh() override { ++refreshes_; }

 private:
  void plot(double tx, double ty, Colour c);
  void raster_line(double x1, double y1, double x2, double y2, Colour c);

  std::vector<RecordedOp> ops_;
  bool raster_ = true;
  int pw_ = 0, ph_ = 0;
  std::vector<Colour> pixels_;
  Colour back_ = 0xE0E0E0;
  int refreshes_ = 0;
};

}  // namespace zarvek
