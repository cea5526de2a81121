// A small RTF reader for the tests, independent of the writer: text (\par as lines, \uN as UTF-8), pictures.
#pragma once

#include <cctype>
#include <cstdint>
#include <string>
#include <vector>

namespace rtf_test {

struct Rtf_Picture {
  std::string type;  // "pngblip" ...
  long picw = 0, picwgoal = 0;
  std::string bytes;
};

struct Rtf_Content {
  std::string text;
  std::vector<Rtf_Picture> pictures;
  bool well_formed = false;  // braces balance and the text starts with {\rtf
};

inline void Put_Utf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) out += (char)cp;
  else if (cp < 0x800) out += {(char)(0xC0 | cp >> 6), (char)(0x80 | (cp & 0x3F))};
  else out += {(char)(0xE0 | cp >> 12), (char)(0x80 | (cp >> 6 & 0x3F)), (char)(0x80 | (cp & 0x3F))};
}

inline Rtf_Content Read_Rtf(const std::string& s) {
  Rtf_Content c;
  enum Dest { Text, Skip, Pict };
  std::vector<Dest> stack;
  Dest dest = Text;
  int skipFallback = 0;  // characters of a \uN escape's fallback still to pass over
  std::string hex;
  auto put = [&](char ch) { skipFallback ? void(--skipFallback) : void(c.text += ch); };
  c.well_formed = s.rfind("{\\rtf", 0) == 0;
  for (size_t i = 0; i < s.size();) {
    const char ch = s[i++];
    if (ch == '{') {
      stack.push_back(dest);
      if (s.compare(i, 2, "\\*") == 0) dest = Skip;  // a destination opens right after the brace
    } else if (ch == '}') {
      if (stack.empty()) return c.well_formed = false, c;
      if (dest == Pict && stack.back() != Pict) {
        for (size_t k = 0; k + 1 < hex.size(); k += 2)
          c.pictures.back().bytes += (char)std::stoi(hex.substr(k, 2), nullptr, 16);
        hex.clear();
      }
      dest = stack.back();
      stack.pop_back();
    } else if (ch == '\\') {
      if (i < s.size() && !std::isalpha((unsigned char)s[i])) {
        const char sym = s[i++];
        if (dest == Text && (sym == '\\' || sym == '{' || sym == '}')) put(sym);
        continue;
      }
      std::string word, num;
      while (i < s.size() && std::isalpha((unsigned char)s[i])) word += s[i++];
      if (i < s.size() && (s[i] == '-' || std::isdigit((unsigned char)s[i]))) num += s[i++];
      while (!num.empty() && i < s.size() && std::isdigit((unsigned char)s[i])) num += s[i++];
      if (i < s.size() && s[i] == ' ') ++i;
      const long n = num.empty() ? 0 : std::stol(num);
      if (word == "fonttbl" || word == "colortbl" || word == "stylesheet" || word == "info") dest = Skip;
      else if (word == "pict") dest = Pict, c.pictures.emplace_back();
      else if (dest == Pict && (word.ends_with("blip") || word == "wmetafile"))
        c.pictures.back().type = word;
      else if (dest == Pict && word == "picw") c.pictures.back().picw = n;
      else if (dest == Pict && word == "picwgoal") c.pictures.back().picwgoal = n;
      else if (dest == Text && word == "par") c.text += '\n';
      else if (dest == Text && word == "tab") c.text += '\t';
      else if (dest == Text && word == "u") Put_Utf8(c.text, (std::uint32_t)(n < 0 ? n + 65536 : n)), skipFallback = 1;
    } else if (ch == '\r' || ch == '\n') {  // line ends of the file are no text
    } else if (dest == Pict) {
      if (std::isxdigit((unsigned char)ch)) hex += ch;
    } else if (dest == Text) {
      put(ch);
    }
  }
  if (!stack.empty()) c.well_formed = false;
  return c;
}

// The smallest PNG header that names a size: signature, IHDR length, type, width and height.
inline std::string Png_Of(int w, int h) {
  std::string s("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16);
  for (int v : {w, h})
    for (int k = 3; k >= 0; --k) s += (char)(v >> (8 * k) & 0xFF);
  return s + std::string("\x08\x06\0\0\0", 5);
}

}  // namespace rtf_test
