// Several trial factors in one sweep must decide, factor by factor, exactly
// what the one-by-one sweep decides, and leave the fault flags alone.
#include <gtest/gtest.h>

#include <cfenv>
#include <cstring>
#include <utility>

#include "solver/Faults.h"
#include "solver/Mod_Eigen.h"
#include "solver/SkylineLanes.h"

namespace zarvek {
namespace {

// A chain of four-degree nodes: K couples neighbours, KG = -I weakens every degree. Column tops are zero in
// K where only KG reaches, so the stored profile depends on the factor.
struct Chain {
  int n;
  SymMatrix K, KG;
  explicit Chain(int nodes) : n(4 * nodes) {
    K.Init_BeamProfile(n);
    KG.Init_BeamProfile(n);
    for (int i = 1; i <= n; ++i) {
      K(i, i) = 4 + (i % 3), KG(i, i) = -1;
      if (i > 1) K(i - 1, i) = -1.0 - 0.1 * (i % 5);
      if (i > 2 && i % 4 == 0) K(i - 2, i) = 0.3;
      // an entry of KG alone above the diagonal, 7 rows up
      if (i > 7 && i % 4 == 0) KG(i - 7, i) = 0.05;
    }
  }
  // the one-by-one sweep: mantissa and exponent of the determinant
  std::pair<double, int> One(double mu) const {
    Skyline S;
    std::pair<double, int> d;
    Evaluate_Skyline(K, KG, n, mu, S, d.first, d.second);
    return d;
  }
};

struct Lanes : ::testing::Test {
  void SetUp() override {
    if (Lane_Count() < 4) GTEST_SKIP() << "no 256-bit lanes on this processor";
    std::feclearexcept(FE_ALL_EXCEPT);
  }
  void TearDown() override { std::feclearexcept(FE_ALL_EXCEPT); }
};

TEST_F(Lanes, EachLaneDecidesAsTheOneByOneSweep) {
  const Chain c(40);
  // the first critical factor, one factor at a time
  double lo = 0, hi = 100;
  while (hi - lo > 1e-9 * hi) (c.One((lo + hi) / 2).second > 0 ? lo : hi) = (lo + hi) / 2;
  ASSERT_GT(lo, 0.5);
  // below and above it, the unloaded chain, close on both sides, and factors
  // far above whose lanes stop within the first columns
  const double sets[][4] = {{0.0, 1.0, 10.0, 0.5 * lo}, {0.9 * lo, lo, hi, 1.1 * hi},
                            {2 * hi, 0.99 * lo, 1e3, 100.0}, {0.7 * lo, 0.25, 0.125, 1.01 * hi}};
  int positive = 0, stopped = 0;
  for (const auto& mus : sets) {
    Lane_Outcome out[4];
    ASSERT_TRUE(Evaluate_Lanes(c.K, c.KG, c.n, mus, 4, out));
    for (int l = 0; l < 4; ++l) {
      const auto [m1, e1] = c.One(mus[l]);
      double m2;
      int e2;
      Lane_Determinant(out[l], m2, e2);
      EXPECT_EQ(out[l].mu, mus[l]); EXPECT_EQ(e1, e2) << mus[l];
      EXPECT_EQ(std::memcmp(&m1, &m2, sizeof m1), 0) << mus[l] << ": " << m1 << " " << m2;
      (out[l].positive ? positive : stopped)++;
    }
  }
  // the sets cover both outcomes
  EXPECT_GE(positive, 4); EXPECT_GE(stopped, 4);
  EXPECT_FALSE(std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID));
}

TEST_F(Lanes, ALaneThatWouldFaultIsLeftToTheOneByOneSweep) {
  Chain c(10);
  // entries whose products overflow in the factorisation
  for (int i = 2; i <= c.n; ++i) c.K(i - 1, i) = 1e200;
  const double mus[4] = {0.1, 0.2, 0.3, 0.4};
  Lane_Outcome out[4];
  EXPECT_FALSE(Evaluate_Lanes(c.K, c.KG, c.n, mus, 4, out));
  EXPECT_FALSE(std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID));
  // the one-by-one sweep is the one to end in the fault
  EXPECT_THROW(c.One(0.1), Solve_Fault);
}

}  // namespace
}  // namespace zarvek
