// The main window with every companion window hooked in, driven as a user
// drives it. Modal windows are answered from the event loop that their exec()
// runs, as a user answers them; pictures are read back from their surfaces.
#include <QtTest>
#include <QtWidgets>
#include <cmath>
#include <functional>
#include <memory>

#include "analysis/DirectSolve.h"
#include "app/qt/Install_Windows.h"
#include "diagrams/qt/Frm_EigenVector.h"
#include "diagrams/qt/QtSurface.h"
#include "directdata/DirectData.h"
#include "directdata/qt/Frm_DirectData.h"
#include "foundation/Options.h"
#include "foundation/qt/Frm_Options.h"
#include "model/qt/Frm_Zarvek.h"
#include "report/qt/Frm_Edit.h"
#include "section/qt/Frm_Section.h"
#include "solver/Example.h"
#include "solver/solver_support.h"
#include "tools/qt/Frm_Properties.h"
#include "tools/qt/start_dir.h"  // with the language and the help windows
#include "view3d/qt/Frm_EigenVector3D.h"

using namespace zarvek;

namespace {

constexpr double pi = 3.14159265358979;

// The shipped example, an IPE 300 of 10 m on forks under 100 kN.m (1e4
// kN.cm): mucr of the closed form.
double Mucr_Example() { return test::Mcr_Uniform(1000) / 1e4; }

// Acts on the modal window of type T once it is up (the next event-loop
// turns), then lets its exec() return. Each look that finds none posts a
// copy of itself; the flag they share outlives the last one.
template <class T>
struct Modal_Poll {
  std::function<void(T*)> act;
  std::shared_ptr<bool> seen;
  int tries = 0;
  void operator()() {
    if (auto* w = qobject_cast<T*>(QApplication::activeModalWidget())) *seen = true, act(w);
    else if (++tries < 200) QTimer::singleShot(10, Modal_Poll(*this));
  }
};

// `open` brings up a modal window of type T, which `act` answers: false if none came.
template <class T>
bool Answer(std::function<void(T*)> act, const std::function<void()>& open) {
  auto seen = std::make_shared<bool>(false);
  QTimer::singleShot(0, Modal_Poll<T>{std::move(act), seen});
  open();
  return QTest::qWaitFor([&] { return *seen; }, 2000);
}

// Picture elements of exactly that colour (0xBBGGRR) in a rectangle of the
// surface, in its scale units; the whole surface by default.
int Count(Surface& s, Colour c, double x0 = 0, double y0 = 0, double x1 = -1, double y1 = -1) {
  if (x1 < 0) x1 = s.ScaleWidth(), y1 = s.ScaleHeight();
  int n = 0;
  for (double y = y0; y < y1; y += s.TwipsPerPixelY())
    for (double x = x0; x < x1; x += s.TwipsPerPixelX()) n += s.Point(x, y) == (std::int64_t)c;
  return n;
}

}  // namespace

class Test_Main_Integration : public QObject {
  Q_OBJECT

  std::unique_ptr<zarvek_test::StartDir> start_;
  std::unique_ptr<Frm_Zarvek> w_;
  QStringList shown_, chosen_;

  template <class T = QLineEdit>
  T* F(const char* name) {
    auto* w = qobject_cast<T*>(w_->Field_Widget(name));
    if (!w) qFatal("no widget %s", name);
    return w;
  }
  double Value(const char* name) { return Num_Of_Text(F(name)->text().toStdString()); }

  // The main window on the start directory, hooked up and active.
  std::unique_ptr<Frm_Zarvek> Open_Window() {
    auto w = std::make_unique<Frm_Zarvek>(start_->state);
    w->Message_Box = [this](const QString& text, const QString&) { shown_ << text; };
    w->Confirm_Box = [this](const QString& text) { return shown_ << text, true; };
    w->Choose_File = [this](int, const QString&, const QString&) {
      return chosen_.isEmpty() ? QString() : chosen_.takeFirst();
    };
    w->Beep = [] {}, w->Progress_Interval_ms = 1000;
    Install_Windows(*w);
    if (!w->Form_Load()) return nullptr;
    w->show();
    QApplication::setActiveWindow(w.get());
    return QTest::qWaitForWindowActive(w.get()) ? std::move(w) : nullptr;
  }

  void Click_Tab(QTabWidget* tabs, int p) {
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(p).center());
    QTRY_COMPARE(tabs->currentIndex(), p);
  }
  void Click_Page(int p) { Click_Tab(w_->Tab_Zarvek, p); }

  void Solve() {
    QTest::mouseClick(w_->Cmd_Proceed, Qt::LeftButton);
    QVERIFY(w_->Model().Mode_Max > 0);
  }

  // A key in the main window, active again once a modal window has closed.
  void Key(Qt::Key key, Qt::KeyboardModifiers mods = {}) {
    QApplication::setActiveWindow(w_.get());
    QVERIFY(QTest::qWaitForWindowActive(w_.get()));
    QTest::keyClick(w_.get(), key, mods);
  }

  void Type(const char* name, const QString& text) {
    QTest::mouseClick(F(name), Qt::LeftButton);
    QCoreApplication::processEvents();  // the whole text is selected once the click is done
    QTest::keyClicks(F(name), text);
  }

  // A section by dimensions h, b, tf, tw, r in cm, confirmed by the check button.
  void Enter_Section(const char* h, const char* b, const char* tf, const char* tw, const char* r) {
    Click_Page(0);
    auto* route = F<QRadioButton>("Opt_Dimensions");
    QTest::mouseClick(route, Qt::LeftButton, {}, QPoint(8, route->height() / 2));
    const char *names[] = {"Txt_h", "Txt_bf1", "Txt_tf1", "Txt_tw", "Txt_r1"}, *texts[] = {h, b, tf, tw, r};
    for (int i = 0; i < 5; ++i) Type(names[i], QString(texts[i]).replace('.', QChar(Dec_Sep)));
    QTest::mouseClick(w_->Cmd_Dimensions, Qt::LeftButton);
    QVERIFY(!F("Txt_Iz(2)")->text().isEmpty());
  }

  // No tooltip shows the name of a control instead of words.
  void Expect_Worded_Tooltips() {
    static const QRegularExpression control("^[A-Z][A-Za-z]*_[A-Za-z]");
    QStringList bad;
    for (QWidget* c : w_->findChildren<QWidget*>())
      if (control.match(c->toolTip()).hasMatch()) bad << c->objectName() + ": " + c->toolTip();
    QVERIFY2(bad.isEmpty(), qPrintable(bad.join('\n')));
  }

 private slots:
  void init() {
    start_ = std::make_unique<zarvek_test::StartDir>("UK");
    QFile::copy(QString(ZARVEK_BIN_DIR) + "/EXAMPLE.ZVK", start_->file("EXAMPLE.ZVK"));
    Load_Messages();
    shown_.clear(), chosen_.clear();
    QVERIFY(w_ = Open_Window());
  }

  void cleanup() {
    if (auto* h = Help_Browser()) h->close();
    if (auto* p = Help_PictureWindow()) p->close();
    w_.reset(), start_.reset();
  }

  // UK -> FR through the options: the main window's captions follow, the
  // restraint lists keep their choice and a typed spring keeps its number.
  void languageSwitchTranslatesTheMainWindow() {
    Expect_Worded_Tooltips();
    Click_Page(1);
    auto* v2 = F<QComboBox>("Lst_v2");
    v2->setCurrentIndex(2);
    emit v2->activated(2);
    QTest::keyClicks(v2->lineEdit(), "350");
    QCOMPARE(w_->Model().Lst_v2.index, -1); QCOMPARE(F<QComboBox>("Lst_v1")->currentText(), QString("Fixed"));

    QVERIFY(Answer<Frm_Options>([](Frm_Options* o) {
      for (int i = 0; i < o->Lst_Language->count(); ++i)
        if (o->Lst_Language->itemText(i).startsWith("FR")) o->Lst_Language->setCurrentIndex(i);
      QTest::mouseClick(o->Cmd_OKOptions, Qt::LeftButton);
    }, [this] { w_->Menu_Tools_Options->trigger(); }));

    QCOMPARE(start_->state.Language_Code, std::string("FR"));
    QCOMPARE(w_->Tab_Zarvek->tabText(1).toStdString(), Cp1252_To_Utf8(Section_Line(1, 20)));
    QCOMPARE(F<QComboBox>("Lst_v1")->currentText(), QString::fromUtf8("Bloqué"));
    QCOMPARE(w_->Model().Lst_v1.index, 1);
    QCOMPARE(v2->currentText(), QString("350")); QCOMPARE(w_->Model().Lst_v2.index, -1);
    QCOMPARE(Num_Of_Text(w_->Model().Lst_v2.text), 350.0);
    QCOMPARE(w_->Menu_File->title(), QString("&Fichier"));
    Expect_Worded_Tooltips();
    QVERIFY(!w_->Cmd_Dimensions->toolTip().isEmpty());
  }

  // A solved beam: Cancel or Esc in the options window changes nothing of
  // the main window, the result and its mode drawing stay. The mode is drawn
  // in the colours of its check boxes: v 0xC00000, theta' 0x008000.
  void optionsLeftByCancelOrEscapeKeepTheSolvedBeam() {
    Click_Page(3);
    Solve();
    Surface& mode = w_->Img_Eigenmode->surface();
    QVERIFY(Count(mode, 0xC00000) > 20); QVERIFY(Count(mode, 0x008000) > 20);  // v, theta'
    const auto results = [this] { return F("Txt_mucr")->text() + " | " + F("Txt_Mcr")->text(); };
    const QString before = results();
    QVERIFY(!before.startsWith("0 "));
    for (auto leave : {+[](Frm_Options* o) { QTest::keyClick(o, Qt::Key_Escape); },
                       +[](Frm_Options* o) { QTest::mouseClick(o->Cmd_CancelOptions, Qt::LeftButton); }}) {
      QVERIFY(Answer<Frm_Options>(leave, [this] { w_->Menu_Tools_Options->trigger(); }));
      QVERIFY(!QApplication::activeModalWidget());
      QCOMPARE(results(), before);
      QVERIFY(w_->Model().Mode_Max > 0 && Count(mode, 0xC00000) > 20);
    }
  }

  // Alt+E opens the Edit menu in one stroke on every page; the mode table's
  // button of the results page answers to a letter of its own.
  void altEIsTheEditMenuOnEveryPage() {
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
    const Qt::Key key = QKeySequence::mnemonic(w_->Cmd_EditEigen->text())[0].key();
    QVERIFY(key != Qt::Key_E && key != 0);
    Key(key, Qt::AltModifier);
    QTRY_COMPARE(opened, 1);
  }

  // The check of the dimensions leaves their page in front, with the
  // properties it computed in view, though the route is the catalogue's.
  void dimensionsCheckKeepsItsPropertiesInView() {
    QVERIFY(w_->Model().Opt_Catalogue);
    Click_Page(0);
    Click_Tab(w_->Tab_Section, 1);
    QTest::mouseClick(w_->Cmd_Dimensions, Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(w_->Tab_Section->currentIndex(), 1);
    for (const char* f : {"Txt_Iz(2)", "Txt_It(2)", "Txt_Iw(2)"})
      QVERIFY2(!F(f)->visibleRegion().isEmpty() && Value(f) > 0, f);
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
          const bool field = f->inherits("QLineEdit") || f->inherits("QComboBox") || f->inherits("QAbstractButton");
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

  // An HEA 100 (h 96, b 100, tf 8, tw 5, r 12 mm) is wider than high. Its
  // depth fills 0.9 of the height, so its flanges are 0.9 H b / h = 0.94 H
  // wide: both flange tips lie on the picture at the least and at a large
  // window size. The "+" of the forces, printed at 0.9 of the height, is as
  // high as it is wide and ends above the bottom edge.
  void sectionAndForcesAreWholeAtEverySize() {
    Enter_Section("9.6", "10", "0.8", "0.5", "1.2");
    const double h = 9.6, b = 10, tf = 0.8;
    for (const QSize size : {w_->minimumSizeHint().expandedTo(w_->minimumSize()), QSize(1700, 1050)}) {
      const QString at = QString("%1x%2").arg(size.width()).arg(size.height());
      w_->resize(size);
      Click_Page(0);
      QCoreApplication::processEvents();
      Surface& s = w_->Img_Section->surface();
      const double W = s.ScaleWidth(), H = s.ScaleHeight(), px = s.TwipsPerPixelX();
      const double k = 0.9 * H / h, y = (H - h * k) / 2 + tf * k / 2;
      for (double tip : {W / 2 - b * k / 2, W / 2 + b * k / 2})
        QVERIFY2(tip > 0 && tip < W && Count(s, 0x000000, tip - 2 * px, y - px, tip + 2 * px, y + px) > 0,
                 qPrintable(at));

      Click_Page(2);
      QCoreApplication::processEvents();
      Surface& f = w_->Img_Forces->surface();
      const double FW = f.ScaleWidth(), FH = f.ScaleHeight(), fx = f.TwipsPerPixelX();
      // the ink of "+" in the left margin, below the "0" at 0.46 H
      int left = INT_MAX, right = -1, top = INT_MAX, bottom = -1;
      for (int j = (int)(0.7 * FH / fx); j < (int)(FH / fx); ++j)
        for (int i = 0; i < (int)(0.05 * FW / fx) - 1; ++i)
          if (f.Point(i * fx, j * fx) != 0xE0E0E0)  // ink on the background
            left = std::min(left, i), right = std::max(right, i), top = std::min(top, j), bottom = std::max(bottom, j);
      QVERIFY2(right >= 0 && bottom < (int)(FH / fx) - 1 && bottom - top >= right - left - 1,
               qPrintable(QString("%1: + %2 wide, %3 high, bottom %4").arg(at).arg(right - left + 1)
                              .arg(bottom - top + 1).arg(bottom)));
    }
  }

  // More properties of a project of the dimensions route, opened in a new
  // session, show its own section: h 40 cm, flanges 15 x 1.07, web 0.71, root
  // radius 1.5 give A = 2 x 15 x 1.07 + (40 - 2 x 1.07) x 0.71 + 4 (1 - pi/4)
  // 1.5^2 = 60.91 cm2. The page in view goes into the project and comes back.
  void projectKeepsItsSectionAndItsPage() {
    Enter_Section("40", "15", "1.07", "0.71", "1.5");
    const double area = 2 * 15 * 1.07 + (40 - 2 * 1.07) * 0.71 + 4 * (1 - pi / 4) * 1.5 * 1.5;
    const QString file = start_->file("deep.DAT");
    chosen_ << file << file;
    w_->Menu_File_SaveAs_Action->trigger();
    QVERIFY(w_ = Open_Window());
    w_->Menu_File_Open_Action->trigger();
    double shown = 0;
    QVERIFY(Answer<Frm_Properties>([&shown](Frm_Properties* p) {
      shown = Num_Of_Text(p->Lbl_Value[0]->text().toStdString());
      QTest::mouseClick(p->Cmd_OK, Qt::LeftButton);
    }, [this] { QTest::mouseClick(w_->Cmd_MoreProperties, Qt::LeftButton); }));
    QVERIFY2(std::fabs(shown / area - 1) < 1e-4, qPrintable(QString::number(shown)));

    Click_Page(2);
    w_->Menu_File_Save_Action->trigger();
    QVERIFY(w_ = Open_Window());
    chosen_ << file;
    w_->Menu_File_Open_Action->trigger();
    QCOMPARE(w_->Tab_Zarvek->currentIndex(), 2);
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
    QVERIFY(Answer<QMessageBox>([&](QMessageBox* b) { icon = b->icon(), text = b->text(), b->accept(); },
                                [this] { QTest::keyClick(w_.get(), Qt::Key_O, Qt::ControlModifier); }));
    QCOMPARE(icon, QMessageBox::Warning); QVERIFY2(text.contains("CUT.DAT"), qPrintable(text));
  }

  void helpOfThePageAndPictures() {
    Click_Page(1);
    QTest::keyClick(w_.get(), Qt::Key_F1);
    QVERIFY(Help_Browser() && Help_Browser()->isVisible());
    QCOMPARE(Help_Browser()->Current_Context(), 210);
    QVERIFY(!Help_Browser()->Txt_Help->toPlainText().trimmed().isEmpty());
    QTest::mouseClick(w_->Cmd_Help[4], Qt::LeftButton);
    Frm_Help* p = Help_PictureWindow();
    QVERIFY(p && p->isVisible() && p->Img_Help->pixmap().width() > 100);
    QCOMPARE(p->Picture_Index(), 4);
    Click_Page(2);  // another page: the picture told of the page it was asked from
    QVERIFY(!p->isVisible());
  }

  // The catalogue's choice reaches the main window: IPE 200, Iz 142.4 cm4
  // (tables). The window itself is proved in its own test.
  void catalogueTransfersTheSection() {
    QVERIFY(Answer<Frm_Section>([](Frm_Section* s) {
      s->Lst_SectionSerie->setCurrentItem(s->Lst_SectionSerie->findItems("IPE", Qt::MatchExactly).first());
      s->Lst_SectionNumber->setCurrentItem(s->Lst_SectionNumber->findItems("200", Qt::MatchExactly).first());
      QTest::mouseClick(s->Cmd_Transfert, Qt::LeftButton);
    }, [this] { QTest::mouseClick(w_->Cmd_Catalogue, Qt::LeftButton); }));
    QCOMPARE(F("Lbl_SelectedProfile")->text().simplified(), QString("IPE 200"));
    QVERIFY2(std::fabs(Value("Txt_Iz(1)") / 142.4 - 1) < 2e-3, qPrintable(F("Txt_Iz(1)")->text()));
  }

  // A problem file of 300 elements (the main window's list says 100), opened
  // through its editor: F5 solves it as the batch route does, the mode drawn
  // over its 301 nodes (the half sine on forks back on the axis at the right
  // end). A file that fails then clears the results and the drawings of the
  // first, the box naming it; F5 with no file of the user's solves nothing.
  void externalModeSolvesTheProblemFile() {
    QStringList boxes;  // the warning of the external mode, answered
    QVERIFY(Answer<QMessageBox>([&boxes](QMessageBox* b) { boxes << b->text(), b->accept(); },
                                [this] { w_->Menu_Tools_External->trigger(); }));
    QVERIFY(w_->ExternalMode() && !w_->Cmd_Draw3D->isEnabled());
    QCOMPARE(boxes.size(), 1);
    for (int p = 0; p < 4; ++p) QCOMPARE(w_->Tab_Zarvek->isTabEnabled(p), p == 3);

    const std::string path = start_->path() + "/B300.ZVK";
    ProblemData p = Fork_Beam_Uniform_Moment(300, 1000.0, 1e6);
    QVERIFY(Write_ProblemFile(path, p, ProblemLabels::SaveFileZVK));
    chosen_ << QString::fromStdString(path);
    bool editor = false;
    QVERIFY(Answer<QDialog>([&editor](QDialog* d) {
      // closing the editor offers Save As: cancelled
      if (auto* e = qobject_cast<Frm_DirectData*>(d))
        editor = true, e->Choose_File = [](int, const std::string&) { return std::string(); };
      d->reject();
    }, [this] { w_->Menu_File_Open_Action->trigger(); }));
    QVERIFY(editor); QCOMPARE(w_->File_External, path);

    shown_.clear();
    Key(Qt::Key_F5);
    QVERIFY2(!shown_.isEmpty(), "F5 did nothing");
    const double mucr = Value("Txt_mucr");
    QVERIFY2(std::fabs(mucr / Mucr_Example() - 1) < 2e-3, qPrintable(F("Txt_mucr")->text()));
    SolveControl ctl = Direct_SolveControl();
    const DirectSolveOutcome batch = Direct_Solve(path, start_->path() + "/batch.TMP", ctl);
    QVERIFY(batch.Written);
    QVERIFY2(std::fabs(mucr / Num_Of_Text(batch.Clipboard_Text) - 1) < 1e-4,
             qPrintable(F("Txt_mucr")->text() + " <> " + QString::fromStdString(batch.Clipboard_Text)));
    QTest::mouseClick(w_->Cmd_Draw3D, Qt::LeftButton);  // no 3D view of a problem file
    QVERIFY(!QApplication::activeModalWidget());

    // the v curve near the right end of its frame lies on the axis
    const QImage img = w_->Img_Eigenmode->imageSurface().Image();
    const Colour v = w_->Diagrams().Color_v;
    const QRgb blue = qRgb(v & 0xFF, (v >> 8) & 0xFF, (v >> 16) & 0xFF);
    const int right = (int)std::lround(img.width() * 0.95), mid = img.height() / 2;
    int found = 0, far = 0;
    for (int x = right - 4; x < right; ++x)
      for (int y = 0; y < img.height(); ++y)
        if (img.pixel(x, y) == blue) ++found, far += std::abs(y - mid) > 4;
    QVERIFY(found > 0); QCOMPARE(far, 0);

    // a file that fails (no moment, status 112)
    for (int e = 1; e <= 300; ++e) p.M1[e] = p.M2[e] = 0;
    QVERIFY(Write_ProblemFile(path, p, ProblemLabels::SaveFileZVK));
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QVERIFY(Answer<QMessageBox>([&](QMessageBox* b) { text = b->text(), icon = b->icon(), b->accept(); },
                                [this] { Key(Qt::Key_F5); }));
    QCOMPARE(icon, QMessageBox::Warning);
    QVERIFY2(text.contains(QString::fromStdString(path)) && text.contains("(112)"), qPrintable(text));
    for (const char* f : {"Txt_mucr", "Txt_Mcr", "Txt_Mmax(0)"}) QCOMPARE(F(f)->text(), QString("0"));
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
    Key(Qt::Key_F5);
    QFile::remove(stray);
    QCOMPARE(shown_, QStringList{QString::fromStdString(Cp1252_To_Utf8(Text_NoProblemFile()))});
    QCOMPARE(F("Txt_mucr")->text(), QString("0"));

    w_->Menu_Tools_External->trigger();
    QVERIFY(!w_->ExternalMode() && w_->Cmd_Draw3D->isEnabled());
    for (int p = 0; p < 4; ++p) QVERIFY(w_->Tab_Zarvek->isTabEnabled(p));
  }

  // After a solve each result command opens its window; the report stays
  // loaded and follows the data of a new solve.
  void resultWindowsAfterASolve() {
    Click_Page(3);
    Solve();
    for (QPushButton* button : {w_->Cmd_EditEigen, w_->Cmd_Draw3D}) {
      bool ok = false;
      QVERIFY(Answer<QDialog>([&](QDialog* d) {
        ok = d->isVisible() && (button == w_->Cmd_EditEigen ? qobject_cast<Frm_EigenVector*>(d) != nullptr
                                                            : qobject_cast<Frm_EigenVector3D*>(d) != nullptr);
        d->reject();
      }, [button] { QTest::mouseClick(button, Qt::LeftButton); }));
      QVERIFY2(ok, qPrintable(button->objectName()));
    }
    const auto report = [this] {
      QString text;
      Answer<Frm_Edit>([&text](Frm_Edit* e) {
        // the window comes up first, the text is built once it is painted
        (void)QTest::qWaitFor([e] { return !e->Needs_Rebuild(); }, 5000);
        text = e->RichTextBox()->toPlainText();
        e->reject();
      }, [this] { w_->Menu_Edit_Results->trigger(); });
      return text;
    };
    const QString mcr10 = F("Txt_Mcr")->text();
    QVERIFY(report().contains(mcr10));
    Click_Page(0);
    F("Txt_L")->setFocus();
    F("Txt_L")->selectAll();
    QTest::keyClicks(F("Txt_L"), "8");
    Solve();
    const QString text8 = report();
    QVERIFY2(text8.contains(F("Txt_Mcr")->text()), qPrintable(F("Txt_Mcr")->text() + " in " + text8.right(600)));
    QVERIFY(!text8.contains(mcr10)); QCOMPARE(w_->findChildren<Frm_Edit*>().size(), qsizetype(1));
  }
};

QTEST_MAIN(Test_Main_Integration)
#include "test_main_integration.moc"
