// A small RTF reader for the tests: the text of a document (paragraphs as
// lines, tabs as '\t', \uN escapes decoded to UTF-8) and its pictures. It
// knows only what a plain report uses; it is independent of the writer.
#pragma once

#include <cctype>
#include <cstdint>
#include <string>
#include <vector>

namespace rtf_test {

struct Rtf_Picture {
  std::string type;  // "pngblip" ...
  long picw = 0, pich = 0, picwgoal = 0, pichgoal = 0;
  std::string bytes;
};

struct Rtf_Content {
  std::string text;
  std::vector<Rtf_Picture> pictures;
  std::vector<std::string> fonts;
  bool well_formed = false;  // braces balance and the text starts with {\rtf
};

inline void Put_Utf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) {
    out += (char)cp;
  } else if (cp < 0x800) {
    out += (char)(0xC0 | cp >> 6);
    out += (char)(0x80 | (cp & 0x3F));
  } else {
    out += (char)(0xE0 | cp >> 12);
    out += (char)(0x80 | (cp >> 6 & 0x3F));
    out += (char)(0x80 | (cp & 0x3F));
  }
}

inline Rtf_Content Read_Rtf(const std::string& s) {
  Rtf_Content c;
  enum Dest { Text, Skip, Pict, Font };
  struct Group {
    Dest dest;
  };
  std::vector<Group> stack;
  Dest dest = Text;
  int skipFallback = 0;
  std::string fontName, hex;
  c.well_formed = s.rfind("{\\rtf", 0) == 0;
  for (size_t i = 0; i < s.size();) {
    const char ch = s[i];
    if (ch == '{') {
      stack.push_back({dest});
      ++i;
      // a destination opens right after the brace
      if (s.compare(i, 2, "\\*") == 0) dest = Skip;
      continue;
    }
    if (ch == '}') {
      if (stack.empty()) {
        c.well_formed = false;
        break;
      }
      if (dest == Pict && (stack.back().dest != Pict)) {
        Rtf_Picture& p = c.pictures.back();
        for (size_t k = 0; k + 1 < hex.size(); k += 2) p.bytes += (char)std::stoi(hex.substr(k, 2), nullptr, 16);
        hex.clear();
      }
      if (dest == Font && stack.back().dest != Font) {
        // end of the font table
      }
      dest = stack.back().dest;
      stack.pop_back();
      ++i;
      continue;
    }
    if (ch == '\\') {
      ++i;
      if (i < s.size() && !std::isalpha((unsigned char)s[i])) {
        const char sym = s[i++];
        if (dest == Text && (sym == '\\' || sym == '{' || sym == '}')) {
          if (skipFallback) --skipFallback;
          else c.text += sym;
        }
        continue;
      }
      std::string word;
      while (i < s.size() && std::isalpha((unsigned char)s[i])) word += s[i++];
      std::string num;
      if (i < s.size() && (s[i] == '-' || std::isdigit((unsigned char)s[i]))) {
        num += s[i++];
        while (i < s.size() && std::isdigit((unsigned char)s[i])) num += s[i++];
      }
      if (i < s.size() && s[i] == ' ') ++i;
      const long n = num.empty() ? 0 : std::stol(num);
      if (word == "fonttbl") dest = Font;
      else if (word == "colortbl" || word == "stylesheet" || word == "info") dest = Skip;
      else if (word == "pict") {
        dest = Pict;
        c.pictures.emplace_back();
      } else if (dest == Pict) {
        Rtf_Picture& p = c.pictures.back();
        if (word == "pngblip" || word == "jpegblip" || word == "wmetafile" || word == "emfblip") p.type = word;
        else if (word == "picw") p.picw = n;
        else if (word == "pich") p.pich = n;
        else if (word == "picwgoal") p.picwgoal = n;
        else if (word == "pichgoal") p.pichgoal = n;
      } else if (dest == Text) {
        if (word == "par") c.text += '\n';
        else if (word == "tab") c.text += '\t';
        else if (word == "u") {
          Put_Utf8(c.text, (std::uint32_t)(n < 0 ? n + 65536 : n));
          skipFallback = 1;
        }
      }
      continue;
    }
    ++i;
    if (ch == '\r' || ch == '\n') continue;
    if (dest == Pict) {
      if (std::isxdigit((unsigned char)ch)) hex += ch;
    } else if (dest == Font) {
      if (ch == ';') {
        c.fonts.push_back(fontName);
        fontName.clear();
      } else {
        fontName += ch;
      }
    } else if (dest == Text) {
      if (skipFallback) --skipFallback;
      else c.text += ch;
    }
  }
  if (!stack.empty()) c.well_formed = false;
  return c;
}

}  // namespace rtf_test
