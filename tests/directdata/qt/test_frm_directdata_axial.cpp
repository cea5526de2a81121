// The sixth grid of the direct data window: the axial force of every element
// with its constants, typed under the editing rules of the other grids, and
// saved as the optional block that the solver reads. With ZARVEK_SHOT_DIR
// set, the page is saved as a picture in English and French.
#include <QApplication>
#include <QHeaderView>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>
#include <memory>

#include "directdata/qt/Frm_DirectData.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "solver/Mod_StabMat.h"

using namespace zarvek;

class Test_Frm_DirectData_Axial : public QObject {
  Q_OBJECT

  QTemporaryDir dir_;
  std::string Path(const char* name) { return dir_.path().toStdString() + "/" + name; }

  static void Type(QWidget& form, const QString& text) {
    for (QChar c : text) QTest::keyClick(form.focusWidget(), c.toLatin1());
  }

 private slots:
  void initTestCase() {
    QVERIFY(dir_.isValid());
    Dec_Sep = '.';
  }

  void sixthGridTypedSavedAndSolved() {
    for (const char* lang : {"UK", "FR"}) {
      QVERIFY(Load_LanguageFile(std::string(ZARVEK_BIN_DIR) + "/ZARVEK_" + lang + ".MSG", Path("L.TMP")));
      Load_Messages();
      auto f = std::make_unique<Frm_DirectData>(Msg(40), dir_.path().toStdString(), 50);
      f->Show_Exclamation = [](const std::string&) {};
      const std::string file = Path("AXIAL.ZVK");
      f->Choose_File = [file](int, const std::string&) { return file; };
      f->resize(900, 560);
      f->show();
      QVERIFY(QTest::qWaitForWindowExposed(f.get()));
      QTabBar* bar = f->Tab_Data->tabBar();
      QCOMPARE(bar->count(), 6);
      QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(5).center());
      QCOMPARE(f->Tab_Data->currentIndex(), 5);
      Data_Grid* g = f->Grd_Axial;
      QCOMPARE(g->rowCount(), 50);
      g->setFocus();
      // N may be negative (tension), the area may not
      g->Go_To(2, 2);
      Type(*f, "-5");
      QTest::keyClick(f->focusWidget(), Qt::Key_Return);
      QCOMPARE(g->TextMatrix(2, 2), std::string("5"));
      for (int r = 2; r <= 51; ++r) {
        g->Go_To(r, 1);
        Type(*f, "-2000");
        QTest::keyClick(f->focusWidget(), Qt::Key_Return);
      }
      g->Go_To(2, 2);
      Type(*f, "53.81");
      QTest::keyClick(f->focusWidget(), Qt::Key_Return);
      QCOMPARE(g->TextMatrix(51, 1), std::string("-2000"));
      const QByteArray dir = qgetenv("ZARVEK_SHOT_DIR");
      if (!dir.isEmpty())
        QVERIFY(f->grab().save(QString::fromUtf8(dir) + "/axial-grid-" + lang + ".png"));

      f->Menu_File_Save();
      SolverResult r;
      SolveControl ctl;
      Solve_Problem(file, 0, r, ctl);  // read and checked, not solved
      QCOMPARE(int(r.Solve_Status), 0);
      QCOMPARE(r.N, -2000.0);
      f->Data_Changed = false;
    }
  }
};

QTEST_MAIN(Test_Frm_DirectData_Axial)
#include "test_frm_directdata_axial.moc"
