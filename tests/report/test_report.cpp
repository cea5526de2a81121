// The results report of a project, read back from its RTF.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/DataEntry.h"
#include "report/Report.h"
#include "rtf_reader.h"
#include "solved_model.h"

namespace zarvek {
namespace {

// Each diagram a picture of its own width: beam 401, section 402, forces 403, mode 404 pixels.
Report_Picture Fake_Picture(Report_PictureKind k) { return Make_Picture(rtf_test::Png_Of(401 + (int)k, 50)); }

using report_test::Default_Model;

BeamModel Solved_Model() { BeamModel m = Default_Model(); EXPECT_EQ(report_test::Solve(m), ""); return m; }

Rich_Document Document_Of(const BeamModel& m, const std::string& code = "UK", bool pictures = true) {
  Report_Inputs in;
  in.Language_Code = code;
  in.When.tm_year = 126, in.When.tm_mon = 10, in.When.tm_mday = 23, in.When.tm_hour = 5, in.When.tm_min = 7;
  if (pictures) in.Pictures = Fake_Picture;
  Rich_Text rt = Report_Builder();
  Edit_Results(rt, m, in);
  return rt.Document();
}

rtf_test::Rtf_Content Report_Of(const BeamModel& m, const std::string& code = "UK", bool pictures = true) {
  const rtf_test::Rtf_Content c = rtf_test::Read_Rtf(Rtf_Of(Document_Of(m, code, pictures)));
  EXPECT_TRUE(c.well_formed);
  return c;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> out;
  std::istringstream in(text);
  for (std::string l; std::getline(in, l);) out.push_back(l);
  return out;
}

// Index of the first line from `from` on that equals `line`; -1 when none.
int Find_Line(const std::vector<std::string>& lines, const std::string& line, int from = 0) {
  const auto it = std::find(lines.begin() + from, lines.end(), line);
  return it == lines.end() ? -1 : int(it - lines.begin());
}

std::vector<long> Pictures_Of(const rtf_test::Rtf_Content& c) {  // their widths tell the diagrams apart
  std::vector<long> widths;
  for (const auto& p : c.pictures) widths.push_back(p.picw);
  return widths;
}

bool Has(const std::string& text, const std::string& what) { return text.find(what) != std::string::npos; }

const std::string theta = "\xCE\xB8", psi = "\xCF\x88", mu = "\xCE\xBC",
                  epsilon = "\xCE\xB5", prime = "\xE2\x80\xB2";

TEST(Report, SolvedProjectInOrder) {
  const BeamModel m = Solved_Model();
  const rtf_test::Rtf_Content c = Report_Of(m);
  const std::vector<std::string> lines = Lines(c.text);

  // every block in its order, each row with its value and unit
  const std::vector<std::string> expected = {
      "NORVE\t11-23-2026  05:07", "Results report", std::string("Zarvek Version ") + Version_Text(),
      "\tBeam", "\tLength L\tL\t=\t10\tm", "\tNumber of elements N\tN\t=\t100\t",
      "\tSteel", "\tYoung's modulus E\tE\t=\t210000\tMPa", "\tShear modulus G\tG\t=\t80769\tMPa",
      "\tSection - IPE 300", "\t\tIz\t=\t603.78\tcm4", "\t\t\xCE\xB2z\t=\t0\tcm",
      "\tEnd 1 (left)", "\tLateral displacement v\tv\t=\tFixed\t", "\tTwist\t" + theta + "\t=\tFixed\t",
      "\tWarping\t" + theta + prime + "\t=\tFree\t", "\tEnd 2 (right)",
      "\tLoads", "\tIn-plane supports\t\t=\tSimply supported (hinged - hinged)\t",
      "\tEnd moments", "\t\tM1\t=\t-100\tkN.m", "\t\tM2\t=\t100\tkN.m", "\t(-M2/M1)\t" + psi + "\t=\t1\t",
      "\tBending moment M and shear force V", "\t M   V  ",
      "\tEigenvalue solving process", "\tConvergence tolerance\t" + epsilon + "\t=\t0.0001\t",
      "\tCritical moment", "\tBuckling mode", "\t v   " + theta + "   v'   " + theta + prime + "  ",
      "___________________"};
  int at = 0;
  for (const auto& e : expected) {
    const int found = Find_Line(lines, e, at);
    ASSERT_GE(found, 0) << "missing or out of order: [" << e << "]\n" << c.text;
    at = found + 1;
  }
  // nothing is written twice
  for (const char* t : {"\tBeam", "\tBuckling mode"}) EXPECT_EQ(Find_Line(lines, t, Find_Line(lines, t) + 1), -1) << t;

  // the result rows in the units shown: 100 kN.m end moments; the solved record's Mcr and mucr
  EXPECT_TRUE(Has(c.text, "\tMmax\t=\t100\t") || Has(c.text, "\tMmax\t=\t-100\t")) << c.text;
  EXPECT_TRUE(Has(c.text, "\t" + mu + "\t=\t" + m.Txt_mucr + "\t")) << c.text;
  EXPECT_NE(Find_Line(lines, "\tCritical moment Mcr\tMcr\t=\t" + m.Txt_Mcr + "\tkN.m"), -1);

  // the four pictures, as PNG, in the order beam, section, forces, mode
  EXPECT_EQ(Pictures_Of(c), (std::vector<long>{401, 402, 403, 404}));
  for (const auto& p : c.pictures) EXPECT_EQ(p.type, "pngblip");
}

TEST(Report, BlocksOfResultsNeedTheirResults) {
  BeamModel m = Solved_Model();
  for (const bool forces : {true, false}) {  // data changed after the forces were drawn; no solve done
    BeamModel w = m;
    InitProcessInfo(w);
    if (!forces) InitEffortsInfo(w);
    const rtf_test::Rtf_Content c = Report_Of(w);
    const auto lines = Lines(c.text);
    for (const char* t : {"\tEigenvalue solving process", "\tBuckling mode", "\tMcr\t"})
      EXPECT_FALSE(Has(c.text, t)) << forces << t;
    EXPECT_EQ(Find_Line(lines, "\tBending moment M and shear force V") >= 0, forces);
    EXPECT_EQ(Has(c.text, "\tMmax\t"), forces);
    // the data blocks and the closing line are always there
    for (const char* t : {"\tBeam", "\tEnd moments", "___________________"})
      EXPECT_GE(Find_Line(lines, t), 0) << forces << " " << t;
    EXPECT_EQ(Pictures_Of(c), (forces ? std::vector<long>{401, 402, 403} : std::vector<long>{401, 402}));
  }
  // without a picture source the report is whole, without pictures
  EXPECT_TRUE(Report_Of(m, "UK", false).pictures.empty());
}

TEST(Report, RowsFollowTheEntries) {
  const struct { const char* name; void (*set)(BeamModel&); std::vector<std::string> present, absent; } cases[] = {
      {"punctual restraint 2 with a spring",
       [](BeamModel& m) { m.Chk_Punctual2 = true, m.Txt_xfint2 = "0.25", m.Lst_vi_p2 = {-1, "12.5", true}; },
       {"\tIntermediate restraint 2", "\tPosition x/L\tx/L\t=\t0.25\t",
        "\tLateral displacement v\tv\t=\t12.5\tkN/m"},
       {"\tIntermediate restraint 1"}},
      {"point loads 1 and 3, a point moment, distributed load 2",
       [](BeamModel& m) {
         m.Chk_F1 = m.Chk_F3 = m.Chk_CC = m.Chk_q2 = true, m.Txt_F3 = "-7", m.Txt_zF3 = "15", m.Txt_q21 = "-4";
       },
       {"\tPoint loads", "\t\tF1\t=\t-10\tkN", "\t\tF3\t=\t-7\tkN", "\tLevel z above the shear centre\tzF3\t=\t15\tcm",
        "\tPoint moment", "\t\tC\t=\t100\tkN.m", "\tDistributed loads 2", "\t\tq1\t=\t-4\tkN/m"},
       {"\t\tF2\t=\t0\tkN", "\tDistributed loads 1"}},
      {"mono-symmetric section by dimensions",
       [](BeamModel& m) {
         m.Opt_Catalogue = false, m.Opt_Dimensions = true, m.Tab_Dim = 1;
         m.Txt_bf2 = "10", m.Txt_Iz[2] = "450.5", m.Txt_zS[2] = "-3.2";
       },
       {"\tSection - By Dimensions", "\t\th\t=\t30\tcm", "\t\tbf2\t=\t10\tcm", "\t\tIz\t=\t450.5\tcm4",
        "\tShear centre not at the centroid\tzS\t=\t-3.2\tcm"},
       {"\tSection - IPE 300"}},
  };
  for (const auto& k : cases) {
    BeamModel m = Default_Model();
    k.set(m);
    const rtf_test::Rtf_Content c = Report_Of(m);
    const auto lines = Lines(c.text);
    for (const auto& p : k.present) EXPECT_GE(Find_Line(lines, p), 0) << k.name << ": [" << p << "]\n" << c.text;
    for (const auto& a : k.absent) EXPECT_FALSE(Has(c.text, a)) << k.name << ": [" << a << "]";
  }
}

// The section's drawing closes its rows on every route; by its properties, a note stands in its place.
TEST(Report, SectionDrawingAfterItsRows) {
  for (int route = 1; route <= 3; ++route) {
    BeamModel m = Default_Model();
    m.Opt_Catalogue = route == 1, m.Opt_Dimensions = route == 2, m.Opt_Properties = route == 3;
    const Rich_Document d = Document_Of(m);
    auto at = [&d](auto is) {  // the first paragraph with a run that `is` picks
      for (size_t i = 0; i < d.paragraphs.size(); ++i)
        for (const Rich_Run& r : d.paragraphs[i].runs)
          if (is(r)) return (int)i;
      return -1;
    };
    auto text = [&at](const char* t) { return at([t](const Rich_Run& r) { return r.text == t; }); };
    const int drawing = at([&d](const Rich_Run& r) {
      return r.kind == Rich_Run::Image && d.images[r.image].px_width == 401 + (int)Report_PictureKind::Section;
    });
    const int none = text("Section given by its properties: no drawing");
    const int shown = route < 3 ? drawing : none;
    EXPECT_GT(shown, text("\xCE\xB2z")) << route;
    EXPECT_LT(shown, text("End 1 (left)")) << route;
    EXPECT_EQ(route < 3 ? none : drawing, -1) << route;
  }
}

// The report follows the loaded language: titles and messages in French.
TEST(Report, LoadedLanguage) {
  const std::string fr = ZARVEK_BIN_DIR "/ZARVEK_FR.MSG", uk = ZARVEK_BIN_DIR "/ZARVEK_UK.MSG";
  if (!File_Exists(fr) || !File_Exists(uk)) GTEST_SKIP() << "language files not built: " << fr;
  const std::string tmp = ::testing::TempDir() + "zarvek-report-" + std::to_string(::getpid()) + "-LANG.TMP";
  ASSERT_TRUE(Load_LanguageFile(fr, tmp));
  Load_Messages();
  const rtf_test::Rtf_Content c = Report_Of(Solved_Model(), "FR");
  const auto lines = Lines(c.text);
  for (const char* l : {"\tPoutre", "\tLongueur L\tL\t=\t10\tm"})
    EXPECT_GE(Find_Line(lines, l), 0) << l << c.text;
  EXPECT_TRUE(Has(c.text, "\t=\tLibre\t"));
  EXPECT_TRUE(Has(lines[0], "/2026  05:07"));
  ASSERT_TRUE(Load_LanguageFile(uk, tmp));
  Load_Messages();
}

}  // namespace
}  // namespace zarvek
