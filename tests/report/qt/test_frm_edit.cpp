// The report window: built when shown, rebuilt only after a change, saved as
// RTF and PDF with the same text, copied with its rich text.
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QLabel>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QtTest>
#include <unistd.h>

#include "analysis/Proceed.h"
#include "model/DataEntry.h"
#include "report/qt/Frm_Edit.h"
#include "report/qt/Report_Qt.h"
#include "report/rtf_reader.h"

using namespace zarvek;

namespace {

BeamModel Solved_Model() {
  BeamModel m;
  Init_Default(m, "/tmp");
  SolveControl ctl;
  const std::string problem = QDir::tempPath().toStdString() + "/zarvek-frm-edit-" + std::to_string(::getpid()) + ".ZVK";
  const ProceedResult r = Proceed(m, problem, ctl);
  ::unlink(problem.c_str());
  if (r.Solve_Status != 0) qWarning("solve failed: %s", r.Message.c_str());
  return m;
}

QByteArray Read(const QString& path) {
  QFile f(path);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

}  // namespace

class Test_Frm_Edit : public QObject {
  Q_OBJECT
 private slots:
  void builtOnceUntilTheDataChange() {
    BeamModel m = Solved_Model();
    QVERIFY(m.Mode_Max > 0);
    Frm_Edit w(m, Frm_Edit::Context{"UK", QDir::tempPath().toStdString(), false});
    QCOMPARE(w.Build_Count(), 0);
    QLabel* wait = w.findChild<QLabel*>(QStringLiteral("Pnl_WaitEdit"));
    QVERIFY(wait);
    w.show();
    QVERIFY(wait->isVisible());  // covers the text until the report is built
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTRY_COMPARE(w.Build_Count(), 1);
    QVERIFY(!wait->isVisible());
    const QString text = w.RichTextBox()->toPlainText();
    QVERIFY(text.contains(QStringLiteral("Mcr\t=\t") + QString::fromStdString(m.Txt_Mcr)));

    // a second opening with the same data shows the same text at once
    w.hide();
    w.show();
    QVERIFY(!wait->isVisible());
    QTest::qWait(50);
    QCOMPARE(w.Build_Count(), 1);
    QVERIFY(!w.Refresh_Report());

    // a change of a field, of an option, of a result: built again
    m.Txt_L = "8";
    QVERIFY(w.Needs_Rebuild());
    QVERIFY(w.Refresh_Report());
    QCOMPARE(w.Build_Count(), 2);
    QVERIFY(w.RichTextBox()->toPlainText().contains(QStringLiteral("\tL\t=\t8\tm")));
    m.Chk_vp = false;  // a curve of the mode no longer shown: its key goes
    QVERIFY(w.Needs_Rebuild());
    w.Refresh_Report();
    InitProcessInfo(m);
    QVERIFY(w.Needs_Rebuild());
    w.Refresh_Report();
    QVERIFY(!w.RichTextBox()->toPlainText().contains(QStringLiteral("Mcr\t=")));
  }

  void savedAndCopiedAsShown() {
    BeamModel m = Solved_Model();
    Frm_Edit w(m, Frm_Edit::Context{});
    w.Refresh_Report();
    QTemporaryDir dir;

    // RTF: the text of the window, four PNG pictures
    const QString rtfPath = dir.filePath(QStringLiteral("report.RTF"));
    QVERIFY(w.Save_Rtf(rtfPath));
    const QByteArray rtf = Read(rtfPath);
    const rtf_test::Rtf_Content c = rtf_test::Read_Rtf(rtf.toStdString());
    QVERIFY(c.well_formed);
    QCOMPARE(c.pictures.size(), size_t(4));
    for (const auto& p : c.pictures) QCOMPARE(QString::fromStdString(p.type), QStringLiteral("pngblip"));
    QString shown = w.RichTextBox()->toPlainText();
    shown.remove(QChar(QChar::ObjectReplacementCharacter));
    QCOMPARE(QString::fromStdString(c.text).trimmed(), shown.trimmed());

    // saving again replaces the file whole
    m.Txt_E = "205000";
    w.Refresh_Report();
    QVERIFY(w.Save_Rtf(rtfPath));
    QVERIFY(Read(rtfPath).contains("205000"));
    QVERIFY(!w.Save_Rtf(dir.filePath(QStringLiteral("missing/report.RTF"))));

    // PDF: a real file of A4 pages
    const QString pdfPath = dir.filePath(QStringLiteral("report.pdf"));
    QVERIFY(w.Save_Pdf(pdfPath));
    const QByteArray pdf = Read(pdfPath);
    QVERIFY(pdf.startsWith("%PDF-"));
    QVERIFY(pdf.contains("/MediaBox [0 0 595"));

    // copy: the whole report as RTF, HTML and plain text
    w.Menu_Edit_Copy();
    const QMimeData* data = QApplication::clipboard()->mimeData();
    QVERIFY(data);
    QVERIFY(data->data(QStringLiteral("text/rtf")).startsWith("{\\rtf1"));
    QVERIFY(data->text().contains(QStringLiteral("E\t=\t205000\tMPa")));
  }

};

QTEST_MAIN(Test_Frm_Edit)
#include "test_frm_edit.moc"
