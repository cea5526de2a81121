#include "diagrams/qt/Frm_EigenVector.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QFileDialog>
#include <QFontMetrics>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <climits>
#include <cmath>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Translate_Form.h"

namespace zarvek {

namespace {

// A caption of the loaded language (Windows-1252) for Qt, or the English
// text while no language is loaded.
QString Lang(int section, int line, const char* fallback) {
  const std::string& t = Section_Line(section, line);
  return t.empty() ? QString::fromUtf8(fallback) : QString::fromStdString(Cp1252_To_Utf8(t));
}

struct Column {
  int zeros;           // width, in characters "0" of the window's font
  const char* name;    // row 0 of the heading
  const char* unit;    // row 1
};
const Column Columns[6] = {{5, "N\xC2\xB0", " "},          {12, "x", "(cm)"},
                           {17, "v", "(cm)"},              {17, "\xCE\xB8", "(rd)"},
                           {17, "v'", "(rd)"},             {17, "\xCE\xB8\xE2\x80\xB2", "(rd/cm)"}};

QColor Colour_Of(unsigned c) { return QColor(c & 0xFF, c >> 8 & 0xFF, c >> 16 & 0xFF); }

}  // namespace

// ---- the rules of the cells ---------------------------------------------------

std::string Frm_EigenVector::Mode_Text(float value) {
  const float a = std::fabs(value);
  if (!(a >= 1e-20f)) return "0";
  return Format_Pattern(value, "0.0000E+00");
}

bool Frm_EigenVector::Mode_Tinted(float value) {
  const float a = std::fabs(value);
  return a >= 1e-20f && std::fabs(1 - a) < 2e-5f;
}

std::string Frm_EigenVector::X_Text(int i, int n, double L) {
  const double x = n > 1 ? (i - 1) * L / (n - 1) : 0.0;
  return Format_Pattern(x + 0.001, "0.0");
}

// ---- window -------------------------------------------------------------------

Frm_EigenVector::Frm_EigenVector(const BeamModel& m, bool ExternalMode, QWidget* parent)
    : QDialog(parent), m_(m), external_(ExternalMode) {
  setObjectName(QStringLiteral("Frm_EigenVector"));
  setModal(true);

  auto* menuBar = new QMenuBar(this);
  Menu_File_ = menuBar->addMenu(QString());
  Menu_File_->setObjectName(QStringLiteral("Menu_File"));
  Menu_File_SaveCsv_ = Menu_File_->addAction(QString(), this, &Frm_EigenVector::Menu_File_SaveCsv);
  Menu_File_SaveCsv_->setObjectName(QStringLiteral("Menu_File_SaveCsv"));
  Menu_File_->addSeparator();
  Menu_File_Quit_ = Menu_File_->addAction(QString(), this, &QDialog::accept);
  Menu_File_Quit_->setObjectName(QStringLiteral("Menu_File_Quit"));
  Menu_Edit_ = menuBar->addMenu(QString());
  Menu_Edit_->setObjectName(QStringLiteral("Menu_Edit"));
  Menu_Edit_Copy_ = Menu_Edit_->addAction(QString(), this, &Frm_EigenVector::Menu_Edit_Copy);
  Menu_Edit_Copy_->setObjectName(QStringLiteral("Menu_Edit_Copy"));
  Menu_Quid_ = menuBar->addMenu(QStringLiteral("&?"));
  Menu_Quid_->setObjectName(QStringLiteral("Menu_Quid"));
  Menu_Quid_Help_ = Menu_Quid_->addAction(QString(), this, &Frm_EigenVector::helpRequested);
  Menu_Quid_Help_->setObjectName(QStringLiteral("Menu_Quid_Help"));
  Menu_Quid_Help_->setShortcut(QKeySequence::HelpContents);

  Cdr_Trad_ = new QGroupBox(this);
  Cdr_Trad_->setObjectName(QStringLiteral("Cdr_Trad"));
  Grd_Eigen_ = new QTableWidget(Cdr_Trad_);
  Grd_Eigen_->setObjectName(QStringLiteral("Grd_Eigen"));
  Grd_Eigen_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  Grd_Eigen_->setSelectionMode(QAbstractItemView::ContiguousSelection);
  Grd_Eigen_->setSelectionBehavior(QAbstractItemView::SelectItems);
  Grd_Eigen_->verticalHeader()->hide();
  Grd_Eigen_->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  Grd_Eigen_->horizontalHeader()->setHighlightSections(false);
  Grd_Eigen_->installEventFilter(this);
  auto* frame = new QVBoxLayout(Cdr_Trad_);
  frame->addWidget(Grd_Eigen_);

  Cmd_OK_ = new QPushButton(QStringLiteral("OK"), this);
  Cmd_OK_->setObjectName(QStringLiteral("Cmd_OK"));
  connect(Cmd_OK_, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(Cmd_OK_);
  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(menuBar);
  layout->addWidget(Cdr_Trad_, 1);
  layout->addLayout(buttons);

  Translate_Form();
  PrepareAndFill_GrdEigen();
  Menu_Edit_Copy_->setEnabled(false);

  // as wide as the table, as high as most of the screen
  int w = Grd_Eigen_->frameWidth() * 2 + 40;
  for (int c = 0; c < Grd_Eigen_->columnCount(); ++c)
    if (!Grd_Eigen_->isColumnHidden(c)) w += Grd_Eigen_->columnWidth(c);
  resize(w + 40, 560);
}

void Frm_EigenVector::Translate_Form() {
  setWindowTitle(Lang(4, 1, "Eigenvector"));
  Menu_Edit_Copy_->setText(Lang(4, 2, "&Copy"));
  Cdr_Trad_->setTitle(Lang(4, 3, "Buckling mode at the nodes"));
  Menu_File_->setTitle(Lang(1, 2, "&File"));
  Menu_File_Quit_->setText(Lang(1, 8, "&Quit"));
  Menu_Edit_->setTitle(Lang(1, 9, "&Edit"));
  Menu_Quid_Help_->setText(Lang(1, 17, "&Help"));
  Menu_File_SaveCsv_->setText(Lang_Further("Menu_File_SaveCsv", "Save as &CSV..."));
}

void Frm_EigenVector::PrepareAndFill_GrdEigen() {
  QTableWidget& g = *Grd_Eigen_;
  const int n = m_.Mode_Vector.size() > 1 ? (int)(m_.Mode_Vector.size() - 1) / 4 : 0;
  g.clear();
  g.setColumnCount(6);
  g.setRowCount(n);

  // widths by strings of zeros in the window's font, headings in two lines
  const QFontMetrics fm(g.font());
  g.verticalHeader()->setDefaultSectionSize(fm.height() + 6);
  for (int c = 0; c < 6; ++c) {
    g.setColumnWidth(c, fm.horizontalAdvance(QString(Columns[c].zeros, QLatin1Char('0'))) + 8);
    auto* h = new QTableWidgetItem(QString::fromUtf8(Columns[c].name) + QLatin1Char('\n') +
                                   QString::fromUtf8(Columns[c].unit));
    h->setTextAlignment(Qt::AlignCenter);
    QFont f = h->font();
    f.setBold(false);
    h->setFont(f);
    g.setHorizontalHeaderItem(c, h);
  }

  auto cell = [&](int row, int col, const std::string& text) {
    auto* it = new QTableWidgetItem(QString::fromStdString(text));
    it->setTextAlignment(Qt::AlignCenter);
    it->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    g.setItem(row, col, it);
    return it;
  };

  // node numbers and abscissae
  const double L = Num_Of_Text(m_.Txt_L) * m_.Fact_L;
  for (int i = 1; i <= n; ++i) {
    cell(i - 1, 0, " " + std::to_string(i));
    cell(i - 1, 1, external_ ? std::string() : X_Text(i, n, L));
  }
  g.setColumnHidden(1, external_);

  // v, theta, v', theta' of each node, the normalising value tinted
  int k = 0;
  for (int i = 1; i <= n; ++i)
    for (int c = 2; c <= 5; ++c) {
      ++k;
      const float v = m_.Mode_Vector[k];
      QTableWidgetItem* it = cell(i - 1, c, Mode_Text(v));
      if (Mode_Tinted(v)) it->setBackground(Colour_Of(Tint_Colour));
    }
}

// ---- clipboard and file ---------------------------------------------------------

QString Frm_EigenVector::Selection_Text() const {
  const auto ranges = Grd_Eigen_->selectedRanges();
  if (ranges.isEmpty()) return QString();
  // the block from the first to the last selected row and column, whichever
  // way it was dragged
  int top = INT_MAX, bottom = -1, left = INT_MAX, right = -1;
  for (const auto& r : ranges) {
    top = std::min(top, r.topRow());
    bottom = std::max(bottom, r.bottomRow());
    left = std::min(left, r.leftColumn());
    right = std::max(right, r.rightColumn());
  }
  QString s;
  for (int row = top; row <= bottom; ++row) {
    bool first = true;
    for (int col = left; col <= right; ++col) {
      if (Grd_Eigen_->isColumnHidden(col)) continue;
      if (!first) s += QLatin1Char('\t');
      first = false;
      const QTableWidgetItem* it = Grd_Eigen_->item(row, col);
      s += it ? it->text().trimmed() : QString();
    }
    s += QStringLiteral("\r\n");
  }
  return s;
}

void Frm_EigenVector::Menu_Edit_Copy() {
  const QString text = Selection_Text();
  if (text.isEmpty()) return;
  QClipboard* cb = QApplication::clipboard();
  cb->clear();
  cb->setText(text);
}

QString Frm_EigenVector::Csv_Text() const {
  const QChar sep = Dec_Sep == '.' ? QLatin1Char(',') : QLatin1Char(';');
  auto field = [&](QString t) {
    t = t.trimmed();
    if (t.contains(sep) || t.contains(QLatin1Char('"'))) t = QLatin1Char('"') + t.replace("\"", "\"\"") + QLatin1Char('"');
    return t;
  };
  QString s;
  bool first = true;
  for (int c = 0; c < 6; ++c) {
    if (Grd_Eigen_->isColumnHidden(c)) continue;
    if (!first) s += sep;
    first = false;
    QString unit = QString::fromUtf8(Columns[c].unit).trimmed();
    s += field(QString::fromUtf8(Columns[c].name) + (unit.isEmpty() ? QString() : QLatin1Char(' ') + unit));
  }
  s += QStringLiteral("\r\n");
  for (int row = 0; row < Grd_Eigen_->rowCount(); ++row) {
    first = true;
    for (int c = 0; c < 6; ++c) {
      if (Grd_Eigen_->isColumnHidden(c)) continue;
      if (!first) s += sep;
      first = false;
      const QTableWidgetItem* it = Grd_Eigen_->item(row, c);
      s += field(it ? it->text() : QString());
    }
    s += QStringLiteral("\r\n");
  }
  return s;
}

bool Frm_EigenVector::Save_Csv(const QString& path, QString* error) const {
  // with a byte order mark, so that spreadsheets read the Greek headings as UTF-8
  const QByteArray bytes = QByteArray("\xEF\xBB\xBF") + Csv_Text().toUtf8();
  if (Write_File_Atomic(path.toStdString(), std::string(bytes.constData(), bytes.size()))) return true;
  if (error) *error = path + ": " + Lang_Further("Csv_NotWritten", "the file can't be written");
  return false;
}

void Frm_EigenVector::Menu_File_SaveCsv() {
  QFileDialog dlg(this, Menu_File_SaveCsv_->text().remove(QLatin1Char('&')), QString::fromStdString(dir_),
                  Lang_Further("File_Filter_Csv", "CSV files") + " (*.csv *.CSV)");
  dlg.setAcceptMode(QFileDialog::AcceptSave);
  dlg.setDefaultSuffix(QStringLiteral("csv"));
  if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return;
  QString error;
  if (!Save_Csv(dlg.selectedFiles().first(), &error))
    QMessageBox::warning(this, QString::fromUtf8(Program_Name()), error);
}

bool Frm_EigenVector::eventFilter(QObject* watched, QEvent* event) {
  if (watched == Grd_Eigen_) {
    switch (event->type()) {
      case QEvent::FocusIn: Menu_Edit_Copy_->setEnabled(true); break;
      case QEvent::FocusOut: {
        // Opening a menu (by a click or by Alt) takes the focus for a moment:
        // the selection is still the one to copy.
        const Qt::FocusReason why = static_cast<QFocusEvent*>(event)->reason();
        if (why != Qt::PopupFocusReason && why != Qt::MenuBarFocusReason && why != Qt::ActiveWindowFocusReason)
          Menu_Edit_Copy_->setEnabled(false);
        break;
      }
      case QEvent::KeyPress:
        if (static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
          Menu_Edit_Copy();
          return true;
        }
        break;
      default: break;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace zarvek
