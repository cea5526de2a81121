#include "directdata/Mod_MSFlexGrid.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

void Text_Grid::Resize(int rows, int cols) {
  rows = std::max(rows, 0);
  cols = std::max(cols, 0);
  std::vector<std::string> cells((size_t)rows * (size_t)cols);
  for (int r = 0; r < std::min(rows, rows_); ++r)
    for (int c = 0; c < std::min(cols, cols_); ++c)
      cells[(size_t)r * cols + c] = std::move(cells_[(size_t)r * cols_ + c]);
  cells_ = std::move(cells);
  rows_ = rows;
  cols_ = cols;
  auto clampRow = [&](int r) { return std::clamp(r, 0, std::max(rows_ - 1, 0)); };
  auto clampCol = [&](int c) { return std::clamp(c, 0, std::max(cols_ - 1, 0)); };
  row_ = clampRow(row_);
  rowSel_ = clampRow(rowSel_);
  col_ = clampCol(col_);
  colSel_ = clampCol(colSel_);
}

std::string Text_Grid::TextMatrix(int row, int col) const {
  if (row < 0 || row >= rows_ || col < 0 || col >= cols_) return {};
  return cells_[(size_t)row * cols_ + col];
}

void Text_Grid::Set_TextMatrix(int row, int col, const std::string& text) {
  if (row < 0 || row >= rows_ || col < 0 || col >= cols_) return;
  cells_[(size_t)row * cols_ + col] = text;
}

Grid_Block Selected_Block(const Grid_Access& g) {
  Grid_Block b;
  b.Top = std::min(g.Row(), g.RowSel());
  b.Bottom = std::max(g.Row(), g.RowSel());
  b.Left = std::min(g.Col(), g.ColSel());
  b.Right = std::max(g.Col(), g.ColSel());
  return b;
}

void Get_GridSelection(const Grid_Access& g, int& rows, int& columns) {
  rows = std::abs(g.Row() - g.RowSel()) + 1;
  columns = std::abs(g.Col() - g.ColSel()) + 1;
}

std::string Selection_Caption(const Grid_Access& g) {
  int rows = 0, cols = 0;
  Get_GridSelection(g, rows, cols);
  return std::to_string(rows) + "x" + std::to_string(cols);
}

std::string Copy_Block(const Grid_Access& g) {
  const Grid_Block b = Selected_Block(g);
  std::string s;
  for (int r = b.Top; r <= b.Bottom; ++r) {
    for (int c = b.Left; c <= b.Right; ++c) {
      if (c > b.Left) s += '\t';
      s += g.TextMatrix(r, c);
    }
    s += "\r\n";
  }
  return s;
}

void Delete_Block(Grid_Access& g) {
  const Grid_Block b = Selected_Block(g);
  for (int r = b.Top; r <= b.Bottom; ++r)
    for (int c = b.Left; c <= b.Right; ++c) g.Set_TextMatrix(r, c, "");
}

void Number_Rows(Grid_Access& g) {
  for (int i = 1; i <= g.Rows() - Grid_FixedRows; ++i) g.Set_TextMatrix(i + 1, 0, std::to_string(i) + " ");
}

Clipboard_Block Parse_ClipboardText(std::string_view text) {
  Clipboard_Block b;
  // one kind of line end
  std::string s;
  s.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') {
      s += '\n';
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      s += text[i];
    }
  }
  if (!s.empty() && s.back() == '\n') s.pop_back();
  if (s.empty()) return b;
  size_t start = 0;
  while (true) {
    const size_t nl = s.find('\n', start);
    const std::string_view line = std::string_view(s).substr(start, nl == std::string::npos ? s.npos : nl - start);
    std::vector<std::string> row;
    size_t cs = 0;
    while (true) {
      const size_t tab = line.find('\t', cs);
      row.emplace_back(line.substr(cs, tab == line.npos ? line.npos : tab - cs));
      if (tab == line.npos) break;
      cs = tab + 1;
    }
    if (!b.Cells.empty() && row.size() != b.Cells[0].size()) b.Rectangular = false;
    b.Cells.push_back(std::move(row));
    if (nl == std::string::npos) break;
    start = nl + 1;
  }
  return b;
}

Paste_Result Paste_Text(Grid_Access& g, std::string_view text,
                        const std::function<bool(int row, int col, const std::string&)>& in_Range) {
  Paste_Result res;
  const Clipboard_Block clip = Parse_ClipboardText(text);
  if (clip.Cells.empty() || !clip.Rectangular) return res;
  const Grid_Block sel = Selected_Block(g);
  const bool single = clip.Single();
  if (!single && (clip.Rows() != sel.Rows() || clip.Cols() != sel.Cols())) return res;
  for (int r = 0; r < sel.Rows(); ++r) {
    for (int c = 0; c < sel.Cols(); ++c) {
      const std::string& v = single ? clip.Cells[0][0] : clip.Cells[r][c];
      const int row = sel.Top + r, col = sel.Left + c;
      if (!Is_Numeric(v) || !std::isfinite(Num_Of_Text(v)) || (in_Range && !in_Range(row, col, Trim(v)))) {
        res.Outcome = Paste_Outcome::Not_Numeric;
        res.Out_Of_Range = Is_Numeric(v);
        res.Bad_Row = sel.Top + r;
        res.Bad_Col = sel.Left + c;
        return res;
      }
      g.Set_TextMatrix(sel.Top + r, sel.Left + c, Trim(v));
      ++res.Written;
    }
  }
  res.Outcome = Paste_Outcome::Done;
  return res;
}

int Column_FilterMode(Grid_Kind kind, int col) {
  switch (kind) {
    case Grid_Kind::Elements: return col < 6 ? 1 : 0;  // the three links may hold -1
    case Grid_Kind::Restraints:
    case Grid_Kind::MV: return 0;
    case Grid_Kind::SpanLoadsF: return col == 2 ? 1 : 0;          // x
    case Grid_Kind::SpanLoadsQ: return col == 2 || col == 4 ? 1 : 0;  // x1, x2
    case Grid_Kind::Axial: return col == 2 || col == 3 ? 1 : 0;       // A, Iy; N, zC signed
  }
  return 0;
}

int Row_After_Down(const Grid_Access& g) { return g.Row() < g.Rows() - 1 ? g.Row() + 1 : g.Row(); }

int Row_After_Up(const Grid_Access& g) { return g.Row() > Grid_FixedRows ? g.Row() - 1 : g.Row(); }

int Col_After_Tab(const Grid_Access& g, bool backward) {
  if (backward) return g.Col() > Grid_FixedCols ? g.Col() - 1 : g.Col();
  return g.Col() < g.Cols() - 1 ? g.Col() + 1 : g.Col();
}

}  // namespace zarvek
