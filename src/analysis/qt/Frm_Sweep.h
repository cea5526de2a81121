// Tools > Sweep: the critical moment of the project in the main window for a
// range of values of one of its fields, solved on every core, drawn as a
// curve, copied or saved as a table.
//
// The window works on a copy of the project taken when it opens; the main
// window's data and results are left as they are.
#pragma once

#include <QDialog>
#include <QTimer>
#include <atomic>
#include <future>
#include <string>
#include <vector>

#include "analysis/Sweep.h"
#include "model/BeamModel.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace zarvek {

class SurfaceWidget;

class Frm_Sweep : public QDialog {
  Q_OBJECT

 public:
  explicit Frm_Sweep(const BeamModel& project, QWidget* parent = nullptr);
  ~Frm_Sweep() override;

  // The table of the last sweep (empty before the first).
  std::string Csv() const;
  const std::vector<SweepPoint>& Points() const { return points_; }

  QComboBox* Cmb_Field = nullptr;
  QLineEdit* Txt_From = nullptr;
  QLineEdit* Txt_To = nullptr;
  QLineEdit* Txt_Step = nullptr;
  std::vector<QLabel*> Lbl_Unit;  // beside From, To and Step
  QPushButton* Cmd_Run = nullptr;
  QPushButton* Cmd_Stop = nullptr;
  QPushButton* Cmd_Copy = nullptr;
  QPushButton* Cmd_Save = nullptr;
  QPushButton* Cmd_Close = nullptr;
  QProgressBar* Prg_Sweep = nullptr;
  QLabel* Lbl_Message = nullptr;
  SurfaceWidget* Pic_Curve = nullptr;

 public slots:
  // Texts of the loaded language.
  void After_Translate();

 signals:
  // A sweep ended (every point done or the rest stopped).
  void finished_sweep();

 protected:
  void closeEvent(QCloseEvent* e) override;
  void reject() override;

 private:
  void Field_Changed();
  void Run();
  void Poll();
  void Draw();
  void Copy();
  void Save();
  void Update_Commands();
  std::string Field() const;
  // the label of the curve's horizontal axis: the field's caption and unit
  std::string Axis_Of(const std::string& field) const;

  BeamModel project_;
  std::vector<SweepPoint> points_;
  std::string field_;  // of the points shown
  std::future<std::vector<SweepPoint>> running_;
  std::atomic<int> done_{0};
  std::atomic<bool> stop_{false};
  int total_ = 0;
  QTimer poll_;
  std::vector<QLabel*> captions_;  // field, from, to, step
};

}  // namespace zarvek
