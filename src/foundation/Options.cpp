#include "foundation/Options.h"

#include <fstream>
#include <sstream>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

OptionChanges Compare_Options(const OptionChoices& backup, const OptionChoices& now) {
  OptionChanges c;
  c.Language = backup.Lst_Language != now.Lst_Language;
  c.Directory = backup.Lst_Dir != now.Lst_Dir;
  c.Method = backup.Opt_Eigen != now.Opt_Eigen;
  c.Tolerance = backup.Lst_Tolerance != now.Lst_Tolerance;
  c.Units = backup.Units != now.Units;
  return c;
}

bool Rewrite_IniFile(const std::string& File_Ini, const std::string& code) {
  static const std::string key = "LANGUAGE=";
  std::string content;
  bool replaced = false;
  {
    std::ifstream in(File_Ini, std::ios::binary);
    std::string line;
    while (in && std::getline(in, line)) {
      // Keep the file's own line ends (a file edited on another system may
      // carry CR LF).
      const bool cr = !line.empty() && line.back() == '\r';
      if (cr) line.pop_back();
      if (!replaced && line.find(key) != std::string::npos) {
        line = key + code;
        replaced = true;
      }
      content += line;
      content += cr ? "\r\n" : "\n";
    }
  }
  if (!replaced) content += key + code + "\n";
  return Write_File_Atomic(File_Ini, content);
}

LanguageChange Change_Language(StartupState& s, const std::string& code, std::string& error) {
  const std::string file = Data_File(s, "ZARVEK_" + code + ".MSG");
  if (!File_Exists(file)) {
    error = "File " + file + " not found";
    return LanguageChange::FileMissing;
  }
  if (!Load_LanguageFile(file, s.File_Tmp)) {
    error = "Error in reading " + file;
    return LanguageChange::LoadFailed;
  }
  Load_Messages();
  s.File_Language = file;
  s.Language_Code = code;
  s.File_Help = Data_File(s, "ZVK_" + code + ".HLP");
  s.App_HelpFile = File_Exists(s.File_Help) ? s.File_Help : Data_File(s, "ZVK_UK.HLP");
  return Rewrite_IniFile(s.File_Ini, code) ? LanguageChange::Done : LanguageChange::NotSaved;
}

}  // namespace zarvek
