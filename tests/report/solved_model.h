// The default beam (IPE 300, 10 m, fork supports, end moments -100 and 100 kN.m), as changed by the test,
// solved as the main window does: the progress shows the iteration. Empty when the solve went well.
#pragma once

#include <string>
#include <unistd.h>

#include "analysis/Proceed.h"

namespace report_test {

inline std::string Solve(zarvek::BeamModel& m) {
  zarvek::SolveControl ctl;
  ctl.Show_Progress = [&m](int it, double) { m.Lbl_Iteration = std::to_string(it); };
  const std::string problem = "/tmp/zarvek-report-" + std::to_string(::getpid()) + ".ZVK";
  const zarvek::ProceedResult r = zarvek::Proceed(m, problem, ctl);
  ::unlink(problem.c_str());
  return r.Solve_Status == 0 && m.Mode_Max > 0 ? "" : "solve failed: " + r.Message;
}

inline zarvek::BeamModel Default_Model() {
  zarvek::BeamModel m;
  zarvek::Init_Default(m, "/tmp");
  return m;
}

}  // namespace report_test
