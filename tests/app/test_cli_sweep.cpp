// zarvek-cli sweep: the table and the curve of a span sweep, the exit codes.
#include <cmath>

#include "app_support.h"
#include "model/ProjectFile.h"

using namespace app_test;

namespace {

std::string Example_Project(const TempDir& d) {
  zarvek::BeamModel m;
  zarvek::Init_Default(m, "/tmp");  // IPE 300, 10 m, fork supports, 100 kN.m
  EXPECT_TRUE(zarvek::Save_FileDAT(m, d / "SPAN.DAT"));
  return d / "SPAN.DAT";
}

// Fork-supported IPE 300 of L cm under uniform moment, daN.cm.
double Mcr_Uniform(double L) {
  const double pi = std::numbers::pi, E = 2.1e6, G = 807690, Iz = 603.78, It = 19.868, Iw = 126332;
  return pi / L * std::sqrt(E * Iz * G * It) * std::sqrt(1 + pi * pi * E * Iw / (L * L * G * It));
}

TEST(CliSweep, TableAndCurveOfTheSpan) {
  TempDir files, run;
  const std::string dat = Example_Project(files);
  RunResult r = Run_Zarvek(run.path,
                           {"sweep", dat, "--field", "Txt_L", "--from", "0.5", "--to", "10", "--step", "2.5", "-o",
                            files / "out.csv", "--plot", files / "out.svg", "--jobs", "2"},
                           "zarvek-cli");
  EXPECT_EQ(r.exit_code, 0) << r.err;
  // 0.5 m is below the 1 m of a 100-element beam: one row refused, named on stderr
  EXPECT_NE(r.err.find("1 of 4 points not solved"), std::string::npos) << r.err;
  const std::vector<std::string> rows = Lines_Of(Read_All(files / "out.csv"));
  ASSERT_EQ(rows.size(), 5u);
  // the design check of the example's IPE 300 adds its Mb,Rd
  EXPECT_EQ(rows[0], "Txt_L [m],mucr,Mcr [kN.m],status,\"Mb,Rd [kN.m]\",message");
  EXPECT_EQ(rows[1].rfind("0.5,,,-1,", 0), 0u) << rows[1];
  const double spans[3] = {3, 5.5, 8};
  for (int i = 0; i < 3; ++i) {
    double value = 0, mucr = 0, Mcr = 0;
    int status = -9;
    ASSERT_EQ(std::sscanf(rows[i + 2].c_str(), "%lf,%lf,%lf,%d", &value, &mucr, &Mcr, &status), 4) << rows[i + 2];
    EXPECT_EQ(value, spans[i]);
    EXPECT_EQ(status, 0);
    // kN.m -> daN.cm: x 10^4
    EXPECT_NEAR(Mcr * 1e4 / Mcr_Uniform(spans[i] * 100), 1.0, 2e-4) << rows[i + 2];
  }
  // the curve: an SVG document with both axis labels and their units
  const std::string svg = Read_All(files / "out.svg");
  EXPECT_NE(svg.find("<svg"), std::string::npos);
  EXPECT_NE(svg.find("Txt_L (m)"), std::string::npos);
  EXPECT_NE(svg.find("Mcr (kN.m)"), std::string::npos);
}

TEST(CliSweep, RefusalsAndExitCodes) {
  TempDir files, run;
  const std::string dat = Example_Project(files);
  const auto sweep = [&](std::vector<std::string> extra) {
    std::vector<std::string> a = {"sweep", dat};
    a.insert(a.end(), extra.begin(), extra.end());
    return Run_Zarvek(run.path, a, "zarvek-cli");
  };
  EXPECT_EQ(sweep({"--field", "Txt_Lx", "--from", "1", "--to", "2", "--step", "1"}).exit_code, 1);
  EXPECT_EQ(sweep({"--field", "Txt_L", "--from", "1", "--to", "2", "--step", "0"}).exit_code, 1);
  EXPECT_EQ(sweep({"--field", "Txt_L", "--from", "1", "--to", "2"}).exit_code, 1);
  EXPECT_EQ(sweep({"--field", "Txt_L", "--from", "1", "--to", "2", "--step", "1", "--plot", "x.pdf"}).exit_code, 1);
  // every point refused: no result at all, yet the table is printed
  RunResult none = sweep({"--field", "Txt_L", "--from", "400", "--to", "500", "--step", "50"});
  EXPECT_EQ(none.exit_code, 3);
  EXPECT_EQ(Lines_Of(none.out).size(), 4u);
  EXPECT_EQ(Run_Zarvek(run.path, {"sweep", files / "NONE.DAT", "--field", "Txt_L", "--from", "1", "--to", "2",
                                  "--step", "1"},
                       "zarvek-cli")
                .exit_code,
            2);
}

}  // namespace
