#include "solver/SymMatrix.h"

#include <algorithm>
#include <cmath>

namespace zarvek {

void SymMatrix::Init_Full(int n) {
  n_ = n;
  full_ = true;
  fr_.assign(n + 2, 1);
  Finish();
}

void SymMatrix::Init_Profile(int n, const std::vector<int>& fr) {
  n_ = n;
  full_ = false;
  fr_.assign(n + 2, 1);
  for (int c = 1; c <= n; ++c) fr_[c] = std::clamp(fr[c], 1, c);
  // non-decreasing first rows (an envelope never gets smaller going left)
  for (int c = n - 1; c >= 1; --c) fr_[c] = std::min(fr_[c], fr_[c + 1]);
  Finish();
}

void SymMatrix::Init_BeamProfile(int n) {
  std::vector<int> fr(n + 2, 1);
  for (int c = 1; c <= n; ++c) {
    int node = (c + 3) / 4;
    fr[c] = node >= 2 ? 4 * node - 7 : 1;
  }
  Init_Profile(n, fr);
}

void SymMatrix::Finish() {
  base_.assign(n_ + 2, 0);
  std::size_t next = 1;
  for (int c = 1; c <= n_; ++c) {
    base_[c] = next - fr_[c];
    next += (std::size_t)(c - fr_[c] + 1);
  }
  last_.assign(n_ + 2, 0);
  int c = n_;
  for (int r = n_; r >= 1; --r) {
    while (c > r && fr_[c] > r) --c;
    last_[r] = std::max(c, r);
  }
  a_.assign(next, 0.0);
}

double SymMatrix::Get(int i, int j) const {
  int r = std::min(i, j), c = std::max(i, j);
  if (r < fr_[c]) return 0.0;
  return a_[base_[c] + r];
}

void SymMatrix::Clear() { std::fill(a_.begin(), a_.end(), 0.0); }

void Choleski(SymMatrix& A, int n, double eps, int& status) {
  if (n < 1) {
    status = -1;
    return;
  }
  for (int J = 1; J <= n; ++J) {
    const std::size_t kpiv = A.Pos(J, J);
    double* a = A.Data();
    const double threshold = std::fabs(eps * a[kpiv]);
    double pivot = 1.0;
    const int last = A.Last(J);
    for (int I = J; I <= last; ++I) {
      const int m0 = std::max(A.First(J), A.First(I));
      double sum = 0.0;
      for (int M = m0; M <= J - 1; ++M) sum += a[A.Pos(M, J)] * a[A.Pos(M, I)];
      const double dif = a[A.Pos(J, I)] - sum;
      if (I == J) {
        if (dif <= threshold) {
          if (dif <= 0) {
            status = -1;
            return;
          }
          if (status <= 0) status = J - 1;
        }
        pivot = std::sqrt(dif);
        a[kpiv] = pivot;
      } else {
        a[A.Pos(J, I)] = dif / pivot;
      }
    }
  }
  double* a = A.Data();
  for (std::size_t p = 1; p <= A.Size(); ++p)
    if (std::fabs(a[p]) < 1e-10) a[p] = 0.0;
}

void Solve_Choleski(const SymMatrix& U, std::vector<double>& y) {
  const int n = U.N();
  // forward: U' z = b, column by column of U
  for (int i = 1; i <= n; ++i) {
    double sum = 0.0;
    for (int k = U.First(i); k <= i - 1; ++k) sum += U(k, i) * y[k];
    y[i] = (y[i] - sum) / U(i, i);
  }
  // backward: U x = z, row by row of U
  for (int i = n; i >= 1; --i) {
    double sum = 0.0;
    const int last = U.Last(i);
    for (int k = i + 1; k <= last; ++k) sum += U(i, k) * y[k];
    y[i] = (y[i] - sum) / U(i, i);
  }
}

}  // namespace zarvek
