// The beam model: everything the user states about one beam, with the last
// results shown.
//
// The record mirrors the fields of the main window one member per field.
// Every number is kept as the TEXT typed, in the unit currently shown; it is
// converted to internal units (daN, cm) only when it is used, by the factor of
// its unit family (Value_Of and the readers below). Switched-off loads and
// restraints keep their values. Each of the three section routes has its own
// slot of property fields; the route chooses which slot counts.
//
// Slot arrays (Txt_Iz, Txt_It, Txt_Iw, Txt_Betaz, Txt_zS) are indexed by the
// slot number: 1 catalogue, 2 dimensions, 3 properties; element 0 is unused.
// Txt_zS has slots 1 and 2 only. Txt_Mmax and Lbl_xfMmax are indexed 0..1.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "foundation/Units.h"
#include "section/Mod_Section.h"

namespace zarvek {

// A restraint list: "Free" (index 0), "Fixed" (index 1), or a typed spring
// stiffness (index -1, the number in `text`). Index 2 ("Spring?") is only a
// passage: choosing it puts "0" in the text and leaves the list at -1.
struct RestraintList {
  int index = 0;
  std::string text = "Free";
  // The unit label beside the list; shown while the list holds a typed spring.
  // Reading a project file shows it for index -1 and never hides it.
  bool Unit_Visible = false;
};

// Texts of the three items of a restraint list in the loaded language
// (Msg(28), Msg(20), Msg(71) + "?"), falling back to "Free", "Fixed",
// "Spring?" while no language is loaded.
std::string Restraint_ItemText(int item);
// A list set to item 0 or 1 with its item text.
RestraintList Restraint_Item(int item);

// Items of the element count list Txt_NB.
constexpr std::array<const char*, 4> NB_Items = {"100", "120", "150", "200"};
// Items of the options lists that travel with the project file.
constexpr std::array<const char*, 6> Tolerance_Items = {"0.01",  "0.001",   "0.0001",
                                                        "0.00001", "0.000001", "0.0000001"};
constexpr std::array<const char*, 5> NbIter_Items = {"20", "50", "70", "100", "120"};
constexpr int Duration_ItemCount = 7;  // "0" to "6"

// Default captions of the two solving methods (the window replaces them by
// the loaded language's captions through Caption_Eigen / Caption_Dichotomie).
constexpr const char* Default_Caption_Eigen = "Vector iteration method (Rayleigh quotient)";
constexpr const char* Default_Caption_Dichotomie = "Dichotomic process on Determinant";

struct BeamModel {
  // ---- options that travel with the project file -------------------------
  int Lst_Duration = 2;             // splash duration, items "0".."6"
  std::string Lbl_Directory;        // default data directory (also Lst_Dir)
  bool Opt_Eigen = false;
  bool Opt_Dichotomie = true;
  int Lst_Tolerance = 2;            // index into Tolerance_Items
  int Lst_NbIter = 2;               // index into NbIter_Items
  std::string Lbl_Method = Default_Caption_Dichotomie;  // caption of the chosen method
  std::string Lbl_Tolerance = "0.0001";                 // text of Lst_Tolerance (local separator)
  std::string Caption_Eigen = Default_Caption_Eigen;
  std::string Caption_Dichotomie = Default_Caption_Dichotomie;

  // ---- the fifteen unit lists (selected indices) -------------------------
  int Lst_Unit_L = 2;     // m
  int Lst_Unit_EG = 0;    // MPa
  int Lst_Unit_Izt = 1;   // cm4
  int Lst_Unit_Iw = 1;    // cm6
  int Lst_Unit_Dim = 1;   // cm
  int Lst_Unit_M = 3;     // kN.m
  int Lst_Unit_F = 1;     // kN
  int Lst_Unit_q = 4;     // kN/m
  int Lst_Unit_v = 4;     // kN/m
  int Lst_Unit_t = 3;     // kN.m/rd
  int Lst_Unit_vp = 3;    // kN.m
  int Lst_Unit_tp = 3;    // kN.m3/rd
  int Lst_Unit_v_c = 4;   // kN/m/m
  int Lst_Unit_t_c = 3;   // kN.m/rd/m
  int Lst_Unit_vp_c = 3;  // kN.m/m

  // ---- the fifteen factors: internal value = shown value x factor --------
  // Kept apart from the indices: they follow the lists only through
  // Set_Factors (a failed file read changes the lists, not the factors).
  float Fact_Dim = 1;
  float Fact_Izt = 1;
  float Fact_Iw = 1;
  float Fact_F = 100;
  float Fact_L = 100;
  float Fact_M = 10000;
  float Fact_q = 1;
  float Fact_EG = 10;
  float Fact_v = 1;
  float Fact_t = 10000;
  float Fact_vp = 10000;
  float Fact_tp = 0.0001f;
  float Fact_v_c = 0.01f;
  float Fact_t_c = 100;
  float Fact_vp_c = 100;

  // ---- window state that goes with the record ----------------------------
  int Tab_Zarvek = 0;   // tab shown: 0 beam, 1 restraints, 2 loads ...
  int Tab_Dim = 0;      // shape of the dimensions route: 0 double symmetric I,
                        // 1 mono-symmetric I, 2 flange 1 only, 3 flange 2 only
  bool RefreshLocked = false;  // the program fills fields: change rules do nothing
  bool File_Loading = false;   // set by the file reader; cleared by a change of Tab_Dim
  std::string Psi_Previous = "1";  // text of Txt_Psi before the last key

  // ---- beam --------------------------------------------------------------
  std::string Txt_L = "10";
  int Txt_NB = 0;  // index into NB_Items; chosen, never typed

  // ---- section route -----------------------------------------------------
  bool Opt_Catalogue = true;
  bool Opt_Dimensions = false;
  bool Opt_Properties = false;

  // catalogue route
  std::string Lbl_SelectedProfile = "IPE 300";
  double Cat_h = 30, Cat_b = 15, Cat_tf = 1.07, Cat_tw = 0.71, Cat_r = 1.5;  // cm

  // section properties by slot (1 catalogue, 2 dimensions, 3 properties)
  std::array<std::string, 4> Txt_Iz = {"", "603.78", "0", "603.78"};
  std::array<std::string, 4> Txt_It = {"", "19.868", "0", "19.868"};
  std::array<std::string, 4> Txt_Iw = {"", "126332", "0", "126332"};
  std::array<std::string, 4> Txt_Betaz = {"", "0", "0", "0"};
  std::array<std::string, 3> Txt_zS = {"", "0", "0"};
  std::string Txt_zS_Hidden;  // the second text carried by Txt_zS(2)
  // The sixteen constants of the last confirmed dimensions (internal units),
  // shown by the properties window.
  SectionProps Section_Props;

  // dimensions route, in the unit of Lst_Unit_Dim
  std::string Txt_h = "30";
  std::string Txt_tw = "0.71";
  std::string Txt_bf1 = "15", Txt_tf1 = "1.07", Txt_r1 = "1.5";
  std::string Txt_bf2 = "15", Txt_tf2 = "1.07", Txt_r2 = "1.5";

  // ---- steel -------------------------------------------------------------
  std::string Txt_E = "210000";
  std::string Txt_G = "80769";
  std::string Txt_Nu = "0.3";
  bool Opt_Nu = true;   // Txt_Nu typed, Txt_G derived
  bool Opt_G = false;   // Txt_G typed, Txt_Nu derived

  // ---- design check of lateral-torsional buckling (src/design) ------------
  int Lst_Grade = 2;               // S235 S275 S355 S420 S450 S460; 6: fy typed
  std::string Txt_fy = "355";      // unit of Lst_Unit_EG; read when Lst_Grade = 6
  std::string Txt_GammaM1 = "1";
  int Lst_LtbMethod = 0;           // 0 by section: rolled 6.3.2.3, welded 6.3.2.2;
                                   // 1 general case; 2 rolled or equivalent welded
  bool Chk_fmod = true;            // modification factor f (rolled method)
  bool Chk_Welded = false;         // dimensions route: a welded section

  // ---- end restraints ----------------------------------------------------
  RestraintList Lst_v1 = RestraintList{1, "Fixed"}, Lst_t1 = RestraintList{1, "Fixed"};
  RestraintList Lst_vp1 = RestraintList{0, "Free"}, Lst_tp1 = RestraintList{0, "Free"};
  RestraintList Lst_v2 = RestraintList{1, "Fixed"}, Lst_t2 = RestraintList{1, "Fixed"};
  RestraintList Lst_vp2 = RestraintList{0, "Free"}, Lst_tp2 = RestraintList{0, "Free"};
  std::string Txt_zend1 = "0", Txt_zend2 = "0";

  // ---- punctual intermediate restraints ----------------------------------
  bool Chk_Punctual1 = false, Chk_Punctual2 = false;
  std::string Txt_xfint1 = "0.5", Txt_xfint2 = "0.5";
  std::string Txt_zint_p1 = "0", Txt_zint_p2 = "0";
  RestraintList Lst_vi_p1 = RestraintList{0, "Free"}, Lst_ti_p1 = RestraintList{0, "Free"};
  RestraintList Lst_vi_p2 = RestraintList{0, "Free"}, Lst_ti_p2 = RestraintList{0, "Free"};

  // ---- continuous restraint ----------------------------------------------
  bool Chk_Continuous = false;
  std::string Txt_zint_c = "0";
  RestraintList Lst_vi_c = RestraintList{0, "Free"}, Lst_ti_c = RestraintList{0, "Free"};
  RestraintList Lst_vpi_c = RestraintList{0, "Free"};

  // ---- loads -------------------------------------------------------------
  // in-plane support scheme: exactly one on
  bool Opt_AA = true, Opt_EE = false, Opt_EA = false, Opt_EL = false;

  bool Chk_M = true;
  std::string Txt_M1 = "-100", Txt_M2 = "100", Txt_Psi = "1";
  bool Opt_M2 = true;    // Txt_M2 typed, Txt_Psi derived
  bool Opt_Psi = false;  // Txt_Psi typed, Txt_M2 derived

  bool Chk_F1 = false, Chk_F2 = false, Chk_F3 = false;
  std::string Txt_F1 = "-10", Txt_F2 = "0", Txt_F3 = "0";
  std::string Txt_xf1 = "0.5", Txt_xf2 = "0", Txt_xf3 = "0";
  std::string Txt_zF1 = "0", Txt_zF2 = "0", Txt_zF3 = "0";

  bool Chk_CC = false;
  std::string Txt_CC = "100", Txt_xfC = "0.5";

  bool Chk_q1 = false, Chk_q2 = false;
  std::string Txt_q11 = "-10", Txt_q12 = "-10", Txt_xq11 = "0", Txt_xq12 = "1", Txt_zq1 = "0";
  std::string Txt_q21 = "-10", Txt_q22 = "-10", Txt_xq21 = "0", Txt_xq22 = "1", Txt_zq2 = "0";

  // ---- axial force --------------------------------------------------------
  // N at the centroid, constant along the beam, compression positive, in the
  // force unit. The critical factor multiplies it together with the moments.
  std::string Txt_N = "0";
  // Constants the axial terms need beyond the lateral-torsional ones, typed
  // on the properties route only (the other routes compute them): area,
  // second moment about the strong axis, and the shear centre above the
  // centroid (zC, same sign as zS). The IPE 300 of the other slot 3 fields.
  std::string Txt_A3 = "53.81", Txt_Iy3 = "8356", Txt_zC3 = "0";

  // ---- shown results -----------------------------------------------------
  std::string Lbl_Iteration = "0";
  std::string Lbl_CurrentValue = "0";
  std::string Lbl_Comment;
  std::string Txt_mucr = "0";
  std::string Txt_Mcr = "0";
  std::string Txt_Ncr = "0";  // mucr N in the force unit; "0" without axial force
  std::array<std::string, 2> Txt_Mmax = {"0", "0"};
  std::array<std::string, 2> Lbl_xfMmax = {"0", "0"};
  float Mcr_Factor = 0;   // last critical factor
  float Mode_Max = 0;     // largest |Mode_Vector|; 0: no mode exists
  std::vector<float> Mode_Vector;      // 1..4(N+1): v, theta, v', theta' per node
  std::vector<float> Restraint_Level;  // 1..N+1: height of the node restraint

  // display choices of the curves
  bool Chk_EffM = true, Chk_EffV = true;
  bool Chk_v = true, Chk_t = true, Chk_vp = true, Chk_tp = true;
};

// ---- defaults ------------------------------------------------------------

// Sets options, unit lists, element count, restraint lists, section route,
// catalogue dimensions and the fifteen factors to their starting state. It
// touches no text field: the default texts are the member initialisers.
// `startDir` is the directory the program started in (Lbl_Directory).
void Init_Default(BeamModel& m, const std::string& startDir);

// ---- unit families on the record -----------------------------------------

int& Unit_Index(BeamModel& m, UnitFamily f);
int Unit_Index(const BeamModel& m, UnitFamily f);
float& Factor_Of(BeamModel& m, UnitFamily f);
float Factor_Of(const BeamModel& m, UnitFamily f);
UnitIndices Unit_Indices(const BeamModel& m);
// Takes all fifteen factors from the selected items of the unit lists.
void Set_Factors(BeamModel& m);

// After the unit lists changed (options accepted): rewrites every shown
// number of each family from its old unit (`oldIndices`, the indices before
// the change) into the unit now selected, so that internal values stay; texts
// that are not numbers ("Free", "Fixed", empty) are left alone. Then sets the
// fifteen factors from the lists. Redrawing is left to the window.
void Traiter_Units(BeamModel& m, const UnitIndices& oldIndices);

// ---- readers (use after validation) --------------------------------------

// Num_Of_Text(text) x factor: the internal value of a shown number.
double Value_Of(const std::string& text, double factor);

// Value of a restraint list in internal units: 0 free, 1e30 fixed, otherwise
// factor x the typed number (a text that is not a number counts as free).
double GetSpring(const RestraintList& list, double factor);

// Text and number of the element count.
std::string NB_Text(const BeamModel& m);
int NB_Of(const BeamModel& m);
// Beam length in cm.
double L_Of(const BeamModel& m);
// Slot of the active section route: 1 catalogue, 2 dimensions, 3 properties.
int Section_Slot(const BeamModel& m);
// Section constants of the active route in internal units (cm4, cm6, cm).
double Iz_Of(const BeamModel& m);
double It_Of(const BeamModel& m);
double Iw_Of(const BeamModel& m);
double Betaz_Of(const BeamModel& m);
// Moduli in daN/cm2.
double E_Of(const BeamModel& m);
double G_Of(const BeamModel& m);
// Solver controls: method (1 Eigen, 2 Dichotomie, 0 when neither is on),
// tolerance, iteration limit.
int Method_Of(const BeamModel& m);
double Tolerance_Of(const BeamModel& m);
int NbIter_Of(const BeamModel& m);
// Support scheme for the internal forces: 1 Opt_AA, 2 Opt_EA, 3 Opt_EL, 4 Opt_EE.
int Support_Case(const BeamModel& m);

}  // namespace zarvek
