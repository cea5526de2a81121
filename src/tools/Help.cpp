#include "tools/Help.h"

#include <map>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

const std::map<int, const char*>& Topics() {
  static const std::map<int, const char*> t = {
      {Help_Contents, "index.html"},
      {Help_Beam, "beam.html"},
      {Help_Restraints, "restraints.html"},
      {Help_Loads, "loads.html"},
      {Help_Results, "results.html"},
      {Help_Options, "options.html"},
      {Help_Section, "catalogue.html"},
      {Help_Properties, "properties.html"},
      {Help_About, "about.html"},
      {Help_Report, "report.html"},
      {Help_EigenVector, "mode.html"},
      {Help_EigenVector3D, "mode.html"},
      {Help_DirectData, "directdata.html"},
      {Help_Calculator, "calculator.html"},
      {Help_Batch, "batch.html"},
      {Help_Pictures, "signs.html"},
  };
  return t;
}

}  // namespace

int Help_ContextOfPage(int page) {
  switch (page) {
    case 0: return Help_Beam;
    case 1: return Help_Restraints;
    case 2: return Help_Loads;
    case 3: return Help_Results;
    default: return Help_Contents;
  }
}

std::string Help_PageName(int context) {
  const auto& t = Topics();
  auto it = t.find(context);
  return it == t.end() ? "index.html" : it->second;
}

const std::vector<std::string>& Help_Pages() {
  static const std::vector<std::string> pages = {
      "index.html",      "beam.html",       "restraints.html", "loads.html",
      "results.html",    "signs.html",      "units.html",      "options.html",
      "catalogue.html",  "properties.html", "report.html",     "mode.html",
      "directdata.html", "calculator.html", "batch.html",      "about.html"};
  return pages;
}

std::string Help_Directory(const std::string& App_Path, const std::string& code) {
  const std::string dir = App_Path + "help/" + code;
  if (!code.empty() && File_Exists(dir + "/index.html")) return dir;
  return App_Path + "help/UK";
}

std::string Help_PagePath(const std::string& App_Path, const std::string& code, int context) {
  const std::string page = Help_PageName(context);
  for (const std::string& dir : {Help_Directory(App_Path, code), App_Path + "help/UK"}) {
    const std::string name = dir + "/" + page;
    if (File_Exists(name)) return name;
  }
  return std::string();
}

int Help_PictureContext(int index) {
  switch (index) {
    case 1: return Help_Beam;
    case 2: case 3: return Help_Restraints;
    case 4: case 5: return Help_Loads;
    case 6: return Help_Results;
    default: return Help_Contents;
  }
}

}  // namespace zarvek
