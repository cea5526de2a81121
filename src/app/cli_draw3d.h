// zarvek-cli draw FILE --what 3d -o OUT: the turning 3D model's first view.
#pragma once

#include <string>

#include "model/BeamModel.h"

// Writes the default view of the buckled beam of a solved record to `out`
// (PNG of 800 x 600 pixels times `scale`, or SVG, by the extension) and
// returns the exit code of zarvek-cli: 0 written, 1 an extension that is
// neither (wrong command line), 2 no mode or a file that can't be written.
// The one-line reason goes to stderr.
int Cli_Draw3D(const zarvek::BeamModel& m, const std::string& out, double scale);
