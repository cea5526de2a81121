#include "foundation/Mod_Zarvek.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <locale>
#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace zarvek {

char Dec_Sep = '.';

char Find_DecSep() {
  // The separator the locale would put in "2.2" formatted as "0.0".
  char sep = '.';
  try {
    std::locale loc("");
    sep = std::use_facet<std::numpunct<char>>(loc).decimal_point();
  } catch (...) {
    sep = '.';
  }
  if (sep != ',' && sep != '.') sep = '.';
  Dec_Sep = sep;
  return sep;
}

namespace {

// Exact decimal text of |v| with `dec` decimals, ties rounded away from zero
// (the binary value decides what a tie is). Locale-free.
std::string Fixed_Digits(double a, int dec) {
  char buf[512];
  auto r = std::to_chars(buf, buf + sizeof buf, a, std::chars_format::fixed, dec + 40);
  std::string s(buf, r.ptr);
  auto dot = s.find('.');
  std::string ip = s.substr(0, dot);
  std::string fp = s.substr(dot + 1);
  std::string keep = fp.substr(0, dec);
  std::string rest = fp.substr(dec);
  bool up = false;
  if (!rest.empty() && rest[0] >= '5') up = true;  // >= half (exact ties go up: away from zero)
  std::string digits = ip + keep;
  if (up) {
    int i = (int)digits.size() - 1;
    while (i >= 0) {
      if (digits[i] == '9') { digits[i] = '0'; --i; }
      else { digits[i]++; break; }
    }
    if (i < 0) digits.insert(digits.begin(), '1');
  }
  std::string intPart = digits.substr(0, digits.size() - dec);
  std::string frac = digits.substr(digits.size() - dec);
  if (intPart.empty()) intPart = "0";
  return dec > 0 ? intPart + "." + frac : intPart;
}

// Scientific digits of |v| > 0: a mantissa "d.ddd" with `dec` decimals and
// its decimal exponent, rounded from the exact decimal value of the double,
// ties away from zero, as Fixed_Digits does. (Dividing by a power of ten
// first would round the quotient and turn ties either way.)
std::string Sci_Digits(double a, int dec, int& e) {
  // every finite double has an exact decimal expansion of at most 767
  // significant digits
  char buf[1024];
  auto r = std::to_chars(buf, buf + sizeof buf, a, std::chars_format::scientific, 800);
  std::string s(buf, r.ptr);  // d.ddd...e[+-]xx
  const auto epos = s.find('e');
  e = std::atoi(s.c_str() + epos + 1);
  std::string digits;
  for (size_t i = 0; i < epos; ++i)
    if (s[i] != '.') digits += s[i];
  const size_t keep = (size_t)dec + 1;
  const bool up = digits.size() > keep && digits[keep] >= '5';
  digits.resize(keep);
  if (up) {
    int i = (int)keep - 1;
    while (i >= 0 && digits[i] == '9') digits[i--] = '0';
    if (i >= 0) {
      digits[i]++;
    } else {
      // 9.99..5 -> 10.00: one more power of ten
      digits.insert(digits.begin(), '1');
      digits.pop_back();
      ++e;
    }
  }
  return dec > 0 ? digits.substr(0, 1) + "." + digits.substr(1) : digits;
}

struct Pattern {
  int minInt = 1;
  int minDec = 0, maxDec = 0;
  bool point = false;
  bool sci = false;
  bool expAlwaysSign = false;
  int expDigits = 2;
};

Pattern Parse_Pattern(std::string_view p) {
  Pattern r;
  size_t i = 0;
  int ints = 0;
  while (i < p.size() && (p[i] == '0' || p[i] == '#')) { if (p[i] == '0') ints++; ++i; }
  r.minInt = ints;
  if (i < p.size() && p[i] == '.') {
    r.point = true;
    ++i;
    while (i < p.size() && (p[i] == '0' || p[i] == '#')) {
      if (p[i] == '0') r.minDec++;
      r.maxDec++;
      ++i;
    }
  }
  if (i < p.size() && (p[i] == 'E' || p[i] == 'e')) {
    r.sci = true;
    ++i;
    if (i < p.size()) { r.expAlwaysSign = (p[i] == '+'); ++i; }
    r.expDigits = 0;
    while (i < p.size() && p[i] == '0') { r.expDigits++; ++i; }
    if (r.expDigits == 0) r.expDigits = 1;
  }
  return r;
}

std::string Strip_Optional(std::string s, int minDec) {
  // s holds "int.frac" with maxDec fraction digits: drop optional trailing zeros.
  auto dot = s.find('.');
  if (dot == std::string::npos) return s;
  size_t minLen = dot + 1 + minDec;
  while (s.size() > minLen && s.back() == '0') s.pop_back();
  return s;  // may end in "." when no digit is left: callers decide
}

}  // namespace

std::string Format_Pattern(double value, std::string_view pattern) {
  Pattern p = Parse_Pattern(pattern);
  bool neg = std::signbit(value) && value != 0;
  double a = std::fabs(value);
  std::string body;
  if (!std::isfinite(value)) {
    body = std::isnan(value) ? "NaN" : "Inf";
  } else if (p.sci) {
    int e = 0;
    std::string m;
    if (a != 0) {
      m = Sci_Digits(a, p.maxDec, e);
    } else {
      m = Fixed_Digits(0, p.maxDec);
    }
    m = Strip_Optional(m, p.minDec);
    // a mantissa left with a bare point ("1.") keeps it, as the pattern reads
    std::string es = std::to_string(std::abs(e));
    while ((int)es.size() < p.expDigits) es.insert(es.begin(), '0');
    std::string sign = e < 0 ? "-" : (p.expAlwaysSign ? "+" : "");
    body = m + "E" + sign + es;
  } else {
    body = Fixed_Digits(a, p.maxDec);
    body = Strip_Optional(body, p.minDec);
    if (!p.point) {
      auto dot = body.find('.');
      if (dot != std::string::npos) body.erase(dot);
    }
    // integer part: at least minInt digits, "#" leading gives "" for 0
    auto dot = body.find('.');
    std::string ip = dot == std::string::npos ? body : body.substr(0, dot);
    std::string rest = dot == std::string::npos ? "" : body.substr(dot);
    if (p.minInt == 0 && ip == "0") ip = "";
    while ((int)ip.size() < p.minInt) ip.insert(ip.begin(), '0');
    body = ip + rest;
    // a value that rounds to zero shows no sign
    bool allZero = std::all_of(body.begin(), body.end(), [](char c) { return c == '0' || c == '.'; });
    if (allZero) neg = false;
  }
  if (neg) body.insert(body.begin(), '-');
  auto dot = body.find('.');
  if (dot != std::string::npos) body[dot] = Dec_Sep;
  return body;
}

std::string To_DotText(std::string_view text, int n) {
  std::string s(text);
  auto pos = s.find(Dec_Sep);
  if (pos != std::string::npos) s[pos] = '.';
  if ((int)s.size() < n) s.insert(0, n - s.size(), ' ');
  return s;
}

std::string To_LocalText(std::string_view text) {
  std::string s(text);
  auto pos = s.find('.');
  if (pos != std::string::npos) s[pos] = Dec_Sep;
  return Trim(s);
}

std::string Format_Fixed(double value, int width, int decimals) {
  std::string pattern = decimals > 0 ? "0." + std::string(decimals, '0') : "0";
  std::string t = Format_Pattern(value, pattern);
  if ((int)t.size() > width) {
    t = Format_Pattern(value, "0.000#E+00");
    if ((int)t.size() > width) width = (int)t.size();
  }
  return To_DotText(t, width);
}

std::string Format_Auto(double value) {
  double a = std::fabs(value);
  const char* pat;
  if (a == 0) return "0";
  if (a < 0.1) pat = "0.000#E-00";
  else if (a < 1) pat = "0.0####";
  else if (a < 10) pat = "0.####";
  else if (a < 100) pat = "0.###";
  else if (a < 1000) pat = "0.##";
  else if (a < 10000) pat = "0.#";
  else if (a < 1000000) pat = "0";
  else pat = "0.000#E+00";
  std::string t = Format_Pattern(value, pat);
  if (!t.empty() && t.back() == Dec_Sep) t.pop_back();
  return t;
}

namespace {
std::string General_Text(double v, int sig) {
  if (v == 0) return "0";
  // no digits to lay out: the names Format_Pattern gives them
  if (std::isnan(v)) return "NaN";
  if (std::isinf(v)) return v < 0 ? "-Inf" : "Inf";
  char buf[64];
  // shortest text with at most `sig` significant digits
  auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific, sig - 1);
  std::string s(buf, r.ptr);  // d.ddddde[+-]xx
  auto epos = s.find('e');
  int e = std::atoi(s.c_str() + epos + 1);
  std::string mant = s.substr(0, epos);
  bool neg = mant[0] == '-';
  if (neg) mant.erase(0, 1);
  std::string digits;
  for (char c : mant) if (c != '.') digits += c;
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  std::string out;
  if (e >= sig || e < -4) {
    out = digits.substr(0, 1);
    if (digits.size() > 1) out += "." + digits.substr(1);
    std::string es = std::to_string(std::abs(e));
    if (es.size() < 2) es.insert(es.begin(), '0');
    out += std::string("E") + (e < 0 ? "-" : "+") + es;
  } else if (e < 0) {
    out = "0." + std::string(-e - 1, '0') + digits;
  } else {
    if ((int)digits.size() <= e + 1) out = digits + std::string(e + 1 - digits.size(), '0');
    else out = digits.substr(0, e + 1) + "." + digits.substr(e + 1);
  }
  if (neg) out.insert(out.begin(), '-');
  auto dot = out.find('.');
  if (dot != std::string::npos) out[dot] = Dec_Sep;
  return out;
}
}  // namespace

std::string Number_To_Text(double value) { return General_Text(value, 15); }
std::string Number_To_Text(float value) { return General_Text((double)value, 7); }

std::string Trim(std::string_view s) {
  size_t b = 0, e = s.size();
  while (b < e && std::isspace((unsigned char)s[b])) ++b;
  while (e > b && std::isspace((unsigned char)s[e - 1])) --e;
  return std::string(s.substr(b, e - b));
}

std::string Upper(std::string_view s) {
  std::string r(s);
  for (auto& c : r) c = (char)std::toupper((unsigned char)c);
  return r;
}

bool Has_Extension(std::string_view name, std::string_view ext) {
  if (name.size() < ext.size()) return false;
  return Upper(name.substr(name.size() - ext.size())) == Upper(ext);
}

bool Is_Numeric(std::string_view text) {
  std::string s = Trim(text);
  size_t i = 0, n = s.size();
  if (n == 0) return false;
  if (s[i] == '+' || s[i] == '-') ++i;
  size_t digits = 0;
  bool sep = false;
  while (i < n) {
    char c = s[i];
    if (std::isdigit((unsigned char)c)) { digits++; ++i; }
    else if (c == Dec_Sep && !sep) { sep = true; ++i; }
    else break;
  }
  if (digits == 0) return false;
  if (i < n && (s[i] == 'E' || s[i] == 'e')) {
    ++i;
    if (i < n && (s[i] == '+' || s[i] == '-')) ++i;
    size_t ed = 0;
    while (i < n && std::isdigit((unsigned char)s[i])) { ed++; ++i; }
    if (ed == 0) return false;
  }
  return i == n;
}

double Num_Of_Text(std::string_view text) {
  if (!Is_Numeric(text)) return 0;
  std::string s = Trim(text);
  if (s[0] == '+') s.erase(0, 1);
  auto pos = s.find(Dec_Sep);
  if (pos != std::string::npos) s[pos] = '.';
  double v = 0;
  auto r = std::from_chars(s.data(), s.data() + s.size(), v);
  if (r.ec == std::errc::result_out_of_range) {
    // beyond the range of a double: the largest magnitude with its sign
    v = (s[0] == '-') ? -HUGE_VAL : HUGE_VAL;
    // a tiny exponent underflows to 0
    if (s.find("E-") != std::string::npos || s.find("e-") != std::string::npos) v = 0;
  } else if (r.ec != std::errc()) {
    return 0;
  }
  return v;
}

float Get_ItemFactor(long d) {
  if (d < 0) return (float)(-1.0 / (double)d);
  return (float)d;
}

bool Filter_NumericKey(int& key, int mode) {
  if (key < 31) return true;
  if (key == (unsigned char)Dec_Sep) return true;
  if (key == ',' || key == '.') { key = (unsigned char)Dec_Sep; return true; }
  if (key >= '0' && key <= '9') return true;
  if (key == 'e' || key == 'E') { key = 'E'; return true; }
  if (key == '+') return true;
  if (key == '-') return mode == 0;
  return false;
}

std::string Path_Of(std::string_view name) {
  auto pos = name.rfind('/');
  if (pos == std::string_view::npos) return std::string(name.substr(0, std::min<size_t>(2, name.size())));
  return std::string(name.substr(0, pos));
}

bool File_Exists(const std::string& name) {
  if (Trim(name).empty()) return false;
  struct stat st;
  return ::stat(name.c_str(), &st) == 0;
}

bool Write_File_Atomic(const std::string& path, const std::string& content) {
  std::string tmpl = path + ".XXXXXX";
  std::vector<char> buf(tmpl.begin(), tmpl.end());
  buf.push_back('\0');
  int fd = ::mkstemp(buf.data());
  if (fd < 0) return false;
  std::string tmp(buf.data());
  const char* p = content.data();
  size_t left = content.size();
  bool ok = true;
  while (left > 0) {
    ssize_t w = ::write(fd, p, left);
    if (w <= 0) { ok = false; break; }
    p += w;
    left -= (size_t)w;
  }
  if (ok && ::fsync(fd) != 0) ok = false;
  // keep the usual permissions of a new file rather than mkstemp's 0600
  mode_t um = ::umask(0);
  ::umask(um);
  ::fchmod(fd, 0666 & ~um);
  if (::close(fd) != 0) ok = false;
  if (ok && ::rename(tmp.c_str(), path.c_str()) != 0) ok = false;
  if (!ok) ::unlink(tmp.c_str());
  return ok;
}

void Keep_Freed_Memory() {
#ifdef __GLIBC__
  // up to 64 MB of freed memory kept on the heap; blocks up to 32 MB come
  // from the heap too, rather than from mappings of their own that are
  // unmapped again when freed
  mallopt(M_TRIM_THRESHOLD, 64 << 20);
  mallopt(M_MMAP_THRESHOLD, 32 << 20);
#endif
}

const char* Version_Text() { return ZARVEK_VERSION; }
const char* Program_Name() { return "Zarvek"; }

size_t Edit_Distance(std::string_view a, std::string_view b, bool ignoreCase) {
  auto same = [ignoreCase](char x, char y) {
    return ignoreCase ? std::tolower((unsigned char)x) == std::tolower((unsigned char)y) : x == y;
  };
  std::vector<size_t> d(b.size() + 1);
  for (size_t j = 0; j <= b.size(); ++j) d[j] = j;
  for (size_t i = 1; i <= a.size(); ++i) {
    size_t diag = d[0];
    d[0] = i;
    for (size_t j = 1; j <= b.size(); ++j) {
      const size_t up = d[j];
      d[j] = std::min({d[j] + 1, d[j - 1] + 1, diag + (same(a[i - 1], b[j - 1]) ? 0 : 1)});
      diag = up;
    }
  }
  return d[b.size()];
}

}  // namespace zarvek
