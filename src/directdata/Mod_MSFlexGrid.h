// Editing rules of the data grids, kept apart from any toolkit.
//
// A grid is a matrix of texts. Row 0 holds the column names, row 1 the units
// and the data start at row 2; column 0 holds the running number. The cursor
// is the current cell (Row, Col); a block selection runs from the cursor to
// (RowSel, ColSel), whichever way it was dragged.
//
// The clipboard format is the one spreadsheets exchange: the cells of a row
// joined by tabs, every row ended by a line end. That is how a block prepared
// in a spreadsheet reaches the grid and how a block of the grid goes back.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zarvek {

// Header rows and columns of every data grid.
constexpr int Grid_FixedRows = 2;
constexpr int Grid_FixedCols = 1;

// What the rules need to see of a grid.
class Grid_Access {
 public:
  virtual ~Grid_Access() = default;
  virtual int Rows() const = 0;
  virtual int Cols() const = 0;
  virtual std::string TextMatrix(int row, int col) const = 0;
  virtual void Set_TextMatrix(int row, int col, const std::string& text) = 0;
  // cursor and the far corner of the selected block
  virtual int Row() const = 0;
  virtual int Col() const = 0;
  virtual int RowSel() const = 0;
  virtual int ColSel() const = 0;
};

// A grid held as plain texts: the record the file commands read and write,
// and the stand-in of a window grid in the tests.
class Text_Grid : public Grid_Access {
 public:
  Text_Grid() = default;
  Text_Grid(int rows, int cols) { Resize(rows, cols); }

  // Keeps the texts that still fit; new cells are empty.
  void Resize(int rows, int cols);

  int Rows() const override { return rows_; }
  int Cols() const override { return cols_; }
  std::string TextMatrix(int row, int col) const override;
  void Set_TextMatrix(int row, int col, const std::string& text) override;
  int Row() const override { return row_; }
  int Col() const override { return col_; }
  int RowSel() const override { return rowSel_; }
  int ColSel() const override { return colSel_; }

  // Moves the cursor and collapses the selection onto it.
  void Set_Cursor(int row, int col) { row_ = rowSel_ = row; col_ = colSel_ = col; }
  // Extends the selection from the cursor to (row, col).
  void Select_To(int row, int col) { rowSel_ = row; colSel_ = col; }

 private:
  int rows_ = 0, cols_ = 0;
  std::vector<std::string> cells_;
  int row_ = Grid_FixedRows, col_ = Grid_FixedCols, rowSel_ = Grid_FixedRows, colSel_ = Grid_FixedCols;
};

// The selected block with its corners in order.
struct Grid_Block {
  int Top = 0, Left = 0, Bottom = 0, Right = 0;
  int Rows() const { return Bottom - Top + 1; }
  int Cols() const { return Right - Left + 1; }
};
Grid_Block Selected_Block(const Grid_Access& g);

// Size of the selected block: |Row - RowSel| + 1 rows, |Col - ColSel| + 1
// columns.
void Get_GridSelection(const Grid_Access& g, int& rows, int& columns);

// "rows x columns", the caption shown while a block is dragged.
std::string Selection_Caption(const Grid_Access& g);

// The block as clipboard text: cells joined by tabs, each row ended by
// carriage return and line feed.
std::string Copy_Block(const Grid_Access& g);

// Empties every cell of the selected block.
void Delete_Block(Grid_Access& g);

// Writes the running numbers "i " into column 0 of the data rows.
void Number_Rows(Grid_Access& g);

// Clipboard text cut into rows of cells. Line ends may be CR LF (what this
// grid writes), LF or CR (what spreadsheets on other systems write); one line
// end after the last row belongs to the last row, not an empty row.
// `Rectangular` is false when the rows don't all have the same number of
// cells.
struct Clipboard_Block {
  std::vector<std::vector<std::string>> Cells;
  bool Rectangular = true;
  bool Single() const { return Cells.size() == 1 && Cells[0].size() == 1; }
  int Rows() const { return (int)Cells.size(); }
  int Cols() const { return Cells.empty() ? 0 : (int)Cells[0].size(); }
};
Clipboard_Block Parse_ClipboardText(std::string_view text);

// What a paste did.
enum class Paste_Outcome {
  Nothing,      // no text, or a block of another size than the selection
  Done,         // every value written
  Not_Numeric,  // stopped at a value that isn't a number: Msg(75)
};
struct Paste_Result {
  Paste_Outcome Outcome = Paste_Outcome::Nothing;
  int Written = 0;             // cells written before the stop
  int Bad_Row = 0, Bad_Col = 0;  // the cell of the refused value
  bool Out_Of_Range = false;     // it was a number, beyond the range of its cell
};

// Pastes clipboard text on the selected block. A single value fills every
// cell of the selection. A block must have exactly the selection's size, or
// nothing happens. Values are written row by row, column by column, each
// tested by the locale's numeric test, and by `in_Range` (row, column, text)
// when given; the first that fails stops the paste, the cells already
// written staying written. A value beyond the range of a double ("1e400") is
// never a number of a cell.
Paste_Result Paste_Text(Grid_Access& g, std::string_view text,
                        const std::function<bool(int row, int col, const std::string&)>& in_Range = {});

// The key filter mode of a column (Filter_NumericKey): 1 refuses "-".
enum class Grid_Kind { Elements, Restraints, MV, SpanLoadsF, SpanLoadsQ, Axial };
int Column_FilterMode(Grid_Kind kind, int col);

// The row the cursor goes to on Enter or Down: the next one, or the same on
// the last row. On Up: the previous one, but never above the first data row.
int Row_After_Down(const Grid_Access& g);
int Row_After_Up(const Grid_Access& g);
// The column of Tab (forward) and Shift+Tab (backward), kept within the data
// columns of the row.
int Col_After_Tab(const Grid_Access& g, bool backward);

}  // namespace zarvek
