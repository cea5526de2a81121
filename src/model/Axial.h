// The axial force of the beam model: N at the centroid, constant along the
// beam, compression positive, scaled by the critical factor together with
// the moments (docs/axial-force.md).
#pragma once

#include "model/BeamModel.h"

namespace zarvek {

// N in daN from the text of Txt_N (0 when it is not a number).
double N_Of(const BeamModel& m);

// The section constants the axial terms need beyond the lateral-torsional
// ones, in cm2, cm4, cm, taken from the active section route: the catalogue
// computes A and Iy of its rolled I (zC = 0), the dimensions route takes them
// from its last confirmed constants, the properties route from the three
// further fields (A in cm2 whatever the units, Iy in the inertia unit, zC in
// the section dimension unit).
struct AxialConstants {
  double A = 0, Iy = 0, zC = 0;
};
AxialConstants Axial_Constants_Of(const BeamModel& m);

// The flexural buckling load about the strong axis of a pin-ended member of
// the beam's length, pi^2 E Iy / L^2, daN: what the model leaves out, shown
// beside the results whenever N is compressive.
double Ncr_y_Of(const BeamModel& m);

}  // namespace zarvek
