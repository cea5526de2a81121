// The batch window: progress, the stop button and the clipboard.
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "analysis/qt/Frm_DirectSolve.h"
#include "foundation/Language.h"

using namespace zarvek;

class Test_Frm_DirectSolve : public QObject {
  Q_OBJECT

  QTemporaryDir dir_;
  StartupState s_;

 private slots:
  void initTestCase() {
    QVERIFY(dir_.isValid());
    s_.App_Path = dir_.path().toStdString() + "/";
    s_.File_Tmp = s_.App_Path + "Zarvek.TMP";
    s_.File_Problem = std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK";
    s_.Direct_Mode = true;
    QVERIFY(Load_LanguageFile(std::string(ZARVEK_BIN_DIR) + "/ZARVEK_UK.MSG", s_.App_Path + "L.TMP"));
    Load_Messages();
  }

  // A full run: mucr of the example on the clipboard, as in the result file.
  void runToTheEnd() {
    Frm_DirectSolve form;
    const DirectSolveOutcome out = form.Form_Load(s_);
    QCOMPARE(form.Lbl_Description->text(), QString("Lateral torsional buckling of beams"));
    QVERIFY(out.Written);
    QCOMPARE(out.Result.Solve_Status, 0);
    const QString clip = QGuiApplication::clipboard()->text();
    QCOMPARE(clip, QString::fromStdString(out.Lines[0]).trimmed());
    // Mcr of the fork-supported IPE 300 of 10 m: 483303 daN.cm for 1e6 applied
    QVERIFY(std::fabs(clip.toDouble() * 1e6 / 483302.9 - 1) < 1e-3);
    // from the bracket [0, 1] the width must fall below 1e-4 x 0.483: 15
    // halvings (2^-15 = 3.1e-5), counted after the evaluation at 1
    QCOMPARE(form.Lbl_Iteration->text(), QString("16"));
  }

  // Pressed during the third evaluation: the bracket is then [0.25, 0.5]
  // (the example buckles at 0.483), and its stable end is the result.
  void stopAtTheNextIteration() {
    Frm_DirectSolve form;
    QTimer clicker;
    connect(&clicker, &QTimer::timeout, [&] {
      if (form.Lbl_Iteration->text() == "3") form.Cmd_StopProcess->click();
    });
    clicker.start(0);
    const DirectSolveOutcome out = form.Form_Load(s_);
    QCOMPARE(out.Result.Solve_Status, 0);
    QCOMPARE(out.Lines[0], std::string("       0.250000"));
    QCOMPARE(out.Lines[3], Msg(2) + " (0)");
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("0.250000"));
  }
};

QTEST_MAIN(Test_Frm_DirectSolve)
#include "test_frm_directsolve.moc"
