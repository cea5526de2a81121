// A small calculator that stays above the other windows: two operands, five
// operations, a keypad, and a Transfer button that chains a calculation by
// carrying the result over to X. It knows nothing of the beam: values go to
// the data fields through the clipboard of the fields.
//
//   auto* calc = new MiniCalculette(mainWindow);   // once, kept
//   calc->show(); calc->raise();                   // Menu_Tools_Calculator
//   connect(calc, &MiniCalculette::Transferred, ...);  // optional
#pragma once

#include <QWidget>
#include <array>

class QLineEdit;
class QPushButton;

namespace zarvek {

class MiniCalculette : public QWidget {
  Q_OBJECT

 public:
  explicit MiniCalculette(QWidget* parent = nullptr);

  QLineEdit* Txt_X = nullptr;
  QLineEdit* Txt_Y = nullptr;
  QLineEdit* Txt_Result = nullptr;
  std::array<QPushButton*, 5> Cmd_Operation{};
  std::array<QPushButton*, 12> Cmd_Touche{};
  QPushButton* Cmd_Egal = nullptr;
  QPushButton* Cmd_Transfer = nullptr;

  int Operation() const { return operation_; }
  // "X" or "Y": the field the keypad types into.
  QString Active_Field() const { return activeY_ ? "Y" : "X"; }

  void Cmd_Operation_Click(int i);
  void Cmd_Touche_Click(int i);
  void Cmd_Egal_Click();
  void Cmd_Transfer_Click();

 signals:
  // The result carried over to X by Transfer.
  void Transferred(const QString& text);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void showEvent(QShowEvent* e) override;

 private:
  QLineEdit* Active() const { return activeY_ ? Txt_Y : Txt_X; }
  // A key typed into X or Y, after the calculator's key rules.
  void Type_Key(QLineEdit* field, int key);
  void Set_Red(QLineEdit* field, bool red);

  int operation_ = 0;
  bool activeY_ = false;
};

}  // namespace zarvek
