#include "model/Axial.h"

#include <cmath>

#include "foundation/Mod_Zarvek.h"
#include "section/Mod_Section.h"

namespace zarvek {

double N_Of(const BeamModel& m) { return Value_Of(m.Txt_N, m.Fact_F); }

AxialConstants Axial_Constants_Of(const BeamModel& m) {
  AxialConstants c;
  switch (Section_Slot(m)) {
    case 1: {
      SectionRecord r;
      r.h = (float)m.Cat_h, r.b = (float)m.Cat_b, r.tf = (float)m.Cat_tf, r.tw = (float)m.Cat_tw,
      r.r = (float)m.Cat_r;
      const SectionI s = Calculer_SectionI(r);
      c.A = s.A;
      c.Iy = s.Iy;
      break;
    }
    case 2:
      c.A = m.Section_Props.A;
      c.Iy = m.Section_Props.Iy;
      c.zC = m.Section_Props.zC;
      break;
    default:
      c.A = Num_Of_Text(m.Txt_A3);
      c.Iy = Value_Of(m.Txt_Iy3, m.Fact_Izt);
      c.zC = Value_Of(m.Txt_zC3, m.Fact_Dim);
      break;
  }
  return c;
}

double Ncr_y_Of(const BeamModel& m) {
  const double L = L_Of(m);
  return L > 0 ? M_PI * M_PI * E_Of(m) * Axial_Constants_Of(m).Iy / (L * L) : 0;
}

}  // namespace zarvek
