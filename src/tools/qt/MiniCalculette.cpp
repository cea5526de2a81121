#include "tools/qt/MiniCalculette.h"

#include <QApplication>
#include <QButtonGroup>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "foundation/Mod_Zarvek.h"
#include "tools/Calculette.h"

namespace zarvek {

namespace {
constexpr const char* Font_Family = "Liberation Sans";
// 0x0000C0 of the windows' colours (0xBBGGRR)
const QColor Red_Text(0xC0, 0x00, 0x00);
}  // namespace

MiniCalculette::MiniCalculette(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::WindowStaysOnTopHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::CustomizeWindowHint) {
  setObjectName("MiniCalculette");
  setWindowTitle("Calculator");
  setFont(QFont(Font_Family, 10));
  setAttribute(Qt::WA_DeleteOnClose, false);

  auto field = [this](const char* name) {
    auto* e = new QLineEdit(this);
    e->setObjectName(name);
    e->setAlignment(Qt::AlignRight);
    e->setMinimumWidth(fontMetrics().horizontalAdvance("-0.0000000E+00") + 16);
    e->installEventFilter(this);
    return e;
  };
  Txt_X = field("Txt_X");
  Txt_Y = field("Txt_Y");
  Txt_Result = new QLineEdit(this);
  Txt_Result->setObjectName("Txt_Result");
  Txt_Result->setAlignment(Qt::AlignRight);
  Txt_Result->setReadOnly(true);
  Txt_Result->setFocusPolicy(Qt::ClickFocus);
  Txt_Result->setStyleSheet("QLineEdit { background: #FFFFE1; }");
  connect(Txt_X, &QLineEdit::textChanged, this, [this] { Txt_Result->clear(); });
  connect(Txt_Y, &QLineEdit::textChanged, this, [this] { Txt_Result->clear(); });

  auto* ops = new QButtonGroup(this);
  ops->setExclusive(true);
  const char* opText[] = {"+", "-", "*", "/", "^"};
  for (int i = 0; i < 5; ++i) {
    auto* b = new QPushButton(opText[i], this);
    b->setObjectName(QString("Cmd_Operation(%1)").arg(i));
    b->setCheckable(true);
    b->setFocusPolicy(Qt::NoFocus);
    ops->addButton(b, i);
    connect(b, &QPushButton::clicked, this, [this, i] { Cmd_Operation_Click(i); });
    Cmd_Operation[i] = b;
  }
  Cmd_Operation[0]->setChecked(true);

  for (int i = 0; i < 12; ++i) {
    // 10: the decimal point, a centred dot; 11: backspace
    const QString caption = i < 10 ? QString::number(i) : i == 10 ? QString::fromUtf8("·") : QString("C");
    auto* b = new QPushButton(caption, this);
    b->setObjectName(QString("Cmd_Touche(%1)").arg(i));
    b->setFocusPolicy(Qt::NoFocus);
    b->setAutoRepeat(i == 11);
    connect(b, &QPushButton::clicked, this, [this, i] { Cmd_Touche_Click(i); });
    Cmd_Touche[i] = b;
  }
  Cmd_Egal = new QPushButton("=", this);
  Cmd_Egal->setObjectName("Cmd_Egal");
  Cmd_Egal->setFocusPolicy(Qt::NoFocus);
  connect(Cmd_Egal, &QPushButton::clicked, this, [this] { Cmd_Egal_Click(); });
  Cmd_Transfer = new QPushButton(QString::fromUtf8("Transfer ↑"), this);
  Cmd_Transfer->setObjectName("Cmd_Transfer");
  Cmd_Transfer->setFocusPolicy(Qt::NoFocus);
  connect(Cmd_Transfer, &QPushButton::clicked, this, [this] { Cmd_Transfer_Click(); });

  auto* grid = new QGridLayout(this);
  grid->setSpacing(4);
  auto label = [this](const char* t) {
    auto* l = new QLabel(t, this);
    l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return l;
  };
  grid->addWidget(label("X"), 0, 0);
  grid->addWidget(Txt_X, 0, 1, 1, 4);
  grid->addWidget(label("Y"), 1, 0);
  grid->addWidget(Txt_Y, 1, 1, 1, 4);
  grid->addWidget(Cmd_Egal, 2, 0);
  grid->addWidget(Txt_Result, 2, 1, 1, 4);
  for (int i = 0; i < 5; ++i) grid->addWidget(Cmd_Operation[i], 3, i);
  // keypad: 7 8 9 / 4 5 6 / 1 2 3 / 0 . C
  const int pad[4][3] = {{7, 8, 9}, {4, 5, 6}, {1, 2, 3}, {0, 10, 11}};
  for (int r = 0; r < 4; ++r)
    for (int c = 0; c < 3; ++c) grid->addWidget(Cmd_Touche[pad[r][c]], 4 + r, c);
  grid->addWidget(Cmd_Transfer, 4, 3, 4, 2);
  Cmd_Transfer->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  grid->setSizeConstraint(QLayout::SetFixedSize);

  // Form_Load
  Txt_X->clear();
  Txt_Y->clear();
  Txt_Result->clear();
  operation_ = 0;
  adjustSize();
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    QRect r = frameGeometry();
    r.moveCenter(screen->availableGeometry().center());
    move(r.topLeft());
  }
}

void MiniCalculette::showEvent(QShowEvent* e) {
  QWidget::showEvent(e);
  // kept on top by the window flags; bring it forward on every showing
  if (QGuiApplication::platformName() != "offscreen") {
    raise();
    activateWindow();
  }
  Active()->setFocus();
}

void MiniCalculette::Set_Red(QLineEdit* field, bool red) {
  QPalette p = field->palette();
  p.setColor(QPalette::Text, red ? Red_Text : palette().color(QPalette::Text));
  field->setPalette(p);
}

void MiniCalculette::Cmd_Operation_Click(int i) {
  if (i < 0 || i > 4) return;
  operation_ = i;
  Cmd_Operation[i]->setChecked(true);
  QLineEdit* next = Txt_X->text().trimmed().isEmpty() ? Txt_X : Txt_Y;
  activeY_ = next == Txt_Y;
  next->setFocus();
}

void MiniCalculette::Type_Key(QLineEdit* field, int key) {
  const Calc_Key k = Calc_KeyPress(field->text().toStdString(), field->cursorPosition(), key,
                                   field == Txt_Y ? Calc_Field::Y : Calc_Field::X);
  switch (k.Do) {
    case Calc_Key::Pass:
      if (k.Key == 8) field->backspace();
      else if (k.Key >= 32) field->insert(QString(QChar(k.Key)));
      break;
    case Calc_Key::Select_Op:
      operation_ = k.Operation;
      Cmd_Operation[k.Operation]->setChecked(true);
      activeY_ = true;
      Txt_Y->setFocus();
      break;
    case Calc_Key::Equals: Cmd_Egal_Click(); break;
    case Calc_Key::Next:
      activeY_ = true;
      Txt_Y->setFocus();
      break;
    case Calc_Key::Drop: break;
  }
}

void MiniCalculette::Cmd_Touche_Click(int i) {
  QLineEdit* f = Active();
  if (i >= 0 && i <= 9) {
    Type_Key(f, '0' + i);
  } else if (i == 10) {
    for (QChar c : QString::fromStdString(Calc_DecimalKey(f->text().toStdString()))) f->insert(QString(c));
  } else if (i == 11) {
    Type_Key(f, 8);
  }
  f->setFocus();
}

void MiniCalculette::Cmd_Egal_Click() {
  const Calc_Outcome r = Calc_Compute(Txt_X->text().toStdString(), Txt_Y->text().toStdString(), operation_);
  if (r.Result == Calc_Outcome::X_NotNumeric) {
    Set_Red(Txt_X, true);
    activeY_ = false;
    Txt_X->setFocus();
    return;
  }
  Set_Red(Txt_X, false);
  if (r.Result == Calc_Outcome::Y_NotNumeric) {
    Set_Red(Txt_Y, true);
    activeY_ = true;
    Txt_Y->setFocus();
    return;
  }
  Set_Red(Txt_Y, false);
  if (r.Result == Calc_Outcome::Ok) Txt_Result->setText(QString::fromStdString(r.Text));
}

void MiniCalculette::Cmd_Transfer_Click() {
  const QString r = Txt_Result->text();
  if (!Is_Numeric(r.toStdString())) return;
  Txt_X->setText(r);
  Txt_Y->clear();
  Txt_Result->clear();
  activeY_ = true;
  Txt_Y->setFocus();
  emit Transferred(r);
}

bool MiniCalculette::eventFilter(QObject* object, QEvent* event) {
  auto* f = qobject_cast<QLineEdit*>(object);
  if (!f || (f != Txt_X && f != Txt_Y)) return false;
  if (event->type() == QEvent::FocusIn) {
    activeY_ = f == Txt_Y;
    return false;
  }
  if (event->type() != QEvent::KeyPress) return false;
  auto* k = static_cast<QKeyEvent*>(event);
  if (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  // the dead circumflex of some keyboards gives "^" at once
  if (k->key() == Qt::Key_Dead_Circumflex) {
    Type_Key(f, '^');
    return true;
  }
  if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
    Type_Key(f, '\r');
    return true;
  }
  const QString t = k->text();
  if (t.size() != 1 || t[0].unicode() < 32) return false;  // editing keys stay the field's own
  if (t[0].unicode() >= 127) return true;
  Type_Key(f, t[0].unicode());
  return true;
}

}  // namespace zarvek
