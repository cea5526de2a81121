#include "tools/qt/Frm_Properties.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "foundation/Mod_Zarvek.h"
#include "foundation/qt/Translate_Form.h"
#include "tools/Help.h"
#include "tools/qt/Frm_Help.h"

namespace zarvek {

namespace {

struct Row {
  const char* caption;
  const char* symbol;
  const char* unit;
};
constexpr Row Rows[Frm_Properties::Row_Count] = {
    {"Area", "", "cm2"},
    {"Strong inertia", "Iy", "cm4"},
    {"Position of centro\u00efd G / base", "zG", "cm"},
    {"Elastic modulus for upper fiber", "Wel.y.sup", "cm3"},
    {"Elastic modulus for lower fiber", "Wel.y.inf", "cm3"},
    {"Elastic modulus for weak axis", "Wel.z", "cm3"},
    {"Plastic modulus for strong axis", "Wpl.y", "cm3"},
    {"Plastic modulus for weak axis", "Wpl.z", "cm3"},
    {"Position of shear centre S / centro\u00efd G", "zS", "cm"},
};

}  // namespace

double Frm_Properties::Row_Value(const SectionProps& p, int i) {
  switch (i) {
    case 0: return p.A;
    case 1: return p.Iy;
    case 2: return p.zG;
    case 3: return p.Wely_Top;
    case 4: return p.Wely_Bottom;
    case 5: return p.Welz;
    case 6: return p.Wply;
    case 7: return p.Wplz;
    case 8: return p.zC;
    default: return 0;
  }
}

Frm_Properties::Frm_Properties(const SectionProps& props, QWidget* parent) : QDialog(parent) {
  setObjectName("Frm_Properties");
  setWindowTitle("Further section properties");
  setModal(true);
  Cdr_Properties = new QGroupBox(windowTitle(), this);
  Cdr_Properties->setObjectName("Cdr_Properties");
  auto* grid = new QGridLayout(Cdr_Properties);
  grid->setHorizontalSpacing(14);
  for (int i = 0; i < Row_Count; ++i) {
    Lbl_Trad[i] = new QLabel(QString::fromUtf8(Rows[i].caption), Cdr_Properties);
    Lbl_Symbol[i] = new QLabel(Rows[i].symbol, Cdr_Properties);
    Lbl_Value[i] = new QLabel(QString::fromStdString(Format_Auto(Row_Value(props, i))), Cdr_Properties);
    Lbl_Unit[i] = new QLabel(Rows[i].unit, Cdr_Properties);
    Lbl_Trad[i]->setObjectName(QString("Lbl_Trad(%1)").arg(i));
    Lbl_Symbol[i]->setObjectName(QString("Lbl_Symbol(%1)").arg(i));
    Lbl_Value[i]->setObjectName(QString("Lbl_Value(%1)").arg(i));
    Lbl_Unit[i]->setObjectName(QString("Lbl_Unit(%1)").arg(i));
    Lbl_Value[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Lbl_Value[i]->setFrameShape(QFrame::Panel);
    Lbl_Value[i]->setFrameShadow(QFrame::Sunken);
    Lbl_Value[i]->setMinimumWidth(fontMetrics().horizontalAdvance("0000000000"));
    Lbl_Value[i]->setTextInteractionFlags(Qt::TextSelectableByMouse);
    grid->addWidget(Lbl_Trad[i], i, 0);
    grid->addWidget(Lbl_Symbol[i], i, 1);
    grid->addWidget(Lbl_Value[i], i, 2);
    grid->addWidget(Lbl_Unit[i], i, 3);
  }
  grid->setColumnStretch(0, 1);
  Cmd_OK = new QPushButton("OK", this);
  Cmd_OK->setObjectName("Cmd_OK");
  Cmd_OK->setDefault(true);
  connect(Cmd_OK, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(Cmd_OK);
  auto* box = new QVBoxLayout(this);
  box->addWidget(Cdr_Properties);
  box->addLayout(buttons);
  box->setSizeConstraint(QLayout::SetFixedSize);
  auto* help = new QShortcut(QKeySequence::HelpContents, this);
  connect(help, &QShortcut::activated, this, [this] { Show_Help(Help_Properties, this); });
}

void Frm_Properties::After_Translate() { Cdr_Properties->setTitle(windowTitle()); }

int Frm_Properties::Show_Modal() {
  Translate_Form(this);
  adjustSize();
  if (QWidget* p = parentWidget()) move(p->window()->frameGeometry().center() - rect().center());
  return exec();
}

}  // namespace zarvek
