// Several trial factors through one factorisation sweep.
//
// The bisection asks for one K + mu KG at a time, and each column of its
// L D L' factorisation waits on the pivots just found: one sweep is a chain
// of dependent divisions that leaves most of the processor idle. The next
// factors the bisection can ask for are known in advance (both halves of
// the bracket, and their halves), so they ride along in the other lanes of
// the vector registers. Every lane runs the operations of Evaluate_Skyline
// for its own factor in the same order and reaches the same pivots, bit for
// bit; the sweep keeps no matrix, only the sign and the product of the
// pivots.
#pragma once

#include "solver/SymMatrix.h"

namespace zarvek {

// How a factor came out: positive definite with the product of the pivots
// m2 2^e2, or stopped on a pivot that is not positive.
struct Lane_Outcome {
  double mu = 0;
  bool positive = false;
  double m2 = 1;
  long e2 = 0;
};

// The number of factors one sweep takes on this processor: 4 with 256-bit
// vectors, otherwise 1 (no sweep of several lanes; evaluate one by one).
int Lane_Count();

// Factorises K + mu[l] KG for l < count (count <= Lane_Count(); unused
// lanes repeat the last factor). Returns false, with nothing in `out`,
// when it cannot vouch for the lanes being the one-by-one results: a fault
// flag raised in the sweep (an abandoned lane may overflow), a pivot that
// is not finite, an envelope that is not a beam's. The caller then evaluates
// one factor at a time, which reproduces any fault where it belongs. The
// floating-point flags are left as they were on entry.
bool Evaluate_Lanes(const SymMatrix& K, const SymMatrix& KG, int NDL, const double* mu, int count,
                    Lane_Outcome* out);

}  // namespace zarvek
