// The small window of the batch run: it shows the dichotomy's progress while
// the problem file of the command line is solved, offers a stop button, and
// leaves the result in the result file and mucr on the clipboard.
#pragma once

#include <QWidget>
#include <array>

#include "analysis/DirectSolve.h"
#include "foundation/Startup.h"

class QLabel;
class QGroupBox;
class QPushButton;

namespace zarvek {

class Frm_DirectSolve : public QWidget {
  Q_OBJECT

 public:
  explicit Frm_DirectSolve(QWidget* parent = nullptr);

  // All the work of the batch run: translate, centre, show, solve
  // File_Problem, write File_Tmp and put mucr on the clipboard.
  DirectSolveOutcome Form_Load(const StartupState& s);

  // Texts of the loaded language.
  void Translate_Form();
  // Iteration number and current value of the dichotomy; serves the window's
  // events so that the stop button can act.
  void Show_Progress(int iteration, double value);

  QLabel* Lbl_Title = nullptr;
  QLabel* Lbl_Version = nullptr;
  QLabel* Lbl_Description = nullptr;
  std::array<QLabel*, 2> Lbl_Trad{};
  QLabel* Lbl_Iteration = nullptr;
  QLabel* Lbl_CurrentValue = nullptr;
  QGroupBox* Cdr_Trad = nullptr;
  QPushButton* Cmd_StopProcess = nullptr;

 private:
  void Cmd_StopProcess_Click();
  void Centre_OnScreen();

  SolveControl ctl_;
};

}  // namespace zarvek
