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

namespace zarvek {

namespace {

// Language texts and the record's texts are single-byte Windows-1252.
QString Lang(const std::string& text) { return QString::fromStdString(Cp1252_To_Utf8(text)); }
// Typed text back to the record: the key filters let only ASCII through.
std::string Plain(const QString& text) { return text.toLatin1().toStdString(); }

const QColor Grey_Field(224, 224, 224);

void Set_Locked(QLineEdit* e, bool locked) {
  e->setReadOnly(locked);
  e->setFocusPolicy(locked ? Qt::NoFocus : Qt::StrongFocus);
  QPalette p = e->palette();
  p.setColor(QPalette::Base, locked ? Grey_Field : QApplication::palette().color(QPalette::Base));
  e->setPalette(p);
}

QLabel* Symbol(const QString& text, QWidget* parent) {
  auto* l = new QLabel(text, parent);
  l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return l;
}

// Captions of the window section of the language file, by their line.
enum Line : int {
  L_Caption = 1,
  L_Menu_File = 2, L_Menu_File_New, L_Menu_File_Open, L_Menu_File_Save, L_Menu_File_SaveAs,
  L_Menu_File_SaveAsDefault, L_Menu_File_Quit, L_Menu_Edit, L_Menu_Edit_FileData,
  L_Menu_Edit_Results, L_Menu_Tools, L_Menu_Tools_External, L_Menu_Tools_Calculator,
  L_Menu_Tools_FullScreen, L_Menu_Tools_Options, L_Menu_Quid_Help, L_Menu_Quid_About,
  L_Tab0 = 19,
  L_Lbl_Trad0 = 23,
  L_Cdr_Trad0 = 35,
  L_Opt_Catalogue = 57, L_Opt_Dimensions, L_Opt_Properties, L_Cmd_Catalogue,
  L_Cmd_MoreProperties, L_Cmd_RefreshForces, L_Cmd_Proceed, L_Cmd_StopProcess, L_Cmd_Draw3D
};

constexpr int Section_Main = 1;
QString Caption(int line) { return Lang(Section_Line(Section_Main, line)); }

const int Help_Context[4] = {140, 210, 250, 340};

}  // namespace

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

// One row of a grid: symbol, field, unit.
namespace {
void Row(QGridLayout* g, int row, const QString& symbol, QWidget* field, QWidget* unit = nullptr,
         int col = 0) {
  g->addWidget(Symbol(symbol, field->parentWidget()), row, col);
  g->addWidget(field, row, col + 1);
  if (unit) g->addWidget(unit, row, col + 2);
}
}  // namespace

QWidget* Frm_Zarvek::Build_Page_Beam() {
  auto* page = new QWidget(this);
  auto* grid = new QGridLayout(page);

  // beam
  QGroupBox* beam = Frame(0);
  auto* gb = new QGridLayout(beam);
  Lbl_Trad[0] = new QLabel(beam);
  Lbl_Trad[1] = new QLabel(beam);
  gb->addWidget(Lbl_Trad[0], 0, 0);
  gb->addWidget(Edit("Txt_L"), 0, 1);
  gb->addWidget(Unit_Label("Txt_L"), 0, 2);
  auto* nb = new QComboBox(this);
  for (const char* item : NB_Items) nb->addItem(item);
  Bind("Txt_NB", nb);
  {
    const size_t i = bindings_.size() - 1;
    connect(nb, qOverload<int>(&QComboBox::activated), this, [this, i] { Field_Edited(bindings_[i]); });
  }
  gb->addWidget(Lbl_Trad[1], 1, 0);
  gb->addWidget(nb, 1, 1);
  gb->setColumnStretch(3, 1);

  // steel
  QGroupBox* steel = Frame(2);
  auto* gs = new QGridLayout(steel);
  for (int k : {2, 3, 4}) Lbl_Trad[k] = new QLabel(steel);
  auto* groupNu = new QButtonGroup(this);
  QRadioButton* optG = Option("Opt_G");
  QRadioButton* optNu = Option("Opt_Nu");
  groupNu->addButton(optG);
  groupNu->addButton(optNu);
  gs->addWidget(Lbl_Trad[2], 0, 1);
  gs->addWidget(Edit("Txt_E"), 0, 2);
  gs->addWidget(Unit_Label("Txt_E"), 0, 3);
  gs->addWidget(optG, 1, 0);
  gs->addWidget(Lbl_Trad[3], 1, 1);
  gs->addWidget(Edit("Txt_G"), 1, 2);
  gs->addWidget(Unit_Label("Txt_G"), 1, 3);
  gs->addWidget(optNu, 2, 0);
  gs->addWidget(Lbl_Trad[4], 2, 1);
  gs->addWidget(Edit("Txt_Nu"), 2, 2);
  gs->addWidget(Symbol(QString::fromUtf8("\u03BD"), steel), 2, 3, Qt::AlignLeft);
  gs->setColumnStretch(4, 1);

  // section: route, its pages, the drawing
  QGroupBox* section = Frame(1);
  auto* sv = new QGridLayout(section);
  auto* route = new QButtonGroup(this);
  QRadioButton* oc = Option("Opt_Catalogue");
  QRadioButton* od = Option("Opt_Dimensions");
  QRadioButton* op = Option("Opt_Properties");
  for (QRadioButton* r : {oc, od, op}) route->addButton(r);
  auto* routes = new QHBoxLayout;
  routes->addWidget(oc);
  routes->addWidget(od);
  routes->addWidget(op);
  routes->addStretch(1);
  sv->addLayout(routes, 0, 0, 1, 2);

  Tab_Section = new QTabWidget(section);
  Tab_Section->setObjectName("Tab_Section");
  auto props = [this](QWidget* parent, int slot) {
    auto* g = new QGridLayout;
    const QString n = QString::number(slot);
    // the names of the table live for the whole program
    auto name = [&](const char* base) {
      return Find_Field(std::string(base) + "(" + n.toStdString() + ")")->name;
    };
    Row(g, 0, "Iz", Edit(name("Txt_Iz")), Unit_Label(name("Txt_Iz")));
    Row(g, 1, "It", Edit(name("Txt_It")), Unit_Label(name("Txt_It")));
    Row(g, 2, "Iw", Edit(name("Txt_Iw")), Unit_Label(name("Txt_Iw")));
    Row(g, 3, QString::fromUtf8("\u03B2z"), Edit(name("Txt_Betaz")), Unit_Label(name("Txt_Betaz")));
    if (slot < 3) Row(g, 4, "zS", Edit(name("Txt_zS")), Unit_Label(name("Txt_zS")));
    if (slot == 3) {
      // what an axial force needs besides: enabled only while N is not 0
      Row(g, 4, "A", Edit("Txt_A3"), new QLabel("cm\u00B2", this));
      Row(g, 5, "Iy", Edit("Txt_Iy3"), Unit_Label("Txt_Iy3"));
      Row(g, 6, "zC", Edit("Txt_zC3"), Unit_Label("Txt_zC3"));
    }
    g->setRowStretch(7, 1);
    g->setColumnStretch(3, 1);
    (void)parent;
    return g;
  };

  // catalogue
  auto* tc = new QWidget(Tab_Section);
  auto* gc = new QGridLayout(tc);
  auto* profile = new QLineEdit(tc);
  Bind("Lbl_SelectedProfile", profile);
  Set_Locked(profile, true);
  QFont bold = profile->font();
  bold.setBold(true);
  profile->setFont(bold);
  Cmd_Catalogue = new QPushButton(tc);
  Cmd_Catalogue->setObjectName("Cmd_Catalogue");
  connect(Cmd_Catalogue, &QPushButton::clicked, this, [this] {
    if (Hooks.Catalogue) Hooks.Catalogue();
  });
  auto* pick = new QHBoxLayout;
  pick->addWidget(profile, 1);
  pick->addWidget(Cmd_Catalogue);
  pick->addStretch(1);
  gc->addLayout(pick, 0, 0);
  gc->addLayout(props(tc, 1), 1, 0);
  Tab_Section->addTab(tc, "");

  // dimensions
  auto* td = new QWidget(Tab_Section);
  auto* gd = new QGridLayout(td);
  Tab_Dim = new QTabBar(td);
  Tab_Dim->setObjectName("Tab_Dim");
  Tab_Dim->setIconSize(QSize(28, 28));
  for (int t = 0; t < 4; ++t) Tab_Dim->addTab(Shape_Picture::Shape_Icon(t), "");
  Tab_Dim->setExpanding(false);
  connect(Tab_Dim, &QTabBar::currentChanged, this, [this](int t) { Tab_Dim_Change(t); });
  shapePicture_ = new Shape_Picture(td);
  auto* dims = new QGridLayout;
  const char* dimNames[] = {"Txt_h", "Txt_tw", "Txt_bf1", "Txt_tf1", "Txt_r1", "Txt_bf2", "Txt_tf2", "Txt_r2"};
  int row = 0;
  for (const char* dn : dimNames) {
    QLineEdit* e = Edit(dn);
    auto* l = Symbol(QString::fromLatin1(dn + 4), td);
    l->setObjectName(QString("Lbl_") + (dn + 4));
    dimLabels_[dn] = l;
    dims->addWidget(l, row, 0);
    dims->addWidget(e, row, 1);
    dims->addWidget(Unit_Label(dn), row, 2);
    ++row;
  }
  Cmd_Dimensions = new QPushButton(QString::fromUtf8("\u2713"), td);
  Cmd_Dimensions->setObjectName("Cmd_Dimensions");
  connect(Cmd_Dimensions, &QPushButton::clicked, this, [this] {
    Cmd_Dimensions_Click();
    // the properties just computed stay in view, whichever route is chosen
    Tab_Section->setCurrentIndex(1);
  });
  Cmd_MoreProperties = new QPushButton(td);
  Cmd_MoreProperties->setObjectName("Cmd_MoreProperties");
  connect(Cmd_MoreProperties, &QPushButton::clicked, this, [this] {
    if (!Hooks.MoreProperties) return;
    // the section on screen, also right after a project was opened
    if (Trim(m_.Txt_Iz[2]).empty()) Cmd_Dimensions_Click();
    else Refresh_SectionProps(m_);
    if (!Trim(m_.Txt_Iz[2]).empty()) Hooks.MoreProperties();
  });
  dims->addWidget(Cmd_Dimensions, row, 1);
  gd->addWidget(Tab_Dim, 0, 0, 1, 3);
  gd->addWidget(shapePicture_, 1, 0);
  gd->addLayout(dims, 1, 1);
  auto* slot2 = new QVBoxLayout;
  slot2->addLayout(props(td, 2));
  slot2->addWidget(Cmd_MoreProperties);
  gd->addLayout(slot2, 1, 2);
  Tab_Section->addTab(td, "");

  // properties
  auto* tp = new QWidget(Tab_Section);
  auto* gp = new QHBoxLayout(tp);
  gp->addLayout(props(tp, 3));
  gp->addStretch(1);
  Tab_Section->addTab(tp, "");
  sv->addWidget(Tab_Section, 1, 0);

  Cdr_Trad[3] = nullptr;  // the frame of the properties is the page of each route
  Frame(3)->hide();
  Img_Section = new SurfaceWidget(section);
  Img_Section->setObjectName("Img_Section");
  Img_Section->setDesignSize(Section_Width, Section_Height);
  Img_Section->setKeepProportions(true);  // the drawing is scaled on the height alone
  Img_Section->setMinimumSize(160, 160);
  sv->addWidget(Img_Section, 1, 1);
  sv->setColumnStretch(0, 3);
  sv->setColumnStretch(1, 2);
  connect(Img_Section, &SurfaceWidget::resized, this, [this] {
    if (!loading_) Draw_Section();
  });

  grid->addWidget(beam, 0, 0);
  grid->addWidget(steel, 0, 1);
  grid->addWidget(Build_Design_Inputs(), 0, 2);
  grid->addWidget(section, 1, 0, 1, 3);
  grid->setRowStretch(1, 1);
  return page;
}

// A heading over a column of fields of the intermediate restraints: the
// caption's own label in the first frame, a label that copies its text
// (at each translation) in the others.
QLabel* Frm_Zarvek::Heading(QLabel* own, int caption, QWidget* parent) {
  QLabel* l = own ? own : new QLabel(parent);
  l->setObjectName(QString("Lbl_Heading(%1)").arg(caption));
  l->setWordWrap(true);
  l->setAlignment(Qt::AlignLeft | Qt::AlignBottom);
  if (!own) headingCopies_.push_back({l, caption});
  return l;
}

QWidget* Frm_Zarvek::Build_Page_Restraints() {
  auto* page = new QWidget(this);
  auto* v = new QVBoxLayout(page);
  const QString sym[] = {"v", QString::fromUtf8("\u03B8"), QString::fromUtf8("v\u2032"),
                         QString::fromUtf8("\u03B8\u2032")};

  auto* ends = new QHBoxLayout;
  for (int end = 1; end <= 2; ++end) {
    QGroupBox* f = Frame(3 + end);
    auto* g = new QGridLayout(f);
    const std::string n = std::to_string(end);
    const std::string names[] = {"Lst_v" + n, "Lst_t" + n, "Lst_vp" + n, "Lst_tp" + n};
    for (int k = 0; k < 4; ++k) {
      QComboBox* c = Restraint(Find_Field(names[k])->name);
      Row(g, k, sym[k], c, bindings_.back().unit);
    }
    Row(g, 4, "z", Edit(Find_Field("Txt_zend" + n)->name), Unit_Label(Find_Field("Txt_zend" + n)->name));
    g->setColumnStretch(3, 1);
    g->setRowStretch(5, 1);  // rows at their height, level with the other end's
    ends->addWidget(f);
  }
  v->addLayout(ends);

  QGroupBox* inter = Frame(9);
  auto* gi = new QGridLayout(inter);
  Lbl_Trad[5] = new QLabel(inter);
  Lbl_Trad[6] = new QLabel(inter);
  Lbl_Trad[7] = new QLabel(inter);
  QFont italic = Lbl_Trad[5]->font();
  italic.setItalic(true);
  Lbl_Trad[5]->setFont(italic);
  Lbl_Trad[5]->setStyleSheet("color: #a00000");
  for (int k = 1; k <= 2; ++k) {
    QGroupBox* f = Frame(5 + k);
    auto* g = new QGridLayout(f);
    const std::string n = std::to_string(k);
    QCheckBox* chk = Check(Find_Field("Chk_Punctual" + n)->name, QString("%1").arg(k));
    g->addWidget(chk, 0, 0, 1, 3);
    // the position and the level side by side, under the headings that name them
    g->addWidget(Heading(k == 1 ? Lbl_Trad[7] : nullptr, 7, f), 1, 1);
    g->addWidget(Heading(k == 1 ? Lbl_Trad[6] : nullptr, 6, f), 1, 3, 1, 2);
    g->addWidget(Symbol("x/L", f), 2, 0, Qt::AlignRight);
    g->addWidget(Edit(Find_Field("Txt_xfint" + n)->name), 2, 1);
    g->addWidget(Symbol("z", f), 2, 2, Qt::AlignRight);
    g->addWidget(Edit(Find_Field("Txt_zint_p" + n)->name), 2, 3);
    g->addWidget(Unit_Label(Find_Field("Txt_zint_p" + n)->name), 2, 4);
    QComboBox* cv = Restraint(Find_Field("Lst_vi_p" + n)->name);
    Row(g, 3, sym[0], cv, bindings_.back().unit);
    QComboBox* ct = Restraint(Find_Field("Lst_ti_p" + n)->name);
    Row(g, 4, sym[1], ct, bindings_.back().unit);
    g->setRowStretch(5, 1);
    g->setColumnStretch(5, 1);
    gi->addWidget(f, 1, k - 1);
  }
  {
    QGroupBox* f = Frame(8);
    auto* g = new QGridLayout(f);
    g->addWidget(Check("Chk_Continuous", "c"), 0, 0, 1, 3);
    g->addWidget(Heading(nullptr, 6, f), 1, 1, 1, 2);
    Row(g, 2, "z", Edit("Txt_zint_c"), Unit_Label("Txt_zint_c"));
    const char* lists[] = {"Lst_vi_c", "Lst_ti_c", "Lst_vpi_c"};
    for (int k = 0; k < 3; ++k) {
      QComboBox* c = Restraint(lists[k]);
      Row(g, 3 + k, sym[k], c, bindings_.back().unit);
    }
    g->setRowStretch(6, 1);
    g->setColumnStretch(3, 1);
    gi->addWidget(f, 1, 2);
  }
  gi->addWidget(Lbl_Trad[5], 0, 0, 1, 3);
  v->addWidget(inter);
  v->addStretch(1);
  return page;
}

QWidget* Frm_Zarvek::Build_Page_Loads() {
  auto* page = new QWidget(this);
  auto* grid = new QGridLayout(page);

  QGroupBox* sup = Frame(11);
  auto* gs = new QVBoxLayout(sup);
  auto* supports = new QButtonGroup(this);
  // each scheme is shown by its two ends: I clamped, o hinged
  const std::pair<const char*, const char*> schemes[] = {
      {"Opt_AA", "o\u2014\u2014\u2014o"}, {"Opt_EE", "I\u2014\u2014\u2014I"},
      {"Opt_EA", "I\u2014\u2014\u2014o"}, {"Opt_EL", "I\u2014\u2014\u2014"}};
  for (auto [name, picture] : schemes) {
    QRadioButton* r = Option(name, QString::fromUtf8(picture));
    QFont mono("Liberation Mono");
    mono.setBold(true);
    r->setFont(mono);
    supports->addButton(r);
    gs->addWidget(r);
  }
  gs->addStretch(1);

  QGroupBox* mom = Frame(12);
  auto* gm = new QGridLayout(mom);
  auto* mgroup = new QButtonGroup(this);
  gm->addWidget(Check("Chk_M", "M"), 0, 0, 1, 3);
  Row(gm, 1, "M1", Edit("Txt_M1"), Unit_Label("Txt_M1"), 1);
  QRadioButton* om2 = Option("Opt_M2");
  QRadioButton* opsi = Option("Opt_Psi");
  mgroup->addButton(om2);
  mgroup->addButton(opsi);
  gm->addWidget(om2, 2, 0);
  Row(gm, 2, "M2", Edit("Txt_M2"), Unit_Label("Txt_M2"), 1);
  gm->addWidget(opsi, 3, 0);
  Row(gm, 3, QString::fromUtf8("\u03C8"), Edit("Txt_Psi"), nullptr, 1);
  gm->setColumnStretch(4, 1);

  QGroupBox* pts = Frame(13);
  auto* gp = new QGridLayout(pts);
  gp->addWidget(new QLabel("x/L", pts), 0, 3, Qt::AlignCenter);
  gp->addWidget(new QLabel("z", pts), 0, 4, Qt::AlignCenter);
  for (int k = 1; k <= 3; ++k) {
    const std::string n = std::to_string(k);
    gp->addWidget(Check(Find_Field("Chk_F" + n)->name, QString("F%1").arg(k)), k, 0);
    gp->addWidget(Edit(Find_Field("Txt_F" + n)->name), k, 1);
    gp->addWidget(Unit_Label(Find_Field("Txt_F" + n)->name), k, 2);
    gp->addWidget(Edit(Find_Field("Txt_xf" + n)->name), k, 3);
    gp->addWidget(Edit(Find_Field("Txt_zF" + n)->name), k, 4);
    gp->addWidget(Unit_Label(Find_Field("Txt_zF" + n)->name), k, 5);
  }

  QGroupBox* cc = Frame(14);
  auto* gc = new QGridLayout(cc);
  gc->addWidget(Check("Chk_CC", "C"), 0, 0);
  gc->addWidget(Edit("Txt_CC"), 0, 1);
  gc->addWidget(Unit_Label("Txt_CC"), 0, 2);
  gc->addWidget(Symbol("x/L", cc), 1, 0);
  gc->addWidget(Edit("Txt_xfC"), 1, 1);
  gc->setRowStretch(2, 1);

  // the axial force, at the centroid, compression positive
  auto* axial = new QGroupBox(page);
  axial->setObjectName("Cdr_Axial");
  auto* ga = new QGridLayout(axial);
  ga->addWidget(Symbol("N", axial), 0, 0);
  ga->addWidget(Edit("Txt_N"), 0, 1);
  ga->addWidget(Unit_Label("Txt_N"), 0, 2);
  ga->setRowStretch(1, 1);
  ga->setColumnStretch(3, 1);
  gc->setColumnStretch(3, 1);

  QGroupBox* dist = Frame(15);
  auto* gq = new QGridLayout(dist);
  gq->addWidget(new QLabel("q1 / q2", dist), 0, 1, 1, 2, Qt::AlignCenter);
  gq->addWidget(new QLabel("x1/L, x2/L", dist), 0, 4, 1, 2, Qt::AlignCenter);
  gq->addWidget(new QLabel("z", dist), 0, 6, Qt::AlignCenter);
  for (int k = 1; k <= 2; ++k) {
    const std::string n = std::to_string(k);
    gq->addWidget(Check(Find_Field("Chk_q" + n)->name, QString("q%1").arg(k)), k, 0);
    gq->addWidget(Edit(Find_Field("Txt_q" + n + "1")->name), k, 1);
    gq->addWidget(Edit(Find_Field("Txt_q" + n + "2")->name), k, 2);
    gq->addWidget(Unit_Label(Find_Field("Txt_q" + n + "1")->name), k, 3);
    gq->addWidget(Edit(Find_Field("Txt_xq" + n + "1")->name), k, 4);
    gq->addWidget(Edit(Find_Field("Txt_xq" + n + "2")->name), k, 5);
    gq->addWidget(Edit(Find_Field("Txt_zq" + n)->name), k, 6);
    gq->addWidget(Unit_Label(Find_Field("Txt_zq" + n)->name), k, 7);
  }

  QGroupBox* loads = Frame(16);
  auto* gl = new QHBoxLayout(loads);
  Img_Loads = new SurfaceWidget(loads);
  Img_Loads->setObjectName("Img_Loads");
  Img_Loads->setDesignSize(Loads_Width, Loads_Height);
  Img_Loads->setMinimumSize(240, 90);
  gl->addWidget(Img_Loads, 1);
  Cmd_RefreshForces = new QPushButton(loads);
  Cmd_RefreshForces->setObjectName("Cmd_RefreshForces");
  connect(Cmd_RefreshForces, &QPushButton::clicked, this, [this] { Tracer_Loads(); });
  // the buttons in a column beside the picture: help on top, refresh below
  auto* side = new QVBoxLayout;
  side->addStretch(1);
  side->addWidget(Cmd_RefreshForces);
  gl->addLayout(side);

  // the forces frame, shared with the results page
  QGroupBox* home2 = Frame(10);
  forcesHome2_ = new QVBoxLayout(home2);
  forcesFrame_ = Frame(17);
  auto* gf = new QGridLayout(forcesFrame_);
  Img_Forces = new SurfaceWidget(forcesFrame_);
  Img_Forces->setObjectName("Img_Forces");
  Img_Forces->setDesignSize(Forces_Width, Forces_Height);
  // high enough for the "+" printed at 0.9 of the height
  Img_Forces->setMinimumSize(240, std::max(90, Img_Forces->Least_Height_For_Text(0.9, "+")));
  Img_Forces->setMouseTracking(true);
  Lbl_Display_InfoMV = new QLabel(Img_Forces);
  Lbl_Display_InfoMV->setObjectName("Lbl_Display_InfoMV");
  Lbl_Display_InfoMV->setAutoFillBackground(true);
  Lbl_Display_InfoMV->hide();
  connect(Img_Forces, &SurfaceWidget::mouseMoved, this,
          [this](double x, double y) { Forces_MouseMove(x, y); });
  QCheckBox* effM = Check("Chk_EffM", "M");
  QCheckBox* effV = Check("Chk_EffV", "V");
  QPalette pm = effM->palette();
  pm.setColor(QPalette::WindowText, QColor(0, 0, 0));
  effM->setPalette(pm);
  QPalette pv = effV->palette();
  pv.setColor(QPalette::WindowText, QColor(0, 0, 0xC0));
  effV->setPalette(pv);
  Cmd_RefreshMV = new QPushButton(forcesFrame_);
  Cmd_RefreshMV->setObjectName("Cmd_RefreshMV");
  connect(Cmd_RefreshMV, &QPushButton::clicked, this, [this] { Cmd_RefreshMV_Click(); });
  // under the picture: the curves, the largest moment and its place
  auto* bar = new QHBoxLayout;
  bar->addWidget(effM);
  bar->addWidget(effV);
  bar->addSpacing(16);
  bar->addWidget(new QLabel("Mmax", forcesFrame_));
  bar->addWidget(Edit("Txt_Mmax(0)"));
  bar->addWidget(Unit_Label("Txt_Mmax(0)"));
  auto* xf = new QLabel(forcesFrame_);
  Bind("Lbl_xfMmax(0)", xf);
  bar->addWidget(new QLabel("x/L =", forcesFrame_));
  bar->addWidget(xf);
  bar->addStretch(1);
  bar->addWidget(Cmd_RefreshMV);
  gf->addWidget(Img_Forces, 0, 0);
  gf->addLayout(bar, 1, 0);
  gf->setRowStretch(0, 1);
  forcesHome2_->addWidget(forcesFrame_);
  connect(Img_Forces, &SurfaceWidget::doubleClicked, this, [this] {
    if (Check_Data()) Cmd_RefreshMV_Click();
  });
  connect(Img_Loads, &SurfaceWidget::resized, this, [this] {
    if (!loading_) Tracer_Loads();
  });
  connect(Img_Forces, &SurfaceWidget::resized, this, [this] {
    if (!loading_) Tracer_Efforts();
  });
  connect(effM, &QCheckBox::clicked, this, [this] { Forces_Check_Click(); });
  connect(effV, &QCheckBox::clicked, this, [this] { Forces_Check_Click(); });

  auto* top = new QHBoxLayout;
  top->addWidget(sup);
  top->addWidget(mom, 1);
  top->addWidget(cc, 1);
  top->addWidget(axial, 1);
  auto* middle = new QHBoxLayout;
  middle->addWidget(pts, 1);
  middle->addWidget(dist, 1);
  grid->addLayout(top, 0, 0);
  grid->addLayout(middle, 1, 0);
  grid->addWidget(loads, 2, 0);
  grid->addWidget(home2, 3, 0);
  grid->setRowStretch(2, 2);
  grid->setRowStretch(3, 3);
  return page;
}

QWidget* Frm_Zarvek::Build_Page_Results() {
  auto* page = new QWidget(this);
  auto* grid = new QGridLayout(page);

  QGroupBox* proc = Frame(19);
  auto* gp = new QGridLayout(proc);
  Lbl_Method = new QLabel(proc);
  Lbl_Method->setObjectName("Lbl_Method");
  Lbl_Tolerance = new QLabel(proc);
  Lbl_Tolerance->setObjectName("Lbl_Tolerance");
  Lbl_Trad[8] = new QLabel(proc);
  Lbl_Trad[9] = new QLabel(proc);
  auto* it = new QLabel(proc);
  Bind("Lbl_Iteration", it);
  auto* cv = new QLabel(proc);
  Bind("Lbl_CurrentValue", cv);
  for (QLabel* l : {it, cv}) {
    l->setFrameShape(QFrame::Panel);
    l->setFrameShadow(QFrame::Sunken);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    l->setMinimumWidth(l->fontMetrics().horizontalAdvance(QString(14, QChar('0'))));
  }
  auto* comment = new QLabel(proc);
  Bind("Lbl_Comment", comment);
  comment->setWordWrap(true);
  comment->setMinimumHeight(comment->fontMetrics().height() * 2 + 4);
  Cmd_Proceed = new QPushButton(proc);
  Cmd_Proceed->setObjectName("Cmd_Proceed");
  QFont bold = Cmd_Proceed->font();
  bold.setBold(true);
  Cmd_Proceed->setFont(bold);
  Cmd_Proceed->setToolTip("F5");
  Cmd_StopProcess = new QPushButton(proc);
  Cmd_StopProcess->setObjectName("Cmd_StopProcess");
  Cmd_StopProcess->setToolTip("Esc");
  Cmd_StopProcess->setEnabled(false);
  connect(Cmd_Proceed, &QPushButton::clicked, this, [this] { Cmd_Proceed_Click(); });
  connect(Cmd_StopProcess, &QPushButton::clicked, this, [this] { Cmd_StopProcess_Click(); });
  gp->addWidget(Lbl_Method, 0, 0, 1, 3);
  gp->addWidget(new QLabel(QString::fromUtf8("\u03B5 ="), proc), 1, 0, Qt::AlignRight);
  gp->addWidget(Lbl_Tolerance, 1, 1);
  gp->addWidget(Lbl_Trad[8], 2, 0);
  gp->addWidget(it, 2, 1);
  gp->addWidget(Lbl_Trad[9], 3, 0);
  gp->addWidget(cv, 3, 1);
  gp->addWidget(Cmd_Proceed, 2, 2);
  gp->addWidget(Cmd_StopProcess, 3, 2);
  gp->addWidget(comment, 4, 0, 1, 3);

  QGroupBox* crit = Frame(20);
  auto* gc = new QGridLayout(crit);
  Lbl_Trad[10] = new QLabel(crit);
  Lbl_Trad[11] = new QLabel(crit);
  gc->addWidget(Lbl_Trad[10], 0, 0);
  gc->addWidget(Edit("Txt_mucr"), 0, 1);
  gc->addWidget(Lbl_Trad[11], 1, 0);
  gc->addWidget(Edit("Txt_Mcr"), 1, 1);
  gc->addWidget(Unit_Label("Txt_Mcr"), 1, 2);
  gc->addWidget(new QLabel("Mmax", crit), 2, 0);
  gc->addWidget(Edit("Txt_Mmax(1)"), 2, 1);
  gc->addWidget(Unit_Label("Txt_Mmax(1)"), 2, 2);
  auto* xf = new QLabel(crit);
  Bind("Lbl_xfMmax(1)", xf);
  gc->addWidget(new QLabel("x/L", crit), 3, 0);
  gc->addWidget(xf, 3, 1);
  gc->addWidget(new QLabel("Ncr", crit), 4, 0);
  gc->addWidget(Edit("Txt_Ncr"), 4, 1);
  gc->addWidget(Unit_Label("Txt_Ncr"), 4, 2);
  auto* note = new QLabel(crit);
  note->setObjectName("Lbl_AxialNote");
  note->setWordWrap(true);
  gc->addWidget(note, 5, 0, 1, 3);
  QFont big = bold;
  big.setPointSizeF(bold.pointSizeF() + 1);
  static_cast<QLineEdit*>(Field_Widget("Txt_Mcr"))->setFont(big);

  QGroupBox* home3 = Frame(18);
  forcesHome3_ = new QVBoxLayout(home3);

  QGroupBox* mode = Frame(21);
  auto* gm = new QGridLayout(mode);
  Img_Eigenmode = new SurfaceWidget(mode);
  Img_Eigenmode->setObjectName("Img_Eigenmode");
  Img_Eigenmode->setDesignSize(Eigenmode_Width, Eigenmode_Height);
  Img_Eigenmode->setMinimumSize(240, std::max(120, Img_Eigenmode->Least_Height_For_Text(0.9, "+")));
  Img_Eigenmode->setMouseTracking(true);
  Lbl_Display_InfoEigen = new QLabel(Img_Eigenmode);
  Lbl_Display_InfoEigen->setObjectName("Lbl_Display_InfoEigen");
  Lbl_Display_InfoEigen->setAutoFillBackground(true);
  Lbl_Display_InfoEigen->hide();
  connect(Img_Eigenmode, &SurfaceWidget::mouseMoved, this,
          [this](double x, double y) { Eigen_MouseMove(x, y); });
  connect(Img_Eigenmode, &SurfaceWidget::doubleClicked, this, [this] { Tracer_VecteurPropre(); });
  connect(Img_Eigenmode, &SurfaceWidget::resized, this, [this] {
    if (!loading_) Tracer_VecteurPropre();
  });
  auto* side = new QVBoxLayout;
  // the curve colours of every drawing of the mode (screen, report, files)
  const DiagramState hues;
  const std::pair<const char*, QColor> curves[] = {{"Chk_v", To_QColor(hues.Color_v)},
                                                   {"Chk_t", To_QColor(hues.Color_t)},
                                                   {"Chk_vp", To_QColor(hues.Color_vp)},
                                                   {"Chk_tp", To_QColor(hues.Color_tp)}};
  const QString sym[] = {"v", QString::fromUtf8("\u03B8"), QString::fromUtf8("v\u2032"),
                         QString::fromUtf8("\u03B8\u2032")};
  for (int k = 0; k < 4; ++k) {
    QCheckBox* c = Check(curves[k].first, sym[k]);
    QPalette p = c->palette();
    p.setColor(QPalette::WindowText, curves[k].second);
    c->setPalette(p);
    side->addWidget(c);
  }
  side->addStretch(1);
  Cmd_RefreshEigen = new QPushButton(mode);
  Cmd_RefreshEigen->setObjectName("Cmd_RefreshEigen");
  connect(Cmd_RefreshEigen, &QPushButton::clicked, this, [this] { Tracer_VecteurPropre(); });
  Cmd_EditEigen = new QPushButton(mode);
  Cmd_EditEigen->setObjectName("Cmd_EditEigen");
  Cmd_Draw3D = new QPushButton(mode);
  Cmd_Draw3D->setObjectName("Cmd_Draw3D");
  auto no_mode = [this] {
    if (m_.Mode_Max > 0) return false;
    Surface& sf = Img_Eigenmode->surface();
    sf.ForeColor(0x000000);
    sf.CurrentX(sf.ScaleLeft() + sf.ScaleWidth() / 4);
    sf.CurrentY(sf.ScaleTop() + sf.ScaleHeight() / 2);
    sf.Print(Cp1252_To_Utf8(Msg(14)));
    return true;
  };
  connect(Cmd_Draw3D, &QPushButton::clicked, this, [this, no_mode] {
    if (externalMode_ || no_mode()) return;
    if (Hooks.Draw3D) Hooks.Draw3D();
  });
  connect(Cmd_EditEigen, &QPushButton::clicked, this, [this, no_mode] {
    if (no_mode()) return;
    if (Hooks.EditEigen) Hooks.EditEigen();
  });
  side->addWidget(Cmd_RefreshEigen);
  side->addWidget(Cmd_EditEigen);
  side->addWidget(Cmd_Draw3D);
  gm->addWidget(Img_Eigenmode, 0, 0);
  gm->addLayout(side, 0, 1);
  gm->setColumnStretch(0, 1);

  grid->addWidget(proc, 0, 0);
  grid->addWidget(crit, 0, 1);
  grid->addWidget(home3, 1, 0, 1, 2);
  grid->addWidget(mode, 2, 0, 1, 2);
  designFrame_ = new Design_Frame(page);
  designFrame_->setMinimumWidth(designFrame_->fontMetrics().horizontalAdvance(QString(52, QChar('0'))));
  grid->addWidget(designFrame_, 0, 2, 3, 1);
  grid->setRowStretch(1, 2);
  grid->setRowStretch(2, 3);
  return page;
}

// The inputs of the design check: steel grade or a typed fy, gammaM1, the
// method, f, and whether a section of the dimensions route is welded.
QGroupBox* Frm_Zarvek::Build_Design_Inputs() {
  designInputs_ = new QGroupBox(this);
  designInputs_->setObjectName("Cdr_DesignInputs");
  auto* g = new QGridLayout(designInputs_);
  auto* grade = new QComboBox(this);
  for (int k = 0; k <= Grade_Typed; ++k) grade->addItem(Grade_Name(k));
  auto* method = new QComboBox(this);
  for (int k = 0; k < 3; ++k) method->addItem("");
  for (auto [name, box] : {std::pair{"Lst_Grade", grade}, std::pair{"Lst_LtbMethod", method}}) {
    Bind(name, box);
    const size_t i = bindings_.size() - 1;
    connect(box, qOverload<int>(&QComboBox::activated), this, [this, i] { Field_Edited(bindings_[i]); });
  }
  for (auto& l : designLabels_) l = new QLabel(designInputs_);
  g->addWidget(designLabels_[0], 0, 0);
  g->addWidget(grade, 0, 1);
  g->addWidget(Symbol("fy", designInputs_), 1, 0);
  g->addWidget(Edit("Txt_fy"), 1, 1);
  g->addWidget(Unit_Label("Txt_fy"), 1, 2);
  g->addWidget(Symbol(QString::fromUtf8("\u03B3M1"), designInputs_), 2, 0);
  g->addWidget(Edit("Txt_GammaM1"), 2, 1);
  g->addWidget(designLabels_[1], 3, 0);
  g->addWidget(method, 3, 1, 1, 2);
  g->addWidget(Check("Chk_fmod", "f"), 4, 0, 1, 3);
  g->addWidget(Check("Chk_Welded", ""), 5, 0, 1, 3);
  g->setColumnStretch(1, 1);
  return designInputs_;
}

void Frm_Zarvek::Translate_Design() {
  designInputs_->setTitle(QString::fromStdString(Design_Title()));
  designLabels_[0]->setText(Lang_Further("Lst_Grade", "Steel grade"));
  designLabels_[1]->setText(Lang_Further("Lst_LtbMethod", "Method"));
  auto* grade = static_cast<QComboBox*>(Field_Widget("Lst_Grade"));
  grade->setItemText(Grade_Typed, Lang_Further("Lst_Grade_Typed", "fy typed"));
  auto* method = static_cast<QComboBox*>(Field_Widget("Lst_LtbMethod"));
  method->setItemText(0, Lang_Further("Lst_LtbMethod_0", "By section: rolled 6.3.2.3, welded 6.3.2.2"));
  method->setItemText(1, Lang_Further("Lst_LtbMethod_1", "6.3.2.2 general case"));
  method->setItemText(2, Lang_Further("Lst_LtbMethod_2", "6.3.2.3 rolled or equivalent welded"));
  static_cast<QCheckBox*>(Field_Widget("Chk_fmod"))
      ->setText(Lang_Further("Chk_fmod", "Modification factor f (6.3.2.3)"));
  static_cast<QCheckBox*>(Field_Widget("Chk_Welded"))
      ->setText(Lang_Further("Chk_Welded", "Welded section (dimensions route)"));
  designFrame_->After_Translate();
}

// ============================================================== load, captions

bool Frm_Zarvek::Form_Load() {
  loading_ = true;
  noForces_ = false;
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    QRect r = frameGeometry();
    r.moveCenter(screen->availableGeometry().center());
    move(r.topLeft());
  }
  Translate_Form();

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
    designFrame_->Show(Run_Design(m_, efforts_, Mcr, Problem_Path(), ctl_), m_);
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
