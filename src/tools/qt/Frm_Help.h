// Help windows: the picture window Frm_Help of the help buttons, and the
// help browser that shows the program's own help pages, with links, back
// and forward, in the loaded language.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QTextBrowser>
#include <QWidget>

#include "foundation/Startup.h"
#include "tools/Help.h"

class QLabel;
class QToolButton;

namespace zarvek {

// Where the help lives: App_Path and the loaded language come from the
// start-up state, which must outlive the windows. Set once at start.
void Help_Attach(const StartupState& state);

// Opens (or brings forward) the help browser at the page of `context`
// (140, 210, 250, 340, the dialogs' numbers of tools/Help.h), in the loaded
// language. Works from inside a modal dialog too. When no page can be found
// a box shows Msg(97). Returns the browser, or nullptr.
class Frm_HelpBrowser;
Frm_HelpBrowser* Show_Help(int context, QWidget* parent = nullptr);

// The browser as it stands (nullptr before the first Show_Help).
Frm_HelpBrowser* Help_Browser();

// The text pane of the browser: help pages, with the pictures of
// HelpPictures behind the addresses "picture:1" to "picture:6".
class Help_TextBrowser : public QTextBrowser {
  Q_OBJECT
 public:
  using QTextBrowser::QTextBrowser;
  QVariant loadResource(int type, const QUrl& name) override;
};

class Frm_HelpBrowser : public QWidget {
  Q_OBJECT

 public:
  explicit Frm_HelpBrowser(QWidget* parent = nullptr);

  // Shows the page of a context in the loaded language. False when no page
  // of that name exists in any language.
  bool Show_Topic(int context);
  // Context of the page shown (-1 for a page reached by a link that has no
  // context of its own).
  int Current_Context() const { return context_; }
  // File shown.
  QString Current_File() const;

  QToolButton* Cmd_Back = nullptr;
  QToolButton* Cmd_Forward = nullptr;
  QToolButton* Cmd_Contents = nullptr;
  Help_TextBrowser* Txt_Help = nullptr;

 public slots:
  // A change of language shows the same page in the new language.
  void After_Translate();

 private:
  void Update_Title();
  int context_ = Help_Contents;
};

// The picture window of the help buttons of the main window.
class Frm_Help : public QDialog {
  Q_OBJECT

 public:
  explicit Frm_Help(QWidget* parent = nullptr);

  QLabel* Img_Help = nullptr;
  // Index of the picture shown (0: none).
  int Picture_Index() const { return index_; }
  void Set_Picture(int index);

 public slots:
  void After_Translate();

 private:
  int index_ = 0;
};

// Cmd_Help(index) of the main window: shows picture `index` in the window
// Frm_Help, sized to it and centred on `main`, not modal. An index beyond
// the pictures does nothing. Returns the window (nullptr when nothing was
// shown). F1 in it opens the help page that explains the picture.
Frm_Help* Affiche_HelpImage(int index, QWidget* main);

// The picture window as it stands (nullptr before the first picture).
Frm_Help* Help_PictureWindow();

}  // namespace zarvek
