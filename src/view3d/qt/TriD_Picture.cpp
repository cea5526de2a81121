#include "view3d/qt/TriD_Picture.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <algorithm>
#include <memory>

#include "diagrams/SvgWriter.h"
#include "diagrams/qt/QtSurface.h"
#include "view3d/TriD_Model.h"

namespace zarvek {

namespace {

constexpr Colour Plot_Back = 0xE0E0E0;

void Ensure_GuiApplication() {
  if (QCoreApplication::instance()) return;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static int argc = 1;
  static char name[] = "zarvek-cli";
  static char* argv[] = {name, nullptr};
  static std::unique_ptr<QGuiApplication> app(new QGuiApplication(argc, argv));
}

bool Write_Beside(const QString& path, const QByteArray& bytes) {
  const QString tmp = path + ".tmp";
  QFile f(tmp);
  if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate)) return false;
  const bool ok = f.write(bytes) == bytes.size();
  f.close();
  if (!ok) {
    QFile::remove(tmp);
    return false;
  }
  if (QFile::exists(path) && !QFile::remove(path)) {
    QFile::remove(tmp);
    return false;
  }
  return QFile::rename(tmp, path);
}

}  // namespace

TriD_PictureStatus TriD_WritePicture(const BeamModel& m, const std::string& path, double scale,
                                     std::string& error) {
  const QString qpath = QString::fromStdString(path);
  const QString low = qpath.toLower();
  const bool png = low.endsWith(".png"), svg = low.endsWith(".svg");
  if (!png && !svg) {
    error = "the picture must be a .png or a .svg file: " + path;
    return TriD_PictureStatus::BadExtension;
  }
  if (!(m.Mode_Max > 0)) {
    error = "there is no buckling mode to draw";
    return TriD_PictureStatus::NoMode;
  }
  const double w = TriD_PictureWidth * 15.0, h = TriD_PictureHeight * 15.0;  // twips
  TriD_Scene t;
  QByteArray bytes;
  if (svg) {
    SvgWriter svgw(w, h);
    svgw.BackColor(Plot_Back);
    if (!TriD_DefaultView(t, svgw, m)) {
      error = "there is no buckling mode to draw";
      return TriD_PictureStatus::NoMode;
    }
    bytes = QByteArray::fromStdString(svgw.Document());
  } else {
    Ensure_GuiApplication();
    const double k = std::clamp(scale > 0 ? scale : 1.0, 0.25, 20.0);
    QtImageSurface surf(w, h, 15.0 / k, 1);
    surf.BackColor(Plot_Back);
    if (!TriD_DefaultView(t, surf, m)) {
      error = "there is no buckling mode to draw";
      return TriD_PictureStatus::NoMode;
    }
    QImage img = surf.Image().copy();
    img.setDevicePixelRatio(1);
    QByteArray data;
    {
      QBuffer buf(&data);
      buf.open(QIODevice::WriteOnly);
      if (!img.save(&buf, "PNG")) {
        error = "the picture could not be made";
        return TriD_PictureStatus::WriteFailed;
      }
    }
    bytes = data;
  }
  if (!Write_Beside(qpath, bytes)) {
    error = "the picture can't be written: " + path;
    return TriD_PictureStatus::WriteFailed;
  }
  return TriD_PictureStatus::Written;
}

}  // namespace zarvek
