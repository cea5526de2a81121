// Display units.
//
// Inside, the program counts in daN and cm. Every quantity the user sees is in
// a unit of one of fifteen families; each family is a list of units whose item
// data gives the factor by Get_ItemFactor: internal value = shown value x
// factor. The factors are kept in single precision, as the lists deliver them.
#pragma once

#include <array>
#include <string>

namespace zarvek {

// The fifteen families, in the order of the options window and of the project
// file: L, EG, Izt, Iw, Dim, M, F, q, v, t, vp, tp, v_c, t_c, vp_c.
enum class UnitFamily : int {
  L = 0, EG, Izt, Iw, Dim, M, F, q, v, t, vp, tp, v_c, t_c, vp_c
};
constexpr int Unit_Family_Count = 15;

// All families in the order above, for loops.
constexpr std::array<UnitFamily, Unit_Family_Count> All_Unit_Families = {
    UnitFamily::L,  UnitFamily::EG, UnitFamily::Izt, UnitFamily::Iw,  UnitFamily::Dim,
    UnitFamily::M,  UnitFamily::F,  UnitFamily::q,   UnitFamily::v,   UnitFamily::t,
    UnitFamily::vp, UnitFamily::tp, UnitFamily::v_c, UnitFamily::t_c, UnitFamily::vp_c};

// Selected index of each family, indexed by (int)UnitFamily.
using UnitIndices = std::array<int, Unit_Family_Count>;

// Name of the family's list ("Lst_Unit_L") and of its factor ("Fact_L").
const char* Unit_ListName(UnitFamily f);
const char* Unit_FactorName(UnitFamily f);
// Internal unit of the family ("cm", "daN/cm2" ...).
const char* Unit_InternalName(UnitFamily f);

// Items of a family: their number, texts ("m", "kN.m" ...) and item data.
int Unit_ItemCount(UnitFamily f);
// Text of an item; empty for an index out of range.
std::string Unit_ItemText(UnitFamily f, int index);
// Item data of an item; 0 for an index out of range.
long Unit_ItemData(UnitFamily f, int index);
bool Unit_IndexValid(UnitFamily f, int index);

// Factor of an item by Get_ItemFactor (single precision); 1 for an index out
// of range, so that a bad index never divides by zero.
float Unit_Factor(UnitFamily f, int index);

// Index selected for a new document.
int Unit_DefaultIndex(UnitFamily f);
UnitIndices Unit_DefaultIndices();

// Rewrites one shown number for a change of unit from oldIndex to newIndex:
// a numeric text becomes Format_Auto(value x fOld / fNew), so that the
// internal value stays (apart from the rounding of the text). A text that is
// not numeric ("Free", "Fixed", empty) is left alone. Nothing happens when the
// two indices are equal.
void ChangeUnit(UnitFamily f, int oldIndex, int newIndex, std::string& text);

}  // namespace zarvek
