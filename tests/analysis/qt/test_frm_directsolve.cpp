// The batch window: progress, the stop button and the clipboard.
#include <QtTest>
#include <QtWidgets>

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
    s_.App_Path = dir_.path().toStdString() + "/", s_.Direct_Mode = true;
    s_.File_Tmp = s_.App_Path + "Zarvek.TMP", s_.File_Problem = std::string(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK";
    QVERIFY(Load_LanguageFile(std::string(ZARVEK_BIN_DIR) + "/ZARVEK_UK.MSG", s_.App_Path + "L.TMP"));
    Load_Messages();
  }

  // A full run: mucr of the example on the clipboard, as in the result file (checked by the batch route).
  void runToTheEnd() {
    Frm_DirectSolve form;
    const DirectSolveOutcome out = form.Form_Load(s_);
    QVERIFY(out.Written); QCOMPARE(out.Result.Solve_Status, 0);
    QCOMPARE(QGuiApplication::clipboard()->text(), QString::fromStdString(out.Lines[0]).trimmed());
    // from [0, 1] the width must fall below 1e-4 x 0.483: 15 halvings (2^-15 = 3.1e-5), after the one at 1
    QCOMPARE(form.Lbl_Iteration->text(), QString("16"));
  }

  // Pressed during the third evaluation and released during the next one, through the window as the window
  // system delivers a click: the bracket is then [0.375, 0.5] (the example buckles at 0.483), and its
  // stable end is the result.
  void stopAtTheNextIteration() {
    Frm_DirectSolve form;
    QTimer clicker;
    bool pressed = false;
    QString releasedAt;
    connect(&clicker, &QTimer::timeout, [&] {
      const QPoint at = form.Cmd_StopProcess->mapTo(&form, form.Cmd_StopProcess->rect().center());
      if (!pressed && form.Lbl_Iteration->text() == "3") {
        QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, at);
        pressed = true;
      } else if (pressed && releasedAt.isEmpty() && form.Lbl_Iteration->text() != "3") {
        QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, at);
        releasedAt = form.Lbl_Iteration->text();
      }
    });
    clicker.start(0);
    const DirectSolveOutcome out = form.Form_Load(s_);
    QCOMPARE(releasedAt, QString("4")); QCOMPARE(out.Result.Solve_Status, 0);
    QCOMPARE(out.Lines[0], std::string("       0.375000")); QCOMPARE(out.Lines[3], Msg(2) + " (0)");
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("0.375000"));
  }
};

QTEST_MAIN(Test_Frm_DirectSolve)
#include "test_frm_directsolve.moc"
