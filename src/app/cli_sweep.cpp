// zarvek-cli sweep: the critical moment of a project for every value of one
// of its fields, on every core, as a table (CSV) and a curve (SVG or PNG).
//
// The project is read and checked as `zarvek-cli solve` does it; each point
// is then the project with the field typed anew. A point that is refused or
// not solved is a row with its status; the sweep goes on. Exit codes: 0 the
// table was written and at least one point solved, 1 wrong command line,
// 2 invalid input (or a file that can't be written), 3 no point solved.
#include <QGuiApplication>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "cli_common.h"
#include "analysis/Sweep.h"
#include "design/DesignModel.h"
#include "diagrams/SvgWriter.h"
#include "diagrams/SweepPlot.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Units.h"

namespace zarvek {

namespace {

const char* Sweep_Usage =
    "usage: zarvek-cli sweep FILE.DAT --field NAME --from A --to B --step S [-o OUT.csv]\n"
    "                        [--plot OUT.svg|OUT.png] [--jobs N]\n"
    "  NAME is a field of the window (Txt_L, Txt_E, Lst_vi_p1 ...), A, B and S are in\n"
    "  the project's unit of that field; the table goes to stdout without -o.\n";

int Sweep_Fail(int code, const std::string& text) {
  std::fprintf(stderr, "zarvek-cli: %s\n", text.c_str());
  if (code == cli::Exit_Usage) std::fputs(Sweep_Usage, stderr);
  return code;
}

// The language texts the refusals print (English file beside the program, or
// these few), read before any thread starts and never changed afterwards.
void Sweep_Texts(cli::Scratch_Dir& scratch) {
  const std::string file = cli::Program_Dir() + "/ZARVEK_UK.MSG";
  if (File_Exists(file) && !scratch.dir.empty() && Load_LanguageFile(file, scratch.File("LANGUAGE.TMP")))
    Load_Messages();
  static const struct {
    int n;
    const char* text;
  } texts[] = {
      {2, "Calculation stopped by the user"},
      {3, "The beam carries no bending moment"},
      {43, "This field does not hold a number"},
      {50, "Value out of limits"},
  };
  for (const auto& t : texts)
    if (Msg(t.n).empty()) Set_Msg(t.n, t.text);
}

bool Number_Arg(const std::string& a, double& v) {
  char* end = nullptr;
  v = std::strtod(a.c_str(), &end);
  return !a.empty() && end && *end == '\0' && std::isfinite(v);
}

int Write_Plot(const std::string& out, const std::vector<SweepPoint>& pts, const std::string& xl,
               const std::string& yl) {
  if (Has_Extension(out, ".svg")) {
    SvgWriter svg(SweepPlot_Width, SweepPlot_Height);
    Draw_SweepPlot(svg, pts, xl, yl);
    return Write_File_Atomic(out, svg.Document()) ? cli::Exit_Done
                                                   : Sweep_Fail(cli::Exit_Invalid, "can't write " + out);
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& msg) {
    if (type == QtFatalMsg) std::fprintf(stderr, "zarvek-cli: %s\n", qPrintable(msg));
  });
  int argc = 1;
  char name[] = "zarvek-cli";
  char* argv[] = {name, nullptr};
  QGuiApplication app(argc, argv);
  QtImageSurface s(SweepPlot_Width, SweepPlot_Height, 15, 1);
  Draw_SweepPlot(s, pts, xl, yl);
  const std::string tmp = out + ".part";
  if (!s.Image().save(QString::fromStdString(tmp), "PNG") || std::rename(tmp.c_str(), out.c_str()) != 0) {
    std::remove(tmp.c_str());
    return Sweep_Fail(cli::Exit_Invalid, "can't write " + out);
  }
  return cli::Exit_Done;
}

}  // namespace

int Command_Sweep(const std::vector<std::string>& args) {
  // args[0] is "sweep"
  std::string file, field, out, plot;
  double from = 0, to = 0, step = 0;
  bool hasFrom = false, hasTo = false, hasStep = false;
  int jobs = 0;
  for (size_t i = 1; i < args.size(); ++i) {
    const std::string& a = args[i];
    const bool valued = a == "--field" || a == "--from" || a == "--to" || a == "--step" || a == "-o" ||
                        a == "--plot" || a == "--jobs";
    if (valued && i + 1 < args.size()) {
      const std::string& v = args[++i];
      double x = 0;
      if (a == "--field") field = v;
      else if (a == "-o") out = v;
      else if (a == "--plot") plot = v;
      else if (!Number_Arg(v, x)) return Sweep_Fail(cli::Exit_Usage, a + " needs a number, not " + v);
      else if (a == "--from") from = x, hasFrom = true;
      else if (a == "--to") to = x, hasTo = true;
      else if (a == "--step") step = x, hasStep = true;
      else if (x < 1 || x > 256 || x != (int)x) return Sweep_Fail(cli::Exit_Usage, "--jobs takes 1 to 256");
      else jobs = (int)x;
    } else if (file.empty() && !a.empty() && a[0] != '-') {
      file = a;
    } else {
      return Sweep_Fail(cli::Exit_Usage, "unexpected " + a);
    }
  }
  if (file.empty() || field.empty() || !hasFrom || !hasTo || !hasStep)
    return Sweep_Fail(cli::Exit_Usage, "sweep needs FILE, --field, --from, --to and --step");
  if (!plot.empty() && !Has_Extension(plot, ".svg") && !Has_Extension(plot, ".png"))
    return Sweep_Fail(cli::Exit_Usage, "--plot writes .svg or .png");
  std::string why;
  if (!Sweep_Field_OK(field, why)) return Sweep_Fail(cli::Exit_Usage, why);
  std::vector<double> values;
  if (!Sweep_Values(from, to, step, values, why)) return Sweep_Fail(cli::Exit_Usage, why);

  cli::Scratch_Dir scratch;
  Sweep_Texts(scratch);
  if (!cli::Input_File_OK(file, why)) return Sweep_Fail(cli::Exit_Invalid, why);
  if (!Has_Extension(file, ".DAT") && !Has_Extension(file, ".DFT"))
    return Sweep_Fail(cli::Exit_Invalid, "a sweep needs a project (.DAT, .DFT): " + file);
  BeamModel m;
  EffortsData e;
  if (cli::Prepare_Project(file, m, e, why) != cli::Exit_Done)
    return Sweep_Fail(cli::Exit_Invalid, Cp1252_To_Utf8(why));

  Sweep_Options opt;
  opt.jobs = jobs;
  opt.Design_Check = [](const BeamModel& solved, const ModelSolve& r) {
    return Design_MbRd(solved, r.run.Efforts, r.mucr);
  };
  const std::vector<SweepPoint> pts = Run_Sweep(m, field, values, opt);
  const std::string unitF = Cp1252_To_Utf8(Field_Unit(m, field));
  const std::string unitM = Cp1252_To_Utf8(Unit_ItemText(UnitFamily::M, m.Lst_Unit_M));
  const std::string csv = Sweep_Csv(pts, field, unitF, unitM);
  if (out.empty())
    std::fputs(csv.c_str(), stdout);
  else if (!Write_File_Atomic(out, csv))
    return Sweep_Fail(cli::Exit_Invalid, "can't write " + out);
  if (!plot.empty()) {
    const auto label = [](const std::string& name, const std::string& unit) {
      return unit.empty() ? name : name + " (" + unit + ")";
    };
    const int r = Write_Plot(plot, pts, label(field, unitF), label("Mcr", unitM));
    if (r != cli::Exit_Done) return r;
  }
  size_t solved = 0;
  for (const SweepPoint& p : pts) solved += p.ok();
  if (solved < pts.size())
    std::fprintf(stderr, "zarvek-cli: %zu of %zu points not solved (see their status)\n", pts.size() - solved,
                 pts.size());
  return solved ? cli::Exit_Done : cli::Exit_SolverFailed;
}

}  // namespace zarvek
