// The pictures of the help: sign conventions of loads, heights and
// restraints, and the dimensions of the section, drawn for the screen's
// resolution in the loaded language.
#pragma once

#include <QImage>
#include <QSize>

namespace zarvek {

// Logical size of every help picture, in pixels.
QSize Help_PictureSize();

// Picture `index` (1 to Help_PictureCount) with its texts in the loaded
// language (English where the language lacks one), drawn at the device pixel
// ratio `dpr`. A null image for an index out of range.
//   1 section dimensions and levels      2 end restraints
//   3 intermediate restraints            4 end moments and psi
//   5 loads and their heights            6 reading the diagrams
QImage Help_Picture(int index, qreal dpr = 2.0);

}  // namespace zarvek
