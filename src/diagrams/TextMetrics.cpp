#include "diagrams/TextMetrics.h"

#include <cctype>

namespace zarvek {

namespace {

// Advance widths of the printable ASCII characters, in thousandths of an em.
constexpr short Sans_Widths[95] = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,  // ' '../
    556, 556, 556, 556, 556, 556, 556, 556, 556, 556,                                // 0..9
    278, 278, 584, 584, 584, 556, 1015,                                              // :..@
    667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833,                 // A..M
    722, 778, 667, 778, 722, 667, 611, 722, 667, 944, 667, 667, 611,                 // N..Z
    278, 278, 278, 469, 556, 333,                                                    // [..`
    556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833,                 // a..m
    556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500, 500,                 // n..z
    334, 260, 334, 584};                                                             // {..~

bool Is_Mono(const std::string& font) {
  std::string f;
  for (char c : font) f += (char)std::tolower((unsigned char)c);
  return f.find("courier") != std::string::npos || f.find("mono") != std::string::npos;
}

}  // namespace

double Estimate_TextWidth(const std::string& font, double points, bool bold, const std::string& utf8) {
  const bool mono = Is_Mono(font);
  double units = 0;
  for (size_t i = 0; i < utf8.size(); ++i) {
    const unsigned char c = (unsigned char)utf8[i];
    if ((c & 0xC0) == 0x80) continue;  // continuation byte of a UTF-8 character
    if (mono)
      units += 600;
    else if (c >= 32 && c < 127)
      units += Sans_Widths[c - 32];
    else
      units += 556;
  }
  if (bold && !mono) units *= 1.06;
  return units / 1000.0 * points * 20.0;  // 20 twips a point
}

double Estimate_TextHeight(const std::string& font, double points) {
  // ascent + descent of the sans face; the monospaced one is a little taller
  return (Is_Mono(font) ? 1.133 : 1.149) * points * 20.0;
}

}  // namespace zarvek
