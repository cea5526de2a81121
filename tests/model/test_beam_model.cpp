// The record of a beam: defaults, readers and the change of display units.
#include <gtest/gtest.h>

#include <vector>

#include "model/BeamModel.h"
#include "model_support.h"

using namespace zarvek;
using namespace zarvek_test;

namespace {

TEST(TraiterUnits, RoundTripThroughEveryUnitKeepsInternalValues) {
  BeamModel m = Default_Model();
  Set_Factors(m);
  int k = 0;  // a distinct number in every field
  for (auto& [f, texts] : Number_Fields(m))
    for (std::string* t : texts) *t = Number_To_Text(1.5 + 0.37 * k++);
  auto internal = [&] {
    std::vector<double> v;
    for (auto& [f, texts] : Number_Fields(m))
      for (std::string* t : texts) v.push_back(Num_Of_Text(*t) * Factor_Of(m, f));
    return v;
  };
  const std::vector<double> before = internal();
  // walk every family through all its units and back to where it started
  for (UnitFamily f : All_Unit_Families) {
    const int start = Unit_Index(m, f), n = Unit_ItemCount(f);
    for (int step = 1; step <= n; ++step) {
      UnitIndices old = Unit_Indices(m);
      Unit_Index(m, f) = (start + step) % n;
      Traiter_Units(m, old);
      std::vector<double> now = internal();
      for (size_t i = 0; i < now.size(); ++i)
        EXPECT_NEAR(now[i] / before[i], 1.0, 1e-3)
            << Unit_ListName(f) << " unit " << Unit_Index(m, f) << " field " << i;
    }
  }
}

TEST(TraiterUnits, ShownTextsFollowTheUnit) {
  BeamModel m = Default_Model();
  Set_Factors(m);
  m.Lst_v1 = RestraintList{-1, "1000"};  // kN/m
  m.Txt_Iz[2].clear();                   // not computed yet
  m.Txt_F1 = "-10.00";                   // a family whose unit stays is not even reformatted
  UnitIndices old = Unit_Indices(m);
  m.Lst_Unit_L = m.Lst_Unit_M = m.Lst_Unit_Izt = 0;  // mm, daN.cm, mm4
  m.Lst_Unit_v = 2;                                   // daN/m
  Traiter_Units(m, old);
  EXPECT_EQ(m.Txt_L, "10000");
  // -100 kN.m = -1e6 daN.cm: a million and more is shown in scientific form
  EXPECT_EQ(m.Txt_M1, "-1.000E+06");
  EXPECT_EQ(m.Lst_v1.text, "100000");    // 1000 kN/m = 100000 daN/m
  EXPECT_EQ(m.Lst_t1.text, "Fixed");     // a state text stays
  EXPECT_EQ(m.Txt_Iz[1], "6.0378E+06");  // 603.78 cm4 in mm4
  EXPECT_EQ(m.Txt_Iz[2], "");
  EXPECT_EQ(m.Txt_F1, "-10.00");
}

}  // namespace
