// Shared set-up of the beam model tests: messages with recognisable texts, the record of a new
// document and its number fields.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/BeamModel.h"

namespace zarvek_test {

inline void Load_Test_Messages() {
  const std::pair<int, const char*> texts[] = {
      {17, "Error reading file"}, {20, "Fixed"}, {28, "Free"},
      {27, "Continuous restraint locks the beam"}, {43, "Not a number"}, {71, "Spring"},
      {50, "Value out of limits"}, {51, "Restraint out of the beam"},
      {55, "Punctual restraints too close"}, {56, "Position out of 0.05 .. 0.95"},
      {90, "No result"}, {95, "Section proportions refused"}, {96, "Section not computed"}};
  for (const auto& [n, text] : texts) zarvek::Set_Msg(n, text);
}

inline zarvek::BeamModel Default_Model(const std::string& dir = "/tmp") {
  zarvek::BeamModel m;
  zarvek::Init_Default(m, dir);
  return m;
}

// Every shown number of the record that has a unit, by family, as the options window converts them.
using Field_Group = std::pair<zarvek::UnitFamily, std::vector<std::string*>>;
inline std::vector<Field_Group> Number_Fields(zarvek::BeamModel& m) {
  using F = zarvek::UnitFamily;
  return {{F::L, {&m.Txt_L}}, {F::EG, {&m.Txt_E, &m.Txt_G}}, {F::v_c, {&m.Lst_vi_c.text}},
          {F::Iw, {&m.Txt_Iw[1], &m.Txt_Iw[2], &m.Txt_Iw[3]}}, {F::t_c, {&m.Lst_ti_c.text}},
          {F::Izt, {&m.Txt_Iz[1], &m.Txt_Iz[2], &m.Txt_Iz[3], &m.Txt_It[1], &m.Txt_It[2],
                    &m.Txt_It[3]}}, {F::vp_c, {&m.Lst_vpi_c.text}},
          {F::M, {&m.Txt_M1, &m.Txt_M2, &m.Txt_CC, &m.Txt_Mmax[0], &m.Txt_Mmax[1], &m.Txt_Mcr}},
          {F::F, {&m.Txt_F1, &m.Txt_F2, &m.Txt_F3}}, {F::q, {&m.Txt_q11, &m.Txt_q12, &m.Txt_q21, &m.Txt_q22}},
          {F::v, {&m.Lst_v1.text, &m.Lst_v2.text, &m.Lst_vi_p1.text, &m.Lst_vi_p2.text}},
          {F::t, {&m.Lst_t1.text, &m.Lst_t2.text, &m.Lst_ti_p1.text, &m.Lst_ti_p2.text}},
          {F::vp, {&m.Lst_vp1.text, &m.Lst_vp2.text}}, {F::tp, {&m.Lst_tp1.text, &m.Lst_tp2.text}},
          {F::Dim, {&m.Txt_Betaz[1], &m.Txt_Betaz[2], &m.Txt_Betaz[3], &m.Txt_zS[1], &m.Txt_zS[2],
                    &m.Txt_h, &m.Txt_bf1, &m.Txt_tf1, &m.Txt_bf2, &m.Txt_tf2, &m.Txt_tw, &m.Txt_r1,
                    &m.Txt_r2, &m.Txt_zend1, &m.Txt_zend2, &m.Txt_zint_p1, &m.Txt_zint_p2,
                    &m.Txt_zint_c, &m.Txt_zq1, &m.Txt_zq2, &m.Txt_zF1, &m.Txt_zF2, &m.Txt_zF3}}};
}

}  // namespace zarvek_test
