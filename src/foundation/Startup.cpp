#include "foundation/Startup.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

// The program's own files carry its name; the user's files keep their spelling.
std::string Own_File(const StartupState& s, const char* extension) {
  return s.App_Path + Program_Name() + extension;
}

std::string Without_Slash(std::string dir) {
  while (dir.size() > 1 && dir.back() == '/') dir.pop_back();
  return dir;
}

// The same folder, whatever way it is spelt ("..", links); the name as given
// when it can't be resolved.
std::string Canonical(const std::string& dir) {
  char* real = ::realpath(dir.c_str(), nullptr);
  if (!real) return Without_Slash(dir);
  std::string r(real);
  std::free(real);
  return r;
}

bool Is_Directory(const std::string& name) {
  struct stat st {};
  return ::stat(name.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

// mkdir -p, the new folders readable by the user alone
bool Make_Directories(const std::string& dir) {
  if (dir.empty() || Is_Directory(dir)) return !dir.empty();
  const auto slash = Without_Slash(dir).rfind('/');
  if (slash != std::string::npos && slash > 0 && !Make_Directories(dir.substr(0, slash))) return false;
  return ::mkdir(dir.c_str(), 0700) == 0 || (errno == EEXIST && Is_Directory(dir));
}

bool Copy_File(const std::string& from, const std::string& to) {
  std::ifstream in(from, std::ios::binary);
  if (!in) return false;
  const std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  return !in.bad() && Write_File_Atomic(to, content);
}

}  // namespace

bool Holds_ProgramData(const std::string& dir) {
  const std::string d = Without_Slash(dir) + "/";
  if (!File_Exists(d + "SECTION.DB")) return false;
  bool language = false;
  if (DIR* h = ::opendir(d.c_str())) {
    while (dirent* e = ::readdir(h)) {
      const std::string up = Upper(e->d_name);
      if (up.rfind("ZARVEK_", 0) == 0 && Has_Extension(up, ".MSG")) {
        language = true;
        break;
      }
    }
    ::closedir(h);
  }
  return language;
}

namespace {

// the shared data of an installed (or unpacked) package, beside the executable's bin
std::string Package_ShareDir(const std::string& exeDir) {
  const std::string share = Without_Slash(exeDir) + "/../share/zarvek";
  return Holds_ProgramData(share) ? Canonical(share) : std::string();
}

}  // namespace

std::string Installed_DataDir(const std::string& exeDir) {
  const std::string share = Package_ShareDir(exeDir);
  if (!share.empty()) return share;
  if (Holds_ProgramData(exeDir)) return Canonical(exeDir);
  return std::string();
}

std::string User_StartDir(const std::string& xdgDataHome, const std::string& home) {
  // a relative XDG_DATA_HOME is invalid and must be ignored
  if (!xdgDataHome.empty() && xdgDataHome[0] == '/') return Without_Slash(xdgDataHome) + "/zarvek";
  if (home.empty()) return std::string();
  return Without_Slash(home) + "/.local/share/zarvek";
}

StartPlace Choose_StartPlace(const std::string& cwd, const std::string& exeDir,
                             const std::string& xdgDataHome, const std::string& home) {
  StartPlace p;
  const std::string installed = Installed_DataDir(exeDir);
  const bool cwdWritable = ::access(cwd.c_str(), W_OK) == 0;
  // Only the package's shared folder is never a start directory: a build folder
  // (or a copy of it) that holds the data and the executable is the user's own.
  const std::string share = Package_ShareDir(exeDir);
  const bool cwdIsInstalled = !share.empty() && Canonical(cwd) == share;
  if (Holds_ProgramData(cwd) && cwdWritable && !cwdIsInstalled) {
    p.Start_Dir = p.Dialog_Dir = Without_Slash(cwd);
    return p;
  }
  p.Start_Dir = User_StartDir(xdgDataHome, home);
  if (p.Start_Dir.empty()) {
    p.Error = "No home directory: set HOME or XDG_DATA_HOME";
    return p;
  }
  if (!Make_Directories(p.Start_Dir)) {
    p.Error = "Cannot create the directory " + p.Start_Dir;
    return p;
  }
  p.Share_Dir = installed;
  // where the user stands is where the user's files go, unless it can't be written
  p.Dialog_Dir = cwdWritable && !cwdIsInstalled ? Without_Slash(cwd) : p.Start_Dir;
  return p;
}

std::string Data_File(const StartupState& s, const std::string& name) {
  const std::string own = s.App_Path + name;
  if (s.Share_Path.empty() || File_Exists(own)) return own;
  return s.Share_Path + name;
}

std::vector<std::string> Available_Languages(const StartupState& s) {
  std::vector<std::string> items = Load_Languages(s.App_Path, s.File_Tmp);
  if (s.Share_Path.empty()) return items;
  std::vector<std::string> codes;
  for (const std::string& it : items) codes.push_back(Upper(Language_Code_Of_Item(it)));
  for (const std::string& it : Load_Languages(s.Share_Path, s.File_Tmp)) {
    if (std::find(codes.begin(), codes.end(), Upper(Language_Code_Of_Item(it))) == codes.end())
      items.push_back(it);
  }
  std::sort(items.begin(), items.end());
  return items;
}

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
  const std::string dir = Without_Slash(startDir);
  s.Dir_Data = dir;
  s.App_Path = dir == "/" ? dir : dir + "/";
  s.File_Ini = Own_File(s, ".INI");
  s.File_Tmp = Own_File(s, ".TMP");
  // A scratch file left behind by a crash must not be read as ours.
  if (File_Exists(s.File_Tmp)) std::remove(s.File_Tmp.c_str());
  s.File_Section = Data_File(s, "SECTION.DB");
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
  s.File_Language = Data_File(s, "ZARVEK_" + value + ".MSG");
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
  // first start in the user's folder: the installed language setting becomes
  // the user's own (a failed copy is met by Read_IniFile, naming the file)
  const std::string installedIni = s.Share_Path + Program_Name() + ".INI";
  if (!s.Share_Path.empty() && !File_Exists(s.File_Ini) && File_Exists(installedIni))
    Copy_File(installedIni, s.File_Ini);
  s.Is_MainLoading = false;
  if (!Read_IniFile(s, error)) return false;
  return Load_Language(s, error);
}

void Set_InteractivePaths(StartupState& s) {
  s.File_Problem = Own_File(s, ".ZVK");
  s.File_Out = Own_File(s, ".OUT");
  s.File_Default = Own_File(s, ".DFT");
  s.File_Help = Data_File(s, "ZVK_" + s.Language_Code + ".HLP");
  s.App_HelpFile = File_Exists(s.File_Help) ? s.File_Help : Data_File(s, "ZVK_UK.HLP");
}

}  // namespace zarvek
