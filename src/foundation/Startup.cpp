#include "foundation/Startup.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <fstream>
#include <sys/file.h>
#include <unistd.h>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

// The program's own files carry its name; the user's files keep their spelling.
std::string Own_File(const StartupState& s, const char* extension) {
  return s.App_Path + Program_Name() + extension;
}

}  // namespace

std::string Lock_File_Name(const std::string& startDir) {
  std::string dir = startDir;
  if (dir.empty() || dir.back() != '/') dir += '/';
  return dir + Program_Name() + ".lock";
}

bool Acquire_SingleInstance(const std::string& startDir) {
  // The descriptor is never closed: the lock is released when the process ends,
  // however it ends.
  const std::string name = Lock_File_Name(startDir);
  int fd = ::open(name.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (fd < 0) return true;
  int rc;
  do {
    rc = ::flock(fd, LOCK_EX | LOCK_NB);
  } while (rc != 0 && errno == EINTR);
  if (rc == 0) return true;
  const bool held = errno == EWOULDBLOCK;
  ::close(fd);
  return !held;
}

std::string Command_Line_Text(int argc, const char* const* argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) line += ' ';
    line += argv[i];
  }
  return line;
}

void Analyse_CommandLine(const std::string& commandLine, StartupState& s) {
  s.Direct_Mode = false;
  const std::string line = Trim(commandLine);
  if (line.empty() || !Has_Extension(line, ".ZVK")) return;
  s.File_Problem = line;
  if (File_Exists(s.File_Problem)) s.Direct_Mode = true;
}

void Set_StartPaths(const std::string& startDir, StartupState& s) {
  std::string dir = startDir;
  while (dir.size() > 1 && dir.back() == '/') dir.pop_back();
  s.Dir_Data = dir;
  s.App_Path = dir == "/" ? dir : dir + "/";
  s.File_Ini = Own_File(s, ".INI");
  s.File_Tmp = Own_File(s, ".TMP");
  // A scratch file left behind by a crash must not be read as ours.
  if (File_Exists(s.File_Tmp)) std::remove(s.File_Tmp.c_str());
  s.File_Section = s.App_Path + "SECTION.DB";
}

bool Read_IniFile(StartupState& s, std::string& error) {
  static const std::string key = "LANGUAGE=";
  std::ifstream in(s.File_Ini);
  std::string line;
  bool found = false;
  std::string value;
  if (in.is_open()) {
    while (std::getline(in, line)) {
      const auto pos = line.find(key);
      if (pos == std::string::npos) continue;
      value = Upper(Trim(line.substr(pos + key.size())));
      found = true;
      break;
    }
  }
  if (!found) {
    error = "Error in reading " + s.File_Ini;
    return false;
  }
  s.File_Language = s.App_Path + "ZARVEK_" + value + ".MSG";
  if (!File_Exists(s.File_Language)) {
    error = "File " + s.File_Language + " not found";
    return false;
  }
  s.Language_Code = value;
  return true;
}

bool Load_Language(const StartupState& s, std::string& error) {
  if (!Load_LanguageFile(s.File_Language, s.File_Tmp)) {
    error = "Error in reading " + s.File_Language;
    return false;
  }
  Load_Messages();
  return true;
}

bool Start_Up(const std::string& startDir, const std::string& commandLine, StartupState& s,
              std::string& error) {
  Analyse_CommandLine(commandLine, s);
  Find_DecSep();
  Set_StartPaths(startDir, s);
  s.Is_MainLoading = false;
  if (!Read_IniFile(s, error)) return false;
  return Load_Language(s, error);
}

void Set_InteractivePaths(StartupState& s) {
  s.File_Problem = Own_File(s, ".ZVK");
  s.File_Out = Own_File(s, ".OUT");
  s.File_Default = Own_File(s, ".DFT");
  s.File_Help = s.App_Path + "ZVK_" + s.Language_Code + ".HLP";
  s.App_HelpFile = File_Exists(s.File_Help) ? s.File_Help : s.App_Path + "ZVK_UK.HLP";
}

}  // namespace zarvek
