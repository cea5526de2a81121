#include "section/Mod_Section.h"

#include <algorithm>
#include <cmath>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

// A root fillet is the spandrel between two faces at right angles and a
// quarter circle of radius r. Its area is (1 - pi/4) r^2; these constants are
// kept to the figures the program has always used.
constexpr double Q = 0.8584073465;  // 4 - pi
constexpr double PI_10 = 3.1415926535;
// Own inertia of a spandrel about its centroid, per r^4.
const double C_FILLET = 1.0 / 3.0 - PI_10 / 16.0 - (1.0 / 9.0) / Q;
// Its centroid stands k r from both faces.
const double K_FILLET = 1.0 - (2.0 / 3.0) / Q;

double Sq(double x) { return x * x; }
double Cube(double x) { return x * x * x; }

// Torsion constant of a rectangle whatever the order of its sides.
double Rect(double x, double y) { return Calculer_ItRect(std::min(x, y), std::max(x, y)); }

// Junction term of method 1 for one flange; `otherTf` tells whether the
// other flange exists (a T loses part of its web end).
double Junction_Method1(double tf, double r, double tw, double otherTf) {
  if (!(tf > 0 && tf + r > 0)) return 0;
  double alpha = -0.042 + 0.2204 * tw / tf + 0.1355 * r / tf - 0.0865 * tw * r / Sq(tf) -
                 0.0725 * Sq(tw / tf);
  double D = (Sq(r + tf) + tw * (r + tw / 4)) / (tf + 2 * r);
  double K = alpha * Sq(Sq(D)) - 0.21 * Sq(Sq(tf));
  if (otherTf == 0) K -= 0.105 * Sq(Sq(tw));
  return K < 0 ? 0 : K;
}

double Fillet_Method3(double tf, double r, double tw) {
  double D = (Sq(r + tf) + Sq(tw / 2 + r) - Sq(r)) / (tf + 2 * r);
  return (0.145 + 0.1 * r / tf) * (tw / tf) * Sq(Sq(D));
}

// Correction factor of method 2 for a flange too narrow to take the full
// junction effect.
double Junction_Factor(double bf, double tf, double tw) {
  if (bf < tf + 6 * tw) return 8.0 / (1.0 + (tf + 6 * tw) / bf);
  return 4.0;
}

}  // namespace

double SectionProps::Value(int n) const {
  switch (n) {
    case 1: return A;
    case 2: return zG;
    case 3: return Iz;
    case 4: return Iy;
    case 5: return It;
    case 6: return Iw;
    case 7: return zC;
    case 8: return Betaz;
    case 9: return zTop;
    case 10: return zBottom;
    case 11: return Wely_Top;
    case 12: return Wely_Bottom;
    case 13: return Welz;
    case 14: return Wply;
    case 15: return Wplz;
    case 16: return Reserved;
    default: return 0;
  }
}

double Calculer_ItRect(double a, double b) {
  double ratio = a / b;
  return (Cube(a) * b / 3.0) * (1.0 - (0.633 - 0.055 * Cube(ratio)) * ratio);
}

double Calculer_It(int method, double h, double bf1, double bf2, double tf1, double tf2,
                   double tw, double r1, double r2) {
  double hw = h - tf1 - tf2;
  switch (method) {
    case 1: {
      double J1 = Cube(tf1) * bf1 / 3, J2 = Cube(tf2) * bf2 / 3, Jw = Cube(tw) * hw / 3;
      double K1 = Junction_Method1(tf1, r1, tw, tf2);
      double K2 = Junction_Method1(tf2, r2, tw, tf1);
      return J1 + J2 + Jw + K1 + K2;
    }
    case 2: {
      double F1 = Rect(tf1, bf1), F2 = Rect(tf2, bf2), W = Rect(h, tw);
      double T1 = Rect(tf1, tw), T2 = Rect(tf2, tw);
      double M1 = Rect(tf1 + 0.4 * r1, tw + 0.4 * r1);
      double M2 = Rect(tf2 + 0.4 * r2, tw + 0.4 * r2);
      double C1 = Junction_Factor(bf1, tf1, tw), C2 = Junction_Factor(bf2, tf2, tw);
      // The web runs the full depth: the parts of it inside the flanges are
      // taken off again, and each junction adds its fillet-enlarged square.
      return F1 + F2 + W - T1 * Sq(tw / bf1) - T2 * Sq(tw / bf2) + C1 * (M1 - T1) +
             C2 * (M2 - T2);
    }
    case 3: {
      double J1 = Cube(tf1) * (bf1 - 0.63 * tf1) / 3;
      double J2 = Cube(tf2) * (bf2 - 0.63 * tf2) / 3;
      double Jw = Cube(tw) * hw / 3;
      return J1 + J2 + Jw + Fillet_Method3(tf1, r1, tw) + Fillet_Method3(tf2, r2, tw);
    }
    default:
      return 0;
  }
}

int Check_SectionLimits(const SectionDims& d, int tabDim, bool optDimensions) {
  // Flanges may not fill more than half the depth.
  if (d.h < 0.9999 * 4 * (d.tf1 + d.tf2)) return 1;
  // No section much wider than deep.
  if (d.h < 0.9999 * 0.6 * d.bf1) return 2;
  if (d.h < 0.9999 * 0.6 * d.bf2) return 2;
  // The fillets must fit in the clear web.
  if (d.r1 + d.r2 > 1.0001 * (d.h - d.tf1 - d.tf2) / 2) return 3;
  // Web and fillets must leave some outstand of the flanges.
  if (optDimensions && (tabDim == 0 || tabDim == 1)) {
    if (d.tw + 2 * d.r1 > 0.80008 * d.bf1) return 4;
    if (d.tw + 2 * d.r2 > 0.80008 * d.bf2) return 4;
  }
  // Fillets in scale with the flanges.
  if (d.r1 > 1.0001 * 4 * d.tf1) return 5;
  if (d.r2 > 1.0001 * 4 * d.tf2) return 5;
  // Web neither too thick nor too thin against the flanges.
  if (d.tf1 > 0 && d.tw > 1.0001 * 3 * d.tf1) return 6;
  if (d.tf2 > 0 && d.tw > 1.0001 * 3 * d.tf2) return 6;
  if (d.tw < 0.9999 * 0.2 * d.tf1) return 7;
  if (d.tw < 0.9999 * 0.2 * d.tf2) return 7;
  return 0;
}

void Calculer_SectionIMono(const SectionDims& d, int tabDim, bool optDimensions,
                           SectionProps& props, bool& invalid) {
  if (Check_SectionLimits(d, tabDim, optDimensions) != 0) {
    invalid = true;
    return;
  }
  const double h = d.h, bf1 = d.bf1, tf1 = d.tf1, r1 = d.r1, bf2 = d.bf2, tf2 = d.tf2,
               r2 = d.r2, tw = d.tw;
  const double hw = h - tf1 - tf2;

  // Parts: own areas and inertias (y horizontal, z vertical).
  const double A1 = bf1 * tf1, Iy1 = Cube(tf1) * bf1 / 12, Iz1 = Cube(bf1) * tf1 / 12;
  const double A2 = bf2 * tf2, Iy2 = Cube(tf2) * bf2 / 12, Iz2 = Cube(bf2) * tf2 / 12;
  const double Aw = tw * hw, Iyw = Cube(hw) * tw / 12, Izw = Cube(tw) * hw / 12;
  const double Ar1 = Q * Sq(r1) / 4, Ir1 = C_FILLET * Sq(Sq(r1));
  const double Ar2 = Q * Sq(r2) / 4, Ir2 = C_FILLET * Sq(Sq(r2));
  const double d1 = K_FILLET * r1, d2 = K_FILLET * r2;

  SectionProps p;
  p.A = A1 + A2 + Aw + 2 * Ar1 + 2 * Ar2;
  const double A = p.A;
  p.zG = ((h - tf1 / 2) * A1 + (tf2 / 2) * A2 + (hw / 2 + tf2) * Aw +
          (h - tf1 - d1) * 2 * Ar1 + (d2 + tf2) * 2 * Ar2) / A;

  // Levels of the part centroids above G.
  const double zf1 = h - tf1 / 2 - p.zG;
  const double zf2 = tf2 / 2 - p.zG;
  const double zw = hw / 2 + tf2 - p.zG;
  const double zr1 = h - tf1 - d1 - p.zG;
  const double zr2 = d2 + tf2 - p.zG;

  p.Iy = Iy1 + Iy2 + Iyw + 2 * Ir1 + 2 * Ir2 + Sq(zf1) * A1 + Sq(zf2) * A2 + Sq(zw) * Aw +
         Sq(zr1) * 2 * Ar1 + Sq(zr2) * 2 * Ar2;
  p.Iz = Iz1 + Iz2 + Izw + 2 * Ir1 + 2 * Ir2 + Sq(tw / 2 + d1) * 2 * Ar1 +
         Sq(tw / 2 + d2) * 2 * Ar2;
  p.It = Calculer_It(2, h, bf1, bf2, tf1, tf2, tw, r1, r2);

  // Warping: the two flanges as a pair of plates on their centre lines; a T
  // keeps the term of its single flange.
  const double I1 = Iz1 != 0 ? Iz1 : Iz2;
  p.Iw = Sq(h - tf1 / 2 - tf2 / 2) * I1 * (1 - I1 / p.Iz);

  // Shear centre: each part shares the lateral shear in proportion to its
  // stiffness about z.
  p.zC = (zf1 * Iz1 + zf2 * Iz2 + zw * Izw + zr1 * 2 * Ir1 + zr2 * 2 * Ir2) / p.Iz;

  // Wagner term: S = integral of z (y^2 + z^2) dA about G, part by part.
  const double S = zf1 * (3 * Iy1 + Sq(zf1) * A1 + Iz1) + zf2 * (3 * Iy2 + Sq(zf2) * A2 + Iz2) +
                   zw * (3 * Iyw + Sq(zw) * Aw + Izw) + 2 * zr1 * (Sq(zr1) * Ar1 + 4 * Ir1) +
                   2 * zr2 * (Sq(zr2) * Ar2 + 4 * Ir2);
  p.Betaz = S / (2 * p.Iy) - p.zC;
  // A doubly symmetric section has none: cut the rounding noise.
  if (std::fabs(p.Betaz) < 0.0001) p.Betaz = 0;
  // Likewise its shear centre lies on the centroid: an offset a billionth of
  // the height is the rounding of the sums above, not a dimension.
  if (std::fabs(p.zC) < 1e-9 * h) p.zC = 0;

  p.zTop = h - p.zG;
  p.zBottom = p.zG;
  p.Wely_Top = p.Iy / (h - p.zG);
  p.Wely_Bottom = p.Iy / p.zG;
  p.Welz = 2 * p.Iz / std::max(bf1, bf2);

  // Plastic modulus about y: the neutral axis halves the area.
  if (A1 >= A / 2) {
    const double pa = (A / 2) / bf1;  // depth below the top face
    p.Wply = Sq(pa) * bf1 / 2 + Sq(tf1 - pa) * bf1 / 2 + (h - tf2 / 2 - pa) * A2 +
             (hw / 2 + tf1 - pa) * Aw + (h - tf2 - d2 - pa) * 2 * Ar2 +
             (tf1 + d1 - pa) * 2 * Ar1;
  } else if (A2 >= A / 2) {
    const double pa = (A / 2) / bf2;  // height above the bottom face
    p.Wply = Sq(pa) * bf2 / 2 + Sq(tf2 - pa) * bf2 / 2 + (h - tf1 / 2 - pa) * A1 +
             (hw / 2 + tf2 - pa) * Aw + (h - tf1 - d1 - pa) * 2 * Ar1 +
             (tf2 + d2 - pa) * 2 * Ar2;
  } else {
    // In the web; the fillets are left out when placing the axis.
    const double pa = tf2 + ((A - 2 * Ar1 - 2 * Ar2) / 2 - A2) / tw;
    p.Wply = Sq(pa - tf2) * tw / 2 + Sq(h - tf1 - pa) * tw / 2 + (h - tf1 / 2 - pa) * A1 +
             (pa - tf2 / 2) * A2 + (h - tf1 - d1 - pa) * 2 * Ar1 + (pa - tf2 - d2) * 2 * Ar2;
  }
  p.Wplz = bf1 * A1 / 4 + bf2 * A2 / 4 + tw * Aw / 4 + (d1 + tw / 2) * 2 * Ar1 +
           (d2 + tw / 2) * 2 * Ar2;
  p.Reserved = 0;

  // Zero or degenerate figures that slipped through the limits give no
  // usable constants: refuse them instead of showing NaN.
  for (int n = 1; n <= 16; ++n) {
    if (!std::isfinite(p.Value(n))) {
      invalid = true;
      return;
    }
  }
  props = p;
  invalid = false;
}

SectionMonoTexts Format_SectionMono(const SectionProps& p, double factDim, double factIzt,
                                    double factIw) {
  SectionMonoTexts t;
  t.Iz = Format_Auto(p.Iz / factIzt);
  t.It = Format_Auto(p.It / factIzt);
  t.Iw = Format_Auto(p.Iw / factIw);
  t.Betaz = Format_Auto(p.Betaz / factDim);
  t.zS = Format_Auto(p.zC / factDim);
  t.zS_Hidden = Format_Auto(p.zG / factDim);
  return t;
}

SectionI Calculer_SectionI(const SectionRecord& s) {
  SectionI r;
  if (s.h == 0) {
    r.name = std::string(1, '?');  // no section
    return r;
  }
  r.name = s.name;
  r.h = s.h;
  r.b = s.b;
  r.tf = s.tf;
  r.tw = s.tw;
  r.r = s.r;
  const double h = s.h, b = s.b, tf = s.tf, tw = s.tw, rr = s.r;
  constexpr double P = 2.5752220395;  // 3 (4 - pi): a fillet centroid lies r - 2 r / P from both faces
  const double A = 2 * b * tf + tw * (h - 2 * tf) + Q * Sq(rr);
  const double Iy = (Cube(h) * b - Cube(h - 2 * tf) * (b - tw)) / 12 +
                    0.03018046256 * Sq(Sq(rr)) + Q * Sq(rr) * Sq(h / 2 - tf - rr + 2 * rr / P);
  const double c = 1.0 / 3.0 - PI_10 / 16.0 - 1.0 / (9 * Q);
  const double Iz = Cube(tw) * (h - 2 * tf) / 12 + Cube(b) * tf / 6 + 4 * c * Sq(Sq(rr)) +
                    Q * Sq(rr) * Sq(tw / 2 + rr - 2 * rr / P);
  r.A = (float)A;
  r.Avz = (float)(A - 2 * b * tf + tf * (tw + 2 * rr));
  r.Avy = (float)(2 * b * tf + tw * (tw + rr));
  r.Iy = (float)Iy;
  r.Wely = (float)(2 * Iy / h);
  r.Wply = (float)(Sq(h) * tw / 4 + tf * (h - tf) * (b - tw) + (h - 2 * tf) * Q * Sq(rr) / 2 +
                   (2 - P) * Cube(rr) / 3);
  r.Iz = (float)Iz;
  r.Welz = (float)(2 * Iz / b);
  r.Wplz = (float)(tf * Sq(b) / 2 + Sq(tw) * (h - 2 * tf) / 4 + Q * Sq(rr) * (rr + tw / 2) -
                   2 * Cube(rr) / 3);
  r.It = (float)Calculer_It(2, h, b, b, tf, tf, tw, rr, rr);
  r.Iw = (float)(Sq(h - tf) * Iz / 4);
  return r;
}

}  // namespace zarvek
