// Start-up: where every file of the program lives, which language is loaded,
// and whether the process is a batch solver or the interactive program.
//
// Everything here runs once, strictly in order, before any window exists.
// Failures come back as the exact English text to show (no language is loaded
// yet); the caller shows it in a critical box titled with the program's name
// and ends the process.
#pragma once

#include <string>
#include <vector>

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
  // The installed data (catalogue, language files, help, examples, default
  // .INI file), followed by "/": read when the start directory lacks a file.
  // Empty when the start directory holds the program's data itself.
  std::string Share_Path;
};

// ---- where the program starts ------------------------------------------------
//
// The program reads its data (SECTION.DB, the language files, help) and
// writes its own files (.INI, .TMP, .DFT, the problem file, the lock) in one
// start directory:
//  - the current directory, when it holds the program's data and may be
//    written (a build's bin folder, a folder prepared by hand);
//  - otherwise the user's own folder, $XDG_DATA_HOME/zarvek (by default
//    ~/.local/share/zarvek), made on first use; a data file it lacks is read
//    from the installed share folder, ../share/zarvek beside the folder of
//    the executable, so that an unpacked package works wherever it lies.
// The installed share folder itself is never a start directory.

// True when `dir` holds SECTION.DB and at least one language file ZARVEK_*.MSG.
bool Holds_ProgramData(const std::string& dir);

// The folder of installed data for an executable in `exeDir`: exeDir/../share/zarvek
// when it holds the data, else exeDir itself when it does (a build tree), else "".
// No trailing "/".
std::string Installed_DataDir(const std::string& exeDir);

// The user's start directory: $XDG_DATA_HOME/zarvek when that variable is an
// absolute path, else $HOME/.local/share/zarvek; "" without a home.
std::string User_StartDir(const std::string& xdgDataHome, const std::string& home);

struct StartPlace {
  std::string Start_Dir;  // where the program's own files are read and written
  std::string Share_Dir;  // installed data read when Start_Dir lacks it; "" when Start_Dir holds it
  std::string Dialog_Dir; // where the file dialogs start: the current directory when it can be written
  std::string Error;      // the user's folder could not be made: the text to show
};

// Chooses the start directory as described above and makes the user's folder
// when it is the one. `cwd` and `exeDir` are absolute.
StartPlace Choose_StartPlace(const std::string& cwd, const std::string& exeDir,
                             const std::string& xdgDataHome, const std::string& home);

// The file `name` of the program's data: in the start directory when it lies
// there, else in the installed share folder (named there even when missing,
// so that a message says where the installation should have put it).
std::string Data_File(const StartupState& s, const std::string& name);

// The language items (see Load_Languages) of the start directory and of the
// installed share folder, a code found in both counted once (the start
// directory's file wins).
std::vector<std::string> Available_Languages(const StartupState& s);

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
// file and language. `s.Share_Path` is set beforehand (see StartPlace); a
// start directory without its own .INI file then gets a copy of the installed
// one, so that a change of language has a file of the user's to rewrite. False with the text to show in `error`.
bool Start_Up(const std::string& startDir, const std::string& commandLine, StartupState& s,
              std::string& error);

// Steps 10 and 11, the interactive route only: the program's own file names
// and the help file of the language, falling back to the UK one without a
// message (App_HelpFile gets the fallback, File_Help keeps the missing name).
void Set_InteractivePaths(StartupState& s);

}  // namespace zarvek
