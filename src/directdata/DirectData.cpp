#include "directdata/DirectData.h"

#include <algorithm>
#include <cmath>
#include <limits>
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

  enum class Got { Value, End, Not_Number, Out_Of_Range };

  bool Skip_Line() {
    at_ = p_;
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
    at_ = p_;
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

  // The next value as a text of the screen, in the range of its field.
  Got Value(std::string& local, bool single = false) {
    if (!Token(last_)) return Got::End;
    local = To_LocalText(last_);
    if (!Is_Numeric(local)) return Got::Not_Number;
    if (!Value_InRange(local, single)) return Got::Out_Of_Range;
    return Got::Value;
  }

  // The line (1-based) of the value or label read last.
  int Line() const { return 1 + (int)std::count(s_.begin(), s_.begin() + (long)std::min(at_, s_.size()), '\n'); }
  const std::string& Last() const { return last_; }

 private:
  static bool Is_Sep(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ','; }
  std::string s_;
  size_t p_ = 0, at_ = 0;
  std::string last_;
};

std::string With_Arg(std::string text, const std::string& arg) {
  const size_t i = text.find("%1");
  if (i != std::string::npos) text.replace(i, 2, arg);
  return text;
}

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
    // E and G in their double fields: "1e400" is no modulus
    if (count ? !Is_WholeNumber(*fields[i]) : !Value_InRange(*fields[i], false)) {
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
  if (!f) {
    out.Message = Further_Text("Read_FileZVK_CantOpen", "The file can't be opened.");
    return out;
  }
  std::string text((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  f.close();
  Token_Reader rd(std::move(text));
  using Got = Token_Reader::Got;

  // the reading stops: the file, the line and what stood there
  auto stop = [&](Got why) {
    out.Line = rd.Line();
    std::string what = With_Arg(
        Further_Text("Read_FileZVK_Stopped", "The problem file can't be read: reading stopped at line %1."),
        std::to_string(out.Line));
    switch (why) {
      case Got::End: what += " " + Further_Text("Read_FileZVK_Ends", "The file ends before all its data."); break;
      case Got::Not_Number:
        what += " " + With_Arg(Further_Text("Read_FileZVK_NotNumber", "\"%1\" stands where a number was expected."),
                               rd.Last());
        break;
      case Got::Out_Of_Range:
        what += " " + With_Arg(Further_Text("Read_FileZVK_OutOfRange", "\"%1\" is beyond the range of its field."),
                               rd.Last());
        break;
      case Got::Value:
        what += " " + With_Arg(Further_Text("Read_FileZVK_Count", "\"%1\" is not a number of loads this problem can hold."),
                               rd.Last());
        break;
    }
    out.Message = what;
    return out;
  };
  auto skip = [&rd](int n) {
    for (int i = 0; i < n; ++i)
      if (!rd.Skip_Line()) return false;
    return true;
  };

  if (!skip(3)) return stop(Got::End);
  std::string nbText, e, g;
  if (Got r = rd.Value(nbText); r != Got::Value) return stop(r);
  const int nb = Count_Of_Text(nbText);
  if (nb < DirectData_NBMin || nb > DirectData_NBMax) {
    out.Line = rd.Line();
    out.Message = Msg(30) + " (" + std::to_string(DirectData_NBMin) + "<N<" + std::to_string(DirectData_NBMax) + ")";
    return out;
  }
  s.Txt_NB = std::to_string(nb);
  if (Got r = rd.Value(e); r != Got::Value) return stop(r);
  s.Txt_E = e;
  if (Got r = rd.Value(g); r != Got::Value) return stop(r);
  s.Txt_G = g;

  // one record a row: the running number of the file is the grid's own
  Got failed = Got::Value;
  auto read_rows = [&rd, &failed](Text_Grid& grid, Grid_Kind kind, int rows, int values, bool indexed) {
    for (int r = 0; r < rows; ++r) {
      std::string v;
      if (indexed && (failed = rd.Value(v)) != Got::Value) return false;
      for (int c = 1; c <= values; ++c) {
        if ((failed = rd.Value(v, Column_Single(kind, c))) != Got::Value) return false;
        grid.Set_TextMatrix(r + Grid_FixedRows, c, v);
      }
    }
    return true;
  };
  Set_Frame(s.Grd_Elements, Grid_Kind::Elements, nb);
  Set_Frame(s.Grd_Restraints, Grid_Kind::Restraints, nb + 1);
  Set_Frame(s.Grd_MV, Grid_Kind::MV, nb);
  if (!skip(1)) return stop(Got::End);
  if (!read_rows(s.Grd_Elements, Grid_Kind::Elements, nb, 8, true)) return stop(failed);
  if (!skip(1)) return stop(Got::End);
  if (!read_rows(s.Grd_Restraints, Grid_Kind::Restraints, nb + 1, 5, true)) return stop(failed);
  if (!skip(1)) return stop(Got::End);
  if (!read_rows(s.Grd_MV, Grid_Kind::MV, nb, 2, true)) return stop(failed);

  if (!skip(2)) return stop(Got::End);
  std::string nfText, nqText;
  if (Got r = rd.Value(nfText); r != Got::Value) return stop(r);
  const int nf = Count_Of_Text(nfText);
  // counts a grid can't hold make a malformed file
  if (nf < 0 || nf > nb + 1) return stop(Got::Value);
  if (Got r = rd.Value(nqText); r != Got::Value) return stop(r);
  const int nq = Count_Of_Text(nqText);
  if (nq < 0 || nq > DirectData_NQMax) return stop(Got::Value);
  s.Txt_NF = std::to_string(nf);
  s.Txt_NQ = std::to_string(nq);
  Set_Frame(s.Grd_SpanLoadsF, Grid_Kind::SpanLoadsF, nf);
  Set_Frame(s.Grd_SpanLoadsQ, Grid_Kind::SpanLoadsQ, nq);
  if (nf > 0 && !skip(1)) return stop(Got::End);
  if (nf > 0 && !read_rows(s.Grd_SpanLoadsF, Grid_Kind::SpanLoadsF, nf, 3, false)) return stop(failed);
  if (nq > 0 && !skip(1)) return stop(Got::End);
  if (nq > 0 && !read_rows(s.Grd_SpanLoadsQ, Grid_Kind::SpanLoadsQ, nq, 5, false)) return stop(failed);
  // the axial block is optional: without it the sixth grid starts as new
  Prepare_Grid(s, Grid_Kind::Axial);
  if (!rd.At_End()) {
    if (!skip(1)) return stop(Got::End);
    if (!read_rows(s.Grd_Axial, Grid_Kind::Axial, nb, 4, true)) return stop(failed);
  }
  out.Ok = true;
  return out;
}

bool Column_Single(Grid_Kind k, int col) {
  switch (k) {
    case Grid_Kind::Elements: return col < 6;   // L, Iz, It, Iw, Betaz; the links are double
    case Grid_Kind::Restraints: return col == 5;  // z; the restraints are double
    default: return true;                         // moments and loads
  }
}

bool Value_InRange(const std::string& text, bool single) {
  if (!Is_Numeric(text)) return false;
  const double v = Num_Of_Text(text);
  return std::isfinite(v) && (!single || std::fabs(v) <= std::numeric_limits<float>::max());
}

bool Is_UserProblemFile(const std::string& name) {
  return !Trim(name).empty() && name != Msg(40) && name != Msg(81);
}

std::string Text_NoProblemFile() {
  return Further_Text("Cmd_Proceed_NoProblemFile",
                      "There is no problem file to solve: open one (File, Open) or save the problem "
                      "of the grids under a name of yours (File, Save As).");
}

std::string Text_OutOfRange() {
  return Further_Text("Grd_ValueOutOfRange",
                      "This value is beyond the range of its field: type a number of the size it can hold.");
}

bool Find_NonNumericCell(const DirectDataSheet& s, Cell_Ref& where) {
  for (Grid_Kind k : All_Grids) {
    const Text_Grid& g = s.Grid(k);
    for (int r = Grid_FixedRows; r < g.Rows(); ++r)
      for (int c = Grid_FixedCols; c < g.Cols(); ++c)
        if (const std::string& t = g.TextMatrix(r, c); !Value_InRange(t, Column_Single(k, c))) {
          where = {k, r, c, Is_Numeric(t)};
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
  // the values as typed: the writer keeps their digits
  auto v = [](const Text_Grid& g, int i, int c) { return Num_Of_Text(g.TextMatrix(i + 1, c)); };
  for (int i = 1; i <= nb; ++i) {
    const Text_Grid& g = s.Grd_Elements;
    p.L[i] = v(g, i, 1);
    p.Iz[i] = v(g, i, 2);
    p.It[i] = v(g, i, 3);
    p.Iw[i] = v(g, i, 4);
    p.Betaz[i] = v(g, i, 5);
    p.Kt[i] = v(g, i, 6);
    p.Kvp[i] = v(g, i, 7);
    p.Ktp[i] = v(g, i, 8);
    p.M1[i] = v(s.Grd_MV, i, 1);
    p.M2[i] = v(s.Grd_MV, i, 2);
  }
  for (int i = 1; i <= std::min(nb + 1, rows(s.Grd_Restraints)); ++i) {
    const Text_Grid& g = s.Grd_Restraints;
    p.Rv[i] = v(g, i, 1);
    p.Rt[i] = v(g, i, 2);
    p.Rvp[i] = v(g, i, 3);
    p.Rtp[i] = v(g, i, 4);
    p.z[i] = v(g, i, 5);
  }
  for (int i = 1; i <= std::min(nb, rows(s.Grd_Axial)); ++i) {
    const Text_Grid& g = s.Grd_Axial;
    p.N[i] = v(g, i, 1);
    p.A[i] = v(g, i, 2);
    p.Iy[i] = v(g, i, 3);
    p.zC[i] = v(g, i, 4);
  }
  for (int k = 1; k <= p.NF; ++k) {
    p.F[k] = v(s.Grd_SpanLoadsF, k, 1);
    p.xF[k] = v(s.Grd_SpanLoadsF, k, 2);
    p.zF[k] = v(s.Grd_SpanLoadsF, k, 3);
  }
  for (int k = 1; k <= p.NQ; ++k) {
    const Text_Grid& g = s.Grd_SpanLoadsQ;
    p.q1[k] = v(g, k, 1);
    p.x1[k] = v(g, k, 2);
    p.q2[k] = v(g, k, 3);
    p.x2[k] = v(g, k, 4);
    p.zq[k] = v(g, k, 5);
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
