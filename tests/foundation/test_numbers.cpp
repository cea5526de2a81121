// Number texts: files always use a point, the screen uses the locale's mark.
#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>

#include "foundation/Mod_Zarvek.h"

using namespace zarvek;

namespace {

struct Comma_Locale {
  Comma_Locale() { Dec_Sep = ','; }
  ~Comma_Locale() { Dec_Sep = '.'; }
};

TEST(FormatFixed, FieldsForProblemAndProjectFiles) {
  EXPECT_EQ(Format_Fixed(0, 8, 2), "    0.00");
  EXPECT_EQ(Format_Fixed(603.78, 12, 2), "      603.78");
  EXPECT_EQ(Format_Fixed(19.868, 12, 2), "       19.87");
  EXPECT_EQ(Format_Fixed(-1, 15, 2), "          -1.00");
  EXPECT_EQ(Format_Fixed(7, 3, 0), "  7");
  // too wide for its column: scientific, and the field grows when needed
  EXPECT_EQ(Format_Fixed(1234.5, 6, 3), "1.2345E+03");
  EXPECT_EQ(Format_Fixed(1e30, 15, 2), "      1.000E+30");
  // a value that rounds to zero shows no sign
  EXPECT_EQ(Format_Fixed(-2.5e-7, 14, 1), "           0.0");
  // halves round away from zero, as a pocket calculator does
  EXPECT_EQ(Format_Fixed(0.125, 8, 2), "    0.13");
  EXPECT_EQ(Format_Fixed(-0.125, 8, 2), "   -0.13");
  Comma_Locale comma;
  EXPECT_EQ(Format_Fixed(2.5, 6, 2), "  2.50");
  EXPECT_EQ(Format_Fixed(1234.5, 6, 3), "1.2345E+03");
}

TEST(FormatAuto, DigitsFollowTheMagnitude) {
  EXPECT_EQ(Format_Auto(0), "0");
  EXPECT_EQ(Format_Auto(0.05), "5.000E-02");
  EXPECT_EQ(Format_Auto(0.012345), "1.2345E-02");
  EXPECT_EQ(Format_Auto(0.1), "0.1");
  EXPECT_EQ(Format_Auto(0.4833069), "0.48331");
  EXPECT_EQ(Format_Auto(5), "5");
  EXPECT_EQ(Format_Auto(-603.78), "-603.78");
  EXPECT_EQ(Format_Auto(48.33069), "48.331");
  EXPECT_EQ(Format_Auto(4833.069), "4833.1");
  EXPECT_EQ(Format_Auto(99999.5), "100000");
  EXPECT_EQ(Format_Auto(126332), "126332");
  EXPECT_EQ(Format_Auto(1000000), "1.000E+06");
  EXPECT_EQ(Format_Auto(2.1e6), "2.100E+06");
  Comma_Locale comma;
  EXPECT_EQ(Format_Auto(0.3), "0,3");
  EXPECT_EQ(Format_Auto(10), "10");  // no dangling separator
}

TEST(NumberText, PlainConversionAndTheTwoBorders) {
  EXPECT_EQ(Number_To_Text(2100000.0), "2100000");
  EXPECT_EQ(Number_To_Text(807690.0), "807690");
  EXPECT_EQ(Number_To_Text(0.5), "0.5");
  EXPECT_EQ(Number_To_Text(1e30), "1E+30");
  EXPECT_EQ(Number_To_Text(1e-5), "1E-05");
  EXPECT_EQ(Number_To_Text(1.0f / 3.0f), "0.3333333");
  EXPECT_EQ(Number_To_Text(-1234.5f), "-1234.5");
  Comma_Locale comma;
  EXPECT_EQ(Number_To_Text(0.5), "0,5");
  EXPECT_EQ(To_DotText("1,5", 5), "  1.5");
  EXPECT_EQ(To_DotText("123456", 3), "123456");
  EXPECT_EQ(To_LocalText(" 1.5 "), "1,5");
  EXPECT_DOUBLE_EQ(Num_Of_Text("1,5"), 1.5);
  EXPECT_DOUBLE_EQ(Num_Of_Text("1.5"), 0);  // not a number on this locale
}

TEST(NumberText, WhatCountsAsANumber) {
  for (const char* t : {"1", "-1.5", "+2", " 3.25 ", ".5", "5.", "1E5", "1.5e-3", "-2E+04"})
    EXPECT_TRUE(Is_Numeric(t)) << t;
  for (const char* t : {"", " ", ".", "-", "E5", "1E", "1.2.3", "1-", "abc", "1 2", "--1"})
    EXPECT_FALSE(Is_Numeric(t)) << t;
  EXPECT_DOUBLE_EQ(Num_Of_Text("-2E+04"), -20000);
  EXPECT_EQ(Num_Of_Text("ten"), 0);
}

TEST(Keys, NumericFieldsTakeOnlyNumberCharacters) {
  int k = '.';
  {
    Comma_Locale comma;
    EXPECT_TRUE(Filter_NumericKey(k, 0));
    EXPECT_EQ(k, ',');
  }
  k = 'e';
  EXPECT_TRUE(Filter_NumericKey(k, 0));
  EXPECT_EQ(k, 'E');
  k = '-';
  EXPECT_TRUE(Filter_NumericKey(k, 0));
  k = '-';
  EXPECT_FALSE(Filter_NumericKey(k, 1));
  k = 'x';
  EXPECT_FALSE(Filter_NumericKey(k, 0));
  k = 8;  // backspace
  EXPECT_TRUE(Filter_NumericKey(k, 1));
}

TEST(Units, ItemFactorsInSinglePrecision) {
  EXPECT_EQ(Get_ItemFactor(100), 100.0f);
  EXPECT_EQ(Get_ItemFactor(-100), 0.01f);
  EXPECT_EQ(Get_ItemFactor(-1000000), 0.000001f);
}

TEST(Files, PathsExtensionsAndSafeWriting) {
  EXPECT_EQ(Path_Of("/home/eng/beam.DAT"), "/home/eng");
  EXPECT_EQ(Path_Of("beam.DAT"), "be");
  EXPECT_TRUE(Has_Extension("/x/beam.zvk", ".ZVK"));
  EXPECT_FALSE(Has_Extension("/x/beam.zvk.txt", ".ZVK"));
  EXPECT_FALSE(File_Exists("   "));

  char tmpl[] = "/tmp/zarvek-files-XXXXXX";
  ASSERT_NE(mkdtemp(tmpl), nullptr);
  const std::string dir = tmpl, path = dir + "/study.DAT";
  EXPECT_TRUE(File_Exists(dir));  // a directory counts as existing
  ASSERT_TRUE(Write_File_Atomic(path, "first\n"));
  ASSERT_TRUE(Write_File_Atomic(path, "second\n"));
  std::ifstream in(path);
  std::string line;
  std::getline(in, line);
  EXPECT_EQ(line, "second");
  // a folder that can't be written leaves the old file as it was
  chmod(dir.c_str(), 0500);
  if (access(dir.c_str(), W_OK) != 0) {
    EXPECT_FALSE(Write_File_Atomic(path, "third\n"));
    std::ifstream again(path);
    std::getline(again, line);
    EXPECT_EQ(line, "second");
  }
  chmod(dir.c_str(), 0700);
}

}  // namespace
