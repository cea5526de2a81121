// The 3D window on solved beams: a fork-supported span and a cantilever.
#include <QPrinter>
#include <QtTest>
#include <QtWidgets>

#include "analysis/Proceed.h"
#include "diagrams/Recorder.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/scratch_dir.h"
#include "foundation/Language.h"
#include "view3d/qt/Frm_EigenVector3D.h"
#include "view3d/qt/TriD_Picture.h"

using namespace zarvek;

constexpr float Step = 3.14159265f / 120;  // one step of a rotation bar

// A file of the test's own folder, removed at the end.
static std::string Scratch(const std::string& name) {
  static QTemporaryDir dir;
  return dir.filePath(QString::fromStdString(name)).toStdString();
}

static bool Near(double a, double b, double tol) { return std::fabs(a - b) < tol; }

// IPE 300, 10 m in 100 elements, fork supports, uniform moment.
static BeamModel Fork_Beam() { BeamModel m; Init_Default(m, "/tmp"); return m; }

// The same section 4 m long, clamped at end 1 and free at end 2 in and out of plane, uniform moment.
static BeamModel Cantilever() {
  BeamModel m = Fork_Beam();
  m.Txt_L = "4", m.Lst_vp1 = m.Lst_tp1 = Restraint_Item(1), m.Lst_v2 = m.Lst_t2 = Restraint_Item(0);
  m.Opt_AA = false, m.Opt_EL = true, m.Txt_M1 = m.Txt_M2 = "100";
  return m;
}

static bool Solve(BeamModel& m, const std::string& name) {
  SolveControl ctl;
  return Proceed(m, Scratch(name), ctl).Solve_Status == 0 && m.Mode_Max > 0;
}

// Number and centre of the pixels of a colour (0xBBGGRR).
static std::pair<int, QPointF> Pixels_Of(const QImage& img, Colour c) {
  const QRgb want = To_QColor(c).rgb();
  const QImage im = img.convertToFormat(QImage::Format_RGB32);
  double sx = 0, sy = 0, n = 0;
  for (int y = 0; y < im.height(); ++y)
    for (int x = 0; x < im.width(); ++x)
      if (im.pixel(x, y) == want) sx += x, sy += y, ++n;
  return {int(n), n ? QPointF(sx / n, sy / n) : QPointF(-1, -1)};
}

static bool Shown(QWidget& w) { return w.show(), QTest::qWaitForWindowExposed(&w); }

// A drag on the picture: press, then moves in steps (the caller releases).
static void Drag(QWidget* w, Qt::MouseButton b, QPoint from, QPoint by, int steps) {
  QTest::mousePress(w, b, {}, from);
  for (int k = 1; k <= steps; ++k) {
    const QPointF p = from + QPointF(by) * k / steps;
    QMouseEvent mv(QEvent::MouseMove, p, w->mapToGlobal(p), Qt::NoButton, b, Qt::NoModifier);
    QApplication::sendEvent(w, &mv);
  }
}

class Test_Frm_EigenVector3D : public QObject {
  Q_OBJECT
 private slots:
  void initTestCase() {
    QVERIFY(Solve(fork_, "FORK.ZVK") && Solve(cant_, "CANT.ZVK"));
  }

  // Each bar steps once by direction, however far it goes; a resize keeps the turn and the zoom, not the pan.
  void barsActByDirectionOneStepEachAndResize() {
    Frm_EigenVector3D frm(fork_);
    QVERIFY(Shown(frm));
    TriD_Scene& t = frm.Scene();
    auto bar = [&](const char* n) { auto* b = frm.findChild<QScrollBar*>(n); Q_ASSERT(b); return b; };
    auto click = [&](const char* n) { QTest::mouseClick(frm.findChild<QPushButton*>(n), Qt::LeftButton); };
    bar("Scroll_Zoom")->setValue(5000);  // however far: one step
    QCOMPARE(t.ZoomTotal, 1.1f);
    bar("Scroll_Zoom")->setValue(4000);
    QVERIFY(Near(t.ZoomTotal, 1, 1e-6));
    // X and the beam's own axis turn against their thumb, Y and Z with it.
    const float ax = t.Angle[1], ay = t.Angle[2], az = t.Angle[3];
    for (auto [n, v] : {std::pair{"Scroll_RotGlob(1)", 10}, {"Scroll_RotGlob(2)", 10}, {"Scroll_RotGlob(3)", -10},
                        {"Scroll_RotLocX", 10}})
      bar(n)->setValue(v);
    QVERIFY(Near(t.Angle[1], ax - Step, 1e-6) && Near(t.Angle[2], ay + Step, 1e-6));
    QVERIFY(Near(t.Angle[3], az - Step, 1e-6) && Near(t.LocTotal, -Step, 1e-6));
    click("Cmd_RotGlob0(1)");
    QVERIFY(bar("Scroll_RotGlob(1)")->value() == 0 && Near(t.Angle[1], 0, 1e-6));
    // Pan: a rising bar moves the scale back by a tenth; Cmd_ReCenter resets both bars.
    Surface& s = frm.Plot();
    const double left = s.ScaleLeft(), top = s.ScaleTop();
    bar("Scroll_X")->setValue(1), bar("Scroll_Z")->setValue(1);
    QVERIFY(Near(s.ScaleLeft(), left - s.ScaleWidth() / 10, 1e-3));
    QVERIFY(Near(s.ScaleTop(), top - s.ScaleHeight() / 10, 1e-3));
    click("Cmd_ReCenter");
    QVERIFY(bar("Scroll_X")->value() == 0 && bar("Scroll_Z")->value() == 0 && Near(s.ScaleLeft(), left, 1e-3));

    bar("Scroll_Zoom")->setValue(4001), bar("Scroll_X")->setValue(1);
    const float x3 = t.X[P3][7];
    frm.resize(frm.width() + 120, frm.height() + 60);
    QTest::qWait(50);
    QVERIFY(t.X[P3][7] == x3 && t.ZoomTotal == 1.1f);
    QVERIFY(Near(s.ScaleLeft(), -0.55 * t.L, 1e-3));  // -L/2 - L/20 again

    click("Cmd_RapDep0");  // ratio 0: the undeformed beam in the first view, at -45 degrees
    QVERIFY(t.RapDep == 0 && Near(t.Angle[3], -30 * Step, 1e-5));
  }

  // The drag laws and zones are the core's; here the window's mouse reaches them, in the picture's pixels.
  void dragsTurnAndPan() {
    Frm_EigenVector3D frm(fork_);
    QVERIFY(Shown(frm));
    SurfaceWidget* plot = frm.Img_Plot3D();
    TriD_Scene& t = frm.Scene();
    const QPoint c(plot->width() / 2, plot->height() / 2);
    // Middle band, 360 pixels up: about X by -0.1 x 2 pi x 360/height (the near side comes up with the
    // mouse), with the upright loop image and a tenth of the sections while dragging.
    const float ax = t.Angle[1];
    const int allBlue = Pixels_Of(frm.Picture(), TriD_WebColour).first;
    Drag(plot, Qt::LeftButton, c + QPoint(0, 180), {0, -360}, 36);
    QCOMPARE(plot->cursor().shape(), Qt::BitmapCursor);
    const double expected = -0.1 * 2 * 3.14159265 * 360 / plot->height();
    QVERIFY(Near(t.Angle[1] - ax, expected, -0.02 * expected));
    QVERIFY(Pixels_Of(frm.Picture(), TriD_WebColour).first * 3 < allBlue);
    QTest::mouseRelease(plot, Qt::LeftButton, {}, c - QPoint(0, 180));
    QCOMPARE(plot->cursor().shape(), Qt::ArrowCursor);
    QVERIFY(Pixels_Of(frm.Picture(), TriD_WebColour).first * 3 > allBlue);
    // Right drag: the red axis follows the mouse 30 pixels across.
    const QPointF before = Pixels_Of(frm.Picture(), TriD_AxisColour).second;
    Drag(plot, Qt::RightButton, c, {30, 0}, 3);
    QTest::mouseRelease(plot, Qt::RightButton, {}, c + QPoint(30, 0));
    const QPointF moved = Pixels_Of(frm.Picture(), TriD_AxisColour).second - before;
    QVERIFY(Near(moved.x() / frm.Picture().devicePixelRatio(), 30, 2) && Near(moved.y(), 0, 2));
  }

  void picturesCopiedSavedPrintedAndWithoutAMode() {
    Frm_EigenVector3D frm(cant_);
    QVERIFY(Shown(frm));
    frm.Menu_Edit_Copy();
    QCOMPARE(QGuiApplication::clipboard()->image().size(), frm.Picture().size());
    auto file = [](const char* n) { return QString::fromStdString(Scratch(n)); };
    const QString png = file("view.png"), pdf = file("page.pdf");
    QVERIFY(frm.Save_Picture(png) && frm.Save_Picture(file("v.SVG")) && !frm.Save_Picture(file("view.bmp")));
    QCOMPARE(QImage(png).size(), frm.Picture().size());
    {
      QPrinter printer(QPrinter::HighResolution);
      printer.setOutputFileName(pdf);  // .pdf: a PDF file
      QVERIFY(frm.Print_Page(printer));
    }
    QVERIFY(QFileInfo(pdf).size() > 1000);

    // No mode: Msg(14) on the mode picture, no window.
    BeamModel none = Fork_Beam();
    Set_Msg(14, "No buckling mode yet");
    Recorder rec(7336, 2000, false);
    QVERIFY(!Cmd_Draw3D_Click(nullptr, none, rec, false));
    const auto texts = rec.Of(RecordedOp::Text);
    QVERIFY(texts.size() == 1 && texts[0].text == "No buckling mode yet");
    QVERIFY(!Cmd_Draw3D_Click(nullptr, fork_, rec, true));  // external mode: ignored

    // the picture file of the command line
    const std::string cli = Scratch("cli.png"), clisvg = Scratch("cli.svg");
    std::string error;
    QCOMPARE(TriD_WritePicture(fork_, cli, 1, error), TriD_PictureStatus::Written);
    const QImage img(QString::fromStdString(cli));
    QCOMPARE(img.size(), QSize(800, 600));
    // A half-sine mode in the first view: the red axis is centred in the picture.
    const QPointF red = Pixels_Of(img, TriD_AxisColour).second;
    QVERIFY(Near(red.x(), 400, 15) && Near(red.y(), 300, 15));
    QCOMPARE(TriD_WritePicture(cant_, clisvg, 1, error), TriD_PictureStatus::Written);
    const QByteArray doc = QByteArray::fromStdString(foundation_test::Read_File(clisvg));
    // 101 stations, a web and two flanges each; 100 runs of six wires and a piece of axis; 2 circles, 2 marks
    QCOMPARE(doc.count("<line"), qsizetype(101 * 3 + 100 * 7));
    QVERIFY(doc.count("<ellipse") == 2 && doc.contains(">1</text>") && doc.contains(">2</text>"));
    QCOMPARE(TriD_WritePicture(cant_, Scratch("cli.gif"), 1, error), TriD_PictureStatus::BadExtension);
    QCOMPARE(TriD_WritePicture(none, cli, 1, error), TriD_PictureStatus::NoMode);
    QCOMPARE(TriD_WritePicture(fork_, "/nonexistent-dir/x.png", 1, error), TriD_PictureStatus::WriteFailed);
  }

  // Words and tooltips from the loaded language, no tooltip a control's name. Last: it leaves French loaded.
  void textsAndTooltipsFollowTheLanguage() {
    auto shown = [this](const char* code) {  // tooltips by control, then two captions
      if (!Load_LanguageFile(std::string(ZARVEK_BIN_DIR) + "/ZARVEK_" + code + ".MSG", Scratch("LANG.TMP")))
        qFatal("no language %s", code);
      Frm_EigenVector3D w(fork_);
      QMap<QString, QString> s;
      for (QWidget* c : w.findChildren<QWidget*>())
        if (!c->toolTip().isEmpty()) s[c->objectName()] = c->toolTip();
      s["~ratio"] = w.findChild<QLabel*>("Lbl_Scroll_RapDep")->text();
      s["~save"] = w.findChild<QAction*>("Menu_File_SaveAs")->text();
      return s;
    };
    const auto uk = shown("UK"), fr = shown("FR");
    QCOMPARE(uk.size(), 8 + 7 + 2 + 2);  // bars, their buttons, the two drawings; captions
    QCOMPARE(fr.keys(), uk.keys());
    for (const QString& name : uk.keys()) {
      QVERIFY2(!QRegularExpression("^[A-Z][A-Za-z]*_[A-Za-z]").match(fr[name]).hasMatch(), qPrintable(name));
      QVERIFY2(fr[name] != uk[name], qPrintable(name + ": " + fr[name]));
    }
  }

 private:
  BeamModel fork_ = Fork_Beam();
  BeamModel cant_ = Cantilever();
};

QTEST_MAIN(Test_Frm_EigenVector3D)
#include "test_frm_eigenvector3d.moc"
