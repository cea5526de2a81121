// Start-up: where every file of the program lives, which language is loaded,
// and whether the process is a batch solver or the interactive program.
//
// Everything here runs once, strictly in order, before any window exists.
// Failures come back as the exact English text to show (no language is loaded
// yet); the caller shows it in a critical box titled with the program's name
// and ends the process.
#pragma once

#include <string>

namespace zarvek {

// The names computed at start. They live for the whole process.
struct StartupState {
  bool Direct_Mode = false;   // the command line named an existing ".ZVK" file
  bool Is_MainLoading = false;
  std::string Dir_Data;       // start directory, no trailing "/"
  std::string App_Path;       // start directory followed by "/"
  std::string File_Ini;       // App_Path + program name + ".INI"
  std::string File_Tmp;       // App_Path + program name + ".TMP"
  std::string File_Section;   // App_Path + "SECTION.DB"
  std::string File_Language;  // App_Path + "ZARVEK_" + Language_Code + ".MSG"
  std::string Language_Code;  // upper case, e.g. "UK"
  std::string File_Problem;   // the command line on the batch route, else App_Path + name + ".ZVK"
  std::string File_Out;       // App_Path + program name + ".OUT" (named only)
  std::string File_Default;   // App_Path + program name + ".DFT"
  std::string File_Help;      // App_Path + "ZVK_" + Language_Code + ".HLP"
  std::string App_HelpFile;   // the help file the help commands open (File_Help or the UK one)
};

// Holds the start directory for this process: a second instance started in
// the same directory gets false and must end without a word. Instances in
// different directories don't see each other. The lock lasts until the
// process ends. When the lock file can't even be created (a read-only
// directory) the start is not refused.
bool Acquire_SingleInstance(const std::string& startDir);
// Name of the lock file in a start directory.
std::string Lock_File_Name(const std::string& startDir);

// The process's arguments as the one command-line text the program looks at.
std::string Command_Line_Text(int argc, const char* const* argv);

// Step 2 of the start: a trimmed command line whose last four characters are
// ".ZVK" in any case becomes File_Problem (the user's spelling kept), and when
// that file exists the process is a batch run. Anything else on the command
// line is ignored without a message.
void Analyse_CommandLine(const std::string& commandLine, StartupState& s);

// Steps 4 to 7: names from the start directory; a stale scratch file left by
// a crash is deleted.
void Set_StartPaths(const std::string& startDir, StartupState& s);

// Reads the language code from the .INI file: the first line that contains
// "LANGUAGE=" (exact case) gives the code, trimmed and upper-cased. Sets
// File_Language and Language_Code. False with the text to show in `error`.
bool Read_IniFile(StartupState& s, std::string& error);

// Unscrambles and loads the language named by File_Language, then the 99
// messages. False with the text to show in `error`.
bool Load_Language(const StartupState& s, std::string& error);

// Steps 2 to 8 of the start: command line, decimal separator, paths, .INI
// file and language. False with the text to show in `error`.
bool Start_Up(const std::string& startDir, const std::string& commandLine, StartupState& s,
              std::string& error);

// Steps 10 and 11, the interactive route only: the program's own file names
// and the help file of the language, falling back to the UK one without a
// message (App_HelpFile gets the fallback, File_Help keeps the missing name).
void Set_InteractivePaths(StartupState& s);

}  // namespace zarvek
