#include "model/qt/Zarvek_Widgets.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace zarvek {

Shape_Picture::Shape_Picture(QWidget* parent) : QFrame(parent) {
  setObjectName("Img_TabDim");
  setFrameShape(QFrame::StyledPanel);
  setMinimumSize(90, 90);
}

void Shape_Picture::Set_Shape(int shape) {
  shape_ = shape;
  update();
}

void Shape_Picture::Paint_Shape(QPainter& p, const QRectF& box, int shape, bool dimensions) {
  // proportions of a rolled I: height 1, flanges 0.5 wide
  const double side = std::min(box.width(), box.height());
  const double h = side * (dimensions ? 0.78 : 0.9);
  const QPointF c = box.center();
  const double top = c.y() - h / 2, bottom = c.y() + h / 2;
  const double tf = h * 0.09, tw = h * 0.06;
  double b1 = h * 0.55, b2 = h * 0.55;
  if (shape == 1) b2 = h * 0.8;
  if (shape == 2) b2 = tw;
  if (shape == 3) b1 = tw;
  const double tf1 = shape == 3 ? 0 : tf, tf2 = shape == 2 ? 0 : tf;

  QPainterPath path;
  path.addRect(QRectF(c.x() - b1 / 2, top, b1, tf1));
  path.addRect(QRectF(c.x() - tw / 2, top + tf1, tw, h - tf1 - tf2));
  path.addRect(QRectF(c.x() - b2 / 2, bottom - tf2, b2, tf2));
  path.setFillRule(Qt::WindingFill);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(QColor(40, 40, 40), 1));
  p.setBrush(QColor(150, 170, 200));
  p.drawPath(path.simplified());
  if (!dimensions) return;

  // the names of the dimensions beside the shape
  QFont f = p.font();
  f.setPointSizeF(std::max(6.0, f.pointSizeF() - 1));
  p.setFont(f);
  p.setPen(QColor(0, 0, 160));
  const double x0 = c.x() - h * 0.45;
  p.drawLine(QPointF(x0, top), QPointF(x0, bottom));
  p.drawText(QRectF(x0 - 20, c.y() - 8, 18, 16), Qt::AlignRight | Qt::AlignVCenter, "h");
  p.drawText(QRectF(c.x() + tw, c.y() - 8, 30, 16), Qt::AlignLeft | Qt::AlignVCenter, "tw");
  const bool both = shape == 1;
  if (shape != 3)
    p.drawText(QRectF(c.x() - b1 / 2, top - 16, b1, 15), Qt::AlignCenter, both ? "bf1" : "bf");
  if (shape != 2)
    p.drawText(QRectF(c.x() - b2 / 2, bottom + 1, b2, 15), Qt::AlignCenter, both ? "bf2" : "bf");
}

QIcon Shape_Picture::Shape_Icon(int shape) {
  QPixmap pix(64, 64);
  pix.fill(Qt::transparent);
  QPainter p(&pix);
  Paint_Shape(p, QRectF(0, 0, 64, 64), shape, false);
  return QIcon(pix);
}

void Shape_Picture::paintEvent(QPaintEvent* e) {
  QFrame::paintEvent(e);
  QPainter p(this);
  Paint_Shape(p, QRectF(contentsRect()).adjusted(20, 18, -4, -18), shape_, true);
}

}  // namespace zarvek
