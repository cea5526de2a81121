// Every window of this set in English and in French: each caption comes
// from the loaded language (or is a symbol, a unit, a number), and no text
// is cut off.
#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QtTest>
#include <set>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Frm_Options.h"
#include "foundation/qt/Translate_Form.h"
#include "diagrams/qt/Frm_EigenVector.h"
#include "model/BeamModel.h"
#include "report/qt/Frm_Edit.h"
#include "section/qt/Frm_Section.h"
#include "tools/qt/Frm_About.h"
#include "tools/qt/Frm_Help.h"
#include "tools/qt/Frm_Properties.h"
#include "tools/qt/start_dir.h"

using namespace zarvek;

namespace {

QString Plain(QString s) {
  // The hot-key mark is not shown.
  s.replace("&&", "\x01");
  s.remove('&');
  s.replace("\x01", "&");
  return s.trimmed();
}

// All lines of the loaded language, as shown.
std::set<QString> Language_Lines() {
  std::set<QString> lines;
  for (int i = 1; i <= Texts_Count(); ++i) lines.insert(Plain(Lang_Text(Text_Line(i))));
  return lines;
}

bool From_Language(const QString& text, const std::set<QString>& lines) {
  const QString t = Plain(text);
  if (t.isEmpty() || lines.count(t)) return true;
  for (const QString& l : lines)
    if (!l.isEmpty() && t.startsWith(l + " ")) return true;  // a caption with a name behind it
  return false;
}

// Texts that are the same in every language.
bool Neutral(const QString& text) {
  static const std::set<QString> words = {"OK", "\u2026", "cm", "cm2", "cm3", "cm4", "Zarvek"};
  const QString t = Plain(text);
  if (words.count(t)) return true;
  if (Is_Numeric(t.toStdString())) return true;
  return false;
}

struct Caption {
  QWidget* widget;
  QString text;
  int needed;  // pixels the text takes
  int room;    // pixels the widget gives it
};

std::vector<Caption> Captions(QWidget* window) {
  std::vector<Caption> out;
  for (QWidget* w : window->findChildren<QWidget*>()) {
    if (!w->isVisibleTo(window)) continue;
    const QFontMetrics fm(w->font());
    if (auto* l = qobject_cast<QLabel*>(w)) {
      if (l->text().isEmpty()) continue;
      const int needed = l->wordWrap() ? 0 : fm.horizontalAdvance(Plain(l->text()));
      out.push_back({l, l->text(), needed, l->contentsRect().width()});
    } else if (auto* b = qobject_cast<QAbstractButton*>(w)) {
      if (b->text().isEmpty()) continue;
      out.push_back({b, b->text(), b->sizeHint().width(), b->width()});
    } else if (auto* g = qobject_cast<QGroupBox*>(w)) {
      QStyleOptionGroupBox opt;
      opt.initFrom(g);
      opt.text = g->title();
      opt.subControls = QStyle::SC_GroupBoxLabel;
      const QRect r = g->style()->subControlRect(QStyle::CC_GroupBox, &opt, QStyle::SC_GroupBoxLabel, g);
      out.push_back({g, g->title(), fm.horizontalAdvance(Plain(g->title())), g->width() - r.left()});
    } else if (auto* t = qobject_cast<QTabBar*>(w)) {
      for (int i = 0; i < t->count(); ++i)
        out.push_back({t, t->tabText(i), fm.horizontalAdvance(Plain(t->tabText(i))),
                       t->tabRect(i).width()});
    }
  }
  return out;
}

// Checks one window as it is shown; `data` names the controls that show
// values rather than captions.
void Check(QWidget* window, const QString& name, const std::set<QString>& data) {
  window->show();
  QVERIFY(QTest::qWaitForWindowExposed(window));
  QApplication::processEvents();
  const auto lines = Language_Lines();
  QVERIFY2(From_Language(window->windowTitle(), lines), qPrintable(name + ": " + window->windowTitle()));
  for (const Caption& c : Captions(window)) {
    const QString id = name + " " + c.widget->objectName() + " \"" + c.text + "\"";
    if (!data.count(c.widget->objectName()))
      QVERIFY2(From_Language(c.text, lines) || Neutral(c.text), qPrintable("untranslated: " + id));
    QVERIFY2(c.needed <= c.room,
             qPrintable(QString("cut off: %1 needs %2 px, has %3").arg(id).arg(c.needed).arg(c.room)));
  }
  // Read-only text fields show their whole text.
  for (auto* t : window->findChildren<QPlainTextEdit*>()) {
    if (!t->isVisibleTo(window) || !t->isReadOnly()) continue;
    QVERIFY2(t->verticalScrollBar()->maximum() == 0 && t->horizontalScrollBar()->maximum() == 0,
             qPrintable("cut off: " + name + " " + t->objectName()));
  }
}

// The keyed texts (messages and further texts) of a language file as shown.
std::set<QString> Keyed_Texts(const QString& code) {
  std::set<QString> out;
  QFile f(QString(ZARVEK_SOURCE_DIR) + "/data/lang/ZARVEK_" + code + ".txt");
  if (!f.open(QIODevice::ReadOnly)) return out;
  for (const QByteArray& line : f.readAll().split('\n')) {
    const int mark = line.indexOf(">:");
    if (mark >= 0) out.insert(Plain(Lang_Text(line.mid(mark + 2).trimmed().toStdString())));
  }
  return out;
}

// Every command of the menus and every tooltip of a window: from the language.
void Check_Commands(QWidget* window, const QString& name, const std::set<QString>& lines) {
  for (QMenu* menu : window->findChildren<QMenu*>())
    for (QAction* a : menu->actions())
      if (!a->isSeparator() && !a->menu())
        QVERIFY2(From_Language(a->text(), lines) || Neutral(a->text()),
                 qPrintable("untranslated command: " + name + " \"" + a->text() + "\""));
  for (QWidget* w : window->findChildren<QWidget*>())
    if (!w->toolTip().isEmpty())
      QVERIFY2(From_Language(w->toolTip(), lines) || Neutral(w->toolTip()),
               qPrintable("untranslated tooltip: " + name + " " + w->objectName() + " \"" +
                          w->toolTip() + "\""));
}

}  // namespace

class TestWindowTexts : public QObject {
  Q_OBJECT

 private slots:
  void windows_data() {
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << "UK";
    QTest::newRow("French") << "FR";
  }
  void windows() {
    QFETCH(QString, language);
    zarvek_test::StartDir start(language.toLatin1().constData());
    QCOMPARE(QString::fromStdString(start.state.Language_Code), language);
    BeamModel m;
    Init_Default(m, start.path());
    m.Section_Props.A = 53.81;
    m.Section_Props.Iy = 8356.1;
    m.Section_Props.zG = 15;
    const QString lang = language.toLower();

    {
      Frm_Options w(m, start.state);
      w.Prepare();
      for (int page = 0; page < 3; ++page) {
        w.Tab_Options->setCurrentIndex(page);
        Check(&w, QString("options_%1_%2").arg(page).arg(lang), {"Lbl_Directory"});
      }
      w.hide();
    }
    {
      Frm_Section w(m, start.state.File_Section);
      w.Form_Load();
      Check(&w, "section_" + lang, {"Lbl_SectionLabel"});
    }
    {
      Frm_Properties w(m.Section_Props);
      Translate_Form(&w);
      std::set<QString> data;
      for (int i = 0; i < Frm_Properties::Row_Count; ++i)
        for (const char* n : {"Lbl_Value(%1)", "Lbl_Symbol(%1)", "Lbl_Unit(%1)"}) data.insert(QString(n).arg(i));
      Check(&w, "properties_" + lang, data);
    }
    {
      Frm_About w;
      Translate_Form(&w);
      Check(&w, "about_" + lang, {"Lbl_Title", "Lbl_Version"});
      QVERIFY(w.Lbl_Version->text().endsWith(Version_Text()));
    }
    for (int i = 1; i <= Help_PictureCount; ++i) {
      Frm_Help* w = Affiche_HelpImage(i, nullptr);
      QVERIFY(w);
      Check(w, QString("picture_%1_%2").arg(i).arg(lang), {});
      w->hide();
    }
    {
      Frm_HelpBrowser* b = Show_Help(Help_Loads);
      QVERIFY(b);
      b->resize(820, 640);
      Check(b, "help_" + lang, {});
      b->hide();
    }
    // the commands that came after the numbered sections: report, mode table,
    // help browser
    std::set<QString> lines = Language_Lines();
    lines.merge(Keyed_Texts(language));
    {
      Frm_Edit e(m, Frm_Edit::Context{language.toStdString(), start.path(), false});
      Check_Commands(&e, "report_" + lang, lines);
      Frm_EigenVector t(m);
      Check_Commands(&t, "mode_table_" + lang, lines);
      Frm_HelpBrowser* b = Show_Help(Help_Loads);
      QVERIFY(b);
      Translate_OpenWindows();  // as the options window does after a change of language
      Check_Commands(b, "help_" + lang, lines);
      b->hide();
    }
  }
};

QTEST_MAIN(TestWindowTexts)
#include "test_window_texts.moc"
