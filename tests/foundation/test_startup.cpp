// Start-up: the command line, the file names, the .INI file and the language.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "foundation/Mod_Zarvek.h"
#include "foundation/Startup.h"

using namespace zarvek;
namespace fs = std::filesystem;

namespace {

// A fresh start directory, removed afterwards.
struct StartDir {
  std::string path;
  StartDir() {
    std::string tmpl = (fs::temp_directory_path() / "zvk-start-XXXXXX").string();
    path = ::mkdtemp(tmpl.data());
  }
  ~StartDir() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
  std::string operator/(const std::string& name) const { return path + "/" + name; }
  void Write(const std::string& name, const std::string& content) const {
    std::ofstream(*this / name, std::ios::binary) << content;
  }
  StartupState Paths() const {
    StartupState s;
    Set_StartPaths(path, s);
    return s;
  }
};

TEST(CommandLine, OnlyAnExistingProblemFileStartsTheBatchRun) {
  StartDir d;
  d.Write("Beam.zvk", "x");
  d.Write("My Beam.ZVK", "x");
  d.Write("Beam.DAT", "x");

  // extension in any case; the name keeps the user's spelling (case matters here)
  StartupState s;
  Analyse_CommandLine("  " + (d / "Beam.zvk") + "  ", s);
  EXPECT_TRUE(s.Direct_Mode);
  EXPECT_EQ(s.File_Problem, d / "Beam.zvk");

  // a name with a blank, as the shell hands it over in one piece
  const std::string withBlank = d / "My Beam.ZVK";
  const char* argv[] = {"Zarvek", withBlank.c_str(), nullptr};
  s = StartupState{};
  Analyse_CommandLine(Command_Line_Text(2, argv), s);
  EXPECT_TRUE(s.Direct_Mode);
  EXPECT_EQ(s.File_Problem, withBlank);

  // a problem name that does not exist is taken as the name but starts nothing
  s = StartupState{};
  Analyse_CommandLine(d / "Missing.ZVK", s);
  EXPECT_FALSE(s.Direct_Mode);

  // quotes are not removed, so the name no longer ends in ".ZVK"
  s = StartupState{};
  Analyse_CommandLine("\"" + (d / "Beam.zvk") + "\"", s);
  EXPECT_FALSE(s.Direct_Mode);
  EXPECT_TRUE(s.File_Problem.empty());

  for (const std::string& other : {std::string(""), std::string("   "), d / "Beam.DAT", d.path}) {
    s = StartupState{};
    Analyse_CommandLine(other, s);
    EXPECT_FALSE(s.Direct_Mode) << other;
  }
}

TEST(StartPaths, NamesComeFromTheStartDirectoryAndAStaleScratchFileGoes) {
  StartDir d;
  d.Write("Zarvek.TMP", "left by a crash");
  d.Write("zarvek.tmp", "somebody else's");
  StartupState s;
  Set_StartPaths(d.path + "/", s);
  EXPECT_EQ(s.Dir_Data, d.path);
  EXPECT_EQ(s.App_Path, d.path + "/");
  EXPECT_EQ(s.File_Ini, d / "Zarvek.INI");
  EXPECT_EQ(s.File_Tmp, d / "Zarvek.TMP");
  EXPECT_EQ(s.File_Section, d / "SECTION.DB");
  EXPECT_FALSE(fs::exists(d / "Zarvek.TMP"));
  EXPECT_TRUE(fs::exists(d / "zarvek.tmp"));

  s.Language_Code = "FR";
  s.File_Problem = d / "Beam.ZVK";
  Set_InteractivePaths(s);
  EXPECT_EQ(s.File_Problem, d / "Zarvek.ZVK");
  EXPECT_EQ(s.File_Out, d / "Zarvek.OUT");
  EXPECT_EQ(s.File_Default, d / "Zarvek.DFT");
  // no French help: the English one is handed over, and the missing name stays
  EXPECT_EQ(s.File_Help, d / "ZVK_FR.HLP");
  EXPECT_EQ(s.App_HelpFile, d / "ZVK_UK.HLP");
  d.Write("ZVK_FR.HLP", "");
  Set_InteractivePaths(s);
  EXPECT_EQ(s.App_HelpFile, d / "ZVK_FR.HLP");
}

TEST(IniFile, TheFirstLineWithTheExactKeyGivesTheLanguage) {
  StartDir d;
  d.Write("ZARVEK_UK.MSG", "");
  d.Write("ZARVEK_FR.MSG", "");
  std::string error;

  // blanks ahead of the key and around a lower-case value; earlier lines
  // skipped, only the first key line counts; Windows line ends
  d.Write("Zarvek.INI", "[Zarvek]\r\nlanguage=FR\r\n  LANGUAGE=  uk  \r\nLANGUAGE=FR\r\n");
  StartupState s = d.Paths();
  ASSERT_TRUE(Read_IniFile(s, error)) << error;
  EXPECT_EQ(s.Language_Code, "UK");
  EXPECT_EQ(s.File_Language, d / "ZARVEK_UK.MSG");

  // text ahead of the key on its line is ignored
  d.Write("Zarvek.INI", "; choice: LANGUAGE=fr\n");
  s = d.Paths();
  ASSERT_TRUE(Read_IniFile(s, error)) << error;
  EXPECT_EQ(s.Language_Code, "FR");
}

TEST(IniFile, EachFailureHasItsOwnText) {
  StartDir d;
  d.Write("ZARVEK_UK.MSG", "");
  std::string error;
  StartupState s = d.Paths();

  // no .INI file at all
  EXPECT_FALSE(Read_IniFile(s, error));
  EXPECT_EQ(error, "Error in reading " + (d / "Zarvek.INI"));

  // the key in lower case does not count; nor does an empty file
  for (const char* content : {"language=UK\n", "Language=UK\n", ""}) {
    d.Write("Zarvek.INI", content);
    s = d.Paths();
    error.clear();
    EXPECT_FALSE(Read_IniFile(s, error)) << content;
    EXPECT_EQ(error, "Error in reading " + (d / "Zarvek.INI"));
    EXPECT_TRUE(s.Language_Code.empty());
  }

  // a language that has no file; the code is not taken
  d.Write("Zarvek.INI", "LANGUAGE=de\n");
  s = d.Paths();
  EXPECT_FALSE(Read_IniFile(s, error));
  EXPECT_EQ(error, "File " + (d / "ZARVEK_DE.MSG") + " not found");
  EXPECT_TRUE(s.Language_Code.empty());

  // an .INI name that is a directory can't be read
  StartDir e;
  fs::create_directory(e / "Zarvek.INI");
  s = e.Paths();
  EXPECT_FALSE(Read_IniFile(s, error));
  EXPECT_EQ(error, "Error in reading " + (e / "Zarvek.INI"));
}

TEST(SingleInstance, OneHolderPerStartDirectory) {
  StartDir a, b;
  ASSERT_TRUE(Acquire_SingleInstance(a.path));
  EXPECT_TRUE(fs::exists(Lock_File_Name(a.path)));
  // the lock is held by an open file of this process: a second holder is refused
  EXPECT_FALSE(Acquire_SingleInstance(a.path));
  EXPECT_TRUE(Acquire_SingleInstance(b.path));
  // a directory where no lock file can be made does not stop the start
  EXPECT_TRUE(Acquire_SingleInstance(a / "no-such-dir"));
}

}  // namespace
