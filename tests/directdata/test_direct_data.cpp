// Direct data: limits of the header fields, the problem file there and back, what the solver reads of a
// saved grid, and the editing rules of the grids: paste, copy, delete and key filters.
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "../foundation/scratch_dir.h"
#include "directdata/DirectData.h"
#include "directdata/Mod_MSFlexGrid.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

using namespace zarvek;
using foundation_test::Read_File;

namespace {

const foundation_test::Scratch dir;

// A number text with the decimal mark of the moment.
std::string Local(std::string t) { std::replace(t.begin(), t.end(), '.', Dec_Sep); return t; }

class DirectData : public ::testing::Test {
 protected:
  void SetUp() override {
    Dec_Sep = '.';
    Set_Msg(30, "Elements out of range");
    Set_Msg(46, "Too many distributed loads");
    Set_Msg(48, "Too many point loads");
  }
  void TearDown() override { Dec_Sep = '.'; }
};
using Grid = DirectData;

TEST_F(DirectData, PointLoadsUpToOneANodeDistributedLoadsUpToTen) {
  using H = Header_Field;
  const char* const NF = "Too many point loads : NFmax = 51 !";
  const char* const NQ = "Too many distributed loads : NQmax = 10 !";
  const struct { const char *nf, *nq; H field; const char* message; } cases[] = {
      {"51", "10", H::None, ""}, {"0", "0", H::None, ""},  // N + 1 point loads, 10 distributed
      {"52", "0", H::NF, NF}, {"-1", "0", H::NF, NF}, {"0", "11", H::NQ, NQ},
      {"2.5", "0", H::NF, ""}, {"", "0", H::NF, ""}};  // a count is a whole number: the field is selected
  for (const auto& c : cases) {
    DirectDataSheet s = New_DirectData(50);
    std::tie(s.Txt_NF, s.Txt_NQ) = std::tuple(c.nf, c.nq);
    int nfmax = 0;
    const DataWrong w = IsDataWrong(s, &nfmax);
    EXPECT_EQ(std::tuple(w.Wrong, w.Field, w.Message),
              std::tuple(c.field != H::None, c.field, std::string(c.message))) << c.nf << " " << c.nq;
  }
}

// A sheet with every grid and cell different, written and read back under either decimal mark.
TEST_F(DirectData, RoundTripThroughAProblemFile) {
  for (char sep : {'.', ','}) {
    Dec_Sep = sep;
    DirectDataSheet s = New_DirectData(57);
    std::tie(s.Txt_E, s.Txt_G, s.Txt_NF, s.Txt_NQ) = std::tuple("2100000", "810000", "3", "2");
    Prepare_GrdSpanLoadsF(s);
    Prepare_GrdSpanLoadsQ(s);
    for (int i = 1; i <= 57; ++i) {
      const std::string n = std::to_string(i);
      s.Grd_Elements.Set_TextMatrix(i + 1, 1, Local(std::to_string(5 + i % 7) + ".25"));
      s.Grd_Elements.Set_TextMatrix(i + 1, 2, Local("6" + n + ".5"));
      s.Grd_Elements.Set_TextMatrix(i + 1, 5, i % 2 ? "-3" : Local("2.75"));
      s.Grd_Elements.Set_TextMatrix(i + 1, 7, i % 3 ? "-1" : "150000");
      s.Grd_MV.Set_TextMatrix(i + 1, 1, "-" + n + "00");
      s.Grd_MV.Set_TextMatrix(i + 1, 2, n + "25");
      s.Grd_Axial.Set_TextMatrix(i + 1, 1, Local("-2" + n + ".5"));
      s.Grd_Axial.Set_TextMatrix(i + 1, 4, "-" + n);
    }
    // typed digits come back whole (1.005 cm, an It of 0.692 cm4: two decimals would change them); a double
    for (auto [g, row, col, text] :
         {std::tuple{&s.Grd_Restraints, 30, 3, "2500"}, {&s.Grd_Restraints, 30, 5, "-12.5"},
          {&s.Grd_SpanLoadsF, 3, 2, "150.75"}, {&s.Grd_SpanLoadsQ, 3, 1, "-2.125"},
          {&s.Grd_Elements, 58, 1, "1.005"}, {&s.Grd_Elements, 7, 3, "0.692"},
          {&s.Grd_Restraints, 9, 1, "12345678.125"}})
      g->Set_TextMatrix(row, col, Local(text));
    const std::string path = dir / (sep == '.' ? "RT1.ZVK" : "RT2.ZVK");
    ASSERT_TRUE(Save_FileZVK(path, s));
    // numbers use the point whatever the locale: commas stand only in labels
    std::istringstream lines(Read_File(path));
    for (std::string l; std::getline(lines, l);)
      EXPECT_TRUE(l.find(',') == l.npos || l.find_first_of("abcdefghijklmnopqrstuvwxyz") != l.npos) << l;
    DirectDataSheet back = New_DirectData(50);
    ASSERT_TRUE(Read_FileZVK(path, back).Ok);
    EXPECT_EQ(back.Txt_NB + " " + back.Txt_NF, "57 3");
    EXPECT_EQ(Num_Of_Text(back.Txt_G), 810000);
    using K = Grid_Kind;
    for (Grid_Kind k : {K::Elements, K::Restraints, K::MV, K::SpanLoadsF, K::SpanLoadsQ, K::Axial}) {
      const Text_Grid &a = s.Grid(k), &b = back.Grid(k);
      ASSERT_EQ(a.Rows(), b.Rows());
      for (int row = 0; row < a.Rows(); ++row)
        for (int c = 0; c < a.Cols(); ++c) {
          const std::string want = a.TextMatrix(row, c), got = b.TextMatrix(row, c);
          if (row < 2 || c == 0) {
            EXPECT_EQ(want, got);
          } else {
            ASSERT_TRUE(Is_Numeric(got)) << got;
            EXPECT_DOUBLE_EQ(Num_Of_Text(want), Num_Of_Text(got)) << (int)k << " " << row << " " << c;
          }
        }
    }
  }
}

TEST_F(DirectData, TheAxialGridTravelsInItsOptionalBlock) {
  // with a force, the solver reads it (the round trip above brings the sixth grid back whole); a
  // file without the block (a sheet without force: tests/solver Axial) reads as a grid of no force
  DirectDataSheet s = New_DirectData(50);
  ASSERT_TRUE(Save_FileZVK(dir / "AX0.ZVK", s));
  s.Grd_Axial.Set_TextMatrix(20, 1, "1500.5");
  s.Grd_Axial.Set_TextMatrix(20, 4, "-3.25");
  ASSERT_TRUE(Save_FileZVK(dir / "AX1.ZVK", s));
  DirectDataSheet back = New_DirectData(60);
  ASSERT_TRUE(Read_FileZVK(dir / "AX1.ZVK", back).Ok);
  ASSERT_EQ(back.Grd_Axial.Rows(), 52);
  ProblemData p;
  Sheet_To_Problem(back, p);
  EXPECT_EQ(std::tuple(p.N[19], p.zC[19]), std::tuple(1500.5, -3.25));
  EXPECT_FLOAT_EQ(p.A[1], 53.81f);
  ASSERT_TRUE(Read_FileZVK(dir / "AX0.ZVK", back).Ok);
  EXPECT_EQ(back.Grd_Axial.TextMatrix(20, 1), "0");
  // a block cut short is a failed read
  const std::string text = dir.Read("AX1.ZVK");
  dir.Write("AX2.ZVK", text.substr(0, text.find("\n 30 ", text.find("Axial"))));
  EXPECT_FALSE(Read_FileZVK(dir / "AX2.ZVK", back).Ok);
}

TEST_F(DirectData, ElementCountFrom50To300) {
  int asked = 0;
  for (const char* no : {"49", "301", "", "abc", "60.5"}) EXPECT_FALSE(NewProblem_Accepts(no, asked)) << no;
  for (int accepted : {300, 50}) {
    EXPECT_TRUE(NewProblem_Accepts(std::to_string(accepted), asked));
    EXPECT_EQ(asked, accepted);
  }
  for (int nb : {49, 301}) {  // in a file: refused before any cell changes
    ProblemData p;
    Sheet_To_Problem(New_DirectData(nb == 49 ? 50 : 300), p);
    p.Resize(nb, 0, 0);
    ASSERT_TRUE(Write_ProblemFile(dir / "NB.ZVK", p, ProblemLabels::Proceed));
    DirectDataSheet s = New_DirectData(80);
    s.Grd_Elements.Set_TextMatrix(5, 2, "777");
    const ReadOutcome r = Read_FileZVK(dir / "NB.ZVK", s);
    EXPECT_EQ(std::tuple(r.Ok, r.Message), std::tuple(false, std::string("Elements out of range (50<N<300)")));
    EXPECT_EQ(s.Txt_NB + " " + std::to_string(s.Grd_Elements.Rows()) + " " + s.Grd_Elements.TextMatrix(5, 2),
              "80 82 777");
  }
}

TEST_F(DirectData, AShortFileKeepsWhatWasRead) {
  const std::string path = dir / "SHORT.ZVK";
  DirectDataSheet full = New_DirectData(50);
  full.Grd_Elements.Set_TextMatrix(2, 1, "12.5");
  ASSERT_TRUE(Save_FileZVK(path, full));
  const std::string text = Read_File(path);
  const size_t nodes = text.find("Nodes :");  // cut in the middle of the node lines
  dir.Write("SHORT.ZVK", text.substr(0, text.find('\n', text.find('\n', nodes) + 1) + 1));
  DirectDataSheet s = New_DirectData(60);
  const ReadOutcome r = Read_FileZVK(path, s);
  // 3 labels, the sizes, a label, 50 elements, a label, node 1: line 58 is missing
  EXPECT_EQ(std::tuple(r.Ok, r.Line), std::tuple(false, 58));
  EXPECT_EQ(r.Message, "The problem file can't be read: reading stopped at line 58. The file ends before all its data.");
  EXPECT_EQ(Num_Of_Text(s.Grd_Elements.TextMatrix(2, 1)), 12.5);
  EXPECT_EQ(s.Grd_Restraints.TextMatrix(4, 1), "");
  EXPECT_FALSE(Read_FileZVK(dir / "MISSING.ZVK", s).Ok);
}

// "1e400" fits no field, "1e39" no single-precision one (lengths, section constants, heights, moments,
// loads) though a spring may be that stiff: refused in a file (reading stops there), a cell, and E.
TEST_F(DirectData, AValueBeyondItsFieldIsRefused) {
  const std::string path = dir / "RANGE.ZVK";
  ASSERT_TRUE(Save_FileZVK(path, New_DirectData(50)));
  const std::string good = Read_File(path);
  const struct { const char *from, *to; bool ok; const char* message; } cases[] = {
      // element 4 stands on line 5 + 4
      {"\n  4       10 ", "\n  4    1e400 ", false, "\"1e400\" is beyond the range of its field."},
      {"\n  4       10      603.78 ", "\n  4       10        1e39 ", false,
       "\"1e39\" is beyond the range of its field."},
      {"\n  4       10 ", "\n  4      ten ", false, "\"ten\" stands where a number was expected."},
      {"\n  3              0 ", "\n  3           1e39 ", true, ""}};  // node 3: a restraint of 1e39 is a double
  for (const auto& c : cases) {
    std::string t = good;
    const size_t at = t.find(c.from);
    ASSERT_NE(at, std::string::npos) << c.from;
    dir.Write("RANGE.ZVK", t.replace(at, std::string(c.from).size(), c.to));
    DirectDataSheet s = New_DirectData(50);
    const ReadOutcome r = Read_FileZVK(path, s);
    EXPECT_EQ(r.Ok, c.ok) << c.to;
    if (c.ok) continue;
    EXPECT_EQ(r.Line, 9) << c.to;
    EXPECT_NE(r.Message.find(std::string("stopped at line 9. ") + c.message), std::string::npos) << r.Message;
  }
  // a cell emptied, or beyond its field: nothing saved, the cell named
  DirectDataSheet s = New_DirectData(50);
  s.Grd_MV.Set_Cursor(10, 1);
  s.Grd_MV.Select_To(11, 2);
  Delete_Block(s.Grd_MV);
  Cell_Ref bad;
  dir.Write("RANGE.ZVK", "old contents\n");
  EXPECT_FALSE(Save_FileZVK(path, s, &bad));
  EXPECT_EQ(std::tuple(bad.Grid, bad.Row, bad.Col, bad.Out_Of_Range), std::tuple(Grid_Kind::MV, 10, 1, false));
  s = New_DirectData(50);
  s.Grd_Elements.Set_TextMatrix(5, 2, "1e39");
  EXPECT_FALSE(Save_FileZVK(path, s, &bad));
  EXPECT_EQ(std::tuple(bad.Grid, bad.Row, bad.Col, bad.Out_Of_Range), std::tuple(Grid_Kind::Elements, 5, 2, true));
  EXPECT_EQ(Read_File(path), "old contents\n");
  s.Grd_Elements.Set_TextMatrix(5, 2, "603.78");
  s.Grd_Elements.Set_TextMatrix(5, 6, "1e39");  // a twist link, double
  EXPECT_TRUE(Save_FileZVK(path, s));
  s.Txt_E = "1e400";
  EXPECT_EQ(IsDataWrong(s).Field, Header_Field::E);
}

// A 5 x 3 block (rows 2..6, cols 1..3) of "m<row><col>" marks, dragged from (row, col) to (rowSel, colSel).
Text_Grid Marked_Grid(int row = 2, int col = 1, int rowSel = 2, int colSel = 1) {
  Text_Grid g(7, 4);
  for (int r = 2; r < 7; ++r)
    for (int c = 1; c < 4; ++c) g.Set_TextMatrix(r, c, "m" + std::to_string(r) + std::to_string(c));
  g.Set_Cursor(row, col);
  g.Select_To(rowSel, colSel);
  return g;
}

std::vector<std::string> Block(const Text_Grid& g, int top, int left, int bottom, int right) {
  std::vector<std::string> v;
  for (int r = top; r <= bottom; ++r)
    for (int c = left; c <= right; ++c) v.push_back(g.TextMatrix(r, c));
  return v;
}

// A selection, a clipboard text, the selected block after, row by row ("" = marker); nothing outside moves.
TEST_F(Grid, PasteRules) {
  using P = Paste_Outcome;
  const struct { int row, col, rowSel, colSel; const char* clip; P outcome; int written;
                 std::vector<std::string> after; } cases[] = {
      {2, 1, 3, 2, "7.5", P::Done, 4, {"7.5", "7.5", "7.5", "7.5"}},  // one value fills all
      // a block dragged upwards lands from the top left
      {3, 3, 2, 1, "1\t2\t3\r\n4\t5\t6\r\n", P::Done, 6, {"1", "2", "3", "4", "5", "6"}},
      {5, 2, 6, 3, "1E3\t-2\n0.5\t+4", P::Done, 4, {"1E3", "-2", "0.5", "+4"}},  // bare line feeds, no final one
      // 2 x 3 on a 3 x 2 selection, a ragged block, an empty clipboard: nothing
      {2, 1, 4, 2, "1\t2\t3\r\n4\t5\t6\r\n", P::Nothing, 0, {"", "", "", "", "", ""}},
      {2, 1, 3, 2, "1\t2\r\n3\r\n", P::Nothing, 0, {"", "", "", ""}},
      {2, 1, 2, 1, "", P::Nothing, 0, {""}},
      // a word in the second row keeps the first; mid-row, the cells before it
      {2, 1, 3, 2, "1\t2\r\nabc\t4\r\n", P::Not_Numeric, 2, {"1", "2", "", ""}},
      {2, 1, 2, 3, "1\t2,5\t3\r\n", P::Not_Numeric, 1, {"1", "", ""}}};
  for (const auto& pc : cases) {
    Text_Grid g = Marked_Grid(pc.row, pc.col, pc.rowSel, pc.colSel);
    const Text_Grid before = g;
    const Paste_Result r = Paste_Text(g, pc.clip);
    EXPECT_EQ(std::tuple(r.Outcome, r.Written), std::tuple(pc.outcome, pc.written)) << pc.clip;
    // the whole grid as expected: the markers, the selected block overwritten where a text is given
    const Grid_Block b = Selected_Block(g);
    const int w = b.Right - b.Left + 1;
    ASSERT_EQ(pc.after.size(), size_t((b.Bottom - b.Top + 1) * w)) << pc.clip;
    Text_Grid want = before;
    for (size_t i = 0; i < pc.after.size(); ++i)
      if (!pc.after[i].empty()) want.Set_TextMatrix(b.Top + i / w, b.Left + i % w, pc.after[i]);
    EXPECT_EQ(Block(g, 2, 1, 6, 3), Block(want, 2, 1, 6, 3)) << pc.clip;
  }
  Dec_Sep = ',';  // under a comma locale a point is no decimal mark
  Text_Grid g = Marked_Grid(2, 1, 2, 2);
  EXPECT_EQ(Paste_Text(g, "1,5\t2.5").Outcome, Paste_Outcome::Not_Numeric);
  EXPECT_EQ(g.TextMatrix(2, 1), "1,5");
}

// Copy: tab-separated rows ended by CR LF whichever way the block was dragged; Delete empties it only.
TEST_F(Grid, CopyAndDelete) {
  Text_Grid g = Marked_Grid(5, 3, 4, 2);
  EXPECT_EQ(Copy_Block(g), "m42\tm43\r\nm52\tm53\r\n");
  g.Set_Cursor(3, 1);
  g.Select_To(2, 3);  // dragged up and right
  Delete_Block(g);
  EXPECT_EQ(Block(g, 2, 1, 3, 3), std::vector<std::string>(6, ""));
  EXPECT_EQ(g.TextMatrix(4, 1), "m41");
}

// Columns that may be typed with "-": links of the elements, all of the restraints and moments,
// forces and heights of the loads (the keys of each filter mode: tests/foundation).
TEST_F(Grid, KeyFiltersRefuseTheMinusWhereAValueCantBeNegative) {
  const struct { Grid_Kind kind; const char* minusAllowed; } cases[] = {  // one mark per column 1..
      {Grid_Kind::Elements, "-----+++"},  // L Iz It Iw Betaz | Kt Kvp Ktp
      {Grid_Kind::Restraints, "+++++"}, {Grid_Kind::MV, "++"},
      {Grid_Kind::SpanLoadsF, "+-+"},     // F x z
      {Grid_Kind::SpanLoadsQ, "+-+-+"},   // q1 x1 q2 x2 z
      {Grid_Kind::Axial, "+--+"}};        // N (tension negative) A Iy zC
  for (const auto& c : cases) {
    const std::string marks = c.minusAllowed;
    ASSERT_EQ((int)marks.size(), Grid_Columns(c.kind) - 1);
    for (int col = 1; col < Grid_Columns(c.kind); ++col) {
      int key = '-';
      EXPECT_EQ(Filter_NumericKey(key, Column_FilterMode(c.kind, col)), marks[col - 1] == '+')
          << (int)c.kind << " column " << col;
    }
  }
}

}  // namespace
