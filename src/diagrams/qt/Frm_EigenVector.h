// The buckling mode as a table: one line a node, with the abscissa, the
// lateral displacement v, the twist theta and their derivatives v' and
// theta'. Cells can be selected and copied as a block that a spreadsheet
// pastes into cells, and the whole table saved as CSV.
//
// The cell that holds the normalising value of the mode (1 or -1) is tinted,
// so that the engineer sees at once which component the mode is scaled on.
#pragma once

#include <QDialog>
#include <string>

#include "model/BeamModel.h"

class QAction;
class QGroupBox;
class QMenu;
class QPushButton;
class QTableWidget;

namespace zarvek {

class Frm_EigenVector : public QDialog {
  Q_OBJECT
 public:
  // The window reads the mode and the beam length of `m` when it is made and
  // whenever PrepareAndFill_GrdEigen runs. In external mode the element
  // lengths are not known to the window: the column of x is hidden.
  Frm_EigenVector(const BeamModel& m, bool ExternalMode = false, QWidget* parent = nullptr);

  // Fills Grd_Eigen from scratch: one row a node (node i in row i - 1), the
  // columns N°, x (cm), v (cm), theta (rd), v' (rd), theta' (rd/cm) under a
  // two-line heading.
  void PrepareAndFill_GrdEigen();

  QTableWidget* Grd_Eigen() const { return Grd_Eigen_; }
  // Where the file dialog of Save as CSV starts (Dir_Data).
  void Set_DataDir(const std::string& dir) { dir_ = dir; }

  // ---- the rules of the cells -------------------------------------------
  // A mode value: "0" when its magnitude (single precision) is below 1e-20,
  // otherwise "0.0000E+00" with the decimal separator of the locale.
  static std::string Mode_Text(float value);
  // The normalising value: |1 - |value|| < 2e-5 (value not below 1e-20).
  static bool Mode_Tinted(float value);
  // Abscissa of node i of n on a beam of L cm: (i - 1) L / (n - 1) + 0.001,
  // "0.0" (the added thousandth settles exact halves upward).
  static std::string X_Text(int i, int n, double L);
  // Background of the tinted cell, 0xBBGGRR.
  static constexpr unsigned Tint_Colour = 0xFFFFC0;

  // The selected block as text: the cells of a row joined by tabs, every row
  // ended by CR LF. Empty without a selection.
  QString Selection_Text() const;
  // The whole table as CSV: a heading line, then one line a node, in UTF-8.
  // The separator is "," where the decimal separator is ".", otherwise ";".
  QString Csv_Text() const;
  bool Save_Csv(const QString& path, QString* error = nullptr) const;

 signals:
  void helpRequested();

 public slots:
  void Menu_Edit_Copy();
  void Menu_File_SaveCsv();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Translate_Form();

  const BeamModel& m_;
  bool external_ = false;
  std::string dir_;
  QTableWidget* Grd_Eigen_ = nullptr;
  QGroupBox* Cdr_Trad_ = nullptr;
  QPushButton* Cmd_OK_ = nullptr;
  QMenu *Menu_File_ = nullptr, *Menu_Edit_ = nullptr, *Menu_Quid_ = nullptr;
  QAction *Menu_File_SaveCsv_ = nullptr, *Menu_File_Quit_ = nullptr, *Menu_Edit_Copy_ = nullptr,
          *Menu_Quid_Help_ = nullptr;
};

}  // namespace zarvek
