// Zarvek: the interactive program, and with the name of a problem file
// (".ZVK") on the command line a silent batch solver.
//
//   Zarvek                   the main window
//   Zarvek BEAM.ZVK          the batch route: solve, leave the result, end
//   Zarvek --open BEAM.ZVK   the main window in its file-data mode on that
//                            problem (what a file manager runs for a .zvk)
//
// The start directory is the current directory when it holds the program's
// data (a build's bin folder), else the user's folder ~/.local/share/zarvek,
// whose missing data files are read from ../share/zarvek beside the
// executable's folder (see StartPlace in foundation/Startup.h).
//
// Without a display the program runs on the offscreen platform; the batch run
// then also prints its four result lines on standard output, and start-up
// failures go to standard error instead of a box.
//
// Exit codes:
//   0  done; on the batch route the result file tells how the solve went
//   1  start-up failure (.INI file, language file, default file, no user folder): the message was shown
//   2  batch route: the result file could not be written
//   3  another instance runs in this start directory (nothing is shown)
#include <QApplication>
#include <QDateTime>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "app/qt/Install_Windows.h"
#include "app/qt/Open_Problem.h"
#include "analysis/qt/Frm_DirectSolve.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Startup.h"
#include "foundation/qt/Qt_Translations.h"
#include "model/qt/Frm_Zarvek.h"
#include "tools/qt/Frm_Legal.h"
#include "tools/qt/SplashScreen.h"

namespace {

using namespace zarvek;

enum Exit_Code { Exit_Done = 0, Exit_StartFailure = 1, Exit_ResultNotWritten = 2, Exit_OtherInstance = 3 };

bool Has_Env(const char* name) {
  const char* v = std::getenv(name);
  return v && *v;
}

std::string Current_Directory() {
  std::string dir(4096, '\0');
  while (::getcwd(dir.data(), dir.size()) == nullptr) {
    if (errno != ERANGE) return ".";
    dir.resize(dir.size() * 2);
  }
  dir.resize(std::char_traits<char>::length(dir.c_str()));
  return dir;
}

std::string Env(const char* name) {
  const char* v = std::getenv(name);
  return v ? v : "";
}

// The folder of the executable itself, wherever it was started from.
std::string Executable_Directory() {
  std::string buf(4096, '\0');
  const ssize_t n = ::readlink("/proc/self/exe", buf.data(), buf.size() - 1);
  if (n <= 0) return Current_Directory();
  buf.resize(n);
  const auto p = buf.rfind('/');
  return p == std::string::npos || p == 0 ? "/" : buf.substr(0, p);
}

// `--open FILE`: the name, made absolute; "" without the option.
std::string Option_Open(int argc, char** argv, const std::string& cwd) {
  if (argc != 3 || std::string(argv[1]) != "--open") return std::string();
  const std::string file = argv[2];
  return file.empty() || file[0] == '/' ? file : cwd + "/" + file;
}

// A failure at start: a critical box titled with the program's name, or the
// standard error stream when nobody can see a box.
void Show_StartFailure(const std::string& text, bool headless) {
  if (headless) {
    std::fprintf(stderr, "%s\n", text.c_str());
    return;
  }
  QMessageBox::critical(nullptr, Program_Name(), QString::fromLocal8Bit(text.c_str()));
}

int Run_DirectSolve(const StartupState& s, bool headless) {
  int code = Exit_Done;
  {
    Frm_DirectSolve form;
    const DirectSolveOutcome out = form.Form_Load(s);
    if (!out.Written) code = Exit_ResultNotWritten;
    if (headless) {
      for (const auto& line : out.Lines) std::printf("%s\n", Cp1252_To_Utf8(line).c_str());
      std::fflush(stdout);
    }
    form.close();
  }
  QCoreApplication::processEvents();
  return code;
}

// The interactive program: the splash for two seconds while the main window
// loads, the legal warning (Cancel ends), then the main window until it closes.
int Run_Interactive(QApplication& app, StartupState& s, bool headless, const std::string& openFile) {
  Set_InteractivePaths(s);
  if (headless) {
    std::printf("%s: no display for the interactive window; to solve a problem file: %s BEAM.ZVK\n",
                Program_Name(), Program_Name());
    std::fflush(stdout);
    return Exit_Done;
  }
  SplashScreen splash;
  splash.Form_Load();
  splash.show();
  const qint64 shown = QDateTime::currentMSecsSinceEpoch();
  QCoreApplication::processEvents();

  s.Is_MainLoading = true;
  Frm_Zarvek form(s);
  Install_Windows(form);
  if (!form.Form_Load()) return Exit_StartFailure;  // the default file can't be read
  Pause_Splash(splash, 2, shown);
  if (!Show_LegalWarning(nullptr, splash.Lbl_Disclaimer->text())) return Exit_Done;
  s.Is_MainLoading = false;
  form.show();
  if (!openFile.empty()) {
    // once the window is up, as if the user had chosen the mode and the file
    QTimer::singleShot(0, &form, [&form, openFile] { Open_InFileDataMode(form, openFile); });
  }
  return app.exec();
}

}  // namespace

int main(int argc, char** argv) {
  Keep_Freed_Memory();
  const std::string cwd = Current_Directory();
  // The command line as the user gave it, before the toolkit takes its options;
  // `--open FILE` is not a batch run, whatever FILE is called.
  const std::string openFile = Option_Open(argc, argv, cwd);
  const bool openOption = argc >= 2 && std::string(argv[1]) == "--open";
  const std::string commandLine = openOption ? std::string() : Command_Line_Text(argc, argv);
  const StartPlace place = Choose_StartPlace(cwd, Executable_Directory(), Env("XDG_DATA_HOME"), Env("HOME"));
  const std::string& startDir = place.Start_Dir;

  // 1. One instance per start directory; a second one leaves without a word.
  if (place.Error.empty() && !Acquire_SingleInstance(startDir)) return Exit_OtherInstance;

  bool headless = !Has_Env("DISPLAY") && !Has_Env("WAYLAND_DISPLAY");
  if (headless && !Has_Env("QT_QPA_PLATFORM")) ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  if (!Has_Env("XDG_RUNTIME_DIR")) {
    // a session without a runtime folder (a batch job, a service): give the
    // toolkit a private one rather than a warning on every run
    const std::string dir = "/tmp/runtime-" + std::to_string(::getuid());
    ::mkdir(dir.c_str(), 0700);
    ::setenv("XDG_RUNTIME_DIR", dir.c_str(), 1);
  }
  QApplication app(argc, argv);
  const QString platform = QGuiApplication::platformName();
  // A box on a platform without a screen would wait for ever.
  if (platform == "offscreen" || platform == "minimal") headless = true;
  app.setFont(QFont("Liberation Sans", 9));

  // 2.-8. Command line, decimal separator, file names, .INI file, language.
  StartupState s;
  std::string error = place.Error;
  if (!place.Share_Dir.empty()) s.Share_Path = place.Share_Dir + "/";
  if (!error.empty() || !Start_Up(startDir, commandLine, s, error)) {
    Show_StartFailure(error, headless);
    return Exit_StartFailure;
  }
  // the toolkit's own buttons and dialogs in the same language
  Load_QtTranslations(s.Language_Code);

  // 9. The batch route: solve, leave the result, end.
  if (s.Direct_Mode) return Run_DirectSolve(s, headless);

  // The file dialogs start where the user stands, not in the program's folder.
  s.Dir_Data = place.Dialog_Dir;
  return Run_Interactive(app, s, headless, openFile);
}
