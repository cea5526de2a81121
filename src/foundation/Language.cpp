// Language files: unscrambling, loading of the texts and messages, and the
// list of the languages present beside the program.
#include "foundation/Language.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <dirent.h>
#include <fstream>
#include <iterator>
#include <map>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

// Lines per section, in file order; the last one holds the messages.
constexpr std::array<int, Section_Count + 2> kSizes = {1, 65, 30, 3, 3, 18, 4, 1, 10, 6, 4, 99};

constexpr int Total_Lines() {
  int s = 0;
  for (int v : kSizes) s += v;
  return s;
}

constexpr int kTotal = Total_Lines();  // 244

// The scrambling key, one piece of 20 upper-case letters.
constexpr char kKey[] = "QUILMORDENTASPARKWIN";
static_assert(sizeof(kKey) == 21);

// The loaded language: Texts[1..244], index 0 unused.
std::vector<std::string>& Texts() {
  static std::vector<std::string> t(kTotal + 1);
  return t;
}

// The further texts of the loaded language, by key: the captions, tooltips
// and messages of the commands that came after the numbered sections.
std::map<std::string, std::string, std::less<>>& Further() {
  static std::map<std::string, std::string, std::less<>> f;
  return f;
}

std::array<std::string, 100>& Messages() {
  static std::array<std::string, 100> m;
  return m;
}

const std::string& Empty() {
  static const std::string e;
  return e;
}

// Splits a text into lines at CR LF, LF or CR; a last line without an end
// counts, an empty tail after the last end doesn't.
std::vector<std::string> Split_Lines(const std::string& s) {
  std::vector<std::string> lines;
  size_t i = 0, n = s.size();
  while (i < n) {
    size_t j = i;
    while (j < n && s[j] != '\n' && s[j] != '\r') ++j;
    lines.emplace_back(s, i, j - i);
    if (j < n && s[j] == '\r' && j + 1 < n && s[j + 1] == '\n') ++j;
    i = j + 1;
  }
  return lines;
}

bool Read_Whole(const std::string& name, std::string& out) {
  std::ifstream in(name, std::ios::binary);
  if (!in) return false;
  out.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return !in.bad();
}

// A line that the reader passes over: blank, or a comment ("'" as the very
// first character; blanks ahead of the mark make it a normal line).
bool Is_Ignored(const std::string& line) {
  if (!line.empty() && line[0] == '\'') return true;
  return Trim(line).empty();
}

void Remove_File(const std::string& name) {
  if (File_Exists(name)) std::remove(name.c_str());
}

}  // namespace

const std::string& Msg(int n) {
  if (n < 1 || n > 99) return Empty();
  return Messages()[n];
}

void Set_Msg(int n, const std::string& text) {
  if (n < 1 || n > 99) return;
  Messages()[n] = text;
}

bool Crypt_File(const std::string& name, long count, const std::string& tmp) {
  std::string data;
  if (!Read_Whole(name, data)) return false;
  size_t n = data.size();
  if (count > 0 && static_cast<size_t>(count) < n) n = static_cast<size_t>(count);
  data.resize(n);
  // Byte p (1-based) takes letter (p mod 20) + 1 of the key: the first byte
  // the second letter, the twentieth the first.
  for (size_t i = 0; i < n; ++i) {
    size_t p = i + 1;
    data[i] = static_cast<char>(static_cast<unsigned char>(data[i]) ^
                                static_cast<unsigned char>(kKey[p % 20]));
  }
  std::ofstream out(tmp, std::ios::binary | std::ios::trunc);
  if (!out) return false;
  out.write(data.data(), static_cast<std::streamsize>(data.size()));
  out.close();
  return static_cast<bool>(out);
}

int Section_Size(int k) {
  if (k < 0 || k > Section_Count + 1) return 0;
  return kSizes[k];
}

int Section_Start(int k) {
  if (k < 0 || k > Section_Count + 1) return 0;
  int s = 1;
  for (int i = 0; i < k; ++i) s += kSizes[i];
  return s;
}

int Texts_Count() { return kTotal; }

const std::string& Text_Line(int i) {
  if (i < 1 || i > kTotal) return Empty();
  return Texts()[i];
}

const std::string& Section_Line(int k, int j) {
  if (j < 1 || j > Section_Size(k)) return Empty();
  return Text_Line(Section_Start(k) + j - 1);
}

int Section_Of_Window(std::string_view window_name) {
  static const struct {
    const char* name;
    int section;
  } table[] = {
      {"FRM_ZARVEK", 1},      {"FRM_OPTIONS", 2},       {"FRM_EDIT", 3},
      {"FRM_EIGENVECTOR", 4}, {"FRM_DIRECTDATA", 5},    {"FRM_SECTION", 6},
      {"FRM_HELP", 7},        {"FRM_PROPERTIES", 8},    {"FRM_ABOUT", 9},
      {"FRM_DIRECTSOLVE", 9}, {"SPLASHSCREEN", 9},      {"FRM_EIGENVECTOR3D", 10},
  };
  std::string up = Upper(window_name);
  for (const auto& e : table)
    if (up == e.name) return e.section;
  return -1;
}

bool Load_LanguageFile(const std::string& File_Language, const std::string& File_Tmp) {
  std::vector<std::string> texts(kTotal + 1);
  std::map<std::string, std::string, std::less<>> further;
  bool ok = false;
  std::string plain;
  if (Crypt_File(File_Language, 0, File_Tmp) && Read_Whole(File_Tmp, plain)) {
    const std::vector<std::string> lines = Split_Lines(plain);
    size_t at = 0;
    int k = 0;  // sections read
    int m = 0;  // text lines stored
    ok = true;
    while (ok && at < lines.size()) {
      const std::string& line = lines[at++];
      if (Is_Ignored(line) || line[0] != '$') continue;
      // The count behind "$" must be numeric as a whole; anything else
      // counts as 0, which no numbered section has. The section of further
      // texts is as long as it says, up to Further_Max lines.
      double c = Num_Of_Text(std::string_view(line).substr(1));
      const bool keyed = k == Further_Section;
      const bool digits = line.size() > 1 && line.find_first_not_of("0123456789", 1) == std::string::npos;
      if (k > Further_Section || (!keyed && c != kSizes[k]) ||
          (keyed && !(digits && c <= Further_Max))) {
        ok = false;
        break;
      }
      const int count = keyed ? static_cast<int>(c) : kSizes[k];
      const bool messages = k == Section_Count + 1;
      ++k;
      for (int j = 0; j < count && ok;) {
        if (at >= lines.size()) {
          ok = false;  // the file ends inside the section
          break;
        }
        const std::string& text = lines[at++];
        if (Is_Ignored(text)) continue;
        ++j;
        if (messages || keyed) {
          size_t mark = text.find(">:");
          if (mark == std::string::npos) {
            ok = false;
            break;
          }
          std::string value = Trim(std::string_view(text).substr(mark + 2));
          if (keyed)
            further[Trim(std::string_view(text).substr(0, mark))] = std::move(value);
          else
            texts[++m] = std::move(value);
        } else {
          texts[++m] = text;
        }
      }
    }
  }
  Remove_File(File_Tmp);
  if (ok) {
    Texts() = std::move(texts);
    Further() = std::move(further);
  }
  return ok;
}

const std::string& Further_Text(std::string_view key) {
  const auto& f = Further();
  auto it = f.find(key);
  return it == f.end() ? Empty() : it->second;
}

std::string Further_Text(std::string_view key, std::string_view fallback) {
  const std::string& t = Further_Text(key);
  return t.empty() ? std::string(fallback) : t;
}

void Set_Further_Text(std::string_view key, const std::string& text) {
  Further()[std::string(key)] = text;
}

void Load_Messages() {
  const int m = Section_Start(Section_Count + 1);
  for (int n = 1; n <= 99; ++n) Messages()[n] = Texts()[m + n - 1];
}

std::string Language_Code_Of(std::string_view file_name) {
  size_t us = file_name.rfind('_');
  size_t dot = file_name.rfind('.');
  if (us == std::string_view::npos || dot == std::string_view::npos || dot <= us + 1) return {};
  return Upper(file_name.substr(us + 1, dot - us - 1));
}

std::string Language_Item(std::string_view code, std::string_view name) {
  std::string item(code);
  if (item.size() < 4) item.resize(4, ' ');
  item += name;
  return item;
}

std::string Language_Code_Of_Item(std::string_view item) {
  return Trim(item.substr(0, std::min<size_t>(4, item.size())));
}

std::vector<std::string> Load_Languages(const std::string& App_Path, const std::string& File_Tmp) {
  std::vector<std::string> names;
  if (DIR* d = ::opendir(App_Path.empty() ? "." : App_Path.c_str())) {
    while (dirent* e = ::readdir(d)) {
      std::string up = Upper(e->d_name);
      if (up.find(".MSG") != std::string::npos && up.find("ZARVEK_") != std::string::npos)
        names.emplace_back(e->d_name);
    }
    ::closedir(d);
  }
  std::sort(names.begin(), names.end());

  std::vector<std::string> items;
  for (const std::string& entry : names) {
    const std::string full = App_Path + entry;
    if (!File_Exists(full)) continue;
    const std::string code = Language_Code_Of(full);
    if (code.empty()) continue;
    // Only the head of the file is unscrambled: "$1" and the name behind it
    // must stand within the first 100 bytes.
    std::string head;
    bool read = Crypt_File(full, 100, File_Tmp) && Read_Whole(File_Tmp, head);
    Remove_File(File_Tmp);
    if (!read) continue;
    const std::vector<std::string> lines = Split_Lines(head);
    for (size_t i = 0; i < lines.size(); ++i) {
      if (lines[i].find("$1") == std::string::npos) continue;
      if (i + 1 < lines.size()) items.push_back(Language_Item(code, lines[i + 1]));
      break;
    }
  }
  return items;
}

std::string Remove_FirstHotKey(std::string_view caption) {
  std::string s(caption);
  size_t p = s.find('&');
  if (p != std::string::npos && p + 1 < s.size()) s.erase(p, 1);
  return s;
}

std::string Cp1252_To_Utf8(std::string_view text) {
  // Code points of 0x80..0x9F; the five unassigned bytes keep their C1 code.
  static constexpr char16_t k80[32] = {
      0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
      0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
      0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
  std::string out;
  out.reserve(text.size() + text.size() / 4);
  for (unsigned char b : text) {
    char32_t cp = b < 0x80 ? b : (b < 0xA0 ? k80[b - 0x80] : b);
    if (cp < 0x80) {
      out += static_cast<char>(cp);
    } else if (cp < 0x800) {
      out += static_cast<char>(0xC0 | (cp >> 6));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
      out += static_cast<char>(0xE0 | (cp >> 12));
      out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (cp & 0x3F));
    }
  }
  return out;
}

}  // namespace zarvek
