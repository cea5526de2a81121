#include "foundation/qt/Translate_Form.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMetaObject>
#include <QTabWidget>
#include <QWidget>

#include "foundation/FormTexts.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

QString Lang_Text(const std::string& text) {
  return QString::fromStdString(Cp1252_To_Utf8(text));
}

QString Lang_Further(std::string_view key, std::string_view fallback) {
  return Lang_Text(Further_Text(key, fallback));
}

namespace {

void Set_ControlText(QWidget* window, const std::string& target, const QString& text) {
  if (target.empty()) {
    window->setWindowTitle(text);
    return;
  }
  std::string tabName;
  int page = 0;
  if (Split_TabTarget(target, tabName, page)) {
    if (auto* tab = window->findChild<QTabWidget*>(QString::fromStdString(tabName)))
      if (page < tab->count()) tab->setTabText(page, text);
    return;
  }
  QWidget* w = window->findChild<QWidget*>(QString::fromStdString(target));
  if (!w) return;
  if (auto* b = qobject_cast<QAbstractButton*>(w))
    b->setText(text);
  else if (auto* g = qobject_cast<QGroupBox*>(w))
    g->setTitle(text);
  else if (auto* l = qobject_cast<QLabel*>(w))
    l->setText(text);
}

}  // namespace

bool Translate_Form(QWidget* window) {
  if (!window) return false;
  const std::string name = Upper(window->objectName().toStdString());
  const auto& targets = Form_Targets(name);
  const int section = Section_Of_Window(name);
  if (targets.empty() || section < 0) return false;
  for (size_t i = 0; i < targets.size(); ++i) {
    const std::string& line = Section_Line(section, int(i) + 1);
    if (line.empty()) continue;
    Set_ControlText(window, targets[i], Lang_Text(line));
  }
  if (window->metaObject()->indexOfMethod("After_Translate()") >= 0)
    QMetaObject::invokeMethod(window, "After_Translate", Qt::DirectConnection);
  return true;
}

int Translate_OpenWindows() {
  int n = 0;
  for (QWidget* w : QApplication::allWidgets()) {
    if (!w->isWindow()) continue;
    if (Translate_Form(w)) {
      ++n;
    } else if (w->metaObject()->indexOfMethod("After_Translate()") >= 0) {
      // Windows whose texts come from elsewhere (the help pages) but follow
      // the language.
      QMetaObject::invokeMethod(w, "After_Translate", Qt::DirectConnection);
      ++n;
    }
  }
  return n;
}

}  // namespace zarvek
