#include "analysis/Proceed.h"

#include <cmath>

#include "analysis/Mod_Efforts.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/Axial.h"
#include "model/DataEntry.h"

namespace zarvek {

int Punctual_Node(double x, int NB, double cLow, double cHigh) {
  const double c = x <= 0.5 ? cLow : cHigh;
  return 1 + (int)std::floor(x * NB + c);
}

bool Join_Spring(NodeSprings& s, int i, double k2, double t2, double z2, bool tested) {
  const double k1 = s.Rv[i];
  const double z1 = s.Zn[i];
  const double k = k1 + k2;
  s.Rv[i] = k;
  s.Rt[i] += t2;
  if (k == 0) {
    // no lateral stiffness at all: no resultant height, no twist coupling;
    // where this is not tested the division fails
    return tested;
  }
  s.Zn[i] = z1 + k2 * (z2 - z1) / k;
  s.Rt[i] += k1 * k2 * (z2 - z1) * (z2 - z1) / k;
  return true;
}

bool Build_NodeSprings(const BeamModel& m, int NB, double Le, NodeSprings& s) {
  s = NodeSprings(NB);
  const int n2 = NB + 1;
  // the two ends
  s.Rv[1] = GetSpring(m.Lst_v1, m.Fact_v);
  s.Rt[1] = GetSpring(m.Lst_t1, m.Fact_t);
  s.Rvp[1] = GetSpring(m.Lst_vp1, m.Fact_vp);
  s.Rtp[1] = GetSpring(m.Lst_tp1, m.Fact_tp);
  s.Zn[1] = Value_Of(m.Txt_zend1, m.Fact_Dim);
  s.Rv[n2] = GetSpring(m.Lst_v2, m.Fact_v);
  s.Rt[n2] = GetSpring(m.Lst_t2, m.Fact_t);
  s.Rvp[n2] = GetSpring(m.Lst_vp2, m.Fact_vp);
  s.Rtp[n2] = GetSpring(m.Lst_tp2, m.Fact_tp);
  s.Zn[n2] = Value_Of(m.Txt_zend2, m.Fact_Dim);

  // A continuous restraint (stiffness per unit length) is lumped on the
  // nodes: a full element length on the inner nodes, half of one at the ends.
  if (m.Chk_Continuous) {
    const double kv = GetSpring(m.Lst_vi_c, m.Fact_v_c);
    const double kt = GetSpring(m.Lst_ti_c, m.Fact_t_c);
    const double kvp = GetSpring(m.Lst_vpi_c, m.Fact_vp_c);
    const double zc = Value_Of(m.Txt_zint_c, m.Fact_Dim);
    for (int i = 2; i <= NB; ++i) {
      s.Rv[i] = kv * Le;
      s.Rt[i] = kt * Le;
      s.Rvp[i] = kvp * Le;
      s.Zn[i] = zc;
    }
    for (int i : {1, n2}) {
      const double rvp0 = s.Rvp[i];
      // node 1 is joined without the test of a zero lateral stiffness
      if (!Join_Spring(s, i, kv * Le / 2, kt * Le / 2, zc, i != 1)) return false;
      s.Rvp[i] += kvp * Le / 2;
      if (rvp0 == 0) s.Zn[i] = zc;
    }
  }

  // Punctual restraints go to the nearest node.
  struct Punctual {
    bool on;
    const std::string& x;
    const std::string& z;
    const RestraintList& v;
    const RestraintList& t;
    double cLow, cHigh;
  };
  const Punctual pts[2] = {
      {m.Chk_Punctual1, m.Txt_xfint1, m.Txt_zint_p1, m.Lst_vi_p1, m.Lst_ti_p1, Punctual1_Low, Punctual1_High},
      {m.Chk_Punctual2, m.Txt_xfint2, m.Txt_zint_p2, m.Lst_vi_p2, m.Lst_ti_p2, Punctual2_Low, Punctual2_High}};
  for (const Punctual& p : pts) {
    if (!p.on) continue;
    const double x = Num_Of_Text(p.x);
    const double xn = x * NB;
    if (!(std::fabs(xn) < 1e9)) return false;
    const int i = Punctual_Node(x, NB, p.cLow, p.cHigh);
    if (i < 1 || i > n2) return false;  // a restraint outside the beam
    Join_Spring(s, i, GetSpring(p.v, m.Fact_v), GetSpring(p.t, m.Fact_t), Value_Of(p.z, m.Fact_Dim));
  }
  return true;
}

bool Build_Problem(BeamModel& m, ProblemData& p, EffortsData& e, std::int16_t& status,
                   std::string& text) {
  status = 0;
  text.clear();
  auto fail = [&]() {
    status = Status_RunTime;
    text = Text_RunTime;
    return false;
  };
  const int NB = NB_Of(m);
  const double Lb = L_Of(m);
  if (NB <= 0) return fail();
  const double Le = Lb / NB;

  // loads written for their height and local effect
  const bool chkF[3] = {m.Chk_F1, m.Chk_F2, m.Chk_F3};
  const std::string* txtF[3][3] = {{&m.Txt_F1, &m.Txt_xf1, &m.Txt_zF1},
                                   {&m.Txt_F2, &m.Txt_xf2, &m.Txt_zF2},
                                   {&m.Txt_F3, &m.Txt_xf3, &m.Txt_zF3}};
  const bool chkQ[2] = {m.Chk_q1, m.Chk_q2};
  const std::string* txtQ[2][5] = {{&m.Txt_q11, &m.Txt_xq11, &m.Txt_q12, &m.Txt_xq12, &m.Txt_zq1},
                                   {&m.Txt_q21, &m.Txt_xq21, &m.Txt_q22, &m.Txt_xq22, &m.Txt_zq2}};
  int NF = 0, NQ = 0;
  for (bool c : chkF) NF += c;
  for (bool c : chkQ) NQ += c;

  p = ProblemData();
  p.Resize(NB, NF, NQ);
  p.E = E_Of(m);
  p.G = G_Of(m);
  const double Iz = Iz_Of(m), It = It_Of(m), Iw = Iw_Of(m), Betaz = Betaz_Of(m);
  // equal elements, rigidly linked to each other
  for (int n = 1; n <= NB; ++n) {
    p.L[n] = Le;
    p.Iz[n] = Iz;
    p.It[n] = It;
    p.Iw[n] = Iw;
    p.Betaz[n] = Betaz;
    p.Kt[n] = p.Kvp[n] = p.Ktp[n] = -1;
  }
  if (const double N = N_Of(m); N != 0) {
    const AxialConstants c = Axial_Constants_Of(m);
    for (int n = 1; n <= NB; ++n) p.N[n] = N, p.A[n] = c.A, p.Iy[n] = c.Iy, p.zC[n] = c.zC;
  }

  NodeSprings s;
  if (!Build_NodeSprings(m, NB, Le, s)) return fail();
  for (int i = 1; i <= NB + 1; ++i) {
    p.Rv[i] = s.Rv[i];
    p.Rt[i] = s.Rt[i];
    p.Rvp[i] = s.Rvp[i];
    p.Rtp[i] = s.Rtp[i];
    p.z[i] = s.Zn[i];
  }

  // the end moments of every element carry the whole effect of the loads
  Calculer_Efforts(m, e);
  for (int i = 1; i <= NB; ++i) {
    p.M1[i] = e.Efforts_M[2 * i - 1];
    p.M2[i] = e.Efforts_M[2 * i];
  }

  int k = 0;
  for (int j = 0; j < 3; ++j) {
    if (!chkF[j]) continue;
    ++k;
    p.F[k] = Value_Of(*txtF[j][0], m.Fact_F);
    p.xF[k] = (Num_Of_Text(*txtF[j][1]) * Lb);
    p.zF[k] = Value_Of(*txtF[j][2], m.Fact_Dim);
  }
  k = 0;
  for (int j = 0; j < 2; ++j) {
    if (!chkQ[j]) continue;
    ++k;
    p.q1[k] = Value_Of(*txtQ[j][0], m.Fact_q);
    p.x1[k] = (Num_Of_Text(*txtQ[j][1]) * Lb);
    p.q2[k] = Value_Of(*txtQ[j][2], m.Fact_q);
    p.x2[k] = (Num_Of_Text(*txtQ[j][3]) * Lb);
    p.zq[k] = Value_Of(*txtQ[j][4], m.Fact_Dim);
  }
  return true;
}

ProceedResult Proceed(BeamModel& m, const std::string& problemPath, SolveControl& ctl, bool ExternalMode) {
  ProceedResult r;
  std::string problemText;
  if (ExternalMode) {
    // the problem file of the user stands as it is
    InitProcessInfo(m);
    InitEffortsInfo(m);
  } else {
    if (ctl.Show_Status) ctl.Show_Status(Msg(8));
    ProblemData p;
    std::int16_t status = 0;
    std::string text;
    if (!Build_Problem(m, p, r.Efforts, status, text)) {
      r.Solve_Status = status;
      r.Message = text;
      return r;
    }
    if (problemPath.empty()) {
      // no file: the problem text goes to the solver in memory
      problemText = Problem_Text(p, ProblemLabels::Proceed);
    } else if (!Write_ProblemFile(problemPath, p, ProblemLabels::Proceed)) {
      r.Solve_Status = Status_RunTime;
      r.Message = Text_RunTime;
      return r;
    }
  }

  r.Method = Method_Of(m);
  ctl.Tol = Tolerance_Of(m);
  ctl.NbIter = NbIter_Of(m);
  if (!ExternalMode && problemPath.empty())
    Solve_ProblemText(std::move(problemText), r.Method, r.Solver, ctl);
  else
    Solve_Problem(problemPath, r.Method, r.Solver, ctl);
  const SolverResult& s = r.Solver;
  r.Solve_Status = s.Solve_Status;

  if (r.Solve_Status != 0) {
    r.Message = s.Error_Text;
    return r;
  }
  r.Stopped = ctl.Stop_Requested;
  r.Message = r.Stopped ? Msg(2) : s.Error_Text;

  if (ExternalMode) {
    const std::string mtext = Format_Auto(s.Mmax / m.Fact_M);
    const std::string xtext = Format_Pattern(s.xMmax, "0.000");
    m.Txt_Mmax[0] = m.Txt_Mmax[1] = mtext;
    m.Lbl_xfMmax[0] = m.Lbl_xfMmax[1] = xtext;
    r.Efforts.Efforts_Mmax = (float)s.Mmax;
    r.Efforts.xfMmax = s.xMmax;
  }
  m.Txt_mucr = Format_Auto(s.mucr);
  m.Txt_Mcr = Format_Auto(s.mucr * r.Efforts.Efforts_Mmax / m.Fact_M);
  m.Txt_Ncr = Format_Auto(s.mucr * s.N / m.Fact_F);
  float mx = 0;
  for (size_t i = 1; i < s.Mode_Vector.size(); ++i) mx = std::max(mx, std::fabs(s.Mode_Vector[i]));
  m.Mode_Max = mx;
  m.Mode_Vector = s.Mode_Vector;
  m.Restraint_Level = s.Restraint_Level;
  m.Mcr_Factor = (float)s.mucr;

  if (ExternalMode) {
    // the diagrams follow the problem file
    r.Efforts.NB = s.NB;
    Init_EffortsX(s.NB, r.Efforts.Efforts_X);
    r.Efforts.Efforts_M = s.Efforts_M;
    r.Efforts.Efforts_V = s.Efforts_V;
    r.Efforts.Efforts_M.resize(2 * s.NB + 1, 0.0f);
    r.Efforts.Efforts_V.resize(2 * s.NB + 1, 0.0f);
  }
  return r;
}

}  // namespace zarvek
