// The four diagrams. Every size is a fraction of the surface's scale, so the
// same code draws at the design size, on a resized window and on paper.
#include "diagrams/Diagrams.h"

#include <algorithm>
#include <cmath>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

constexpr double Pi = Pi_Value;
constexpr double Margin = 0.05;  // left and right margins of the curves, fraction of W

// Coordinates reach the surface in single precision, as the curves have
// always been drawn.
double Single(double v) { return (double)(float)v; }

double Num(const std::string& t) { return Num_Of_Text(t); }

// 1-based sample of an array; 0 where the array is too short (a result left
// from another element count).
double At(const std::vector<float>& a, int i) {
  return i >= 1 && (size_t)i < a.size() ? (double)a[(size_t)i] : 0.0;
}

double Sign(double v) { return v > 0 ? 1.0 : (v < 0 ? -1.0 : 0.0); }

// Frame, sign marks and grid of the curve diagrams.
void Draw_CurveFrame(Surface& s, double W, double H) {
  const double m = Margin;
  s.ForeColor(Colour_MidGrey);
  s.Line(m * W, H / 2, W - m * W, H / 2);
  s.Line(m * W, 0.05 * H, W - m * W, 0.05 * H);
  s.Line(m * W, 0.95 * H, W - m * W, 0.95 * H);
  s.Line(m * W, 0.05 * H, m * W, 0.95 * H);
  s.Line(W - m * W, 0.05 * H, W - m * W, 0.95 * H);
  // positive values go downward: "+" at the bottom
  s.CurrentX(m * W / 2);
  s.CurrentY(0.9 * H);
  s.Print("+");
  s.CurrentX(m * W / 2);
  s.CurrentY(0);
  s.Print("_");
  s.CurrentX(m * W / 2);
  s.CurrentY(0.46 * H);
  s.Print("0");
  s.ForeColor(Colour_LightGrey);
  for (int i = 1; i <= 9; ++i) {
    const double x = m * W + i * (W - 2 * W * m) / 10;
    s.Line(x, H / 2 - 0.9 * H / 2, x, H / 2 + 0.9 * H / 2);
  }
  for (int i = 1; i <= 9; ++i) {
    if (i == 5) continue;  // the zero axis stays mid grey
    const double y = 0.05 * H + i * (0.9 * H / 10);
    s.Line(m * W, y, W - m * W, y);
  }
}

// One curve of the forces diagram: two samples an element, steep steps drawn
// at the previous abscissa.
void Draw_ForcesCurve(Surface& s, const std::vector<float>& A, int NB, double scale, Colour c, double W,
                      double H) {
  const double m = Margin;
  double xp = 0, yp = 0;
  for (int i = 1; i <= 2 * NB; ++i) {
    const double t = (i % 2 == 1) ? ((i + 1) / 2 - 1) / (double)NB : (i / 2) / (double)NB;
    double x = m * W + W * (1 - 2 * m) * t;
    const double y = H / 2 + ((At(A, i) * 0.9 / scale) * H) / 2;
    if (i > 1 && std::fabs(y - yp) > H / 15) x = xp;
    xp = x;
    yp = y;
    if (i == 1)
      s.Line(Single(x), Single(y), Single(x), Single(y), c);
    else
      s.LineTo(Single(x), Single(y), c);
  }
}

// The 5 x 5 picture elements around the mouse, column by column; the first
// element of one of the colours (in their order) wins.
bool Scan_Colours(Surface& s, double X, double Y, const Colour* colours, int count, ReadOut& r) {
  const double kx = s.TwipsPerUnitX(), ky = s.TwipsPerUnitY();
  const double dx = kx > 0 ? s.TwipsPerPixelX() / kx : 0;
  const double dy = ky > 0 ? s.TwipsPerPixelY() / ky : 0;
  for (int a = -2; a <= 2; ++a) {
    const double x = X + a * dx;
    for (int b = -2; b <= 2; ++b) {
      const double y = Y + b * dy;
      const std::int64_t c = s.Point(x, y);
      if (c < 0) continue;
      for (int k = 0; k < count; ++k) {
        if ((Colour)c == colours[k]) {
          r.hit = true;
          r.curve = k + 1;
          r.x = x;
          r.y = y;
          return true;
        }
      }
    }
  }
  return false;
}

std::string Screen_Text(const std::string& languageText) { return Cp1252_To_Utf8(languageText); }

}  // namespace

// ---- beam and loads --------------------------------------------------------------

void Draw_Force(Surface& s, double F, bool proportional, double x, double y, double z, double& yStart,
                double& yEnd) {
  if (F == 0) return;
  const double H = s.ScaleHeight();
  const double sgn = Sign(F);
  const double A = proportional ? 0.4 * H * F : 0.4 * H * sgn * (0.2 + 0.8 * std::fabs(F));
  const double h = 0.08 * H * sgn;
  const double g = 0.05 * H;
  double d;
  if (z * F > 0)
    d = sgn * g;
  else if (z * F < 0)
    d = -sgn * g - A;
  else if (F < 0)
    d = -A;
  else
    d = 0;
  double t = y;
  if (z > 0)
    t = y - g;
  else if (z < 0)
    t = y + g;
  yStart = y - d;
  yEnd = yStart - A;
  s.Line(x - 0.03 * H, t, x + 0.03 * H, t, Colour_Black);
  s.Line(x, yStart, x, yEnd, Colour_Red);
  s.Line(x, yEnd, x - h / 2, yEnd + h, Colour_Red);
  s.Line(x, yEnd, x + h / 2, yEnd + h, Colour_Red);
}

void Draw_DistributedLoad(Surface& s, double& q1, double& q2, double x1, double x2, double y, double z) {
  if (q1 == 0 && q2 == 0) return;
  // a triangular load keeps a small arrow of its sign at the zero end
  if (q1 == 0) q1 = q2 / 20;
  if (q2 == 0) q2 = q1 / 20;
  double s1 = y, e1 = y, s2 = y, e2 = y;
  Draw_Force(s, q1, true, x1, y, z, s1, e1);
  Draw_Force(s, q2, true, x2, y, z, s2, e2);
  s.Line(x1, s1, x2, s2, Colour_Red);
  s.Line(x1, e1, x2, e2, Colour_Red);
}

void Draw_Moment(Surface& s, double M, double x, double y, std::string_view side) {
  if (M == 0) return;
  const double H = s.ScaleHeight();
  const double R = 0.2 * H * (0.3 + 0.7 * std::fabs(M));
  const double b = R / 2;
  const bool left = side == "G";
  s.Circle(x, y, 0.01 * H, Colour_Red);
  if (left)
    s.Circle(x, y, R, Colour_Red, 7 * Pi / 4, Pi / 4);
  else
    s.Circle(x, y, R, Colour_Red, 3 * Pi / 4, 5 * Pi / 4);
  const double c = 0.707 * R;
  double px, py, dx1, dy1, dx2, dy2;
  if (M > 0) {
    if (left) {
      px = x + c, py = y + c, dx1 = -b, dy1 = 0, dx2 = -b / 2, dy2 = b;
    } else {
      px = x - c, py = y - c, dx1 = b, dy1 = 0, dx2 = b / 2, dy2 = -b;
    }
  } else {
    if (left) {
      px = x + c, py = y - c, dx1 = -b, dy1 = 0, dx2 = -b / 2, dy2 = -b;
    } else {
      px = x - c, py = y + c, dx1 = b, dy1 = 0, dx2 = b / 2, dy2 = b;
    }
  }
  s.CurrentX(px);
  s.CurrentY(py);
  s.LineStep(0, 0, dx1, dy1, Colour_Red);
  s.CurrentX(px);
  s.CurrentY(py);
  s.LineStep(0, 0, dx2, dy2, Colour_Red);
}

void Mark_LateralRestraints(Surface& s, const BeamModel& m, double xL, double xR, double y, double size,
                            Colour colour) {
  const double k = 1.3;  // the right arms are longer, as the crosses have always been
  const double L = xR - xL;
  s.DrawWidth(1);
  auto cross = [&](double x) {
    s.Line(x - size, y - size, x + k * size, y + k * size, colour);
    s.Line(x - size, y + size, x + k * size, y - k * size, colour);
  };
  if (m.Lst_v1.index != 0 || m.Lst_t1.index != 0 || m.Lst_vp1.index != 0 || m.Lst_tp1.index != 0) cross(xL);
  if (m.Lst_v2.index != 0 || m.Lst_t2.index != 0 || m.Lst_vp2.index != 0 || m.Lst_tp2.index != 0) cross(xR);
  if (m.Chk_Punctual1 && (m.Lst_vi_p1.index != 0 || m.Lst_ti_p1.index != 0)) cross(xL + L * Num(m.Txt_xfint1));
  if (m.Chk_Punctual2 && (m.Lst_vi_p2.index != 0 || m.Lst_ti_p2.index != 0)) cross(xL + L * Num(m.Txt_xfint2));
  s.DrawWidth(1);
}

void Tracer_Loads(Surface& s, const BeamModel& m) {
  s.Cls();
  const double W = s.ScaleWidth(), H = s.ScaleHeight();
  const double xL = 0.05 * W, xR = 0.95 * W, yc = H / 2, Len = xR - xL;
  auto X = [&](const std::string& fraction) { return xL + Num(fraction) * Len; };

  s.Line(xL, yc, xR, yc, Colour_Black);
  Mark_LateralRestraints(s, m, xL, xR, yc, 0.05 * H, Colour_MidGrey);

  // supports
  const double sz = 0.1 * H;
  s.DrawWidth(2);
  auto triangle = [&](double x) {
    s.Line(x, yc, x - sz / 2, yc + sz, Colour_Blue);
    s.LineTo(x + sz / 2, yc + sz, Colour_Blue);
    s.LineTo(x, yc, Colour_Blue);
  };
  auto bar = [&](double x) { s.Line(x, yc - sz, x, yc + sz, Colour_Blue); };
  if (m.Opt_AA) {
    triangle(xL);
    triangle(xR);
  } else if (m.Opt_EE) {
    bar(xL);
    bar(xR);
  } else if (m.Opt_EA) {
    bar(xL);
    triangle(xR);
  } else if (m.Opt_EL) {
    bar(xL);  // the free end carries nothing
  }
  s.DrawWidth(1);

  // moments, normalised to the largest
  double M1 = 0, M2 = 0, MC = 0, xC = 0, Mmax = 0;
  if (m.Chk_M) {
    M1 = Num(m.Txt_M1);
    M2 = Num(m.Txt_M2);
    Mmax = std::max(std::fabs(M1), std::fabs(M2));
  }
  if (m.Chk_CC) {
    MC = Num(m.Txt_CC);
    xC = X(m.Txt_xfC);
    Mmax = std::max(Mmax, std::fabs(MC));
  }
  if (Mmax > 0) {
    Draw_Moment(s, M1 / Mmax, xL, yc, "G");
    Draw_Moment(s, M2 / Mmax, xR, yc, "D");
    Draw_Moment(s, MC / Mmax, xC, yc, "D");
  }

  // the axial force: an arrow on the axis at each end, pointing into the
  // beam under compression and out of it under tension, with its value
  if (const double N = Num(m.Txt_N); N != 0) {
    const double a = 0.04 * W, h = 0.05 * H;
    s.DrawWidth(2);
    for (int side : {-1, 1}) {  // -1 left end, +1 right end
      const double xe = side < 0 ? xL : xR;
      const double tip = N > 0 ? xe : xe + side * a, tail = N > 0 ? xe + side * a : xe;
      const double back = N > 0 ? side * h : -side * h;
      s.Line(tail, yc, tip, yc, Colour_Red);
      s.Line(tip, yc, tip + back, yc - h / 2, Colour_Red);
      s.Line(tip, yc, tip + back, yc + h / 2, Colour_Red);
    }
    s.DrawWidth(1);
    s.CurrentX(xL - a);
    s.CurrentY(yc - 0.3 * H);
    s.ForeColor(Colour_Red);
    s.Print("N = " + m.Txt_N + " " + Unit_ItemText(UnitFamily::F, m.Lst_Unit_F));
  }

  // point loads
  struct Point_Load {
    bool on;
    const std::string &F, &x, &z;
  } loads[3] = {{m.Chk_F1, m.Txt_F1, m.Txt_xf1, m.Txt_zF1},
                {m.Chk_F2, m.Txt_F2, m.Txt_xf2, m.Txt_zF2},
                {m.Chk_F3, m.Txt_F3, m.Txt_xf3, m.Txt_zF3}};
  double F[3] = {0, 0, 0}, xf[3] = {0, 0, 0}, zf[3] = {0, 0, 0};
  double Fmax = 0;
  for (int i = 0; i < 3; ++i) {
    if (!loads[i].on) continue;
    F[i] = Num(loads[i].F);
    xf[i] = X(loads[i].x);
    zf[i] = Num(loads[i].z);
    Fmax = std::max(Fmax, std::fabs(F[i]));
  }
  if (Fmax > 0) {
    for (int i = 0; i < 3; ++i) {
      double ys = 0, ye = 0;
      Draw_Force(s, F[i] / Fmax, false, xf[i], yc, zf[i], ys, ye);
    }
  }

  // distributed loads
  double q[2][2] = {{0, 0}, {0, 0}}, xq[2][2] = {{0, 0}, {0, 0}}, zq[2] = {0, 0};
  double qmax = 0;
  if (m.Chk_q1) {
    q[0][0] = Num(m.Txt_q11), q[0][1] = Num(m.Txt_q12);
    xq[0][0] = X(m.Txt_xq11), xq[0][1] = X(m.Txt_xq12);
    zq[0] = Num(m.Txt_zq1);
    qmax = std::max(std::fabs(q[0][0]), std::fabs(q[0][1]));
  }
  if (m.Chk_q2) {
    q[1][0] = Num(m.Txt_q21), q[1][1] = Num(m.Txt_q22);
    xq[1][0] = X(m.Txt_xq21), xq[1][1] = X(m.Txt_xq22);
    zq[1] = Num(m.Txt_zq2);
    qmax = std::max({qmax, std::fabs(q[1][0]), std::fabs(q[1][1])});
  }
  if (qmax > 0) {
    for (int j = 0; j < 2; ++j) {
      double qa = q[j][0] / qmax, qb = q[j][1] / qmax;
      Draw_DistributedLoad(s, qa, qb, xq[j][0], xq[j][1], yc, zq[j]);
    }
  }
}

// ---- section -------------------------------------------------------------------------

namespace {

// The outline as one path from the upper left tip, clockwise on the screen.
void Section_Path(Surface& s, double W, double H, double D, double B1, double B2, double T1, double T2,
                  double Tw, double R1, double R2) {
  const double x0 = W / 2 - B1 / 2, y0 = (H - D) / 2;
  const double web = D - T1 - T2 - R1 - R2;
  s.Line(x0, y0, x0, y0);
  s.LineToStep(0, T1);
  s.LineToStep(B1 / 2 - Tw / 2 - R1, 0);
  s.CircleStep(0, R1, R1, {}, 0, Pi / 2);
  s.LineStep(R1, 0, 0, web);
  s.CircleStep(-R2, 0, R2, {}, 3 * Pi / 2, 2 * Pi);
  s.LineStep(0, R2, -(B2 / 2 - Tw / 2 - R2), 0);
  s.LineToStep(0, T2);
  s.LineToStep(B2, 0);
  s.LineToStep(0, -T2);
  s.LineToStep(-(B2 / 2 - Tw / 2 - R2), 0);
  s.CircleStep(0, -R2, R2, {}, Pi, 3 * Pi / 2);
  s.LineStep(-R2, 0, 0, -web);
  s.CircleStep(R1, 0, R1, {}, Pi / 2, Pi);
  s.LineStep(0, -R1, B1 / 2 - Tw / 2 - R1, 0);
  s.LineToStep(0, -T1);
  s.LineToStep(-B1, 0);
}

}  // namespace

void Draw_Section(Surface& s, const BeamModel& m) {
  s.Cls();
  const double W = s.ScaleWidth(), H = s.ScaleHeight();
  // by dimensions, nothing until the properties have been worked out
  if (m.Opt_Dimensions && Trim(m.Txt_It[2]).empty()) return;
  s.ForeColor(Colour_Black);
  if (m.Opt_Catalogue && m.Cat_h > 0) {
    const double k = 0.9 * H / m.Cat_h;
    Section_Path(s, W, H, m.Cat_h * k, m.Cat_b * k, m.Cat_b * k, m.Cat_tf * k, m.Cat_tf * k, m.Cat_tw * k,
                 m.Cat_r * k, m.Cat_r * k);
  }
  if (m.Opt_Dimensions) {
    const double h = Num(m.Txt_h);
    if (h > 0) {
      const double k = 0.9 * H / h;
      const double Tw = Num(m.Txt_tw) * k;
      Section_Path(s, W, H, h * k, Num(m.Txt_bf1) * k, Num(m.Txt_bf2) * k, Num(m.Txt_tf1) * k,
                   Num(m.Txt_tf2) * k, Tw, Num(m.Txt_r1) * k, Num(m.Txt_r2) * k);
      // centroid and shear centre, from the bottom face at 0.95H
      const double zG = Num(m.Txt_zS_Hidden) * k;
      const double zS = zG + Num(m.Txt_zS[2]) * k;
      const double rho = H / 150;
      s.ForeColor(Colour_Blue);
      s.Circle(W / 2, 0.95 * H - zG, rho);
      const double xg = W / 2 + Tw / 2 + W / 50, yg = 0.92 * H - zG;
      s.Line(xg, yg, xg, yg);
      s.Print("G");
      s.ForeColor(Colour_Green);
      s.Circle(W / 2, 0.95 * H - zS, rho);
      const double xs = W / 2 - Tw / 2 - W / 25, ys = 0.92 * H - zS;
      s.Line(xs, ys, xs, ys);
      s.Print("S");
      s.ForeColor(Colour_Black);
    }
  }
  if (m.Opt_Properties) {
    s.CurrentX(W / 8);
    s.CurrentY(H / 2);
    s.ForeColor(Colour_Black);
    s.Print(Screen_Text(Msg(67)));
  }
}

// ---- internal forces ----------------------------------------------------------------

void Tracer_Efforts(Surface& s, BeamModel& m, EffortsData& e, DiagramState& st) {
  if (st.No_Forces) return;
  if (!st.ExternalMode) Calculer_Efforts(m, e);
  s.Cls();
  const double W = s.ScaleWidth(), H = s.ScaleHeight(), mg = Margin;
  const Colour cM = st.Color_EffM, cV = st.Color_EffV;
  Draw_CurveFrame(s, W, H);
  if (!st.ExternalMode) st.NB = (int)Num_Of_Text(NB_Text(m));
  const int NB = st.NB;
  if (NB < 1) return;  // kept out by validation
  st.Forces_X0 = (float)(mg * W - W * (1 - 2 * mg) / NB);
  st.Forces_DX = (float)(W * (1 - 2 * mg) / NB);
  if (m.Chk_EffM) {
    float Mmax = 0;
    for (int i = 1; i <= 2 * NB; ++i)
      if (std::fabs((float)At(e.Efforts_M, i)) > Mmax) Mmax = std::fabs((float)At(e.Efforts_M, i));
    st.Efforts_Mmax = Mmax;
    // No moment: the drawing stops here, the shear curve included.
    if (Mmax == 0) return;
    Draw_ForcesCurve(s, e.Efforts_M, NB, Mmax, cM, W, H);
  }
  if (m.Chk_EffV) {
    float Vmax = 0;
    for (int i = 1; i <= 2 * NB; ++i)
      if (std::fabs((float)At(e.Efforts_V, i)) > Vmax) Vmax = std::fabs((float)At(e.Efforts_V, i));
    if (Vmax == 0) Vmax = 1;  // an all-zero shear lies on the axis
    Draw_ForcesCurve(s, e.Efforts_V, NB, Vmax, cV, W, H);
  }
}

std::string RefreshMV_Refusal(const BeamModel& m, const DiagramState& st) {
  if (st.ExternalMode) return {};
  const double M = Num_Of_Text(m.Txt_Mmax[0]);
  if (std::fabs(M * m.Fact_M) < 10 && !m.RefreshLocked) return "Mmax = 0 ! - " + Screen_Text(Msg(3));
  return {};
}

std::string Cmd_RefreshMV(Surface& s, BeamModel& m, EffortsData& e, DiagramState& st) {
  std::string refusal = RefreshMV_Refusal(m, st);
  if (refusal.empty()) Tracer_Efforts(s, m, e, st);
  return refusal;
}

void Place_ForcesLabel(ReadOut& r, double labelWidth, double labelHeight, double scaleWidth,
                       double scaleHeight) {
  const double ox = 150, oy = -80;
  r.Left = r.x + ox + labelWidth < scaleWidth ? r.x + ox : r.x - labelWidth - ox;
  r.Top = r.y + oy + labelHeight < scaleHeight ? r.y + oy : r.y - labelHeight - oy;
}

ReadOut Forces_ReadOut(Surface& s, const BeamModel& m, const EffortsData& e, const DiagramState& st, double X,
                       double Y, double labelWidth, double labelHeight) {
  ReadOut r;
  const Colour colours[2] = {st.Color_EffM, st.Color_EffV};
  if (!Scan_Colours(s, X, Y, colours, 2, r)) return r;
  const int NB = st.NB;
  // one element to the right of the one under the mouse: settled behaviour
  int n = st.Forces_DX != 0 ? (int)std::floor(((float)r.x - st.Forces_X0) / st.Forces_DX) + 1 : 1;
  if (n < 1) n = 1;
  if (n > NB + 1) n = NB;
  int k = 2 * n - 1;
  if (k > 2 * NB) k = 2 * NB;
  const double value = r.curve == 1 ? At(e.Efforts_M, k) / m.Fact_M : At(e.Efforts_V, k) / m.Fact_F;
  r.caption = std::string(Forces_Caption(r.curve)) + " = " + Format_Auto(value);
  if (labelWidth < 0) labelWidth = s.TextWidth(r.caption);
  if (labelHeight < 0) labelHeight = s.TextHeight(r.caption);
  Place_ForcesLabel(r, labelWidth, labelHeight, s.ScaleWidth(), s.ScaleHeight());
  return r;
}

// ---- buckling mode -----------------------------------------------------------------

void Tracer_VecteurPropre(Surface& s, const BeamModel& m, DiagramState& st) {
  s.Cls();
  const double W = s.ScaleWidth(), H = s.ScaleHeight(), mg = Margin;
  if (m.Mode_Max != 0) {
    const Colour colour[5] = {0, st.Color_v, st.Color_t, st.Color_vp, st.Color_tp};
    const bool ticked[5] = {false, m.Chk_v, m.Chk_t, m.Chk_vp, m.Chk_tp};
    Draw_CurveFrame(s, W, H);
    if (!st.ExternalMode) st.NB = NB_Of(m);
    const int NB = st.NB;
    if (NB < 1) return;
    const int n = NB + 1;
    if (!st.ExternalMode) Mark_LateralRestraints(s, m, mg * W, W * (1 - mg), H / 2, 0.03 * H, Colour_MidGrey);
    const auto& MV = m.Mode_Vector;
    const auto& RL = m.Restraint_Level;
    for (int k = 1; k <= 4; ++k) {
      if (!ticked[k]) continue;
      // each curve on its own scale; v also reaches the displaced restraints
      double sc = 0;
      for (int i = 1; i <= n; ++i) {
        sc = std::max(sc, std::fabs(At(MV, k + 4 * (i - 1))));
        if (k == 1 && At(RL, i) != 0) {
          const double d = At(MV, 1 + 4 * (i - 1)) - At(RL, i) * At(MV, 2 + 4 * (i - 1));
          sc = std::max(sc, std::fabs(d));
        }
      }
      // A curve that is zero all along has no scale: the drawing ends there.
      if (sc == 0) return;
      const Colour c = colour[k];
      for (int i = 1; i <= n; ++i) {
        const double x = Single(mg * W + (W * (1 - 2 * mg)) * (i - 1) / NB);
        const double y = Single(H / 2 + ((At(MV, k + 4 * (i - 1)) * 0.9 / sc) * H) / 2);
        if (i == 1)
          s.Line(x, y, x, y, c);
        else
          s.LineTo(x, y, c);
        if (k == 1 && At(RL, i) != 0) {
          const double d = At(MV, 1 + 4 * (i - 1)) - At(RL, i) * At(MV, 2 + 4 * (i - 1));
          const double yr = Single(H / 2 + ((0.9 * d / sc) * H) / 2);
          s.Line(x, yr, x, yr, c);
          s.CircleStep(0, 0, 0.005 * H, c);
          s.Line(x, y, x, y, c);
        }
      }
    }
    return;
  }
  s.CurrentX(W / 4);
  s.CurrentY(H / 2);
  s.ForeColor(Colour_Black);
  s.Print(Screen_Text(Msg(14)));
}

ReadOut Eigen_ReadOut(Surface& s, const DiagramState& st, double X, double Y) {
  ReadOut r;
  const Colour colours[4] = {st.Color_v, st.Color_t, st.Color_vp, st.Color_tp};
  if (!Scan_Colours(s, X, Y, colours, 4, r)) return r;
  r.caption = Mode_Caption(r.curve);
  r.Left = r.x + 150;
  r.Top = r.y - 80;
  return r;
}

const char* Forces_Caption(int curve) { return curve == 2 ? "V" : "M"; }

const char* Mode_Caption(int curve) {
  switch (curve) {
    case 2: return "\xCE\xB8";                 // theta
    case 3: return "v'";
    case 4: return "\xCE\xB8\xE2\x80\xB2";     // theta prime
    default: return "v";
  }
}

}  // namespace zarvek
