// The program started with a problem file: it solves, leaves four lines in
// Zarvek.TMP of its start directory (and on standard output without a
// display), and ends.
#include <functional>
#include <sys/file.h>

#include "app_support.h"
#include "foundation/Language.h"

using namespace app_test;

namespace {

// Message n of a shipped language, raw (Windows-1252) as the result file holds it.
std::string Message(const std::string& code, int n) {
  TempDir scratch;
  const std::string file = std::string(ZARVEK_BIN_DIR) + "/ZARVEK_" + code + ".MSG";
  EXPECT_TRUE(zarvek::Load_LanguageFile(file, scratch / "L.TMP"));
  zarvek::Load_Messages();
  return zarvek::Msg(n);
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
  RunResult r = Run_Zarvek(d.path, {elsewhere / "beam.zvk"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  const std::string file = Read_All(d / "Zarvek.TMP");
  Expect_ExampleResult(Lines_Of(file));
  EXPECT_EQ(r.out, file);
  // the result goes to the start directory, which then holds the five files of
  // the installation, the result and the lock: nothing else is left behind
  EXPECT_FALSE(fs::exists(elsewhere / "Zarvek.TMP"));
  EXPECT_EQ(std::distance(fs::directory_iterator(d.path), fs::directory_iterator()), 5 + 2);
}

TEST(BatchRun, AGarbledFileEndsInTheStatusLine) {
  StartDir d;
  Write_All(d / "bad.ZVK", "This is not a beam\n");
  RunResult r = Run_Zarvek(d.path, {d / "bad.ZVK"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  const auto lines = Lines_Of(Read_All(d / "Zarvek.TMP"));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "       0.000000");
  EXPECT_EQ(lines[3], Message("UK", 57) + " (1)");
  EXPECT_EQ(Lines_Of(r.out), lines);
}

TEST(StartFailure, EachStopsWithItsTextOnStandardError) {
  // what is wrong in the start directory, and the text after its path
  const std::vector<std::pair<std::function<void(const StartDir&)>, std::string>> cases = {
      {[](auto& d) { fs::remove(d / "Zarvek.INI"); }, "Error in reading @/Zarvek.INI"},
      {[](auto& d) { Write_All(d / "Zarvek.INI", "LANGUAGE=FR\n"); fs::remove(d / "ZARVEK_FR.MSG"); },
       "File @/ZARVEK_FR.MSG not found"},
      // the English file cut inside its captions; scrambling keeps every byte
      // in its place, so the cut is found in the plain text
      {[](auto& d) {
         const std::string plain = Read_All(std::string(ZARVEK_SOURCE_DIR) + "/data/lang/ZARVEK_UK.txt");
         Write_All(d / "ZARVEK_UK.MSG", Read_All(d / "ZARVEK_UK.MSG").substr(0, plain.find("\n$65") + 200));
       }, "Error in reading @/ZARVEK_UK.MSG"},
  };
  for (const auto& [spoil, text] : cases) {
    SCOPED_TRACE(text);
    StartDir d;
    spoil(d);
    std::string expected = text;
    expected.replace(expected.find('@'), 1, d.path);
    RunResult r = Run_Zarvek(d.path, {d / "EXAMPLE.ZVK"});
    EXPECT_EQ(r.exit_code, 1);
    EXPECT_NE(r.err.find(expected + "\n"), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
    EXPECT_FALSE(fs::exists(d / "Zarvek.TMP"));
  }
}

TEST(StartUp, AMissingProblemFileLeadsToTheNormalStart) {
  StartDir d;
  Write_All(d / "Zarvek.TMP", "left by a crash");
  // the normal start deletes the stale scratch file and, without a display,
  // tells how to run a batch
  RunResult r = Run_Zarvek(d.path, {d / "MISSING.ZVK"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  EXPECT_NE(r.out.find("Zarvek BEAM.ZVK"), std::string::npos) << r.out;
  EXPECT_FALSE(fs::exists(d / "Zarvek.TMP"));
}

TEST(SingleInstance, ASecondInstanceInTheSameDirectoryEndsSilently) {
  StartDir a;
  Write_All(a / "Zarvek.TMP", "result of the running instance");
  // the lock held as a running instance holds it
  const int fd = ::open((a / "Zarvek.lock").c_str(), O_RDWR | O_CREAT, 0644);
  ASSERT_EQ(::flock(fd, LOCK_EX | LOCK_NB), 0);
  RunResult r = Run_Zarvek(a.path, {a / "EXAMPLE.ZVK"});
  ::close(fd);
  EXPECT_EQ(r.exit_code, 3);
  EXPECT_EQ(r.out + r.err, "");
  // the running instance's files are not touched
  EXPECT_EQ(Read_All(a / "Zarvek.TMP"), "result of the running instance");
}

TEST(SingleInstance, TwoDirectoriesRunSideBySideEachInItsLanguage) {
  StartDir a, b;
  // blanks and a lower-case code: the French texts
  Write_All(b / "Zarvek.INI", "; language of the texts\n   LANGUAGE=  fr  \n");
  Child first(a.path, {a / "EXAMPLE.ZVK"}), second(b.path, {b / "EXAMPLE.ZVK"});
  RunResult ra = first.Wait(), rb = second.Wait();
  EXPECT_EQ(ra.exit_code, 0) << ra.err;
  EXPECT_EQ(rb.exit_code, 0) << rb.err;
  Expect_ExampleResult(Lines_Of(Read_All(a / "Zarvek.TMP")));
  Expect_ExampleResult(Lines_Of(Read_All(b / "Zarvek.TMP")), "FR");
  EXPECT_NE(Message("FR", 6), Message("UK", 6));
  // the console gets UTF-8
  EXPECT_NE(rb.out.find(zarvek::Cp1252_To_Utf8(Message("FR", 6)) + " (0)\n"), std::string::npos);
}

}  // namespace
