// The 3D window: the turning wire model of the buckled beam.
//
// A modal window with the picture Img_Plot3D and, at its right, the bar of
// controls Cdr_Effects. Every scroll bar acts by the direction of its change,
// one step a change, not by its position: ratio, zoom, rotations about the
// view axes X, Y, Z and about the beam's own axis, pan. The buttons beside
// them go back to the start. A left drag on the picture turns the model by
// the zone where the mouse is, a right drag moves it.
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "model/BeamModel.h"
#include "view3d/TriD.h"

class QScrollBar;
class QPushButton;
class QRadioButton;
class QGroupBox;
class QLabel;
class QImage;
class QMenuBar;
class QPrinter;

namespace zarvek {

class SurfaceWidget;

class Frm_EigenVector3D : public QDialog {
  Q_OBJECT
 public:
  // Reads the beam, its section and its mode from the record (which must hold
  // a mode: Mode_Max > 0). In external mode the section is unknown and the
  // window shows nothing.
  explicit Frm_EigenVector3D(BeamModel& m, bool externalMode = false, QWidget* parent = nullptr);

  TriD_Scene& Scene() { return t_; }
  Surface& Plot();
  SurfaceWidget* Img_Plot3D() { return plot_; }
  // The picture as it stands.
  QImage Picture() const;

  // Menu commands.
  void Menu_Edit_Copy();
  void Menu_File_Print();
  // The page of Menu_File_Print on a printer already set up: the model at
  // the page's width in the picture's proportions, at its first scale (the
  // pan is not printed).
  bool Print_Page(QPrinter& printer);
  // Writes the picture to a PNG or SVG file, by its extension (false when
  // the file can't be written or the extension is neither).
  bool Save_Picture(const QString& path);

  // Asked by Menu_Quid_Help; without it the F1 key goes to the parent window.
  std::function<void()> Help_Requested;

 private:
  enum Bar { Bar_RapDep, Bar_Zoom, Bar_RotX, Bar_RotY, Bar_RotZ, Bar_RotLocX, Bar_X, Bar_Z, Bar_Count };
  void Build_Controls();
  QMenuBar* menuBar() const;
  void Translate();
  void Scroll_Change(int bar, int value);
  void Button_Click(int bar);
  void Plot_Resized();
  void Mouse_Down(double x, double y, int button);
  void Mouse_Move(double x, double y);
  void Mouse_Up();
  void Show_Cursor();
  void Menu_File_SaveAs();
  void Menu_Quid_Help();

  BeamModel& m_;
  bool loaded_ = false;
  float L_ = 0;
  TriD_Scene t_;
  SurfaceWidget* plot_ = nullptr;
  QGroupBox* effects_ = nullptr;
  QLabel* axes_ = nullptr;
  std::array<QScrollBar*, Bar_Count> bars_{};
  std::array<int, Bar_Count> last_{};  // remembered positions
  QRadioButton* optAll_ = nullptr;
  QRadioButton* optLight_ = nullptr;
  TriD_Cursor shownCursor_ = TriD_Cursor::Default;
};

// The click of Cmd_Draw3D of the main window: ignored in external mode;
// without a mode (Mode_Max not above 0) Msg(14) is printed in black on the
// mode picture `eigenmode`, a quarter across and half down; otherwise the 3D
// window opens, modal. Returns true when the window was shown.
bool Cmd_Draw3D_Click(QWidget* parent, BeamModel& m, Surface& eigenmode, bool externalMode);

}  // namespace zarvek
