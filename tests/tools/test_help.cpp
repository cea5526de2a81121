// Help topics of the contexts, the fallback to English, and the search for
// the desktop's system information tool.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

#include "tools/Help.h"
#include "tools/SysInfo.h"

using namespace zarvek;
namespace fs = std::filesystem;

namespace {

struct TempDir {
  fs::path path;
  TempDir() {
    std::string t = (fs::temp_directory_path() / "zvk_help_XXXXXX").string();
    path = ::mkdtemp(t.data());
  }
  ~TempDir() { fs::remove_all(path); }
  std::string app() const { return path.string() + "/"; }
  void touch(const std::string& rel, bool exec = false) {
    fs::create_directories((path / rel).parent_path());
    std::ofstream(path / rel) << "x";
    if (exec) fs::permissions(path / rel, fs::perms::owner_all);
  }
};

}  // namespace

TEST(Help, EveryContextLeadsToAPageOfTheSet) {
  // unknown contexts fall back to the index rather than to a missing page
  for (int c : {0, -5, 141}) EXPECT_EQ(Help_PageName(c), "index.html") << c;
  for (int c = 0; c < 1000; ++c) {
    const std::string p = Help_PageName(c);
    EXPECT_NE(std::find(Help_Pages().begin(), Help_Pages().end(), p), Help_Pages().end()) << c;
  }
}

TEST(Help, PagesOfTheLanguageThenEnglish) {
  TempDir d;
  d.touch("help/UK/index.html");
  d.touch("help/UK/restraints.html");
  d.touch("help/UK/loads.html");
  d.touch("help/FR/index.html");
  d.touch("help/FR/restraints.html");
  EXPECT_EQ(Help_PagePath(d.app(), "FR", 210), d.app() + "help/FR/restraints.html");
  EXPECT_EQ(Help_PagePath(d.app(), "FR", 250), d.app() + "help/UK/loads.html");
  // A language without help at all reads the English pages.
  EXPECT_EQ(Help_PagePath(d.app(), "DE", 210), d.app() + "help/UK/restraints.html");
  EXPECT_EQ(Help_PagePath(d.app(), "UK", 340), "");
}

TEST(Help, TheShippedPagesExistInBothLanguages) {
  for (const char* code : {"UK", "FR"})
    for (const std::string& p : Help_Pages())
      EXPECT_TRUE(fs::exists(fs::path(ZARVEK_BIN_DIR) / "help" / code / p)) << code << "/" << p;
}

TEST(SysInfo, FirstDesktopToolInThePath) {
  TempDir d;
  SysInfoTool tool;
  EXPECT_FALSE(Find_SysInfoTool(d.path.string(), tool));
  EXPECT_FALSE(Find_SysInfoTool("", tool));
  d.touch("a/hardinfo", true);
  d.touch("b/gnome-control-center", true);
  d.touch("b/kinfocenter");  // not executable: passed over
  const std::string path = (d.path / "a").string() + ":" + (d.path / "b").string();
  ASSERT_TRUE(Find_SysInfoTool(path, tool));
  EXPECT_EQ(tool.program, (d.path / "b/gnome-control-center").string());
  EXPECT_EQ(tool.args, std::vector<std::string>{"info-overview"});
}
