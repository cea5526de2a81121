#include "diagrams/qt/QtSurface.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPaintEvent>
#include <cmath>

namespace zarvek {

namespace {
constexpr double Degrees_Per_Radian = 180.0 / Pi_Value;
}

QColor To_QColor(Colour c) { return QColor(c & 0xFF, (c >> 8) & 0xFF, (c >> 16) & 0xFF); }

Colour From_QColor(const QColor& c) {
  return (Colour)c.red() | ((Colour)c.green() << 8) | ((Colour)c.blue() << 16);
}

QFont Surface_Font(const std::string& name, double pixels, bool bold) {
  QString family = QString::fromStdString(name);
  const QString low = family.toLower();
  if (low == "arial" || low == "ms sans serif" || low == "symbol" || low.isEmpty())
    family = QStringLiteral("Liberation Sans");
  else if (low == "courier new" || low == "courier")
    family = QStringLiteral("Liberation Mono");
  else if (low == "times new roman")
    family = QStringLiteral("Liberation Serif");
  QFont f(family);
  f.setPixelSize(std::max(1, (int)std::lround(pixels)));
  f.setBold(bold);
  return f;
}

// ---- QtPainterOps --------------------------------------------------------------

void QtPainterOps::Begin(QPainter* p, double upt, bool antialias) {
  p_ = p;
  unitsPerTwip = upt;
  p_->setRenderHint(QPainter::Antialiasing, antialias);
  p_->setRenderHint(QPainter::TextAntialiasing, true);
  p_->setBrush(Qt::NoBrush);
}

void QtPainterOps::Clear(double wTwips, double hTwips, Colour back) {
  p_->fillRect(QRectF(0, 0, wTwips * unitsPerTwip, hTwips * unitsPerTwip), To_QColor(back));
}

void QtPainterOps::set_pen(Colour c, int widthPx) {
  QPen pen(To_QColor(c));
  pen.setWidthF(widthPx * pixelTwips * unitsPerTwip);
  pen.setCapStyle(widthPx > 1 ? Qt::RoundCap : Qt::SquareCap);
  pen.setJoinStyle(Qt::RoundJoin);
  p_->setPen(pen);
}

void QtPainterOps::Line(double x1, double y1, double x2, double y2, Colour c, int widthPx) {
  // A line of no length only moves the current position: nothing shows.
  if (x1 == x2 && y1 == y2) return;
  set_pen(c, widthPx);
  const double k = unitsPerTwip;
  p_->drawLine(QPointF(x1 * k, y1 * k), QPointF(x2 * k, y2 * k));
}

void QtPainterOps::Arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
                       int widthPx) {
  if (rx <= 0 || ry <= 0) return;  // no radius: nothing to see
  set_pen(c, widthPx);
  const double k = unitsPerTwip;
  const QRectF box((cx - rx) * k, (cy - ry) * k, 2 * rx * k, 2 * ry * k);
  // Qt counts angles counter-clockwise on the screen too, in 1/16 degree
  const int start = (int)std::lround(a0 * Degrees_Per_Radian * 16);
  const int span = (int)std::lround(sweep * Degrees_Per_Radian * 16);
  if (span >= 5760)
    p_->drawEllipse(box);
  else
    p_->drawArc(box, start, span);
}

QFont QtPainterOps::font_of(const Surface& s) const {
  return Surface_Font(s.FontName(), s.FontSize() * 20.0 * unitsPerTwip, s.FontBold());
}

void QtPainterOps::Text(double x, double y, const std::string& utf8, Colour c, const Surface& s) {
  const QFont f = font_of(s);
  p_->setFont(f);
  p_->setPen(To_QColor(c));
  const QFontMetricsF fm(f);
  p_->drawText(QPointF(x * unitsPerTwip, y * unitsPerTwip + fm.ascent()), QString::fromStdString(utf8));
}

double QtPainterOps::TextWidth(const std::string& utf8, const Surface& s) const {
  const QFontMetricsF fm(font_of(s));
  return fm.horizontalAdvance(QString::fromStdString(utf8)) / unitsPerTwip;
}

double QtPainterOps::TextHeight(const Surface& s) const {
  const QFontMetricsF fm(font_of(s));
  return fm.height() / unitsPerTwip;
}

// ---- QtImageSurface -------------------------------------------------------------

QtImageSurface::QtImageSurface(double widthTwips, double heightTwips, double twipsPerPixel, double dpr) {
  Resize(widthTwips, heightTwips, twipsPerPixel, dpr);
}

QtImageSurface::~QtImageSurface() {
  if (painter_.isActive()) painter_.end();
}

void QtImageSurface::Resize(double widthTwips, double heightTwips, double twipsPerPixel, double dpr) {
  if (painter_.isActive()) painter_.end();
  tpp_ = twipsPerPixel > 0 ? twipsPerPixel : 15;
  dpr_ = dpr > 0 ? dpr : 1;
  const int w = std::max(1, (int)std::lround(widthTwips / tpp_ * dpr_));
  const int h = std::max(1, (int)std::lround(heightTwips / tpp_ * dpr_));
  image_ = QImage(w, h, QImage::Format_RGB32);
  image_.setDevicePixelRatio(dpr_);
  image_.fill(To_QColor(BackColor()));
  SetSize(widthTwips, heightTwips);
  changed();
}

void QtImageSurface::begin() {
  if (painter_.isActive()) return;
  painter_.begin(&image_);  // logical pixels: the image carries the ratio
  ops_.pixelTwips = tpp_;
  ops_.Begin(&painter_, 1.0 / tpp_, false);
}

const QImage& QtImageSurface::Image() const {
  if (painter_.isActive()) painter_.end();
  return image_;
}

void QtImageSurface::dev_clear(Colour back) {
  if (painter_.isActive()) painter_.end();
  image_.fill(To_QColor(back));
  changed();
}

void QtImageSurface::dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) {
  begin();
  ops_.Line(x1, y1, x2, y2, c, widthPx);
  changed();
}

void QtImageSurface::dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
                             int widthPx) {
  begin();
  ops_.Arc(cx, cy, rx, ry, a0, sweep, c, widthPx);
  changed();
}

void QtImageSurface::dev_text(double x, double y, const std::string& utf8, Colour c) {
  begin();
  ops_.Text(x, y, utf8, c, *this);
  changed();
}

double QtImageSurface::dev_text_width(const std::string& utf8) {
  ops_.unitsPerTwip = 1.0 / tpp_;
  return ops_.TextWidth(utf8, *this);
}

double QtImageSurface::dev_text_height(const std::string&) {
  ops_.unitsPerTwip = 1.0 / tpp_;
  return ops_.TextHeight(*this);
}

std::int64_t QtImageSurface::dev_point(double x, double y) {
  const int i = (int)std::floor(x / tpp_ * dpr_), j = (int)std::floor(y / tpp_ * dpr_);
  if (i < 0 || j < 0 || i >= image_.width() || j >= image_.height()) return -1;
  return From_QColor(QColor::fromRgb(image_.pixel(i, j)));
}

void QtImageSurface::dev_refresh() {
  if (painter_.isActive()) painter_.end();
  changed();
}

// ---- QtPainterSurface -------------------------------------------------------------

QtPainterSurface::QtPainterSurface(QPainter& painter, double widthTwips, double heightTwips, double unitsPerTwip,
                                   bool antialias) {
  double upt = unitsPerTwip;
  if (upt <= 0) {
    const QPaintDevice* d = painter.device();
    upt = (d ? d->logicalDpiX() : 96) / Twips_Per_Inch;
  }
  ops_.pixelTwips = 15.0;
  ops_.Begin(&painter, upt, antialias);
  SetSize(widthTwips, heightTwips);
}

void QtPainterSurface::dev_clear(Colour back) { ops_.Clear(Width(), Height(), back); }
void QtPainterSurface::dev_line(double x1, double y1, double x2, double y2, Colour c, int widthPx) {
  ops_.Line(x1, y1, x2, y2, c, widthPx);
}
void QtPainterSurface::dev_arc(double cx, double cy, double rx, double ry, double a0, double sweep, Colour c,
                               int widthPx) {
  ops_.Arc(cx, cy, rx, ry, a0, sweep, c, widthPx);
}
void QtPainterSurface::dev_text(double x, double y, const std::string& utf8, Colour c) {
  ops_.Text(x, y, utf8, c, *this);
}
double QtPainterSurface::dev_text_width(const std::string& utf8) { return ops_.TextWidth(utf8, *this); }
double QtPainterSurface::dev_text_height(const std::string&) { return ops_.TextHeight(*this); }

// ---- SurfaceWidget -----------------------------------------------------------------

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setAttribute(Qt::WA_OpaquePaintEvent);
  surface_.BackColor(0xE0E0E0);
  surface_.Changed = [this] { update(); };
}

double SurfaceWidget::twipsPerPixel() const {
  const int dpi = logicalDpiX();
  return dpi > 0 ? Twips_Per_Inch / dpi : 15.0;
}

QSize SurfaceWidget::sizeHint() const {
  const double t = twipsPerPixel();
  return QSize((int)std::lround(designW_ / t), (int)std::lround(designH_ / t));
}

void SurfaceWidget::setDesignSize(double widthTwips, double heightTwips) {
  designW_ = widthTwips;
  designH_ = heightTwips;
  updateGeometry();
}

int SurfaceWidget::Least_Height_For_Text(double topFraction, const std::string& text) const {
  const QFont f = Surface_Font(surface_.FontName(), surface_.FontSize() * 20.0 / twipsPerPixel(),
                               surface_.FontBold());
  const QFontMetricsF fm(f);
  // Print puts the top of the line at the point; the ink ends this far below
  const double ink = fm.ascent() + fm.tightBoundingRect(QString::fromStdString(text)).bottom();
  return (int)std::ceil((ink + 1) / (1 - topFraction));
}

void SurfaceWidget::setKeepProportions(bool keep) {
  keepProportions_ = keep;
  if (isVisible()) resizeEvent(nullptr);
}

void SurfaceWidget::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.fillRect(rect(), To_QColor(0xE0E0E0));
  p.drawImage(QPointF(origin_), surface_.Image());
}

void SurfaceWidget::resizeEvent(QResizeEvent*) {
  const double t = twipsPerPixel();
  int w = width(), h = height();
  if (keepProportions_ && designW_ > 0 && designH_ > 0) {
    // the narrower side decides
    if (w * designH_ > h * designW_) w = (int)std::floor(h * designW_ / designH_);
    else h = (int)std::floor(w * designH_ / designW_);
  }
  origin_ = QPoint((width() - w) / 2, (height() - h) / 2);
  surface_.Resize(w * t, h * t, t, devicePixelRatioF());
  emit resized();
}

double SurfaceWidget::toX(double px) const {
  return surface_.FromTwipsX((px - origin_.x()) * twipsPerPixel());
}
double SurfaceWidget::toY(double py) const {
  return surface_.FromTwipsY((py - origin_.y()) * twipsPerPixel());
}

void SurfaceWidget::mouseMoveEvent(QMouseEvent* e) {
  emit mouseMoved(toX(e->position().x()), toY(e->position().y()));
}
void SurfaceWidget::mousePressEvent(QMouseEvent* e) {
  emit mousePressed(toX(e->position().x()), toY(e->position().y()), (int)e->button());
}
void SurfaceWidget::mouseReleaseEvent(QMouseEvent* e) {
  emit mouseReleased(toX(e->position().x()), toY(e->position().y()), (int)e->button());
}
void SurfaceWidget::mouseDoubleClickEvent(QMouseEvent*) { emit doubleClicked(); }

}  // namespace zarvek
