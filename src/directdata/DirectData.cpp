#include "directdata/DirectData.h"

#include <cmath>
#include <fstream>
#include <iterator>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

struct Column {
  const char* Head;
  const char* Unit;
};

// Row 0 and row 1 of the grids. The twist and warping links read K-theta.
const Column Elements_Cols[] = {{"N°", ""},          {"L", "(cm)"},
                                {"Iz", "(cm4)"},      {"It", "(cm4)"},
                                {"Iw", "(cm6)"},      {"βz", "(cm)"},
                                {"Kθ", "(daN.cm/rd)"}, {"Kv'", "(daN.cm)"},
                                {"Kθ′", "(daN.cm3/rd)"}};
const Column Restraints_Cols[] = {{"N°", ""},           {"Rv", "(daN/cm)"},     {"Rt", "(daN.cm/rd)"},
                                  {"Rv'", "(daN.cm)"}, {"Rt'", "(daN.cm/rd/cm)"}, {"z", "(cm)"}};
const Column MV_Cols[] = {{"N°", ""}, {"M1", "(daN.cm)"}, {"M2", "(daN.cm)"}};
const Column F_Cols[] = {{"N°", ""}, {"F", "(daN)"}, {"x", "(cm)"}, {"z", "(cm)"}};
const Column Q_Cols[] = {{"N°", ""},         {"q1", "(daN/cm)"}, {"x1", "(cm)"},
                         {"q2", "(daN/cm)"}, {"x2", "(cm)"},     {"z", "(cm)"}};

const Column Axial_Cols[] = {{"N°", ""},       {"N", "(daN)"}, {"A", "(cm2)"},
                             {"Iy", "(cm4)"}, {"zC", "(cm)"}};

struct Columns {
  const Column* Cols;
  int Count;
};

Columns Columns_Of(Grid_Kind k) {
  switch (k) {
    case Grid_Kind::Elements: return {Elements_Cols, (int)std::size(Elements_Cols)};
    case Grid_Kind::Restraints: return {Restraints_Cols, (int)std::size(Restraints_Cols)};
    case Grid_Kind::MV: return {MV_Cols, (int)std::size(MV_Cols)};
    case Grid_Kind::SpanLoadsF: return {F_Cols, (int)std::size(F_Cols)};
    case Grid_Kind::SpanLoadsQ: return {Q_Cols, (int)std::size(Q_Cols)};
    case Grid_Kind::Axial: return {Axial_Cols, (int)std::size(Axial_Cols)};
  }
  return {MV_Cols, 0};
}

// "603" Dec_Sep "78": a value of the starting contents in the locale.
std::string Local(const char* dotText) { return To_LocalText(dotText); }

// Sizes a grid for `rows` data rows and writes its header rows and numbers;
// the data cells are emptied.
void Set_Frame(Text_Grid& g, Grid_Kind k, int rows) {
  const Columns cs = Columns_Of(k);
  g.Resize(0, 0);
  g.Resize(rows + Grid_FixedRows, cs.Count);
  for (int c = 0; c < cs.Count; ++c) {
    g.Set_TextMatrix(0, c, cs.Cols[c].Head);
    g.Set_TextMatrix(1, c, cs.Cols[c].Unit);
  }
  Number_Rows(g);
  g.Set_Cursor(Grid_FixedRows, Grid_FixedCols);
}

const Grid_Kind All_Grids[] = {Grid_Kind::Elements, Grid_Kind::Restraints, Grid_Kind::MV, Grid_Kind::SpanLoadsF,
                               Grid_Kind::SpanLoadsQ, Grid_Kind::Axial};

// Texts of a problem file cut as the solver cuts them: any run of blanks,
// tabs, commas or line ends separates two values; a label line is skipped
// whatever it says.
class Token_Reader {
 public:
  explicit Token_Reader(std::string text) : s_(std::move(text)) {}

  bool Skip_Line() {
    if (p_ >= s_.size()) return false;
    const size_t nl = s_.find('\n', p_);
    p_ = nl == std::string::npos ? s_.size() : nl + 1;
    return true;
  }

  // Only separators remain.
  bool At_End() {
    while (p_ < s_.size() && Is_Sep(s_[p_])) ++p_;
    return p_ >= s_.size();
  }

  // The next value, as the file spells it; false at the end of the text.
  bool Token(std::string& t) {
    while (p_ < s_.size() && Is_Sep(s_[p_])) ++p_;
    if (p_ >= s_.size()) return false;
    const size_t b = p_;
    while (p_ < s_.size() && !Is_Sep(s_[p_])) ++p_;
    t = s_.substr(b, p_ - b);
    // separators that end the line belong to this value: the next label is
    // then the next line
    size_t q = p_;
    while (q < s_.size() && s_[q] != '\n' && Is_Sep(s_[q])) ++q;
    p_ = (q < s_.size() && s_[q] == '\n') ? q + 1 : q;
    return true;
  }

  // The next value as a text of the screen; false when it isn't a number.
  bool Value(std::string& local) {
    std::string t;
    if (!Token(t)) return false;
    local = To_LocalText(t);
    return Is_Numeric(local);
  }

 private:
  static bool Is_Sep(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ','; }
  std::string s_;
  size_t p_ = 0;
};

}  // namespace

Text_Grid& DirectDataSheet::Grid(Grid_Kind k) {
  switch (k) {
    case Grid_Kind::Elements: return Grd_Elements;
    case Grid_Kind::Restraints: return Grd_Restraints;
    case Grid_Kind::MV: return Grd_MV;
    case Grid_Kind::SpanLoadsF: return Grd_SpanLoadsF;
    case Grid_Kind::SpanLoadsQ: return Grd_SpanLoadsQ;
    case Grid_Kind::Axial: return Grd_Axial;
  }
  return Grd_Elements;
}

const Text_Grid& DirectDataSheet::Grid(Grid_Kind k) const { return const_cast<DirectDataSheet*>(this)->Grid(k); }

int Grid_Columns(Grid_Kind k) { return Columns_Of(k).Count; }

const char* Grid_Head(Grid_Kind k, int col) {
  const Columns cs = Columns_Of(k);
  return col >= 0 && col < cs.Count ? cs.Cols[col].Head : "";
}

const char* Grid_Unit(Grid_Kind k, int col) {
  const Columns cs = Columns_Of(k);
  return col >= 0 && col < cs.Count ? cs.Cols[col].Unit : "";
}

bool Is_WholeNumber(const std::string& text) {
  if (!Is_Numeric(text)) return false;
  const double v = Num_Of_Text(text);
  return v >= -1e9 && v <= 1e9 && v == std::floor(v);
}

int Count_Of_Text(const std::string& text) {
  if (!Is_WholeNumber(text)) return -1;
  const double v = Num_Of_Text(text);
  return v < 0 ? -1 : (int)v;
}

int Grid_DataRows(const DirectDataSheet& s, Grid_Kind k) {
  const int nb = std::max(Count_Of_Text(s.Txt_NB), 0);
  switch (k) {
    case Grid_Kind::Elements:
    case Grid_Kind::MV:
    case Grid_Kind::Axial: return nb;
    case Grid_Kind::Restraints: return nb + 1;
    case Grid_Kind::SpanLoadsF: return std::max(Count_Of_Text(s.Txt_NF), 0);
    case Grid_Kind::SpanLoadsQ: return std::max(Count_Of_Text(s.Txt_NQ), 0);
  }
  return 0;
}

void Prepare_Grid(DirectDataSheet& s, Grid_Kind k) {
  Text_Grid& g = s.Grid(k);
  const int n = Grid_DataRows(s, k);
  Set_Frame(g, k, n);
  std::vector<std::string> row;
  switch (k) {
    case Grid_Kind::Elements:
      row = {"10", Local("603.78"), Local("20.28"), "126332", "0", "-1", "-1", "-1"};
      break;
    case Grid_Kind::Restraints: row = {"0", "0", "0", "0", "0"}; break;
    case Grid_Kind::MV: row = {"1000", "1000"}; break;
    case Grid_Kind::SpanLoadsF: row = {"-1000", Local("0.00"), "10"}; break;
    case Grid_Kind::SpanLoadsQ: row = {"-10", "0", "-10", "10", "0"}; break;
    // no force; the constants of the section of the elements grid
    case Grid_Kind::Axial: row = {"0", Local("53.81"), "8356", "0"}; break;
  }
  for (int r = Grid_FixedRows; r < g.Rows(); ++r)
    for (size_t c = 0; c < row.size(); ++c) g.Set_TextMatrix(r, (int)c + 1, row[c]);
  if (k == Grid_Kind::Restraints && n > 0) {
    // fork supports: lateral displacement and twist held at both ends
    for (int r : {Grid_FixedRows, g.Rows() - 1}) {
      g.Set_TextMatrix(r, 1, "-1");
      g.Set_TextMatrix(r, 2, "-1");
    }
  }
}

DirectDataSheet New_DirectData(int nb) {
  DirectDataSheet s;
  s.Txt_NB = std::to_string(nb);
  s.Txt_E = DirectData_E;
  s.Txt_G = DirectData_G;
  s.Txt_NF = "0";
  s.Txt_NQ = "0";
  for (Grid_Kind k : All_Grids) Prepare_Grid(s, k);
  return s;
}

DataWrong IsDataWrong(const DirectDataSheet& s, int* NFmax) {
  DataWrong w;
  const std::string* fields[] = {&s.Txt_NB, &s.Txt_E, &s.Txt_G, &s.Txt_NF, &s.Txt_NQ};
  for (int i = 0; i < 5; ++i) {
    const Header_Field f = (Header_Field)i;
    const bool count = f == Header_Field::NB || f == Header_Field::NF || f == Header_Field::NQ;
    if (count ? !Is_WholeNumber(*fields[i]) : !Is_Numeric(*fields[i])) {
      w.Wrong = true;
      w.Field = f;
      return w;
    }
  }
  const int nfmax = Count_Of_Text(s.Txt_NB) + 1;
  if (NFmax) *NFmax = nfmax;
  const double nf = Num_Of_Text(s.Txt_NF);
  if (nf < 0 || nf > nfmax) {
    w.Wrong = true;
    w.Field = Header_Field::NF;
    w.Message = Msg(48) + " : NFmax = " + std::to_string(nfmax) + " !";
    return w;
  }
  const double nq = Num_Of_Text(s.Txt_NQ);
  if (nq < 0 || nq > DirectData_NQMax) {
    w.Wrong = true;
    w.Field = Header_Field::NQ;
    w.Message = Msg(46) + " : NQmax = " + std::to_string(DirectData_NQMax) + " !";
    return w;
  }
  return w;
}

Header_Field First_NonNumeric(const DirectDataSheet& s) {
  if (!Is_Numeric(s.Txt_E)) return Header_Field::E;
  if (!Is_Numeric(s.Txt_G)) return Header_Field::G;
  if (!Is_Numeric(s.Txt_NF)) return Header_Field::NF;
  if (!Is_Numeric(s.Txt_NQ)) return Header_Field::NQ;
  return Header_Field::None;
}

std::string NewProblem_Prompt() {
  return Msg(47) + "(" + std::to_string(DirectData_NBMin) + "<N<" + std::to_string(DirectData_NBMax) + ")";
}

bool NewProblem_Accepts(const std::string& answer, int& nb) {
  const int n = Count_Of_Text(answer);
  if (n < DirectData_NBMin || n > DirectData_NBMax) return false;
  nb = n;
  return true;
}

ReadOutcome Read_FileZVK(const std::string& name, DirectDataSheet& s) {
  ReadOutcome out;
  std::ifstream f(name, std::ios::binary);
  if (!f) return out;
  std::string text((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  f.close();
  Token_Reader rd(std::move(text));

  for (int i = 0; i < 3; ++i)
    if (!rd.Skip_Line()) return out;
  std::string nbText, e, g;
  if (!rd.Value(nbText)) return out;
  const int nb = Count_Of_Text(nbText);
  if (nb < DirectData_NBMin || nb > DirectData_NBMax) {
    out.Message = Msg(30) + " (" + std::to_string(DirectData_NBMin) + "<N<" + std::to_string(DirectData_NBMax) + ")";
    return out;
  }
  s.Txt_NB = std::to_string(nb);
  if (!rd.Value(e)) return out;
  s.Txt_E = e;
  if (!rd.Value(g)) return out;
  s.Txt_G = g;

  // one record a row: the running number of the file is the grid's own
  auto read_rows = [&rd](Text_Grid& grid, int rows, int values, bool indexed) {
    for (int r = 0; r < rows; ++r) {
      std::string v;
      if (indexed && !rd.Value(v)) return false;
      for (int c = 1; c <= values; ++c) {
        if (!rd.Value(v)) return false;
        grid.Set_TextMatrix(r + Grid_FixedRows, c, v);
      }
    }
    return true;
  };
  Set_Frame(s.Grd_Elements, Grid_Kind::Elements, nb);
  Set_Frame(s.Grd_Restraints, Grid_Kind::Restraints, nb + 1);
  Set_Frame(s.Grd_MV, Grid_Kind::MV, nb);
  if (!rd.Skip_Line() || !read_rows(s.Grd_Elements, nb, 8, true)) return out;
  if (!rd.Skip_Line() || !read_rows(s.Grd_Restraints, nb + 1, 5, true)) return out;
  if (!rd.Skip_Line() || !read_rows(s.Grd_MV, nb, 2, true)) return out;

  if (!rd.Skip_Line() || !rd.Skip_Line()) return out;
  std::string nfText, nqText;
  if (!rd.Value(nfText) || !rd.Value(nqText)) return out;
  const int nf = Count_Of_Text(nfText), nq = Count_Of_Text(nqText);
  // counts a grid can't hold make a malformed file
  if (nf < 0 || nf > nb + 1 || nq < 0 || nq > DirectData_NQMax) return out;
  s.Txt_NF = std::to_string(nf);
  s.Txt_NQ = std::to_string(nq);
  Set_Frame(s.Grd_SpanLoadsF, Grid_Kind::SpanLoadsF, nf);
  Set_Frame(s.Grd_SpanLoadsQ, Grid_Kind::SpanLoadsQ, nq);
  if (nf > 0 && (!rd.Skip_Line() || !read_rows(s.Grd_SpanLoadsF, nf, 3, false))) return out;
  if (nq > 0 && (!rd.Skip_Line() || !read_rows(s.Grd_SpanLoadsQ, nq, 5, false))) return out;
  // the axial block is optional: without it the sixth grid starts as new
  Prepare_Grid(s, Grid_Kind::Axial);
  if (!rd.At_End() && (!rd.Skip_Line() || !read_rows(s.Grd_Axial, nb, 4, true))) return out;
  out.Ok = true;
  return out;
}

bool Find_NonNumericCell(const DirectDataSheet& s, Cell_Ref& where) {
  for (Grid_Kind k : All_Grids) {
    const Text_Grid& g = s.Grid(k);
    for (int r = Grid_FixedRows; r < g.Rows(); ++r)
      for (int c = Grid_FixedCols; c < g.Cols(); ++c)
        if (!Is_Numeric(g.TextMatrix(r, c))) {
          where = {k, r, c};
          return true;
        }
  }
  return false;
}

void Sheet_To_Problem(const DirectDataSheet& s, ProblemData& p) {
  auto rows = [](const Text_Grid& g) { return std::max(g.Rows() - Grid_FixedRows, 0); };
  const int nb = rows(s.Grd_Elements);
  p.Resize(nb, rows(s.Grd_SpanLoadsF), rows(s.Grd_SpanLoadsQ));
  p.E = Num_Of_Text(s.Txt_E);
  p.G = Num_Of_Text(s.Txt_G);
  auto v = [](const Text_Grid& g, int i, int c) { return Num_Of_Text(g.TextMatrix(i + 1, c)); };
  for (int i = 1; i <= nb; ++i) {
    const Text_Grid& g = s.Grd_Elements;
    p.L[i] = (float)v(g, i, 1);
    p.Iz[i] = (float)v(g, i, 2);
    p.It[i] = (float)v(g, i, 3);
    p.Iw[i] = (float)v(g, i, 4);
    p.Betaz[i] = (float)v(g, i, 5);
    p.Kt[i] = v(g, i, 6);
    p.Kvp[i] = v(g, i, 7);
    p.Ktp[i] = v(g, i, 8);
    p.M1[i] = (float)v(s.Grd_MV, i, 1);
    p.M2[i] = (float)v(s.Grd_MV, i, 2);
  }
  for (int i = 1; i <= std::min(nb + 1, rows(s.Grd_Restraints)); ++i) {
    const Text_Grid& g = s.Grd_Restraints;
    p.Rv[i] = v(g, i, 1);
    p.Rt[i] = v(g, i, 2);
    p.Rvp[i] = v(g, i, 3);
    p.Rtp[i] = v(g, i, 4);
    p.z[i] = (float)v(g, i, 5);
  }
  for (int i = 1; i <= std::min(nb, rows(s.Grd_Axial)); ++i) {
    const Text_Grid& g = s.Grd_Axial;
    p.N[i] = (float)v(g, i, 1);
    p.A[i] = (float)v(g, i, 2);
    p.Iy[i] = (float)v(g, i, 3);
    p.zC[i] = (float)v(g, i, 4);
  }
  for (int k = 1; k <= p.NF; ++k) {
    p.F[k] = (float)v(s.Grd_SpanLoadsF, k, 1);
    p.xF[k] = (float)v(s.Grd_SpanLoadsF, k, 2);
    p.zF[k] = (float)v(s.Grd_SpanLoadsF, k, 3);
  }
  for (int k = 1; k <= p.NQ; ++k) {
    const Text_Grid& g = s.Grd_SpanLoadsQ;
    p.q1[k] = (float)v(g, k, 1);
    p.x1[k] = (float)v(g, k, 2);
    p.q2[k] = (float)v(g, k, 3);
    p.x2[k] = (float)v(g, k, 4);
    p.zq[k] = (float)v(g, k, 5);
  }
}

bool Save_FileZVK(const std::string& name, const DirectDataSheet& s, Cell_Ref* bad) {
  Cell_Ref where;
  if (Find_NonNumericCell(s, where)) {
    if (bad) *bad = where;
    return false;
  }
  ProblemData p;
  Sheet_To_Problem(s, p);
  return Write_ProblemFile(name, p, ProblemLabels::SaveFileZVK);
}

}  // namespace zarvek
