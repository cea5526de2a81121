// The main window: construction, menus, captions, events and page changes.
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

// ============================================================== construction

Frm_Zarvek::Frm_Zarvek(StartupState& s, QWidget* parent) : QMainWindow(parent), s_(s) {
  setObjectName("Frm_Zarvek");
  Message_Box = [this](const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::Ok, this);
    box.exec();
  };
  Warning_Box = [this](const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, this);
    box.exec();
  };
  Confirm_Box = [this](const QString& text) {
    return QMessageBox::question(this, Program_Name(), text,
                                 QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
  };
  Choose_File = [this](int action, const QString& ext, const QString& offered) {
    const QString filter = QString("*%1 *%2").arg(ext, ext.toLower());
    const QString start = offered.isEmpty() ? dialogDir_ : offered;
    return action == 1 ? QFileDialog::getOpenFileName(this, Program_Name(), dialogDir_, filter)
                       : QFileDialog::getSaveFileName(this, Program_Name(), start, filter);
  };
  Beep = [] { QApplication::beep(); };

  ctl_.Show_Status = [this](const std::string& t) { Show_Status(t); };
  ctl_.Show_Progress = [this](int i, double v) { Show_Progress(i, v); };
  ctl_.Show_Box = [this](const std::string& t) { Show_EigenBox(t); };

  Build_Menus();

  Tab_Zarvek = new QTabWidget(this);
  Tab_Zarvek->setObjectName("Tab_Zarvek");
  // Each page scrolls when the window is smaller than the page needs, so
  // that the window fits a laptop's screen and every field stays reachable.
  auto scrolled = [this](QWidget* page) {
    auto* area = new QScrollArea(this);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(page);
    return area;
  };
  Tab_Zarvek->addTab(scrolled(Build_Page_Beam()), "Beam/Section/Steel");
  Tab_Zarvek->addTab(scrolled(Build_Page_Restraints()), "Restraints");
  Tab_Zarvek->addTab(scrolled(Build_Page_Loads()), "Loads");
  Tab_Zarvek->addTab(scrolled(Build_Page_Results()), "Results");
  setCentralWidget(Tab_Zarvek);
  Place_HelpButtons();
  connect(Tab_Zarvek, &QTabWidget::currentChanged, this, [this](int p) { Tab_Zarvek_Change(p); });

  // keys of the whole window
  auto* f5 = new QShortcut(QKeySequence(Qt::Key_F5), this);
  connect(f5, &QShortcut::activated, this, [this] {
    if (solving_) return;
    if (Tab_Zarvek->currentIndex() != 3 && !externalMode_) {
      Tab_Zarvek->setCurrentIndex(3);
      if (Tab_Zarvek->currentIndex() != 3) return;  // the page refused the data
    }
    Cmd_Proceed_Click();
  });
  auto* esc = new QShortcut(QKeySequence(Qt::Key_Escape), this);
  connect(esc, &QShortcut::activated, this, [this] { Cmd_StopProcess_Click(); });

  qApp->installEventFilter(this);
  resize(980, 720);
}

Frm_Zarvek::~Frm_Zarvek() { qApp->removeEventFilter(this); }

void Frm_Zarvek::Build_Menus() {
  auto action = [this](QMenu* menu, const char* name, const QString& text, QKeySequence key = {}) {
    QAction* a = menu->addAction(text);
    a->setObjectName(name);
    if (!key.isEmpty()) a->setShortcut(key);
    return a;
  };
  Menu_File = menuBar()->addMenu("&File");
  Menu_File->setObjectName("Menu_File");
  Menu_File_New = action(Menu_File, "Menu_File_New", "&New...", QKeySequence::New);
  Menu_File_Open_Action = action(Menu_File, "Menu_File_Open", "&Open...", QKeySequence::Open);
  Menu_File_Save_Action = action(Menu_File, "Menu_File_Save", "&Save", QKeySequence::Save);
  Menu_File_SaveAs_Action =
      action(Menu_File, "Menu_File_SaveAs", "Save &As...", QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
  Menu_File_SaveAsDefault_Action = action(Menu_File, "Menu_File_SaveAsDefault", "Save as &Default");
  Menu_File_Separator = Menu_File->addSeparator();
  Menu_File_Separator->setObjectName("Menu_File_Separator");
  Menu_File_Quit = action(Menu_File, "Menu_File_Quit", "&Quit", QKeySequence(Qt::CTRL | Qt::Key_Q));
  connect(Menu_File_Open_Action, &QAction::triggered, this, [this] { Menu_File_Open(); });
  connect(Menu_File_Save_Action, &QAction::triggered, this, [this] { Menu_File_Save(); });
  connect(Menu_File_SaveAs_Action, &QAction::triggered, this, [this] { Menu_File_SaveAs(); });
  connect(Menu_File_SaveAsDefault_Action, &QAction::triggered, this,
          [this] { Menu_File_SaveAsDefault(); });
  connect(Menu_File_Quit, &QAction::triggered, this, [this] { close(); });
  // a new problem file belongs to the file-data mode, whose editor opens it
  connect(Menu_File_New, &QAction::triggered, this, [this] {
    if (Hooks.NewProblem) Hooks.NewProblem();
  });

  Menu_Edit = menuBar()->addMenu("&Edit");
  Menu_Edit->setObjectName("Menu_Edit");
  Menu_Edit_FileData = action(Menu_Edit, "Menu_Edit_FileData", "&Problem data...");
  Menu_Edit_Results = action(Menu_Edit, "Menu_Edit_Results", "&Results report...");
  connect(Menu_Edit, &QMenu::aboutToShow, this, [this] { Update_Commands(); });
  connect(Menu_Edit_FileData, &QAction::triggered, this, [this] {
    if (externalMode_ && Hooks.DirectData) Hooks.DirectData();
  });
  connect(Menu_Edit_Results, &QAction::triggered, this, [this] {
    if (Hooks.Results) Hooks.Results();
  });

  Menu_Tools = menuBar()->addMenu("&Tools");
  Menu_Tools->setObjectName("Menu_Tools");
  Menu_Tools_External = action(Menu_Tools, "Menu_Tools_External", "&External problem file");
  Menu_Tools_External->setCheckable(true);
  Menu_Tools_Calculator = action(Menu_Tools, "Menu_Tools_Calculator", "&Calculator");
  Menu_Tools_FullScreen = action(Menu_Tools, "Menu_Tools_FullScreen", "&Full screen");
  Menu_Tools_FullScreen->setCheckable(true);
  Menu_Tools_Separator = Menu_Tools->addSeparator();
  Menu_Tools_Separator->setObjectName("Menu_Tools_Separator");
  Menu_Tools_Options = action(Menu_Tools, "Menu_Tools_Options", "&Options...");
  connect(Menu_Tools_External, &QAction::triggered, this, [this] { Menu_Tools_External_Click(); });
  connect(Menu_Tools_FullScreen, &QAction::triggered, this,
          [this] { Menu_Tools_FullScreen_Click(); });
  connect(Menu_Tools_Calculator, &QAction::triggered, this, [this] {
    if (Hooks.Calculator) Hooks.Calculator();
  });
  connect(Menu_Tools_Options, &QAction::triggered, this, [this] {
    if (!Hooks.Options) return;
    // unit changes reach the section; a cancel leaves the window as it was
    if (Hooks.Options() && !m_.RefreshLocked) Cmd_Dimensions_Click();
  });
  // Tools > Sweep: Mcr over a range of one field, on a copy of the project
  QAction* sweep = action(Menu_Tools, "Menu_Tools_Sweep", Lang_Further("Menu_Tools_Sweep", "S&weep..."));
  connect(sweep, &QAction::triggered, this, [this] {
    if (solving_) return;
    Frm_Sweep f(m_, this);
    f.exec();
  });

  Menu_Quid = menuBar()->addMenu("?");
  Menu_Quid->setObjectName("Menu_Quid");
  Menu_Quid_Help = action(Menu_Quid, "Menu_Quid_Help", "&Help", QKeySequence::HelpContents);
  Menu_Quid_About = action(Menu_Quid, "Menu_Quid_About", "&About...");
  connect(Menu_Quid_Help, &QAction::triggered, this, [this] {
    if (Hooks.Help) Hooks.Help();
  });
  connect(Menu_Quid_About, &QAction::triggered, this, [this] {
    if (Hooks.About) Hooks.About();
  });
}

// The help buttons sit at the foot of the frames whose conventions their
// pictures tell: the section's dimensions and heights, the end and the
// intermediate restraints, the moments, the loads, the diagrams.
void Frm_Zarvek::Place_HelpButtons() {
  const int frames[7] = {0, 1, 5, 9, 12, 16, 21};
  for (int i = 1; i <= 6; ++i) {
    QGroupBox* f = Cdr_Trad[frames[i]];
    if (!f || !f->layout()) continue;
    auto* b = new QPushButton("Help", f);
    b->setObjectName(QString("Cmd_Help(%1)").arg(i));
    b->setAutoDefault(false);
    b->setEnabled(false);
    connect(b, &QPushButton::clicked, this, [this, i] {
      if (Hooks.HelpImage) Hooks.HelpImage(i);
    });
    Cmd_Help[i] = b;
    if (auto* g = qobject_cast<QGridLayout*>(f->layout()))
      g->addWidget(b, g->rowCount(), 0, 1, -1, Qt::AlignRight);
    else if (auto* v = qobject_cast<QBoxLayout*>(f->layout())) {
      // a column of buttons at the end of a row takes the help on top
      QLayoutItem* last = v->count() ? v->itemAt(v->count() - 1) : nullptr;
      auto* column = last ? qobject_cast<QVBoxLayout*>(last->layout()) : nullptr;
      if (qobject_cast<QHBoxLayout*>(v) && column) column->insertWidget(0, b);
      else v->addWidget(b, 0, Qt::AlignRight);
    }
  }
}

QGroupBox* Frm_Zarvek::Frame(int index) {
  auto* g = new QGroupBox(this);
  g->setObjectName(QString("Cdr_Trad(%1)").arg(index));
  Cdr_Trad[index] = g;
  return g;
}

Frm_Zarvek::Binding& Frm_Zarvek::Bind(const char* name, QWidget* w) {
  const FieldDef* def = Find_Field(name);
  Q_ASSERT_X(def, "Frm_Zarvek::Bind", name);
  w->setObjectName(name);
  bindings_.push_back(Binding{def, w, nullptr});
  if (auto p = pendingUnits_.find(name); p != pendingUnits_.end()) {
    bindings_.back().unit = p->second;
    pendingUnits_.erase(p);
  }
  byName_[name] = bindings_.size() - 1;
  byWidget_[w] = bindings_.size() - 1;
  return bindings_.back();
}

const Frm_Zarvek::Binding* Frm_Zarvek::Binding_Of(const QObject* w) const {
  auto it = byWidget_.find(w);
  return it == byWidget_.end() ? nullptr : &bindings_[it->second];
}

QWidget* Frm_Zarvek::Field_Widget(const std::string& name) const {
  auto it = byName_.find(name);
  return it == byName_.end() ? nullptr : bindings_[it->second].widget;
}

QLineEdit* Frm_Zarvek::Edit(const char* name) {
  auto* e = new QLineEdit(this);
  Binding& b = Bind(name, e);
  const int digits = b.def->kind == FieldKind::Display ? 10 : 8;
  e->setMinimumWidth(e->fontMetrics().horizontalAdvance(QString(digits, QChar('0'))) + 8);
  e->setMaximumWidth(e->fontMetrics().horizontalAdvance(QString(16, QChar('0'))) + 8);
  e->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  if (b.def->kind == FieldKind::Display) {
    Set_Locked(e, true);
  } else {
    e->installEventFilter(this);
    const size_t i = bindings_.size() - 1;
    connect(e, &QLineEdit::textEdited, this, [this, i] { Field_Edited(bindings_[i]); });
  }
  return e;
}

QComboBox* Frm_Zarvek::Restraint(const char* name) {
  auto* c = new QComboBox(this);
  c->setEditable(true);
  c->setInsertPolicy(QComboBox::NoInsert);
  c->addItems({"Free", "Fixed", "Spring?!"});
  c->setMinimumContentsLength(7);
  Bind(name, c);
  const size_t i = bindings_.size() - 1;
  // the keys reach the list itself (its line is a focus proxy of the list),
  // and the list hands them to its line without asking any filter
  c->installEventFilter(this);
  c->lineEdit()->installEventFilter(this);
  byWidget_[c->lineEdit()] = i;
  connect(c, qOverload<int>(&QComboBox::activated), this,
          [this, i](int item) { Restraint_Chosen(bindings_[i], item); });
  connect(c->lineEdit(), &QLineEdit::textEdited, this, [this, i] { Field_Edited(bindings_[i]); });
  bindings_[i].unit = Unit_Label(name);
  return c;
}

QCheckBox* Frm_Zarvek::Check(const char* name, const QString& caption) {
  auto* c = new QCheckBox(caption, this);
  Bind(name, c);
  const size_t i = bindings_.size() - 1;
  connect(c, &QCheckBox::clicked, this, [this, i] { Field_Edited(bindings_[i]); });
  return c;
}

QRadioButton* Frm_Zarvek::Option(const char* name, const QString& caption) {
  auto* r = new QRadioButton(caption, this);
  Bind(name, r);
  const size_t i = bindings_.size() - 1;
  connect(r, &QRadioButton::clicked, this, [this, i] { Option_Clicked(bindings_[i]); });
  return r;
}

QLabel* Frm_Zarvek::Unit_Label(const char* name) {
  // Unit_L, Unit_v1, Unit_Iz(3) ...: the field's name behind its prefix
  std::string n = name;
  const auto us = n.find('_');
  auto* l = new QLabel(this);
  l->setObjectName(QString::fromStdString("Unit_" + n.substr(us + 1)));
  l->setMinimumWidth(l->fontMetrics().horizontalAdvance("kN.m/rd/m") + 4);
  auto it = byName_.find(name);
  if (it != byName_.end()) bindings_[it->second].unit = l;
  else pendingUnits_[name] = l;  // the field comes next
  return l;
}

// ============================================================== load, captions

bool Frm_Zarvek::Form_Load() {
  loading_ = true;
  noForces_ = false;
  Translate_Form();
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    // wider where the screen allows: the results page then shows the design
    // check's values beside the solve, in the longer French captions too
    const QRect avail = screen->availableGeometry();
    resize(std::max(width(), std::min(1100, avail.width() - 16)), height());
    QRect r = frameGeometry();
    r.moveCenter(avail.center());
    move(r.topLeft());
  }

  // Initialisations: nu and M2 typed, the file-data commands hidden, the
  // default file or the built-in defaults, slot 2 of the section computed.
  Menu_Edit_FileData->setVisible(false);
  Menu_File_New->setVisible(false);
  dialogDir_ = QString::fromStdString(s_.Dir_Data);
  StartupResult r = Initialisations_Model(m_, s_.File_Default, s_.Dir_Data);
  Set_FileCurrent(r.File_Current);
  if (!r.ok) {
    Show_Message(r.Error_Text);
    return false;
  }
  Refresh_FromModel();
  Tab_Zarvek->setCurrentIndex(std::clamp(m_.Tab_Zarvek, 0, 3));  // the page of the default file
  Show_Shown(r.Shown);
  Update_Commands();

  // first drawings
  Draw_Section();
  Tracer_Efforts();
  Tracer_Loads();
  Tracer_VecteurPropre();
  loading_ = false;
  return true;
}

void Frm_Zarvek::Translate_Form() {
  setWindowTitle(Caption(L_Caption));
  if (auto* axial = findChild<QGroupBox*>("Cdr_Axial"))
    axial->setTitle(Lang_Further("DirectData_AxialTab", "Axial force"));
  QAction* menus[] = {Menu_File->menuAction(), Menu_File_New, Menu_File_Open_Action,
                      Menu_File_Save_Action, Menu_File_SaveAs_Action,
                      Menu_File_SaveAsDefault_Action, Menu_File_Quit, Menu_Edit->menuAction(),
                      Menu_Edit_FileData, Menu_Edit_Results, Menu_Tools->menuAction(),
                      Menu_Tools_External, Menu_Tools_Calculator, Menu_Tools_FullScreen,
                      Menu_Tools_Options, Menu_Quid_Help, Menu_Quid_About};
  for (int k = 0; k < 17; ++k) menus[k]->setText(Caption(L_Menu_File + k));
  if (auto* a = findChild<QAction*>("Menu_Tools_Sweep")) a->setText(Lang_Further("Menu_Tools_Sweep", "S&weep..."));
  for (int k = 0; k < 4; ++k) Tab_Zarvek->setTabText(k, Caption(L_Tab0 + k));
  for (int k = 0; k < 12; ++k)
    if (Lbl_Trad[k]) Lbl_Trad[k]->setText(Caption(L_Lbl_Trad0 + k));
  for (const auto& [label, caption] : headingCopies_) label->setText(Lbl_Trad[caption]->text());
  for (int k = 0; k < 22; ++k)
    if (Cdr_Trad[k]) Cdr_Trad[k]->setTitle(Caption(L_Cdr_Trad0 + k));
  Translate_Design();
  static_cast<QAbstractButton*>(Field_Widget("Opt_Catalogue"))->setText(Caption(L_Opt_Catalogue));
  static_cast<QAbstractButton*>(Field_Widget("Opt_Dimensions"))->setText(Caption(L_Opt_Dimensions));
  static_cast<QAbstractButton*>(Field_Widget("Opt_Properties"))->setText(Caption(L_Opt_Properties));
  // the pages of the routes carry the words of the routes, without hot keys
  for (int k = 0; k < 3; ++k)
    Tab_Section->setTabText(k, Lang(Remove_FirstHotKey(Section_Line(Section_Main, L_Opt_Catalogue + k))));
  Cmd_Catalogue->setText(Caption(L_Cmd_Catalogue));
  // the help buttons carry the help menu's word without its hot key
  for (int i = 1; i <= 6; ++i)
    if (Cmd_Help[i]) Cmd_Help[i]->setText(Lang(Remove_FirstHotKey(Section_Line(Section_Main, L_Menu_File + 15))));
  Cmd_MoreProperties->setText(Caption(L_Cmd_MoreProperties));
  Cmd_RefreshForces->setText(Caption(L_Cmd_RefreshForces));
  Cmd_Proceed->setText(Caption(L_Cmd_Proceed));
  Cmd_StopProcess->setText(Caption(L_Cmd_StopProcess));
  Cmd_StopProcess->setMinimumWidth(Cmd_StopProcess->sizeHint().width());  // the whole caption
  Cmd_Draw3D->setText(Caption(L_Cmd_Draw3D));
  Cmd_RefreshMV->setText(Cmd_RefreshForces->text());
  Cmd_RefreshEigen->setText(Cmd_RefreshForces->text());
  // a letter of its own: Alt+E stays the Edit menu's on this page too
  Cmd_EditEigen->setText(Lang_Further("Frm_Zarvek.Cmd_EditEigen", "E&dit"));
  Cmd_Dimensions->setToolTip(
      Lang_Further("Frm_Zarvek.Cmd_Dimensions", "Compute the section properties of these dimensions"));
  // the coupled options carry the symbol of the quantity they let the user type
  static_cast<QAbstractButton*>(Field_Widget("Opt_G"))->setToolTip(Lbl_Trad[3]->text());
  static_cast<QAbstractButton*>(Field_Widget("Opt_Nu"))->setToolTip(Lbl_Trad[4]->text());

  // the captions of the two methods come with the options' texts
  constexpr int Section_Options = 2, L_Opt_Dichotomie = 28, L_Opt_Eigen = 29;
  if (!Section_Line(Section_Options, L_Opt_Dichotomie).empty()) {
    m_.Caption_Dichotomie = Section_Line(Section_Options, L_Opt_Dichotomie);
    m_.Caption_Eigen = Section_Line(Section_Options, L_Opt_Eigen);
    m_.Lbl_Method = m_.Opt_Eigen ? m_.Caption_Eigen : m_.Caption_Dichotomie;
    Lbl_Method->setText(Lang(m_.Lbl_Method));
  }

  // restraint lists change language and keep their selection
  const bool was = m_.RefreshLocked;
  m_.RefreshLocked = true;
  for (Binding& b : bindings_) {
    RestraintList* l = Restraint_Member(m_, *b.def);
    if (!l) continue;
    auto* c = static_cast<QComboBox*>(b.widget);
    for (int item = 0; item < 3; ++item) c->setItemText(item, Lang(Restraint_ItemText(item)) + (item == 2 ? "!" : ""));
    if (l->index == 0 || l->index == 1) l->text = Restraint_ItemText(l->index);
    Push_Field(b);
  }
  m_.RefreshLocked = was;
  if (m_.Lbl_Comment.empty() || m_.Txt_mucr == "0") {
    m_.Lbl_Comment = m_.Txt_mucr == "0" ? Msg(90) : m_.Lbl_Comment;
    if (auto* l = qobject_cast<QLabel*>(Field_Widget("Lbl_Comment"))) l->setText(Lang(m_.Lbl_Comment));
  }
  Set_Title();
}

void Frm_Zarvek::Set_FileCurrent(const std::string& name) {
  fileCurrent_ = name;
  Set_Title();
}

void Frm_Zarvek::Set_Title() {
  setWindowTitle(QString("%1 - %2").arg(Program_Name(), Lang(fileCurrent_)));
}

// ============================================================== events

bool Frm_Zarvek::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();

  // during a solve only the stop button and Esc act
  if (solving_) {
    const bool input = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
                       type == QEvent::MouseButtonDblClick || type == QEvent::KeyPress ||
                       type == QEvent::KeyRelease || type == QEvent::Wheel ||
                       type == QEvent::ShortcutOverride || type == QEvent::Close;
    if (input) {
      if (type == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        Cmd_StopProcess_Click();
        return true;
      }
      if (watched == Cmd_StopProcess && type != QEvent::Close) return false;
      if (Is_Click_For(Cmd_StopProcess, watched, event)) return false;
      if (type == QEvent::Close) event->ignore();
      return true;
    }
    return false;
  }

  const Binding* b = Binding_Of(watched);
  if (!b) return QMainWindow::eventFilter(watched, event);
  auto* edit = qobject_cast<QLineEdit*>(watched);
  if (auto* list = qobject_cast<QComboBox*>(watched)) edit = list->lineEdit();
  if (!edit) return false;

  if (type == QEvent::FocusIn) {
    // select the whole text once the click that brought the focus is done
    QTimer::singleShot(0, edit, [edit] { edit->selectAll(); });
  } else if (type == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (b->def->redrawOnLeave && !loading_ && reason != Qt::ActiveWindowFocusReason &&
        reason != Qt::PopupFocusReason && !m_.RefreshLocked) {
      QTimer::singleShot(0, this, [this] {
        if (!m_.RefreshLocked && !solving_) Refresh_LoadsDiagrams();
      });
    }
  } else if (type == QEvent::KeyPress) {
    auto* k = static_cast<QKeyEvent*>(event);
    if (b->def->kind == FieldKind::Restraint) {
      const RestraintList& l = *Restraint_Member(m_, *b->def);
      if (l.index == 0 || l.index == 1) {
        // "Free" and "Fixed" can't be edited; moving on stays possible
        const int key = k->key();
        const bool moves = key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Up ||
                           key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter ||
                           key == Qt::Key_Escape || key == Qt::Key_F4 ||
                           (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
        return !moves;
      }
    }
    if (b->def->name == std::string("Txt_Psi")) m_.Psi_Previous = Plain(edit->text());
    const QString text = k->text();
    if (text.isEmpty() || text.at(0).unicode() < 32 || text.at(0).unicode() == 127 ||
        (k->modifiers() & Qt::ControlModifier))
      return false;  // editing keys (Backspace, Delete) and shortcuts
    int key = text.at(0).unicode();
    if (b->def->filter == KeyFilter::UnsignedExp && key == 'E') return false;
    const int mode = b->def->filter == KeyFilter::Signed ? 0 : 1;
    const int typed = key;
    if (key > 255 || !Filter_NumericKey(key, mode)) return true;  // thrown away
    if (key != typed) {
      // a comma or a point becomes the separator of the locale
      edit->insert(QString(QChar(key)));
      Field_Edited(*b);
      return true;
    }
  }
  return false;
}

void Frm_Zarvek::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  // the panes redraw themselves when their size changes
}

void Frm_Zarvek::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange && !loading_) {
    if (isMaximized()) Menu_Tools_FullScreen->setChecked(true);
    else if (windowState() == Qt::WindowNoState) Menu_Tools_FullScreen->setChecked(false);
  }
}

void Frm_Zarvek::closeEvent(QCloseEvent* event) {
  if (solving_) {
    event->ignore();
    return;
  }
  QMainWindow::closeEvent(event);
  // the end of the main window is the end of the program
  QCoreApplication::quit();
}

// ============================================================== pages, tools

void Frm_Zarvek::Move_ForcesFrame(int page) {
  QVBoxLayout* home = page == 3 ? forcesHome3_ : forcesHome2_;
  if (forcesFrame_->parentWidget() == home->parentWidget()) return;
  forcesFrame_->setParent(home->parentWidget());
  home->addWidget(forcesFrame_);
  forcesFrame_->show();
}

void Frm_Zarvek::Tab_Zarvek_Change(int page) {
  if (!externalMode_) m_.Tab_Zarvek = page;  // the project keeps the page in view
  if (page == 2 || page == 3) Move_ForcesFrame(page);
  helpContext_ = Help_Context[std::clamp(page, 0, 3)];
  if (m_.RefreshLocked || loading_) return;
  if (!Check_Data()) return;
  Tracer_Loads();
  if (page == 2 || page == 3) Cmd_RefreshMV_Click();
  if (page == 0) Draw_Section();
  if (page == 3) Tracer_VecteurPropre();
}

void Frm_Zarvek::Menu_Tools_FullScreen_Click() {
  // the tick was inverted by the action itself
  if (Menu_Tools_FullScreen->isChecked()) showMaximized();
  else showNormal();
}

void Frm_Zarvek::Menu_Tools_External_Click() {
  externalMode_ = Menu_Tools_External->isChecked();
  if (externalMode_) {
    Move_ForcesFrame(3);
    m_.RefreshLocked = true;
    Tab_Zarvek->setCurrentIndex(3);
    m_.RefreshLocked = false;
  }
  for (int p = 0; p < 3; ++p) Tab_Zarvek->setTabEnabled(p, !externalMode_);
  InitProcessInfo(m_);
  InitEffortsInfo(m_);
  Refresh_FromModel();
  Erase(Img_Eigenmode);
  Erase(Img_Forces);
  Erase(Img_Loads);
  Menu_Edit_FileData->setVisible(externalMode_);
  Menu_Edit_Results->setVisible(!externalMode_);
  Menu_File_New->setVisible(externalMode_);
  for (QAction* a : {Menu_File_Save_Action, Menu_File_SaveAs_Action, Menu_File_SaveAsDefault_Action,
                     Menu_File_Separator, Menu_Tools_Options, Menu_Tools_Separator})
    a->setVisible(!externalMode_);
  if (!externalMode_) Tab_Zarvek_Change(Tab_Zarvek->currentIndex());
  Set_Title();
  Update_Commands();
  if (externalMode_) {
    QMessageBox::warning(this, Program_Name(), Lang(Msg(49)));
  }
}

void Frm_Zarvek::Update_Commands() {
  if (externalMode_ || Num_Of_Text(m_.Txt_mucr) == 0) designFrame_->Clear();
  {
    // a grade shows its fy of Table 3.1 for the thicker flange (the typed
    // value stays in the record for the "fy typed" item)
    auto* fy = static_cast<QLineEdit*>(Field_Widget("Txt_fy"));
    Set_Locked(fy, m_.Lst_Grade != Grade_Typed);
    if (m_.Lst_Grade != Grade_Typed) {
      const double v = Fy_Of(m_);
      fy->setText(v > 0 ? Lang(Format_Auto(v * 10 / m_.Fact_EG)) : QString("?"));
    }
  }
  Menu_Tools_Options->setEnabled(bool(Hooks.Options));
  Menu_Tools_Calculator->setEnabled(bool(Hooks.Calculator));
  Menu_Tools_External->setEnabled(bool(Hooks.DirectData));
  Menu_Edit_FileData->setEnabled(bool(Hooks.DirectData) && externalMode_);
  Menu_Edit_Results->setEnabled(bool(Hooks.Results) && !externalMode_ && Num_Of_Text(m_.Txt_mucr) != 0);
  Cmd_Draw3D->setEnabled(bool(Hooks.Draw3D) && !externalMode_);
  Cmd_EditEigen->setEnabled(bool(Hooks.EditEigen));
  Cmd_MoreProperties->setEnabled(bool(Hooks.MoreProperties));
  Cmd_Catalogue->setEnabled(bool(Hooks.Catalogue));
  Menu_Quid_Help->setEnabled(bool(Hooks.Help));
  Menu_Quid_About->setEnabled(bool(Hooks.About));
  Menu_File_New->setEnabled(bool(Hooks.NewProblem));
  for (int i = 1; i <= 6; ++i)
    if (Cmd_Help[i]) Cmd_Help[i]->setEnabled(bool(Hooks.HelpImage));
}

}  // namespace zarvek
