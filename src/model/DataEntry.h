// Reactions of the beam model to the user's changes.
//
// Three things stay true through every change: a shown result never survives
// a change of the data it came from, coupled quantities (E, G, nu; M1, M2,
// psi) stay consistent, and the section of the dimensions route is only
// counted once it has been confirmed. While RefreshLocked is set (the program
// itself fills fields) every change rule does nothing.
//
// Nothing here touches a widget: each rule changes the record and tells the
// window what is left for it to do (redraw, erase, select).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/BeamModel.h"
#include "section/Mod_Section.h"

namespace zarvek {

// What a change leaves for the window to do.
struct ChangeEffects {
  bool Erase_Eigenmode = false;        // InitProcessInfo ran: Img_Eigenmode erased
  bool Erase_Forces = false;           // InitEffortsInfo ran: Img_Forces, Img_Loads erased
  bool Erase_Section = false;          // Img_Section erased
  bool Refresh_LoadsDiagrams = false;  // validate, then redraw forces and loads
  bool Draw_Section = false;
  bool Tracer_VecteurPropre = false;
  bool Show_Section_Picture = false;   // the route changed: show its picture of Img_TabSection
  bool Update_NoRestraint = false;     // show Lbl_Trad(5) when No_Intermediate_Restraint
  bool Select_Psi = false;             // Txt_Psi was put back: select it
  bool Unit_Label_Changed = false;     // a restraint list's unit label visibility was set
};

// Clears the results of the solve: Lbl_Iteration, Lbl_CurrentValue, Txt_mucr,
// Txt_Mcr := "0", Lbl_Comment := Msg(90), Mode_Max := 0 (no mode exists).
void InitProcessInfo(BeamModel& m);
// Clears the internal-force results: Txt_Mmax(0..1), Lbl_xfMmax(0..1) := "0".
void InitEffortsInfo(BeamModel& m);

// True when none of the intermediate restraints is switched on (the window
// then shows "No intermediate lateral restraint").
bool No_Intermediate_Restraint(const BeamModel& m);

// The user changed the field (or check box, option, list text) of that name;
// the record already holds the new value. Names as in the record: "Txt_L",
// "Chk_F1", "Opt_AA", "Lst_v1", "Txt_Iz(3)" ... Applies the rules of the
// field: results cleared, coupled field derived. Nothing while RefreshLocked.
ChangeEffects Data_Changed(BeamModel& m, std::string_view field);

// The restraint list of that name ("Lst_v1" ... "Lst_vpi_c"), or nullptr.
RestraintList* Restraint_ByName(BeamModel& m, std::string_view name);
// The user chose an item of a restraint list: the unit label is visible
// exactly when the item is 2 or more; item 2 replaces the text by "0" and
// leaves the list at -1 (a typed spring); items 0 and 1 take their item text.
// Then the list's change rule.
ChangeEffects Restraint_Choose(BeamModel& m, std::string_view name, int item);

// psi from M1 and M2: the smaller end moment over the larger, with a minus;
// "?" when both are 0; written "0.000".
void Calculer_Psi(BeamModel& m);

// Confirmation of the dimensions route: checks and limits shape by shape,
// the flange copying of each shape, then the section constants into slot 2.
struct DimensionsResult {
  bool ok = false;                  // the section was computed
  std::vector<std::string> Shown;   // messages shown on the way, in order
  std::string Error_Text;           // left pending (Msg(95) when the section is refused)
  int tab = -1;                     // tab and field selected by a failed check
  std::string field;
  bool Draw_Section = false;
  bool Erase_Eigenmode = false;     // InitProcessInfo ran
};
DimensionsResult Cmd_Dimensions(BeamModel& m);

// The section record (area, moduli ... for More properties) of the section
// confirmed by the dimensions route, worked out again from the dimensions as
// they stand: a project read from a file brings the texts of slot 2 but not
// the record behind them. Nothing else changes. False (record unchanged)
// when the dimensions give no section.
bool Refresh_SectionProps(BeamModel& m);

// The catalogue section chosen, on the record as the catalogue window hands
// it over: the five dimensions, slot 1 of Iz, It, Iw and Betaz, and the
// profile's caption. The route is the caller's to choose.
struct SectionTransfer;
void Take_CatalogueSection(BeamModel& m, const SectionTransfer& t);

// Reads the dimension fields into cm.
SectionDims Dimensions_Of(const BeamModel& m);

// Change of shape on Tab_Dim to t. Empties slot 2 of the section fields,
// carries flange values across shapes (unless a file is being read) and
// clears File_Loading. The result says whether Img_Section is to be erased.
ChangeEffects Tab_Dim_Change(BeamModel& m, int t);

}  // namespace zarvek
