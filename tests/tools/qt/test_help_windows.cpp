// Help in the loaded language at the topic in front, with links, back and forward; the picture window.
#include <QtTest>
#include <QtWidgets>

#include "foundation/qt/Frm_Options.h"
#include "section/qt/Frm_Section.h"
#include "tools/qt/Frm_Help.h"
#include "tools/qt/HelpPictures.h"
#include "tools/qt/start_dir.h"

using namespace zarvek;

// The page in the browser as language/file.
static QString Shown_Page() {
  const QFileInfo f(Help_Browser() ? Help_Browser()->Current_File() : QString());
  return Help_Browser() ? f.dir().dirName() + "/" + f.fileName() : QString();
}

class TestHelpWindows : public QObject {
  Q_OBJECT

 private slots:
  // The page of the context in the loaded language, its heading in the title (each context's page: core).
  void helpOpensAtTheTopicOfEachContext() {
    const std::tuple<const char*, int, QString, QString> cases[] = {
        {"UK", 210, "UK/restraints.html", "Restraints"}, {"FR", 250, "FR/loads.html", "Charges"}};
    for (const auto& [language, context, page, heading] : cases) {
      zarvek_test::StartDir start(language);
      Frm_HelpBrowser* b = Show_Help(context);
      QVERIFY(b && b->isVisible());
      QCOMPARE(Shown_Page(), page);
      QCOMPARE(b->Txt_Help->documentTitle(), heading);
      QVERIFY(b->windowTitle().endsWith(heading));
    }
  }

  void linksBackAndForward() {
    zarvek_test::StartDir start;
    Frm_HelpBrowser* b = Show_Help(Help_Restraints);
    // A link of the page, as a click follows it.
    b->Txt_Help->setSource(b->Txt_Help->source().resolved(QUrl("loads.html")));
    QCOMPARE(Shown_Page(), QString("UK/loads.html"));
    // back and forward, each enabled where it leads somewhere
    for (const auto& [button, page] :
         {std::pair{b->Cmd_Back, "UK/restraints.html"}, std::pair{b->Cmd_Forward, "UK/loads.html"}}) {
      QVERIFY(button->isEnabled());
      QTest::mouseClick(button, Qt::LeftButton);
      QCOMPARE(Shown_Page(), QString(page));
    }
    // Every page of the set is shipped in both languages, and every link leads to a page of the set.
    static const QRegularExpression href("href=\"([^\"]+)\"");
    for (const std::string& p : Help_Pages()) {
      QFile f(start.file("help/UK/" + QString::fromStdString(p)));
      QVERIFY(f.open(QIODevice::ReadOnly));
      QVERIFY(QFile::exists(start.file("help/FR/" + QString::fromStdString(p))));
      for (auto it = href.globalMatch(QString::fromUtf8(f.readAll())); it.hasNext();) {
        const QString t = it.next().captured(1);
        QVERIFY2(QFile::exists(start.file("help/UK/" + t)) && QFile::exists(start.file("help/FR/" + t)),
                 qPrintable(QString::fromStdString(p) + " -> " + t));
      }
    }
  }

  // F1 in a dialog opens its topic, and the help stays usable although the dialog is modal.
  void f1InDialogsOpensTheirTopic() {
    zarvek_test::StartDir start;
    BeamModel m;
    Init_Default(m, start.path());
    Frm_Section catalogue(m, start.state.File_Section);
    QString shown;
    bool unblocked = false;
    QTimer::singleShot(0, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      QApplication::setActiveWindow(modal);
      QTest::keyClick(modal, Qt::Key_F1);
      shown = Shown_Page();
      // The help is a window of the modal dialog, so it takes input.
      unblocked = Help_Browser()->parentWidget() == &catalogue;
      catalogue.reject();
    });
    catalogue.Show_Modal();
    QCOMPARE(shown, QString("UK/catalogue.html"));
    QVERIFY(unblocked);

    Frm_Options options(m, start.state);
    options.Prepare(), options.show();
    QVERIFY(QTest::qWaitForWindowExposed(&options));
    QApplication::setActiveWindow(&options);
    QTest::keyClick(&options, Qt::Key_F1);
    QCOMPARE(Shown_Page(), QString("UK/options.html"));
    options.hide();
  }

  void helpPictureWindow() {
    zarvek_test::StartDir start("FR");
    QWidget main;
    main.resize(900, 700), main.show();
    QVERIFY(!Affiche_HelpImage(Help_PictureCount + 1, &main));
    Frm_Help* w = Affiche_HelpImage(2, &main);
    QVERIFY(w && w->isVisible() && w->Picture_Index() == 2);
    QCOMPARE(w->windowTitle(), QString("Aide"));
    // The window takes the size of its picture.
    QCOMPARE(w->Img_Help->pixmap().deviceIndependentSize().toSize(), Help_PictureSize());
    QVERIFY(std::abs(w->width() - Help_PictureSize().width()) <= 2);
    // F1 on the picture of the restraints opens the restraints page.
    QApplication::setActiveWindow(w);
    QTest::keyClick(w, Qt::Key_F1);
    QCOMPARE(Shown_Page(), QString("FR/restraints.html"));
    // The pictures speak the loaded language: the French one differs from the one drawn once the English
    // file is loaded, and a switch back gives the French one again.
    const QImage fr = Help_Picture(2);
    w->hide();
    {
      zarvek_test::StartDir uk("UK");
      QVERIFY(Help_Picture(2) != fr);
    }
    QVERIFY(start.Load());
    QVERIFY(Help_Picture(2) == fr);
  }

  // A curve or a mark of a help picture has the colour it has on the screen (colours 0xBBGGRR there):
  // M black, v blue 0xC00000, theta black, v' red 0x0000FF, theta' green 0x008000, G blue, S green.
  void helpPicturesSpeakTheColoursOfTheDiagrams() {
    const QColor blue(0, 0, 0xC0), black(0, 0, 0), red(0xFF, 0, 0), green(0, 0x80, 0);
    auto near = [](QColor a, QColor b, int tol) {
      return std::abs(a.red() - b.red()) <= tol && std::abs(a.green() - b.green()) <= tol &&
             std::abs(a.blue() - b.blue()) <= tol;
    };
    // "Reading the diagrams": a parabola of M, sine halves of v and theta, 60, 45 and 30 pixels deep at
    // midspan (x = 280); a thin antialiased curve crosses that column near its depth
    const QImage d = Help_Picture(6, 1);
    for (const auto& [y, c] : {std::pair{90 + 60, black}, {250 + 45, blue}, {250 + 30, black}}) {
      bool crossed = false;
      for (int dy = -3; dy <= 3; ++dy) crossed |= near(d.pixelColor(280, y + dy), c, 40);
      QVERIFY2(crossed, qPrintable(QString::number(y)));
    }
    // The section: the discs of G and S, 105 and 80 pixels above the base.
    const QImage s = Help_Picture(1, 1);
    QCOMPARE(s.pixelColor(165, 300 - 105), blue);
    QCOMPARE(s.pixelColor(165, 300 - 80), green);
    // The four end freedoms, a quarter of the picture each, in their mode curves' colours; no red but v'.
    const QImage e = Help_Picture(2, 1);
    const QColor hue[4] = {blue, black, red, green};
    for (int k = 0; k < 4; ++k) {
      int own = 0, reds = 0;
      for (int y = 50 + (k / 2) * 140; y < 190 + (k / 2) * 140; ++y)
        for (int x = (k % 2) * 280; x < 280 + (k % 2) * 280; ++x) {
          const QColor c = e.pixelColor(x, y);
          own += near(c, hue[k], 12);
          reds += c.red() > 150 && c.green() < 90 && c.blue() < 90;
        }
      QVERIFY2(own >= 10, qPrintable(QString("quarter %1: %2").arg(k).arg(own)));
      QVERIFY2(k == 2 || reds == 0, qPrintable(QString("quarter %1: %2").arg(k).arg(reds)));
    }
  }
};

QTEST_MAIN(TestHelpWindows)
#include "test_help_windows.moc"
