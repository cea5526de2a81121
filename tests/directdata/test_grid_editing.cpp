// Editing rules of the data grids: paste, copy, delete, moves and key filters.
#include <gtest/gtest.h>

#include "directdata/DirectData.h"
#include "directdata/Mod_MSFlexGrid.h"
#include "foundation/Mod_Zarvek.h"

using namespace zarvek;

namespace {

// A 5 x 3 data block (rows 2..6, columns 1..3) filled with "m<row><col>" markers
// that no paste below writes.
Text_Grid Marked_Grid() {
  Text_Grid g(7, 4);
  for (int r = 2; r < 7; ++r)
    for (int c = 1; c < 4; ++c) g.Set_TextMatrix(r, c, "m" + std::to_string(r) + std::to_string(c));
  return g;
}

std::vector<std::string> Block(const Text_Grid& g, int top, int left, int bottom, int right) {
  std::vector<std::string> v;
  for (int r = top; r <= bottom; ++r)
    for (int c = left; c <= right; ++c) v.push_back(g.TextMatrix(r, c));
  return v;
}

// A selection dragged from (row, col) to (rowSel, colSel), a clipboard text,
// and the selected block afterwards, row by row ("" = the cell's marker).
// Nothing outside the selection moves.
TEST(Grid, PasteRules) {
  Dec_Sep = '.';
  const struct {
    int row, col, rowSel, colSel;
    const char* clip;
    Paste_Outcome outcome;
    int written;
    std::vector<std::string> after;
  } cases[] = {
      {2, 1, 3, 2, "7.5", Paste_Outcome::Done, 4, {"7.5", "7.5", "7.5", "7.5"}},  // one value fills all
      // a block dragged upwards lands from the top left
      {3, 3, 2, 1, "1\t2\t3\r\n4\t5\t6\r\n", Paste_Outcome::Done, 6, {"1", "2", "3", "4", "5", "6"}},
      // bare line feeds, no final one
      {5, 2, 6, 3, "1E3\t-2\n0.5\t+4", Paste_Outcome::Done, 4, {"1E3", "-2", "0.5", "+4"}},
      // 2 x 3 on a 3 x 2 selection, a ragged block, an empty clipboard: nothing
      {2, 1, 4, 2, "1\t2\t3\r\n4\t5\t6\r\n", Paste_Outcome::Nothing, 0, {"", "", "", "", "", ""}},
      {2, 1, 3, 2, "1\t2\r\n3\r\n", Paste_Outcome::Nothing, 0, {"", "", "", ""}},
      {2, 1, 2, 1, "", Paste_Outcome::Nothing, 0, {""}},
      // a word in the second row keeps the first; mid-row, the cells before it
      {2, 1, 3, 2, "1\t2\r\nabc\t4\r\n", Paste_Outcome::Not_Numeric, 2, {"1", "2", "", ""}},
      {2, 1, 2, 3, "1\t2,5\t3\r\n", Paste_Outcome::Not_Numeric, 1, {"1", "", ""}}};
  for (const auto& pc : cases) {
    Text_Grid g = Marked_Grid();
    const Text_Grid before = g;
    g.Set_Cursor(pc.row, pc.col);
    g.Select_To(pc.rowSel, pc.colSel);
    const Paste_Result r = Paste_Text(g, pc.clip);
    EXPECT_EQ(r.Outcome, pc.outcome) << pc.clip;
    EXPECT_EQ(r.Written, pc.written) << pc.clip;
    const Grid_Block b = Selected_Block(g);
    std::vector<std::string> want = pc.after;
    const std::vector<std::string> old = Block(before, b.Top, b.Left, b.Bottom, b.Right);
    for (size_t i = 0; i < want.size(); ++i)
      if (want[i].empty()) want[i] = old[i];
    EXPECT_EQ(Block(g, b.Top, b.Left, b.Bottom, b.Right), want) << pc.clip;
    for (int r2 = 2; r2 < 7; ++r2)
      for (int c = 1; c < 4; ++c)
        if (r2 < b.Top || r2 > b.Bottom || c < b.Left || c > b.Right) {
          EXPECT_EQ(g.TextMatrix(r2, c), before.TextMatrix(r2, c)) << pc.clip;
        }
  }
  // under a comma locale a point is no decimal mark
  Dec_Sep = ',';
  Text_Grid g = Marked_Grid();
  g.Set_Cursor(2, 1);
  g.Select_To(2, 2);
  EXPECT_EQ(Paste_Text(g, "1,5\t2.5").Outcome, Paste_Outcome::Not_Numeric);
  EXPECT_EQ(g.TextMatrix(2, 1), "1,5");
  Dec_Sep = '.';
}

// Copy gives tab-separated rows ended by CR LF whichever way the block was
// dragged; the size of a selection; Delete empties the block only.
TEST(Grid, CopySelectionSizeAndDelete) {
  Text_Grid g = Marked_Grid();
  g.Set_Cursor(5, 3);
  g.Select_To(4, 2);
  EXPECT_EQ(Copy_Block(g), "m42\tm43\r\nm52\tm53\r\n");
  g.Set_Cursor(3, 1);
  int rows = 0, cols = 0;
  Get_GridSelection(g, rows, cols);
  EXPECT_EQ(rows * 10 + cols, 11);
  g.Select_To(2, 3);  // dragged up and right
  EXPECT_EQ(Selection_Caption(g), "2x3");
  Delete_Block(g);
  EXPECT_EQ(Block(g, 2, 1, 3, 3), std::vector<std::string>(6, ""));
  EXPECT_EQ(g.TextMatrix(4, 1), "m41");
}

TEST(Grid, KeyFiltersRefuseTheMinusWhereAValueCantBeNegative) {
  // columns that may be typed with "-": links of the elements, all of the
  // restraints and moments, forces and heights of the loads
  const struct { Grid_Kind kind; const char* minusAllowed; } cases[] = {  // one mark per column 1..
      {Grid_Kind::Elements, "-----+++"},  // L Iz It Iw Betaz | Kt Kvp Ktp
      {Grid_Kind::Restraints, "+++++"},
      {Grid_Kind::MV, "++"},
      {Grid_Kind::SpanLoadsF, "+-+"},     // F x z
      {Grid_Kind::SpanLoadsQ, "+-+-+"},   // q1 x1 q2 x2 z
      {Grid_Kind::Axial, "+--+"},         // N (tension negative) A Iy zC
  };
  Dec_Sep = ',';
  for (const auto& c : cases) {
    const std::string marks = c.minusAllowed;
    ASSERT_EQ((int)marks.size(), Grid_Columns(c.kind) - 1);
    for (int col = 1; col < Grid_Columns(c.kind); ++col) {
      int key = '-';
      EXPECT_EQ(Filter_NumericKey(key, Column_FilterMode(c.kind, col)), marks[col - 1] == '+')
          << (int)c.kind << " column " << col;
      int point = '.';
      EXPECT_TRUE(Filter_NumericKey(point, Column_FilterMode(c.kind, col)));
      EXPECT_EQ(point, ',');
    }
  }
  Dec_Sep = '.';
}

}  // namespace
