// Tools > Sweep driven by the keyboard and the mouse: the range typed, the
// run, the progress, the curve's table on the clipboard, refused points, stop.
#include <QtTest>
#include <QtWidgets>

#include "analysis/qt/Frm_Sweep.h"
#include "foundation/Language.h"
#include "solver/solver_support.h"

using namespace zarvek;
using test::Mcr_Uniform;  // IPE 300 under uniform moment, kN and cm

namespace {

void Type(QLineEdit* e, const QString& text) {
  e->setFocus(Qt::TabFocusReason);
  QTest::keyClick(e, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(e, Qt::Key_Delete);
  QTest::keyClicks(e, text);
}

// The range typed into its three fields.
void Range(Frm_Sweep& f, const char* from, const char* to, const char* step) {
  Type(f.Txt_From, from), Type(f.Txt_To, to), Type(f.Txt_Step, step);
}

}  // namespace

class Test_Frm_Sweep : public QObject {
  Q_OBJECT

  QTemporaryDir dir_;
  BeamModel m_;

 private slots:
  void initTestCase() {
    QVERIFY(dir_.isValid());
    Init_Default(m_, ZARVEK_BIN_DIR);  // IPE 300, 10 m, fork supports, 100 kN.m
    QVERIFY(Load_LanguageFile(std::string(ZARVEK_BIN_DIR) + "/ZARVEK_UK.MSG", dir_.path().toStdString() + "/L.TMP"));
    Load_Messages();
  }

  void spanSweepByTheKeyboard() {
    Frm_Sweep f(m_);
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    QCOMPARE(f.Cmb_Field->currentText(), QString("Txt_L")); QCOMPARE(f.Lbl_Unit[0]->text(), QString("m"));
    QVERIFY(!f.Cmd_Copy->isEnabled());

    // a step of zero is refused in the window, nothing runs
    Range(f, "4", "12", "0");
    QTest::mouseClick(f.Cmd_Run, Qt::LeftButton);
    QVERIFY(f.Lbl_Message->text().startsWith("The step must be non-zero") && f.Points().empty());

    // 0.5 m lies below the 1 m of a 100-element beam: a refused row, the
    // others solved
    Type(f.Txt_From, "0.5");
    Type(f.Txt_Step, "3.5");
    QTest::keyClick(f.Txt_Step, Qt::Key_Return);  // Run is the default button
    QTRY_VERIFY_WITH_TIMEOUT(f.Cmd_Copy->isEnabled(), 20000);
    QCOMPARE(f.Prg_Sweep->maximum(), 4); QCOMPARE(f.Prg_Sweep->value(), 4);
    QCOMPARE(f.Lbl_Message->text(), QString("3 of 4 points solved"));

    QGuiApplication::clipboard()->clear();
    QTest::mouseClick(f.Cmd_Copy, Qt::LeftButton);
    const QStringList rows = QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
    QCOMPARE(rows.size(), 5);
    QCOMPARE(rows[0], QString("Txt_L [m],mucr,Mcr [kN.m],status,\"Mb,Rd [kN.m]\",message"));
    // the span typed in m reaches the solve: the last row, 11 m, in kN.m (the sweep of the closed
    // form is the core's)
    const QStringList c = rows[4].split(',');
    QCOMPARE(c[0] + " " + c[3], QString("11 0"));
    QVERIFY2(std::fabs(std::fabs(c[2].toDouble()) / (Mcr_Uniform(1100) / 100) - 1) < 1e-3, qPrintable(rows[4]));
  }

  void stopEndsTheRestOfTheSweep() {
    Frm_Sweep f(m_);
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    Range(f, "2", "300", "0.05");  // 5961 points: far longer than the click
    QTest::mouseClick(f.Cmd_Run, Qt::LeftButton);
    QVERIFY(f.Cmd_Stop->isEnabled() && !f.Cmd_Run->isEnabled());
    QTest::mouseClick(f.Cmd_Stop, Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(f.Cmd_Run->isEnabled(), 20000);
    QCOMPARE(f.Points().size(), size_t(5961));
    QVERIFY(std::any_of(f.Points().begin(), f.Points().end(), [](auto& p) { return p.status == Sweep_NotConverged; }));
  }

};

QTEST_MAIN(Test_Frm_Sweep)
#include "test_frm_sweep.moc"
