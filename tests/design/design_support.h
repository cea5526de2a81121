// Beams of the design tests as the windows enter them, the examples' project files, the closed form of Mcr.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <unistd.h>

#include "../foundation/scratch_dir.h"
#include "analysis/Proceed.h"
#include "design/DesignModel.h"
#include "model/DataEntry.h"
#include "model/ProjectFile.h"
#include "section/Catalogue.h"
#include "section/Mod_Section.h"

namespace zarvek::test {

constexpr double kNm = 1e4;  // daN.cm in one kN.m

// A rolled section on the record as the catalogue window hands it over (cm).
inline void Catalogue(BeamModel& m, const std::string& series, const std::string& name, float h, float b,
                      float tw, float tf, float r) {
  m.Opt_Catalogue = true, m.Opt_Dimensions = m.Opt_Properties = false;
  const SectionI s = Calculer_SectionI({name, h, b, tf, tw, r});
  Take_CatalogueSection(m, Transfer_Section(s, series, m.Fact_Izt, m.Fact_Iw));
}

// A uniform load q (kN/m, downward) over the whole span at height z (cm).
inline void Udl(BeamModel& m, const std::string& q, const std::string& z = "0") {
  m.Chk_q1 = true;
  m.Txt_q11 = m.Txt_q12 = "-" + q, m.Txt_xq11 = "0", m.Txt_xq12 = "1", m.Txt_zq1 = z;
}

// A project of tests/design/<dir> as the program opens it.
inline std::string Project_Path(const std::string& dir, const std::string& name) {
  return std::string(ZARVEK_SOURCE_DIR) + "/tests/design/" + dir + "/" + name;
}
inline BeamModel Read_Project(const std::string& file) {
  BeamModel m;
  Init_Default(m, "/tmp");
  EXPECT_TRUE(Read_FileDAT(m, file, "/tmp").ok) << file;
  return m;
}

// Mcr (kN.m) of a fork-supported span by the three-factor formula (Single-Storey Steel Buildings, Part 4,
// C.1.1) with k = kw = 1: C1 pi^2 E Iz / L^2 (sqrt(Iw/Iz + L^2 G It / (pi^2 E Iz) + (C2 zg)^2) - C2 zg). E
// 210000 MPa; Iz, It cm4, Iw cm6, L m, zg cm, G MPa.
inline double Mcr_Formula(double C1, double C2zg, double Iz, double It, double Iw, double L, double G) {
  const double E = 21000, Gc = G / 10, Lc = L * 100, pi2 = M_PI * M_PI;
  const double Nz = pi2 * E * Iz / (Lc * Lc);
  return C1 * Nz * (std::sqrt(Iw / Iz + Lc * Lc * Gc * It / (pi2 * E * Iz) + C2zg * C2zg) - C2zg) / 100;
}

// A project solved as Proceed solves it (Mcr in kN.m), then its check; `checked`: it must reach its figures.
struct Solved { BeamModel m; EffortsData e; double Mcr = 0; DesignRun d; };
inline Solved Solve(const BeamModel& m, bool checked = false) {
  Solved s;
  s.m = m;
  SolveControl ctl;
  const std::string file = ::testing::TempDir() + "zarvek-design-" + std::to_string(::getpid()) + ".ZVK";
  const ProceedResult p = Proceed(s.m, file, ctl);
  EXPECT_EQ(p.Solve_Status, 0) << p.Message;
  s.e = p.Efforts, s.Mcr = p.Solver.mucr * std::fabs((double)p.Efforts.Efforts_Mmax) / kNm;
  // the further solves of C1 leave the problem file of the beam as it was
  const std::string written = foundation_test::Read_File(file);
  s.d = Run_Design(s.m, s.e, s.Mcr * kNm, ctl);
  EXPECT_EQ(foundation_test::Read_File(file), written);
  EXPECT_TRUE(!checked || s.d.result.stop == LtbStop::None) << Design_Note(s.d);
  return s;
}

// C1 of the program: Mcr with the loads at the shear centre over Mcr under a uniform moment of MEd's size
// (not Model_UniformMoment's unit moment), so its critical factor stays within the solver's bracket of 1000.
inline double Program_C1(const Solved& s) {
  const double Mmax = s.e.Efforts_Mmax, M = std::fabs(Mmax) / s.m.Fact_M;
  BeamModel u = Model_UniformMoment(s.m, Mmax);
  u.Txt_M1 = std::to_string(Mmax >= 0 ? -M : M), u.Txt_M2 = std::to_string(Mmax >= 0 ? M : -M);
  return Solve(Model_LoadsAtShearCentre(s.m)).Mcr / Solve(u).Mcr;
}

}  // namespace zarvek::test
