// Problems built in memory for the solver tests, written to a scratch folder.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <tuple>

#include "../foundation/scratch_dir.h"
#include "foundation/Language.h"
#include "solver/Example.h"
#include "solver/Mod_StabMat.h"

namespace zarvek::test {

// IPE 300 and the steel of the examples, kN and cm.
constexpr double E = 21000, G = 8076.9, Iz = 603.78, It = 19.868, Iw = 126332;

// Elastic critical moment of a fork-supported span under uniform moment.
inline double Mcr_Uniform(double L) {
  return M_PI / L * std::sqrt(E * Iz * G * It) * std::sqrt(1 + M_PI * M_PI * E * Iw / (L * L * G * It));
}

// A fork-supported member 10 m long under constant axial force, daN and cm: the IPE 300 unless changed.
struct AxialSection {
  static constexpr double L = 1000, Ef = 2.1e6, Gf = 807690, Pi2 = M_PI * M_PI;
  double Iz = 603.78, It = 19.868, Iw = 126332, A = 53.81, Iy = 8356, zC = 0, Betaz = 0;
  double i0sq() const { return (Iy + Iz) / A + zC * zC; }
  double Ncr_z() const { return Pi2 * Ef * Iz / (L * L); }
  double Ncr_T() const { return (Gf * It + Pi2 * Ef * Iw / (L * L)) / i0sq(); }
};

// Smallest positive factor mu of the two-wave energy with v = a sin(pi x/L),
// theta = b sin(pi x/L): the 2 x 2 determinant
//   (Ncr,z - mu N) (i0^2 (Ncr,T - mu N) - 2 mu M Betaz) - mu^2 (M - N zC)^2 = 0,
// the Wagner term of the moment written with the half coefficient Betaz the
// beam element uses. With M = 0 it is the flexural-torsional equation of a
// column; with Betaz = zC = 0 it is (mu M)^2 = i0^2 (Ncr,z - mu N)(Ncr,T - mu N).
inline double Closed_Form_Factor(const AxialSection& s, double M, double N) {
  const double Nz = s.Ncr_z(), q = s.i0sq() * s.Ncr_T(), p = s.i0sq() * N + 2 * M * s.Betaz;
  const double c2 = N * p - (M - N * s.zC) * (M - N * s.zC), c1 = -(Nz * p + N * q), c0 = Nz * q;
  if (std::fabs(c2) < 1e-12 * std::fabs(c1) * 1e6) return -c0 / c1;
  const double d = std::sqrt(c1 * c1 - 4 * c2 * c0);
  double r1 = (-c1 - d) / (2 * c2), r2 = (-c1 + d) / (2 * c2);
  if (r1 > r2) std::swap(r1, r2);
  return r1 > 0 ? r1 : r2;
}

// one folder for the whole program, removed at its end
inline const auto& Scratch_Folder() { static const foundation_test::Scratch dir; return dir; }
inline std::string Scratch_Dir() { return Scratch_Folder().path; }

inline std::string Write(const ProblemData& p, const std::string& name = "P.ZVK") {
  Write_ProblemFile(Scratch_Folder() / name, p, ProblemLabels::Proceed);
  return Scratch_Folder() / name;
}
inline std::string Write_Text(const std::string& text, const std::string& name) {
  return Scratch_Folder().Write(name, text);
}

// Reads a problem file with a method number that stops after assembly; mucr stays 42 when reading fails.
const char* const Unreadable = "The problem file can't be read.";
inline SolverResult Read_File(const std::string& path) {
  Set_Msg(57, Unreadable);
  SolverResult r;
  r.mucr = 42;
  SolveControl ctl;
  Solve_Problem(path, 0, r, ctl);
  return r;
}

// A refusal: its status and text, and mucr left as passed.
inline void Expect_Refused(const SolverResult& r, int status, const std::string& text, const std::string& what) {
  EXPECT_EQ(std::tuple(r.Solve_Status, r.Error_Text, r.mucr), std::tuple(status, text, 42.0)) << what;
}

struct Solved {
  SolverResult res;
  double Mcr_kNcm() const { return res.mucr * std::fabs(res.Mmax) / 100.0; }
};

// A solve that must succeed, of a problem file or of a problem.
inline Solved Solve_File(const std::string& path, int method, double tol = 1e-6, int nbiter = 100,
                         bool reference = false) {
  Solved s;
  SolveControl ctl;
  ctl.Tol = tol, ctl.NbIter = nbiter, ctl.Reference = reference;
  Solve_Problem(path, method, s.res, ctl);
  EXPECT_EQ(s.res.Solve_Status, 0) << s.res.Error_Text;
  return s;
}
inline Solved Solve(const ProblemData& p, int method, double tol = 1e-6, int nbiter = 100,
                    bool reference = false) {
  return Solve_File(Write(p), method, tol, nbiter, reference);
}

// Element end moments from a moment function of x (cm), in daN.cm.
inline void Set_Moments(ProblemData& p, const std::function<double(double)>& M) {
  double x = 0;
  for (int e = 1; e <= p.NB; ++e) p.M1[e] = (float)M(x), x += p.L[e], p.M2[e] = (float)M(x);
}

// One point load F (daN, downward) at x (cm), z above the shear centre.
inline void Set_Point_Load(ProblemData& p, double F, double x, double z) {
  for (auto* v : {&p.F, &p.xF, &p.zF}) v->assign(2, 0.0);
  p.NF = 1, p.F[1] = -F, p.xF[1] = x, p.zF[1] = z;
}

// Cantilever of length Lc, root fully held (v, theta, v', theta'), tip free, a tip load F at height z:
// M(x) = -F (Lc - x), hogging. Without warping stiffness there is no warping to hold: theta' stays free.
inline ProblemData Cantilever(int nb, double Lc, double F, double Iw_, double z = 0) {
  ProblemData p = Fork_Beam_Uniform_Moment(nb, Lc, 0.0);
  for (int e = 1; e <= nb; ++e) p.Iw[e] = Iw_;
  p.Rv[nb + 1] = p.Rt[nb + 1] = 0;
  p.Rv[1] = p.Rt[1] = p.Rvp[1] = -1, p.Rtp[1] = Iw_ > 0 ? -1 : 0;
  Set_Moments(p, [&](double x) { return -F * (Lc - x); });
  Set_Point_Load(p, F, Lc, z);
  return p;
}

}  // namespace zarvek::test
