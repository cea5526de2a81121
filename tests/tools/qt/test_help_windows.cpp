// Help in the loaded language at the topic of the page or dialog in front,
// with links, back and forward; the picture window; the further properties
// and the about box.
#include <QApplication>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QtTest>
#include <cmath>

#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Frm_Options.h"
#include "foundation/qt/Translate_Form.h"
#include "model/BeamModel.h"
#include "section/Mod_Section.h"
#include "section/qt/Frm_Section.h"
#include "tools/qt/Frm_About.h"
#include "tools/qt/Frm_Help.h"
#include "tools/qt/Frm_Properties.h"
#include "tools/qt/HelpPictures.h"
#include "tools/qt/start_dir.h"

using namespace zarvek;

namespace {

QString Shown_Page() {
  Frm_HelpBrowser* b = Help_Browser();
  return b ? QFileInfo(b->Current_File()).dir().dirName() + "/" + QFileInfo(b->Current_File()).fileName()
           : QString();
}

}  // namespace

class TestHelpWindows : public QObject {
  Q_OBJECT

 private slots:
  void helpOpensAtTheTopicOfEachContext_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("context");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("heading");
    QTest::newRow("restraints UK") << "UK" << 210 << "UK/restraints.html" << "Restraints";
    QTest::newRow("restraints FR") << "FR" << 210 << "FR/restraints.html" << "Maintiens";
    QTest::newRow("beam") << "UK" << 140 << "UK/beam.html" << "Beam, section and steel";
    QTest::newRow("loads FR") << "FR" << 250 << "FR/loads.html" << "Charges";
    QTest::newRow("results") << "UK" << 340 << "UK/results.html" << "Results";
    QTest::newRow("options") << "UK" << int(Help_Options) << "UK/options.html" << "Options";
    QTest::newRow("unknown") << "FR" << 9999 << "FR/index.html" << "Aide de Zarvek";
  }
  void helpOpensAtTheTopicOfEachContext() {
    QFETCH(QString, language);
    QFETCH(int, context);
    QFETCH(QString, page);
    QFETCH(QString, heading);
    zarvek_test::StartDir start(language.toLatin1().constData());
    Frm_HelpBrowser* b = Show_Help(context);
    QVERIFY(b);
    QVERIFY(b->isVisible());
    QCOMPARE(Shown_Page(), page);
    QCOMPARE(b->Txt_Help->documentTitle(), heading);
    QVERIFY(b->windowTitle().endsWith(heading));
  }

  void missingPageFallsBackToEnglish() {
    zarvek_test::StartDir start("FR");
    QVERIFY(QFile::remove(start.file("help/FR/batch.html")));
    Show_Help(Help_Batch);
    QCOMPARE(Shown_Page(), QString("UK/batch.html"));
  }

  void linksBackAndForward() {
    zarvek_test::StartDir start;
    Frm_HelpBrowser* b = Show_Help(Help_Restraints);
    // A link of the page, as a click follows it.
    b->Txt_Help->setSource(b->Txt_Help->source().resolved(QUrl("loads.html")));
    QCOMPARE(Shown_Page(), QString("UK/loads.html"));
    QVERIFY(b->Cmd_Back->isEnabled());
    b->Cmd_Back->click();
    QCOMPARE(Shown_Page(), QString("UK/restraints.html"));
    QVERIFY(b->Cmd_Forward->isEnabled());
    b->Cmd_Forward->click();
    QCOMPARE(Shown_Page(), QString("UK/loads.html"));
    b->Cmd_Contents->click();
    QCOMPARE(Shown_Page(), QString("UK/index.html"));
    // Every link of every page leads to a page of the set.
    for (const std::string& p : Help_Pages()) {
      QFile f(start.file("help/UK/" + QString::fromStdString(p)));
      QVERIFY(f.open(QIODevice::ReadOnly));
      const QString html = QString::fromUtf8(f.readAll());
      QRegularExpression href("href=\"([^\"]+)\"");
      for (auto it = href.globalMatch(html); it.hasNext();) {
        const QString target = it.next().captured(1);
        QVERIFY2(QFile::exists(start.file("help/UK/" + target)) &&
                     QFile::exists(start.file("help/FR/" + target)),
                 qPrintable(QString::fromStdString(p) + " -> " + target));
      }
    }
  }

  // F1 in a dialog opens its topic, and the help stays usable although the
  // dialog is modal.
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
    options.Prepare();
    options.show();
    QVERIFY(QTest::qWaitForWindowExposed(&options));
    QApplication::setActiveWindow(&options);
    QTest::keyClick(&options, Qt::Key_F1);
    QCOMPARE(Shown_Page(), QString("UK/options.html"));
    options.hide();
  }

  void helpPictureWindow() {
    zarvek_test::StartDir start("FR");
    QWidget main;
    main.resize(900, 700);
    main.show();
    QVERIFY(!Affiche_HelpImage(Help_PictureCount + 1, &main));
    QVERIFY(!Affiche_HelpImage(0, &main));
    Frm_Help* w = Affiche_HelpImage(2, &main);
    QVERIFY(w && w->isVisible());
    QCOMPARE(w->Picture_Index(), 2);
    QCOMPARE(w->windowTitle(), QString("Aide"));
    // The window takes the size of its picture.
    QCOMPARE(w->Img_Help->pixmap().deviceIndependentSize().toSize(), Help_PictureSize());
    QVERIFY(std::abs(w->width() - Help_PictureSize().width()) <= 2);
    // F1 on the picture of the restraints opens the restraints page.
    QApplication::setActiveWindow(w);
    QTest::keyClick(w, Qt::Key_F1);
    QCOMPARE(Shown_Page(), QString("FR/restraints.html"));
    // The pictures differ between the languages where they hold text.
    QVERIFY(Help_Picture(2, "UK") != Help_Picture(2, "FR"));
    for (int i = 1; i <= Help_PictureCount; ++i) QVERIFY(!Help_Picture(i, "UK").isNull());
    w->hide();
  }

  void propertiesShowNineRows() {
    zarvek_test::StartDir start;
    // An IPE 300 given by its dimensions, without fillets: h 30, b 15,
    // tf 1.07, tw 0.71 (cm).
    SectionDims d;
    d.h = 30;
    d.bf1 = d.bf2 = 15;
    d.tf1 = d.tf2 = 1.07;
    d.tw = 0.71;
    SectionProps p;
    bool invalid = true;
    Calculer_SectionIMono(d, 0, true, p, invalid);
    QVERIFY(!invalid);
    Frm_Properties w(p);
    Translate_Form(&w);
    // A = 2 b tf + (h - 2 tf) tw
    const double A = 2 * 15 * 1.07 + (30 - 2 * 1.07) * 0.71;
    // Iy = (b h^3 - (b - tw)(h - 2 tf)^3) / 12
    const double Iy = (15 * std::pow(30, 3) - (15 - 0.71) * std::pow(30 - 2 * 1.07, 3)) / 12;
    const double expected[9] = {A, Iy, 15, 2 * Iy / 30, 2 * Iy / 30,
                                (2 * 1.07 * std::pow(15, 3) / 12 + (30 - 2 * 1.07) * std::pow(0.71, 3) / 12) / 7.5,
                                -1, -1, 0};
    for (int i = 0; i < 9; ++i) {
      QVERIFY(w.Lbl_Trad[i]->text().size() > 2);
      if (expected[i] < 0) continue;  // plastic moduli: checked by the section tests
      const double shown = Num_Of_Text(w.Lbl_Value[i]->text().toStdString());
      QVERIFY2(std::abs(shown - expected[i]) <= 1e-3 * std::max(1.0, std::abs(expected[i])),
               qPrintable(QString("row %1: %2").arg(i).arg(w.Lbl_Value[i]->text())));
    }
    QCOMPARE(w.Lbl_Symbol[1]->text(), QString("Iy"));
    QCOMPARE(w.Lbl_Unit[1]->text(), QString("cm4"));
    QCOMPARE(w.Cdr_Properties->title(), w.windowTitle());
  }

  void aboutShowsVersionAndHidesMissingSysInfo() {
    zarvek_test::StartDir start;
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray(start.dir.path().toUtf8()));
    {
      Frm_About w;
      Translate_Form(&w);
      QVERIFY(w.Cmd_SysInfo->isHidden());
      QCOMPARE(w.Lbl_Version->text(), QString("Version ") + Version_Text());
      QCOMPARE(w.Lbl_Title->text(), QString(Program_Name()));
      QVERIFY(w.Lbl_Auteur->text().startsWith("Written by "));
    }
    // A desktop tool in the path shows the button.
    QFile tool(start.file("kinfocenter"));
    QVERIFY(tool.open(QIODevice::WriteOnly));
    tool.write("#!/bin/sh\nexit 0\n");
    tool.close();
    tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    {
      Frm_About w;
      QVERIFY(!w.Cmd_SysInfo->isHidden());
    }
    qputenv("PATH", path);
  }
};

QTEST_MAIN(TestHelpWindows)
#include "test_help_windows.moc"
