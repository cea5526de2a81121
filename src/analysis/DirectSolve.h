// The batch run: a problem file named on the command line is solved by the
// dichotomy, and the result is left in a four-line file for the calling
// program (and mucr on the clipboard, which the window does).
//
// The result file:
//   1  mucr, "0.000000", right-aligned in 15 columns, decimal point
//   2  Mmax (daN.cm), right-aligned in 15 columns
//   3  xMmax (fraction of the length), right-aligned in 15 columns
//   4  the message, " (", the status, ")"
// A failure of the solver shows only there: its status and mucr 0.000000.
#pragma once

#include <array>
#include <string>

#include "solver/Mod_StabMat.h"

namespace zarvek {

// What the batch run leaves behind.
struct DirectSolveOutcome {
  SolverResult Result;                 // Solve_Status and Error_Text as written
  std::array<std::string, 4> Lines;    // the four lines of the result file
  std::string Clipboard_Text;          // mucr as on line 1, without the blanks
  bool Written = false;                // the result file is in place
};

// The solver settings of a batch run: dichotomy constants, no mode.
SolveControl Direct_SolveControl();

// The four lines of the result file from a finished solve. A stop by the user
// is not a failure: the stop message with status 0; a normal end gets the
// convergence message. `res` receives these final texts.
std::array<std::string, 4> Result_Lines(SolverResult& res, bool stopRequested);

// Solves `File_Problem` by the dichotomy and writes the result file
// `File_Tmp` (beside itself, then renamed). The control's hooks are the
// window's; its tolerance, limit and Direct_Mode are set here.
DirectSolveOutcome Direct_Solve(const std::string& File_Problem, const std::string& File_Tmp,
                                SolveControl& ctl);

// The current value of the iteration for a label of `width` characters:
// as many significant digits as fit, the locale's decimal mark.
std::string Progress_Text(double value, int width = 12);

}  // namespace zarvek
