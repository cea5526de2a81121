#include "tools/qt/HelpPictures.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <map>

#include "diagrams/Diagrams.h"
#include "tools/Help.h"

namespace zarvek {

namespace {

constexpr int W = 560, H = 360;

// Texts of the pictures: English first, French second.
struct Pair {
  const char* uk;
  const char* fr;
};

const std::map<std::string, Pair>& Words() {
  static const std::map<std::string, Pair> w = {
      {"t1", {"Section: dimensions and levels", "Section : dimensions et niveaux"}},
      {"flange1", {"flange 1 (top)", "semelle 1 (haut)"}},
      {"flange2", {"flange 2 (bottom)", "semelle 2 (bas)"}},
      {"web", {"web", "âme"}},
      {"G", {"G centroid", "G centre de gravité"}},
      {"S", {"S shear centre", "S centre de cisaillement"}},
      {"zG", {"zG: G above the base", "zG : G au-dessus de la base"}},
      {"zS", {"zS: S above G (+ upward)", "zS : S au-dessus de G (+ vers le haut)"}},
      {"t2", {"End restraints: four degrees of freedom", "Appuis d'extrémité : quatre degrés de liberté"}},
      {"v", {"v: lateral displacement", "v : déplacement latéral"}},
      {"t", {"θ: twist about the axis", "θ : rotation de torsion"}},
      {"vp", {"v′: rotation in plan", "v′ : rotation en plan"}},
      {"tp", {"θ′: warping of the flanges", "θ′ : gauchissement des semelles"}},
      {"plan", {"plan view", "vue en plan"}},
      {"sect", {"section", "section"}},
      {"states", {"Free, Fixed, or a spring stiffness", "Libre, Bloqué, ou une raideur de ressort"}},
      {"t3", {"Intermediate restraints", "Maintiens intermédiaires"}},
      {"punct", {"punctual restraint at x = xf·L", "maintien ponctuel en x = xf·L"}},
      {"cont", {"continuous restraint along the span", "maintien continu sur la portée"}},
      {"zr", {"z: level above S (+ upward)", "z : niveau au-dessus de S (+ vers le haut)"}},
      {"axisS", {"axis of shear centres", "axe des centres de cisaillement"}},
      {"t4", {"End moments and ψ", "Moments d'extrémité et ψ"}},
      {"msign", {"M1, M2 > 0: anticlockwise couples", "M1, M2 > 0 : couples anti-horaires"}},
      {"mdiag", {"bending moment: −M1 at the left end, M2 at the right", "moment fléchissant : −M1 à gauche, M2 à droite"}},
      {"psi", {"ψ = −(smaller end value) / (larger one)", "ψ = −(valeur la plus faible) / (la plus forte)"}},
      {"uni", {"M1 = −M2: uniform moment, ψ = 1", "M1 = −M2 : moment uniforme, ψ = 1"}},
      {"t5", {"Loads and their heights", "Charges et leurs niveaux"}},
      {"down", {"F < 0, q < 0: downward", "F < 0, q < 0 : vers le bas"}},
      {"zl", {"zF, zq: level above S (+ upward)", "zF, zq : niveau au-dessus de S (+ vers le haut)"}},
      {"destab", {"a downward load above S lowers Mcr", "une charge descendante au-dessus de S réduit Mcr"}},
      {"pos", {"positions as fractions of L", "positions en fractions de L"}},
      {"t6", {"Reading the diagrams", "Lecture des diagrammes"}},
      {"mplus", {"+ drawn downward: sagging moment, bottom fibre in tension",
                 "+ dessiné vers le bas : moment positif, fibre inférieure tendue"}},
      {"mode", {"mode: each curve scaled so that its largest value is 1",
                "mode : chaque courbe ramenée à une valeur maximale de 1"}},
      {"Mcr", {"Mcr = μcr × Mmax", "Mcr = μcr × Mmax"}},
  };
  return w;
}

QString T(const std::string& key, bool fr) {
  const auto& w = Words();
  auto it = w.find(key);
  if (it == w.end()) return QString::fromStdString(key);
  return QString::fromUtf8(fr ? it->second.fr : it->second.uk);
}

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
void Draw_Section(QPainter& p, bool fr) {
  Title(p, T("t1", fr));
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
  for (const char* k : {"flange1", "flange2", "web"}) {
    p.drawText(QPointF(lg, y), T(k, fr));
    y += 20;
  }
  y += 10;
  p.setPen(Hue_G);
  p.drawText(QPointF(lg, y), T("G", fr));
  p.setPen(Hue_S);
  p.drawText(QPointF(lg, y + 20), T("S", fr));
  p.setPen(Ink);
  QRectF note(lg, 240, W - lg - 8, 100);
  p.drawText(note, Qt::TextWordWrap, T("zG", fr) + "\n" + T("zS", fr));
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

void Draw_EndRestraints(QPainter& p, bool fr) {
  Title(p, T("t2", fr));
  const qreal colW = W / 2.0;
  const char* keys[4] = {"v", "t", "vp", "tp"};
  const QColor hue[4] = {Hue_v, Hue_t, Hue_vp, Hue_tp};
  for (int k = 0; k < 4; ++k) {
    const qreal x0 = (k % 2) * colW + 20, y0 = 50 + (k / 2) * 140;
    p.setPen(hue[k]);
    QFont f = p.font();
    f.setBold(true);
    p.save();
    p.setFont(f);
    p.drawText(QPointF(x0, y0 + 12), T(keys[k], fr));
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
      p.drawText(QPointF(x0 + 180, y0 + 76), T("sect", fr));
      continue;
    }
    Plan_Beam(p, o, 200, 22);
    p.setPen(Grey);
    p.drawText(QPointF(o.x() + 140, o.y() + 34), T("plan", fr));
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
      p.drawText(o + QPointF(86, -34), fr ? "semelle 1" : "flange 1");
      p.drawText(o + QPointF(86, 44), fr ? "semelle 2" : "flange 2");
    }
  }
  p.setPen(Ink);
  p.drawText(QRectF(0, H - 26, W, 20), Qt::AlignHCenter, T("states", fr));
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

void Draw_Intermediate(QPainter& p, bool fr) {
  Title(p, T("t3", fr));
  const qreal x0 = 50, x1 = 510, y = 150, depth = 50;
  Elevation(p, x0, x1, y, depth);
  p.setPen(QPen(Grey, 1, Qt::DashDotLine));
  p.drawLine(QPointF(x0 - 20, y), QPointF(x1 + 20, y));
  p.setPen(Grey);
  p.drawText(QPointF(x1 - 150, y + 14), T("axisS", fr));
  // Punctual restraint at 0.4 L, above S.
  const qreal xp = x0 + 0.4 * (x1 - x0), zp = y - 18;
  Arrow(p, QPointF(xp - 60, zp), QPointF(xp - 4, zp), Hue_Restraint);
  p.setBrush(Hue_Restraint);
  p.setPen(Hue_Restraint);
  p.drawEllipse(QPointF(xp, zp), 4, 4);
  p.setBrush(Qt::NoBrush);
  p.drawText(QPointF(xp - 150, zp - 30), T("punct", fr));
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
  p.drawText(QPointF(x0, yc - 26), T("cont", fr));
  p.setPen(Ink);
  p.drawText(QRectF(0, 222, W, 20), Qt::AlignHCenter, T("zr", fr));
}

// ---- 4: end moments -----------------------------------------------------
void Draw_EndMoments(QPainter& p, bool fr) {
  Title(p, T("t4", fr));
  const qreal x0 = 80, x1 = 480, y = 100;
  Elevation(p, x0, x1, y, 30);
  Couple(p, QPointF(x0, y), 34, true, Hue_Load);
  Couple(p, QPointF(x1, y), 34, true, Hue_Load);
  p.setPen(Hue_Load);
  p.drawText(QPointF(x0 - 70, y - 30), "M1 > 0");
  p.drawText(QPointF(x1 + 22, y - 30), "M2 > 0");
  p.setPen(Ink);
  p.drawText(QRectF(0, 150, W, 20), Qt::AlignHCenter, T("msign", fr));
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
  p.drawText(QRectF(0, 282, W, 20), Qt::AlignHCenter, T("mdiag", fr));
  p.drawText(QRectF(0, 304, W, 20), Qt::AlignHCenter, T("psi", fr));
  p.drawText(QRectF(0, 326, W, 20), Qt::AlignHCenter, T("uni", fr));
}

// ---- 5: loads -----------------------------------------------------------
void Draw_Loads(QPainter& p, bool fr) {
  Title(p, T("t5", fr));
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
  for (const char* k : {"down", "zl", "destab"}) {
    p.drawText(QRectF(0, t, W, 20), Qt::AlignHCenter, T(k, fr));
    t += 20;
  }
  p.drawText(QRectF(0, H - 24, W, 20), Qt::AlignHCenter, T("pos", fr));
}

// ---- 6: diagrams --------------------------------------------------------
void Draw_Diagrams(QPainter& p, bool fr) {
  Title(p, T("t6", fr));
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
  p.drawText(QRectF(0, ym + 74, W, 20), Qt::AlignHCenter, T("mplus", fr));
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
  p.drawText(QRectF(0, yv + 56, W, 20), Qt::AlignHCenter, T("mode", fr) + "   " + T("Mcr", fr));
}

}  // namespace

QSize Help_PictureSize() { return QSize(W, H); }

QImage Help_Picture(int index, const std::string& code, qreal dpr) {
  if (index < 1 || index > Help_PictureCount) return QImage();
  const bool fr = code == "FR";
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
    case 1: Draw_Section(p, fr); break;
    case 2: Draw_EndRestraints(p, fr); break;
    case 3: Draw_Intermediate(p, fr); break;
    case 4: Draw_EndMoments(p, fr); break;
    case 5: Draw_Loads(p, fr); break;
    case 6: Draw_Diagrams(p, fr); break;
  }
  p.setPen(QPen(Grey, 1));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(0.5, 0.5, W - 1, H - 1));
  return img;
}

}  // namespace zarvek
