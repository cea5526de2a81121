// The record of a beam: defaults, readers and the change of display units.
#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "model/BeamModel.h"
#include "model_support.h"

using namespace zarvek;
using namespace zarvek_test;

namespace {

TEST(BeamModelDefaults, ForkSupportedIpe300Of10m) {
  BeamModel m = Default_Model("/data");
  // the catalogue route on an IPE 300 of 10 m in 100 elements
  EXPECT_TRUE(m.Opt_Catalogue);
  EXPECT_FALSE(m.Opt_Dimensions || m.Opt_Properties);
  EXPECT_EQ(m.Lbl_SelectedProfile, "IPE 300");
  EXPECT_EQ(Section_Slot(m), 1);
  EXPECT_DOUBLE_EQ(L_Of(m), 1000.0);  // cm
  EXPECT_EQ(NB_Of(m), 100);
  EXPECT_DOUBLE_EQ(Iz_Of(m), 603.78);
  EXPECT_DOUBLE_EQ(It_Of(m), 19.868);
  EXPECT_DOUBLE_EQ(Iw_Of(m), 126332.0);
  // steel: 210000 MPa = 2.1e6 daN/cm2, G = E / (2 (1 + 0.3))
  EXPECT_DOUBLE_EQ(E_Of(m), 2.1e6);
  EXPECT_NEAR(G_Of(m), E_Of(m) / 2.6, 0.5 * 10);
  // fork supports: v and twist fixed, lateral rotation and warping free
  EXPECT_EQ(GetSpring(m.Lst_v1, m.Fact_v), 1e30);
  EXPECT_EQ(GetSpring(m.Lst_t1, m.Fact_t), 1e30);
  EXPECT_EQ(GetSpring(m.Lst_v2, m.Fact_v), 1e30);
  EXPECT_EQ(GetSpring(m.Lst_t2, m.Fact_t), 1e30);
  for (const RestraintList* l : {&m.Lst_vp1, &m.Lst_tp1, &m.Lst_vp2, &m.Lst_tp2, &m.Lst_vi_p1,
                                 &m.Lst_ti_p1, &m.Lst_vi_c, &m.Lst_ti_c, &m.Lst_vpi_c})
    EXPECT_EQ(GetSpring(*l, 1.0), 0.0);
  EXPECT_FALSE(m.Chk_Punctual1 || m.Chk_Punctual2 || m.Chk_Continuous);
  // end moments -100 and 100 kN.m on a pinned beam: uniform moment
  EXPECT_TRUE(m.Chk_M);
  EXPECT_EQ(Support_Case(m), 1);
  EXPECT_DOUBLE_EQ(Value_Of(m.Txt_M1, m.Fact_M), -1e6);  // daN.cm
  EXPECT_DOUBLE_EQ(Value_Of(m.Txt_M2, m.Fact_M), 1e6);
  EXPECT_FALSE(m.Chk_F1 || m.Chk_F2 || m.Chk_F3 || m.Chk_CC || m.Chk_q1 || m.Chk_q2);
  // solver controls: dichotomy, tolerance 1e-4, 70 iterations
  EXPECT_EQ(Method_Of(m), 2);
  EXPECT_DOUBLE_EQ(Tolerance_Of(m), 1e-4);
  EXPECT_EQ(NbIter_Of(m), 70);
  EXPECT_EQ(m.Lbl_Directory, "/data");
  EXPECT_EQ(m.Mode_Max, 0.0f);
}

TEST(BeamModelDefaults, InitDefaultLeavesTextsAndSetsFactorsDirectly) {
  BeamModel m;
  m.Txt_L = "7";
  m.Lst_Unit_L = 0;
  m.Fact_L = 0.1f;
  m.Lst_v1 = RestraintList{-1, "12"};
  m.Opt_Properties = true;
  m.Opt_Catalogue = false;
  Init_Default(m, "/x");
  EXPECT_EQ(m.Txt_L, "7");  // no text field is touched
  EXPECT_EQ(m.Lst_Unit_L, 2);
  EXPECT_EQ(m.Fact_L, 100.0f);
  EXPECT_EQ(m.Lst_v1.index, 1);
  EXPECT_TRUE(m.Opt_Catalogue);
  EXPECT_FALSE(m.Opt_Properties);
  // the warping-restraint factor is set by hand, not taken from its list
  EXPECT_EQ(m.Fact_tp, 0.0001f);
  Set_Factors(m);
  EXPECT_EQ(m.Fact_tp, Unit_Factor(UnitFamily::tp, m.Lst_Unit_tp));
  EXPECT_EQ(m.Fact_L, 100.0f);
  EXPECT_EQ(m.Fact_v_c, 0.01f);
}

TEST(GetSpring, TypedSpringsAndTextsThatAreNoNumbers) {
  // 2.5 kN.m/rd = 25000 daN.cm/rd
  EXPECT_DOUBLE_EQ(GetSpring(RestraintList{-1, "2.5"}, 10000.0), 25000.0);
  EXPECT_DOUBLE_EQ(GetSpring(RestraintList{-1, "abc"}, 10000.0), 0.0);
  EXPECT_DOUBLE_EQ(GetSpring(RestraintList{-1, ""}, 10000.0), 0.0);
  // the state decides, not the text
  EXPECT_DOUBLE_EQ(GetSpring(RestraintList{1, "5"}, 1.0), 1e30);
  EXPECT_DOUBLE_EQ(GetSpring(RestraintList{0, "5"}, 1.0), 0.0);
}

// Every shown number of the record with its family, as the options window
// converts them.
std::vector<std::pair<UnitFamily, std::string*>> Converted_Fields(BeamModel& m) {
  using F = UnitFamily;
  std::vector<std::pair<F, std::string*>> v = {
      {F::L, &m.Txt_L},          {F::EG, &m.Txt_E},          {F::EG, &m.Txt_G},
      {F::Iw, &m.Txt_Iw[1]},     {F::Iw, &m.Txt_Iw[2]},      {F::Iw, &m.Txt_Iw[3]},
      {F::M, &m.Txt_M1},         {F::M, &m.Txt_M2},          {F::M, &m.Txt_CC},
      {F::M, &m.Txt_Mmax[0]},    {F::M, &m.Txt_Mmax[1]},     {F::M, &m.Txt_Mcr},
      {F::F, &m.Txt_F1},         {F::F, &m.Txt_F2},          {F::F, &m.Txt_F3},
      {F::q, &m.Txt_q11},        {F::q, &m.Txt_q12},         {F::q, &m.Txt_q21},
      {F::q, &m.Txt_q22},        {F::v, &m.Lst_v1.text},     {F::v, &m.Lst_v2.text},
      {F::v, &m.Lst_vi_p1.text}, {F::v, &m.Lst_vi_p2.text},  {F::t, &m.Lst_t1.text},
      {F::t, &m.Lst_t2.text},    {F::t, &m.Lst_ti_p1.text},  {F::t, &m.Lst_ti_p2.text},
      {F::vp, &m.Lst_vp1.text},  {F::vp, &m.Lst_vp2.text},   {F::tp, &m.Lst_tp1.text},
      {F::tp, &m.Lst_tp2.text},  {F::v_c, &m.Lst_vi_c.text}, {F::t_c, &m.Lst_ti_c.text},
      {F::vp_c, &m.Lst_vpi_c.text}};
  for (int k = 1; k <= 3; ++k) {
    v.push_back({F::Izt, &m.Txt_Iz[k]});
    v.push_back({F::Izt, &m.Txt_It[k]});
    v.push_back({F::Dim, &m.Txt_Betaz[k]});
  }
  for (std::string* t : {&m.Txt_zS[1], &m.Txt_zS[2], &m.Txt_h, &m.Txt_bf1, &m.Txt_tf1,
                         &m.Txt_bf2, &m.Txt_tf2, &m.Txt_tw, &m.Txt_r1, &m.Txt_r2, &m.Txt_zend1,
                         &m.Txt_zend2, &m.Txt_zint_p1, &m.Txt_zint_p2, &m.Txt_zint_c,
                         &m.Txt_zq1, &m.Txt_zq2, &m.Txt_zF1, &m.Txt_zF2, &m.Txt_zF3})
    v.push_back({F::Dim, t});
  return v;
}

TEST(TraiterUnits, RoundTripThroughEveryUnitKeepsInternalValues) {
  BeamModel m = Default_Model();
  Set_Factors(m);
  // typed springs everywhere, and a distinct number in every field
  auto fields = Converted_Fields(m);
  for (auto& [f, t] : fields) (void)f, *t = "0";
  int k = 0;
  for (auto& [f, t] : fields) {
    (void)f;
    *t = Number_To_Text(1.5 + 0.37 * k++);
  }
  for (RestraintList* l : {&m.Lst_v1, &m.Lst_t1, &m.Lst_vp1, &m.Lst_tp1, &m.Lst_v2, &m.Lst_t2,
                           &m.Lst_vp2, &m.Lst_tp2, &m.Lst_vi_p1, &m.Lst_ti_p1, &m.Lst_vi_p2,
                           &m.Lst_ti_p2, &m.Lst_vi_c, &m.Lst_ti_c, &m.Lst_vpi_c})
    l->index = -1;

  auto internal = [&](BeamModel& mm) {
    std::vector<double> v;
    for (auto& [f, t] : Converted_Fields(mm)) v.push_back(Num_Of_Text(*t) * Factor_Of(mm, f));
    return v;
  };
  const std::vector<double> before = internal(m);

  // walk every family through all its units and back to where it started
  for (UnitFamily f : All_Unit_Families) {
    const int start = Unit_Index(m, f);
    const int n = Unit_ItemCount(f);
    for (int step = 1; step <= n; ++step) {
      UnitIndices old = Unit_Indices(m);
      Unit_Index(m, f) = (start + step) % n;
      Traiter_Units(m, old);
      EXPECT_EQ(Factor_Of(m, f), Unit_Factor(f, Unit_Index(m, f)));
      std::vector<double> now = internal(m);
      for (size_t i = 0; i < now.size(); ++i)
        EXPECT_NEAR(now[i] / before[i], 1.0, 1e-3)
            << Unit_ListName(f) << " unit " << Unit_Index(m, f) << " field " << i;
    }
    EXPECT_EQ(Unit_Index(m, f), start);
  }
}

TEST(TraiterUnits, ShownTextsFollowTheUnit) {
  BeamModel m = Default_Model();
  Set_Factors(m);
  m.Lst_v1 = RestraintList{-1, "1000"};  // kN/m
  m.Txt_Iz[2].clear();                   // not computed yet
  UnitIndices old = Unit_Indices(m);
  m.Lst_Unit_L = 0;    // mm
  m.Lst_Unit_M = 0;    // daN.cm
  m.Lst_Unit_v = 2;    // daN/m
  m.Lst_Unit_Izt = 0;  // mm4
  Traiter_Units(m, old);
  EXPECT_EQ(m.Txt_L, "10000");
  // -100 kN.m = -1e6 daN.cm: a million and more is shown in scientific form
  EXPECT_EQ(m.Txt_M1, "-1.000E+06");
  EXPECT_EQ(m.Txt_M2, "1.000E+06");
  EXPECT_EQ(m.Lst_v1.text, "100000");  // 1000 kN/m = 100000 daN/m
  EXPECT_EQ(m.Lst_t1.text, "Fixed");   // a state text stays
  EXPECT_EQ(m.Txt_Iz[1], "6.0378E+06");  // 603.78 cm4 in mm4
  EXPECT_EQ(m.Txt_Iz[2], "");
  // the positions along the beam are fractions: no unit
  EXPECT_EQ(m.Txt_xfint1, "0.5");
  EXPECT_EQ(m.Lbl_xfMmax[0], "0");
}

}  // namespace
