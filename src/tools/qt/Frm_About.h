// The about box: title, version, description, author and the disclaimer,
// with a button that opens the desktop's system information tool.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

namespace zarvek {

class Frm_About : public QDialog {
  Q_OBJECT

 public:
  explicit Frm_About(QWidget* parent = nullptr);

  // Translate, centre over the parent, run modally.
  int Show_Modal();

  // Starts the system information tool; Msg(74) when it can't be started.
  void Cmd_SysInfo_Click();

  QLabel* Img_Logo = nullptr;
  QLabel* Lbl_Title = nullptr;
  QLabel* Lbl_Version = nullptr;
  QLabel* Lbl_Description = nullptr;
  QLabel* Lbl_Auteur = nullptr;
  QLabel* Lbl_Disclaimer = nullptr;
  QLabel* Lbl_Soutien = nullptr;
  QPushButton* Cmd_OK = nullptr;
  // Hidden when no system information tool is installed.
  QPushButton* Cmd_SysInfo = nullptr;

  // The author's name that follows the caption of Lbl_Auteur.
  static const char* Author_Name();

 public slots:
  void After_Translate();
};

// The picture of the program: a rolled I section with its buckled twin.
QPixmap Program_Logo(int size, qreal dpr);

}  // namespace zarvek
