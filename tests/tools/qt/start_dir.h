// A private start directory for window tests: a copy of the files read at start (language files, Zarvek.INI,
// SECTION.DB, help pages) that a test may spoil without touching build/bin; the .INI's language is loaded.
#pragma once

#include <QtCore>
#include <string>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Startup.h"
#include "tools/qt/Frm_Help.h"

namespace zarvek_test {

struct StartDir {
  QTemporaryDir dir;
  zarvek::StartupState state;

  explicit StartDir(const char* language = "UK") {
    const QString bin = ZARVEK_BIN_DIR;
    for (const char* f : {"Zarvek.INI", "ZARVEK_UK.MSG", "ZARVEK_FR.MSG", "SECTION.DB"})
      QFile::copy(bin + "/" + f, file(f));
    for (QDirIterator it(bin + "/help", QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
      const QString src = it.next(), dst = file(QDir(bin).relativeFilePath(src));
      QDir().mkpath(QFileInfo(dst).absolutePath()), QFile::copy(src, dst);
    }
    QFile ini(file("Zarvek.INI"));
    ini.setPermissions(ini.permissions() | QFile::WriteOwner);
    if (ini.open(QIODevice::WriteOnly | QIODevice::Truncate))
      ini.write(QByteArray("LANGUAGE=") + language + "\n");
    ini.close();
    Load();
  }

  // Start-up as the program does it: paths, .INI file, language.
  bool Load() {
    std::string error;
    zarvek::Find_DecSep(), zarvek::Set_StartPaths(path(), state);
    if (!zarvek::Read_IniFile(state, error) || !zarvek::Load_Language(state, error)) return false;
    zarvek::Set_InteractivePaths(state), zarvek::Help_Attach(state);
    return true;
  }

  std::string path() const { return dir.path().toStdString(); }
  QString file(const QString& name) const { return dir.path() + "/" + name; }

  QByteArray Read(const QString& name) const {
    QFile f(file(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
  }
};

}  // namespace zarvek_test
