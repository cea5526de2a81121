// What the main window shows, met as a user meets it: the options window
// left by Cancel or Esc, the section and the forces at every window size, the
// colours of the mode, the page kept in the project, More properties of an
// opened project. Pictures are read back pixel by pixel from their surfaces.
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QtTest>
#include <cmath>
#include <functional>
#include <memory>

#include "app/qt/Install_Windows.h"
#include "when_modal.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Frm_Options.h"
#include "model/qt/Frm_Zarvek.h"
#include "tools/qt/Frm_Properties.h"
#include "tools/qt/start_dir.h"

using namespace zarvek;

namespace {

constexpr double pi = 3.14159265358979;

// Picture elements of exactly that colour (0xBBGGRR) in a rectangle of the
// surface, in its scale units.
int Count(Surface& s, Colour c, double x0, double y0, double x1, double y1) {
  const double px = s.TwipsPerPixelX(), py = s.TwipsPerPixelY();
  int n = 0;
  for (double y = y0; y < y1; y += py)
    for (double x = x0; x < x1; x += px) n += s.Point(x, y) == (std::int64_t)c;
  return n;
}

}  // namespace

class Test_Main_Views : public QObject {
  Q_OBJECT

  std::unique_ptr<zarvek_test::StartDir> start_;
  std::unique_ptr<Frm_Zarvek> w_;
  QStringList shown_;
  QStringList chosen_;

  QLineEdit* E(const char* name) {
    auto* e = qobject_cast<QLineEdit*>(w_->Field_Widget(name));
    if (!e) qFatal("no field %s", name);
    return e;
  }

  std::unique_ptr<Frm_Zarvek> Open_Window() {
    auto w = std::make_unique<Frm_Zarvek>(start_->state);
    w->Message_Box = [this](const QString& text, const QString&) { shown_ << text; };
    w->Confirm_Box = [this](const QString& text) {
      shown_ << text;
      return true;
    };
    w->Choose_File = [this](int, const QString&, const QString&) {
      return chosen_.isEmpty() ? QString() : chosen_.takeFirst();
    };
    w->Beep = [] {};
    w->Progress_Interval_ms = 1000;
    Install_Windows(*w);
    if (!w->Form_Load()) return nullptr;
    w->show();
    QApplication::setActiveWindow(w.get());
    if (!QTest::qWaitForWindowActive(w.get())) return nullptr;
    return w;
  }

  void Click(QWidget* b) { QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(8, b->height() / 2)); }

  void Click_Page(int p) {
    QTabBar* bar = w_->Tab_Zarvek->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(p).center());
    QCoreApplication::processEvents();
    QCOMPARE(w_->Tab_Zarvek->currentIndex(), p);
  }

  void Type(const char* name, const QString& text) {
    QLineEdit* e = E(name);
    QTest::mouseClick(e, Qt::LeftButton);
    QCoreApplication::processEvents();  // the whole text is selected once the click is done
    QTest::keyClicks(e, text);
  }

  // A section by dimensions, in cm, confirmed by the check button.
  void Enter_Section(const char* h, const char* b, const char* tf, const char* tw, const char* r) {
    Click_Page(0);
    Click(qobject_cast<QRadioButton*>(w_->Field_Widget("Opt_Dimensions")));
    const std::pair<const char*, const char*> fields[] = {
        {"Txt_h", h}, {"Txt_bf1", b}, {"Txt_tf1", tf}, {"Txt_tw", tw}, {"Txt_r1", r}};
    for (const auto& [name, text] : fields) Type(name, QString(text).replace('.', QChar(Dec_Sep)));
    QTest::mouseClick(w_->Cmd_Dimensions, Qt::LeftButton);
    QVERIFY(!E("Txt_Iz(2)")->text().isEmpty());
  }

 private slots:
  void init() {
    start_ = std::make_unique<zarvek_test::StartDir>("UK");
    Load_Messages();
    shown_.clear();
    chosen_.clear();
    w_ = Open_Window();
    QVERIFY(w_);
  }

  void cleanup() {
    w_.reset();
    start_.reset();
  }

  // ---- options ------------------------------------------------------------

  // A solved beam: Cancel or Esc in the options window changes nothing of
  // the main window, the result and its mode drawing stay. The mode is drawn
  // in the colours of its check boxes: v 0xC00000, theta' 0x008000.
  void optionsLeftByCancelOrEscapeKeepTheSolvedBeam() {
    Click_Page(3);
    QTest::mouseClick(w_->Cmd_Proceed, Qt::LeftButton);
    QVERIFY(w_->Model().Mode_Max > 0);
    Surface& mode = w_->Img_Eigenmode->surface();
    const double W = mode.ScaleWidth(), H = mode.ScaleHeight();
    QVERIFY(Count(mode, 0xC00000, 0, 0, W, H) > 20);  // v
    QVERIFY(Count(mode, 0x008000, 0, 0, W, H) > 20);  // theta'
    const QString mucr = E("Txt_mucr")->text(), Mcr = E("Txt_Mcr")->text();
    QVERIFY(mucr != "0");

    const std::function<void(Frm_Options*)> ways[] = {
        [](Frm_Options* o) { QTest::keyClick(o, Qt::Key_Escape); },
        [](Frm_Options* o) { QTest::mouseClick(o->Cmd_CancelOptions, Qt::LeftButton); },
    };
    for (const auto& leave : ways) {
      bool seen = false;
      When_Modal<Frm_Options>(leave, &seen);
      w_->Menu_Tools_Options->trigger();
      QVERIFY(seen);
      QVERIFY(!QApplication::activeModalWidget());
      QCOMPARE(E("Txt_mucr")->text(), mucr);
      QCOMPARE(E("Txt_Mcr")->text(), Mcr);
      QVERIFY(w_->Model().Mode_Max > 0);
      QVERIFY(Count(mode, 0xC00000, 0, 0, W, H) > 20);
    }
  }

  // ---- drawings at every window size -------------------------------------

  // An HEA 100 (h 96, b 100, tf 8, tw 5, r 12 mm) is wider than high. Its
  // depth fills 0.9 of the height, so its flanges are 0.9 H b / h = 0.94 H
  // wide: both flange tips lie on the picture at the least and at a large
  // window size. The "+" of the forces, printed at 0.9 of the height, is as
  // high as it is wide and ends above the bottom edge.
  void sectionAndForcesAreWholeAtEverySize() {
    Enter_Section("9.6", "10", "0.8", "0.5", "1.2");
    const double h = 9.6, b = 10, tf = 0.8;
    for (const QSize size : {w_->minimumSizeHint().expandedTo(w_->minimumSize()), QSize(1700, 1050)}) {
      w_->resize(size);
      Click_Page(0);
      QCoreApplication::processEvents();
      Surface& s = w_->Img_Section->surface();
      const double W = s.ScaleWidth(), H = s.ScaleHeight(), px = s.TwipsPerPixelX();
      const double k = 0.9 * H / h, y = (H - h * k) / 2 + tf * k / 2;
      const QString at = QString("%1x%2").arg(size.width()).arg(size.height());
      for (double tip : {W / 2 - b * k / 2, W / 2 + b * k / 2}) {
        QVERIFY2(tip > 0 && tip < W, qPrintable(at));
        QVERIFY2(Count(s, 0x000000, tip - 2 * px, y - px, tip + 2 * px, y + px) > 0, qPrintable(at));
      }

      Click_Page(2);
      QCoreApplication::processEvents();
      Surface& f = w_->Img_Forces->surface();
      const double FW = f.ScaleWidth(), FH = f.ScaleHeight(), fx = f.TwipsPerPixelX();
      // the ink of "+" in the left margin, below the "0" at 0.46 H
      int left = INT_MAX, right = -1, top = INT_MAX, bottom = -1;
      for (int j = (int)(0.7 * FH / fx); j < (int)(FH / fx); ++j)
        for (int i = 0; i < (int)(0.05 * FW / fx) - 1; ++i)
          if (f.Point(i * fx, j * fx) != 0xE0E0E0) {  // ink on the background
            left = std::min(left, i), right = std::max(right, i);
            top = std::min(top, j), bottom = std::max(bottom, j);
          }
      QVERIFY2(right >= 0, qPrintable(at));
      QVERIFY2(bottom < (int)(FH / fx) - 1, qPrintable(at));
      QVERIFY2(bottom - top >= right - left - 1,
               qPrintable(QString("%1: + %2 wide, %3 high").arg(at).arg(right - left + 1).arg(bottom - top + 1)));
    }
  }

  // ---- the project file ------------------------------------------------------

  // More properties of a project of the dimensions route, opened in a new
  // session, show its own section: h 40 cm, flanges 15 x 1.07, web 0.71, root
  // radius 1.5 give A = 2 x 15 x 1.07 + (40 - 2 x 1.07) x 0.71 + 4 (1 - pi/4)
  // 1.5^2 = 60.91 cm2. The page in view goes into the project and comes back.
  void projectKeepsItsSectionAndItsPage() {
    Enter_Section("40", "15", "1.07", "0.71", "1.5");
    const double area = 2 * 15 * 1.07 + (40 - 2 * 1.07) * 0.71 + 4 * (1 - pi / 4) * 1.5 * 1.5;
    const QString file = QString::fromStdString(start_->path()) + "/deep.DAT";
    chosen_ << file << file;
    w_->Menu_File_SaveAs_Action->trigger();
    w_ = Open_Window();
    QVERIFY(w_);
    w_->Menu_File_Open_Action->trigger();
    double shown = 0;
    bool seen = false;
    When_Modal<Frm_Properties>([&shown](Frm_Properties* p) {
      shown = Num_Of_Text(p->Lbl_Value[0]->text().toStdString());
      p->Cmd_OK->click();
    }, &seen);
    QTest::mouseClick(w_->Cmd_MoreProperties, Qt::LeftButton);
    QVERIFY(seen);
    QVERIFY2(std::fabs(shown / area - 1) < 1e-4, qPrintable(QString::number(shown)));

    Click_Page(2);
    w_->Menu_File_Save_Action->trigger();
    w_ = Open_Window();
    QVERIFY(w_);
    chosen_ << file;
    w_->Menu_File_Open_Action->trigger();
    QCOMPARE(w_->Tab_Zarvek->currentIndex(), 2);
  }
};

QTEST_MAIN(Test_Main_Views)
#include "test_main_views.moc"
