// Language files: the scrambling, the exact structure of the sections, the language list, the shipped two.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <vector>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "scratch_dir.h"

using namespace zarvek;
using namespace foundation_test;

namespace {

using Lines = std::vector<std::string>;

// A well-formed language: "S<k>L<j>" in the caption sections, "m<j> >: Message <j>" in the messages.
Lines Plain_Lines() {
  const int sizes[] = {1, 65, 30, 3, 3, 18, 4, 1, 10, 6, 4, 99};
  Lines lines = {"' test language"};
  for (int k = 0; k < 12; ++k) {
    lines.push_back("$" + std::to_string(sizes[k]));
    for (int j = 1; j <= sizes[k]; ++j)
      lines.push_back(k == 11 ? "m" + std::to_string(j) + " >: Message " + std::to_string(j)
                              : "S" + std::to_string(k) + "L" + std::to_string(j));
  }
  return lines;
}

size_t Index_Of(const Lines& lines, const std::string& text) {
  const auto at = std::find(lines.begin(), lines.end(), text);
  EXPECT_TRUE(at != lines.end()) << text << " not found";
  return at == lines.end() ? 0 : at - lines.begin();
}

// Scrambles the plain lines into a .MSG file and loads it.
bool Load_Plain(const Scratch& s, const Lines& lines, const char* eol = "\n") {
  std::string plain;
  for (const auto& l : lines) plain += l + eol;
  s.Write("plain.txt", plain);
  EXPECT_TRUE(Crypt_File(s / "plain.txt", 0, s / "ZARVEK_XX.MSG"));
  bool ok = Load_LanguageFile(s / "ZARVEK_XX.MSG", s / "Zarvek.TMP");
  EXPECT_FALSE(fs::exists(s / "Zarvek.TMP")) << "the scratch copy must not survive";
  return ok;
}

TEST(CryptFile, KeyFromItsSecondLetterAndTheSameCallRestores) {
  Scratch s;
  std::string original(256, 0);
  for (int i = 0; i < 256; ++i) original[i] = static_cast<char>(i);  // every byte value
  s.Write("a", original);
  ASSERT_TRUE(Crypt_File(s / "a", 0, s / "b"));
  const std::string scrambled = s.Read("b");
  ASSERT_EQ(scrambled.size(), original.size());
  // byte 1 takes the key's 'U', byte 19 its 'N', byte 20 'Q', byte 21 'U' again
  const std::string key = "QUILMORDENTASPARKWIN";
  for (size_t i = 0; i < original.size(); ++i)
    ASSERT_EQ(scrambled[i], static_cast<char>(original[i] ^ key[(i + 1) % 20])) << "byte " << i;
  // the same call restores; a count takes only the head of the file
  ASSERT_TRUE(Crypt_File(s / "b", 0, s / "c") && Crypt_File(s / "a", 100, s / "d"));
  EXPECT_EQ(s.Read("c"), original);
  EXPECT_EQ(s.Read("d"), scrambled.substr(0, 100));
  EXPECT_FALSE(Crypt_File(s / "missing", 0, s / "e"));
}

TEST(LanguageFile, WellFormedFileFillsTextsAndMessages) {
  Scratch s;
  Lines lines = Plain_Lines();
  // comments and blank-only lines among the captions don't count ...
  lines.insert(lines.begin() + Index_Of(lines, "S1L10"), {"' a comment", "", "    \t"});
  // ... but a mark behind blanks is a text line, stored as it stands
  lines[Index_Of(lines, "S1L20")] = "  ' quoted";
  // trailing blanks stay on captions and go from messages
  lines[Index_Of(lines, "S0L1")] = "Testish   ";
  lines[Index_Of(lines, "m1 >: Message 1")] = "first   >:   Trimmed message   ";
  lines[Index_Of(lines, "m2 >: Message 2")] = "a >: b >: c";
  // a plain line outside any section is passed over
  lines.insert(lines.begin() + Index_Of(lines, "$30"), "stray text");
  ASSERT_TRUE(Load_Plain(s, lines, "\r\n"));

  EXPECT_EQ((Lines{Text_Line(1), Section_Line(1, 10), Section_Line(1, 20), Section_Line(2, 1)}),
            (Lines{"Testish   ", "S1L10", "  ' quoted", "S2L1"}));
  Load_Messages();
  EXPECT_EQ((Lines{Msg(1), Msg(2), Msg(99), Msg(0) + Msg(100)}),
            (Lines{"Trimmed message", "b >: c", "Message 99", ""}));

  // extra plain lines after the messages are accepted
  lines = Plain_Lines();
  lines.insert(lines.end(), {"notes of the translator", ""});
  EXPECT_TRUE(Load_Plain(s, lines));
  // a file that stops after a whole section leaves the rest empty
  lines.resize(Index_Of(lines, "$4"));
  ASSERT_TRUE(Load_Plain(s, lines));
  EXPECT_EQ((Lines{Section_Line(5, 18), Text_Line(244)}), (Lines{"S5L18", ""}));
}

TEST(LanguageFile, FurtherTextsByKey) {
  Scratch s;
  Lines lines = Plain_Lines();
  lines.insert(lines.end(), {"$3", "' keyed", "Cmd_A >: Alpha  ", "  Cmd_B>:Beta >: gamma", "Cmd_C >:"});
  ASSERT_TRUE(Load_Plain(s, lines));
  EXPECT_EQ((Lines{Further_Text("Cmd_A"), Further_Text("Cmd_B"), Further_Text("Cmd_C", "fallback"),
                   Further_Text("Missing", "fallback")}),
            (Lines{"Alpha", "Beta >: gamma", "fallback", "fallback"}));

  // a language without the section keeps nothing of the one loaded before
  ASSERT_TRUE(Load_Plain(s, Plain_Lines()));
  EXPECT_EQ(Further_Text("Cmd_A"), "");
}

TEST(LanguageFile, AnyBreachOfTheStructureFails) {
  Scratch s;
  ASSERT_TRUE(Load_Plain(s, Plain_Lines()));
  const std::string before = Section_Line(1, 1);
  const std::vector<std::pair<const char*, std::function<void(Lines&)>>> breaches = {
      {"second section declares 64", [](Lines& l) { l[Index_Of(l, "$65")] = "$64"; }},
      {"non-numeric count", [](Lines& l) { l[Index_Of(l, "$65")] = "$sixty-five"; }},
      {"message without the mark", [](Lines& l) { l[Index_Of(l, "m7 >: Message 7")] = "m7 : Message 7"; }},
      {"end inside a section", [](Lines& l) { l.resize(Index_Of(l, "S2L30")); }},
      {"comments in place of the last line",
       [](Lines& l) { l.resize(Index_Of(l, "S5L18")); l.insert(l.end(), {"' no text", ""}); }},
      {"sections out of order", [](Lines& l) { l.erase(l.begin() + 1, l.begin() + Index_Of(l, "$65")); }},
      // after the twelve sections, the further texts
      {"a keyed line without its mark", [](Lines& l) { l.insert(l.end(), {"$1", "one more"}); }},
      {"a further count that is no count", [](Lines& l) { l.push_back("$x"); }},
      {"a negative further count", [](Lines& l) { l.push_back("$-1"); }},
      {"a section too many", [](Lines& l) { l.insert(l.end(), {"$0", "$0"}); }},
  };
  for (const auto& [why, breach] : breaches) {
    Lines lines = Plain_Lines();
    breach(lines);
    EXPECT_FALSE(Load_Plain(s, lines)) << why;
    EXPECT_EQ(Section_Line(1, 1), before) << why << ": the loaded language must stay whole";
  }
  EXPECT_FALSE(Load_LanguageFile(s / "ZARVEK_NONE.MSG", s / "Zarvek.TMP"));
}

TEST(LanguageList, ItemsOfTheFilesFound) {
  Scratch s;
  EXPECT_TRUE(Load_Languages(s.path + "/", s / "Zarvek.TMP").empty());  // no language at all
  // only the head is read: "$1" and the name must stand in the first 100 bytes
  const std::pair<const char*, std::string> files[] = {
      {"ZARVEK_UK.MSG", "' texts\r\n$1\r\nEnglish\r\n"},
      {"zarvek_de.msg", "$1\nDeutsch\n"},
      {"ZARVEK_IT.MSG", "' " + std::string(120, '-') + "\n$1\nItaliano\n"},  // passed over
      {"SECTION.DB", "$1\nSections\n"},
  };
  for (const auto& [name, plain] : files) {
    s.Write("plain", plain);
    ASSERT_TRUE(Crypt_File(s / "plain", 0, s / name));
  }
  fs::remove(s / "plain");
  EXPECT_EQ(Load_Languages(s.path + "/", s / "Zarvek.TMP"), (Lines{"UK  English", "DE  Deutsch"}));
  EXPECT_FALSE(fs::exists(s / "Zarvek.TMP"));
  EXPECT_EQ(Language_Code_Of("/opt/a_b/ZARVEK_uk.MSG"), "UK");
}

// the bytes 0x80 to 0x9F are not Latin-1: the euro and the oe ligature
TEST(LanguageText, CharacterSet) {
  EXPECT_EQ(Cp1252_To_Utf8("N\xB0 \x80 n\x9C" "ud \xE7"), "N\xC2\xB0 \xE2\x82\xAC n\xC5\x93ud \xC3\xA7");
}

// The languages shipped with the program, as the build scrambles them.
std::string Source_Of(std::string code) { return ZARVEK_SOURCE_DIR "/data/lang/ZARVEK_" + code + ".txt"; }
class ShippedLanguage : public ::testing::TestWithParam<const char*> {};

TEST_P(ShippedLanguage, LoadsWhole) {
  const std::string code = GetParam(), source = Source_Of(code), plain = Read_File(source);

  // single-byte text: no UTF-8 sequence, no byte that the code page lacks
  for (size_t i = 0; i < plain.size(); ++i) {
    unsigned char b = plain[i], next = i + 1 < plain.size() ? plain[i + 1] : 0;
    EXPECT_FALSE(b >= 0xC2 && b <= 0xF4 && next >= 0x80 && next <= 0xBF) << "UTF-8 at byte " << i;
    EXPECT_TRUE(b != 0x81 && b != 0x8D && b != 0x8F && b != 0x90 && b != 0x9D) << i;
  }

  Scratch s;
  const std::string msg = s / ("ZARVEK_" + code + ".MSG");
  ASSERT_TRUE(Crypt_File(source, 0, msg) && Load_LanguageFile(msg, s / "Zarvek.TMP"));
  Load_Messages();
  for (int i = 1; i <= 244; ++i) EXPECT_FALSE(Trim(Text_Line(i)).empty()) << "line " << i;
  for (int n = 1; n <= 99; ++n) EXPECT_FALSE(Msg(n).empty()) << "Msg(" << n << ")";
  // the list of languages reads the name from the first 100 bytes
  EXPECT_EQ(Load_Languages(s.path + "/", s / "Zarvek.TMP"), Lines{Language_Item(code, Text_Line(1))});

  // texts that stand for a document without a file are told from file names
  for (int n : {10, 81}) EXPECT_EQ(Msg(n).find(".DAT"), std::string::npos) << n;
  EXPECT_NE(Msg(40), Msg(81));

  // every further text of the one language has its twin in the other
  auto further_keys = [](const std::string& t) {
    Lines keys;
    size_t mark, from = t.find("\n$", t.find("\n$99") + 1);
    std::istringstream in(from == std::string::npos ? std::string() : t.substr(from + 1));
    for (std::string line; std::getline(in, line);)
      if (line[0] != '\'' && (mark = line.find(">:")) != std::string::npos)
        keys.push_back(Trim(line.substr(0, mark)));
    return keys;
  };
  const Lines keys = further_keys(plain);
  for (const auto& k : keys) EXPECT_FALSE(Further_Text(k).empty()) << k;
  EXPECT_EQ(keys, further_keys(Read_File(Source_Of(code == "UK" ? "FR" : "UK"))));
}

INSTANTIATE_TEST_SUITE_P(Both, ShippedLanguage, ::testing::Values("UK", "FR"));

}  // namespace
