// Run-time faults of a solve (overflow, division by zero, invalid operation)
// end the solve with its own status instead of spreading NaN or infinities
// into the results.
#pragma once

#include <cfenv>

namespace zarvek {

struct Solve_Fault {};

inline void Clear_FP() { std::feclearexcept(FE_ALL_EXCEPT); }
inline void Check_FP() {
  if (std::fetestexcept(FE_DIVBYZERO | FE_OVERFLOW | FE_INVALID)) throw Solve_Fault{};
}

}  // namespace zarvek
