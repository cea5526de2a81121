// The calculator's arithmetic and key rules.
#include <gtest/gtest.h>

#include "foundation/Mod_Zarvek.h"
#include "tools/Calculette.h"

using namespace zarvek;

namespace {

TEST(Calculette, Arithmetic) {
  Dec_Sep = '.';
  struct {
    const char *x, *y;
    int op;
    Calc_Outcome::Status status;
    const char* text;
  } cases[] = {
      {"2", "3.5", Calc_Subtract, Calc_Outcome::Ok, "-1.5"},
      {"1E3", "1", Calc_Add, Calc_Outcome::Ok, "1001"},
      {"-4", "2.5", Calc_Multiply, Calc_Outcome::Ok, "-10"},
      {"1", "8", Calc_Divide, Calc_Outcome::Ok, "0.125"},
      {"2", "10", Calc_Power, Calc_Outcome::Ok, "1024"},
      {"9", "0.5", Calc_Power, Calc_Outcome::Ok, "3"},
      // the switch to the exponent format lies just above twelve nines
      {"999999999999", "0", Calc_Add, Calc_Outcome::Ok, "999999999999"},
      {"1E6", "1E6", Calc_Multiply, Calc_Outcome::Ok, "1.0000000E+12"},
      // failures of the arithmetic leave the result as it was
      {"1", "0", Calc_Divide, Calc_Outcome::Failed, ""},
      {"10", "400", Calc_Power, Calc_Outcome::Failed, ""},
      {"-8", "0.5", Calc_Power, Calc_Outcome::Failed, ""},
      {"1E308", "1E308", Calc_Add, Calc_Outcome::Failed, ""},
      // X is tested before Y
      {"1,5", "x", Calc_Add, Calc_Outcome::X_NotNumeric, ""},
      {"", "2", Calc_Add, Calc_Outcome::X_NotNumeric, ""},
      {"2", "E3", Calc_Add, Calc_Outcome::Y_NotNumeric, ""},
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
  struct {
    const char* text;
    int caret;
    int key;
    Calc_Field field;
    A::Action action;
    int keyOut;  // the key that passes, or the operation selected
  } cases[] = {
      {"", 0, 'e', Calc_Field::X, A::Pass, 'E'},
      {"1", 1, 'x', Calc_Field::X, A::Drop, 'X'},
      {"", 0, '+', Calc_Field::X, A::Pass, '+'},     // a sign
      {"1E", 2, '+', Calc_Field::X, A::Pass, '+'},   // the exponent's sign
      {"12", 2, '+', Calc_Field::X, A::Select_Op, Calc_Add},
      {"1e", 2, '-', Calc_Field::Y, A::Pass, '-'},
      {"12", 0, '-', Calc_Field::X, A::Pass, '-'},   // before the first character
      {"12", 1, '-', Calc_Field::X, A::Select_Op, Calc_Subtract},
      {"3", 1, '*', Calc_Field::X, A::Select_Op, Calc_Multiply},
      {"3", 1, '^', Calc_Field::X, A::Select_Op, Calc_Power},
      {"", 0, '^', Calc_Field::X, A::Drop, '^'},
      {"3", 1, '.', Calc_Field::X, A::Pass, ','},
      {"3", 1, 8, Calc_Field::X, A::Pass, 8},
      {"3", 1, '=', Calc_Field::Y, A::Equals, '='},
      {"3", 1, '\r', Calc_Field::Y, A::Equals, '\r'},
      {"3", 1, '\r', Calc_Field::X, A::Next, '\r'},
  };
  for (const auto& c : cases) {
    const Calc_Key k = Calc_KeyPress(c.text, c.caret, c.key, c.field);
    EXPECT_EQ(k.Do, c.action) << c.text << " " << (char)c.key;
    EXPECT_EQ(k.Do == A::Select_Op ? k.Operation : k.Key, c.keyOut) << c.text << " " << (char)c.key;
  }
  EXPECT_EQ(Calc_DecimalKey(""), "0,");
  EXPECT_EQ(Calc_DecimalKey("4"), ",");
  Dec_Sep = '.';
}

}  // namespace
