// The calculator window: keypad, operations, equals, transfer, the colour of a field holding no number.
#include <QtTest>
#include <QtWidgets>

#include "foundation/Mod_Zarvek.h"
#include "tools/qt/MiniCalculette.h"

using namespace zarvek;

class Test_MiniCalculette : public QObject {
  Q_OBJECT

  static void Type(MiniCalculette& c, const QString& text) {
    for (QChar ch : text) QTest::keyClick(c.focusWidget(), ch.toLatin1());
  }
  // X and Y filled in, the operation's button and "=" pressed
  static void Compute(MiniCalculette& c, const char* x, const char* y, int op) {
    c.Txt_X->setText(x), c.Txt_Y->setText(y);
    QTest::mouseClick(c.Cmd_Operation[op], Qt::LeftButton), QTest::mouseClick(c.Cmd_Egal, Qt::LeftButton);
  }

 private slots:
  void initTestCase() { Dec_Sep = '.'; }

  // 12.5 typed on the keypad, "*" from the keyboard moves to Y, "4" and Enter
  void keypadAndKeyboard() {
    MiniCalculette c;
    c.show();
    QVERIFY(QTest::qWaitForWindowExposed(&c));
    c.Txt_X->setFocus();
    for (int i : {1, 2, 10, 5}) QTest::mouseClick(c.Cmd_Touche[i], Qt::LeftButton);
    QCOMPARE(c.Txt_X->text(), QString("12.5"));
    for (int i : {11, 5}) QTest::mouseClick(c.Cmd_Touche[i], Qt::LeftButton);  // backspace, 5 again
    Type(c, "*");
    QVERIFY(c.Txt_X->text() == "12.5" && c.Operation() == 2 && c.Active_Field() == "Y");
    QTest::mouseClick(c.Cmd_Touche[10], Qt::LeftButton);  // "0." in an empty field
    Type(c, "5");
    QCOMPARE(c.Txt_Y->text(), QString("0.5"));
    QTest::keyClick(c.focusWidget(), Qt::Key_Return);
    QCOMPARE(c.Txt_Result->text(), QString("6.25"));
    // a change of an operand empties the result
    Type(c, "0");
    QVERIFY(c.Txt_Result->text().isEmpty());
  }

  // Transfer carries the result to X and tells of it, and does nothing without a result. 1 / 0 shows no
  // result and keeps the window alive; a field holding no number turns red and takes the focus until mended.
  void transferFailuresAndRedText() {
    MiniCalculette c;
    c.show();
    QVERIFY(QTest::qWaitForWindowExposed(&c));
    QSignalSpy spy(&c, &MiniCalculette::Transferred);
    Compute(c, "1E6", "1E6", 2);
    QCOMPARE(c.Txt_Result->text(), QString("1.0000000E+12"));
    QTest::mouseClick(c.Cmd_Transfer, Qt::LeftButton);
    QCOMPARE(QStringList({c.Txt_X->text(), c.Txt_Y->text(), c.Txt_Result->text()}),
             QStringList({"1.0000000E+12", "", ""}));
    QVERIFY(spy.count() == 1 && spy[0][0].toString() == "1.0000000E+12");
    c.Txt_Y->setText("2");
    QTest::mouseClick(c.Cmd_Transfer, Qt::LeftButton);
    QVERIFY(c.Txt_X->text() == "1.0000000E+12" && spy.count() == 1);

    const QColor red(0xC0, 0, 0);
    Compute(c, "1", "0", 3);
    QVERIFY(c.Txt_Result->text().isEmpty());
    c.Txt_X->setText("1.2.3");
    QTest::mouseClick(c.Cmd_Egal, Qt::LeftButton);
    QCOMPARE(c.Txt_X->palette().color(QPalette::Text), red);
    QCOMPARE(c.focusWidget(), static_cast<QWidget*>(c.Txt_X));
    Compute(c, "3", "-", 3);
    QVERIFY(c.Txt_X->palette().color(QPalette::Text) != red);
    QCOMPARE(c.Txt_Y->palette().color(QPalette::Text), red);
    c.Txt_Y->setText("4");
    QTest::mouseClick(c.Cmd_Egal, Qt::LeftButton);
    QCOMPARE(c.Txt_Result->text(), QString("0.75"));
  }
};

QTEST_MAIN(Test_MiniCalculette)
#include "test_minicalculette.moc"
