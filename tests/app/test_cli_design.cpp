// The lateral-torsional buckling check of zarvek-cli: after a project's
// solve, in --json, and alone by the check command.
#include <cstdlib>
#include <functional>

#include "app_support.h"
#include "model/ProjectFile.h"

using namespace app_test;

namespace {

RunResult Cli(const std::vector<std::string>& args) {
  TempDir dir;
  RunResult r = Run_Zarvek(dir.path, args, "zarvek-cli");
  EXPECT_TRUE(fs::is_empty(dir.path)) << "a file was left where the program ran";
  return r;
}

double Json_Value(const std::string& json, const std::string& key) {
  const auto p = json.find("\"" + key + "\":");
  if (p == std::string::npos) return NAN;
  return std::strtod(json.c_str() + p + key.size() + 3, nullptr);
}

}  // namespace

// The example beam in S355 (the default): Mcr = 48.33 kN.m by the closed
// form, Wpl,y = 628.4 cm3, lambda = sqrt(628.4 x 3550 / 483303) = 2.148.
// Curve b of 6.3.2.3 gives chi = 0.2359 above the cap 1/lambda^2 = 0.2166,
// so Mb,Rd = Wy fy / lambda^2 = Mcr: the cap is the elastic critical moment
// itself. Uniform moment: kc = 1, f = 1, no further solve.
TEST(CliDesign, CheckOfTheExampleBeam) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT");
  RunResult j = Cli({"solve", dat, "--json"});
  ASSERT_EQ(j.exit_code, 0) << j.err;
  const double Mcr = Mcr_Example() / 1e4;
  EXPECT_NE(j.out.find("\"design\":{\"grade\":\"S355\""), std::string::npos) << j.out;
  EXPECT_NEAR(Json_Value(j.out, "lambdaLT"), std::sqrt(628.4 * 3550 / (Mcr * 1e4)), 5e-4);
  EXPECT_NEAR(Json_Value(j.out, "chiLT"), 1 / (2.148437 * 2.148437), 5e-4);
  EXPECT_NEAR(Json_Value(j.out, "MbRd"), Mcr, Mcr * 1e-3);
  EXPECT_EQ(Json_Value(j.out, "kc"), 1);
  EXPECT_NE(j.out.find("\"C1\":null"), std::string::npos);
  EXPECT_NEAR(Json_Value(j.out, "utilisation"), 100 / Mcr, 1e-3);

  // the check alone: its lines and the verdict, no solver figures
  RunResult c = Cli({"check", dat});
  ASSERT_EQ(c.exit_code, 0) << c.err;
  EXPECT_EQ(c.out.find("mucr"), std::string::npos) << c.out;
  EXPECT_NE(c.out.find("Mb,Rd"), std::string::npos) << c.out;
  EXPECT_NE(c.out.find("NOT sufficient"), std::string::npos) << c.out;

  // the properties route: the check says what it needs, nothing computed
  RunResult p = Cli({"check", Save(files, "PROPS.DAT", [](auto& m) {
                       m.Opt_Catalogue = false;
                       m.Opt_Properties = true;
                     }), "--json"});
  ASSERT_EQ(p.exit_code, 0) << p.err;
  EXPECT_NE(p.out.find("\"MbRd\":null"), std::string::npos) << p.out;
  EXPECT_NE(p.out.find("dimensions"), std::string::npos) << p.out;
  EXPECT_EQ(Cli({"check", std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK"}).exit_code, 2);
}

// Where C1 is needed (f asked for, a lateral restraint at mid-span): two
// further solves give it, and it is printed.
TEST(CliDesign, FurtherSolvesForC1) {
  TempDir files;
  RunResult j = Cli({"check", Save(files, "MID.DAT", [](auto& m) {
                       m.Chk_Punctual1 = true;
                       m.Txt_xfint1 = "0.5";
                       m.Lst_vi_p1 = zarvek::Restraint_Item(1);
                       m.Chk_M = true;
                       m.Txt_M1 = "0";  // psi = 0 along the beam: a triangle
                       m.Opt_M2 = true;
                     }), "--json"});
  ASSERT_EQ(j.exit_code, 0) << j.err;
  // each half carries a trapezoid, the loaded one 0.5 .. 1: C1 above 1
  const double C1 = Json_Value(j.out, "C1");
  EXPECT_GT(C1, 1.0) << j.out;
  EXPECT_NEAR(Json_Value(j.out, "kc"), 1 / std::sqrt(C1), 1e-6);
}
