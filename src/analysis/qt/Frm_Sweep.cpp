#include "analysis/qt/Frm_Sweep.h"
#include "design/DesignModel.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <cmath>
#include <thread>

#include "diagrams/SvgWriter.h"
#include "diagrams/SweepPlot.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Units.h"
#include "foundation/qt/Translate_Form.h"
#include "model/FieldTable.h"

namespace zarvek {

namespace {

QString Tr(const char* key, const char* english) { return Lang_Further(key, english); }

// The label of an axis: the field and its unit.
std::string Axis_Label(const std::string& name, const std::string& unit) {
  return unit.empty() ? name : name + " (" + unit + ")";
}

// The caption a field wears in `window`: the label or check box to its left
// in the same row of its grid ("Length L" for Txt_L); empty when there is none.
QString Caption_Left_Of(const QWidget* field, const QLayout* layout) {
  if (!layout) return QString();
  if (auto* grid = qobject_cast<const QGridLayout*>(layout)) {
    const int i = grid->indexOf(field);
    if (i >= 0) {
      int row, col, rs, cs;
      grid->getItemPosition(i, &row, &col, &rs, &cs);
      for (int c = col - 1; c >= 0; --c) {
        QLayoutItem* it = grid->itemAtPosition(row, c);
        QWidget* w = it ? it->widget() : nullptr;
        if (auto* l = qobject_cast<QLabel*>(w); l && !l->text().isEmpty()) return l->text().remove('&');
        if (auto* b = qobject_cast<QAbstractButton*>(w); b && !b->text().isEmpty()) return b->text().remove('&');
      }
      return QString();
    }
  }
  for (int i = 0; i < layout->count(); ++i)
    if (const QString c = Caption_Left_Of(field, layout->itemAt(i)->layout()); !c.isEmpty()) return c;
  return QString();
}

QString Field_Caption(const QWidget* window, const std::string& name) {
  const QWidget* field = window ? window->findChild<QWidget*>(QString::fromStdString(name)) : nullptr;
  if (!field || !field->parentWidget()) return QString();
  return Caption_Left_Of(field, field->parentWidget()->layout()).simplified();
}

}  // namespace

Frm_Sweep::Frm_Sweep(const BeamModel& project, QWidget* parent) : QDialog(parent), project_(project) {
  setObjectName("Frm_Sweep");
  setModal(true);

  Cmb_Field = new QComboBox(this);
  Cmb_Field->setObjectName("Cmb_Field");
  // each field by its name (as scripts and the command line know it) and the
  // caption it wears in the main window
  for (const std::string& n : Sweep_Fields()) {
    const QString name = QString::fromStdString(n), caption = Field_Caption(parent, n);
    Cmb_Field->addItem(caption.isEmpty() ? name : name + QString::fromUtf8(" \u2014 ") + caption, name);
  }
  // the span first: the study most often asked for
  Cmb_Field->setCurrentIndex(std::max(0, Cmb_Field->findData("Txt_L")));
  auto edit = [this](const char* name) {
    auto* e = new QLineEdit(this);
    e->setObjectName(name);
    return e;
  };
  Txt_From = edit("Txt_From");
  Txt_To = edit("Txt_To");
  Txt_Step = edit("Txt_Step");

  auto* grid = new QGridLayout;
  for (int r = 0; r < 4; ++r) {
    captions_.push_back(new QLabel(this));
    grid->addWidget(captions_.back(), r, 0);
  }
  grid->addWidget(Cmb_Field, 0, 1);
  QLineEdit* edits[3] = {Txt_From, Txt_To, Txt_Step};
  for (int r = 0; r < 3; ++r) {
    grid->addWidget(edits[r], r + 1, 1);
    Lbl_Unit.push_back(new QLabel(this));
    grid->addWidget(Lbl_Unit.back(), r + 1, 2);
  }

  auto button = [this](const char* name) {
    auto* b = new QPushButton(this);
    b->setObjectName(name);
    return b;
  };
  Cmd_Run = button("Cmd_Run");
  Cmd_Stop = button("Cmd_Stop");
  Cmd_Copy = button("Cmd_Copy");
  Cmd_Save = button("Cmd_Save");
  Cmd_Close = button("Cmd_Close");
  Cmd_Run->setDefault(true);
  Prg_Sweep = new QProgressBar(this);
  Prg_Sweep->setObjectName("Prg_Sweep");
  Prg_Sweep->setRange(0, 1);
  Prg_Sweep->setValue(0);
  Lbl_Message = new QLabel(this);
  Lbl_Message->setObjectName("Lbl_Message");
  Lbl_Message->setWordWrap(true);
  Pic_Curve = new SurfaceWidget(this);
  Pic_Curve->setObjectName("Pic_Curve");
  Pic_Curve->setDesignSize(SweepPlot_Width, SweepPlot_Height);
  Pic_Curve->setMinimumSize(400, 260);

  auto* left = new QVBoxLayout;
  left->addLayout(grid);
  auto* runs = new QHBoxLayout;
  runs->addWidget(Cmd_Run);
  runs->addWidget(Cmd_Stop);
  left->addLayout(runs);
  left->addWidget(Prg_Sweep);
  left->addWidget(Lbl_Message);
  left->addStretch(1);
  auto* ends = new QHBoxLayout;
  ends->addWidget(Cmd_Copy);
  ends->addWidget(Cmd_Save);
  ends->addWidget(Cmd_Close);
  left->addLayout(ends);
  auto* top = new QHBoxLayout(this);
  top->addLayout(left);
  top->addWidget(Pic_Curve, 1);

  connect(Cmb_Field, &QComboBox::currentIndexChanged, this, [this] { Field_Changed(); });
  connect(Cmd_Run, &QPushButton::clicked, this, [this] { Run(); });
  connect(Cmd_Stop, &QPushButton::clicked, this, [this] { stop_ = true; });
  connect(Cmd_Copy, &QPushButton::clicked, this, [this] { Copy(); });
  connect(Cmd_Save, &QPushButton::clicked, this, [this] { Save(); });
  connect(Cmd_Close, &QPushButton::clicked, this, [this] { reject(); });
  connect(Pic_Curve, &SurfaceWidget::resized, this, [this] { Draw(); });
  poll_.setInterval(50);
  connect(&poll_, &QTimer::timeout, this, [this] { Poll(); });

  After_Translate();
  Field_Changed();
  Update_Commands();
}

Frm_Sweep::~Frm_Sweep() {
  // a sweep still running is stopped and waited for: its threads read the
  // project of this window
  stop_ = true;
  if (running_.valid()) running_.wait();
}

void Frm_Sweep::After_Translate() {
  setWindowTitle(Tr("Frm_Sweep", "Sweep: Mcr against one field"));
  const char* keys[4][2] = {{"Sweep_Field", "Field"}, {"Sweep_From", "From"}, {"Sweep_To", "To"},
                            {"Sweep_Step", "Step"}};
  for (int r = 0; r < 4; ++r) captions_[r]->setText(Tr(keys[r][0], keys[r][1]));
  Cmd_Run->setText(Tr("Sweep_Run", "&Run"));
  Cmd_Stop->setText(Tr("Sweep_Stop", "S&top"));
  Cmd_Copy->setText(Tr("Sweep_Copy", "&Copy"));
  Cmd_Save->setText(Tr("Sweep_Save", "&Save..."));
  Cmd_Close->setText(Tr("Sweep_Close", "Close"));
  Cmb_Field->setToolTip(Tr("Sweep_FieldTip", "The field of the main window that takes the values, in its unit"));
  Draw();
}

std::string Frm_Sweep::Field() const { return Cmb_Field->currentData().toString().toStdString(); }

std::string Frm_Sweep::Axis_Of(const std::string& field) const {
  const QString caption = Field_Caption(parentWidget(), field);
  const std::string unit = Cp1252_To_Utf8(Field_Unit(project_, field));
  return Axis_Label(caption.isEmpty() ? field : caption.toStdString(), unit);
}

void Frm_Sweep::Field_Changed() {
  // the range starts from the field's value in the project
  const std::string unit = Field_Unit(project_, Field());
  for (QLabel* l : Lbl_Unit) l->setText(Lang_Text(unit));
  const FieldDef* f = Find_Field(Field());
  if (!f) return;
  std::string now;
  if (f->kind == FieldKind::Restraint)
    now = Restraint_Member(project_, *f)->text;
  else if (const std::string* t = Text_Member(project_, *f))
    now = *t;
  if (Is_Numeric(now)) {
    const double v = Num_Of_Text(now);
    Txt_From->setText(Lang_Text(Number_To_Text(v / 2)));
    Txt_To->setText(Lang_Text(Number_To_Text(v * 2)));
    Txt_Step->setText(Lang_Text(Number_To_Text(v / 10)));
  }
}

void Frm_Sweep::Update_Commands() {
  const bool busy = running_.valid();
  Cmd_Run->setEnabled(!busy);
  Cmd_Stop->setEnabled(busy);
  Cmb_Field->setEnabled(!busy);
  for (QLineEdit* e : {Txt_From, Txt_To, Txt_Step}) e->setEnabled(!busy);
  Cmd_Copy->setEnabled(!busy && !points_.empty());
  Cmd_Save->setEnabled(!busy && !points_.empty());
  Cmd_Close->setEnabled(true);
}

void Frm_Sweep::Run() {
  if (running_.valid()) return;
  const std::string texts[3] = {Txt_From->text().toStdString(), Txt_To->text().toStdString(),
                                Txt_Step->text().toStdString()};
  for (const std::string& t : texts)
    if (!Is_Numeric(t)) {
      Lbl_Message->setText(Tr("Sweep_NotNumber", "From, To and Step must be numbers"));
      return;
    }
  std::vector<double> values;
  std::string why;
  if (!Sweep_Values(Num_Of_Text(texts[0]), Num_Of_Text(texts[1]), Num_Of_Text(texts[2]), values, why, 20000)) {
    Lbl_Message->setText(Tr("Sweep_Range", "The step must be non-zero and lead from the first value to the "
                                           "last, in at most 20000 points"));
    return;
  }
  field_ = Field();
  total_ = (int)values.size();
  done_ = 0;
  stop_ = false;
  Prg_Sweep->setRange(0, total_);
  Prg_Sweep->setValue(0);
  Lbl_Message->clear();
  // the language texts stay as they are while the threads read them: the
  // window is modal, no language can be chosen meanwhile
  running_ = std::async(std::launch::async, [this, values, field = field_] {
    Sweep_Options opt;
    opt.done = &done_;
    opt.stop = &stop_;
    opt.Design_Check = [](const BeamModel& solved, const ModelSolve& r) {
      return Design_MbRd(solved, r.run.Efforts, r.mucr);
    };
    return Run_Sweep(project_, field, values, opt);
  });
  Update_Commands();
  poll_.start();
}

void Frm_Sweep::Poll() {
  Prg_Sweep->setValue(done_.load());
  if (!running_.valid() || running_.wait_for(std::chrono::seconds(0)) != std::future_status::ready) return;
  poll_.stop();
  points_ = running_.get();
  Prg_Sweep->setValue(total_);
  int solved = 0;
  for (const SweepPoint& p : points_) solved += p.ok();
  Lbl_Message->setText(Tr("Sweep_Done", "%1 of %2 points solved").arg(solved).arg(total_));
  Update_Commands();
  Draw();
  emit finished_sweep();
}

void Frm_Sweep::Draw() {
  Surface& s = Pic_Curve->surface();
  const std::string unitM = Unit_ItemText(UnitFamily::M, project_.Lst_Unit_M);
  Draw_SweepPlot(s, points_, Axis_Of(field_.empty() ? Field() : field_), Cp1252_To_Utf8(Axis_Label("Mcr", unitM)));
}

std::string Frm_Sweep::Csv() const {
  if (points_.empty()) return "";
  return Sweep_Csv(points_, field_, Cp1252_To_Utf8(Field_Unit(project_, field_)),
                   Cp1252_To_Utf8(Unit_ItemText(UnitFamily::M, project_.Lst_Unit_M)));
}

void Frm_Sweep::Copy() {
  if (points_.empty()) return;
  QApplication::clipboard()->setText(QString::fromStdString(Csv()));
}

void Frm_Sweep::Save() {
  if (points_.empty()) return;
  const QString name = QFileDialog::getSaveFileName(this, Tr("Sweep_Save", "&Save...").remove('&'), QString(),
                                                    Tr("File_Filter_Csv", "CSV files") + " (*.csv);;" +
                                                        Tr("File_Filter_Svg", "SVG pictures") + " (*.svg);;" +
                                                        Tr("File_Filter_Png", "PNG pictures") + " (*.png)");
  if (name.isEmpty()) return;
  const std::string file = name.toLocal8Bit().toStdString();
  bool ok = false;
  if (Has_Extension(file, ".svg") || Has_Extension(file, ".png")) {
    const std::string unitM = Unit_ItemText(UnitFamily::M, project_.Lst_Unit_M);
    const std::string xl = Axis_Of(field_);
    const std::string yl = Cp1252_To_Utf8(Axis_Label("Mcr", unitM));
    if (Has_Extension(file, ".svg")) {
      SvgWriter svg(SweepPlot_Width, SweepPlot_Height);
      Draw_SweepPlot(svg, points_, xl, yl);
      ok = Write_File_Atomic(file, svg.Document());
    } else {
      QtImageSurface img(SweepPlot_Width, SweepPlot_Height, 15, 1);
      Draw_SweepPlot(img, points_, xl, yl);
      const QString tmp = name + ".part";
      ok = img.Image().save(tmp, "PNG") && std::rename(tmp.toLocal8Bit().constData(), file.c_str()) == 0;
    }
  } else {
    ok = Write_File_Atomic(file, Csv());
  }
  if (!ok) Lbl_Message->setText(Tr("Sweep_SaveFailed", "The file could not be written:") + " " + name);
}

void Frm_Sweep::closeEvent(QCloseEvent* e) {
  stop_ = true;
  if (running_.valid()) running_.wait();
  QDialog::closeEvent(e);
}

void Frm_Sweep::reject() {
  stop_ = true;
  if (running_.valid()) {
    running_.wait();
    Poll();
  }
  QDialog::reject();
}

}  // namespace zarvek
