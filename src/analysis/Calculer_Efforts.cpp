#include "analysis/Calculer_Efforts.h"

#include "analysis/Mod_Efforts.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

void Calculer_Efforts(BeamModel& m, EffortsData& e) {
  const int Case = Support_Case(m);
  const int NB = NB_Of(m);
  const double L = L_Of(m);
  e.NB = NB;
  e.L = L;
  Init_EffortsX(NB, e.Efforts_X);
  e.Efforts_M.assign(2 * NB + 1, 0.0f);
  e.Efforts_V.assign(2 * NB + 1, 0.0f);
  auto& X = e.Efforts_X;
  auto& M = e.Efforts_M;
  auto& V = e.Efforts_V;

  if (NB > 0 && L != 0) {
    if (m.Chk_M)
      Add_EndMoments(Case, L, NB, X, Value_Of(m.Txt_M1, m.Fact_M), Value_Of(m.Txt_M2, m.Fact_M), M, V);
    const bool chkF[3] = {m.Chk_F1, m.Chk_F2, m.Chk_F3};
    const std::string* txtF[3] = {&m.Txt_F1, &m.Txt_F2, &m.Txt_F3};
    const std::string* txtX[3] = {&m.Txt_xf1, &m.Txt_xf2, &m.Txt_xf3};
    for (int k = 0; k < 3; ++k)
      if (chkF[k]) Add_Force(Case, L, NB, X, Value_Of(*txtF[k], m.Fact_F), Num_Of_Text(*txtX[k]), M, V);
    if (m.Chk_q1)
      Add_DistLoad(Case, L, NB, X, Value_Of(m.Txt_q11, m.Fact_q), Num_Of_Text(m.Txt_xq11),
                   Value_Of(m.Txt_q12, m.Fact_q), Num_Of_Text(m.Txt_xq12), M, V);
    if (m.Chk_q2)
      Add_DistLoad(Case, L, NB, X, Value_Of(m.Txt_q21, m.Fact_q), Num_Of_Text(m.Txt_xq21),
                   Value_Of(m.Txt_q22, m.Fact_q), Num_Of_Text(m.Txt_xq22), M, V);
    if (m.Chk_CC)
      Add_Couple(Case, L, NB, X, Value_Of(m.Txt_CC, m.Fact_M), Num_Of_Text(m.Txt_xfC), M, V);
  }

  e.jMmax = Find_Mmax(NB, M, e.Efforts_Mmax);
  e.xfMmax = e.jMmax > 0 ? (double)X[e.jMmax] : 0.0;
  const std::string mtext = Format_Auto(e.Efforts_Mmax / m.Fact_M);
  const std::string xtext = Format_Pattern(e.xfMmax, "0.000");
  m.Txt_Mmax[0] = m.Txt_Mmax[1] = mtext;
  m.Lbl_xfMmax[0] = m.Lbl_xfMmax[1] = xtext;
}

}  // namespace zarvek
