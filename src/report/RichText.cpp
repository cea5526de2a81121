#include "report/RichText.h"

#include <algorithm>
#include <cstdio>
#include <map>

namespace zarvek {

// ---- pictures --------------------------------------------------------------

bool Png_Size(const std::string& png, int& width, int& height) {
  static const unsigned char signature[8] = {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
  if (png.size() < 24) return false;
  for (int i = 0; i < 8; ++i)
    if ((unsigned char)png[i] != signature[i]) return false;
  if (png.compare(12, 4, "IHDR") != 0) return false;
  auto be32 = [&](size_t at) {
    return (std::uint32_t)(unsigned char)png[at] << 24 | (std::uint32_t)(unsigned char)png[at + 1] << 16 |
           (std::uint32_t)(unsigned char)png[at + 2] << 8 | (std::uint32_t)(unsigned char)png[at + 3];
  };
  const std::uint32_t w = be32(16), h = be32(20);
  if (w == 0 || h == 0 || w > 1u << 20 || h > 1u << 20) return false;
  width = (int)w;
  height = (int)h;
  return true;
}

Report_Picture Make_Picture(std::string png, double twipsWidth, double twipsHeight) {
  Report_Picture p;
  if (!Png_Size(png, p.px_width, p.px_height)) return p;
  p.png = std::move(png);
  if (twipsWidth <= 0 || twipsHeight <= 0) {
    twipsWidth = p.px_width * 15.0;
    twipsHeight = p.px_height * 15.0;
  }
  if (twipsWidth > Report_TextWidth) {
    twipsHeight *= Report_TextWidth / twipsWidth;
    twipsWidth = Report_TextWidth;
  }
  p.twips_width = twipsWidth;
  p.twips_height = twipsHeight;
  return p;
}

// ---- Greek -------------------------------------------------------------------

namespace {

void Put_Utf8(std::string& out, std::uint32_t cp) {
  if (cp < 0x80) {
    out += (char)cp;
  } else if (cp < 0x800) {
    out += (char)(0xC0 | cp >> 6);
    out += (char)(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += (char)(0xE0 | cp >> 12);
    out += (char)(0x80 | (cp >> 6 & 0x3F));
    out += (char)(0x80 | (cp & 0x3F));
  } else {
    out += (char)(0xF0 | cp >> 18);
    out += (char)(0x80 | (cp >> 12 & 0x3F));
    out += (char)(0x80 | (cp >> 6 & 0x3F));
    out += (char)(0x80 | (cp & 0x3F));
  }
}

// Next code point of a UTF-8 text; a byte that is not valid UTF-8 is taken as
// a Windows-1252 character of the same value (Latin-1 range).
std::uint32_t Next_CodePoint(const std::string& s, size_t& i) {
  const unsigned char c = s[i];
  auto cont = [&](size_t k) { return k < s.size() && ((unsigned char)s[k] & 0xC0) == 0x80; };
  if (c < 0x80) {
    ++i;
    return c;
  }
  if ((c & 0xE0) == 0xC0 && cont(i + 1)) {
    const std::uint32_t cp = (c & 0x1F) << 6 | ((unsigned char)s[i + 1] & 0x3F);
    i += 2;
    return cp;
  }
  if ((c & 0xF0) == 0xE0 && cont(i + 1) && cont(i + 2)) {
    const std::uint32_t cp =
        (c & 0x0F) << 12 | ((unsigned char)s[i + 1] & 0x3F) << 6 | ((unsigned char)s[i + 2] & 0x3F);
    i += 3;
    return cp;
  }
  if ((c & 0xF8) == 0xF0 && cont(i + 1) && cont(i + 2) && cont(i + 3)) {
    const std::uint32_t cp = (c & 0x07) << 18 | ((unsigned char)s[i + 1] & 0x3F) << 12 |
                             ((unsigned char)s[i + 2] & 0x3F) << 6 | ((unsigned char)s[i + 3] & 0x3F);
    i += 4;
    return cp;
  }
  ++i;
  return c;
}

// The Greek letters of the Symbol font, by Latin letter.
std::uint32_t Symbol_Letter(std::uint32_t c) {
  static const std::uint32_t lower[26] = {
      0x03B1, 0x03B2, 0x03C7, 0x03B4, 0x03B5, 0x03C6, 0x03B3, 0x03B7, 0x03B9, 0x03D5, 0x03BA, 0x03BB, 0x03BC,
      0x03BD, 0x03BF, 0x03C0, 0x03B8, 0x03C1, 0x03C3, 0x03C4, 0x03C5, 0x03D6, 0x03C9, 0x03BE, 0x03C8, 0x03B6};
  static const std::uint32_t upper[26] = {
      0x0391, 0x0392, 0x03A7, 0x0394, 0x0395, 0x03A6, 0x0393, 0x0397, 0x0399, 0x03D1, 0x039A, 0x039B, 0x039C,
      0x039D, 0x039F, 0x03A0, 0x0398, 0x03A1, 0x03A3, 0x03A4, 0x03A5, 0x03C2, 0x03A9, 0x039E, 0x03A8, 0x0396};
  if (c >= 'a' && c <= 'z') return lower[c - 'a'];
  if (c >= 'A' && c <= 'Z') return upper[c - 'A'];
  return c;
}

}  // namespace

std::string Symbol_To_Unicode(const std::string& text) {
  std::vector<std::uint32_t> cps;
  for (size_t i = 0; i < text.size();) cps.push_back(Next_CodePoint(text, i));
  std::string out;
  for (size_t k = 0; k < cps.size(); ++k) {
    std::uint32_t c = cps[k];
    if (c == ' ' && k + 1 < cps.size() && cps[k + 1] == 0xA2) continue;
    if (c == 0xA2) c = 0x2032;        // prime
    else if (c == 0xB2) c = 0x2033;   // double prime
    else if (c == 0xB1) c = 0x00B1;   // plus-minus
    else if (c == 0xB4) c = 0x00D7;   // times
    else c = Symbol_Letter(c);
    Put_Utf8(out, c);
  }
  return out;
}

// ---- builder -------------------------------------------------------------------

Rich_Text::Rich_Text(Rich_CharFormat normal, double textWidthTwips) {
  doc_.normal = normal;
  doc_.text_width = textWidthTwips;
  doc_.paragraphs.emplace_back();
  format_ = normal;
}

void Rich_Text::SetFont_Name(const std::string& name) { format_.font = name; }
void Rich_Text::SetFont_Size(double points) { format_.size = points; }
void Rich_Text::SetFont_Bold(bool on) { format_.bold = on; }
void Rich_Text::SetFont_Italic(bool on) { format_.italic = on; }
void Rich_Text::SetFont_Underline(bool on) { format_.underline = on; }
void Rich_Text::SetFont_Color(Rich_Colour colour) { format_.colour = colour; }
void Rich_Text::SetAlignment(int alignment) { Current().alignment = alignment; }

void Rich_Text::SetFont_Normal() {
  format_.font = doc_.normal.font;
  format_.size = doc_.normal.size;
  format_.bold = false;
  format_.italic = false;
  format_.underline = false;
  format_.colour = 0;
}

void Rich_Text::Append_Text(const std::string& utf8) {
  if (utf8.empty()) return;
  Rich_CharFormat f = format_;
  // texts of the record may come from a file in the Windows character set:
  // a byte that is not UTF-8 is kept as the character of that code
  std::string text;
  for (size_t i = 0; i < utf8.size();) Put_Utf8(text, Next_CodePoint(utf8, i));
  if (f.font == "Symbol") {
    text = Symbol_To_Unicode(text);
    f.font = doc_.normal.font;
  }
  auto& runs = Current().runs;
  if (!runs.empty() && runs.back().kind == Rich_Run::Text && runs.back().format == f)
    runs.back().text += text;
  else
    runs.push_back(Rich_Run{Rich_Run::Text, text, f, -1});
}

void Rich_Text::Send_Text(const std::string& utf8) {
  size_t start = 0;
  for (;;) {
    const size_t nl = utf8.find_first_of("\r\n", start);
    if (nl == std::string::npos) {
      Append_Text(utf8.substr(start));
      return;
    }
    Append_Text(utf8.substr(start, nl - start));
    NewParagraph();
    start = nl + 1;
    if (utf8[nl] == '\r' && start < utf8.size() && utf8[start] == '\n') ++start;
  }
}

void Rich_Text::NewParagraph() {
  Rich_Paragraph p;
  p.alignment = Current().alignment;
  doc_.paragraphs.push_back(std::move(p));
  tab_counter_ = 0;
}

void Rich_Text::Send_Image(const Report_Picture& picture) {
  if (picture.empty()) return;
  doc_.images.push_back(picture);
  Rich_Run r;
  r.kind = Rich_Run::Image;
  r.format = format_;
  r.image = (int)doc_.images.size() - 1;
  Current().runs.push_back(std::move(r));
}

void Rich_Text::Tabulate(double p) {
  if (!(p >= 0 && p <= 1)) return;
  auto& tabs = Current().tabs;
  if ((int)tabs.size() <= tab_counter_) tabs.resize(tab_counter_ + 1, p);
  tabs[tab_counter_] = p;
  ++tab_counter_;
  Rich_Run r;
  r.kind = Rich_Run::Tab;
  r.format = format_;
  Current().runs.push_back(std::move(r));
}

void Rich_Text::WriteLine(const std::string& label, const std::string& symbol, const std::string& value,
                          const std::string& unit) {
  Tabulate(0.1);
  Send_Text(label);
  Tabulate(0.5);
  if (!symbol.empty() && symbol[0] == '*') {
    SetFont_Name("Symbol");
    Send_Text(symbol.substr(1));
    SetFont_Normal();
  } else {
    Send_Text(symbol);
  }
  Tabulate(0.56);
  Send_Text("=");
  Tabulate(0.65);
  Send_Text(value);
  Tabulate(0.75);
  Send_Text(unit);
  NewParagraph();
}

// ---- RTF -------------------------------------------------------------------------

namespace {

std::string Rtf_Escape(const std::string& s) {
  std::string out;
  for (size_t i = 0; i < s.size();) {
    const std::uint32_t cp = Next_CodePoint(s, i);
    if (cp == '\\' || cp == '{' || cp == '}') {
      out += '\\';
      out += (char)cp;
    } else if (cp == '\t') {
      out += "\\tab ";
    } else if (cp >= 0x20 && cp < 0x80) {
      out += (char)cp;
    } else if (cp < 0x20) {
      // control characters have no place in a paragraph
    } else {
      auto unit = [&](std::uint32_t u) {
        const int n = u > 32767 ? (int)u - 65536 : (int)u;
        out += "\\u" + std::to_string(n) + "?";
      };
      if (cp <= 0xFFFF) {
        unit(cp);
      } else {
        const std::uint32_t v = cp - 0x10000;
        unit(0xD800 + (v >> 10));
        unit(0xDC00 + (v & 0x3FF));
      }
    }
  }
  return out;
}

const char* Font_Family(const std::string& name) {
  if (name == "Courier New" || name == "Courier") return "\\fmodern";
  if (name == "Times New Roman" || name == "Times") return "\\froman";
  return "\\fswiss";
}

long Twips(double v) { return (long)(v + 0.5); }

}  // namespace

std::string Rtf_Of(const Rich_Document& doc) {
  // fonts and colours in order of first use; the control's font first
  std::vector<std::string> fonts{doc.normal.font};
  std::vector<Rich_Colour> colours{0};
  for (const auto& p : doc.paragraphs)
    for (const auto& r : p.runs) {
      if (std::find(fonts.begin(), fonts.end(), r.format.font) == fonts.end()) fonts.push_back(r.format.font);
      if (std::find(colours.begin(), colours.end(), r.format.colour) == colours.end())
        colours.push_back(r.format.colour);
    }
  auto fontIndex = [&](const std::string& f) { return std::find(fonts.begin(), fonts.end(), f) - fonts.begin(); };
  auto colourIndex = [&](Rich_Colour c) {
    return std::find(colours.begin(), colours.end(), c) - colours.begin() + 1;
  };

  std::string s = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n{\\fonttbl";
  for (size_t i = 0; i < fonts.size(); ++i)
    s += "{\\f" + std::to_string(i) + Font_Family(fonts[i]) + "\\fcharset0 " + Rtf_Escape(fonts[i]) + ";}";
  s += "}\n{\\colortbl;";
  for (Rich_Colour c : colours)
    s += "\\red" + std::to_string(c & 0xFF) + "\\green" + std::to_string(c >> 8 & 0xFF) + "\\blue" +
         std::to_string(c >> 16 & 0xFF) + ";";
  s += "}\n";
  s += "\\paperw" + std::to_string(Twips(Report_PageWidth)) + "\\paperh" + std::to_string(Twips(Report_PageHeight)) +
       "\\margl" + std::to_string(Twips(Report_Margin)) + "\\margr" + std::to_string(Twips(Report_Margin)) +
       "\\margt" + std::to_string(Twips(Report_Margin)) + "\\margb" + std::to_string(Twips(Report_Margin)) +
       "\\viewkind4\n";

  for (size_t pi = 0; pi < doc.paragraphs.size(); ++pi) {
    const Rich_Paragraph& p = doc.paragraphs[pi];
    s += "\\pard";
    s += p.alignment == Align_Centre ? "\\qc" : p.alignment == Align_Right ? "\\qr" : "\\ql";
    if (p.keep_with_next) s += "\\keepn";
    std::vector<double> tabs = p.tabs;
    std::sort(tabs.begin(), tabs.end());
    tabs.erase(std::unique(tabs.begin(), tabs.end()), tabs.end());
    for (double t : tabs) s += "\\tx" + std::to_string(Twips(t * doc.text_width));
    // the paragraph mark takes the format of the first run, so that an empty
    // line keeps the height of the text around it
    const Rich_CharFormat& mark = p.runs.empty() ? doc.normal : p.runs.front().format;
    auto fmt = [&](const Rich_CharFormat& f) {
      std::string t = "\\plain\\f" + std::to_string(fontIndex(f.font)) + "\\fs" +
                      std::to_string((int)(f.size * 2 + 0.5));
      if (f.bold) t += "\\b";
      if (f.italic) t += "\\i";
      if (f.underline) t += "\\ul";
      t += "\\cf" + std::to_string(colourIndex(f.colour));
      return t + " ";
    };
    s += fmt(mark);
    for (const auto& r : p.runs) {
      switch (r.kind) {
        case Rich_Run::Text:
          s += fmt(r.format) + Rtf_Escape(r.text);
          break;
        case Rich_Run::Tab:
          s += "\\tab ";
          break;
        case Rich_Run::Image: {
          const Report_Picture& pic = doc.images[r.image];
          s += "{\\pict\\pngblip\\picw" + std::to_string(pic.px_width) + "\\pich" + std::to_string(pic.px_height) +
               "\\picwgoal" + std::to_string(Twips(pic.twips_width)) + "\\pichgoal" +
               std::to_string(Twips(pic.twips_height)) + "\n";
          static const char hex[] = "0123456789abcdef";
          std::string line;
          for (unsigned char c : pic.png) {
            line += hex[c >> 4];
            line += hex[c & 15];
            if (line.size() >= 128) {
              s += line + "\n";
              line.clear();
            }
          }
          s += line + "}";
          break;
        }
      }
    }
    if (pi + 1 < doc.paragraphs.size()) s += "\\par\n";
  }
  s += "\n}\n";
  return s;
}

std::string Plain_Text(const Rich_Document& doc) {
  std::string s;
  for (const auto& p : doc.paragraphs) {
    for (const auto& r : p.runs) {
      if (r.kind == Rich_Run::Text) s += r.text;
      else if (r.kind == Rich_Run::Tab) s += '\t';
    }
    s += '\n';
  }
  return s;
}

}  // namespace zarvek
