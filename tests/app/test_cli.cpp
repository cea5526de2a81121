// The command-line solver, run as a child process in an empty directory of
// its own, which it must leave empty.
#include <algorithm>
#include <cstdlib>
#include <functional>

#include "app_support.h"
#include "solver/Example.h"

using namespace app_test;

namespace {

RunResult Cli(const std::vector<std::string>& args) {
  TempDir dir;
  RunResult r = Run_Zarvek(dir.path, args, "zarvek-cli");
  EXPECT_TRUE(fs::is_empty(dir.path)) << "a file was left where the program ran";
  return r;
}

// The number after "key": in a one-line JSON object.
double Json_Value(const std::string& json, const std::string& key) {
  const auto p = json.find("\"" + key + "\":");
  if (p == std::string::npos) return NAN;
  return std::strtod(json.c_str() + p + key.size() + 3, nullptr);
}


TEST(Cli, CommandLineAndUnknownFiles) {
  RunResult h = Cli({"--help"});
  EXPECT_EQ(h.exit_code, 0);
  EXPECT_NE(h.out.find("zarvek-cli solve FILE"), std::string::npos);
  for (const auto& usage : std::vector<std::vector<std::string>>{{}, {"solve"}, {"frobnicate"}})
    EXPECT_EQ(Cli(usage).exit_code, 1);
  TempDir files;
  Write_All(files / "notes.txt", "hello\n");
  Write_All(files / "BROKEN.DAT", "this is not a project\n");
  for (const std::string& f : {files / "MISSING.DAT", files / "notes.txt", files / "BROKEN.DAT"})
    EXPECT_EQ(Cli({"solve", f}).exit_code, 2) << f;
}

TEST(Cli, ProjectAndProblemFileGiveTheClosedForm) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT");
  RunResult t = Cli({"solve", dat});
  ASSERT_EQ(t.exit_code, 0) << t.err;
  const auto lines = Lines_Of(t.out);  // mucr, Mcr, Mmax, x/L, message
  ASSERT_GE(lines.size(), 5u) << t.out;
  EXPECT_NE(lines[1].find("kN.m"), std::string::npos);
  EXPECT_NEAR(std::strtod(lines[1].c_str() + 4, nullptr) * 1e4 / Mcr_Example(), 1.0, 1e-4);

  RunResult j = Cli({"solve", dat, "--json"});
  ASSERT_EQ(j.exit_code, 0) << j.err;
  EXPECT_EQ(Lines_Of(j.out).size(), 1u);
  const double mucr = Json_Value(j.out, "mucr");
  EXPECT_NEAR(mucr * 1e6 / Mcr_Example(), 1.0, 1e-4);  // mucr x 100 kN.m
  EXPECT_NEAR(Json_Value(j.out, "Mcr"), mucr * 100, 1e-6 * mucr * 100);
  EXPECT_EQ(Json_Value(j.out, "Mmax"), 100);
  EXPECT_NE(j.out.find("\"unit_M\":\"kN.m\""), std::string::npos);
  const auto m = j.out.find("\"mode\":[[");  // 101 nodes of v, theta, v', theta'
  ASSERT_NE(m, std::string::npos);
  EXPECT_EQ(std::count(j.out.begin() + m + 8, j.out.end(), '['), 101);

  // the same beam as the shipped problem file: daN.cm, the dichotomy, a mode too
  RunResult z = Cli({"solve", std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK", "--json"});
  ASSERT_EQ(z.exit_code, 0) << z.err;
  EXPECT_EQ(Json_Value(z.out, "Mmax"), 1e6);
  EXPECT_EQ(Json_Value(z.out, "method"), 2);
  EXPECT_NEAR(Json_Value(z.out, "Mcr") / Mcr_Example(), 1.0, 1e-3);
  EXPECT_NE(z.out.find("\"mode\":[["), std::string::npos);
}

TEST(Cli, InvalidDataAndSolverFailures) {
  TempDir files;
  // 50 cm in 100 elements: L/N below 1 cm
  RunResult r = Cli({"solve", Save(files, "SHORT.DAT", [](auto& m) { m.Txt_L = "0.5"; })});
  EXPECT_EQ(r.exit_code, 2);
  for (const char* part : {"tab 0", "Txt_L", "L/N : "})
    EXPECT_NE(r.err.find(part), std::string::npos) << r.err;

  // no moment at all
  RunResult n = Cli({"solve", Save(files, "NOLOAD.DAT", [](auto& m) { m.Chk_M = false; }), "--json"});
  EXPECT_EQ(n.exit_code, 2);
  EXPECT_NE(n.out.find("\"error\":\"Mmax = 0 ! - "), std::string::npos) << n.out;

  zarvek::ProblemData soft = zarvek::Fork_Beam_Uniform_Moment(100);
  soft.E = 500;  // refused by the solver
  ASSERT_TRUE(zarvek::Write_ProblemFile(files / "SOFT.ZVK", soft, zarvek::ProblemLabels::Proceed));
  RunResult e = Cli({"solve", files / "SOFT.ZVK", "--json"});
  EXPECT_EQ(e.exit_code, 3);
  EXPECT_EQ(Json_Value(e.out, "status"), 103);
  EXPECT_NE(e.err.find("status 103"), std::string::npos) << e.err;
}

TEST(Cli, SectionCatalogue) {
  RunResult all = Cli({"sections"});
  ASSERT_EQ(all.exit_code, 0) << all.err;
  EXPECT_NE(("\n" + all.out).find("\nIPE 300\n"), std::string::npos);  // one name a line
  RunResult one = Cli({"section", "IPE 300"});
  ASSERT_EQ(one.exit_code, 0) << one.err;
  EXPECT_NE(one.out.find("603.78"), std::string::npos) << one.out;  // Iz, cm4
  EXPECT_NE(one.out.find("19.868"), std::string::npos) << one.out;  // It
}

}  // namespace
