#include "view3d/TriD_Model.h"

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

TriD_Beam TriD_BeamOf(const BeamModel& m) {
  TriD_Beam b;
  b.L = static_cast<float>(L_Of(m));
  b.NB = NB_Of(m);
  if (m.Opt_Properties) {
    b.b1 = b.b2 = b.L / 30;
    b.h1 = b.L / 40;
    b.h2 = -b.L / 40;
  } else if (m.Opt_Dimensions) {
    const double f = m.Fact_Dim;
    const double h = Num_Of_Text(m.Txt_h) * f;
    const double e = (Num_Of_Text(m.Txt_zS[2]) + Num_Of_Text(m.Txt_zS_Hidden)) * f;
    b.b1 = static_cast<float>(Num_Of_Text(m.Txt_bf1) * f);
    b.b2 = static_cast<float>(Num_Of_Text(m.Txt_bf2) * f);
    b.h2 = static_cast<float>(-e);
    b.h1 = static_cast<float>(h - e);
  } else {
    b.b1 = b.b2 = static_cast<float>(m.Cat_b);
    b.h1 = static_cast<float>(m.Cat_h / 2);
    b.h2 = static_cast<float>(-m.Cat_h / 2);
  }
  return b;
}

bool TriD_DefaultView(TriD_Scene& t, Surface& s, const BeamModel& m) {
  if (!(m.Mode_Max > 0) || m.Mode_Vector.empty()) return false;
  const TriD_Beam b = TriD_BeamOf(m);
  if (!(b.L > 0) || b.NB < 1) return false;
  TriD_Init(t, s, b.L, b.NB, b.b1, b.b2, b.h1, b.h2, m.Mode_Vector);
  TriD_ResetView(t, s);
  return true;
}

}  // namespace zarvek
