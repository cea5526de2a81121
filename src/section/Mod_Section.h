// Cross-section constants of I sections by closed forms.
//
// A section is cut into rectangles (two flanges and the web between them) and
// four root fillets; every constant is a sum over those parts, nothing is
// integrated numerically. All lengths are in cm, so areas come in
// cm2, inertias in cm4 and the warping constant in cm6.
//
// Levels z are measured upward from the bottom face: flange 2 lies at z = 0
// and flange 1 reaches z = h. A T is an I with one flange of zero thickness.
#pragma once

#include <string>

namespace zarvek {

// The eight dimensions of a mono-symmetric I, in cm.
struct SectionDims {
  double h = 0;                        // total depth
  double bf1 = 0, tf1 = 0, r1 = 0;     // top flange width, thickness, root radius
  double bf2 = 0, tf2 = 0, r2 = 0;     // bottom flange
  double tw = 0;                       // web thickness
};

// The sixteen section constants of the dimensions route, in their fixed
// order (Value(1) .. Value(16)).
struct SectionProps {
  double A = 0;            // 1  area
  double zG = 0;           // 2  centroid above the bottom face
  double Iz = 0;           // 3  second moment about the weak (vertical) axis
  double Iy = 0;           // 4  second moment about the strong (horizontal) axis
  double It = 0;           // 5  torsion constant
  double Iw = 0;           // 6  warping constant
  double zC = 0;           // 7  shear centre above the centroid
  double Betaz = 0;        // 8  mono-symmetry constant
  double zTop = 0;         // 9  h - zG: centroid to top fibre
  double zBottom = 0;      // 10 zG once more: centroid to bottom fibre
  double Wely_Top = 0;     // 11 elastic modulus of the top fibre
  double Wely_Bottom = 0;  // 12 elastic modulus of the bottom fibre
  double Welz = 0;         // 13
  double Wply = 0;         // 14
  double Wplz = 0;         // 15
  double Reserved = 0;     // 16 left at 0 by the dimensions route

  // n from 1 to 16 in the order above; 0 outside.
  double Value(int n) const;
};

// Torsion constant of a rectangle of thickness a and width b (a <= b).
double Calculer_ItRect(double a, double b);

// Torsion constant of an I by method 1 (thick flanges with a junction term),
// 2 (rectangles with junction corrections, the one the program uses) or
// 3 (with a fillet term). Any other method gives 0. A zero flange width or
// thickness is not guarded here: callers pass only shapes that passed the
// limits.
double Calculer_It(int method, double h, double bf1, double bf2, double tf1, double tf2,
                   double tw, double r1, double r2);

// Number (1..7) of the first proportion limit that the section breaks, or 0
// when it is acceptable. Limit 4 (fillets within the flange) only holds for
// the I shapes of the dimensions route: tabDim 0 or 1 with optDimensions set.
int Check_SectionLimits(const SectionDims& d, int tabDim, bool optDimensions);

// All constants of a mono-symmetric I. On success invalid := false and props
// is filled; when the proportions are out of the limits (or the figures
// can't give finite constants) invalid := true and props is left untouched.
void Calculer_SectionIMono(const SectionDims& d, int tabDim, bool optDimensions,
                           SectionProps& props, bool& invalid);

// What the dimensions route shows of its result: slot 2 of Txt_Iz, Txt_It,
// Txt_Iw, Txt_Betaz, Txt_zS and the hidden text of Txt_zS(2) (zG), each in the
// display unit (value divided by the unit factor) through Format_Auto.
struct SectionMonoTexts {
  std::string Iz, It, Iw, Betaz, zS, zS_Hidden;
};
SectionMonoTexts Format_SectionMono(const SectionProps& p, double factDim, double factIzt,
                                    double factIw);

// A rolled, doubly symmetric I of the catalogue: five dimensions in cm.
struct SectionRecord {
  std::string name;  // the number behind the series' name, e.g. "300"
  float h = 0, b = 0, tf = 0, tw = 0, r = 0;
};

// Properties of a rolled I, in cm powers, single precision as kept by the
// catalogue window.
struct SectionI {
  std::string name;
  float h = 0, b = 0, tf = 0, tw = 0, r = 0;
  float A = 0, Avz = 0, Avy = 0, Iy = 0, Iz = 0, Wely = 0, Wply = 0, Welz = 0, Wplz = 0,
        It = 0, Iw = 0;
};

// Closed forms of a doubly symmetric I with four equal fillets. A section of
// zero depth gives all zeros and the name "?".
SectionI Calculer_SectionI(const SectionRecord& section);

}  // namespace zarvek
