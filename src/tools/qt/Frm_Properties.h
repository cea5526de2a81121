// Further properties of the section given by its dimensions: nine rows of
// caption, symbol, value and unit.
#pragma once

#include <QDialog>
#include <array>

#include "section/Mod_Section.h"

class QGroupBox;
class QLabel;
class QPushButton;

namespace zarvek {

class Frm_Properties : public QDialog {
  Q_OBJECT

 public:
  static constexpr int Row_Count = 9;

  // `props`: the constants of the last confirmed dimensions
  // (BeamModel::Section_Props), internal units.
  explicit Frm_Properties(const SectionProps& props, QWidget* parent = nullptr);

  // Translate, centre over the parent, run modally.
  int Show_Modal();

  // Value of row i in cm powers, and its text.
  static double Row_Value(const SectionProps& p, int i);

  QGroupBox* Cdr_Properties = nullptr;
  std::array<QLabel*, Row_Count> Lbl_Trad{};
  std::array<QLabel*, Row_Count> Lbl_Symbol{};
  std::array<QLabel*, Row_Count> Lbl_Value{};
  std::array<QLabel*, Row_Count> Lbl_Unit{};
  QPushButton* Cmd_OK = nullptr;

 public slots:
  void After_Translate();
};

}  // namespace zarvek
