// Every window of this set in English and in French: each caption, menu command and tooltip comes from the
// loaded language (or is a symbol, a unit, a number), and no text is cut off.
#include <QtTest>
#include <QtWidgets>
#include <set>

#include "diagrams/qt/Frm_EigenVector.h"
#include "foundation/qt/Frm_Options.h"
#include "foundation/qt/Translate_Form.h"
#include "report/qt/Frm_Edit.h"
#include "section/qt/Frm_Section.h"
#include "tools/qt/Frm_About.h"
#include "tools/qt/Frm_Properties.h"
#include "tools/qt/start_dir.h"

using namespace zarvek;

// The text as shown: the hot-key mark is not.
static QString Plain(QString s) { return s.replace("&&", "\x01").remove('&').replace("\x01", "&").trimmed(); }

// All lines of the loaded language, as shown; with `keyed`, the messages and further texts of its file too.
static std::set<QString> Language_Lines(const QString& keyed = {}) {
  std::set<QString> lines;
  for (int i = 1; i <= Texts_Count(); ++i) lines.insert(Plain(Lang_Text(Text_Line(i))));
  QFile f(QString(ZARVEK_SOURCE_DIR) + "/data/lang/ZARVEK_" + keyed + ".txt");
  if (!keyed.isEmpty() && f.open(QIODevice::ReadOnly))
    for (const QByteArray& line : f.readAll().split('\n'))
      if (const int mark = line.indexOf(">:"); mark >= 0)
        lines.insert(Plain(Lang_Text(line.mid(mark + 2).trimmed().toStdString())));
  return lines;
}

// A line of the language (or one with a name behind it), or a text that is the same in every language.
static bool Known(const QString& text, const std::set<QString>& lines) {
  static const std::set<QString> neutral = {"OK", "\u2026", "cm", "cm2", "cm3", "cm4", "Zarvek"};
  const QString t = Plain(text);
  return t.isEmpty() || lines.count(t) || neutral.count(t) || Is_Numeric(t.toStdString()) ||
         std::any_of(lines.begin(), lines.end(), [&](auto& l) { return t.startsWith(l + " "); });
}

// Checks one window as it is shown; `data` names the controls that show values rather than captions.
static void Check(QWidget* window, const QString& name, const std::set<QString>& data = {}) {
  window->show();
  QVERIFY(QTest::qWaitForWindowExposed(window));
  QApplication::processEvents();
  const auto lines = Language_Lines();
  QVERIFY2(Known(window->windowTitle(), lines), qPrintable(name + ": " + window->windowTitle()));
  // each caption: the text, the pixels it takes and the pixels it has
  const auto check = [&](QWidget* w, const QString& text, int needed, int room) {
    const QString id = name + " " + w->objectName() + " \"" + text + "\"";
    if (!data.count(w->objectName())) QVERIFY2(Known(text, lines), qPrintable("untranslated: " + id));
    QVERIFY2(needed <= room, qPrintable(QString("cut off: %1 needs %2 px, has %3").arg(id).arg(needed).arg(room)));
  };
  for (QWidget* w : window->findChildren<QWidget*>()) {
    if (!w->isVisibleTo(window)) continue;
    const QFontMetrics fm(w->font());
    if (auto* l = qobject_cast<QLabel*>(w); l && !l->text().isEmpty()) {
      check(l, l->text(), l->wordWrap() ? 0 : fm.horizontalAdvance(Plain(l->text())), l->contentsRect().width());
    } else if (auto* b = qobject_cast<QAbstractButton*>(w); b && !b->text().isEmpty()) {
      check(b, b->text(), b->sizeHint().width(), b->width());
    } else if (auto* g = qobject_cast<QGroupBox*>(w)) {
      QStyleOptionGroupBox opt;
      opt.initFrom(g), opt.text = g->title(), opt.subControls = QStyle::SC_GroupBoxLabel;
      const QRect r = g->style()->subControlRect(QStyle::CC_GroupBox, &opt, QStyle::SC_GroupBoxLabel, g);
      check(g, g->title(), fm.horizontalAdvance(Plain(g->title())), g->width() - r.left());
    } else if (auto* t = qobject_cast<QTabBar*>(w)) {
      for (int i = 0; i < t->count(); ++i)
        check(t, t->tabText(i), fm.horizontalAdvance(Plain(t->tabText(i))), t->tabRect(i).width());
    }
  }
  // Read-only text fields show their whole text.
  for (auto* t : window->findChildren<QPlainTextEdit*>())
    if (t->isVisibleTo(window) && t->isReadOnly())
      QVERIFY2(t->verticalScrollBar()->maximum() == 0 && t->horizontalScrollBar()->maximum() == 0,
               qPrintable("cut off: " + name + " " + t->objectName()));
}

// Every command of the menus and every tooltip of a window: from the language.
static void Check_Commands(QWidget* window, const QString& name, const std::set<QString>& lines) {
  for (QMenu* menu : window->findChildren<QMenu*>())
    for (QAction* a : menu->actions())
      if (!a->isSeparator() && !a->menu())
        QVERIFY2(Known(a->text(), lines), qPrintable("untranslated command: " + name + " \"" + a->text() + "\""));
  for (QWidget* w : window->findChildren<QWidget*>())
    QVERIFY2(Known(w->toolTip(), lines),
             qPrintable("untranslated tooltip: " + name + " " + w->objectName() + " \"" + w->toolTip() + "\""));
}

class TestWindowTexts : public QObject {
  Q_OBJECT

 private slots:
  void windows_data() {
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "UK", QTest::newRow("French") << "FR";
  }
  void windows() {
    QFETCH(QString, language);
    zarvek_test::StartDir start(language.toLatin1().constData());
    QCOMPARE(QString::fromStdString(start.state.Language_Code), language);
    BeamModel m;
    Init_Default(m, start.path());
    m.Section_Props.A = 53.81, m.Section_Props.Iy = 8356.1, m.Section_Props.zG = 15;
    const QString lang = language.toLower();
    Frm_Options options(m, start.state);
    options.Prepare();
    for (int page = 0; page < 3; ++page) {
      options.Tab_Options->setCurrentIndex(page);
      Check(&options, QString("options_%1_%2").arg(page).arg(lang), {"Lbl_Directory"});
    }
    Frm_Section section(m, start.state.File_Section);
    section.Form_Load();
    Check(&section, "section_" + lang, {"Lbl_SectionLabel"});
    Frm_Properties props(m.Section_Props);
    Translate_Form(&props);
    std::set<QString> data;
    for (int i = 0; i < Frm_Properties::Row_Count; ++i)
      for (const char* n : {"Lbl_Value(%1)", "Lbl_Symbol(%1)", "Lbl_Unit(%1)"}) data.insert(QString(n).arg(i));
    Check(&props, "properties_" + lang, data);
    Frm_About about;
    Translate_Form(&about);
    Check(&about, "about_" + lang, {"Lbl_Title", "Lbl_Version"});
    for (int i = 1; i <= Help_PictureCount; ++i) {
      Frm_Help* w = Affiche_HelpImage(i, nullptr);
      QVERIFY(w);
      Check(w, QString("picture_%1_%2").arg(i).arg(lang));
      w->hide();
    }
    // commands after the numbered sections: report, mode table, help browser (refreshed as after a switch)
    const std::set<QString> lines = Language_Lines(language);
    Frm_HelpBrowser* b = Show_Help(Help_Loads);
    QVERIFY(b);
    b->resize(820, 640);
    Check(b, "help_" + lang);
    Translate_OpenWindows();
    Check_Commands(b, "help_" + lang, lines);
    b->hide();
    Frm_Edit e(m, Frm_Edit::Context{language.toStdString(), start.path(), false});
    Check_Commands(&e, "report_" + lang, lines);
    Frm_EigenVector t(m);
    Check_Commands(&t, "mode_table_" + lang, lines);
  }
};

QTEST_MAIN(TestWindowTexts)
#include "test_window_texts.moc"
