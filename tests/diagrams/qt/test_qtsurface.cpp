// The screen surface: exact colours read back, read-outs in the user's unit, HiDPI pictures, the widget.
#include <QtTest>

#include "../diagram_support.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Mod_Zarvek.h"

using namespace zarvek;

namespace {

constexpr double W = 7335, H = 1755;

double Y_Of(double value, double scale) { return H / 2 + value / scale * 0.45 * H; }

}  // namespace

class TestQtSurface : public QObject {
  Q_OBJECT
 private slots:
  void initTestCase() { Dec_Sep = '.'; }

  void curvesReadBackExactly() {
    // A 10 m beam, pinned at both ends, under a uniform 10 kN/m downward: M = q x (L - x) / 2, 125 kN.m at
    // mid-span; V = q (L/2 - x), 50 kN at the ends.
    BeamModel m;
    m.Chk_M = false, m.Chk_q1 = true;
    m.Txt_q11 = "-10", m.Txt_q12 = "-10", m.Txt_xq11 = "0", m.Txt_xq12 = "1", m.Txt_zq1 = "0";
    EffortsData e;
    DiagramState st;
    QtImageSurface s(W, H, 15, 1);
    QCOMPARE(s.Image().size(), QSize(489, 117));
    Tracer_Efforts(s, m, e, st);
    // M touches the bottom frame line at mid-span, in black; V the top one at the left end, in blue
    QCOMPARE(s.Point(W / 2, Y_Of(125, 125)), std::int64_t(0x000000));
    // 20 twips in (0.03 m): V = -10 (5 - 0.03); the line lies within a pixel of that ordinate
    const double yV = Y_Of(-10 * (5 - 20 / (0.9 * W) * 10), 50);
    bool blue = false;
    for (double dy : {-15.0, 0.0, 15.0}) blue = blue || s.Point(0.05 * W + 20, yV + dy) == 0xC00000;
    QVERIFY(blue);
    // No antialiasing: right of the margin (the sign marks) every pixel is exactly one of the colours drawn.
    const QImage img = s.Image();
    const QSet<QRgb> palette = {qRgb(0xE0, 0xE0, 0xE0), qRgb(0xC0, 0xC0, 0xC0), qRgb(0x80, 0x80, 0x80),
                                qRgb(0, 0, 0), qRgb(0, 0, 0xC0)};
    for (int j = 0; j < img.height(); ++j)
      for (int i = 30; i < img.width(); ++i)
        QVERIFY2(palette.contains(img.pixel(i, j) | 0xFF000000), qPrintable(QString("%1,%2").arg(i).arg(j)));
    QCOMPARE(s.Point(-1, 10), std::int64_t(-1));  // outside the picture

    // Read-out on this surface's pixels, one element right of the mouse: over element 51, M at 5.1 m.
    const double X = st.Forces_X0 + 51.5 * st.Forces_DX, Y = Y_Of(10 * 5.05 * 4.95 / 2, 125);
    const ReadOut r = Forces_ReadOut(s, m, e, st, X, Y);
    QVERIFY(r.hit && r.curve == 1); QCOMPARE(r.caption, std::string("M = 124.95"));
  }

  void hiDpiPictureKeepsItsSizeAndColours() {
    QtImageSurface s(3000, 1500, 15, 2);
    QCOMPARE(s.Image().width(), 400);  // 200 screen pixels of 2 device pixels
    QCOMPARE(s.Image().deviceIndependentSize(), QSizeF(200, 100));
    s.Cls(), s.Line(0, 750, 3000, 750, 0x0000C0);
    QCOMPARE(s.Point(1000, 750), std::int64_t(0x0000C0));
    QCOMPARE(s.Point(1000, 600), std::int64_t(0xE0E0E0));
  }

  void widgetMapsTheMouseToTheScale() {
    SurfaceWidget w;
    w.resize(200, 100), w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QVERIFY(w.surface().Width() == 200 * 15.0 && w.surface().Height() == 100 * 15.0);
    w.surface().ScaleWidth(100), w.surface().ScaleHeight(-10), w.surface().ScaleTop(5);  // y up
    QSignalSpy moved(&w, &SurfaceWidget::mouseMoved);
    QMouseEvent ev(QEvent::MouseMove, QPointF(50, 25), w.mapToGlobal(QPointF(50, 25)), Qt::NoButton,
                   Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&w, &ev);
    QCOMPARE(moved.count(), 1);
    QVERIFY(moved.at(0).at(0).toDouble() == 25.0 && moved.at(0).at(1).toDouble() == 2.5);
    w.resize(300, 100);
    QCOMPARE(w.surface().Width(), 300 * 15.0);
  }
};

QTEST_MAIN(TestQtSurface)
#include "test_qtsurface.moc"
