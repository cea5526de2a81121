#include "model/BeamModel.h"

#include <cmath>
#include <cstdlib>
#include <initializer_list>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/FieldTable.h"

namespace zarvek {

std::string Restraint_ItemText(int item) {
  switch (item) {
    case 0: return Msg(28).empty() ? std::string("Free") : Msg(28);
    case 1: return Msg(20).empty() ? std::string("Fixed") : Msg(20);
    case 2: return Msg(71).empty() ? std::string("Spring?") : Msg(71) + "?";
    default: return std::string();
  }
}

RestraintList Restraint_Item(int item) {
  RestraintList r;
  r.index = item;
  r.text = Restraint_ItemText(item);
  return r;
}

void Init_Default(BeamModel& m, const std::string& startDir) {
  // 1. options
  m.Opt_Eigen = false;
  m.Opt_Dichotomie = true;
  m.Lbl_Method = m.Caption_Dichotomie;
  m.Lst_Tolerance = 2;
  m.Lbl_Tolerance = To_LocalText(Tolerance_Items[2]);
  m.Lst_NbIter = 2;
  m.Lst_Duration = 2;
  m.Lbl_Directory = startDir;
  // 2. unit lists
  for (UnitFamily f : All_Unit_Families) Unit_Index(m, f) = Unit_DefaultIndex(f);
  // 3. element count and end restraints
  m.Txt_NB = 0;
  m.Lst_v1 = Restraint_Item(1);
  m.Lst_t1 = Restraint_Item(1);
  m.Lst_vp1 = Restraint_Item(0);
  m.Lst_tp1 = Restraint_Item(0);
  m.Lst_v2 = Restraint_Item(1);
  m.Lst_t2 = Restraint_Item(1);
  m.Lst_vp2 = Restraint_Item(0);
  m.Lst_tp2 = Restraint_Item(0);
  // 4. intermediate restraints
  m.Lst_vi_p1 = Restraint_Item(0);
  m.Lst_ti_p1 = Restraint_Item(0);
  m.Lst_vi_p2 = Restraint_Item(0);
  m.Lst_ti_p2 = Restraint_Item(0);
  m.Lst_vi_c = Restraint_Item(0);
  m.Lst_ti_c = Restraint_Item(0);
  m.Lst_vpi_c = Restraint_Item(0);
  // 5. section route
  m.Opt_Catalogue = true;
  m.Opt_Dimensions = false;
  m.Opt_Properties = false;
  // 6. catalogue profile dimensions (IPE 300, cm)
  m.Cat_h = 30;
  m.Cat_b = 15;
  m.Cat_tf = 1.07;
  m.Cat_tw = 0.71;
  m.Cat_r = 1.5;
  // 7. factors, set directly
  m.Fact_L = 100;
  m.Fact_EG = 10;
  m.Fact_Izt = 1;
  m.Fact_Iw = 1;
  m.Fact_Dim = 1;
  m.Fact_M = 10000;
  m.Fact_F = 100;
  m.Fact_q = 1;
  m.Fact_v = 1;
  m.Fact_t = 10000;
  m.Fact_vp = 10000;
  m.Fact_tp = 0.0001f;
  m.Fact_v_c = 0.01f;
  m.Fact_t_c = 100;
  m.Fact_vp_c = 100;
}

namespace {
template <class M>
auto& Index_Ref(M& m, UnitFamily f) {
  switch (f) {
    case UnitFamily::L: return m.Lst_Unit_L;
    case UnitFamily::EG: return m.Lst_Unit_EG;
    case UnitFamily::Izt: return m.Lst_Unit_Izt;
    case UnitFamily::Iw: return m.Lst_Unit_Iw;
    case UnitFamily::Dim: return m.Lst_Unit_Dim;
    case UnitFamily::M: return m.Lst_Unit_M;
    case UnitFamily::F: return m.Lst_Unit_F;
    case UnitFamily::q: return m.Lst_Unit_q;
    case UnitFamily::v: return m.Lst_Unit_v;
    case UnitFamily::t: return m.Lst_Unit_t;
    case UnitFamily::vp: return m.Lst_Unit_vp;
    case UnitFamily::tp: return m.Lst_Unit_tp;
    case UnitFamily::v_c: return m.Lst_Unit_v_c;
    case UnitFamily::t_c: return m.Lst_Unit_t_c;
    case UnitFamily::vp_c: break;
  }
  return m.Lst_Unit_vp_c;
}

template <class M>
auto& Factor_Ref(M& m, UnitFamily f) {
  switch (f) {
    case UnitFamily::L: return m.Fact_L;
    case UnitFamily::EG: return m.Fact_EG;
    case UnitFamily::Izt: return m.Fact_Izt;
    case UnitFamily::Iw: return m.Fact_Iw;
    case UnitFamily::Dim: return m.Fact_Dim;
    case UnitFamily::M: return m.Fact_M;
    case UnitFamily::F: return m.Fact_F;
    case UnitFamily::q: return m.Fact_q;
    case UnitFamily::v: return m.Fact_v;
    case UnitFamily::t: return m.Fact_t;
    case UnitFamily::vp: return m.Fact_vp;
    case UnitFamily::tp: return m.Fact_tp;
    case UnitFamily::v_c: return m.Fact_v_c;
    case UnitFamily::t_c: return m.Fact_t_c;
    case UnitFamily::vp_c: break;
  }
  return m.Fact_vp_c;
}
}  // namespace

int& Unit_Index(BeamModel& m, UnitFamily f) { return Index_Ref(m, f); }
int Unit_Index(const BeamModel& m, UnitFamily f) { return Index_Ref(m, f); }
float& Factor_Of(BeamModel& m, UnitFamily f) { return Factor_Ref(m, f); }
float Factor_Of(const BeamModel& m, UnitFamily f) { return Factor_Ref(m, f); }

UnitIndices Unit_Indices(const BeamModel& m) {
  UnitIndices r{};
  for (UnitFamily f : All_Unit_Families) r[(int)f] = Unit_Index(m, f);
  return r;
}

void Set_Factors(BeamModel& m) {
  // the order in which the file reader takes them
  static constexpr UnitFamily order[] = {
      UnitFamily::Dim, UnitFamily::Izt, UnitFamily::Iw, UnitFamily::F,   UnitFamily::L,
      UnitFamily::M,   UnitFamily::q,   UnitFamily::EG, UnitFamily::v,   UnitFamily::t,
      UnitFamily::vp,  UnitFamily::tp,  UnitFamily::v_c, UnitFamily::t_c, UnitFamily::vp_c};
  for (UnitFamily f : order) Factor_Of(m, f) = Unit_Factor(f, Unit_Index(m, f));
}

double Value_Of(const std::string& text, double factor) { return Num_Of_Text(text) * factor; }

double GetSpring(const RestraintList& list, double factor) {
  if (list.index == 0) return 0;
  if (list.index == 1) return 1e30;
  return factor * Num_Of_Text(list.text);
}

std::string NB_Text(const BeamModel& m) {
  if (m.Txt_NB < 0 || m.Txt_NB >= (int)NB_Items.size()) return std::string();
  return NB_Items[m.Txt_NB];
}

int NB_Of(const BeamModel& m) { return (int)Num_Of_Text(NB_Text(m)); }

double L_Of(const BeamModel& m) { return Value_Of(m.Txt_L, m.Fact_L); }

int Section_Slot(const BeamModel& m) {
  if (m.Opt_Dimensions) return 2;
  if (m.Opt_Properties) return 3;
  return 1;
}

double Iz_Of(const BeamModel& m) { return Value_Of(m.Txt_Iz[Section_Slot(m)], m.Fact_Izt); }
double It_Of(const BeamModel& m) { return Value_Of(m.Txt_It[Section_Slot(m)], m.Fact_Izt); }
double Iw_Of(const BeamModel& m) { return Value_Of(m.Txt_Iw[Section_Slot(m)], m.Fact_Iw); }
double Betaz_Of(const BeamModel& m) { return Value_Of(m.Txt_Betaz[Section_Slot(m)], m.Fact_Dim); }
double E_Of(const BeamModel& m) { return Value_Of(m.Txt_E, m.Fact_EG); }
double G_Of(const BeamModel& m) { return Value_Of(m.Txt_G, m.Fact_EG); }

int Method_Of(const BeamModel& m) { return m.Opt_Eigen ? 1 : (m.Opt_Dichotomie ? 2 : 0); }

double Tolerance_Of(const BeamModel& m) {
  int i = m.Lst_Tolerance;
  if (i < 0 || i >= (int)Tolerance_Items.size()) i = 2;
  return std::atof(Tolerance_Items[i]);
}

int NbIter_Of(const BeamModel& m) {
  int i = m.Lst_NbIter;
  if (i < 0 || i >= (int)NbIter_Items.size()) i = 2;
  return std::atoi(NbIter_Items[i]);
}

int Support_Case(const BeamModel& m) {
  if (m.Opt_EA) return 2;
  if (m.Opt_EL) return 3;
  if (m.Opt_EE) return 4;
  return 1;
}

}  // namespace zarvek

namespace zarvek {

void Traiter_Units(BeamModel& m, const UnitIndices& old) {
  // every shown number that has a unit: texts, results and typed springs
  for (const FieldDef& f : Field_Table()) {
    if (!f.hasUnit()) continue;
    std::string* text = Text_Member(m, f);
    if (RestraintList* l = Restraint_Member(m, f)) text = &l->text;
    if (text) ChangeUnit(f.family(), old[(size_t)f.unit], Unit_Index(m, f.family()), *text);
  }
  Set_Factors(m);
}

}  // namespace zarvek
