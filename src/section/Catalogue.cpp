#include "section/Catalogue.h"

#include <charconv>
#include <cmath>
#include <fstream>
#include <sstream>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

// Whole file as lines; false when it can't be opened or read.
bool Read_Lines(const std::string& path, std::vector<std::string>& lines) {
  lines.clear();
  std::ifstream f(path, std::ios::binary);
  if (!f) return false;
  std::string line;
  while (std::getline(f, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return !f.bad();
}

std::vector<std::string> Split_Items(const std::string& line) {
  std::vector<std::string> items;
  std::string cur;
  for (char c : line) {
    if (c == ',') {
      items.push_back(Trim(cur));
      cur.clear();
    } else {
      cur += c;
    }
  }
  items.push_back(Trim(cur));
  return items;
}

// A text item, with the quotes that some editors put around it removed.
std::string Text_Item(const std::string& item) {
  if (item.size() >= 2 && item.front() == '"' && item.back() == '"')
    return Trim(item.substr(1, item.size() - 2));
  return item;
}

// A number of a data file: "." as decimal mark, optional sign and exponent,
// nothing else around it. False for anything else, and for non-finite values.
bool File_Number(const std::string& item, double& v) {
  std::string s = Trim(item);
  if (!s.empty() && s[0] == '+') s.erase(0, 1);
  if (s.empty()) return false;
  // from_chars also takes "inf" and "nan": only plain digits are numbers here
  char c0 = s[0] == '-' ? (s.size() > 1 ? s[1] : 0) : s[0];
  if (!((c0 >= '0' && c0 <= '9') || c0 == '.')) return false;
  auto r = std::from_chars(s.data(), s.data() + s.size(), v);
  return r.ec == std::errc() && r.ptr == s.data() + s.size() && std::isfinite(v);
}

bool Count_Item(const std::string& item, int& n) {
  std::string s = Trim(item);
  if (s.empty() || s.size() > 6) return false;
  for (char c : s)
    if (c < '0' || c > '9') return false;
  n = std::stoi(s);
  return true;
}

// The line after a "1": series' name and count.
bool Series_Header(const std::string& line, std::string& name, int& n) {
  auto items = Split_Items(line);
  if (items.size() != 2) return false;
  name = Text_Item(items[0]);
  return !name.empty() && Count_Item(items[1], n);
}

bool Opens_Series(const std::string& line) { return Trim(line) == "1"; }

// One section line of the series `series`, dimensions turned into cm.
bool Section_Line(const std::string& line, const std::string& series, SectionRecord& s) {
  auto items = Split_Items(line);
  if (items.size() != 6) return false;
  std::string full = Text_Item(items[0]);
  // the number stands behind the series' name and one separator
  s.name = full.size() > series.size() + 1 ? full.substr(series.size() + 1) : std::string();
  double v[5];
  for (int k = 0; k < 5; ++k) {
    if (!File_Number(items[k + 1], v[k]) || v[k] < 0) return false;
  }
  s.h = (float)(v[0] / 10);
  s.b = (float)(v[1] / 10);
  s.tw = (float)(v[2] / 10);
  s.tf = (float)(v[3] / 10);
  s.r = (float)(v[4] / 10);
  return true;
}

// Shortest text of a single-precision value read back as a double, so that
// 0.71f becomes 0.71 and not 0.7099999785.
double Float_Value(float f) {
  char buf[32];
  auto r = std::to_chars(buf, buf + sizeof buf, f);
  double d = f;
  std::from_chars(buf, r.ptr, d);
  return d;
}

std::string File_Text(double v) {
  char buf[32];
  auto r = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, r.ptr);
}

bool Valid_NamePart(const std::string& s, bool allowBlank) {
  if (s.empty()) return false;
  for (char c : s) {
    if (c == ',' || c == '"' || c == '\n' || c == '\r') return false;
    if (!allowBlank && (c == ' ' || c == '\t')) return false;
  }
  return true;
}

}  // namespace

bool Write_SectionDB(const std::string& csvPath, const std::string& dbPath) {
  std::vector<std::string> lines;
  if (!Read_Lines(csvPath, lines) || lines.empty()) return false;

  // Columns are found by their names, in whatever order the table has them.
  static const char* const wanted[7] = {"series", "designation", "h_mm", "b_mm",
                                        "tw_mm",  "tf_mm",       "r_mm"};
  auto header = Split_Items(lines[0]);
  int col[7];
  for (int k = 0; k < 7; ++k) {
    col[k] = -1;
    for (size_t c = 0; c < header.size(); ++c)
      if (header[c] == wanted[k]) col[k] = (int)c;
    if (col[k] < 0) return false;
  }

  struct Series {
    std::string name;
    std::vector<std::string> rows;
  };
  std::vector<Series> all;
  for (size_t i = 1; i < lines.size(); ++i) {
    if (Trim(lines[i]).empty()) continue;
    auto items = Split_Items(lines[i]);
    if (items.size() != header.size()) return false;
    const std::string& series = items[col[0]];
    const std::string& number = items[col[1]];
    // The series' name ends at the first blank of a profile's caption.
    if (!Valid_NamePart(series, false) || !Valid_NamePart(number, true)) return false;
    double v[5];  // h, b, tw, tf, r in mm
    for (int k = 0; k < 5; ++k)
      if (!File_Number(items[col[k + 2]], v[k])) return false;
    const double h = v[0], b = v[1], tw = v[2], tf = v[3], r = v[4];
    // A rolled I: two flanges that leave a web, a web no wider than a flange.
    if (!(h > 0 && b > 0 && tw > 0 && tf > 0 && r >= 0 && h > 2 * tf && b >= tw)) return false;

    std::string row = series + " " + number;
    for (double x : v) row += "," + File_Text(x);
    Series* target = nullptr;
    for (auto& s : all)
      if (s.name == series) target = &s;
    if (!target) {
      all.push_back({series, {}});
      target = &all.back();
    }
    target->rows.push_back(row);
  }
  if (all.empty()) return false;

  std::ostringstream out;
  out << "Rolled I sections: full name, h, b, tw, tf, r in mm\n";
  for (const auto& s : all) {
    out << "1\n" << s.name << "," << s.rows.size() << "\n";
    for (const auto& row : s.rows) out << row << "\n";
  }
  return Write_File_Atomic(dbPath, out.str());
}

namespace {
// Walks the series blocks of the catalogue: a "1" line, "name,count", then
// count section lines. `visit(name, first line, count)` returns false to
// stop. False when a block is cut short or its header is damaged.
template <class Visit>
bool Walk_Series(const std::vector<std::string>& lines, Visit visit) {
  size_t i = 0;
  while (i < lines.size()) {
    if (!Opens_Series(lines[i])) {
      ++i;
      continue;
    }
    std::string name;
    int n = 0;
    if (i + 1 >= lines.size() || !Series_Header(lines[i + 1], name, n) ||
        i + 2 + (size_t)n > lines.size())
      return false;
    if (!visit(name, i + 2, n)) return true;
    i += 2 + (size_t)n;
  }
  return true;
}
}  // namespace

bool Load_SectionsSeries(const std::string& dbPath, std::vector<std::string>& series) {
  series.clear();
  std::vector<std::string> lines;
  if (!Read_Lines(dbPath, lines)) return false;
  // the section lines themselves are not read here
  const bool ok = Walk_Series(lines, [&](const std::string& name, size_t, int) {
    series.push_back(name);
    return true;
  });
  if (!ok) series.clear();
  return ok;
}

double Section_Area(const SectionRecord& s) {
  const double h = s.h, b = s.b, tf = s.tf, tw = s.tw, r = s.r;
  return 2 * b * tf + (h - 2 * tf) * tw + 0.8584073465 * r * r;
}

void Sort_ArrayIndex(int n, const std::vector<double>& keys, std::vector<int>& index) {
  index.resize(n > 0 ? n : 0);
  for (int i = 0; i < n; ++i) index[i] = i;
  for (int gap = n / 2; gap >= 1; gap /= 2) {
    for (int i = gap; i < n; ++i) {
      for (int j = i - gap; j >= 0 && keys[index[j]] > keys[index[j + gap]]; j -= gap)
        std::swap(index[j], index[j + gap]);
    }
  }
}

bool Load_SerieNumbers(const std::string& dbPath, const std::string& series,
                       std::vector<SectionRecord>& sections) {
  sections.clear();
  std::vector<std::string> lines;
  if (!Read_Lines(dbPath, lines)) return false;
  bool ok = true;
  // a series the file doesn't hold gives an empty list
  const bool walked = Walk_Series(lines, [&](const std::string& name, size_t first, int n) {
    if (name != series) return true;
    std::vector<SectionRecord> read(n);
    for (int k = 0; k < n; ++k)
      if (!Section_Line(lines[first + k], name, read[k])) {
        ok = false;
        return false;
      }
    std::vector<double> keys(n);
    for (int k = 0; k < n; ++k) keys[k] = Section_Area(read[k]);
    std::vector<int> index;
    Sort_ArrayIndex(n, keys, index);
    sections.reserve(n);
    for (int k = 0; k < n; ++k) sections.push_back(read[index[k]]);
    return false;
  });
  return walked && ok;
}

int Select_Item(const std::vector<std::string>& items, const std::string& wanted) {
  if (items.empty()) return -1;
  for (size_t i = 0; i < items.size(); ++i)
    if (items[i] == wanted) return (int)i;
  return 0;
}

void Split_ProfileName(const std::string& caption, std::string& series, std::string& number) {
  std::string t = Trim(caption);
  auto blank = t.find(' ');
  if (blank == std::string::npos) {
    series = t;
    number.clear();
  } else {
    series = t.substr(0, blank);
    number = Trim(t.substr(blank + 1));
  }
}

bool Find_Section(const std::string& dbPath, const std::string& fullName, SectionRecord& section) {
  std::string series, number;
  Split_ProfileName(fullName, series, number);
  std::vector<SectionRecord> list;
  if (series.empty() || !Load_SerieNumbers(dbPath, series, list)) return false;
  for (const auto& s : list) {
    if (s.name == number) {
      section = s;
      return true;
    }
  }
  return false;
}

CatalogueDims Catalogue_Dims(const SectionRecord& s) {
  CatalogueDims d;
  d.Cat_h = Float_Value(s.h);
  d.Cat_b = Float_Value(s.b);
  d.Cat_tf = Float_Value(s.tf);
  d.Cat_tw = Float_Value(s.tw);
  d.Cat_r = Float_Value(s.r);
  return d;
}

bool Catalogue_Dims(const std::string& dbPath, const std::string& fullName, CatalogueDims& dims) {
  SectionRecord s;
  if (!Find_Section(dbPath, fullName, s)) return false;
  dims = Catalogue_Dims(s);
  return true;
}

std::string FormatValue(double value, int decimals, int width) {
  std::string pattern = decimals > 0 ? "0." + std::string(decimals, '0') : "0";
  std::string t = Format_Pattern(value, pattern);
  if ((int)t.size() < width) t.insert(0, width - t.size(), ' ');
  return t;
}

std::string Show_SectionProperties(const SectionI& r) {
  struct Line {
    const char* label;
    double value;
    int decimals;
    const char* unit;
  };
  // Dimensions and areas to 0.01, inertias to 0.01 cm4 (Iz and It as the
  // main window shows them), the warping constant to the unit.
  const Line lines[16] = {
      {" h     =", r.h, 2, " cm"},     {" bf    =", r.b, 2, " cm"},
      {" tf    =", r.tf, 2, " cm"},    {" tw    =", r.tw, 2, " cm"},
      {" r     =", r.r, 2, " cm"},     {" A     =", r.A, 2, " cm2"},
      {" Avz   =", r.Avz, 2, " cm2"},  {" Avy   =", r.Avy, 2, " cm2"},
      {" Iy    =", r.Iy, 2, " cm4"},   {" Iz    =", r.Iz, 2, " cm4"},
      {" Wely  =", r.Wely, 2, " cm3"}, {" Welz  =", r.Welz, 2, " cm3"},
      {" Wply  =", r.Wply, 2, " cm3"}, {" Wplz  =", r.Wplz, 2, " cm3"},
      {" It    =", r.It, 3, " cm4"},   {" Iw    =", r.Iw, 0, " cm6"},
  };
  std::string text;
  for (const auto& l : lines) {
    text += l.label;
    text += FormatValue(l.value, l.decimals, 11);
    text += l.unit;
    text += '\n';
  }
  return text;
}

SectionTransfer Transfer_Section(const SectionI& result, const std::string& series,
                                 double factIzt, double factIw) {
  SectionTransfer t;
  SectionRecord s;
  s.h = result.h;
  s.b = result.b;
  s.tf = result.tf;
  s.tw = result.tw;
  s.r = result.r;
  t.dims = Catalogue_Dims(s);
  t.Iz = Format_Auto(result.Iz / factIzt);
  t.It = Format_Auto(result.It / factIzt);
  t.Iw = Format_Auto(result.Iw / factIw);
  t.Betaz = "0";
  t.SelectedProfile = series + " " + result.name;
  return t;
}

}  // namespace zarvek
