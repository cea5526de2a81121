// Language files: the scrambling, the exact structure of the sections, the
// language list, and the two languages shipped with the program.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

using namespace zarvek;
namespace fs = std::filesystem;

namespace {

std::string Read_Bytes(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void Write_Bytes(const std::string& name, const std::string& bytes) {
  std::ofstream(name, std::ios::binary) << bytes;
}

// A scratch directory, removed with its files at the end of the test.
struct Scratch {
  std::string dir;
  Scratch() {
    char tmpl[] = "/tmp/zarvek-lang-XXXXXX";
    dir = mkdtemp(tmpl) ? tmpl : "";
  }
  ~Scratch() {
    std::error_code ec;
    fs::remove_all(dir, ec);
  }
  std::string operator/(const std::string& name) const { return dir + "/" + name; }
};

const int kSizes[] = {1, 65, 30, 3, 3, 18, 4, 1, 10, 6, 4, 99};

// The plain lines of a well-formed language: "S<k>L<j>" in the caption
// sections, "m<j> >: Message <j>" in the messages.
std::vector<std::string> Plain_Lines() {
  std::vector<std::string> lines = {"' test language"};
  for (int k = 0; k < 12; ++k) {
    lines.push_back("$" + std::to_string(kSizes[k]));
    for (int j = 1; j <= kSizes[k]; ++j)
      lines.push_back(k == 11 ? "m" + std::to_string(j) + " >: Message " + std::to_string(j)
                              : "S" + std::to_string(k) + "L" + std::to_string(j));
  }
  return lines;
}

std::string Join(const std::vector<std::string>& lines, const char* eol = "\n") {
  std::string s;
  for (const auto& l : lines) s += l + eol;
  return s;
}

size_t Index_Of(const std::vector<std::string>& lines, const std::string& text) {
  for (size_t i = 0; i < lines.size(); ++i)
    if (lines[i] == text) return i;
  ADD_FAILURE() << text << " not found";
  return 0;
}

// Scrambles the plain text into a .MSG file and loads it.
bool Load_Plain(const Scratch& s, const std::string& plain) {
  Write_Bytes(s / "plain.txt", plain);
  EXPECT_TRUE(Crypt_File(s / "plain.txt", 0, s / "ZARVEK_XX.MSG"));
  bool ok = Load_LanguageFile(s / "ZARVEK_XX.MSG", s / "Zarvek.TMP");
  EXPECT_FALSE(fs::exists(s / "Zarvek.TMP")) << "the scratch copy must not survive";
  return ok;
}

TEST(CryptFile, SameCallScramblesAndRestores) {
  Scratch s;
  std::string original;
  for (int i = 0; i < 256; ++i) original += static_cast<char>(i);
  original += "Lateral torsional buckling\r\n";
  Write_Bytes(s / "a", original);
  ASSERT_TRUE(Crypt_File(s / "a", 0, s / "b"));
  const std::string scrambled = Read_Bytes(s / "b");
  ASSERT_EQ(scrambled.size(), original.size());
  EXPECT_NE(scrambled, original);
  ASSERT_TRUE(Crypt_File(s / "b", 0, s / "c"));
  EXPECT_EQ(Read_Bytes(s / "c"), original);

  // A count takes only the head of the file; a shorter file gives what it has.
  ASSERT_TRUE(Crypt_File(s / "a", 100, s / "d"));
  EXPECT_EQ(Read_Bytes(s / "d"), scrambled.substr(0, 100));
  ASSERT_TRUE(Crypt_File(s / "a", 100000, s / "d"));
  EXPECT_EQ(Read_Bytes(s / "d"), scrambled);

  EXPECT_FALSE(Crypt_File(s / "missing", 0, s / "e"));
}

TEST(CryptFile, KeyStartsAtItsSecondLetter) {
  // Key "QUILMORDENTASPARKWIN": byte 1 takes 'U', byte 19 'N', byte 20 'Q',
  // byte 21 'U' again.
  Scratch s;
  Write_Bytes(s / "blanks", std::string(21, ' '));
  ASSERT_TRUE(Crypt_File(s / "blanks", 0, s / "out"));
  const std::string out = Read_Bytes(s / "out");
  ASSERT_EQ(out.size(), 21u);
  EXPECT_EQ(static_cast<unsigned char>(out[0]), 0x20 ^ 'U');  // 0x75, 'u'
  EXPECT_EQ(static_cast<unsigned char>(out[1]), 0x20 ^ 'I');
  EXPECT_EQ(static_cast<unsigned char>(out[18]), 0x20 ^ 'N');
  EXPECT_EQ(static_cast<unsigned char>(out[19]), 0x20 ^ 'Q');
  EXPECT_EQ(static_cast<unsigned char>(out[20]), 0x20 ^ 'U');
}

TEST(LanguageFile, SectionTableCoversTheTexts) {
  EXPECT_EQ(Texts_Count(), 244);
  EXPECT_EQ(Section_Start(0), 1);
  for (int k = 0; k < 11; ++k) EXPECT_EQ(Section_Start(k + 1), Section_Start(k) + Section_Size(k));
  EXPECT_EQ(Section_Start(11) + Section_Size(11) - 1, 244);
  EXPECT_EQ(Section_Size(12), 0);
  EXPECT_EQ(Section_Of_Window("Frm_Zarvek"), 1);
  EXPECT_EQ(Section_Of_Window("Frm_DirectSolve"), 9);
  EXPECT_EQ(Section_Of_Window("SplashScreen"), 9);
  EXPECT_EQ(Section_Of_Window("Frm_EigenVector3D"), 10);
  EXPECT_EQ(Section_Of_Window("MiniCalculette"), -1);
}

TEST(LanguageFile, WellFormedFileFillsTextsAndMessages) {
  Scratch s;
  std::vector<std::string> lines = Plain_Lines();
  // comments and blank-only lines among the captions don't count ...
  size_t at = Index_Of(lines, "S1L10");
  lines.insert(lines.begin() + at, {"' a comment", "", "    \t"});
  // ... but a mark behind blanks is a text line, stored as it stands
  lines[Index_Of(lines, "S1L20")] = "  ' quoted";
  // trailing blanks stay on captions and go from messages
  lines[Index_Of(lines, "S0L1")] = "Testish   ";
  lines[Index_Of(lines, "m1 >: Message 1")] = "first   >:   Trimmed message   ";
  lines[Index_Of(lines, "m2 >: Message 2")] = "a >: b >: c";
  // a plain line outside any section is passed over
  lines.insert(lines.begin() + Index_Of(lines, "$30"), "stray text");
  ASSERT_TRUE(Load_Plain(s, Join(lines, "\r\n")));

  EXPECT_EQ(Text_Line(1), "Testish   ");
  EXPECT_EQ(Section_Line(1, 10), "S1L10");
  EXPECT_EQ(Section_Line(1, 20), "  ' quoted");
  EXPECT_EQ(Section_Line(1, 65), "S1L65");
  EXPECT_EQ(Section_Line(2, 1), "S2L1");
  EXPECT_EQ(Section_Line(10, 4), "S10L4");
  EXPECT_EQ(Text_Line(Section_Start(9) + 3), "S9L4");  // the splash screen's disclaimer
  Load_Messages();
  EXPECT_EQ(Msg(1), "Trimmed message");
  EXPECT_EQ(Msg(2), "b >: c");
  EXPECT_EQ(Msg(99), "Message 99");
  EXPECT_EQ(Msg(0), "");
  EXPECT_EQ(Msg(100), "");
}

TEST(LanguageFile, EndAfterAWholeSectionLoads) {
  Scratch s;
  // extra plain lines after the messages are accepted
  std::vector<std::string> lines = Plain_Lines();
  lines.push_back("notes of the translator");
  lines.push_back("");
  ASSERT_TRUE(Load_Plain(s, Join(lines)));
  Load_Messages();
  EXPECT_EQ(Msg(50), "Message 50");

  // a file that stops after section 5 leaves the rest empty
  lines = Plain_Lines();
  lines.resize(Index_Of(lines, "$4"));
  ASSERT_TRUE(Load_Plain(s, Join(lines)));
  EXPECT_EQ(Section_Line(5, 18), "S5L18");
  EXPECT_EQ(Section_Line(6, 1), "");
  EXPECT_EQ(Text_Line(244), "");
}

TEST(LanguageFile, AnyBreachOfTheStructureFails) {
  Scratch s;
  ASSERT_TRUE(Load_Plain(s, Join(Plain_Lines())));
  const std::string before = Section_Line(1, 1);

  auto fails = [&](std::vector<std::string> lines, const char* why) {
    EXPECT_FALSE(Load_Plain(s, Join(lines))) << why;
    EXPECT_EQ(Section_Line(1, 1), before) << why << ": the loaded language must stay whole";
  };
  std::vector<std::string> lines = Plain_Lines();
  lines[Index_Of(lines, "$65")] = "$64";
  fails(lines, "second section declares 64");

  lines = Plain_Lines();
  lines[Index_Of(lines, "$65")] = "$sixty-five";
  fails(lines, "non-numeric count");

  lines = Plain_Lines();
  lines[Index_Of(lines, "m7 >: Message 7")] = "m7 : Message 7";
  fails(lines, "message without the mark");

  lines = Plain_Lines();
  lines.resize(Index_Of(lines, "S2L30"));
  fails(lines, "end inside a section");

  lines = Plain_Lines();
  lines.resize(Index_Of(lines, "S5L18"));
  lines.insert(lines.end(), {"' comments don't fill", "", "' a section"});
  fails(lines, "comments in place of the last line");

  lines = Plain_Lines();
  lines.insert(lines.end(), {"$1", "one more"});
  fails(lines, "a twelfth section");

  lines = Plain_Lines();
  lines.erase(lines.begin() + Index_Of(lines, "$1"), lines.begin() + Index_Of(lines, "$65"));
  fails(lines, "sections out of order");

  EXPECT_FALSE(Load_LanguageFile(s / "ZARVEK_NONE.MSG", s / "Zarvek.TMP"));
}

TEST(LanguageList, ItemsOfTheFilesFound) {
  Scratch s;
  auto put = [&](const std::string& name, const std::string& plain) {
    Write_Bytes(s / "plain", plain);
    ASSERT_TRUE(Crypt_File(s / "plain", 0, s / name));
  };
  std::vector<std::string> lines = Plain_Lines();
  const size_t name = Index_Of(lines, "S0L1");
  lines[name] = "English";
  put("ZARVEK_UK.MSG", Join(lines, "\r\n"));
  lines[name] = "Deutsch";
  put("zarvek_de.msg", Join(lines));
  // a further extension still passes the filter; the code runs to the last "."
  lines[name] = "Old";
  put("ZARVEK_FR.MSG.BAK", Join(lines));
  // "$1" beyond the first 100 bytes: passed over
  lines[0] = "' " + std::string(120, '-');
  put("ZARVEK_IT.MSG", Join(lines));
  put("SECTION.DB", Join(Plain_Lines()));
  std::remove((s / "plain").c_str());

  const std::vector<std::string> items = Load_Languages(s.dir + "/", s / "Zarvek.TMP");
  const std::vector<std::string> expected = {"FR.MSGOld", "UK  English", "DE  Deutsch"};
  EXPECT_EQ(items, expected);
  EXPECT_FALSE(fs::exists(s / "Zarvek.TMP"));
  EXPECT_EQ(Language_Code_Of_Item("UK  English"), "UK");
  EXPECT_EQ(Language_Code_Of("/opt/a_b/ZARVEK_uk.MSG"), "UK");

  Scratch empty;
  EXPECT_TRUE(Load_Languages(empty.dir + "/", empty / "Zarvek.TMP").empty());
}

TEST(LanguageText, HotKeyAndCharacterSet) {
  EXPECT_EQ(Remove_FirstHotKey("&Help"), "Help");
  EXPECT_EQ(Remove_FirstHotKey("He&lp"), "Help");
  EXPECT_EQ(Remove_FirstHotKey("Help&"), "Help&");
  EXPECT_EQ(Remove_FirstHotKey("&A&ide"), "A&ide");

  EXPECT_EQ(Cp1252_To_Utf8("Fran\xE7" "ais"), "Fran\xC3\xA7" "ais");
  EXPECT_EQ(Cp1252_To_Utf8("N\xB0 \x80 n\x9C" "ud"), "N\xC2\xB0 \xE2\x82\xAC n\xC5\x93ud");
  EXPECT_EQ(Cp1252_To_Utf8("plain"), "plain");
}

// The languages shipped with the program, as the build scrambles them.
class ShippedLanguage : public ::testing::TestWithParam<const char*> {};

TEST_P(ShippedLanguage, LoadsWhole) {
  const std::string code = GetParam();
  const std::string source = std::string(ZARVEK_SOURCE_DIR) + "/data/lang/ZARVEK_" + code + ".txt";
  const std::string plain = Read_Bytes(source);
  ASSERT_FALSE(plain.empty()) << source;

  // single-byte text: no UTF-8 sequence, no byte that the code page lacks
  for (size_t i = 0; i < plain.size(); ++i) {
    unsigned char b = plain[i], next = i + 1 < plain.size() ? plain[i + 1] : 0;
    EXPECT_FALSE(b >= 0xC2 && b <= 0xF4 && next >= 0x80 && next <= 0xBF)
        << "UTF-8 sequence at byte " << i;
    EXPECT_TRUE(b != 0x81 && b != 0x8D && b != 0x8F && b != 0x90 && b != 0x9D) << i;
  }

  Scratch s;
  const std::string msg = s / ("ZARVEK_" + code + ".MSG");
  ASSERT_TRUE(Crypt_File(source, 0, msg));
  ASSERT_TRUE(Load_LanguageFile(msg, s / "Zarvek.TMP"));
  Load_Messages();
  for (int i = 1; i <= 244; ++i) EXPECT_FALSE(Trim(Text_Line(i)).empty()) << "line " << i;
  for (int n = 1; n <= 99; ++n) EXPECT_FALSE(Msg(n).empty()) << "Msg(" << n << ")";

  // the list of languages reads the name from the first 100 bytes
  const std::vector<std::string> items = Load_Languages(s.dir + "/", s / "Zarvek.TMP");
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items[0], Language_Item(code, Text_Line(1)));

  // menus of the main window carry their hot-key
  for (int j = 2; j <= 18; ++j) EXPECT_NE(Section_Line(1, j).find('&'), std::string::npos) << j;
  // the legal warning follows the disclaimer's first word
  const bool english = Section_Line(9, 4).rfind("This", 0) == 0;
  EXPECT_EQ(english, code == "UK");
  // texts that stand for a document without a file are told from file names
  EXPECT_EQ(Msg(10).find(".DAT"), std::string::npos);
  EXPECT_EQ(Msg(81).find(".DAT"), std::string::npos);
  EXPECT_NE(Msg(40), Msg(81));

  if (code == "UK") {
    EXPECT_EQ(Text_Line(1), "English");
    EXPECT_EQ(Section_Line(2, 2), "General");
    EXPECT_EQ(Section_Line(9, 2), "Lateral torsional buckling of beams");
    EXPECT_EQ(Msg(28), "Free");
    EXPECT_EQ(Msg(20), "Fixed");
    EXPECT_EQ(Msg(71) + "?", "Spring?");
    EXPECT_EQ(Msg(88), "Version");
  } else {
    EXPECT_EQ(Text_Line(1), "Fran\xE7" "ais");
    EXPECT_NE(plain.find('\xE9'), std::string::npos) << "accents as single bytes";
  }
}

INSTANTIATE_TEST_SUITE_P(Both, ShippedLanguage, ::testing::Values("UK", "FR"));

}  // namespace
