#include "tools/SysInfo.h"

#include <sys/stat.h>
#include <unistd.h>

namespace zarvek {

namespace {

bool Is_Executable(const std::string& name) {
  struct stat st;
  return ::stat(name.c_str(), &st) == 0 && S_ISREG(st.st_mode) && ::access(name.c_str(), X_OK) == 0;
}

}  // namespace

bool Find_SysInfoTool(const std::string& path, SysInfoTool& tool) {
  static const std::vector<SysInfoTool> candidates = {
      {"kinfocenter", {}},
      {"gnome-control-center", {"info-overview"}},
      {"xfce4-about", {"--system"}},
      {"mate-system-monitor", {}},
      {"hardinfo2", {}},
      {"hardinfo", {}},
  };
  std::vector<std::string> dirs;
  std::string::size_type start = 0;
  while (start <= path.size()) {
    const auto end = path.find(':', start);
    std::string d = path.substr(start, end == std::string::npos ? std::string::npos : end - start);
    if (!d.empty()) dirs.push_back(d);
    if (end == std::string::npos) break;
    start = end + 1;
  }
  for (const SysInfoTool& c : candidates) {
    for (const std::string& d : dirs) {
      const std::string full = d + "/" + c.program;
      if (Is_Executable(full)) {
        tool = {full, c.args};
        return true;
      }
    }
  }
  return false;
}

}  // namespace zarvek
