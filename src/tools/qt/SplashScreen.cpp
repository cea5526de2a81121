#include "tools/qt/SplashScreen.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <QPixmap>
#include <QScreen>
#include <QThread>
#include <QVBoxLayout>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

QString Lang(const std::string& text) { return QString::fromStdString(Cp1252_To_Utf8(text)); }

constexpr int About_Section = 9;  // the start screen borrows the texts of the about box

// A beam seen from above, straight and in its first lateral-torsional
// buckling shape (a half sine wave).
QPixmap Beam_Picture(int w, int h, qreal dpr) {
  QPixmap pix(int(w * dpr), int(h * dpr));
  pix.setDevicePixelRatio(dpr);
  pix.fill(QColor(245, 246, 250));
  QPainter p(&pix);
  p.setRenderHint(QPainter::Antialiasing);
  const double x0 = 14, x1 = w - 14, y = h * 0.5;
  p.setPen(QPen(QColor(150, 150, 150), 1, Qt::DashLine));
  p.drawLine(QPointF(x0, y), QPointF(x1, y));
  QPainterPath flange;
  for (int k = 0; k <= 60; ++k) {
    const double t = k / 60.0;
    const QPointF pt(x0 + t * (x1 - x0), y - std::sin(3.14159265 * t) * h * 0.32);
    if (k == 0) flange.moveTo(pt);
    else flange.lineTo(pt);
  }
  p.setPen(QPen(QColor(0, 0, 192), 3));
  p.drawPath(flange);
  p.setPen(QPen(QColor(200, 0, 0), 2));
  for (double x : {x0, x1}) {  // fork supports
    p.drawLine(QPointF(x - 6, y - 10), QPointF(x + 6, y + 10));
    p.drawLine(QPointF(x - 6, y + 10), QPointF(x + 6, y - 10));
  }
  return pix;
}

}  // namespace

SplashScreen::SplashScreen(QWidget* parent)
    : QFrame(parent, Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
  setObjectName("SplashScreen");
  setFrameShape(QFrame::Box);
  setLineWidth(2);
  setAutoFillBackground(true);
  QPalette pal = palette();
  pal.setColor(QPalette::Window, QColor(245, 246, 250));
  setPalette(pal);

  Lbl_Title = new QLabel(Program_Name(), this);
  QFont title("Liberation Sans", 26);
  title.setBold(true);
  Lbl_Title->setFont(title);
  Lbl_Title->setStyleSheet("color: #00308f");
  Lbl_Description = new QLabel(this);
  QFont desc("Liberation Sans", 12);
  Lbl_Description->setFont(desc);
  lblVersion = new QLabel("Version", this);
  lblVersion->setObjectName("lblVersion");
  LblDate = new QLabel(this);
  LblDate->setObjectName("LblDate");
  Lbl_Disclaimer = new QLabel(this);
  Lbl_Disclaimer->setObjectName("Lbl_Disclaimer");
  Lbl_Disclaimer->setWordWrap(true);
  QFont small("Liberation Sans", 8);
  small.setItalic(true);
  Lbl_Disclaimer->setFont(small);
  auto* picture = new QLabel(this);
  picture->setPixmap(Beam_Picture(360, 90, devicePixelRatioF()));

  auto* v = new QVBoxLayout(this);
  v->setContentsMargins(24, 18, 24, 18);
  v->addWidget(Lbl_Title);
  v->addWidget(Lbl_Description);
  v->addWidget(picture);
  auto* h = new QHBoxLayout;
  h->addWidget(lblVersion);
  h->addStretch(1);
  h->addWidget(LblDate);
  v->addLayout(h);
  v->addWidget(Lbl_Disclaimer);
  setFixedWidth(420);
}

void SplashScreen::Translate_Form() {
  Lbl_Disclaimer->setText(Lang(Section_Line(About_Section, 4)));
  Lbl_Description->setText(Lang(Section_Line(About_Section, 2)));
}

void SplashScreen::Form_Load() {
  Translate_Form();
  lblVersion->setText(Lang(Msg(88).empty() ? std::string("Version") : Msg(88)) + " " + Version_Text());
  LblDate->setText("02/2012");
  adjustSize();
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    QRect r = frameGeometry();
    r.moveCenter(screen->availableGeometry().center());
    move(r.topLeft());
  }
}

void SplashScreen::keyPressEvent(QKeyEvent*) { hide(); }
void SplashScreen::mousePressEvent(QMouseEvent*) { hide(); }

void Pause_Splash(SplashScreen& splash, int seconds, qint64 shownAtMs) {
  // whole seconds, counted as the splash's own clock counts them
  const qint64 start = shownAtMs / 1000;
  while (QDateTime::currentMSecsSinceEpoch() / 1000 - start < seconds && splash.isVisible()) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    QThread::msleep(20);
  }
  splash.hide();
}

}  // namespace zarvek
