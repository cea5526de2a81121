#include "model/DataEntry.h"
#include "section/Catalogue.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/FieldTable.h"
#include "model/Validation.h"

namespace zarvek {

namespace {

void Clear_Process(BeamModel& m, ChangeEffects& e) {
  InitProcessInfo(m);
  e.Erase_Eigenmode = true;
}

void Clear_Efforts(BeamModel& m, ChangeEffects& e) {
  InitEffortsInfo(m);
  e.Erase_Forces = true;
}

void Empty_Slot2(BeamModel& m) {
  m.Txt_Iz[2].clear();
  m.Txt_It[2].clear();
  m.Txt_Iw[2].clear();
  m.Txt_Betaz[2].clear();
  m.Txt_zS[2].clear();
}

// G of the isotropic steel from E and nu.
double Shear_Modulus(double E, double nu) { return E / (2 * (1 + nu)); }

}  // namespace

void InitProcessInfo(BeamModel& m) {
  m.Lbl_Iteration = "0";
  m.Lbl_CurrentValue = "0";
  m.Txt_mucr = "0";
  m.Txt_Mcr = "0";
  m.Txt_Ncr = "0";
  m.Lbl_Comment = Msg(90);
  m.Mode_Max = 0;
}

void InitEffortsInfo(BeamModel& m) {
  m.Txt_Mmax[0] = "0";
  m.Lbl_xfMmax[0] = "0";
  m.Txt_Mmax[1] = "0";
  m.Lbl_xfMmax[1] = "0";
}

bool No_Intermediate_Restraint(const BeamModel& m) {
  return !m.Chk_Punctual1 && !m.Chk_Punctual2 && !m.Chk_Continuous;
}

void Calculer_Psi(BeamModel& m) {
  const double M1 = Value_Of(m.Txt_M1, m.Fact_M);
  const double M2 = Value_Of(m.Txt_M2, m.Fact_M);
  if (M1 == 0 && M2 == 0) {
    m.Txt_Psi = "?";
    return;
  }
  // the smaller end moment over the larger one
  const double psi = std::fabs(M2) <= std::fabs(M1) ? -M2 / M1 : -M1 / M2;
  m.Txt_Psi = Format_Pattern(psi, "0.000");
}

RestraintList* Restraint_ByName(BeamModel& m, std::string_view name) {
  const FieldDef* f = Find_Field(name);
  return f ? Restraint_Member(m, *f) : nullptr;
}

ChangeEffects Data_Changed(BeamModel& m, std::string_view name) {
  ChangeEffects e;
  if (m.RefreshLocked) return e;
  const FieldDef* f = Find_Field(name);
  if (!f) return e;

  switch (f->rule) {
    case ChangeRule::None:
      break;
    case ChangeRule::Loads:
      // data of the loads: results and internal forces are stale
      Clear_Process(m, e);
      Clear_Efforts(m, e);
      break;
    case ChangeRule::LoadsRedraw:
      Clear_Process(m, e);
      Clear_Efforts(m, e);
      e.Refresh_LoadsDiagrams = true;
      break;
    case ChangeRule::Process:
      Clear_Process(m, e);
      break;
    case ChangeRule::Punctual1:
      if (m.Chk_Punctual1) Clear_Process(m, e);
      break;
    case ChangeRule::Punctual2:
      if (m.Chk_Punctual2) Clear_Process(m, e);
      break;
    case ChangeRule::Continuous:
      if (m.Chk_Continuous) Clear_Process(m, e);
      break;
    case ChangeRule::Intermediate:
      Clear_Process(m, e);
      e.Update_NoRestraint = true;
      break;
    case ChangeRule::Curves:
      e.Tracer_VecteurPropre = true;
      break;
    case ChangeRule::Profile:
      Clear_Process(m, e);
      e.Draw_Section = true;
      break;
    case ChangeRule::Route:
      e.Draw_Section = true;
      Clear_Process(m, e);
      e.Show_Section_Picture = true;
      break;
    case ChangeRule::Dimension:
      // the section is no longer the one computed; results stay until the
      // dimensions are confirmed
      Empty_Slot2(m);
      e.Erase_Section = true;
      break;
    case ChangeRule::E: {
      // whichever of nu and G is typed, E drives G
      const double G = Shear_Modulus(Num_Of_Text(m.Txt_E), Num_Of_Text(m.Txt_Nu));
      m.Txt_G = Format_Auto(G);
      Clear_Process(m, e);
      break;
    }
    case ChangeRule::Nu:
      if (m.Opt_Nu) {
        const double E = Value_Of(m.Txt_E, m.Fact_EG);
        const double G = Shear_Modulus(E, Num_Of_Text(m.Txt_Nu));
        m.Txt_G = Format_Auto(G / m.Fact_EG);
        Clear_Process(m, e);
      }
      break;
    case ChangeRule::G:
      if (m.Opt_G) {
        const double E = Value_Of(m.Txt_E, m.Fact_EG);
        const double G = Value_Of(m.Txt_G, m.Fact_EG);
        m.Txt_Nu = G == 0 ? std::string("?") : Format_Auto(E / (2 * G) - 1);
        Clear_Process(m, e);
      }
      break;
    case ChangeRule::M2:
      if (!m.Opt_M2) break;
      [[fallthrough]];
    case ChangeRule::M1:
      Calculer_Psi(m);
      Clear_Process(m, e);
      Clear_Efforts(m, e);
      break;
    case ChangeRule::Psi:
      if (m.Opt_Psi) {
        const double psi = Num_Of_Text(m.Txt_Psi);
        if (psi > 1 || psi < -1) {
          m.Txt_Psi = m.Psi_Previous;
          e.Select_Psi = true;
        } else {
          m.Txt_M2 = Format_Auto(-psi * Num_Of_Text(m.Txt_M1));
          Clear_Process(m, e);
          Clear_Efforts(m, e);
        }
      }
      break;
  }
  return e;
}

ChangeEffects Restraint_Choose(BeamModel& m, std::string_view name, int item) {
  RestraintList* l = Restraint_ByName(m, name);
  if (!l) return {};
  l->index = item;
  l->Unit_Visible = item >= 2;
  if (item == 2) {
    // the spring item is only a passage to a typed number
    l->text = "0";
    l->index = -1;
  } else if (item == 0 || item == 1) {
    l->text = Restraint_ItemText(item);
  }
  ChangeEffects e = Data_Changed(m, name);
  e.Unit_Label_Changed = true;
  return e;
}

SectionDims Dimensions_Of(const BeamModel& m) {
  SectionDims d;
  const double f = m.Fact_Dim;
  d.h = Value_Of(m.Txt_h, f);
  d.bf1 = Value_Of(m.Txt_bf1, f);
  d.tf1 = Value_Of(m.Txt_tf1, f);
  d.r1 = Value_Of(m.Txt_r1, f);
  d.bf2 = Value_Of(m.Txt_bf2, f);
  d.tf2 = Value_Of(m.Txt_tf2, f);
  d.r2 = Value_Of(m.Txt_r2, f);
  d.tw = Value_Of(m.Txt_tw, f);
  return d;
}

bool Refresh_SectionProps(BeamModel& m) {
  SectionProps props;
  bool invalid = true;
  Calculer_SectionIMono(Dimensions_Of(m), m.Tab_Dim, m.Opt_Dimensions, props, invalid);
  if (!invalid) m.Section_Props = props;
  return !invalid;
}

DimensionsResult Cmd_Dimensions(BeamModel& m) {
  DimensionsResult out;
  if (!m.RefreshLocked) {
    InitProcessInfo(m);
    out.Erase_Eigenmode = true;
  }
  const bool wasLocked = m.RefreshLocked;
  m.RefreshLocked = true;

  ValidationResult r;
  const int tab = 0;
  bool good = IsNumValid(m.Txt_h, "Txt_h", tab, r) && IsNumValid(m.Txt_bf1, "Txt_bf1", tab, r) &&
              IsNumValid(m.Txt_bf2, "Txt_bf2", tab, r) &&
              IsNumValid(m.Txt_tf1, "Txt_tf1", tab, r) &&
              IsNumValid(m.Txt_tf2, "Txt_tf2", tab, r) && IsNumValid(m.Txt_tw, "Txt_tw", tab, r) &&
              IsNumValid(m.Txt_r1, "Txt_r1", tab, r) && IsNumValid(m.Txt_r2, "Txt_r2", tab, r);

  if (good) {
    const double f = m.Fact_Dim;
    auto h = [&] { return IsValueInLimits(m.Txt_h, "Txt_h", f, 3, 300, tab, r); };
    auto tw = [&] { return IsValueInLimits(m.Txt_tw, "Txt_tw", f, 0.1, 10, tab, r); };
    auto bf1 = [&] { return IsValueInLimits(m.Txt_bf1, "Txt_bf1", f, 0.1, 300, tab, r); };
    auto bf2 = [&] { return IsValueInLimits(m.Txt_bf2, "Txt_bf2", f, 0.1, 300, tab, r); };
    auto tf1 = [&] { return IsValueInLimits(m.Txt_tf1, "Txt_tf1", f, 0.1, 20, tab, r); };
    auto tf2 = [&] { return IsValueInLimits(m.Txt_tf2, "Txt_tf2", f, 0.1, 20, tab, r); };
    auto r1 = [&] { return IsValueInLimits(m.Txt_r1, "Txt_r1", f, 0, 10, tab, r); };
    auto r2 = [&] { return IsValueInLimits(m.Txt_r2, "Txt_r2", f, 0, 10, tab, r); };
    switch (m.Tab_Dim) {
      case 0:  // double symmetric: flange 2 is flange 1
        good = h() && tw() && bf1() && tf1() && r1();
        if (good) {
          m.Txt_bf2 = m.Txt_bf1;
          m.Txt_tf2 = m.Txt_tf1;
          m.Txt_r2 = m.Txt_r1;
        }
        break;
      case 1:
        good = h() && bf1() && bf2() && tf1() && tf2() && tw() && r1() && r2();
        break;
      case 2:  // flange 1 only: flange 2 shrinks to the web
        good = h() && tw() && bf1() && tf1() && r1();
        if (good) {
          m.Txt_bf2 = m.Txt_tw;
          m.Txt_tf2 = "0";
          m.Txt_r2 = "0";
        }
        break;
      case 3:  // flange 2 only
        good = h() && tw() && bf2() && tf2() && r2();
        if (good) {
          m.Txt_bf1 = m.Txt_tw;
          m.Txt_tf1 = "0";
          m.Txt_r1 = "0";
        }
        break;
      default:
        break;
    }
  }

  if (good) {
    SectionProps props;
    bool invalid = true;
    Calculer_SectionIMono(Dimensions_Of(m), m.Tab_Dim, m.Opt_Dimensions, props, invalid);
    if (invalid) {
      out.Error_Text = Msg(95);
      out.Shown.push_back(out.Error_Text);
    } else {
      m.Section_Props = props;
      SectionMonoTexts t = Format_SectionMono(props, m.Fact_Dim, m.Fact_Izt, m.Fact_Iw);
      m.Txt_Iz[2] = t.Iz;
      m.Txt_It[2] = t.It;
      m.Txt_Iw[2] = t.Iw;
      m.Txt_Betaz[2] = t.Betaz;
      m.Txt_zS[2] = t.zS;
      m.Txt_zS_Hidden = t.zS_Hidden;
      out.ok = true;
      out.Draw_Section = true;
    }
  } else {
    // a failed check is shown at once and not left pending
    out.Shown.push_back(r.Error_Text);
    out.tab = r.tab;
    out.field = r.field;
  }
  m.RefreshLocked = wasLocked;
  return out;
}

ChangeEffects Tab_Dim_Change(BeamModel& m, int t) {
  ChangeEffects e;
  const int p = m.Tab_Dim;
  if (t == p) return e;
  m.Tab_Dim = t;
  Empty_Slot2(m);
  if (m.Opt_Dimensions) e.Erase_Section = true;
  if (!m.File_Loading) {
    // the values follow the user across shapes
    auto flange2_to_1 = [&] {
      m.Txt_bf1 = m.Txt_bf2;
      m.Txt_tf1 = m.Txt_tf2;
      m.Txt_r1 = m.Txt_r2;
    };
    auto flange1_to_2 = [&] {
      m.Txt_bf2 = m.Txt_bf1;
      m.Txt_tf2 = m.Txt_tf1;
      m.Txt_r2 = m.Txt_r1;
    };
    if ((t == 0 || t == 2) && p == 3) flange2_to_1();
    else if (t == 1 && p == 2) flange1_to_2();
    else if (t == 1 && p == 3) flange2_to_1();
    else if (t == 3 && (p == 0 || p == 2)) flange1_to_2();
  }
  m.File_Loading = false;
  return e;
}

void Take_CatalogueSection(BeamModel& m, const SectionTransfer& t) {
  m.Cat_h = t.dims.Cat_h;
  m.Cat_b = t.dims.Cat_b;
  m.Cat_tf = t.dims.Cat_tf;
  m.Cat_tw = t.dims.Cat_tw;
  m.Cat_r = t.dims.Cat_r;
  m.Txt_Iz[1] = t.Iz;
  m.Txt_It[1] = t.It;
  m.Txt_Iw[1] = t.Iw;
  m.Txt_Betaz[1] = t.Betaz;
  m.Lbl_SelectedProfile = t.SelectedProfile;
}

}  // namespace zarvek
