#include "solver/ElementMatrices.h"

#include <cmath>


namespace zarvek {

namespace {
// Local degrees.
enum { v1 = 1, t1 = 2, p1 = 3, w1 = 4, v2 = 5, t2 = 6, p2 = 7, w2 = 8 };

inline double& At(ElemMatrix& K, int a, int b) { return K[Packed_Index(b, a)]; }
}  // namespace

void Build_Ke(double E, double G, double L, double Iz, double It, double Iw,
              const std::array<double, 9>& Link, ElemMatrix& Ke) {
  Ke.fill(0.0);
  const double A = E * Iz, B = E * Iw, C = G * It;
  const double L2 = L * L, L3 = L2 * L;
  At(Ke, v1, v1) = 12 * A / L3;
  At(Ke, v1, p1) = 6 * A / L2;
  At(Ke, v1, v2) = -12 * A / L3;
  At(Ke, v1, p2) = 6 * A / L2;
  At(Ke, t1, t1) = 12 * B / L3 + 6 * C / (5 * L);
  At(Ke, t1, w1) = 6 * B / L2 + C / 10;
  At(Ke, t1, t2) = -12 * B / L3 - 6 * C / (5 * L);
  At(Ke, t1, w2) = 6 * B / L2 + C / 10;
  At(Ke, p1, p1) = 4 * A / L;
  At(Ke, p1, v2) = -6 * A / L2;
  At(Ke, p1, p2) = 2 * A / L;
  At(Ke, w1, w1) = 4 * B / L + 2 * C * L / 15;
  At(Ke, w1, t2) = -6 * B / L2 - C / 10;
  At(Ke, w1, w2) = 2 * B / L - C * L / 30;
  At(Ke, v2, v2) = 12 * A / L3;
  At(Ke, v2, p2) = -6 * A / L2;
  At(Ke, t2, t2) = 12 * B / L3 + 6 * C / (5 * L);
  At(Ke, t2, w2) = -6 * B / L2 - C / 10;
  At(Ke, p2, p2) = 4 * A / L;
  At(Ke, w2, w2) = 4 * B / L + 2 * C * L / 15;
  Apply_Links(Link, Ke);
}

namespace {
// Packed 8 x 8 factorisation, the same steps as the global one.
bool Choleski8(std::array<double, 37>& a, double eps) {
  int status = 0;
  for (int J = 1; J <= 8; ++J) {
    const int kpiv = Packed_Index(J, J);
    const double threshold = std::fabs(eps * a[kpiv]);
    double pivot = 1.0;
    for (int I = J; I <= 8; ++I) {
      double sum = 0.0;
      for (int M = 1; M <= J - 1; ++M) sum += a[Packed_Index(J, M)] * a[Packed_Index(I, M)];
      const double dif = a[Packed_Index(I, J)] - sum;
      if (I == J) {
        if (dif <= threshold) {
          if (dif <= 0) return false;
          if (status <= 0) status = J - 1;
        }
        pivot = std::sqrt(dif);
        a[kpiv] = pivot;
      } else {
        a[Packed_Index(I, J)] = dif / pivot;
      }
    }
  }
  for (int p = 1; p <= 36; ++p)
    if (std::fabs(a[p]) < 1e-10) a[p] = 0.0;
  return status == 0;
}

void Solve8(const std::array<double, 37>& U, std::array<double, 9>& y) {
  for (int i = 1; i <= 8; ++i) {
    double sum = 0.0;
    for (int k = 1; k <= i - 1; ++k) sum += U[Packed_Index(i, k)] * y[k];
    y[i] = (y[i] - sum) / U[Packed_Index(i, i)];
  }
  for (int i = 8; i >= 1; --i) {
    double sum = 0.0;
    for (int k = i + 1; k <= 8; ++k) sum += U[Packed_Index(k, i)] * y[k];
    y[i] = (y[i] - sum) / U[Packed_Index(i, i)];
  }
}
}  // namespace

void Apply_Links(const std::array<double, 9>& Link, ElemMatrix& Ke) {
  bool rigid = true;
  for (int d = 1; d <= 8; ++d) rigid = rigid && Link[d] >= 1e30;
  if (rigid) {
    // S (K + S)^-1 K with S = 1e30 is K to far below the last digit of a
    // double: only the cut-off of negligible terms remains.
    for (int p = 1; p <= 36; ++p)
      if (std::fabs(Ke[p]) < 0.001) Ke[p] = 0.0;
    return;
  }
  std::array<double, 37> W = Ke;
  for (int d = 1; d <= 8; ++d) W[Packed_Index(d, d)] += Link[d];
  if (!Choleski8(W, 1e-5)) return;
  std::array<double, 9> y;
  for (int j = 8; j >= 1; --j) {
    // full column j of the symmetric Ke; rows j..8 of it are still untouched
    for (int i = 1; i <= 8; ++i) y[i] = Ke[Packed_Index(i, j)];
    Solve8(W, y);
    for (int i = j; i <= 8; ++i) {
      double v = y[i] * Link[i];
      if (std::fabs(v) < 0.001) v = 0.0;
      Ke[Packed_Index(i, j)] = v;
    }
  }
}

void Add_Axial_Kg(double L, double N, double i0sq, double zC, ElemMatrix& Kg) {
  // Integral of the product of the slopes of two cubic Hermite shapes over
  // the element, for (w1, w1', w2, w2'): the classic string matrix.
  const double g[4][4] = {{6 / (5 * L), 0.1, -6 / (5 * L), 0.1},
                          {0.1, 2 * L / 15, -0.1, -L / 30},
                          {-6 / (5 * L), -0.1, 6 / (5 * L), -0.1},
                          {0.1, -L / 30, -0.1, 2 * L / 15}};
  const int v[4] = {v1, p1, v2, p2}, t[4] = {t1, w1, t2, w2};
  // Kg enters as K + mu Kg: a compression takes stiffness away.
  const double cv = -N, ct = -N * i0sq, cx = -N * zC;
  for (int a = 0; a < 4; ++a) {
    for (int b = a; b < 4; ++b) {
      At(Kg, v[a], v[b]) += cv * g[a][b];
      At(Kg, t[a], t[b]) += ct * g[a][b];
    }
    // 2 zC v' theta': each (v, theta) pair once, the packed store is symmetric
    if (cx != 0)
      for (int b = 0; b < 4; ++b) At(Kg, v[a], t[b]) += cx * g[a][b];
  }
}

float Primitive(double xa, double xb, int p, double c0, double c1, double c2, double c3,
                double c4, double c5, double c6) {
  auto P = [&](double x) {
    double xp = 1;
    for (int i = 0; i < p; ++i) xp *= x;
    return xp * (c0 + x * (c1 + x * (c2 + x * (c3 + x * (c4 + x * (c5 + x * c6))))));
  };
  return (float)(P(xb) - P(xa));
}

void Build_Kg(double L, double Betaz, double z0, double M1, double M2, double& V1, double& V2,
              const ElementLoads& ld, ElemMatrix& Kg) {
  const double V1in = V1, V2in = V2;
  V1 = V2 = -(M2 - M1) / L;
  Kg.fill(0.0);
  const double S = M1 + M2, L2 = L * L;
  const double bz = Betaz;
  At(Kg, v1, t1) = 3 * S / (5 * L) + 13 * V2 / 70 + 11 * V1 / 35;
  At(Kg, v1, w1) = M2 / 10 + L * (3 * V2 + 4 * V1) / 70;
  At(Kg, v1, t2) = -3 * S / (5 * L) + 13 * V1 / 70 + 11 * V2 / 35;
  At(Kg, v1, w2) = M1 / 10 - L * (3 * V1 + 4 * V2) / 70;
  At(Kg, t1, t1) = -6 * bz * S / (5 * L) + z0 * (22 * V1 + 13 * V2) / 35;
  At(Kg, t1, p1) = M2 / 10 - L * (23 * V1 - 2 * V2) / 210;
  At(Kg, t1, w1) = -bz * M2 / 5 - 11 * z0 * L * (V1 - V2) / 210;
  At(Kg, t1, v2) = -3 * S / (5 * L) - 11 * V1 / 35 - 13 * V2 / 70;
  At(Kg, t1, t2) = 6 * bz * S / (5 * L) - 9 * z0 * (V1 - V2) / 70;
  At(Kg, t1, p2) = M1 / 10 + L * (31 * V1 + 11 * V2) / 420;
  At(Kg, t1, w2) = -bz * M1 / 5 + 13 * z0 * L * (V1 - V2) / 420;
  At(Kg, p1, w1) = L * (3 * M1 + M2) / 30 - L2 * (V1 - V2) / 210;
  At(Kg, p1, t2) = -M2 / 10 + L * (11 * V1 + 31 * V2) / 420;
  At(Kg, p1, w2) = -L * S / 60 - L2 * (2 * V1 + 5 * V2) / 420;
  At(Kg, w1, w1) = -bz * L * (3 * M1 + M2) / 15 - z0 * L2 * (V1 - V2) / 105;
  At(Kg, w1, v2) = -M2 / 10 - L * (3 * V2 + 4 * V1) / 70;
  At(Kg, w1, t2) = bz * M2 / 5 - 13 * z0 * L * (V1 - V2) / 420;
  At(Kg, w1, p2) = -L * S / 60 + L2 * (2 * V2 + 5 * V1) / 420;
  At(Kg, w1, w2) = bz * L * S / 30 + z0 * L2 * (V1 - V2) / 140;
  At(Kg, v2, t2) = 3 * S / (5 * L) - 13 * V1 / 70 - 11 * V2 / 35;
  At(Kg, v2, w2) = -M1 / 10 + L * (3 * V1 + 4 * V2) / 70;
  At(Kg, t2, t2) = -6 * bz * S / (5 * L) - z0 * (13 * V1 + 22 * V2) / 35;
  At(Kg, t2, p2) = -M1 / 10 + L * (2 * V1 - 23 * V2) / 210;
  At(Kg, t2, w2) = bz * M1 / 5 + 11 * z0 * L * (V1 - V2) / 210;
  At(Kg, p2, w2) = L * (M1 + 3 * M2) / 30 - L2 * (V1 - V2) / 210;
  At(Kg, w2, w2) = -bz * L * (M1 + 3 * M2) / 15 - z0 * L2 * (V1 - V2) / 105;

  // Loads applied away from the shear centre: the work of the load on the
  // vertical shift z(1 - cos theta) of its point, F z theta^2 / 2.
  for (int k = 1; k <= ld.NF; ++k) {
    const double F = ld.F[k], z = ld.zF[k], x = ld.xF[k];
    if (F == 0 || z == 0) continue;
    const double Fz = F * z, a = 1 - x, b = 1 + 2 * x, c = 3 - 2 * x;
    const double a3 = a * a * a, a4 = a3 * a, x3 = x * x * x, x4 = x3 * x;
    At(Kg, t1, t1) += Fz * b * b * a4;
    At(Kg, t1, w1) += Fz * x * L * b * a4;
    At(Kg, t1, t2) += Fz * x * x * b * a * a * c;
    At(Kg, t1, w2) += -Fz * x * x * L * b * a3;
    At(Kg, w1, w1) += Fz * x * x * L2 * a4;
    At(Kg, w1, t2) += Fz * x3 * L * a * a * c;
    At(Kg, w1, w2) += -Fz * x3 * L2 * a3;
    At(Kg, t2, t2) += Fz * x4 * c * c;
    At(Kg, t2, w2) += -Fz * x4 * L * c * a;
    At(Kg, w2, w2) += Fz * x4 * L2 * a * a;
  }
  const double L3 = L2 * L;
  for (int k = 1; k <= ld.NQ; ++k) {
    const double q1 = ld.q1[k], q2 = ld.q2[k], x1 = ld.x1[k], x2 = ld.x2[k], zq = ld.zq[k];
    if (!((q1 != 0 || q2 != 0) && x2 - x1 > 0)) continue;
    // every term below is proportional to the height: a load at the shear
    // centre adds nothing
    if (zq == 0) continue;
    const double a = (q1 * x2 - q2 * x1) / (x2 - x1), b = (q2 - q1) / (x2 - x1);
    auto I = [&](int p, double c0, double c1, double c2, double c3, double c4, double c5,
                 double c6) { return (double)Primitive(x1, x2, p, c0, c1, c2, c3, c4, c5, c6); };
    auto J = [&](int p, double c0, double c1, double c2, double c3, double c4, double c5,
                 double c6) { return (double)Primitive(x2, x1, p, c0, c1, c2, c3, c4, c5, c6); };
    At(Kg, t1, t1) += (zq * L * a / 35) * I(1, 35, 0, -70, 35, 63, -70, 20);
    At(Kg, t1, t1) += (zq * L * b / 70) * I(2, 35, 0, -105, 56, 105, -120, 35);
    // this entry takes its primitive from x2 to x1: opposite in sign to the
    // point-load rule, and kept so
    At(Kg, t1, w1) += (zq * L2 * a / 210) * J(2, 105, -140, -105, 336, -245, 60, 0);
    At(Kg, t1, w1) += (zq * L2 * b / 60) * J(3, 20, -30, -24, 80, -60, 15, 0);
    At(Kg, t1, t2) += -(zq * L * a / 70) * I(3, -70, 35, 126, -140, 40, 0, 0);
    At(Kg, t1, t2) += -(zq * L * b / 140) * I(4, -105, 56, 210, -240, 70, 0, 0);
    At(Kg, t1, w2) += (zq * L2 * a / 420) * I(3, -140, 105, 252, -350, 120, 0, 0);
    At(Kg, t1, w2) += (zq * L2 * b / 140) * I(4, -35, 28, 70, -100, 35, 0, 0);
    At(Kg, w1, w1) += (zq * L3 * a / 105) * I(3, 35, -105, 126, -70, 15, 0, 0);
    At(Kg, w1, w1) += (zq * L3 * b / 280) * I(4, 70, -224, 280, -160, 35, 0, 0);
    At(Kg, w1, t2) += -(zq * L2 * a / 420) * I(4, -315, 672, -490, 120, 0, 0, 0);
    At(Kg, w1, t2) += -(zq * L2 * b / 60) * I(5, -36, 80, -60, 15, 0, 0, 0);
    At(Kg, w1, w2) += (zq * L3 * a / 140) * I(4, -35, 84, -70, 20, 0, 0, 0);
    At(Kg, w1, w2) += (zq * L3 * b / 280) * I(5, -56, 140, -120, 35, 0, 0, 0);
    At(Kg, t2, t2) += (zq * L * a / 35) * I(5, 63, -70, 20, 0, 0, 0, 0);
    At(Kg, t2, t2) += (zq * L * b / 14) * I(6, 21, -24, 7, 0, 0, 0, 0);
    At(Kg, t2, w2) += -(zq * L2 * a / 210) * I(5, 126, -175, 60, 0, 0, 0, 0);
    At(Kg, t2, w2) += -(zq * L2 * b / 28) * I(6, 14, -20, 7, 0, 0, 0, 0);
    At(Kg, w2, w2) += (zq * L3 * a / 105) * I(5, 21, -35, 15, 0, 0, 0, 0);
    At(Kg, w2, w2) += (zq * L3 * b / 168) * I(6, 28, -48, 21, 0, 0, 0, 0);
  }
  V1 = V1in;
  V2 = V2in;
}

}  // namespace zarvek
