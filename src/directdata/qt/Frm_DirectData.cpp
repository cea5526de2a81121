#include "directdata/qt/Frm_DirectData.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStyleOptionHeader>
#include <QStylePainter>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <cerrno>
#include <cstring>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

QString Lang_Text(const std::string& text) { return QString::fromStdString(Cp1252_To_Utf8(text)); }
QString Q(const std::string& s) { return QString::fromStdString(s); }
std::string S(const QString& s) { return s.toStdString(); }
// A file name of the system (UTF-8) in a box whose texts are the language's
// (Windows-1252, Latin-1 for letters).
std::string Box_Text(const std::string& utf8) { return QString::fromStdString(utf8).toLatin1().toStdString(); }

constexpr const char* Font_Family = "Liberation Sans";
constexpr const char* Problem_Ext = ".ZVK";

const Grid_Kind Kinds[] = {Grid_Kind::Elements, Grid_Kind::Restraints, Grid_Kind::MV, Grid_Kind::SpanLoadsF,
                           Grid_Kind::SpanLoadsQ, Grid_Kind::Axial};

// Paints "N°" on the corner above the running numbers.
class Corner_Painter : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject* o, QEvent* e) override {
    auto* b = qobject_cast<QAbstractButton*>(o);
    if (!b || e->type() != QEvent::Paint) return false;
    QStyleOptionHeader opt;
    opt.initFrom(b);
    opt.rect = b->rect();
    opt.text = QString::fromUtf8("N°");
    opt.textAlignment = Qt::AlignCenter;
    opt.position = QStyleOptionHeader::OnlyOneSection;
    QStylePainter p(b);
    p.drawControl(QStyle::CE_Header, opt);
    return true;
  }
};

bool Is_Control(QKeyEvent* k, int key) {
  return k->key() == key && (k->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) == Qt::ControlModifier;
}

}  // namespace

// ================================================================ delegate

Grid_Delegate::Grid_Delegate(Data_Grid* grid) : QStyledItemDelegate(grid), grid_(grid) {}

QWidget* Grid_Delegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
  QWidget* w = QStyledItemDelegate::createEditor(parent, option, index);
  if (auto* le = qobject_cast<QLineEdit*>(w)) {
    le->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    le->setFrame(false);
  }
  editor_ = w;
  return w;
}

void Grid_Delegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const {
  if (auto* le = qobject_cast<QLineEdit*>(editor)) {
    const std::string t = S(le->text());
    if (Is_Numeric(t) && !Value_InRange(t, Column_Single(grid_->Kind(), index.column() + Grid_FixedCols))) {
      // "1e400": the cell keeps its old text, and the box says why once the
      // editor is closed
      QTimer::singleShot(0, grid_, [g = QPointer<Data_Grid>(grid_)] {
        if (g && g->Show_OutOfRange) g->Show_OutOfRange();
      });
      return;
    }
  }
  QStyledItemDelegate::setModelData(editor, model, index);
}

QLineEdit* Grid_Delegate::Editor() const { return qobject_cast<QLineEdit*>(editor_.data()); }

void Grid_Delegate::Commit_Editor() {
  if (QWidget* w = editor_.data()) {
    emit commitData(w);
    emit closeEditor(w, QAbstractItemDelegate::NoHint);
    editor_.clear();
  }
}

bool Grid_Delegate::eventFilter(QObject* object, QEvent* event) {
  auto* le = qobject_cast<QLineEdit*>(object);
  if (!le || event->type() != QEvent::KeyPress) return QStyledItemDelegate::eventFilter(object, event);
  auto* k = static_cast<QKeyEvent*>(event);
  switch (k->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      // the cell takes the text, then the cursor moves
      Commit_Editor();
      grid_->Move_Key(k->key(), k->modifiers());
      grid_->setFocus();
      return true;
    case Qt::Key_Escape:
      // the cell keeps its old text
      emit closeEditor(le, QAbstractItemDelegate::RevertModelCache);
      editor_.clear();
      grid_->setFocus();
      return true;
    default:
      break;
  }
  if (Is_Control(k, Qt::Key_V)) {
    grid_->Paste();
    return true;
  }
  if (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) {
    return QStyledItemDelegate::eventFilter(object, event);
  }
  const QString t = k->text();
  if (t.size() == 1 && t[0].unicode() >= 32) {
    const ushort u = t[0].unicode();
    if (u >= 127) return true;  // no letter of another script is a digit
    int key = u;
    if (!Filter_NumericKey(key, Column_FilterMode(grid_->Kind(), grid_->Col()))) return true;
    if (key != (int)u) {
      le->insert(QString(QChar(key)));
      return true;
    }
  }
  return QStyledItemDelegate::eventFilter(object, event);
}

// ================================================================ grid

Data_Grid::Data_Grid(Grid_Kind kind, QWidget* parent) : QTableWidget(parent), kind_(kind) {
  delegate_ = new Grid_Delegate(this);
  setItemDelegate(delegate_);
  setSelectionMode(QAbstractItemView::ContiguousSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed |
                  QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
  setTabKeyNavigation(true);
  setAlternatingRowColors(false);
  setWordWrap(false);
  setColumnCount(Grid_Columns(kind) - Grid_FixedCols);
  QStringList heads;
  for (int c = 1; c < Grid_Columns(kind); ++c)
    heads << QString::fromUtf8(Grid_Head(kind, c)) + "\n" + QString::fromUtf8(Grid_Unit(kind, c));
  setHorizontalHeaderLabels(heads);
  horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
  // the columns share the width of the grid: no sideways scrolling
  horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  horizontalHeader()->setHighlightSections(false);
  verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  verticalHeader()->setMinimumWidth(fontMetrics().horizontalAdvance(QString::fromUtf8("N°000")) + 8);
  const int w = fontMetrics().horizontalAdvance("-0000000.00") + 12;
  horizontalHeader()->setDefaultSectionSize(w);
  horizontalHeader()->setMinimumSectionSize(w / 2);
  if (auto* corner = findChild<QAbstractButton*>()) corner->installEventFilter(new Corner_Painter(this));
  viewport()->installEventFilter(this);
  connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (dragging_ && Show_Selection) Show_Selection(true, Q(Selection_Caption(*this)));
  });
}

std::string Data_Grid::TextMatrix(int row, int col) const {
  if (row == 0) return Grid_Head(kind_, col);
  if (row == 1) return Grid_Unit(kind_, col);
  if (col == 0) {
    const QTableWidgetItem* h = verticalHeaderItem(row - Grid_FixedRows);
    return h ? S(h->text()) : std::string();
  }
  const QTableWidgetItem* it = item(row - Grid_FixedRows, col - Grid_FixedCols);
  return it ? S(it->text()) : std::string();
}

void Data_Grid::Set_TextMatrix(int row, int col, const std::string& text) {
  if (row < Grid_FixedRows || row >= Rows() || col >= Cols()) return;
  if (col == 0) {
    setVerticalHeaderItem(row - Grid_FixedRows, new QTableWidgetItem(Q(text)));
    return;
  }
  QTableWidgetItem* it = item(row - Grid_FixedRows, col - Grid_FixedCols);
  if (!it) {
    it = new QTableWidgetItem;
    it->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setItem(row - Grid_FixedRows, col - Grid_FixedCols, it);
  }
  it->setText(Q(text));
  // the cell being typed in shows the new value too
  if (QLineEdit* le = delegate_->Editor();
      le && currentRow() == row - Grid_FixedRows && currentColumn() == col - Grid_FixedCols) {
    le->setText(Q(text));
    le->selectAll();
  }
}

int Data_Grid::Row() const { return std::max(currentRow(), 0) + Grid_FixedRows; }
int Data_Grid::Col() const { return std::max(currentColumn(), 0) + Grid_FixedCols; }

int Data_Grid::RowSel() const {
  const int r = currentRow();
  for (const QTableWidgetSelectionRange& s : selectedRanges())
    if (r >= s.topRow() && r <= s.bottomRow() && currentColumn() >= s.leftColumn() &&
        currentColumn() <= s.rightColumn())
      return (r == s.topRow() ? s.bottomRow() : s.topRow()) + Grid_FixedRows;
  return Row();
}

int Data_Grid::ColSel() const {
  const int c = currentColumn();
  for (const QTableWidgetSelectionRange& s : selectedRanges())
    if (c >= s.leftColumn() && c <= s.rightColumn() && currentRow() >= s.topRow() && currentRow() <= s.bottomRow())
      return (c == s.leftColumn() ? s.rightColumn() : s.leftColumn()) + Grid_FixedCols;
  return Col();
}

void Data_Grid::Load(const Text_Grid& g) {
  delegate_->Commit_Editor();
  const int rows = std::max(g.Rows() - Grid_FixedRows, 0);
  clearContents();
  setRowCount(rows);
  for (int r = Grid_FixedRows; r < g.Rows(); ++r)
    for (int c = 0; c < std::min(g.Cols(), Cols()); ++c) Set_TextMatrix(r, c, g.TextMatrix(r, c));
  if (rows > 0) Go_To(Grid_FixedRows, Grid_FixedCols);
}

Text_Grid Data_Grid::Store() const {
  Text_Grid g(Rows(), Cols());
  for (int r = 0; r < Rows(); ++r)
    for (int c = 0; c < Cols(); ++c) g.Set_TextMatrix(r, c, TextMatrix(r, c));
  return g;
}

void Data_Grid::Go_To(int row, int col) {
  const int r = row - Grid_FixedRows, c = col - Grid_FixedCols;
  if (r < 0 || r >= rowCount() || c < 0 || c >= columnCount()) return;
  setCurrentCell(r, c, QItemSelectionModel::ClearAndSelect);
  scrollToItem(item(r, c));
}

bool Data_Grid::Move_Key(int key, Qt::KeyboardModifiers mods) {
  if (rowCount() == 0) return false;
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down: Go_To(Row_After_Down(*this), Col()); return true;
    case Qt::Key_Up: Go_To(Row_After_Up(*this), Col()); return true;
    case Qt::Key_Tab: Go_To(Row(), Col_After_Tab(*this, mods & Qt::ShiftModifier)); return true;
    case Qt::Key_Backtab: Go_To(Row(), Col_After_Tab(*this, true)); return true;
    default: return false;
  }
}

void Data_Grid::Copy() {
  QClipboard* clip = QGuiApplication::clipboard();
  if (!clip || rowCount() == 0) return;
  clip->clear();
  int rows = 0, cols = 0;
  Get_GridSelection(*this, rows, cols);
  if (rows * cols > 1) {
    clip->setText(Q(Copy_Block(*this)));
  } else if (QLineEdit* le = delegate_->Editor(); le && le->hasSelectedText()) {
    clip->setText(le->selectedText());
  } else {
    clip->setText(Q(TextMatrix(Row(), Col())));
  }
}

void Data_Grid::Paste() {
  const QClipboard* clip = QGuiApplication::clipboard();
  if (!clip || rowCount() == 0) return;
  const QString text = clip->text();
  if (text.isEmpty()) return;
  const Paste_Result r = Paste_Text(*this, S(text), [this](int, int col, const std::string& t) {
    return Value_InRange(t, Column_Single(kind_, col));
  });
  if (r.Outcome != Paste_Outcome::Not_Numeric) return;
  if (r.Out_Of_Range && Show_OutOfRange) Show_OutOfRange();
  else if (!r.Out_Of_Range && Show_NotNumeric) Show_NotNumeric();
}

void Data_Grid::Delete_Selection() {
  Delete_Block(*this);
  if (QLineEdit* le = delegate_->Editor()) le->clear();
}

bool Data_Grid::event(QEvent* e) {
  // Tab and Shift+Tab move within the grid instead of leaving it
  if (e->type() == QEvent::KeyPress) {
    auto* k = static_cast<QKeyEvent*>(e);
    if (k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab) {
      Move_Key(k->key(), k->modifiers());
      return true;
    }
  }
  return QTableWidget::event(e);
}

void Data_Grid::keyPressEvent(QKeyEvent* e) {
  if (Is_Control(e, Qt::Key_C)) return Copy();
  if (Is_Control(e, Qt::Key_V)) return Paste();
  if (e->key() == Qt::Key_Delete && e->modifiers() == Qt::NoModifier) return Delete_Selection();
  if (e->modifiers() == Qt::NoModifier || e->modifiers() == Qt::KeypadModifier) {
    if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
      Move_Key(e->key(), e->modifiers());
      return;
    }
    if (e->key() == Qt::Key_Escape) return;  // stays in the grid
  }
  QTableWidget::keyPressEvent(e);
}

bool Data_Grid::eventFilter(QObject* object, QEvent* event) {
  if (object == viewport()) {
    switch (event->type()) {
      case QEvent::MouseButtonPress: {
        auto* m = static_cast<QMouseEvent*>(event);
        if (m->button() == Qt::RightButton) return true;  // the block stays selected for the menu
        dragging_ = true;
        if (Show_Selection) Show_Selection(true, Q(Selection_Caption(*this)));
        break;
      }
      case QEvent::MouseButtonRelease: {
        auto* m = static_cast<QMouseEvent*>(event);
        dragging_ = false;
        if (Show_Selection) Show_Selection(false, QString());
        if (m->button() == Qt::RightButton) {
          if (Show_EditMenu) Show_EditMenu(m->globalPosition().toPoint());
          return true;
        }
        break;
      }
      case QEvent::MouseMove:
        if (dragging_ && Show_Selection) {
          // after the view has extended the selection
          QTimer::singleShot(0, this, [this] {
            if (dragging_ && Show_Selection) Show_Selection(true, Q(Selection_Caption(*this)));
          });
        }
        break;
      default: break;
    }
  }
  return QTableWidget::eventFilter(object, event);
}

// ================================================================ window

Frm_DirectData::Frm_DirectData(const std::string& file_External, const std::string& dir_Data, int nb_New,
                               QWidget* parent)
    : QDialog(parent), file_External_(file_External), dir_Data_(dir_Data) {
  setObjectName("Frm_DirectData");
  setModal(true);
  setFont(QFont(Font_Family, 9));
  setSizeGripEnabled(true);

  // menus
  Menu_Bar = new QMenuBar(this);
  Menu_File = Menu_Bar->addMenu("&File");
  Menu_File->setObjectName("Menu_File");
  Menu_File_OpenAct = Menu_File->addAction("&Open...");
  Menu_File_OpenAct->setObjectName("Menu_File_Open");
  Menu_File_SaveAct = Menu_File->addAction("&Save");
  Menu_File_SaveAct->setObjectName("Menu_File_Save");
  Menu_File_SaveAsAct = Menu_File->addAction("Save &As...");
  Menu_File_SaveAsAct->setObjectName("Menu_File_SaveAs");
  Menu_File->addSeparator();
  Menu_File_QuitAct = Menu_File->addAction("&Quit");
  Menu_File_QuitAct->setObjectName("Menu_File_Quit");
  Menu_Edit = Menu_Bar->addMenu("&Edit");
  Menu_Edit->setObjectName("Menu_Edit");
  Menu_Edit_Copy = Menu_Edit->addAction("&Copy");
  Menu_Edit_Copy->setObjectName("Menu_Edit_Copy");
  Menu_Edit_Paste = Menu_Edit->addAction("&Paste");
  Menu_Edit_Paste->setObjectName("Menu_Edit_Paste");
  // the grids have the keys; the menu only shows them
  Menu_Edit_Copy->setShortcut(QKeySequence::Copy);
  Menu_Edit_Copy->setShortcutContext(Qt::WidgetShortcut);
  Menu_Edit_Paste->setShortcut(QKeySequence::Paste);
  Menu_Edit_Paste->setShortcutContext(Qt::WidgetShortcut);
  Menu_Quid_Help = Menu_Bar->addAction("&Help");
  Menu_Quid_Help->setObjectName("Menu_Quid_Help");
  auto* f1 = new QAction(this);
  f1->setShortcut(Qt::Key_F1);
  addAction(f1);
  connect(f1, &QAction::triggered, this, &Frm_DirectData::Help_Requested);
  connect(Menu_Quid_Help, &QAction::triggered, this, &Frm_DirectData::Help_Requested);
  connect(Menu_File_OpenAct, &QAction::triggered, this, [this] { Menu_File_Open(); });
  connect(Menu_File_SaveAct, &QAction::triggered, this, [this] { Menu_File_Save(); });
  connect(Menu_File_SaveAsAct, &QAction::triggered, this, [this] { Menu_File_SaveAs(); });
  connect(Menu_File_QuitAct, &QAction::triggered, this, [this] { Menu_File_Quit(); });
  connect(Menu_File, &QMenu::aboutToShow, this, [this] { Header_NotNumeric(); });
  connect(Menu_Edit, &QMenu::aboutToShow, this, [this] { Menu_Edit_Opening(); });
  connect(Menu_Edit_Copy, &QAction::triggered, this, [this] {
    if (Data_Grid* g = Current_Grid()) {
      g->Copy();
      Menu_Edit_Paste->setEnabled(true);
    }
  });
  connect(Menu_Edit_Paste, &QAction::triggered, this, [this] {
    if (Data_Grid* g = Current_Grid()) g->Paste();
  });

  // tab 0: the header fields
  Tab_Data = new QTabWidget(this);
  Tab_Data->setObjectName("Tab_Data");
  auto* general = new QWidget;
  Cdr_Trad[0] = new QGroupBox("General data", general);
  auto* form = new QGridLayout(Cdr_Trad[0]);
  const char* labels[] = {"Number of elements N", "Young's modulus E (daN/cm2)", "Shear modulus G (daN/cm2)",
                          "Number of point loads NF", "Number of distributed loads NQ"};
  const char* names[] = {"Txt_NB", "Txt_E", "Txt_G", "Txt_NF", "Txt_NQ"};
  QLineEdit** fields[] = {&Txt_NB, &Txt_E, &Txt_G, &Txt_NF, &Txt_NQ};
  for (int i = 0; i < 5; ++i) {
    Lbl_Trad[i] = new QLabel(labels[i], Cdr_Trad[0]);
    Lbl_Trad[i]->setObjectName(QString("Lbl_Trad(%1)").arg(i));
    QLineEdit* e = new QLineEdit(Cdr_Trad[0]);
    e->setObjectName(names[i]);
    e->setAlignment(Qt::AlignRight);
    e->setFixedWidth(fontMetrics().horizontalAdvance("00000000000000") + 10);
    e->installEventFilter(this);
    Lbl_Trad[i]->setBuddy(e);
    form->addWidget(Lbl_Trad[i], i, 0);
    form->addWidget(e, i, 1);
    *fields[i] = e;
  }
  form->setColumnStretch(2, 1);
  // the mesh is that of the file, or the one asked for by New
  Txt_NB->setReadOnly(true);
  Txt_NB->setFocusPolicy(Qt::NoFocus);
  {
    QPalette p = Txt_NB->palette();
    p.setColor(QPalette::Base, palette().color(QPalette::Window));
    Txt_NB->setPalette(p);
  }
  connect(Txt_NF, &QLineEdit::textEdited, this, [this] { NF_Changed = true; });
  connect(Txt_NQ, &QLineEdit::textEdited, this, [this] { NQ_Changed = true; });
  auto* gl = new QVBoxLayout(general);
  gl->addWidget(Cdr_Trad[0]);
  gl->addStretch(1);
  Tab_Data->addTab(general, "General");

  // tabs 1 to 4: the grids
  const char* grid_names[] = {"Grd_Elements", "Grd_Restraints", "Grd_MV", "Grd_SpanLoadsF", "Grd_SpanLoadsQ",
                              "Grd_Axial"};
  const char* frames[] = {"Elements", "Restraints at the nodes", "End moments of the elements", "Point loads",
                          "Distributed loads", "Axial force at the centroid (compression positive)"};
  Data_Grid** grids[] = {&Grd_Elements, &Grd_Restraints, &Grd_MV, &Grd_SpanLoadsF, &Grd_SpanLoadsQ, &Grd_Axial};
  for (int i = 0; i < 6; ++i) {
    Cdr_Trad[i + 1] = new QGroupBox(frames[i]);
    Cdr_Trad[i + 1]->setObjectName(QString("Cdr_Trad(%1)").arg(i + 1));
    auto* g = new Data_Grid(Kinds[i], Cdr_Trad[i + 1]);
    g->setObjectName(grid_names[i]);
    g->Show_NotNumeric = [this] { Show_Exclamation(Msg(75)); };
    g->Show_OutOfRange = [this] { Show_Exclamation(Text_OutOfRange()); };
    g->Show_Selection = [this](bool shown, const QString& caption) {
      Lbl_SelectedMatrix->setText(caption);
      Lbl_SelectedMatrix->setVisible(shown);
    };
    g->Show_EditMenu = [this](const QPoint& at) { Menu_Edit->popup(at); };
    g->installEventFilter(this);
    auto* l = new QVBoxLayout(Cdr_Trad[i + 1]);
    l->addWidget(g);
    *grids[i] = g;
  }
  Cdr_Trad[0]->setObjectName("Cdr_Trad(0)");
  const char* tabs[] = {"Elements", "Restraints", "Moments M1, M2", "Loads"};
  for (int i = 0; i < 3; ++i) {
    auto* page = new QWidget;
    auto* l = new QVBoxLayout(page);
    l->addWidget(Cdr_Trad[i + 1]);
    Tab_Data->addTab(page, tabs[i]);
  }
  auto* loads = new QWidget;
  auto* ll = new QHBoxLayout(loads);
  ll->addWidget(Cdr_Trad[4], 4);
  ll->addWidget(Cdr_Trad[5], 6);
  Tab_Data->addTab(loads, tabs[3]);
  auto* axial = new QWidget;
  auto* al = new QVBoxLayout(axial);
  al->addWidget(Cdr_Trad[6]);
  Tab_Data->addTab(axial, "Axial force");
  connect(Tab_Data, &QTabWidget::currentChanged, this, [this](int t) { Tab_Changed(t); });

  Lbl_SelectedMatrix = new QLabel(this);
  Lbl_SelectedMatrix->setObjectName("Lbl_SelectedMatrix");
  Lbl_SelectedMatrix->setFrameShape(QFrame::Panel);
  Lbl_SelectedMatrix->setFrameShadow(QFrame::Sunken);
  Lbl_SelectedMatrix->setMinimumWidth(fontMetrics().horizontalAdvance("000x00") + 12);
  Lbl_SelectedMatrix->setAlignment(Qt::AlignCenter);
  QSizePolicy sp = Lbl_SelectedMatrix->sizePolicy();
  sp.setRetainSizeWhenHidden(true);
  Lbl_SelectedMatrix->setSizePolicy(sp);
  Lbl_SelectedMatrix->hide();

  auto* box = new QVBoxLayout(this);
  box->setMenuBar(Menu_Bar);
  box->addWidget(Tab_Data, 1);
  auto* foot = new QHBoxLayout;
  foot->addStretch(1);
  foot->addWidget(Lbl_SelectedMatrix);
  box->addLayout(foot);

  Choose_File = [this](int action, const std::string& proposed) -> std::string {
    QFileDialog d(this);
    d.setDirectory(Q(dir_Data_));
    d.setNameFilter(Lang_Text(Further_Text("File_Filter_Problem", "Problem files")) + " (*" + Problem_Ext + " *" +
                    QString(Problem_Ext).toLower() + ")");
    d.setDefaultSuffix(QString(Problem_Ext).mid(1));
    d.setAcceptMode(action == 1 ? QFileDialog::AcceptOpen : QFileDialog::AcceptSave);
    d.setFileMode(action == 1 ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    d.setOption(QFileDialog::DontConfirmOverwrite, true);
    if (!proposed.empty()) d.selectFile(Q(proposed));
    if (d.exec() != QDialog::Accepted || d.selectedFiles().isEmpty()) return {};
    return S(d.selectedFiles().first());
  };
  Show_Exclamation = [this](const std::string& text) {
    QMessageBox::warning(this, Program_Name(), Lang_Text(text));
  };

  // Form_Load
  Translate_Form();
  Tab_Data->setCurrentIndex(0);
  // a file of the user's is read; the two stand-ins name no file on disk
  if (Is_UserProblemFile(file_External_)) {
    DirectDataSheet s = New_DirectData(nb_New);
    const ReadOutcome r = Read_FileZVK(file_External_, s);
    Set_Sheet(s);
    if (!r.Ok) {
      // shown once the window is up
      QTimer::singleShot(0, this, [this, r, name = file_External_] { Read_Failed(name, r); });
      file_External_ = Msg(81);
    }
  } else {
    Set_Sheet(New_DirectData(nb_New));
  }
  NF_Changed = NQ_Changed = false;
  Set_Title();
  setMinimumSize(720, 420);
  resize(900, 560);
  Centre_OnScreen();
}

void Frm_DirectData::Translate_Form() {
  const int sec = Section_Of_Window("FRM_DIRECTDATA");
  const int main = Section_Of_Window("FRM_ZARVEK");
  if (sec < 0 || Section_Line(sec, 1).empty()) return;
  auto line = [sec](int j) { return Lang_Text(Section_Line(sec, j)); };
  Menu_Edit_Copy->setText(line(1));
  Menu_Edit_Paste->setText(line(2));
  for (int t = 0; t < 5; ++t) Tab_Data->setTabText(t, line(3 + t));
  for (int i = 0; i < 5; ++i) Lbl_Trad[i]->setText(line(8 + i));
  for (int i = 0; i < 6; ++i) Cdr_Trad[i]->setTitle(line(13 + i));
  Tab_Data->setTabText(5, Lang_Text(Further_Text("DirectData_AxialTab", "Axial force")));
  Cdr_Trad[6]->setTitle(Lang_Text(
      Further_Text("DirectData_AxialFrame", "Axial force at the centroid (compression positive)")));
  // copied from the main window's menus
  auto menu = [main](int j) { return Lang_Text(Section_Line(main, j)); };
  Menu_File->setTitle(menu(2));
  Menu_File_OpenAct->setText(menu(4));
  Menu_File_SaveAct->setText(menu(5));
  Menu_File_SaveAsAct->setText(menu(6));
  Menu_File_QuitAct->setText(menu(8));
  Menu_Edit->setTitle(menu(9));
  Menu_Quid_Help->setText(menu(17));
}

void Frm_DirectData::Centre_OnScreen() {
  const QWidget* host = parentWidget() ? parentWidget()->window() : nullptr;
  QRect area;
  if (QScreen* screen = QGuiApplication::primaryScreen()) area = screen->availableGeometry();
  if (area.isEmpty() && host) area = host->frameGeometry();
  if (area.isEmpty()) return;
  QRect r = frameGeometry();
  r.moveCenter(area.center());
  move(r.topLeft());
}

// A file name is the system's own text; the two stand-ins are language texts.
QString Frm_DirectData::File_Text() const {
  if (file_External_ == Msg(40) || file_External_ == Msg(81)) return Lang_Text(file_External_);
  return Q(file_External_);
}

void Frm_DirectData::Set_Title() { setWindowTitle(QString(Program_Name()) + " - " + File_Text()); }

Data_Grid* Frm_DirectData::Grid(Grid_Kind k) const {
  switch (k) {
    case Grid_Kind::Elements: return Grd_Elements;
    case Grid_Kind::Restraints: return Grd_Restraints;
    case Grid_Kind::MV: return Grd_MV;
    case Grid_Kind::SpanLoadsF: return Grd_SpanLoadsF;
    case Grid_Kind::SpanLoadsQ: return Grd_SpanLoadsQ;
    case Grid_Kind::Axial: return Grd_Axial;
  }
  return nullptr;
}

Data_Grid* Frm_DirectData::Current_Grid() const {
  switch (Tab_Data->currentIndex()) {
    case 1: return Grd_Elements;
    case 2: return Grd_Restraints;
    case 3: return Grd_MV;
    case 4: return last_Grid_ == Grd_SpanLoadsQ ? Grd_SpanLoadsQ : Grd_SpanLoadsF;
    case 5: return Grd_Axial;
    default: return nullptr;
  }
}

QLineEdit* Frm_DirectData::Field(Header_Field f) const {
  switch (f) {
    case Header_Field::NB: return Txt_NB;
    case Header_Field::E: return Txt_E;
    case Header_Field::G: return Txt_G;
    case Header_Field::NF: return Txt_NF;
    case Header_Field::NQ: return Txt_NQ;
    default: return nullptr;
  }
}

void Frm_DirectData::Select_Field(Header_Field f) {
  QLineEdit* e = Field(f);
  if (!e) return;
  tab_Locked_ = true;
  Tab_Data->setCurrentIndex(0);
  tab_Previous_ = 0;
  tab_Locked_ = false;
  e->setFocus();
  e->selectAll();
}

DirectDataSheet Frm_DirectData::Sheet() const {
  DirectDataSheet s;
  s.Txt_NB = S(Txt_NB->text());
  s.Txt_E = S(Txt_E->text());
  s.Txt_G = S(Txt_G->text());
  s.Txt_NF = S(Txt_NF->text());
  s.Txt_NQ = S(Txt_NQ->text());
  for (Grid_Kind k : Kinds) s.Grid(k) = Grid(k)->Store();
  return s;
}

void Frm_DirectData::Set_Sheet(const DirectDataSheet& s) {
  Txt_NB->setText(Q(s.Txt_NB));
  Txt_E->setText(Q(s.Txt_E));
  Txt_G->setText(Q(s.Txt_G));
  Txt_NF->setText(Q(s.Txt_NF));
  Txt_NQ->setText(Q(s.Txt_NQ));
  for (Grid_Kind k : Kinds) Grid(k)->Load(s.Grid(k));
}

void Frm_DirectData::Prepare(Grid_Kind k) {
  DirectDataSheet s;
  s.Txt_NB = S(Txt_NB->text());
  s.Txt_NF = S(Txt_NF->text());
  s.Txt_NQ = S(Txt_NQ->text());
  Prepare_Grid(s, k);
  Grid(k)->Load(s.Grid(k));
}

void Frm_DirectData::Prepare_Pending() {
  if (NF_Changed) {
    Prepare(Grid_Kind::SpanLoadsF);
    NF_Changed = false;
  }
  if (NQ_Changed) {
    Prepare(Grid_Kind::SpanLoadsQ);
    NQ_Changed = false;
  }
}

bool Frm_DirectData::IsDataWrong() {
  const DataWrong w = zarvek::IsDataWrong(Sheet());
  if (!w.Wrong) return false;
  if (!w.Message.empty()) Show_Exclamation(w.Message);
  Select_Field(w.Field);
  return true;
}

bool Frm_DirectData::Header_NotNumeric() {
  const Header_Field f = First_NonNumeric(Sheet());
  if (f == Header_Field::None) return false;
  Select_Field(f);
  return true;
}

void Frm_DirectData::Tab_Changed(int t) {
  if (tab_Locked_) return;
  const int p = tab_Previous_;
  tab_Previous_ = t;
  if (p == 0 && IsDataWrong()) return;  // back on tab 0, the field selected
  Menu_Edit_Copy->setEnabled(false);
  Menu_Edit_Paste->setEnabled(false);
  if (Header_NotNumeric()) return;
  if (t == 4) Prepare_Pending();
  if (Data_Grid* g = Current_Grid()) g->setFocus();
}

void Frm_DirectData::Commit_Editors() {
  for (Grid_Kind k : Kinds) Grid(k)->Commit_Editor();
}

void Frm_DirectData::Menu_Edit_Opening() {
  if (Header_NotNumeric()) {
    Menu_Edit_Copy->setEnabled(false);
    Menu_Edit_Paste->setEnabled(false);
    return;
  }
  const bool grid = Current_Grid() != nullptr;
  const QClipboard* clip = QGuiApplication::clipboard();
  Menu_Edit_Copy->setEnabled(grid);
  Menu_Edit_Paste->setEnabled(grid && clip && clip->mimeData() && clip->mimeData()->hasText());
}

// The box of a file that can't be read: its name and what was wrong, over
// the cells read before the stop.
void Frm_DirectData::Read_Failed(const std::string& name, const ReadOutcome& r) {
  if (!r.Message.empty()) Show_Exclamation(Box_Text(name) + "\n" + r.Message);
}

bool Frm_DirectData::Save_To(const std::string& name) {
  Cell_Ref bad;
  const DirectDataSheet s = Sheet();
  if (Find_NonNumericCell(s, bad)) {
    // an emptied or mistyped cell, or "1e400": nothing is written
    Show_Exclamation(bad.Out_Of_Range ? Text_OutOfRange() : Msg(43));
    const int tab = bad.Grid == Grid_Kind::Axial ? 5 : 1 + std::min((int)bad.Grid, 3);
    tab_Locked_ = true;
    Tab_Data->setCurrentIndex(tab);
    tab_Previous_ = tab;
    tab_Locked_ = false;
    Grid(bad.Grid)->Go_To(bad.Row, bad.Col);
    Grid(bad.Grid)->setFocus();
    return false;
  }
  if (!Save_FileZVK(name, s)) {
    Show_Exclamation(name + "\n" + std::strerror(errno));
    return false;
  }
  Data_Changed = false;
  return true;
}

void Frm_DirectData::Menu_File_Open() {
  const std::string chosen = Choose_File(1, std::string());
  if (chosen.empty() || !Has_Extension(chosen, Problem_Ext)) return;
  dir_Data_ = Path_Of(chosen);
  file_External_ = chosen;
  DirectDataSheet s = Sheet();
  const ReadOutcome r = Read_FileZVK(file_External_, s);
  Set_Sheet(s);
  NF_Changed = NQ_Changed = false;
  if (!r.Ok) {
    file_External_ = Msg(81);
    Set_Title();
    Read_Failed(chosen, r);
  }
  emit File_External_Changed(File_Text());
  emit Results_Cleared();
  Set_Title();
}

void Frm_DirectData::Menu_File_Save() {
  if (IsDataWrong()) return;
  Commit_Editors();
  Prepare_Pending();
  // a new problem, or one whose file couldn't be read, has no file of the
  // user's yet: Save asks for a name (never "Untitled" in the folder)
  if (Is_UserProblemFile(file_External_)) {
    Save_To(file_External_);
    emit Results_Cleared();
  } else {
    Menu_File_SaveAs();
  }
}

void Frm_DirectData::Menu_File_SaveAs() {
  if (IsDataWrong()) return;
  Commit_Editors();
  Prepare_Pending();
  const std::string offered = Is_UserProblemFile(file_External_) ? file_External_ : std::string("*") + Problem_Ext;
  std::string chosen = Choose_File(2, offered);
  if (chosen.empty() || chosen.find('*') != std::string::npos) return;
  // a name typed with another extension is refused
  if (!Has_Extension(chosen, Problem_Ext)) return;
  dir_Data_ = Path_Of(chosen);
  file_External_ = chosen;
  Set_Title();
  emit File_External_Changed(File_Text());
  Save_To(file_External_);
  emit Results_Cleared();
}

void Frm_DirectData::Menu_File_Quit() {
  if (!IsDataWrong()) close();
}

bool Frm_DirectData::Query_Unload() {
  if (IsDataWrong()) return false;
  // closing always writes a file, or at least asks for a name
  if (!saveAs_Offered_) {
    saveAs_Offered_ = true;
    Menu_File_SaveAs();
  }
  return true;
}

void Frm_DirectData::keyPressEvent(QKeyEvent* e) {
  // Esc belongs to the cell editors; it doesn't close the window
  if (e->key() == Qt::Key_Escape) return;
  QDialog::keyPressEvent(e);
}

void Frm_DirectData::reject() {
  if (Query_Unload()) QDialog::reject();
}

bool Frm_DirectData::eventFilter(QObject* object, QEvent* event) {
  if (auto* g = dynamic_cast<Data_Grid*>(object)) {
    if (event->type() == QEvent::FocusIn) {
      last_Grid_ = g;
      Menu_Edit_Copy->setEnabled(true);
    }
    return false;
  }
  auto* e = qobject_cast<QLineEdit*>(object);
  if (!e) return false;
  if (event->type() == QEvent::FocusIn) {
    QTimer::singleShot(0, e, [e] { e->selectAll(); });
    return false;
  }
  if (event->type() != QEvent::KeyPress) return false;
  auto* k = static_cast<QKeyEvent*>(event);
  if (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
  const QString t = k->text();
  if (t.size() != 1 || t[0].unicode() < 32) return false;
  const ushort u = t[0].unicode();
  if (u >= 127) return true;
  int key = u;
  const bool count = e == Txt_NF || e == Txt_NQ;
  // the counts are whole numbers
  if (!Filter_NumericKey(key, 1) || (count && key == (unsigned char)Dec_Sep)) return true;
  Data_Changed = true;
  if (key != (int)u) {
    e->insert(QString(QChar(key)));
    if (count) (e == Txt_NF ? NF_Changed : NQ_Changed) = true;
    return true;
  }
  return false;
}

bool Frm_DirectData::Ask_NewProblem(QWidget* parent, int& nb) {
  const QString prompt = Lang_Text(NewProblem_Prompt());
  QString answer = QString::number(DirectData_NBMin);
  while (true) {
    bool ok = false;
    answer = QInputDialog::getText(parent, Program_Name(), prompt, QLineEdit::Normal, answer, &ok);
    if (!ok || answer.trimmed().isEmpty()) return false;
    if (NewProblem_Accepts(S(answer.trimmed()), nb)) return true;
  }
}

}  // namespace zarvek
