#include "tools/qt/Frm_Help.h"

#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Translate_Form.h"
#include "tools/qt/HelpPictures.h"

namespace zarvek {

namespace {

const StartupState* help_state = nullptr;
QPointer<Frm_HelpBrowser> browser;
QPointer<Frm_Help> picture_window;

std::string Code() { return help_state ? help_state->Language_Code : std::string("UK"); }
// The folder that holds help/: the start directory, or the installed data.
std::string AppPath() {
  if (!help_state) return std::string("./");
  const std::string help = Data_File(*help_state, "help");
  return help.substr(0, help.size() - 4);
}

// Caption of the help windows in the loaded language.
QString Help_Caption() {
  const std::string& t = Section_Line(Section_Of_Window("FRM_HELP"), 1);
  return t.empty() ? QString("Help") : Lang_Text(t);
}

// A window that a modal dialog doesn't block: a child of that dialog.
QWidget* Unblocked_Parent(QWidget* parent) {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return parent ? parent->window() : nullptr;
}

void Reparent(QWidget* w, QWidget* parent) {
  if (w->parentWidget() == parent) return;
  const QRect g = w->geometry();
  const bool shown = w->isVisible();
  w->setParent(parent, w->windowFlags() | Qt::Window);
  w->setGeometry(g);
  if (shown) w->show();
}

}  // namespace

void Help_Attach(const StartupState& state) { help_state = &state; }

QVariant Help_TextBrowser::loadResource(int type, const QUrl& name) {
  if (type == QTextDocument::ImageResource && name.scheme() == "picture") {
    const int index = name.path().toInt();
    return Help_Picture(index, devicePixelRatioF() > 1 ? devicePixelRatioF() * 1.0 : 2.0);
  }
  return QTextBrowser::loadResource(type, name);
}

// ---- browser ----------------------------------------------------------------

Frm_HelpBrowser::Frm_HelpBrowser(QWidget* parent) : QWidget(parent, Qt::Window) {
  setObjectName("Frm_HelpBrowser");
  setAttribute(Qt::WA_DeleteOnClose, false);
  Cmd_Back = new QToolButton(this);
  Cmd_Back->setObjectName("Cmd_Back");
  Cmd_Back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
  Cmd_Forward = new QToolButton(this);
  Cmd_Forward->setObjectName("Cmd_Forward");
  Cmd_Forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
  Cmd_Contents = new QToolButton(this);
  Cmd_Contents->setObjectName("Cmd_Contents");
  Cmd_Contents->setIcon(style()->standardIcon(QStyle::SP_DirHomeIcon));
  Txt_Help = new Help_TextBrowser(this);
  Txt_Help->setObjectName("Txt_Help");
  Txt_Help->setOpenLinks(true);
  Txt_Help->setOpenExternalLinks(true);
  Txt_Help->setFont(QFont("Liberation Sans", 10));

  connect(Cmd_Back, &QToolButton::clicked, Txt_Help, &QTextBrowser::backward);
  connect(Cmd_Forward, &QToolButton::clicked, Txt_Help, &QTextBrowser::forward);
  connect(Cmd_Contents, &QToolButton::clicked, this, [this] { Show_Topic(Help_Contents); });
  connect(Txt_Help, &QTextBrowser::backwardAvailable, Cmd_Back, &QToolButton::setEnabled);
  connect(Txt_Help, &QTextBrowser::forwardAvailable, Cmd_Forward, &QToolButton::setEnabled);
  connect(Txt_Help, &QTextBrowser::sourceChanged, this, [this](const QUrl& url) {
    // A page reached by a link keeps its context when it is one of them.
    const std::string page = QFileInfo(url.toLocalFile()).fileName().toStdString();
    if (Help_PageName(context_) != page) context_ = -1;
    for (int c : {Help_Contents, Help_Beam, Help_Restraints, Help_Loads, Help_Results,
                  Help_Options, Help_Section, Help_Properties, Help_About, Help_Report,
                  Help_EigenVector, Help_DirectData, Help_Calculator, Help_Batch,
                  Help_Pictures})
      if (context_ < 0 && Help_PageName(c) == page) context_ = c;
    Update_Title();
  });
  Cmd_Back->setEnabled(false);
  Cmd_Forward->setEnabled(false);

  auto* bar = new QHBoxLayout;
  bar->addWidget(Cmd_Back);
  bar->addWidget(Cmd_Forward);
  bar->addWidget(Cmd_Contents);
  bar->addStretch(1);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(6, 6, 6, 6);
  box->addLayout(bar);
  box->addWidget(Txt_Help, 1);
  const QFontMetrics fm(Txt_Help->font());
  resize(fm.averageCharWidth() * 100, fm.height() * 40);
  After_Translate();
}

QString Frm_HelpBrowser::Current_File() const { return Txt_Help->source().toLocalFile(); }

bool Frm_HelpBrowser::Show_Topic(int context) {
  const std::string path = Help_PagePath(AppPath(), Code(), context);
  if (path.empty()) return false;
  context_ = context;
  const QUrl url = QUrl::fromLocalFile(QString::fromStdString(path));
  // Pictures and links of the page resolve against its folder.
  Txt_Help->setSearchPaths({QFileInfo(QString::fromStdString(path)).absolutePath()});
  if (Txt_Help->source() == url)
    Txt_Help->reload();
  else
    Txt_Help->setSource(url);
  Update_Title();
  return true;
}

void Frm_HelpBrowser::Update_Title() {
  const QString page = Txt_Help->documentTitle();
  setWindowTitle(page.isEmpty() ? Help_Caption() : Help_Caption() + " - " + page);
}

void Frm_HelpBrowser::After_Translate() {
  Cmd_Back->setToolTip(Lang_Further("Cmd_Back", "Back"));
  Cmd_Forward->setToolTip(Lang_Further("Cmd_Forward", "Forward"));
  Cmd_Contents->setToolTip(Lang_Further("Cmd_Contents", "Contents"));
  // The same page in the new language; a page reached by a link goes back
  // to the page of its kind when it has one, else stays.
  if (!Txt_Help->source().isEmpty()) {
    const std::string page = QFileInfo(Current_File()).fileName().toStdString();
    int context = context_;
    if (context < 0) context = Help_Contents;
    if (Help_PageName(context) == page || context_ >= 0) Show_Topic(context);
  }
  Update_Title();
}

Frm_HelpBrowser* Help_Browser() { return browser.data(); }

Frm_HelpBrowser* Show_Help(int context, QWidget* parent) {
  QWidget* owner = Unblocked_Parent(parent);
  if (!browser) {
    browser = new Frm_HelpBrowser(owner);
  } else {
    Reparent(browser, owner);
  }
  if (!browser->Show_Topic(context)) {
    const std::string& m = Msg(97);
    QMessageBox::warning(owner, Program_Name(),
                         m.empty() ? QString("Help file not found.") : Lang_Text(m));
    return nullptr;
  }
  browser->show();
  browser->raise();
  browser->activateWindow();
  return browser;
}

// ---- picture window ---------------------------------------------------------

Frm_Help::Frm_Help(QWidget* parent) : QDialog(parent) {
  setObjectName("Frm_Help");
  setWindowTitle("Help");
  setModal(false);
  Img_Help = new QLabel(this);
  Img_Help->setObjectName("Img_Help");
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(0, 0, 0, 0);
  box->addWidget(Img_Help);
  box->setSizeConstraint(QLayout::SetFixedSize);
  auto* help = new QShortcut(QKeySequence::HelpContents, this);
  connect(help, &QShortcut::activated, this,
          [this] { Show_Help(index_ ? Help_PictureContext(index_) : Help_Pictures, this); });
}

void Frm_Help::Set_Picture(int index) {
  index_ = index;
  const qreal dpr = devicePixelRatioF() > 1 ? devicePixelRatioF() : 2.0;
  Img_Help->setPixmap(QPixmap::fromImage(Help_Picture(index, dpr)));
}

void Frm_Help::After_Translate() {
  // The pictures hold text: the one shown follows the language.
  if (index_ > 0) Set_Picture(index_);
}

Frm_Help* Help_PictureWindow() { return picture_window.data(); }

Frm_Help* Affiche_HelpImage(int index, QWidget* main) {
  if (index < 1 || index > Help_PictureCount) return nullptr;
  QWidget* owner = Unblocked_Parent(main);
  if (!picture_window) {
    picture_window = new Frm_Help(owner);
  } else {
    Reparent(picture_window, owner);
  }
  Translate_Form(picture_window);
  picture_window->Set_Picture(index);
  picture_window->adjustSize();
  if (main) {
    const QPoint c = main->window()->frameGeometry().center();
    picture_window->move(c - picture_window->rect().center());
  }
  picture_window->show();
  picture_window->raise();
  return picture_window;
}

}  // namespace zarvek
