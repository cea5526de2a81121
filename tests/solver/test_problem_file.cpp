// Reading problem files: every refusal has its status, and nothing a file holds can crash the reader.
#include <algorithm>
#include <fstream>
#include <limits>

#include "solver_support.h"

using namespace zarvek;
using namespace zarvek::test;

namespace {

SolverResult Read(const ProblemData& p) { return Read_File(Write(p)); }
SolverResult Read_Text(const std::string& text) { return Read_File(Write_Text(text, "T.ZVK")); }

ProblemData Beam() { return Fork_Beam_Uniform_Moment(50, 500.0, 1e6); }
std::string Text(const ProblemData& p) { return Problem_Text(p, ProblemLabels::Proceed); }

void Expect_Refused(const SolverResult& r, int status, const std::string& what) {
  test::Expect_Refused(r, status, Unreadable, what);
}

// Replaces text at the start of the first line after `after` that begins with `from`.
std::string Edit_Line(std::string t, const std::string& after, const std::string& from, const std::string& to) {
  auto pos = t.find("\n" + from, t.find(after));
  EXPECT_NE(pos, std::string::npos) << from;
  if (pos != std::string::npos) t.replace(pos + 1, from.size(), to);
  return t;
}

ProblemData With_Loads(float xF, float x1, float x2) {
  ProblemData p = Beam();
  p.NF = xF >= -1e5 ? 1 : 0, p.NQ = x2 > 0 ? 1 : 0;  // a point load when xF is given, a span load when x2 is
  for (auto* v : {&p.F, &p.xF, &p.zF}) v->assign(p.NF + 1, -10.0f);
  for (auto* v : {&p.q1, &p.x1, &p.q2, &p.x2, &p.zq}) v->assign(p.NQ + 1, -10.0f);
  if (p.NF) p.xF[1] = xF, p.zF[1] = 0;
  if (p.NQ) p.x1[1] = x1, p.x2[1] = x2, p.zq[1] = 0;
  return p;
}

TEST(ProblemFile, EachCheckHasItsStatusAndItsWidenedLimit) {
  const struct { const char* what; void (*change)(ProblemData&); int status; /* 0: read */ } cases[] = {
      {"E 999", [](auto& p) { p.E = 999, p.G = 300; }, 103}, {"G/E 0.5", [](auto& p) { p.G = p.E / 2; }, 0},
      {"E 999.95", [](auto& p) { p.E = 999.95, p.G = 400; }, 0},
      {"G/E 0.5002", [](auto& p) { p.G = p.E * 0.5002; }, 104},
      {"L 0.5", [](auto& p) { p.L[7] = 0.5f; }, 106}, {"Iz", [](auto& p) { p.Iz[3] = 0.00005f; }, 107},
      {"Iw", [](auto& p) { p.Iw[3] = -1; }, 108}, {"Betaz", [](auto& p) { p.Betaz[3] = -151; }, 120},
      {"link", [](auto& p) { p.Ktp[3] = -0.5; }, 109}, {"restraint", [](auto& p) { p.Rvp[4] = -0.5; }, 110},
      // -1 (written -1.00) is the rigid code, not a negative stiffness
      {"rigid codes", [](auto& p) { p.Kvp[3] = -1, p.Rtp[4] = -1; }, 0}};
  for (const auto& c : cases) {
    ProblemData p = Beam();
    c.change(p);
    if (c.status == 0) EXPECT_EQ(Read(p).Solve_Status, 0) << c.what;
    else Expect_Refused(Read(p), c.status, c.what);
  }
  for (int nb : {49, 301}) Expect_Refused(Read(Fork_Beam_Uniform_Moment(nb, 1000.0)), 102, "NB");
  for (int nb : {50, 300}) EXPECT_EQ(Read(Fork_Beam_Uniform_Moment(nb, 1000.0)).Solve_Status, 0);
}

TEST(ProblemFile, IndicesCountsAndLoadAbscissae) {
  const std::string t = Text(Beam());
  Expect_Refused(Read_Text(Edit_Line(t, "Elements : i  Li", "  2", "  3")), 105, "element index");
  Expect_Refused(Read_Text(Edit_Line(t, "Elements : i   M1i", "  5", "  6")), 111, "moment index");
  // a node index out of step has no status of its own
  Expect_Refused(Read_Text(Edit_Line(t, "Nodes : i", "  3", "  4")), 1, "node index");
  Expect_Refused(Read_Text(Edit_Line(t, "NF NQ", "0 0", "52 0")), 113, "NF > NN");
  Expect_Refused(Read_Text(Edit_Line(t, "NF NQ", "0 0", "0 11")), 114, "NQ");

  // span loads: start, at least 1 % of the 500 cm beam, end within 1 % of
  // the right end taken as the end itself
  Expect_Refused(Read(With_Loads(-1e6, -1, 400)), 115, "x1 < 0");
  Expect_Refused(Read(With_Loads(-1e6, 200, 204)), 115, "too short");
  Expect_Refused(Read(With_Loads(-1e6, 0, 520)), 116, "x2 beyond");
  for (float x2 : {206.0f, 497.5f, 504.0f}) EXPECT_EQ(Read(With_Loads(-1e6, 0, x2)).Solve_Status, 0) << x2;
  // point loads: the same snapping, and no status of their own outside
  EXPECT_EQ(Read(With_Loads(502.5f, 0, 0)).Solve_Status, 0);
  for (float x : {510.0f, -1.0f}) Expect_Refused(Read(With_Loads(x, 0, 0)), 1, "point load");
}

TEST(ProblemFile, LayoutFreedomsReadAndBrokenFilesEndInTheReadingStatus) {
  const std::string good = Text(Beam());
  // labels say what they like; commas separate as well as blanks; CR LF
  std::string labels = good, commas = good, crlf;
  labels.replace(labels.find("Units : daN cm"), 14, "whatever text");
  std::replace(commas.begin(), commas.end(), ' ', ',');
  for (char c : good) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
  for (const std::string& t : {labels, commas, crlf}) EXPECT_EQ(Read_Text(t).Solve_Status, 0) << t.substr(0, 80);

  Expect_Refused(Read_File(Scratch_Dir() + "/NO-SUCH-FILE.ZVK"), 1, "missing");
  Expect_Refused(Read_Text(""), 1, "empty");
  for (size_t cut : {10ul, good.size() / 3, good.size() / 2, good.size() - 10})
    Expect_Refused(Read_Text(good.substr(0, cut)), 1, "truncated");
  // a word, an overflow; a length beyond the range of its single-precision field
  // is no number of it, nor is a restraint height (which has no check of its own)
  for (const char* L4 : {"  4      ten", "  4    1e999", "  4     1e39"})
    Expect_Refused(Read_Text(Edit_Line(good, "Elements", "  4       10", L4)), 1, L4);
  const std::string node2 = "  2              0              0              0              0         0";
  Expect_Refused(Read_Text(Edit_Line(good, "Nodes", node2, "  2 0 0 0 0 4e38")), 1, "height overflow");
  EXPECT_EQ(Read_Text(Edit_Line(good, "Nodes", node2, "  2 0 0 0 0 3e38")).Solve_Status, 0);
  const std::string no_label = Edit_Line(good, "Elements", "Nodes : i  Rvi  Rti  Rvpi  Rtpi  zi\n", "");
  EXPECT_NE(Read_Text(no_label).Solve_Status, 0) << "a missing label line";
  std::string noise;
  for (int i = 0; i < 5000; ++i) noise += (char)((i * 7919 + 13) % 256);
  EXPECT_NE(Read_Text(noise).Solve_Status, 0);
}

// The old files, written with a fixed number of decimals, still read: the
// same beam in both forms gives the same factor.
TEST(ProblemFile, OldFixedDecimalsReadAsTheNewDigits) {
  std::string t = "Zarvek Version 1.0.0\nUnits : daN cm\nNb Elements   E   G\n50        2100000         807690\n"
                  "Elements : i  Li  Izi  Iti  Iwi  Betazi  Kti  Kvpi  Ktpi\n";
  char b[200];
  auto add = [&](const char* f, int n, const char* x = "") { std::snprintf(b, 200, f, n, x, x), t += b; };
  for (int n = 1; n <= 50; ++n)
    add("%3d    10.00      603.78       19.87      126332.0    0.00         -1.00         -1.00         -1.00\n", n);
  t += "Nodes : i  Rvi  Rti  Rvpi  Rtpi  zi\n";
  for (int n = 1; n <= 51; ++n)
    add("%3d      %s      %s           0.00           0.00      0.00\n", n, n == 1 || n == 51 ? "1.000E+30" : "     0.00");
  t += "Elements : i   M1i   M2i\n";
  for (int n = 1; n <= 50; ++n) add("%3d     1000000.0     1000000.0\n", n);
  const double old_read = Solve_File(Write_Text(t + "Member Loads\nNF NQ\n0 0\n", "OLD.ZVK"), Method_Dichotomie).res.mucr;
  ProblemData p = Beam();
  for (int n = 1; n <= 50; ++n) p.It[n] = 19.87;
  EXPECT_DOUBLE_EQ(old_read, Solve(p, Method_Dichotomie).res.mucr);
}

// Each field keeps its width, at least one blank before it, and the digits
// of its value: a rigid code is -1, a fixed degree of the beam model 1E+30.
TEST(ProblemFile, WrittenNumbersKeepTheirColumnsAndTheirDigits) {
  ProblemData p = Beam();
  p.Rvp[1] = -1, p.L[1] = 201.0 / 200, p.It[1] = 0.692;
  p.Iw[1] = 2345678.9;    // 9 digits as given: read back as the same float
  p.Iw[2] = 1.0 / 3.0;    // computed: the 9 digits of its float
  p.Rv[2] = 12345678.125; // a double field keeps every digit
  p.Rt[2] = 0.1 + 0.2;    // 0.30000000000000004, the double it is
  p.Rt[3] = 2e11;         // 200000000000 fills its 15 columns
  p.Rvp[3] = -1.0 / 3.0;  // 19 characters in a field of 15
  const std::string t = Text(p);
  for (const char* line :
       {"\n  1          1E+30          1E+30             -1              0         0\n",
        "\n  1    1.005      603.78       0.692     2345678.9       0            -1            -1            -1\n",
        "\n  2       10      603.78      19.868    0.33333334       0",
        "\n  2   12345678.125 0.30000000000000004              0              0         0\n",
        "\n  3              0   200000000000 -0.3333333333333333              0         0\n"})
    EXPECT_NE(t.find(line), std::string::npos) << line << "\n" << t.substr(0, 700);
  EXPECT_EQ(t.substr(0, 21), std::string("Zarvek Version 1.0.0\n"));
  // a value no reader can take back is never written
  const std::string inf = Scratch_Dir() + "/INF.ZVK";
  p.Iz[3] = 1e39;  // beyond a float
  EXPECT_FALSE(Write_ProblemFile(inf, p, ProblemLabels::Proceed));
  p.Iz[3] = 603.78, p.Rv[3] = std::numeric_limits<double>::infinity();
  EXPECT_FALSE(Write_ProblemFile(inf, p, ProblemLabels::Proceed));
  EXPECT_FALSE(std::ifstream(inf).good());
}

TEST(ProblemFile, MomentsGiveShearAndTheFirstLargestMoment) {
  ProblemData p = Beam();
  // the same largest magnitude from node 11 (x = 100) to node 31: the first wins
  Set_Moments(p, [](double x) { return x <= 100 ? 2e5 + 8e3 * x : (x <= 300 ? 1e6 : 0); });
  SolverResult r = Read(p);
  ASSERT_EQ(r.Solve_Status, 0); EXPECT_DOUBLE_EQ(r.Mmax, 1e6);
  EXPECT_DOUBLE_EQ(r.xMmax, 100.0 / 500.0);
  // V = -(M2 - M1) / L, twice per element
  EXPECT_FLOAT_EQ(r.Efforts_V[1], -(2.8e5f - 2e5f) / 10);
}

// Values that fill their column (an end spring of 2e11, as good as a fork) or pass it (E and G of sixteen
// digits) still read as two numbers: the solve is that of the same beam with ordinary values.
TEST(ProblemFile, AFieldThatFillsItsWidthStaysApartFromItsNeighbour) {
  const double reference = Solve(Beam(), Method_Dichotomie).res.mucr;
  ASSERT_GT(reference, 0);
  ProblemData springs = Beam(), digits = Beam();
  springs.Rt[1] = springs.Rt[springs.NN()] = 2e11;
  digits.E = 2100000.000012345, digits.G = 807690.0000123456;
  for (const ProblemData& p : {springs, digits})
    EXPECT_NEAR(Solve(p, Method_Dichotomie).res.mucr / reference, 1.0, 1e-5) << Text(p).substr(0, 400);
}

// A load at the right end belongs to the last element, whatever the mesh: the tip load of a 10 m
// cantilever, 15 cm above the shear centre, destabilises it as much with 150 elements of 6.667 cm (whose
// sum in single precision passes 1000 cm by 0.001 cm) as with 100 of 10 cm.
TEST(ProblemFile, ATipLoadStaysOnTheLastElementOfAnyMesh) {
  auto mucr = [](int nb, double z) {
    return Solve(Cantilever(nb, 1000, 1000, Iw, z), Method_Dichotomie).res.mucr;
  };
  const double top150 = mucr(150, 15);
  EXPECT_LT(top150, 0.9 * mucr(150, 0));  // a load above the shear centre lowers the factor
  EXPECT_NEAR(top150 / mucr(100, 15), 1.0, 2e-3);
}

}  // namespace
