#include "model/ProjectFile.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <initializer_list>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <sstream>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/DataEntry.h"

namespace zarvek {

namespace {

// ---------------------------------------------------------------- writing

// Shortest text that gives the same single-precision number back, with the
// locale's separator.
std::string Single_Text(float v) {
  if (v == 0) return "0";
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, v);
  std::string s(buf, r.ptr);
  auto dot = s.find('.');
  if (dot != std::string::npos) s[dot] = Dec_Sep;
  return s;
}

class Writer {
 public:
  // Kind I: the digits with one blank behind, and one in front unless negative.
  void I(long n) {
    if (n < 0) out_ << n << " \r\n";
    else out_ << ' ' << n << " \r\n";
  }
  void B(bool b) { I(b ? -1 : 0); }
  // Kind T: the text as it stands.
  void T(const std::string& s) { out_ << s << "\r\n"; }
  // Kind N: a number text with a point, right-aligned in 15 columns.
  void N(const std::string& s) { out_ << To_DotText(s, 15) << "\r\n"; }
  // Kind R: a single-precision number in the locale's shortest form.
  void R(float v) {
    std::string s = Single_Text(v);
    if (s[0] == '-') out_ << s << " \r\n";
    else out_ << ' ' << s << " \r\n";
  }
  void List(const RestraintList& l) {
    I(l.index);
    N(l.text);
  }
  std::ostringstream& Raw() { return out_; }
  std::string Text() const { return out_.str(); }

 private:
  std::ostringstream out_;
};

// ---------------------------------------------------------------- reading

// A failed read anywhere in the sequence: caught by Read_FileDAT only.
struct ReadFailure {};

// Locale-free number conversion of the leading part of a text: blanks are
// skipped, then sign, digits, one point and an exponent are taken as far as
// they go; nothing readable gives 0. A number beyond the range of a double
// (a run of hundreds of digits, an exponent of 400) is an overflow, which
// ends the reading as a damaged file.
double Val(std::string_view s) {
  std::string t;
  for (char c : s)
    if (c != ' ' && c != '\t') t += c;
  size_t i = 0, n = t.size();
  if (i < n && (t[i] == '+' || t[i] == '-')) ++i;
  size_t digits = 0;
  bool point = false;
  while (i < n && (std::isdigit((unsigned char)t[i]) || (t[i] == '.' && !point))) {
    if (t[i] == '.') point = true;
    else ++digits;
    ++i;
  }
  if (digits == 0) return 0;
  size_t end = i;
  if (i < n && (t[i] == 'E' || t[i] == 'e' || t[i] == 'D' || t[i] == 'd')) {
    size_t j = i + 1;
    if (j < n && (t[j] == '+' || t[j] == '-')) ++j;
    size_t ed = 0;
    while (j < n && std::isdigit((unsigned char)t[j])) { ++ed; ++j; }
    if (ed > 0) {
      t[i] = 'e';
      end = j;
    }
  }
  std::string num = t.substr(0, end);
  if (!num.empty() && num[0] == '+') num.erase(0, 1);
  const double v = std::strtod(num.c_str(), nullptr);
  if (!std::isfinite(v)) throw ReadFailure{};
  return v;
}

// A number of a single-precision member: one beyond its range would come back
// as an infinity, which no file of the program holds, so it marks a damaged
// file as an overflow of a double does.
float Single(double v) {
  if (!(std::fabs(v) <= std::numeric_limits<float>::max())) throw ReadFailure{};
  return (float)v;
}

class Reader {
 public:
  explicit Reader(std::string text) : s_(std::move(text)) {}

  // The whole next line as it stands.
  std::string Line() {
    if (p_ >= s_.size()) throw ReadFailure{};
    size_t j = p_;
    while (j < s_.size() && s_[j] != '\r' && s_[j] != '\n') ++j;
    std::string line = s_.substr(p_, j - p_);
    p_ = j;
    End_Of_Line();
    return line;
  }

  // The next number: blanks and line ends skipped; the number ends at a blank,
  // a line end, or a comma that is not the decimal separator.
  double Number() {
    Skip_Space(true);
    if (p_ >= s_.size()) throw ReadFailure{};
    size_t j = p_;
    while (j < s_.size() && !Ends_Number(s_[j])) ++j;
    std::string tok = s_.substr(p_, j - p_);
    p_ = j;
    After_Item();
    return Parse(tok);
  }

  // An integer by the rounding of the language (half to even).
  long Integer() {
    double v = Number();
    if (!(std::fabs(v) < 2147483647.0)) throw ReadFailure{};
    return (long)std::nearbyint(v);
  }

  // An index of a list of `count` items; lowest is -1 for the lists that may
  // stand without a selected item.
  int Index(int count, int lowest = 0) {
    long v = Integer();
    if (v < lowest || v >= count) throw ReadFailure{};
    return (int)v;
  }

  bool Boolean() { return Number() != 0; }

  // Everything after the lines read so far.
  std::string_view Rest() const { return std::string_view(s_).substr(std::min(p_, s_.size())); }

  // A text item: blanks skipped; a quoted text runs to the closing quote,
  // otherwise the item ends at a comma or the line end.
  std::string Item() {
    Skip_Space(false);
    if (p_ >= s_.size()) throw ReadFailure{};
    std::string item;
    if (s_[p_] == '"') {
      size_t j = s_.find('"', p_ + 1);
      if (j == std::string::npos) throw ReadFailure{};
      item = s_.substr(p_ + 1, j - p_ - 1);
      p_ = j + 1;
    } else {
      size_t j = p_;
      while (j < s_.size() && s_[j] != ',' && s_[j] != '\r' && s_[j] != '\n') ++j;
      item = s_.substr(p_, j - p_);
      while (!item.empty() && (item.back() == ' ' || item.back() == '\t')) item.pop_back();
      p_ = j;
    }
    After_Item();
    return item;
  }

 private:
  bool Ends_Number(char c) const {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || (c == ',' && Dec_Sep != ',');
  }

  void Skip_Space(bool lineEnds) {
    while (p_ < s_.size() &&
           (s_[p_] == ' ' || s_[p_] == '\t' || (lineEnds && (s_[p_] == '\r' || s_[p_] == '\n'))))
      ++p_;
  }

  void End_Of_Line() {
    if (p_ < s_.size() && s_[p_] == '\r') ++p_;
    if (p_ < s_.size() && s_[p_] == '\n') ++p_;
  }

  // After an item: blanks, then one comma or one line end.
  void After_Item() {
    Skip_Space(false);
    if (p_ < s_.size() && s_[p_] == ',') ++p_;
    else End_Of_Line();
  }

  static double Parse(std::string tok) {
    if (!tok.empty() && tok[0] == '+') tok.erase(0, 1);
    if (Dec_Sep != '.') {
      auto c = tok.find(Dec_Sep);
      if (c != std::string::npos && tok.find('.') == std::string::npos) tok[c] = '.';
    }
    if (tok.empty()) throw ReadFailure{};
    double v = 0;
    auto r = std::from_chars(tok.data(), tok.data() + tok.size(), v);
    if (r.ec != std::errc() || r.ptr != tok.data() + tok.size() || !std::isfinite(v))
      throw ReadFailure{};
    return v;
  }

  std::string s_;
  size_t p_ = 0;
};

// Option buttons of one group: setting one on turns the others off; setting
// one off leaves the others as they are.
void Set_Option(bool value, bool& option, std::initializer_list<bool*> others) {
  if (value) {
    for (bool* o : others) *o = false;
    option = true;
  } else {
    option = false;
  }
}

void Read_List(Reader& r, RestraintList& l) {
  l.index = r.Index(3, -1);
  std::string text = r.Line();
  if (l.index < 0) {
    l.text = To_LocalText(text);
    l.Unit_Visible = true;  // the reader never hides a label
  } else {
    l.text = Restraint_ItemText(l.index);
  }
}

void Read_Sequence(Reader& r, BeamModel& m, const std::string& startDir) {
  auto N = [&r] { return To_LocalText(r.Line()); };

  m.Lst_Duration = r.Index(Duration_ItemCount);
  std::string dir = r.Item();
  if (!File_Exists(dir)) dir = startDir;
  m.Lbl_Directory = dir;

  {
    bool eigen = r.Boolean();
    Set_Option(eigen, m.Opt_Eigen, {&m.Opt_Dichotomie});
    bool dicho = r.Boolean();
    Set_Option(dicho, m.Opt_Dichotomie, {&m.Opt_Eigen});
    m.Lbl_Method = m.Opt_Dichotomie ? m.Caption_Dichotomie : m.Caption_Eigen;
  }
  m.Lst_Tolerance = r.Index((int)Tolerance_Items.size());
  m.Lbl_Tolerance = To_LocalText(Tolerance_Items[m.Lst_Tolerance]);
  m.Lst_NbIter = r.Index((int)NbIter_Items.size());
  for (UnitFamily f : All_Unit_Families) Unit_Index(m, f) = r.Index(Unit_ItemCount(f));

  m.Tab_Zarvek = r.Index(4);
  m.RefreshLocked = true;

  {
    bool v = r.Boolean();
    Set_Option(v, m.Opt_Catalogue, {&m.Opt_Dimensions, &m.Opt_Properties});
    v = r.Boolean();
    Set_Option(v, m.Opt_Dimensions, {&m.Opt_Catalogue, &m.Opt_Properties});
    v = r.Boolean();
    Set_Option(v, m.Opt_Properties, {&m.Opt_Catalogue, &m.Opt_Dimensions});
  }
  m.Lbl_SelectedProfile = r.Line();
  m.Txt_Iz[1] = N();
  m.Txt_It[1] = N();
  m.Txt_Iw[1] = N();
  m.Txt_Betaz[1] = N();
  m.Txt_zS[1] = N();
  // profile dimensions in cm, by a conversion that knows only the point
  m.Cat_h = Val(r.Line());
  m.Cat_b = Val(r.Line());
  m.Cat_tf = Val(r.Line());
  m.Cat_tw = Val(r.Line());
  m.Cat_r = Val(r.Line());

  m.Txt_h = N();
  m.Txt_bf1 = N();
  m.Txt_tf1 = N();
  m.Txt_r1 = N();
  m.Txt_bf2 = N();
  m.Txt_tf2 = N();
  m.Txt_r2 = N();
  m.Txt_tw = N();

  // The shape is not stored: it follows from the flanges that the
  // confirmation of the dimensions leaves behind. Texts are compared as texts.
  int shape;
  if (m.Txt_tf2 == "0") shape = 2;
  else if (m.Txt_tf1 == "0") shape = 3;
  else if (m.Txt_tf1 != m.Txt_tf2 || m.Txt_bf1 != m.Txt_bf2 || m.Txt_r1 != m.Txt_r2) shape = 1;
  else shape = 0;
  // a change of shape empties slot 2: it must come before slot 2 is read
  Tab_Dim_Change(m, shape);

  m.Txt_Iz[2] = N();
  m.Txt_It[2] = N();
  m.Txt_Iw[2] = N();
  m.Txt_Betaz[2] = N();
  m.Txt_zS[2] = N();
  m.Txt_zS_Hidden = N();
  m.Txt_Iz[3] = N();
  m.Txt_It[3] = N();
  m.Txt_Iw[3] = N();
  m.Txt_Betaz[3] = N();
  m.Txt_E = N();
  m.Txt_Nu = N();
  m.Txt_G = N();
  m.Txt_L = N();
  m.Txt_NB = r.Index((int)NB_Items.size());

  Read_List(r, m.Lst_v1);
  Read_List(r, m.Lst_t1);
  Read_List(r, m.Lst_vp1);
  Read_List(r, m.Lst_tp1);
  m.Txt_zend1 = N();
  Read_List(r, m.Lst_v2);
  Read_List(r, m.Lst_t2);
  Read_List(r, m.Lst_vp2);
  Read_List(r, m.Lst_tp2);
  m.Txt_zend2 = N();

  m.Chk_Punctual1 = r.Boolean();
  Read_List(r, m.Lst_vi_p1);
  Read_List(r, m.Lst_ti_p1);
  m.Txt_xfint1 = N();
  m.Txt_zint_p1 = N();
  m.Chk_Punctual2 = r.Boolean();
  Read_List(r, m.Lst_vi_p2);
  Read_List(r, m.Lst_ti_p2);
  m.Txt_xfint2 = N();
  m.Txt_zint_p2 = N();
  m.Chk_Continuous = r.Boolean();
  Read_List(r, m.Lst_vi_c);
  Read_List(r, m.Lst_ti_c);
  Read_List(r, m.Lst_vpi_c);
  m.Txt_zint_c = N();

  {
    // the support scheme, read as integers
    bool v = r.Integer() != 0;
    Set_Option(v, m.Opt_AA, {&m.Opt_EE, &m.Opt_EA, &m.Opt_EL});
    v = r.Integer() != 0;
    Set_Option(v, m.Opt_EE, {&m.Opt_AA, &m.Opt_EA, &m.Opt_EL});
    v = r.Integer() != 0;
    Set_Option(v, m.Opt_EA, {&m.Opt_AA, &m.Opt_EE, &m.Opt_EL});
    v = r.Integer() != 0;
    Set_Option(v, m.Opt_EL, {&m.Opt_AA, &m.Opt_EE, &m.Opt_EA});
  }
  m.Chk_M = r.Boolean();
  m.Txt_M1 = N();
  m.Txt_M2 = N();
  m.Txt_Psi = N();
  m.Chk_F1 = r.Boolean();
  m.Txt_F1 = N();
  m.Txt_xf1 = N();
  m.Txt_zF1 = N();
  m.Chk_F2 = r.Boolean();
  m.Txt_F2 = N();
  m.Txt_xf2 = N();
  m.Txt_zF2 = N();
  m.Chk_F3 = r.Boolean();
  m.Txt_F3 = N();
  m.Txt_xf3 = N();
  m.Txt_zF3 = N();
  m.Chk_CC = r.Boolean();
  m.Txt_CC = N();
  m.Txt_xfC = N();
  m.Chk_q1 = r.Boolean();
  m.Txt_q11 = N();
  m.Txt_xq11 = N();
  m.Txt_q12 = N();
  m.Txt_xq12 = N();
  m.Txt_zq1 = N();
  m.Chk_q2 = r.Boolean();
  m.Txt_q21 = N();
  m.Txt_xq21 = N();
  m.Txt_q22 = N();
  m.Txt_xq22 = N();
  m.Txt_zq2 = N();

  m.Mcr_Factor = Single(r.Number());
  m.Lbl_Iteration = N();
  m.Lbl_CurrentValue = N();
  m.Lbl_Comment = N();
  m.Txt_mucr = N();
  m.Txt_Mmax[0] = m.Txt_Mmax[1] = N();
  m.Lbl_xfMmax[0] = m.Lbl_xfMmax[1] = N();
  m.Txt_Mcr = N();
  m.Chk_EffM = r.Boolean();
  m.Chk_EffM = r.Boolean();
  m.Chk_v = r.Boolean();
  m.Chk_t = r.Boolean();
  m.Chk_vp = r.Boolean();
  m.Chk_tp = r.Boolean();
  m.Mode_Max = Single(r.Number());

  if (m.Mode_Max != 0) {
    // the mode lines count by the element count of this same file
    const int nb = (int)Num_Of_Text(NB_Text(m));
    m.Mode_Vector.assign((size_t)(4 * (nb + 1) + 1), 0.0f);
    m.Restraint_Level.assign((size_t)(nb + 2), 0.0f);
    for (int i = 1; i <= nb + 1; ++i) {
      (void)r.Number();  // the node number: lines count by their order
      for (int k = 1; k <= 4; ++k) m.Mode_Vector[(size_t)(4 * (i - 1) + k)] = Single(r.Number());
      m.Restraint_Level[(size_t)i] = Single(r.Number());
    }
  }
}

// ---------------------------------------------------------------- trailer

bool Axial_Written(const BeamModel& m) { return Num_Of_Text(m.Txt_N) != 0; }

const std::vector<TrailerKey> Keys = {
    {"AXIAL_N", &BeamModel::Txt_N, true, Axial_Written},
    {"AXIAL_A", &BeamModel::Txt_A3, true, Axial_Written},
    {"AXIAL_IY", &BeamModel::Txt_Iy3, true, Axial_Written},
    {"AXIAL_ZC", &BeamModel::Txt_zC3, true, Axial_Written},
    {"AXIAL_NCR", &BeamModel::Txt_Ncr, true, Axial_Written},
    // the design check of lateral-torsional buckling
    {"DESIGN_GRADE", nullptr, false, nullptr, &BeamModel::Lst_Grade},
    {"DESIGN_FY", &BeamModel::Txt_fy, true},
    {"DESIGN_GAMMA_M1", &BeamModel::Txt_GammaM1, true},
    {"DESIGN_METHOD", nullptr, false, nullptr, &BeamModel::Lst_LtbMethod},
    {"DESIGN_F", nullptr, false, nullptr, nullptr, &BeamModel::Chk_fmod},
    {"DESIGN_WELDED", nullptr, false, nullptr, nullptr, &BeamModel::Chk_Welded},
};

// The text of a key in a record, and setting it from the file's text (a
// list index out of its range or a word leaves the new record's value).
std::string Key_Text(const TrailerKey& k, const BeamModel& m) {
  if (k.Choice) return std::to_string(m.*k.Choice);
  if (k.Flag) return m.*k.Flag ? "1" : "0";
  return m.*k.Member;
}
void Set_Key(const TrailerKey& k, BeamModel& m, std::string_view value);

const BeamModel& New_Record() {
  static const BeamModel fresh;
  return fresh;
}

void Set_Key(const TrailerKey& k, BeamModel& m, std::string_view value) {
  if (k.Choice || k.Flag) {
    const std::string v(Trim(std::string(value)));
    char* end = nullptr;
    const long n = std::strtol(v.c_str(), &end, 10);
    if (v.empty() || *end != 0) return;
    if (k.Flag && (n == 0 || n == 1)) m.*k.Flag = n == 1;
    const long items = k.Choice == &BeamModel::Lst_LtbMethod ? 3 : 7;  // method; grade or fy typed
    if (k.Choice && n >= 0 && n < items) m.*k.Choice = (int)n;
    return;
  }
  m.*k.Member = k.Number ? To_LocalText(value) : std::string(value);
}

void Write_Trailer(Writer& w, const BeamModel& m) {
  for (const TrailerKey& k : Keys) {
    const std::string v = Key_Text(k, m);
    if (k.Written ? !k.Written(m) : v == Key_Text(k, New_Record())) continue;
    std::string text = k.Number ? To_DotText(Trim(v), 0) : v;
    // one line per key whatever the text holds
    std::replace_if(text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    w.T(std::string(k.Key) + "=" + text);
  }
}

void Read_Trailer(std::string_view rest, BeamModel& m) {
  for (const TrailerKey& k : Keys) Set_Key(k, m, Key_Text(k, New_Record()));
  while (!rest.empty()) {
    size_t e = rest.find_first_of("\r\n");
    std::string_view line = rest.substr(0, e);
    rest = e == std::string_view::npos ? std::string_view{} : rest.substr(e + 1);
    const size_t eq = line.find('=');
    if (eq == std::string_view::npos) continue;
    const std::string_view key = line.substr(0, eq), value = line.substr(eq + 1);
    for (const TrailerKey& k : Keys)
      if (key == k.Key) Set_Key(k, m, value);
  }
}

}  // namespace

const std::vector<TrailerKey>& Trailer_Keys() { return Keys; }

std::string Project_Text(const BeamModel& m) {
  Writer w;
  w.I(m.Lst_Duration);
  w.T(m.Lbl_Directory);
  w.B(m.Opt_Eigen);
  w.B(m.Opt_Dichotomie);
  w.I(m.Lst_Tolerance);
  w.I(m.Lst_NbIter);
  for (UnitFamily f : All_Unit_Families) w.I(Unit_Index(m, f));
  w.I(m.Tab_Zarvek);
  w.B(m.Opt_Catalogue);
  w.B(m.Opt_Dimensions);
  w.B(m.Opt_Properties);
  w.T(m.Lbl_SelectedProfile);
  for (int k : {1}) {
    w.N(m.Txt_Iz[k]);
    w.N(m.Txt_It[k]);
    w.N(m.Txt_Iw[k]);
    w.N(m.Txt_Betaz[k]);
    w.N(m.Txt_zS[k]);
  }
  for (double c : {m.Cat_h, m.Cat_b, m.Cat_tf, m.Cat_tw, m.Cat_r}) w.N(Number_To_Text(c));
  w.N(m.Txt_h);
  w.N(m.Txt_bf1);
  w.N(m.Txt_tf1);
  w.N(m.Txt_r1);
  w.N(m.Txt_bf2);
  w.N(m.Txt_tf2);
  w.N(m.Txt_r2);
  w.N(m.Txt_tw);
  w.N(m.Txt_Iz[2]);
  w.N(m.Txt_It[2]);
  w.N(m.Txt_Iw[2]);
  w.N(m.Txt_Betaz[2]);
  w.N(m.Txt_zS[2]);
  w.N(m.Txt_zS_Hidden);
  w.N(m.Txt_Iz[3]);
  w.N(m.Txt_It[3]);
  w.N(m.Txt_Iw[3]);
  w.N(m.Txt_Betaz[3]);
  w.N(m.Txt_E);
  w.N(m.Txt_Nu);
  w.N(m.Txt_G);
  w.N(m.Txt_L);
  w.I(m.Txt_NB);

  w.List(m.Lst_v1);
  w.List(m.Lst_t1);
  w.List(m.Lst_vp1);
  w.List(m.Lst_tp1);
  w.T(m.Txt_zend1);  // raw, unlike its twin at the other end
  w.List(m.Lst_v2);
  w.List(m.Lst_t2);
  w.List(m.Lst_vp2);
  w.List(m.Lst_tp2);
  w.N(m.Txt_zend2);

  w.B(m.Chk_Punctual1);
  w.List(m.Lst_vi_p1);
  w.List(m.Lst_ti_p1);
  w.N(m.Txt_xfint1);
  w.N(m.Txt_zint_p1);
  w.B(m.Chk_Punctual2);
  w.List(m.Lst_vi_p2);
  w.List(m.Lst_ti_p2);
  w.N(m.Txt_xfint2);
  w.N(m.Txt_zint_p2);
  w.B(m.Chk_Continuous);
  w.List(m.Lst_vi_c);
  w.List(m.Lst_ti_c);
  w.List(m.Lst_vpi_c);
  w.T(m.Txt_zint_c);  // raw as well

  w.B(m.Opt_AA);
  w.B(m.Opt_EE);
  w.B(m.Opt_EA);
  w.B(m.Opt_EL);
  w.B(m.Chk_M);
  w.N(m.Txt_M1);
  w.N(m.Txt_M2);
  w.N(m.Txt_Psi);
  w.B(m.Chk_F1);
  w.N(m.Txt_F1);
  w.N(m.Txt_xf1);
  w.N(m.Txt_zF1);
  w.B(m.Chk_F2);
  w.N(m.Txt_F2);
  w.N(m.Txt_xf2);
  w.N(m.Txt_zF2);
  w.B(m.Chk_F3);
  w.N(m.Txt_F3);
  w.N(m.Txt_xf3);
  w.N(m.Txt_zF3);
  w.B(m.Chk_CC);
  w.N(m.Txt_CC);
  w.N(m.Txt_xfC);
  w.B(m.Chk_q1);
  w.N(m.Txt_q11);
  w.N(m.Txt_xq11);
  w.N(m.Txt_q12);
  w.N(m.Txt_xq12);
  w.N(m.Txt_zq1);
  w.B(m.Chk_q2);
  w.N(m.Txt_q21);
  w.N(m.Txt_xq21);
  w.N(m.Txt_q22);
  w.N(m.Txt_xq22);
  w.N(m.Txt_zq2);

  w.N(Single_Text(m.Mcr_Factor));
  w.T(m.Lbl_Iteration);
  w.N(m.Lbl_CurrentValue);
  w.T(m.Lbl_Comment);
  w.N(m.Txt_mucr);
  w.N(m.Txt_Mmax[0]);
  w.N(m.Lbl_xfMmax[0]);
  w.N(m.Txt_Mcr);
  w.B(m.Chk_EffM);
  w.B(m.Chk_EffM);  // the shear diagram's choice is not kept
  w.B(m.Chk_v);
  w.B(m.Chk_t);
  w.B(m.Chk_vp);
  w.B(m.Chk_tp);
  w.R(m.Mode_Max);

  if (m.Mode_Max != 0) {
    const int nb = NB_Of(m);
    auto at = [](const std::vector<float>& v, size_t i) { return i < v.size() ? v[i] : 0.0f; };
    for (int i = 1; i <= nb + 1; ++i) {
      auto& o = w.Raw();
      o << ' ' << i << ' ';
      for (int k = 1; k <= 4; ++k)
        o << To_DotText(Single_Text(at(m.Mode_Vector, (size_t)(4 * (i - 1) + k))), 18);
      o << To_DotText(Single_Text(at(m.Restraint_Level, (size_t)i)), 18) << "\r\n";
    }
  }
  Write_Trailer(w, m);
  return w.Text();
}

bool Save_FileDAT(const BeamModel& m, const std::string& name) {
  return Write_File_Atomic(name, Project_Text(m));
}

FileReadResult Read_FileDAT(BeamModel& m, const std::string& name, const std::string& startDir) {
  FileReadResult res;
  m.RefreshLocked = true;
  m.File_Loading = true;
  try {
    std::ifstream in(name, std::ios::binary);
    if (!in) throw ReadFailure{};
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (in.bad()) throw ReadFailure{};
    in.close();
    Reader r(std::move(text));
    Read_Sequence(r, m, startDir);
    Read_Trailer(r.Rest(), m);
  } catch (const ReadFailure&) {
    m.RefreshLocked = false;
    m.File_Loading = false;
    res.Error_Text = Msg(17) + " " + name;
    return res;
  } catch (const std::exception&) {
    m.RefreshLocked = false;
    m.File_Loading = false;
    res.Error_Text = Msg(17) + " " + name;
    return res;
  }
  // the factors follow the unit lists only after a whole read
  Set_Factors(m);
  res.ok = true;
  m.RefreshLocked = false;
  res.Dialog_Dir = Path_Of(name);
  return res;
}

StartupResult Initialisations_Model(BeamModel& m, const std::string& fileDefault,
                                    const std::string& startDir) {
  StartupResult res;
  m.Opt_Nu = true;
  m.Opt_G = false;
  m.Opt_M2 = true;
  m.Opt_Psi = false;
  m.Lbl_Tolerance = To_LocalText(Tolerance_Items[(size_t)std::clamp(m.Lst_Tolerance, 0, 5)]);
  if (File_Exists(fileDefault)) {
    FileReadResult r = Read_FileDAT(m, fileDefault, startDir);
    if (!r.ok) {
      res.Error_Text = r.Error_Text;
      return res;
    }
    res.File_Current = Msg(10);
  } else {
    Init_Default(m, startDir);
    res.File_Current = Msg(81);
  }
  m.RefreshLocked = true;
  DimensionsResult d = Cmd_Dimensions(m);
  res.Shown = d.Shown;
  m.RefreshLocked = false;
  res.ok = true;
  return res;
}

}  // namespace zarvek
