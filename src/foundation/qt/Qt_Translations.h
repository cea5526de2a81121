// The toolkit's own words (the buttons of message boxes, the file and print
// dialogs) in the language of the program.
#pragma once

#include <QString>
#include <string>

namespace zarvek {

// The toolkit's name of a language of the program ("FR" -> "fr"); empty for
// English, which the toolkit speaks without a translation.
QString Qt_LanguageOf(const std::string& languageCode);

// Puts the toolkit's translations of the language in place of those of the
// previous one (none for English). They are the system's, from its
// translations folder. False when the language has none there: the toolkit
// then speaks English.
bool Load_QtTranslations(const std::string& languageCode);

}  // namespace zarvek
