#include "design/qt/Design_Frame.h"

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include "foundation/qt/Translate_Form.h"

namespace zarvek {

namespace {
QString Html(const std::string& utf8) { return QString::fromStdString(utf8).toHtmlEscaped(); }
}  // namespace

Design_Frame::Design_Frame(QWidget* parent) : QGroupBox(parent) {
  setObjectName("Cdr_Design");
  auto* v = new QVBoxLayout(this);
  auto* scroll = new QScrollArea(this);
  scroll->setWidgetResizable(true);
  scroll->setFrameShape(QFrame::NoFrame);
  body_ = new QLabel(scroll);
  body_->setObjectName("Lbl_Design");
  body_->setTextFormat(Qt::RichText);
  body_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  body_->setWordWrap(true);
  body_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  scroll->setWidget(body_);
  v->addWidget(scroll);
  After_Translate();
}

void Design_Frame::After_Translate() { setTitle(QString::fromStdString(Design_Title())); }

void Design_Frame::Clear() { body_->clear(); }

void Design_Frame::Show(const DesignRun& d, const BeamModel& m) {
  QString t = "<table cellspacing='0' cellpadding='1'>";
  for (const DesignLine& l : Design_Lines(d, m))
    t += "<tr><td>" + Html(l.label) + "</td><td align='right'>&nbsp;&nbsp;" + Html(l.value) +
         "</td><td>&nbsp;" + Html(l.unit) + "</td></tr>";
  t += "</table>";
  const bool bad = d.result.stop == LtbStop::None && d.result.utilisation > 1;
  t += QString("<p style='color:%1'><b>").arg(bad ? "#b00000" : "#000000") + Html(Design_Note(d)) + "</b></p>";
  body_->setText(t);
}

}  // namespace zarvek
