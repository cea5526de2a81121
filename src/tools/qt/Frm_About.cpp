#include "tools/qt/Frm_About.h"

#include <QFont>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPainter>
#include <QPainterPath>
#include <QProcess>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <cstdlib>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Translate_Form.h"
#include "tools/Help.h"
#include "tools/SysInfo.h"
#include "tools/qt/Frm_Help.h"

namespace zarvek {

namespace {

bool Find_Tool(SysInfoTool& tool) {
  const char* path = std::getenv("PATH");
  return Find_SysInfoTool(path ? path : "/usr/bin:/bin", tool);
}

}  // namespace

const char* Frm_About::Author_Name() { return "Zarvek Software"; }

QPixmap Program_Logo(int size, qreal dpr) {
  QPixmap pm(QSize(size, size) * dpr);
  pm.setDevicePixelRatio(dpr);
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing);
  const qreal s = size / 64.0;
  p.scale(s, s);
  // The straight section in grey, the same section twisted and moved
  // sideways in blue: lateral-torsional buckling in one picture.
  auto draw_i = [&p](const QColor& c) {
    QPainterPath i;
    i.addRect(-16, -24, 32, 6);
    i.addRect(-16, 18, 32, 6);
    i.addRect(-3, -18, 6, 36);
    p.fillPath(i, c);
  };
  p.translate(28, 34);
  draw_i(QColor(170, 170, 170));
  p.translate(8, -2);
  p.rotate(-18);
  draw_i(QColor(40, 90, 170));
  return pm;
}

Frm_About::Frm_About(QWidget* parent) : QDialog(parent) {
  setObjectName("Frm_About");
  setWindowTitle("About");
  setModal(true);
  Img_Logo = new QLabel(this);
  Img_Logo->setObjectName("Img_Logo");
  Img_Logo->setPixmap(Program_Logo(64, devicePixelRatioF() > 1 ? devicePixelRatioF() : 2.0));
  Lbl_Title = new QLabel(Program_Name(), this);
  Lbl_Title->setObjectName("Lbl_Title");
  QFont big = Lbl_Title->font();
  big.setPointSizeF(big.pointSizeF() * 1.8);
  big.setBold(true);
  Lbl_Title->setFont(big);
  Lbl_Version = new QLabel(QString("Version ") + Version_Text(), this);
  Lbl_Version->setObjectName("Lbl_Version");
  Lbl_Description = new QLabel("Lateral torsional buckling of beams", this);
  Lbl_Description->setObjectName("Lbl_Description");
  Lbl_Auteur = new QLabel(QString("Written by ") + Author_Name(), this);
  Lbl_Auteur->setObjectName("Lbl_Auteur");
  Lbl_Disclaimer = new QLabel(this);
  Lbl_Disclaimer->setObjectName("Lbl_Disclaimer");
  Lbl_Disclaimer->setWordWrap(true);
  Lbl_Disclaimer->setFrameShape(QFrame::Panel);
  Lbl_Disclaimer->setFrameShadow(QFrame::Sunken);
  Lbl_Disclaimer->setMargin(6);
  Lbl_Disclaimer->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
  Lbl_Soutien = new QLabel(this);
  Lbl_Soutien->setObjectName("Lbl_Soutien");
  Lbl_Soutien->setWordWrap(true);

  Cmd_OK = new QPushButton("OK", this);
  Cmd_OK->setObjectName("Cmd_OK");
  Cmd_OK->setDefault(true);
  Cmd_SysInfo = new QPushButton("&System Info...", this);
  Cmd_SysInfo->setObjectName("Cmd_SysInfo");
  SysInfoTool tool;
  Cmd_SysInfo->setVisible(Find_Tool(tool));
  connect(Cmd_OK, &QPushButton::clicked, this, &QDialog::accept);
  connect(Cmd_SysInfo, &QPushButton::clicked, this, [this] { Cmd_SysInfo_Click(); });

  auto* head = new QGridLayout;
  head->addWidget(Img_Logo, 0, 0, 3, 1, Qt::AlignTop);
  head->addWidget(Lbl_Title, 0, 1);
  head->addWidget(Lbl_Version, 1, 1);
  head->addWidget(Lbl_Description, 2, 1);
  head->setColumnStretch(1, 1);
  head->setHorizontalSpacing(16);
  auto* buttons = new QVBoxLayout;
  buttons->addWidget(Cmd_OK);
  buttons->addWidget(Cmd_SysInfo);
  buttons->addStretch(1);
  auto* foot = new QHBoxLayout;
  auto* texts = new QVBoxLayout;
  texts->addWidget(Lbl_Auteur);
  texts->addWidget(Lbl_Soutien);
  foot->addLayout(texts, 1);
  foot->addLayout(buttons);
  auto* box = new QVBoxLayout(this);
  box->addLayout(head);
  box->addSpacing(8);
  box->addWidget(Lbl_Disclaimer);
  box->addSpacing(8);
  box->addLayout(foot);
  box->setSizeConstraint(QLayout::SetFixedSize);
  auto* help = new QShortcut(QKeySequence::HelpContents, this);
  connect(help, &QShortcut::activated, this, [this] { Show_Help(Help_About, this); });
}

void Frm_About::After_Translate() {
  // The language line is the caption alone: the name follows it.
  const std::string& line = Section_Line(Section_Of_Window("FRM_ABOUT"), 3);
  if (!line.empty()) Lbl_Auteur->setText(Lang_Text(line) + " " + Author_Name());
  Lbl_Version->setText(QString("Version ") + Version_Text());
  Lbl_Title->setText(Program_Name());
}

int Frm_About::Show_Modal() {
  Translate_Form(this);
  adjustSize();
  if (QWidget* p = parentWidget()) move(p->window()->frameGeometry().center() - rect().center());
  return exec();
}

void Frm_About::Cmd_SysInfo_Click() {
  SysInfoTool tool;
  bool started = false;
  if (Find_Tool(tool)) {
    QStringList args;
    for (const std::string& a : tool.args) args << QString::fromStdString(a);
    started = QProcess::startDetached(QString::fromStdString(tool.program), args);
  }
  if (!started) {
    const std::string& m = Msg(74);
    QMessageBox::information(this, Program_Name(),
                             m.empty() ? QString("The system information tool was not found.")
                                       : Lang_Text(m));
  }
}

}  // namespace zarvek
