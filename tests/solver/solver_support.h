// Problems built in memory for the solver tests, written to a scratch folder.
#pragma once

#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <unistd.h>

#include "solver/Example.h"
#include "solver/Mod_StabMat.h"

namespace zarvek::test {

// IPE 300 and the steel of the examples, kN and cm.
constexpr double E = 21000, G = 8076.9, Iz = 603.78, It = 19.868, Iw = 126332;

// Elastic critical moment of a fork-supported span under uniform moment.
inline double Mcr_Uniform(double L) {
  return M_PI / L * std::sqrt(E * Iz * G * It) * std::sqrt(1 + M_PI * M_PI * E * Iw / (L * L * G * It));
}

inline std::string Scratch_Dir() {
  static std::string dir;
  if (dir.empty()) {
    char tmpl[] = "/tmp/zarvek-test-XXXXXX";
    dir = mkdtemp(tmpl) ? tmpl : "/tmp";
  }
  return dir;
}

inline std::string Write(const ProblemData& p, const std::string& name = "P.ZVK") {
  std::string path = Scratch_Dir() + "/" + name;
  Write_ProblemFile(path, p, ProblemLabels::Proceed);
  return path;
}

inline std::string Write_Text(const std::string& text, const std::string& name) {
  std::string path = Scratch_Dir() + "/" + name;
  FILE* f = std::fopen(path.c_str(), "wb");
  std::fwrite(text.data(), 1, text.size(), f);
  std::fclose(f);
  return path;
}

struct Solved {
  SolverResult res;
  double Mcr_kNcm() const { return res.mucr * std::fabs(res.Mmax) / 100.0; }
};

inline Solved Solve(const ProblemData& p, int method, double tol = 1e-6, int nbiter = 100,
                    bool reference = false) {
  Solved s;
  SolveControl ctl;
  ctl.Tol = tol;
  ctl.NbIter = nbiter;
  ctl.Reference = reference;
  Solve_Problem(Write(p), method, s.res, ctl);
  return s;
}

// Element end moments from a moment function of x (cm), in daN.cm.
inline void Set_Moments(ProblemData& p, const std::function<double(double)>& M) {
  double x = 0;
  for (int e = 1; e <= p.NB; ++e) {
    p.M1[e] = (float)M(x);
    x += p.L[e];
    p.M2[e] = (float)M(x);
  }
}

}  // namespace zarvek::test
