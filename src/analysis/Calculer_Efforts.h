// Internal forces of the beam model: reads the loads of the record, converts
// them to daN and cm and runs the closed forms of Mod_Efforts.
#pragma once

#include <vector>

#include "model/BeamModel.h"

namespace zarvek {

// The sampled diagrams of the beam (1-based arrays, 2 NB samples).
struct EffortsData {
  int NB = 0;
  double L = 0;                     // beam length, cm
  std::vector<float> Efforts_X;     // sample positions, fractions of L
  std::vector<float> Efforts_M;     // daN.cm
  std::vector<float> Efforts_V;     // daN
  float Efforts_Mmax = 0;           // sampled moment of largest magnitude, signed
  int jMmax = 0;                    // its sample, 0 when every moment is 0
  double xfMmax = 0;                // its position, fraction of L (0 when none)
};

// Clears the arrays and applies each active load in the order end moments,
// F1, F2, F3, q1, q2, couple; finds the largest moment and shows it in
// Txt_Mmax (0 and 1, in the unit of Lst_Unit_M) and its position in
// Lbl_xfMmax (0 and 1, "0.000").
void Calculer_Efforts(BeamModel& m, EffortsData& e);

}  // namespace zarvek
