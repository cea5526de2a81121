#include "analysis/Mod_Efforts.h"

#include <cmath>

namespace zarvek {

void Init_EffortsX(int NB, std::vector<float>& X) {
  X.assign(2 * NB + 1, 0.0f);
  for (int i = 1; i <= NB; ++i) {
    X[2 * i - 1] = (float)((double)(i - 1) / NB + Efforts_Offset);
    X[2 * i] = (float)((double)i / NB - Efforts_Offset);
  }
}

namespace {

// A load that splits the beam in two parts at abscissa a: on the left part
// the beam is held by the left support (reaction R0, moment M0), on the right
// part by the right one (RL, ML).
//   x <= a : V -= R0, M += x R0 - M0
//   x >  a : V += RL, M += (L - x) RL + ML
void Add_TwoParts(double L, int NB, const std::vector<float>& X, double a, double R0, double M0,
                  double RL, double ML, std::vector<float>& M, std::vector<float>& V) {
  for (int j = 1; j <= 2 * NB; ++j) {
    const double x = X[j] * L;
    if (x <= a) {
      V[j] = (float)(V[j] - R0);
      M[j] = (float)(M[j] + x * R0 - M0);
    } else {
      V[j] = (float)(V[j] + RL);
      M[j] = (float)(M[j] + (L - x) * RL + ML);
    }
  }
}

}  // namespace

void Add_EndMoments(int Case, double L, int NB, const std::vector<float>& X, double M1, double M2,
                    std::vector<float>& M, std::vector<float>& V) {
  for (int j = 1; j <= 2 * NB; ++j) {
    const double x = X[j] * L;
    switch (Case) {
      case Case_AA:
        // linear from -M1 at the left end to M2 at the right end
        V[j] = (float)(V[j] - (M1 + M2) / L);
        M[j] = (float)(M[j] + M2 - (M1 + M2) * (L - x) / L);
        break;
      case Case_EA:
        // only the moment at the pinned end acts; the clamped end carries half
        // of it back
        V[j] = (float)(V[j] - 3.0 * M2 / (2.0 * L));
        M[j] = (float)(M[j] + M2 * (3.0 * x / L - 1.0) / 2.0);
        break;
      case Case_EL:
        // the moment at the free end runs unchanged to the clamp
        M[j] = (float)(M[j] + M2);
        break;
      default:
        // a beam clamped at both ends takes the end moments into its supports
        break;
    }
  }
}

void Add_Force(int Case, double L, int NB, const std::vector<float>& X, double F, double xrel,
               std::vector<float>& M, std::vector<float>& V) {
  if (xrel < 0.0 || xrel > 1.0 || F == 0.0) return;
  // Move the force onto the nearest node: the samples stand 1e-6 inside the
  // element ends, so the node is 1e-6 to the left of an odd sample and 1e-6
  // to the right of an even one.
  double best = L;
  int jn = 0;
  for (int j = 1; j <= 2 * NB; ++j) {
    const double d = std::fabs(xrel - X[j]);
    if (d < best) {
      best = d;
      jn = j;
    }
  }
  if (jn == 0) return;
  const double pos = (jn % 2 == 1) ? X[jn] - Efforts_Offset : X[jn] + Efforts_Offset;
  const double a = pos * L;
  const double b = L - a;

  double R0 = 0, M0 = 0, RL = 0, ML = 0;
  switch (Case) {
    case Case_AA:
      R0 = F * (a / L - 1.0);
      RL = -F * a / L;
      break;
    case Case_EA:
      R0 = -F * b * (3.0 * L * L - b * b) / (2.0 * L * L * L);
      M0 = -F * b * (L * L - b * b) / (2.0 * L * L);
      RL = -F * a * a * (2.0 * L + b) / (2.0 * L * L * L);
      break;
    case Case_EL:
      R0 = -F;
      M0 = -F * a;
      break;
    case Case_EE: {
      const double u = 1.0 - a / L;
      R0 = -F * u * u * (3.0 - 2.0 * u);
      M0 = -F * a * u * u;
      RL = -F - R0;
      ML = F * a * a * u / L;
      break;
    }
    default:
      return;
  }
  Add_TwoParts(L, NB, X, a, R0, M0, RL, ML, M, V);
}

void Add_Couple(int Case, double L, int NB, const std::vector<float>& X, double C, double xc,
                std::vector<float>& M, std::vector<float>& V) {
  const double a = xc * L;
  const double r = 1.0 - xc;
  double R0 = 0, M0 = 0, ML = 0;
  switch (Case) {
    case Case_AA:
      R0 = C / L;
      break;
    case Case_EA:
      R0 = 3.0 * C * (1.0 - r * r) / (2.0 * L);
      M0 = C * (1.0 - 3.0 * r * r) / 2.0;
      break;
    case Case_EL:
      M0 = -C;
      break;
    case Case_EE:
      R0 = 6.0 * C * xc * r / L;
      M0 = -C * r * (1.0 - 3.0 * xc);
      ML = C * xc * (2.0 - 3.0 * xc);
      break;
    default:
      return;
  }
  // A couple carries no force: the shear is the same on both sides.
  Add_TwoParts(L, NB, X, a, R0, M0, -R0, ML, M, V);
}

void Add_DistLoad(int Case, double L, int NB, const std::vector<float>& X, double qa, double xa,
                  double qb, double xb, std::vector<float>& M, std::vector<float>& V) {
  const double a = xa * L;
  const double b = xb * L;
  const double d = b - a;
  if (std::fabs(qa) + std::fabs(qb) == 0.0 || d <= 0.0) return;
  // Resultants: Q1 of the uniform part, Q2 of the triangular part.
  const double Q1 = qa * d;
  const double Q2 = (qb - qa) * d / 2.0;
  const double Q = Q1 + Q2;

  double R0 = 0, M0 = 0, RL = 0, ML = 0;
  switch (Case) {
    case Case_AA:
      R0 = Q1 * ((a + b) / (2.0 * L) - 1.0) + Q2 * ((a + 2.0 * b) / (3.0 * L) - 1.0);
      RL = -Q1 * (a + b) / (2.0 * L) - Q2 * (a + 2.0 * b) / (3.0 * L);
      break;
    case Case_EA: {
      const double c = L - (a + 2.0 * b) / 3.0;
      const double T1 = d * (2.0 * L - a - b) * (2.0 * L * (a + b) - a * a - b * b) * qa / (8.0 * L);
      const double cL = c / L;
      const double T2 = ((qb - qa) * d * L * L / 1080.0) *
                        (270.0 * (cL - cL * cL * cL) - d * d * (45.0 * c + 2.0 * d) / (L * L * L));
      M0 = -(T1 + T2) / L;
      const double S = d * (qa * (2.0 * a + b) + qb * (a + 2.0 * b)) / 6.0;
      RL = (-M0 - S) / L;
      R0 = -Q - RL;
      break;
    }
    case Case_EL:
      R0 = -Q;
      M0 = -(d / 2.0) * (qa * (a + b) + (qb - qa) * (a + 2.0 * b) / 3.0);
      break;
    case Case_EE: {
      const double u = a / L;
      const double w = b / L;
      const double AA =
          Q1 * (4.0 * (u * u + u * w + w * w) - (u * u * u + u * u * w + u * w * w + w * w * w)) / 24.0 +
          Q2 * (5.0 * u * u + 10.0 * u * w + 15.0 * w * w - 4.0 * w * w * w - 3.0 * u * w * w -
                2.0 * u * u * w - u * u * u) / 60.0;
      const double BB = Q1 * (u * u + u * w + w * w) / 6.0 + Q2 * (u * u + 2.0 * u * w + 3.0 * w * w) / 12.0;
      const double CC = Q1 * L * (u + w) / 2.0 + Q2 * L * (u + 2.0 * w) / 3.0;
      RL = -12.0 * AA + 6.0 * BB;
      M0 = L * (6.0 * AA - 2.0 * BB) - CC;
      R0 = -Q - RL;
      ML = -CC - M0 - RL * L;
      break;
    }
    default:
      return;
  }

  for (int j = 1; j <= 2 * NB; ++j) {
    const double x = X[j] * L;
    if (x < a) {
      V[j] = (float)(V[j] - R0);
      M[j] = (float)(M[j] + x * R0 - M0);
    } else if (x > b) {
      V[j] = (float)(V[j] + RL);
      M[j] = (float)(M[j] + (L - x) * RL + ML);
    } else {
      const double q = qa + (qb - qa) * (x - a) / d;
      V[j] = (float)(V[j] - R0 - (q + qa) * (x - a) / 2.0);
      M[j] = (float)(M[j] + x * R0 - M0 + (q + 2.0 * qa) * (x - a) * (x - a) / 6.0);
    }
  }
}

int Find_Mmax(int NB, const std::vector<float>& M, float& Mmax) {
  Mmax = 0.0f;
  int jm = 0;
  for (int j = 1; j <= 2 * NB; ++j) {
    if (std::fabs(M[j]) > std::fabs(Mmax)) {
      Mmax = M[j];
      jm = j;
    }
  }
  return jm;
}

}  // namespace zarvek
