// The table of the buckling mode: formats, the tinted normalising value, x, copy of a block, the CSV file.
#include <QtTest>
#include <QtWidgets>

#include "diagrams/qt/Frm_EigenVector.h"
#include "foundation/Mod_Zarvek.h"

using namespace zarvek;

namespace {

// Three nodes on 10 m, v theta v' theta' each (index 0 unused): node 2 holds the normalising -1 (theta).
BeamModel Sample() {
  BeamModel m;
  m.Txt_L = "10";  // m
  m.Fact_L = 100;  // cm a metre
  m.Mode_Vector = {0, 0, 0, 0.5f, 0, 0.75f, -1, 0, 2e-3f, 0, 0, -0.5f, 1e-21f};
  m.Mode_Max = 1;
  return m;
}

const QColor Tint(0xC0, 0xFF, 0xFF);  // 0xFFFFC0 as BBGGRR

}  // namespace

class Test_Frm_EigenVector : public QObject {
  Q_OBJECT
 private slots:
  void cellTextsAndAbscissae() {
    const struct { float value; const char* text; bool tinted; } cases[] = {
        {1.0f, "1.0000E+00", true}, {0.99999f, "9.9999E-01", true},  // within 2e-5 of one
        {0.99997f, "9.9997E-01", false}, {1.23456e-3f, "1.2346E-03", false},
        {1e-21f, "0", false}, {1e-20f, "1.0000E-20", false}};  // 1e-21 shows 0
    for (const auto& c : cases) {
      QCOMPARE(Frm_EigenVector::Mode_Text(c.value), std::string(c.text));
      QCOMPARE(Frm_EigenVector::Mode_Tinted(c.value), c.tinted);
    }
    // node i of n at (i - 1) L / (n - 1), plus a thousandth that settles exact halves upward
    QCOMPARE(Frm_EigenVector::X_Text(2, 3, 0.5), std::string("0.3"));  // 0.25
    QCOMPARE(Frm_EigenVector::X_Text(2, 5, 0.3), std::string("0.1"));  // 0.075
    const char keep = std::exchange(Dec_Sep, ',');
    QCOMPARE(Frm_EigenVector::Mode_Text(-0.5f), std::string("-5,0000E-01"));
    QCOMPARE(Frm_EigenVector::X_Text(2, 3, 1000), std::string("500,0"));
    Dec_Sep = keep;
  }

  void filledTableAndCsvFile() {
    const BeamModel m = Sample();
    Frm_EigenVector w(m);
    QTableWidget* g = w.Grd_Eigen();
    QCOMPARE(QSize(g->columnCount(), g->rowCount()), QSize(6, 3));
    const char* rows[3][6] = {{" 1", "0.0", "0", "0", "5.0000E-01", "0"},
                              {" 2", "500.0", "7.5000E-01", "-1.0000E+00", "0", "2.0000E-03"},
                              {" 3", "1000.0", "0", "0", "-5.0000E-01", "0"}};
    for (int r = 0; r < 3; ++r)
      for (int c = 0; c < 6; ++c) {
        QCOMPARE(g->item(r, c)->text(), QString::fromUtf8(rows[r][c]));
        const bool tinted = r == 1 && c == 3;  // the -1 of theta at node 2
        QCOMPARE(g->item(r, c)->background().color() == Tint, tinted);
      }
    QVERIFY(!g->isColumnHidden(1));

    // the CSV file: UTF-8 with its mark, a comma between cells, CR LF
    QTemporaryDir dir;
    const QString path = dir.filePath("mode.csv");
    QVERIFY(w.Save_Csv(path));
    QFile f(path);
    QVERIFY(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    QVERIFY(bytes.startsWith("\xEF\xBB\xBF"));
    const QStringList lines = QString::fromUtf8(bytes.mid(3)).split("\r\n");
    QCOMPARE(lines.size(), 5);  // heading, three nodes, the empty rest after the last CR LF
    QCOMPARE(lines[0], QString::fromUtf8("N\xC2\xB0,x (cm),v (cm),\xCE\xB8 (rd),v' (rd),\xCE\xB8\xE2\x80\xB2 (rd/cm)"));
    QCOMPARE(lines[2], QString("2,500.0,7.5000E-01,-1.0000E+00,0,2.0000E-03"));
    QVERIFY(!w.Save_Csv(dir.filePath("no/such/dir/mode.csv")));
  }

  // Copy while the grid has the focus: a block with tabs and CR LF, by Ctrl+C and by Edit > Copy opened by
  // mouse (which keeps the block and the command). Nothing selected: the clipboard stays.
  void copyOfABlock() {
    const BeamModel m = Sample();
    Frm_EigenVector w(m);
    w.show(), w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    QTableWidget* g = w.Grd_Eigen();
    auto* bar = w.findChild<QMenuBar*>();
    auto* edit = w.findChild<QMenu*>("Menu_Edit");
    QAction* copy = w.findChild<QAction*>("Menu_Edit_Copy");
    QVERIFY(copy && edit && bar);
    w.findChild<QWidget*>("Cmd_OK")->setFocus();
    QTRY_VERIFY(!copy->isEnabled());
    g->setFocus();
    QTRY_VERIFY(copy->isEnabled());

    // rows 2 and 3, columns x to theta
    auto cellCentre = [g](int r, int c) { return g->visualItemRect(g->item(r, c)).center(); };
    QTest::mouseClick(g->viewport(), Qt::LeftButton, {}, cellCentre(1, 1));
    QTest::mouseClick(g->viewport(), Qt::LeftButton, Qt::ShiftModifier, cellCentre(2, 3));
    const QString block = "500.0\t7.5000E-01\t-1.0000E+00\r\n1000.0\t0\t0\r\n";
    QCOMPARE(w.Selection_Text(), block);
    QApplication::clipboard()->setText("old");
    QTest::keyClick(g, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), block);

    QApplication::clipboard()->setText("old");
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(edit->menuAction()).center());
    QTRY_VERIFY(edit->isVisible());
    QVERIFY(copy->isEnabled());
    QTest::mouseClick(edit, Qt::LeftButton, {}, edit->actionGeometry(copy).center());
    QTRY_VERIFY(!edit->isVisible());
    QCOMPARE(QApplication::clipboard()->text(), block);

    g->clearSelection();
    w.Menu_Edit_Copy();
    QCOMPARE(QApplication::clipboard()->text(), block);
  }
};

QTEST_MAIN(Test_Frm_EigenVector)
#include "test_frm_eigenvector.moc"
