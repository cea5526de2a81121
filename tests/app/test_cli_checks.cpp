// zarvek-cli's honesty: an exit code of 0 only with a usable critical
// moment, invalid input named as such, and output that any reader can take.
#include <sys/stat.h>

#include <cstdlib>
#include <functional>
#include <map>

#include "app_support.h"
#include "solver/Example.h"

using namespace app_test;

namespace {

RunResult Cli(const std::vector<std::string>& args, const std::string& program = "zarvek-cli") {
  TempDir dir;
  return Run_Zarvek(dir.path, args, program);
}

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }


TEST(CliCommandLine, OptionsAndFilesThatAreNotFilesNameThemselves) {
  RunResult o = Cli({"solve", "--bogus", "X.DAT"});
  EXPECT_EQ(o.exit_code, 1);
  EXPECT_EQ(o.err.rfind("zarvek-cli: unknown option --bogus\nUsage:", 0), 0u) << o.err;
  EXPECT_TRUE(Has(Cli({"--jsn"}).err, "unknown option --jsn"));
  EXPECT_TRUE(Has(Cli({"sections", "--all"}).err, "unknown option --all"));

  TempDir files;
  const struct {
    std::string file, says;
  } cases[] = {{files.path, "a directory"}, {"/dev/null", "not a regular file"}, {"/dev/zero", "not a regular file"}};
  for (const auto& c : cases) {
    RunResult r = Cli({"solve", c.file});
    EXPECT_EQ(r.exit_code, 2) << c.file;
    EXPECT_TRUE(Has(r.err, c.says)) << r.err;
  }
  // a sparse file of 11 MB: refused by its size, not read
  const std::string big = files / "BIG.ZVK";
  Write_All(big, "");
  ASSERT_EQ(::truncate(big.c_str(), 11 << 20), 0);
  RunResult b = Cli({"solve", big});
  EXPECT_EQ(b.exit_code, 2);
  EXPECT_TRUE(Has(b.err, "too large")) << b.err;
}

// Every number text the solve of a project needs, in the section route in
// use: a blank or a word there ends with the message of a field that does
// not hold a number and the field's name, as the main window ends it.
TEST(CliProject, ABlankOrAWordInANumericFieldIsInvalidInput) {
  using M = zarvek::BeamModel;
  struct Field {
    const char* route;
    const char* name;
    std::function<std::string&(M&)> text;
  };
  const auto catalogue = [](M& m) { m.Opt_Catalogue = true, m.Opt_Dimensions = m.Opt_Properties = false; };
  const auto dimensions = [](M& m) { m.Opt_Dimensions = true, m.Opt_Catalogue = m.Opt_Properties = false; };
  const auto properties = [](M& m) { m.Opt_Properties = true, m.Opt_Catalogue = m.Opt_Dimensions = false; };
  const std::map<std::string, std::function<void(M&)>> routes = {
      {"catalogue", catalogue}, {"dimensions", dimensions}, {"properties", properties}};
  const std::vector<Field> fields = {
      {"catalogue", "Txt_Iz(1)", [](M& m) -> std::string& { return m.Txt_Iz[1]; }},
      {"catalogue", "Txt_It(1)", [](M& m) -> std::string& { return m.Txt_It[1]; }},
      {"catalogue", "Txt_Iw(1)", [](M& m) -> std::string& { return m.Txt_Iw[1]; }},
      {"catalogue", "Txt_Betaz(1)", [](M& m) -> std::string& { return m.Txt_Betaz[1]; }},
      {"catalogue", "Txt_zS(1)", [](M& m) -> std::string& { return m.Txt_zS[1]; }},
      {"dimensions", "Txt_h", [](M& m) -> std::string& { return m.Txt_h; }},
      {"dimensions", "Txt_bf1", [](M& m) -> std::string& { return m.Txt_bf1; }},
      {"dimensions", "Txt_tf1", [](M& m) -> std::string& { return m.Txt_tf1; }},
      {"dimensions", "Txt_r1", [](M& m) -> std::string& { return m.Txt_r1; }},
      {"dimensions", "Txt_tw", [](M& m) -> std::string& { return m.Txt_tw; }},
      {"properties", "Txt_Iz(3)", [](M& m) -> std::string& { return m.Txt_Iz[3]; }},
      {"properties", "Txt_Iw(3)", [](M& m) -> std::string& { return m.Txt_Iw[3]; }},
      {"properties", "Txt_G", [](M& m) -> std::string& { return m.Txt_G; }},
      {"catalogue", "Txt_G", [](M& m) -> std::string& { return m.Txt_G; }},
      {"dimensions", "Txt_E", [](M& m) -> std::string& { return m.Txt_E; }},
      {"catalogue", "Txt_L", [](M& m) -> std::string& { return m.Txt_L; }},
  };
  TempDir files;
  // each route solves the same IPE 300 as it stands
  for (const auto& [route, set] : routes) {
    RunResult r = Cli({"solve", Save(files, route + ".DAT", set)});
    EXPECT_EQ(r.exit_code, 0) << route << ": " << r.err;
  }
  for (const Field& f : fields)
    for (const char* bad : {"", "  ", "abc", "1..2"}) {
      const std::string file = Save(files, "F.DAT", [&](M& m) {
        routes.at(f.route)(m);
        f.text(m) = bad;
      });
      RunResult r = Cli({"solve", file, "--json"});
      EXPECT_EQ(r.exit_code, 2) << f.route << " " << f.name << " = \"" << bad << "\"\n" << r.out;
      EXPECT_TRUE(Has(r.err, std::string("field ") + f.name)) << f.name << ": " << r.err;
      EXPECT_TRUE(Has(r.err, "does not hold a number")) << f.name << ": " << r.err;
      EXPECT_FALSE(Has(r.out, "\"mucr\"")) << r.out;
    }
}

// Found by fuzzing: a catalogue dimension of four hundred digits overflowed
// to infinity on reading and reached the writer of number texts.
TEST(CliProject, ANumberBeyondTheRangeOfADoubleIsADamagedFile) {
  TempDir files;
  const std::string file = Save(files, "HUGE.DAT");
  std::string text = Read_All(file);
  const auto p = text.find("IPE 300\r\n");
  ASSERT_NE(p, std::string::npos);
  // the sixth line after the profile's name: Cat_h
  size_t at = p;
  for (int k = 0; k < 6; ++k) at = text.find("\r\n", at) + 2;
  text.replace(at, text.find("\r\n", at) - at, std::string(400, '4'));
  Write_All(file, text);
  RunResult r = Cli({"solve", file});
  EXPECT_EQ(r.exit_code, 2) << r.out;
  EXPECT_TRUE(Has(r.err, "damaged")) << r.err;
}

TEST(CliProject, NeitherMethodIsInvalidInput) {
  TempDir files;
  RunResult r = Cli({"solve", Save(files, "NONE.DAT", [](auto& m) { m.Opt_Eigen = m.Opt_Dichotomie = false; }),
                     "--json"});
  EXPECT_EQ(r.exit_code, 2);
  EXPECT_TRUE(Has(r.err, "Opt_Dichotomie")) << r.err;
  EXPECT_FALSE(Has(r.out, "\"mucr\"")) << r.out;
}

// A solve that gives no converged factor is exit 3, with the status and the
// message in the text and in JSON.
TEST(CliProject, NoUsableResultIsExit3) {
  TempDir files;
  // tolerance 1e-7 needs some 24 halvings after the bracket: 20 don't do
  const std::string dicho = Save(files, "LIMIT.DAT", [](auto& m) {
    m.Lst_Tolerance = 5;
    m.Lst_NbIter = 0;
  });
  RunResult t = Cli({"solve", dicho});
  EXPECT_EQ(t.exit_code, 3) << t.out;
  EXPECT_TRUE(Has(t.err, "status 0")) << t.err;
  EXPECT_TRUE(Has(t.err, "Iteration limit reached")) << t.err;
  EXPECT_TRUE(t.out.empty()) << t.out;
  RunResult j = Cli({"solve", dicho, "--json"});
  EXPECT_EQ(j.exit_code, 3);
  EXPECT_TRUE(Has(j.out, "\"status\":0,\"message\":\"Iteration limit reached")) << j.out;
  EXPECT_TRUE(Has(j.out, "\"error\":")) << j.out;

  // the same beam converges with 120 iterations
  RunResult ok = Cli({"solve", Save(files, "ENOUGH.DAT", [](auto& m) {
                        m.Lst_Tolerance = 5;
                        m.Lst_NbIter = 4;
                      })});
  EXPECT_EQ(ok.exit_code, 0) << ok.err;

  // the vector iteration stopped by its limit: the box's text as a warning
  // line and in the JSON list, and no result
  RunResult e = Cli({"solve", Save(files, "EIGEN.DAT", [](auto& m) {
                       m.Opt_Eigen = true;
                       m.Opt_Dichotomie = false;
                       m.Lst_Tolerance = 5;
                       m.Lst_NbIter = 0;
                     }),
                     "--json"});
  EXPECT_EQ(e.exit_code, 3) << e.out;
  EXPECT_TRUE(Has(e.err, "zarvek-cli: warning: Problem of convergence\n")) << e.err;
  EXPECT_TRUE(Has(e.out, "\"warnings\":[\"Problem of convergence\"]")) << e.out;
}

TEST(CliProblemFile, NoFactorIsExit3AndSinglePrecisionPrintsItsOwnDigits) {
  TempDir files;
  // 0.1 daN.cm: the beam does not buckle below a factor of 1000
  zarvek::ProblemData p = zarvek::Fork_Beam_Uniform_Moment(50, 1000.0, 0.1);
  ASSERT_TRUE(zarvek::Write_ProblemFile(files / "TINY.ZVK", p, zarvek::ProblemLabels::Proceed));
  RunResult r = Cli({"solve", files / "TINY.ZVK", "--json"});
  EXPECT_EQ(r.exit_code, 3);
  EXPECT_TRUE(Has(r.out, "\"status\":3")) << r.out;
  // the moment as the solver read it, a single-precision 0.1: not 0.1000000015
  EXPECT_TRUE(Has(r.out, "\"Mmax\":0.1,")) << r.out;
}

TEST(CliJson, AnyFileNameGivesValidJson) {
  TempDir files;
  const std::string latin1 = files / "caf\xe9 \"1\".ZVK";  // Latin-1 e acute and quotes
  const std::string utf8 = files / "caf\xc3\xa9.ZVK";
  for (const auto& f : {latin1, utf8})
    fs::copy_file(std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK", f);
  RunResult a = Cli({"solve", latin1, "--json"});
  ASSERT_EQ(a.exit_code, 0) << a.err;
  EXPECT_TRUE(Has(a.out, "caf\\u00e9 \\\"1\\\".ZVK\"")) << a.out;
  for (unsigned char c : a.out) EXPECT_LT(c, 0x80) << a.out;
  RunResult u = Cli({"solve", utf8, "--json"});
  EXPECT_TRUE(Has(u.out, "caf\xc3\xa9.ZVK\"")) << u.out;  // well-formed UTF-8 passes
}

TEST(CliSection, AnyCaseWithOrWithoutTheBlankAndNearestNames) {
  for (const std::vector<std::string>& name :
       std::vector<std::vector<std::string>>{{"IPE 300"}, {"ipe 300"}, {"IPE300"}, {"ipe", "300"}, {" Ipe  300 "}}) {
    RunResult r = Cli([&] {
      std::vector<std::string> a{"section"};
      a.insert(a.end(), name.begin(), name.end());
      return a;
    }());
    EXPECT_EQ(r.exit_code, 0) << name[0] << ": " << r.err;
    EXPECT_EQ(r.out.rfind("IPE 300\n", 0), 0u) << r.out;
  }
  RunResult n = Cli({"section", "IPE 305"});
  EXPECT_EQ(n.exit_code, 2);
  EXPECT_TRUE(Has(n.err, "nearest: IPE 300")) << n.err;
  RunResult u = Cli({"section", "UB 457x191x6"});
  EXPECT_TRUE(Has(u.err, "UB 457x191x67")) << u.err;
}

TEST(CliSection, AnEmptyOrUnreadableCatalogueIsAnError) {
  TempDir inst;  // an installation of its own: the program and its catalogue
  const std::string program = inst / "zarvek-cli";
  fs::copy_file(std::string(ZARVEK_BIN_DIR) + "/zarvek-cli", program);
  for (const std::string& content : {std::string(), std::string("no catalogue here\n")}) {
    Write_All(inst / "SECTION.DB", content);
    for (const std::vector<std::string>& args : {std::vector<std::string>{"sections"}, {"section", "IPE 300"}}) {
      RunResult r = Cli(args, program);
      EXPECT_EQ(r.exit_code, 2) << args[0] << " with \"" << content << "\"";
      EXPECT_TRUE(Has(r.err, "SECTION.DB")) << r.err;
      EXPECT_TRUE(r.out.empty()) << r.out;
    }
  }
  ::chmod((inst / "SECTION.DB").c_str(), 0);
  if (::geteuid() != 0) {
    EXPECT_EQ(Cli({"sections"}, program).exit_code, 2);
  }
}

}  // namespace
