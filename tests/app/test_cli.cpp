// The command-line solver, run as a child process in an empty directory of
// its own, which it must leave empty.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "analysis/Proceed.h"
#include "app_support.h"
#include "model/ProjectFile.h"

using namespace app_test;

namespace {

struct Cli_Run : RunResult {
  explicit Cli_Run(const std::vector<std::string>& args) {
    TempDir dir, streams;
    const std::string program = std::string(ZARVEK_BIN_DIR) + "/zarvek-cli";
    pid_t pid = ::fork();
    if (pid == 0) {
      int fo = ::open((streams / "out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
      int fe = ::open((streams / "err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
      if (::chdir(dir.path.c_str()) != 0 || fo < 0 || fe < 0) ::_exit(126);
      ::dup2(fo, 1);
      ::dup2(fe, 2);
      std::vector<char*> argv{const_cast<char*>(program.c_str())};
      for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
      argv.push_back(nullptr);
      ::execv(program.c_str(), argv.data());
      ::_exit(127);
    }
    int status = 0;
    ::waitpid(pid, &status, 0);
    if (WIFEXITED(status)) exit_code = WEXITSTATUS(status);
    out = Read_All(streams / "out");
    err = Read_All(streams / "err");
    EXPECT_TRUE(fs::is_empty(dir.path)) << "a file was left where the program ran";
  }
};

// The number after "key": in a one-line JSON object.
double Json_Value(const std::string& json, const std::string& key) {
  const auto p = json.find("\"" + key + "\":");
  if (p == std::string::npos) return NAN;
  return std::strtod(json.c_str() + p + key.size() + 3, nullptr);
}

// IPE 300 of 10 m under uniform moment, fork supports, kN and cm:
// Mcr = (pi/L) sqrt(E Iz G It) sqrt(1 + pi^2 E Iw / (L^2 G It)).
double Mcr_Default_kNcm() {
  const double pi = std::numbers::pi, E = 21000, G = 8076.9, Iz = 603.78, It = 19.868, Iw = 126332, L = 1000;
  return pi / L * std::sqrt(E * Iz * G * It) * std::sqrt(1 + pi * pi * E * Iw / (L * L * G * It));
}

zarvek::BeamModel Default_Model() {
  zarvek::BeamModel m;
  zarvek::Init_Default(m, "/tmp");
  return m;
}

std::string Save(const TempDir& files, const std::string& name, const zarvek::BeamModel& m) {
  EXPECT_TRUE(zarvek::Save_FileDAT(m, files / name));
  return files / name;
}

std::string Save_Problem(const TempDir& files, const std::string& name, double E) {
  zarvek::BeamModel m = Default_Model();
  zarvek::ProblemData p;
  zarvek::EffortsData e;
  std::int16_t status;
  std::string text;
  EXPECT_TRUE(zarvek::Build_Problem(m, p, e, status, text));
  p.E = E;
  EXPECT_TRUE(zarvek::Write_ProblemFile(files / name, p, zarvek::ProblemLabels::Proceed));
  return files / name;
}

TEST(Cli, CommandLineAndUnknownFiles) {
  Cli_Run h({"--help"});
  EXPECT_EQ(h.exit_code, 0);
  EXPECT_NE(h.out.find("zarvek-cli solve FILE"), std::string::npos);
  EXPECT_EQ(Cli_Run(std::vector<std::string>{}).exit_code, 1);
  EXPECT_EQ(Cli_Run({"solve"}).exit_code, 1);
  EXPECT_EQ(Cli_Run({"frobnicate"}).exit_code, 1);
  EXPECT_EQ(Cli_Run({"solve", "/nonexistent/BEAM.DAT"}).exit_code, 2);
  TempDir files;
  Write_All(files / "notes.txt", "hello\n");
  Write_All(files / "BROKEN.DAT", "this is not a project\n");
  EXPECT_EQ(Cli_Run({"solve", files / "notes.txt"}).exit_code, 2);
  EXPECT_EQ(Cli_Run({"solve", files / "BROKEN.DAT"}).exit_code, 2);
}

TEST(Cli, ProjectAndProblemFileGiveTheClosedForm) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT", Default_Model());
  Cli_Run t({"solve", dat});
  ASSERT_EQ(t.exit_code, 0) << t.err;
  const auto lines = Lines_Of(t.out);  // mucr, Mcr, Mmax, x/L, message
  ASSERT_GE(lines.size(), 5u) << t.out;
  EXPECT_NE(lines[1].find("kN.m"), std::string::npos);
  EXPECT_NEAR(std::strtod(lines[1].c_str() + 4, nullptr) * 100 / Mcr_Default_kNcm(), 1.0, 1e-4);
  EXPECT_NE(lines[2].find("100 kN.m"), std::string::npos);

  Cli_Run j({"solve", dat, "--json"});
  ASSERT_EQ(j.exit_code, 0) << j.err;
  EXPECT_EQ(Lines_Of(j.out).size(), 1u);
  const double mucr = Json_Value(j.out, "mucr");
  EXPECT_NEAR(mucr * 1e4 / Mcr_Default_kNcm(), 1.0, 1e-4);  // mucr x 100 kN.m
  EXPECT_NEAR(Json_Value(j.out, "Mcr"), mucr * 100, 1e-6 * mucr * 100);
  EXPECT_EQ(Json_Value(j.out, "Mmax"), 100);
  EXPECT_NE(j.out.find("\"unit_M\":\"kN.m\""), std::string::npos);
  const auto m = j.out.find("\"mode\":[[");  // 101 nodes of v, theta, v', theta'
  ASSERT_NE(m, std::string::npos);
  EXPECT_EQ(std::count(j.out.begin() + m + 8, j.out.end(), '['), 101);

  // the same beam as a problem file: daN.cm, the dichotomy, a mode too
  Cli_Run z({"solve", Save_Problem(files, "BEAM.ZVK", 2.1e6), "--json"});
  ASSERT_EQ(z.exit_code, 0) << z.err;
  EXPECT_EQ(Json_Value(z.out, "Mmax"), 1e6);
  EXPECT_EQ(Json_Value(z.out, "method"), 2);
  EXPECT_NEAR(Json_Value(z.out, "Mcr") / (Mcr_Default_kNcm() * 100), 1.0, 1e-3);
  EXPECT_NE(z.out.find("\"mode\":[["), std::string::npos);
}

TEST(Cli, InvalidDataAndSolverFailures) {
  TempDir files;
  zarvek::BeamModel s = Default_Model();
  s.Txt_L = "0.5";  // 50 cm in 100 elements: L/N below 1 cm
  Cli_Run r({"solve", Save(files, "SHORT.DAT", s)});
  EXPECT_EQ(r.exit_code, 2);
  EXPECT_NE(r.err.find("tab 0"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("Txt_L"), std::string::npos) << r.err;
  EXPECT_NE(r.err.find("L/N : "), std::string::npos) << r.err;

  zarvek::BeamModel z = Default_Model();
  z.Chk_M = false;  // no moment at all
  Cli_Run n({"solve", Save(files, "NOLOAD.DAT", z), "--json"});
  EXPECT_EQ(n.exit_code, 2);
  EXPECT_NE(n.out.find("\"error\":\"Mmax = 0 ! - "), std::string::npos) << n.out;

  Cli_Run e({"solve", Save_Problem(files, "SOFT.ZVK", 500), "--json"});  // E refused
  EXPECT_EQ(e.exit_code, 3);
  EXPECT_EQ(Json_Value(e.out, "status"), 103);
  EXPECT_NE(e.err.find("status 103"), std::string::npos) << e.err;

  zarvek::BeamModel c = Default_Model();  // no lateral stiffness at node 1
  c.Chk_Continuous = true;
  c.Lst_v1 = zarvek::Restraint_Item(0);
  c.Lst_ti_c = zarvek::RestraintList{-1, "1", true};
  Cli_Run d({"solve", Save(files, "CONT.DAT", c)});
  EXPECT_EQ(d.exit_code, 3);
  EXPECT_NE(d.err.find("status 11"), std::string::npos) << d.err;
}

TEST(Cli, SectionCatalogue) {
  Cli_Run all({"sections"});
  ASSERT_EQ(all.exit_code, 0) << all.err;
  const auto names = Lines_Of(all.out);
  EXPECT_NE(std::find(names.begin(), names.end(), "IPE 300"), names.end());
  Cli_Run one({"section", "IPE 300"});
  ASSERT_EQ(one.exit_code, 0) << one.err;
  EXPECT_NE(one.out.find("603.78"), std::string::npos) << one.out;  // Iz, cm4
  EXPECT_NE(one.out.find("19.868"), std::string::npos) << one.out;  // It
  EXPECT_EQ(Cli_Run({"section", "IPE 301"}).exit_code, 2);
}

}  // namespace
