// The catalogue window: pick a series and a section of SECTION.DB, see its
// properties, and hand it to the beam model.
#pragma once

#include <QDialog>
#include <array>
#include <string>
#include <vector>

#include "model/BeamModel.h"
#include "section/Catalogue.h"
#include "section/Mod_Section.h"

class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace zarvek {

class Frm_Section : public QDialog {
  Q_OBJECT

 public:
  // `File_Section` is the catalogue file (StartupState::File_Section).
  Frm_Section(BeamModel& model, std::string File_Section, QWidget* parent = nullptr);

  // What opening does: translate, take the current series and number from
  // the model's Lbl_SelectedProfile, fill the lists and select them. A
  // missing or damaged catalogue shows a message and leaves the lists empty.
  void Form_Load();
  // Form_Load, centre over the parent, run modally. Accepted after a
  // transfer.
  int Show_Modal();

  void Load_SectionsSeries();
  void Load_SerieNumbers();
  // Cmd_Transfert: the chosen section into the model, then the window
  // closes.
  void Transfer_Section();

  // The properties of the selection and their text (the shared buffer that
  // the report can take).
  const SectionI& Selected() const { return result_; }
  const std::string& Section_Text() const { return text_; }

  QListWidget* Lst_SectionSerie = nullptr;
  QListWidget* Lst_SectionNumber = nullptr;
  std::array<QLabel*, 2> Lbl_Trad{};
  QLabel* Lbl_SectionLabel = nullptr;
  QPlainTextEdit* Txt_SectionProperties = nullptr;
  QPushButton* Cmd_Transfert = nullptr;
  QPushButton* Cmd_Quitter = nullptr;

 signals:
  // The model now holds the chosen section (Lbl_SelectedProfile, Cat_h ...,
  // slot 1 of Txt_Iz, Txt_It, Txt_Iw, Txt_Betaz): the caller shows these
  // fields again and redraws the section.
  void sectionTransferred();

 private:
  void Number_Selected(int row);
  void Catalogue_Failure();

  BeamModel& model_;
  std::string file_;
  std::string series_, number_;  // current selection when the window opened
  std::vector<SectionRecord> sections_;
  SectionI result_;
  std::string text_;
  bool failed_ = false;  // the failure was already told
};

}  // namespace zarvek
