// The lateral-torsional buckling check of EN 1993-1-1, 6.3.2: from the
// elastic critical moment Mcr to the design buckling resistance Mb,Rd.
//
// Pure arithmetic on numbers: steel grade and yield strength (Table 3.1),
// class of an I section in bending (Table 5.2), the section modulus, the
// slenderness, the buckling curve (Tables 6.3, 6.4, 6.5), the reduction
// factor of the general case (6.3.2.2) or of rolled and equivalent welded
// sections (6.3.2.3) with the modification factor f, and the utilisation.
// Units: cm, daN/cm2, daN.cm (1 MPa = 10 daN/cm2). docs/design-check.md
// gives the design and its sources.
#pragma once

#include <string>

namespace zarvek {

// ---- steel grades (Table 3.1, hot rolled products) --------------------------

constexpr int Grade_Count = 6;        // S235 S275 S355 S420 S450 S460
constexpr int Grade_Typed = 6;        // the list item after the grades: fy typed
const char* Grade_Name(int grade);    // "S235" .. "S460"; "fy" for Grade_Typed
// Nominal yield strength in MPa for the thickness t in mm: the t <= 40 mm
// column, or the 40 < t <= 80 mm one. 0 when t > 80 mm (out of the table) or
// for an unknown grade.
double Grade_fy(int grade, double t_mm);

// ---- class in bending (Table 5.2) ---------------------------------------------

// An I section by its plates, in cm. Flange 1 is the top one. `r1`, `r2` are
// the root radii of a rolled section; a welded section's welds are not counted
// in the widths (c = (b - tw)/2 and c = h - tf1 - tf2, the larger, safe values).
struct LtbSection {
  double h = 0, tw = 0;
  double b1 = 0, tf1 = 0, r1 = 0;
  double b2 = 0, tf2 = 0, r2 = 0;
  bool welded = false;
  // Moduli about the strong axis, cm3: plastic, elastic of the top and of the
  // bottom fibre. Zero means: compute them from the plates (fillets included).
  double Wpl = 0, Wel_Top = 0, Wel_Bottom = 0;
};

struct ClassResult {
  int cls = 0;             // 1..4 (0: not classified)
  double eps = 0;          // sqrt(235/fy), fy in MPa
  // compression flange as an outstand
  double cf = 0, tf = 0, flangeRatio = 0;    // c, t (cm) and c/t
  double flangeLimit[3] = {0, 0, 0};         // class 1, 2, 3 limits of c/t
  int flangeClass = 0;
  // web in bending
  double cw = 0, webRatio = 0;               // c (cm) and c/tw
  double alpha = 0.5, psi = -1;              // plastic and elastic stress shape of the web
  double webLimit[3] = {0, 0, 0};
  int webClass = 0;
};

// Class of the section bent with its top flange in compression (`topCompressed`)
// or its bottom one. fy in MPa.
ClassResult Classify_Bending(const LtbSection& s, double fy, bool topCompressed);

// Plastic modulus, elastic moduli of the top and bottom fibres (cm3) from the
// plates and the four quarter-circle fillets of a rolled section.
void Section_Moduli(const LtbSection& s, double& Wpl, double& WelTop, double& WelBottom);

// ---- buckling curves ----------------------------------------------------------

enum class LtbMethod { General = 1, Rolled = 2 };  // 6.3.2.2, 6.3.2.3

// Curve letter 'a'..'d' by Table 6.4 (general case) or Table 6.5 (rolled or
// equivalent welded) for an I section of depth h and width b.
char Ltb_Curve(LtbMethod method, bool welded, double h, double b);
// Imperfection factor of Table 6.3.
double Alpha_Of(char curve);

struct ChiResult {
  double lambda0 = 0, beta = 0;  // plateau length and beta of the method
  double phi = 0, chi = 0;
};
// PhiLT and chiLT of 6.3.2.2 (lambda0 0.2, beta 1, chi <= 1) or 6.3.2.3
// (lambda0 0.4, beta 0.75, chi <= 1 and chi <= 1/lambda^2).
ChiResult Chi_LT(LtbMethod method, double alphaLT, double lambdaLT);

// f of 6.3.2.3(2): 1 - 0.5 (1 - kc)(1 - 2 (lambda - 0.8)^2), at most 1.
double Factor_f(double kc, double lambdaLT);

// kc of Table 6.6 for the linear moment diagram of end moment ratio psi
// (-1 <= psi <= 1): 1/(1.33 - 0.33 psi).
double Kc_Linear(double psi);

// ---- the whole check ----------------------------------------------------------

struct LtbInput {
  LtbSection section;
  double fy = 0;             // MPa
  double gammaM1 = 1.0;
  LtbMethod method = LtbMethod::Rolled;
  bool useF = true;          // f applied (6.3.2.3 only)
  double Mcr = 0;            // daN.cm, magnitude
  double MEd = 0;            // daN.cm, signed: > 0 compresses the top flange
  // kc of Table 6.6 when the diagram is one of its shapes (kc > 0), else
  // computed 1/sqrt(C1) from C1 (> 0); `kcShape` names the shape.
  double kc = 0;
  double C1 = 0;
  std::string kcShape;
};

enum class LtbStop {
  None = 0,        // the check is complete
  NoMcr,           // no usable critical moment
  NoDimensions,    // properties route: plates unknown
  NoFy,            // fy out of Table 3.1 (t > 80 mm) and none typed, or fy <= 0
  BadGamma,        // gammaM1 not positive
  Class4,          // a class 4 section: effective properties are not handled
  NoKc,            // f asked for but neither kc nor C1 known
};

struct LtbResult {
  LtbStop stop = LtbStop::NoMcr;
  double fy = 0, gammaM1 = 0;
  bool topCompressed = true;
  ClassResult cls;
  double Wpl = 0, WelTop = 0, WelBottom = 0;
  double Wy = 0;             // the modulus used, cm3
  double Mcr = 0, MEd = 0;
  double lambdaLT = 0;
  char curve = '?';
  double alphaLT = 0, lambda0 = 0, beta = 0, phiLT = 0, chiLT = 0;
  bool useF = false;
  double kc = 0, C1 = 0, f = 1;
  std::string kcShape;
  double chiLTmod = 0;
  double MbRd = 0;           // daN.cm
  double utilisation = 0;
  // lambdaLT <= lambda0 or MEd/Mcr <= lambda0^2: buckling may be ignored
  bool mayIgnore = false;
  bool mayIgnoreByMoment = false;
};

LtbResult Ltb_Check(const LtbInput& in);

}  // namespace zarvek
