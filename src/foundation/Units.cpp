#include "foundation/Units.h"

#include <vector>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

struct Item {
  const char* text;
  long data;  // factor d, or -1/factor when below 0 (item data are integers)
};

struct Family {
  const char* list;
  const char* factor;
  const char* internal;
  int defaultIndex;
  std::vector<Item> items;
};

// The values stand as the program has them, the inexact ones too (m4, m6 and
// the warping restraints): files and user habits depend on them.
const std::vector<Family>& Families() {
  static const std::vector<Family> fam = {
      {"Lst_Unit_L", "Fact_L", "cm", 2, {{"mm", -10}, {"cm", 1}, {"m", 100}}},
      {"Lst_Unit_EG", "Fact_EG", "daN/cm2", 0,
       {{"MPa", 10}, {"daN/mm2", 100}, {"daN/cm2", 1}, {"kN/mm2", 10000}, {"kN/cm2", 100}}},
      {"Lst_Unit_Izt", "Fact_Izt", "cm4", 1, {{"mm4", -10000}, {"cm4", 1}, {"m4", 10000}}},
      {"Lst_Unit_Iw", "Fact_Iw", "cm6", 1, {{"mm6", -1000000}, {"cm6", 1}, {"m6", 1000000}}},
      {"Lst_Unit_Dim", "Fact_Dim", "cm", 1, {{"mm", -10}, {"cm", 1}}},
      {"Lst_Unit_M", "Fact_M", "daN.cm", 3,
       {{"daN.cm", 1}, {"daN.m", 100}, {"kN.cm", 100}, {"kN.m", 10000}}},
      {"Lst_Unit_F", "Fact_F", "daN", 1, {{"daN", 1}, {"kN", 100}}},
      {"Lst_Unit_q", "Fact_q", "daN/cm", 4,
       {{"daN/mm", 10}, {"daN/cm", 1}, {"daN/m", -100}, {"kN/cm", 100}, {"kN/m", 1}}},
      {"Lst_Unit_v", "Fact_v", "daN/cm", 4,
       {{"daN/mm", 10}, {"daN/cm", 1}, {"daN/m", -100}, {"kN/cm", 100}, {"kN/m", 1}}},
      {"Lst_Unit_t", "Fact_t", "daN.cm/rd", 3,
       {{"daN.cm/rd", 1}, {"daN.m/rd", 100}, {"kN.cm/rd", 100}, {"kN.m/rd", 10000}}},
      {"Lst_Unit_vp", "Fact_vp", "daN.cm", 3,
       {{"daN.cm", 1}, {"daN.m", 100}, {"kN.cm", 100}, {"kN.m", 10000}}},
      {"Lst_Unit_tp", "Fact_tp", "daN.cm3/rd", 3,
       {{"daN.cm3/rd", 1}, {"daN.m3/rd", -1000000}, {"kN.cm3/rd", -100}, {"kN.m3/rd", -100000000}}},
      {"Lst_Unit_v_c", "Fact_v_c", "daN/cm/cm", 4,
       {{"daN/mm/mm", 100}, {"daN/cm/cm", 1}, {"daN/m/m", -10000}, {"kN/cm/cm", 100}, {"kN/m/m", -100}}},
      {"Lst_Unit_t_c", "Fact_t_c", "daN.cm/rd/cm", 3,
       {{"daN.cm/rd/cm", 1}, {"daN.m/rd/m", 1}, {"kN.cm/rd/cm", 100}, {"kN.m/rd/m", 100}}},
      {"Lst_Unit_vp_c", "Fact_vp_c", "daN.cm/cm", 3,
       {{"daN.cm/cm", 1}, {"daN.m/m", 1}, {"kN.cm/cm", 100}, {"kN.m/m", 100}}},
  };
  return fam;
}

const Family& Fam(UnitFamily f) { return Families()[(size_t)f]; }

}  // namespace

const char* Unit_ListName(UnitFamily f) { return Fam(f).list; }
const char* Unit_FactorName(UnitFamily f) { return Fam(f).factor; }
const char* Unit_InternalName(UnitFamily f) { return Fam(f).internal; }
int Unit_ItemCount(UnitFamily f) { return (int)Fam(f).items.size(); }

bool Unit_IndexValid(UnitFamily f, int index) {
  return index >= 0 && index < Unit_ItemCount(f);
}

std::string Unit_ItemText(UnitFamily f, int index) {
  if (!Unit_IndexValid(f, index)) return std::string();
  return Fam(f).items[(size_t)index].text;
}

long Unit_ItemData(UnitFamily f, int index) {
  if (!Unit_IndexValid(f, index)) return 0;
  return Fam(f).items[(size_t)index].data;
}

float Unit_Factor(UnitFamily f, int index) {
  if (!Unit_IndexValid(f, index)) return 1.0f;
  return Get_ItemFactor(Unit_ItemData(f, index));
}

int Unit_DefaultIndex(UnitFamily f) { return Fam(f).defaultIndex; }

UnitIndices Unit_DefaultIndices() {
  UnitIndices r{};
  for (UnitFamily f : All_Unit_Families) r[(size_t)f] = Unit_DefaultIndex(f);
  return r;
}

void ChangeUnit(UnitFamily f, int oldIndex, int newIndex, std::string& text) {
  if (newIndex == oldIndex) return;
  double fNew = Unit_Factor(f, newIndex);
  double fOld = Unit_Factor(f, oldIndex);
  if (!Is_Numeric(text)) return;
  text = Format_Auto(Num_Of_Text(text) * fOld / fNew);
}

}  // namespace zarvek
