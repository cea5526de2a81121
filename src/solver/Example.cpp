#include "solver/Example.h"

namespace zarvek {

namespace {
ProblemData Fork_IPE300(int nb, double length) {
  ProblemData p;
  p.Resize(nb, 0, 0);
  p.E = 2.1e6;     // daN/cm2
  p.G = 807690.0;  // daN/cm2
  for (int e = 1; e <= nb; ++e) {
    p.L[e] = (float)(length / nb);
    p.Iz[e] = 603.78f;
    p.It[e] = 19.868f;
    p.Iw[e] = 126332.0f;
    p.Betaz[e] = 0;
    p.Kt[e] = p.Kvp[e] = p.Ktp[e] = -1;
  }
  // fork supports: lateral displacement and twist held at both ends
  for (int n : {1, nb + 1}) {
    p.Rv[n] = 1e30;
    p.Rt[n] = 1e30;
  }
  return p;
}
}  // namespace

ProblemData Fork_Beam_Uniform_Moment(int nb, double length, double M) {
  ProblemData p = Fork_IPE300(nb, length);
  for (int e = 1; e <= nb; ++e) p.M1[e] = p.M2[e] = (float)M;
  return p;
}

ProblemData Fork_Beam_Uniform_Load(int nb, double length, double q, double zq) {
  ProblemData p = Fork_IPE300(nb, length);
  const double Le = length / nb;
  // simply supported span: M(x) = q x (L - x) / 2, sagging positive
  for (int e = 1; e <= nb; ++e) {
    const double xa = (e - 1) * Le, xb = e * Le;
    p.M1[e] = (float)(q * xa * (length - xa) / 2);
    p.M2[e] = (float)(q * xb * (length - xb) / 2);
  }
  p.NQ = 1;
  for (auto* v : {&p.q1, &p.x1, &p.q2, &p.x2, &p.zq}) v->assign(2, 0.0f);
  p.q1[1] = p.q2[1] = (float)(-q);
  p.x1[1] = 0;
  p.x2[1] = (float)length;
  p.zq[1] = (float)zq;
  return p;
}

}  // namespace zarvek
