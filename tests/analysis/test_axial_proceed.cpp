// An axial force from the beam model through the problem file and the
// solver: the closed form of a fork-supported IPE 300 under uniform moment and
// compression or tension, the force alone, and the checks of its fields.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <unistd.h>

#include "analysis/Proceed.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/Validation.h"

namespace zarvek {
namespace {

std::string Scratch(const std::string& name) {
  return ::testing::TempDir() + "zarvek-axial-" + std::to_string(::getpid()) + "-" + name;
}

BeamModel New_Model() {
  BeamModel m;
  Init_Default(m, "/tmp");
  return m;
}

// IPE 300 as published, kN and cm; 10 m with fork supports.
const double E = 21000, G = 8076.9, Iz = 603.78, It = 19.868, Iw = 126332, A = 53.81,
             Iy = 8356, L = 1000;
const double i0sq = (Iy + Iz) / A;
const double Nz = M_PI * M_PI * E * Iz / (L * L);
const double NT = (G * It + M_PI * M_PI * E * Iw / (L * L)) / i0sq;

// Smallest positive mu of (mu M)^2 = i0^2 (Nz - mu N)(NT - mu N), kN.cm, kN.
double Factor(double M, double N) {
  const double a = M * M - i0sq * N * N, b = i0sq * N * (Nz + NT), c = -i0sq * Nz * NT;
  return (-b + std::sqrt(b * b - 4 * a * c)) / (2 * a);
}

double Solve(BeamModel& m, const std::string& name) {
  SolveControl ctl;
  ProceedResult r = Proceed(m, Scratch(name), ctl);
  EXPECT_EQ(r.Solve_Status, 0) << r.Message;
  return r.Solver.mucr;
}

TEST(AxialProceed, ForceBesideTheUniformMomentOnTheCatalogueAndPropertiesRoutes) {
  for (const char* N : {"50", "-50"}) {
    BeamModel m = New_Model();  // 100 kN.m uniform moment
    m.Txt_N = N;
    const double mu = Factor(1e4, Num_Of_Text(N));
    EXPECT_NEAR(Solve(m, "CAT.ZVK") / mu, 1.0, 2e-3) << N;
    EXPECT_NEAR(Num_Of_Text(m.Txt_Ncr) / (mu * Num_Of_Text(N)), 1.0, 2e-3);
    EXPECT_NEAR(Num_Of_Text(m.Txt_Mcr) / (mu * 100), 1.0, 2e-3);

    m.Opt_Catalogue = false, m.Opt_Properties = true;
    m.Txt_A3 = "53.81", m.Txt_Iy3 = "8356", m.Txt_zC3 = "0";
    EXPECT_NEAR(Solve(m, "PROP.ZVK") / mu, 1.0, 1e-3) << N;
  }
  // compression lowers, tension raises the critical moment
  EXPECT_LT(Factor(1e4, 50), 0.95 * Factor(1e4, 0));
  EXPECT_GT(Factor(1e4, -50), 1.05 * Factor(1e4, 0));
}

TEST(AxialProceed, TheForceAloneGivesTheColumnLoad) {
  BeamModel m = New_Model();
  m.Chk_M = false;
  m.Txt_N = "10";
  EXPECT_NEAR(Solve(m, "ALONE.ZVK") * 10 / Nz, 1.0, 1e-3);
  EXPECT_NEAR(Num_Of_Text(m.Txt_Ncr) / Nz, 1.0, 1e-3);
  EXPECT_EQ(m.Txt_Mcr, "0");
}

TEST(AxialProceed, TheFieldsAreCheckedOnlyWhereTheyCount) {
  Set_Msg(43, "Not a number");
  Set_Msg(50, "Out of limits");
  BeamModel m = New_Model();
  m.Opt_Catalogue = false, m.Opt_Properties = true;
  m.Txt_A3 = m.Txt_Iy3 = "0";  // nothing asks for them while N is 0
  EXPECT_TRUE(IsDataOK(m).ok);
  m.Txt_N = "12x";
  ValidationResult r = IsDataOK(m);
  EXPECT_EQ(r.field + " " + r.Error_Text, "Txt_N Not a number");
  m.Txt_N = "-12";
  r = IsDataOK(m);
  EXPECT_EQ(r.field + " " + r.Error_Text, "Txt_A3 Out of limits");
  m.Txt_A3 = "53.81", m.Txt_Iy3 = "8356";
  m.Txt_zC3 = "200";
  r = IsDataOK(m);
  EXPECT_EQ(r.field + " " + r.Error_Text, "Txt_zC3 Out of limits");
}

}  // namespace
}  // namespace zarvek
