// An installed program: the start directory it writes to, the installed data it reads what that lacks.
#include <gtest/gtest.h>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Options.h"
#include "foundation/Startup.h"
#include "scratch_dir.h"

using namespace zarvek;
using namespace foundation_test;
using Texts = std::vector<std::string>;

namespace {

// An unpacked package: usr/bin and usr/share/zarvek, the user's home beside it.
struct Installed : Scratch {
  std::string bin = *this / "usr/bin", share = *this / "usr/share/zarvek", home = *this / "home";
  Installed() {
    fs::create_directories(bin), fs::create_directories(home);
    Ship("usr/share/zarvek", {"Zarvek.INI", "ZARVEK_UK.MSG", "ZARVEK_FR.MSG", "SECTION.DB"});
  }
};

// The start, the installed data and the dialogs' directory of a choice.
Texts Dirs(const StartPlace& p) { return {p.Start_Dir, p.Share_Dir, p.Dialog_Dir}; }

}  // namespace

TEST(StartPlace, TheCurrentDirectoryOnlyWhenItHoldsTheDataAndMayBeWritten) {
  Installed inst;
  Scratch cwd;
  const std::string user = inst.home + "/.local/share/zarvek";

  // a build's bin folder: the catalogue and a language file; nothing made in the user's home
  for (const char* f : {"SECTION.DB", "zarvek_fr.msg"}) cwd.Write(f, "x");
  EXPECT_EQ(Dirs(Choose_StartPlace(cwd.path, inst.bin, "", inst.home)), (Texts{cwd.path, "", cwd.path}));
  EXPECT_FALSE(fs::exists(user));

  // the catalogue alone is not the program's data: the user's folder is made, the installed data found
  // from the executable, the dialogs start here
  fs::remove(cwd / "zarvek_fr.msg");
  StartPlace p = Choose_StartPlace(cwd.path + "/", inst.bin, "", inst.home);
  EXPECT_EQ(p.Error, "");
  EXPECT_EQ(Dirs(p), (Texts{user, inst.share, cwd.path}));
  EXPECT_TRUE(fs::is_directory(user));

  // started in the installed data itself: never written there
  for (const std::string& there : {inst.share, inst.bin + "/../share/zarvek"}) {
    p = Choose_StartPlace(there, inst.bin, "", inst.home);
    EXPECT_EQ(Dirs(p), (Texts{user, inst.share, user})) << there;
  }
}

TEST(StartPlace, TheUserFolderFollowsXdgAndAFolderThatCantBeMadeIsSaid) {
  EXPECT_EQ(User_StartDir("/data/me/", "/home/me"), "/data/me/zarvek");
  // a relative XDG_DATA_HOME is not valid and is ignored
  EXPECT_EQ(User_StartDir("data", "/home/me/"), "/home/me/.local/share/zarvek");
  EXPECT_EQ(User_StartDir("", ""), "");

  Installed inst;
  Scratch cwd;
  StartPlace p = Choose_StartPlace(cwd.path, inst.bin, inst / "xdg/deep", inst.home);
  EXPECT_EQ(p.Start_Dir, inst / "xdg/deep/zarvek");
  EXPECT_TRUE(fs::is_directory(p.Start_Dir));
  EXPECT_EQ(fs::status(p.Start_Dir).permissions() & fs::perms::all, fs::perms::owner_all);  // 0700

  inst.Write("file", "x");
  p = Choose_StartPlace(cwd.path, inst.bin, inst / "file", inst.home);
  EXPECT_EQ(p.Error, "Cannot create the directory " + (inst / "file/zarvek"));
  EXPECT_NE(Choose_StartPlace(cwd.path, inst.bin, "", "").Error, "");
}

TEST(StartPlace, ABuildTreeIsItsOwnInstalledData) {
  Scratch t;
  t.Ship("bin", {"ZARVEK_UK.MSG", "SECTION.DB"});
  EXPECT_EQ(Installed_DataDir(t / "bin"), t / "bin");
  // ./Zarvek started in its own build folder: that is the start directory (its .INI read and written), the
  // user's home is left alone
  EXPECT_EQ(Choose_StartPlace(t / "bin", t / "bin", "", t / "home").Start_Dir, t / "bin");
  EXPECT_FALSE(fs::exists(t / "home"));
  // ../share/zarvek wins when both hold the data
  t.Ship("share/zarvek", {"ZARVEK_UK.MSG", "SECTION.DB"});
  EXPECT_EQ(Installed_DataDir(t / "bin/"), t / "share/zarvek");
  EXPECT_EQ(Installed_DataDir(t / "nowhere"), "");
}

// The first start of an installed program, then a change of language: the user's folder gets its own .INI
// file, every data file is read from the installed folder, and nothing is written there.
TEST(StartPlace, FirstStartReadsTheInstalledDataAndWritesOnlyTheUserFolder) {
  Installed inst;
  inst.Write("usr/share/zarvek/Zarvek.INI", "LANGUAGE=FR\n");
  const std::string user = inst / "user", share = inst.share + "/";
  fs::create_directories(user);

  std::string error;
  auto start = [&](StartupState& st) { st.Share_Path = share; return Start_Up(user, "", st, error); };
  StartupState s, again;
  ASSERT_TRUE(start(s)) << error;
  EXPECT_EQ((Texts{s.Language_Code, inst.Read("user/Zarvek.INI")}), (Texts{"FR", "LANGUAGE=FR\n"}));
  Set_InteractivePaths(s);
  // no help file anywhere: named in the installed folder
  EXPECT_EQ((Texts{s.File_Ini, s.File_Tmp, s.File_Default, s.File_Problem}),
            (Texts{user + "/Zarvek.INI", user + "/Zarvek.TMP", user + "/Zarvek.DFT", user + "/Zarvek.ZVK"}));
  EXPECT_EQ((Texts{s.File_Language, s.File_Section, s.App_HelpFile}),
            (Texts{share + "ZARVEK_FR.MSG", share + "SECTION.DB", share + "ZVK_UK.HLP"}));

  // both languages, each once, although the user holds a copy of one
  inst.Ship("user", {"ZARVEK_UK.MSG"});
  const Texts items = Available_Languages(s);
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ((Texts{Language_Code_Of_Item(items[0]), Language_Code_Of_Item(items[1])}), (Texts{"FR", "UK"}));

  // the user's own file wins over the installed one
  ASSERT_EQ(Change_Language(s, "UK", error), LanguageChange::Done) << error;
  EXPECT_EQ((Texts{s.File_Language, inst.Read("user/Zarvek.INI"), inst.Read("usr/share/zarvek/Zarvek.INI")}),
            (Texts{user + "/ZARVEK_UK.MSG", "LANGUAGE=UK\n", "LANGUAGE=FR\n"}));
  EXPECT_FALSE(fs::exists(share + "Zarvek.TMP"));
  inst.Write("user/SECTION.DB", "own");
  EXPECT_EQ(Data_File(s, "SECTION.DB"), user + "/SECTION.DB");

  // a later start keeps the user's choice
  ASSERT_TRUE(start(again)) << error;
  EXPECT_EQ(again.Language_Code, "UK");
}
