#include "model/FieldTable.h"

#include <array>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

using K = FieldKind;
using F = KeyFilter;
using R = ChangeRule;
using U = UnitFamily;

constexpr int None_Unit = -1;
constexpr int u(U f) { return static_cast<int>(f); }

// One entry; `member` is an expression on the record `m`.
#define ZF(name, kind, unit, page, filter, rule, leave, member) \
  FieldDef{name, kind, unit, page, filter, rule, leave,           \
           [](BeamModel& m) -> void* { return &(member); }}

// Shorthands for the common kinds.
#define TEXT(name, unit, page, filter, rule, leave) \
  ZF(#name, K::Text, unit, page, filter, rule, leave, m.name)
#define SLOT(name, slot, unit, kind, filter, rule) \
  ZF(#name "(" #slot ")", kind, unit, 0, filter, rule, false, m.name[slot])
#define LIST(name, unit, page, rule) ZF(#name, K::Restraint, unit, page, F::None, rule, false, m.name)
#define CHECK(name, page, rule) ZF(#name, K::Check, None_Unit, page, F::None, rule, false, m.name)
#define OPTION(name, page, rule) ZF(#name, K::Option, None_Unit, page, F::None, rule, false, m.name)

const auto Table = std::to_array<FieldDef>({
    // ---- page 0: beam, section, steel
    TEXT(Txt_L, u(U::L), 0, F::Unsigned, R::Loads, false),
    ZF("Txt_NB", K::Choice, None_Unit, 0, F::None, R::Process, false, m.Txt_NB),
    OPTION(Opt_Catalogue, 0, R::Route),
    OPTION(Opt_Dimensions, 0, R::Route),
    OPTION(Opt_Properties, 0, R::Route),
    ZF("Lbl_SelectedProfile", K::Display, None_Unit, 0, F::None, R::Profile, false,
       m.Lbl_SelectedProfile),
    SLOT(Txt_Iz, 1, u(U::Izt), K::Display, F::None, R::None),
    SLOT(Txt_It, 1, u(U::Izt), K::Display, F::None, R::None),
    SLOT(Txt_Iw, 1, u(U::Iw), K::Display, F::None, R::None),
    SLOT(Txt_Betaz, 1, u(U::Dim), K::Display, F::None, R::None),
    SLOT(Txt_zS, 1, u(U::Dim), K::Display, F::None, R::None),
    TEXT(Txt_h, u(U::Dim), 0, F::Unsigned, R::Dimension, false),
    TEXT(Txt_tw, u(U::Dim), 0, F::Unsigned, R::Dimension, false),
    TEXT(Txt_bf1, u(U::Dim), 0, F::Unsigned, R::Dimension, false),
    TEXT(Txt_tf1, u(U::Dim), 0, F::Unsigned, R::Dimension, false),
    TEXT(Txt_r1, u(U::Dim), 0, F::Unsigned, R::Dimension, false),
    TEXT(Txt_bf2, u(U::Dim), 0, F::Unsigned, R::Dimension, false),
    TEXT(Txt_tf2, u(U::Dim), 0, F::Unsigned, R::Dimension, false),
    TEXT(Txt_r2, u(U::Dim), 0, F::Unsigned, R::Dimension, false),
    SLOT(Txt_Iz, 2, u(U::Izt), K::Display, F::None, R::None),
    SLOT(Txt_It, 2, u(U::Izt), K::Display, F::None, R::None),
    SLOT(Txt_Iw, 2, u(U::Iw), K::Display, F::None, R::None),
    SLOT(Txt_Betaz, 2, u(U::Dim), K::Display, F::None, R::None),
    SLOT(Txt_zS, 2, u(U::Dim), K::Display, F::None, R::None),
    SLOT(Txt_Iz, 3, u(U::Izt), K::Text, F::Unsigned, R::Process),
    // the properties route's constants of an axial force (A always in cm2)
    TEXT(Txt_A3, None_Unit, 0, F::Unsigned, R::Process, false),
    TEXT(Txt_Iy3, u(U::Izt), 0, F::Unsigned, R::Process, false),
    TEXT(Txt_zC3, u(U::Dim), 0, F::Signed, R::Process, false),
    SLOT(Txt_It, 3, u(U::Izt), K::Text, F::Unsigned, R::Process),
    SLOT(Txt_Iw, 3, u(U::Iw), K::Text, F::UnsignedExp, R::Process),
    SLOT(Txt_Betaz, 3, u(U::Dim), K::Text, F::Signed, R::Process),
    TEXT(Txt_E, u(U::EG), 0, F::Unsigned, R::E, false),
    TEXT(Txt_G, u(U::EG), 0, F::Unsigned, R::G, false),
    TEXT(Txt_Nu, None_Unit, 0, F::Unsigned, R::Nu, false),
    OPTION(Opt_Nu, 0, R::None),
    OPTION(Opt_G, 0, R::None),
    // design check of lateral-torsional buckling
    ZF("Lst_Grade", K::Choice, None_Unit, 0, F::None, R::Process, false, m.Lst_Grade),
    TEXT(Txt_fy, u(U::EG), 0, F::Unsigned, R::Process, false),
    TEXT(Txt_GammaM1, None_Unit, 0, F::Unsigned, R::Process, false),
    ZF("Lst_LtbMethod", K::Choice, None_Unit, 0, F::None, R::Process, false, m.Lst_LtbMethod),
    CHECK(Chk_fmod, 0, R::Process),
    CHECK(Chk_Welded, 0, R::Process),

    // ---- page 1: restraints
    LIST(Lst_v1, u(U::v), 1, R::Process),
    LIST(Lst_t1, u(U::t), 1, R::Process),
    LIST(Lst_vp1, u(U::vp), 1, R::Process),
    LIST(Lst_tp1, u(U::tp), 1, R::Process),
    TEXT(Txt_zend1, u(U::Dim), 1, F::Signed, R::Process, false),
    LIST(Lst_v2, u(U::v), 1, R::Process),
    LIST(Lst_t2, u(U::t), 1, R::Process),
    LIST(Lst_vp2, u(U::vp), 1, R::Process),
    LIST(Lst_tp2, u(U::tp), 1, R::Process),
    TEXT(Txt_zend2, u(U::Dim), 1, F::Signed, R::Process, false),
    CHECK(Chk_Punctual1, 1, R::Intermediate),
    TEXT(Txt_xfint1, None_Unit, 1, F::Unsigned, R::Punctual1, false),
    TEXT(Txt_zint_p1, u(U::Dim), 1, F::Signed, R::Punctual1, false),
    LIST(Lst_vi_p1, u(U::v), 1, R::Punctual1),
    LIST(Lst_ti_p1, u(U::t), 1, R::Punctual1),
    CHECK(Chk_Punctual2, 1, R::Intermediate),
    TEXT(Txt_xfint2, None_Unit, 1, F::Unsigned, R::Punctual2, false),
    TEXT(Txt_zint_p2, u(U::Dim), 1, F::Signed, R::Punctual2, false),
    LIST(Lst_vi_p2, u(U::v), 1, R::Punctual2),
    LIST(Lst_ti_p2, u(U::t), 1, R::Punctual2),
    CHECK(Chk_Continuous, 1, R::Intermediate),
    TEXT(Txt_zint_c, u(U::Dim), 1, F::Signed, R::Continuous, false),
    LIST(Lst_vi_c, u(U::v_c), 1, R::Continuous),
    LIST(Lst_ti_c, u(U::t_c), 1, R::Continuous),
    LIST(Lst_vpi_c, u(U::vp_c), 1, R::Continuous),

    // ---- page 2: loads
    OPTION(Opt_AA, 2, R::LoadsRedraw),
    OPTION(Opt_EE, 2, R::LoadsRedraw),
    OPTION(Opt_EA, 2, R::LoadsRedraw),
    OPTION(Opt_EL, 2, R::LoadsRedraw),
    CHECK(Chk_M, 2, R::LoadsRedraw),
    TEXT(Txt_M1, u(U::M), 2, F::Signed, R::M1, true),
    TEXT(Txt_M2, u(U::M), 2, F::Signed, R::M2, true),
    TEXT(Txt_Psi, None_Unit, 2, F::Signed, R::Psi, true),
    OPTION(Opt_M2, 2, R::None),
    OPTION(Opt_Psi, 2, R::None),
    CHECK(Chk_F1, 2, R::LoadsRedraw),
    TEXT(Txt_F1, u(U::F), 2, F::Signed, R::Loads, true),
    TEXT(Txt_xf1, None_Unit, 2, F::Unsigned, R::Loads, true),
    TEXT(Txt_zF1, u(U::Dim), 2, F::Signed, R::Loads, true),
    CHECK(Chk_F2, 2, R::LoadsRedraw),
    TEXT(Txt_F2, u(U::F), 2, F::Signed, R::Loads, true),
    TEXT(Txt_xf2, None_Unit, 2, F::Unsigned, R::Loads, true),
    TEXT(Txt_zF2, u(U::Dim), 2, F::Signed, R::Loads, true),
    CHECK(Chk_F3, 2, R::LoadsRedraw),
    TEXT(Txt_F3, u(U::F), 2, F::Signed, R::Loads, true),
    TEXT(Txt_xf3, None_Unit, 2, F::Unsigned, R::Loads, true),
    TEXT(Txt_zF3, u(U::Dim), 2, F::Signed, R::Loads, true),
    CHECK(Chk_CC, 2, R::LoadsRedraw),
    TEXT(Txt_CC, u(U::M), 2, F::Signed, R::Loads, true),
    TEXT(Txt_xfC, None_Unit, 2, F::Unsigned, R::Loads, true),
    CHECK(Chk_q1, 2, R::LoadsRedraw),
    TEXT(Txt_q11, u(U::q), 2, F::Signed, R::Loads, true),
    TEXT(Txt_q12, u(U::q), 2, F::Signed, R::Loads, true),
    TEXT(Txt_xq11, None_Unit, 2, F::Unsigned, R::Loads, true),
    TEXT(Txt_xq12, None_Unit, 2, F::Unsigned, R::Loads, true),
    TEXT(Txt_zq1, u(U::Dim), 2, F::Signed, R::Loads, true),
    CHECK(Chk_q2, 2, R::LoadsRedraw),
    TEXT(Txt_q21, u(U::q), 2, F::Signed, R::Loads, true),
    TEXT(Txt_q22, u(U::q), 2, F::Signed, R::Loads, true),
    TEXT(Txt_xq21, None_Unit, 2, F::Unsigned, R::Loads, true),
    TEXT(Txt_xq22, None_Unit, 2, F::Unsigned, R::Loads, true),
    TEXT(Txt_zq2, u(U::Dim), 2, F::Signed, R::Loads, true),
    TEXT(Txt_N, u(U::F), 2, F::Signed, R::Loads, true),
    ZF("Txt_Mmax(0)", K::Display, u(U::M), 2, F::None, R::None, false, m.Txt_Mmax[0]),
    ZF("Lbl_xfMmax(0)", K::Display, None_Unit, 2, F::None, R::None, false, m.Lbl_xfMmax[0]),
    CHECK(Chk_EffM, 2, R::None),
    CHECK(Chk_EffV, 2, R::None),

    // ---- page 3: results
    ZF("Lbl_Iteration", K::Display, None_Unit, 3, F::None, R::None, false, m.Lbl_Iteration),
    ZF("Lbl_CurrentValue", K::Display, None_Unit, 3, F::None, R::None, false, m.Lbl_CurrentValue),
    ZF("Lbl_Comment", K::Display, None_Unit, 3, F::None, R::None, false, m.Lbl_Comment),
    ZF("Txt_mucr", K::Display, None_Unit, 3, F::None, R::None, false, m.Txt_mucr),
    ZF("Txt_Mcr", K::Display, u(U::M), 3, F::None, R::None, false, m.Txt_Mcr),
    ZF("Txt_Ncr", K::Display, u(U::F), 3, F::None, R::None, false, m.Txt_Ncr),
    ZF("Txt_Mmax(1)", K::Display, u(U::M), 3, F::None, R::None, false, m.Txt_Mmax[1]),
    ZF("Lbl_xfMmax(1)", K::Display, None_Unit, 3, F::None, R::None, false, m.Lbl_xfMmax[1]),
    CHECK(Chk_v, 3, R::Curves),
    CHECK(Chk_t, 3, R::Curves),
    CHECK(Chk_vp, 3, R::Curves),
    CHECK(Chk_tp, 3, R::Curves),
});

#undef ZF
#undef TEXT
#undef SLOT
#undef LIST
#undef CHECK
#undef OPTION

}  // namespace

std::span<const FieldDef> Field_Table() { return Table; }

const FieldDef* Find_Field(std::string_view name) {
  for (const FieldDef& f : Table)
    if (name == f.name) return &f;
  return nullptr;
}

std::string* Text_Member(BeamModel& m, const FieldDef& f) {
  if (f.kind != K::Text && f.kind != K::Display) return nullptr;
  return static_cast<std::string*>(f.ref(m));
}

int* Choice_Member(BeamModel& m, const FieldDef& f) {
  return f.kind == K::Choice ? static_cast<int*>(f.ref(m)) : nullptr;
}

bool* Flag_Member(BeamModel& m, const FieldDef& f) {
  if (f.kind != K::Check && f.kind != K::Option) return nullptr;
  return static_cast<bool*>(f.ref(m));
}

RestraintList* Restraint_Member(BeamModel& m, const FieldDef& f) {
  return f.kind == K::Restraint ? static_cast<RestraintList*>(f.ref(m)) : nullptr;
}

std::string Field_Text(const BeamModel& m, const FieldDef& f) {
  // The accessors only take an address; nothing is written through it here.
  BeamModel& mm = const_cast<BeamModel&>(m);
  switch (f.kind) {
    case K::Text:
    case K::Display: return *Text_Member(mm, f);
    case K::Choice: return std::to_string(*Choice_Member(mm, f));
    case K::Check:
    case K::Option: return *Flag_Member(mm, f) ? "1" : "0";
    case K::Restraint: return Restraint_Member(mm, f)->text;
  }
  return std::string();
}

}  // namespace zarvek
