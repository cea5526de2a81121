#include "solver/SkylineLanes.h"

#include <algorithm>
#include <cfenv>
#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace zarvek {

namespace {

#if defined(__x86_64__)
#define ZARVEK_LANES 1
#if defined(__clang__)
#pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#pragma GCC push_options
#pragma GCC target("avx2")
#endif

// Four factors side by side in the 256-bit registers. Each lane is a plain
// IEEE double: the vector divisions, products and sums are rounded exactly
// as the scalar ones, and no product is fused into a sum (FMA is not
// enabled here, and the build forbids contraction anyway).

constexpr int Slots = 16;

// Column j of depth H (its envelope starts H rows above the diagonal),
// entered from K and KG, reduced by the columns before it in the ring,
// divided by their pivots; returns its pivot. The envelope of a beam's
// matrices starts no lower than the column's first non-zero row, and the
// first rows never fall from one column to the next: the rows between are
// exact zeros in every lane, and sums over them leave every non-zero value
// of the one-by-one sweep as it is (only a zero may change its sign, which
// no later step can see). With H fixed, every loop below is unrolled.
template <int H>
[[gnu::always_inline]] inline __m256d Column(double* ring, const double* pivot, int j,
                                             const double* k, const double* g, std::size_t d,
                                             __m256d mu) {
  auto slot = [ring](int col) { return ring + (col & (Slots - 1)) * Slots * 4; };
  // the column is worked in registers and stored once, reduced
  __m256d v[H + 1];
#pragma GCC unroll 16
  for (int up = 0; up <= H; ++up)
    v[up] = _mm256_add_pd(_mm256_set1_pd(k[d - up]), _mm256_mul_pd(mu, _mm256_set1_pd(g[d - up])));
  // each row from the top (o = j - row), reduced by the rows above it, the
  // row just reduced coming in last
#pragma GCC unroll 16
  for (int o = H - 1; o >= 1; --o) {
    const double* cr = slot(j - o);
    __m256d t = v[o];
#pragma GCC unroll 16
    for (int q = H; q > o; --q) t = _mm256_sub_pd(t, _mm256_mul_pd(_mm256_load_pd(cr + 4 * (q - o)), v[q]));
    v[o] = t;
  }
  // divided by the pivots, and the diagonal reduced from the top down
  __m256d c[H + 1];
#pragma GCC unroll 16
  for (int o = 1; o <= H; ++o)
    c[o] = _mm256_div_pd(v[o], _mm256_load_pd(pivot + 4 * ((j - o) & (Slots - 1))));
  __m256d b = _mm256_setzero_pd();
#pragma GCC unroll 16
  for (int o = H; o >= 1; --o) b = _mm256_add_pd(b, _mm256_mul_pd(c[o], v[o]));
  double* cj = slot(j);
#pragma GCC unroll 16
  for (int o = 1; o <= H; ++o) _mm256_store_pd(cj + 4 * o, c[o]);
  const __m256d p = _mm256_sub_pd(v[0], b);
  _mm256_store_pd(cj, p);
  return p;
}

bool Sweep4(const SymMatrix& K, const SymMatrix& KG, int NDL, const double* mus, bool* positive,
            double* m2_out, long* e2_out) {
  // A column reaches at most 15 rows above its diagonal, so its reduction
  // only reads the 15 columns before it: the columns live in a ring of 16
  // slots of 16 entries (diagonal first, then upward), 4 lanes each, and the
  // whole sweep stays in the first-level cache.
  alignas(32) double ring[Slots * Slots * 4];
  alignas(32) double pivot[Slots * 4];
  const double* k = K.Data();
  const double* g = KG.Data();

  const __m256d mu = _mm256_loadu_pd(mus);
  const __m256d zero = _mm256_setzero_pd(), one = _mm256_set1_pd(1.0);
  const __m256i expo = _mm256_set1_epi64x(0x7FF0000000000000LL);
  const __m256d big = _mm256_set1_pd(0x1p+256), small = _mm256_set1_pd(0x1p-256);
  int live = 0xF;  // a bit per lane still positive definite
  __m256d m2 = one, e2 = zero;
  for (int j = 1; j <= NDL; ++j) {
    const std::size_t d = K.Pos(j, j);
    const int h = j - K.First(j);
    if (j > 1 && K.First(j) < K.First(j - 1)) return false;
    __m256d p;
    switch (h) {
#define ZARVEK_COLUMN(H) \
  case H: p = Column<H>(ring, pivot, j, k, g, d, mu); break;
      ZARVEK_COLUMN(0) ZARVEK_COLUMN(1) ZARVEK_COLUMN(2) ZARVEK_COLUMN(3)
      ZARVEK_COLUMN(4) ZARVEK_COLUMN(5) ZARVEK_COLUMN(6) ZARVEK_COLUMN(7)
      ZARVEK_COLUMN(8) ZARVEK_COLUMN(9) ZARVEK_COLUMN(10) ZARVEK_COLUMN(11)
      ZARVEK_COLUMN(12) ZARVEK_COLUMN(13) ZARVEK_COLUMN(14) ZARVEK_COLUMN(15)
#undef ZARVEK_COLUMN
      default: return false;  // deeper than any beam's envelope
    }
    double* cj = ring + (j & (Slots - 1)) * Slots * 4;
    // a pivot that is not finite would end the one-by-one sweep in a fault:
    // leave that to it (tested on the bits, which raises no flag)
    const __m256i bits = _mm256_and_si256(_mm256_castpd_si256(p), expo);
    if (_mm256_movemask_pd(_mm256_castsi256_pd(_mm256_cmpeq_epi64(bits, expo))) & live)
      return false;
    live &= _mm256_movemask_pd(_mm256_cmp_pd(p, zero, _CMP_GT_OQ));
    if (live != 0xF) {
      if (!live) break;
      // a lane that has stopped carries on out of harm's way: its entries
      // are cleared and its pivots are 1, so that it can neither overflow
      // nor divide by zero
      const __m256d keep = _mm256_castsi256_pd(
          _mm256_set_epi64x(live & 8 ? -1 : 0, live & 4 ? -1 : 0, live & 2 ? -1 : 0, live & 1 ? -1 : 0));
      for (int o = 0; o <= h; ++o) _mm256_store_pd(cj + 4 * o, _mm256_and_pd(_mm256_load_pd(cj + 4 * o), keep));
      p = _mm256_blendv_pd(one, p, keep);
    }
    _mm256_store_pd(pivot + 4 * (j & (Slots - 1)), p);
    // the product of the pivots, scaled by exact powers of two
    m2 = _mm256_mul_pd(m2, p);
    const __m256d hi = _mm256_cmp_pd(m2, big, _CMP_GT_OQ), lo = _mm256_cmp_pd(m2, small, _CMP_LT_OQ);
    if (_mm256_movemask_pd(_mm256_or_pd(hi, lo))) {
      m2 = _mm256_blendv_pd(m2, _mm256_mul_pd(m2, small), hi);
      m2 = _mm256_blendv_pd(m2, _mm256_mul_pd(m2, big), lo);
      e2 = _mm256_add_pd(e2, _mm256_and_pd(hi, _mm256_set1_pd(256.0)));
      e2 = _mm256_sub_pd(e2, _mm256_and_pd(lo, _mm256_set1_pd(256.0)));
    }
  }
  double m2s[4], e2s[4];
  _mm256_storeu_pd(m2s, m2);
  _mm256_storeu_pd(e2s, e2);
  for (int l = 0; l < 4; ++l) {
    positive[l] = (live >> l) & 1;
    m2_out[l] = m2s[l];
    e2_out[l] = (long)e2s[l];
  }
  return true;
}

#if defined(__clang__)
#pragma clang attribute pop
#else
#pragma GCC pop_options
#endif
#endif

}  // namespace

int Lane_Count() {
#ifdef ZARVEK_LANES
  static const int lanes = __builtin_cpu_supports("avx2") ? 4 : 1;
  return lanes;
#else
  return 1;
#endif
}

bool Evaluate_Lanes(const SymMatrix& K, const SymMatrix& KG, int NDL, const double* mu, int count,
                    Lane_Outcome* out) {
#ifdef ZARVEK_LANES
  if (Lane_Count() < 4 || count < 1 || count > 4) return false;
  double m[4];
  for (int l = 0; l < 4; ++l) m[l] = mu[std::min(l, count - 1)];
  bool pos[4];
  double m2[4];
  long e2[4];

  const int faults = FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID;
  std::fexcept_t before;
  std::fegetexceptflag(&before, faults);
  std::feclearexcept(faults);
  bool ok = Sweep4(K, KG, NDL, m, pos, m2, e2);
  if (std::fetestexcept(faults)) ok = false;
  std::fesetexceptflag(&before, faults);
  if (!ok) return false;
  for (int l = 0; l < count; ++l) out[l] = Lane_Outcome{mu[l], pos[l], m2[l], e2[l]};
  return true;
#else
  (void)K, (void)KG, (void)NDL, (void)mu, (void)count, (void)out;
  return false;
#endif
}

}  // namespace zarvek
