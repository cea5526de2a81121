// The default view of the buckled beam as a picture file, without a window.
#pragma once

#include <string>

#include "model/BeamModel.h"

namespace zarvek {

// Picture size of the default view, pixels at 96 dpi.
constexpr int TriD_PictureWidth = 800;
constexpr int TriD_PictureHeight = 600;

enum class TriD_PictureStatus { Written, BadExtension, NoMode, WriteFailed };

// Draws the default view of the solved record (what the 3D window shows when
// it opens) and writes it to `path`: a PNG of 800 x 600 pixels times `scale`,
// or an SVG of 800 x 600, by the extension (case-insensitive). An existing
// file is replaced only by a complete new one. Needs a QGuiApplication for
// the end marks' text; one on the offscreen platform is made when there is
// none. `error` tells a failure in one line.
TriD_PictureStatus TriD_WritePicture(const BeamModel& m, const std::string& path, double scale,
                                     std::string& error);

}  // namespace zarvek
