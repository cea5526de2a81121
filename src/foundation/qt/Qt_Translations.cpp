#include "foundation/qt/Qt_Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

// The translator belongs to the application object, under this name, so that
// a change of language finds the one to take out.
const char* const Translator_Name = "zarvek_qt_translator";

}  // namespace

QString Qt_LanguageOf(const std::string& languageCode) {
  const std::string code = Upper(Trim(languageCode));
  // the program calls its English "UK"; "uk" would be Ukrainian to the toolkit
  if (code.empty() || code == "UK" || code == "US" || code == "EN") return QString();
  return QString::fromStdString(code).toLower();
}

bool Load_QtTranslations(const std::string& languageCode) {
  QCoreApplication* app = QCoreApplication::instance();
  if (!app) return false;
  const auto old = app->findChildren<QTranslator*>(QString::fromLatin1(Translator_Name), Qt::FindDirectChildrenOnly);
  for (QTranslator* t : old) {
    QCoreApplication::removeTranslator(t);
    delete t;
  }
  const QString lang = Qt_LanguageOf(languageCode);
  if (lang.isEmpty()) return true;
  auto* t = new QTranslator(app);
  t->setObjectName(QString::fromLatin1(Translator_Name));
  if (!t->load(QStringLiteral("qtbase_") + lang, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    delete t;
    return false;
  }
  QCoreApplication::installTranslator(t);
  return true;
}

}  // namespace zarvek
