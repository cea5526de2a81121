// The calculator's arithmetic and key rules.
#include <gtest/gtest.h>

#include "foundation/Mod_Zarvek.h"
#include "tools/Calculette.h"

using namespace zarvek;

TEST(Calculette, Arithmetic) {
  Dec_Sep = '.';
  using S = Calc_Outcome;
  const struct { const char *x, *y; int op; S::Status status; const char* text; } cases[] = {
      {"2", "3.5", Calc_Subtract, S::Ok, "-1.5"}, {"1E3", "1", Calc_Add, S::Ok, "1001"},
      {"-4", "2.5", Calc_Multiply, S::Ok, "-10"}, {"1", "8", Calc_Divide, S::Ok, "0.125"},
      {"2", "10", Calc_Power, S::Ok, "1024"},
      // the switch to the exponent format lies just above twelve nines
      {"999999999999", "0", Calc_Add, S::Ok, "999999999999"},
      {"1E6", "1E6", Calc_Multiply, S::Ok, "1.0000000E+12"},
      // failures of the arithmetic leave the result as it was
      {"1", "0", Calc_Divide, S::Failed, ""},  {"10", "400", Calc_Power, S::Failed, ""},
      {"-8", "0.5", Calc_Power, S::Failed, ""},
      // X is tested before Y
      {"1,5", "x", Calc_Add, S::X_NotNumeric, ""}, {"", "2", Calc_Add, S::X_NotNumeric, ""},
      {"2", "E3", Calc_Add, S::Y_NotNumeric, ""},
  };
  for (const auto& c : cases) {
    const Calc_Outcome r = Calc_Compute(c.x, c.y, c.op);
    EXPECT_EQ(r.Result, c.status) << c.x << " " << c.op << " " << c.y;
    EXPECT_EQ(r.Text, c.text) << c.x << " " << c.op << " " << c.y;
  }
}

TEST(Calculette, KeysInTheOperands) {
  Dec_Sep = ',';
  using A = Calc_Key;
  constexpr Calc_Field X = Calc_Field::X, Y = Calc_Field::Y;
  // the text, the caret, the key, the field; what is done, and the key that
  // passes or the operation selected
  const struct { const char* text; int caret, key; Calc_Field field; A::Action action; int keyOut; } cases[] = {
      {"", 0, 'e', X, A::Pass, 'E'}, {"1", 1, 'x', X, A::Drop, 'X'},
      {"", 0, '+', X, A::Pass, '+'}, {"1E", 2, '+', X, A::Pass, '+'},  // a sign; the exponent's sign
      {"12", 2, '+', X, A::Select_Op, Calc_Add}, {"12", 0, '-', X, A::Pass, '-'},  // the latter at the start
      {"12", 1, '-', X, A::Select_Op, Calc_Subtract},
      {"3", 1, '^', X, A::Select_Op, Calc_Power},     {"", 0, '^', X, A::Drop, '^'},
      {"3", 1, '.', X, A::Pass, ','},  {"3", 1, 8, X, A::Pass, 8},  {"3", 1, '=', Y, A::Equals, '='},
      {"3", 1, '\r', Y, A::Equals, '\r'}, {"3", 1, '\r', X, A::Next, '\r'},
  };
  for (const auto& c : cases) {
    const Calc_Key k = Calc_KeyPress(c.text, c.caret, c.key, c.field);
    EXPECT_EQ(k.Do, c.action) << c.text << " " << (char)c.key;
    EXPECT_EQ(k.Do == A::Select_Op ? k.Operation : k.Key, c.keyOut) << c.text << " " << (char)c.key;
  }
  EXPECT_EQ(Calc_DecimalKey("") + "|" + Calc_DecimalKey("4"), "0,|,");
  Dec_Sep = '.';
}
