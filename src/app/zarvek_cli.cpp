// zarvek-cli: the critical moment of a beam from the command line, for
// scripts. It solves a project (.DAT) the way the Proceed button does, or a
// problem file (.ZVK) the way the batch run does, and prints the result; it
// also shows the section catalogue.
//
// It writes no file of its own where it runs: the problem file of a project
// and the unscrambled language texts go to a scratch folder that is removed
// on the way out. The language file (ZARVEK_UK.MSG) and the catalogue
// (SECTION.DB) are looked for beside the program, else in ../share/zarvek.
//
// Exit codes:
//   0  solved: the printed Mcr is a converged critical moment
//   1  wrong command line
//   2  invalid input: a file that can't be read or is too large, data refused
//      by validation, no solving method, a section that is not in the
//      catalogue, a catalogue that can't be read
//   3  no usable result: the solver failed, stopped (Ctrl-C), reached its
//      iteration limit, or found no positive critical factor (its status and
//      message are printed, with the last estimate when there is one)
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "cli_common.h"
#include "cli_design.h"
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
using cli::Program_Dir;
using cli::Scratch_Dir;
using cli::Usable;

enum Exit_Code { Exit_Solved = 0, Exit_Usage = 1, Exit_Invalid = 2, Exit_SolverFailed = 3 };

const char* Usage_Text =
    "Usage:\n"
    "  zarvek-cli solve FILE [--json]   critical moment of a project (.DAT, .DFT)\n"
    "                                   or of a problem file (.ZVK); for a project\n"
    "                                   also its lateral-torsional buckling check\n"
    "  zarvek-cli check FILE [--json]   that check alone (EN 1993-1-1, 6.3.2)\n"
    "  zarvek-cli sections              list the section catalogue\n"
    "  zarvek-cli section NAME          properties of a catalogue section, e.g. \"IPE 300\"\n"
    "  zarvek-cli draw FILE --what loads|section|forces|mode|3d -o OUT.png|OUT.svg [--scale K]\n"
    "                                   one diagram of a project or problem file\n"
    "  zarvek-cli report FILE.DAT -o OUT.rtf|OUT.pdf [--lang UK|FR]   results report\n"
    "  zarvek-cli sweep FILE.DAT --field NAME --from A --to B --step S [-o OUT.csv]\n"
    "                 [--plot OUT.svg|OUT.png] [--jobs N]   Mcr over a range of one field\n"
    "  zarvek-cli --help                this text\n"
    "\n"
    "A project is checked as the main window checks it and solved with the method,\n"
    "tolerance and iteration limit of its options; results are in its units.\n"
    "A problem file is solved by the dichotomy (tolerance 0.0001, 50 iterations),\n"
    "results in daN and cm. --json prints one JSON object with the buckling mode.\n"
    "\n"
    "Exit codes: 0 solved, 1 wrong command line, 2 invalid input,\n"
    "3 no usable result (solver failure, stop, iteration limit).\n";

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
  const std::string file = cli::Data_Dir() + "/ZARVEK_UK.MSG";
  if (File_Exists(file) && !scratch.dir.empty() && Load_LanguageFile(file, scratch.File("LANGUAGE.TMP"))) {
    Load_Messages();
    Language_FromFile = true;
  }
  Builtin_Messages();
}

std::string Out(const std::string& text) { return Language_FromFile ? Cp1252_To_Utf8(text) : text; }

// ---- output ------------------------------------------------------------------

// Length of the well-formed UTF-8 sequence at s[i], 0 when there is none.
size_t Utf8_Length(const std::string& s, size_t i) {
  const auto b = [&](size_t k) { return i + k < s.size() ? (unsigned char)s[i + k] : 0u; };
  const unsigned c = b(0);
  const auto cont = [&](size_t k) { return (b(k) & 0xC0) == 0x80; };
  if (c >= 0xC2 && c <= 0xDF) return cont(1) ? 2 : 0;
  if (c >= 0xE0 && c <= 0xEF) {
    // no overlong forms, no UTF-16 surrogates
    if (c == 0xE0 && b(1) < 0xA0) return 0;
    if (c == 0xED && b(1) > 0x9F) return 0;
    return cont(1) && cont(2) ? 3 : 0;
  }
  if (c >= 0xF0 && c <= 0xF4) {
    if (c == 0xF0 && b(1) < 0x90) return 0;
    if (c == 0xF4 && b(1) > 0x8F) return 0;
    return cont(1) && cont(2) && cont(3) ? 4 : 0;
  }
  return 0;
}

// A JSON string of any bytes: text in UTF-8 passes as it is; a byte that
// doesn't belong to a well-formed sequence (a Latin-1 file name, say) is
// written as the character of the same number, so nothing is lost or refused.
std::string Json_String(const std::string& s) {
  std::string r = "\"";
  for (size_t i = 0; i < s.size(); ++i) {
    const unsigned char c = s[i];
    if (c >= 0x80) {
      const size_t n = Utf8_Length(s, i);
      if (n) {
        r.append(s, i, n);
        i += n - 1;
      } else {
        char b[8];
        std::snprintf(b, sizeof b, "\\u%04x", c);
        r += b;
      }
      continue;
    }
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

// The shortest text that reads back as the same value of its own type: a
// single-precision 1e-06 is "1e-06", not the nine digits of its double.
template <class T>
std::string Json_Number(T v) {
  if (!std::isfinite(v)) return "null";
  char b[64];
  const auto r = std::to_chars(b, b + sizeof b, v);
  return std::string(b, r.ptr);
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
  // axial force and its critical value in unit_F; Ncr_y (pi^2 E Iy / L^2)
  // stands for the in-plane buckling the model leaves out under compression
  double N = 0, Ncr = 0, Ncr_y = 0;
  std::string unit_F;
  int NB = 0;
  std::vector<float> mode;  // 1..4 NN
  std::vector<std::string> warnings;  // the solver's exclamation boxes
  bool solved = false;      // a solve ran: its figures are printed
  // the design check of a project: JSON member, text block; check_only
  // prints nothing else
  std::string design_json, design_text;
  bool check_only = false;
};

void Print_Json(const Solve_Report& r, const std::string& error = std::string()) {
  std::string s = "{";
  s += "\"file\":" + Json_String(r.file);
  if (r.check_only && error.empty()) {
    std::printf("%s,\"unit_M\":%s,%s}\n", s.c_str(), Json_String(r.unit_M).c_str(), r.design_json.c_str());
    return;
  }
  s += ",\"kind\":" + Json_String(r.kind);
  s += ",\"status\":" + std::to_string(r.status);
  if (!error.empty() && !r.solved) {
    s += ",\"error\":" + Json_String(Out(error));
    s += "}";
    std::printf("%s\n", s.c_str());
    return;
  }
  s += ",\"message\":" + Json_String(Out(r.message));
  if (!error.empty()) s += ",\"error\":" + Json_String(Out(error));
  s += ",\"warnings\":[";
  for (size_t i = 0; i < r.warnings.size(); ++i) s += (i ? "," : "") + Json_String(Out(r.warnings[i]));
  s += "]";
  s += std::string(",\"stopped\":") + (r.stopped ? "true" : "false");
  s += ",\"method\":" + std::to_string(r.method);
  s += ",\"mucr\":" + Json_Number(r.mucr);
  s += ",\"Mcr\":" + Json_Number(r.Mcr);
  // the moments are single-precision data (the solver's file and diagrams)
  s += ",\"Mmax\":" + Json_Number((float)r.Mmax);
  s += ",\"xMmax\":" + Json_Number(r.xMmax);
  s += ",\"unit_M\":" + Json_String(r.unit_M);
  s += ",\"N\":" + Json_Number(r.N);
  s += ",\"Ncr\":" + Json_Number(r.Ncr);
  s += ",\"unit_F\":" + Json_String(r.unit_F);
  s += std::string(",\"inplane_y_omitted\":") + (r.N > 0 ? "true" : "false");
  s += ",\"Ncr_y\":" + Json_Number(r.Ncr_y);
  s += ",\"NB\":" + std::to_string(r.NB);
  // the mode node by node: v, theta, v', theta' at the shear centre
  s += ",\"mode\":[";
  const int nn = r.mode.size() > 1 ? (int)(r.mode.size() - 1) / 4 : 0;
  for (int i = 1; i <= nn; ++i) {
    if (i > 1) s += ",";
    s += "[";
    for (int k = 0; k < 4; ++k) {
      if (k) s += ",";
      s += Json_Number(r.mode[4 * i - 3 + k]);
    }
    s += "]";
  }
  s += "]";
  if (!r.design_json.empty()) s += "," + r.design_json;
  s += "}";
  std::printf("%s\n", s.c_str());
}

void Print_Text(const Solve_Report& r) {
  if (r.check_only) {
    std::printf("%s", r.design_text.c_str());
    return;
  }
  std::printf("mucr   %s\n", Plain_Number(r.mucr).c_str());
  std::printf("Mcr    %s %s\n", Plain_Number(r.Mcr).c_str(), r.unit_M.c_str());
  std::printf("Mmax   %s %s\n", Plain_Number(r.Mmax).c_str(), r.unit_M.c_str());
  std::printf("x/L    %.3f\n", r.xMmax);
  if (r.N != 0) {
    std::printf("N      %s %s\n", Plain_Number(r.N).c_str(), r.unit_F.c_str());
    std::printf("Ncr    %s %s\n", Plain_Number(r.Ncr).c_str(), r.unit_F.c_str());
  }
  if (r.N > 0)
    std::printf("%s %s %s\n",
                Out(Further_Text("Axial_InPlane_Note", "In-plane buckling about the strong axis y is "
                                                       "not part of this model: pi\xB2" "EIy/L\xB2 =")).c_str(),
                Plain_Number(r.Ncr_y).c_str(), r.unit_F.c_str());
  std::printf("%s\n", Out(r.message).c_str());
  if (!r.design_text.empty()) std::printf("\n%s", r.design_text.c_str());
}

// Fails with `code`: the text on standard error, and as a JSON object too
// when one was asked for.
int Fail(int code, const Solve_Report& r, bool json, const std::string& text) {
  if (json) Print_Json(r, text);
  std::fprintf(stderr, "zarvek-cli: %s\n", Out(text).c_str());
  return code;
}

// The boxes of the vector iteration, one warning line each.
void Print_Warnings(const Solve_Report& r) {
  for (const auto& w : r.warnings) std::fprintf(stderr, "zarvek-cli: warning: %s\n", Out(w).c_str());
}

// The end of a solve: the result when it is one, else exit 3 with the
// solver's status, its message and the last estimate.
int Finish(Solve_Report& r, const SolverResult& s, bool json) {
  r.solved = true;
  r.warnings = s.Warnings;
  Print_Warnings(r);
  if (Usable(s, r.stopped)) {
    if (json)
      Print_Json(r);
    else
      Print_Text(r);
    return Exit_Solved;
  }
  std::string why;
  if (s.Solve_Status != 0)
    why = "the solver failed";
  else if (r.stopped)
    why = "the solve was stopped";
  else if (!(std::isfinite(s.mucr) && s.mucr > 0))
    why = "no critical factor was found";
  else
    why = "the solve did not converge";
  std::string text = why + " (status " + std::to_string(s.Solve_Status) + "): ";
  std::string message = r.message.empty() ? s.Error_Text : r.message;
  if (message.empty() && !s.Warnings.empty()) message = s.Warnings.front();
  r.message = message;
  text += message;
  if (std::isfinite(s.mucr) && s.mucr > 0) text += " (last estimate: mucr " + Plain_Number(s.mucr) + ")";
  return Fail(Exit_SolverFailed, r, json, text);
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

int Solve_Project(const std::string& file, bool json, Scratch_Dir& scratch, bool checkOnly = false) {
  Solve_Report r;
  r.file = file;
  r.check_only = checkOnly;
  r.kind = "project";
  BeamModel m;
  EffortsData e;
  std::string why;
  const int ready = cli::Prepare_Project(file, m, e, why);
  r.unit_M = Unit_ItemText(UnitFamily::M, m.Lst_Unit_M);
  r.unit_F = Unit_ItemText(UnitFamily::F, m.Lst_Unit_F);
  if (ready != Exit_Solved) return Fail(ready, r, json, why);

  if (scratch.dir.empty()) return Fail(Exit_SolverFailed, r, json, "no scratch folder for the problem file");
  const std::string problem = scratch.File("PROBLEM.ZVK");
  SolveControl ctl;
  Connect_Stop(ctl);
  ProceedResult p = Proceed(m, problem, ctl);
  r.status = p.Solve_Status;
  r.method = p.Method;
  r.message = p.Message;
  r.stopped = p.Stopped;
  r.mucr = p.Solver.mucr;
  r.Mmax = p.Efforts.Efforts_Mmax / m.Fact_M;
  r.Mcr = p.Solver.mucr * p.Efforts.Efforts_Mmax / m.Fact_M;
  r.xMmax = p.Efforts.xfMmax;
  r.N = p.Solver.N / m.Fact_F;
  r.Ncr = p.Solver.mucr * p.Solver.N / m.Fact_F;
  r.Ncr_y = p.Solver.Ncr_y / m.Fact_F;
  r.NB = p.Solver.NB;
  r.mode = m.Mode_Vector;
  SolverResult s = p.Solver;
  s.Solve_Status = p.Solve_Status;
  {
    // the design check, with its further solves when C1 is needed
    const double Mcr = Usable(s, r.stopped) ? p.Solver.mucr * std::fabs((double)p.Efforts.Efforts_Mmax) : 0;
    const DesignRun d = Run_Design(m, p.Efforts, Mcr, ctl);
    r.design_json = cli::Design_Json(d, m);
    r.design_text = cli::Design_Text(d, m);
  }
  return Finish(r, s, json);
}

int Solve_ProblemFile(const std::string& file, bool json) {
  Solve_Report r;
  r.file = file;
  r.kind = "problem";
  r.unit_M = "daN.cm";
  r.unit_F = "daN";
  r.method = Method_Dichotomie;
  SolveControl ctl;
  ctl.Tol = 0.0001;
  ctl.NbIter = 50;
  Connect_Stop(ctl);
  SolverResult s;
  Solve_Problem(file, Method_Dichotomie, s, ctl);
  r.status = s.Solve_Status;
  r.stopped = ctl.Stop_Requested;
  r.message = r.stopped ? Msg(2) : s.Error_Text;
  r.mucr = s.mucr;
  r.Mmax = s.Mmax;
  r.Mcr = s.mucr * s.Mmax;
  r.xMmax = s.xMmax;
  r.N = s.N;
  r.Ncr = s.mucr * s.N;
  r.Ncr_y = s.Ncr_y;
  r.NB = s.NB;
  r.mode = s.Mode_Vector;
  return Finish(r, s, json);
}

int Command_Check(const std::string& file, bool json) {
  Scratch_Dir scratch;
  Load_English(scratch);
  Solve_Report r;
  r.file = file;
  std::string why;
  if (!cli::Input_File_OK(file, why)) return Fail(Exit_Invalid, r, json, why);
  if (!Has_Extension(file, ".DAT") && !Has_Extension(file, ".DFT"))
    return Fail(Exit_Invalid, r, json, "the check needs a project (.DAT): " + file);
  return Solve_Project(file, json, scratch, true);
}

int Command_Solve(const std::string& file, bool json) {
  Scratch_Dir scratch;
  Load_English(scratch);
  Solve_Report r;
  r.file = file;
  std::string why;
  if (!cli::Input_File_OK(file, why)) return Fail(Exit_Invalid, r, json, why);
  if (Has_Extension(file, ".ZVK")) return Solve_ProblemFile(file, json);
  if (Has_Extension(file, ".DAT") || Has_Extension(file, ".DFT")) return Solve_Project(file, json, scratch);
  return Fail(Exit_Invalid, r, json, "not a project (.DAT) nor a problem file (.ZVK): " + file);
}

// ---- catalogue ---------------------------------------------------------------

std::string Catalogue_File() { return cli::Data_Dir() + "/SECTION.DB"; }

struct Catalogue_Entry {
  std::string series;
  SectionRecord rec;
  std::string Name() const { return series + " " + rec.name; }
};

// The whole catalogue, series by series. False, with the reason, when the
// file can't be read, is malformed or holds no section at all: a catalogue
// that lists nothing is a damaged installation, not an answer.
bool Read_Catalogue(std::vector<Catalogue_Entry>& all, std::string& error) {
  const std::string db = Catalogue_File();
  std::vector<std::string> series;
  if (!File_Exists(db) || !Load_SectionsSeries(db, series)) {
    error = "the section catalogue can't be read: " + db;
    return false;
  }
  for (const auto& name : series) {
    std::vector<SectionRecord> sections;
    if (!Load_SerieNumbers(db, name, sections)) {
      error = "the series " + name + " of the catalogue can't be read: " + db;
      return false;
    }
    for (const auto& rec : sections) all.push_back({name, rec});
  }
  if (all.empty()) {
    error = "the section catalogue holds no section: " + db;
    return false;
  }
  return true;
}

int Command_Sections() {
  std::vector<Catalogue_Entry> all;
  std::string error;
  if (!Read_Catalogue(all, error)) {
    std::fprintf(stderr, "zarvek-cli: %s\n", error.c_str());
    return Exit_Invalid;
  }
  for (const auto& e : all) std::printf("%s\n", e.Name().c_str());
  return Exit_Solved;
}

// A name as it is compared: upper case, without blanks ("ipe 300" and
// "IPE300" are "IPE300").
std::string Name_Key(const std::string& name) {
  std::string k;
  for (char c : Upper(name))
    if (c != ' ' && c != '\t') k += c;
  return k;
}

int Command_Section(const std::string& fullName) {
  std::vector<Catalogue_Entry> all;
  std::string error;
  if (!Read_Catalogue(all, error)) {
    std::fprintf(stderr, "zarvek-cli: %s\n", error.c_str());
    return Exit_Invalid;
  }
  const std::string key = Name_Key(fullName);
  for (const auto& e : all) {
    if (Name_Key(e.Name()) != key) continue;
    SectionI r = Calculer_SectionI(e.rec);
    std::printf("%s\n%s", e.Name().c_str(), Show_SectionProperties(r).c_str());
    return Exit_Solved;
  }
  // the nearest names: those the fewest edits away (five at most, in
  // catalogue order)
  std::vector<size_t> dist(all.size());
  for (size_t i = 0; i < all.size(); ++i) dist[i] = Edit_Distance(key, Name_Key(all[i].Name()));
  const size_t best = *std::min_element(dist.begin(), dist.end());
  std::string hint;
  int shown = 0;
  for (size_t i = 0; i < all.size() && shown < 5; ++i)
    if (dist[i] == best) hint += (shown++ ? ", " : "") + all[i].Name();
  std::fprintf(stderr, "zarvek-cli: no section \"%s\" in the catalogue; nearest: %s\n", fullName.c_str(),
               hint.c_str());
  return Exit_Invalid;
}

}  // namespace

namespace zarvek {
int Command_Draw(const std::vector<std::string>& args);  // cli_draw.cpp
int Command_Sweep(const std::vector<std::string>& args);  // cli_sweep.cpp
}
int Cli_Report(const std::vector<std::string>& args);  // cli_report.cpp

int Usage_Error(const std::string& what) {
  if (!what.empty()) std::fprintf(stderr, "zarvek-cli: %s\n", what.c_str());
  std::fputs(Usage_Text, stderr);
  return Exit_Usage;
}

int main(int argc, char** argv) {
  Keep_Freed_Memory();
  std::vector<std::string> args(argv + 1, argv + argc);
  if (args.empty()) return Usage_Error("");
  const std::string& cmd = args[0];
  if (cmd == "--help" || cmd == "-h" || cmd == "help") {
    std::fputs(Usage_Text, stdout);
    return Exit_Solved;
  }
  // An option is named when it is not one of ours: a mistyped --json must
  // not be taken for a file name.
  const auto option = [](const std::string& a) { return a.size() > 1 && a[0] == '-'; };
  if (option(cmd)) return Usage_Error("unknown option " + cmd);
  if (cmd == "solve" || cmd == "check") {
    bool json = false;
    std::vector<std::string> files;
    for (size_t i = 1; i < args.size(); ++i) {
      if (args[i] == "--json")
        json = true;
      else if (option(args[i]))
        return Usage_Error("unknown option " + args[i]);
      else
        files.push_back(args[i]);
    }
    if (files.empty()) return Usage_Error(cmd + " needs a FILE");
    if (files.size() > 1) return Usage_Error(cmd + " takes one FILE");
    return cmd == "check" ? Command_Check(files[0], json) : Command_Solve(files[0], json);
  }
  if (cmd == "draw") return zarvek::Command_Draw(args);
  if (cmd == "report") return Cli_Report(args);
  if (cmd == "sweep") return zarvek::Command_Sweep(args);
  if (cmd == "sections" || cmd == "section") {
    for (size_t i = 1; i < args.size(); ++i)
      if (option(args[i])) return Usage_Error("unknown option " + args[i]);
    if (cmd == "sections") {
      if (args.size() != 1) return Usage_Error("sections takes no argument");
      return Command_Sections();
    }
    if (args.size() < 2) return Usage_Error("section needs a NAME");
    std::string name = args[1];
    for (size_t i = 2; i < args.size(); ++i) name += " " + args[i];
    return Command_Section(name);
  }
  return Usage_Error("unknown command " + cmd);
}
