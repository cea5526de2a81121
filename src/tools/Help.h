// The program's help: a set of HTML pages per language, in the "help"
// folder of the start directory ("help/UK/beam.html", "help/FR/beam.html").
//
// A window asks for help by a context number. The four pages of the main
// window have 140, 210, 250 and 340; every dialog has its own number. Each
// number leads to one page, and a page that a language lacks is taken from
// the English set.
#pragma once

#include <string>
#include <vector>

namespace zarvek {

enum Help_Context : int {
  Help_Contents = 0,
  Help_Beam = 140,         // page 0 of the main window: beam, section, steel
  Help_Restraints = 210,   // page 1
  Help_Loads = 250,        // page 2
  Help_Results = 340,      // page 3
  Help_Options = 400,      // Frm_Options
  Help_Section = 410,      // Frm_Section
  Help_Properties = 420,   // Frm_Properties
  Help_About = 430,        // Frm_About and the start screen
  Help_Report = 440,       // Frm_Edit
  Help_EigenVector = 450,  // Frm_EigenVector
  Help_EigenVector3D = 460,
  Help_DirectData = 470,   // Frm_DirectData
  Help_Calculator = 480,   // MiniCalculette
  Help_Batch = 490,        // Frm_DirectSolve and zarvek-cli
  Help_Pictures = 500,     // Frm_Help
};

// Context of a page of the main window's tab strip (0 beam, 1 restraints,
// 2 loads, 3 results): 140, 210, 250, 340; the contents for any other.
int Help_ContextOfPage(int page);

// Page of a context ("beam.html"); the contents page for an unknown number.
std::string Help_PageName(int context);

// Every page of the help set, contents first.
const std::vector<std::string>& Help_Pages();

// Folder of the pages of a language: App_Path + "help/" + code, or the
// English folder when the language has no contents page.
std::string Help_Directory(const std::string& App_Path, const std::string& code);

// Full name of the page of a context in a language, falling back page by
// page to English. Empty when neither exists.
std::string Help_PagePath(const std::string& App_Path, const std::string& code, int context);

// Context of the help pictures shown by the help buttons Cmd_Help(1..6) of
// the main window: the page that explains what the picture shows.
int Help_PictureContext(int index);

// Number of help pictures.
constexpr int Help_PictureCount = 6;

}  // namespace zarvek
