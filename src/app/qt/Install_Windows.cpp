#include "app/qt/Install_Windows.h"

#include <QPointer>
#include <QTabWidget>

#include "diagrams/qt/Frm_EigenVector.h"
#include "directdata/qt/Frm_DirectData.h"
#include "foundation/Language.h"
#include "foundation/qt/Frm_Options.h"
#include "foundation/qt/Translate_Form.h"
#include "model/DataEntry.h"
#include "model/qt/Frm_Zarvek.h"
#include "report/qt/Frm_Edit.h"
#include "section/qt/Frm_Section.h"
#include "tools/Help.h"
#include "tools/qt/Frm_About.h"
#include "tools/qt/Frm_Help.h"
#include "tools/qt/Frm_Properties.h"
#include "tools/qt/MiniCalculette.h"
#include "view3d/qt/Frm_EigenVector3D.h"

namespace zarvek {

namespace {

// Help of the page in front of the main window.
void Help_OfPage(Frm_Zarvek& f) {
  const int page = f.Tab_Zarvek ? f.Tab_Zarvek->currentIndex() : 0;
  Show_Help(Help_ContextOfPage(page), &f);
}

// The file-data editor on the problem file of the main window. `nbNew` is the
// element count of a new problem (File_External = Msg(40)).
void Open_DirectData(Frm_Zarvek& f, int nbNew) {
  Frm_DirectData w(f.File_External, f.State().Dir_Data, nbNew, &f);
  QObject::connect(&w, &Frm_DirectData::Results_Cleared, &f, [&f] {
    InitProcessInfo(f.Model());
    InitEffortsInfo(f.Model());
    f.Refresh_FromModel();
  });
  QObject::connect(&w, &Frm_DirectData::Help_Requested, &f,
                   [&w] { Show_Help(Help_DirectData, &w); });
  w.exec();
  f.File_External = w.File_External();
  f.State().Dir_Data = w.Dir_Data();
  f.Set_FileCurrent(f.File_External);
  f.Update_Commands();
}

}  // namespace

void Install_Windows(Frm_Zarvek& f) {
  Help_Attach(f.State());

  // Options: kept loaded, its controls are the live store of the choices.
  f.Hooks.Options = [&f] {
    static QPointer<Frm_Options> options;
    if (!options) {
      options = new Frm_Options(f.Model(), f.State(), &f);
      QObject::connect(options, &Frm_Options::languageChanged, &f, [&f] {
        f.Translate_Form();
        Translate_OpenWindows();
        f.Refresh_FromModel();
        f.Redraw_Diagrams();
      });
      QObject::connect(options, &Frm_Options::methodChanged, &f, [&f] {
        InitProcessInfo(f.Model());
        f.Refresh_FromModel();
      });
      // the window has already converted the shown values of the record
      QObject::connect(options, &Frm_Options::unitsChanged, &f, [&f](const UnitIndices&) {
        f.Refresh_FromModel();
        f.Redraw_Diagrams();
      });
      QObject::connect(options, &Frm_Options::optionsApplied, &f, [&f] { f.Refresh_FromModel(); });
    }
    return options->Show_Modal() == QDialog::Accepted;
  };

  f.Hooks.Catalogue = [&f] {
    Frm_Section w(f.Model(), f.State().File_Section, &f);
    QObject::connect(&w, &Frm_Section::sectionTransferred, &f, [&f] {
      f.Refresh_FromModel();
      f.Redraw_Diagrams();
    });
    w.Show_Modal();
  };

  f.Hooks.MoreProperties = [&f] {
    Frm_Properties w(f.Model().Section_Props, &f);
    w.Show_Modal();
  };

  f.Hooks.About = [&f] {
    Frm_About w(&f);
    w.Show_Modal();
  };

  f.Hooks.Help = [&f] { Help_OfPage(f); };

  f.Hooks.Calculator = [&f] {
    static QPointer<MiniCalculette> calc;
    if (!calc) calc = new MiniCalculette(&f);
    calc->show();
    calc->raise();
    calc->activateWindow();
  };

  // The report stays loaded: it is built anew only when the data changed.
  f.Hooks.Results = [&f] {
    static QPointer<Frm_Edit> edit;
    const Frm_Edit::Context ctx{f.State().Language_Code, f.State().Dir_Data, f.ExternalMode()};
    if (!edit) {
      edit = new Frm_Edit(f.Model(), ctx, &f);
      QObject::connect(edit, &Frm_Edit::helpRequested, &f,
                       [] { Show_Help(Help_Report, edit); });
    }
    edit->Set_Context(ctx);
    edit->exec();
  };

  f.Hooks.EditEigen = [&f] {
    Frm_EigenVector w(f.Model(), f.ExternalMode(), &f);
    w.Set_DataDir(f.State().Dir_Data);
    QObject::connect(&w, &Frm_EigenVector::helpRequested, &f,
                     [&w] { Show_Help(Help_EigenVector, &w); });
    w.exec();
  };

  f.Hooks.Draw3D = [&f] {
    Frm_EigenVector3D w(f.Model(), false, &f);
    w.Help_Requested = [&w] { Show_Help(Help_EigenVector3D, &w); };
    w.exec();
  };

  // The file-data mode: Menu_Edit_FileData and Open in that mode show the
  // problem file; New asks for the element count of a new one first.
  f.Hooks.DirectData = [&f] { Open_DirectData(f, 50); };
  f.Hooks.NewProblem = [&f] {
    int nb = 50;
    if (!Frm_DirectData::Ask_NewProblem(&f, nb)) return;
    f.File_External = Msg(40);
    InitProcessInfo(f.Model());
    InitEffortsInfo(f.Model());
    f.Refresh_FromModel();
    Open_DirectData(f, nb);
  };

  f.Hooks.HelpImage = [&f](int index) { Affiche_HelpImage(index, &f); };
  // a help picture tells of the page it was asked from: another page hides it
  QObject::connect(f.Tab_Zarvek, &QTabWidget::currentChanged, &f, [] {
    if (Frm_Help* picture = Help_PictureWindow()) picture->hide();
  });

  f.Update_Commands();
}

}  // namespace zarvek
