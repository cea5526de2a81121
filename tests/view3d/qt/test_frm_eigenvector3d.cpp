// The 3D window on solved beams: a fork-supported span and a cantilever.
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QtTest>
#include <cmath>
#include <unistd.h>

#include "analysis/Proceed.h"
#include "diagrams/Recorder.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Language.h"
#include "view3d/qt/Frm_EigenVector3D.h"
#include "view3d/qt/TriD_Cursors.h"
#include "view3d/qt/TriD_Picture.h"

using namespace zarvek;

namespace {

std::string Scratch(const std::string& name) {
  return QDir::tempPath().toStdString() + "/zarvek-3d-" + std::to_string(::getpid()) + "-" + name;
}

// IPE 300, 10 m in 100 elements, fork supports, uniform moment.
BeamModel Fork_Beam() {
  BeamModel m;
  Init_Default(m, "/tmp");
  return m;
}

// The same section, 4 m clamped at end 1 and free at end 2 (in plane and
// out of plane), a moment at the tip.
BeamModel Cantilever() {
  BeamModel m;
  Init_Default(m, "/tmp");
  m.Txt_L = "4";
  m.Lst_vp1 = m.Lst_tp1 = Restraint_Item(1);
  m.Lst_v2 = m.Lst_t2 = Restraint_Item(0);
  m.Opt_AA = false;
  m.Opt_EL = true;
  m.Txt_M1 = "100";
  m.Txt_M2 = "100";
  return m;
}

bool Solve(BeamModel& m, const std::string& name) {
  SolveControl ctl;
  ProceedResult r = Proceed(m, Scratch(name), ctl);
  ::unlink(Scratch(name).c_str());
  return r.Solve_Status == 0 && m.Mode_Max > 0;
}

// Pixels of a colour (0xBBGGRR) in a picture.
int Count_Colour(const QImage& img, Colour c) {
  const QColor want = To_QColor(c);
  int n = 0;
  const QImage im = img.convertToFormat(QImage::Format_RGB32);
  for (int y = 0; y < im.height(); ++y)
    for (int x = 0; x < im.width(); ++x)
      if (QColor(im.pixel(x, y)) == want) ++n;
  return n;
}

// Centre of the pixels of a colour.
QPointF Centre_Of(const QImage& img, Colour c) {
  const QColor want = To_QColor(c);
  const QImage im = img.convertToFormat(QImage::Format_RGB32);
  double sx = 0, sy = 0;
  int n = 0;
  for (int y = 0; y < im.height(); ++y)
    for (int x = 0; x < im.width(); ++x)
      if (QColor(im.pixel(x, y)) == want) sx += x, sy += y, ++n;
  return n ? QPointF(sx / n, sy / n) : QPointF(-1, -1);
}

void Save_Shot(QWidget& w, const char* name) {
  const QString dir = QString(ZARVEK_BIN_DIR) + "/../shots";
  QDir().mkpath(dir);
  w.grab().save(dir + "/" + name);
}

}  // namespace

class Test_Frm_EigenVector3D : public QObject {
  Q_OBJECT
 private slots:
  void initTestCase() { QVERIFY(Solve(fork_, "FORK.ZVK")); QVERIFY(Solve(cant_, "CANT.ZVK")); }

  void controlsAreThere() {
    Frm_EigenVector3D frm(fork_);
    for (const char* name : {"Img_Plot3D", "Img_Axes", "Cdr_Effects", "Scroll_RapDep", "Cmd_RapDep0",
                             "Scroll_Zoom", "Cmd_Zoom1", "Scroll_RotGlob(1)", "Scroll_RotGlob(2)",
                             "Scroll_RotGlob(3)", "Cmd_RotGlob0(1)", "Cmd_RotGlob0(2)", "Cmd_RotGlob0(3)",
                             "Scroll_RotLocX", "Cmd_RotLocX0", "Scroll_X", "Scroll_Z", "Cmd_ReCenter",
                             "Opt_DrawAllSections", "Opt_DrawLight"})
      QVERIFY2(frm.findChild<QWidget*>(name), name);
    for (const char* name : {"Menu_File_Print", "Menu_File_Quit", "Menu_Edit_Copy", "Menu_Quid_Help"})
      QVERIFY2(frm.findChild<QAction*>(name), name);
    QVERIFY(frm.isModal());
    auto* all = frm.findChild<QRadioButton*>("Opt_DrawAllSections");
    QVERIFY(all->isChecked());
  }

  void scrollBarsStepByDirection() {
    Frm_EigenVector3D frm(fork_);
    frm.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frm));
    TriD_Scene& t = frm.Scene();
    auto* zoom = frm.findChild<QScrollBar*>("Scroll_Zoom");
    // Any change is one step, however far the thumb goes.
    zoom->setValue(5000);
    QCOMPARE(t.ZoomTotal, 1.1f);
    zoom->setValue(4000);
    QVERIFY(std::fabs(t.ZoomTotal - 1.0f) < 1e-6);
    zoom->setValue(4001);
    frm.findChild<QPushButton*>("Cmd_Zoom1")->click();
    QCOMPARE(zoom->value(), 0);
    QCOMPARE(t.ZoomTotal, 1.0f);

    // X turns against its thumb, Y and Z with it.
    const float ax = t.Angle[1], ay = t.Angle[2];
    frm.findChild<QScrollBar*>("Scroll_RotGlob(1)")->setValue(10);
    frm.findChild<QScrollBar*>("Scroll_RotGlob(2)")->setValue(10);
    QVERIFY(std::fabs(t.Angle[1] - (ax - 3.14159265f / 120)) < 1e-6);
    QVERIFY(std::fabs(t.Angle[2] - (ay + 3.14159265f / 120)) < 1e-6);
    frm.findChild<QPushButton*>("Cmd_RotGlob0(1)")->click();
    QVERIFY(std::fabs(t.Angle[1]) < 1e-6);

    // Pan: the bar rising moves the scale back by a tenth of the width.
    Surface& s = frm.Plot();
    const double left = s.ScaleLeft(), top = s.ScaleTop();
    frm.findChild<QScrollBar*>("Scroll_X")->setValue(1);
    frm.findChild<QScrollBar*>("Scroll_Z")->setValue(1);
    QVERIFY(std::fabs(s.ScaleLeft() - (left - s.ScaleWidth() / 10)) < 1e-6 * std::fabs(left));
    QVERIFY(std::fabs(s.ScaleTop() - (top - s.ScaleHeight() / 10)) < 1e-6 * std::fabs(top));
    frm.findChild<QPushButton*>("Cmd_ReCenter")->click();
    QCOMPARE(frm.findChild<QScrollBar*>("Scroll_X")->value(), 0);
    QCOMPARE(frm.findChild<QScrollBar*>("Scroll_Z")->value(), 0);
    QVERIFY(std::fabs(s.ScaleLeft() + s.ScaleWidth() / 2) < 1e-6 * s.ScaleWidth());

    // Ratio 0: the straight beam, the first view back.
    frm.findChild<QScrollBar*>("Scroll_RotGlob(3)")->setValue(-30);
    frm.findChild<QPushButton*>("Cmd_RapDep0")->click();
    QCOMPARE(t.RapDep, 0.0f);
    QVERIFY(std::fabs(t.Angle[3] + 3.14159265f / 4) < 1e-6);
    for (int i = 1; i <= t.Stations; ++i) {
      // the axis points all lie on one line through the origin
      const double cross = t.X[P7][i] * t.Z[P7][t.Stations] - t.Z[P7][i] * t.X[P7][t.Stations];
      QVERIFY(std::fabs(cross) < 1e-2 * t.L);
    }
  }

  void lightDrawingOption() {
    Frm_EigenVector3D frm(fork_);
    frm.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frm));
    const int allBlue = Count_Colour(frm.Picture(), 0xC00000);
    frm.findChild<QRadioButton*>("Opt_DrawLight")->click();
    QVERIFY(!frm.Scene().DrawAll);
    const int lightBlue = Count_Colour(frm.Picture(), 0xC00000);
    // 11 webs of 101 drawn
    QVERIFY2(lightBlue * 5 < allBlue, qPrintable(QString("%1 %2").arg(lightBlue).arg(allBlue)));
    frm.findChild<QRadioButton*>("Opt_DrawAllSections")->click();
    QVERIFY(frm.Scene().DrawAll);
  }

  void resizeKeepsTheTurnButNotThePanAndHasALeast() {
    Frm_EigenVector3D frm(fork_);
    frm.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frm));
    TriD_Scene& t = frm.Scene();
    frm.findChild<QScrollBar*>("Scroll_Zoom")->setValue(1);
    frm.findChild<QScrollBar*>("Scroll_X")->setValue(1);
    const float x3 = t.X[P3][7];
    frm.resize(frm.width() + 120, frm.height() + 60);
    QTest::qWait(50);
    QCOMPARE(t.X[P3][7], x3);  // the model is untouched
    QCOMPARE(t.ZoomTotal, 1.1f);
    Surface& s = frm.Plot();
    QVERIFY(std::fabs(s.ScaleLeft() - (-t.L / 2 - t.L / 20)) < 1e-3);
    QVERIFY(std::fabs(s.ScaleHeight() + s.ScaleWidth() * s.Height() / s.Width()) < 1e-6 * s.ScaleWidth());
    frm.resize(50, 50);
    QTest::qWait(50);
    QVERIFY(frm.width() >= 2 * frm.findChild<QWidget*>("Cdr_Effects")->width());
    QVERIFY(frm.height() >= 5460 / 15);
  }

  void dragTurnsByZoneAndPansWithTheRightButton() {
    for (BeamModel* m : {&fork_, &cant_}) {
      Frm_EigenVector3D frm(*m);
      frm.show();
      QVERIFY(QTest::qWaitForWindowExposed(&frm));
      const bool fork = m == &fork_;
      Save_Shot(frm, fork ? "fork_default.png" : "cantilever_default.png");
      SurfaceWidget* plot = frm.Img_Plot3D();
      TriD_Scene& t = frm.Scene();
      const QPoint c(plot->width() / 2, plot->height() / 2);
      // Middle band: turns about X, with the upright loop image.
      const float ax = t.Angle[1];
      QTest::mousePress(plot, Qt::LeftButton, {}, c);
      QCOMPARE(plot->cursor().shape(), Qt::BitmapCursor);
      QVERIFY(t.Dragging);
      for (int k = 1; k <= 10; ++k) {
        QMouseEvent mv(QEvent::MouseMove, QPointF(c.x(), c.y() - 4 * k), plot->mapToGlobal(QPointF(c.x(), c.y() - 4 * k)),
                       Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(plot, &mv);
      }
      // 40 pixels up: -0.1 x 2 pi x 40/height of the picture (the near side
      // of the model comes up with the mouse).
      const double expected = -0.1 * 2 * 3.14159265 * 40 / plot->height();
      QVERIFY2(std::fabs((t.Angle[1] - ax) - expected) < -0.02 * expected,
               qPrintable(QString("%1 %2").arg(t.Angle[1] - ax).arg(expected)));
      // During the drag only the tenth of the stations is drawn.
      const int dragBlue = Count_Colour(frm.Picture(), 0xC00000);
      QTest::mouseRelease(plot, Qt::LeftButton, {}, QPoint(c.x(), c.y() - 40));
      QVERIFY(!t.Dragging);
      QCOMPARE(plot->cursor().shape(), Qt::ArrowCursor);
      QVERIFY(Count_Colour(frm.Picture(), 0xC00000) > 3 * dragBlue);

      // Near a corner: turns in the plane of the picture.
      const QPoint corner(plot->width() - 20, 20);
      const float ay = t.Angle[2];
      QTest::mousePress(plot, Qt::LeftButton, {}, corner);
      for (int k = 1; k <= 10; ++k) {
        const QPointF p(corner.x() - 6 * k, corner.y());
        QMouseEvent mv(QEvent::MouseMove, p, plot->mapToGlobal(p), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(plot, &mv);
      }
      QTest::mouseRelease(plot, Qt::LeftButton, {}, QPoint(corner.x() - 60, corner.y()));
      // Leftward at the upper right goes counter-clockwise round the
      // origin: a negative turn about Y.
      QVERIFY(t.Angle[2] < ay);
      Save_Shot(frm, fork ? "fork_turned.png" : "cantilever_turned.png");

      // Right drag: the red axis follows the mouse, 30 pixels across.
      const QPointF before = Centre_Of(frm.Picture(), 0x0000FF);
      QTest::mousePress(plot, Qt::RightButton, {}, c);
      for (int k = 1; k <= 3; ++k) {
        const QPointF p(c.x() + 10 * k, c.y());
        QMouseEvent mv(QEvent::MouseMove, p, plot->mapToGlobal(p), Qt::NoButton, Qt::RightButton, Qt::NoModifier);
        QApplication::sendEvent(plot, &mv);
      }
      QTest::mouseRelease(plot, Qt::RightButton, {}, QPoint(c.x() + 30, c.y()));
      const QPointF after = Centre_Of(frm.Picture(), 0x0000FF);
      const double dpr = frm.Picture().devicePixelRatio();
      QVERIFY2(std::fabs((after.x() - before.x()) / dpr - 30) < 2,
               qPrintable(QString("%1").arg(after.x() - before.x())));
      QVERIFY(std::fabs(after.y() - before.y()) < 2);

      // Seen from further above and closer, for the eye.
      auto* rx = frm.findChild<QScrollBar*>("Scroll_RotGlob(1)");
      for (int k = 1; k <= 40; ++k) rx->setValue(-k);
      auto* zoom = frm.findChild<QScrollBar*>("Scroll_Zoom");
      for (int k = 1; k <= 4; ++k) zoom->setValue(k);
      Save_Shot(frm, fork ? "fork_above.png" : "cantilever_above.png");
    }
  }

  void copySaveAndNoMode() {
    Frm_EigenVector3D frm(cant_);
    frm.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frm));
    frm.Menu_Edit_Copy();
    const QImage clip = QGuiApplication::clipboard()->image();
    QCOMPARE(clip.size(), frm.Picture().size());
    QVERIFY(Count_Colour(clip, 0x0000FF) > 0);

    const QString png = QString::fromStdString(Scratch("view.png"));
    const QString svg = QString::fromStdString(Scratch("view.SVG"));
    QVERIFY(frm.Save_Picture(png));
    QVERIFY(frm.Save_Picture(svg));
    QVERIFY(!frm.Save_Picture(QString::fromStdString(Scratch("view.bmp"))));
    QCOMPARE(QImage(png).size(), frm.Picture().size());
    QFile f(svg);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QVERIFY(f.readAll().contains("<svg"));
    QFile::remove(png);
    QFile::remove(svg);

    // The printed page, as a PDF: the model drawn, nothing cleared.
    const QString pdf = QString::fromStdString(Scratch("page.pdf"));
    {
      QPrinter printer(QPrinter::HighResolution);
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(pdf);
      QVERIFY(frm.Print_Page(printer));
    }
    QVERIFY(QFileInfo(pdf).size() > 1000);
    QFile::remove(pdf);

    // No mode: the message on the mode picture, no window.
    BeamModel none = Fork_Beam();
    Set_Msg(14, "No buckling mode yet");
    Recorder rec(7335, 2000, false);
    QVERIFY(!Cmd_Draw3D_Click(nullptr, none, rec, false));
    const auto texts = rec.Of(RecordedOp::Text);
    QCOMPARE(texts.size(), std::size_t(1));
    QCOMPARE(texts[0].text, std::string("No buckling mode yet"));
    QCOMPARE(texts[0].x1, 7335.0 / 4);
    QCOMPARE(texts[0].y1, 1000.0);
    QCOMPARE(texts[0].colour, Colour(0));
    QVERIFY(!Cmd_Draw3D_Click(nullptr, fork_, rec, true));  // external mode: ignored
  }

  void cursorsAreTheProgramsOwn() {
    // Four different pictures, each with its hot spot in the middle.
    const TriD_Cursor kinds[] = {TriD_Cursor::RotX, TriD_Cursor::RotY, TriD_Cursor::RotZ, TriD_Cursor::TransXY};
    QImage sheet(4 * 40, 40, QImage::Format_ARGB32);
    sheet.fill(QColor(0xE0, 0xE0, 0xE0));
    QPainter p(&sheet);
    std::vector<QImage> seen;
    for (int k = 0; k < 4; ++k) {
      const QCursor c = TriD_QCursor(kinds[k]);
      QCOMPARE(c.shape(), Qt::BitmapCursor);
      QCOMPARE(c.hotSpot(), QPoint(16, 16));
      const QImage img = c.pixmap().toImage();
      int ink = 0;
      for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) ink += qAlpha(img.pixel(x, y)) > 0;
      QVERIFY(ink > 40);
      for (const QImage& other : seen) QVERIFY(other != img);
      seen.push_back(img);
      p.drawPixmap(40 * k + 4, 4, c.pixmap());
    }
    p.end();
    QDir().mkpath(QString(ZARVEK_BIN_DIR) + "/../shots");
    sheet.scaled(sheet.size() * 3).save(QString(ZARVEK_BIN_DIR) + "/../shots/cursors.png");
    QCOMPARE(TriD_QCursor(TriD_Cursor::Default).shape(), Qt::ArrowCursor);
  }

  void pictureFileOfTheCommandLine() {
    const std::string png = Scratch("cli.png"), svg = Scratch("cli.svg");
    std::string error;
    QCOMPARE(TriD_WritePicture(fork_, png, 1, error), TriD_PictureStatus::Written);
    const QImage img(QString::fromStdString(png));
    QCOMPARE(img.size(), QSize(800, 600));
    // The mid-span of a half-sine mode in the first view: the red axis is
    // symmetric about the centre of the picture, the end marks apart.
    const QPointF red = Centre_Of(img, 0x0000FF);
    QVERIFY2(std::fabs(red.x() - 400) < 15 && std::fabs(red.y() - 300) < 15,
             qPrintable(QString("%1 %2").arg(red.x()).arg(red.y())));
    QCOMPARE(TriD_WritePicture(fork_, png, 2, error), TriD_PictureStatus::Written);
    QCOMPARE(QImage(QString::fromStdString(png)).size(), QSize(1600, 1200));
    QCOMPARE(TriD_WritePicture(cant_, svg, 1, error), TriD_PictureStatus::Written);
    {
      // 101 stations of the cantilever: a web and two flanges each, 100 runs
      // of six wires and a piece of axis; two end circles, the marks 1 and 2.
      QFile f(QString::fromStdString(svg));
      QVERIFY(f.open(QIODevice::ReadOnly));
      const QByteArray doc = f.readAll();
      QCOMPARE(doc.count("<line"), qsizetype(101 * 3 + 100 * 7));
      QCOMPARE(doc.count("#0000c0"), qsizetype(101));
      QCOMPARE(doc.count("<ellipse"), qsizetype(2));
      QVERIFY(doc.contains(">1</text>") && doc.contains(">2</text>"));
    }
    QCOMPARE(TriD_WritePicture(cant_, Scratch("cli.gif"), 1, error), TriD_PictureStatus::BadExtension);
    BeamModel none = Fork_Beam();
    QCOMPARE(TriD_WritePicture(none, png, 1, error), TriD_PictureStatus::NoMode);
    QCOMPARE(TriD_WritePicture(fork_, "/nonexistent-dir/x.png", 1, error), TriD_PictureStatus::WriteFailed);
    ::unlink(png.c_str());
    ::unlink(svg.c_str());
  }

 private:
  BeamModel fork_ = Fork_Beam();
  BeamModel cant_ = Cantilever();
};

QTEST_MAIN(Test_Frm_EigenVector3D)
#include "test_frm_eigenvector3d.moc"
