// Captions of the windows from the loaded language.
#pragma once

#include <QString>
#include <string>
#include <string_view>

class QWidget;

namespace zarvek {

// A text of the language files (Windows-1252) for the screen.
QString Lang_Text(const std::string& text);

// A further text of the loaded language by its key, for the screen; the
// English fallback when the language lacks it. Windows refresh such texts in
// their After_Translate(), so that a change of language reaches them.
QString Lang_Further(std::string_view key, std::string_view fallback);

// Sets every text of a window from its section of the language file, found
// by the window's upper-cased objectName and placed by Form_Targets: the
// window's title, pages of tab strips, and the texts of labels, buttons and
// frames named in the table. A line that the language left empty keeps the
// text the control has. Then, when the window has a slot "After_Translate()",
// it runs, for the window's own further steps.
// False (nothing done) for a window that the table doesn't describe.
bool Translate_Form(QWidget* window);

// Runs Translate_Form on every top-level window that is translated by it,
// shown or hidden: what a change of language does to the windows that are
// open. Returns how many were translated.
int Translate_OpenWindows();

}  // namespace zarvek
