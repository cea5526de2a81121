#include "foundation/qt/Frm_Options.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <cstdlib>

#include "foundation/FormTexts.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Qt_Translations.h"
#include "foundation/qt/Translate_Form.h"
#include "tools/Help.h"
#include "tools/qt/Frm_Help.h"

namespace zarvek {

namespace {

// Default English captions; the language file replaces them.
constexpr const char* Unit_Captions[Unit_Family_Count] = {
    "Length of the beam",         "Moduli E and G",
    "Inertias Iz, It",            "Warping constant Iw",
    "Dimensions and levels",      "Moments",
    "Point loads",                "Distributed loads",
    "Lateral springs v",          "Torsional springs",
    "Lateral rotation springs v'", "Warping springs",
    "Continuous lateral springs v", "Continuous torsional springs",
    "Continuous rotation springs v'"};

// The restraint lists of the model, whose "Free"/"Fixed" texts follow the
// language.
constexpr RestraintList BeamModel::*Restraint_Lists[] = {
    &BeamModel::Lst_v1,    &BeamModel::Lst_t1,    &BeamModel::Lst_vp1,   &BeamModel::Lst_tp1,
    &BeamModel::Lst_v2,    &BeamModel::Lst_t2,    &BeamModel::Lst_vp2,   &BeamModel::Lst_tp2,
    &BeamModel::Lst_vi_p1, &BeamModel::Lst_ti_p1, &BeamModel::Lst_vi_p2, &BeamModel::Lst_ti_p2,
    &BeamModel::Lst_vi_c,  &BeamModel::Lst_ti_c,  &BeamModel::Lst_vpi_c};

// The picture that covers the second solving method: a blank the size of
// the button it hides.
QPixmap Hide_Picture(QSize size, qreal dpr) {
  QPixmap pm(size * dpr);
  pm.setDevicePixelRatio(dpr);
  pm.fill(Qt::transparent);
  return pm;
}

}  // namespace

Frm_Options::Frm_Options(BeamModel& model, StartupState& state, QWidget* parent)
    : QDialog(parent), model_(model), state_(state) {
  setObjectName("Frm_Options");
  setWindowTitle("Options");
  setModal(true);
  // No close button in the frame: the window hides only through its buttons.
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  Fatal_Error = [this](const QString& title, const QString& text) {
    QMessageBox::critical(this, title, text);
    std::exit(1);
  };
  Build();
  auto* help = new QShortcut(QKeySequence::HelpContents, this);
  connect(help, &QShortcut::activated, this, [this] { Show_Help(Help_Options, this); });
}

void Frm_Options::Build() {
  Tab_Options = new QTabWidget(this);
  Tab_Options->setObjectName("Tab_Options");

  // ---- General ----
  auto* general = new QWidget;
  Cdr_Language = new QGroupBox("Language", general);
  Cdr_Language->setObjectName("Cdr_Language");
  Lst_Language = new QComboBox(Cdr_Language);
  Lst_Language->setObjectName("Lst_Language");
  (new QVBoxLayout(Cdr_Language))->addWidget(Lst_Language);

  Cdr_SplashScreen = new QGroupBox("SplashScreen", general);
  Cdr_SplashScreen->setObjectName("Cdr_SplashScreen");
  Lbl_Trad[2] = new QLabel("Duration of visibility", Cdr_SplashScreen);
  Lst_Duration = new QComboBox(Cdr_SplashScreen);
  Lst_Duration->setObjectName("Lst_Duration");
  for (int i = 0; i < Duration_ItemCount; ++i) Lst_Duration->addItem(QString::number(i));
  auto* splash = new QHBoxLayout(Cdr_SplashScreen);
  splash->addWidget(Lbl_Trad[2]);
  splash->addStretch(1);
  splash->addWidget(Lst_Duration);

  Cdr_Directory = new QGroupBox("Default Data Directory", general);
  Cdr_Directory->setObjectName("Cdr_Directory");
  Lbl_Directory = new QLabel(Cdr_Directory);
  Lbl_Directory->setObjectName("Lbl_Directory");
  Lbl_Directory->setFrameShape(QFrame::Panel);
  Lbl_Directory->setFrameShadow(QFrame::Sunken);
  Lbl_Directory->setTextInteractionFlags(Qt::TextSelectableByMouse);
  Lbl_Directory->setMinimumWidth(fontMetrics().averageCharWidth() * 36);
  Lbl_Directory->setWordWrap(true);
  Cmd_Directory = new QToolButton(Cdr_Directory);
  Cmd_Directory->setText(QString::fromUtf8("\u2026"));
  Cmd_Directory->setObjectName("Cmd_Directory");
  connect(Cmd_Directory, &QToolButton::clicked, this, [this] { Choose_Directory(); });
  auto* dir = new QHBoxLayout(Cdr_Directory);
  dir->addWidget(Lbl_Directory, 1);
  dir->addWidget(Cmd_Directory, 0, Qt::AlignTop);

  auto* gl = new QVBoxLayout(general);
  gl->addWidget(Cdr_Language);
  gl->addWidget(Cdr_SplashScreen);
  gl->addWidget(Cdr_Directory);
  gl->addStretch(1);
  Tab_Options->addTab(general, "General");

  // ---- Solving Process ----
  auto* process = new QWidget;
  Cdr_Process = new QGroupBox("Eigenvalue Solving Process", process);
  Cdr_Process->setObjectName("Cdr_Process");
  Opt_Dichotomie = new QRadioButton(Default_Caption_Dichotomie, Cdr_Process);
  Opt_Dichotomie->setObjectName("Opt_Dichotomie");
  Opt_Eigen = new QRadioButton(Default_Caption_Eigen, Cdr_Process);
  Opt_Eigen->setObjectName("Opt_Eigen");
  Img_Hide = new QLabel(Cdr_Process);
  Img_Hide->setObjectName("Img_Hide");
  Img_Hide->installEventFilter(this);
  auto* pl = new QGridLayout(Cdr_Process);
  pl->addWidget(Opt_Dichotomie, 0, 0);
  // Img_Hide lies over Opt_Eigen: the second method is kept for those who
  // know how to uncover it.
  pl->addWidget(Opt_Eigen, 1, 0);
  pl->addWidget(Img_Hide, 1, 0);
  Opt_Eigen->hide();

  auto* controls = new QGridLayout;
  Lbl_Trad[0] = new QLabel("Convergence tolerance", process);
  Lst_Tolerance = new QComboBox(process);
  Lst_Tolerance->setObjectName("Lst_Tolerance");
  Lbl_Trad[1] = new QLabel("Number iterations maxi", process);
  Lst_NbIter = new QComboBox(process);
  Lst_NbIter->setObjectName("Lst_NbIter");
  for (const char* t : NbIter_Items) Lst_NbIter->addItem(t);
  controls->addWidget(Lbl_Trad[0], 0, 0);
  controls->addWidget(Lst_Tolerance, 0, 1);
  controls->addWidget(Lbl_Trad[1], 1, 0);
  controls->addWidget(Lst_NbIter, 1, 1);
  controls->setColumnStretch(0, 1);
  auto* prl = new QVBoxLayout(process);
  prl->addWidget(Cdr_Process);
  prl->addLayout(controls);
  prl->addStretch(1);
  Tab_Options->addTab(process, "Solving Process");

  // ---- Units: two columns of label and list ----
  auto* units = new QWidget;
  Cdr_Units = new QGroupBox("Units", units);
  Cdr_Units->setObjectName("Cdr_Units");
  auto* ul = new QGridLayout(Cdr_Units);
  const int half = (Unit_Family_Count + 1) / 2;
  for (UnitFamily f : All_Unit_Families) {
    const int i = int(f);
    Lbl_Unit[i] = new QLabel(Unit_Captions[i], Cdr_Units);
    Lst_Unit[i] = new QComboBox(Cdr_Units);
    Lst_Unit[i]->setObjectName(Unit_ListName(f));
    for (int k = 0; k < Unit_ItemCount(f); ++k)
      Lst_Unit[i]->addItem(QString::fromStdString(Unit_ItemText(f, k)));
    Lbl_Unit[i]->setBuddy(Lst_Unit[i]);
    const int row = i % half, col = (i / half) * 3;
    ul->addWidget(Lbl_Unit[i], row, col);
    ul->addWidget(Lst_Unit[i], row, col + 1);
  }
  ul->setColumnMinimumWidth(2, 16);
  ul->setColumnStretch(0, 1);
  ul->setColumnStretch(3, 1);
  (new QVBoxLayout(units))->addWidget(Cdr_Units);
  Tab_Options->addTab(units, "Units");

  for (int i = 0; i < 3; ++i) Lbl_Trad[i]->setObjectName(QString("Lbl_Trad(%1)").arg(i));
  for (int i = 0; i < Unit_Family_Count; ++i)
    Lbl_Unit[i]->setObjectName(QString("Lbl_Unit(%1)").arg(i));

  // These lists change only by choice, never by typing.
  for (QComboBox* c : {Lst_Duration, Lst_Language, Lst_NbIter, Lst_Tolerance})
    c->installEventFilter(this);

  Cmd_OKOptions = new QPushButton("OK", this);
  Cmd_OKOptions->setObjectName("Cmd_OKOptions");
  Cmd_OKOptions->setDefault(true);
  Cmd_CancelOptions = new QPushButton("Cancel", this);
  Cmd_CancelOptions->setObjectName("Cmd_CancelOptions");
  connect(Cmd_OKOptions, &QPushButton::clicked, this, [this] { Cmd_OKOptions_Click(); });
  connect(Cmd_CancelOptions, &QPushButton::clicked, this, [this] { Cmd_CancelOptions_Click(); });
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(Cmd_OKOptions);
  buttons->addWidget(Cmd_CancelOptions);

  auto* main = new QVBoxLayout(this);
  main->addWidget(Tab_Options);
  main->addLayout(buttons);
}

void Frm_Options::After_Translate() {
  // The hiding picture takes the size of what it covers, whatever the
  // language's caption.
  const QSize s = Opt_Eigen->sizeHint();
  Img_Hide->setMinimumSize(s);
  Img_Hide->setPixmap(Hide_Picture(s, devicePixelRatioF()));
  // The tolerance items show the locale's decimal mark.
  const int tol = Lst_Tolerance->currentIndex();
  Lst_Tolerance->clear();
  for (const char* t : Tolerance_Items) Lst_Tolerance->addItem(QString::fromStdString(To_LocalText(t)));
  Lst_Tolerance->setCurrentIndex(tol);
}

void Frm_Options::Load_Languages() {
  const std::vector<std::string> items = zarvek::Available_Languages(state_);
  if (items.empty()) {
    Fatal_Error(Program_Name(), "No language files ZARVEK_*.MSG found");
    return;
  }
  Lst_Language->clear();
  for (const std::string& it : items) Lst_Language->addItem(Lang_Text(it));
  // The loaded language: first item whose code matches.
  for (int i = 0; i < Lst_Language->count(); ++i) {
    if (Language_Code_Of_Item(Lst_Language->itemText(i).toStdString()) == state_.Language_Code) {
      Lst_Language->setCurrentIndex(i);
      break;
    }
  }
}

void Frm_Options::Prepare() {
  Load_Languages();
  Translate_Form(this);
  OptionChoices c;
  c.Lst_Language = Lst_Language->currentIndex();
  c.Lst_Duration = model_.Lst_Duration;
  c.Lst_Dir = model_.Lbl_Directory;
  c.Opt_Eigen = model_.Opt_Eigen;
  c.Opt_Dichotomie = model_.Opt_Dichotomie;
  c.Lst_Tolerance = model_.Lst_Tolerance;
  c.Lst_NbIter = model_.Lst_NbIter;
  c.Units = Unit_Indices(model_);
  Show_Choices(c);
  // A project that was saved with the second method shows it uncovered.
  if (model_.Opt_Eigen) Reveal_Eigen();
  BackUp_Options();
  Tab_Options->setCurrentIndex(0);
}

int Frm_Options::Show_Modal() {
  Prepare();
  adjustSize();
  if (QWidget* p = parentWidget()) move(p->window()->frameGeometry().center() - rect().center());
  return exec();
}

OptionChoices Frm_Options::Current_Choices() const {
  OptionChoices c;
  c.Lst_Language = Lst_Language->currentIndex();
  c.Lst_Duration = Lst_Duration->currentIndex();
  c.Lst_Dir = Lbl_Directory->text().toStdString();
  c.Opt_Eigen = Opt_Eigen->isChecked();
  c.Opt_Dichotomie = Opt_Dichotomie->isChecked();
  c.Lst_Tolerance = Lst_Tolerance->currentIndex();
  c.Lst_NbIter = Lst_NbIter->currentIndex();
  for (int i = 0; i < Unit_Family_Count; ++i) c.Units[i] = Lst_Unit[i]->currentIndex();
  return c;
}

void Frm_Options::Show_Choices(const OptionChoices& c) {
  Lst_Language->setCurrentIndex(c.Lst_Language);
  Lst_Duration->setCurrentIndex(c.Lst_Duration);
  Lbl_Directory->setText(QString::fromStdString(c.Lst_Dir));
  // Two independent buttons in the model; a radio group can't show both off.
  Opt_Eigen->setAutoExclusive(false);
  Opt_Dichotomie->setAutoExclusive(false);
  Opt_Eigen->setChecked(c.Opt_Eigen);
  Opt_Dichotomie->setChecked(c.Opt_Dichotomie);
  Opt_Eigen->setAutoExclusive(true);
  Opt_Dichotomie->setAutoExclusive(true);
  Lst_Tolerance->setCurrentIndex(c.Lst_Tolerance);
  Lst_NbIter->setCurrentIndex(c.Lst_NbIter);
  for (int i = 0; i < Unit_Family_Count; ++i) Lst_Unit[i]->setCurrentIndex(c.Units[i]);
}

void Frm_Options::BackUp_Options() { backup_ = Current_Choices(); }

void Frm_Options::Restore_Options() { Show_Choices(backup_); }

void Frm_Options::Traiter_Options() {
  const OptionChoices now = Current_Choices();
  const OptionChanges ch = Compare_Options(backup_, now);

  // 1. Language.
  if (ch.Language) {
    const QString item = Lst_Language->currentText();
    const std::string code = Language_Code_Of_Item(item.toStdString());
    std::string error;
    const LanguageChange r = Change_Language(state_, code, error);
    if (r == LanguageChange::FileMissing || r == LanguageChange::LoadFailed) {
      Fatal_Error(r == LanguageChange::FileMissing ? item : QString(Program_Name()),
                  QString::fromStdString(error));
      return;
    }
    Load_QtTranslations(state_.Language_Code);
    // "Free" and "Fixed" in the new language; typed springs stay.
    for (auto member : Restraint_Lists) {
      RestraintList& l = model_.*member;
      if (l.index == 0 || l.index == 1) l.text = Restraint_ItemText(l.index);
    }
    const int sec = Section_Of_Window("FRM_OPTIONS");
    const auto& targets = Form_Targets("FRM_OPTIONS");
    for (size_t i = 0; i < targets.size(); ++i) {
      const std::string& line = Section_Line(sec, int(i) + 1);
      if (line.empty()) continue;
      if (targets[i] == "Opt_Eigen") model_.Caption_Eigen = line;
      if (targets[i] == "Opt_Dichotomie") model_.Caption_Dichotomie = line;
    }
    model_.Lbl_Method = now.Opt_Eigen ? model_.Caption_Eigen : model_.Caption_Dichotomie;
    Translate_OpenWindows();
    backup_.Lst_Language = Lst_Language->currentIndex();
    emit languageChanged();
  }

  // 2. Default data directory.
  if (ch.Directory) {
    model_.Lbl_Directory = now.Lst_Dir;
    state_.Dir_Data = now.Lst_Dir;
  }

  // 3. Solving method.
  model_.Opt_Eigen = now.Opt_Eigen;
  model_.Opt_Dichotomie = now.Opt_Dichotomie;
  if (ch.Method) {
    model_.Lbl_Method = now.Opt_Eigen ? model_.Caption_Eigen : model_.Caption_Dichotomie;
    emit methodChanged();
  }

  // 4. Tolerance, and the lists that need no further step.
  model_.Lst_Tolerance = now.Lst_Tolerance;
  if (ch.Tolerance) model_.Lbl_Tolerance = Lst_Tolerance->currentText().toStdString();
  model_.Lst_NbIter = now.Lst_NbIter;
  model_.Lst_Duration = now.Lst_Duration;

  // 5. Units: every shown number of a changed family is rewritten so that
  // the internal values stay, then the factors follow the lists.
  for (UnitFamily f : All_Unit_Families) Unit_Index(model_, f) = now.Units[int(f)];
  Traiter_Units(model_, backup_.Units);
  if (ch.Units) emit unitsChanged(backup_.Units);

  BackUp_Options();
}

void Frm_Options::Cmd_OKOptions_Click() {
  Traiter_Options();
  accept();
  emit optionsApplied();
}

void Frm_Options::Cmd_CancelOptions_Click() {
  // The caller learns of the cancel by the result of exec (Rejected) and
  // skips what follows an accepted change, such as recomputing the section.
  Restore_Options();
  QDialog::reject();
}

void Frm_Options::reject() {
  // Escape counts as the Cancel button.
  Cmd_CancelOptions_Click();
}

void Frm_Options::closeEvent(QCloseEvent* e) { e->ignore(); }

void Frm_Options::Choose_Directory() {
  const QString dir = QFileDialog::getExistingDirectory(this, Cdr_Directory->title(),
                                                        Lbl_Directory->text());
  if (!dir.isEmpty()) Lbl_Directory->setText(dir);
}

void Frm_Options::Reveal_Eigen() {
  Img_Hide->hide();
  Opt_Eigen->show();
}

bool Frm_Options::eventFilter(QObject* watched, QEvent* e) {
  if (watched == Img_Hide) {
    if (e->type() == QEvent::MouseButtonPress) {
      ctrlReleased_ = false;
    } else if (e->type() == QEvent::MouseButtonRelease) {
      auto* me = static_cast<QMouseEvent*>(e);
      const auto mods = me->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
      // Release first, then the click that the release completes.
      if (mods == Qt::ControlModifier) ctrlReleased_ = true;
      if (Img_Hide->rect().contains(me->position().toPoint()) && ctrlReleased_) {
        ctrlReleased_ = false;
        Reveal_Eigen();
      }
    }
    return false;
  }
  if (e->type() == QEvent::KeyPress) {
    // Typed characters would pick items by their first letter: refused.
    // Arrow keys and Tab still move as usual.
    auto* ke = static_cast<QKeyEvent*>(e);
    if (!ke->text().isEmpty() && ke->text().at(0).isPrint()) return true;
  }
  return QDialog::eventFilter(watched, e);
}

}  // namespace zarvek
