// What the commands of zarvek-cli share: where the program lies, a scratch
// folder, the checks of an input file, and the road of a project from its
// file to a usable critical moment, the same for solve, draw and report.
#pragma once

#include <string>

#include "analysis/Calculer_Efforts.h"
#include "analysis/Proceed.h"
#include "model/BeamModel.h"
#include "model/Validation.h"
#include "solver/Mod_StabMat.h"

namespace zarvek::cli {

enum { Exit_Done = 0, Exit_Usage = 1, Exit_Invalid = 2, Exit_SolverFailed = 3 };

// The folder of the running program: its start directory, where the language
// files, the catalogue and the examples lie.
std::string Program_Dir();
// Where the language files and the catalogue are read: the program's own
// folder when it holds them (a build's bin folder), else the installed data,
// ../share/zarvek beside it.
std::string Data_Dir();

// A private folder for the problem file and the unscrambled language texts,
// removed with everything in it on the way out. `dir` is empty when none
// could be made.
struct Scratch_Dir {
  std::string dir;
  Scratch_Dir();
  ~Scratch_Dir();
  std::string File(const std::string& name) const { return dir + "/" + name; }
  Scratch_Dir(const Scratch_Dir&) = delete;
  Scratch_Dir& operator=(const Scratch_Dir&) = delete;
};

// Project and problem files are a few kilobytes; anything far larger is not
// one and is not read into memory.
constexpr long long Max_Input_Bytes = 10LL * 1024 * 1024;

// FILE is an existing regular file of a sane size; otherwise false with the
// reason (not found, a directory, a device, too large).
bool Input_File_OK(const std::string& file, std::string& why);

// The texts the solve turns into numbers without a check of their own; a
// blank or a word there would be a silent 0. False with the field named.
bool Numeric_Fields_OK(const BeamModel& m, ValidationResult& v);

// A validation failure as one text: the messages shown on the way, the tab
// and the field, the message (in the language file's character set).
std::string Validation_Text(const ValidationResult& v);

// What makes a solve's result a usable critical moment.
bool Usable(const SolverResult& s, bool stopped);

// Reads a project (.DAT or .DFT) into `m` and runs the checks of the Proceed
// button: a solving method, the number fields, the validation of the window
// and a moment that is not zero. The internal forces are left in `e`.
// Exit_Done when the project is ready to solve, else Exit_Invalid with the
// reason in `why` (language file's character set).
int Prepare_Project(const std::string& file, BeamModel& m, EffortsData& e, std::string& why);

}  // namespace zarvek::cli
