// The rich-text builder of the results report.
//
// The report is written as a stream of small commands that act at the
// insertion point: set a font property, feed some text, start a paragraph,
// set a tab stop and move to it, drop a picture. The order of the calls is the
// document. The builder records the stream as a plain document (paragraphs of
// runs, each run with its character format), which two back ends turn into
// something a user sees: the RTF writer of this folder (files, clipboard) and
// the Qt text document of report/qt (screen, printer, PDF). Both read the same
// record, so what is saved is what was shown.
//
// Texts are UTF-8. A run written in the font "Symbol" is the old Greek
// convention ("q" reads theta): the builder translates it to Unicode and
// keeps the report's own font, so the Greek letters show in any reader and
// any font.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zarvek {

using Rich_Colour = std::uint32_t;  // 0xBBGGRR

// Paragraph alignments, with the values of the classic rich-text control.
constexpr int Align_Left = 0;
constexpr int Align_Right = 1;
constexpr int Align_Centre = 2;

// Page of the report: A4 with 2 cm margins, in twips. Tab stops are
// fractions of the text width.
constexpr double Report_PageWidth = 11906;
constexpr double Report_PageHeight = 16838;
constexpr double Report_Margin = 1134;
constexpr double Report_TextWidth = Report_PageWidth - 2 * Report_Margin;

struct Rich_CharFormat {
  std::string font = "Arial";
  double size = 8;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  Rich_Colour colour = 0;
  bool operator==(const Rich_CharFormat&) const = default;
};

// A picture of the report: PNG bytes and the size it takes on the page.
struct Report_Picture {
  std::string png;
  int px_width = 0, px_height = 0;     // from the PNG header
  double twips_width = 0, twips_height = 0;
  bool empty() const { return png.empty() || px_width <= 0 || px_height <= 0; }
};

// Width and height of a PNG image from its header; false when the bytes are
// not a PNG.
bool Png_Size(const std::string& png, int& width, int& height);

// A picture from PNG bytes. Without a size on the page, it takes the size of
// its pixels at 96 dpi (15 twips a pixel); a picture wider than the text is
// scaled down to the text width, keeping its proportions.
Report_Picture Make_Picture(std::string png, double twipsWidth = 0, double twipsHeight = 0);

struct Rich_Run {
  enum Kind { Text, Tab, Image } kind = Text;
  std::string text;  // Text: UTF-8, without line breaks
  Rich_CharFormat format;
  int image = -1;    // Image: index into Rich_Document::images
};

struct Rich_Paragraph {
  int alignment = Align_Left;
  bool keep_with_next = false;  // not to be parted from the next paragraph by a page end
  std::vector<double> tabs;  // tab stops, fractions of the text width, by index
  std::vector<Rich_Run> runs;
};

struct Rich_Document {
  std::vector<Rich_Paragraph> paragraphs;
  std::vector<Report_Picture> images;
  Rich_CharFormat normal;  // the font of the control
  double text_width = Report_TextWidth;  // twips
};

// The builder: the primitives of the report applied directly to a document.
class Rich_Text {
 public:
  explicit Rich_Text(Rich_CharFormat normal = {}, double textWidthTwips = Report_TextWidth);

  void SetFont_Name(const std::string& name);
  void SetFont_Size(double points);
  void SetFont_Bold(bool on);
  void SetFont_Italic(bool on);
  void SetFont_Underline(bool on);
  void SetFont_Color(Rich_Colour colour);
  // Alignment of the current paragraph (Align_Left, Align_Right, Align_Centre).
  void SetAlignment(int alignment);
  // Back to the control's font and size; bold, italic, underline off; black.
  void SetFont_Normal();
  // Text at the insertion point in the current format. A line break in the
  // text starts a new paragraph, as the Enter key would.
  void Send_Text(const std::string& utf8);
  // A new paragraph (same alignment); the tab counter goes back to 0.
  void NewParagraph();
  // The picture at the insertion point; an empty picture writes nothing.
  void Send_Image(const Report_Picture& picture);
  // Outside 0..1 nothing happens. Otherwise tab stop number Tab_Counter() of
  // the paragraph is set to p times the text width, the counter rises by one
  // and the insertion point moves to that stop.
  void Tabulate(double p);
  // One row of the report: label at 0.1, symbol at 0.5 (a leading "*" writes
  // the rest in Greek), "=" at 0.56, value at 0.65, unit at 0.75; then a new
  // paragraph.
  void WriteLine(const std::string& label, const std::string& symbol, const std::string& value,
                 const std::string& unit);

  // The current paragraph stays on the page of the next one (a title with
  // its first row, a key with its diagram).
  void Keep_With_Next() { Current().keep_with_next = true; }

  int Tab_Counter() const { return tab_counter_; }
  const Rich_CharFormat& Format() const { return format_; }
  const Rich_Document& Document() const { return doc_; }

 private:
  Rich_Paragraph& Current() { return doc_.paragraphs.back(); }
  void Append_Text(const std::string& utf8);

  Rich_Document doc_;
  Rich_CharFormat format_;
  int tab_counter_ = 0;  // 16-bit in spirit: a report never comes near
};

// The Unicode text of characters written in the Greek "Symbol" font:
// letters become Greek letters (a alpha, b beta, q theta, y psi, n nu, m mu,
// e epsilon ...), 0xA2 (or the UTF-8 of U+00A2) the prime; a blank just
// before the prime is dropped, as it only made room for it in that font.
std::string Symbol_To_Unicode(const std::string& text);

// The document as RTF: Windows-1252 header, fonts and colours as used, every
// character beyond ASCII as a \uN? escape, pictures embedded as PNG.
std::string Rtf_Of(const Rich_Document& doc);

// The document as plain text: runs joined, tabs as '\t', one line a
// paragraph (ended by '\n'), pictures left out.
std::string Plain_Text(const Rich_Document& doc);

}  // namespace zarvek
