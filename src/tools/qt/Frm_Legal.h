// The legal warning that the user accepts before the main window opens.
#pragma once

#include <QString>
#include <string>

class QWidget;

namespace zarvek {

// The three paragraphs of the warning. English when the translated
// disclaimer of the start screen begins with "This", otherwise French.
QString Legal_Text(const QString& disclaimer);
bool Legal_IsEnglish(const QString& disclaimer);
// Title: the application's title followed by " - WARNING !".
QString Legal_Title();

// The warning in an OK/Cancel box; true when the user accepts it.
bool Show_LegalWarning(QWidget* parent, const QString& disclaimer);

}  // namespace zarvek
