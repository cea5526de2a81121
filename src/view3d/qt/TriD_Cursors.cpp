#include "view3d/qt/TriD_Cursors.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace zarvek {

namespace {

constexpr int Size = 32;
constexpr double C = 15.5;  // centre of the picture

// A loop of an ellipse of radii rx, ry about the centre, from angle a0 to a1
// (radians, counter-clockwise on the screen), with an arrow head at its end.
QPainterPath Loop(double rx, double ry, double a0, double a1) {
  QPainterPath path;
  const int n = 48;
  for (int i = 0; i <= n; ++i) {
    const double a = a0 + (a1 - a0) * i / n;
    const QPointF p(C + rx * std::cos(a), C - ry * std::sin(a));
    if (i == 0)
      path.moveTo(p);
    else
      path.lineTo(p);
  }
  // Head: along the tangent at the end, in the sense of travel.
  const double s = a1 > a0 ? 1.0 : -1.0;
  QPointF tip(C + rx * std::cos(a1), C - ry * std::sin(a1));
  QPointF d(-rx * std::sin(a1) * s, -ry * std::cos(a1) * s);
  const double len = std::hypot(d.x(), d.y());
  d /= len;
  const QPointF nrm(-d.y(), d.x());
  const double hl = 6, hw = 4;
  path.moveTo(tip + d * 2);
  path.lineTo(tip - d * hl + nrm * hw);
  path.moveTo(tip + d * 2);
  path.lineTo(tip - d * hl - nrm * hw);
  return path;
}

QPainterPath Arrow(QPointF from, QPointF to) {
  QPainterPath path;
  path.moveTo(from);
  path.lineTo(to);
  QPointF d = to - from;
  d /= std::hypot(d.x(), d.y());
  const QPointF nrm(-d.y(), d.x());
  path.moveTo(to);
  path.lineTo(to - d * 5 + nrm * 4);
  path.moveTo(to);
  path.lineTo(to - d * 5 - nrm * 4);
  return path;
}

// Black strokes with a white rim, so that the image reads on any picture.
void Stroke(QPainter& p, const QPainterPath& path) {
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(Qt::white, 4.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPath(path);
  p.setPen(QPen(Qt::black, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.drawPath(path);
}

}  // namespace

QPixmap TriD_CursorPixmap(TriD_Cursor c) {
  QPixmap pm(Size, Size);
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing, true);
  const double Pi = 3.14159265358979;
  QPainterPath path;
  switch (c) {
    case TriD_Cursor::RotX:
      // the axis across, the loop standing about it
      path.moveTo(C - 14, C);
      path.lineTo(C + 14, C);
      path.addPath(Loop(6, 12, -0.35 * Pi, 1.35 * Pi));
      break;
    case TriD_Cursor::RotZ:
      path.moveTo(C, C - 14);
      path.lineTo(C, C + 14);
      path.addPath(Loop(13, 5, 0.65 * Pi, 2.35 * Pi));
      break;
    case TriD_Cursor::RotY:
      path.addPath(Loop(11, 11, 0.6 * Pi, 2.35 * Pi));
      path.addEllipse(QPointF(C, C), 1.5, 1.5);
      break;
    case TriD_Cursor::TransXY:
      path.addPath(Arrow({C, C}, {C + 14, C}));
      path.addPath(Arrow({C, C}, {C - 14, C}));
      path.addPath(Arrow({C, C}, {C, C - 14}));
      path.addPath(Arrow({C, C}, {C, C + 14}));
      break;
    case TriD_Cursor::Default:
      break;
  }
  Stroke(p, path);
  return pm;
}

QCursor Cur_RotX() { return QCursor(TriD_CursorPixmap(TriD_Cursor::RotX), 16, 16); }
QCursor Cur_RotY() { return QCursor(TriD_CursorPixmap(TriD_Cursor::RotY), 16, 16); }
QCursor Cur_RotZ() { return QCursor(TriD_CursorPixmap(TriD_Cursor::RotZ), 16, 16); }
QCursor Cur_TransXY() { return QCursor(TriD_CursorPixmap(TriD_Cursor::TransXY), 16, 16); }

QCursor TriD_QCursor(TriD_Cursor c) {
  switch (c) {
    case TriD_Cursor::RotX: return Cur_RotX();
    case TriD_Cursor::RotY: return Cur_RotY();
    case TriD_Cursor::RotZ: return Cur_RotZ();
    case TriD_Cursor::TransXY: return Cur_TransXY();
    case TriD_Cursor::Default: break;
  }
  return QCursor(Qt::ArrowCursor);
}

QPixmap TriD_AxesPixmap(int size) {
  QPixmap pm(size, size);
  pm.fill(QColor(0xE0, 0xE0, 0xE0));
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing, true);
  const double o = size * 0.3, end = size * 0.85, top = size * 0.15;
  const QPointF origin(o, size - o);
  QPen pen(Qt::black, 1.4);
  p.setPen(pen);
  p.setBrush(Qt::NoBrush);
  p.drawPath(Arrow(origin, {end, origin.y()}));
  p.drawPath(Arrow(origin, {origin.x(), top}));
  // Y goes into the screen: the tail of an arrow seen from behind.
  const double r = size * 0.08;
  p.drawEllipse(origin, r, r);
  p.drawLine(origin + QPointF(-r * 0.7, -r * 0.7), origin + QPointF(r * 0.7, r * 0.7));
  p.drawLine(origin + QPointF(-r * 0.7, r * 0.7), origin + QPointF(r * 0.7, -r * 0.7));
  QFont f("Liberation Sans");
  f.setPixelSize(std::max(8, size / 6));
  p.setFont(f);
  p.drawText(QPointF(end - size * 0.12, origin.y() + size * 0.2), "X");
  p.drawText(QPointF(origin.x() + size * 0.08, top + size * 0.08), "Z");
  p.drawText(QPointF(origin.x() - size * 0.28, origin.y() + size * 0.22), "Y");
  return pm;
}

}  // namespace zarvek
