// Project file (".DAT") and default file (".DFT").
//
// The file holds the whole beam model, the options and units in force and the
// last results with the mode shape, so that a study comes back as it was
// left without a new solve. Position alone gives a line its meaning: there
// is no version line and no key. Number texts are stored as the user typed
// them, in the unit named by the unit lines at the top of the same file, with
// a point as decimal separator; nothing is converted on saving or loading.
//
// A few lines are not treated alike by the writer and the reader (the data
// directory is read as a comma-separated item; Txt_zend1, Txt_zint_c,
// Lbl_Iteration and Lbl_Comment are written with the writer's separator; the
// display choice of the shear diagram is not kept). Files in the field depend
// on these habits, so they stay.
#pragma once

#include <string>
#include <vector>

#include "model/BeamModel.h"

namespace zarvek {

struct FileReadResult {
  bool ok = false;
  // On failure: Msg(17), " " and the file name, for an exclamation box titled
  // with the program name.
  std::string Error_Text;
  // On success: the directory of the file, for the next file dialog.
  std::string Dialog_Dir;
};

// Reads a project into the model. The record is filled line by line as the
// file is read: a damaged, truncated or foreign file leaves the model as far
// as it was read (the unit factors then keep their old values) and ends with
// ok false. `startDir` replaces a data directory that does not exist.
// RefreshLocked is false on return; File_Loading stays set after a good read
// until the next change of Tab_Dim.
FileReadResult Read_FileDAT(BeamModel& m, const std::string& name, const std::string& startDir);

// The text of a project file, lines ended by CR LF.
std::string Project_Text(const BeamModel& m);

// Writes the project, replacing a file that exists. The new text is written
// beside the old file and renamed into place, so a failed save leaves the old
// file whole. Validates nothing: callers check the model first. False when
// the file could not be written.
bool Save_FileDAT(const BeamModel& m, const std::string& name);

// The trailer: after everything the fixed layout holds, zero or more lines
// KEY=value (CR LF). A file without a trailer reads as before, every key
// then taking the value of a new record; a study whose keys all stand at
// their defaults is written byte for byte as before the trailer existed, and
// a program that stops after the mode lines never sees it. Reading ignores
// unknown keys and lines that are not KEY=value (a file of a later program
// still opens; what it alone knew is not written back). Number values are
// the texts as typed, in the file's units, with a point.
struct TrailerKey {
  const char* Key;
  std::string BeamModel::*Member;
  bool Number;  // a number text: "." in the file, the locale's mark in the record
  // When the line is written; nullptr: when the text differs from a new record's.
  bool (*Written)(const BeamModel&) = nullptr;
  // A list or a check box instead of a text (Member then nullptr): the item
  // index or 1/0 as the value.
  int BeamModel::*Choice = nullptr;
  bool BeamModel::*Flag = nullptr;
};
// Every key, in the order written. Adding a key is one line of this table.
const std::vector<TrailerKey>& Trailer_Keys();

// The first state of the model when the main window loads, without the
// window: nu and M2 are the typed fields; the default file is read when it
// exists (File_Current := Msg(10)), otherwise the built-in defaults are taken
// (File_Current := Msg(81)); then slot 2 of the section is computed from the
// dimensions with RefreshLocked set, so that no result is cleared. When the
// default file can't be read, ok is false and the program is to end.
struct StartupResult {
  bool ok = false;
  std::string File_Current;
  std::string Error_Text;  // the reading message when the default file failed
  std::vector<std::string> Shown;  // messages of the section computation
};
StartupResult Initialisations_Model(BeamModel& m, const std::string& fileDefault,
                                    const std::string& startDir);

}  // namespace zarvek
