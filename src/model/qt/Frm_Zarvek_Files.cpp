// The file commands of the main window: open, save, save as, save as default.
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

// ============================================================== file commands

namespace {
// The name with the extension behind it, unless it has it already.
std::string With_Extension(const QString& name, const char* ext) {
  std::string n = name.toLocal8Bit().toStdString();
  if (!Has_Extension(n, ext)) n += ext;
  return n;
}
}  // namespace

bool Frm_Zarvek::Open_Project(const std::string& name) {
  Set_FileCurrent(name);
  FileReadResult r = Read_FileDAT(m_, name, s_.Dir_Data);
  Refresh_FromModel();
  Erase(Img_Eigenmode);
  if (!r.ok) {
    // a damaged project: the window keeps what was read before the fault
    if (!r.Error_Text.empty()) Warning_Box(Lang(r.Error_Text), Program_Name());
    return false;
  }
  {
    // the page the project was saved on, its drawings made below
    const bool was = m_.RefreshLocked;
    m_.RefreshLocked = true;
    Tab_Zarvek->setCurrentIndex(std::clamp(m_.Tab_Zarvek, 0, 3));
    m_.RefreshLocked = was;
  }
  if (!r.Dialog_Dir.empty()) dialogDir_ = QString::fromLocal8Bit(r.Dialog_Dir.c_str());
  s_.Dir_Data = dialogDir_.toLocal8Bit().toStdString();
  lastName_ = QString::fromLocal8Bit(name.c_str());
  reportStale_ = true;
  Draw_Section();
  Calculer_Efforts(m_, efforts_);
  Refresh_FromModel();
  Tracer_Efforts();
  Tracer_Loads();
  Tracer_VecteurPropre();
  Update_Commands();
  return true;
}

void Frm_Zarvek::Menu_File_Open() {
  const QString chosen = Choose_File(1, externalMode_ ? ".ZVK" : ".DAT", QString());
  if (chosen.isEmpty()) return;
  if (externalMode_) {
    File_External = With_Extension(chosen, ".ZVK");
    Menu_Edit_FileData->setEnabled(true);
    Set_FileCurrent(File_External);
    InitProcessInfo(m_);
    InitEffortsInfo(m_);
    Refresh_FromModel();
    if (Hooks.DirectData) Hooks.DirectData();
    return;
  }
  Open_Project(With_Extension(chosen, ".DAT"));
}

void Frm_Zarvek::Menu_File_Save() {
  if (!Check_Data()) return;
  if (fileCurrent_.find(".DAT") != std::string::npos ||
      (fileCurrent_.size() > 4 && Has_Extension(fileCurrent_, ".DAT"))) {
    if (!Save_FileDAT(m_, fileCurrent_)) Show_Message(Msg(17) + " " + fileCurrent_);
  } else {
    Menu_File_SaveAs();
  }
}

void Frm_Zarvek::Menu_File_SaveAs() {
  if (!Check_Data()) return;
  const QString chosen = Choose_File(2, ".DAT", lastName_);
  if (chosen.isEmpty()) return;
  const std::string name = With_Extension(chosen, ".DAT");
  Set_FileCurrent(name);
  lastName_ = QString::fromLocal8Bit(name.c_str());
  if (!Save_FileDAT(m_, name)) Show_Message(Msg(17) + " " + name);
  dialogDir_ = QString::fromStdString(Path_Of(name));
  s_.Dir_Data = Path_Of(name);
}

void Frm_Zarvek::Menu_File_SaveAsDefault() {
  if (!Check_Data()) return;
  if (!Confirm_Box(Lang(Msg(63)))) return;
  if (!Save_FileDAT(m_, s_.File_Default)) Show_Message(Msg(17) + " " + s_.File_Default);
}

}  // namespace zarvek
