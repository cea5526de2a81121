// Help topics of the contexts, the fallback to English, the desktop's system information tool.
#include <gtest/gtest.h>

#include <algorithm>

#include "foundation/scratch_dir.h"
#include "tools/Help.h"
#include "tools/SysInfo.h"

using namespace zarvek;
using namespace foundation_test;

TEST(Help, EveryContextLeadsToAPageOfTheSet) {
  // unknown contexts fall back to the index rather than to a missing page
  for (int c : {0, -5, 141}) EXPECT_EQ(Help_PageName(c), "index.html") << c;
  for (int c = 0; c < 1000; ++c)
    EXPECT_NE(std::find(Help_Pages().begin(), Help_Pages().end(), Help_PageName(c)), Help_Pages().end()) << c;
}

TEST(Help, PagesOfTheLanguageThenEnglish) {
  Scratch d;
  for (const char* f : {"UK/index.html", "UK/restraints.html", "UK/loads.html", "FR/index.html", "FR/restraints.html"})
    d.Write(std::string("help/") + f, "x");
  const std::string app = d.path + "/";
  EXPECT_EQ(Help_PagePath(app, "FR", 210), app + "help/FR/restraints.html");
  EXPECT_EQ(Help_PagePath(app, "FR", 250), app + "help/UK/loads.html");
  EXPECT_EQ(Help_PagePath(app, "UK", 340), "");
}

TEST(SysInfo, FirstDesktopToolInThePath) {
  Scratch d;
  SysInfoTool tool;
  EXPECT_FALSE(Find_SysInfoTool(d.path, tool) || Find_SysInfoTool("", tool));
  for (const char* f : {"a/hardinfo", "b/gnome-control-center"})
    fs::permissions(d.Write(f, "x"), fs::perms::owner_all);
  d.Write("b/kinfocenter", "x");  // not executable: passed over
  ASSERT_TRUE(Find_SysInfoTool((d / "a") + ":" + (d / "b"), tool));
  EXPECT_EQ(tool.program, d / "b/gnome-control-center");
  EXPECT_EQ(tool.args, std::vector<std::string>{"info-overview"});
}
