// The rules of the small calculator: two operands X and Y, five operations,
// and the keys a user types into the operands.
#pragma once

#include <string>

namespace zarvek {

enum Calc_Operation { Calc_Add = 0, Calc_Subtract = 1, Calc_Multiply = 2, Calc_Divide = 3, Calc_Power = 4 };

// Which operand a key is typed into.
enum class Calc_Field { X, Y };

// What becomes of a key typed into an operand.
struct Calc_Key {
  enum Action {
    Pass,       // goes into the field as `Key` (upper-cased)
    Drop,       // ignored
    Select_Op,  // selects `Operation`; the key is dropped and Y takes the focus
    Equals,     // computes
    Next,       // Y takes the focus
  };
  Action Do = Drop;
  int Key = 0;
  int Operation = 0;
};

// The key rules: letters upper-cased, "E" kept for the exponent and every
// other letter dropped; "+" and "-" are signs in an empty field or after "E"
// ("-" also before the first character), otherwise they select addition and
// subtraction; "*", "/", "^" select their operation in a field that holds
// something. "." and "," become the locale's separator. Enter and "=" compute
// in Y and go on to Y from X. `caret` is the insertion point in `text`.
Calc_Key Calc_KeyPress(const std::string& text, int caret, int key, Calc_Field field);

// The text the decimal key types into a field: the locale's separator, after
// a "0" when the field is empty.
std::string Calc_DecimalKey(const std::string& fieldText);

struct Calc_Outcome {
  enum Status { Ok, X_NotNumeric, Y_NotNumeric, Failed };
  Status Result = Failed;
  std::string Text;  // the result when Ok
};

// X op Y in double precision. A failure of the arithmetic (division by zero,
// overflow, a power without a real value) gives Failed: the shown result is
// left unchanged.
Calc_Outcome Calc_Compute(const std::string& x, const std::string& y, int operation);

// The text of a result: "0.0000000E+00" beyond 999999999999 in magnitude,
// the plain text of the number otherwise.
std::string Calc_ResultText(double value);

}  // namespace zarvek
