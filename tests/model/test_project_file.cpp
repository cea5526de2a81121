// Project files: a saved study comes back as it was left, and a damaged or foreign file ends in
// the reading message without harm.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <sys/resource.h>
#include <tuple>
#include <vector>

#include "model/DataEntry.h"
#include "model/ProjectFile.h"
#include "model_support.h"
#include "../foundation/scratch_dir.h"

using namespace zarvek;
using namespace zarvek_test;
using foundation_test::Read_File;

namespace {

// Where line i (from 0) of a CR LF text begins; the text's size past its end.
size_t Line_Start(const std::string& text, size_t i) {
  size_t p = 0;
  while (i-- > 0 && p < text.size()) p = text.find("\r\n", p) + 2;
  return p;
}

std::string Line(const std::string& text, size_t i) {
  return text.substr(Line_Start(text, i), Line_Start(text, i + 1) - Line_Start(text, i) - 2);
}

// Two records agree on everything the file carries when they write the same file, mode lines included.
void Expect_Same(const BeamModel& a, const BeamModel& b) {
  EXPECT_EQ(Project_Text(a), Project_Text(b));
  EXPECT_EQ(a.Tab_Dim, b.Tab_Dim);
  EXPECT_EQ(a.Lbl_Method + a.Lbl_Tolerance, b.Lbl_Method + b.Lbl_Tolerance);
}

class ProjectFile : public ::testing::Test {
 protected:
  void SetUp() override { Load_Test_Messages(); }
  void TearDown() override { Dec_Sep = '.'; }
  const foundation_test::Scratch dir;
  std::string File(const std::string& name) const { return dir / name; }
  FileReadResult Read(BeamModel& m, const std::string& name) { return Read_FileDAT(m, name, "/start"); }

  // A study unlike the defaults in every line of the file, with the mode of a solve on 120 elements.
  BeamModel Study(char sep = '.') {
    BeamModel m = Default_Model(dir.path);
    int k = 0;
    for (UnitFamily f : All_Unit_Families) Unit_Index(m, f) = (k++) % Unit_ItemCount(f);
    std::vector<std::string*> texts = {&m.Txt_zS_Hidden, &m.Txt_Nu, &m.Txt_Psi, &m.Txt_xfint1, &m.Txt_xfint2,
        &m.Txt_xf1, &m.Txt_xf2, &m.Txt_xf3, &m.Txt_xfC, &m.Txt_xq11, &m.Txt_xq12, &m.Txt_xq21, &m.Txt_xq22,
        &m.Txt_mucr, &m.Lbl_CurrentValue, &m.Lbl_Iteration};
    for (auto& [f, more] : Number_Fields(m)) texts.insert(texts.end(), more.begin(), more.end());
    for (std::string* t : texts) *t = std::to_string(++k) + sep + "25";  // all distinct
    m.Txt_L = std::string("7") + sep + "25";
    for (RestraintList* l : {&m.Lst_v1, &m.Lst_t2, &m.Lst_vp2, &m.Lst_tp1, &m.Lst_tp2, &m.Lst_v2,
                             &m.Lst_vi_p1, &m.Lst_ti_p1, &m.Lst_vi_p2, &m.Lst_ti_p2, &m.Lst_vi_c,
                             &m.Lst_ti_c, &m.Lst_vpi_c}) l->index = -1;  // typed springs, but two
    std::tie(m.Lst_t1, m.Lst_vp1) = std::tuple(Restraint_Item(0), Restraint_Item(1));
    m.Lst_Duration = m.Lst_Tolerance = 4;
    m.Lbl_Tolerance = std::string("0") + sep + "000001";
    m.Lst_NbIter = m.Txt_NB = m.Tab_Zarvek = m.Tab_Dim = 1;  // 120 elements; the flanges differ
    m.Opt_Eigen = m.Opt_Properties = m.Chk_Punctual1 = m.Chk_Continuous = m.Chk_F3 = true;
    m.Chk_CC = m.Chk_q1 = m.Opt_EA = true;
    m.Opt_Dichotomie = m.Opt_Catalogue = m.Chk_M = m.Chk_EffM = m.Chk_v = m.Opt_AA = false;
    std::tie(m.Lbl_Method, m.Lbl_SelectedProfile, m.Lbl_Comment) =
        std::tuple(m.Caption_Eigen, "HEA 200", "End. Mcr found");
    std::tie(m.Cat_h, m.Mcr_Factor, m.Mode_Max) = std::tuple(19, 3.1415927f, 1);  // a mode of 121 nodes
    m.Mode_Vector.assign(4 * 121 + 1, -1.2345678e-7f);
    m.Restraint_Level.assign(121 + 1, -0.35f);
    for (int i = 1; i <= 4 * 121; i += 2) m.Mode_Vector[i] = std::sin(0.37f * i) / (1.0f + i % 7);
    return m;
  }
};

TEST_F(ProjectFile, SavedStudyComesBackWholeUnderEitherSeparator) {
  for (char sep : {'.', ','}) {
    Dec_Sep = sep;
    BeamModel saved = Study(sep), back = Default_Model("/elsewhere");
    const std::string name = File("STUDY.DAT");
    ASSERT_TRUE(Save_FileDAT(saved, name));
    FileReadResult r = Read(back, name);
    ASSERT_TRUE(r.ok && !back.RefreshLocked) << r.Error_Text;
    // the comment is read as a number text: its first point turns into a comma
    EXPECT_EQ(back.Lbl_Comment, sep == ',' ? "End, Mcr found" : "End. Mcr found");
    back.Lbl_Comment = saved.Lbl_Comment;
    Expect_Same(saved, back);
    for (UnitFamily f : All_Unit_Families)  // the factors follow the lists of the file
      EXPECT_EQ(Factor_Of(back, f), Unit_Factor(f, Unit_Index(saved, f)));
    // kinds of line: an index blank on either side, a Boolean true as -1, a text as it is, a number
    // right-aligned in 15 columns with a point (the raw Txt_zend1 with the writer's separator); a
    // mode line: the node, then v, theta, v', theta' and the level in 18 columns each
    const std::string text = Read_File(name);
    const std::pair<int, std::string> kinds[] = {
        {0, " 4 "}, {2, "-1 "}, {25, "HEA 200"}, {57, "           7.25"},
        {67, std::string("85") + sep + "25"}, {134, "      3.1415927"}};
    for (const auto& [i, line] : kinds) EXPECT_EQ(Line(text, i), line) << "line " << i + 1;
    EXPECT_EQ(Line(text, 150).substr(0, 3) + std::to_string(Line(text, 150).size()), " 2 93");
    // 149 lines, then one line for each of the 121 nodes; none without a mode
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 149 + 121);
    InitProcessInfo(saved);
    ASSERT_TRUE(Save_FileDAT(saved, name));
    const std::string again = Read_File(name);
    EXPECT_EQ(std::count(again.begin(), again.end(), '\n'), 149);
    ASSERT_TRUE(Read(back, name).ok);
    Expect_Same(saved, back);
  }
}

TEST_F(ProjectFile, ShapeOfTheDimensionsRouteIsDerivedFromTheFlanges) {
  // compared as texts; no flange is carried across while the file is read, slot 2 is read after the
  // shape is set, and the change of shape ends the flag of a file being read
  for (auto [tf1, tf2, shape] : {std::tuple{"1.07", "1.07", 0}, {"1.07", "1.070", 1},
                                 {"1.07", "0", 2}, {"0", "1.07", 3}}) {
    BeamModel m = Default_Model(), back = Default_Model();
    std::tie(m.Txt_tf1, m.Txt_tf2, m.Txt_Iz[2], m.Tab_Dim) = std::tuple(tf1, tf2, "123", 3 - shape);
    ASSERT_TRUE(Save_FileDAT(m, File("SHAPE.DAT")) && Read(back, File("SHAPE.DAT")).ok);
    EXPECT_EQ(back.Tab_Dim, shape) << tf1 << " " << tf2;
    EXPECT_EQ(back.Txt_tf1 + " " + back.Txt_tf2, std::string(tf1) + " " + tf2);
    EXPECT_EQ(back.Txt_Iz[2] + (back.File_Loading ? " loading" : ""), shape ? "123" : "123 loading");
  }
}

TEST_F(ProjectFile, TruncatedFilesEndInTheReadingMessageWithTheHalfFilledRecord) {
  const std::string text = Project_Text(Study()), name = File("CUT.DAT");
  for (size_t keep = 0; Line_Start(text, keep) < text.size(); ++keep) {
    ASSERT_TRUE(Write_File_Atomic(name, text.substr(0, Line_Start(text, keep))));
    BeamModel back = Default_Model();
    back.RefreshLocked = true;
    FileReadResult r = Read(back, name);
    ASSERT_FALSE(r.ok) << keep << " lines";
    EXPECT_EQ(r.Error_Text, "Error reading file " + name);
    EXPECT_FALSE(back.RefreshLocked || back.File_Loading);
    if (keep != 60) continue;
    // what was read stays (L on line 58, the index of v1 on line 60, not its text on line 61), and
    // the factors as they were: the list of L changed, its factor did not
    EXPECT_EQ(back.Txt_L + " " + back.Lst_v1.text, "7.25 Fixed");
    EXPECT_EQ(std::tuple(back.Lst_v1.index, back.Lst_Unit_L, back.Fact_L), std::tuple(-1, 0, 100.0f));
  }
}

TEST_F(ProjectFile, ForeignAndDamagedFiles) {
  const std::string text = Project_Text(Study());
  auto with_line = [&](size_t i, const std::string& line) {
    return text.substr(0, Line_Start(text, i)) + line + "\r\n" + text.substr(Line_Start(text, i + 1));
  };
  std::string binary;
  for (int i = 0; i < 4000; ++i) binary += (char)((i * 7919) % 256);
  const std::pair<std::string, std::string> files[] = {  // "-": not written by the test
      {File("missing"), "-"}, {dir.path, "-"}, {File("empty"), ""}, {File("binary"), binary},
      {File("prose"), "Dear reader,\r\nthis is a letter and not a beam.\r\n"},
      {File("unit index out of its list"), with_line(6, " 9 ")},
      {File("negative unit index"), with_line(10, "-1 ")}, {File("no tab 7"), with_line(21, " 7 ")},
      {File("element count out of its list"), with_line(58, " 4 ")},
      {File("restraint state out of range"), with_line(59, " 3 ")},
      {File("a word where a number stands"), with_line(4, " two ")},
      {File("a number too large"), with_line(0, " 1E+400 ")},
      {File("a critical factor beyond single precision"), with_line(134, "          1E+39")},
      {File("mode line too short"), with_line(200, " 52  0.5")},
      {File("mode number unreadable"), with_line(160, " 12  0.5  0.25  x  1  2")}};
  for (const auto& [name, content] : files) {
    if (content != "-") { ASSERT_TRUE(Write_File_Atomic(name, content)); }
    BeamModel m = Default_Model();
    FileReadResult r = Read(m, name);
    EXPECT_FALSE(r.ok || m.RefreshLocked) << name;
    EXPECT_EQ(r.Error_Text, "Error reading file " + name);
  }
}

TEST_F(ProjectFile, TrailerOfKeyedLinesAfterTheFixedLayout) {
  for (char sep : {',', '.'}) {  // the point last, for the keys of a later version below
    Dec_Sep = sep;
    for (bool mode : {true, false}) {
      BeamModel plain = Study(sep);
      if (!mode) InitProcessInfo(plain);
      BeamModel axial = plain;
      std::tie(axial.Txt_N, axial.Txt_A3, axial.Txt_Iy3, axial.Txt_zC3) =
          std::tuple(std::string("-12") + sep + "5", "53", std::string("8356") + sep + "1", "-4");
      // the lines of the fixed layout stay as they were, the keys follow
      const std::string before = Project_Text(plain), after = Project_Text(axial);
      EXPECT_EQ(after, before + "AXIAL_N=-12.5\r\nAXIAL_A=53\r\nAXIAL_IY=8356.1\r\nAXIAL_ZC=-4\r\nAXIAL_NCR=0\r\n");
      ASSERT_TRUE(Write_File_Atomic(File("AX.DAT"), after));
      BeamModel back = Default_Model();
      ASSERT_TRUE(Read(back, File("AX.DAT")).ok);
      EXPECT_EQ(back.Txt_N + back.Txt_A3 + back.Txt_Iy3 + back.Txt_zC3,
                axial.Txt_N + "53" + axial.Txt_Iy3 + "-4");
      // a file without a trailer gives a record without axial force, even read over one that had it
      ASSERT_TRUE(Write_File_Atomic(File("AX.DAT"), before));
      ASSERT_TRUE(Read(back, File("AX.DAT")).ok);
      EXPECT_EQ(back.Txt_N + " " + back.Txt_A3, std::string("0 53") + sep + "81");
      // without axial force the constants are not written, whatever they hold
      axial.Txt_N = std::string("0") + sep + "0";
      EXPECT_EQ(Project_Text(axial), before);
    }
  }
  // unknown keys, stray lines and a last line without its line end do not stop the reading
  const std::string text = Project_Text(Default_Model()) +
                           "GRADE_OF_A_LATER_VERSION=S 355\r\n\r\nnot a key\nAXIAL_N=3.5\r\nAXIAL_ZC=2";
  ASSERT_TRUE(Write_File_Atomic(File("LATER.DAT"), text));
  BeamModel back = Default_Model();
  ASSERT_TRUE(Read(back, File("LATER.DAT")).ok);
  EXPECT_EQ(back.Txt_N + " " + back.Txt_zC3, "3.5 2");
  EXPECT_EQ(Project_Text(back), Project_Text(Default_Model()) +
                                    "AXIAL_N=3.5\r\nAXIAL_A=53.81\r\nAXIAL_IY=8356\r\nAXIAL_ZC=2\r\nAXIAL_NCR=0\r\n");
}

TEST_F(ProjectFile, FailedSaveLeavesTheOldFile) {
  const std::string name = File("KEEP.DAT");
  ASSERT_TRUE(Save_FileDAT(Default_Model(), name));
  const std::string before = Read_File(name);
  // a disk that takes no more than 512 bytes per file
  struct rlimit old;
  ::getrlimit(RLIMIT_FSIZE, &old);
  const struct rlimit small = {512, old.rlim_max};
  auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);  // a write past the limit fails
  ::setrlimit(RLIMIT_FSIZE, &small);
  const bool ok = Save_FileDAT(Study(), name);
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(ok);
  EXPECT_EQ(Read_File(name), before);
  EXPECT_FALSE(Save_FileDAT(Study(), File("no/such/dir/X.DAT")));
}

}  // namespace
