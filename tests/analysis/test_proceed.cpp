// From the beam model to the problem file and through the solver.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "analysis/Proceed.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {
namespace {

std::string Scratch(const std::string& name) {
  static std::string dir;
  if (dir.empty()) {
    char tmpl[] = "/tmp/zarvek-proceed-XXXXXX";
    dir = mkdtemp(tmpl) ? tmpl : "/tmp";
  }
  return dir + "/" + name;
}

RestraintList Spring(const std::string& text) { return RestraintList{-1, text, true}; }

// A new document: IPE 300, 10 m in 100 elements, fork supports, 100 kN.m.
BeamModel Default_Model() {
  BeamModel m;
  Init_Default(m, "/tmp");
  return m;
}

// Fork-supported span under uniform moment, kN and cm, IPE 300,
// E 21000 kN/cm2, G 8076.9 kN/cm2.
double Mcr_Uniform(double L) {
  const double E = 21000, G = 8076.9, Iz = 603.78, It = 19.868, Iw = 126332;
  return M_PI / L * std::sqrt(E * Iz * G * It) * std::sqrt(1 + M_PI * M_PI * E * Iw / (L * L * G * It));
}

TEST(Proceed, PunctualRestraintsGoToTheNearestNode) {
  EXPECT_EQ(Punctual_Node(0.5, 50, Punctual1_Low, Punctual1_High), 26);  // 1 + Int(25.50001)
  EXPECT_EQ(Punctual_Node(0.5000001, 50, Punctual1_Low, Punctual1_High), 26);
  EXPECT_EQ(Punctual_Node(0.95, 100, Punctual2_Low, Punctual2_High), 96);
  // the two restraints round apart just below and above a half element:
  // 0.489999 x 50 = 24.49995, 0.510001 x 50 = 25.50005
  EXPECT_EQ(Punctual_Node(0.489999, 50, Punctual1_Low, Punctual1_High), 25);
  EXPECT_EQ(Punctual_Node(0.489999, 50, Punctual2_Low, Punctual2_High), 26);
  EXPECT_EQ(Punctual_Node(0.510001, 50, Punctual1_Low, Punctual1_High), 27);
  EXPECT_EQ(Punctual_Node(0.510001, 50, Punctual2_Low, Punctual2_High), 26);
}

TEST(Proceed, SpringsJoinedOnANode) {
  // no lateral stiffness at all: only the twist is joined, and untested
  // this is a division by zero
  NodeSprings s(10);
  EXPECT_TRUE(Join_Spring(s, 2, 0, 5, 8));
  EXPECT_EQ(s.Zn[2], 0);
  EXPECT_EQ(s.Rt[2], 5);
  EXPECT_FALSE(Join_Spring(s, 2, 0, 5, 8, false));

  // continuous 10 kN/m/m (1 daN/cm on a node of 10 cm) at 15 cm, punctual
  // 3 kN/m = 3 daN/cm at -5 cm and 0.3 L: one spring of 4 at
  // (1 x 15 - 3 x 5)/4 = 0, with a twist stiffness about that height of
  // 1 x 15^2 + 3 x 5^2 = 300 beside the punctual 100
  BeamModel m = Default_Model();
  m.Chk_Continuous = true;
  m.Lst_v1 = m.Lst_v2 = Restraint_Item(0);
  m.Lst_vi_c = Spring("10");
  m.Lst_vpi_c = Spring("0.5");  // kN.m/m -> 50 daN.cm/cm
  m.Txt_zint_c = "15";
  m.Chk_Punctual1 = true;
  m.Txt_xfint1 = "0.3";
  m.Lst_vi_p1 = Spring("3");
  m.Lst_ti_p1 = Spring("0.01");  // kN.m/rd -> 100 daN.cm/rd
  m.Txt_zint_p1 = "-5";
  NodeSprings n;
  ASSERT_TRUE(Build_NodeSprings(m, 100, 10.0, n));
  EXPECT_NEAR(n.Rv[30], 1, 1e-6);
  EXPECT_NEAR(n.Rvp[30], 500, 1e-3);
  EXPECT_DOUBLE_EQ(n.Zn[30], 15);
  EXPECT_NEAR(n.Rv[31], 4, 1e-6);
  EXPECT_NEAR(n.Zn[31], 0, 1e-6);
  EXPECT_NEAR(n.Rt[31], 400, 1e-4);
  for (int i : {1, 101}) {  // free ends hold half shares, twist still fixed
    EXPECT_NEAR(n.Rv[i], 0.5, 1e-6);
    EXPECT_NEAR(n.Rvp[i], 250, 1e-3);
    EXPECT_EQ(n.Rt[i], 1e30);
    EXPECT_DOUBLE_EQ(n.Zn[i], 15);
  }
}

std::vector<std::string> Lines_Of(const std::string& text) {
  std::vector<std::string> v;
  std::istringstream in(text);
  for (std::string l; std::getline(in, l);) v.push_back(l);
  return v;
}

TEST(Proceed, ProblemFileOfTheRecord) {
  BeamModel m = Default_Model();
  m.Lst_vp2 = Spring("2");  // kN.m -> 20000 daN.cm
  m.Txt_zend2 = "-7.5";
  m.Chk_F1 = true;  // -10 kN at mid-span, 15 cm above the shear centre
  m.Txt_zF1 = "15";
  m.Chk_q2 = true;  // -4 .. -2 kN/m (daN/cm) from 0.2 to 0.9
  m.Txt_q21 = "-4";
  m.Txt_q22 = "-2";
  m.Txt_xq21 = "0.2";
  m.Txt_xq22 = "0.9";
  ProblemData p;
  EffortsData e;
  std::int16_t status = -1;
  std::string text;
  ASSERT_TRUE(Build_Problem(m, p, e, status, text));
  EXPECT_DOUBLE_EQ(p.E, 2100000);  // 210000 MPa in daN/cm2
  EXPECT_DOUBLE_EQ(p.G, 807690);
  EXPECT_FLOAT_EQ(p.M1[1], e.Efforts_M[1]);  // the sampled diagram
  EXPECT_FLOAT_EQ(p.M2[100], e.Efforts_M[200]);
  EXPECT_EQ(m.Txt_Mmax[1], Format_Auto(e.Efforts_Mmax / 10000.0));

  const auto l = Lines_Of(Problem_Text(p, ProblemLabels::Proceed));
  ASSERT_EQ(l.size(), 3u + 2 + 100 + 1 + 101 + 1 + 100 + 3 + 2 + 2);
  EXPECT_EQ(l[5], "  1    10.00      603.78       19.87      126332.0    0.00         -1.00"
                  "         -1.00         -1.00");
  // a fixed degree stands as 1e30
  EXPECT_EQ(l[106], "  1      1.000E+30      1.000E+30           0.00           0.00      0.00");
  EXPECT_EQ(l[107], "  2           0.00           0.00           0.00           0.00      0.00");
  EXPECT_EQ(l[206], "101      1.000E+30      1.000E+30       20000.00           0.00     -7.50");
  EXPECT_EQ(l[310], "1 1");
  EXPECT_EQ(l[312], "     -1000.0    500.00     15.00");
  EXPECT_EQ(l[314], "      -4.000    200.00      -2.000    900.00      0.00");
}

TEST(Proceed, RunTimeFailuresComeBackAsStatus11) {
  // continuous twist spring only, left end free: no lateral stiffness at
  // node 1, where the resultant height is divided by 0
  BeamModel m = Default_Model();
  m.Chk_Continuous = true;
  m.Lst_v1 = Restraint_Item(0);
  m.Lst_ti_c = Spring("1");
  const std::string path = Scratch("NODE1.ZVK");
  SolveControl ctl;
  ProceedResult r = Proceed(m, path, ctl);
  EXPECT_EQ(r.Solve_Status, 11);
  EXPECT_EQ(r.Message, "Problem in solving Mcr");
  EXPECT_FALSE(File_Exists(path));
  // at the right end the case is tested and passes
  std::swap(m.Lst_v1, m.Lst_v2);
  ProblemData p;
  EffortsData e;
  std::int16_t status;
  std::string text;
  EXPECT_TRUE(Build_Problem(m, p, e, status, text));
  // a punctual restraint outside the beam
  BeamModel o = Default_Model();
  o.Chk_Punctual1 = true;
  o.Txt_xfint1 = "-0.5";
  EXPECT_FALSE(Build_Problem(o, p, e, status, text));
  EXPECT_EQ(status, 11);
}

TEST(Proceed, DefaultBeamGivesTheUniformMomentClosedForm) {
  BeamModel m = Default_Model();
  SolveControl ctl;
  ProceedResult r = Proceed(m, Scratch("DEFAULT.ZVK"), ctl);
  ASSERT_EQ(r.Solve_Status, 0) << r.Message;
  EXPECT_EQ(r.Method, Method_Dichotomie);
  EXPECT_EQ(ctl.NbIter, 70);  // Lst_NbIter item 2
  EXPECT_NEAR(r.Solver.mucr * 1e4 / Mcr_Uniform(1000), 1.0, 1e-4);  // mucr x 100 kN.m
  EXPECT_NEAR(Num_Of_Text(m.Txt_Mcr) * 100 / Mcr_Uniform(1000), 1.0, 1e-3);
  EXPECT_FLOAT_EQ(m.Mcr_Factor, (float)r.Solver.mucr);
  // the half sine: largest lateral displacement at mid-span (node 51)
  EXPECT_FLOAT_EQ(m.Mode_Max, 1.0f);
  ASSERT_EQ(m.Mode_Vector.size(), 4u * 101 + 1);
  EXPECT_NEAR(std::fabs(m.Mode_Vector[4 * 51 - 3]), 1.0, 1e-3);
  EXPECT_EQ(m.Restraint_Level.size(), 102u);

  // the vector iteration; a rigid restraint at mid-span halves the length
  m.Opt_Eigen = true;
  m.Opt_Dichotomie = false;
  m.Lst_Tolerance = 4;
  m.Chk_Punctual1 = true;
  m.Lst_vi_p1 = m.Lst_ti_p1 = Restraint_Item(1);
  ProceedResult h = Proceed(m, Scratch("HALF.ZVK"), ctl);
  ASSERT_EQ(h.Solve_Status, 0) << h.Message;
  EXPECT_EQ(h.Method, Method_Eigen);
  EXPECT_NEAR(h.Solver.mucr * 1e4 / Mcr_Uniform(500), 1.0, 1e-4);
}

TEST(Proceed, ExternalProblemFileIsReadAsItStands) {
  BeamModel m = Default_Model();
  const std::string path = Scratch("EXTERNAL.ZVK");
  SolveControl ctl;
  ASSERT_EQ(Proceed(m, path, ctl).Solve_Status, 0);
  BeamModel x = Default_Model();  // entries that don't apply
  x.Txt_L = "3";
  x.Chk_M = false;
  ProceedResult r = Proceed(x, path, ctl, true);
  ASSERT_EQ(r.Solve_Status, 0) << r.Message;
  EXPECT_EQ(x.Txt_mucr, m.Txt_mucr);
  EXPECT_EQ(x.Txt_Mmax[0], "100");
  EXPECT_EQ(x.Lbl_xfMmax[1], "0.000");
  ASSERT_EQ(r.Efforts.Efforts_M.size(), 201u);
  EXPECT_FLOAT_EQ(r.Efforts.Efforts_M[200], 1e6f);
}

TEST(Proceed, SolverFailureAndStop) {
  Set_Msg(57, "Error in the problem file");
  Set_Msg(2, "Process stopped");
  BeamModel m = Default_Model();
  m.Txt_E = "50";  // 500 daN/cm2: refused by the solver
  SolveControl ctl;
  ProceedResult r = Proceed(m, Scratch("BADE.ZVK"), ctl);
  EXPECT_EQ(r.Solve_Status, 103);
  EXPECT_EQ(r.Message, "Error in the problem file");
  EXPECT_EQ(m.Txt_mucr, "0");
  EXPECT_EQ(Proceed(m, Scratch("MISSING.ZVK"), ctl, true).Solve_Status, 1);

  BeamModel s = Default_Model();
  SolveControl stop;
  stop.Show_Progress = [&](int iteration, double) { stop.Stop_Requested = iteration >= 3; };
  ProceedResult t = Proceed(s, Scratch("STOP.ZVK"), stop);
  EXPECT_EQ(t.Solve_Status, 0);
  EXPECT_TRUE(t.Stopped);
  EXPECT_EQ(t.Message, "Process stopped");
}

}  // namespace
}  // namespace zarvek
