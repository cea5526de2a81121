// The companion windows of the main window, hooked to its menus and buttons.
//
// The main window knows its companions only through its hook table; this is
// where each hook is given the window it opens, with the records it reads and
// the way back (what to refresh, translate or redraw when the companion has
// changed something).
#pragma once

namespace zarvek {

class Frm_Zarvek;

// Hooks every companion window to `main` and enables its commands. The
// windows that stay loaded (options, report, calculator) are created on first
// use and owned by `main`.
void Install_Windows(Frm_Zarvek& main);

}  // namespace zarvek
