// zarvek-cli as a child process in an empty directory: exit codes, bad input named, JSON, check, draw, sweep.
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>

#include "app_support.h"
#include "model/FieldTable.h"
#include "solver/Example.h"

using namespace app_test;
using zarvek::BeamModel;

namespace {

const std::string Example_ZVK = std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK";

TEST(Cli, CommandLineAndFilesThatAreNotProjects) {
  Expect_Cli({"--help"}, 0, "", "zarvek-cli solve FILE");
  for (const Args& usage : std::vector<Args>{{}, {"solve"}, {"frobnicate"}}) Expect_Cli(usage, 1);
  const RunResult o = Expect_Cli({"solve", "--bogus", "X.DAT"}, 1);
  EXPECT_EQ(o.err.rfind("zarvek-cli: unknown option --bogus\nUsage:", 0), 0u) << o.err;

  TempDir files;
  Write_All(files / "notes.txt", "hello\n");
  Write_All(files / "BROKEN.DAT", "this is not a project\n");
  // a sparse file of 11 MB: refused by its size, not read
  Write_All(files / "BIG.ZVK", "");
  ASSERT_EQ(::truncate((files / "BIG.ZVK").c_str(), 11 << 20), 0);
  const std::pair<std::string, std::string> cases[] = {{files / "MISSING.DAT", ""}, {files / "notes.txt", ""},
      {files / "BROKEN.DAT", ""}, {files.path, "a directory"}, {"/dev/zero", "not a regular file"},
      {files / "BIG.ZVK", "too large"}};
  for (const auto& [file, says] : cases) Expect_Cli({"solve", file}, 2, says);
}

TEST(Cli, ProjectProblemFileAndAnyFileNameInTextAndJson) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT");
  const auto lines = Lines_Of(Expect_Cli({"solve", dat}, 0).out);  // mucr, Mcr, Mmax, x/L, message
  ASSERT_GE(lines.size(), 5u); EXPECT_TRUE(Has(lines[1], "kN.m"));
  EXPECT_NEAR(std::strtod(lines[1].c_str() + 4, nullptr) * 1e4 / Mcr_Example(), 1.0, 1e-4);

  RunResult j = Expect_Cli({"solve", dat, "--json"}, 0, "", "\"unit_M\":\"kN.m\"");
  EXPECT_EQ(Lines_Of(j.out).size(), 1u);
  const double mucr = Json_Value(j.out, "mucr");
  EXPECT_NEAR(mucr * 1e6 / Mcr_Example(), 1.0, 1e-4);  // mucr x 100 kN.m
  EXPECT_NEAR(Json_Value(j.out, "Mcr"), mucr * 100, 1e-6 * mucr * 100); EXPECT_EQ(Json_Value(j.out, "Mmax"), 100);
  const auto m = j.out.find("\"mode\":[[");  // 101 nodes of v, theta, v', theta'
  ASSERT_NE(m, std::string::npos); EXPECT_EQ(std::count(j.out.begin() + m + 8, j.out.end(), '['), 101);

  // the same beam as the shipped problem file: daN.cm, the dichotomy, a mode too
  RunResult z = Expect_Cli({"solve", Example_ZVK, "--json"}, 0, "", "\"mode\":[[");
  EXPECT_TRUE(Json_Value(z.out, "Mmax") == 1e6 && Json_Value(z.out, "method") == 2) << z.out;
  EXPECT_NEAR(Json_Value(z.out, "Mcr") / Mcr_Example(), 1.0, 1e-3);

  // any file name gives valid JSON
  const std::string latin1 = files / "caf\xe9 \"1\".ZVK", utf8 = files / "caf\xc3\xa9.ZVK";  // Latin-1 e acute, quotes
  for (const auto& f : {latin1, utf8}) fs::copy_file(Example_ZVK, f);
  RunResult a = Expect_Cli({"solve", latin1, "--json"}, 0, "", "caf\\u00e9 \\\"1\\\".ZVK\"");
  for (unsigned char c : a.out) EXPECT_LT(c, 0x80) << a.out;
  Expect_Cli({"solve", utf8, "--json"}, 0, "", "caf\xc3\xa9.ZVK\"");  // well-formed UTF-8 passes
}

TEST(Cli, InvalidDataIsExit2AndNamed) {
  TempDir files;
  // 50 cm in 100 elements: L/N below 1 cm
  Expect_Cli({"solve", Save(files, "SHORT.DAT", [](auto& m) { m.Txt_L = "0.5"; })}, 2, "tab 0 (Beam), field Txt_L: L/N : ");
  // no moment at all; neither method
  Expect_Cli({"solve", Save(files, "NOLOAD.DAT", [](auto& m) { m.Chk_M = false; }), "--json"}, 2, "",
             "\"error\":\"Mmax = 0 ! - ");
  const std::string none = Save(files, "NONE.DAT", [](auto& m) { m.Opt_Eigen = m.Opt_Dichotomie = false; });
  EXPECT_FALSE(Has(Expect_Cli({"solve", none, "--json"}, 2, "Opt_Dichotomie").out, "\"mucr\""));

  // Found by fuzzing: a catalogue dimension of 400 digits overflowed to infinity, reaching the number writer.
  const std::string file = Save(files, "HUGE.DAT");
  std::string text = Read_All(file);
  size_t at = text.find("IPE 300\r\n");
  ASSERT_NE(at, std::string::npos);
  for (int k = 0; k < 6; ++k) at = text.find("\r\n", at) + 2;  // the sixth line after the name: Cat_h
  text.replace(at, text.find("\r\n", at) - at, std::string(400, '4'));
  Write_All(file, text);
  Expect_Cli({"solve", file}, 2, "damaged");
}

// Each number text the solve needs, in the route in use: a blank or a word ends naming the field and that it
// does not hold a number, as the main window does; each field spoilt once, bad texts in turn.
TEST(Cli, ABlankOrAWordInANumericFieldIsInvalidInput) {
  const auto route = [](BeamModel& m, const std::string& r) {
    m.Opt_Catalogue = r == "catalogue", m.Opt_Dimensions = r == "dimensions", m.Opt_Properties = r == "properties";
  };
  const std::pair<const char*, std::vector<const char*>> fields[] = {
      {"catalogue", {"Txt_Iz(1)", "Txt_It(1)", "Txt_Iw(1)", "Txt_Betaz(1)", "Txt_zS(1)", "Txt_G", "Txt_L"}},
      {"dimensions", {"Txt_h", "Txt_bf1", "Txt_tf1", "Txt_r1", "Txt_tw", "Txt_E"}},
      {"properties", {"Txt_Iz(3)", "Txt_Iw(3)", "Txt_G"}}};
  const char* const bads[] = {"", "  ", "abc", "1..2"};
  int k = 0;
  TempDir files;
  for (const auto& [r, names] : fields) {
    // each route solves the same IPE 300 as it stands
    Expect_Cli({"solve", Save(files, "R.DAT", [&, r = r](auto& m) { route(m, r); })}, 0);
    for (const char* name : names) {
      const zarvek::FieldDef* f = zarvek::Find_Field(name);
      ASSERT_TRUE(f) << name;
      const char* bad = bads[k++ % 4];
      SCOPED_TRACE(std::string(r) + " " + name + " = \"" + bad + "\"");
      const std::string file =
          Save(files, "F.DAT", [&, r = r](BeamModel& m) { route(m, r), *Text_Member(m, *f) = bad; });
      RunResult res = Expect_Cli({"solve", file, "--json"}, 2, std::string("field ") + name);
      EXPECT_TRUE(Has(res.err, "does not hold a number") && !Has(res.out, "\"mucr\"")) << res.err << res.out;
    }
  }
}

// A solve that gives no converged factor is exit 3, with the status and the message in the text and in JSON.
TEST(Cli, NoUsableResultIsExit3) {
  TempDir files;
  zarvek::ProblemData soft = zarvek::Fork_Beam_Uniform_Moment(100);
  soft.E = 500;  // refused by the solver
  ASSERT_TRUE(zarvek::Write_ProblemFile(files / "SOFT.ZVK", soft, zarvek::ProblemLabels::Proceed));
  EXPECT_EQ(Json_Value(Expect_Cli({"solve", files / "SOFT.ZVK", "--json"}, 3, "status 103").out, "status"), 103);

  // tolerance 1e-7 needs some 24 halvings after the bracket: 20 don't do
  const std::string dicho = Save(files, "LIMIT.DAT", [](auto& m) { m.Lst_Tolerance = 5, m.Lst_NbIter = 0; });
  EXPECT_TRUE(Expect_Cli({"solve", dicho}, 3, "(status 0): Iteration limit reached").out.empty());
  const std::string limit = "\"status\":0,\"message\":\"Iteration limit reached";
  EXPECT_TRUE(Has(Expect_Cli({"solve", dicho, "--json"}, 3, "", limit).out, "\"error\":"));
  // the same beam converges with 120 iterations
  Expect_Cli({"solve", Save(files, "ENOUGH.DAT", [](auto& m) { m.Lst_Tolerance = 5, m.Lst_NbIter = 4; })}, 0);

  // the vector iteration stopped by its limit: the box's text as a warning and in the JSON list, no result
  Expect_Cli({"solve", Save(files, "EIGEN.DAT", [](auto& m) {
                m.Opt_Eigen = true, m.Opt_Dichotomie = false, m.Lst_Tolerance = 5, m.Lst_NbIter = 0;
              }), "--json"},
             3, "zarvek-cli: warning: Problem of convergence\n", "\"warnings\":[\"Problem of convergence\"]");

  // 0.1 daN.cm: no buckling below a factor of 1000; Mmax as the solver read it, 0.1f: not 0.1000000015
  ASSERT_TRUE(zarvek::Write_ProblemFile(files / "TINY.ZVK", zarvek::Fork_Beam_Uniform_Moment(50, 1000.0, 0.1),
                                        zarvek::ProblemLabels::Proceed));
  EXPECT_TRUE(Has(Expect_Cli({"solve", files / "TINY.ZVK", "--json"}, 3, "", "\"Mmax\":0.1,").out,
                  "\"status\":3"));
}

TEST(Cli, SectionCatalogueInAnyCaseNearestNamesAndBadCatalogue) {
  EXPECT_TRUE(Has("\n" + Expect_Cli({"sections"}, 0).out, "\nIPE 300\n"));  // one name a line
  for (Args a : std::vector<Args>{{"IPE 300"}, {"ipe 300"}, {"IPE300"}, {"ipe", "300"}, {" Ipe  300 "}}) {
    a.insert(a.begin(), "section");
    RunResult r = Expect_Cli(a, 0);  // the name first, then Iz and It in cm4
    EXPECT_TRUE(r.out.rfind("IPE 300\n", 0) == 0 && Has(r.out, "603.78") && Has(r.out, "19.868")) << r.out;
  }
  Expect_Cli({"section", "IPE 305"}, 2, "nearest: IPE 300");
  // an empty or unreadable catalogue is an error
  TempDir inst;  // an installation of its own: the program and its catalogue
  const std::string program = inst / "zarvek-cli";
  fs::copy_file(std::string(ZARVEK_BIN_DIR) + "/zarvek-cli", program);
  for (const std::string& content : {std::string(), std::string("no catalogue here\n")}) {
    Write_All(inst / "SECTION.DB", content);
    for (const Args& args : {Args{"sections"}, Args{"section", "IPE 300"}}) {
      RunResult r = Cli(args, program);
      EXPECT_EQ(r.exit_code, 2) << args[0] << " with \"" << content << "\"";
      EXPECT_TRUE(Has(r.err, "SECTION.DB") && r.out.empty()) << r.err << r.out;
    }
  }
  ::chmod((inst / "SECTION.DB").c_str(), 0);
  EXPECT_TRUE(::geteuid() == 0 || Cli({"sections"}, program).exit_code == 2);  // root reads it all the same
}

// The example beam in S355 (the default): the check reaches the JSON with Mcr in daN.cm. For this beam the
// cap 1/lambda^2 makes Mb,Rd = Wy fy / lambda^2 = Mcr = 48.33 kN.m, so a unit lost on the way shows in Mb,Rd
// and in the utilisation 100 / Mcr (the chain is the design core's test). Uniform moment: kc = 1, no C1.
TEST(CliDesign, CheckOfTheExampleBeam) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT");
  const RunResult j = Expect_Cli({"solve", dat, "--json"}, 0, "", "\"design\":{\"grade\":\"S355\"");
  const double Mcr = Mcr_Example() / 1e4;
  EXPECT_NEAR(Json_Value(j.out, "MbRd"), Mcr, Mcr * 1e-3);
  EXPECT_TRUE(Json_Value(j.out, "kc") == 1 && Has(j.out, "\"C1\":null")) << j.out;
  EXPECT_NEAR(Json_Value(j.out, "utilisation"), 100 / Mcr, 1e-3);

  // the check alone: its lines and the verdict, no solver figures
  RunResult c = Expect_Cli({"check", dat}, 0, "", "NOT sufficient");
  EXPECT_TRUE(!Has(c.out, "mucr") && Has(c.out, "Mb,Rd")) << c.out;
  // the properties route: the check says what it needs, nothing computed
  const std::string props =
      Save(files, "PROPS.DAT", [](auto& m) { m.Opt_Catalogue = false, m.Opt_Properties = true; });
  EXPECT_TRUE(Has(Expect_Cli({"check", props, "--json"}, 0, "", "\"MbRd\":null").out, "dimensions"));
  Expect_Cli({"check", Example_ZVK}, 2);
}

// Width and height of a PNG file from its header; 0 x 0 when it is none.
std::pair<std::uint32_t, std::uint32_t> Png_Size(const std::string& file) {
  const std::string d = Read_All(file);
  if (d.size() < 24 || d.compare(1, 3, "PNG") != 0 || d.compare(12, 4, "IHDR") != 0) return {0, 0};
  auto be = [&](size_t at) { return std::uint32_t((unsigned char)d[at] << 24 | (unsigned char)d[at + 1] << 16 |
                                                  (unsigned char)d[at + 2] << 8 | (unsigned char)d[at + 3]); };
  return {be(16), be(20)};
}

TEST(CliDraw, DesignSizesProblemFileAndRefusals) {
  TempDir files;
  const std::string dat = Save(files, "BEAM.DAT");
  // twips at 15 a pixel: 7335 x 1365, 3705 x 3795, 7335 x 1755, 7335 x 2775
  const std::tuple<const char*, std::uint32_t, std::uint32_t> cases[] = {
      {"loads", 489, 91}, {"section", 247, 253}, {"forces", 489, 117}, {"mode", 489, 185}};
  for (const auto& [what, w, h] : cases) {
    const std::string out = files / (std::string(what) + ".png");
    EXPECT_EQ(Expect_Cli({"draw", dat, "--what", what, "-o", out}, 0).err, "");
    EXPECT_EQ(Png_Size(out), std::make_pair(w, h)) << what;
  }
  // SVG: the screen size in its header; the v curve drawn in 0xC00000
  Expect_Cli({"draw", dat, "--what", "mode", "-o", files / "mode.svg"}, 0);
  const std::string svg = Read_All(files / "mode.svg");
  EXPECT_TRUE(Has(svg, "width=\"489\" height=\"185\"") && Has(svg, "stroke=\"#0000c0\"")) << svg.substr(0, 300);

  // a problem file: its force and mode diagrams
  const std::string zvk = files / "BEAM.ZVK", png = files / "x.png";
  zarvek::Write_ProblemFile(zvk, zarvek::Fork_Beam_Uniform_Load(100, 1000.0, 10.0, 0.0), zarvek::ProblemLabels::Proceed);
  for (const char* what : {"forces", "mode"}) Expect_Cli({"draw", zvk, "--what", what, "-o", files / "p.svg"}, 0);
  // a problem file has no loads scheme nor section
  Expect_Cli({"draw", zvk, "--what", "section", "-o", png}, 1);

  for (const Args& args : std::vector<Args>{{"draw", dat, "--what", "pies", "-o", png},
                                            {"draw", dat, "--what", "loads", "-o", files / "x.bmp"},
                                            {"draw", dat, "--what", "loads"},
                                            {"draw", dat, "--what", "loads", "-o", png, "--scale", "0"},
                                            {"draw", "--what", "loads", "-o", png}}) {
    const std::string err = Expect_Cli(args, 1).err;
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;  // one line of usage
  }
  // a missing file, data refused by validation, a beam without moment
  const std::pair<std::string, const char*> refused[] = {
      {files / "MISSING.DAT", "loads"},
      {Save(files, "BAD.DAT", [](auto& m) { m.Txt_L = "-3"; }), "loads"},
      {Save(files, "NONE.DAT", [](auto& m) { m.Chk_M = false; }), "forces"}};
  for (const auto& [bad, what] : refused) Expect_Cli({"draw", bad, "--what", what, "-o", png}, 2);
  EXPECT_FALSE(fs::exists(png));
}

TEST(CliSweep, TableCurveAndRefusals) {
  TempDir files;
  const std::string dat = Save(files, "SPAN.DAT");
  const auto sweep = [&](const std::string& from, const std::string& to, Args more, const std::string& file = "") {
    more.insert(more.begin(), {"sweep", file.empty() ? dat : file, "--field", "Txt_L", "--from", from, "--to", to});
    return more;
  };
  // 0.5 m is below the 1 m of a 100-element beam: one row refused, named on stderr
  Expect_Cli(sweep("0.5", "10", {"--step", "2.5", "-o", files / "out.csv", "--plot", files / "out.svg", "--jobs", "2"}),
             0, "1 of 4 points not solved");
  const std::vector<std::string> rows = Lines_Of(Read_All(files / "out.csv"));
  ASSERT_EQ(rows.size(), 5u);
  // the design check of the example's IPE 300 adds its Mb,Rd
  EXPECT_EQ(rows[0], "Txt_L [m],mucr,Mcr [kN.m],status,\"Mb,Rd [kN.m]\",message");
  // the curve: an SVG document with both axis labels and their units
  const std::string svg = Read_All(files / "out.svg");
  EXPECT_TRUE(Has(svg, "<svg") && Has(svg, "Txt_L (m)") && Has(svg, "Mcr (kN.m)"));

  Args field = sweep("1", "2", {"--step", "1"});
  field[3] = "Txt_Lx";
  for (const Args& bad : {field, sweep("1", "2", {"--step", "0"}), sweep("1", "2", {}),
                          sweep("1", "2", {"--step", "1", "--plot", "x.pdf"})})
    Expect_Cli(bad, 1);
  // every point refused: no result at all, yet the table is printed
  EXPECT_EQ(Lines_Of(Expect_Cli(sweep("400", "500", {"--step", "50"}), 3).out).size(), 4u);
  Expect_Cli(sweep("1", "2", {"--step", "1"}, files / "NONE.DAT"), 2);
}

}  // namespace
