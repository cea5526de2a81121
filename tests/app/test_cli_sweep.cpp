// zarvek-cli sweep: the table and the curve of a span sweep, the exit codes.
#include "app_support.h"

using namespace app_test;

namespace {

TEST(CliSweep, TableAndCurveOfTheSpan) {
  TempDir files;
  const std::string dat = Save(files, "SPAN.DAT");
  RunResult r = Cli({"sweep", dat, "--field", "Txt_L", "--from", "0.5", "--to", "10", "--step", "2.5", "-o",
                     files / "out.csv", "--plot", files / "out.svg", "--jobs", "2"});
  EXPECT_EQ(r.exit_code, 0) << r.err;
  // 0.5 m is below the 1 m of a 100-element beam: one row refused, named on stderr
  EXPECT_TRUE(Has(r.err, "1 of 4 points not solved")) << r.err;
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
    EXPECT_NEAR(Mcr * 1e4 / Mcr_Example(spans[i] * 100), 1.0, 2e-4) << rows[i + 2];  // kN.m -> daN.cm
  }
  // the curve: an SVG document with both axis labels and their units
  const std::string svg = Read_All(files / "out.svg");
  EXPECT_TRUE(Has(svg, "<svg") && Has(svg, "Txt_L (m)") && Has(svg, "Mcr (kN.m)"));
}

TEST(CliSweep, RefusalsAndExitCodes) {
  TempDir files;
  const std::string dat = Save(files, "SPAN.DAT");
  const auto sweep = [&](Args extra, const std::string& file = "") {
    Args a = {"sweep", file.empty() ? dat : file};
    a.insert(a.end(), extra.begin(), extra.end());
    return Cli(a);
  };
  for (const Args& bad : std::vector<Args>{{"--field", "Txt_Lx", "--from", "1", "--to", "2", "--step", "1"},
                                           {"--field", "Txt_L", "--from", "1", "--to", "2", "--step", "0"},
                                           {"--field", "Txt_L", "--from", "1", "--to", "2"},
                                           {"--field", "Txt_L", "--from", "1", "--to", "2", "--step", "1", "--plot", "x.pdf"}})
    EXPECT_EQ(sweep(bad).exit_code, 1) << bad.size();
  // every point refused: no result at all, yet the table is printed
  RunResult none = sweep({"--field", "Txt_L", "--from", "400", "--to", "500", "--step", "50"});
  EXPECT_EQ(none.exit_code, 3);
  EXPECT_EQ(Lines_Of(none.out).size(), 4u);
  EXPECT_EQ(sweep({"--field", "Txt_L", "--from", "1", "--to", "2", "--step", "1"}, files / "NONE.DAT").exit_code, 2);
}

}  // namespace
