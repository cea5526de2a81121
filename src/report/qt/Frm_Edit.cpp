#include "report/qt/Frm_Edit.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QResizeEvent>
#include <QShortcut>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>
#include <cstring>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Translate_Form.h"
#include "model/ProjectFile.h"
#include "report/qt/Report_Qt.h"

namespace zarvek {

namespace {

QString Q(const std::string& utf8) { return QString::fromUtf8(utf8.data(), (qsizetype)utf8.size()); }

// A menu caption: the language's text keeps its "&" hot key.
QString Menu_Caption(int section, int line, const char* fallback) {
  const std::string t = Caption(section, line);
  return t.empty() ? QString::fromUtf8(fallback) : Q(t);
}

}  // namespace

Frm_Edit::Frm_Edit(BeamModel& m, Context ctx, QWidget* parent)
    : QDialog(parent), m_(m), ctx_(std::move(ctx)) {
  setObjectName(QStringLiteral("Frm_Edit"));
  setModal(true);
  pictures_ = [this](const BeamModel& model) { return Qt_ReportPictures(model, ctx_.ExternalMode); };

  auto* menuBar = new QMenuBar(this);
  Menu_File_ = menuBar->addMenu(QString());
  Menu_File_->setObjectName(QStringLiteral("Menu_File"));
  Menu_File_SaveAs_ = Menu_File_->addAction(QString(), this, &Frm_Edit::Menu_File_SaveAs);
  Menu_File_SaveAs_->setObjectName(QStringLiteral("Menu_File_SaveAs"));
  Menu_File_SaveAs_->setShortcut(QKeySequence::SaveAs);
  Menu_File_ExportPdf_ = Menu_File_->addAction(QString(), this, &Frm_Edit::Menu_File_ExportPdf);
  Menu_File_ExportPdf_->setObjectName(QStringLiteral("Menu_File_ExportPdf"));
  Menu_File_Print_ = Menu_File_->addAction(QString(), this, &Frm_Edit::Menu_File_Print);
  Menu_File_Print_->setObjectName(QStringLiteral("Menu_File_Print"));
  Menu_File_Print_->setShortcut(QKeySequence::Print);
  Menu_File_->addSeparator();
  Menu_File_Quit_ = Menu_File_->addAction(QString(), this, &QDialog::accept);
  Menu_File_Quit_->setObjectName(QStringLiteral("Menu_File_Quit"));
  Menu_Edit_ = menuBar->addMenu(QString());
  Menu_Edit_->setObjectName(QStringLiteral("Menu_Edit"));
  Menu_Edit_Copy_ = Menu_Edit_->addAction(QString(), this, &Frm_Edit::Menu_Edit_Copy);
  Menu_Edit_Copy_->setObjectName(QStringLiteral("Menu_Edit_Copy"));
  Menu_Quid_ = menuBar->addMenu(QStringLiteral("&?"));
  Menu_Quid_->setObjectName(QStringLiteral("Menu_Quid"));
  Menu_Quid_Help_ = Menu_Quid_->addAction(QString(), this, &Frm_Edit::helpRequested);
  Menu_Quid_Help_->setObjectName(QStringLiteral("Menu_Quid_Help"));
  Menu_Quid_Help_->setShortcut(QKeySequence::HelpContents);

  RichTextBox_ = new QTextEdit(this);
  RichTextBox_->setObjectName(QStringLiteral("RichTextBox"));
  // the report is a record of the calculation: it is read, selected and
  // copied, not edited, so that what is saved is what was computed
  RichTextBox_->setReadOnly(true);
  RichTextBox_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // the text runs as wide as on the page, so the tab columns stay in place
  RichTextBox_->setLineWrapMode(QTextEdit::FixedPixelWidth);
  RichTextBox_->setLineWrapColumnOrWidth(qRound(Report_TextWidth / 15.0));
  RichTextBox_->setContextMenuPolicy(Qt::DefaultContextMenu);

  Pnl_WaitEdit_ = new QLabel(this);
  Pnl_WaitEdit_->setObjectName(QStringLiteral("Pnl_WaitEdit"));
  Pnl_WaitEdit_->setAlignment(Qt::AlignCenter);
  Pnl_WaitEdit_->setAutoFillBackground(true);
  Pnl_WaitEdit_->setFrameShape(QFrame::Panel);
  Pnl_WaitEdit_->hide();

  Cmd_OK_ = new QPushButton(QStringLiteral("OK"), this);
  Cmd_OK_->setObjectName(QStringLiteral("Cmd_OK"));
  Cmd_OK_->setDefault(true);
  connect(Cmd_OK_, &QPushButton::clicked, this, &QDialog::accept);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(Cmd_OK_);
  auto* layout = new QVBoxLayout(this);
  layout->setMenuBar(menuBar);
  layout->addWidget(RichTextBox_, 1);
  layout->addLayout(buttons);

  Translate_Form();
  if (parent) resize(parent->size());
  else resize(760, 680);
}

void Frm_Edit::Translate_Form() {
  setWindowTitle(Menu_Caption(3, 1, "Results report"));
  Menu_File_->setTitle(Menu_Caption(1, 2, "&File"));
  Menu_File_SaveAs_->setText(Menu_Caption(1, 6, "Save &As..."));
  Menu_File_ExportPdf_->setText(Lang_Further("Menu_File_ExportPdf", "E&xport to PDF..."));
  Menu_File_Print_->setText(Menu_Caption(3, 2, "&Print..."));
  Menu_File_Quit_->setText(Menu_Caption(1, 8, "&Quit"));
  Menu_Edit_->setTitle(Menu_Caption(1, 9, "&Edit"));
  Menu_Edit_Copy_->setText(Menu_Caption(3, 3, "&Copy"));
  Menu_Quid_Help_->setText(Menu_Caption(1, 17, "&Help"));
  const std::string wait = Msg_Utf8(7);
  Pnl_WaitEdit_->setText(wait.empty() ? QStringLiteral("...") : Q(wait));
}

void Frm_Edit::Set_PictureSource(std::function<Report_PictureSource(const BeamModel&)> source) {
  pictures_ = std::move(source);
}

std::string Frm_Edit::Fingerprint() const {
  // everything the report shows: the data and options as the project file
  // holds them, the results, and the language of the captions
  std::string f = Project_Text(m_);
  f += '\x1f' + m_.Txt_mucr + '\x1f' + m_.Txt_Mcr + '\x1f' + m_.Txt_Mmax[0] + '\x1f' + m_.Lbl_xfMmax[0] + '\x1f' +
       m_.Lbl_Iteration + '\x1f' + m_.Lbl_Tolerance + '\x1f' + std::to_string(m_.Mode_Max) + '\x1f';
  f.append(reinterpret_cast<const char*>(m_.Mode_Vector.data()), m_.Mode_Vector.size() * sizeof(float));
  // the curves shown, whose keys the report writes
  for (bool b : {m_.Chk_EffM, m_.Chk_EffV, m_.Chk_v, m_.Chk_t, m_.Chk_vp, m_.Chk_tp}) f += b ? '1' : '0';
  f += '\x1f' + ctx_.Language_Code + '\x1f' + (ctx_.ExternalMode ? "1" : "0") + '\x1f' + Caption(3, 1) +
       Msg_Utf8(58) + Caption(1, 35);
  return f;
}

bool Frm_Edit::Needs_Rebuild() const { return builds_ == 0 || Fingerprint() != built_for_; }

bool Frm_Edit::Refresh_Report(bool force) {
  Translate_Form();
  if (!force && !Needs_Rebuild()) return false;
  Pnl_WaitEdit_->setGeometry(RichTextBox_->geometry());
  Pnl_WaitEdit_->raise();
  Pnl_WaitEdit_->show();
  Pnl_WaitEdit_->repaint();
  QApplication::setOverrideCursor(Qt::WaitCursor);
  doc_ = Build_Report(m_, ctx_.Language_Code, pictures_ ? pictures_(m_) : Report_PictureSource());
  Fill_TextDocument(*RichTextBox_->document(), doc_);
  RichTextBox_->moveCursor(QTextCursor::Start);
  built_for_ = Fingerprint();
  ++builds_;
  QApplication::restoreOverrideCursor();
  Pnl_WaitEdit_->hide();
  return true;
}

void Frm_Edit::showEvent(QShowEvent* e) {
  QDialog::showEvent(e);
  if (!Needs_Rebuild()) return;
  // the window comes up at once with the panel over the text; the report is
  // built as soon as the window has been painted
  Pnl_WaitEdit_->setGeometry(RichTextBox_->geometry());
  Pnl_WaitEdit_->raise();
  Pnl_WaitEdit_->show();
  QTimer::singleShot(0, this, [this] { Refresh_Report(); });
}

void Frm_Edit::resizeEvent(QResizeEvent* e) {
  QDialog::resizeEvent(e);
  if (Pnl_WaitEdit_->isVisible()) Pnl_WaitEdit_->setGeometry(RichTextBox_->geometry());
}

bool Frm_Edit::Save_Rtf(const QString& path, QString* error) const { return zarvek::Save_Rtf(doc_, path, error); }

bool Frm_Edit::Save_Pdf(const QString& path, QString* error) const { return Export_Pdf(doc_, path, error); }

void Frm_Edit::Menu_File_SaveAs() {
  QFileDialog dlg(this, Menu_File_SaveAs_->text().remove(QLatin1Char('&')), Q(ctx_.Dir_Data),
                  Lang_Further("File_Filter_Rtf", "Rich Text documents") + " (*.RTF *.rtf)");
  dlg.setAcceptMode(QFileDialog::AcceptSave);
  dlg.setDefaultSuffix(QStringLiteral("RTF"));
  if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return;
  const QString name = dlg.selectedFiles().first();
  if (name.contains(QLatin1Char('*'))) return;
  QString error;
  if (!Save_Rtf(name, &error)) QMessageBox::warning(this, QString::fromUtf8(Program_Name()), error);
}

void Frm_Edit::Menu_File_ExportPdf() {
  QFileDialog dlg(this, Menu_File_ExportPdf_->text().remove(QLatin1Char('&')), Q(ctx_.Dir_Data),
                  Lang_Further("File_Filter_Pdf", "PDF documents") + " (*.pdf *.PDF)");
  dlg.setAcceptMode(QFileDialog::AcceptSave);
  dlg.setDefaultSuffix(QStringLiteral("pdf"));
  if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return;
  const QString name = dlg.selectedFiles().first();
  if (name.contains(QLatin1Char('*'))) return;
  QString error;
  if (!Save_Pdf(name, &error)) QMessageBox::warning(this, QString::fromUtf8(Program_Name()), error);
}

void Frm_Edit::Menu_File_Print() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setFullPage(true);  // the document keeps its own 2 cm margins
  QPrintDialog dlg(&printer, this);
  dlg.setOption(QAbstractPrintDialog::PrintSelection, false);
  if (dlg.exec() != QDialog::Accepted) return;
  Print_Report(doc_, printer);
  if (printer.printerState() == QPrinter::Error) {
    const std::string text = Msg_Utf8(16);
    QMessageBox::warning(this, QString::fromUtf8(Program_Name()),
                         text.empty() ? QStringLiteral("Printing failed.") : Q(text));
  }
}

void Frm_Edit::Menu_Edit_Copy() {
  RichTextBox_->selectAll();
  // rich text for word processors (with the pictures), HTML and plain text
  // for the others
  auto* data = new QMimeData;
  const std::string rtf = Rtf_Of(doc_);
  const QByteArray bytes(rtf.data(), (qsizetype)rtf.size());
  data->setData(QStringLiteral("text/rtf"), bytes);
  data->setData(QStringLiteral("application/rtf"), bytes);
  data->setHtml(RichTextBox_->document()->toHtml());
  data->setText(Q(Plain_Text(doc_)));
  QApplication::clipboard()->setMimeData(data);
}

}  // namespace zarvek
