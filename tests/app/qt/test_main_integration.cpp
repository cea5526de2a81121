// The main window with every companion window hooked in, driven as a user
// drives it: options and language, help, the section catalogue, the mode of
// an external problem file, and the windows of the results. Modal windows
// are answered by a timer that acts on whichever window is modal then.
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTimer>
#include <QtTest>
#include <cmath>
#include <functional>
#include <map>
#include <memory>

#include "analysis/DirectSolve.h"
#include "app/qt/Install_Windows.h"
#include "diagrams/qt/Frm_EigenVector.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Frm_Options.h"
#include "model/FieldTable.h"
#include "model/qt/Frm_Zarvek.h"
#include "report/qt/Frm_Edit.h"
#include "section/qt/Frm_Section.h"
#include "tools/qt/Frm_Help.h"
#include "tools/qt/start_dir.h"
#include "tools/qt/Frm_About.h"
#include "tools/qt/Frm_Legal.h"
#include "tools/qt/Frm_Properties.h"
#include "tools/qt/MiniCalculette.h"
#include "tools/qt/SplashScreen.h"
#include "directdata/qt/Frm_DirectData.h"
#include "view3d/qt/Frm_EigenVector3D.h"

using namespace zarvek;

namespace {

constexpr double pi = 3.14159265358979;

// Closed-form Mcr of a fork-supported beam under uniform moment (daN, cm).
double Mcr_Uniform(double L, double E, double G, double Iz, double It, double Iw) {
  return pi / L * std::sqrt(E * Iz * G * It) * std::sqrt(1 + pi * pi * E * Iw / (L * L * G * It));
}

// The shipped example: an IPE 300 of 10 m on forks under 100 kN.m.
double Mucr_Example() { return Mcr_Uniform(1000, 2.1e6, 807690, 603.78, 19.868, 126332) / 1e6; }

// Acts on the modal window of type T once it is up (the next event-loop
// turns), then lets the caller's exec() return. Fails the flag if none came.
template <class T>
void When_Modal(std::function<void(T*)> act, bool* seen) {
  auto tries = std::make_shared<int>(0);
  auto poll = std::make_shared<std::function<void()>>();
  *poll = [act, seen, tries, poll] {
    if (auto* w = qobject_cast<T*>(QApplication::activeModalWidget())) {
      *seen = true;
      act(w);
      return;
    }
    if (++*tries < 200) QTimer::singleShot(10, *poll);
  };
  QTimer::singleShot(0, *poll);
}

// Closes every message box that comes up (the warning of the external mode).
void Close_Boxes(QStringList* texts) {
  When_Modal<QMessageBox>([texts](QMessageBox* b) {
    *texts << b->text();
    b->accept();
  }, new bool(false));
}

int Dark_Pixels(const QImage& img) {
  int n = 0;
  for (int y = 0; y < img.height(); ++y)
    for (int x = 0; x < img.width(); ++x)
      if (qGray(img.pixel(x, y)) < 80) ++n;
  return n;
}

}  // namespace

class Test_Main_Integration : public QObject {
  Q_OBJECT

  std::unique_ptr<zarvek_test::StartDir> start_;
  std::unique_ptr<Frm_Zarvek> w_;
  QStringList shown_;
  QStringList chosen_;

  template <class T = QWidget>
  T* F(const char* name) {
    auto* w = qobject_cast<T*>(w_->Field_Widget(name));
    if (!w) qFatal("no widget %s", name);
    return w;
  }
  QLineEdit* E(const char* name) { return F<QLineEdit>(name); }

  // Every field of the main window as shown.
  std::map<std::string, QString> Shown_Fields() {
    std::map<std::string, QString> v;
    for (const FieldDef& d : Field_Table()) {
      QWidget* w = w_->Field_Widget(d.name);
      if (auto* e = qobject_cast<QLineEdit*>(w)) v[d.name] = e->text();
      else if (auto* c = qobject_cast<QComboBox*>(w)) v[d.name] = c->currentText();
      else if (auto* b = qobject_cast<QAbstractButton*>(w)) v[d.name] = b->isChecked() ? "1" : "0";
      else if (auto* l = qobject_cast<QLabel*>(w)) v[d.name] = l->text();
    }
    return v;
  }
  std::vector<float> Factors() {
    std::vector<float> f;
    for (UnitFamily u : All_Unit_Families) f.push_back(Factor_Of(w_->Model(), u));
    return f;
  }

  void Select_Page(int p) {
    w_->Tab_Zarvek->setCurrentIndex(p);
    QCoreApplication::processEvents();
  }

  void Solve() {
    w_->Cmd_Proceed_Click();
    QVERIFY(w_->Model().Mode_Max > 0);
  }

  // A start directory in `language` and the main window on it, hooked up.
  void Start(const char* language) {
    w_.reset();
    start_ = std::make_unique<zarvek_test::StartDir>(language);
    QFile::copy(QString(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK", start_->file("EXAMPLE.ZVK"));
    Load_Messages();
    shown_.clear();
    chosen_.clear();
    w_ = std::make_unique<Frm_Zarvek>(start_->state);
    w_->Message_Box = [this](const QString& text, const QString&) { shown_ << text; };
    w_->Confirm_Box = [this](const QString& text) {
      shown_ << text;
      return true;
    };
    w_->Choose_File = [this](int, const QString&, const QString&) {
      return chosen_.isEmpty() ? QString() : chosen_.takeFirst();
    };
    w_->Beep = [] {};
    w_->Progress_Interval_ms = 1000;
    Install_Windows(*w_);
    QVERIFY(w_->Form_Load());
    w_->show();
    QApplication::setActiveWindow(w_.get());
    QVERIFY(QTest::qWaitForWindowActive(w_.get()));
  }

 private slots:
  void init() { Start("UK"); }

  void cleanup() {
    if (auto* h = Help_Browser()) h->close();
    if (auto* p = Help_PictureWindow()) p->close();
    w_.reset();
    start_.reset();
  }

  // ---- options ----------------------------------------------------------

  // UK -> FR through the options: the main window's captions follow, the
  // restraint lists keep their choice and a typed spring keeps its number.
  void languageSwitchTranslatesTheMainWindow() {
    const QString tabUK = w_->Tab_Zarvek->tabText(1);
    Select_Page(1);
    auto* v2 = F<QComboBox>("Lst_v2");
    v2->setCurrentIndex(2);
    emit v2->activated(2);
    QTest::keyClicks(v2->lineEdit(), "350");
    QCOMPARE(w_->Model().Lst_v2.index, -1);
    QCOMPARE(F<QComboBox>("Lst_v1")->currentText(), QString("Fixed"));

    bool seen = false;
    When_Modal<Frm_Options>([](Frm_Options* o) {
      for (int i = 0; i < o->Lst_Language->count(); ++i)
        if (o->Lst_Language->itemText(i).startsWith("FR")) o->Lst_Language->setCurrentIndex(i);
      o->Cmd_OKOptions->click();
    }, &seen);
    w_->Menu_Tools_Options->trigger();
    QVERIFY(seen);

    QCOMPARE(start_->state.Language_Code, std::string("FR"));
    const QString tabFR = w_->Tab_Zarvek->tabText(1);
    QVERIFY2(tabFR != tabUK, qPrintable(tabFR));
    QCOMPARE(tabFR.toStdString(), Cp1252_To_Utf8(Section_Line(1, 20)));
    QCOMPARE(F<QComboBox>("Lst_v1")->currentText(), QString::fromUtf8("Bloqué"));
    QCOMPARE(w_->Model().Lst_v1.index, 1);
    QCOMPARE(v2->currentText(), QString("350"));
    QCOMPARE(w_->Model().Lst_v2.index, -1);
    QCOMPARE(Num_Of_Text(w_->Model().Lst_v2.text), 350.0);
    QCOMPARE(w_->Menu_File->title(), QString("&Fichier"));

    // and back, so that the other cases start in English
    When_Modal<Frm_Options>([](Frm_Options* o) {
      for (int i = 0; i < o->Lst_Language->count(); ++i)
        if (o->Lst_Language->itemText(i).startsWith("UK")) o->Lst_Language->setCurrentIndex(i);
      o->Cmd_OKOptions->click();
    }, &seen);
    w_->Menu_Tools_Options->trigger();
    QCOMPARE(w_->Tab_Zarvek->tabText(1), tabUK);
    QCOMPARE(F<QComboBox>("Lst_v1")->currentText(), QString("Fixed"));
  }

  // Cancel after a change of units leaves the main window as it was; OK
  // without a change too. OK with a change converts: 10 m = 10000 mm.
  void optionsCancelAndOk() {
    E("Txt_L")->setFocus();
    const auto fields = Shown_Fields();
    const auto factors = Factors();
    QCOMPARE(Num_Of_Text(E("Txt_L")->text().toStdString()), 10.0);
    bool seen = false;
    When_Modal<Frm_Options>([](Frm_Options* o) {
      o->Lst_Unit[int(UnitFamily::L)]->setCurrentIndex(0);   // mm
      o->Lst_Unit[int(UnitFamily::M)]->setCurrentIndex(0);   // daN.cm
      o->Cmd_CancelOptions->click();
    }, &seen);
    w_->Menu_Tools_Options->trigger();
    QVERIFY(seen);
    QVERIFY(Shown_Fields() == fields);
    QVERIFY(Factors() == factors);

    seen = false;
    When_Modal<Frm_Options>([](Frm_Options* o) { o->Cmd_OKOptions->click(); }, &seen);
    w_->Menu_Tools_Options->trigger();
    QVERIFY(seen);
    const auto after = Shown_Fields();
    for (const auto& [name, text] : fields)
      QVERIFY2(after.at(name) == text, (name + ": " + after.at(name).toStdString() + " <> " +
                                        text.toStdString()).c_str());

    When_Modal<Frm_Options>([](Frm_Options* o) {
      o->Lst_Unit[int(UnitFamily::L)]->setCurrentIndex(0);
      o->Cmd_OKOptions->click();
    }, &seen);
    w_->Menu_Tools_Options->trigger();
    QCOMPARE(Num_Of_Text(E("Txt_L")->text().toStdString()), 10000.0);
    QCOMPARE(w_->findChild<QLabel*>("Unit_L")->text(), QString("mm"));
  }

  // ---- help ---------------------------------------------------------------

  void helpOfThePageAndPictures() {
    Select_Page(1);
    QTest::keyClick(w_.get(), Qt::Key_F1);
    QVERIFY(Help_Browser());
    QCOMPARE(Help_Browser()->Current_Context(), 210);
    QVERIFY(Help_Browser()->isVisible());
    QVERIFY(!Help_Browser()->Txt_Help->toPlainText().trimmed().isEmpty());
    Select_Page(3);
    w_->Menu_Quid_Help->trigger();
    QCOMPARE(Help_Browser()->Current_Context(), 340);

    for (int i : {1, 4, 6}) {
      QPushButton* b = w_->Cmd_Help[i];
      QVERIFY(b && b->isEnabled());
      b->click();
      Frm_Help* p = Help_PictureWindow();
      QVERIFY(p && p->isVisible());
      QCOMPARE(p->Picture_Index(), i);
      QVERIFY(!p->Img_Help->pixmap().isNull());
      QVERIFY(p->Img_Help->pixmap().width() > 100);
    }
  }

  // ---- catalogue ----------------------------------------------------------

  // The catalogue transfers a section: its name and its second moments reach
  // the main window. IPE 200: Iz 142.4 cm4; IPE 300: Iz 603.8 cm4 (tables).
  void catalogueTransfersTheSection() {
    auto transfer = [this](const QString& serie, const QString& number) {
      bool seen = false;
      When_Modal<Frm_Section>([serie, number](Frm_Section* s) {
        auto pick = [](QListWidget* l, const QString& t) {
          const auto items = l->findItems(t, Qt::MatchExactly);
          if (!items.isEmpty()) l->setCurrentItem(items.first());
        };
        pick(s->Lst_SectionSerie, serie);
        pick(s->Lst_SectionNumber, number);
        s->Cmd_Transfert->click();
      }, &seen);
      w_->Cmd_Catalogue->click();
      QVERIFY(seen);
    };
    transfer("IPE", "200");
    QCOMPARE(E("Lbl_SelectedProfile")->text().simplified(), QString("IPE 200"));
    const double iz200 = Num_Of_Text(E("Txt_Iz(1)")->text().toStdString());
    QVERIFY2(std::fabs(iz200 / 142.4 - 1) < 2e-3, qPrintable(E("Txt_Iz(1)")->text()));
    transfer("IPE", "300");
    QCOMPARE(E("Lbl_SelectedProfile")->text().simplified(), QString("IPE 300"));
    QCOMPARE(Num_Of_Text(E("Txt_Iz(1)")->text().toStdString()), 603.78);
  }

  // ---- the other companions ---------------------------------------------

  // More properties of the IPE 300 of the dimensions route: its area by hand,
  // two flanges 150 x 10.7, the web (300 - 2 x 10.7) x 7.1 and four root
  // fillets (1 - pi/4) 15^2: 53.81 cm2. About opens and closes. The
  // calculator is a window of its own, and only one.
  void companionWindowsOpen() {
    const double area = 2 * 15 * 1.07 + (30 - 2 * 1.07) * 0.71 + 4 * (1 - pi / 4) * 1.5 * 1.5;
    double shown = 0;
    bool seen = false;
    When_Modal<Frm_Properties>([&shown](Frm_Properties* p) {
      shown = Num_Of_Text(p->Lbl_Value[0]->text().toStdString());
      p->Cmd_OK->click();
    }, &seen);
    w_->Cmd_MoreProperties->click();
    QVERIFY(seen);
    QVERIFY2(std::fabs(shown / area - 1) < 1e-4, qPrintable(QString::number(shown)));

    seen = false;
    When_Modal<Frm_About>([](Frm_About* a) { a->accept(); }, &seen);
    w_->Menu_Quid_About->trigger();
    QVERIFY(seen);

    w_->Menu_Tools_Calculator->trigger();
    w_->Menu_Tools_Calculator->trigger();
    const auto calcs = w_->findChildren<MiniCalculette*>();
    QCOMPARE(calcs.size(), qsizetype(1));
    QVERIFY(calcs[0]->isWindow() && calcs[0]->isVisible());
  }

  // ---- external problem file --------------------------------------------

  void externalModeSolvesTheProblemFile() {
    QStringList boxes;
    Close_Boxes(&boxes);
    w_->Menu_Tools_External->trigger();
    QVERIFY(w_->ExternalMode());
    QCOMPARE(boxes.size(), 1);
    for (int p = 0; p < 3; ++p) QVERIFY(!w_->Tab_Zarvek->isTabEnabled(p));
    QVERIFY(w_->Tab_Zarvek->isTabEnabled(3));
    QVERIFY(!w_->Cmd_Draw3D->isEnabled());

    // Open: the problem file, then its editor (closed unchanged)
    const std::string example = start_->path() + "/EXAMPLE.ZVK";
    chosen_ << QString::fromStdString(example);
    bool seen = false;
    bool editor = false;
    When_Modal<QDialog>([&editor](QDialog* d) {
      // closing the editor offers Save As: cancelled
      if (auto* e = qobject_cast<Frm_DirectData*>(d)) {
        editor = true;
        e->Choose_File = [](int, const std::string&) { return std::string(); };
      }
      d->reject();
    }, &seen);
    w_->Menu_File_Open_Action->trigger();
    QVERIFY(editor);
    QVERIFY(seen);
    QCOMPARE(w_->File_External, example);

    w_->Cmd_Proceed_Click();
    const double mucr = Num_Of_Text(E("Txt_mucr")->text().toStdString());
    // the batch route on the same file
    SolveControl ctl = Direct_SolveControl();
    const DirectSolveOutcome batch = Direct_Solve(example, start_->path() + "/batch.TMP", ctl);
    QVERIFY(batch.Written);
    const double mucrBatch = Num_Of_Text(batch.Clipboard_Text);
    QVERIFY2(std::fabs(mucr / mucrBatch - 1) < 1e-4,
             qPrintable(E("Txt_mucr")->text() + " <> " + QString::fromStdString(batch.Clipboard_Text)));
    QVERIFY2(std::fabs(mucr / Mucr_Example() - 1) < 5e-3, qPrintable(E("Txt_mucr")->text()));
    // the mode table of the problem file opens; the 3D view stays shut
    bool table = false;
    seen = false;
    When_Modal<QDialog>([&table](QDialog* d) {
      table = qobject_cast<Frm_EigenVector*>(d) != nullptr;
      d->reject();
    }, &seen);
    w_->Cmd_EditEigen->click();
    QVERIFY(seen && table);
    w_->Cmd_Draw3D->click();
    QVERIFY(!QApplication::activeModalWidget());

    w_->Menu_Tools_External->trigger();
    QVERIFY(!w_->ExternalMode());
    for (int p = 0; p < 4; ++p) QVERIFY(w_->Tab_Zarvek->isTabEnabled(p));
    QVERIFY(w_->Cmd_Draw3D->isEnabled());
    QVERIFY(w_->Menu_Tools_Options->isVisible());
    QVERIFY(w_->Menu_File_Save_Action->isVisible());
  }

  // ---- windows of the results -------------------------------------------

  // Before a solve the mode buttons print Msg(14) on the mode picture and
  // open nothing; after one, each opens its window.
  void resultWindowsAfterASolve() {
    Select_Page(3);
    QCOMPARE(w_->Model().Mode_Max, 0);
    QVERIFY(!w_->Menu_Edit_Results->isEnabled());
    const int blank = Dark_Pixels(w_->Img_Eigenmode->imageSurface().Image());
    // a window opened here would hold the test in its exec(): the timer
    // would tell
    QWidget* opened = nullptr;
    QTimer::singleShot(100, [&opened] {
      if ((opened = QApplication::activeModalWidget())) opened->close();
    });
    w_->Cmd_EditEigen->click();
    QVERIFY(Dark_Pixels(w_->Img_Eigenmode->imageSurface().Image()) > blank + 20);
    w_->Cmd_Draw3D->click();
    QTest::qWait(150);
    QVERIFY(!opened);

    Solve();
    QVERIFY(w_->Menu_Edit_Results->isEnabled());
    struct Case {
      std::function<void()> open;
      std::function<bool(QWidget*)> is;
    };
    const Case cases[] = {
        {[this] { w_->Cmd_EditEigen->click(); },
         [](QWidget* d) { return qobject_cast<Frm_EigenVector*>(d) != nullptr; }},
        {[this] { w_->Cmd_Draw3D->click(); },
         [](QWidget* d) { return qobject_cast<Frm_EigenVector3D*>(d) != nullptr; }},
        {[this] { w_->Menu_Edit_Results->trigger(); },
         [](QWidget* d) { return qobject_cast<Frm_Edit*>(d) != nullptr; }},
    };
    for (const Case& c : cases) {
      bool ok = false, opened = false;
      When_Modal<QDialog>([&ok, is = c.is](QDialog* d) {
        ok = is(d) && d->isVisible();
        d->reject();
      }, &opened);
      c.open();
      QVERIFY(opened);
      QVERIFY(ok);
    }
    // The report stays loaded and follows the data: a beam of 8 m instead
    // of 10 buckles under a larger moment, and the report shows it.
    auto report = [this] {
      QString text;
      bool opened = false;
      When_Modal<Frm_Edit>([&text](Frm_Edit* e) {
        // the window comes up first, the text is built once it is painted
        (void)QTest::qWaitFor([e] { return !e->Needs_Rebuild(); }, 5000);
        text = e->RichTextBox()->toPlainText();
        e->reject();
      }, &opened);
      w_->Menu_Edit_Results->trigger();
      return text;
    };
    const QString mcr10 = E("Txt_Mcr")->text();
    QVERIFY(report().contains(mcr10));
    Select_Page(0);
    E("Txt_L")->setFocus();
    E("Txt_L")->selectAll();
    QTest::keyClicks(E("Txt_L"), "8");
    Solve();
    const double Mcr8 = Num_Of_Text(E("Txt_Mcr")->text().toStdString());
    const double expected8 = Mcr_Uniform(800, 2.1e6, 807690, 603.78, 19.868, 126332) / 1e4;
    QVERIFY2(std::fabs(Mcr8 / expected8 - 1) < 3e-3, qPrintable(E("Txt_Mcr")->text()));
    const QString text8 = report();
    QVERIFY2(text8.contains(E("Txt_Mcr")->text()), qPrintable(E("Txt_Mcr")->text() + " in " + text8.right(600)));
    QVERIFY(!text8.contains(mcr10));
    QCOMPARE(w_->findChildren<Frm_Edit*>().size(), qsizetype(1));
  }

  // ---- pictures to look at ----------------------------------------------

  // With ZARVEK_SHOTS set to a folder, every window of the program is
  // pictured there in English and French (for a person to look at).
  void screenshots() {
    const QString dir = qEnvironmentVariable("ZARVEK_SHOTS");
    if (dir.isEmpty()) QSKIP("ZARVEK_SHOTS not set");
    QDir().mkpath(dir);
    for (const char* lang : {"UK", "FR"}) {
      Start(lang);
      const QString pre = dir + "/" + lang + "_";
      auto save = [&](QWidget* w, const QString& name) { w->grab().save(pre + name + ".png"); };
      w_->resize(1000, 720);
      Solve();
      for (int p = 0; p < 4; ++p) {
        Select_Page(p);
        QTest::qWait(30);
        save(w_.get(), QString("main_page%1").arg(p));
      }
      bool seen = false;
      auto modal = [&](std::function<void()> open, const QString& name,
                       std::function<void(QDialog*)> before = {}) {
        When_Modal<QDialog>([&, name, before](QDialog* d) {
          if (before) before(d);
          QTest::qWait(50);
          save(d, name);
          d->reject();
        }, &seen);
        open();
      };
      modal([&] { w_->Menu_Tools_Options->trigger(); }, "options_tab0");
      for (int t = 1; t < 3; ++t)
        modal([&] { w_->Menu_Tools_Options->trigger(); }, QString("options_tab%1").arg(t),
              [t](QDialog* d) { static_cast<Frm_Options*>(d)->Tab_Options->setCurrentIndex(t); });
      modal([&] { w_->Cmd_Catalogue->click(); }, "section");
      Select_Page(0);
      modal([&] { w_->Cmd_MoreProperties->click(); }, "properties");
      modal([&] { w_->Menu_Quid_About->trigger(); }, "about");
      // the options end as a confirmation of the dimensions, which clears
      // the result: solve again
      Solve();
      Select_Page(3);
      modal([&] { w_->Cmd_EditEigen->click(); }, "eigenvector");
      modal([&] { w_->Cmd_Draw3D->click(); }, "eigenvector3d");
      modal([&] { w_->Menu_Edit_Results->trigger(); }, "report");
      w_->Menu_Quid_Help->trigger();
      QTest::qWait(50);
      save(Help_Browser(), "help");
      w_->Cmd_Help[2]->click();
      QTest::qWait(50);
      save(Help_PictureWindow(), "help_picture2");
      w_->Menu_Tools_Calculator->trigger();
      QTest::qWait(50);
      if (auto* c = w_->findChild<MiniCalculette*>()) save(c, "calculator");
      {
        Frm_DirectData d(start_->path() + "/EXAMPLE.ZVK", start_->path(), 50, w_.get());
        d.show();
        QTest::qWait(50);
        save(&d, "directdata");
        if (auto* tabs = d.findChild<QTabWidget*>()) {
          d.resize(1000, 600);
          for (int t = 1; t < tabs->count(); ++t) {
            tabs->setCurrentIndex(t);
            QTest::qWait(30);
            save(&d, QString("directdata_tab%1").arg(t));
          }
        }
      }
      {
        SplashScreen splash;
        splash.Form_Load();
        splash.show();
        QTest::qWait(50);
        save(&splash, "splash");
        When_Modal<QDialog>([&](QDialog* d) {
          QTest::qWait(50);
          save(d, "legal");
          d->reject();
        }, &seen);
        Show_LegalWarning(nullptr, splash.Lbl_Disclaimer->text());
      }
      cleanup();
    }
  }
};

QTEST_MAIN(Test_Main_Integration)
#include "test_main_integration.moc"
