// The 3D view of a beam model: the beam and section the wire model is built
// from, and the default view of the buckled beam.
#pragma once

#include <string>
#include <vector>

#include "model/BeamModel.h"
#include "view3d/TriD.h"

namespace zarvek {

// The beam as the wire model sees it (cm): length, elements, flange widths
// and flange levels about the shear-centre axis.
struct TriD_Beam {
  float L = 0;
  int NB = 0;
  float b1 = 0, b2 = 0, h1 = 0, h2 = 0;
};

// The beam of the record, by the route of its section:
// - catalogue: the rolled section's flange width and half its height;
// - dimensions: the flange widths and the height, with the axis at the shear
//   centre, e above the bottom of the section (the shown zS plus the hidden
//   part kept with it);
// - properties: no dimensions are known, so a nominal I in proportion to the
//   beam, flanges L/30 wide at L/40 above and below the axis.
TriD_Beam TriD_BeamOf(const BeamModel& m);

// Sets up the scene of a solved record on a surface and applies the first
// view (what the 3D window shows when it opens). False when the record has
// no mode (Mode_Max not above 0): nothing is drawn.
bool TriD_DefaultView(TriD_Scene& t, Surface& s, const BeamModel& m);

}  // namespace zarvek
