// The axial force in the main window: typed on the Loads page with the key
// filter of a signed number, the further constants of the properties route
// open only while a force acts, and the results page with Ncr and the note on
// in-plane buckling. With ZARVEK_SHOT_DIR set, the pages are saved as
// pictures in English and French.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>
#include <memory>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/qt/Frm_Zarvek.h"

using namespace zarvek;

class Test_Frm_Axial : public QObject {
  Q_OBJECT

  QTemporaryDir dir_;
  StartupState s_;

  void Load(const char* code) {
    QVERIFY(Load_LanguageFile(std::string(ZARVEK_BIN_DIR) + "/ZARVEK_" + code + ".MSG", s_.File_Tmp));
    Load_Messages();
  }

  std::unique_ptr<Frm_Zarvek> Open() {
    auto w = std::make_unique<Frm_Zarvek>(s_);
    w->Message_Box = [](const QString&, const QString&) {};
    w->Beep = [] {};
    if (!w->Form_Load()) return nullptr;
    w->resize(1000, 760);
    w->show();
    if (!QTest::qWaitForWindowExposed(w.get())) return nullptr;
    return w;
  }

  // A page is chosen by a click on its tab, as the user chooses it.
  static void Click_Tab(Frm_Zarvek& w, int t) {
    QTabBar* bar = w.Tab_Zarvek->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(t).center());
    QCOMPARE(w.Tab_Zarvek->currentIndex(), t);
  }

  // Clicks into a field, empties it and types, then leaves it by Tab.
  static void Type_Into(Frm_Zarvek& w, const char* field, const QString& text) {
    auto* e = qobject_cast<QLineEdit*>(w.Field_Widget(field));
    QVERIFY(e);
    QTest::mouseClick(e, Qt::LeftButton);
    QTest::keyClick(e, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(e, Qt::Key_Delete);
    QTest::keyClicks(e, text);
    QTest::keyClick(e, Qt::Key_Tab);
  }

  static void Shot(QWidget& w, const QString& name) {
    const QByteArray dir = qgetenv("ZARVEK_SHOT_DIR");
    if (!dir.isEmpty()) QVERIFY(w.grab().save(QString::fromUtf8(dir) + "/" + name + ".png"));
  }

 private slots:
  void initTestCase() {
    QVERIFY(dir_.isValid());
    s_.Dir_Data = dir_.path().toStdString();
    s_.App_Path = s_.Dir_Data + "/";
    s_.File_Tmp = s_.App_Path + "Zarvek.TMP";
    s_.File_Problem = s_.App_Path + "Zarvek.ZVK";
    s_.File_Default = s_.App_Path + "Zarvek.DFT";
  }

  void forceTypedSolvedAndShown() {
    for (const char* lang : {"UK", "FR"}) {
      Load(lang);
      auto w = Open();
      QVERIFY(w);
      Click_Tab(*w, 2);
      // letters do not pass the filter, the minus does
      Type_Into(*w, "Txt_N", "5x0");
      QCOMPARE(QString::fromStdString(w->Model().Txt_N), QString("50"));
      Type_Into(*w, "Txt_N", "-50");
      QCOMPARE(QString::fromStdString(w->Model().Txt_N), QString("-50"));
      Type_Into(*w, "Txt_N", "50");
      Shot(*w, QString("axial-loads-") + lang);

      // the properties route's constants open with the force
      QVERIFY(w->Field_Widget("Txt_A3")->isEnabled());
      Type_Into(*w, "Txt_N", "0");
      QVERIFY(!w->Field_Widget("Txt_A3")->isEnabled());
      Type_Into(*w, "Txt_N", "50");

      Click_Tab(*w, 3);
      QTest::mouseClick(w->Cmd_Proceed, Qt::LeftButton);
      QTRY_VERIFY(Num_Of_Text(w->Model().Txt_mucr) != 0);
      // IPE 300, 10 m, 100 kN.m and 50 kN: (mu M)^2 = i0^2 (Nz - mu N)(NT - mu N)
      const double i0sq = (8356 + 603.78) / 53.81, Nz = M_PI * M_PI * 21000 * 603.78 / 1e6;
      const double NT = (8076.9 * 19.868 + M_PI * M_PI * 21000 * 126332 / 1e6) / i0sq;
      const double a = 1e8 - i0sq * 2500, b = i0sq * 50 * (Nz + NT), c = -i0sq * Nz * NT;
      const double mu = (-b + std::sqrt(b * b - 4 * a * c)) / (2 * a);
      QVERIFY(std::fabs(Num_Of_Text(w->Model().Txt_Ncr) / (50 * mu) - 1) < 3e-3);
      auto* note = w->findChild<QLabel*>("Lbl_AxialNote");
      QVERIFY(note && note->isVisible());
      // pi^2 E Iy / L^2 of the IPE 300 over 10 m, in kN
      const double Ny = M_PI * M_PI * 21000 * 8356 / 1e6;
      QVERIFY2(note->text().contains(QString::number(Ny, 'f', 1).left(4)), qPrintable(note->text()));
      Shot(*w, QString("axial-results-") + lang);

      // tension: no note
      Click_Tab(*w, 2);
      Type_Into(*w, "Txt_N", "-50");
      QVERIFY(!note->isVisible());
    }
  }
};

QTEST_MAIN(Test_Frm_Axial)
#include "test_frm_axial.moc"
