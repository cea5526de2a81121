// Start-up: command line, file names, .INI file, language; what a language change writes and reloads;
// where each line of a window's section goes.
#include <gtest/gtest.h>

#include "foundation/FormTexts.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Options.h"
#include "foundation/Startup.h"
#include "scratch_dir.h"

using namespace zarvek;
using namespace foundation_test;
using Texts = std::vector<std::string>;

TEST(CommandLine, OnlyAnExistingProblemFileStartsTheBatchRun) {
  Scratch d;
  for (const char* f : {"Beam.zvk", "My Beam.ZVK", "Beam.DAT"}) d.Write(f, "x");
  // a name with a blank, as the shell hands it over in one piece
  const std::string blank = d / "My Beam.ZVK";
  const char* argv[] = {"Zarvek", blank.c_str(), nullptr};
  const struct { std::string line; bool batch; std::string problem; } cases[] = {
      // ".ZVK" in any case, trimmed; the name keeps the user's spelling
      {"  " + (d / "Beam.zvk") + "  ", true, d / "Beam.zvk"}, {Command_Line_Text(2, argv), true, blank},
      // a problem that does not exist is named but starts the normal program
      {d / "Missing.ZVK", false, d / "Missing.ZVK"},
      // quotes are not removed, so the name no longer ends in ".ZVK"
      {"\"" + (d / "Beam.zvk") + "\"", false, ""},
      {"   ", false, ""}, {d / "Beam.DAT", false, ""}, {d.path, false, ""},
  };
  for (const auto& c : cases) {
    StartupState s;
    Analyse_CommandLine(c.line, s);
    EXPECT_EQ(s.Direct_Mode, c.batch) << c.line;
    EXPECT_EQ(s.File_Problem, c.problem) << c.line;
  }
}

TEST(StartPaths, NamesComeFromTheStartDirectoryAndAStaleScratchFileGoes) {
  Scratch d;
  for (const char* f : {"Zarvek.TMP", "zarvek.tmp"}) d.Write(f, "x");  // left by a crash; somebody else's
  StartupState s;
  Set_StartPaths(d.path + "/", s);
  EXPECT_TRUE(!fs::exists(d / "Zarvek.TMP") && fs::exists(d / "zarvek.tmp"));

  s.Language_Code = "FR";
  Set_InteractivePaths(s);
  // no French help: the English one is handed over, and the missing name stays
  EXPECT_EQ((Texts{s.File_Help, s.App_HelpFile}), (Texts{d / "ZVK_FR.HLP", d / "ZVK_UK.HLP"}));
  d.Write("ZVK_FR.HLP", "");
  Set_InteractivePaths(s);
  EXPECT_EQ(s.App_HelpFile, d / "ZVK_FR.HLP");
}

TEST(IniFile, TheFirstLineWithTheExactKeyGivesTheLanguage) {
  Scratch d;
  for (const char* f : {"ZARVEK_UK.MSG", "ZARVEK_FR.MSG"}) d.Write(f, "");
  const std::string ini_error = "Error in reading " + (d / "Zarvek.INI");
  // the .INI file (nullptr: none; "/": a directory of that name), the code, the error
  const struct { const char* ini; std::string code, error; } cases[] = {
      // blanks ahead of the key and around a lower-case value; only the first key line counts; CR LF ends
      {"[Zarvek]\r\nlanguage=FR\r\n  LANGUAGE=  uk  \r\nLANGUAGE=FR\r\n", "UK", ""},
      {"; choice: LANGUAGE=fr\n", "FR", ""},  // text ahead of the key is ignored
      {nullptr, "", ini_error}, {"language=UK\n", "", ini_error},  // the key counts in upper case only
      {"", "", ini_error}, {"/", "", ini_error},
      {"LANGUAGE=de\n", "", "File " + (d / "ZARVEK_DE.MSG") + " not found"},
  };
  for (const auto& c : cases) {
    fs::remove_all(d / "Zarvek.INI");
    if (c.ini && std::string(c.ini) == "/") fs::create_directory(d / "Zarvek.INI");
    else if (c.ini) d.Write("Zarvek.INI", c.ini);
    StartupState s;
    Set_StartPaths(d.path, s);
    std::string error;
    EXPECT_EQ(Read_IniFile(s, error), c.error.empty()) << error;
    EXPECT_EQ((Texts{error, s.Language_Code}), (Texts{c.error, c.code}));
  }
}

TEST(SingleInstance, OneHolderPerStartDirectory) {
  Scratch a;
  ASSERT_TRUE(Acquire_SingleInstance(a.path));
  // the lock is held by an open file of this process: a second holder is refused
  EXPECT_FALSE(Acquire_SingleInstance(a.path));
  // a directory where no lock file can be made does not stop the start
  EXPECT_TRUE(Acquire_SingleInstance(a / "no-such-dir"));
}

TEST(RewriteIniFile, ReplacesTheKeyAndKeepsEveryOtherLine) {
  const std::pair<const char*, const char*> cases[] = {
      {"LANGUAGE=UK\n", "LANGUAGE=FR\n"},
      {"; settings\nLANGUAGE=UK\nOTHER=1\n", "; settings\nLANGUAGE=FR\nOTHER=1\n"},
      {"LANGUAGE=UK\r\nOTHER=1\r\n", "LANGUAGE=FR\r\nOTHER=1\r\n"},
      // only the first line with the key, as the start-up reads only that one
      {"LANGUAGE=UK\nLANGUAGE=DE\n", "LANGUAGE=FR\nLANGUAGE=DE\n"},
      {"OTHER=1\n", "OTHER=1\nLANGUAGE=FR\n"}, {"", "LANGUAGE=FR\n"},
      {nullptr, "LANGUAGE=FR\n"},  // no file yet
  };
  for (const auto& [before, after] : cases) {
    Scratch d;
    if (before) d.Write("Zarvek.INI", before);
    ASSERT_TRUE(Rewrite_IniFile(d / "Zarvek.INI", "FR"));
    EXPECT_EQ(d.Read("Zarvek.INI"), after) << (before ? before : "(none)");
    EXPECT_EQ(std::distance(fs::directory_iterator(d.path), {}), 1) << "no scratch file is left beside it";
  }
  // in a read-only directory it fails without touching the file (permissions don't bind root)
  Scratch d;
  d.Write("Zarvek.INI", "LANGUAGE=UK\n");
  fs::permissions(d.path, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_TRUE(::access(d.path.c_str(), W_OK) == 0 || !Rewrite_IniFile(d / "Zarvek.INI", "FR"));
  fs::permissions(d.path, fs::perms::owner_all);
  EXPECT_EQ(d.Read("Zarvek.INI"), "LANGUAGE=UK\n");
}

TEST(ChangeLanguage, LoadsTheNewTextsAndWritesTheIniFileOrChangesNothing) {
  // a start directory with the program's two language files, English loaded
  Scratch d;
  d.Ship(".", {"ZARVEK_UK.MSG", "ZARVEK_FR.MSG"});
  d.Write("Zarvek.INI", "LANGUAGE=UK\n");
  StartupState s;
  std::string error;
  Set_StartPaths(d.path, s);
  ASSERT_TRUE(Read_IniFile(s, error) && Load_Language(s, error)) << error;
  ASSERT_EQ(Change_Language(s, "FR", error), LanguageChange::Done);
  EXPECT_EQ((Texts{s.Language_Code, s.File_Language, s.File_Help, d.Read("Zarvek.INI"),
                   Cp1252_To_Utf8(Msg(20)), Cp1252_To_Utf8(Section_Line(Section_Of_Window("FRM_SECTION"), 4))}),
            (Texts{"FR", d / "ZARVEK_FR.MSG", d / "ZVK_FR.HLP", "LANGUAGE=FR\n", "Bloqué", "Annuler"}));
  EXPECT_FALSE(File_Exists(s.File_Tmp));
  ASSERT_EQ(Change_Language(s, "UK", error), LanguageChange::Done);
  EXPECT_EQ(Msg(20), "Fixed");

  // a missing or damaged file changes nothing
  EXPECT_EQ(Change_Language(s, "DE", error), LanguageChange::FileMissing);
  EXPECT_EQ(error, "File " + (d / "ZARVEK_DE.MSG") + " not found");
  // a file whose window section of 65 lines declares 64
  std::string plain = Read_File(std::string(ZARVEK_SOURCE_DIR) + "/data/lang/ZARVEK_UK.txt");
  const auto at = plain.find("\n$65");
  ASSERT_NE(at, std::string::npos);
  d.Write("plain.txt", plain.replace(at, 4, "\n$64"));
  ASSERT_TRUE(Crypt_File(d / "plain.txt", 0, d / "ZARVEK_XX.MSG"));
  EXPECT_EQ(Change_Language(s, "XX", error), LanguageChange::LoadFailed);
  EXPECT_EQ(error, "Error in reading " + (d / "ZARVEK_XX.MSG"));
  // the next start still finds a language it can read
  EXPECT_EQ((Texts{d.Read("Zarvek.INI"), s.Language_Code, Msg(20)}), (Texts{"LANGUAGE=UK\n", "UK", "Fixed"}));
}

// Each window's table of targets has one target per line of its section: no caption to the wrong control.
TEST(FormTargets, OneTargetPerLineOfTheSection) {
  for (const char* w : {"FRM_OPTIONS", "FRM_SECTION", "FRM_HELP", "FRM_PROPERTIES", "FRM_ABOUT"}) {
    const int section = Section_Of_Window(w);
    ASSERT_GE(section, 0) << w;
    EXPECT_EQ(int(Form_Targets(w).size()), Section_Size(section)) << w;
    EXPECT_EQ(Form_Targets(w).front(), "") << w << ": the first line is the caption";
  }
  EXPECT_TRUE(Form_Targets("MINICALCULETTE").empty());
}
