// The results report: every input of the beam and every result, with units,
// Greek symbols and the pictures of the diagrams, written through the
// rich-text builder.
//
// The words come from the loaded language (messages and the captions of the
// main window), the values are the texts of the record as the user typed
// them, in the units shown. The pictures are asked of the caller, who owns the
// drawing surfaces: the core has no way to draw.
#pragma once

#include <ctime>
#include <functional>
#include <string>

#include "model/BeamModel.h"
#include "report/RichText.h"

namespace zarvek {

// The four pictures of the report.
enum class Report_PictureKind { Beam, Section, Forces, Mode };

// Name of a picture: "beam", "section", "forces", "mode".
const char* Report_PictureName(Report_PictureKind kind);

// Gives the picture of a diagram, drawn from the record; an empty picture
// leaves the place empty.
using Report_PictureSource = std::function<Report_Picture(Report_PictureKind)>;

// What the report needs besides the record.
struct Report_Inputs {
  std::string Language_Code = "UK";  // "UK" writes the date month first
  std::tm When{};                    // date and time of the header
  Report_PictureSource Pictures;     // may be empty: no pictures
  // Blocks of other subsystems written after the results, before the
  // closing line (the design check); may be empty.
  std::function<void(Rich_Text&)> After_Results;
};

// The colours of the keys of the diagrams (0xBBGGRR): M black and V blue;
// v blue, theta black, v' red, theta' green.
constexpr Rich_Colour Key_M = 0x000000, Key_V = 0xC00000;
constexpr Rich_Colour Key_v = 0xC00000, Key_t = 0x000000, Key_vp = 0x0000FF, Key_tp = 0x008000;

// Date and time of the header: "mm-dd-yyyy  hh:mm" for the language "UK",
// "dd/mm/yyyy  hh:mm" for every other.
std::string Report_DateTime(const std::tm& when, const std::string& Language_Code);

// A results block is shown once the internal forces are computed
// (Txt_Mmax(0) not 0), the solver blocks once a critical factor exists
// (Txt_mucr not 0).
bool Report_ForcesComputed(const BeamModel& m);
bool Report_Solved(const BeamModel& m);

// Writes the whole report into `rt`, block after block: header, title,
// picture of the beam, beam, steel, section (picture), dimensions or section
// constants, end restraints, intermediate and continuous restraints, loads,
// forces (picture), maximum moment, solver, Mcr, mode (picture), closing
// line.
void Edit_Results(Rich_Text& rt, const BeamModel& m, const Report_Inputs& in);

// The builder as Edit_Results wants it: Arial, 8 points.
Rich_Text Report_Builder();

// A line of the loaded language, converted to UTF-8: section `section`, line
// `line` (the captions of a window), falling back to the English text of
// the program when no language is loaded.
std::string Caption(int section, int line);
// Message n in UTF-8, with the same fallback.
std::string Msg_Utf8(int n);

}  // namespace zarvek
