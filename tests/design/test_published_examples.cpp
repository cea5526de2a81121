// The design check against worked examples of published design guides.
//
// Each example is a project of tests/design/published, entered as an engineer
// enters it (catalogue section, span, loads, grade). The program solves it and
// runs the check; its Mcr and C1 are compared with the published ones within
// what the published rounding and the section tables allow, and the formula
// chain, fed with the published Mcr, gives the published lambdaLT, PhiLT,
// chiLT and Mb,Rd to the digits printed.
//
// Sources (free design guides of the "Steel Buildings in Europe" series,
// published on infosteel.be, pages cited by their printed numbers):
//  [MSB4] Multi-Storey Steel Buildings, Part 4: Detailed Design, Appendix A,
//         worked example A.1 "Simply supported, laterally unrestrained beam".
//  [MSB8] Multi-Storey Steel Buildings, Part 8: Design Software - Section
//         Capacity, Appendix A, worked examples 1 and 2.
//  [SSB4] Single-Storey Steel Buildings, Part 4: Detailed Design of Portal
//         Frames, Appendix C (Mcr, C1) and Appendix D (worked example of a
//         portal frame, whose column and rafter are the members of [MSB8]).
// The guides take E = 210000 MPa and G = 80770 MPa [MSB4] or 81000 MPa [SSB4
// p. 4-76]; the projects carry the guide's G.
#include <tuple>

#include "design_support.h"

using namespace zarvek;
using namespace zarvek::test;

namespace {

// The three examples as projects.
//  1 [MSB4] A.1: IPE 330, S235, L = 5.70 m, forks, 22.28 kN/m on the top
//    flange (zg = h/2 = 165 mm), G = 80770 MPa.
//  2 [MSB8] example 2 = [SSB4] rafter, mid-span region: IPE 450, S355,
//    1.70 m between purlins, uniform moment 356 kN.m, G = 81000 MPa.
//  3 [MSB8] example 1 = [SSB4] column: IPE 500, S355, 3.80 m, end moments
//    444 and 0 kN.m (psi = 0), G = 81000 MPa; the guide applies no f.
BeamModel Published(int n) {
  BeamModel m;
  Init_Default(m, "/tmp");
  m.Chk_M = m.Opt_Nu = false, m.Opt_G = true, m.Txt_G = "81000";
  switch (n) {
    case 1:
      Catalogue(m, "IPE", "330", 33, 16, 0.75f, 1.15f, 1.8f);
      m.Txt_L = "5.7", m.Lst_Grade = 0, m.Txt_G = "80770";
      Udl(m, "22.28", "16.5");
      break;
    case 2:
      Catalogue(m, "IPE", "450", 45, 19, 0.94f, 1.46f, 2.1f);
      m.Txt_L = "1.7", m.Chk_M = true, m.Txt_M1 = "-356", m.Txt_M2 = "356";
      Calculer_Psi(m);
      break;
    case 3:
      Catalogue(m, "IPE", "500", 50, 20, 1.02f, 1.6f, 2.1f);
      m.Txt_L = "3.8", m.Chk_M = true, m.Txt_M1 = "0", m.Txt_M2 = "444";
      Calculer_Psi(m);
      m.Chk_fmod = false;
      break;
  }
  return m;
}
const char* const Files[] = {"", "MSB4_A1.DAT", "MSB8_WE2.DAT", "MSB8_WE1.DAT"};
BeamModel Read_Project(int n) { return test::Read_Project(Project_Path("published", Files[n])); }

// The same beam with the constants of the guide's section table typed on the
// properties route (cm4, cm6).
BeamModel With_Table_Constants(BeamModel m, const char* Iz, const char* It, const char* Iw) {
  m.Opt_Catalogue = m.Opt_Dimensions = false, m.Opt_Properties = true;
  m.Txt_Iz[3] = Iz, m.Txt_It[3] = It, m.Txt_Iw[3] = Iw, m.Txt_Betaz[3] = "0";
  return m;
}

// The program's C1 lies between the table's value and the older tables', and
// comes back to the table's within tol on a span of 60 m (small kappa).
double Expect_C1(const BeamModel& m, double table, double older, double tol) {
  const double C1 = Program_C1(Solve(m));
  EXPECT_TRUE(C1 > table && C1 < older) << C1;
  BeamModel longSpan = m;
  longSpan.Txt_L = "60";
  EXPECT_NEAR(Program_C1(Solve(longSpan)), table, tol);
  return C1;
}

// The check of a project with its inputs as the program reads them, Mcr
// replaced by the published one and Wpl,y by the guide's table value: curve
// c, and lambdaLT, PhiLT, chiLT to the digits printed.
LtbResult Chain(const DesignRun& d, double Mcr_kNm, double Wpl, double lambda, double phi, double chi,
                double phiTol = 0.0005) {
  LtbInput in = d.input;
  in.Mcr = Mcr_kNm * kNm, in.section.Wpl = Wpl;
  const LtbResult r = Ltb_Check(in);
  EXPECT_EQ(r.curve, 'c');
  EXPECT_NEAR(r.lambdaLT, lambda, 0.0005);
  EXPECT_NEAR(r.phiLT, phi, phiTol);
  EXPECT_NEAR(r.chiLT, chi, 0.0005);
  return r;
}

// The check of a solved project, and the class the guide finds by its c/t.
DesignRun Check(const BeamModel& m, double flangeRatio, double webRatio, double flangeTol = 0.05) {
  const DesignRun d = Solve(m, true).d;
  EXPECT_EQ(d.result.cls.cls, 1);
  EXPECT_NEAR(d.result.cls.flangeRatio, flangeRatio, flangeTol);
  EXPECT_NEAR(d.result.cls.webRatio, webRatio, 0.05);
  return d;
}

}  // namespace

// The files of tests/design/published are the models built here.
TEST(PublishedExamples, ProjectFilesAreTheExamples) {
  for (int n = 1; n <= 3; ++n) EXPECT_EQ(Project_Text(Read_Project(n)), Project_Text(Published(n))) << Files[n];
}

// [MSB4] A.1, sheets 3 and 5 of 7 (pp. 4-59, 4-61). IPE 330 (table: Iz 788.1,
// It 28.15 cm4, Iw 199100 cm6, Wpl,y 804.3 cm3), S235, class 1 (p. 4-59),
// MEd = 22.28 x 5.70^2 / 8 = 90.48 kN.m. Load on the top flange: C1 = 1.127,
// C2 = 0.454, zg = 165 mm, pi^2 E Iz / L^2 = 502.75 kN:
// Mcr = 113.9 kN.m, lambdaLT = 1.288; h/b = 2.06 -> curve c, 6.3.2.3:
// PhiLT = 1.340, chiLT = 0.480. The sheet with kc, f and Mb,Rd (6 of 7) could
// not be consulted; Mb,Rd below is the hand continuation with Table 6.6.
TEST(PublishedExamples, Ipe330LoadOnTopFlange) {
  const BeamModel m = Read_Project(1);
  // With the guide's own constants the solve gives the published Mcr within
  // 0.5 %: the table's C1 = 1.127 and C2 = 0.454 are the values of a small
  // torsion parameter kappa = pi/L sqrt(E Iw/(G It)), here 0.76.
  EXPECT_NEAR(Solve(With_Table_Constants(m, "788.1", "28.15", "199100")).Mcr / 113.9, 1, 0.005);
  const double guide = Mcr_Formula(1.127, 0.454 * 16.5, 788.1, 28.15, 199100, 5.7, 80770);
  EXPECT_NEAR(guide, 113.9, 0.05);
  // The catalogue's It is 2 % below the table's (27.58 against 28.15 cm4):
  // the project's Mcr follows the formula's ratio of the two sets of constants.
  const double ratio = Mcr_Formula(1.127, 0.454 * 16.5, 788.14, 27.576, 199877, 5.7, 80770) / guide;
  EXPECT_NEAR(Solve(m).Mcr / (113.9 * ratio), 1, 0.005);
  // C1 under the uniform load: between the 1.127 of the table and the 1.132
  // of the older tables at this kappa, the table's 1.127 to its last digit on
  // a long span (kappa = 0.07 at 60 m)
  Expect_C1(m, 1.127, 1.132, 0.0005);

  // p. 4-59: c/tf = 58.25/11.5 = 5.07, c/tw = 271/7.5 = 36.1, class 1
  const DesignRun d = Check(m, 5.07, 36.1, 0.005);
  EXPECT_NEAR(d.result.MEd / kNm, 90.48, 0.005);
  // kc: Table 6.6, uniform load, pinned ends
  EXPECT_EQ(std::tuple(d.result.curve, d.result.kc), std::tuple('c', 0.94));
  EXPECT_NEAR(d.result.lambdaLT, 1.288, 0.006);  // the program's own Mcr
  EXPECT_NEAR(d.result.chiLT, 0.480, 0.003);

  const LtbResult r = Chain(d, 113.9, 804.3, 1.288, 1.340, 0.480);
  EXPECT_EQ(r.alphaLT, 0.49);
  // hand continuation: f = 1 - 0.03 (1 - 2 x 0.4882^2) = 0.984,
  // chi,mod = 0.4803 / 0.9843 = 0.488, Mb,Rd = 0.488 x 804.3 x 0.235 = 92.2 kN.m
  EXPECT_NEAR(r.f, 0.984, 0.0005);
  EXPECT_NEAR(r.chiLTmod, 0.488, 0.0005);
  EXPECT_NEAR(r.MbRd / kNm, 92.2, 0.05);
}

// [MSB8] example 2, sheets 3 and 4 of 5 (pp. 8-20, 8-21); the same figures in
// [SSB4] App. D sheet 28 of 44 (p. 4-109). IPE 450 (table: Iz 1676, It 66.9
// cm4, Iw 791e3 cm6, Wpl,y 1702 cm3), S355, 1.70 m, uniform moment: C1 = 1,
// Mcr = 2733 kN.m, lambdaLT = 0.470, h/b = 2.37 -> curve c, PhiLT = 0.60,
// chiLT = 0.961, Mb,Rd = 0.961 x 1702 x 0.355 = 581 kN.m.
TEST(PublishedExamples, Ipe450UniformMoment) {
  const BeamModel m = Read_Project(2);
  // C1 = 1 is exact: with the table's constants the solve is the closed form
  EXPECT_NEAR(Solve(With_Table_Constants(m, "1676", "66.9", "791000")).Mcr, 2733, 0.5);
  EXPECT_NEAR(Mcr_Formula(1, 0, 1676, 66.9, 791e3, 1.7, 81000), 2733, 0.5);
  // the catalogue's constants (It 66.18, Iw 794.2e3): 0.1 % more
  EXPECT_NEAR(Solve(m).Mcr, Mcr_Formula(1, 0, 1675.9, 66.177, 794246, 1.7, 81000), 0.5);

  // p. 8-18: c/tw = 378.8/9.4 = 40.3, c/tf = 69.3/14.6 = 4.7, class 1
  const DesignRun d = Check(m, 4.7, 40.3);
  // Table 6.6, psi = 1: kc = 1, f = 1, no further solve
  EXPECT_EQ(std::tuple(d.result.kc, d.result.f, d.furtherSolves), std::tuple(1.0, 1.0, 0));
  // the program's own figures round to the published ones
  EXPECT_NEAR(d.result.lambdaLT, 0.470, 0.0005);
  EXPECT_NEAR(d.result.chiLT, 0.961, 0.0005);

  const LtbResult r = Chain(d, 2733, 1702, 0.470, 0.60, 0.961, 0.005);
  // The guide multiplies the rounded chi: 0.961 x 604.2 = 580.6 -> 581; the
  // unrounded 0.96070 gives 580.5. The last digit holds within the 0.3 kN.m
  // of chi's rounding and the 0.5 of Mb,Rd's.
  EXPECT_NEAR(r.MbRd / kNm, 581, 0.8);
  EXPECT_NEAR(d.result.MbRd / kNm, 581, 0.8);
}

// [MSB8] example 1, sheet 1 of 2 (p. 8-16): IPE 500, S355, L = 3.8 m, end
// moments 444 and 0 kN.m, C1 = 1.77 from [SSB4] App. C Table C.1; the same
// member is the column of [SSB4] App. D, whose Mb,Rd = 640 kN.m is printed on
// sheet 21 of 44 (p. 4-102). With the section table (Iz 2142, It 89.29 cm4,
// Iw 1249e3 cm6, Wpl,y 2194 cm3, G 81000): Mcr = 1.77 x 879.6 = 1557 kN.m,
// lambdaLT = 0.707, curve c (h/b = 2.5), PhiLT = 0.763, chiLT = 0.821,
// Mb,Rd = 0.821 x 2194 x 0.355 = 640 kN.m: the guide applies no f.
TEST(PublishedExamples, Ipe500EndMomentPsiZero) {
  const BeamModel m = Read_Project(3);
  const double Mcr_table = Mcr_Formula(1.77, 0, 2142, 89.29, 1249e3, 3.8, 81000);
  EXPECT_NEAR(Mcr_table, 1557, 0.5);
  // The table's 1.77 is the limit of a small torsion parameter kappa; the
  // exact C1 of psi = 0 grows with kappa (here 1.58) towards the 1.879 of
  // the older tables. The program's C1 lies between, and comes back to the
  // table's 1.77 on a long span (kappa = 0.1 at 60 m).
  const double C1 = Expect_C1(m, 1.77, 1.879, 0.005);
  // with the table's constants, the solve is the formula with the program's C1
  const double table = Solve(With_Table_Constants(m, "2142", "89.29", "1249000")).Mcr;
  EXPECT_NEAR(table / Mcr_Formula(C1, 0, 2142, 89.29, 1249e3, 3.8, 81000), 1, 0.001);

  // p. 8-16: c/tw = 426/10.2 = 41.8, c/tf = 73.9/16 = 4.6, class 1
  const DesignRun d = Check(m, 4.6, 41.8);
  const LtbResult r = Chain(d, Mcr_table, 2194, 0.707, 0.763, 0.821);
  EXPECT_FALSE(r.useF);
  EXPECT_NEAR(r.MbRd / kNm, 640, 0.5);

  // The program's default for a rolled section applies f with kc = 1/1.33
  // (Table 6.6, psi = 0): f = 1 - 0.124 (1 - 2 (0.707 - 0.8)^2) = 0.878 and
  // Mb,Rd = 0.821 / 0.878 x 778.9 = 728 kN.m; the project follows the guide.
  BeamModel withF = m;
  withF.Chk_fmod = true;
  const LtbResult rf = Chain(Check(withF, 4.6, 41.8), Mcr_table, 2194, 0.707, 0.763, 0.821);
  EXPECT_NEAR(rf.kc, 1 / 1.33, 1e-12);
  EXPECT_NEAR(rf.f, 0.878, 0.0005);
  EXPECT_NEAR(rf.MbRd / kNm, 728, 1);
  // The program's own Mcr (its exact C1, 4.5 % above the table's) gives a
  // resistance 1 % above the guide's.
  EXPECT_TRUE(d.result.MbRd / kNm > 640 && d.result.MbRd / kNm < 640 * 1.015) << d.result.MbRd / kNm;
}

// Writes the projects (run by hand with --gtest_also_run_disabled_tests after
// a change of the examples).
TEST(PublishedExamples, DISABLED_WriteProjects) {
  for (int n = 1; n <= 3; ++n) ASSERT_TRUE(Save_FileDAT(Published(n), Project_Path("published", Files[n])));
}

// The rafter of example 2 with a load the tables have no kc for (800 kN at
// 0.3 L): C1 then comes from the two further solves. Mcr,0 of this short
// beam is 2737 kN.m, beyond the solver's bracket of the critical factor
// (1000) under a unit moment: the uniform moment must carry the size of MEd.
TEST(PublishedExamples, ShortStiffBeamKeepsItsC1) {
  BeamModel m = Published(2);
  m.Chk_M = false, m.Chk_F1 = true, m.Txt_F1 = "-800", m.Txt_xf1 = "0.3", m.Txt_zF1 = "0";
  const DesignRun d = Solve(m, true).d;
  EXPECT_FALSE(d.C1Failed);
  EXPECT_NEAR(d.Mcr_0 / kNm, Mcr_Formula(1, 0, 1675.9, 66.177, 794246, 1.7, 81000), 0.5);
}
