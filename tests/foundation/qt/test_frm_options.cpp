// The options window: Cancel and its backup, OK and unit conversion, the live language change, the frame.
#include <QtTest>
#include <QtWidgets>

#include "foundation/Language.h"
#include "foundation/qt/Frm_Options.h"
#include "foundation/qt/Translate_Form.h"
#include "model/BeamModel.h"
#include "section/qt/Frm_Section.h"
#include "tools/qt/start_dir.h"

using namespace zarvek;
using F = UnitFamily;

// Everything of the record that a change of units or options may touch.
static std::vector<std::string> Shown_Texts(const BeamModel& m) {
  return {m.Txt_L, m.Txt_E, m.Txt_G, m.Txt_Iz[1], m.Txt_It[3], m.Txt_Iw[1], m.Txt_h, m.Txt_bf1, m.Txt_zend1,
          m.Txt_M1, m.Txt_M2, m.Txt_F1, m.Txt_q11, m.Txt_CC, m.Txt_zF1, m.Lst_v1.text, m.Lst_t1.text,
          m.Lst_vi_c.text, m.Lbl_Method, m.Lbl_Tolerance, m.Lbl_Directory};
}

static std::vector<float> Factors(const BeamModel& m) {
  std::vector<float> f;
  for (UnitFamily u : All_Unit_Families) f.push_back(Factor_Of(m, u));
  return f;
}

static QComboBox* List(Frm_Options& w, UnitFamily f) { return w.Lst_Unit[int(f)]; }

// A start directory and the default beam on it.
struct Start_Model {
  zarvek_test::StartDir start;
  BeamModel m;
  Start_Model() { Init_Default(m, start.path()); }
};

// Opens the window as the main window does and waits until it is shown.
static bool Open(Frm_Options& w) { return w.Prepare(), w.show(), QTest::qWaitForWindowExposed(&w); }

// Selects the language whose item starts with the code; its index.
static int Pick_Language(Frm_Options& w, const char* code) {
  w.Lst_Language->setCurrentIndex(w.Lst_Language->findText(code, Qt::MatchStartsWith));
  return w.Lst_Language->currentIndex();
}

class TestFrmOptions : public QObject {
  Q_OBJECT

 private slots:
  // Cancel after changes restores record and controls; opened again, OK without a change keeps all, silently.
  void cancelRestoresAndOkWithoutChangeKeeps() {
    auto [start, m] = Start_Model();
    m.Txt_L = "7.25";
    m.Lst_v2 = RestraintList{-1, "350", true};
    const auto texts = Shown_Texts(m);
    const auto factors = Factors(m);
    const UnitIndices units = Unit_Indices(m);
    const QByteArray ini = start.Read("Zarvek.INI");

    Frm_Options w(m, start.state);
    w.Prepare();
    List(w, F::L)->setCurrentIndex(0), List(w, F::M)->setCurrentIndex(0);  // mm, daN.cm
    List(w, F::v)->setCurrentIndex(2);  // daN/m
    w.Lst_Tolerance->setCurrentIndex(5), w.Lst_Duration->setCurrentIndex(6);
    QSignalSpy lang(&w, &Frm_Options::languageChanged), units_spy(&w, &Frm_Options::unitsChanged),
        method(&w, &Frm_Options::methodChanged);
    QTest::mouseClick(w.Cmd_CancelOptions, Qt::LeftButton);
    QCOMPARE(w.result(), int(QDialog::Rejected));
    QVERIFY(Shown_Texts(m) == texts && Factors(m) == factors && Unit_Indices(m) == units);
    // the controls show the backup again
    QCOMPARE(QStringList({List(w, F::L)->currentText(), List(w, F::M)->currentText()}),
             QStringList({"m", "kN.m"}));
    QCOMPARE(QList({w.Lst_Tolerance->currentIndex(), w.Lst_Duration->currentIndex()}), QList({2, 2}));

    w.Prepare();
    QTest::mouseClick(w.Cmd_OKOptions, Qt::LeftButton);
    QCOMPARE(w.result(), int(QDialog::Accepted));
    QVERIFY(Shown_Texts(m) == texts);
    // The factors are those of the lists as they stand. (The starting factor of the warping springs,
    // 0.0001, is not the factor of its starting item: accepting the options puts the list's own in place.)
    BeamModel lists = m;
    Set_Factors(lists);
    QVERIFY(Factors(m) == Factors(lists));
    for (UnitFamily f : All_Unit_Families)
      if (f != F::tp) QCOMPARE(Factor_Of(m, f), factors[int(f)]);
    QCOMPARE(m.Lst_v2.text, std::string("350"));
    QCOMPARE(lang.count() + units_spy.count() + method.count(), 0);
    QCOMPARE(start.Read("Zarvek.INI"), ini);
  }

  // Each unit list rewrites the shown numbers of its family (every unit's factor is the core's): 10 m =
  // 10000 mm; 100 kN.m = 10000 daN.m; 210000 MPa = 21000 daN/mm2; 30 cm = 300 mm; -10 kN = -1000 daN.
  void okConvertsShownValues() {
    const struct { F f; int index; std::string BeamModel::*field; const char* before; double after; } cases[] = {
        {F::L, 0, &BeamModel::Txt_L, "10", 10000},     {F::M, 1, &BeamModel::Txt_M1, "-100", -10000},
        {F::EG, 1, &BeamModel::Txt_E, "210000", 21000}, {F::Dim, 0, &BeamModel::Txt_h, "30", 300},
        {F::F, 0, &BeamModel::Txt_F1, "-10", -1000}};
    for (const auto& c : cases) {
      auto [start, m] = Start_Model();
      m.*c.field = c.before;
      Frm_Options w(m, start.state);
      w.Prepare();
      const UnitIndices old = Unit_Indices(m);
      QSignalSpy units(&w, &Frm_Options::unitsChanged);
      List(w, c.f)->setCurrentIndex(c.index);
      QTest::mouseClick(w.Cmd_OKOptions, Qt::LeftButton);
      QCOMPARE(Num_Of_Text(m.*c.field), c.after);
      QCOMPARE(Unit_Index(m, c.f), c.index);
      QCOMPARE(units.count(), 1);
      QVERIFY(units.at(0).at(0).value<UnitIndices>() == old);
    }
  }

  // The frame's close is refused, Escape is Cancel; opened again, the method stays hidden until a Ctrl-click.
  void frameKeysAndTheMethodHiddenUntilCtrlClick() {
    auto [start, m] = Start_Model();
    Frm_Options w(m, start.state);
    QVERIFY(Open(w));
    QVERIFY(!w.close() && w.isVisible());
    List(w, F::F)->setCurrentIndex(0);
    QTest::keyClick(&w, Qt::Key_Escape);
    QVERIFY(!w.isVisible() && List(w, F::F)->currentIndex() == 1);

    QVERIFY(Open(w));
    w.Tab_Options->setCurrentIndex(1);
    QVERIFY(w.Img_Hide->isVisible() && !w.Opt_Eigen->isVisible());
    QTest::mouseClick(w.Img_Hide, Qt::LeftButton);  // a plain click reveals nothing
    QVERIFY(w.Img_Hide->isVisible());
    QTest::mouseClick(w.Img_Hide, Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(!w.Img_Hide->isVisible() && w.Opt_Eigen->isVisible());
    QSignalSpy method(&w, &Frm_Options::methodChanged);
    QTest::mouseClick(w.Opt_Eigen, Qt::LeftButton, {}, QPoint(8, w.Opt_Eigen->height() / 2));
    QTest::mouseClick(w.Cmd_OKOptions, Qt::LeftButton);
    QVERIFY(method.count() == 1 && m.Opt_Eigen && !m.Opt_Dichotomie && Method_Of(m) == 1);
  }

  // OK on another language retranslates the open windows of the program and the toolkit's own buttons,
  // there and back; a language file gone by then ends the program with its message.
  void languageSwitchRetranslatesWindowsAndDialogs() {
    auto [start, m] = Start_Model();
    Frm_Section catalogue(m, start.state.File_Section);
    catalogue.Form_Load(), catalogue.show();
    QCOMPARE(catalogue.windowTitle(), QString("Section catalogue"));
    Frm_Options w(m, start.state);
    QString title, text;
    w.Fatal_Error = [&](const QString& t, const QString& x) { title = t, text = x; };
    QSignalSpy lang(&w, &Frm_Options::languageChanged);
    for (const auto& [code, cancel] : {std::pair{"FR", "Annuler"}, std::pair{"UK", "Cancel"}}) {
      QVERIFY(Open(w));
      Pick_Language(w, code);
      QTest::mouseClick(w.Cmd_OKOptions, Qt::LeftButton);
      QCOMPARE(lang.count(), QString(code) == "FR" ? 1 : 2);
      QMessageBox box(QMessageBox::Question, "t", "q", QMessageBox::Ok | QMessageBox::Cancel);
      QCOMPARE(box.button(QMessageBox::Cancel)->text().remove('&'), QString(cancel));
      if (QString(code) != "FR") continue;
      QCOMPARE(w.Tab_Options->tabText(0), QString::fromUtf8("Général"));
      QCOMPARE(catalogue.windowTitle(), QString::fromUtf8("Catalogue des profilés"));
      QCOMPARE(catalogue.Cmd_Quitter->text(), QString("Annuler"));
      QCOMPARE(Lang_Text(m.Lbl_Method), w.Opt_Dichotomie->text());
    }

    QVERIFY(Open(w));
    const int fr = Pick_Language(w, "FR");
    QVERIFY(QFile::remove(start.file("ZARVEK_FR.MSG")));
    QTest::mouseClick(w.Cmd_OKOptions, Qt::LeftButton);
    QCOMPARE(text, "File " + start.file("ZARVEK_FR.MSG") + " not found");
    QCOMPARE(title, w.Lst_Language->itemText(fr));
  }
};

QTEST_MAIN(TestFrmOptions)
#include "test_frm_options.moc"
