// Help topics of the contexts, the fallback to English, and the search for
// the desktop's system information tool.
#include <gtest/gtest.h>

#include <algorithm>

#include "foundation/scratch_dir.h"
#include "tools/Help.h"
#include "tools/SysInfo.h"

using namespace zarvek;
namespace fs = std::filesystem;

namespace {

struct TempDir : foundation_test::Scratch {
  std::string app() const { return path + "/"; }
  void touch(const std::string& rel, bool exec = false) const {
    Write(rel, "x");
    if (exec) fs::permissions(*this / rel, fs::perms::owner_all);
  }
};

TEST(Help, EveryContextLeadsToAPageOfTheSet) {
  // unknown contexts fall back to the index rather than to a missing page
  for (int c : {0, -5, 141}) EXPECT_EQ(Help_PageName(c), "index.html") << c;
  for (int c = 0; c < 1000; ++c)
    EXPECT_NE(std::find(Help_Pages().begin(), Help_Pages().end(), Help_PageName(c)), Help_Pages().end()) << c;
}

TEST(Help, PagesOfTheLanguageThenEnglish) {
  TempDir d;
  for (const char* f : {"UK/index.html", "UK/restraints.html", "UK/loads.html", "FR/index.html", "FR/restraints.html"})
    d.touch(std::string("help/") + f);
  EXPECT_EQ(Help_PagePath(d.app(), "FR", 210), d.app() + "help/FR/restraints.html");
  EXPECT_EQ(Help_PagePath(d.app(), "FR", 250), d.app() + "help/UK/loads.html");
  EXPECT_EQ(Help_PagePath(d.app(), "UK", 340), "");
}

TEST(SysInfo, FirstDesktopToolInThePath) {
  TempDir d;
  SysInfoTool tool;
  EXPECT_FALSE(Find_SysInfoTool(d.path, tool) || Find_SysInfoTool("", tool));
  d.touch("a/hardinfo", true);
  d.touch("b/gnome-control-center", true);
  d.touch("b/kinfocenter");  // not executable: passed over
  ASSERT_TRUE(Find_SysInfoTool((d / "a") + ":" + (d / "b"), tool));
  EXPECT_EQ(tool.program, d / "b/gnome-control-center");
  EXPECT_EQ(tool.args, std::vector<std::string>{"info-overview"});
}

}  // namespace
