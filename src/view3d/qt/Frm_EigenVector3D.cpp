#include "view3d/qt/Frm_EigenVector3D.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>

#include "diagrams/SvgWriter.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Language.h"
#include "foundation/qt/Translate_Form.h"
#include "view3d/TriD_Model.h"
#include "view3d/qt/TriD_Cursors.h"

namespace zarvek {

namespace {

// The picture's background.
constexpr Colour Plot_Back = 0xE0E0E0;
// The least height of the window, twips.
constexpr double Min_HeightTwips = 5460;

// A beam seen in plan with its cross-sections, one in `every`: the picture
// of the drawing options.
QIcon Sections_Icon(int every) {
  const int w = 72, h = 18;
  QPixmap pm(w, h);
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setPen(QPen(QColor(0x80, 0x80, 0x80), 1));
  p.setBrush(QColor(0xD8, 0xE0, 0xF0));
  p.drawRect(2, 5, w - 5, h - 11);
  p.setPen(QPen(Qt::black, 1));
  const int stations = 21;
  for (int i = 0; i < stations; i += every) {
    const int x = 2 + (w - 5) * i / (stations - 1);
    p.drawLine(x, 2, x, h - 3);
  }
  if ((stations - 1) % every != 0) p.drawLine(w - 3, 2, w - 3, h - 3);
  return QIcon(pm);
}

// A caption of the loaded language, or the English one while none is loaded.
QString Caption(int section, int line, const char* fallback) {
  const std::string& s = Section_Line(section, line);
  return s.empty() ? QString::fromUtf8(fallback) : QString::fromStdString(Cp1252_To_Utf8(s));
}

// The bars of the view, their reset buttons and the English of their
// tooltips; the languages give the tooltips under the name of the bar.
struct Bar_Text {
  const char* label;
  const char* bar;
  const char* button;
  const char* caption;
  const char* tip;
};
const Bar_Text Bar_Tips[] = {
    {"Ratio", "Scroll_RapDep", "Cmd_RapDep0", "0", "Displacement ratio; 0: the undeformed beam"},
    {"Zoom", "Scroll_Zoom", "Cmd_Zoom1", "1", "Zoom; 1: back to the first size"},
    {"X", "Scroll_RotGlob(1)", "Cmd_RotGlob0(1)", "0", "Rotation about the horizontal axis X"},
    {"Y", "Scroll_RotGlob(2)", "Cmd_RotGlob0(2)", "0", "Rotation about the line of sight Y"},
    {"Z", "Scroll_RotGlob(3)", "Cmd_RotGlob0(3)", "0", "Rotation about the upright axis Z"},
    {"x", "Scroll_RotLocX", "Cmd_RotLocX0", "0", "Rotation about the beam's own axis"},
    {"\u2194", "Scroll_X", "Cmd_ReCenter", "0", "Move across; 0: back to the centre"},
    {"\u2195", "Scroll_Z", nullptr, nullptr, "Move up and down"},
};

}  // namespace

Frm_EigenVector3D::Frm_EigenVector3D(BeamModel& m, bool externalMode, QWidget* parent)
    : QDialog(parent), m_(m) {
  setObjectName("Frm_EigenVector3D");
  setModal(true);
  Build_Controls();
  Translate();

  // A picture of 800 x 600 at the start, beside the bar of controls.
  resize(plot_->sizeHint().width() + effects_->sizeHint().width() + 30,
         std::max(plot_->sizeHint().height() + menuBar()->sizeHint().height() + 20, 400));
  if (QScreen* sc = parent ? parent->screen() : QGuiApplication::primaryScreen()) {
    const QRect g = sc->availableGeometry();
    move(g.center() - QPoint(width() / 2, height() / 2));
  }

  if (!externalMode) {
    // The first drawing goes to the picture at the size it has now; every
    // resize sets the scale afresh and draws again, keeping the rotations.
    plot_->surface().BackColor(Plot_Back);
    loaded_ = TriD_DefaultView(t_, plot_->surface(), m_);
    L_ = t_.L;
  }
  last_.fill(0);
}

void Frm_EigenVector3D::Build_Controls() {
  auto* root = new QVBoxLayout(this);
  root->setContentsMargins(4, 4, 4, 4);
  auto* menu = new QMenuBar(this);
  menu->setObjectName("MenuBar");
  root->setMenuBar(menu);

  QMenu* file = menu->addMenu("&File");
  file->setObjectName("Menu_File");
  QAction* print = file->addAction("&Print...", this, &Frm_EigenVector3D::Menu_File_Print);
  print->setObjectName("Menu_File_Print");
  print->setShortcut(QKeySequence::Print);
  QAction* save = file->addAction("Save picture &as...", this, &Frm_EigenVector3D::Menu_File_SaveAs);
  save->setObjectName("Menu_File_SaveAs");
  file->addSeparator();
  QAction* quit = file->addAction("&Quit", this, &QDialog::accept);
  quit->setObjectName("Menu_File_Quit");
  QMenu* edit = menu->addMenu("&Edit");
  edit->setObjectName("Menu_Edit");
  QAction* copy = edit->addAction("&Copy", this, &Frm_EigenVector3D::Menu_Edit_Copy);
  copy->setObjectName("Menu_Edit_Copy");
  copy->setShortcut(QKeySequence::Copy);
  QAction* help = menu->addAction("&?", this, &Frm_EigenVector3D::Menu_Quid_Help);
  help->setObjectName("Menu_Quid_Help");
  auto* helpKey = new QAction(this);
  helpKey->setShortcut(QKeySequence::HelpContents);
  connect(helpKey, &QAction::triggered, this, &Frm_EigenVector3D::Menu_Quid_Help);
  addAction(helpKey);

  auto* row = new QHBoxLayout;
  root->addLayout(row, 1);
  plot_ = new SurfaceWidget(this);
  plot_->setObjectName("Img_Plot3D");
  plot_->setDesignSize(12000, 9000);  // 800 x 600 at 96 dpi
  plot_->setMinimumSize(120, 120);
  plot_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  row->addWidget(plot_, 1);

  effects_ = new QGroupBox(this);
  effects_->setObjectName("Cdr_Effects");
  row->addWidget(effects_, 0);
  auto* grid = new QGridLayout(effects_);
  grid->setContentsMargins(6, 6, 6, 6);
  grid->setVerticalSpacing(4);

  const auto& items = Bar_Tips;
  static_assert(std::size(Bar_Tips) == Bar_Count);
  int r = 0;
  for (int b = 0; b < Bar_Count; ++b, ++r) {
    if (b == Bar_RotX || b == Bar_X) {
      auto* gap = new QWidget(effects_);
      gap->setFixedHeight(6);
      grid->addWidget(gap, r++, 0);
    }
    const Bar_Text& it = items[b];
    auto* lab = new QLabel(QString::fromUtf8(it.label), effects_);
    lab->setObjectName(QString("Lbl_") + it.bar);
    grid->addWidget(lab, r, 0);
    auto* bar = new QScrollBar(Qt::Horizontal, effects_);
    bar->setObjectName(it.bar);
    bar->setRange(-10000, 10000);
    bar->setValue(0);
    bar->setSingleStep(1);
    bar->setPageStep(10);
    bar->setMinimumWidth(110);
    grid->addWidget(bar, r, 1);
    bars_[b] = bar;
    connect(bar, &QScrollBar::valueChanged, this, [this, b](int v) { Scroll_Change(b, v); });
    if (it.button) {
      auto* btn = new QPushButton(it.caption, effects_);
      btn->setObjectName(it.button);
      btn->setFixedWidth(28);
      // Cmd_ReCenter stands beside both pan bars.
      if (b == Bar_X)
        grid->addWidget(btn, r, 2, 2, 1);
      else
        grid->addWidget(btn, r, 2);
      connect(btn, &QPushButton::clicked, this, [this, b] { Button_Click(b); });
    }
  }
  auto* gap = new QWidget(effects_);
  gap->setFixedHeight(6);
  grid->addWidget(gap, r++, 0);
  // The two drawings are told by pictures, which need no translation: the
  // beam in plan with every cross-section, or with a tenth of them.
  optAll_ = new QRadioButton(effects_);
  optAll_->setObjectName("Opt_DrawAllSections");
  optAll_->setIcon(Sections_Icon(1));
  optAll_->setIconSize(QSize(72, 18));
  optAll_->setChecked(true);
  optLight_ = new QRadioButton(effects_);
  optLight_->setObjectName("Opt_DrawLight");
  optLight_->setIcon(Sections_Icon(10));
  optLight_->setIconSize(QSize(72, 18));
  grid->addWidget(optAll_, r++, 0, 1, 3);
  grid->addWidget(optLight_, r++, 0, 1, 3);
  auto option = [this] {
    t_.DrawAll = optAll_->isChecked();
    if (loaded_) TriD_Draw(t_, plot_->surface());
  };
  connect(optAll_, &QRadioButton::clicked, this, option);
  connect(optLight_, &QRadioButton::clicked, this, option);

  axes_ = new QLabel(effects_);
  axes_->setObjectName("Img_Axes");
  axes_->setPixmap(TriD_AxesPixmap(64));
  axes_->setAlignment(Qt::AlignCenter);
  grid->addWidget(axes_, r++, 0, 1, 3);
  grid->setRowStretch(r, 1);
  effects_->setFixedWidth(effects_->sizeHint().width());

  // The least size: the bar twice over across, 5460 twips high.
  const int minH = static_cast<int>(Min_HeightTwips / 15.0 * logicalDpiY() / 96.0);
  setMinimumSize(2 * effects_->width(), std::max(minH, effects_->sizeHint().height() + 40));

  connect(plot_, &SurfaceWidget::resized, this, &Frm_EigenVector3D::Plot_Resized);
  connect(plot_, &SurfaceWidget::mousePressed, this,
          [this](double x, double y, int button) { Mouse_Down(x, y, button); });
  connect(plot_, &SurfaceWidget::mouseMoved, this, [this](double x, double y) { Mouse_Move(x, y); });
  connect(plot_, &SurfaceWidget::mouseReleased, this, [this](double, double, int) { Mouse_Up(); });
}

QMenuBar* Frm_EigenVector3D::menuBar() const { return findChild<QMenuBar*>("MenuBar"); }

void Frm_EigenVector3D::Translate() {
  setWindowTitle(Caption(10, 1, "Buckling mode in 3D"));
  if (auto* a = findChild<QAction*>("Menu_File_Print")) a->setText(Caption(10, 2, "&Print..."));
  if (auto* a = findChild<QAction*>("Menu_Edit_Copy")) a->setText(Caption(10, 3, "&Copy"));
  effects_->setTitle(Caption(10, 4, "Effects"));
  // Copied from the main window's menus.
  if (auto* mnu = findChild<QMenu*>("Menu_File")) mnu->setTitle(Caption(1, 2, "&File"));
  if (auto* a = findChild<QAction*>("Menu_File_Quit")) a->setText(Caption(1, 8, "&Quit"));
  if (auto* mnu = findChild<QMenu*>("Menu_Edit")) mnu->setTitle(Caption(1, 9, "&Edit"));
  if (auto* a = findChild<QAction*>("Menu_Quid_Help")) a->setText(Caption(1, 17, "&?"));

  // The texts that came after the numbered captions, and the tooltips: a bar
  // and the button beside it say the same.
  auto further = [](const char* name, const char* english) {
    return Lang_Further(std::string("Frm_EigenVector3D.") + name, english);
  };
  if (auto* a = findChild<QAction*>("Menu_File_SaveAs"))
    a->setText(further("Menu_File_SaveAs", "Save picture &as..."));
  if (auto* l = findChild<QLabel*>("Lbl_Scroll_RapDep")) l->setText(further("Ratio", "Ratio"));
  if (auto* l = findChild<QLabel*>("Lbl_Scroll_Zoom")) l->setText(further("Zoom", "Zoom"));
  for (int b = 0; b < Bar_Count; ++b) {
    const QString tip = further(Bar_Tips[b].bar, Bar_Tips[b].tip);
    bars_[b]->setToolTip(tip);
    if (Bar_Tips[b].button)
      if (auto* btn = findChild<QPushButton*>(Bar_Tips[b].button)) btn->setToolTip(tip);
  }
  optAll_->setToolTip(further("Opt_DrawAllSections", "All cross-sections"));
  optLight_->setToolTip(further("Opt_DrawLight", "A tenth of the cross-sections: a lighter drawing"));
}

Surface& Frm_EigenVector3D::Plot() { return plot_->surface(); }

QImage Frm_EigenVector3D::Picture() const { return plot_->imageSurface().Image().copy(); }

void Frm_EigenVector3D::Plot_Resized() {
  if (!loaded_) return;
  plot_->surface().BackColor(Plot_Back);
  TriD_SetScale(plot_->surface(), L_);
  TriD_Draw(t_, plot_->surface());
}

void Frm_EigenVector3D::Scroll_Change(int bar, int value) {
  if (value == last_[bar]) return;
  const int rose = value > last_[bar] ? 1 : -1;
  last_[bar] = value;
  if (!loaded_) return;
  Surface& s = plot_->surface();
  switch (bar) {
    case Bar_RapDep: TriD_SetRapDep(t_, rose, s); break;
    case Bar_Zoom: TriD_Zoom(t_, rose, s); break;
    // The bars of X, of the beam's axis and of the pan act against their
    // thumb, so that the model moves the way the thumb is seen to go.
    case Bar_RotX: TriD_RotGlob(t_, -rose, 1, s); break;
    case Bar_RotY: TriD_RotGlob(t_, rose, 2, s); break;
    case Bar_RotZ: TriD_RotGlob(t_, rose, 3, s); break;
    case Bar_RotLocX: TriD_RotLocX(t_, -rose, s); break;
    case Bar_X: TriD_PanX(t_, -rose, s); break;
    case Bar_Z: TriD_PanZ(t_, -rose, s); break;
  }
}

void Frm_EigenVector3D::Button_Click(int bar) {
  auto reset = [this](int b) {
    last_[b] = 0;
    const QSignalBlocker block(bars_[b]);
    bars_[b]->setValue(0);
  };
  reset(bar);
  if (bar == Bar_X) reset(Bar_Z);
  if (!loaded_) return;
  Surface& s = plot_->surface();
  switch (bar) {
    case Bar_RapDep: TriD_SetRapDep(t_, 0, s); break;
    case Bar_Zoom: TriD_Zoom(t_, 0, s); break;
    case Bar_RotX: TriD_RotGlob(t_, 0, 1, s); break;
    case Bar_RotY: TriD_RotGlob(t_, 0, 2, s); break;
    case Bar_RotZ: TriD_RotGlob(t_, 0, 3, s); break;
    case Bar_RotLocX: TriD_RotLocX(t_, 0, s); break;
    case Bar_X:
    case Bar_Z: TriD_ReCenter(t_, s); break;
  }
}

void Frm_EigenVector3D::Show_Cursor() {
  if (t_.Cursor == shownCursor_) return;
  shownCursor_ = t_.Cursor;
  if (shownCursor_ == TriD_Cursor::Default)
    plot_->unsetCursor();
  else
    plot_->setCursor(TriD_QCursor(shownCursor_));
}

void Frm_EigenVector3D::Mouse_Down(double x, double y, int button) {
  if (!loaded_ || (button != 1 && button != 2)) return;
  TriD_MouseDown(t_, plot_->surface(), static_cast<float>(x), static_cast<float>(y), button);
  Show_Cursor();
}

void Frm_EigenVector3D::Mouse_Move(double x, double y) {
  if (!loaded_ || !t_.Dragging) return;
  TriD_MouseMove(t_, plot_->surface(), static_cast<float>(x), static_cast<float>(y), t_.DragButton);
  Show_Cursor();
}

void Frm_EigenVector3D::Mouse_Up() {
  if (!loaded_) return;
  TriD_MouseUp(t_, plot_->surface());
  Show_Cursor();
}

void Frm_EigenVector3D::Menu_Edit_Copy() {
  QClipboard* cb = QGuiApplication::clipboard();
  cb->clear();
  cb->setImage(Picture());
}

void Frm_EigenVector3D::Menu_File_Print() {
  if (!loaded_) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dlg(&printer, this);
  if (dlg.exec() != QDialog::Accepted) return;  // cancel: nothing printed
  Print_Page(printer);
}

bool Frm_EigenVector3D::Print_Page(QPrinter& printer) {
  if (!loaded_) return false;
  QPainter p;
  if (!p.begin(&printer)) return false;
  // The page's printable width, and a height in the picture's proportion.
  const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
  const double twipsPerDot = 1440.0 / printer.resolution();
  double w = page.width() * twipsPerDot;
  const Surface& shown = plot_->surface();
  double h = shown.Width() > 0 ? w * shown.Height() / shown.Width() : w * 0.75;
  if (h > page.height() * twipsPerDot) {
    w *= page.height() * twipsPerDot / h;
    h = page.height() * twipsPerDot;
  }
  QtPainterSurface ps(p, w, h);
  TriD_SetScale(ps, L_);
  TriD_Draw(t_, ps, false);
  return p.end();
}

bool Frm_EigenVector3D::Save_Picture(const QString& path) {
  const QString low = path.toLower();
  if (low.endsWith(".png")) return Picture().save(path, "PNG");
  if (!low.endsWith(".svg") || !loaded_) return false;
  // The same view drawn as vectors, at the picture's size and scale.
  const Surface& shown = plot_->surface();
  SvgWriter w(shown.Width(), shown.Height());
  w.BackColor(Plot_Back);
  w.ScaleLeft(shown.ScaleLeft());
  w.ScaleTop(shown.ScaleTop());
  w.ScaleWidth(shown.ScaleWidth());
  w.ScaleHeight(shown.ScaleHeight());
  TriD_Draw(t_, w);
  const std::string svg = w.Document();
  // Written beside and renamed, so an existing file is never half written.
  const QString tmp = path + ".tmp";
  QFile f(tmp);
  if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
  const bool ok = f.write(svg.data(), static_cast<qint64>(svg.size())) == static_cast<qint64>(svg.size());
  f.close();
  if (!ok) {
    QFile::remove(tmp);
    return false;
  }
  QFile::remove(path);
  return QFile::rename(tmp, path);
}

void Frm_EigenVector3D::Menu_File_SaveAs() {
  QString filter;
  const QString png = Lang_Further("Frm_EigenVector3D.PNG picture", "PNG picture") + " (*.png)";
  const QString path = QFileDialog::getSaveFileName(
      this, QString(), QString(), png + ";;" + Lang_Further("Frm_EigenVector3D.SVG picture", "SVG picture") + " (*.svg)",
      &filter);
  if (path.isEmpty()) return;
  QString p = path;
  if (!p.toLower().endsWith(".png") && !p.toLower().endsWith(".svg"))
    p += filter.contains("*.svg") ? ".svg" : ".png";
  Save_Picture(p);
}

void Frm_EigenVector3D::Menu_Quid_Help() {
  if (Help_Requested) {
    Help_Requested();
    return;
  }
  if (QWidget* w = parentWidget()) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
    QCoreApplication::sendEvent(w, &press);
  }
}

bool Cmd_Draw3D_Click(QWidget* parent, BeamModel& m, Surface& eigenmode, bool externalMode) {
  if (externalMode) return false;
  if (!(m.Mode_Max > 0)) {
    eigenmode.CurrentX(eigenmode.ScaleLeft() + eigenmode.ScaleWidth() / 4);
    eigenmode.CurrentY(eigenmode.ScaleTop() + eigenmode.ScaleHeight() / 2);
    eigenmode.ForeColor(0);
    eigenmode.Print(Cp1252_To_Utf8(Msg(14)));
    eigenmode.Refresh();
    return false;
  }
  Frm_EigenVector3D frm(m, false, parent);
  frm.exec();
  return true;
}

}  // namespace zarvek
