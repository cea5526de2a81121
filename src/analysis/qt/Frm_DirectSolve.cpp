#include "analysis/qt/Frm_DirectSolve.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFont>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

// Language texts are single-byte Windows-1252.
QString Lang_Text(const std::string& text) { return QString::fromStdString(Cp1252_To_Utf8(text)); }

constexpr const char* Font_Family = "Liberation Sans";

}  // namespace

Frm_DirectSolve::Frm_DirectSolve(QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint |
                          Qt::WindowStaysOnTopHint) {
  setObjectName("Frm_DirectSolve");
  setWindowTitle(Program_Name());
  setFont(QFont(Font_Family, 9));

  Lbl_Title = new QLabel(Program_Name(), this);
  QFont title(Font_Family, 16);
  title.setBold(true);
  Lbl_Title->setFont(title);
  Lbl_Title->setAlignment(Qt::AlignCenter);
  Lbl_Version = new QLabel(this);
  Lbl_Version->setAlignment(Qt::AlignCenter);
  Lbl_Description = new QLabel("Lateral torsional buckling of beams", this);
  Lbl_Description->setAlignment(Qt::AlignCenter);

  Cdr_Trad = new QGroupBox("Eigenvalue", this);
  Lbl_Trad[0] = new QLabel(QString::fromUtf8("N\u00B0 Iteration"), Cdr_Trad);
  Lbl_Trad[1] = new QLabel("Current value", Cdr_Trad);
  Lbl_Iteration = new QLabel(Cdr_Trad);
  Lbl_CurrentValue = new QLabel(Cdr_Trad);
  for (QLabel* l : {Lbl_Iteration, Lbl_CurrentValue}) {
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setMinimumWidth(fontMetrics().horizontalAdvance(QString(14, QChar('0'))));
    l->setFrameShape(QFrame::Panel);
    l->setFrameShadow(QFrame::Sunken);
  }
  auto* grid = new QGridLayout(Cdr_Trad);
  grid->addWidget(Lbl_Trad[0], 0, 0);
  grid->addWidget(Lbl_Iteration, 0, 1);
  grid->addWidget(Lbl_Trad[1], 1, 0);
  grid->addWidget(Lbl_CurrentValue, 1, 1);

  Cmd_StopProcess = new QPushButton("Stop at next iteration", this);
  connect(Cmd_StopProcess, &QPushButton::clicked, this, [this] { Cmd_StopProcess_Click(); });

  auto* box = new QVBoxLayout(this);
  box->addWidget(Lbl_Title);
  box->addWidget(Lbl_Version);
  box->addWidget(Lbl_Description);
  box->addWidget(Cdr_Trad);
  box->addWidget(Cmd_StopProcess, 0, Qt::AlignHCenter);
  box->setSizeConstraint(QLayout::SetFixedSize);

  ctl_ = Direct_SolveControl();
  ctl_.Show_Progress = [this](int iteration, double value) { Show_Progress(iteration, value); };
}

void Frm_DirectSolve::Translate_Form() {
  // This window borrows the texts of the about box and of the messages.
  setWindowTitle(Program_Name());
  Lbl_Description->setText(Lang_Text(Section_Line(Section_Of_Window("FRM_DIRECTSOLVE"), 2)));
  Lbl_Trad[0]->setText(Lang_Text(Msg(31)));
  Lbl_Trad[1]->setText(Lang_Text(Msg(9)));
  Cmd_StopProcess->setText(Lang_Text(Msg(73)));
  Cdr_Trad->setTitle(Lang_Text(Msg(13)));
}

void Frm_DirectSolve::Centre_OnScreen() {
  adjustSize();
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    QRect r = frameGeometry();
    r.moveCenter(screen->availableGeometry().center());
    move(r.topLeft());
  }
}

void Frm_DirectSolve::Show_Progress(int iteration, double value) {
  Lbl_Iteration->setText(QString::number(iteration));
  Lbl_CurrentValue->setText(QString::fromStdString(Progress_Text(value)));
  QCoreApplication::processEvents();
}

void Frm_DirectSolve::Cmd_StopProcess_Click() { ctl_.Stop_Requested = true; }

DirectSolveOutcome Frm_DirectSolve::Form_Load(const StartupState& s) {
  Translate_Form();
  Lbl_Version->setText(Lang_Text(Msg(88)) + " " + Version_Text());
  Lbl_Title->setText(Program_Name());
  Centre_OnScreen();
  show();
  // Windowless platforms have no stacking order to change.
  if (QGuiApplication::platformName() != "offscreen") raise();
  QCoreApplication::processEvents();

  DirectSolveOutcome out = Direct_Solve(s.File_Problem, s.File_Tmp, ctl_);

  if (QClipboard* clip = QGuiApplication::clipboard()) {
    clip->clear();
    clip->setText(QString::fromStdString(out.Clipboard_Text));
  }
  return out;
}

}  // namespace zarvek
