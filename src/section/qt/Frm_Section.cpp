#include "section/qt/Frm_Section.h"

#include <QFont>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Translate_Form.h"
#include "model/DataEntry.h"
#include "tools/Help.h"
#include "tools/qt/Frm_Help.h"

namespace zarvek {

namespace {

// Sixteen lines of about 30 characters: the field is sized to show them all.
constexpr int Text_Columns = 30, Text_Lines = 16;

}  // namespace

Frm_Section::Frm_Section(BeamModel& model, std::string File_Section, QWidget* parent)
    : QDialog(parent), model_(model), file_(std::move(File_Section)) {
  setObjectName("Frm_Section");
  setWindowTitle("Section catalogue");
  setModal(true);

  Lbl_Trad[0] = new QLabel("Series", this);
  Lbl_Trad[1] = new QLabel("Section", this);
  for (int i = 0; i < 2; ++i) Lbl_Trad[i]->setObjectName(QString("Lbl_Trad(%1)").arg(i));
  Lst_SectionSerie = new QListWidget(this);
  Lst_SectionSerie->setObjectName("Lst_SectionSerie");
  Lst_SectionNumber = new QListWidget(this);
  Lst_SectionNumber->setObjectName("Lst_SectionNumber");
  Lbl_Trad[0]->setBuddy(Lst_SectionSerie);
  Lbl_Trad[1]->setBuddy(Lst_SectionNumber);
  const QFontMetrics fm(font());
  Lst_SectionSerie->setMinimumWidth(fm.horizontalAdvance("HEMM") * 2);
  Lst_SectionNumber->setMinimumWidth(fm.horizontalAdvance("457x191x161") + 40);

  Lbl_SectionLabel = new QLabel(this);
  Lbl_SectionLabel->setObjectName("Lbl_SectionLabel");
  QFont bold = Lbl_SectionLabel->font();
  bold.setBold(true);
  Lbl_SectionLabel->setFont(bold);
  Txt_SectionProperties = new QPlainTextEdit(this);
  Txt_SectionProperties->setObjectName("Txt_SectionProperties");
  Txt_SectionProperties->setReadOnly(true);
  Txt_SectionProperties->setLineWrapMode(QPlainTextEdit::NoWrap);
  // Fixed pitch, so that the columns of figures stand.
  QFont mono("Liberation Mono", 10);
  mono.setStyleHint(QFont::Monospace);
  mono.setFixedPitch(true);
  Txt_SectionProperties->setFont(mono);
  const QFontMetrics mm(mono);
  Txt_SectionProperties->setMinimumSize(
      mm.horizontalAdvance(QString(Text_Columns, QChar('0'))) + 24,
      mm.lineSpacing() * (Text_Lines + 1) + 2 * Txt_SectionProperties->frameWidth() + 16);

  Cmd_Transfert = new QPushButton("OK", this);
  Cmd_Transfert->setObjectName("Cmd_Transfert");
  Cmd_Transfert->setDefault(true);
  Cmd_Quitter = new QPushButton("Cancel", this);
  Cmd_Quitter->setObjectName("Cmd_Quitter");

  auto* grid = new QGridLayout;
  grid->addWidget(Lbl_Trad[0], 0, 0);
  grid->addWidget(Lbl_Trad[1], 0, 1);
  grid->addWidget(Lbl_SectionLabel, 0, 2);
  grid->addWidget(Lst_SectionSerie, 1, 0);
  grid->addWidget(Lst_SectionNumber, 1, 1);
  grid->addWidget(Txt_SectionProperties, 1, 2);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(Cmd_Transfert);
  buttons->addWidget(Cmd_Quitter);
  auto* box = new QVBoxLayout(this);
  box->addLayout(grid, 1);
  box->addLayout(buttons);

  connect(Lst_SectionSerie, &QListWidget::currentRowChanged, this, [this](int) { Load_SerieNumbers(); });
  connect(Lst_SectionNumber, &QListWidget::currentRowChanged, this,
          [this](int row) { Number_Selected(row); });
  connect(Lst_SectionNumber, &QListWidget::itemDoubleClicked, this, [this] { Transfer_Section(); });
  connect(Cmd_Transfert, &QPushButton::clicked, this, [this] { Transfer_Section(); });
  connect(Cmd_Quitter, &QPushButton::clicked, this, &QDialog::reject);
  auto* help = new QShortcut(QKeySequence::HelpContents, this);
  connect(help, &QShortcut::activated, this, [this] { Show_Help(Help_Section, this); });
}

void Frm_Section::Form_Load() {
  Translate_Form(this);
  Split_ProfileName(Trim(model_.Lbl_SelectedProfile), series_, number_);
  failed_ = false;
  Load_SectionsSeries();
}

int Frm_Section::Show_Modal() {
  Form_Load();
  adjustSize();
  if (QWidget* p = parentWidget()) move(p->window()->frameGeometry().center() - rect().center());
  return exec();
}

void Frm_Section::Catalogue_Failure() {
  // Told once per opening, with the file's name: either it isn't there or
  // it isn't a catalogue.
  if (failed_) return;
  failed_ = true;
  const bool exists = File_Exists(file_);
  const std::string& m = Msg(exists ? 52 : 12);
  QString text = m.empty() ? QString(exists ? "This file is not of the expected format."
                                            : "File not found: check its name and its folder.")
                           : Lang_Text(m);
  text += "\n" + QString::fromStdString(file_);
  QMessageBox::warning(this, Program_Name(), text);
}

void Frm_Section::Load_SectionsSeries() {
  const QSignalBlocker block(Lst_SectionSerie);
  Lst_SectionSerie->clear();
  std::vector<std::string> series;
  if (!zarvek::Load_SectionsSeries(file_, series)) {
    Lst_SectionNumber->clear();
    Txt_SectionProperties->clear();
    Lbl_SectionLabel->clear();
    Catalogue_Failure();
    return;
  }
  for (const std::string& s : series) Lst_SectionSerie->addItem(QString::fromStdString(s));
  const int row = Select_Item(series, series_);
  Lst_SectionSerie->setCurrentRow(row);
  Load_SerieNumbers();
}

void Frm_Section::Load_SerieNumbers() {
  const QSignalBlocker block(Lst_SectionNumber);
  Lst_SectionNumber->clear();
  sections_.clear();
  Txt_SectionProperties->clear();
  Lbl_SectionLabel->clear();
  QListWidgetItem* item = Lst_SectionSerie->currentItem();
  if (!item) return;
  if (!zarvek::Load_SerieNumbers(file_, item->text().toStdString(), sections_)) {
    sections_.clear();
    Catalogue_Failure();
    return;
  }
  std::vector<std::string> names;
  for (const SectionRecord& s : sections_) {
    names.push_back(s.name);
    Lst_SectionNumber->addItem(QString::fromStdString(s.name));
  }
  const int row = Select_Item(names, number_);
  Lst_SectionNumber->setCurrentRow(row);
  Number_Selected(row);
}

void Frm_Section::Number_Selected(int row) {
  if (row < 0 || row >= int(sections_.size())) return;
  result_ = Calculer_SectionI(sections_[row]);
  const QString series = Lst_SectionSerie->currentItem() ? Lst_SectionSerie->currentItem()->text()
                                                         : QString();
  Lbl_SectionLabel->setText(series + " " + QString::fromStdString(result_.name));
  text_ = Show_SectionProperties(result_);
  Txt_SectionProperties->setPlainText(QString::fromStdString(text_));
}

void Frm_Section::Transfer_Section() {
  QListWidgetItem* s = Lst_SectionSerie->currentItem();
  if (!s || Lst_SectionNumber->currentRow() < 0) return;
  const SectionTransfer t =
      zarvek::Transfer_Section(result_, s->text().toStdString(), model_.Fact_Izt, model_.Fact_Iw);
  Take_CatalogueSection(model_, t);
  emit sectionTransferred();
  accept();
}

}  // namespace zarvek
