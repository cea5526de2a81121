// The main window bound to the beam model: the fields in, the record out, the reactions to a change.
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

// ============================================================== record <-> widgets

void Frm_Zarvek::Push_Field(const Binding& b) {
  const FieldDef& f = *b.def;
  switch (f.kind) {
    case FieldKind::Text:
    case FieldKind::Display: {
      const QString t = Lang(*Text_Member(m_, f));
      if (auto* e = qobject_cast<QLineEdit*>(b.widget)) {
        if (e->text() != t) e->setText(t);
        if (f.kind == FieldKind::Text) e->setCursorPosition(e->hasFocus() ? e->cursorPosition() : 0);
      } else if (auto* l = qobject_cast<QLabel*>(b.widget)) {
        if (l->text() != t) l->setText(t);
      }
      break;
    }
    case FieldKind::Choice:
      static_cast<QComboBox*>(b.widget)->setCurrentIndex(*Choice_Member(m_, f));
      break;
    case FieldKind::Check:
    case FieldKind::Option: {
      auto* btn = static_cast<QAbstractButton*>(b.widget);
      if (btn->isChecked() != *Flag_Member(m_, f)) btn->setChecked(*Flag_Member(m_, f));
      break;
    }
    case FieldKind::Restraint: {
      const RestraintList& l = *Restraint_Member(m_, f);
      auto* c = static_cast<QComboBox*>(b.widget);
      const QString t = Lang(l.text);
      if (l.index == 0 || l.index == 1) {
        if (c->currentIndex() != l.index) c->setCurrentIndex(l.index);
        if (c->currentText() != t) c->setEditText(t);
      } else {
        if (c->currentIndex() != -1) c->setCurrentIndex(-1);
        if (c->currentText() != t) c->setEditText(t);
      }
      if (b.unit) b.unit->setVisible(l.Unit_Visible);
      break;
    }
  }
}

void Frm_Zarvek::Refresh_FromModel() {
  const bool was = m_.RefreshLocked;
  m_.RefreshLocked = true;
  // options first off, then on: an exclusive group takes only a new choice
  for (const Binding& b : bindings_) Push_Field(b);
  Update_Locks();
  {
    QSignalBlocker block(Tab_Dim);
    Tab_Dim->setCurrentIndex(m_.Tab_Dim);
  }
  shapePicture_->Set_Shape(m_.Tab_Dim);
  Update_Dim_Labels();
  Update_Route_Picture();
  Update_UnitLabels();
  Update_NoRestraint();
  Lbl_Method->setText(Lang(m_.Lbl_Method));
  Lbl_Tolerance->setText(Lang(m_.Lbl_Tolerance));
  m_.RefreshLocked = was;
}

void Frm_Zarvek::Update_Locks() {
  auto edit = [this](const char* n) { return static_cast<QLineEdit*>(Field_Widget(n)); };
  Set_Locked(edit("Txt_G"), m_.Opt_Nu);
  Set_Locked(edit("Txt_Nu"), m_.Opt_G);
  Set_Locked(edit("Txt_Psi"), m_.Opt_M2);
  Set_Locked(edit("Txt_M2"), m_.Opt_Psi);
  // the properties route asks for the axial constants only while N acts
  const bool axial = Num_Of_Text(m_.Txt_N) != 0;
  for (const char* n : {"Txt_A3", "Txt_Iy3", "Txt_zC3"}) edit(n)->setEnabled(axial);
  edit("Txt_N")->setToolTip(Lang_Further("Lbl_N", "Axial force N (compression +)"));
  edit("Txt_A3")->setToolTip(Lang_Further("Lbl_AxialConstants",
                                          "For the axial force: A, Iy, zC (shear centre above centroid)"));
  // under compression: in-plane buckling is not modelled; its load beside
  if (auto* note = findChild<QLabel*>("Lbl_AxialNote")) {
    const bool compressed = N_Of(m_) > 0;
    note->setVisible(compressed);
    if (compressed)
      note->setText(Lang_Further("Axial_InPlane_Note",
                                 "In-plane buckling about the strong axis y is not part of this model: "
                                 "pi\xB2" "EIy/L\xB2 =") +
                    " " + QString::fromStdString(Format_Auto(Ncr_y_Of(m_) / m_.Fact_F)) + " " +
                    static_cast<QLabel*>(findChild<QLabel*>("Unit_N"))->text());
  }
}

void Frm_Zarvek::Update_Dim_Labels() {
  const int t = m_.Tab_Dim;
  const bool both = t == 1;
  const bool f1 = t != 3, f2 = t == 1 || t == 3;
  for (const char* n : {"Txt_bf1", "Txt_tf1", "Txt_r1"}) {
    Field_Widget(n)->setVisible(f1);
    dimLabels_[n]->setVisible(f1);
    bindings_[byName_[n]].unit->setVisible(f1);
  }
  for (const char* n : {"Txt_bf2", "Txt_tf2", "Txt_r2"}) {
    Field_Widget(n)->setVisible(f2);
    dimLabels_[n]->setVisible(f2);
    bindings_[byName_[n]].unit->setVisible(f2);
  }
  for (const auto& [n, l] : dimLabels_) {
    std::string caption = n.substr(4);
    if (!both && (caption.back() == '1' || caption.back() == '2')) caption.pop_back();
    l->setText(QString::fromStdString(caption));
  }
}

void Frm_Zarvek::Update_Route_Picture() {
  // the page of the active route is marked and shown
  const int slot = Section_Slot(m_);
  for (int k = 0; k < 3; ++k)
    Tab_Section->setTabIcon(k, k == slot - 1 ? style()->standardIcon(QStyle::SP_DialogApplyButton) : QIcon());
  Tab_Section->setCurrentIndex(slot - 1);
}

void Frm_Zarvek::Update_NoRestraint() { Lbl_Trad[5]->setVisible(No_Intermediate_Restraint(m_)); }

void Frm_Zarvek::Update_UnitLabels() {
  for (const Binding& b : bindings_) {
    if (!b.unit || !b.def->hasUnit()) continue;
    b.unit->setText(Lang(Unit_ItemText(b.def->family(), Unit_Index(m_, b.def->family()))));
  }
}

// ============================================================== data entry

void Frm_Zarvek::Field_Edited(const Binding& b) {
  if (m_.RefreshLocked || loading_ || solving_) return;
  const FieldDef& f = *b.def;
  switch (f.kind) {
    case FieldKind::Text:
      *Text_Member(m_, f) = Plain(static_cast<QLineEdit*>(b.widget)->text());
      break;
    case FieldKind::Choice:
      *Choice_Member(m_, f) = static_cast<QComboBox*>(b.widget)->currentIndex();
      break;
    case FieldKind::Check:
      *Flag_Member(m_, f) = static_cast<QAbstractButton*>(b.widget)->isChecked();
      break;
    case FieldKind::Restraint: {
      RestraintList& l = *Restraint_Member(m_, f);
      l.text = Plain(static_cast<QComboBox*>(b.widget)->currentText());
      l.index = -1;  // a typed spring
      break;
    }
    default:
      return;
  }
  Apply_Effects(Data_Changed(m_, f.name), f.name);
  if (std::string_view(f.name) == "Txt_N") Update_Locks();
}

void Frm_Zarvek::Option_Clicked(const Binding& b) {
  if (m_.RefreshLocked || loading_ || solving_) return;
  // the group is exclusive on the screen: take every option back
  for (const Binding& o : bindings_)
    if (o.def->kind == FieldKind::Option)
      *Flag_Member(m_, *o.def) = static_cast<QAbstractButton*>(o.widget)->isChecked();
  const std::string name = b.def->name;
  if (name == "Opt_Nu" || name == "Opt_G" || name == "Opt_M2" || name == "Opt_Psi") {
    Update_Locks();
    return;
  }
  Apply_Effects(Data_Changed(m_, name), name);
}

void Frm_Zarvek::Restraint_Chosen(const Binding& b, int item) {
  if (m_.RefreshLocked || loading_ || solving_) return;
  ChangeEffects e = Restraint_Choose(m_, b.def->name, item);
  Push_Field(b);
  Apply_Effects(e, b.def->name);
  if (item == 2) {
    auto* c = static_cast<QComboBox*>(b.widget);
    c->lineEdit()->setFocus();
    c->lineEdit()->selectAll();
  }
}

void Frm_Zarvek::Apply_Effects(const ChangeEffects& e, const std::string& field) {
  // the rule may have written other fields (G, psi, M2, slot 2, results)
  for (const Binding& b : bindings_)
    if (b.def->name != field || b.def->kind != FieldKind::Text) Push_Field(b);
  if (e.Erase_Eigenmode) Erase(Img_Eigenmode);
  if (e.Erase_Forces) {
    Erase(Img_Forces);
    Erase(Img_Loads);
    reportStale_ = true;
  }
  if (e.Erase_Section) Erase(Img_Section);
  if (e.Show_Section_Picture) Update_Route_Picture();
  if (e.Update_NoRestraint) Update_NoRestraint();
  if (e.Unit_Label_Changed) Update_UnitLabels();
  if (e.Draw_Section) Draw_Section();
  if (e.Tracer_VecteurPropre) Tracer_VecteurPropre();
  if (e.Select_Psi) {
    auto* psi = static_cast<QLineEdit*>(Field_Widget("Txt_Psi"));
    psi->setText(Lang(m_.Txt_Psi));
    psi->selectAll();
  }
  if (e.Refresh_LoadsDiagrams) Refresh_LoadsDiagrams();
  Update_Commands();
}

void Frm_Zarvek::Refresh_LoadsDiagrams() {
  if (m_.RefreshLocked) return;
  if (!Check_Data()) return;
  Tracer_Loads();
  Cmd_RefreshMV_Click();
}

void Frm_Zarvek::Show_Message(const std::string& text, int status) {
  if (!text.empty()) {
    const QString title = status == 0 ? QString(Program_Name())
                                      : QString("%1 (%2)").arg(status).arg(Program_Name());
    Message_Box(Lang(text), title);
  }
  QCoreApplication::processEvents();
}

void Frm_Zarvek::Show_Shown(const std::vector<std::string>& shown) {
  for (const std::string& t : shown) Show_Message(t);
}

bool Frm_Zarvek::Check_Data() {
  ValidationResult r = IsDataOK(m_);
  // the confirmation of the dimensions may have rewritten slot 2
  Refresh_FromModel();
  if (r.ok) return true;
  Show_Shown(r.Shown);
  Show_Message(r.Error_Text);
  Select_Field(r.tab, r.field);
  return false;
}

void Frm_Zarvek::Select_Field(int tab, const std::string& field) {
  if (tab < 0) return;
  const bool was = m_.RefreshLocked;
  m_.RefreshLocked = true;
  Tab_Zarvek->setCurrentIndex(tab);
  if (const FieldDef* f = Find_Field(field); f && f->page == 0) {
    // a field of a route is on that route's page
    const auto open = field.find('(');
    if (open != std::string::npos) Tab_Section->setCurrentIndex(field[open + 1] - '1');
    else if (f->rule == ChangeRule::Dimension) Tab_Section->setCurrentIndex(1);
  }
  if (QWidget* w = Field_Widget(field)) {
    w->setFocus(Qt::OtherFocusReason);
    if (auto* e = qobject_cast<QLineEdit*>(w)) e->selectAll();
    if (auto* c = qobject_cast<QComboBox*>(w); c && c->lineEdit()) c->lineEdit()->selectAll();
  }
  m_.RefreshLocked = was;
}

void Frm_Zarvek::Cmd_Dimensions_Click() {
  DimensionsResult d = zarvek::Cmd_Dimensions(m_);
  Refresh_FromModel();
  if (d.Erase_Eigenmode) Erase(Img_Eigenmode);
  Show_Shown(d.Shown);
  if (d.tab >= 0) Select_Field(d.tab, d.field);
  if (d.Draw_Section) Draw_Section();
}

void Frm_Zarvek::Tab_Dim_Change(int shape) {
  if (shape < 0) return;
  ChangeEffects e = zarvek::Tab_Dim_Change(m_, shape);
  shapePicture_->Set_Shape(shape);
  Update_Dim_Labels();
  const bool was = m_.RefreshLocked;
  m_.RefreshLocked = true;
  for (const Binding& b : bindings_) Push_Field(b);
  m_.RefreshLocked = was;
  if (e.Erase_Section) Erase(Img_Section);
}

}  // namespace zarvek
