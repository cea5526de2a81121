#include "cli_common.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <initializer_list>
#include <vector>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Startup.h"
#include "model/DataEntry.h"
#include "model/ProjectFile.h"

namespace zarvek::cli {

std::string Program_Dir() {
  std::string buf(4096, '\0');
  const ssize_t n = ::readlink("/proc/self/exe", buf.data(), buf.size() - 1);
  if (n <= 0) return ".";
  buf.resize(n);
  const auto p = buf.rfind('/');
  return p == std::string::npos ? "." : buf.substr(0, p);
}

std::string Data_Dir() {
  const std::string dir = Installed_DataDir(Program_Dir());
  return dir.empty() ? Program_Dir() : dir;
}

Scratch_Dir::Scratch_Dir() {
  const char* t = std::getenv("TMPDIR");
  std::string tmpl = std::string(t && *t ? t : "/tmp") + "/zarvek-cli-XXXXXX";
  if (::mkdtemp(tmpl.data())) dir = tmpl;
}

Scratch_Dir::~Scratch_Dir() {
  if (dir.empty()) return;
  // whatever the writers left there (a file written beside and renamed)
  if (DIR* d = ::opendir(dir.c_str())) {
    while (dirent* e = ::readdir(d)) {
      const std::string n = e->d_name;
      if (n != "." && n != "..") ::unlink((dir + "/" + n).c_str());
    }
    ::closedir(d);
  }
  ::rmdir(dir.c_str());
}

bool Input_File_OK(const std::string& file, std::string& why) {
  struct stat st;
  if (::stat(file.c_str(), &st) != 0)
    why = "file not found: " + file;
  else if (S_ISDIR(st.st_mode))
    why = "a directory, not a file: " + file;
  else if (!S_ISREG(st.st_mode))
    why = "not a regular file (a device, a pipe or a socket): " + file;
  else if (st.st_size > Max_Input_Bytes)
    why = "file too large (" + std::to_string((long long)st.st_size) +
          " bytes; a project or problem file is far below 10 MB): " + file;
  else
    return true;
  return false;
}

namespace {

const char* Tab_Name(int tab) {
  switch (tab) {
    case 0: return "Beam";
    case 1: return "Restraints";
    case 2: return "Loads";
    default: return "";
  }
}

}  // namespace

// The section of the route in use (the catalogue's slot is filled by the
// catalogue in the window, the dimensions are checked as they are typed), E,
// nu, G and L, and the moment ratio when it is the typed one: a project file
// hands them over as they stand, so each is checked as the window checks a
// field when it is left.
bool Numeric_Fields_OK(const BeamModel& m, ValidationResult& v) {
  struct Field {
    std::string name;
    const std::string& text;
  };
  std::vector<Field> fields;
  const int slot = Section_Slot(m);
  if (slot == 2) {
    for (const Field& f : std::initializer_list<Field>{{"Txt_h", m.Txt_h},     {"Txt_bf1", m.Txt_bf1},
                                                       {"Txt_tf1", m.Txt_tf1}, {"Txt_r1", m.Txt_r1},
                                                       {"Txt_bf2", m.Txt_bf2}, {"Txt_tf2", m.Txt_tf2},
                                                       {"Txt_r2", m.Txt_r2},   {"Txt_tw", m.Txt_tw}})
      fields.push_back(f);
  } else {
    const std::string k = "(" + std::to_string(slot) + ")";
    fields.push_back({"Txt_Iz" + k, m.Txt_Iz[slot]});
    fields.push_back({"Txt_It" + k, m.Txt_It[slot]});
    fields.push_back({"Txt_Iw" + k, m.Txt_Iw[slot]});
    fields.push_back({"Txt_Betaz" + k, m.Txt_Betaz[slot]});
    if (slot == 1) fields.push_back({"Txt_zS(1)", m.Txt_zS[1]});
  }
  fields.push_back({"Txt_L", m.Txt_L});
  fields.push_back({"Txt_E", m.Txt_E});
  fields.push_back({"Txt_Nu", m.Txt_Nu});
  fields.push_back({"Txt_G", m.Txt_G});
  if (m.Chk_M && m.Opt_Psi) fields.push_back({"Txt_Psi", m.Txt_Psi});
  for (const Field& f : fields)
    if (!IsNumValid(f.text, f.name, 0, v)) return false;
  return true;
}

std::string Validation_Text(const ValidationResult& v) {
  std::string text;
  for (const auto& s : v.Shown) text += s + "\n";
  if (v.tab >= 0 || !v.field.empty()) {
    text += "tab " + std::to_string(v.tab);
    if (*Tab_Name(v.tab)) text += std::string(" (") + Tab_Name(v.tab) + ")";
    if (!v.field.empty()) text += ", field " + v.field;
    text += ": ";
  }
  return text + v.Error_Text;
}

bool Usable(const SolverResult& s, bool stopped) {
  return s.Solve_Status == 0 && s.Converged && !stopped && std::isfinite(s.mucr) && s.mucr > 0;
}

int Prepare_Project(const std::string& file, BeamModel& m, EffortsData& e, std::string& why) {
  Init_Default(m, Program_Dir());
  const FileReadResult fr = Read_FileDAT(m, file, Program_Dir());
  if (!fr.ok) {
    why = fr.Error_Text;
    return Exit_Invalid;
  }
  // a project that names no method would be "solved" by neither
  if (!m.Opt_Eigen && !m.Opt_Dichotomie) {
    why = "no solving method chosen: the project sets neither Opt_Eigen nor Opt_Dichotomie";
    return Exit_Invalid;
  }
  ValidationResult nv;
  if (!Numeric_Fields_OK(m, nv)) {
    why = Validation_Text(nv);
    return Exit_Invalid;
  }
  // the checks of the Proceed button
  const ValidationResult v = IsDataOK(m);
  if (!v.ok) {
    why = Validation_Text(v);
    return Exit_Invalid;
  }
  Calculer_Efforts(m, e);
  InitProcessInfo(m);
  if (Num_Of_Text(m.Txt_Mmax[0]) == 0) {
    why = "Mmax = 0 ! - " + Msg(3);
    return Exit_Invalid;
  }
  return Exit_Done;
}

}  // namespace zarvek::cli
