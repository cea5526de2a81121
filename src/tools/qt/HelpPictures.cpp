#include "tools/qt/HelpPictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <string>
#include <utility>

#include "diagrams/Diagrams.h"
#include "foundation/qt/Translate_Form.h"
#include "tools/Help.h"

namespace zarvek {

namespace {

constexpr int W = 560, H = 360;

// The texts of the pictures come from the loaded language (further texts
// "Help_<name>"), the English text of the call being the fallback. The
// language files are Windows-1252, which has no Greek: they write the
// symbols as {theta}, {psi}, {mu}, {prime}, {minus} and {times}, put back
// here as the letters and signs of the diagrams.
QString T(const char* name, const char* english) {
  QString s = Lang_Further(std::string("Help_") + name, english);
  static const std::pair<const char*, const char16_t*> symbols[] = {
      {"{theta}", u"\u03B8"}, {"{psi}", u"\u03C8"},   {"{mu}", u"\u03BC"},
      {"{prime}", u"\u2032"}, {"{minus}", u"\u2212"}, {"{times}", u"\u00D7"}};
  for (const auto& [mark, symbol] : symbols) s.replace(QLatin1String(mark), QString::fromUtf16(symbol));
  return s;
}

// A text of a picture with its key and English text.
struct Word {
  const char* name;
  const char* english;
};

const QColor Steel(70, 110, 170), Ink(30, 30, 30), Grey(120, 120, 120), Paper(250, 250, 246);

// The colours of the diagrams of the main window, so that a curve or a mark
// in a help picture is recognised on the screen: M, V, v, theta, v', theta'
// as their check boxes, G and S as the section drawing, loads as the scheme.
QColor Hue(Colour c) { return QColor(int(c & 0xFF), int((c >> 8) & 0xFF), int((c >> 16) & 0xFF)); }
const DiagramState Curves;
const QColor Hue_M = Hue(Curves.Color_EffM), Hue_V = Hue(Curves.Color_EffV), Hue_v = Hue(Curves.Color_v),
             Hue_t = Hue(Curves.Color_t), Hue_vp = Hue(Curves.Color_vp), Hue_tp = Hue(Curves.Color_tp),
             Hue_G = Hue(Colour_Blue), Hue_S = Hue(Colour_Green), Hue_Load = Hue(Colour_Red),
             Hue_Restraint = Hue(Colour_MidGrey).darker(130);

void Arrow(QPainter& p, QPointF a, QPointF b, const QColor& c, qreal head = 8) {
  p.save();
  p.setPen(QPen(c, 1.6));
  p.setBrush(c);
  p.drawLine(a, b);
  const qreal ang = std::atan2(b.y() - a.y(), b.x() - a.x());
  QPolygonF tip;
  tip << b << b - QPointF(head * std::cos(ang - 0.4), head * std::sin(ang - 0.4))
      << b - QPointF(head * std::cos(ang + 0.4), head * std::sin(ang + 0.4));
  p.drawPolygon(tip);
  p.restore();
}

// A dimension line with arrows at both ends and its text beside the middle.
void Dimension(QPainter& p, QPointF a, QPointF b, const QString& text, QPointF textOffset) {
  Arrow(p, (a + b) / 2, a, Grey, 6);
  Arrow(p, (a + b) / 2, b, Grey, 6);
  p.setPen(Ink);
  p.drawText((a + b) / 2 + textOffset, text);
}

// A curved arrow of a couple around c, anticlockwise on the screen when
// `anticlockwise`.
void Couple(QPainter& p, QPointF c, qreal r, bool anticlockwise, const QColor& col) {
  p.save();
  p.setPen(QPen(col, 1.8));
  p.setBrush(Qt::NoBrush);
  const QRectF box(c.x() - r, c.y() - r, 2 * r, 2 * r);
  p.drawArc(box, 60 * 16, 240 * 16);
  // Qt angles run anticlockwise on the screen; the arc ends at 300 degrees.
  const qreal end = qDegreesToRadians(anticlockwise ? 300.0 : 60.0);
  const QPointF e(c.x() + r * std::cos(end), c.y() - r * std::sin(end));
  // tangent in the sense of travel
  const qreal s = anticlockwise ? 1 : -1;
  const QPointF t(-std::sin(end) * s, -std::cos(end) * s);
  Arrow(p, e - t * 6, e + t * 2, col, 8);
  p.restore();
}

void Title(QPainter& p, const QString& t) {
  QFont f = p.font();
  f.setBold(true);
  f.setPixelSize(f.pixelSize() * 115 / 100);
  p.save();
  p.setFont(f);
  p.setPen(Ink);
  p.drawText(QRectF(0, 6, W, 24), Qt::AlignHCenter, t);
  p.restore();
}

// ---- 1: section ---------------------------------------------------------
void Draw_Section(QPainter& p) {
  Title(p, T("t1", "Section: dimensions and levels"));
  const qreal cx = 165, top = 60, h = 240, b1 = 130, b2 = 170, tf1 = 16, tf2 = 20, tw = 10,
              r = 12;
  const qreal base = top + h;
  QPainterPath s;
  s.moveTo(cx - b1 / 2, top);
  s.lineTo(cx + b1 / 2, top);
  s.lineTo(cx + b1 / 2, top + tf1);
  s.lineTo(cx + tw / 2 + r, top + tf1);
  s.arcTo(QRectF(cx + tw / 2, top + tf1, 2 * r, 2 * r), 90, 90);
  s.lineTo(cx + tw / 2, base - tf2 - r);
  s.arcTo(QRectF(cx + tw / 2, base - tf2 - 2 * r, 2 * r, 2 * r), 180, 90);
  s.lineTo(cx + b2 / 2, base - tf2);
  s.lineTo(cx + b2 / 2, base);
  s.lineTo(cx - b2 / 2, base);
  s.lineTo(cx - b2 / 2, base - tf2);
  s.lineTo(cx - tw / 2 - r, base - tf2);
  s.arcTo(QRectF(cx - tw / 2 - 2 * r, base - tf2 - 2 * r, 2 * r, 2 * r), 270, 90);
  s.lineTo(cx - tw / 2, top + tf1 + r);
  s.arcTo(QRectF(cx - tw / 2 - 2 * r, top + tf1, 2 * r, 2 * r), 0, 90);
  s.lineTo(cx - b1 / 2, top + tf1);
  s.closeSubpath();
  p.setPen(QPen(Steel.darker(140), 1.5));
  p.setBrush(QColor(200, 215, 235));
  p.drawPath(s);

  // Centroid and shear centre of this bottom-heavy shape.
  const qreal zG = base - 105, zS = base - 80;
  p.setPen(QPen(Grey, 1, Qt::DashDotLine));
  p.drawLine(QPointF(cx - b2 / 2 - 20, zG), QPointF(cx + b2 / 2 + 20, zG));
  p.drawLine(QPointF(cx, top - 14), QPointF(cx, base + 14));
  Arrow(p, QPointF(cx, base + 14), QPointF(cx, top - 22), Ink);
  p.setPen(Ink);
  p.drawText(QPointF(cx + 6, top - 12), "z");
  Arrow(p, QPointF(cx - b2 / 2 - 20, zG), QPointF(cx + b2 / 2 + 34, zG), Ink);
  p.drawText(QPointF(cx + b2 / 2 + 30, zG - 6), "y");
  p.setBrush(Hue_G);
  p.setPen(Hue_G);
  p.drawEllipse(QPointF(cx, zG), 4, 4);
  p.drawText(QPointF(cx + 8, zG + 16), "G");
  p.setBrush(Hue_S);
  p.setPen(Hue_S);
  p.drawEllipse(QPointF(cx, zS), 4, 4);
  p.drawText(QPointF(cx + 8, zS + 14), "S");
  p.setBrush(Qt::NoBrush);

  // Dimensions.
  Dimension(p, QPointF(cx - b2 / 2 - 40, top), QPointF(cx - b2 / 2 - 40, base), "h", QPointF(-16, 4));
  Dimension(p, QPointF(cx - b1 / 2, top - 24), QPointF(cx + b1 / 2, top - 24), "bf1", QPointF(-40, -4));
  Dimension(p, QPointF(cx - b2 / 2, base + 22), QPointF(cx + b2 / 2, base + 22), "bf2", QPointF(-44, 14));
  Dimension(p, QPointF(cx + b1 / 2 + 14, top), QPointF(cx + b1 / 2 + 14, top + tf1), "tf1", QPointF(6, 4));
  Dimension(p, QPointF(cx + b2 / 2 + 14, base - tf2), QPointF(cx + b2 / 2 + 14, base), "tf2",
            QPointF(6, 4));
  p.setPen(Ink);
  p.drawText(QPointF(cx - tw / 2 - 34, top + 120), "tw");
  Arrow(p, QPointF(cx - tw / 2 - 16, top + 116), QPointF(cx - tw / 2, top + 116), Grey, 6);
  Arrow(p, QPointF(cx + tw / 2 + 16, top + 116), QPointF(cx + tw / 2, top + 116), Grey, 6);
  p.drawText(QPointF(cx + tw / 2 + r + 2, top + tf1 + r + 12), "r1");
  p.drawText(QPointF(cx + tw / 2 + r + 2, base - tf2 - r - 4), "r2");

  // Levels.
  const qreal lx = cx + b2 / 2 + 48;
  Dimension(p, QPointF(lx, base), QPointF(lx, zG), "zG", QPointF(6, 4));
  p.setPen(QPen(Grey, 1, Qt::DotLine));
  p.drawLine(QPointF(cx, base), QPointF(lx + 6, base));
  p.drawLine(QPointF(cx, zG), QPointF(lx + 40, zG));
  p.drawLine(QPointF(cx, zS), QPointF(lx + 40, zS));
  Dimension(p, QPointF(lx + 34, zG), QPointF(lx + 34, zS), "zS", QPointF(6, 4));

  // Legend.
  const qreal lg = 368;
  qreal y = 80;
  p.setPen(Ink);
  for (const Word& w :
       {Word{"flange1", "flange 1 (top)"}, Word{"flange2", "flange 2 (bottom)"}, Word{"web", "web"}}) {
    p.drawText(QPointF(lg, y), T(w.name, w.english));
    y += 20;
  }
  y += 10;
  p.setPen(Hue_G);
  p.drawText(QPointF(lg, y), T("G", "G centroid"));
  p.setPen(Hue_S);
  p.drawText(QPointF(lg, y + 20), T("S", "S shear centre"));
  p.setPen(Ink);
  QRectF note(lg, 240, W - lg - 8, 100);
  p.drawText(note, Qt::TextWordWrap,
             T("zG", "zG: G above the base") + "\n" + T("zS", "zS: S above G (+ upward)"));
}

// ---- 2: end restraints --------------------------------------------------
void Plan_Beam(QPainter& p, QPointF o, qreal len, qreal width) {
  // A beam seen from above: the top flange as a long strip.
  p.setPen(QPen(Steel.darker(130), 1.2));
  p.setBrush(QColor(200, 215, 235));
  p.drawRect(QRectF(o.x(), o.y() - width / 2, len, width));
  p.setPen(QPen(Grey, 1, Qt::DashDotLine));
  p.drawLine(QPointF(o.x() - 8, o.y()), QPointF(o.x() + len + 8, o.y()));
}

void Draw_EndRestraints(QPainter& p) {
  Title(p, T("t2", "End restraints: four degrees of freedom"));
  const qreal colW = W / 2.0;
  const Word words[4] = {{"v", "v: lateral displacement"},
                         {"t", "{theta}: twist about the axis"},
                         {"vp", "v{prime}: rotation in plan"},
                         {"tp", "{theta}{prime}: warping of the flanges"}};
  const QColor hue[4] = {Hue_v, Hue_t, Hue_vp, Hue_tp};
  for (int k = 0; k < 4; ++k) {
    const qreal x0 = (k % 2) * colW + 20, y0 = 50 + (k / 2) * 140;
    p.setPen(hue[k]);
    QFont f = p.font();
    f.setBold(true);
    p.save();
    p.setFont(f);
    p.drawText(QPointF(x0, y0 + 12), T(words[k].name, words[k].english));
    p.restore();
    const QPointF o(x0 + 20, y0 + 70);
    if (k == 1) {
      // Twist: the section turns about the longitudinal axis.
      const QPointF c(x0 + 110, y0 + 72);
      for (int turned = 0; turned < 2; ++turned) {
        p.save();
        p.translate(c);
        p.rotate(turned ? 18 : 0);
        p.setPen(QPen(turned ? Hue_t : Steel.darker(130), turned ? 1.6 : 1.2,
                      turned ? Qt::SolidLine : Qt::DashLine));
        p.setBrush(Qt::NoBrush);
        p.drawLine(QPointF(-26, -40), QPointF(26, -40));
        p.drawLine(QPointF(-26, 40), QPointF(26, 40));
        p.drawLine(QPointF(0, -40), QPointF(0, 40));
        p.restore();
      }
      Couple(p, c, 52, true, Hue_t);
      p.setPen(Grey);
      p.drawText(QPointF(x0 + 180, y0 + 76), T("sect", "section"));
      continue;
    }
    Plan_Beam(p, o, 200, 22);
    p.setPen(Grey);
    p.drawText(QPointF(o.x() + 140, o.y() + 34), T("plan", "plan view"));
    if (k == 0) {
      // Lateral displacement: the end moves sideways.
      p.setPen(QPen(Hue_v, 1.6, Qt::DashLine));
      p.setBrush(Qt::NoBrush);
      QPainterPath c;
      c.moveTo(o + QPointF(200, 0));
      c.cubicTo(o + QPointF(120, 0), o + QPointF(40, -30), o + QPointF(0, -30));
      p.drawPath(c);
      Arrow(p, o + QPointF(-6, 0), o + QPointF(-6, -30), Hue_v);
    } else if (k == 2) {
      // Rotation in plan: the end turns about the vertical axis.
      p.setPen(QPen(Hue_vp, 1.6, Qt::DashLine));
      p.drawLine(o + QPointF(-10, 12), o + QPointF(90, -22));
      Couple(p, o, 22, true, Hue_vp);
    } else {
      // Warping: the two flanges turn in plan in opposite senses.
      // (both in the colour of theta', dashed and dotted apart)
      p.setPen(QPen(Hue_tp, 1.6, Qt::DashLine));
      p.drawLine(o + QPointF(0, -11), o + QPointF(80, -36));
      p.setPen(QPen(Hue_tp, 1.6, Qt::DotLine));
      p.drawLine(o + QPointF(0, 11), o + QPointF(80, 36));
      p.setPen(Hue_tp);
      p.drawText(o + QPointF(86, -34), T("warp1", "flange 1"));
      p.drawText(o + QPointF(86, 44), T("warp2", "flange 2"));
    }
  }
  p.setPen(Ink);
  p.drawText(QRectF(0, H - 26, W, 20), Qt::AlignHCenter, T("states", "Free, Fixed, or a spring stiffness"));
}

// ---- 3: intermediate restraints ----------------------------------------
void Elevation(QPainter& p, qreal x0, qreal x1, qreal y, qreal depth) {
  p.setPen(QPen(Steel.darker(130), 1.2));
  p.setBrush(QColor(200, 215, 235));
  p.drawRect(QRectF(x0, y - depth / 2, x1 - x0, depth));
  p.setBrush(Qt::NoBrush);
  // Fork supports.
  for (qreal x : {x0, x1}) {
    QPolygonF t;
    t << QPointF(x, y + depth / 2) << QPointF(x - 9, y + depth / 2 + 14)
      << QPointF(x + 9, y + depth / 2 + 14);
    p.setPen(Ink);
    p.drawPolygon(t);
  }
}

void Spring(QPainter& p, QPointF a, QPointF b, const QColor& c) {
  // A zigzag from a to b.
  p.setPen(QPen(c, 1.4));
  const QPointF d = b - a;
  const qreal len = std::hypot(d.x(), d.y());
  const QPointF u = d / len, n(-u.y(), u.x());
  QPolygonF z;
  z << a << a + u * len * 0.2;
  for (int i = 0; i < 6; ++i)
    z << a + u * len * (0.25 + 0.1 * i) + n * ((i % 2) ? -5.0 : 5.0);
  z << a + u * len * 0.85 << b;
  p.drawPolyline(z);
}

void Draw_Intermediate(QPainter& p) {
  Title(p, T("t3", "Intermediate restraints"));
  const qreal x0 = 50, x1 = 510, y = 150, depth = 50;
  Elevation(p, x0, x1, y, depth);
  p.setPen(QPen(Grey, 1, Qt::DashDotLine));
  p.drawLine(QPointF(x0 - 20, y), QPointF(x1 + 20, y));
  p.setPen(Grey);
  p.drawText(QPointF(x1 - 150, y + 14), T("axisS", "axis of shear centres"));
  // Punctual restraint at 0.4 L, above S.
  const qreal xp = x0 + 0.4 * (x1 - x0), zp = y - 18;
  Arrow(p, QPointF(xp - 60, zp), QPointF(xp - 4, zp), Hue_Restraint);
  p.setBrush(Hue_Restraint);
  p.setPen(Hue_Restraint);
  p.drawEllipse(QPointF(xp, zp), 4, 4);
  p.setBrush(Qt::NoBrush);
  p.drawText(QPointF(xp - 150, zp - 30), T("punct", "punctual restraint at x = xf\xB7L"));
  Dimension(p, QPointF(xp + 16, y), QPointF(xp + 16, zp), "z", QPointF(6, 4));
  Dimension(p, QPointF(x0, y + 50), QPointF(xp, y + 50), "xf·L", QPointF(-10, 14));
  // Continuous restraint along the span, under the beam.
  const qreal yc = 280;
  Elevation(p, x0, x1, yc, 30);
  for (int i = 0; i <= 10; ++i) {
    const qreal x = x0 + 20 + i * (x1 - x0 - 40) / 10;
    Spring(p, QPointF(x, yc + 15), QPointF(x, yc + 40), Hue_Restraint);
  }
  p.setPen(QPen(Hue_Restraint, 1.4));
  p.drawLine(QPointF(x0 + 10, yc + 40), QPointF(x1 - 10, yc + 40));
  p.drawText(QPointF(x0, yc - 26), T("cont", "continuous restraint along the span"));
  p.setPen(Ink);
  p.drawText(QRectF(0, 222, W, 20), Qt::AlignHCenter, T("zr", "z: level above S (+ upward)"));
}

// ---- 4: end moments -----------------------------------------------------
void Draw_EndMoments(QPainter& p) {
  Title(p, T("t4", "End moments and {psi}"));
  const qreal x0 = 80, x1 = 480, y = 100;
  Elevation(p, x0, x1, y, 30);
  Couple(p, QPointF(x0, y), 34, true, Hue_Load);
  Couple(p, QPointF(x1, y), 34, true, Hue_Load);
  p.setPen(Hue_Load);
  p.drawText(QPointF(x0 - 70, y - 30), "M1 > 0");
  p.drawText(QPointF(x1 + 22, y - 30), "M2 > 0");
  p.setPen(Ink);
  p.drawText(QRectF(0, 150, W, 20), Qt::AlignHCenter, T("msign", "M1, M2 > 0: anticlockwise couples"));
  // Bending moment with M1 = -50, M2 = 100 (drawn downward when positive).
  const qreal yb = 220, sc = 0.5;
  const qreal mL = 50, mR = 100;  // -M1, M2
  p.setPen(QPen(Grey, 1));
  p.drawLine(QPointF(x0, yb), QPointF(x1, yb));
  QPolygonF m;
  m << QPointF(x0, yb) << QPointF(x0, yb + mL * sc) << QPointF(x1, yb + mR * sc) << QPointF(x1, yb);
  p.setPen(QPen(Hue_M, 1.5));
  p.setBrush(QColor(0, 0, 0, 24));
  p.drawPolygon(m);
  p.setBrush(Qt::NoBrush);
  p.drawText(QPointF(x0 - 60, yb + mL * sc + 4), "−M1");
  p.drawText(QPointF(x1 + 8, yb + mR * sc + 4), "M2");
  p.setPen(Ink);
  p.drawText(QRectF(0, 282, W, 20), Qt::AlignHCenter,
             T("mdiag", "bending moment: {minus}M1 at the left end, M2 at the right"));
  p.drawText(QRectF(0, 304, W, 20), Qt::AlignHCenter,
             T("psi", "{psi} = {minus}(smaller end value) / (larger one)"));
  p.drawText(QRectF(0, 326, W, 20), Qt::AlignHCenter, T("uni", "M1 = {minus}M2: uniform moment, {psi} = 1"));
}

// ---- 5: loads -----------------------------------------------------------
void Draw_Loads(QPainter& p) {
  Title(p, T("t5", "Loads and their heights"));
  const qreal x0 = 50, x1 = 510, y = 215, depth = 70;
  Elevation(p, x0, x1, y, depth);
  p.setPen(QPen(Hue_S, 1, Qt::DashDotLine));
  p.drawLine(QPointF(x0 - 20, y), QPointF(x1 + 20, y));
  p.setPen(Hue_S);
  p.drawText(QPointF(x1 - 24, y - 6), "S");
  // Point load on the top flange, z > 0: the arrow ends on its level.
  const qreal xf = x0 + 0.3 * (x1 - x0), zf = y - depth / 2;
  Arrow(p, QPointF(xf, zf - 56), QPointF(xf, zf), Hue_Load, 10);
  p.setPen(Hue_Load);
  p.drawText(QPointF(xf + 8, zf - 40), "F1 < 0");
  Dimension(p, QPointF(xf - 18, y), QPointF(xf - 18, zf), "zF1 > 0", QPointF(-66, 4));
  // Distributed load on the bottom flange, z < 0: the arrows start on
  // their level.
  const qreal qa = x0 + 0.45 * (x1 - x0), qb = x0 + 0.8 * (x1 - x0), zq = y + depth / 2;
  p.setPen(QPen(Hue_Load, 1.6));
  p.drawLine(QPointF(qa, zq), QPointF(qb, zq));
  for (int i = 0; i <= 6; ++i) {
    const qreal x = qa + i * (qb - qa) / 6;
    Arrow(p, QPointF(x, zq), QPointF(x, zq + 32), Hue_Load, 6);
  }
  p.setPen(Hue_Load);
  p.drawText(QPointF(qa - 52, zq + 26), "q1 < 0");
  Dimension(p, QPointF(qb + 24, y), QPointF(qb + 24, zq), "zq1 < 0", QPointF(6, 4));
  Dimension(p, QPointF(x0, zq + 40), QPointF(xf, zq + 40), "xf1·L", QPointF(-14, 16));
  p.setPen(Ink);
  qreal t = 40;
  for (const Word& w :
       {Word{"down", "F < 0, q < 0: downward"}, Word{"zl", "zF, zq: level above S (+ upward)"},
        Word{"destab", "a downward load above S lowers Mcr"}}) {
    p.drawText(QRectF(0, t, W, 20), Qt::AlignHCenter, T(w.name, w.english));
    t += 20;
  }
  p.drawText(QRectF(0, H - 24, W, 20), Qt::AlignHCenter, T("pos", "positions as fractions of L"));
}

// ---- 6: diagrams --------------------------------------------------------
void Draw_Diagrams(QPainter& p) {
  Title(p, T("t6", "Reading the diagrams"));
  const qreal x0 = 60, x1 = 500;
  // Moment under a downward uniform load: a parabola drawn below the axis.
  const qreal ym = 90;
  p.setPen(QPen(Grey, 1));
  p.drawRect(QRectF(x0, ym - 30, x1 - x0, 100));
  p.drawLine(QPointF(x0, ym), QPointF(x1, ym));
  p.drawText(QPointF(x0 - 16, ym - 20), "−");
  p.drawText(QPointF(x0 - 16, ym + 62), "+");
  QPainterPath m;
  m.moveTo(x0, ym);
  for (int i = 1; i <= 40; ++i) {
    const qreal s = i / 40.0;
    m.lineTo(x0 + s * (x1 - x0), ym + 4 * 60 * s * (1 - s));
  }
  p.setPen(QPen(Hue_M, 1.8));
  p.drawPath(m);
  p.drawText(QPointF(x0 + 8, ym + 50), "M");
  p.setPen(Ink);
  p.drawText(QRectF(0, ym + 74, W, 20), Qt::AlignHCenter,
             T("mplus", "+ drawn downward: sagging moment, bottom fibre in tension"));
  // Mode: v and theta of a fork-supported beam.
  const qreal yv = 250;
  p.setPen(QPen(Grey, 1));
  p.drawRect(QRectF(x0, yv - 50, x1 - x0, 100));
  p.drawLine(QPointF(x0, yv), QPointF(x1, yv));
  QPainterPath v, t;
  v.moveTo(x0, yv);
  t.moveTo(x0, yv);
  for (int i = 1; i <= 40; ++i) {
    const qreal s = i / 40.0, x = x0 + s * (x1 - x0);
    v.lineTo(x, yv + 45 * std::sin(M_PI * s));
    t.lineTo(x, yv + 30 * std::sin(M_PI * s));
  }
  p.setPen(QPen(Hue_v, 1.8));
  p.drawPath(v);
  p.drawText(QPointF(x1 - 50, yv - 30), "v");
  p.setPen(QPen(Hue_t, 1.8));
  p.drawPath(t);
  p.drawText(QPointF(x1 - 30, yv - 30), "θ");
  p.setPen(Ink);
  p.drawText(QRectF(0, yv + 56, W, 20), Qt::AlignHCenter,
             T("mode", "mode: each curve scaled so that its largest value is 1") + "   " +
                 T("Mcr", "Mcr = {mu}cr {times} Mmax"));
}

}  // namespace

QSize Help_PictureSize() { return QSize(W, H); }

QImage Help_Picture(int index, qreal dpr) {
  if (index < 1 || index > Help_PictureCount) return QImage();
  QImage img(QSize(W, H) * dpr, QImage::Format_ARGB32_Premultiplied);
  img.setDevicePixelRatio(dpr);
  img.fill(Paper);
  QPainter p(&img);
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);
  QFont f("Liberation Sans");
  f.setPixelSize(13);
  p.setFont(f);
  switch (index) {
    case 1: Draw_Section(p); break;
    case 2: Draw_EndRestraints(p); break;
    case 3: Draw_Intermediate(p); break;
    case 4: Draw_EndMoments(p); break;
    case 5: Draw_Loads(p); break;
    case 6: Draw_Diagrams(p); break;
  }
  p.setPen(QPen(Grey, 1));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(0.5, 0.5, W - 1, H - 1));
  return img;
}

}  // namespace zarvek
