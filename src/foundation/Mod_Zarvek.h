// Number and text helpers shared by every subsystem.
//
// The program lives between two number worlds: screen text follows the
// locale's decimal separator (Dec_Sep, possibly a comma) while every file
// uses a point. These routines keep the two apart.
#pragma once

#include <string>
#include <string_view>

namespace zarvek {

// The one decimal separator of the locale, found once at start-up.
extern char Dec_Sep;

// Finds the locale's separator by formatting 2.2 with "0.0" (the second
// character of the result) and stores it in Dec_Sep.
char Find_DecSep();

// Formats a number with a picture pattern of the kind "0.00", "0.0##",
// "0.000#E+00", "0.000#E-00", using Dec_Sep as decimal mark.
std::string Format_Pattern(double value, std::string_view pattern);

// Text of a number for a file column: fixed point with `decimals`, switched
// to "0.000#E+00" when too wide, right-aligned in `width` (wider if need be),
// decimal mark ".".
std::string Format_Fixed(double value, int width, int decimals);

// Text of a value for the screen and the report, by magnitude.
std::string Format_Auto(double value);

// Plain number-to-text conversion (up to 15 significant digits, shortest
// form, scientific beyond 1e15 or below 1e-4), with Dec_Sep as mark.
std::string Number_To_Text(double value);
// The same for a single-precision value (up to 7 significant digits).
std::string Number_To_Text(float value);

// First Dec_Sep -> ".", then right-aligned in n characters.
std::string To_DotText(std::string_view text, int n);
// First "." -> Dec_Sep, trimmed.
std::string To_LocalText(std::string_view text);

// True when the text is a number in the locale: optional sign, digits with at
// most one Dec_Sep, optional exponent. Blanks around are allowed; an empty
// text is not numeric.
bool Is_Numeric(std::string_view text);
// Its value when numeric, otherwise 0.
double Num_Of_Text(std::string_view text);

// Factor of a unit list item: d when d >= 0, -1/d when d < 0, single precision.
float Get_ItemFactor(long itemData);

// Key filter of numeric fields; may change `key`; true when it may pass.
// Mode 1 refuses "-".
bool Filter_NumericKey(int& key, int mode);

// The text before the last "/" (no trailing separator); without one, the
// first two characters.
std::string Path_Of(std::string_view name);

// False for a blank name or one whose attributes can't be read.
bool File_Exists(const std::string& name);

std::string Trim(std::string_view s);
std::string Upper(std::string_view s);

// Edits (insert, delete, replace) from a to b; letters compared without case
// when asked. How near a mistyped name is to the names it may have meant.
size_t Edit_Distance(std::string_view a, std::string_view b, bool ignoreCase = false);
// Case-insensitive test of a file name's ending (".ZVK", ".DAT" ...).
bool Has_Extension(std::string_view name, std::string_view ext);

// Writes `content` to `path` through a file beside it that is then renamed
// into place, so an existing file is never half overwritten. False on failure
// (the old file is then untouched).
bool Write_File_Atomic(const std::string& path, const std::string& content);

// A solve allocates its matrices afresh and frees them at the end. By
// default the allocator hands the freed top of the heap back to the system
// and faults it in again, page by page, at the next solve; on a virtual
// machine each round trip costs more than the solve of a short beam. The
// programs call this once at start-up so that freed memory is kept for the
// next solve instead.
void Keep_Freed_Memory();

// Version text "major.minor.revision".
const char* Version_Text();
// The program's name, title of every message box.
const char* Program_Name();

}  // namespace zarvek
