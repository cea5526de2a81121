// The 3d route of `zarvek-cli draw`: the buckled beam as the 3D window first
// shows it, turned 15 degrees about Y and -45 degrees about Z.
#include "cli_draw3d.h"

#include <QString>
#include <QtGlobal>
#include <cstdio>

#include "view3d/qt/TriD_Picture.h"

int Cli_Draw3D(const zarvek::BeamModel& m, const std::string& out, double scale) {
  using zarvek::TriD_PictureStatus;
  // The platform's notes (no runtime folder ...) are no business of a script.
  qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& msg) {
    if (type == QtFatalMsg) std::fprintf(stderr, "zarvek-cli: %s\n", qPrintable(msg));
  });
  std::string error;
  switch (zarvek::TriD_WritePicture(m, out, scale, error)) {
    case TriD_PictureStatus::Written: return 0;
    case TriD_PictureStatus::BadExtension:
      std::fprintf(stderr, "zarvek-cli: %s\n", error.c_str());
      return 1;
    case TriD_PictureStatus::NoMode:
    case TriD_PictureStatus::WriteFailed: break;
  }
  std::fprintf(stderr, "zarvek-cli: %s\n", error.c_str());
  return 2;
}
