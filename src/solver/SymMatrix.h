// Symmetric matrices stored as the columns of their upper triangle.
//
// Column c holds rows First(c)..c. With every First(c) = 1 this is the plain
// packed triangle, entry (r, c) at c(c-1)/2 + r. A beam's global matrices
// only couple the degrees of two neighbouring nodes, so each column's first
// non-zero row lies at most seven rows above the diagonal: the profile form
// keeps only that envelope, and every loop that runs over "rows 1..c" runs
// over "rows First(c)..c" instead. Entries outside the envelope are zero in
// the full form too, so both forms give the same numbers, term for term.
#pragma once

#include <cstddef>
#include <vector>

namespace zarvek {

class SymMatrix {
 public:
  // Plain packed triangle of order n.
  void Init_Full(int n);
  // Envelope with the given first rows (1-based, fr[1..n]); the first rows
  // are made non-decreasing so that the columns holding a row are contiguous.
  void Init_Profile(int n, const std::vector<int>& fr);
  // The envelope of a beam of nodes with four degrees each.
  void Init_BeamProfile(int n);

  int N() const { return n_; }
  int First(int c) const { return fr_[c]; }
  // Last column whose envelope holds row r.
  int Last(int r) const { return last_[r]; }
  bool Is_Full() const { return full_; }

  // Position of (r, c), r <= c, First(c) <= r; positions start at 1.
  std::size_t Pos(int r, int c) const { return base_[c] + r; }
  double& operator()(int r, int c) { return a_[base_[c] + r]; }
  double operator()(int r, int c) const { return a_[base_[c] + r]; }
  // Any (i, j): the symmetric entry, 0 outside the envelope.
  double Get(int i, int j) const;

  std::size_t Size() const { return a_.size() - 1; }
  double* Data() { return a_.data(); }  // Data()[1..Size()]
  const double* Data() const { return a_.data(); }
  void Clear();

 private:
  void Finish();
  int n_ = 0;
  bool full_ = true;
  std::vector<int> fr_, last_;
  std::vector<std::size_t> base_;
  std::vector<double> a_;
};

// In-place factorisation A = U'U. `status` is 0 on entry; on return 0 when
// all went well, J-1 > 0 as a warning of lost significance at column J, -1
// when a pivot is not positive.
void Choleski(SymMatrix& A, int n, double eps, int& status);

// Solves U'U y = b in place with a factor made by Choleski.
void Solve_Choleski(const SymMatrix& U, std::vector<double>& y);

}  // namespace zarvek
