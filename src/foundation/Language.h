// Language files: scrambled text files "ZARVEK_<code>.MSG" that hold every
// caption and the 99 messages of one language.
//
// The plain text of a language file is a run of sections, each opened by a
// line "$<count>" and followed by exactly that many text lines:
//   section 0        1 line    the language's name
//   sections 1..10   captions of the windows, one line per control
//   section 11      99 lines   "label >: message"
//   section 12      n lines    "key >: text", the further texts (optional)
// Blank lines and lines whose very first character is "'" are comments.
// The texts are single-byte Windows-1252.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zarvek {

// Message n (1..99) of the loaded language; an empty text out of range or
// before loading.
const std::string& Msg(int n);

// Sets message n directly (tests, and programs that run without a language).
void Set_Msg(int n, const std::string& text);

}  // namespace zarvek

namespace zarvek {

// Scrambles (or unscrambles: the same operation) the first `count` bytes of
// `name` into `tmp` (count 0: the whole file). False when a file can't be
// opened.
bool Crypt_File(const std::string& name, long count, const std::string& tmp);

// Index of the last window section; section Section_Count + 1 holds the
// messages.
constexpr int Section_Count = 10;

// The section of further texts: as many "key >: text" lines as its count
// says (0 to Further_Max). A file without it loads with no further texts.
constexpr int Further_Section = Section_Count + 2;
constexpr int Further_Max = 2000;

// Number of lines of section k (0..Section_Count + 1): 1, 65, 30, 3, 3, 18,
// 4, 1, 10, 6, 4, 99. 0 out of range.
int Section_Size(int k);

// Index in the texts of the first line of section k: 1, 2, 67, 97, 100, 103,
// 121, 125, 126, 136, 142, 146. 0 out of range.
int Section_Start(int k);

// Number of text lines of a language (244).
int Texts_Count();

// Line i (1..Texts_Count()) of the loaded language, as it stands in the file
// (messages trimmed); empty out of range, before loading, or when the file
// stopped before that section.
const std::string& Text_Line(int i);

// Line j (1-based) of section k of the loaded language.
const std::string& Section_Line(int k, int j);

// A further text of the loaded language by its key (Windows-1252, like every
// text of the file): empty when the language has no such key. With a
// fallback, the fallback (the English text, Windows-1252 too) when the
// key is missing or empty.
const std::string& Further_Text(std::string_view key);
std::string Further_Text(std::string_view key, std::string_view fallback);
// Sets a further text directly (tests).
void Set_Further_Text(std::string_view key, const std::string& text);

// Section of the captions of a window, from its upper-cased name
// ("FRM_ZARVEK" -> 1 ... "FRM_EIGENVECTOR3D" -> 10). "FRM_DIRECTSOLVE" and
// "SPLASHSCREEN" borrow section 9. -1 for a window that isn't translated.
int Section_Of_Window(std::string_view window_name);

// Unscrambles File_Language into File_Tmp, reads it and deletes File_Tmp.
// False when the file isn't of the exact structure (a count that differs from
// the expected one, a message line without ">:", a file that ends inside a
// section, a section too many, a read failure); File_Tmp is then removed and
// the texts loaded before stay as they were. The caller shows
// "Error in reading " + File_Language and ends.
bool Load_LanguageFile(const std::string& File_Language, const std::string& File_Tmp);

// Copies the 99 message lines of the loaded language into Msg(1..99).
void Load_Messages();

// The language code of a language file name: the text between the last "_"
// and the last "." of the full name, in upper case (empty when there is no
// such text).
std::string Language_Code_Of(std::string_view file_name);

// The list item of a language: the code filled with blanks to four
// characters, then the name ("UK  English").
std::string Language_Item(std::string_view code, std::string_view name);

// The code back from a list item: its first four characters, trimmed.
std::string Language_Code_Of_Item(std::string_view item);

// The items of every language file found in App_Path (entries whose
// upper-case name contains ".MSG" and "ZARVEK_"), sorted by file name. Only
// the first 100 bytes of each file are unscrambled, through File_Tmp, which
// is deleted afterwards: a file without "$1" there is passed over. An empty
// result means that no language was found.
std::vector<std::string> Load_Languages(const std::string& App_Path, const std::string& File_Tmp);

// A caption with its first "&" removed, unless that mark is the last
// character ("&Help" -> "Help", "Help&" stays).
std::string Remove_FirstHotKey(std::string_view caption);

// Windows-1252 text (the character set of the language files) to UTF-8, for
// the windows and the console.
std::string Cp1252_To_Utf8(std::string_view text);

}  // namespace zarvek
