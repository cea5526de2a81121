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
  std::string path = ::mkdtemp(std::string("/tmp/zvk-start-XXXXXX").data());
  ~StartDir() { std::error_code ec; fs::remove_all(path, ec); }
  std::string operator/(const std::string& name) const { return path + "/" + name; }
  void Write(const std::string& name, const std::string& content) const {
    std::ofstream(*this / name, std::ios::binary) << content;
  }
};

TEST(CommandLine, OnlyAnExistingProblemFileStartsTheBatchRun) {
  StartDir d;
  for (const char* f : {"Beam.zvk", "My Beam.ZVK", "Beam.DAT"}) d.Write(f, "x");
  // a name with a blank, as the shell hands it over in one piece
  const std::string blank = d / "My Beam.ZVK";
  const char* argv[] = {"Zarvek", blank.c_str(), nullptr};
  const struct { std::string line; bool batch; std::string problem; } cases[] = {
      // ".ZVK" in any case, trimmed; the name keeps the user's spelling
      {"  " + (d / "Beam.zvk") + "  ", true, d / "Beam.zvk"},
      {Command_Line_Text(2, argv), true, blank},
      // a problem that does not exist is named but starts the normal program
      {d / "Missing.ZVK", false, d / "Missing.ZVK"},
      // quotes are not removed, so the name no longer ends in ".ZVK"
      {"\"" + (d / "Beam.zvk") + "\"", false, ""},
      {"", false, ""}, {"   ", false, ""}, {d / "Beam.DAT", false, ""}, {d.path, false, ""},
  };
  for (const auto& c : cases) {
    StartupState s;
    Analyse_CommandLine(c.line, s);
    EXPECT_EQ(s.Direct_Mode, c.batch) << c.line;
    EXPECT_EQ(s.File_Problem, c.problem) << c.line;
  }
}

TEST(StartPaths, NamesComeFromTheStartDirectoryAndAStaleScratchFileGoes) {
  StartDir d;
  d.Write("Zarvek.TMP", "left by a crash");
  d.Write("zarvek.tmp", "somebody else's");
  StartupState s;
  Set_StartPaths(d.path + "/", s);
  EXPECT_FALSE(fs::exists(d / "Zarvek.TMP"));
  EXPECT_TRUE(fs::exists(d / "zarvek.tmp"));

  s.Language_Code = "FR";
  Set_InteractivePaths(s);
  // no French help: the English one is handed over, and the missing name stays
  EXPECT_EQ(s.File_Help, d / "ZVK_FR.HLP");
  EXPECT_EQ(s.App_HelpFile, d / "ZVK_UK.HLP");
  d.Write("ZVK_FR.HLP", "");
  Set_InteractivePaths(s);
  EXPECT_EQ(s.App_HelpFile, d / "ZVK_FR.HLP");
}

TEST(IniFile, TheFirstLineWithTheExactKeyGivesTheLanguage) {
  StartDir d;
  for (const char* f : {"ZARVEK_UK.MSG", "ZARVEK_FR.MSG"}) d.Write(f, "");
  const std::string ini_error = "Error in reading " + (d / "Zarvek.INI");
  // the .INI file (nullptr: none; "/": a directory of that name), the code, the error
  const struct { const char* ini; std::string code, error; } cases[] = {
      // blanks ahead of the key and around a lower-case value; only the first
      // key line counts; Windows line ends
      {"[Zarvek]\r\nlanguage=FR\r\n  LANGUAGE=  uk  \r\nLANGUAGE=FR\r\n", "UK", ""},
      {"; choice: LANGUAGE=fr\n", "FR", ""},  // text ahead of the key is ignored
      {nullptr, "", ini_error},
      {"language=UK\n", "", ini_error},  // the key counts in upper case only
      {"", "", ini_error},
      {"/", "", ini_error},
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
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(s.Language_Code, c.code);
  }
}

TEST(SingleInstance, OneHolderPerStartDirectory) {
  StartDir a;
  ASSERT_TRUE(Acquire_SingleInstance(a.path));
  // the lock is held by an open file of this process: a second holder is refused
  EXPECT_FALSE(Acquire_SingleInstance(a.path));
  // a directory where no lock file can be made does not stop the start
  EXPECT_TRUE(Acquire_SingleInstance(a / "no-such-dir"));
}

}  // namespace
