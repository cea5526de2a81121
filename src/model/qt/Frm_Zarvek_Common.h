// Helpers shared by the files of the main window: the texts of its
// language section and the look of its fields.
#pragma once

#include <QApplication>
#include <QColor>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>
#include <QString>
#include <string>

#include "foundation/Language.h"

namespace zarvek {
namespace frm_zarvek {

// Language texts and the record's texts are single-byte Windows-1252.
inline QString Lang(const std::string& text) { return QString::fromStdString(Cp1252_To_Utf8(text)); }
// Typed text back to the record: the key filters let only ASCII through.
inline std::string Plain(const QString& text) { return text.toLatin1().toStdString(); }

const QColor Grey_Field(224, 224, 224);

inline void Set_Locked(QLineEdit* e, bool locked) {
  e->setReadOnly(locked);
  e->setFocusPolicy(locked ? Qt::NoFocus : Qt::StrongFocus);
  QPalette p = e->palette();
  p.setColor(QPalette::Base, locked ? Grey_Field : QApplication::palette().color(QPalette::Base));
  e->setPalette(p);
}

inline QLabel* Symbol(const QString& text, QWidget* parent) {
  auto* l = new QLabel(text, parent);
  l->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  return l;
}

// Captions of the window section of the language file, by their line.
enum Line : int {
  L_Caption = 1,
  L_Menu_File = 2, L_Menu_File_New, L_Menu_File_Open, L_Menu_File_Save, L_Menu_File_SaveAs,
  L_Menu_File_SaveAsDefault, L_Menu_File_Quit, L_Menu_Edit, L_Menu_Edit_FileData,
  L_Menu_Edit_Results, L_Menu_Tools, L_Menu_Tools_External, L_Menu_Tools_Calculator,
  L_Menu_Tools_FullScreen, L_Menu_Tools_Options, L_Menu_Quid_Help, L_Menu_Quid_About,
  L_Tab0 = 19,
  L_Lbl_Trad0 = 23,
  L_Cdr_Trad0 = 35,
  L_Opt_Catalogue = 57, L_Opt_Dimensions, L_Opt_Properties, L_Cmd_Catalogue,
  L_Cmd_MoreProperties, L_Cmd_RefreshForces, L_Cmd_Proceed, L_Cmd_StopProcess, L_Cmd_Draw3D
};

constexpr int Section_Main = 1;
inline QString Caption(int line) { return Lang(Section_Line(Section_Main, line)); }

const int Help_Context[4] = {140, 210, 250, 340};

}  // namespace frm_zarvek
}  // namespace zarvek
