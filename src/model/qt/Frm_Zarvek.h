// The main window: the beam model on four pages, the solve, the file commands.
//
// The window holds the one BeamModel record of the program. Every field,
// list, check box and option of the record has a widget whose object name is
// the field's name in the field table (model/FieldTable.h); the binding goes
// both ways through that table: a user's edit writes the record and runs the
// field's change rule, and Refresh_FromModel writes the whole record back to
// the widgets. The rules themselves live in the core (DataEntry, Validation,
// Proceed, ProjectFile); this class only shows, selects and draws.
//
// Message boxes, questions and file dialogs go through replaceable hooks so
// that the behaviour can be driven without a person in front of the screen.
#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <QString>
#include <array>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "analysis/Calculer_Efforts.h"
#include "analysis/Proceed.h"
#include "diagrams/Diagrams.h"
#include "foundation/Startup.h"
#include "model/BeamModel.h"
#include "model/FieldTable.h"
#include "model/Validation.h"
#include "solver/Mod_StabMat.h"

class QAction;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;
class QTabBar;
class QTabWidget;
class QVBoxLayout;

namespace zarvek {

class Shape_Picture;
class Design_Frame;
class SurfaceWidget;

class Frm_Zarvek : public QMainWindow {
  Q_OBJECT

 public:
  explicit Frm_Zarvek(StartupState& s, QWidget* parent = nullptr);
  ~Frm_Zarvek() override;

  // The load of the window without the splash: translation, layout and
  // Initialisations (default file or built-in defaults, section slot 2,
  // first drawings). False when the default file can't be read: the program
  // is to end (the message was shown).
  bool Form_Load();

  // ---- the record and the document, for the other windows ---------------
  BeamModel& Model() { return m_; }
  const BeamModel& Model() const { return m_; }
  StartupState& State() { return s_; }             // Dir_Data, File_Default, ...
  EffortsData& Efforts() { return efforts_; }      // last internal forces
  const ProceedResult& Last_Run() const { return lastRun_; }
  const std::string& File_Current() const { return fileCurrent_; }
  void Set_FileCurrent(const std::string& name);   // and the title
  std::string File_External;                       // problem file of the file-data mode
  bool ExternalMode() const { return externalMode_; }

  // Writes the whole record to the widgets (after another window changed it:
  // options, units, catalogue, direct data), with the change rules silenced.
  void Refresh_FromModel();
  // Captions of the loaded language (after a change of language).
  void Translate_Form();
  // Redraws the diagrams of the page in view (after a change of options or units).
  void Redraw_Diagrams();
  // Enables the commands by the windows that are hooked in (see Windows).
  void Update_Commands();

  // The other windows of the program, hooked in by whoever builds them. A
  // command whose hook is empty stays disabled. Call Update_Commands after
  // setting them.
  struct Windows {
    std::function<bool()> Options;        // Menu_Tools_Options (modal): true on OK, when
                                          // Cmd_Dimensions follows; Cancel changes nothing
    std::function<void()> Calculator;     // Menu_Tools_Calculator
    std::function<void()> DirectData;     // Menu_Edit_FileData, file-data mode; also enables
                                          // Menu_Tools_External and Menu_File_New
    std::function<void()> Results;        // Menu_Edit_Results (modal)
    std::function<void()> Draw3D;         // Cmd_Draw3D (modal)
    std::function<void()> EditEigen;      // Cmd_EditEigen (modal)
    std::function<void()> MoreProperties; // Cmd_MoreProperties (modal)
    std::function<void()> Catalogue;      // Cmd_Catalogue
    std::function<void()> Help;           // Menu_Quid_Help, F1: help of the page in view
    std::function<void()> About;          // Menu_Quid_About
    std::function<void()> NewProblem;     // Menu_File_New: a new problem of the file-data mode
    std::function<void(int)> HelpImage;   // Cmd_Help(1..6): the help picture of that index
  } Hooks;

  // Boxes and dialogs; replaced by tests. Message: text, title.
  std::function<void(const QString& text, const QString& title)> Message_Box;
  // The same with an exclamation icon: a project that can't be read.
  std::function<void(const QString& text, const QString& title)> Warning_Box;
  // OK/Cancel question with a question icon: true for OK.
  std::function<bool(const QString& text)> Confirm_Box;
  // A file name chosen by the user (action 1 open, 2 save), empty when cancelled.
  std::function<QString(int action, const QString& ext, const QString& offered)> Choose_File;
  // Beep at the end of a solve.
  std::function<void()> Beep;

  // ---- commands -----------------------------------------------------------
  void Cmd_Proceed_Click();
  void Cmd_StopProcess_Click();
  bool Is_Solving() const { return solving_; }
  // Least time between two services of the window during a solve.
  int Progress_Interval_ms = 40;
  void Menu_File_Open();
  void Menu_File_Save();
  void Menu_File_SaveAs();
  void Menu_File_SaveAsDefault();
  void Menu_Tools_External_Click();
  void Menu_Tools_FullScreen_Click();
  void Cmd_Dimensions_Click();
  void Tab_Zarvek_Change(int page);
  void Tab_Dim_Change(int shape);
  // Reads a project into the window (Open without the dialog).
  bool Open_Project(const std::string& name);
  // Validation with its message shown and its field brought to the user.
  bool Check_Data();
  // Show_Message: a box with the text, titled with the program name, or with
  // the status and the program name.
  void Show_Message(const std::string& text, int status = 0);

  // The widget of a field of the table, by the field's name.
  QWidget* Field_Widget(const std::string& name) const;

  // ---- widgets the other windows and tests reach -------------------------
  QTabWidget* Tab_Zarvek = nullptr;
  QTabWidget* Tab_Section = nullptr;
  QTabBar* Tab_Dim = nullptr;
  std::array<QGroupBox*, 22> Cdr_Trad{};
  std::array<QLabel*, 12> Lbl_Trad{};
  // The help buttons of the frames, 1..6 (0 unused): each shows a picture.
  std::array<QPushButton*, 7> Cmd_Help{};
  QPushButton* Cmd_Proceed = nullptr;
  QPushButton* Cmd_StopProcess = nullptr;
  QPushButton* Cmd_Dimensions = nullptr;
  QPushButton* Cmd_Catalogue = nullptr;
  QPushButton* Cmd_MoreProperties = nullptr;
  QPushButton* Cmd_RefreshForces = nullptr;
  QPushButton* Cmd_RefreshMV = nullptr;
  QPushButton* Cmd_RefreshEigen = nullptr;
  QPushButton* Cmd_Draw3D = nullptr;
  QPushButton* Cmd_EditEigen = nullptr;
  QLabel* Lbl_Method = nullptr;
  QLabel* Lbl_Tolerance = nullptr;
  SurfaceWidget* Img_Section = nullptr;
  SurfaceWidget* Img_Loads = nullptr;
  SurfaceWidget* Img_Forces = nullptr;
  SurfaceWidget* Img_Eigenmode = nullptr;
  QLabel* Lbl_Display_InfoMV = nullptr;     // read-out over Img_Forces
  QLabel* Lbl_Display_InfoEigen = nullptr;  // read-out over Img_Eigenmode
  DiagramState& Diagrams() { return st_; }

  QMenu* Menu_File = nullptr;
  QMenu* Menu_Edit = nullptr;
  QMenu* Menu_Tools = nullptr;
  QMenu* Menu_Quid = nullptr;
  QAction* Menu_File_New = nullptr;
  QAction* Menu_File_Open_Action = nullptr;
  QAction* Menu_File_Save_Action = nullptr;
  QAction* Menu_File_SaveAs_Action = nullptr;
  QAction* Menu_File_SaveAsDefault_Action = nullptr;
  QAction* Menu_File_Separator = nullptr;
  QAction* Menu_File_Quit = nullptr;
  QAction* Menu_Edit_FileData = nullptr;
  QAction* Menu_Edit_Results = nullptr;
  QAction* Menu_Tools_External = nullptr;
  QAction* Menu_Tools_Calculator = nullptr;
  QAction* Menu_Tools_FullScreen = nullptr;
  QAction* Menu_Tools_Options = nullptr;
  QAction* Menu_Tools_Separator = nullptr;
  QAction* Menu_Quid_Help = nullptr;
  QAction* Menu_Quid_About = nullptr;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Binding {
    const FieldDef* def = nullptr;
    QWidget* widget = nullptr;
    QLabel* unit = nullptr;  // unit label, if any
  };

  // construction
  void Build_Menus();
  void Place_HelpButtons();
  QWidget* Build_Page_Beam();
  QWidget* Build_Page_Restraints();
  QLabel* Heading(QLabel* own, int caption, QWidget* parent);
  QWidget* Build_Page_Loads();
  QWidget* Build_Page_Results();
  // the design check: its inputs on the beam page, its frame of results
  QGroupBox* Build_Design_Inputs();
  void Translate_Design();
  Design_Frame* designFrame_ = nullptr;
  QGroupBox* designInputs_ = nullptr;
  QLabel* designLabels_[4] = {};
  QGroupBox* Frame(int index);
  QLineEdit* Edit(const char* name);
  QComboBox* Restraint(const char* name);
  QCheckBox* Check(const char* name, const QString& caption = QString());
  QRadioButton* Option(const char* name, const QString& caption = QString());
  QLabel* Unit_Label(const char* name);
  Binding& Bind(const char* name, QWidget* w);
  const Binding* Binding_Of(const QObject* w) const;

  // data entry
  void Field_Edited(const Binding& b);
  void Option_Clicked(const Binding& b);
  void Restraint_Chosen(const Binding& b, int item);
  void Apply_Effects(const struct ChangeEffects& e, const std::string& field);
  void Push_Field(const Binding& b);
  void Update_Locks();
  void Update_Dim_Labels();
  void Update_Route_Picture();
  void Update_NoRestraint();
  void Update_UnitLabels();
  void Select_Field(int tab, const std::string& field);
  void Show_Shown(const std::vector<std::string>& shown);
  void Refresh_LoadsDiagrams();
  void InitProcessInfo_Window();
  void InitEffortsInfo_Window();

  // drawings
  void Draw_Section();
  void Tracer_Loads();
  void Tracer_Efforts();
  void Tracer_VecteurPropre();
  void Cmd_RefreshMV_Click();
  void Forces_Check_Click();
  void Move_ForcesFrame(int page);
  void Erase(SurfaceWidget* w);
  void Take_CurveColours();
  void Forces_MouseMove(double x, double y);
  void Eigen_MouseMove(double x, double y);

  // solve
  void Show_Status(const std::string& text);
  void Show_Progress(int iteration, double value);
  void Show_EigenBox(const std::string& text);

  void Set_Title();
  std::string Problem_Path() const;

  StartupState& s_;
  BeamModel m_;
  EffortsData efforts_;
  DiagramState st_;
  ProceedResult lastRun_;
  SolveControl ctl_;
  QElapsedTimer progressClock_;
  std::string fileCurrent_;
  QString dialogDir_;
  QString lastName_;
  bool externalMode_ = false;
  bool loading_ = true;     // Is_MainLoading
  bool solving_ = false;
  bool noForces_ = false;   // no diagrams after a failed run in file-data mode
  bool reportStale_ = true; // the report is to be built anew
  int helpContext_ = 140;

  std::vector<Binding> bindings_;
  std::map<std::string, size_t> byName_;
  std::map<const QObject*, size_t> byWidget_;
  std::map<std::string, QLabel*> dimLabels_;
  std::vector<std::pair<QLabel*, int>> headingCopies_;  // label, index of Lbl_Trad it copies
  std::map<std::string, QLabel*> pendingUnits_;
  QGroupBox* forcesFrame_ = nullptr;   // Cdr_Trad(17)
  QVBoxLayout* forcesHome2_ = nullptr; // inside Cdr_Trad(10)
  QVBoxLayout* forcesHome3_ = nullptr; // inside Cdr_Trad(18)
  Shape_Picture* shapePicture_ = nullptr;
};

}  // namespace zarvek
