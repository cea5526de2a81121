// From the beam model to the problem file and through the solver: springs
// on the nodes, the file of a record, the closed forms of the fork-supported
// span for every mesh, an axial force, the section routes, the failures.
#include <algorithm>

#include "analysis/Proceed.h"
#include "foundation/Mod_Zarvek.h"
#include "model/DataEntry.h"
#include "model/Validation.h"
#include "solver/solver_support.h"

namespace zarvek {
namespace {

using test::Mcr_Uniform;  // IPE 300 under uniform moment, kN and cm

std::string Scratch(const std::string& name) { return test::Scratch_Dir() + "/" + name; }

RestraintList Spring(const std::string& text) { return RestraintList{-1, text, true}; }

// A new document (IPE 300, 10 m in 100 elements, fork supports, 100 kN.m), changed.
BeamModel Default_Model(const std::function<void(BeamModel&)>& change = {}) {
  BeamModel m;
  Init_Default(m, "/tmp");
  if (change) change(m);
  return m;
}

// mucr of a solve through the problem file `name`.
double Mucr(BeamModel& m, const std::string& name) {
  SolveControl ctl;
  ProceedResult r = Proceed(m, Scratch(name), ctl);
  EXPECT_EQ(r.Solve_Status, 0) << r.Message;
  return r.Solver.mucr;
}

TEST(Proceed, RestraintsOnTheNodes) {
  // node 1 + Int(x NB + c): 0.5 x 50 + 0.50001 = 25.50001 -> 26; the two restraints
  // round apart near a half element: 0.489999 x 50 = 24.49995, 0.510001 x 50 = 25.50005
  struct { double x; int NB, node1, node2; } rows[] = {
      {0.5, 50, 26, 26}, {0.5000001, 50, 26, 26}, {0.489999, 50, 25, 26}, {0.510001, 50, 27, 26}};
  for (const auto& r : rows) {
    EXPECT_EQ(Punctual_Node(r.x, r.NB, Punctual1_Low, Punctual1_High), r.node1) << r.x;
    EXPECT_EQ(Punctual_Node(r.x, r.NB, Punctual2_Low, Punctual2_High), r.node2) << r.x;
  }

  // no lateral stiffness at all: only the twist is joined (untested, a division by zero)
  NodeSprings s(10);
  EXPECT_TRUE(Join_Spring(s, 2, 0, 5, 8)); EXPECT_EQ(s.Rt[2], 5); EXPECT_FALSE(Join_Spring(s, 2, 0, 5, 8, false));

  // continuous 10 kN/m/m (1 daN/cm on a node of 10 cm) at 15 cm, punctual 3 kN/m = 3 daN/cm
  // at -5 cm and 0.3 L: one spring of 4 at (1 x 15 - 3 x 5)/4 = 0, with a twist stiffness
  // about that height of 1 x 15^2 + 3 x 5^2 = 300 beside the punctual 100
  BeamModel m = Default_Model([](BeamModel& m) {
    m.Lst_v1 = m.Lst_v2 = Restraint_Item(0);
    m.Chk_Continuous = true, m.Lst_vi_c = Spring("10"), m.Txt_zint_c = "15";
    m.Lst_vpi_c = Spring("0.5");  // kN.m/m -> 50 daN.cm/cm
    m.Chk_Punctual1 = true, m.Txt_xfint1 = "0.3", m.Lst_vi_p1 = Spring("3"), m.Txt_zint_p1 = "-5";
    m.Lst_ti_p1 = Spring("0.01");  // kN.m/rd -> 100 daN.cm/rd
  });
  NodeSprings n;
  ASSERT_TRUE(Build_NodeSprings(m, 100, 10.0, n));
  EXPECT_NEAR(n.Rv[31], 4, 1e-6); EXPECT_NEAR(n.Zn[31], 0, 1e-6); EXPECT_NEAR(n.Rt[31], 400, 1e-4);
  for (int i : {1, 101}) {  // free ends hold half shares (250 = 50 x 10 / 2), twist still fixed
    EXPECT_NEAR(n.Rv[i], 0.5, 1e-6); EXPECT_NEAR(n.Rvp[i], 250, 1e-3);
    EXPECT_TRUE(n.Rt[i] == 1e30 && n.Zn[i] == 15) << i;
  }
}

TEST(Proceed, ProblemFileOfTheRecord) {
  BeamModel m = Default_Model([](BeamModel& m) {
    m.Lst_vp2 = Spring("2"), m.Txt_zend2 = "-7.5";  // kN.m -> 20000 daN.cm
    m.Chk_F1 = true, m.Txt_zF1 = "15";  // -10 kN at mid-span, 15 cm above the shear centre
    // -4 .. -2 kN/m (daN/cm) from 0.2 to 0.9
    m.Chk_q2 = true, m.Txt_q21 = "-4", m.Txt_q22 = "-2", m.Txt_xq21 = "0.2", m.Txt_xq22 = "0.9";
  });
  ProblemData p;
  EffortsData e;
  std::int16_t status = -1;
  std::string text;
  ASSERT_TRUE(Build_Problem(m, p, e, status, text));
  const std::string file = Problem_Text(p, ProblemLabels::Proceed);
  EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 3 + 2 + 100 + 1 + 101 + 1 + 100 + 3 + 2 + 2);
  // element 1; node 1 fixed (1e30), node 101; the loads: each number with its digits, right-aligned
  for (const char* line :
       {"\n  1       10      603.78      19.868        126332       0            -1            -1            -1\n",
        "\n  1          1E+30          1E+30              0              0         0\n",
        "\n101          1E+30          1E+30          20000              0      -7.5\n",
        "\n1 1\n", "\n       -1000       500        15\n",
        "\n          -4       200          -2       900         0\n"})
    EXPECT_NE(file.find(line), std::string::npos) << line << "\n" << file.substr(0, 300);
}

// A length the mesh doesn't divide into round elements (2.01 m in 200 of 1.005 cm, 10.03 m in 150 of
// 6.6867 cm) reaches the solver whole: Mcr under uniform moment agrees with the closed form for every
// element count of the list; It = 0.692 cm4 is solved as 0.692 (0.69 would lower this Mcr by 0.15 %).
TEST(Proceed, EveryMeshSolvesTheBeamAsTyped) {
  for (const char* L : {"2.01", "10.03"})
    for (int nb = 0; nb < (int)NB_Items.size(); ++nb) {
      BeamModel m = Default_Model([&](BeamModel& m) { m.Txt_L = L, m.Txt_NB = nb, m.Lst_Tolerance = 4; });  // 1e-6
      EXPECT_NEAR(Mucr(m, "MESH.ZVK") * 1e4 / Mcr_Uniform(100 * Num_Of_Text(L)), 1.0, 5e-4)  // 100 kN.m = 1e4 kN.cm
          << L << " m in " << NB_Items[nb] << " elements";
    }
  // no warping stiffness: Mcr = pi/L sqrt(E Iz G It), 5 m
  BeamModel m = Default_Model([](BeamModel& m) {
    m.Opt_Catalogue = false, m.Opt_Properties = true, m.Txt_L = "5", m.Lst_Tolerance = 4;
    m.Txt_Iz[3] = "603.78", m.Txt_It[3] = "0.692", m.Txt_Iw[3] = "0";
  });
  EXPECT_NEAR(Mucr(m, "IT.ZVK") * 1e4 / (M_PI / 500 * std::sqrt(21000 * 603.78 * 8076.9 * 0.692)), 1.0, 4e-4);
}

TEST(Proceed, DefaultBeamGivesTheUniformMomentClosedForm) {
  BeamModel m = Default_Model();
  SolveControl ctl;
  const std::string path = Scratch("DEFAULT.ZVK");
  ASSERT_EQ(Proceed(m, path, ctl).Solve_Status, 0);
  EXPECT_NEAR(Num_Of_Text(m.Txt_Mcr) * 100 / Mcr_Uniform(1000), 1.0, 1e-3);
  // the half sine: largest lateral displacement at mid-span (node 51)
  EXPECT_FLOAT_EQ(m.Mode_Max, 1.0f); EXPECT_NEAR(std::fabs(m.Mode_Vector.at(4 * 51 - 3)), 1.0, 1e-3);

  // the file read as it stands, whatever the entries say
  BeamModel x = Default_Model([](BeamModel& x) { x.Txt_L = "3", x.Chk_M = false; });
  ProceedResult ext = Proceed(x, path, ctl, true);
  ASSERT_EQ(ext.Solve_Status, 0) << ext.Message;
  EXPECT_TRUE(x.Txt_mucr == m.Txt_mucr && x.Txt_Mmax[0] == "100") << x.Txt_mucr << " " << x.Txt_Mmax[0];
  EXPECT_FLOAT_EQ(ext.Efforts.Efforts_M.at(200), 1e6f);

  // the vector iteration; a rigid restraint at mid-span halves the length
  m.Opt_Eigen = true, m.Opt_Dichotomie = false, m.Lst_Tolerance = 4;
  m.Chk_Punctual1 = true, m.Lst_vi_p1 = m.Lst_ti_p1 = Restraint_Item(1);
  ProceedResult h = Proceed(m, "", ctl);
  ASSERT_EQ(h.Solve_Status, 0) << h.Message; EXPECT_EQ(h.Method, Method_Eigen);
  EXPECT_NEAR(h.Solver.mucr * 1e4 / Mcr_Uniform(500), 1.0, 1e-4);
}

TEST(Proceed, FailuresComeBackWithTheirStatus) {
  Set_Msg(57, "Error in the problem file"), Set_Msg(2, "Process stopped");
  SolveControl ctl;
  // continuous twist spring only, left end free: no lateral stiffness at node 1, where the
  // resultant height is divided by 0
  BeamModel m = Default_Model([](BeamModel& m) {
    m.Chk_Continuous = true, m.Lst_v1 = Restraint_Item(0), m.Lst_ti_c = Spring("1");
  });
  ProceedResult r = Proceed(m, Scratch("NODE1.ZVK"), ctl);
  EXPECT_EQ(r.Solve_Status, 11); EXPECT_EQ(r.Message, "Problem in solving Mcr");
  EXPECT_FALSE(File_Exists(Scratch("NODE1.ZVK")));

  BeamModel e = Default_Model([](BeamModel& e) { e.Txt_E = "50"; });  // 500 daN/cm2: refused by the solver
  r = Proceed(e, Scratch("BADE.ZVK"), ctl);
  EXPECT_EQ(r.Solve_Status, 103); EXPECT_EQ(r.Message, "Error in the problem file"); EXPECT_EQ(e.Txt_mucr, "0");
  EXPECT_EQ(Proceed(e, Scratch("MISSING.ZVK"), ctl, true).Solve_Status, 1);

  BeamModel s = Default_Model();
  SolveControl stop;
  stop.Show_Progress = [&](int iteration, double) { stop.Stop_Requested = iteration >= 3; };
  r = Proceed(s, Scratch("STOP.ZVK"), stop);
  EXPECT_EQ(r.Solve_Status, 0); EXPECT_TRUE(r.Stopped); EXPECT_EQ(r.Message, "Process stopped");
}

// ---------------------------------------------------------------- axial force
TEST(AxialProceed, ForceBesideTheMomentOnBothRoutesAndAlone) {
  const double Nz = test::AxialSection{}.Ncr_z() / 100;  // the IPE 300's column load, kN
  for (const char* N : {"50", "-50"}) {
    BeamModel m = Default_Model([N](BeamModel& m) { m.Txt_N = N; });  // 100 kN.m uniform moment
    const double mu = test::Closed_Form_Factor({}, 1e6, 100 * Num_Of_Text(N));  // daN.cm, daN
    EXPECT_NEAR(Mucr(m, "CAT.ZVK") / mu, 1.0, 2e-3) << N;
    EXPECT_NEAR(Num_Of_Text(m.Txt_Ncr) / (mu * Num_Of_Text(N)), 1.0, 2e-3);
    EXPECT_NEAR(Num_Of_Text(m.Txt_Mcr) / (mu * 100), 1.0, 2e-3);
    m.Opt_Catalogue = false, m.Opt_Properties = true, m.Txt_A3 = "53.81", m.Txt_Iy3 = "8356", m.Txt_zC3 = "0";
    EXPECT_NEAR(Mucr(m, "PROP.ZVK") / mu, 1.0, 1e-3) << N;
  }
  // the force alone gives the column load
  BeamModel m = Default_Model([](BeamModel& m) { m.Chk_M = false, m.Txt_N = "10"; });
  EXPECT_NEAR(Mucr(m, "ALONE.ZVK") * 10 / Nz, 1.0, 1e-3);
  EXPECT_NEAR(Num_Of_Text(m.Txt_Ncr) / Nz, 1.0, 1e-3); EXPECT_EQ(m.Txt_Mcr, "0");
}

TEST(AxialProceed, TheFieldsAreCheckedOnlyWhereTheyCount) {
  Set_Msg(43, "Not a number"), Set_Msg(50, "Out of limits");
  BeamModel m = Default_Model([](BeamModel& m) { m.Opt_Catalogue = false, m.Opt_Properties = true; });
  m.Txt_A3 = m.Txt_Iy3 = "0";  // nothing asks for them while N is 0
  EXPECT_TRUE(IsDataOK(m).ok);
  auto refusal = [&m] { const ValidationResult r = IsDataOK(m); return r.field + " " + r.Error_Text; };
  m.Txt_N = "12x";
  EXPECT_EQ(refusal(), "Txt_N Not a number");
  m.Txt_N = "-12";  // the section's area and inertia now count
  EXPECT_EQ(refusal(), "Txt_A3 Out of limits");
  m.Txt_A3 = "53.81", m.Txt_Iy3 = "8356", m.Txt_zC3 = "200";
  EXPECT_EQ(refusal(), "Txt_zC3 Out of limits");
}

// ------------------------------------------------------------ section routes
BeamModel By_Dimensions(int shape, const std::string& bf1, const std::string& bf2) {
  BeamModel m = Default_Model([&](BeamModel& m) {
    m.Opt_Catalogue = false, m.Opt_Dimensions = true, m.Tab_Dim = shape, m.Txt_bf1 = bf1, m.Txt_bf2 = bf2;
  });
  DimensionsResult d = Cmd_Dimensions(m);
  EXPECT_TRUE(d.ok) << d.Error_Text;
  return m;
}

// h 300, b 150, tw 7.1, tf 10.7, r 15 mm, the default dimensions: the IPE 300
// of the catalogue, solved from the slot of the dimensions.
TEST(SectionRoutes, AnIpe300ByItsDimensionsMatchesTheCatalogue) {
  BeamModel cat = Default_Model(), dim = By_Dimensions(0, "15", "15");
  EXPECT_NEAR(Mucr(dim, "DIM.ZVK") / Mucr(cat, "CAT.ZVK"), 1.0, 0.005);
}

// Flange 1 is the top one, compressed by the default 100 kN.m. The section upside down swaps sagging and
// hogging, up to Iw = d^2 I1 (1 - I1/Iz), which counts web and fillets in Iz: 1.8 % apart in Iw, about
// 0.1 % in Mcr. The signs of zS and beta_z must reach the solver the right way up.
TEST(SectionRoutes, TheWiderFlangeInCompressionGivesTheHigherMoment) {
  BeamModel m = By_Dimensions(1, "20", "10"), u = By_Dimensions(1, "10", "20");
  const double sagging = Mucr(m, "SAG.ZVK");
  m.Txt_M1 = "100", m.Txt_M2 = "-100";
  const double hogging = Mucr(m, "HOG.ZVK");
  EXPECT_GT(sagging, 1.2 * hogging); EXPECT_NEAR(Mucr(u, "UPSIDE.ZVK") / hogging, 1.0, 2e-3);
}

}  // namespace
}  // namespace zarvek
