#include "solver/Mod_Eigen.h"

#include <algorithm>
#include <cmath>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "solver/Faults.h"
#include "solver/SkylineLanes.h"

namespace zarvek {

void MethodState::Status(const std::string& text) const {
  if (ctl && ctl->Show_Status) ctl->Show_Status(text);
}
void MethodState::Progress(int it, double value) const {
  if (ctl && ctl->Show_Progress) ctl->Show_Progress(it, value);
}
void MethodState::Box(const std::string& text) const {
  if (Warnings) Warnings->push_back(text);
  if (ctl && ctl->Show_Box) ctl->Show_Box(text);
}

namespace {
bool Stop(const MethodState& st) { return st.ctl && st.ctl->Stop_Requested; }
double Norm(const std::vector<double>& x, int n) {
  double s = 0;
  for (int i = 1; i <= n; ++i) s += x[i] * x[i];
  return std::sqrt(s);
}
}  // namespace

// ---------------------------------------------------------------- Eigen

void Eigen(SymMatrix& K, SymMatrix& B, double& mu, int NDL, int NN, double Tol, int NbIter,
           std::vector<double>& Phi, bool& failed, MethodState& st) {
  failed = true;
  // room for the whole band of the beam (26 terms a node): moments and load
  // heights fill at most 19 of them, an axial force all
  const int ICMAX = 26 * NN;
  // 1. the non-zero terms of KG, negated, in the order of the packed storage
  std::vector<int> ICr, ICc;
  std::vector<double> BV;
  ICr.reserve(ICMAX);
  ICc.reserve(ICMAX);
  BV.reserve(ICMAX);
  int ICOMPT = 0;
  for (int c = 1; c <= NDL; ++c)
    for (int r = B.First(c); r <= c; ++r) {
      const double v = B(r, c);
      if (std::fabs(v) > 1e-10) {
        ++ICOMPT;
        if (ICOMPT > ICMAX) {
          st.Error_Text = "Problem in EIGEN, ICOMPT>ICMAX";
          st.Solve_Status = 4;
          return;
        }
        ICr.push_back(r);
        ICc.push_back(c);
        BV.push_back(-v);
      }
    }
  // 2. B keeps the stiffness as it is before the factorisation
  B = K;
  // 3.
  st.Status("Choleski decomposition...");
  int status = 0;
  Choleski(K, NDL, 1e-5, status);
  Check_FP();
  if (status != 0) {
    st.Error_Text = "Unstable structure - Check Data";
    st.Solve_Status = 5;
    return;
  }
  // 4.
  st.Status("Loops on eigenvalue trials...");
  int NTRY = 0, NSC = 1;
  double s = 0;
  std::vector<double> X(NDL + 1), Y(NDL + 1);
  double lambda = 1;
  for (;;) {
    // 5. a new trial
    ++NTRY;
    for (int i = 1; i <= NDL; ++i) X[i] = std::min(std::pow(1.1, i), 5.0);
    int count = 0;
    double cur = 0;
    for (;;) {
      // 6.
      ++count;
      st.Progress(count, cur);
      std::fill(Y.begin(), Y.end(), 0.0);
      for (int m = 0; m < ICOMPT; ++m) {
        const int r = ICr[m], c = ICc[m];
        Y[c] += BV[m] * X[r];
        if (r != c) Y[r] += BV[m] * X[c];
      }
      Solve_Choleski(K, Y);
      if (count == 1) Phi = Y;
      for (int i = 1; i <= NDL; ++i) Y[i] -= s * X[i];
      const double nx = Norm(X, NDL), ny = Norm(Y, NDL);
      lambda = (nx != 0 && ny != 0) ? ny / nx : 1.0;
      for (int i = 1; i <= NDL; ++i) Y[i] /= lambda;
      const double prev = cur;
      cur = 1 / lambda;
      const double err = std::fabs((cur - prev) / cur);
      Check_FP();
      if (err < Tol) {
        st.Converged = true;
        break;
      }
      // the new vector is the mean of the old one and its image
      for (int i = 1; i <= NDL; ++i) X[i] = (Y[i] + X[i]) / 2;
      if (Stop(st)) {
        st.Converged = false;
        break;
      }
      if (count == NSC * NbIter) {
        st.Box("Problem of convergence");
        return;
      }
    }
    // 7.
    lambda = 1 / lambda;
    st.Status("Building eigenvector...");
    // 8.
    int k = 0;
    for (int i = 1; i <= NDL; ++i)
      if (std::fabs(X[i]) > 1e-10 && std::fabs(Y[i]) > 1e-10) {
        k = i;
        break;
      }
    if (k == 0) {
      st.Error_Text = "Problem of convergence";
      st.Solve_Status = 6;
      return;
    }
    // 9.-10. the image keeps the direction of the vector: the dominant value
    // is positive and the factor is found
    const double sign = X[k] * Y[k] / std::fabs(X[k]) / std::fabs(Y[k]);
    if (sign > 0) {
      mu = lambda / (s * lambda + 1);
      Phi = Y;
      break;
    }
    // 11.-12. a negative dominant value: shift it out of the way and retry
    if (NTRY > 15) {
      st.Error_Text = "Problem of convergence";
      st.Solve_Status = 7;
      return;
    }
    lambda = -lambda;
    s = 1.05 / lambda;
    NSC = 2;
    Tol = 0.0001;
  }
  Check_FP();
  failed = false;
  // 13. refinement: fix the largest component and solve K + mu KG for the rest
  int j = 1;
  double big = -1;
  for (int i = 1; i <= NDL; ++i)
    if (std::fabs(Phi[i]) >= big) {
      big = std::fabs(Phi[i]);
      j = i;
    }
  for (int m = 0; m < ICOMPT; ++m) B(ICr[m], ICc[m]) -= mu * BV[m];
  for (int i = 1; i <= NDL; ++i) Y[i] = -Phi[j] * B.Get(i, j);
  Y[j] = Phi[j];
  for (int r = B.First(j); r <= j; ++r) B(r, j) = 0.0;
  for (int c = j; c <= B.Last(j); ++c) B(j, c) = 0.0;
  B(j, j) = 1.0;
  status = 0;
  Choleski(B, NDL, 0.0001, status);
  if (status != 0) {
    st.Box("The eigenmode may be not accurate");
    Check_FP();
    return;
  }
  Solve_Choleski(B, Y);
  for (int i = 1; i <= NDL; ++i) Phi[i] = (Y[i] + Phi[i]) / 2;
  Check_FP();
}

// ---------------------------------------------------------------- skyline

void Build_Skyline(const SymMatrix& K, const SymMatrix& KG, int NDL, double mu, Skyline& S) {
  S.MAXA.resize(NDL + 2);
  // room for every column up to the top of its stored envelope; the plain
  // full triangle grows as needed
  S.A.resize(1 + (K.Is_Full() ? 8 * (std::size_t)NDL : K.Size()));
  S.A[0] = 0.0;
  long next = 1;
  const double* k = K.Data();
  const double* g = KG.Data();
  long* MAXA = S.MAXA.data();
  for (int j = 1; j <= NDL; ++j) {
    MAXA[j] = next;
    // column j from its diagonal up: the position of (i, j) is d - (j - i).
    // Look down from the top of the stored column for the first non-zero
    // row, then store rows j, j-1, .. up to it.
    const std::size_t d = K.Pos(j, j);
    int h = j - K.First(j);
    while (h >= 0 && k[d - h] + mu * g[d - h] == 0) --h;
    if ((long)S.A.size() < next + h + 1) S.A.resize(std::max<long>(next + h + 1, 2 * (long)S.A.size()));
    double* out = S.A.data() + next;
    for (int up = 0; up <= h; ++up) out[up] = k[d - up] + mu * g[d - up];
    next += h + 1;  // an empty column stores nothing: its pivot is 0
  }
  MAXA[NDL + 1] = next;
  S.A.resize(next);
}

long Skyline_Position(int i, int j, const std::vector<long>& MAXA) {
  const int col = std::max(i, j), row = std::min(i, j);
  const long height = MAXA[col + 1] - MAXA[col];
  if (col - row < height) return MAXA[col] + col - row;
  return 0;
}

namespace {

// Reduces column j of an active-column matrix by the columns before it and
// divides it by their pivots; returns its own pivot (0 for an empty column).
inline double Factor_Column(double* A, const long* MAXA, int j) {
  const long kn = MAXA[j], kl = kn + 1, ku = MAXA[j + 1] - 1, kh = ku - kl;
  if (MAXA[j + 1] <= MAXA[j]) return 0.0;
  if (kh > 0) {
    // the entry stored at klt (a row above the diagonal) less the dot product
    // of the stored parts of its row's column and of column j above it
    long k = j - kh;
    double* __restrict klt = A + ku;
    for (long ic = 1; ic <= kh; ++ic, ++k) {
      --klt;
      const long ki = MAXA[k], nd = MAXA[k + 1] - ki - 1;
      if (nd > 0) {
        const long kk = ic < nd ? ic : nd;
        const double* __restrict a = A + ki;
        // taken off from the far end, so that the entry just reduced above
        // comes in last and the rows overlap in the pipeline
        double t = *klt;
        for (long l = kk; l >= 1; --l) t -= a[l] * klt[l];
        *klt = t;
      }
    }
  }
  if (kh >= 0) {
    // divide by the pivots and reduce the diagonal, from the top of the
    // column down: the entry next to the diagonal waits for the pivot just
    // found, so it comes in last and the rest of the sum is ready before it
    double b = 0;
    for (long kk = ku, k = j - (ku - kl + 1); kk >= kl; --kk, ++k) {
      const double c = A[kk] / A[MAXA[k]];
      b += c * A[kk];
      A[kk] = c;
    }
    A[kn] -= b;
  }
  return A[kn];
}

// The determinant as the product of the pivots.
struct Determinant {
  bool literal;
  double mantissa = 1;
  int exponent = 0;
  double m2 = 1;  // binary bookkeeping: m2 2^e2
  long e2 = 0;

  // False when the pivot is not positive: the matrix is not positive definite.
  bool Take(double pivot) {
    if (!std::isfinite(pivot)) throw Solve_Fault{};
    if (!(pivot > 0)) {
      Check_FP();
      mantissa = -1;
      exponent = 0;
      return false;
    }
    if (literal) {
      // a decimal mantissa between 0.1 and 1, pivot by pivot
      mantissa *= pivot;
      while (std::fabs(mantissa) > 1) {
        mantissa /= 10;
        ++exponent;
      }
      while (std::fabs(mantissa) < 0.1) {
        mantissa *= 10;
        --exponent;
      }
    } else {
      // the same product with a binary exponent: scaling by powers of two is
      // exact and needs no division per pivot. A pivot beyond the scaling
      // range (a stiff spring of 1e305, say) brings its own exponent, so
      // that the product stays within 2^-512..2^512 whatever the pivots.
      if (pivot > 0x1p+256 || pivot < 0x1p-256) {
        int ep = 0;
        pivot = std::frexp(pivot, &ep);
        e2 += ep;
      }
      m2 *= pivot;
      if (m2 > 0x1p+256) {
        m2 *= 0x1p-256;
        e2 += 256;
      } else if (m2 < 0x1p-256) {
        m2 *= 0x1p+256;
        e2 -= 256;
      }
    }
    return true;
  }

  void Finish() {
    Check_FP();
    if (literal) return;
    // decimal form of m2 2^e2 with 0.1 <= mantissa <= 1
    const double l10 = std::log10(m2) + (double)e2 * 0.30102999566398119521;
    long e10 = (long)std::ceil(l10);
    double m = std::pow(10.0, l10 - (double)e10);
    if (m > 1) {
      m /= 10;
      ++e10;
    }
    if (m < 0.1) {
      m *= 10;
      --e10;
    }
    mantissa = m;
    // a determinant of exactly 10^0 would read as "not positive definite":
    // a positive definite matrix keeps a non-zero exponent here
    exponent = e10 == 0 ? 1 : (int)e10;
  }
};

}  // namespace

void Factor_Skyline(Skyline& S, int NDL, double& mantissa, int& exponent, bool literal) {
  double* A = S.A.data();
  const long* MAXA = S.MAXA.data();
  Determinant det{literal};
  bool positive = true;
  for (int j = 1; j <= NDL && positive; ++j) positive = det.Take(Factor_Column(A, MAXA, j));
  if (positive) det.Finish();
  mantissa = det.mantissa;
  exponent = det.exponent;
}

void Evaluate_Skyline(const SymMatrix& K, const SymMatrix& KG, int NDL, double mu, Skyline& S,
                      double& mantissa, int& exponent) {
  S.MAXA.resize(NDL + 2);
  S.A.resize(1 + K.Size());
  S.First.resize(NDL + 1);
  S.Pivot.resize(NDL + 1);
  S.A[0] = 0.0;
  double* A = S.A.data();
  long* MAXA = S.MAXA.data();
  int* first = S.First.data();
  double* pivot = S.Pivot.data();
  const double* k = K.Data();
  const double* g = KG.Data();
  Determinant det{false};
  long next = 1;
  MAXA[1] = 1;
  for (int j = 1; j <= NDL; ++j) {
    // column j as Build_Skyline stores it: cj[o] is the entry of row j - o
    const std::size_t d = K.Pos(j, j);
    int h = j - K.First(j);
    while (h >= 0 && k[d - h] + mu * g[d - h] == 0) --h;
    double* cj = A + next;
    for (int up = 0; up <= h; ++up) cj[up] = k[d - up] + mu * g[d - up];
    next += h + 1;
    MAXA[j + 1] = next;
    if (h < 0) {  // an empty column: its pivot is 0
      det.Take(0.0);
      mantissa = det.mantissa;
      exponent = det.exponent;
      return;
    }
    // then factorised at once, in the order of Factor_Column: each row from
    // the top is reduced by the rows above it, then divided by the pivots
    const int fj = j - h;
    first[j] = fj;
    if (h > 15) throw Solve_Fault{};  // deeper than any beam profile
    for (int r = fj + 1; r < j; ++r) {
      const int m0 = std::max(fj, first[r]);
      const double* __restrict pa = A + MAXA[r] + (r - m0);
      const double* __restrict pb = cj + (j - m0);
      double t = cj[j - r];
      for (int m = m0; m < r; ++m) t -= *pa-- * *pb--;
      cj[j - r] = t;
    }
    // the divisions are independent of each other: two at a time, each
    // still an exact IEEE division; then the diagonal from the top down as
    // above
    const int n = j - fj;
    double c[16];
    int o = 1;
#ifdef __SSE2__
    for (; o + 1 <= n; o += 2) {
      const __m128d num = _mm_loadu_pd(cj + o);
      const __m128d den = _mm_set_pd(pivot[j - o - 1], pivot[j - o]);
      _mm_storeu_pd(c + o, _mm_div_pd(num, den));
    }
#endif
    for (; o <= n; ++o) c[o] = cj[o] / pivot[j - o];
    double b = 0;
    for (o = n; o >= 1; --o) {
      b += c[o] * cj[o];
      cj[o] = c[o];
    }
    cj[0] -= b;
    pivot[j] = cj[0];
    if (!det.Take(cj[0])) {
      mantissa = det.mantissa;
      exponent = det.exponent;
      return;
    }
  }
  det.Finish();
  mantissa = det.mantissa;
  exponent = det.exponent;
}

void Solve_Skyline(const Skyline& S, int NDL, std::vector<double>& V) {
  const std::vector<double>& A = S.A;
  const std::vector<long>& MAXA = S.MAXA;
  for (int n = 1; n <= NDL; ++n) {
    const long kl = MAXA[n] + 1, ku = MAXA[n + 1] - 1;
    if (ku - kl >= 0) {
      long k = n;
      double c = 0;
      for (long kk = kl; kk <= ku; ++kk) {
        --k;
        c += A[kk] * V[k];
      }
      V[n] -= c;
    }
  }
  for (int n = 1; n <= NDL; ++n) V[n] /= A[MAXA[n]];
  if (NDL == 1) return;
  int n = NDL;
  for (int l = 2; l <= NDL; ++l) {
    const long kl = MAXA[n] + 1, ku = MAXA[n + 1] - 1;
    if (ku - kl >= 0) {
      long k = n;
      for (long kk = kl; kk <= ku; ++kk) {
        --k;
        V[k] -= A[kk] * V[n];
      }
    }
    --n;
  }
}

void Build_Mode(int NDL, Skyline& S, std::vector<double>& Phi) {
  auto diag = [&](int d) { return S.A[Skyline_Position(d, d, S.MAXA)]; };
  // The degree to fix: the lateral displacement that is held the least; when
  // every one is held rigidly, the least held twist.
  int j = 0;
  double smallest = 1e40;
  for (int d = 1; d <= NDL; d += 4)
    if (std::fabs(diag(d)) < smallest) {
      smallest = std::fabs(diag(d));
      j = d;
    }
  if (smallest >= 1e20) {
    smallest = 1e40;
    for (int d = 2; d <= NDL; d += 4)
      if (std::fabs(diag(d)) < smallest) {
        smallest = std::fabs(diag(d));
        j = d;
      }
  }
  if (j == 0) j = 1;
  Phi.assign(NDL + 1, 0.0);
  for (int i = 1; i <= NDL; ++i) Phi[i] = (i == j) ? 1.0 : -S.A[Skyline_Position(i, j, S.MAXA)];
  // clear row and column j, unit diagonal
  for (int i = 1; i <= NDL; ++i) {
    const long p = Skyline_Position(i, j, S.MAXA);
    if (p != 0) S.A[p] = 0.0;
  }
  const long pd = Skyline_Position(j, j, S.MAXA);
  if (pd != 0) S.A[pd] = 1.0;
  // the determinant is not looked at here: no decimal bookkeeping
  double mantissa;
  int exponent;
  Factor_Skyline(S, NDL, mantissa, exponent, false);
  Solve_Skyline(S, NDL, Phi);
}

// ---------------------------------------------------------------- Dichotomie

void Lane_Determinant(const Lane_Outcome& o, double& mantissa, int& exponent) {
  // what the one-by-one sweep concludes, with its checks
  if (o.positive) {
    Determinant det{false};
    det.m2 = o.m2;
    det.e2 = o.e2;
    det.Finish();
    mantissa = det.mantissa;
    exponent = det.exponent;
  } else {
    Check_FP();
    mantissa = -1;
    exponent = 0;
  }
}

namespace {

// Where the bisection stands, to foresee the factors it may ask for next:
// phase 0 asks for 0, phase 1 for `high` (the bracket growing tenfold),
// phase 2 for the middle of [low, high]. The values are formed exactly as
// Dichotomie forms them, so that a foreseen factor is the same double.
struct Bisection_State {
  int phase;
  double low, high;
  double Request() const { return phase == 0 ? 0.0 : phase == 1 ? high : (high + low) / 2; }
};

// The factors the bisection may ask for from `s` on, nearest first, up to
// `lanes` of them, leaving out those already known.
int Foresee(const Bisection_State& s, int lanes, const std::vector<Lane_Outcome>& known,
            double* mu) {
  Bisection_State queue[64];
  int head = 0, tail = 0, count = 0;
  queue[tail++] = s;
  while (head < tail && count < lanes) {
    const Bisection_State q = queue[head++];
    const double m = q.Request();
    bool seen = false;
    for (const Lane_Outcome& o : known) seen |= o.mu == m;
    for (int i = 0; i < count; ++i) seen |= mu[i] == m;
    if (!seen) mu[count++] = m;
    if (tail + 2 > 64) continue;
    switch (q.phase) {
      case 0:  // stable: the bracket starts at 1
        queue[tail++] = {1, 0.0, 1.0};
        break;
      case 1:
        if (!(q.high > 999)) queue[tail++] = {1, q.low, 10 * q.high};
        queue[tail++] = {2, q.low, q.high};
        break;
      default:
        queue[tail++] = {2, m, q.high};
        queue[tail++] = {2, q.low, m};
    }
  }
  return count;
}

}  // namespace

void Dichotomie(const SymMatrix& K, const SymMatrix& KG, int NDL, Skyline& S, double Tol,
                int NbIter, double& mu, std::vector<double>& Phi, MethodState& st) {
  const bool literal = st.ctl && st.ctl->Reference;
  int counter = -1;
  double mantissa = 0;
  int exponent = 0;
  double low = 0, high = 1;
  // factors already settled by a sweep of several lanes
  std::vector<Lane_Outcome> known;
  const int lanes = st.ctl && st.ctl->One_Factor_Per_Sweep ? 1 : Lane_Count();
  auto Evaluate = [&](double m, int phase) {
    ++counter;
    st.Progress(counter, m);
    if (literal) {
      // as written: the whole skyline, then its factorisation
      Build_Skyline(K, KG, NDL, m, S);
      Factor_Skyline(S, NDL, mantissa, exponent, true);
      return;
    }
    auto hit = std::find_if(known.begin(), known.end(), [m](const Lane_Outcome& o) { return o.mu == m; });
    if (hit == known.end()) {
      double next[4];
      const int n = Foresee({phase, low, high}, lanes, known, next);
      Lane_Outcome out[4];
      if (n < 2 || !Evaluate_Lanes(K, KG, NDL, next, n, out)) {
        Evaluate_Skyline(K, KG, NDL, m, S, mantissa, exponent);
        return;
      }
      known.insert(known.end(), out, out + n);
      hit = known.end() - n;  // the first lane holds m
    }
    Lane_Determinant(*hit, mantissa, exponent);
  };
  // 1. the unloaded structure must be stable
  mu = 0;
  Evaluate(mu, 0);
  if (exponent == 0) {
    st.Error_Text = Msg(82);
    st.Solve_Status = 2;
    mu = 0;
    return;
  }
  // 2.-3. a bracket: 1, 10, 100, 1000
  counter = 0;
  low = 0;
  high = 1;
  mu = high;
  Evaluate(mu, 1);
  while (exponent > 0) {
    if (high > 999) {
      st.Error_Text = Msg(42);
      st.Solve_Status = 3;
      mu = 0;
      return;
    }
    high = 10 * high;
    mu = high;
    Evaluate(mu, 1);
  }
  // 4. bisection on the positive definiteness of K + mu KG
  for (;;) {
    if (low / high >= 1 - Tol) {
      st.Error_Text = Msg(6);
      st.Converged = true;
      break;
    }
    mu = (high + low) / 2;
    Evaluate(mu, 2);
    if (exponent > 0) low = mu;
    else high = mu;
    if (counter == NbIter) {
      st.Error_Text = Msg(44);
      break;
    }
    if (Stop(st)) break;
  }
  // 5.
  if (exponent == 0) mu = low;
  st.Progress(counter, mu);
  st.Solve_Status = 0;
  // 6.
  if (!st.ctl->Direct_Mode) {
    st.Status(Msg(18));
    Build_Skyline(K, KG, NDL, mu, S);
    Build_Mode(NDL, S, Phi);
  }
}

}  // namespace zarvek
