// The desktop's own system information tool, where one is installed.
#pragma once

#include <string>
#include <vector>

namespace zarvek {

struct SysInfoTool {
  std::string program;            // full name of the executable
  std::vector<std::string> args;  // arguments that open its information page
};

// The first tool found, in the order of the desktops' own tools (KDE, GNOME,
// Xfce, then stand-alone ones), looked for in the directories of `path`
// (a PATH-like list separated by ':'). False when none is installed.
bool Find_SysInfoTool(const std::string& path, SysInfoTool& tool);

}  // namespace zarvek
