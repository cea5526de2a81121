// From the beam model to the stability solver and back.
//
// Proceed cuts the beam into NB equal elements, lumps the end, punctual and
// continuous lateral restraints on the nodes, takes the end moments of every
// element from the internal forces, writes the problem file, runs the solver
// and puts the results into the record. Nothing is shown here: the caller
// gets a status and a message to show.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/Calculer_Efforts.h"
#include "model/BeamModel.h"
#include "solver/Mod_StabMat.h"

namespace zarvek {

// Status and text of a run-time failure (also the solver's own).
constexpr std::int16_t Status_RunTime = 11;
constexpr const char* Text_RunTime = "Problem in solving Mcr";

// Rounding constants that put a punctual restraint on a node. They differ
// between the two restraints, so that two restraints asked at the same place
// may still fall on neighbouring nodes; both pairs are kept as they are.
constexpr double Punctual1_Low = 0.50001, Punctual1_High = 0.49999;
constexpr double Punctual2_Low = 0.5001, Punctual2_High = 0.4999;

// Node of a punctual restraint at the fraction x of the length:
// 1 + Int(x NB + c), c = cLow when x <= 0.5, cHigh otherwise.
int Punctual_Node(double x, int NB, double cLow, double cHigh);

// Springs of the nodes 1..NB+1 in daN and cm (1e30 for a fixed degree), with
// the height Zn of the lateral restraint above the shear centre.
struct NodeSprings {
  std::vector<double> Rv, Rt, Rvp, Rtp, Zn;
  explicit NodeSprings(int NB = 0)
      : Rv(NB + 2, 0.0), Rt(NB + 2, 0.0), Rvp(NB + 2, 0.0), Rtp(NB + 2, 0.0), Zn(NB + 2, 0.0) {}
};

// Joins a lateral spring k2 at height z2 and a twist spring t2 to node i. Two
// lateral springs at different heights act as one at their resultant height,
// plus a twist stiffness k1 k2 (z2 - z1)^2 / (k1 + k2). With no lateral
// stiffness at all (k1 + k2 = 0) both fractions count 0 when `tested`;
// untested, that case is a division by zero and the result is false.
bool Join_Spring(NodeSprings& s, int i, double k2, double t2, double z2, bool tested = true);

// The node springs of the record (end lists, continuous and punctual
// restraints). False on a run-time failure: the division by zero at node 1
// under a continuous restraint with no lateral stiffness there, or a
// punctual restraint that falls outside the beam.
bool Build_NodeSprings(const BeamModel& m, int NB, double Le, NodeSprings& s);

// The problem in daN and cm as Proceed writes it; runs Calculer_Efforts on
// the record (which fills Txt_Mmax and Lbl_xfMmax). False on a run-time
// failure, with status and text set.
bool Build_Problem(BeamModel& m, ProblemData& p, EffortsData& e, std::int16_t& status,
                   std::string& text);

// What a run of Proceed leaves for the caller to show.
struct ProceedResult {
  std::int16_t Solve_Status = 0;  // 0 right; the solver's status, or 11
  // The one text to show: the solver's message on success, Msg(2) when the
  // run was stopped, the failure text otherwise.
  std::string Message;
  bool Stopped = false;
  int Method = 0;
  SolverResult Solver;    // what Solve_Problem left
  EffortsData Efforts;    // the diagrams (from the solver's arrays in external mode)
};

// Proceed. `problemPath` is the file to write (or, in external mode, the
// problem file chosen by the user, which is read as it stands). An empty
// path writes no file: the problem goes to the solver in memory, with the
// same results, and solves of different records may then run on several
// threads at once (the language texts and Dec_Sep must not change meanwhile). The solve
// takes its tolerance and iteration limit from the record's options into
// `ctl`; callbacks and the stop flag of `ctl` are the caller's. On success
// the record gets Txt_mucr, Txt_Mcr (= mucr Efforts_Mmax in the unit of
// Lst_Unit_M), Mode_Max, Mode_Vector, Restraint_Level and Mcr_Factor; in
// external mode also Txt_Mmax and Lbl_xfMmax from the solver.
ProceedResult Proceed(BeamModel& m, const std::string& problemPath, SolveControl& ctl,
                      bool ExternalMode = false);

}  // namespace zarvek
