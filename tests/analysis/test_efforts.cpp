// Internal forces against textbook statics. Beside the handbook values, every
// load on every support scheme must satisfy what its supports demand
// (v'' is proportional to M):
//   pinned end M = 0; free end M = 0 and V = 0;
//   clamped-pinned: integral of (L - x) M = 0 (no deflection at the pin);
//   clamped-clamped: integrals of M and of x M are 0;
// and V = -dM/dx inside every element.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

#include "analysis/Mod_Efforts.h"

namespace zarvek {
namespace {

struct Diagram {
  int NB;
  double L;
  std::vector<float> X, M, V;
  Diagram(int nb, double l) : NB(nb), L(l), M(2 * nb + 1, 0.0f), V(2 * nb + 1, 0.0f) { Init_EffortsX(NB, X); }
  int Near(double t) const {  // sample nearest to the fraction t
    int best = 1;
    for (int j = 1; j <= 2 * NB; ++j)
      if (std::fabs(X[j] - t) < std::fabs(X[best] - t)) best = j;
    return best;
  }
  double Largest(const std::vector<float>& a) const {
    double m = 0;
    for (int j = 1; j <= 2 * NB; ++j) m = std::max(m, (double)std::fabs(a[j]));
    return m;
  }
  // integral of w(x) M(x), trapezoids between samples
  double Integral(const std::function<double(double)>& w) const {
    double s = 0;
    for (int j = 1; j < 2 * NB; ++j) {
      const double xa = X[j] * L, xb = X[j + 1] * L;
      s += 0.5 * (w(xa) * M[j] + w(xb) * M[j + 1]) * (xb - xa);
    }
    return s;
  }
};

// The secant slope of M over an element is the mean of V over it; the mean
// of the two end values differs from that by V'' h^2/12 under a varying span
// load, which the relative tolerance covers.
void Expect_ShearIsSlope(const Diagram& d) {
  const double tol = 1e-4 * d.Largest(d.V) + 1e-6 * d.Largest(d.M) * d.NB / d.L + 1e-9;
  for (int i = 1; i <= d.NB; ++i) {
    const double dx = (d.X[2 * i] - d.X[2 * i - 1]) * d.L;
    EXPECT_NEAR(-(d.M[2 * i] - d.M[2 * i - 1]) / dx, 0.5 * (d.V[2 * i - 1] + d.V[2 * i]), tol) << i;
  }
}

void Expect_SupportConditions(int Case, const Diagram& d) {
  const double s = 1e-4 * std::max(d.Largest(d.M), 1e-9), L = d.L;
  const int last = 2 * d.NB;
  if (Case != Case_EE) {
    EXPECT_NEAR(d.M[last], 0.0, s);
  }
  if (Case == Case_AA) {
    EXPECT_NEAR(d.M[1], 0.0, s);
  }
  if (Case == Case_EL) {
    EXPECT_NEAR(d.V[last], 0.0, s / L);
  }
  if (Case == Case_EA) {
    EXPECT_NEAR(d.Integral([L](double x) { return L - x; }) / (L * L), 0.0, s);
  }
  if (Case == Case_EE) {
    EXPECT_NEAR(d.Integral([](double) { return 1.0; }) / L, 0.0, s);
    EXPECT_NEAR(d.Integral([](double x) { return x; }) / (L * L), 0.0, s);
  }
}

TEST(Efforts, MidSpanForceOnPinnedBeam) {
  const double F = 1000, L = 1000;
  Diagram d(100, L);
  Add_Force(Case_AA, L, d.NB, d.X, F, 0.5, d.M, d.V);
  float Mmax = 0;
  const int j = Find_Mmax(d.NB, d.M, Mmax);
  EXPECT_NEAR(Mmax, -F * L / 4, 1e-5 * F * L);
  EXPECT_NEAR(d.X[j], 0.5, 1.5e-6);  // the sample just beside the middle
  EXPECT_NEAR(d.V[1], F / 2, 1e-5 * F);
  EXPECT_NEAR(d.V[101], -F / 2, 1e-5 * F);
  // a force between nodes acts on the nearest node: 0.304 -> 0.30
  Diagram a(100, L), b(100, L);
  Add_Force(Case_AA, L, a.NB, a.X, F, 0.30, a.M, a.V);
  Add_Force(Case_AA, L, b.NB, b.X, F, 0.304, b.M, b.V);
  EXPECT_EQ(a.M, b.M);
  EXPECT_NEAR(a.V[60] - a.V[61], F, 1e-3);
}

TEST(Efforts, NothingOutsideTheBeamOrWithoutLoad) {
  Diagram d(100, 1000);
  Add_Force(Case_AA, d.L, d.NB, d.X, 100, 1.2, d.M, d.V);
  Add_Force(Case_EE, d.L, d.NB, d.X, 100, -0.1, d.M, d.V);
  Add_Force(Case_EL, d.L, d.NB, d.X, 0, 0.5, d.M, d.V);
  Add_DistLoad(Case_AA, d.L, d.NB, d.X, 0, 0, 0, 1, d.M, d.V);
  Add_DistLoad(Case_AA, d.L, d.NB, d.X, 5, 0.6, 5, 0.4, d.M, d.V);
  Add_EndMoments(Case_EE, d.L, d.NB, d.X, 30, 80, d.M, d.V);  // taken by the clamps
  EXPECT_EQ(d.Largest(d.M) + d.Largest(d.V), 0.0);
  float Mmax = 1;
  EXPECT_EQ(Find_Mmax(d.NB, d.M, Mmax), 0);
  EXPECT_EQ(Mmax, 0.0f);
}

TEST(Efforts, HandbookValues) {
  const double F = 250, q = 2, L = 600, FL = F * L, qL2 = q * L * L;
  {  // cantilever with a tip load: M(0) = F L > 0, V = F all along
    Diagram d(100, L);
    Add_Force(Case_EL, L, d.NB, d.X, F, 1.0, d.M, d.V);
    EXPECT_NEAR(d.M[1], FL, 1e-5 * FL);
    for (int j = 1; j <= 200; ++j) EXPECT_NEAR(d.V[j], F, 1e-4);
  }
  {  // propped cantilever, mid-span load: 3FL/16 at the clamp, -5FL/32 under it
    Diagram d(100, L);
    Add_Force(Case_EA, L, d.NB, d.X, F, 0.5, d.M, d.V);
    EXPECT_NEAR(d.M[1], 3 * FL / 16, 1e-5 * FL);
    EXPECT_NEAR(d.M[100], -5 * FL / 32, 1e-5 * FL);
    EXPECT_NEAR(d.V[1], 11 * F / 16, 1e-4);
  }
  {  // uniform load, pinned: -qL^2/8 and qL/2
    Diagram d(100, L);
    Add_DistLoad(Case_AA, L, d.NB, d.X, q, 0, q, 1, d.M, d.V);
    EXPECT_NEAR(d.M[d.Near(0.5)], -qL2 / 8, 1e-5 * qL2);
    EXPECT_NEAR(d.V[1], q * L / 2, 1e-5 * q * L);
  }
  {  // clamped both ends: qL^2/12 at the ends, -qL^2/24 at mid-span
    Diagram d(100, L);
    Add_DistLoad(Case_EE, L, d.NB, d.X, q, 0, q, 1, d.M, d.V);
    EXPECT_NEAR(d.M[1], qL2 / 12, 1e-5 * qL2);
    EXPECT_NEAR(d.M[200], qL2 / 12, 1e-5 * qL2);
    EXPECT_NEAR(d.M[d.Near(0.5)], -qL2 / 24, 1e-5 * qL2);
  }
  {  // propped cantilever: qL^2/8 at the clamp, -9qL^2/128 at 5L/8, 5qL/8
    Diagram d(200, L);
    Add_DistLoad(Case_EA, L, d.NB, d.X, q, 0, q, 1, d.M, d.V);
    EXPECT_NEAR(d.M[1], qL2 / 8, 1e-5 * qL2);
    EXPECT_NEAR(d.M[d.Near(0.625)], -9 * qL2 / 128, 1e-5 * qL2);
    EXPECT_NEAR(d.V[1], 5 * q * L / 8, 1e-5 * q * L);
  }
  {  // triangular 0..q, pinned: qL/6 and -qL/3, -qL^2/(9 sqrt 3) at L/sqrt 3
    Diagram d(300, L);
    Add_DistLoad(Case_AA, L, d.NB, d.X, 0, 0, q, 1, d.M, d.V);
    EXPECT_NEAR(d.V[1], q * L / 6, 1e-5 * q * L);
    EXPECT_NEAR(d.V[600], -q * L / 3, 1e-5 * q * L);
    float Mmax = 0;
    const int j = Find_Mmax(d.NB, d.M, Mmax);
    EXPECT_NEAR(Mmax, -qL2 / (9 * std::sqrt(3.0)), 1e-5 * qL2);
    EXPECT_NEAR(d.X[j], 1 / std::sqrt(3.0), 2.0 / 300);
  }
}

TEST(Efforts, EndMomentsAndCouples) {
  const double L = 1000;
  Diagram d(100, L);  // M1 = -100, M2 = 50: linear from 100 to 50, psi 0.5
  Add_EndMoments(Case_AA, L, d.NB, d.X, -100, 50, d.M, d.V);
  EXPECT_NEAR(d.M[1], 100, 1e-3);
  EXPECT_NEAR(d.M[200], 50, 1e-3);
  EXPECT_NEAR(d.M[200] / d.M[1], 0.5, 1e-5);
  Expect_ShearIsSlope(d);
  Diagram u(100, L);  // the default pair -100, 100: uniform, no shear
  Add_EndMoments(Case_AA, L, u.NB, u.X, -100, 100, u.M, u.V);
  EXPECT_NEAR(u.M[d.Near(0.37)], 100, 1e-4);
  EXPECT_EQ(u.Largest(u.V), 0.0);
  Diagram ea(100, L);  // M2 at the pin, half of it back at the clamp
  Add_EndMoments(Case_EA, L, ea.NB, ea.X, 30, 80, ea.M, ea.V);
  EXPECT_NEAR(ea.M[1], -40, 1e-3);
  EXPECT_NEAR(ea.Integral([L](double x) { return L - x; }) / (L * L), 0.0, 1e-2);
  Expect_ShearIsSlope(ea);

  const double C = 1000;
  Diagram c(100, L);  // couple at mid-span of a pinned beam: M jumps by -C
  Add_Couple(Case_AA, L, c.NB, c.X, C, 0.5, c.M, c.V);
  EXPECT_NEAR(c.M[100], C / 2, 1e-2);
  EXPECT_NEAR(c.M[101], -C / 2, 1e-2);
  EXPECT_NEAR(c.V[7], -C / L, 1e-6);
}

TEST(Efforts, EveryLoadSatisfiesItsSupportsAndEquilibrium) {
  const double L = 750;
  for (int Case = 1; Case <= 4; ++Case) {
    SCOPED_TRACE(Case);
    Diagram f(150, L), q(150, L), t(150, L), c(150, L);
    Add_Force(Case, L, f.NB, f.X, 120, 0.37, f.M, f.V);
    Add_DistLoad(Case, L, q.NB, q.X, 2.0, 0.2, -0.5, 0.7, q.M, q.V);
    Add_DistLoad(Case, L, t.NB, t.X, 0.5, 0.1, 4.0, 0.9, t.M, t.V);
    Add_Couple(Case, L, c.NB, c.X, 5000, 0.4, c.M, c.V);  // on node 61
    for (const Diagram* d : {&f, &q, &t, &c}) {
      Expect_ShearIsSlope(*d);
      Expect_SupportConditions(Case, *d);
    }
    // the end shears carry the whole span load t (none at a free end)
    EXPECT_NEAR(t.V[1] - t.V[300], 0.5 * 4.5 * 0.8 * L, 1e-3);
  }
}

}  // namespace
}  // namespace zarvek
