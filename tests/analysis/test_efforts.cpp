// Internal forces against textbook statics. Beside the handbook values, every load on every support scheme
// must satisfy what its supports demand (v'' is proportional to M):
//   pinned end M = 0; free end M = 0 and V = 0;
//   clamped-pinned: integral of (L - x) M = 0 (no deflection at the pin);
//   clamped-clamped: integrals of M and of x M are 0;
// and V = -dM/dx inside every element.
#include <gtest/gtest.h>

#include <algorithm>
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
  // the loads of the support scheme `c`, added to the diagram
  void Force(int c, double F, double x) { Add_Force(c, L, NB, X, F, x, M, V); }
  void Span(int c, double a, double xa, double b, double xb) { Add_DistLoad(c, L, NB, X, a, xa, b, xb, M, V); }
  void Ends(int c, double M1, double M2) { Add_EndMoments(c, L, NB, X, M1, M2, M, V); }
  // the sample just left of the node at the fraction t (just right of the left end)
  int Near(double t) const { return std::clamp(2 * (int)std::lround(t * NB), 1, 2 * NB); }
  static double Largest(const std::vector<float>& a) {
    auto by_size = [](float p, float q) { return std::fabs(p) < std::fabs(q); };
    return std::fabs(*std::max_element(a.begin(), a.end(), by_size));
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

// The secant slope of M over an element is the mean of V over it; the mean of the two end
// values differs from that by V'' h^2/12 under a varying span load: the tolerance covers it.
void Expect_ShearIsSlope(const Diagram& d) {
  const double tol = 1e-4 * d.Largest(d.V) + 1e-6 * d.Largest(d.M) * d.NB / d.L + 1e-9;
  for (int i = 1; i <= d.NB; ++i) {
    const double dx = (d.X[2 * i] - d.X[2 * i - 1]) * d.L;
    EXPECT_NEAR(-(d.M[2 * i] - d.M[2 * i - 1]) / dx, 0.5 * (d.V[2 * i - 1] + d.V[2 * i]), tol) << i;
  }
}

void Expect_SupportConditions(int Case, const Diagram& d) {
  const double s = 1e-4 * std::max(d.Largest(d.M), 1e-9), L = d.L;
  auto zero = [](double value, double tol) { EXPECT_NEAR(value, 0.0, tol); };
  if (Case != Case_EE) zero(d.M[2 * d.NB], s);
  if (Case == Case_AA) zero(d.M[1], s);
  if (Case == Case_EL) zero(d.V[2 * d.NB], s / L);
  if (Case == Case_EA) zero(d.Integral([L](double x) { return L - x; }) / (L * L), s);
  for (int n = 0; Case == Case_EE && n < 2; ++n)  // integrals of M and of x M
    zero(d.Integral([n](double x) { return n ? x : 1.0; }) / std::pow(L, n + 1), s);
}

TEST(Efforts, MidSpanForceOnPinnedBeamAndLoadsOutsideIt) {
  const double F = 1000, L = 1000;
  Diagram d(100, L), a(100, L), b(100, L), none(100, L);
  d.Force(Case_AA, F, 0.5);
  float Mmax = 0;
  const int j = Find_Mmax(d.NB, d.M, Mmax);
  EXPECT_NEAR(Mmax, -F * L / 4, 1e-5 * F * L);
  EXPECT_NEAR(d.X[j], 0.5, 1.5e-6);  // the sample just beside the middle
  EXPECT_NEAR(d.V[1], F / 2, 1e-5 * F); EXPECT_NEAR(d.V[101], -F / 2, 1e-5 * F);
  // a force between nodes acts on the nearest node: 0.304 -> 0.30
  a.Force(Case_AA, F, 0.30), b.Force(Case_AA, F, 0.304);
  EXPECT_EQ(a.M, b.M); EXPECT_NEAR(a.V[60] - a.V[61], F, 1e-3);
  // nothing outside the beam, without load, or on the clamps
  none.Force(Case_AA, 100, 1.2), none.Force(Case_EE, 100, -0.1), none.Force(Case_EL, 0, 0.5);
  none.Span(Case_AA, 0, 0, 0, 1), none.Span(Case_AA, 5, 0.6, 5, 0.4), none.Ends(Case_EE, 30, 80);
  EXPECT_EQ(none.Largest(none.M) + none.Largest(none.V), 0.0);
  EXPECT_EQ(Find_Mmax(none.NB, none.M, Mmax), 0); EXPECT_EQ(Mmax, 0.0f);
}

TEST(Efforts, HandbookValues) {
  // M and V at the fraction t, in F L and F under a point load F at xF, or in q L^2 and q L
  // under a span load from qa q to qb q over the length.
  struct Row { int Case; double xF, qa, qb, t, M, V; };
  const Row rows[] = {
      {Case_EL, 1.0, 0, 0, 0.0, 1.0, 1.0},  // cantilever, tip load: M(0) = F L, V = F
      // propped cantilever, mid-span load
      {Case_EA, 0.5, 0, 0, 0.0, 3.0 / 16, 11.0 / 16}, {Case_EA, 0.5, 0, 0, 0.5, -5.0 / 32, 11.0 / 16},
      {Case_AA, 0, 1, 1, 0.5, -1.0 / 8, 0},  // uniform load, pinned
      // clamped both ends
      {Case_EE, 0, 1, 1, 0, 1. / 12, 0.5}, {Case_EE, 0, 1, 1, 0.5, -1. / 24, 0}, {Case_EE, 0, 1, 1, 1, 1. / 12, -0.5},
      // propped cantilever, largest at 5L/8
      {Case_EA, 0, 1, 1, 0.0, 1.0 / 8, 5.0 / 8}, {Case_EA, 0, 1, 1, 0.625, -9.0 / 128, 0},
      // triangular 0..q, pinned
      {Case_AA, 0, 0, 1, 0, 0, 1. / 6}, {Case_AA, 0, 0, 1, 0.5, -1. / 16, 1. / 24}, {Case_AA, 0, 0, 1, 1, 0, -1. / 3}};
  const double F = 250, q = 2, L = 600;
  for (const Row& r : rows) {
    Diagram d(200, L);
    if (r.xF > 0) d.Force(r.Case, F, r.xF);
    else d.Span(r.Case, r.qa * q, 0, r.qb * q, 1);
    const double P = r.xF > 0 ? F : q * L;
    const int j = d.Near(r.t);
    SCOPED_TRACE(testing::Message() << "case " << r.Case << " at " << r.t);
    EXPECT_NEAR(d.M[j], r.M * P * L, 1e-5 * P * L); EXPECT_NEAR(d.V[j], r.V * P, 1e-5 * P);
  }
}

TEST(Efforts, EndMomentsAndCouples) {
  const double L = 1000;
  Diagram d(100, L), ea(100, L), c(100, L);
  d.Ends(Case_AA, -100, 50);  // linear from 100 to 50
  ea.Ends(Case_EA, 30, 80);     // M2 at the pin, M2/2 at the clamp
  EXPECT_NEAR(d.M[1], 100, 1e-3); EXPECT_NEAR(d.M[200], 50, 1e-3);
  EXPECT_NEAR(ea.M[1], -40, 1e-3); EXPECT_NEAR(ea.M[200], 80, 1e-3);
  for (const Diagram* x : {&d, &ea}) Expect_ShearIsSlope(*x);
  Add_Couple(Case_AA, L, c.NB, c.X, 1000, 0.5, c.M, c.V);  // M jumps by -C at mid-span
  EXPECT_NEAR(c.M[100], 500, 1e-2); EXPECT_NEAR(c.M[101], -500, 1e-2);
}

TEST(Efforts, EveryLoadSatisfiesItsSupportsAndEquilibrium) {
  const double L = 750;
  for (int Case = 1; Case <= 4; ++Case) {
    SCOPED_TRACE(Case);
    Diagram f(150, L), q(150, L), t(150, L), c(150, L);
    f.Force(Case, 120, 0.37), q.Span(Case, 2.0, 0.2, -0.5, 0.7), t.Span(Case, 0.5, 0.1, 4.0, 0.9);
    Add_Couple(Case, L, c.NB, c.X, 5000, 0.4, c.M, c.V);  // on node 61
    for (const Diagram* d : {&f, &q, &t, &c}) Expect_ShearIsSlope(*d), Expect_SupportConditions(Case, *d);
    // the end shears carry the whole span load t (none at a free end)
    EXPECT_NEAR(t.V[1] - t.V[300], 0.5 * 4.5 * 0.8 * L, 1e-3);
  }
}

}  // namespace
}  // namespace zarvek
