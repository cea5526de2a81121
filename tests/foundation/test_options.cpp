// Options: what a change of language writes and reloads, and where each
// line of a window's section goes.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

#include "foundation/FormTexts.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Options.h"
#include "foundation/Startup.h"

using namespace zarvek;
namespace fs = std::filesystem;

namespace {

struct TempDir {
  fs::path path;
  TempDir() {
    std::string t = (fs::temp_directory_path() / "zvk_options_XXXXXX").string();
    path = ::mkdtemp(t.data());
  }
  ~TempDir() { fs::remove_all(path); }
  std::string file(const std::string& name) const { return (path / name).string(); }
};

std::string Read(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

void Write(const std::string& name, const std::string& text) {
  std::ofstream(name, std::ios::binary) << text;
}

int Count_Files(const fs::path& dir) {
  int n = 0;
  for (auto& e : fs::directory_iterator(dir)) n += e.is_regular_file();
  return n;
}

// A start directory with the program's two language files.
struct LanguageDir : TempDir {
  StartupState s;
  LanguageDir() {
    for (const char* f : {"ZARVEK_UK.MSG", "ZARVEK_FR.MSG"})
      fs::copy_file(fs::path(ZARVEK_BIN_DIR) / f, path / f);
    Write(file("Zarvek.INI"), "LANGUAGE=UK\n");
    std::string error;
    Set_StartPaths(path.string(), s);
    EXPECT_TRUE(Read_IniFile(s, error));
    EXPECT_TRUE(Load_Language(s, error));
  }
};

}  // namespace

TEST(RewriteIniFile, ReplacesTheKeyAndKeepsEveryOtherLine) {
  struct Case {
    const char* before;
    const char* after;
  };
  const Case cases[] = {
      {"LANGUAGE=UK\n", "LANGUAGE=FR\n"},
      {"; settings\nLANGUAGE=UK\nOTHER=1\n", "; settings\nLANGUAGE=FR\nOTHER=1\n"},
      {"LANGUAGE=UK\r\nOTHER=1\r\n", "LANGUAGE=FR\r\nOTHER=1\r\n"},
      // only the first line with the key, as the start-up reads only that one
      {"LANGUAGE=UK\nLANGUAGE=DE\n", "LANGUAGE=FR\nLANGUAGE=DE\n"},
      {"OTHER=1\n", "OTHER=1\nLANGUAGE=FR\n"},
      {"", "LANGUAGE=FR\n"},
      {nullptr, "LANGUAGE=FR\n"},  // no file yet
  };
  for (const Case& c : cases) {
    TempDir d;
    const std::string ini = d.file("Zarvek.INI");
    if (c.before) Write(ini, c.before);
    ASSERT_TRUE(Rewrite_IniFile(ini, "FR"));
    EXPECT_EQ(Read(ini), c.after) << (c.before ? c.before : "(none)");
    EXPECT_EQ(Count_Files(d.path), 1) << "no scratch file is left beside it";
  }
}

TEST(RewriteIniFile, FailsWithoutTouchingTheFileInAReadOnlyDirectory) {
  TempDir d;
  Write(d.file("Zarvek.INI"), "LANGUAGE=UK\n");
  if (::geteuid() == 0) GTEST_SKIP() << "permissions don't bind root";
  fs::permissions(d.path, fs::perms::owner_read | fs::perms::owner_exec);
  EXPECT_FALSE(Rewrite_IniFile(d.file("Zarvek.INI"), "FR"));
  fs::permissions(d.path, fs::perms::owner_all);
  EXPECT_EQ(Read(d.file("Zarvek.INI")), "LANGUAGE=UK\n");
}

TEST(ChangeLanguage, LoadsTheNewTextsAndWritesTheIniFile) {
  LanguageDir d;
  std::string error;
  ASSERT_EQ(Change_Language(d.s, "FR", error), LanguageChange::Done);
  EXPECT_EQ(d.s.Language_Code, "FR");
  EXPECT_EQ(d.s.File_Language, d.file("ZARVEK_FR.MSG"));
  EXPECT_EQ(d.s.File_Help, d.file("ZVK_FR.HLP"));
  EXPECT_EQ(Read(d.file("Zarvek.INI")), "LANGUAGE=FR\n");
  EXPECT_EQ(Cp1252_To_Utf8(Msg(20)), "Bloqué");
  EXPECT_EQ(Cp1252_To_Utf8(Section_Line(Section_Of_Window("FRM_SECTION"), 4)), "Annuler");
  EXPECT_FALSE(File_Exists(d.s.File_Tmp));
  ASSERT_EQ(Change_Language(d.s, "UK", error), LanguageChange::Done);
  EXPECT_EQ(Msg(20), "Fixed");
}

TEST(ChangeLanguage, AMissingOrDamagedFileChangesNothing) {
  LanguageDir d;
  std::string error;
  EXPECT_EQ(Change_Language(d.s, "DE", error), LanguageChange::FileMissing);
  EXPECT_EQ(error, "File " + d.file("ZARVEK_DE.MSG") + " not found");
  // A file whose window section of 65 lines declares 64.
  std::string plain = Read(std::string(ZARVEK_SOURCE_DIR) + "/data/lang/ZARVEK_UK.txt");
  const auto at = plain.find("\n$65");
  ASSERT_NE(at, std::string::npos);
  plain.replace(at, 4, "\n$64");
  Write(d.file("plain.txt"), plain);
  ASSERT_TRUE(Crypt_File(d.file("plain.txt"), 0, d.file("ZARVEK_XX.MSG")));
  EXPECT_EQ(Change_Language(d.s, "XX", error), LanguageChange::LoadFailed);
  EXPECT_EQ(error, "Error in reading " + d.file("ZARVEK_XX.MSG"));
  // The next start still finds a language it can read.
  EXPECT_EQ(Read(d.file("Zarvek.INI")), "LANGUAGE=UK\n");
  EXPECT_EQ(d.s.Language_Code, "UK");
  EXPECT_EQ(Msg(20), "Fixed");
}

// Each window's table of targets has exactly one target per line of its
// section, so that no caption goes to the wrong control.
TEST(FormTargets, OneTargetPerLineOfTheSection) {
  for (const char* w : {"FRM_OPTIONS", "FRM_SECTION", "FRM_HELP", "FRM_PROPERTIES", "FRM_ABOUT"}) {
    const int section = Section_Of_Window(w);
    ASSERT_GE(section, 0) << w;
    EXPECT_EQ(int(Form_Targets(w).size()), Section_Size(section)) << w;
    EXPECT_EQ(Form_Targets(w).front(), "") << w << ": the first line is the caption";
  }
  EXPECT_TRUE(Form_Targets("MINICALCULETTE").empty());
}
