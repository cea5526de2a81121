// Tools > Sweep by keyboard and mouse: the range typed, the run, progress, the table copied, refused points.
#include <QtTest>
#include <QtWidgets>

#include "analysis/qt/Frm_Sweep.h"
#include "diagrams/qt/QtSurface.h"
#include "solver/solver_support.h"

using namespace zarvek;
using test::Mcr_Uniform;  // IPE 300 under uniform moment, kN and cm

namespace {

void Type(QLineEdit* e, const QString& text) {
  e->setFocus(Qt::TabFocusReason);
  QTest::keyClick(e, Qt::Key_A, Qt::ControlModifier), QTest::keyClick(e, Qt::Key_Delete);  // all, away
  QTest::keyClicks(e, text);
}

// The range typed into its three fields.
void Range(Frm_Sweep& f, const char* from, const char* to, const char* step) {
  Type(f.Txt_From, from), Type(f.Txt_To, to), Type(f.Txt_Step, step);
}

void Shot(QWidget& w, const char* name) {
  const QByteArray dir = qgetenv("ZARVEK_SHOT_DIR");
  if (!dir.isEmpty()) w.grab().save(QString(dir) + "/" + name);
}

}  // namespace

class Test_Frm_Sweep : public QObject {
  Q_OBJECT

  QTemporaryDir dir_;
  BeamModel m_;

  void Load(const char* code) {
    QVERIFY(Load_LanguageFile(std::string(ZARVEK_BIN_DIR) + "/ZARVEK_" + code + ".MSG",
                              dir_.path().toStdString() + "/L.TMP"));
    Load_Messages();
  }
  void Show(Frm_Sweep& f) { f.show(); QVERIFY(QTest::qWaitForWindowExposed(&f)); }

 private slots:
  void initTestCase() {
    QVERIFY(dir_.isValid());
    Init_Default(m_, ZARVEK_BIN_DIR);  // IPE 300, 10 m, fork supports, 100 kN.m
    Load("UK");
  }

  void spanSweepByTheKeyboard() {
    Frm_Sweep f(m_);
    Show(f);
    QCOMPARE(f.Cmb_Field->currentText(), QString("Txt_L")); QCOMPARE(f.Lbl_Unit[0]->text(), QString("m"));
    QVERIFY(!f.Cmd_Copy->isEnabled());

    // another field and back, by the keys of the list
    f.Cmb_Field->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(f.Cmb_Field, "Txt_E");
    QCOMPARE(f.Cmb_Field->currentText(), QString("Txt_E")); QCOMPARE(f.Lbl_Unit[0]->text(), QString("MPa"));
    QTest::qWait(QApplication::keyboardInputInterval() + 100);  // a new search
    QTest::keyClicks(f.Cmb_Field, "Txt_L");
    QCOMPARE(f.Cmb_Field->currentText(), QString("Txt_L"));

    // a step of zero is refused in the window, nothing runs
    Range(f, "4", "12", "0");
    QTest::mouseClick(f.Cmd_Run, Qt::LeftButton);
    QVERIFY(f.Lbl_Message->text().startsWith("The step must be non-zero") && f.Points().empty());

    // 0.5 m lies below the 1 m of a 100-element beam: a refused row, the others solved
    Type(f.Txt_From, "0.5"), Type(f.Txt_Step, "3.5");
    QTest::keyClick(f.Txt_Step, Qt::Key_Return);  // Run is the default button
    QTRY_VERIFY_WITH_TIMEOUT(f.Cmd_Copy->isEnabled(), 20000);
    QCOMPARE(f.Prg_Sweep->maximum(), 4); QCOMPARE(f.Prg_Sweep->value(), 4);
    QCOMPARE(f.Lbl_Message->text(), QString("3 of 4 points solved"));
    Shot(f, "sweep_en.png");

    QGuiApplication::clipboard()->clear();
    QTest::mouseClick(f.Cmd_Copy, Qt::LeftButton);
    const QStringList rows = QGuiApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
    QCOMPARE(rows.size(), 5);
    QCOMPARE(rows[0], QString("Txt_L [m],mucr,Mcr [kN.m],status,\"Mb,Rd [kN.m]\",message"));
    QVERIFY(rows[1].startsWith("0.5,,,-1,"));
    // the span typed in m reaches the solve: the last row, 11 m, in kN.m
    const QStringList c = rows[4].split(',');
    QCOMPARE(c[0] + " " + c[3], QString("11 0"));
    QVERIFY2(std::fabs(std::fabs(c[2].toDouble()) / (Mcr_Uniform(1100) / 100) - 1) < 1e-3, qPrintable(rows[4]));

    // the curve is drawn: blue where the line runs, not only the white ground
    const QImage img = f.Pic_Curve->imageSurface().Image();
    const auto ink = [](QRgb c) { return qBlue(c) > 150 && qRed(c) < 80 && qGreen(c) < 80; };
    int blue = 0;
    for (int y = 0; y < img.height(); ++y)
      for (int x = 0; x < img.width(); ++x) blue += ink(img.pixel(x, y));
    QVERIFY(blue > 50);
  }

  void stopEndsTheRestOfTheSweep() {
    Frm_Sweep f(m_);
    Show(f);
    Range(f, "2", "300", "0.05");  // 5961 points: far longer than the click
    QTest::mouseClick(f.Cmd_Run, Qt::LeftButton);
    QVERIFY(f.Cmd_Stop->isEnabled() && !f.Cmd_Run->isEnabled());
    QTest::mouseClick(f.Cmd_Stop, Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(f.Cmd_Run->isEnabled(), 20000);
    QCOMPARE(f.Points().size(), size_t(5961));
    QVERIFY(std::any_of(f.Points().begin(), f.Points().end(), [](auto& p) { return p.status == Sweep_NotConverged; }));
  }

  void frenchTexts() {
    Load("FR");
    Frm_Sweep f(m_);
    Show(f);
    QVERIFY(f.windowTitle().startsWith("Balayage")); QCOMPARE(f.Cmd_Close->text(), QString("Fermer"));
    Range(f, "4", "12", "2");
    QTest::mouseClick(f.Cmd_Run, Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(f.Cmd_Copy->isEnabled(), 20000);
    QCOMPARE(f.Lbl_Message->text(), QString::fromUtf8("5 points résolus sur 5"));
    Shot(f, "sweep_fr.png");
    Load("UK");
  }
};

QTEST_MAIN(Test_Frm_Sweep)
#include "test_frm_sweep.moc"
