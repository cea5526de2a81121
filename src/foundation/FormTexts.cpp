#include "foundation/FormTexts.h"

#include <map>

namespace zarvek {

namespace {

std::vector<std::string> Indexed(const std::string& name, int first, int last) {
  std::vector<std::string> v;
  for (int i = first; i <= last; ++i) v.push_back(name + "(" + std::to_string(i) + ")");
  return v;
}

std::vector<std::string> Join(std::initializer_list<std::vector<std::string>> parts) {
  std::vector<std::string> v;
  for (const auto& p : parts) v.insert(v.end(), p.begin(), p.end());
  return v;
}

const std::map<std::string, std::vector<std::string>, std::less<>>& Table() {
  static const std::map<std::string, std::vector<std::string>, std::less<>> t = {
      {"FRM_OPTIONS",
       Join({{"", "Tab_Options[0]", "Tab_Options[1]", "Tab_Options[2]"},
             Indexed("Lbl_Trad", 0, 2),
             Indexed("Lbl_Unit", 0, 14),
             {"Cdr_Language", "Cdr_SplashScreen", "Cdr_Directory", "Cdr_Process", "Cdr_Units",
              "Opt_Dichotomie", "Opt_Eigen", "Cmd_CancelOptions"}})},
      {"FRM_SECTION", {"", "Lbl_Trad(0)", "Lbl_Trad(1)", "Cmd_Quitter"}},
      {"FRM_HELP", {""}},
      {"FRM_PROPERTIES", Join({{""}, Indexed("Lbl_Trad", 0, 8)})},
      {"FRM_ABOUT",
       {"", "Lbl_Description", "Lbl_Auteur", "Lbl_Disclaimer", "Lbl_Soutien", "Cmd_SysInfo"}},
  };
  return t;
}

}  // namespace

const std::vector<std::string>& Form_Targets(std::string_view window_name) {
  static const std::vector<std::string> none;
  const auto& t = Table();
  auto it = t.find(window_name);
  return it == t.end() ? none : it->second;
}

bool Split_TabTarget(const std::string& target, std::string& tabName, int& page) {
  const auto open = target.find('[');
  if (open == std::string::npos || target.empty() || target.back() != ']') return false;
  tabName = target.substr(0, open);
  page = std::stoi(target.substr(open + 1, target.size() - open - 2));
  return true;
}

}  // namespace zarvek
