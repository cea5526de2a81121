// zarvek-cli draw: one diagram of a project or a problem file as a PNG
// picture (the screen's picture at 96 dpi, or --scale times larger) or as an
// SVG document.
//
// The project is read, checked and solved as `zarvek-cli solve` does it, so
// the exit codes are the same: 0 drawn, 1 wrong command line, 2 invalid input
// (or a picture that can't be written), 3 the solver failed.
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "cli_common.h"
#include "cli_draw3d.h"
#include "analysis/Calculer_Efforts.h"
#include "analysis/Proceed.h"
#include "diagrams/Diagrams.h"
#include "diagrams/SvgWriter.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/BeamModel.h"
#include "model/DataEntry.h"
#include "model/ProjectFile.h"
#include "model/Validation.h"
#include "solver/Mod_StabMat.h"

namespace zarvek {

namespace {

enum { Draw_Done = 0, Draw_Usage = 1, Draw_Invalid = 2, Draw_SolverFailed = 3 };

const char* Draw_Usage_Line =
    "usage: zarvek-cli draw FILE --what loads|section|forces|mode|3d -o OUT.png|OUT.svg [--scale K]\n";

void Load_Texts(cli::Scratch_Dir& scratch) {
  const std::string file = cli::Data_Dir() + "/ZARVEK_UK.MSG";
  if (File_Exists(file) && !scratch.dir.empty() && Load_LanguageFile(file, scratch.dir + "/LANGUAGE.TMP"))
    Load_Messages();
  // what the pictures and the refusals print, when no language is found
  static const struct {
    int n;
    const char* text;
  } texts[] = {
      {3, "The beam carries no bending moment: switch on end moments or loads with non-zero values, then try "
          "again."},
      {14, "No buckling mode yet: press Proceed to compute it."},
      {67, "Section given by its properties: no drawing"},
  };
  for (const auto& t : texts)
    if (Msg(t.n).empty()) Set_Msg(t.n, t.text);
}

int Fail(int code, const std::string& text) {
  std::fprintf(stderr, "zarvek-cli: %s\n", text.c_str());
  return code;
}

struct Picture {
  double w = 0, h = 0;  // twips
};

Picture Design_Size(const std::string& what) {
  if (what == "loads") return {Loads_Width, Loads_Height};
  if (what == "section") return {Section_Width, Section_Height};
  if (what == "forces") return {Forces_Width, Forces_Height};
  return {Eigenmode_Width, Eigenmode_Height};
}

void Draw_On(Surface& s, const std::string& what, BeamModel& m, EffortsData& e, DiagramState& st) {
  s.BackColor(Diagram_Back);
  if (what == "loads")
    Tracer_Loads(s, m);
  else if (what == "section")
    Draw_Section(s, m);
  else if (what == "forces")
    Tracer_Efforts(s, m, e, st);
  else
    Tracer_VecteurPropre(s, m, st);
}

int Write_Picture(const std::string& out, const std::string& what, double scale, BeamModel& m, EffortsData& e,
                  DiagramState& st) {
  const Picture p = Design_Size(what);
  if (Has_Extension(out, ".svg")) {
    SvgWriter svg(p.w, p.h, scale);
    Draw_On(svg, what, m, e, st);
    if (!Write_File_Atomic(out, svg.Document())) return Fail(Draw_Invalid, "can't write " + out);
    return Draw_Done;
  }
  // PNG: fonts need a GUI application; no display is needed
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // the platform's notes (no runtime folder ...) are no business of a script
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& msg) {
    if (type == QtFatalMsg) std::fprintf(stderr, "zarvek-cli: %s\n", qPrintable(msg));
  });
  int argc = 1;
  char name[] = "zarvek-cli";
  char* argv[] = {name, nullptr};
  QGuiApplication app(argc, argv);
  QImage image;
  if (scale == 1) {
    // the screen's own picture, pixel for pixel
    QtImageSurface s(p.w, p.h, 15, 1);
    Draw_On(s, what, m, e, st);
    image = s.Image().copy();
  } else {
    image = QImage((int)std::lround(p.w / 15 * scale), (int)std::lround(p.h / 15 * scale), QImage::Format_RGB32);
    image.fill(To_QColor(Diagram_Back));
    QPainter painter(&image);
    QtPainterSurface s(painter, p.w, p.h, scale / 15, true);
    Draw_On(s, what, m, e, st);
  }
  // beside the target, then renamed over it
  const std::string tmp = out + ".part";
  if (!image.save(QString::fromStdString(tmp), "PNG") || std::rename(tmp.c_str(), out.c_str()) != 0) {
    ::unlink(tmp.c_str());
    return Fail(Draw_Invalid, "can't write " + out);
  }
  return Draw_Done;
}

}  // namespace

int Command_Draw(const std::vector<std::string>& args) {
  // args[0] is "draw"
  std::string file, what, out;
  double scale = 1;
  for (size_t i = 1; i < args.size(); ++i) {
    const std::string& a = args[i];
    if ((a == "--what" || a == "-o" || a == "--scale") && i + 1 < args.size()) {
      const std::string& v = args[++i];
      if (a == "--what")
        what = v;
      else if (a == "-o")
        out = v;
      else if (!Is_Numeric(v) || (scale = Num_Of_Text(v)) <= 0 || scale > 20)
        what = "\n";
    } else if (file.empty() && !a.empty() && a[0] != '-') {
      file = a;
    } else {
      what = "\n";  // anything else is a wrong command line
    }
  }
  if (file.empty() || out.empty() ||
      (what != "loads" && what != "section" && what != "forces" && what != "mode" && what != "3d") ||
      (!Has_Extension(out, ".png") && !Has_Extension(out, ".svg"))) {
    std::fputs(Draw_Usage_Line, stderr);
    return Draw_Usage;
  }
  cli::Scratch_Dir scratch;
  Load_Texts(scratch);
  std::string why;
  if (!cli::Input_File_OK(file, why)) return Fail(Draw_Invalid, why);

  BeamModel m;
  Init_Default(m, cli::Program_Dir());
  EffortsData e;
  DiagramState st;

  if (Has_Extension(file, ".ZVK")) {
    if (what == "loads" || what == "section" || what == "3d")
      return Fail(Draw_Usage, "a problem file has no " + what + " picture: use --what forces or mode");
    SolveControl ctl;
    ctl.Tol = 0.0001;
    ctl.NbIter = 50;
    SolverResult s;
    Solve_Problem(file, Method_Dichotomie, s, ctl);
    if (!cli::Usable(s, false))
      return Fail(Draw_SolverFailed,
                  "the solver failed (status " + std::to_string(s.Solve_Status) + "): " + s.Error_Text);
    // the problem file stands for the entries of the main window
    st.ExternalMode = true;
    st.NB = s.NB;
    e.NB = s.NB;
    e.Efforts_M = s.Efforts_M;
    e.Efforts_V = s.Efforts_V;
    m.Mode_Vector = s.Mode_Vector;
    m.Restraint_Level = s.Restraint_Level;
    float mx = 0;
    for (size_t i = 1; i < s.Mode_Vector.size(); ++i) mx = std::max(mx, std::fabs(s.Mode_Vector[i]));
    m.Mode_Max = mx;
    return Write_Picture(out, what, scale, m, e, st);
  }
  if (!Has_Extension(file, ".DAT") && !Has_Extension(file, ".DFT"))
    return Fail(Draw_Invalid, "not a project (.DAT) nor a problem file (.ZVK): " + file);

  if (cli::Prepare_Project(file, m, e, why) != cli::Exit_Done) return Fail(Draw_Invalid, Cp1252_To_Utf8(why));
  if (scratch.dir.empty()) return Fail(Draw_SolverFailed, "no scratch folder for the problem file");
  SolveControl ctl;
  ProceedResult p = Proceed(m, scratch.dir + "/PROBLEM.ZVK", ctl);
  if (!cli::Usable(p.Solver, p.Stopped) || p.Solve_Status != 0)
    return Fail(Draw_SolverFailed, "no usable result (status " + std::to_string(p.Solve_Status) +
                                       "): " + Cp1252_To_Utf8(p.Message));
  if (what == "3d") return Cli_Draw3D(m, out, scale);
  return Write_Picture(out, what, scale, m, e, st);
}

}  // namespace zarvek
