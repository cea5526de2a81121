// Problem files (.ZVK) through the whole solve: reading, checks, assembly and
// both methods. Whatever the text, a solve ends with a status, never with a
// crash, a sanitizer report, a hang or a non-finite result.
#include <cmath>
#include <cstdlib>

#include "fuzz_support.h"
#include "solver/Mod_StabMat.h"

using namespace zarvek;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = fuzz_support::Put("PROBLEM.ZVK", data, size);
  for (int method : {Method_Dichotomie, Method_Eigen}) {
    SolverResult res;
    SolveControl ctl;
    ctl.NbIter = 12;  // enough to reach every branch of the methods; keeps inputs fast
    Solve_Problem(path, method, res, ctl);
    if (!std::isfinite(res.mucr)) std::abort();
    if (res.Solve_Status == 0 && res.mucr > 0) {
      for (size_t i = 1; i < res.Mode_Vector.size(); ++i)
        if (!std::isfinite(res.Mode_Vector[i])) std::abort();
    }
  }
  return 0;
}
