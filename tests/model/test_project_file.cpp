// Project files: a saved study comes back as it was left, and a damaged or
// foreign file ends in the reading message without harm.
#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

#include "model/DataEntry.h"
#include "model/ProjectFile.h"
#include "model/Validation.h"
#include "model_support.h"

using namespace zarvek;
using namespace zarvek_test;

namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> v;
  size_t i = 0;
  while (i < text.size()) {
    size_t j = text.find("\r\n", i);
    if (j == std::string::npos) j = text.size();
    v.push_back(text.substr(i, j - i));
    i = j + 2;
  }
  return v;
}

std::string Join(const std::vector<std::string>& lines, size_t count) {
  std::string s;
  for (size_t i = 0; i < count && i < lines.size(); ++i) s += lines[i] + "\r\n";
  return s;
}

// Two records agree on everything the file carries when they write the same
// file; the writer's line positions are pinned by LineKinds.
void Expect_Same(const BeamModel& a, const BeamModel& b) {
  std::vector<std::string> la = Lines(Project_Text(a)), lb = Lines(Project_Text(b));
  ASSERT_EQ(la.size(), lb.size());
  for (size_t i = 0; i < la.size(); ++i) EXPECT_EQ(la[i], lb[i]) << "line " << i + 1;
  EXPECT_EQ(a.Tab_Dim, b.Tab_Dim);
  EXPECT_EQ(a.Txt_Mmax[1], b.Txt_Mmax[1]);
  EXPECT_EQ(a.Lbl_xfMmax[1], b.Lbl_xfMmax[1]);
  EXPECT_EQ(a.Lbl_Method, b.Lbl_Method);
  EXPECT_EQ(a.Lbl_Tolerance, b.Lbl_Tolerance);
}

class ProjectFile : public ::testing::Test {
 protected:
  void SetUp() override { Load_Test_Messages(); }
  Scratch_Dir dir;

  // A study that differs from the defaults in every line of the file, with
  // the mode of a solve on 120 elements. `sep` is the separator typed.
  BeamModel Study(char sep = '.') {
    BeamModel m = Default_Model(dir.path);
    m.Lst_Duration = 5;
    m.Opt_Eigen = true;
    m.Opt_Dichotomie = false;
    m.Lbl_Method = m.Caption_Eigen;
    m.Lst_Tolerance = 4;
    m.Lbl_Tolerance = sep == '.' ? "0.000001" : "0,000001";
    m.Lst_NbIter = 1;
    int k = 0;
    for (UnitFamily f : All_Unit_Families) Unit_Index(m, f) = (k++) % Unit_ItemCount(f);
    m.Tab_Zarvek = 3;
    m.Opt_Catalogue = false;
    m.Opt_Properties = true;
    m.Lbl_SelectedProfile = "HEA 200";
    m.Cat_h = 19;
    m.Cat_tw = 0.65;
    // a distinct number with a decimal separator in every number text
    k = 0;
    for (std::string* t :
         {&m.Txt_Iz[1], &m.Txt_It[1], &m.Txt_Iw[1], &m.Txt_Betaz[1], &m.Txt_zS[1], &m.Txt_Iz[2],
          &m.Txt_It[2], &m.Txt_Iw[2], &m.Txt_Betaz[2], &m.Txt_zS[2], &m.Txt_zS_Hidden,
          &m.Txt_Iz[3], &m.Txt_It[3], &m.Txt_Iw[3], &m.Txt_Betaz[3], &m.Txt_Nu, &m.Txt_G,
          &m.Txt_zend2, &m.Txt_xfint1, &m.Txt_zint_p1, &m.Txt_xfint2, &m.Txt_zint_p2, &m.Txt_M1,
          &m.Txt_M2, &m.Txt_Psi, &m.Txt_F1, &m.Txt_xf1, &m.Txt_zF1, &m.Txt_F2, &m.Txt_xf2,
          &m.Txt_zF2, &m.Txt_F3, &m.Txt_xf3, &m.Txt_zF3, &m.Txt_CC, &m.Txt_xfC, &m.Txt_q11,
          &m.Txt_xq11, &m.Txt_q12, &m.Txt_xq12, &m.Txt_zq1, &m.Txt_q21, &m.Txt_xq21, &m.Txt_q22,
          &m.Txt_xq22, &m.Txt_zq2, &m.Lbl_CurrentValue, &m.Txt_mucr, &m.Txt_Mcr})
      *t = std::to_string(++k) + sep + "25";
    m.Txt_E = "205000";
    m.Txt_L = std::string("7") + sep + "25";
    m.Txt_zend1 = std::string("-7") + sep + "5";  // raw lines
    m.Txt_zint_c = std::string("2") + sep + "5";
    m.Tab_Dim = 1;  // flanges differ
    m.Txt_tf1 = std::string("1") + sep + "6";
    m.Txt_NB = 1;  // 120 elements
    m.Lst_v1 = RestraintList{-1, std::string("12") + sep + "5"};
    m.Lst_t1 = Restraint_Item(0);
    m.Lst_vp1 = Restraint_Item(1);
    m.Lst_tp2 = RestraintList{-1, "3"};
    m.Lst_vi_c = RestraintList{-1, std::string("0") + sep + "01"};
    m.Chk_Punctual1 = m.Chk_Continuous = m.Chk_F3 = m.Chk_CC = m.Chk_q1 = true;
    m.Chk_M = m.Chk_EffM = m.Chk_v = m.Chk_vp = false;
    m.Opt_AA = false;
    m.Opt_EA = true;
    m.Mcr_Factor = 3.1415927f;
    m.Lbl_Iteration = "17";
    m.Lbl_Comment = "Normal end";
    m.Txt_Mmax = {"80", "80"};
    m.Lbl_xfMmax = {"1", "1"};
    // the mode of a solve on 120 elements
    m.Mode_Max = 1;
    const int nn = 121;
    m.Mode_Vector.assign(4 * nn + 1, 0.0f);
    m.Restraint_Level.assign(nn + 1, 0.0f);
    for (int i = 1; i <= 4 * nn; ++i) m.Mode_Vector[i] = std::sin(0.37f * i) / (1.0f + i % 7);
    m.Mode_Vector[6] = -1.2345678e-7f;
    for (int i = 1; i <= nn; ++i) m.Restraint_Level[i] = 0.1f * (i % 9) - 0.35f;
    return m;
  }

  FileReadResult Read(BeamModel& m, const std::string& name) {
    return Read_FileDAT(m, name, "/start");
  }
};

TEST_F(ProjectFile, SavedStudyComesBackWhole) {
  BeamModel saved = Study();
  const std::string name = dir.File("STUDY.DAT");
  ASSERT_TRUE(Save_FileDAT(saved, name));
  BeamModel back = Default_Model("/elsewhere");
  FileReadResult r = Read(back, name);
  ASSERT_TRUE(r.ok) << r.Error_Text;
  EXPECT_EQ(r.Dialog_Dir, dir.path);
  Expect_Same(saved, back);
  // the unit factors follow the lists of the file
  for (UnitFamily f : All_Unit_Families)
    EXPECT_EQ(Factor_Of(back, f), Unit_Factor(f, Unit_Index(saved, f)));
  EXPECT_FALSE(back.RefreshLocked);
  // 149 lines, then one line for each of the 121 nodes
  EXPECT_EQ(Lines(Read_All(name)).size(), 149u + 121u);
  // typed springs show their unit labels
  EXPECT_TRUE(back.Lst_v1.Unit_Visible);
  EXPECT_FALSE(back.Lst_v2.Unit_Visible);
}

TEST_F(ProjectFile, LineKinds) {
  BeamModel m = Study();
  m.Txt_E = "2.0999999999E+05";  // longer than its column
  m.Lbl_Directory = "/a dir/with blanks";
  std::vector<std::string> l = Lines(Project_Text(m));
  EXPECT_EQ(l[0], " 5 ");            // kind I, blank on either side
  EXPECT_EQ(l[1], "/a dir/with blanks");
  EXPECT_EQ(l[2], "-1 ");           // a Boolean: -1
  EXPECT_EQ(l[3], " 0 ");
  EXPECT_EQ(l[25], "HEA 200");      // kind T
  EXPECT_EQ(l[26], "           1.25");  // kind N: 15 columns
  EXPECT_EQ(l[31], "             19");  // catalogue dimensions, cm
  EXPECT_EQ(l[54], "2.0999999999E+05");  // a longer text stays whole
  EXPECT_EQ(l[58], " 1 ");          // the element count by its index
  EXPECT_EQ(l[59], "-1 ");          // Lst_v1: a typed spring
  EXPECT_EQ(l[60], "           12.5");
  EXPECT_EQ(l[67], "-7.5");         // Txt_zend1 is written raw
  EXPECT_EQ(l[76], "          18.25");  // Txt_zend2 is not
  EXPECT_EQ(l[98], "2.5");          // Txt_zint_c as well
  EXPECT_EQ(l[134], "      3.1415927");  // Mcr_Factor, shortest single form
  EXPECT_EQ(l[142], " 0 ");         // Chk_EffM, twice
  EXPECT_EQ(l[143], " 0 ");
  EXPECT_EQ(l[148], " 1 ");         // Mode_Max
  // a mode line: node, v, theta, v', theta', level, 18 columns each
  std::istringstream node(l[149]);
  int i;
  double v[5];
  node >> i >> v[0] >> v[1] >> v[2] >> v[3] >> v[4];
  EXPECT_EQ(i, 1);
  EXPECT_FLOAT_EQ((float)v[0], m.Mode_Vector[1]);
  EXPECT_FLOAT_EQ((float)v[4], m.Restraint_Level[1]);
  EXPECT_EQ(l[150].size(), 3u + 5 * 18);
}

TEST_F(ProjectFile, NoModeEndsAtLine149) {
  BeamModel m = Study();
  InitProcessInfo(m);  // a change of data: no mode any more
  m.Mode_Vector.clear();
  m.Restraint_Level.clear();
  const std::string name = dir.File("NOMODE.DAT");
  ASSERT_TRUE(Save_FileDAT(m, name));
  EXPECT_EQ(Lines(Read_All(name)).size(), 149u);
  BeamModel back = Default_Model();
  ASSERT_TRUE(Read(back, name).ok);
  Expect_Same(m, back);
}

TEST_F(ProjectFile, CommaLocaleWritesPointsAndReadsBack) {
  Comma_Locale comma;
  BeamModel saved = Study(',');
  saved.Lbl_Comment = "End. Mcr found";
  const std::string name = dir.File("COMMA.DAT");
  ASSERT_TRUE(Save_FileDAT(saved, name));
  std::vector<std::string> l = Lines(Read_All(name));
  EXPECT_EQ(l[57], "           7.25");  // N lines carry a point
  EXPECT_EQ(l[67], "-7,5");             // the raw lines carry the writer's comma
  EXPECT_EQ(l[98], "2,5");
  BeamModel back = Default_Model();
  ASSERT_TRUE(Read(back, name).ok);
  // the comment is read as a number text: its first point turns into a comma
  EXPECT_EQ(back.Lbl_Comment, "End, Mcr found");
  back.Lbl_Comment = saved.Lbl_Comment;
  Expect_Same(saved, back);
}

TEST_F(ProjectFile, ACommaFileUnderAPointLocale) {
  std::string name = dir.File("MOVED.DAT");
  BeamModel saved;
  {
    Comma_Locale comma;
    saved = Study(',');
    for (UnitFamily f : All_Unit_Families) Unit_Index(saved, f) = Unit_DefaultIndex(f);
    saved.Txt_Nu = "0,3";
    ASSERT_TRUE(Save_FileDAT(saved, name));
  }
  BeamModel back = Default_Model();
  ASSERT_TRUE(Read(back, name).ok);
  EXPECT_EQ(back.Txt_L, "7.25");  // every N line opens the same
  EXPECT_EQ(back.Txt_zend2, "18.25");
  EXPECT_EQ(back.Txt_zend1, "-7,5");  // the raw line does not
  // ... which validation finds when it gets there
  ValidationResult v = IsDataOK(back);
  EXPECT_FALSE(v.ok);
  EXPECT_EQ(v.field, "Txt_zend1");
  EXPECT_EQ(v.Error_Text, "Not a number");
}

TEST_F(ProjectFile, ShapeOfTheDimensionsRouteIsDerived) {
  struct Case {
    const char *bf1, *tf1, *r1, *bf2, *tf2, *r2;
    int shape;
  } cases[] = {
      {"15", "1.07", "1.5", "15", "1.07", "1.5", 0},
      {"15", "1.07", "1.5", "15", "1.070", "1.5", 1},  // compared as texts
      {"15", "1.07", "1.5", "12", "1.07", "1.5", 1},
      {"15", "1.07", "1.5", "0.71", "0", "0", 2},
      {"0.71", "0", "0", "15", "1.07", "1.5", 3},
      {"0.71", "0", "0", "0.71", "0", "0", 2},  // both empty: 2 wins
  };
  for (const Case& c : cases) {
    BeamModel m = Default_Model();
    m.Txt_bf1 = c.bf1;
    m.Txt_tf1 = c.tf1;
    m.Txt_r1 = c.r1;
    m.Txt_bf2 = c.bf2;
    m.Txt_tf2 = c.tf2;
    m.Txt_r2 = c.r2;
    m.Tab_Dim = 3 - c.shape;  // whatever was shown before
    m.Txt_Iz[2] = "123";
    const std::string name = dir.File("SHAPE.DAT");
    ASSERT_TRUE(Save_FileDAT(m, name));
    BeamModel back = Default_Model();
    back.Tab_Dim = 0;
    ASSERT_TRUE(Read(back, name).ok);
    EXPECT_EQ(back.Tab_Dim, c.shape) << c.tf1 << " " << c.tf2;
    EXPECT_EQ(back.Txt_Iz[2], "123");  // slot 2 is read after the shape is set
    // the flag of a file being read ends with the change of shape, if any
    EXPECT_EQ(back.File_Loading, c.shape == 0);
  }
}

TEST_F(ProjectFile, SectionNotYetComputedStaysSo) {
  BeamModel m = Default_Model();
  m.Opt_Catalogue = false;
  m.Opt_Dimensions = true;
  m.Txt_Iz[2] = "";
  const std::string name = dir.File("EMPTY.DAT");
  ASSERT_TRUE(Save_FileDAT(m, name));
  BeamModel back = Default_Model();
  ASSERT_TRUE(Read(back, name).ok);
  EXPECT_EQ(back.Txt_Iz[2], "");
  ValidationResult v = IsDataOK(back);
  EXPECT_EQ(v.Error_Text, "Section not computed");
}

TEST_F(ProjectFile, ReaderHabitsKept) {
  BeamModel m = Study();
  m.Chk_EffV = true;
  m.Opt_Nu = false;
  m.Opt_G = true;
  const std::string name = dir.File("HABITS.DAT");
  ASSERT_TRUE(Save_FileDAT(m, name));
  BeamModel back = Default_Model();
  back.Chk_EffV = false;
  back.Lst_t1 = RestraintList{-1, "5"};
  back.Lst_t1.Unit_Visible = true;
  ASSERT_TRUE(Read(back, name).ok);
  EXPECT_FALSE(back.Chk_EffV);  // not in the file
  EXPECT_TRUE(back.Opt_Nu);     // nor which of nu and G is typed
  EXPECT_EQ(back.Lst_t1.text, "Free");
  EXPECT_TRUE(back.Lst_t1.Unit_Visible);  // the reader never hides a label
  // a data directory that does not exist gives way to the start directory
  m.Lbl_Directory = dir.File("gone");
  ASSERT_TRUE(Save_FileDAT(m, name));
  ASSERT_TRUE(Read(back, name).ok);
  EXPECT_EQ(back.Lbl_Directory, "/start");
  // the captions of the method follow the options read
  EXPECT_EQ(back.Lbl_Method, back.Caption_Eigen);
  EXPECT_EQ(back.Lbl_Tolerance, "0.000001");
}

TEST_F(ProjectFile, DirectoryWithACommaMisreadsTheRest) {
  Scratch_Dir odd;
  const std::string commaDir = odd.File("a,b");
  ASSERT_EQ(::mkdir(commaDir.c_str(), 0755), 0);
  BeamModel m = Study();
  m.Lbl_Directory = commaDir;
  const std::string name = dir.File("COMMADIR.DAT");
  ASSERT_TRUE(Save_FileDAT(m, name));
  BeamModel back = Default_Model();
  FileReadResult r = Read(back, name);
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(r.Error_Text, "Error reading file " + name);
  EXPECT_EQ(back.Lbl_Directory, "/start");  // the part before the comma does not exist
}

TEST_F(ProjectFile, TruncatedFilesEndInTheReadingMessage) {
  BeamModel saved = Study();
  const std::vector<std::string> lines = Lines(Project_Text(saved));
  const std::string name = dir.File("CUT.DAT");
  for (size_t keep = 0; keep < lines.size(); ++keep) {
    Write_All(name, Join(lines, keep));
    BeamModel back = Default_Model();
    back.RefreshLocked = true;
    FileReadResult r = Read(back, name);
    ASSERT_FALSE(r.ok) << keep << " lines";
    EXPECT_EQ(r.Error_Text, "Error reading file " + name);
    EXPECT_FALSE(back.RefreshLocked);
    EXPECT_FALSE(back.File_Loading);
  }
  // a half-read file leaves what was read, and the factors as they were
  Write_All(name, Join(lines, 60));
  BeamModel back = Default_Model();
  ASSERT_FALSE(Read(back, name).ok);
  EXPECT_EQ(back.Txt_L, "7.25");                   // line 58
  EXPECT_EQ(back.Lst_v1.index, -1);                // line 60
  EXPECT_EQ(back.Lst_v1.text, "Fixed");            // line 61 was not reached
  EXPECT_EQ(back.Txt_M1, "-100");
  EXPECT_EQ(back.Lst_Unit_L, 0);                   // the list changed ...
  EXPECT_EQ(back.Fact_L, 100.0f);                  // ... its factor did not
}

TEST_F(ProjectFile, ForeignAndDamagedFiles) {
  const std::string good = Project_Text(Study());
  std::vector<std::string> lines = Lines(good);
  auto with_line = [&](size_t i, const std::string& text) {
    std::vector<std::string> v = lines;
    v[i] = text;
    return Join(v, v.size());
  };
  std::string binary;
  for (int i = 0; i < 4000; ++i) binary += (char)((i * 7919) % 256);
  const std::vector<std::pair<std::string, std::string>> files = {
      {"empty", ""},
      {"prose", "Dear reader,\r\nthis is a letter and not a beam.\r\n"},
      {"binary", binary},
      {"unit index out of its list", with_line(6, " 9 ")},
      {"negative unit index", with_line(10, "-1 ")},
      {"element count out of its list", with_line(58, " 4 ")},
      {"tab out of range", with_line(21, " 7 ")},
      {"restraint state out of range", with_line(59, " 3 ")},
      {"a word where a number stands", with_line(4, " two ")},
      {"a number too large", with_line(0, " 1E+400 ")},
      {"mode line too short", with_line(200, " 52  0.5")},
      {"mode number unreadable", with_line(160, " 12  0.5  0.25  x  1  2")},
  };
  for (const auto& [what, text] : files) {
    const std::string name = dir.File("FOREIGN.DAT");
    Write_All(name, text);
    BeamModel m = Default_Model();
    FileReadResult r = Read(m, name);
    EXPECT_FALSE(r.ok) << what;
    EXPECT_EQ(r.Error_Text, "Error reading file " + name) << what;
    EXPECT_FALSE(m.RefreshLocked) << what;
  }
  // no file at all
  BeamModel m = Default_Model();
  FileReadResult r = Read(m, dir.File("MISSING.DAT"));
  EXPECT_FALSE(r.ok);
  EXPECT_EQ(r.Error_Text, "Error reading file " + dir.File("MISSING.DAT"));
  // a directory in place of the file
  r = Read(m, dir.path);
  EXPECT_FALSE(r.ok);
}

TEST_F(ProjectFile, FailedSaveLeavesTheOldFile) {
  const std::string name = dir.File("KEEP.DAT");
  BeamModel first = Default_Model();
  ASSERT_TRUE(Save_FileDAT(first, name));
  const std::string before = Read_All(name);
  // a disk that takes no more than 512 bytes per file
  struct rlimit old;
  ::getrlimit(RLIMIT_FSIZE, &old);
  auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
  struct rlimit small = old;
  small.rlim_cur = 512;
  ::setrlimit(RLIMIT_FSIZE, &small);
  const bool ok = Save_FileDAT(Study(), name);
  ::setrlimit(RLIMIT_FSIZE, &old);
  std::signal(SIGXFSZ, oldHandler);
  EXPECT_FALSE(ok);
  EXPECT_EQ(Read_All(name), before);
  BeamModel back = Default_Model();
  ASSERT_TRUE(Read(back, name).ok);
  Expect_Same(first, back);
  // a directory that does not exist: nothing written, nothing left behind
  EXPECT_FALSE(Save_FileDAT(first, dir.File("no/such/dir/X.DAT")));
}

TEST_F(ProjectFile, StartWithOrWithoutDefaultFile) {
  Set_Msg(10, "Default file");
  Set_Msg(81, "New study");
  BeamModel m;
  StartupResult s = Initialisations_Model(m, dir.File("ZARVEK.DFT"), dir.path);
  ASSERT_TRUE(s.ok);
  EXPECT_EQ(s.File_Current, "New study");
  EXPECT_NEAR(Num_Of_Text(m.Txt_Iz[2]), 603.8, 0.2);  // slot 2 from the dimensions
  EXPECT_EQ(m.Lbl_Comment, "");                        // no result was cleared
  BeamModel saved = Study();
  ASSERT_TRUE(Save_FileDAT(saved, dir.File("ZARVEK.DFT")));
  s = Initialisations_Model(m, dir.File("ZARVEK.DFT"), dir.path);
  ASSERT_TRUE(s.ok);
  EXPECT_EQ(s.File_Current, "Default file");
  EXPECT_EQ(m.Txt_L, saved.Txt_L);
  Write_All(dir.File("ZARVEK.DFT"), "broken");
  s = Initialisations_Model(m, dir.File("ZARVEK.DFT"), dir.path);
  EXPECT_FALSE(s.ok);
  EXPECT_EQ(s.Error_Text, "Error reading file " + dir.File("ZARVEK.DFT"));
}

}  // namespace
