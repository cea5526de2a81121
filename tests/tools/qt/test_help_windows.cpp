// Help in the loaded language at the topic of the page or dialog in front,
// with links, back and forward; the picture window.
#include <QtTest>
#include <QtWidgets>

#include "section/qt/Frm_Section.h"
#include "tools/qt/Frm_Help.h"
#include "tools/qt/HelpPictures.h"
#include "tools/qt/start_dir.h"

using namespace zarvek;

namespace {

// The page in the browser as language/file.
QString Shown_Page() {
  const QFileInfo f(Help_Browser() ? Help_Browser()->Current_File() : QString());
  return Help_Browser() ? f.dir().dirName() + "/" + f.fileName() : QString();
}

}  // namespace

class TestHelpWindows : public QObject {
  Q_OBJECT

 private slots:
  // The page of the context in the loaded language, its heading in the title (the page of every
  // context and the fallbacks are the core's).
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
    // Every page of the set is shipped in both languages, and every link of
    // a page leads to a page of the set.
    static const QRegularExpression href("href=\"([^\"]+)\"");
    for (const std::string& p : Help_Pages()) {
      QFile f(start.file("help/UK/" + QString::fromStdString(p)));
      QVERIFY(f.open(QIODevice::ReadOnly));
      QVERIFY(QFile::exists(start.file("help/FR/" + QString::fromStdString(p))));
      for (auto it = href.globalMatch(QString::fromUtf8(f.readAll())); it.hasNext();) {
        const QString target = it.next().captured(1);
        QVERIFY2(QFile::exists(start.file("help/UK/" + target)) &&
                     QFile::exists(start.file("help/FR/" + target)),
                 qPrintable(QString::fromStdString(p) + " -> " + target));
      }
    }
  }

  // F1 in a modal dialog opens its topic, and the help stays usable although the dialog is modal.
  void f1InAModalDialogOpensItsTopic() {
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
  }

  void helpPictureWindow() {
    zarvek_test::StartDir start("FR");
    QWidget main;
    main.resize(900, 700);
    main.show();
    QVERIFY(!Affiche_HelpImage(Help_PictureCount + 1, &main));
    Frm_Help* w = Affiche_HelpImage(2, &main);
    QVERIFY(w && w->isVisible() && w->Picture_Index() == 2);
    QCOMPARE(w->windowTitle(), QString("Aide"));
    QCOMPARE(w->Img_Help->pixmap().deviceIndependentSize().toSize(), Help_PictureSize());
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
};

QTEST_MAIN(TestHelpWindows)
#include "test_help_windows.moc"
