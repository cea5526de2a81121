// Opening a problem file from outside the program: `zarvek --open FILE`, the
// command a file manager runs for a double-clicked ".zvk".
#pragma once

#include <string>

namespace zarvek {

class Frm_Zarvek;

// Puts the shown main window into its file-data mode as Tools > External
// problem file does (through the menu command itself, with its warning), then
// opens `file` there as File > Open does in that mode: the problem becomes the
// current file and its grids are shown. False, and nothing changed, when the
// file does not exist or the mode is not available.
bool Open_InFileDataMode(Frm_Zarvek& main, const std::string& file);

}  // namespace zarvek
