// The one table of the fields of the beam model.
//
// Every field, list, check box and option that the user sees on the four
// pages of the main window is listed here once, with the member of the record
// that holds it, its unit family, its page, the key filter of its text and the
// change rule it triggers. The window binds its widgets through this table
// (a widget's object name is the field's name), the change rules dispatch on
// it, the unit conversion walks it, and validation names its fields by it.
// A member misspelt here fails to compile; a name misspelt elsewhere is not
// found here, and the tests of the model and the window look for every name.
//
// Slot fields carry their slot in the name: "Txt_Iz(3)", "Txt_Mmax(0)".
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "model/BeamModel.h"

namespace zarvek {

// What kind of member a field is bound to.
enum class FieldKind {
  Text,       // std::string typed by the user
  Display,    // std::string the program writes (results, read-only slots, labels)
  Choice,     // int: index of a fixed list (Txt_NB)
  Check,      // bool: check box
  Option,     // bool: one option of a group of options
  Restraint,  // RestraintList: Free, Fixed or a typed spring
};

// Key filter of a text field (Filter_NumericKey modes).
enum class KeyFilter {
  None = -1,        // not typed by the user
  Signed = 0,       // mode 0: a sign is allowed
  Unsigned = 1,     // mode 1: no minus
  UnsignedExp = 2,  // mode 1, the letter E passed unchanged before the filter (Txt_Iw)
};

// What a change of the field does when the user makes it.
enum class ChangeRule {
  None,
  Loads,        // InitProcessInfo, InitEffortsInfo
  LoadsRedraw,  // InitProcessInfo, InitEffortsInfo, Refresh_LoadsDiagrams
  Process,      // InitProcessInfo
  Punctual1,    // InitProcessInfo when Chk_Punctual1 is on
  Punctual2,    // InitProcessInfo when Chk_Punctual2 is on
  Continuous,   // InitProcessInfo when Chk_Continuous is on
  Intermediate, // InitProcessInfo, update of "No intermediate lateral restraint"
  Curves,       // Tracer_VecteurPropre only
  Profile,      // InitProcessInfo, Draw_Section
  Route,        // Draw_Section, InitProcessInfo, picture of the route
  Dimension,    // slot 2 of the section emptied, Img_Section erased
  E, Nu, G,     // the coupled steel constants
  M1, M2, Psi,  // the coupled end moments
};

struct FieldDef {
  const char* name;
  FieldKind kind;
  int unit;  // (int)UnitFamily, or -1 without a unit
  int page;  // page of Tab_Zarvek: 0 beam, 1 restraints, 2 loads, 3 results
  KeyFilter filter;
  ChangeRule rule;
  // Refresh_LoadsDiagrams when the focus leaves the field.
  bool redrawOnLeave;
  // Address of the member in a record.
  void* (*ref)(BeamModel&);

  bool hasUnit() const { return unit >= 0; }
  UnitFamily family() const { return static_cast<UnitFamily>(unit); }
};

// All fields, page by page in the order of the pages.
std::span<const FieldDef> Field_Table();

// The field of that name, or nullptr.
const FieldDef* Find_Field(std::string_view name);

// Typed access to the member of a field; nullptr when the kind differs.
std::string* Text_Member(BeamModel& m, const FieldDef& f);  // Text and Display
int* Choice_Member(BeamModel& m, const FieldDef& f);
bool* Flag_Member(BeamModel& m, const FieldDef& f);         // Check and Option
RestraintList* Restraint_Member(BeamModel& m, const FieldDef& f);

// The text a field shows in a record (a list's text, "1"/"0" for a flag, the
// item index of a choice as a number): for comparisons and messages.
std::string Field_Text(const BeamModel& m, const FieldDef& f);

}  // namespace zarvek
