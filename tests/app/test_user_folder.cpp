// The program started away from its data, as an installed program is: its
// own files go to the user's folder ($XDG_DATA_HOME/zarvek or
// ~/.local/share/zarvek), its data is read beside the executable, and the
// directory it was started in stays as it was.
#include <cstdlib>

#include "app_support.h"

using namespace app_test;

namespace {

// HOME and XDG_DATA_HOME of the children started in its lifetime.
struct Environment {
  std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
  const char* xdg = std::getenv("XDG_DATA_HOME");
  std::string xdgSaved = xdg ? xdg : "";
  Environment(const std::string& newHome, const char* newXdg) {
    ::setenv("HOME", newHome.c_str(), 1);
    if (newXdg) ::setenv("XDG_DATA_HOME", newXdg, 1);
    else ::unsetenv("XDG_DATA_HOME");
  }
  ~Environment() {
    ::setenv("HOME", home.c_str(), 1);
    if (xdg) ::setenv("XDG_DATA_HOME", xdgSaved.c_str(), 1);
    else ::unsetenv("XDG_DATA_HOME");
  }
};

TEST(UserFolder, TheBatchRouteAwayFromTheDataLeavesItsResultInTheUserFolder) {
  TempDir home, elsewhere, xdg;
  const std::string problem = std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK";
  const std::string buildResult = std::string(ZARVEK_BIN_DIR) + "/Zarvek.TMP";
  const bool hadResult = fs::exists(buildResult);
  const std::string oldResult = Read_All(buildResult);
  // a relative XDG_DATA_HOME is not valid and is ignored
  for (const char* x : {static_cast<const char*>(nullptr), "relative/data", xdg.path.c_str()}) {
    SCOPED_TRACE(x ? x : "(unset)");
    Environment env(home.path, x);
    const std::string user = (x && x[0] == '/' ? std::string(x) : home / ".local/share") + "/zarvek";
    RunResult r = Run_Zarvek(elsewhere.path, {problem});
    EXPECT_EQ(r.exit_code, 0) << r.err;
    const auto lines = Lines_Of(Read_All(user + "/Zarvek.TMP"));
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_NEAR(std::stod(lines[0]) * std::stod(lines[1]) / Mcr_Example(), 1.0, 1e-3);
    EXPECT_EQ(Read_All(user + "/Zarvek.INI"), Read_All(std::string(ZARVEK_BIN_DIR) + "/Zarvek.INI"));
    EXPECT_TRUE(fs::is_empty(elsewhere.path));
  }
  // the build's own start directory is not touched by any of it
  EXPECT_EQ(fs::exists(buildResult), hadResult);
  EXPECT_EQ(Read_All(buildResult), oldResult);
}

TEST(UserFolder, OpenNamesAProblemForTheWindowNotForTheBatchRoute) {
  TempDir home, elsewhere;
  Environment env(home.path, nullptr);
  fs::copy_file(std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK", elsewhere / "beam.zvk");
  // a relative name, as a file manager may hand it over
  RunResult r = Run_Zarvek(elsewhere.path, {"--open", "beam.zvk"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  EXPECT_NE(r.out.find("no display"), std::string::npos) << r.out;
  EXPECT_FALSE(fs::exists(home / ".local/share/zarvek/Zarvek.TMP"));
  // the user's problem file stays as it was, alone in its directory
  EXPECT_EQ(Read_All(elsewhere / "beam.zvk"), Read_All(std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK"));
  EXPECT_EQ(std::distance(fs::directory_iterator(elsewhere.path), fs::directory_iterator()), 1);
}

}  // namespace
