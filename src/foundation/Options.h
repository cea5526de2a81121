// What the options window keeps and compares, and the change of language.
//
// The options window backs up every choice when it opens; OK compares the
// controls with that backup and applies only what changed, Cancel puts the
// backup back. The language is the one option that outlives the process: it
// is written to the .INI file, which is rewritten beside itself and renamed
// into place so that a crash never leaves half a file.
#pragma once

#include <string>

#include "foundation/Startup.h"
#include "foundation/Units.h"

namespace zarvek {

// The choices of the options window, as the backup holds them.
struct OptionChoices {
  int Lst_Language = -1;
  int Lst_Duration = 0;
  std::string Lst_Dir;  // the default data directory (Lbl_Directory)
  bool Opt_Eigen = false;
  bool Opt_Dichotomie = true;
  int Lst_Tolerance = 0;
  int Lst_NbIter = 0;
  UnitIndices Units{};
};

// Which of the steps of accepting the options have work to do.
struct OptionChanges {
  bool Language = false;   // reload the language, rewrite the .INI file
  bool Directory = false;  // Dir_Data changes
  bool Method = false;     // the shown process is reset
  bool Tolerance = false;  // the tolerance shown in the main window changes
  bool Units = false;      // at least one unit list changed
};
OptionChanges Compare_Options(const OptionChoices& backup, const OptionChoices& now);

// Rewrites the .INI file with "LANGUAGE=" + code in place of the first line
// that holds the key, keeping every other line; the key is added when the
// file has none (or doesn't exist). The new content is written beside the
// file and renamed over it. False when it can't be written (the old file
// then stays whole).
bool Rewrite_IniFile(const std::string& File_Ini, const std::string& code);

// The outcome of a change of language.
enum class LanguageChange {
  Done,         // loaded and written to the .INI file
  NotSaved,     // loaded, but the .INI file couldn't be rewritten
  FileMissing,  // "File <name> not found": nothing changed
  LoadFailed,   // "Error in reading <name>": the program must end
};

// Switches the process to the language `code` (e.g. "FR"): its file must lie
// in App_Path. The file is read first and the .INI file rewritten only when
// it loaded, so that a damaged file is never made the language of the next
// start. File_Language, Language_Code and the help file names follow. On
// FileMissing or LoadFailed, `error` holds the text to show.
LanguageChange Change_Language(StartupState& s, const std::string& code, std::string& error);

}  // namespace zarvek
