// The rich-text builder and its RTF writer.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "report/RichText.h"
#include "rtf_reader.h"

namespace zarvek {
namespace {

using rtf_test::Png_Of;

TEST(RichText, TabCounter) {
  // a fraction outside 0..1 does nothing; inside, each call takes the next stop
  const std::pair<double, int> steps[] = {{1.5, 0}, {-0.01, 0}, {std::numeric_limits<double>::quiet_NaN(), 0},
                                          {0.1, 1},  {0.0, 2},   {1.0, 3}, {1.0001, 3}, {0.5, 4}, {0.75, 5}};
  Rich_Text rt;
  for (const auto& [p, counter] : steps) {
    rt.Tabulate(p);
    EXPECT_EQ(rt.Tab_Counter(), counter) << p;
    EXPECT_EQ(rt.Document().paragraphs.back().tabs.size(), size_t(counter)) << p;
  }
  // five stops, then a new paragraph: it starts again at stop 0
  EXPECT_EQ(rt.Document().paragraphs[0].tabs, (std::vector<double>{0.1, 0.0, 1.0, 0.5, 0.75}));
  rt.NewParagraph();
  EXPECT_EQ(rt.Tab_Counter(), 0);
}

TEST(RichText, WriteLine) {
  const struct { const char *label, *symbol, *value, *unit, *text; } rows[] = {
      {"Length L", "L", "10", "m", "\tLength L\tL\t=\t10\tm\n"},
      // an empty symbol writes nothing and the row keeps its "="
      {"", "", "Free", "", "\t\t\t=\tFree\t\n"},
      // a star writes the rest in Greek: theta, and theta prime
      {"Twist", "*q", "Fixed", "", "\tTwist\t\xCE\xB8\t=\tFixed\t\n"},
      {"", "*q \xC2\xA2", "0", "kN.m3/rd", "\t\t\xCE\xB8\xE2\x80\xB2\t=\t0\tkN.m3/rd\n"},
  };
  for (const auto& r : rows) {
    Rich_Text rt;
    rt.SetFont_Bold(true);
    rt.WriteLine(r.label, r.symbol, r.value, r.unit);
    const Rich_Document& d = rt.Document();
    ASSERT_EQ(d.paragraphs.size(), 2u) << r.text;
    EXPECT_EQ(d.paragraphs[0].tabs, (std::vector<double>{0.1, 0.5, 0.56, 0.65, 0.75}));
    EXPECT_EQ(rt.Tab_Counter(), 0); EXPECT_EQ(Plain_Text(d), std::string(r.text) + "\n");
    // the Greek symbol is in the report's font, and the format after a Greek symbol is the normal one again
    for (const Rich_Run& run : d.paragraphs[0].runs) EXPECT_EQ(run.format.font, "Arial");
    EXPECT_EQ(rt.Format().bold, r.symbol[0] != '*');
  }
}

TEST(RichText, FormatsAndParagraphs) {
  Rich_Text rt(Rich_CharFormat{"Arial", 8});
  rt.SetFont_Size(16), rt.SetFont_Italic(true), rt.SetFont_Underline(true);
  rt.SetFont_Color(0x0000FF), rt.SetAlignment(Align_Centre);
  rt.Send_Text("A{b}\\");
  rt.Send_Text("first\r\nsecond");  // a line break is a new paragraph
  rt.SetFont_Normal();
  EXPECT_EQ(rt.Format(), (Rich_CharFormat{"Arial", 8}));
  rt.Send_Text("caf\xE9");  // a Windows-1252 byte from a file: kept as the character
  const Rich_Document& d = rt.Document();
  ASSERT_EQ(d.paragraphs.size(), 2u);
  EXPECT_EQ(d.paragraphs[1].alignment, Align_Centre);  // a new paragraph keeps the alignment
  ASSERT_EQ(d.paragraphs[0].runs.size(), 1u);          // same format: one run
  EXPECT_EQ(d.paragraphs[0].runs[0].text, "A{b}\\first"); EXPECT_EQ(d.paragraphs[0].runs[0].format.size, 16);
  EXPECT_EQ(Plain_Text(d), "A{b}\\first\nsecondcaf\xC3\xA9\n");

  // RTF: braces and backslashes escaped, non-ASCII as \uN?, colours as RGB
  const std::string rtf = Rtf_Of(d);
  for (const char* e : {"A\\{b\\}\\\\first", "caf\\u233?", "\\red255\\green0\\blue0;"})
    EXPECT_NE(rtf.find(e), std::string::npos) << e;
  const rtf_test::Rtf_Content c = rtf_test::Read_Rtf(rtf);
  EXPECT_TRUE(c.well_formed); EXPECT_EQ(c.text, "A{b}\\first\nsecondcaf\xC3\xA9");
}

TEST(RichText, GreekAndUnicodeEscapes) {
  Rich_Text rt;
  // beta-z is written with the German sharp s
  for (const char* symbol : {"*q", "*y", "\xC3\x9Fz"}) rt.WriteLine("", symbol, "", "");
  const std::string rtf = Rtf_Of(rt.Document());
  // theta 952, psi 968, sharp s 223: in the reader's own font, so any font shows them
  for (const char* e : {"\\u952?", "\\u968?", "\\u223?z"}) EXPECT_NE(rtf.find(e), std::string::npos) << e;
  EXPECT_EQ(rtf.find("Symbol"), std::string::npos);
  for (unsigned char ch : rtf) EXPECT_LT(ch, 0x80);  // pure ASCII file
  // a character beyond 16 bits goes as a surrogate pair, signed
  Rich_Text wide;
  wide.Send_Text("\xF0\x9D\x9C\x83");  // U+1D703 mathematical italic theta
  EXPECT_NE(Rtf_Of(wide.Document()).find("\\u-10187?\\u-8445?"), std::string::npos);
}

TEST(RichText, Pictures) {
  EXPECT_TRUE(Make_Picture("not a picture").empty());

  // 96 dpi: 15 twips a pixel; a picture wider than the text is scaled to it
  const Report_Picture small = Make_Picture(Png_Of(400, 100)), wide = Make_Picture(Png_Of(1000, 200));
  EXPECT_DOUBLE_EQ(small.twips_height, 1500); EXPECT_DOUBLE_EQ(wide.twips_width, Report_TextWidth);
  EXPECT_NEAR(wide.twips_height, Report_TextWidth / 5, 1e-9);

  Rich_Text rt;
  // text, the picture, nothing, a new paragraph and the wide one
  rt.Send_Text("before"), rt.Send_Image(small), rt.Send_Image(Report_Picture{}), rt.NewParagraph();
  rt.Send_Image(wide);
  const rtf_test::Rtf_Content c = rtf_test::Read_Rtf(Rtf_Of(rt.Document()));
  ASSERT_EQ(c.pictures.size(), 2u);
  EXPECT_EQ((std::vector{c.pictures[0].picw, c.pictures[0].picwgoal, c.pictures[1].picwgoal}),
            (std::vector{400L, 6000L, std::lround(Report_TextWidth)}));
  EXPECT_EQ(c.pictures[0].bytes, small.png);  // the bytes come back whole
  EXPECT_EQ(c.text, "before\n");
}

}  // namespace
}  // namespace zarvek
