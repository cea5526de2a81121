// The direct data of a problem: the five header fields and the five grids
// that show a problem file element by element, their starting contents, the
// limits on their sizes, and their passage to and from a problem file.
//
// Every value is the text of a cell in the internal units (daN, cm), with the
// locale's decimal separator; the file uses a point.
#pragma once

#include <string>

#include "directdata/Mod_MSFlexGrid.h"
#include "solver/Mod_StabMat.h"

namespace zarvek {

// Limits of the direct data: the mesh of a problem file, and the number of
// distributed loads (the number of point loads follows the mesh: one a node).
constexpr int DirectData_NBMin = 50;
constexpr int DirectData_NBMax = 300;
constexpr int DirectData_NQMax = 10;

// Steel of a new problem, daN/cm2.
constexpr const char* DirectData_E = "2100000";
constexpr const char* DirectData_G = "807692";

struct DirectDataSheet {
  std::string Txt_NB, Txt_E, Txt_G, Txt_NF, Txt_NQ;
  Text_Grid Grd_Elements, Grd_Restraints, Grd_MV, Grd_SpanLoadsF, Grd_SpanLoadsQ;
  // The sixth grid: axial force and its constants, one row an element. A
  // grid whose forces are all 0 is a problem without the axial block.
  Text_Grid Grd_Axial;

  Text_Grid& Grid(Grid_Kind k);
  const Text_Grid& Grid(Grid_Kind k) const;
};

// Column heads and units of a grid (row 0 and row 1; column 0 is "N°").
// Greek letters in UTF-8.
int Grid_Columns(Grid_Kind k);
const char* Grid_Head(Grid_Kind k, int col);
const char* Grid_Unit(Grid_Kind k, int col);

// Number of data rows of a grid for the header fields: N, N + 1, N, NF, NQ, N.
int Grid_DataRows(const DirectDataSheet& s, Grid_Kind k);

// Sizes a grid for its header field, writes its two header rows, the running
// numbers and the starting contents of a new problem. What was typed in it
// is lost.
void Prepare_Grid(DirectDataSheet& s, Grid_Kind k);
inline void Prepare_GrdElements(DirectDataSheet& s) { Prepare_Grid(s, Grid_Kind::Elements); }
inline void Prepare_GrdRestraints(DirectDataSheet& s) { Prepare_Grid(s, Grid_Kind::Restraints); }
inline void Prepare_GrdMV(DirectDataSheet& s) { Prepare_Grid(s, Grid_Kind::MV); }
inline void Prepare_GrdSpanLoadsF(DirectDataSheet& s) { Prepare_Grid(s, Grid_Kind::SpanLoadsF); }
inline void Prepare_GrdSpanLoadsQ(DirectDataSheet& s) { Prepare_Grid(s, Grid_Kind::SpanLoadsQ); }

// A new problem of nb elements: steel, no point or distributed load, the
// five grids prepared in order.
DirectDataSheet New_DirectData(int nb);

// The precision in which the solver reads a column of a grid: single for
// lengths, section constants, heights, moments and loads; double for the
// links and the restraints (which carry 1e30 or -1).
bool Column_Single(Grid_Kind k, int col);
// A numeric text whose value lies within the range of its field: finite
// ("1e400" is not), and within a float's range in a single-precision field.
bool Value_InRange(const std::string& text, bool single);

// True when the problem file of the file-data mode is a file of the user's:
// neither empty nor one of the two stand-ins, Msg(40) (a new problem not yet
// saved) and Msg(81) (after a failed read).
bool Is_UserProblemFile(const std::string& name);

// The header fields, in the order they are checked.
enum class Header_Field { None = -1, NB = 0, E, G, NF, NQ };

// Outcome of IsDataWrong. Wrong with an empty Message: the field isn't a
// number, and it is selected without a box. With a Message: an exclamation
// box shows it.
struct DataWrong {
  bool Wrong = false;
  Header_Field Field = Header_Field::None;
  std::string Message;
};

// IsDataWrong: NB, E, G, NF, then NQ must be numeric (E and G finite); NF must lie from 0 to
// NFmax = N + 1 (Msg(48) " : NFmax = " NFmax " !"), NQ from 0 to 10
// (Msg(46) " : NQmax = 10 !"). NFmax is left in `NFmax` when given.
DataWrong IsDataWrong(const DirectDataSheet& s, int* NFmax = nullptr);

// The first header field among E, G, NF, NQ that isn't numeric (the test of
// the tab change and of the File menu), or None.
Header_Field First_NonNumeric(const DirectDataSheet& s);

// A count field (NB, NF, NQ) holds a whole number.
bool Is_WholeNumber(const std::string& text);
// Its value; -1 when it isn't a whole number or is negative.
int Count_Of_Text(const std::string& text);

// Texts of the file-data mode (section 12 of the language files).
std::string Text_NoProblemFile();   // F5 with no problem file of the user's
std::string Text_OutOfRange();      // a value beyond the range of its field

// The prompt of a new problem: Msg(47) "(50<N<300)".
std::string NewProblem_Prompt();
// True when the answer to that prompt is a number of elements from 50 to 300.
bool NewProblem_Accepts(const std::string& answer, int& nb);

// Read_FileZVK: fills the sheet from a problem file in the reading order of
// the solver. NB is tested first: outside 50..300 the sheet is left as it was
// and `Message` holds Msg(30) " (50<N<300)". A short or malformed file, or a
// value beyond the range of its field, stops the read; the header fields and
// cells read so far stay (a failed read). Values go into the cells through
// To_LocalText; every other check is the solver's.
struct ReadOutcome {
  bool Ok = false;
  int Line = 0;          // where the reading stopped (1-based), 0 when it didn't start
  std::string Message;   // on failure: what was wrong, for an exclamation box under the file's name
};
ReadOutcome Read_FileZVK(const std::string& name, DirectDataSheet& s);

// The first data cell that holds no number, or a number beyond the range of
// its field, searched grid by grid in tab order; false when every cell holds
// a number its field can take.
struct Cell_Ref {
  Grid_Kind Grid = Grid_Kind::Elements;
  int Row = 0, Col = 0;
  bool Out_Of_Range = false;  // a number, but beyond the range of its field
};
bool Find_NonNumericCell(const DirectDataSheet& s, Cell_Ref& where);

// The sheet as a problem: header fields and cells read as numbers, counts from
// the grids' rows.
void Sheet_To_Problem(const DirectDataSheet& s, ProblemData& p);

// Save_FileZVK: writes the sheet as a problem file with the labels of this
// editor, beside the target and renamed into place, every value with the
// digits it was typed with. Refused (false, nothing written) when a cell
// holds no number or one beyond its field: `bad` then tells which.
bool Save_FileZVK(const std::string& name, const DirectDataSheet& s, Cell_Ref* bad = nullptr);

}  // namespace zarvek
