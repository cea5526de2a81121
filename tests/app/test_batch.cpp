// The program started with a problem file solves, leaves four lines in Zarvek.TMP of its start directory (and
// on standard output without a display) and ends; away from its data, its files go to the user's folder
// ($XDG_DATA_HOME/zarvek or ~/.local/share/zarvek) and the start directory stays as it was.
#include <sys/file.h>

#include "app_support.h"
#include "foundation/Language.h"

using namespace app_test;

namespace {

const std::string Bin = ZARVEK_BIN_DIR;

// Message n of a shipped language, raw (Windows-1252) as the result file holds it.
std::string Message(const std::string& code, int n) {
  TempDir scratch;
  EXPECT_TRUE(zarvek::Load_LanguageFile(Bin + "/ZARVEK_" + code + ".MSG", scratch / "L.TMP"));
  zarvek::Load_Messages();
  return zarvek::Msg(n);
}

// The program run to a normal end (exit 0).
RunResult Expect_Zero(const std::string& startDir, const Args& args) {
  RunResult r = Run_Zarvek(startDir, args);
  EXPECT_EQ(r.exit_code, 0) << r.err;
  return r;
}

// The example's result: mucr, Mmax, where Mmax is, and the status line.
void Expect_ExampleResult(const std::vector<std::string>& lines, const std::string& code = "UK") {
  ASSERT_EQ(lines.size(), 4u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(lines[i].size(), 15u) << lines[i];
  EXPECT_EQ(lines[0].find('.'), 8u) << "six decimals and a point: " << lines[0];
  EXPECT_EQ(std::stod(lines[1]), 1.0e6);  // 100 kN.m in daN.cm, the same all along
  EXPECT_EQ(std::stod(lines[2]), 0.0);    // the first of equal moments: the left end
  EXPECT_NEAR(std::stod(lines[0]) * 1.0e6 / Mcr_Example(), 1.0, 1e-3);
  EXPECT_EQ(lines[3], Message(code, 6) + " (0)");
}

TEST(BatchRun, ExampleGivesTheClosedFormCriticalMoment) {
  EXPECT_NEAR(Mcr_Example(), 4.833e5, 50);  // 48.33 kN.m for this beam, by hand
  // a lower-case extension, and a problem outside the start directory
  StartDir d;
  TempDir elsewhere;
  fs::copy_file(d / "EXAMPLE.ZVK", elsewhere / "beam.zvk");
  RunResult r = Expect_Zero(d.path, {elsewhere / "beam.zvk"});
  Expect_ExampleResult(Lines_Of(Read_All(d / "Zarvek.TMP")));
  // the result goes to the start directory: then the installation's five files, the result, the lock; no more
  EXPECT_FALSE(fs::exists(elsewhere / "Zarvek.TMP"));
  EXPECT_EQ(std::distance(fs::directory_iterator(d.path), fs::directory_iterator()), 5 + 2);

  // a garbled file ends in the status line
  Write_All(d / "bad.ZVK", "This is not a beam\n");
  r = Expect_Zero(d.path, {d / "bad.ZVK"});
  const auto lines = Lines_Of(Read_All(d / "Zarvek.TMP"));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "       0.000000"); EXPECT_EQ(lines[3], Message("UK", 57) + " (1)");
  EXPECT_EQ(Lines_Of(r.out), lines);  // and on standard output without a display
}

TEST(BatchRun, EachStartFailureStopsWithItsTextOnStandardError) {
  // what is wrong in the start directory, and the text after its path
  const std::vector<std::pair<std::function<void(const StartDir&)>, std::string>> cases = {
      {[](auto& d) { fs::remove(d / "Zarvek.INI"); }, "Error in reading @/Zarvek.INI"},
      {[](auto& d) { Write_All(d / "Zarvek.INI", "LANGUAGE=FR\n"); fs::remove(d / "ZARVEK_FR.MSG"); },
       "File @/ZARVEK_FR.MSG not found"},
      // the English file cut in its captions (scrambling keeps bytes in place: the plain text finds the cut)
      {[](auto& d) {
         const std::string plain = Read_All(std::string(ZARVEK_SOURCE_DIR) + "/data/lang/ZARVEK_UK.txt");
         Write_All(d / "ZARVEK_UK.MSG", Read_All(d / "ZARVEK_UK.MSG").substr(0, plain.find("\n$65") + 200));
       }, "Error in reading @/ZARVEK_UK.MSG"},
  };
  for (const auto& [spoil, text] : cases) {
    SCOPED_TRACE(text);
    StartDir d;
    spoil(d);
    const std::string expected = std::string(text).replace(text.find('@'), 1, d.path);
    RunResult r = Run_Zarvek(d.path, {d / "EXAMPLE.ZVK"});
    EXPECT_EQ(r.exit_code, 1); EXPECT_TRUE(Has(r.err, expected + "\n")) << r.err;
    EXPECT_TRUE(r.out.empty() && !fs::exists(d / "Zarvek.TMP")) << r.out;
  }
  // a missing problem file: the normal start deletes the stale scratch file; no display: it says how to batch
  StartDir d;
  Write_All(d / "Zarvek.TMP", "left by a crash");
  EXPECT_TRUE(Has(Expect_Zero(d.path, {d / "MISSING.ZVK"}).out, "Zarvek BEAM.ZVK"));
  EXPECT_FALSE(fs::exists(d / "Zarvek.TMP"));
}

TEST(SingleInstance, ASecondInstanceEndsSilentlyTwoDirectoriesRunSideBySide) {
  StartDir a;
  Write_All(a / "Zarvek.TMP", "result of the running instance");
  // the lock held as a running instance holds it
  const int fd = ::open((a / "Zarvek.lock").c_str(), O_RDWR | O_CREAT, 0644);
  ASSERT_EQ(::flock(fd, LOCK_EX | LOCK_NB), 0);
  RunResult r = Run_Zarvek(a.path, {a / "EXAMPLE.ZVK"});
  ::close(fd);
  EXPECT_EQ(r.exit_code, 3); EXPECT_EQ(r.out + r.err, "");
  EXPECT_EQ(Read_All(a / "Zarvek.TMP"), "result of the running instance");  // not touched

  // two directories side by side, each in its language (blanks and a lower-case code: the French texts)
  StartDir b;
  Write_All(b / "Zarvek.INI", "; language of the texts\n   LANGUAGE=  fr  \n");
  Child first(a.path, {a / "EXAMPLE.ZVK"}), second(b.path, {b / "EXAMPLE.ZVK"});
  RunResult ra = first.Wait(), rb = second.Wait();
  EXPECT_EQ(ra.exit_code + rb.exit_code, 0) << ra.err << rb.err;
  Expect_ExampleResult(Lines_Of(Read_All(a / "Zarvek.TMP")));
  Expect_ExampleResult(Lines_Of(Read_All(b / "Zarvek.TMP")), "FR");
  EXPECT_TRUE(Has(rb.out, zarvek::Cp1252_To_Utf8(Message("FR", 6)) + " (0)\n"));  // UTF-8 on the console
}

// HOME and XDG_DATA_HOME of the children started in its lifetime.
struct Environment {
  std::string home = std::getenv("HOME") ? std::getenv("HOME") : "";
  const char* xdg = std::getenv("XDG_DATA_HOME");
  std::string xdgSaved = xdg ? xdg : "";
  static void Set(const char* name, const char* value) { value ? ::setenv(name, value, 1) : ::unsetenv(name); }
  Environment(const std::string& h, const char* x) { Set("HOME", h.c_str()), Set("XDG_DATA_HOME", x); }
  ~Environment() { Set("HOME", home.c_str()), Set("XDG_DATA_HOME", xdg ? xdgSaved.c_str() : nullptr); }
};

TEST(UserFolder, TheBatchRouteAwayFromTheDataLeavesItsResultInTheUserFolder) {
  TempDir home, elsewhere;
  const std::string buildResult = Bin + "/Zarvek.TMP", oldResult = Read_All(buildResult);
  const bool hadResult = fs::exists(buildResult);
  // the folder under HOME, XDG_DATA_HOME unset (which values count is the start place's own test)
  Environment env(home.path, nullptr);
  const std::string user = home / ".local/share/zarvek";
  Expect_Zero(elsewhere.path, {Bin + "/EXAMPLE.ZVK"});
  const auto lines = Lines_Of(Read_All(user + "/Zarvek.TMP"));
  ASSERT_EQ(lines.size(), 4u); EXPECT_NEAR(std::stod(lines[0]) * std::stod(lines[1]) / Mcr_Example(), 1.0, 1e-3);
  EXPECT_EQ(Read_All(user + "/Zarvek.INI"), Read_All(Bin + "/Zarvek.INI"));
  EXPECT_TRUE(fs::is_empty(elsewhere.path));
  // the build's own start directory is not touched
  EXPECT_TRUE(fs::exists(buildResult) == hadResult && Read_All(buildResult) == oldResult);

  // --open names a problem for the window, not the batch route; a relative name, as a file manager gives it
  fs::remove(home / ".local/share/zarvek/Zarvek.TMP");
  fs::copy_file(Bin + "/EXAMPLE.ZVK", elsewhere / "beam.zvk");
  EXPECT_TRUE(Has(Expect_Zero(elsewhere.path, {"--open", "beam.zvk"}).out, "no display"));
  EXPECT_FALSE(fs::exists(home / ".local/share/zarvek/Zarvek.TMP"));
  // the user's problem file stays as it was, alone in its directory
  EXPECT_EQ(Read_All(elsewhere / "beam.zvk"), Read_All(Bin + "/EXAMPLE.ZVK"));
  EXPECT_EQ(std::distance(fs::directory_iterator(elsewhere.path), fs::directory_iterator()), 1);
}

}  // namespace
