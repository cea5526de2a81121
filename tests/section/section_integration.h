// Independent reference for the closed forms: integrates an I section with
// its root fillets in thin vertical strips (midpoint rule in y, exact in z).
// y is horizontal from the web's axis, z upward from the bottom face.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

#include "section/Mod_Section.h"

namespace section_test {

struct Moments {
  double A = 0, zG = 0, Iy = 0, Iz = 0;
  double S = 0;  // integral of z (y^2 + z^2) dA, z from G
};

inline Moments Integrate(const zarvek::SectionDims& d, int perPiece = 20000) {
  double A = 0, M1 = 0, M2 = 0, M3 = 0, Y2 = 0, Y2Z = 0;
  auto add = [&](double y, double w, double a, double b) {
    A += w * (b - a);
    M1 += w * (b * b - a * a) / 2;
    M2 += w * (b * b * b - a * a * a) / 3;
    M3 += w * (b * b * b * b - a * a * a * a) / 4;
    Y2 += w * y * y * (b - a);
    Y2Z += w * y * y * (b * b - a * a) / 2;
  };
  // depth of a fillet of radius r at the distance s from the web face
  auto fillet = [](double r, double s) { return r - std::sqrt(r * r - (r - s) * (r - s)); };
  // Pieces end at every edge so that no strip straddles one.
  std::vector<double> cuts = {0, d.tw / 2, d.tw / 2 + d.r1, d.tw / 2 + d.r2, d.bf1 / 2, d.bf2 / 2};
  std::sort(cuts.begin(), cuts.end());
  const double top = d.h - d.tf1;
  for (size_t k = 0; k + 1 < cuts.size(); ++k) {
    const double dy = (cuts[k + 1] - cuts[k]) / perPiece;
    for (int i = 0; dy > 0 && i < perPiece; ++i) {
      const double y = cuts[k] + (i + 0.5) * dy, w = 2 * dy;  // both halves
      const double s = y - d.tw / 2;
      if (y < d.bf1 / 2 && d.tf1 > 0) add(y, w, top, d.h);
      if (y < d.bf2 / 2 && d.tf2 > 0) add(y, w, 0, d.tf2);
      if (s < 0) add(y, w, d.tf2, top);
      if (s > 0 && s < d.r1 && d.tf1 > 0) add(y, w, top - fillet(d.r1, s), top);
      if (s > 0 && s < d.r2 && d.tf2 > 0) add(y, w, d.tf2, d.tf2 + fillet(d.r2, s));
    }
  }
  Moments m;
  m.A = A;
  const double g = m.zG = M1 / A;
  m.Iy = M2 - A * g * g;
  m.Iz = Y2;
  m.S = Y2Z - g * Y2 + (M3 - 3 * g * M2 + 3 * g * g * M1 - g * g * g * A);
  return m;
}

}  // namespace section_test
