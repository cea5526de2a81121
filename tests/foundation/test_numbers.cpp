// Number texts (files use a point, the screen the locale's mark); factors of the display units to daN, cm.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sys/stat.h>

#include "foundation/Mod_Zarvek.h"
#include "foundation/Units.h"
#include "scratch_dir.h"

using namespace zarvek;

// A text written with a point, in the locale's mark.
static std::string Local(std::string text) {
  std::replace(text.begin(), text.end(), '.', Dec_Sep);
  return text;
}

// A tie is a tie of the exact decimal value: 1000050000000 and 3199550000000000 are integers that a double
// holds exactly, so the fifth digit is a true half and goes away from zero, as in the fixed form.
TEST(NumberText, ScientificTiesRoundFromTheExactValue) {
  Dec_Sep = '.';
  const std::pair<double, const char*> ties[] = {
      {1.00005e12, "1.0001E+12"}, {3.19955e15, "3.1996E+15"}, {-1.00005e12, "-1.0001E+12"},
      {9.99995e15, "1.000E+16"}};  // the carry reaches the exponent
  for (const auto& [v, text] : ties) {
    EXPECT_EQ(Format_Auto(v), text) << v;
    EXPECT_EQ(Format_Fixed(v, 12, 2), std::string(12 - std::string(text).size(), ' ') + text) << v;
  }
  EXPECT_EQ(Format_Pattern(0.0625, "0.0#E-00"), "6.25E-02");
  EXPECT_EQ(Format_Pattern(0.03125, "0.0#E-00"), "3.13E-02");  // 3.125: an exact tie
}

TEST(NumberText, FilesTakeAPointAndTheScreenTheLocalesMark) {
  const struct { double v; int width, decimals; const char* text; } fixed[] = {
      {0, 8, 2, "    0.00"}, {19.868, 12, 2, "       19.87"}, {-1, 15, 2, "          -1.00"}, {7, 3, 0, "  7"},
      // too wide for its column: scientific, and the field grows when needed
      {1234.5, 6, 3, "1.2345E+03"}, {1e30, 15, 2, "      1.000E+30"},
      {-2.5e-7, 14, 1, "           0.0"},  // a value that rounds to zero shows no sign
      // halves round away from zero, as a pocket calculator does
      {0.125, 8, 2, "    0.13"}, {-0.125, 8, 2, "   -0.13"},
  };
  // on screen the digits follow the magnitude, with no dangling mark
  const std::pair<double, const char*> automatic[] = {
      {0, "0"}, {0.05, "5.000E-02"}, {0.012345, "1.2345E-02"}, {0.1, "0.1"},
      {0.4833069, "0.48331"}, {5, "5"}, {-603.78, "-603.78"}, {4833.069, "4833.1"},
      {99999.5, "100000"}, {126332, "126332"}, {1000000, "1.000E+06"},
  };
  // no digits at all: named, as the patterns name them
  const std::pair<double, const char*> plain[] = {{2100000.0, "2100000"}, {0.5, "0.5"}, {1e30, "1E+30"},
      {1e-5, "1E-05"}, {HUGE_VAL, "Inf"}, {-HUGE_VAL, "-Inf"}, {std::nan(""), "NaN"}};
  for (char mark : {'.', ','}) {
    Dec_Sep = mark;
    SCOPED_TRACE(mark);
    for (const auto& c : fixed) EXPECT_EQ(Format_Fixed(c.v, c.width, c.decimals), c.text) << c.v;
    for (const auto& [v, text] : automatic) EXPECT_EQ(Format_Auto(v), Local(text)) << v;
    for (const auto& [v, text] : plain) EXPECT_EQ(Number_To_Text(v), Local(text)) << v;
    // a float keeps its own seven digits
    EXPECT_EQ(Number_To_Text(1.0f / 3.0f) + " " + Number_To_Text(-1234.5f), Local("0.3333333 -1234.5"));
    // between the two: a file field from a screen text and back
    EXPECT_EQ(To_DotText(Local("1.5"), 5) + "|" + To_DotText("123456", 3), "  1.5|123456");
    EXPECT_EQ(To_LocalText(" 1.5 "), Local("1.5"));
    EXPECT_DOUBLE_EQ(Num_Of_Text(Local("1.5")), 1.5);
    EXPECT_EQ(Num_Of_Text(mark == '.' ? "1,5" : "1.5"), 0);  // the other mark is no number
  }
  Dec_Sep = '.';
}

TEST(NumberText, WhatCountsAsANumberAndTheKeysAFieldTakes) {
  for (auto t : {"-1.5", "+2", " 3.25 ", ".5", "5.", "1.5e-3", "-2E+04"}) EXPECT_TRUE(Is_Numeric(t)) << t;
  for (auto t : {"", " ", ".", "-", "E5", "1E", "1.2.3", "1-", "1 2", "--1"})
    EXPECT_FALSE(Is_Numeric(t)) << t;
  EXPECT_DOUBLE_EQ(Num_Of_Text("-2E+04"), -20000);
  // keys of a numeric field: the key that passes, 0 when refused; mode 1 refuses "-"
  Dec_Sep = ',';
  auto passes = [](int key, int mode) { return Filter_NumericKey(key, mode) ? key : 0; };
  // the decimal key gives the mark, 'e' the exponent, backspace passes
  EXPECT_EQ((std::vector{passes('.', 0), passes('e', 0), passes(8, 1), passes('-', 1), passes('x', 0)}),
            (std::vector{int(','), int('E'), 8, 0, 0}));
  Dec_Sep = '.';
}

TEST(Files, PathsExtensionsAndSafeWriting) {
  EXPECT_EQ(Path_Of("/home/eng/beam.DAT"), "/home/eng");
  EXPECT_EQ(Path_Of("beam.DAT"), "be");
  EXPECT_FALSE(File_Exists("   "));
  foundation_test::Scratch d;
  EXPECT_TRUE(File_Exists(d.path));  // a directory counts as existing
  ASSERT_TRUE(Write_File_Atomic(d / "study.DAT", "first\n"));
  ASSERT_TRUE(Write_File_Atomic(d / "study.DAT", "second\n"));
  EXPECT_EQ(d.Read("study.DAT"), "second\n");
  // a folder that can't be written leaves the old file as it was
  chmod(d.path.c_str(), 0500);
  if (access(d.path.c_str(), W_OK) != 0) {
    EXPECT_FALSE(Write_File_Atomic(d / "study.DAT", "third\n"));
    EXPECT_EQ(d.Read("study.DAT"), "second\n");
  }
  chmod(d.path.c_str(), 0700);
}

TEST(UnitFactors, ConversionsToDaNAndCm) {
  using F = UnitFamily;
  const struct { F f; const char* unit; float factor; } cases[] = {
      // 1 m = 100 cm, 1 mm = 0.1 cm; 1 MPa = 1 N/mm2 = 100 N/cm2 = 10 daN/cm2
      {F::L, "m", 100}, {F::Dim, "mm", 0.1f}, {F::EG, "MPa", 10}, {F::EG, "kN/mm2", 10000},
      // 1 kN.m = 100 daN x 100 cm; 1 kN/m = 100 daN / 100 cm
      {F::M, "kN.m", 10000}, {F::F, "kN", 100}, {F::q, "kN/m", 1}, {F::v, "daN/mm", 10},
      {F::t, "kN.m/rd", 10000},
      // per metre of beam: once more over 100 cm
      {F::v_c, "kN/m/m", 0.01f}, {F::t_c, "kN.m/rd/m", 100},
      {F::vp_c, "kN.m/m", 100}, {F::Izt, "mm4", 0.0001f}, {F::Iw, "mm6", 1e-6f},
      // not the physical 1e8 and 1e12: the values the lists have always carried
      {F::Izt, "m4", 10000}, {F::Iw, "m6", 1e6f}, {F::tp, "kN.m3/rd", 1e-8f},
      {F::tp, "kN.cm3/rd", 0.01f}, {F::t_c, "daN.m/rd/m", 1}};
  for (const auto& c : cases) {
    int i = Unit_ItemCount(c.f) - 1;
    while (i >= 0 && Unit_ItemText(c.f, i) != c.unit) --i;
    EXPECT_FLOAT_EQ(Unit_Factor(c.f, i), c.factor) << c.unit;
  }
  // an index that no list has never yields a zero factor
  EXPECT_EQ(Unit_Factor(F::L, 7), 1.0f);
  EXPECT_EQ(Unit_ItemText(F::L, -1), "");
}
