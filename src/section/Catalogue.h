// Section catalogue file SECTION.DB.
//
// A text file read in sequence. A line that, trimmed, is "1" opens a series;
// the next line holds the series' name and its count n; then come n lines
// "full name, h, b, tw, tf, r" with the dimensions in mm and "." as decimal
// mark. Every other line outside a series is skipped. The full name is the
// series' name, one separator and the section's number ("IPE 300",
// "UB 457x191x67"). Only dimensions are stored: all properties are computed
// when a section is chosen.
#pragma once
#include <string>
#include <vector>

#include "section/Mod_Section.h"

namespace zarvek {

// Builds SECTION.DB from the table of rolled-section dimensions (CSV, mm).
// False when the table can't be read or the file can't be written.
bool Write_SectionDB(const std::string& csvPath, const std::string& dbPath);

// Names of the series in file order. False, with an empty list, when the
// file is missing, unreadable or malformed: the window then stays empty.
bool Load_SectionsSeries(const std::string& dbPath, std::vector<std::string>& series);

// Sections of one series, dimensions in cm, listed by growing area (not in
// file order). A series the file doesn't hold gives an empty list and true;
// a missing file or a malformed series gives an empty list and false.
bool Load_SerieNumbers(const std::string& dbPath, const std::string& series,
                       std::vector<SectionRecord>& sections);

// Sort key of a rolled I: its area with the four fillets.
double Section_Area(const SectionRecord& s);

// Shell sort of an index array: index becomes 0..n-1 ordered so that
// keys[index[0]] <= keys[index[1]] <= ...; keys stay in place. Not stable.
void Sort_ArrayIndex(int n, const std::vector<double>& keys, std::vector<int>& index);

// Index of the item equal to `wanted`, or 0 when none is (-1 for an empty
// list): how the window selects the current series and number.
int Select_Item(const std::vector<std::string>& items, const std::string& wanted);

// Splits a profile caption ("IPE 300") at its first blank into the series
// and the trimmed rest.
void Split_ProfileName(const std::string& caption, std::string& series, std::string& number);

// Finds a section by its full name. False when the catalogue can't be read
// or hasn't it.
bool Find_Section(const std::string& dbPath, const std::string& fullName, SectionRecord& section);

// The five shared values of a catalogue choice, in cm.
struct CatalogueDims {
  double Cat_h = 0, Cat_b = 0, Cat_tf = 0, Cat_tw = 0, Cat_r = 0;
};
CatalogueDims Catalogue_Dims(const SectionRecord& section);
// By full name; false (and `dims` untouched) when the section isn't found.
bool Catalogue_Dims(const std::string& dbPath, const std::string& fullName, CatalogueDims& dims);

// One number right-aligned in `width` characters with `decimals` decimals,
// in the locale's decimal mark.
std::string FormatValue(double value, int decimals, int width);

// The block of sixteen lines "label value unit" that the catalogue window
// shows, each line ended by a line feed.
std::string Show_SectionProperties(const SectionI& result);

// What the choice of a catalogue section hands to the main window: the five
// dimensions, slot 1 of Txt_Iz, Txt_It (divided by the inertia factor),
// Txt_Iw (by the warping factor), Txt_Betaz ("0") and the profile caption.
struct SectionTransfer {
  CatalogueDims dims;
  std::string Iz, It, Iw, Betaz, SelectedProfile;
};
SectionTransfer Transfer_Section(const SectionI& result, const std::string& series,
                                 double factIzt, double factIw);

}  // namespace zarvek
