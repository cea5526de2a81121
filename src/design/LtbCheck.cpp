#include "design/LtbCheck.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace zarvek {

namespace {

constexpr double Pi = std::numbers::pi;
constexpr double MPa = 10.0;  // daN/cm2 in one MPa

// Table 3.1: fy for t <= 40 mm and for 40 mm < t <= 80 mm.
constexpr std::array<const char*, Grade_Count> Names = {"S235", "S275", "S355", "S420", "S450", "S460"};
constexpr std::array<std::array<double, 2>, Grade_Count> Fy = {{
    {235, 215}, {275, 255}, {355, 335}, {420, 390}, {440, 410}, {460, 430}}};

// The area left between the web, the flange and a root fillet of radius r:
// a square r x r less a quarter circle. Its centroid lies (10 - 3 pi)/(12 - 3 pi) r
// from the flange face; its second moment about the flange face is
// (1 - 5 pi/16) r^4.
double Fillet_Area(double r) { return (1 - Pi / 4) * r * r; }
double Fillet_Offset(double r) { return (10 - 3 * Pi) / (12 - 3 * Pi) * r; }
double Fillet_I0(double r) { return (1 - 5 * Pi / 16) * r * r * r * r; }

// One part of the section for the strong-axis moduli: area, centroid level
// above the bottom face, second moment about its own centroid, and its
// extent (bottom, top) for the plastic neutral axis.
struct Part {
  double A, z, I, z0, z1;
};

std::array<Part, 5> Parts_Of(const LtbSection& s) {
  const double r1 = s.welded ? 0 : s.r1, r2 = s.welded ? 0 : s.r2;
  const double hw = s.h - s.tf1 - s.tf2;
  const double a1 = 2 * Fillet_Area(r1), a2 = 2 * Fillet_Area(r2);
  const double e1 = Fillet_Offset(r1), e2 = Fillet_Offset(r2);
  const auto filletI = [](double r, double a, double e) { return 2 * Fillet_I0(r) - a * e * e; };
  return {{
      {s.b2 * s.tf2, s.tf2 / 2, s.b2 * std::pow(s.tf2, 3) / 12, 0, s.tf2},
      {s.tw * hw, s.tf2 + hw / 2, s.tw * std::pow(hw, 3) / 12, s.tf2, s.h - s.tf1},
      {s.b1 * s.tf1, s.h - s.tf1 / 2, s.b1 * std::pow(s.tf1, 3) / 12, s.h - s.tf1, s.h},
      // the fillets, as lumps at their centroids for the plastic axis (they
      // lie wholly on one side of it in any practical I)
      {a2, s.tf2 + e2, filletI(r2, a2, e2), s.tf2 + e2, s.tf2 + e2},
      {a1, s.h - s.tf1 - e1, filletI(r1, a1, e1), s.h - s.tf1 - e1, s.h - s.tf1 - e1},
  }};
}

// Area of a part below the level z.
double Area_Below(const Part& p, double z) {
  if (p.A == 0) return 0;
  if (p.z1 <= p.z0) return z > p.z ? p.A : 0;
  const double t = std::clamp((z - p.z0) / (p.z1 - p.z0), 0.0, 1.0);
  return p.A * t;
}

// First moment of a part about the level z, counted positive on both sides.
double Plastic_Moment(const Part& p, double z) {
  if (p.A == 0) return 0;
  if (p.z1 <= p.z0) return p.A * std::fabs(p.z - z);
  const double w = p.A / (p.z1 - p.z0);  // area per unit height
  const double lo = std::min(std::max(z, p.z0), p.z1);
  return w * ((lo - p.z0) * (z - (p.z0 + lo) / 2) + (p.z1 - lo) * ((p.z1 + lo) / 2 - z));
}

// Level of the plastic neutral axis: equal areas above and below.
double Plastic_Axis(const std::array<Part, 5>& parts) {
  double A = 0;
  for (const Part& p : parts) A += p.A;
  double lo = 0, hi = parts[2].z1;
  for (int k = 0; k < 200; ++k) {
    const double z = (lo + hi) / 2;
    double below = 0;
    for (const Part& p : parts) below += Area_Below(p, z);
    (below < A / 2 ? lo : hi) = z;
  }
  return (lo + hi) / 2;
}

double Centroid(const std::array<Part, 5>& parts) {
  double A = 0, S = 0;
  for (const Part& p : parts) {
    A += p.A;
    S += p.A * p.z;
  }
  return S / A;
}

int Class_Of(double ratio, const double limit[3]) {
  for (int k = 0; k < 3; ++k)
    if (ratio <= limit[k]) return k + 1;
  return 4;
}

}  // namespace

const char* Grade_Name(int grade) {
  if (grade >= 0 && grade < Grade_Count) return Names[(size_t)grade];
  return "fy";
}

double Grade_fy(int grade, double t_mm) {
  if (grade < 0 || grade >= Grade_Count || !(t_mm >= 0)) return 0;
  if (t_mm <= 40) return Fy[(size_t)grade][0];
  if (t_mm <= 80) return Fy[(size_t)grade][1];
  return 0;
}

void Section_Moduli(const LtbSection& s, double& Wpl, double& WelTop, double& WelBottom) {
  const auto parts = Parts_Of(s);
  const double zG = Centroid(parts);
  double I = 0;
  for (const Part& p : parts) I += p.I + p.A * (p.z - zG) * (p.z - zG);
  WelTop = I / (s.h - zG);
  WelBottom = I / zG;
  const double zp = Plastic_Axis(parts);
  Wpl = 0;
  for (const Part& p : parts) Wpl += Plastic_Moment(p, zp);
}

ClassResult Classify_Bending(const LtbSection& s, double fy, bool topCompressed) {
  ClassResult c;
  c.eps = std::sqrt(235.0 / fy);
  const double e = c.eps;
  const double r1 = s.welded ? 0 : s.r1, r2 = s.welded ? 0 : s.r2;

  // compression flange: an outstand from the web face (rolled: from the toe
  // of the root fillet)
  const double b = topCompressed ? s.b1 : s.b2;
  const double r = topCompressed ? r1 : r2;
  c.tf = topCompressed ? s.tf1 : s.tf2;
  c.cf = (b - s.tw - 2 * r) / 2;
  c.flangeRatio = c.cf / c.tf;
  c.flangeLimit[0] = 9 * e;
  c.flangeLimit[1] = 10 * e;
  c.flangeLimit[2] = 14 * e;
  c.flangeClass = Class_Of(c.flangeRatio, c.flangeLimit);

  // web: the clear depth between the fillets (rolled) or the flanges (welded)
  const double zBot = s.tf2 + r2, zTop = s.h - s.tf1 - r1;
  c.cw = zTop - zBot;
  c.webRatio = c.cw / s.tw;
  const bool symmetric = s.b1 == s.b2 && s.tf1 == s.tf2 && r1 == r2;
  if (symmetric) {
    c.alpha = 0.5;
    c.psi = -1;
    c.webLimit[0] = 72 * e;
    c.webLimit[1] = 83 * e;
    c.webLimit[2] = 124 * e;
  } else {
    const auto parts = Parts_Of(s);
    const double zp = Plastic_Axis(parts), zG = Centroid(parts);
    // share of the clear depth in compression at the plastic state, and the
    // ratio of the elastic stresses at the two ends of the clear depth
    c.alpha = std::clamp(topCompressed ? (zTop - zp) / c.cw : (zp - zBot) / c.cw, 0.0, 1.0);
    c.psi = topCompressed ? (zBot - zG) / (zTop - zG) : (zTop - zG) / (zBot - zG);
    if (c.alpha > 0.5) {
      c.webLimit[0] = 396 * e / (13 * c.alpha - 1);
      c.webLimit[1] = 456 * e / (13 * c.alpha - 1);
    } else if (c.alpha > 0) {
      c.webLimit[0] = 36 * e / c.alpha;
      c.webLimit[1] = 41.5 * e / c.alpha;
    } else {  // the whole web in tension
      c.webLimit[0] = c.webLimit[1] = INFINITY;
    }
    if (c.psi > -1)
      c.webLimit[2] = 42 * e / (0.67 + 0.33 * c.psi);
    else
      c.webLimit[2] = 62 * e * (1 - c.psi) * std::sqrt(-c.psi);
    c.webLimit[2] = std::max(c.webLimit[2], c.webLimit[1]);
  }
  c.webClass = Class_Of(c.webRatio, c.webLimit);
  c.cls = std::max(c.flangeClass, c.webClass);
  return c;
}

char Ltb_Curve(LtbMethod method, bool welded, double h, double b) {
  const bool stocky = h / b <= 2;
  if (method == LtbMethod::General) {
    if (welded) return stocky ? 'c' : 'd';
    return stocky ? 'a' : 'b';
  }
  if (welded) return stocky ? 'c' : 'd';
  return stocky ? 'b' : 'c';
}

double Alpha_Of(char curve) {
  switch (curve) {
    case 'a': return 0.21;
    case 'b': return 0.34;
    case 'c': return 0.49;
    case 'd': return 0.76;
    default: return 0;
  }
}

ChiResult Chi_LT(LtbMethod method, double alphaLT, double lambdaLT) {
  ChiResult r;
  const bool rolled = method == LtbMethod::Rolled;
  r.lambda0 = rolled ? 0.4 : 0.2;
  r.beta = rolled ? 0.75 : 1.0;
  const double l = lambdaLT;
  r.phi = 0.5 * (1 + alphaLT * (l - r.lambda0) + r.beta * l * l);
  r.chi = 1 / (r.phi + std::sqrt(std::max(0.0, r.phi * r.phi - r.beta * l * l)));
  r.chi = std::min(r.chi, 1.0);
  if (rolled && l > 0) r.chi = std::min(r.chi, 1 / (l * l));
  return r;
}

double Factor_f(double kc, double lambdaLT) {
  const double d = lambdaLT - 0.8;
  return std::min(1.0, 1 - 0.5 * (1 - kc) * (1 - 2 * d * d));
}

double Kc_Linear(double psi) { return 1 / (1.33 - 0.33 * psi); }

LtbResult Ltb_Check(const LtbInput& in) {
  LtbResult r;
  r.fy = in.fy;
  r.gammaM1 = in.gammaM1;
  r.Mcr = in.Mcr;
  r.MEd = in.MEd;
  r.topCompressed = in.MEd >= 0;
  if (!(std::isfinite(in.Mcr) && in.Mcr > 0)) return r;  // NoMcr
  const LtbSection& s = in.section;
  if (!(s.h > 0 && s.tw > 0 && s.b1 > 0 && s.tf1 > 0 && s.b2 > 0 && s.tf2 > 0)) {
    r.stop = LtbStop::NoDimensions;
    return r;
  }
  if (!(std::isfinite(in.fy) && in.fy > 0)) {
    r.stop = LtbStop::NoFy;
    return r;
  }
  if (!(std::isfinite(in.gammaM1) && in.gammaM1 > 0)) {
    r.stop = LtbStop::BadGamma;
    return r;
  }

  r.cls = Classify_Bending(s, in.fy, r.topCompressed);
  if (s.Wpl > 0 && s.Wel_Top > 0 && s.Wel_Bottom > 0) {
    r.Wpl = s.Wpl;
    r.WelTop = s.Wel_Top;
    r.WelBottom = s.Wel_Bottom;
  } else {
    Section_Moduli(s, r.Wpl, r.WelTop, r.WelBottom);
  }
  if (r.cls.cls == 4) {
    r.stop = LtbStop::Class4;
    return r;
  }
  r.Wy = r.cls.cls <= 2 ? r.Wpl : (r.topCompressed ? r.WelTop : r.WelBottom);

  const double MRk = r.Wy * in.fy * MPa;
  r.lambdaLT = std::sqrt(MRk / in.Mcr);
  // h/b with the narrower flange: the less favourable curve of the two
  r.curve = Ltb_Curve(in.method, s.welded, s.h, std::min(s.b1, s.b2));
  r.alphaLT = Alpha_Of(r.curve);
  const ChiResult c = Chi_LT(in.method, r.alphaLT, r.lambdaLT);
  r.lambda0 = c.lambda0;
  r.beta = c.beta;
  r.phiLT = c.phi;
  r.chiLT = c.chi;

  r.useF = in.useF && in.method == LtbMethod::Rolled;
  r.C1 = in.C1;
  r.chiLTmod = r.chiLT;
  if (r.useF) {
    if (in.kc > 0) {
      r.kc = in.kc;
      r.kcShape = in.kcShape;
    } else if (in.C1 > 0) {
      r.kc = std::min(1.0, 1 / std::sqrt(in.C1));
    } else {
      r.stop = LtbStop::NoKc;
      return r;
    }
    r.f = Factor_f(r.kc, r.lambdaLT);
    r.chiLTmod = std::min({r.chiLT / r.f, 1.0, 1 / (r.lambdaLT * r.lambdaLT)});
  }
  r.MbRd = r.chiLTmod * MRk / in.gammaM1;
  r.utilisation = std::fabs(in.MEd) / r.MbRd;
  r.mayIgnore = r.lambdaLT <= r.lambda0;
  r.mayIgnoreByMoment = std::fabs(in.MEd) / in.Mcr <= r.lambda0 * r.lambda0;
  r.stop = LtbStop::None;
  return r;
}

}  // namespace zarvek
