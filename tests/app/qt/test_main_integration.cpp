// The main window with every companion window hooked in, driven as a user
// drives it: options and language, help, the section catalogue, the mode of
// an external problem file, and the windows of the results. Modal windows
// are answered by a timer that acts on whichever window is modal then.
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QtTest>
#include <cmath>
#include <functional>
#include <memory>

#include "analysis/DirectSolve.h"
#include "app/qt/Install_Windows.h"
#include "when_modal.h"
#include "diagrams/qt/Frm_EigenVector.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Options.h"
#include "foundation/qt/Frm_Options.h"
#include "model/qt/Frm_Zarvek.h"
#include "report/qt/Frm_Edit.h"
#include "section/qt/Frm_Section.h"
#include "tools/qt/Frm_Help.h"
#include "tools/qt/start_dir.h"
#include "directdata/DirectData.h"
#include "directdata/qt/Frm_DirectData.h"
#include "solver/Example.h"
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

// Closes every message box that comes up (the warning of the external mode).
void Close_Boxes(QStringList* texts) {
  static bool seen = false;  // whether a box came is not asked here
  When_Modal<QMessageBox>([texts](QMessageBox* b) {
    *texts << b->text();
    b->accept();
  }, &seen);
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

  void Select_Page(int p) {
    w_->Tab_Zarvek->setCurrentIndex(p);
    QCoreApplication::processEvents();
  }

  void Solve() {
    w_->Cmd_Proceed_Click();
    QVERIFY(w_->Model().Mode_Max > 0);
  }

  // A page chosen by a click on its tab.
  void Click_Page(int p) {
    QTabBar* bar = w_->Tab_Zarvek->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(p).center());
    QTRY_COMPARE(w_->Tab_Zarvek->currentIndex(), p);
  }

  // Tooltips that show the name of a control instead of words.
  QStringList Control_Names_In_Tooltips() {
    static const QRegularExpression control("^[A-Z][A-Za-z]*_[A-Za-z]");
    QStringList bad;
    for (QWidget* c : w_->findChildren<QWidget*>())
      if (control.match(c->toolTip()).hasMatch()) bad << c->objectName() + ": " + c->toolTip();
    return bad;
  }

private slots:
  // A start directory in English and the main window on it, hooked up.
  void init() {
    start_ = std::make_unique<zarvek_test::StartDir>("UK");
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
    QVERIFY(w_->Tab_Zarvek->tabText(1) != tabUK);
    QCOMPARE(w_->Tab_Zarvek->tabText(1).toStdString(), Cp1252_To_Utf8(Section_Line(1, 20)));
    QCOMPARE(F<QComboBox>("Lst_v1")->currentText(), QString::fromUtf8("Bloqué"));
    QCOMPARE(w_->Model().Lst_v1.index, 1);
    QCOMPARE(v2->currentText(), QString("350"));
    QCOMPARE(w_->Model().Lst_v2.index, -1);
    QCOMPARE(Num_Of_Text(w_->Model().Lst_v2.text), 350.0);
    QCOMPARE(w_->Menu_File->title(), QString("&Fichier"));
    QVERIFY2(Control_Names_In_Tooltips().isEmpty(), qPrintable(Control_Names_In_Tooltips().join('\n')));
    QVERIFY(!w_->Cmd_Dimensions->toolTip().isEmpty());
  }

  // Alt+E opens the Edit menu in one stroke on every page; the mode table's
  // button of the results page answers to a letter of its own.
  void altEIsTheEditMenuOnEveryPage() {
    QVERIFY2(Control_Names_In_Tooltips().isEmpty(), qPrintable(Control_Names_In_Tooltips().join('\n')));
    for (int p = 0; p < 4; ++p) {
      Click_Page(p);
      QTest::keyClick(w_.get(), Qt::Key_E, Qt::AltModifier);
      QTRY_VERIFY2(w_->Menu_Edit->isVisible(), qPrintable(QString("page %1").arg(p)));
      QTest::keyClick(w_->Menu_Edit, Qt::Key_Escape);
      QTRY_VERIFY(!w_->Menu_Edit->isVisible());
    }
    Solve();
    int opened = 0;
    w_->Hooks.EditEigen = [&opened] { ++opened; };
    const QKeyCombination key = QKeySequence::mnemonic(w_->Cmd_EditEigen->text())[0];
    QVERIFY(key.key() != Qt::Key_E && key.key() != 0);
    QApplication::setActiveWindow(w_.get());
    QVERIFY(QTest::qWaitForWindowActive(w_.get()));
    QTest::keyClick(w_.get(), key.key(), Qt::AltModifier);
    QTRY_COMPARE(opened, 1);
  }

  // ---- pages of the main window -------------------------------------------

  // The check of the dimensions leaves their page in front, with the
  // properties it computed in view, though the route is the catalogue's.
  void dimensionsCheckKeepsItsPropertiesInView() {
    QVERIFY(w_->Model().Opt_Catalogue);
    Click_Page(0);
    QTabBar* routes = w_->Tab_Section->tabBar();
    QTest::mouseClick(routes, Qt::LeftButton, {}, routes->tabRect(1).center());
    QTRY_COMPARE(w_->Tab_Section->currentIndex(), 1);
    QTest::mouseClick(w_->Cmd_Dimensions, Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(w_->Tab_Section->currentIndex(), 1);
    for (const char* f : {"Txt_Iz(2)", "Txt_It(2)", "Txt_Iw(2)"})
      QVERIFY2(!E(f)->visibleRegion().isEmpty() && Num_Of_Text(E(f)->text().toStdString()) > 0, f);
  }

  // The window fits a 1366 x 768 screen with a task bar: its least size
  // leaves room for a frame (16 x 40) within 1000 x 680 in both languages,
  // and at that size every field of every page scrolls into full view.
  void fitsALaptopScreen() {
    const QSize inside(1000 - 16, 680 - 40);
    for (const char* code : {"UK", "FR"}) {
      std::string error;
      QVERIFY(Change_Language(start_->state, code, error) != LanguageChange::LoadFailed);
      w_->Translate_Form();
      const QSize least = w_->minimumSizeHint().expandedTo(w_->minimumSize());
      QVERIFY2(least.width() <= inside.width() && least.height() <= inside.height(),
               qPrintable(QString("%1: %2 x %3").arg(code).arg(least.width()).arg(least.height())));
      w_->resize(inside);
      QTRY_COMPARE(w_->size(), inside);
      for (int p = 0; p < 4; ++p) {
        Click_Page(p);
        auto* area = qobject_cast<QScrollArea*>(w_->Tab_Zarvek->widget(p));
        QVERIFY(area);
        QCoreApplication::processEvents();  // the page laid out in its language first
        for (QWidget* f : area->widget()->findChildren<QWidget*>()) {
          const bool field = qobject_cast<QLineEdit*>(f) || qobject_cast<QComboBox*>(f) ||
                             qobject_cast<QAbstractButton*>(f);
          if (!field || !f->isVisibleTo(area->widget()) || qobject_cast<QComboBox*>(f->parentWidget())) continue;
          // the whole field, not only a line edit's cursor
          const QPoint c = f->mapTo(area->widget(), f->rect().center());
          area->ensureVisible(c.x(), c.y(), f->width() / 2 + 1, f->height() / 2 + 1);
          QCoreApplication::processEvents();
          QVERIFY2(f->visibleRegion().boundingRect() == f->rect(),
                   qPrintable(QString("%1, page %2: %3").arg(code).arg(p).arg(f->objectName())));
        }
      }
    }
  }

  // A project file cut short: the box that says so has its exclamation icon.
  void damagedProjectBoxHasItsIcon() {
    QFile whole(QString(ZARVEK_BIN_DIR) + "/EXAMPLE.DAT"), cut(start_->file("CUT.DAT"));
    QVERIFY(whole.open(QIODevice::ReadOnly) && cut.open(QIODevice::WriteOnly));
    cut.write(whole.read(whole.size() / 3));
    cut.close();
    chosen_ << cut.fileName();
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString text;
    bool seen = false;
    When_Modal<QMessageBox>([&](QMessageBox* b) { icon = b->icon(), text = b->text(), b->accept(); }, &seen);
    QTest::keyClick(w_.get(), Qt::Key_O, Qt::ControlModifier);
    QTRY_VERIFY(seen);
    QCOMPARE(icon, QMessageBox::Warning);
    QVERIFY2(text.contains("CUT.DAT"), qPrintable(text));
  }

  // ---- help ---------------------------------------------------------------

  void helpOfThePageAndPictures() {
    Select_Page(1);
    QTest::keyClick(w_.get(), Qt::Key_F1);
    QVERIFY(Help_Browser());
    QCOMPARE(Help_Browser()->Current_Context(), 210);
    QVERIFY(Help_Browser()->isVisible());
    QVERIFY(!Help_Browser()->Txt_Help->toPlainText().trimmed().isEmpty());
    w_->Cmd_Help[4]->click();
    Frm_Help* p = Help_PictureWindow();
    QVERIFY(p && p->isVisible());
    QCOMPARE(p->Picture_Index(), 4);
    QVERIFY(p->Img_Help->pixmap().width() > 100);
    // another page: the picture told of the page it was asked from
    Click_Page(2);
    QVERIFY(!p->isVisible());
  }

  // ---- catalogue ----------------------------------------------------------

  // The catalogue's choice reaches the main window: IPE 200, Iz 142.4 cm4
  // (tables). The window itself is proved in its own test.
  void catalogueTransfersTheSection() {
    bool seen = false;
    When_Modal<Frm_Section>([](Frm_Section* s) {
      s->Lst_SectionSerie->setCurrentItem(s->Lst_SectionSerie->findItems("IPE", Qt::MatchExactly).first());
      s->Lst_SectionNumber->setCurrentItem(s->Lst_SectionNumber->findItems("200", Qt::MatchExactly).first());
      s->Cmd_Transfert->click();
    }, &seen);
    w_->Cmd_Catalogue->click();
    QVERIFY(seen);
    QCOMPARE(E("Lbl_SelectedProfile")->text().simplified(), QString("IPE 200"));
    const double iz = Num_Of_Text(E("Txt_Iz(1)")->text().toStdString());
    QVERIFY2(std::fabs(iz / 142.4 - 1) < 2e-3, qPrintable(E("Txt_Iz(1)")->text()));
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
    w_->Cmd_Draw3D->click();  // no 3D view of a problem file
    QVERIFY(!QApplication::activeModalWidget());

    w_->Menu_Tools_External->trigger();
    QVERIFY(!w_->ExternalMode());
    for (int p = 0; p < 4; ++p) QVERIFY(w_->Tab_Zarvek->isTabEnabled(p));
    QVERIFY(w_->Cmd_Draw3D->isEnabled());
  }

  // A problem file of 300 elements while the main window's list says 100:
  // the mode is drawn over the file's 301 nodes (the half sine of a span on
  // forks comes back to the axis at the right end). A second run of a file
  // that fails clears the results and the mode of the first, and the box
  // names the file; F5 with no file of the user's solves nothing.
  void externalModeFollowsTheSolvedFile() {
    QStringList boxes;
    Close_Boxes(&boxes);
    w_->Menu_Tools_External->trigger();
    QVERIFY(w_->ExternalMode());
    const std::string path = start_->path() + "/B300.ZVK";
    ProblemData p = Fork_Beam_Uniform_Moment(300, 1000.0, 1e6);
    QVERIFY(Write_ProblemFile(path, p, ProblemLabels::SaveFileZVK));
    chosen_ << QString::fromStdString(path);
    bool seen = false;
    When_Modal<QDialog>([](QDialog* d) {
      if (auto* e = qobject_cast<Frm_DirectData*>(d)) e->Choose_File = [](int, const std::string&) { return std::string(); };
      d->reject();
    }, &seen);
    w_->Menu_File_Open_Action->trigger();
    QVERIFY(seen);
    QCOMPARE(w_->File_External, path);

    // F5 in the main window, active again once a modal window has closed
    auto f5 = [this] {
      QApplication::setActiveWindow(w_.get());
      QVERIFY(QTest::qWaitForWindowActive(w_.get()));
      QTest::keyClick(w_.get(), Qt::Key_F5);
    };
    shown_.clear();
    f5();
    QVERIFY2(!shown_.isEmpty(), "F5 did nothing");
    const double mucr = Num_Of_Text(E("Txt_mucr")->text().toStdString());
    QVERIFY2(std::fabs(mucr / Mucr_Example() - 1) < 2e-3, qPrintable(E("Txt_mucr")->text()));

    // the v curve near the right end of its frame lies on the axis
    const QImage img = w_->Img_Eigenmode->imageSurface().Image();
    const Colour v = w_->Diagrams().Color_v;
    const QRgb blue = qRgb(v & 0xFF, (v >> 8) & 0xFF, (v >> 16) & 0xFF);
    const int right = (int)std::lround(img.width() * 0.95), mid = img.height() / 2;
    int found = 0, far = 0;
    for (int x = right - 4; x < right; ++x)
      for (int y = 0; y < img.height(); ++y)
        if (img.pixel(x, y) == blue) ++found, far += std::abs(y - mid) > 4;
    QVERIFY(found > 0);
    QCOMPARE(far, 0);

    // a file that fails (no moment, status 112)
    for (int e = 1; e <= 300; ++e) p.M1[e] = p.M2[e] = 0;
    QVERIFY(Write_ProblemFile(path, p, ProblemLabels::SaveFileZVK));
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    seen = false;
    When_Modal<QMessageBox>([&](QMessageBox* b) {
      text = b->text();
      icon = b->icon();
      b->accept();
    }, &seen);
    f5();
    QVERIFY(seen);
    QCOMPARE(icon, QMessageBox::Warning);
    QVERIFY2(text.contains(QString::fromStdString(path)) && text.contains("(112)"), qPrintable(text));
    for (const char* f : {"Txt_mucr", "Txt_Mcr", "Txt_Mmax(0)"}) QCOMPARE(E(f)->text(), QString("0"));
    // neither the mode nor the forces of the first file stay drawn
    for (SurfaceWidget* sw : {w_->Img_Eigenmode, w_->Img_Forces}) {
      const QImage after = sw->imageSurface().Image();
      bool blank = true;
      for (int y = 0; y < after.height() && blank; y += 2)
        for (int x = 0; x < after.width() && blank; x += 2) blank = after.pixel(x, y) == after.pixel(0, 0);
      QVERIFY2(blank, qPrintable(sw->objectName()));
    }

    // what a failed read leaves: no file of the user's, though a stray
    // "Untitled" may lie in the working folder
    const QString stray = QString::fromStdString(Msg(81));
    QVERIFY(Write_ProblemFile(stray.toStdString(), Fork_Beam_Uniform_Moment(50, 500.0, 1e6), ProblemLabels::Proceed));
    w_->File_External = Msg(81);
    shown_.clear();
    f5();
    QFile::remove(stray);
    QCOMPARE(shown_, QStringList{QString::fromStdString(Cp1252_To_Utf8(Text_NoProblemFile()))});
    QCOMPARE(E("Txt_mucr")->text(), QString("0"));
  }

  // ---- windows of the results -------------------------------------------

  // After a solve each result command opens its window; the report stays
  // loaded and follows the data of a new solve.
  void resultWindowsAfterASolve() {
    Select_Page(3);
    Solve();
    struct Case {
      std::function<void()> open;
      std::function<bool(QWidget*)> is;
    };
    const Case cases[] = {
        {[this] { w_->Cmd_EditEigen->click(); },
         [](QWidget* d) { return qobject_cast<Frm_EigenVector*>(d) != nullptr; }},
        {[this] { w_->Cmd_Draw3D->click(); },
         [](QWidget* d) { return qobject_cast<Frm_EigenVector3D*>(d) != nullptr; }},
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
    const QString text8 = report();
    QVERIFY2(text8.contains(E("Txt_Mcr")->text()), qPrintable(E("Txt_Mcr")->text() + " in " + text8.right(600)));
    QVERIFY(!text8.contains(mcr10));
    QCOMPARE(w_->findChildren<Frm_Edit*>().size(), qsizetype(1));
  }
};

QTEST_MAIN(Test_Main_Integration)
#include "test_main_integration.moc"
