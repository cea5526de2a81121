// Proceed and Stop from the main window.
#include "model/qt/Frm_Zarvek.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include "analysis/DirectSolve.h"
#include "analysis/qt/Frm_Sweep.h"
#include "directdata/DirectData.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Translate_Form.h"
#include "model/Axial.h"
#include "model/DataEntry.h"
#include "model/ProjectFile.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/qt/Stop_Button.h"
#include "model/qt/Zarvek_Widgets.h"
#include "design/DesignModel.h"
#include "design/qt/Design_Frame.h"
#include "foundation/qt/Translate_Form.h"
#include "model/qt/Frm_Zarvek_Common.h"

namespace zarvek {

using namespace frm_zarvek;

// ============================================================== solve

std::string Frm_Zarvek::Problem_Path() const {
  return externalMode_ ? File_External : s_.File_Problem;
}

void Frm_Zarvek::Show_Status(const std::string& text) {
  m_.Lbl_Comment = text;
  if (auto* l = qobject_cast<QLabel*>(Field_Widget("Lbl_Comment"))) l->setText(Lang(text));
  QCoreApplication::processEvents();
}

void Frm_Zarvek::Show_Progress(int iteration, double value) {
  m_.Lbl_Iteration = std::to_string(iteration);
  m_.Lbl_CurrentValue = Trim(Progress_Text(value));
  // Serving the window costs a relayout and a repaint; a short solve would
  // spend most of its time there. The labels move and the stop button is
  // heard at least every Progress_Interval_ms.
  if (progressClock_.isValid() && progressClock_.elapsed() < Progress_Interval_ms) return;
  progressClock_.start();
  static_cast<QLabel*>(Field_Widget("Lbl_Iteration"))->setText(Lang(m_.Lbl_Iteration));
  static_cast<QLabel*>(Field_Widget("Lbl_CurrentValue"))->setText(Lang(m_.Lbl_CurrentValue));
  // the one place where events are served during a solve: the stop button acts here
  QCoreApplication::processEvents();
}

void Frm_Zarvek::Show_EigenBox(const std::string& text) {
  const bool was = solving_;
  solving_ = false;  // the box needs its own clicks
  if (text.empty()) QCoreApplication::processEvents();
  else QMessageBox::warning(this, Program_Name(), Lang(text));
  solving_ = was;
}

void Frm_Zarvek::Cmd_StopProcess_Click() {
  if (solving_) ctl_.Stop_Requested = true;
}

void Frm_Zarvek::Cmd_Proceed_Click() {
  if (solving_) return;
  if (!externalMode_) {
    if (!Check_Data()) return;
    InitProcessInfo(m_);
    // the internal forces of the loads as they stand
    Calculer_Efforts(m_, efforts_);
    Refresh_FromModel();
    Erase(Img_Eigenmode);
    if (Num_Of_Text(m_.Txt_Mmax[0]) == 0 && N_Of(m_) == 0 && !m_.RefreshLocked) {
      Show_Message("Mmax = 0 ! - " + Msg(3));
      return;
    }
  } else {
    // file-data mode: a file of the user's, never a stray "Untitled"
    if (!Is_UserProblemFile(File_External)) {
      Show_Message(Text_NoProblemFile());
      return;
    }
    // the results and diagrams of the last file don't stand while this one
    // is solved
    InitProcessInfo(m_);
    InitEffortsInfo(m_);
    Refresh_FromModel();
    Erase(Img_Eigenmode);
    Erase(Img_Forces);
  }
  QElapsedTimer clock;
  clock.start();
  ctl_.Stop_Requested = false;
  noForces_ = false;

  solving_ = true;
  progressClock_.invalidate();
  Cmd_StopProcess->setEnabled(true);
  Cmd_StopProcess->setFocus();
  Cmd_Proceed->setEnabled(false);
  lastRun_ = Proceed(m_, Problem_Path(), ctl_, externalMode_);
  solving_ = false;
  Cmd_StopProcess->setEnabled(false);
  Cmd_Proceed->setEnabled(true);
  if (!externalMode_ || lastRun_.Solve_Status == 0) efforts_ = lastRun_.Efforts;
  reportStale_ = true;

  if (lastRun_.Solve_Status != 0) {
    if (externalMode_) noForces_ = true;
    Refresh_FromModel();
    if (externalMode_) {
      // the user's file is at fault: which file, and what the solver found
      QMessageBox::warning(this, QString("%1 (%2)").arg(lastRun_.Solve_Status).arg(Program_Name()),
                           QString::fromLocal8Bit(File_External.c_str()) + "\n" + Lang(lastRun_.Message) +
                               QString(" (%1)").arg(lastRun_.Solve_Status));
    } else {
      Show_Message(lastRun_.Message, lastRun_.Solve_Status);
    }
    Update_Commands();
    return;
  }
  // the text of the run stands in the comment line
  m_.Lbl_Comment = lastRun_.Message;
  if (!externalMode_) {
    // the design check, with its two further solves when C1 is needed
    const bool usable = !lastRun_.Stopped && lastRun_.Solver.Converged;
    const double Mcr = usable ? lastRun_.Solver.mucr * std::fabs((double)efforts_.Efforts_Mmax) : 0;
    designFrame_->Show(Run_Design(m_, efforts_, Mcr, ctl_), m_);
  }
  Refresh_FromModel();
  // the mesh of the problem file, not the element count of the main window
  if (externalMode_) st_.NB = lastRun_.Solver.NB;
  Tracer_VecteurPropre();
  if (externalMode_) Tracer_Efforts();
  Update_Commands();

  const double seconds = clock.elapsed() / 1000.0;
  Beep();
  std::string text = lastRun_.Message;
  if (!text.empty()) text += "\n";
  text += Msg(4) + " (" + Format_Pattern(seconds, "0.00") + " s)";
  Show_Message(text);
}

}  // namespace zarvek
