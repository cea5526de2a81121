// The results report window: the report shown as a page of text, with Save
// As (rich text), Export PDF, Print and Copy.
//
// The report is built from the record when the window is shown, and built
// again only when something it shows has changed since (data, options,
// results, language); a second opening after no change shows the same text at
// once. Pnl_WaitEdit covers the text while the report is built.
#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "model/BeamModel.h"
#include "report/Report.h"
#include "report/RichText.h"

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QTextEdit;

namespace zarvek {

class Frm_Edit : public QDialog {
  Q_OBJECT
 public:
  struct Context {
    std::string Language_Code = "UK";  // date format of the header
    std::string Dir_Data;              // where the file dialogs start
    bool ExternalMode = false;
  };

  // The window reads `m` whenever it is shown; it keeps no copy of the data.
  // It takes the size of `parent` (the main window) when there is one.
  Frm_Edit(BeamModel& m, Context ctx, QWidget* parent = nullptr);

  void Set_Context(const Context& ctx) { ctx_ = ctx; }
  // The pictures of the report; by default the diagrams drawn by
  // Qt_ReportPictures.
  void Set_PictureSource(std::function<Report_PictureSource(const BeamModel&)> source);

  // Builds the report when the data changed since the last build (or when
  // `force`); otherwise leaves the text as it is. True when it was built.
  bool Refresh_Report(bool force = false);
  // True when the data differ from those of the text shown.
  bool Needs_Rebuild() const;
  int Build_Count() const { return builds_; }
  const Rich_Document& Document() const { return doc_; }
  QTextEdit* RichTextBox() const { return RichTextBox_; }

  // The commands without their dialogs. False with a reason in `error`.
  bool Save_Rtf(const QString& path, QString* error = nullptr) const;
  bool Save_Pdf(const QString& path, QString* error = nullptr) const;

 signals:
  // Menu_Quid_Help: the program's help, which the main window owns.
  void helpRequested();

 public slots:
  void Menu_File_SaveAs();
  void Menu_File_ExportPdf();
  void Menu_File_Print();
  void Menu_Edit_Copy();

 protected:
  void showEvent(QShowEvent* e) override;
  void resizeEvent(QResizeEvent* e) override;

 private:
  std::string Fingerprint() const;
  void Translate_Form();

  BeamModel& m_;
  Context ctx_;
  std::function<Report_PictureSource(const BeamModel&)> pictures_;
  Rich_Document doc_;
  std::string built_for_;
  int builds_ = 0;

  QTextEdit* RichTextBox_ = nullptr;
  QLabel* Pnl_WaitEdit_ = nullptr;
  QPushButton* Cmd_OK_ = nullptr;
  QMenu *Menu_File_ = nullptr, *Menu_Edit_ = nullptr, *Menu_Quid_ = nullptr;
  QAction *Menu_File_SaveAs_ = nullptr, *Menu_File_ExportPdf_ = nullptr, *Menu_File_Print_ = nullptr,
          *Menu_File_Quit_ = nullptr, *Menu_Edit_Copy_ = nullptr, *Menu_Quid_Help_ = nullptr;
};

}  // namespace zarvek
