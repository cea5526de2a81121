// The report window: built when shown, rebuilt after a change, saved as RTF and PDF, copied as rich text.
#include <QtTest>
#include <QtWidgets>

#include "model/DataEntry.h"
#include "report/qt/Frm_Edit.h"
#include "report/qt/Report_Qt.h"
#include "report/rtf_reader.h"
#include "report/solved_model.h"

using namespace zarvek;

namespace {

QByteArray Read(const QString& path) {
  QFile f(path);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

}  // namespace

class Test_Frm_Edit : public QObject {
  Q_OBJECT
 private slots:
  void builtOnceUntilTheDataChangeSavedAndCopiedAsShown() {
    BeamModel m = report_test::Default_Model();
    QCOMPARE(report_test::Solve(m), std::string());
    Frm_Edit w(m, Frm_Edit::Context{"UK", QDir::tempPath().toStdString(), false});
    QCOMPARE(w.Build_Count(), 0);
    QLabel* wait = w.findChild<QLabel*>("Pnl_WaitEdit");
    w.show();
    QVERIFY(wait && wait->isVisible());  // covers the text until the report is built
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTRY_COMPARE(w.Build_Count(), 1);
    QVERIFY(!wait->isVisible());
    QVERIFY(w.RichTextBox()->toPlainText().contains("Mcr\t=\t" + QString::fromStdString(m.Txt_Mcr)));

    // a second opening with the same data shows the same text at once
    w.hide(), w.show();
    QVERIFY(!wait->isVisible());
    QTest::qWait(50);
    QCOMPARE(w.Build_Count(), 1); QVERIFY(!w.Refresh_Report());

    // RTF: the text of the window
    QTemporaryDir dir;
    const QString rtfPath = dir.filePath("report.RTF");
    QVERIFY(w.Save_Rtf(rtfPath));
    const rtf_test::Rtf_Content c = rtf_test::Read_Rtf(Read(rtfPath).toStdString());
    QVERIFY(c.well_formed);
    QString shown = w.RichTextBox()->toPlainText();
    shown.remove(QChar(QChar::ObjectReplacementCharacter));
    QCOMPARE(QString::fromStdString(c.text).trimmed(), shown.trimmed());

    // a change of a field: built again, and saving again replaces the file whole
    m.Txt_E = "205000";
    QVERIFY(w.Needs_Rebuild()); QVERIFY(w.Refresh_Report());
    QCOMPARE(w.Build_Count(), 2); QVERIFY(w.Save_Rtf(rtfPath));
    QVERIFY(Read(rtfPath).contains("205000"));
    QVERIFY(!w.Save_Rtf(dir.filePath("missing/report.RTF")));

    // PDF: a real file
    QVERIFY(w.Save_Pdf(dir.filePath("report.pdf")));
    QVERIFY(Read(dir.filePath("report.pdf")).startsWith("%PDF-"));

    // copy: the whole report as RTF, HTML and plain text
    w.Menu_Edit_Copy();
    const QMimeData* data = QApplication::clipboard()->mimeData();
    QVERIFY(data && data->data("text/rtf").startsWith("{\\rtf1"));
    QVERIFY(data->text().contains("E\t=\t205000\tMPa"));

    // a change of an option, of a result: built again
    m.Chk_vp = false;  // a curve of the mode no longer shown: its key goes
    QVERIFY(w.Needs_Rebuild());
    w.Refresh_Report();
    InitProcessInfo(m);
    QVERIFY(w.Needs_Rebuild());
    w.Refresh_Report();
    QVERIFY(!w.RichTextBox()->toPlainText().contains("Mcr\t="));
  }
};

QTEST_MAIN(Test_Frm_Edit)
#include "test_frm_edit.moc"
