// The lateral-torsional buckling check of one beam of the model: its inputs
// read from the record, the kc of the moment diagram, the two further solves
// that give C1 when the diagram is none of the standard shapes, and the texts
// of the result for the windows, the report and the command line.
#pragma once

#include <string>
#include <vector>

#include "analysis/Calculer_Efforts.h"
#include "design/LtbCheck.h"
#include "model/BeamModel.h"
#include "report/RichText.h"
#include "solver/Mod_StabMat.h"

namespace zarvek {

// Table 6.6 of the moment diagram of the record's loads: kc > 0 with the
// shape named ("psi = -0.5", "q, pinned ends", ...), or 0 when the loads make
// none of its shapes or the span has intermediate lateral restraints.
double Table66_Kc(const BeamModel& m, std::string& shape);

// The method the record asks for (the "by section" item resolved: rolled
// sections 6.3.2.3, welded ones 6.3.2.2).
LtbMethod Method_For(const BeamModel& m);
bool Welded_Of(const BeamModel& m);

// fy in MPa of the record: the grade's value of Table 3.1 for the thicker
// flange, or the typed value. 0 when the table does not cover the thickness.
double Fy_Of(const BeamModel& m);

// Everything the check reads from the record, with Mcr and MEd (daN.cm) from
// the solve and the internal forces. kc is filled from Table 6.6 when it
// applies; C1 is left at 0.
LtbInput Design_Input(const BeamModel& m, const EffortsData& e, double Mcr);

// The two further models of C1 = Mcr,sc / Mcr,0: the same beam with its loads
// at the shear centre, and the same beam, restraints and section under a
// uniform moment of the sign of `MEd`.
BeamModel Model_LoadsAtShearCentre(const BeamModel& m);
BeamModel Model_UniformMoment(const BeamModel& m, double MEd);

// The whole check after a solve.
struct DesignRun {
  bool run = false;          // a check was attempted (a usable Mcr)
  bool propertiesRoute = false;
  int grade = 2;
  LtbInput input;
  LtbResult result;
  int furtherSolves = 0;     // solves made for C1 (0 or 2)
  double Mcr_sc = 0, Mcr_0 = 0;  // daN.cm, when C1 was computed
  bool C1Failed = false;     // one of the further solves gave no usable Mcr
};

// `Mcr` (daN.cm, > 0 when usable), `e` the internal forces of the solve. The
// further solves, when needed, run in memory with the tolerance and iteration
// limit of `ctl`: no problem file is written.
DesignRun Run_Design(const BeamModel& m, const EffortsData& e, double Mcr, const SolveControl& ctl);

// The check of a record whose results stand (Txt_mucr not 0): the internal
// forces again, Mcr from the last critical factor, the further solves in a
// problem file of the temporary folder. Not run otherwise.
DesignRun Design_Of_Record(const BeamModel& m);

// Mb,Rd of a solved record in its moment unit, for a table of studies: `mucr`
// its critical factor, `e` its internal forces. NaN when the check stops
// before Mb,Rd. The further solves for C1 stay in memory, so that solves on
// several threads share no file.
double Design_MbRd(const BeamModel& m, const EffortsData& e, double mucr);

// ---- texts ------------------------------------------------------------------

// The title of the check: "Design check" in the loaded language.
std::string Design_Title();

// One line of the check: a label, a value text and its unit ("" for none).
struct DesignLine {
  std::string label, value, unit;
};

// The lines of the check in the order of the standard, values in the units
// of the record (moments Lst_Unit_M, moduli cm3 / Lst_Unit_Dim cubed, fy in
// Lst_Unit_EG). Texts in UTF-8, from the further texts of the loaded language.
std::vector<DesignLine> Design_Lines(const DesignRun& d, const BeamModel& m);
// The closing statement: the reason nothing was computed, or the verdict.
std::string Design_Note(const DesignRun& d);

// The block of the report: title, the lines, the note. Nothing when the
// check was not run.
void Report_Design(Rich_Text& rt, const DesignRun& d, const BeamModel& m);

}  // namespace zarvek
