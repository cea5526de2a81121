// The direct data editor: a problem file shown element by element in five
// grids, for the beams the main window can't describe (every element its own
// section, every node its own springs).
//
// The window is modal. It is opened with the name of the problem file of the
// file-data mode (File_External) or, for a new problem, with Msg(40) and the
// number of elements asked by New; on closing it offers Save As once, and the
// caller reads back File_External() (a file name, Msg(40) when nothing was
// saved, or Msg(81) after a failed read).
//
//   Frm_DirectData f(File_External, Dir_Data, nb, mainWindow);
//   connect(&f, &Frm_DirectData::Results_Cleared, ...);  // InitProcessInfo, InitEffortsInfo
//   f.exec();
//   File_External = f.File_External();  File_Current = File_External;
#pragma once

#include <QDialog>
#include <QPointer>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <array>
#include <functional>
#include <string>

#include "directdata/DirectData.h"

class QAction;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;
class QTabWidget;

namespace zarvek {

class Data_Grid;

// The cell editor's keys: the column's numeric filter, and the moves and
// clipboard keys that leave or act on the grid.
class Grid_Delegate : public QStyledItemDelegate {
 public:
  explicit Grid_Delegate(Data_Grid* grid);
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  // A number beyond the range of its field doesn't reach the cell.
  void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
  // The cell takes the text being typed, and the editor closes.
  void Commit_Editor();
  QLineEdit* Editor() const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  Data_Grid* grid_;
  mutable QPointer<QWidget> editor_;
};

// One of the five grids. The column names and units stand in the column
// heads, the running numbers in the row heads, so that both stay in view
// while the data scroll: cell (r, c) of the editing rules is the widget's
// cell (r - 2, c - 1).
class Data_Grid : public QTableWidget, public Grid_Access {
 public:
  Data_Grid(Grid_Kind kind, QWidget* parent);

  Grid_Kind Kind() const { return kind_; }

  // Grid_Access
  int Rows() const override { return rowCount() + Grid_FixedRows; }
  int Cols() const override { return columnCount() + Grid_FixedCols; }
  std::string TextMatrix(int row, int col) const override;
  void Set_TextMatrix(int row, int col, const std::string& text) override;
  int Row() const override;
  int Col() const override;
  int RowSel() const override;
  int ColSel() const override;

  // Shows a grid of texts: size, heads, numbers and cells.
  void Load(const Text_Grid& g);
  // The grid as texts, heads included.
  Text_Grid Store() const;

  // Cursor to the cell (row, col) of the editing rules, selection on it.
  void Go_To(int row, int col);
  // Clipboard commands of the grid.
  void Copy();
  void Paste();
  void Delete_Selection();
  void Commit_Editor() { delegate_->Commit_Editor(); }

  // Set by the window.
  std::function<void()> Show_NotNumeric;                   // the Msg(75) box
  std::function<void()> Show_OutOfRange;                   // a value beyond its field
  std::function<void(bool shown, const QString& caption)> Show_Selection;  // Lbl_SelectedMatrix
  std::function<void(const QPoint& global)> Show_EditMenu;  // right button

 protected:
  bool event(QEvent* e) override;
  void keyPressEvent(QKeyEvent* e) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  friend class Grid_Delegate;
  // Enter, Down, Up, Tab and Shift+Tab; true when the key was one of them.
  bool Move_Key(int key, Qt::KeyboardModifiers mods);

  Grid_Kind kind_;
  Grid_Delegate* delegate_;
  bool dragging_ = false;
};

class Frm_DirectData : public QDialog {
  Q_OBJECT

 public:
  // file_External: the problem file to show, or Msg(40) for a new problem of
  // nb_New elements. dir_Data: the folder the file dialogs start in (kept
  // through the dialogs; see Dir_Data()).
  Frm_DirectData(const std::string& file_External, const std::string& dir_Data, int nb_New,
                 QWidget* parent = nullptr);

  // The problem file after the window closed: a file name, Msg(40) while a new
  // problem has no file, Msg(81) after a failed read.
  const std::string& File_External() const { return file_External_; }
  // The dialog folder, as the user left it.
  const std::string& Dir_Data() const { return dir_Data_; }

  // The header fields and grids as they stand (editor texts included).
  DirectDataSheet Sheet() const;
  void Set_Sheet(const DirectDataSheet& s);

  // Texts of the loaded language (section FRM_DIRECTDATA and the menus it
  // copies from the main window).
  void Translate_Form();

  // The File commands and the closing rules, also for the tests.
  void Menu_File_Open();
  void Menu_File_Save();
  void Menu_File_SaveAs();
  void Menu_File_Quit();
  bool IsDataWrong();  // shows the box or selects the field
  bool Query_Unload();  // false when the closing is refused

  // The number of elements of a new problem: asks with Msg(47) "(50<N<300)"
  // and "50" as the starting answer, again while the answer is out of range.
  // False when the user gave no answer.
  static bool Ask_NewProblem(QWidget* parent, int& nb);

  // Replaceable for the tests: the file dialog (action 1 open, 2 save; the
  // full name chosen, or empty) and the exclamation box.
  std::function<std::string(int action, const std::string& proposed)> Choose_File;
  std::function<void(const std::string& text)> Show_Exclamation;

  QMenuBar* Menu_Bar = nullptr;
  QMenu* Menu_File = nullptr;
  QAction* Menu_File_OpenAct = nullptr;
  QAction* Menu_File_SaveAct = nullptr;
  QAction* Menu_File_SaveAsAct = nullptr;
  QAction* Menu_File_QuitAct = nullptr;
  QMenu* Menu_Edit = nullptr;
  QAction* Menu_Edit_Copy = nullptr;
  QAction* Menu_Edit_Paste = nullptr;
  QAction* Menu_Quid_Help = nullptr;

  QTabWidget* Tab_Data = nullptr;
  std::array<QGroupBox*, 7> Cdr_Trad{};
  std::array<QLabel*, 5> Lbl_Trad{};
  QLineEdit* Txt_NB = nullptr;
  QLineEdit* Txt_E = nullptr;
  QLineEdit* Txt_G = nullptr;
  QLineEdit* Txt_NF = nullptr;
  QLineEdit* Txt_NQ = nullptr;
  Data_Grid* Grd_Elements = nullptr;
  Data_Grid* Grd_Restraints = nullptr;
  Data_Grid* Grd_MV = nullptr;
  Data_Grid* Grd_SpanLoadsF = nullptr;
  Data_Grid* Grd_SpanLoadsQ = nullptr;
  Data_Grid* Grd_Axial = nullptr;  // tab 5: axial force and its constants
  QLabel* Lbl_SelectedMatrix = nullptr;

  bool NF_Changed = false;
  bool NQ_Changed = false;
  bool Data_Changed = false;

 signals:
  // The results on show in the main window no longer belong to the file
  // (InitProcessInfo, InitEffortsInfo).
  void Results_Cleared();
  // File_External changed (Open, Save As); the main window's title follows
  // on closing.
  void File_External_Changed(const QString& name);
  // F1 and the Help menu.
  void Help_Requested();

 public:
  void reject() override;  // closing by the title bar goes through Query_Unload

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void keyPressEvent(QKeyEvent* e) override;

 private:
  Data_Grid* Grid(Grid_Kind k) const;
  Data_Grid* Current_Grid() const;
  QLineEdit* Field(Header_Field f) const;
  void Select_Field(Header_Field f);
  bool Header_NotNumeric();  // the numeric tests of E, G, NF, NQ
  void Prepare(Grid_Kind k);
  void Prepare_Pending();
  void Tab_Changed(int t);
  void Set_Title();
  QString File_Text() const;
  void Commit_Editors();
  bool Save_To(const std::string& name);
  void Read_Failed(const std::string& name, const ReadOutcome& r);
  void Menu_Edit_Opening();
  void Centre_OnScreen();

  std::string file_External_;
  std::string dir_Data_;
  bool saveAs_Offered_ = false;
  int tab_Previous_ = 0;
  bool tab_Locked_ = false;
  Data_Grid* last_Grid_ = nullptr;
};

}  // namespace zarvek
