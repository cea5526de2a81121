// The program started with a problem file: it solves, leaves four lines in
// Zarvek.TMP of its start directory (and on standard output without a
// display), and ends.
#include <cmath>
#include <numbers>
#include <sys/file.h>

#include "app_support.h"
#include "foundation/Language.h"
#include "solver/Example.h"
#include "solver/Mod_StabMat.h"

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

// Elastic critical moment of a fork-supported beam under uniform moment:
// Mcr = (pi/L) sqrt(E Iz G It) sqrt(1 + pi^2 E Iw / (L^2 G It)), daN and cm.
double Mcr_ForkBeam(double L, double E, double G, double Iz, double It, double Iw) {
  const double pi = std::numbers::pi;
  return pi / L * std::sqrt(E * Iz * G * It) * std::sqrt(1 + pi * pi * E * Iw / (L * L * G * It));
}

// The example: IPE 300, 10 m, E 21000 kN/cm2, G 8076.9 kN/cm2, 100 kN.m.
const double Mcr_Example = Mcr_ForkBeam(1000, 2.1e6, 807690, 603.78, 19.868, 126332);

void Expect_ExampleResult(const std::vector<std::string>& lines) {
  ASSERT_EQ(lines.size(), 4u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(lines[i].size(), 15u) << lines[i];
  const double mucr = std::stod(lines[0]);
  EXPECT_EQ(lines[0].find('.'), 8u) << "six decimals and a point: " << lines[0];
  const double Mmax = std::stod(lines[1]);
  EXPECT_EQ(Mmax, 1.0e6);  // 100 kN.m in daN.cm, the same all along
  EXPECT_EQ(std::stod(lines[2]), 0.0);  // the first of equal moments: the left end
  EXPECT_NEAR(mucr * std::fabs(Mmax) / Mcr_Example, 1.0, 1e-3);
  EXPECT_EQ(lines[3], Message("UK", 6) + " (0)");
}

TEST(BatchRun, ExampleGivesTheClosedFormCriticalMoment) {
  // 48.33 kN.m for this beam, by hand
  EXPECT_NEAR(Mcr_Example, 4.833e5, 50);
  StartDir d;
  RunResult r = Run_Zarvek(d.path, {d / "EXAMPLE.ZVK"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  const std::string file = Read_All(d / "Zarvek.TMP");
  Expect_ExampleResult(Lines_Of(file));
  EXPECT_EQ(r.out, file);
  // nothing else is left behind but the lock
  for (const auto& e : fs::directory_iterator(d.path)) {
    const std::string n = e.path().filename().string();
    EXPECT_TRUE(n == "Zarvek.TMP" || n == "Zarvek.lock" || fs::exists(std::string(ZARVEK_BIN_DIR) + "/" + n)) << n;
  }
}

TEST(BatchRun, LowerCaseExtensionAndAProblemOutsideTheStartDirectory) {
  StartDir d;
  TempDir elsewhere;
  fs::copy_file(d / "EXAMPLE.ZVK", elsewhere / "beam.zvk");
  RunResult r = Run_Zarvek(d.path, {elsewhere / "beam.zvk"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  // the result goes to the start directory, not beside the problem
  Expect_ExampleResult(Lines_Of(Read_All(d / "Zarvek.TMP")));
  EXPECT_FALSE(fs::exists(elsewhere / "Zarvek.TMP"));

  // a relative name from the start directory, with blanks around it
  fs::remove(d / "Zarvek.TMP");
  r = Run_Zarvek(d.path, {" EXAMPLE.ZVK "});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  Expect_ExampleResult(Lines_Of(r.out));
}

TEST(BatchRun, AFailedSolveStandsInTheStatusLine) {
  StartDir d;
  const std::string refused = Message("UK", 57);
  ASSERT_FALSE(refused.empty());

  // not a problem file at all: a read error
  Write_All(d / "bad.ZVK", "This is not a beam\n");
  RunResult r = Run_Zarvek(d.path, {d / "bad.ZVK"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  auto lines = Lines_Of(Read_All(d / "Zarvek.TMP"));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "       0.000000");
  EXPECT_EQ(lines[3], refused + " (1)");
  EXPECT_EQ(Lines_Of(r.out), lines);

  // a well-formed file of 49 elements, one fewer than the least allowed
  ASSERT_TRUE(zarvek::Write_ProblemFile(d / "short.ZVK", zarvek::Fork_Beam_Uniform_Moment(49),
                                        zarvek::ProblemLabels::Proceed));
  r = Run_Zarvek(d.path, {d / "short.ZVK"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  lines = Lines_Of(Read_All(d / "Zarvek.TMP"));
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0], "       0.000000");
  EXPECT_EQ(lines[3], refused + " (102)");
}

TEST(BatchRun, TheLanguageOfTheIniFileWritesTheStatusLine) {
  StartDir d;
  // blanks and a lower-case code; the French file is chosen
  Write_All(d / "Zarvek.INI", "; language of the texts\n   LANGUAGE=  fr  \n");
  RunResult r = Run_Zarvek(d.path, {d / "EXAMPLE.ZVK"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  const auto lines = Lines_Of(Read_All(d / "Zarvek.TMP"));
  ASSERT_EQ(lines.size(), 4u);
  const std::string french = Message("FR", 6);
  EXPECT_NE(french, Message("UK", 6));
  EXPECT_EQ(lines[3], french + " (0)");
  // the console gets UTF-8
  EXPECT_EQ(Lines_Of(r.out)[3], zarvek::Cp1252_To_Utf8(french) + " (0)");
}

TEST(StartFailure, EachStopsWithItsTextOnStandardError) {
  struct Case {
    const char* what;
    std::string ini;            // content, or empty to remove the file
    const char* remove;         // a file of the installation to remove
    bool corrupt_uk;            // cut the English file inside its captions
    std::string expected;       // text after the start directory
  };
  const std::vector<Case> cases = {
      {"no .INI file", "", nullptr, false, "Error in reading @/Zarvek.INI"},
      {"key in lower case", "language=UK\n", nullptr, false, "Error in reading @/Zarvek.INI"},
      {"no file for the language", "LANGUAGE=FR\n", "ZARVEK_FR.MSG", false, "File @/ZARVEK_FR.MSG not found"},
      {"a language file cut short", "LANGUAGE=UK\n", nullptr, true, "Error in reading @/ZARVEK_UK.MSG"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    StartDir d;
    if (c.ini.empty()) fs::remove(d / "Zarvek.INI");
    else Write_All(d / "Zarvek.INI", c.ini);
    if (c.remove) fs::remove(d / c.remove);
    if (c.corrupt_uk) {
      // scrambling keeps every byte in its place: the cut is found in the plain text
      const std::string plain = Read_All(std::string(ZARVEK_SOURCE_DIR) + "/data/lang/ZARVEK_UK.txt");
      const std::string msg = Read_All(d / "ZARVEK_UK.MSG");
      Write_All(d / "ZARVEK_UK.MSG", msg.substr(0, plain.find("\n$65") + 200));
    }
    std::string expected = c.expected;
    expected.replace(expected.find('@'), 1, d.path);
    RunResult r = Run_Zarvek(d.path, {d / "EXAMPLE.ZVK"});
    EXPECT_EQ(r.exit_code, 1);
    EXPECT_NE(r.err.find(expected + "\n"), std::string::npos) << r.err;
    EXPECT_EQ(r.out, "");
    EXPECT_FALSE(fs::exists(d / "Zarvek.TMP"));
  }
}

TEST(StartUp, WithoutAProblemFileTheBatchRouteIsNotTaken) {
  StartDir d;
  Write_All(d / "Zarvek.TMP", "left by a crash");
  // a problem name that doesn't exist, and a project file: the normal start,
  // which deletes the stale scratch file and tells how to run a batch
  for (const std::string& arg : {d / "MISSING.ZVK", d / "BEAM.DAT"}) {
    RunResult r = Run_Zarvek(d.path, {arg});
    EXPECT_EQ(r.exit_code, 0) << r.err;
    EXPECT_NE(r.out.find("Zarvek BEAM.ZVK"), std::string::npos) << r.out;
    EXPECT_FALSE(fs::exists(d / "Zarvek.TMP"));
  }
}

// Holds the start directory's lock as a running instance would.
struct HeldLock {
  int fd;
  explicit HeldLock(const std::string& dir) {
    fd = ::open((dir + "/Zarvek.lock").c_str(), O_RDWR | O_CREAT, 0644);
    EXPECT_EQ(::flock(fd, LOCK_EX | LOCK_NB), 0);
  }
  ~HeldLock() { ::close(fd); }
};

TEST(SingleInstance, ASecondInstanceInTheSameDirectoryEndsSilently) {
  StartDir a, b;
  Write_All(a / "Zarvek.TMP", "result of the running instance");
  HeldLock running(a.path);
  RunResult r = Run_Zarvek(a.path, {a / "EXAMPLE.ZVK"});
  EXPECT_EQ(r.exit_code, 3);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "");
  // the running instance's files are not touched
  EXPECT_EQ(Read_All(a / "Zarvek.TMP"), "result of the running instance");

  // meanwhile another directory is free
  r = Run_Zarvek(b.path, {b / "EXAMPLE.ZVK"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  Expect_ExampleResult(Lines_Of(Read_All(b / "Zarvek.TMP")));
}

TEST(SingleInstance, TwoDirectoriesRunSideBySide) {
  StartDir a, b;
  Child first(a.path, {a / "EXAMPLE.ZVK"});
  Child second(b.path, {b / "EXAMPLE.ZVK"});
  RunResult ra = first.Wait(), rb = second.Wait();
  EXPECT_EQ(ra.exit_code, 0) << ra.err;
  EXPECT_EQ(rb.exit_code, 0) << rb.err;
  Expect_ExampleResult(Lines_Of(Read_All(a / "Zarvek.TMP")));
  Expect_ExampleResult(Lines_Of(Read_All(b / "Zarvek.TMP")));
}

}  // namespace
