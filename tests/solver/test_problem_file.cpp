// Reading problem files: every refusal has its status, and nothing a file
// holds can crash the reader.
#include <gtest/gtest.h>

#include <fstream>

#include "foundation/Language.h"
#include "solver_support.h"

using namespace zarvek;
using namespace zarvek::test;

namespace {

class ProblemFile : public ::testing::Test {
 protected:
  void SetUp() override { Set_Msg(57, "The problem file can't be read."); }

  // Reads a file with a method number that stops after assembly.
  SolverResult Read(const std::string& path) {
    SolverResult r;
    r.mucr = 42;  // must stay as passed when reading fails
    SolveControl ctl;
    Solve_Problem(path, 0, r, ctl);
    return r;
  }
  SolverResult Read(const ProblemData& p) { return Read(Write(p)); }
  SolverResult Read_Text(const std::string& text) { return Read(Write_Text(text, "T.ZVK")); }

  static ProblemData Beam() { return Fork_Beam_Uniform_Moment(50, 500.0, 1e6); }
  static std::string Text(const ProblemData& p) { return Problem_Text(p, ProblemLabels::Proceed); }

  void Expect_Refused(const SolverResult& r, int status) {
    EXPECT_EQ(r.Solve_Status, status);
    EXPECT_EQ(r.Error_Text, "The problem file can't be read.");
    EXPECT_EQ(r.mucr, 42);
  }
};

// Replaces the first occurrence of `from` at the start of a line.
std::string Replace_Line_Start(std::string text, const std::string& from, const std::string& to) {
  auto pos = text.find("\n" + from);
  EXPECT_NE(pos, std::string::npos) << from;
  if (pos != std::string::npos) text.replace(pos + 1, from.size(), to);
  return text;
}

TEST_F(ProblemFile, SizesAreCheckedWithTheirWidenedLimits) {
  for (int nb : {49, 301}) Expect_Refused(Read(Fork_Beam_Uniform_Moment(nb, 1000.0)), 102);
  for (int nb : {50, 300}) EXPECT_EQ(Read(Fork_Beam_Uniform_Moment(nb, 1000.0)).Solve_Status, 0) << nb;

  ProblemData p = Beam();
  for (double E : {999.0, 1.0002e7}) {
    p.E = E;
    p.G = E * 0.3;
    Expect_Refused(Read(p), 103);
  }
  p.E = 999.95;  // within the widening
  p.G = 400;
  EXPECT_EQ(Read(p).Solve_Status, 0);
  p = Beam();
  for (double ratio : {0.5002, 0.0999}) {
    p.G = p.E * ratio;
    Expect_Refused(Read(p), 104);
  }
  p.G = p.E * 0.5;
  EXPECT_EQ(Read(p).Solve_Status, 0);
}

TEST_F(ProblemFile, ElementFieldsAreCheckedInOrder) {
  auto with = [&](auto change) {
    ProblemData p = Beam();
    change(p);
    return Read(p);
  };
  Expect_Refused(with([](ProblemData& p) { p.L[7] = 0.5f; }), 106);
  Expect_Refused(with([](ProblemData& p) { p.L[7] = 300.1f; }), 106);
  Expect_Refused(with([](ProblemData& p) { p.Iz[3] = 0.00005f; }), 107);
  Expect_Refused(with([](ProblemData& p) { p.It[3] = 0.0005f; }), 107);
  Expect_Refused(with([](ProblemData& p) { p.Iw[3] = -1; }), 108);
  Expect_Refused(with([](ProblemData& p) { p.Betaz[3] = 150.1f; }), 120);
  Expect_Refused(with([](ProblemData& p) { p.Betaz[3] = -151; }), 120);
  Expect_Refused(with([](ProblemData& p) { p.Ktp[3] = -0.5; }), 109);
  Expect_Refused(with([](ProblemData& p) { p.Rvp[4] = -0.5; }), 110);
  // -1 (written -1.00) is the rigid code, not a negative stiffness
  EXPECT_EQ(with([](ProblemData& p) { p.Kvp[3] = -1; p.Rtp[4] = -1; }).Solve_Status, 0);
  // an index that doesn't follow its line
  std::string t = Replace_Line_Start(Text(Beam()), "  2    10.00", "  3    10.00");
  Expect_Refused(Read_Text(t), 105);
}

TEST_F(ProblemFile, MomentsAndLoadCountsAreChecked) {
  ProblemData p = Beam();
  Set_Moments(p, [](double) { return 0.0; });
  Expect_Refused(Read(p), 112);

  // moment line index: the moment lines start after the second "Elements" label
  std::string t = Text(Beam());
  auto pos = t.find("Elements : i   M1i");
  pos = t.find("\n  5", pos);
  t.replace(pos + 1, 3, "  6");
  Expect_Refused(Read_Text(t), 111);

  t = Replace_Line_Start(Text(Beam()), "0 0", "-1 0");
  Expect_Refused(Read_Text(t), 113);
  t = Replace_Line_Start(Text(Beam()), "0 0", "52 0");
  Expect_Refused(Read_Text(t), 113);
  t = Replace_Line_Start(Text(Beam()), "0 0", "0 11");
  Expect_Refused(Read_Text(t), 114);
}

ProblemData With_Span_Load(float x1, float x2) {
  ProblemData p = Fork_Beam_Uniform_Moment(50, 500.0, 1e6);
  p.NQ = 1;
  for (auto* v : {&p.q1, &p.x1, &p.q2, &p.x2, &p.zq}) v->assign(2, 0.0f);
  p.q1[1] = p.q2[1] = -10;
  p.x1[1] = x1;
  p.x2[1] = x2;
  return p;
}

ProblemData With_Point_Load(float x) {
  ProblemData p = Fork_Beam_Uniform_Moment(50, 500.0, 1e6);
  p.NF = 1;
  for (auto* v : {&p.F, &p.xF, &p.zF}) v->assign(2, 0.0f);
  p.F[1] = -10;
  p.xF[1] = x;
  return p;
}

TEST_F(ProblemFile, LoadAbscissaeAreCheckedAndSnappedToTheEnd) {
  Expect_Refused(Read(With_Span_Load(-1, 400)), 115);
  Expect_Refused(Read(With_Span_Load(200, 204)), 115);  // shorter than 1 % of 500 cm
  EXPECT_EQ(Read(With_Span_Load(200, 206)).Solve_Status, 0);
  Expect_Refused(Read(With_Span_Load(0, 520)), 116);
  // within 1 % of the end: taken as the end itself
  EXPECT_EQ(Read(With_Span_Load(0, 497.5f)).Solve_Status, 0);
  EXPECT_EQ(Read(With_Span_Load(0, 504)).Solve_Status, 0);

  EXPECT_EQ(Read(With_Point_Load(502.5f)).Solve_Status, 0);
  Expect_Refused(Read(With_Point_Load(510)), 1);
  Expect_Refused(Read(With_Point_Load(-1)), 1);
}

TEST_F(ProblemFile, NodeIndexMismatchStopsWithTheReadingStatus) {
  std::string t = Text(Beam());
  auto pos = t.find("Nodes : i");
  pos = t.find("\n  3", pos);
  t.replace(pos + 1, 3, "  4");
  Expect_Refused(Read_Text(t), 1);
}

TEST_F(ProblemFile, BrokenFilesEndInTheReadingStatus) {
  const std::string good = Text(Beam());
  Expect_Refused(Read(Scratch_Dir() + "/NO-SUCH-FILE.ZVK"), 1);
  Expect_Refused(Read_Text(""), 1);
  for (size_t cut : {10ul, good.size() / 3, good.size() / 2, good.size() - 10})
    Expect_Refused(Read_Text(good.substr(0, cut)), 1);
  // a word where a number belongs, and a missing label line
  Expect_Refused(Read_Text(Replace_Line_Start(good, "  4    10.00", "  4    ten")), 1);
  std::string t = good;
  t.erase(t.find("Nodes : i"), std::string("Nodes : i  Rvi  Rti  Rvpi  Rtpi  zi\n").size());
  EXPECT_NE(Read_Text(t).Solve_Status, 0);
  // binary noise
  std::string noise;
  for (int i = 0; i < 5000; ++i) noise += (char)((i * 7919 + 13) % 256);
  EXPECT_NE(Read_Text(noise).Solve_Status, 0);
  // overlong numbers and infinities
  Expect_Refused(Read_Text(Replace_Line_Start(good, "  4    10.00", "  4  1e999")), 1);
}

TEST_F(ProblemFile, LayoutFreedomsOfTheReader) {
  const std::string good = Text(Beam());
  // labels say what they like; commas and tabs separate as well as blanks
  std::string t = good;
  t.replace(t.find("Units : daN cm"), 14, "whatever text");
  EXPECT_EQ(Read_Text(t).Solve_Status, 0);
  std::string commas = good;
  for (auto& c : commas)
    if (c == ' ') c = ',';
  // the label lines become commas too, which the reader skips whole
  EXPECT_EQ(Read_Text(commas).Solve_Status, 0);
  std::string crlf;
  for (char c : good) {
    if (c == '\n') crlf += '\r';
    crlf += c;
  }
  EXPECT_EQ(Read_Text(crlf).Solve_Status, 0);
}

TEST_F(ProblemFile, WrittenNumbersFollowTheColumnWidths) {
  ProblemData p = Beam();
  p.Rvp[1] = -1;
  std::string t = Text(p);
  // a fixed restraint from the beam model is written as 1e30, -1 as -1.00
  EXPECT_NE(t.find("\n  1      1.000E+30      1.000E+30          -1.00           0.00      0.00\n"),
            std::string::npos);
  EXPECT_NE(t.find("\n 50    10.00      603.78       19.87      126332.0    0.00"), std::string::npos);
  EXPECT_EQ(t.substr(0, 22), std::string("Zarvek Version ") + "1.0.0\nU");
  EXPECT_NE(Problem_Text(p, ProblemLabels::SaveFileZVK).find("ZarvekVersion 1.0.0\n"), std::string::npos);
}

TEST_F(ProblemFile, MomentsGiveShearAndTheFirstLargestMoment) {
  ProblemData p = Beam();
  // equal largest magnitude at nodes 11 and 31: the first one wins
  Set_Moments(p, [](double x) { return x <= 100 ? 2e5 + 8e3 * x : (x <= 300 ? 1e6 - 0.0 * x : 0); });
  p.M1[11] = p.M2[10] = 1e6;
  SolverResult r = Read(p);
  ASSERT_EQ(r.Solve_Status, 0);
  EXPECT_DOUBLE_EQ(r.Mmax, 1e6);
  EXPECT_DOUBLE_EQ(r.xMmax, 100.0 / 500.0);
  // V = -(M2 - M1) / L, twice per element
  EXPECT_FLOAT_EQ(r.Efforts_V[1], -(2.8e5f - 2e5f) / 10);
  EXPECT_FLOAT_EQ(r.Efforts_V[2], r.Efforts_V[1]);
  EXPECT_FLOAT_EQ(r.Efforts_M[21], 1e6f);
}

}  // namespace
