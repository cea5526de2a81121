#include "tools/Calculette.h"

#include <cctype>
#include <cmath>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

Calc_Key Calc_KeyPress(const std::string& text, int caret, int key, Calc_Field field) {
  Calc_Key k;
  k.Key = key;
  if (key == '\r' || key == '\n' || key == '=') {
    k.Do = field == Calc_Field::Y ? Calc_Key::Equals : Calc_Key::Next;
    return k;
  }
  if (key < 32) {  // backspace and the other control keys
    k.Do = Calc_Key::Pass;
    return k;
  }
  if (key < 128 && std::isalpha(key)) {
    k.Key = std::toupper(key);
    k.Do = k.Key == 'E' ? Calc_Key::Pass : Calc_Key::Drop;
    return k;
  }
  const bool empty = text.empty();
  const bool afterE = !empty && caret > 0 && caret <= (int)text.size() &&
                      std::toupper((unsigned char)text[caret - 1]) == 'E';
  auto operation = [&k](int op) {
    k.Do = Calc_Key::Select_Op;
    k.Operation = op;
  };
  switch (key) {
    case '+':
      if (empty || afterE) k.Do = Calc_Key::Pass;
      else operation(Calc_Add);
      return k;
    case '-':
      if (empty || afterE || caret == 0) k.Do = Calc_Key::Pass;
      else operation(Calc_Subtract);
      return k;
    case '*':
    case '/':
    case '^':
      if (empty) k.Do = Calc_Key::Drop;
      else operation(key == '*' ? Calc_Multiply : key == '/' ? Calc_Divide : Calc_Power);
      return k;
    case '.':
    case ',':
      k.Key = (unsigned char)Dec_Sep;
      k.Do = Calc_Key::Pass;
      return k;
    default:
      break;
  }
  k.Do = (key >= '0' && key <= '9') || key == (unsigned char)Dec_Sep ? Calc_Key::Pass : Calc_Key::Drop;
  return k;
}

std::string Calc_DecimalKey(const std::string& fieldText) {
  std::string s = Trim(fieldText).empty() ? "0" : "";
  s += Dec_Sep;
  return s;
}

std::string Calc_ResultText(double value) {
  if (std::fabs(value) > 999999999999.0) return Format_Pattern(value, "0.0000000E+00");
  return Number_To_Text(value);
}

Calc_Outcome Calc_Compute(const std::string& x, const std::string& y, int operation) {
  Calc_Outcome out;
  if (!Is_Numeric(x)) {
    out.Result = Calc_Outcome::X_NotNumeric;
    return out;
  }
  if (!Is_Numeric(y)) {
    out.Result = Calc_Outcome::Y_NotNumeric;
    return out;
  }
  const double a = Num_Of_Text(x), b = Num_Of_Text(y);
  double r = 0;
  switch (operation) {
    case Calc_Add: r = a + b; break;
    case Calc_Subtract: r = a - b; break;
    case Calc_Multiply: r = a * b; break;
    case Calc_Divide:
      if (b == 0) return out;
      r = a / b;
      break;
    case Calc_Power: r = std::pow(a, b); break;
    default: return out;
  }
  if (!std::isfinite(r) || !std::isfinite(a) || !std::isfinite(b)) return out;
  out.Result = Calc_Outcome::Ok;
  out.Text = Calc_ResultText(r);
  return out;
}

}  // namespace zarvek
