// Ready-made problems: the shipped example and the benchmarks' beams.
#pragma once

#include "solver/Mod_StabMat.h"

namespace zarvek {

// A fork-supported IPE 300 (Iz 603.78 cm4, It 19.868 cm4, Iw 126332 cm6),
// E 21000 kN/cm2, G 8076.9 kN/cm2, of `length` cm in `nb` equal elements,
// under a uniform moment M (daN.cm), rigid links, no loads.
ProblemData Fork_Beam_Uniform_Moment(int nb, double length = 1000.0, double M = 1.0e6);

// The same beam under a uniform load q (daN/cm, positive down as the internal
// forces take it) at height zq above the shear centre: moments by statics.
ProblemData Fork_Beam_Uniform_Load(int nb, double length = 1000.0, double q = 10.0, double zq = 0.0);

}  // namespace zarvek
