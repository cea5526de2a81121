// zarvek-cli report: the results report of a project, without a display.
//
//   zarvek-cli report FILE.DAT -o OUT.rtf|OUT.pdf [--lang UK|FR]
//
// The project is checked and solved exactly as `solve` does it (the checks of
// the Proceed button, the method, tolerance and iteration limit of its
// options), then the report is written with the pictures of the diagrams: as
// RTF, or as PDF when the output name ends in ".pdf". The texts come from the
// language file beside the program (English by default).
//
// Exit codes, as `solve`: 0 written, 1 wrong command line, 2 invalid input
// (or an output file that can't be written), 3 the solver failed.
#include <QGuiApplication>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "cli_common.h"
#include "analysis/Calculer_Efforts.h"
#include "analysis/Proceed.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/BeamModel.h"
#include "model/DataEntry.h"
#include "model/ProjectFile.h"
#include "model/Validation.h"
#include "report/Report.h"
#include "report/qt/Report_Qt.h"
#include "solver/Mod_StabMat.h"

namespace {

using namespace zarvek;

enum Exit_Code { Exit_Written = 0, Exit_Usage = 1, Exit_Invalid = 2, Exit_SolverFailed = 3 };

const char* Report_Usage =
    "Usage:\n"
    "  zarvek-cli report FILE.DAT -o OUT.rtf|OUT.pdf [--lang UK|FR]\n"
    "\n"
    "Solves the project as `solve` does and writes its results report, with the\n"
    "pictures of the beam, the section, the internal forces and the buckling mode:\n"
    "as rich text (.rtf) or as PDF (.pdf). --lang chooses the language file\n"
    "ZARVEK_<code>.MSG beside the program (default UK).\n"
    "\n"
    "Exit codes: 0 written, 1 wrong command line, 2 invalid input or an output\n"
    "that can't be written, 3 the solver failed.\n";

int Fail(int code, const std::string& text) {
  std::fprintf(stderr, "zarvek-cli: %s\n", text.c_str());
  return code;
}

std::string Out(const std::string& cp1252) { return Cp1252_To_Utf8(cp1252); }

}  // namespace

// Entry of the `report` command; args[0] is "report".
int Cli_Report(const std::vector<std::string>& args) {
  std::string file, out, lang = "UK";
  for (size_t i = 1; i < args.size(); ++i) {
    const std::string& a = args[i];
    if ((a == "-o" || a == "--output") && i + 1 < args.size()) {
      out = args[++i];
    } else if (a == "--lang" && i + 1 < args.size()) {
      lang = Upper(Trim(args[++i]));
    } else if (a.rfind("--lang=", 0) == 0) {
      lang = Upper(Trim(a.substr(7)));
    } else if (a == "--help" || a == "-h") {
      std::fputs(Report_Usage, stdout);
      return Exit_Written;
    } else if (file.empty() && !a.empty() && a[0] != '-') {
      file = a;
    } else {
      std::fputs(Report_Usage, stderr);
      return Exit_Usage;
    }
  }
  const bool pdf = Has_Extension(out, ".pdf");
  if (file.empty() || out.empty() || !(pdf || Has_Extension(out, ".rtf")) || lang.empty() || lang.size() > 4) {
    std::fputs(Report_Usage, stderr);
    return Exit_Usage;
  }

  cli::Scratch_Dir scratch;
  if (scratch.dir.empty()) return Fail(Exit_Invalid, "no scratch folder");
  const std::string langFile = cli::Data_Dir() + "/ZARVEK_" + lang + ".MSG";
  if (!File_Exists(langFile)) return Fail(Exit_Invalid, "no language file " + langFile);
  if (!Load_LanguageFile(langFile, scratch.File("LANGUAGE.TMP")))
    return Fail(Exit_Invalid, "Error in reading " + langFile);
  Load_Messages();

  std::string why;
  if (!cli::Input_File_OK(file, why)) return Fail(Exit_Invalid, why);
  if (!Has_Extension(file, ".DAT") && !Has_Extension(file, ".DFT"))
    return Fail(Exit_Invalid, "a report is made of a project (.DAT): " + file);

  BeamModel m;
  EffortsData e;
  if (cli::Prepare_Project(file, m, e, why) != cli::Exit_Done) return Fail(Exit_Invalid, Out(why));
  SolveControl ctl;
  // the iteration counter the main window shows during a solve
  ctl.Show_Progress = [&m](int iteration, double) { m.Lbl_Iteration = std::to_string(iteration); };
  const ProceedResult p = Proceed(m, scratch.File("PROBLEM.ZVK"), ctl);
  if (!cli::Usable(p.Solver, p.Stopped) || p.Solve_Status != 0)
    return Fail(Exit_SolverFailed,
                "no usable result (status " + std::to_string(p.Solve_Status) + "): " + Out(p.Message));
  m.Lbl_Comment = p.Message;

  // pictures and PDF need fonts and painting, not a screen
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // Qt wants a private runtime folder; the scratch folder is one (mode 0700)
  if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", scratch.dir.c_str());
  int argc = 1;
  char name[] = "zarvek-cli";
  char* argv[] = {name, nullptr};
  QGuiApplication app(argc, argv);

  const Rich_Document doc = Build_Report(m, lang, Qt_ReportPictures(m));
  QString error;
  const QString target = QString::fromStdString(out);
  const bool ok = pdf ? Export_Pdf(doc, target, &error) : Save_Rtf(doc, target, &error);
  if (!ok) return Fail(Exit_Invalid, error.toStdString());
  std::printf("%s\n", out.c_str());
  return Exit_Written;
}
