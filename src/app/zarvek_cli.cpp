// zarvek-cli: the critical moment of a beam from the command line, for
// scripts. It solves a project (.DAT) the way the Proceed button does, or a
// problem file (.ZVK) the way the batch run does, and prints the result; it
// also shows the section catalogue.
//
// It writes no file of its own where it runs: the problem file of a project
// and the unscrambled language texts go to a scratch folder that is removed
// on the way out. The language file (ZARVEK_UK.MSG) and the catalogue
// (SECTION.DB) are looked for beside the program.
//
// Exit codes:
//   0  solved (also when stopped by Ctrl-C: the last estimates are printed)
//   1  wrong command line
//   2  invalid input: a file that can't be read, data refused by validation,
//      a section that is not in the catalogue
//   3  the solver failed (its status and message are printed)
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "analysis/Calculer_Efforts.h"
#include "analysis/Proceed.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Units.h"
#include "model/BeamModel.h"
#include "model/DataEntry.h"
#include "model/ProjectFile.h"
#include "model/Validation.h"
#include "section/Catalogue.h"
#include "section/Mod_Section.h"
#include "solver/Mod_StabMat.h"

namespace {

using namespace zarvek;

enum Exit_Code { Exit_Solved = 0, Exit_Usage = 1, Exit_Invalid = 2, Exit_SolverFailed = 3 };

const char* Usage_Text =
    "Usage:\n"
    "  zarvek-cli solve FILE [--json]   critical moment of a project (.DAT, .DFT)\n"
    "                                   or of a problem file (.ZVK)\n"
    "  zarvek-cli sections              list the section catalogue\n"
    "  zarvek-cli section NAME          properties of a catalogue section, e.g. \"IPE 300\"\n"
    "  zarvek-cli draw FILE --what loads|section|forces|mode -o OUT.png|OUT.svg [--scale K]\n"
    "                                   one diagram of a project or problem file\n"
    "  zarvek-cli --help                this text\n"
    "\n"
    "A project is checked as the main window checks it and solved with the method,\n"
    "tolerance and iteration limit of its options; results are in its units.\n"
    "A problem file is solved by the dichotomy (tolerance 0.0001, 50 iterations),\n"
    "results in daN and cm. --json prints one JSON object with the buckling mode.\n"
    "\n"
    "Exit codes: 0 solved, 1 wrong command line, 2 invalid input,\n"
    "3 the solver failed.\n";

// ---- scratch folder ------------------------------------------------------

struct Scratch_Dir {
  std::string dir;
  Scratch_Dir() {
    const char* t = std::getenv("TMPDIR");
    std::string tmpl = std::string(t && *t ? t : "/tmp") + "/zarvek-cli-XXXXXX";
    if (::mkdtemp(tmpl.data())) dir = tmpl;
  }
  ~Scratch_Dir() {
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
  std::string File(const std::string& name) { return dir + "/" + name; }
  Scratch_Dir(const Scratch_Dir&) = delete;
  Scratch_Dir& operator=(const Scratch_Dir&) = delete;
};

// ---- where the program lies ------------------------------------------------

std::string Program_Dir() {
  std::string buf(4096, '\0');
  const ssize_t n = ::readlink("/proc/self/exe", buf.data(), buf.size() - 1);
  if (n <= 0) return ".";
  buf.resize(n);
  const auto p = buf.rfind('/');
  return p == std::string::npos ? "." : buf.substr(0, p);
}

// ---- language ----------------------------------------------------------------

// The English texts of the messages this program may print, for a program
// that finds no language file beside it.
void Builtin_Messages() {
  static const struct {
    int n;
    const char* text;
  } texts[] = {
      {2, "Calculation stopped by the user: the values shown are the last estimates, not a converged result."},
      {3, "The beam carries no bending moment: switch on end moments or loads with non-zero values, then try again."},
      {6, "Normal end of the calculation"},
      {17, "This project file is damaged or is not a project file; the data shown may be incomplete, check them "
           "before solving. File:"},
      {20, "Fixed"},
      {27, "A continuous restraint can't fix the twist together with the lateral displacement or the lateral "
           "rotation: the beam could not buckle at all. Give one of them as a spring or leave it free."},
      {28, "Free"},
      {42, "No critical factor found below 1000: the beam does not buckle under these loads. Check the size, the "
           "sign and the units of the loads."},
      {43, "This field does not hold a number: type digits, the decimal separator of your system and, if needed, "
           "an exponent E."},
      {44, "Iteration limit reached before convergence: the result may be inaccurate. Raise the number of "
           "iterations or the tolerance in the options."},
      {50, "Value out of limits: enter a value within the range allowed for this field, in the unit shown."},
      {51, "Restraint out of range: its level may not exceed a quarter of the beam length, and its position x/L "
           "must stay below 1."},
      {55, "The two intermediate restraints are too close: keep them at least 0.05 L apart, or switch one of them "
           "off."},
      {56, "An intermediate restraint must lie between 0.05 L and 0.95 L; a restraint nearer to a support is an "
           "end restraint."},
      {57, "The problem file can't be read, or one of its values is out of limits (see the status number): check "
           "the file."},
      {71, "Spring"},
      {82, "The structure is not stable: its stiffness matrix is not positive definite. Check the restraints: the "
           "beam must be held against lateral displacement and twist, at least at its supports."},
      {95, "These dimensions don't make a valid I-section (height against flanges, root radii, web against flange "
           "thickness): the section properties can't be computed. Check the dimensions."},
      {96, "The dimensions have changed: confirm them so that the section properties are computed before "
           "solving."},
  };
  for (const auto& t : texts)
    if (Msg(t.n).empty()) Set_Msg(t.n, t.text);
}

// The English language file beside the program when there is one (its
// texts are in the Windows character set), else the built-in texts.
bool Language_FromFile = false;
void Load_English(Scratch_Dir& scratch) {
  const std::string file = Program_Dir() + "/ZARVEK_UK.MSG";
  if (File_Exists(file) && !scratch.dir.empty() && Load_LanguageFile(file, scratch.File("LANGUAGE.TMP"))) {
    Load_Messages();
    Language_FromFile = true;
  }
  Builtin_Messages();
}

std::string Out(const std::string& text) { return Language_FromFile ? Cp1252_To_Utf8(text) : text; }

// ---- output ------------------------------------------------------------------

std::string Json_String(const std::string& s) {
  std::string r = "\"";
  for (unsigned char c : s) {
    switch (c) {
      case '"': r += "\\\""; break;
      case '\\': r += "\\\\"; break;
      case '\n': r += "\\n"; break;
      case '\r': r += "\\r"; break;
      case '\t': r += "\\t"; break;
      default:
        if (c < 0x20) {
          char b[8];
          std::snprintf(b, sizeof b, "\\u%04x", c);
          r += b;
        } else {
          r += (char)c;
        }
    }
  }
  return r + "\"";
}

std::string Json_Number(double v, int digits = 10) {
  if (!std::isfinite(v)) return "null";
  char b[40];
  std::snprintf(b, sizeof b, "%.*g", digits, v);
  return b;
}

// Six significant digits, without an exponent for the usual magnitudes.
std::string Plain_Number(double v) {
  char b[64];
  const double a = std::fabs(v);
  if (a == 0 || !std::isfinite(v)) {
    std::snprintf(b, sizeof b, "%g", v);
  } else if (a >= 1e-4 && a < 1e15) {
    const int decimals = std::max(0, 5 - (int)std::floor(std::log10(a)));
    std::snprintf(b, sizeof b, "%.*f", decimals, v);
    // no trailing zeros after the point
    std::string t = b;
    if (t.find('.') != std::string::npos) {
      while (t.back() == '0') t.pop_back();
      if (t.back() == '.') t.pop_back();
    }
    return t;
  } else {
    std::snprintf(b, sizeof b, "%.6g", v);
  }
  return b;
}

// What a solve prints.
struct Solve_Report {
  std::string file, kind;   // kind: "project" or "problem"
  int status = 0;
  std::string message;
  bool stopped = false;
  int method = 0;
  double mucr = 0, Mcr = 0, Mmax = 0, xMmax = 0;
  std::string unit_M;
  int NB = 0;
  std::vector<float> mode;  // 1..4 NN
};

void Print_Json(const Solve_Report& r, const std::string& error = std::string()) {
  std::string s = "{";
  s += "\"file\":" + Json_String(r.file);
  s += ",\"kind\":" + Json_String(r.kind);
  s += ",\"status\":" + std::to_string(r.status);
  if (!error.empty()) {
    s += ",\"error\":" + Json_String(Out(error));
    s += "}";
    std::printf("%s\n", s.c_str());
    return;
  }
  s += ",\"message\":" + Json_String(Out(r.message));
  s += std::string(",\"stopped\":") + (r.stopped ? "true" : "false");
  s += ",\"method\":" + std::to_string(r.method);
  s += ",\"mucr\":" + Json_Number(r.mucr);
  s += ",\"Mcr\":" + Json_Number(r.Mcr);
  s += ",\"Mmax\":" + Json_Number(r.Mmax);
  s += ",\"xMmax\":" + Json_Number(r.xMmax);
  s += ",\"unit_M\":" + Json_String(r.unit_M);
  s += ",\"NB\":" + std::to_string(r.NB);
  // the mode node by node: v, theta, v', theta' at the shear centre
  s += ",\"mode\":[";
  const int nn = r.mode.size() > 1 ? (int)(r.mode.size() - 1) / 4 : 0;
  for (int i = 1; i <= nn; ++i) {
    if (i > 1) s += ",";
    s += "[";
    for (int k = 0; k < 4; ++k) {
      if (k) s += ",";
      s += Json_Number(r.mode[4 * i - 3 + k], 7);
    }
    s += "]";
  }
  s += "]}";
  std::printf("%s\n", s.c_str());
}

void Print_Text(const Solve_Report& r) {
  std::printf("mucr   %s\n", Plain_Number(r.mucr).c_str());
  std::printf("Mcr    %s %s\n", Plain_Number(r.Mcr).c_str(), r.unit_M.c_str());
  std::printf("Mmax   %s %s\n", Plain_Number(r.Mmax).c_str(), r.unit_M.c_str());
  std::printf("x/L    %.3f\n", r.xMmax);
  std::printf("%s\n", Out(r.message).c_str());
}

// Fails with `code`: the text on standard error, and as a JSON object too
// when one was asked for.
int Fail(int code, const Solve_Report& r, bool json, const std::string& text) {
  if (json) Print_Json(r, text);
  std::fprintf(stderr, "zarvek-cli: %s\n", Out(text).c_str());
  return code;
}

// ---- stop by Ctrl-C -----------------------------------------------------------

volatile std::sig_atomic_t Interrupted = 0;
extern "C" void On_Interrupt(int) { Interrupted = 1; }

void Connect_Stop(SolveControl& ctl) {
  std::signal(SIGINT, On_Interrupt);
  ctl.Show_Progress = [&ctl](int, double) {
    if (Interrupted) ctl.Stop_Requested = true;
  };
}

// ---- solve -----------------------------------------------------------------

const char* Tab_Name(int tab) {
  switch (tab) {
    case 0: return "Beam";
    case 1: return "Restraints";
    case 2: return "Loads";
    default: return "";
  }
}

int Solve_Project(const std::string& file, bool json, Scratch_Dir& scratch) {
  Solve_Report r;
  r.file = file;
  r.kind = "project";
  BeamModel m;
  Init_Default(m, Program_Dir());
  const FileReadResult fr = Read_FileDAT(m, file, Program_Dir());
  if (!fr.ok) return Fail(Exit_Invalid, r, json, fr.Error_Text);
  r.unit_M = Unit_ItemText(UnitFamily::M, m.Lst_Unit_M);

  // the checks of the Proceed button
  const ValidationResult v = IsDataOK(m);
  if (!v.ok) {
    std::string text;
    for (const auto& s : v.Shown) text += s + "\n";
    if (v.tab >= 0 || !v.field.empty()) {
      text += "tab " + std::to_string(v.tab);
      if (*Tab_Name(v.tab)) text += std::string(" (") + Tab_Name(v.tab) + ")";
      if (!v.field.empty()) text += ", field " + v.field;
      text += ": ";
    }
    text += v.Error_Text;
    return Fail(Exit_Invalid, r, json, text);
  }
  EffortsData e;
  Calculer_Efforts(m, e);
  InitProcessInfo(m);
  if (Num_Of_Text(m.Txt_Mmax[0]) == 0) return Fail(Exit_Invalid, r, json, "Mmax = 0 ! - " + Msg(3));

  if (scratch.dir.empty()) return Fail(Exit_SolverFailed, r, json, "no scratch folder for the problem file");
  const std::string problem = scratch.File("PROBLEM.ZVK");
  SolveControl ctl;
  Connect_Stop(ctl);
  ProceedResult p = Proceed(m, problem, ctl);
  r.status = p.Solve_Status;
  r.method = p.Method;
  if (p.Solve_Status != 0)
    return Fail(Exit_SolverFailed, r, json,
                "the solver failed (status " + std::to_string(p.Solve_Status) + "): " + p.Message);
  r.message = p.Message;
  r.stopped = p.Stopped;
  r.mucr = p.Solver.mucr;
  r.Mmax = p.Efforts.Efforts_Mmax / m.Fact_M;
  r.Mcr = p.Solver.mucr * p.Efforts.Efforts_Mmax / m.Fact_M;
  r.xMmax = p.Efforts.xfMmax;
  r.NB = p.Solver.NB;
  r.mode = m.Mode_Vector;
  if (json)
    Print_Json(r);
  else
    Print_Text(r);
  return Exit_Solved;
}

int Solve_ProblemFile(const std::string& file, bool json) {
  Solve_Report r;
  r.file = file;
  r.kind = "problem";
  r.unit_M = "daN.cm";
  r.method = Method_Dichotomie;
  SolveControl ctl;
  ctl.Tol = 0.0001;
  ctl.NbIter = 50;
  Connect_Stop(ctl);
  SolverResult s;
  Solve_Problem(file, Method_Dichotomie, s, ctl);
  r.status = s.Solve_Status;
  if (s.Solve_Status != 0)
    return Fail(Exit_SolverFailed, r, json,
                "the solver failed (status " + std::to_string(s.Solve_Status) + "): " + s.Error_Text);
  r.stopped = ctl.Stop_Requested;
  r.message = r.stopped ? Msg(2) : s.Error_Text;
  r.mucr = s.mucr;
  r.Mmax = s.Mmax;
  r.Mcr = s.mucr * s.Mmax;
  r.xMmax = s.xMmax;
  r.NB = s.NB;
  r.mode = s.Mode_Vector;
  if (json)
    Print_Json(r);
  else
    Print_Text(r);
  return Exit_Solved;
}

int Command_Solve(const std::string& file, bool json) {
  Scratch_Dir scratch;
  Load_English(scratch);
  Solve_Report r;
  r.file = file;
  struct stat st;
  if (::stat(file.c_str(), &st) != 0 || !S_ISREG(st.st_mode))
    return Fail(Exit_Invalid, r, json, "file not found: " + file);
  if (Has_Extension(file, ".ZVK")) return Solve_ProblemFile(file, json);
  if (Has_Extension(file, ".DAT") || Has_Extension(file, ".DFT")) return Solve_Project(file, json, scratch);
  return Fail(Exit_Invalid, r, json, "not a project (.DAT) nor a problem file (.ZVK): " + file);
}

// ---- catalogue ---------------------------------------------------------------

std::string Catalogue_File() { return Program_Dir() + "/SECTION.DB"; }

int Command_Sections() {
  const std::string db = Catalogue_File();
  std::vector<std::string> series;
  if (!Load_SectionsSeries(db, series)) {
    std::fprintf(stderr, "zarvek-cli: the section catalogue can't be read: %s\n", db.c_str());
    return Exit_Invalid;
  }
  for (const auto& name : series) {
    std::vector<SectionRecord> sections;
    if (!Load_SerieNumbers(db, name, sections)) {
      std::fprintf(stderr, "zarvek-cli: the series %s of the catalogue can't be read\n", name.c_str());
      return Exit_Invalid;
    }
    for (const auto& s : sections) std::printf("%s %s\n", name.c_str(), s.name.c_str());
  }
  return Exit_Solved;
}

int Command_Section(const std::string& fullName) {
  const std::string db = Catalogue_File();
  if (!File_Exists(db)) {
    std::fprintf(stderr, "zarvek-cli: the section catalogue can't be read: %s\n", db.c_str());
    return Exit_Invalid;
  }
  std::string series, number;
  Split_ProfileName(Trim(fullName), series, number);
  SectionRecord rec;
  if (!Find_Section(db, series + " " + number, rec)) {
    std::fprintf(stderr, "zarvek-cli: no section \"%s\" in the catalogue\n", fullName.c_str());
    return Exit_Invalid;
  }
  SectionI r = Calculer_SectionI(rec);
  std::printf("%s %s\n%s", series.c_str(), rec.name.c_str(), Show_SectionProperties(r).c_str());
  return Exit_Solved;
}

}  // namespace

namespace zarvek {
int Command_Draw(const std::vector<std::string>& args);  // cli_draw.cpp
}

int main(int argc, char** argv) {
  Keep_Freed_Memory();
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) {
    std::fputs(Usage_Text, stderr);
    return Exit_Usage;
  }
  const std::string& cmd = args[0];
  if (cmd == "--help" || cmd == "-h" || cmd == "help") {
    std::fputs(Usage_Text, stdout);
    return Exit_Solved;
  }
  if (cmd == "solve") {
    bool json = false;
    std::string file;
    for (size_t i = 1; i < args.size(); ++i) {
      if (args[i] == "--json")
        json = true;
      else if (file.empty())
        file = args[i];
      else
        file = "\n";  // two files: refused below
    }
    if (file.empty() || file == "\n") {
      std::fputs(Usage_Text, stderr);
      return Exit_Usage;
    }
    return Command_Solve(file, json);
  }
  if (cmd == "draw") return zarvek::Command_Draw(args);
  if (cmd == "sections" && args.size() == 1) return Command_Sections();
  if (cmd == "section" && args.size() >= 2) {
    std::string name = args[1];
    for (size_t i = 2; i < args.size(); ++i) name += " " + args[i];
    return Command_Section(name);
  }
  std::fputs(Usage_Text, stderr);
  return Exit_Usage;
}
