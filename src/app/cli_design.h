// The lateral-torsional buckling check as zarvek-cli prints it: a block of
// lines after a solve, a "design" member of the JSON object, and the check
// command that prints it alone.
#pragma once

#include <string>

#include "design/DesignModel.h"

namespace zarvek::cli {

// "design":{...} without a leading comma: the figures in the project's
// units (fy in its E unit, Wy in its dimension unit cubed, moments in its
// moment unit); null for what was not computed.
std::string Design_Json(const DesignRun& d, const BeamModel& m);
// The lines of the check and its closing statement, in UTF-8.
std::string Design_Text(const DesignRun& d, const BeamModel& m);

}  // namespace zarvek::cli
