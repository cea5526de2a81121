// The catalogue window: series by growing area, the current section preselected, the transfer into the beam
// model, a missing or damaged catalogue.
#include <QtTest>
#include <QtWidgets>
#include <cmath>

#include "foundation/Mod_Zarvek.h"
#include "model/BeamModel.h"
#include "section/qt/Frm_Section.h"
#include "tools/qt/start_dir.h"

using namespace zarvek;

namespace {

// Accepts every message box that opens, keeping the text of the last.
struct MessageCatcher {
  QString text;
  int count = 0;
  QTimer timer;
  MessageCatcher() {
    QObject::connect(&timer, &QTimer::timeout, [this] {
      if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
        text = box->text(), ++count, box->accept();
    });
    timer.start(10);
  }
};

BeamModel Model(const zarvek_test::StartDir& s) { BeamModel m; Init_Default(m, s.path()); return m; }

int Row_Of(QListWidget* l, const QString& text) {
  const auto items = l->findItems(text, Qt::MatchExactly);
  return items.isEmpty() ? -1 : l->row(items[0]);
}

}  // namespace

class TestFrmSection : public QObject {
  Q_OBJECT

 private slots:
  // A section the catalogue doesn't hold selects the first items; a series lists its sections in the
  // catalogue's order (by growing area, the core's test), not as texts sort; Quit leaves the record.
  void listsSeriesByAreaAndQuitLeavesTheModel() {
    zarvek_test::StartDir start;
    BeamModel m = Model(start);
    m.Lbl_SelectedProfile = "XYZ 999";
    Frm_Section w(m, start.state.File_Section);
    w.Form_Load();
    QCOMPARE(w.Lst_SectionSerie->currentRow(), 0); QCOMPARE(w.Lst_SectionNumber->currentRow(), 0);
    w.Lst_SectionSerie->setCurrentRow(Row_Of(w.Lst_SectionSerie, "IPE"));
    QCOMPARE(w.Lst_SectionNumber->item(0)->text(), QString("80"));  // not "100" as a text would
    QTest::mouseClick(w.Cmd_Quitter, Qt::LeftButton);
    QCOMPARE(w.result(), int(QDialog::Rejected));
    QCOMPARE(m.Lbl_SelectedProfile, std::string("XYZ 999")); QCOMPARE(m.Cat_b, 15.0);
  }

  // Iz of an IPE 300 = 603.78 cm4 = 6.0378e6 mm4.
  void transfersIpe300() {
    for (auto [unitIzt, Iz] : {std::pair{1, 603.78}, {0, 6.0378e6}}) {
      zarvek_test::StartDir start;
      BeamModel m = Model(start);
      m.Lst_Unit_Izt = unitIzt, m.Lbl_SelectedProfile = "HEA 200", m.Txt_Betaz[1] = "3";
      Set_Factors(m);
      Frm_Section w(m, start.state.File_Section);
      w.Form_Load();
      QCOMPARE(w.Lst_SectionSerie->currentItem()->text(), QString("HEA"));
      QCOMPARE(w.Lst_SectionNumber->currentItem()->text(), QString("200"));
      w.Lst_SectionSerie->setCurrentRow(Row_Of(w.Lst_SectionSerie, "IPE"));
      w.Lst_SectionNumber->setCurrentRow(Row_Of(w.Lst_SectionNumber, "300"));
      QCOMPARE(w.Lbl_SectionLabel->text(), QString("IPE 300"));
      QSignalSpy moved(&w, &Frm_Section::sectionTransferred);
      QTest::mouseClick(w.Cmd_Transfert, Qt::LeftButton);

      QCOMPARE(moved.count(), 1); QCOMPARE(w.result(), int(QDialog::Accepted));
      QCOMPARE(m.Lbl_SelectedProfile + " " + m.Txt_Betaz[1], std::string("IPE 300 0"));
      QVERIFY(std::abs(Num_Of_Text(m.Txt_Iz[1]) - Iz) <= 1e-4 * Iz);
      // Iw of a doubly symmetric I: (h - tf)^2 Iz / 4, with the table's
      // 300 x 150 x 7.1 x 10.7 (cm in the record).
      QCOMPARE(m.Cat_h, 30.0); QVERIFY(std::abs(m.Cat_tf - 1.07) < 1e-6);
      const double Iw = (30 - 1.07) * (30 - 1.07) * 603.78 / 4;
      QVERIFY(std::abs(Num_Of_Text(m.Txt_Iw[1]) - Iw) <= 1e-3 * Iw);
    }
  }

  // A missing catalogue, then one whose count is not a number.
  void missingOrDamagedCatalogueGivesMessage() {
    for (const QByteArray& content : {QByteArray(), QByteArray("1\nIPE, many\nIPE 80, 80, 46, 3.8, 5.2, 5\n")}) {
      zarvek_test::StartDir start;
      const QString db = start.file("SECTION.DB");
      QFile::remove(db);
      if (!content.isEmpty()) { QFile f(db); QVERIFY(f.open(QIODevice::WriteOnly)); f.write(content); }
      BeamModel m = Model(start);
      Frm_Section w(m, db.toStdString());
      MessageCatcher catcher;
      w.Form_Load();
      QCOMPARE(catcher.count, 1); QVERIFY(catcher.text.contains(db));
      QCOMPARE(catcher.text.startsWith("File not found"), content.isEmpty());
      QCOMPARE(w.Lst_SectionSerie->count() + w.Lst_SectionNumber->count(), 0);
      QTest::mouseClick(w.Cmd_Transfert, Qt::LeftButton);  // nothing to transfer
      QCOMPARE(m.Lbl_SelectedProfile + " " + m.Txt_Iz[1], std::string("IPE 300 603.78"));
    }
  }
};

QTEST_MAIN(TestFrmSection)
#include "test_frm_section.moc"
