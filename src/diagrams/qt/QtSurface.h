// Qt back ends of the drawing surface.
//
// QtImageSurface: a retained picture at the screen's resolution (15 twips a
// pixel at 96 dpi), drawn without antialiasing so that Point gives back
// exactly the colour drawn; on a HiDPI screen the image has
// devicePixelRatio times as many pixels and draws crisp at the same size.
// QtPainterSurface: the same drawing on any QPainter (printer, PDF, an image
// of a chosen size), of a size in twips given by the caller.
// SurfaceWidget: a widget that owns a QtImageSurface the size of the widget
// and shows it; mouse positions come out in the surface's scale units.
#pragma once

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <functional>

#include "diagrams/Surface.h"

namespace zarvek {

QColor To_QColor(Colour c);
Colour From_QColor(const QColor& c);
// The Qt font of a surface font: "Arial" is Liberation Sans, "Courier New"
// Liberation Mono; a size in device pixels.
QFont Surface_Font(const std::string& name, double pixels, bool bold);

// The primitives on a QPainter whose device counts `unitsPerTwip` per twip.
class QtPainterOps {
 public:
  void Begin(QPainter* p, double unitsPerTwip, bool antialias);
  void Clear(double wTwips, double hTwips, Colour back);
  void Line(double x1, double y1, double x2, double y2, Colour c, int widthPx);
  void Arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c, int widthPx);
  void Text(double x, double y, const std::string& utf8, Colour c, const Surface& s);
  double TextWidth(const std::string& utf8, const Surface& s) const;
  double TextHeight(const Surface& s) const;
  double unitsPerTwip = 1.0 / 15.0;
  double pixelTwips = 15.0;  // twips of one screen pixel (pen widths)

 private:
  QFont font_of(const Surface& s) const;
  void set_pen(Colour c, int widthPx);
  QPainter* p_ = nullptr;
};

class QtImageSurface : public Surface {
 public:
  // twipsPerPixel: 1440 / the screen's logical dpi; dpr: the screen's
  // device pixel ratio.
  explicit QtImageSurface(double widthTwips = 7335, double heightTwips = 1365, double twipsPerPixel = 15,
                          double dpr = 1);
  ~QtImageSurface() override;
  // New size (twips) and screen: the picture is cleared to BackColor and the
  // scale goes back to twips.
  void Resize(double widthTwips, double heightTwips, double twipsPerPixel, double dpr);
  void Resize(double widthTwips, double heightTwips) { Resize(widthTwips, heightTwips, tpp_, dpr_); }
  // The picture (ends the painting in progress; the next operation resumes).
  const QImage& Image() const;
  double TwipsPerPixelX() const override { return tpp_; }
  double TwipsPerPixelY() const override { return tpp_; }
  double DevicePixelRatio() const { return dpr_; }
  // Called whenever the picture changed or Refresh was asked (a widget
  // schedules its repaint).
  std::function<void()> Changed;

 protected:
  void dev_clear(Colour back) override;
  void dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) override;
  void dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
               int widthPx) override;
  void dev_text(double x, double y, const std::string& utf8, Colour c) override;
  double dev_text_width(const std::string& utf8) override;
  double dev_text_height(const std::string& utf8) override;
  std::int64_t dev_point(double x, double y) override;
  void dev_refresh() override;

 private:
  void begin();
  void changed() { if (Changed) Changed(); }
  QImage image_;
  mutable QPainter painter_;
  QtPainterOps ops_;
  double tpp_ = 15, dpr_ = 1;
};

class QtPainterSurface : public Surface {
 public:
  // Draws on `painter` (already begun) a picture of widthTwips x heightTwips
  // whose upper left corner is at the painter's origin. unitsPerTwip: device
  // units a twip; 0 takes the device's logical dpi / 1440.
  QtPainterSurface(QPainter& painter, double widthTwips, double heightTwips, double unitsPerTwip = 0,
                   bool antialias = true);

 protected:
  void dev_clear(Colour back) override;
  void dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) override;
  void dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
               int widthPx) override;
  void dev_text(double x, double y, const std::string& utf8, Colour c) override;
  double dev_text_width(const std::string& utf8) override;
  double dev_text_height(const std::string& utf8) override;

 private:
  QtPainterOps ops_;
};

// A picture box: shows its retained surface, resized with the widget.
class SurfaceWidget : public QWidget {
  Q_OBJECT
 public:
  explicit SurfaceWidget(QWidget* parent = nullptr);
  Surface& surface() { return surface_; }
  QtImageSurface& imageSurface() { return surface_; }
  QSize sizeHint() const override;
  // The size at design, twips (the size hint).
  void setDesignSize(double widthTwips, double heightTwips);
  // Keeps the proportions of the design size: the picture is the largest
  // rectangle of those proportions inside the widget, centred on it. A
  // drawing scaled on the height alone (the section) then always has the
  // width it was laid out for.
  void setKeepProportions(bool keep);
  // The least height, pixels, at which `text` printed at `topFraction` of the
  // height in the surface's font is seen whole down to its lowest ink.
  int Least_Height_For_Text(double topFraction, const std::string& text) const;

 signals:
  void mouseMoved(double x, double y);
  void mousePressed(double x, double y, int button);
  void mouseReleased(double x, double y, int button);
  void doubleClicked();
  void resized();

 protected:
  void paintEvent(QPaintEvent*) override;
  void resizeEvent(QResizeEvent*) override;
  void mouseMoveEvent(QMouseEvent*) override;
  void mousePressEvent(QMouseEvent*) override;
  void mouseReleaseEvent(QMouseEvent*) override;
  void mouseDoubleClickEvent(QMouseEvent*) override;

 private:
  double twipsPerPixel() const;
  double toX(double px) const;
  double toY(double py) const;
  QtImageSurface surface_;
  double designW_ = 7335, designH_ = 1365;
  bool keepProportions_ = false;
  QPoint origin_;  // upper left corner of the picture in the widget, pixels
};

}  // namespace zarvek
