// The diagrams of the main window: section, loads, forces and mode.
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

// ============================================================== drawings

void Frm_Zarvek::Erase(SurfaceWidget* w) {
  w->surface().Cls();
  if (w == Img_Forces) Lbl_Display_InfoMV->hide();
  if (w == Img_Eigenmode) Lbl_Display_InfoEigen->hide();
}

void Frm_Zarvek::Take_CurveColours() {
  // the check boxes carry the colours of their curves
  auto colour = [this](const char* n) {
    return From_QColor(static_cast<QWidget*>(Field_Widget(n))->palette().color(QPalette::WindowText));
  };
  st_.Color_EffM = colour("Chk_EffM");
  st_.Color_EffV = colour("Chk_EffV");
  st_.Color_v = colour("Chk_v");
  st_.Color_t = colour("Chk_t");
  st_.Color_vp = colour("Chk_vp");
  st_.Color_tp = colour("Chk_tp");
  st_.ExternalMode = externalMode_;
  st_.No_Forces = noForces_;
}

void Frm_Zarvek::Draw_Section() { zarvek::Draw_Section(Img_Section->surface(), m_); }

void Frm_Zarvek::Tracer_Loads() { zarvek::Tracer_Loads(Img_Loads->surface(), m_); }

void Frm_Zarvek::Tracer_Efforts() {
  if (noForces_) return;
  Take_CurveColours();
  Lbl_Display_InfoMV->hide();
  zarvek::Tracer_Efforts(Img_Forces->surface(), m_, efforts_, st_);
  if (!externalMode_) {
    // the drawing took the forces of the loads as they stand
    const bool was = m_.RefreshLocked;
    m_.RefreshLocked = true;
    for (const char* n : {"Txt_Mmax(0)", "Txt_Mmax(1)", "Lbl_xfMmax(0)", "Lbl_xfMmax(1)"})
      Push_Field(bindings_[byName_[n]]);
    m_.RefreshLocked = was;
  }
}

void Frm_Zarvek::Tracer_VecteurPropre() {
  Take_CurveColours();
  Lbl_Display_InfoEigen->hide();
  zarvek::Tracer_VecteurPropre(Img_Eigenmode->surface(), m_, st_);
}

void Frm_Zarvek::Forces_MouseMove(double x, double y) {
  Take_CurveColours();
  Surface& sf = Img_Forces->surface();
  ReadOut r = Forces_ReadOut(sf, m_, efforts_, st_, x, y, -1, -1);
  if (!r.hit) {
    Lbl_Display_InfoMV->hide();
    return;
  }
  Lbl_Display_InfoMV->setText(QString::fromStdString(r.caption));
  Lbl_Display_InfoMV->adjustSize();
  const double tpp = Img_Forces->imageSurface().TwipsPerPixelX();
  Place_ForcesLabel(r, Lbl_Display_InfoMV->width() * tpp / sf.TwipsPerUnitX(),
                    Lbl_Display_InfoMV->height() * tpp / std::fabs(sf.TwipsPerUnitY()),
                    sf.ScaleWidth(), sf.ScaleHeight());
  Lbl_Display_InfoMV->move(int(sf.ToTwipsX(r.Left) / tpp), int(sf.ToTwipsY(r.Top) / tpp));
  Lbl_Display_InfoMV->show();
}

void Frm_Zarvek::Eigen_MouseMove(double x, double y) {
  Surface& sf = Img_Eigenmode->surface();
  ReadOut r = Eigen_ReadOut(sf, st_, x, y);
  if (!r.hit) {
    Lbl_Display_InfoEigen->hide();
    return;
  }
  const double tpp = Img_Eigenmode->imageSurface().TwipsPerPixelX();
  Lbl_Display_InfoEigen->setText(QString::fromStdString(r.caption));
  Lbl_Display_InfoEigen->adjustSize();
  Lbl_Display_InfoEigen->move(int(sf.ToTwipsX(r.Left) / tpp), int(sf.ToTwipsY(r.Top) / tpp));
  Lbl_Display_InfoEigen->show();
}

void Frm_Zarvek::Redraw_Diagrams() {
  switch (Tab_Zarvek->currentIndex()) {
    case 0: Draw_Section(); break;
    case 2: Tracer_Efforts(); Tracer_Loads(); break;
    case 3: Tracer_Efforts(); Tracer_VecteurPropre(); break;
    default: break;
  }
}

void Frm_Zarvek::Cmd_RefreshMV_Click() {
  if (!externalMode_) {
    // the forces of the loads as they stand, for the test of a beam without moment
    Calculer_Efforts(m_, efforts_);
    Refresh_FromModel();
  }
  Take_CurveColours();
  const std::string refusal = zarvek::Cmd_RefreshMV(Img_Forces->surface(), m_, efforts_, st_);
  if (!refusal.empty()) {
    Show_Message(refusal);
    return;
  }
  Refresh_FromModel();
}

void Frm_Zarvek::Forces_Check_Click() {
  if (m_.RefreshLocked) return;
  if (Check_Data()) Cmd_RefreshMV_Click();
}

}  // namespace zarvek
