#include "analysis/DirectSolve.h"

#include <charconv>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

SolveControl Direct_SolveControl() {
  SolveControl ctl;
  ctl.Tol = 0.0001;
  ctl.NbIter = 50;
  ctl.Direct_Mode = true;
  ctl.Stop_Requested = false;
  return ctl;
}

std::array<std::string, 4> Result_Lines(SolverResult& res, bool stopRequested) {
  std::array<std::string, 4> lines;
  // Numbers in a file always carry a decimal point, whatever the locale.
  lines[0] = To_DotText(Format_Pattern(res.mucr, "0.000000"), 15);
  lines[1] = To_DotText(Number_To_Text(res.Mmax), 15);
  lines[2] = To_DotText(Number_To_Text(res.xMmax), 15);
  if (stopRequested) {
    // The user's stop leaves the bracket reached so far: a result, not a fault.
    res.Error_Text = Msg(2);
    res.Solve_Status = 0;
  } else if (res.Solve_Status == 0) {
    res.Error_Text = Msg(6);
  }
  lines[3] = res.Error_Text + " (" + std::to_string(res.Solve_Status) + ")";
  return lines;
}

DirectSolveOutcome Direct_Solve(const std::string& File_Problem, const std::string& File_Tmp,
                                SolveControl& ctl) {
  ctl.Tol = 0.0001;
  ctl.NbIter = 50;
  ctl.Direct_Mode = true;
  ctl.Stop_Requested = false;

  DirectSolveOutcome out;
  Solve_Problem(File_Problem, Method_Dichotomie, out.Result, ctl);
  out.Lines = Result_Lines(out.Result, ctl.Stop_Requested);
  std::string content;
  for (const auto& l : out.Lines) content += l + "\n";
  out.Written = Write_File_Atomic(File_Tmp, content);
  out.Clipboard_Text = Trim(out.Lines[0]);
  return out;
}

std::string Progress_Text(double value, int width) {
  if (width < 1) width = 1;
  char buf[64];
  std::string s;
  for (int digits = 15; digits >= 1; --digits) {
    auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, digits);
    s.assign(buf, r.ptr);
    if ((int)s.size() <= width) break;
  }
  const auto dot = s.find('.');
  if (dot != std::string::npos) s[dot] = Dec_Sep;
  return s;
}

}  // namespace zarvek
