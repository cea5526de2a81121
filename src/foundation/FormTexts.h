// Where each line of a window's language section goes.
//
// A window's section in the language file is a plain run of lines; their
// meaning comes only from their order. This table names, for each window,
// the control that each line captions, in that order:
//   ""               the window's own caption
//   "Tab_Options[1]" page 1 of the tab strip Tab_Options
//   "Lbl_Trad(3)"    the control of that name (control arrays carry their
//                    index in the name, counted from 0)
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zarvek {

// Targets of the lines of the section that Translate_Form uses for a window,
// by the window's upper-cased name. Empty for a window this table doesn't
// describe.
const std::vector<std::string>& Form_Targets(std::string_view window_name);

// Splits "Tab_Options[1]" into "Tab_Options" and 1; false for a target
// that isn't a tab page.
bool Split_TabTarget(const std::string& target, std::string& tabName, int& page);

}  // namespace zarvek
