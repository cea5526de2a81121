// The four pages of the main window and their fields.
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

}  // namespace zarvek
