// The options window: language, start screen, data directory, solver
// controls and the fifteen display units, on three tabs.
//
// The window works on the beam model, where the options and units live. On
// opening (Prepare) it shows the model's choices and backs them up; Cancel
// puts the controls back and leaves the model untouched; OK applies what
// changed (Traiter_Options) to the model and tells the caller by signals.
// It is modal and only hides through its two buttons.
#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "foundation/Options.h"
#include "foundation/Startup.h"
#include "model/BeamModel.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTabWidget;
class QToolButton;

namespace zarvek {

class Frm_Options : public QDialog {
  Q_OBJECT

 public:
  // `state` gives App_Path, File_Ini, File_Tmp and the loaded language; a
  // change of language updates it. Both must outlive the window.
  Frm_Options(BeamModel& model, StartupState& state, QWidget* parent = nullptr);

  // What opening the window does: lists the languages, translates, shows
  // the model's choices and backs them up.
  void Prepare();
  // Prepare, centre over the parent and run modally. Returns the result of
  // exec (Accepted after OK).
  int Show_Modal();

  void BackUp_Options();
  void Restore_Options();
  // Applies what differs from the backup, in order: language, directory,
  // method, tolerance, then the units (Traiter_Units on the model).
  void Traiter_Options();

  void Cmd_OKOptions_Click();
  void Cmd_CancelOptions_Click();

  // The choices the controls show now, and the backup.
  OptionChoices Current_Choices() const;
  const OptionChoices& Backup() const { return backup_; }

  // Shown when the chosen language's file has gone or can't be read: the
  // program can't go on. By default a critical box, then the process ends;
  // tests replace it.
  std::function<void(const QString& title, const QString& text)> Fatal_Error;

  // ---- controls (objectName = the name) ----
  QTabWidget* Tab_Options = nullptr;
  QGroupBox *Cdr_Language = nullptr, *Cdr_SplashScreen = nullptr, *Cdr_Directory = nullptr,
            *Cdr_Process = nullptr, *Cdr_Units = nullptr;
  QComboBox* Lst_Language = nullptr;
  QComboBox* Lst_Duration = nullptr;
  QLabel* Lbl_Directory = nullptr;
  QToolButton* Cmd_Directory = nullptr;
  QRadioButton* Opt_Dichotomie = nullptr;
  QRadioButton* Opt_Eigen = nullptr;
  QLabel* Img_Hide = nullptr;
  QComboBox* Lst_Tolerance = nullptr;
  QComboBox* Lst_NbIter = nullptr;
  std::array<QLabel*, 3> Lbl_Trad{};
  std::array<QLabel*, Unit_Family_Count> Lbl_Unit{};
  // indexed by (int)UnitFamily: Lst_Unit_L, Lst_Unit_EG ...
  std::array<QComboBox*, Unit_Family_Count> Lst_Unit{};
  QPushButton* Cmd_OKOptions = nullptr;
  QPushButton* Cmd_CancelOptions = nullptr;

 signals:
  // The language was switched: Zarvek.INI rewritten, texts and messages
  // reloaded, this window and the other open windows of the program that
  // Translate_OpenWindows knows re-translated, the restraint lists of the
  // model that show "Free"/"Fixed" renamed, and Lbl_Method set. The caller
  // translates the main window.
  void languageChanged();
  // The solving method changed: the caller resets the shown process
  // (InitProcessInfo). Lbl_Method of the model holds the new caption.
  void methodChanged();
  // The unit lists changed. The model has been converted already
  // (Traiter_Units with these old indices: every shown number rewritten,
  // factors set); the caller refreshes its fields and diagrams from it.
  void unitsChanged(const zarvek::UnitIndices& oldIndices);
  // OK was pressed and everything above is done.
  void optionsApplied();

 public slots:
  void After_Translate();

 protected:
  void closeEvent(QCloseEvent* e) override;
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* e) override;

 private:
  void Build();
  void Load_Languages();
  void Show_Choices(const OptionChoices& c);
  void Choose_Directory();
  void Reveal_Eigen();

  BeamModel& model_;
  StartupState& state_;
  OptionChoices backup_;
  bool ctrlReleased_ = false;  // Img_Hide: Ctrl alone was held on release
};

}  // namespace zarvek
