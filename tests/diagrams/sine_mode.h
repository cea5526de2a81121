// The first lateral-torsional mode of a fork-supported span as the solver
// stores it: per node (1-based) v, theta, v', theta', with
// v = vmax sin(pi x/L), theta = tmax sin(pi x/L) and slopes per cm.
#pragma once

#include <cmath>
#include <vector>

inline std::vector<float> Sine_Mode(int NB, double L, double vmax, double tmax) {
  const double pi = 3.14159265358979;
  std::vector<float> m(4 * (NB + 1) + 1, 0.0f);
  for (int i = 1; i <= NB + 1; ++i) {
    const double sn = std::sin(pi * (i - 1) / NB), cs = std::cos(pi * (i - 1) / NB);
    m[1 + 4 * (i - 1)] = static_cast<float>(vmax * sn);
    m[2 + 4 * (i - 1)] = static_cast<float>(tmax * sn);
    m[3 + 4 * (i - 1)] = static_cast<float>(vmax * pi / L * cs);
    m[4 + 4 * (i - 1)] = static_cast<float>(tmax * pi / L * cs);
  }
  return m;
}
