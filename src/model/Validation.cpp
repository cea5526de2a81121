#include "model/Validation.h"

#include <cmath>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/DataEntry.h"

namespace zarvek {

namespace {
constexpr int Tab_Beam = 0;
constexpr int Tab_Restraints = 1;
constexpr int Tab_Loads = 2;

ValidationResult Fail(ValidationResult& r) {
  r.ok = false;
  return r;
}
}  // namespace

void Select_Text(const std::string& field, int tab, ValidationResult& r) {
  r.tab = tab;
  r.field = field;
}

bool IsNumValid(const std::string& text, const std::string& field, int tab, ValidationResult& r) {
  if (Is_Numeric(text)) return true;
  r.Error_Text = Msg(43);
  Select_Text(field, tab, r);
  return false;
}

bool IsValueInLimits(const std::string& text, const std::string& field, double factor,
                     double vmin, double vmax, int tab, ValidationResult& r) {
  double x = std::fabs(factor * Num_Of_Text(text));
  if (x < vmin * 0.9999 || x > vmax * 1.0001) {
    r.Error_Text = Msg(50);
    Select_Text(field, tab, r);
    return false;
  }
  return true;
}

ValidationResult IsDataBeamOK(BeamModel& m) {
  ValidationResult r;
  const double N = Num_Of_Text(NB_Text(m));
  if (!IsNumValid(m.Txt_L, "Txt_L", Tab_Beam, r)) return Fail(r);
  // the element length L/N must lie between 1 and 300 cm
  if (!IsValueInLimits(m.Txt_L, "Txt_L", m.Fact_L, N, 300 * N, Tab_Beam, r)) {
    r.Error_Text = "L/N : " + r.Error_Text;
    return Fail(r);
  }
  if (!IsNumValid(m.Txt_E, "Txt_E", Tab_Beam, r)) return Fail(r);
  if (!IsValueInLimits(m.Txt_E, "Txt_E", m.Fact_EG, 1000, 10000000, Tab_Beam, r)) return Fail(r);
  if (!IsNumValid(m.Txt_Nu, "Txt_Nu", Tab_Beam, r)) return Fail(r);
  if (!IsValueInLimits(m.Txt_Nu, "Txt_Nu", 1, 0.1, 0.5, Tab_Beam, r)) return Fail(r);
  // Txt_G is derived or freely typed: not checked.

  if (m.Opt_Dimensions) {
    if (Trim(m.Txt_Iz[2]).empty()) {
      // the section has not been computed since a dimension changed
      r.Error_Text = Msg(96);
      Select_Text("Txt_Iz(2)", Tab_Beam, r);
      return Fail(r);
    }
    DimensionsResult d = Cmd_Dimensions(m);
    r.Shown = d.Shown;
    if (d.tab >= 0) Select_Text(d.field, d.tab, r);
    if (!d.Error_Text.empty()) {
      r.Error_Text = d.Error_Text;
      return Fail(r);
    }
  } else if (m.Opt_Properties) {
    if (!IsNumValid(m.Txt_Iz[3], "Txt_Iz(3)", Tab_Beam, r)) return Fail(r);
    if (!IsNumValid(m.Txt_It[3], "Txt_It(3)", Tab_Beam, r)) return Fail(r);
    if (!IsNumValid(m.Txt_Iw[3], "Txt_Iw(3)", Tab_Beam, r)) return Fail(r);
    if (!IsNumValid(m.Txt_Betaz[3], "Txt_Betaz(3)", Tab_Beam, r)) return Fail(r);
    if (!IsValueInLimits(m.Txt_Iz[3], "Txt_Iz(3)", m.Fact_Izt, 0.0001, 1e10, Tab_Beam, r))
      return Fail(r);
    if (!IsValueInLimits(m.Txt_It[3], "Txt_It(3)", m.Fact_Izt, 0.001, 1e10, Tab_Beam, r))
      return Fail(r);
    if (!IsValueInLimits(m.Txt_Iw[3], "Txt_Iw(3)", m.Fact_Iw, 0, 1e15, Tab_Beam, r))
      return Fail(r);
    if (!IsValueInLimits(m.Txt_Betaz[3], "Txt_Betaz(3)", m.Fact_Dim, 0, 150, Tab_Beam, r))
      return Fail(r);
  }
  // the catalogue is trusted
  return r;
}

ValidationResult IsDataRestraintsOK(const BeamModel& m) {
  ValidationResult r;
  const double L = L_Of(m);

  struct Field {
    const char* name;
    const std::string& text;
  };
  const Field numeric[] = {{"Txt_zend1", m.Txt_zend1},     {"Txt_zend2", m.Txt_zend2},
                           {"Txt_zint_p1", m.Txt_zint_p1}, {"Txt_zint_p2", m.Txt_zint_p2},
                           {"Txt_zint_c", m.Txt_zint_c},   {"Txt_xfint1", m.Txt_xfint1},
                           {"Txt_xfint2", m.Txt_xfint2}};
  for (const Field& f : numeric)
    if (!IsNumValid(f.text, f.name, Tab_Restraints, r)) return Fail(r);

  struct List {
    const char* name;
    const RestraintList& list;
  };
  const List lists[] = {{"Lst_v1", m.Lst_v1},       {"Lst_t1", m.Lst_t1},
                        {"Lst_vp1", m.Lst_vp1},     {"Lst_tp1", m.Lst_tp1},
                        {"Lst_v2", m.Lst_v2},       {"Lst_t2", m.Lst_t2},
                        {"Lst_vp2", m.Lst_vp2},     {"Lst_tp2", m.Lst_tp2},
                        {"Lst_vi_p1", m.Lst_vi_p1}, {"Lst_ti_p1", m.Lst_ti_p1},
                        {"Lst_vi_p2", m.Lst_vi_p2}, {"Lst_ti_p2", m.Lst_ti_p2},
                        {"Lst_vi_c", m.Lst_vi_c},   {"Lst_ti_c", m.Lst_ti_c},
                        {"Lst_vpi_c", m.Lst_vpi_c}};
  for (const List& l : lists)
    if (l.list.index != 0 && l.list.index != 1 &&
        !IsNumValid(l.list.text, l.name, Tab_Restraints, r))
      return Fail(r);

  // A continuous restraint fixed in twist together with a fixed lateral
  // displacement or rotation locks the whole beam.
  if (m.Chk_Continuous && ((m.Lst_vi_c.index == 1 && m.Lst_ti_c.index == 1) ||
                           (m.Lst_vpi_c.index == 1 && m.Lst_ti_c.index == 1))) {
    r.Error_Text = Msg(27);
    return Fail(r);
  }

  // restraint levels: a quarter of the length at most, in the shown unit
  const double zmax = 0.250025 * L / m.Fact_Dim;
  const Field levels[] = {{"Txt_zend1", m.Txt_zend1},
                          {"Txt_zend2", m.Txt_zend2},
                          {"Txt_zint_p1", m.Txt_zint_p1},
                          {"Txt_zint_p2", m.Txt_zint_p2},
                          {"Txt_zint_c", m.Txt_zint_c}};
  for (const Field& f : levels) {
    if (std::fabs(Num_Of_Text(f.text)) > zmax) {
      r.Error_Text = Msg(51);
      Select_Text(f.name, Tab_Restraints, r);
      return Fail(r);
    }
  }

  // positions of the punctual restraints, checked whether they act or not
  const double x1 = std::fabs(Num_Of_Text(m.Txt_xfint1));
  const double x2 = std::fabs(Num_Of_Text(m.Txt_xfint2));
  if (x1 >= 1) {
    r.Error_Text = Msg(51);
    Select_Text("Txt_xfint1", Tab_Restraints, r);
    return Fail(r);
  }
  if (x2 >= 1) {
    // the first position is the one brought to the user, for either
    r.Error_Text = Msg(51);
    Select_Text("Txt_xfint1", Tab_Restraints, r);
    return Fail(r);
  }
  if (x1 < 0.05 || x1 > 0.95) {
    r.Error_Text = Msg(56);
    Select_Text("Txt_xfint1", Tab_Restraints, r);
    return Fail(r);
  }
  if (x2 < 0.05 || x2 > 0.95) {
    r.Error_Text = Msg(56);
    Select_Text("Txt_xfint2", Tab_Restraints, r);
    return Fail(r);
  }
  if (m.Chk_Punctual1 && m.Chk_Punctual2 && std::fabs(x2 - x1) < 0.05) {
    r.Error_Text = Msg(55);
    Select_Text("Txt_xfint2", Tab_Restraints, r);
    return Fail(r);
  }
  return r;
}

ValidationResult IsDataLoadsOK(const BeamModel& m) {
  ValidationResult r;
  const double L = L_Of(m);

  struct Field {
    const char* name;
    const std::string& text;
  };
  const Field numeric[] = {
      {"Txt_M1", m.Txt_M1},     {"Txt_M2", m.Txt_M2},     {"Txt_q11", m.Txt_q11},
      {"Txt_q12", m.Txt_q12},   {"Txt_q21", m.Txt_q21},   {"Txt_q22", m.Txt_q22},
      {"Txt_F1", m.Txt_F1},     {"Txt_F2", m.Txt_F2},     {"Txt_F3", m.Txt_F3},
      {"Txt_CC", m.Txt_CC},     {"Txt_xq11", m.Txt_xq11}, {"Txt_xq12", m.Txt_xq12},
      {"Txt_xq21", m.Txt_xq21}, {"Txt_xq22", m.Txt_xq22}, {"Txt_zq1", m.Txt_zq1},
      {"Txt_zq2", m.Txt_zq2},   {"Txt_xf1", m.Txt_xf1},   {"Txt_xf2", m.Txt_xf2},
      {"Txt_xf3", m.Txt_xf3},   {"Txt_zF1", m.Txt_zF1},   {"Txt_zF2", m.Txt_zF2},
      {"Txt_zF3", m.Txt_zF3},   {"Txt_xfC", m.Txt_xfC}};
  for (const Field& f : numeric)
    if (!IsNumValid(f.text, f.name, Tab_Loads, r)) return Fail(r);

  // load levels: within a quarter of the length of the shear centre
  const Field levels[] = {{"Txt_zq1", m.Txt_zq1},
                          {"Txt_zq2", m.Txt_zq2},
                          {"Txt_zF1", m.Txt_zF1},
                          {"Txt_zF2", m.Txt_zF2},
                          {"Txt_zF3", m.Txt_zF3}};
  for (const Field& f : levels)
    if (!IsValueInLimits(f.text, f.name, m.Fact_Dim, 0, 0.25 * L, Tab_Loads, r)) return Fail(r);

  // positions as fractions of the length (not that of the point moment)
  const Field positions[] = {{"Txt_xq11", m.Txt_xq11}, {"Txt_xq12", m.Txt_xq12},
                             {"Txt_xq21", m.Txt_xq21}, {"Txt_xq22", m.Txt_xq22},
                             {"Txt_xf1", m.Txt_xf1},   {"Txt_xf2", m.Txt_xf2},
                             {"Txt_xf3", m.Txt_xf3}};
  for (const Field& f : positions)
    if (!IsValueInLimits(f.text, f.name, 1, 0, 1, Tab_Loads, r)) return Fail(r);

  // axial force: its constants are asked for only while it acts, and only
  // on the properties route (the other routes compute them)
  if (!IsNumValid(m.Txt_N, "Txt_N", Tab_Loads, r)) return Fail(r);
  if (!IsValueInLimits(m.Txt_N, "Txt_N", m.Fact_F, 0, 1e10, Tab_Loads, r)) return Fail(r);
  if (Num_Of_Text(m.Txt_N) != 0 && m.Opt_Properties) {
    if (!IsNumValid(m.Txt_A3, "Txt_A3", Tab_Beam, r)) return Fail(r);
    if (!IsNumValid(m.Txt_Iy3, "Txt_Iy3", Tab_Beam, r)) return Fail(r);
    if (!IsNumValid(m.Txt_zC3, "Txt_zC3", Tab_Beam, r)) return Fail(r);
    if (!IsValueInLimits(m.Txt_A3, "Txt_A3", 1, 0.01, 1e6, Tab_Beam, r)) return Fail(r);
    if (!IsValueInLimits(m.Txt_Iy3, "Txt_Iy3", m.Fact_Izt, 0.0001, 1e10, Tab_Beam, r))
      return Fail(r);
    if (!IsValueInLimits(m.Txt_zC3, "Txt_zC3", m.Fact_Dim, 0, 150, Tab_Beam, r)) return Fail(r);
  }
  return r;
}

ValidationResult IsDataOK(BeamModel& m) {
  m.RefreshLocked = true;
  ValidationResult r = IsDataBeamOK(m);
  if (r.ok) {
    std::vector<std::string> shown = std::move(r.Shown);
    int tab = r.tab;
    std::string field = r.field;
    r = IsDataRestraintsOK(m);
    if (r.ok) r = IsDataLoadsOK(m);
    r.Shown = std::move(shown);
    if (r.tab < 0 && tab >= 0) Select_Text(field, tab, r);
  }
  m.RefreshLocked = false;
  return r;
}

}  // namespace zarvek
