// Stability solver: reads a problem file, assembles the elastic and geometric
// stiffness of the beam, finds the critical load factor and the buckling mode.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zarvek {

// A problem file held in memory. Arrays are 1-based: index 0 is unused.
// Units are daN and cm. The values are kept in double precision so that a
// written file holds them as they were computed; the solver reads its data
// in single precision, as the file format has always been read.
struct ProblemData {
  int NB = 0;       // elements; NN = NB + 1 nodes; NDL = 4 NN degrees of freedom
  double E = 0, G = 0;
  // elements 1..NB
  std::vector<double> L, Iz, It, Iw, Betaz;
  std::vector<double> Kt, Kvp, Ktp;  // links at the first end: -1 rigid, 0 released, >0 spring
  // nodes 1..NN
  std::vector<double> Rv, Rt, Rvp, Rtp;  // restraints: -1 fixed, 0 free, >0 spring
  std::vector<double> z;                 // height of the restraint point above the shear centre
  // elements 1..NB: end moments (daN.cm)
  std::vector<double> M1, M2;
  // point loads 1..NF and span loads 1..NQ
  int NF = 0, NQ = 0;
  std::vector<double> F, xF, zF;
  std::vector<double> q1, x1, q2, x2, zq;
  // elements 1..NB: axial force at the centroid (daN, compression positive)
  // and the constants its terms need: area (cm2), strong-axis second moment
  // (cm4), shear centre above the centroid (cm). The block is optional in
  // the file and written only when some N is not 0.
  std::vector<double> N, A, Iy, zC;
  bool Has_Axial() const;

  int NN() const { return NB + 1; }
  int NDL() const { return 4 * (NB + 1); }
  // Sizes every array for nb elements, nf point and nq span loads (all zero).
  void Resize(int nb, int nf, int nq);
};

// What Solve_Problem leaves behind.
struct SolverResult {
  double mucr = 0;                  // critical load factor, 0 when none was found
  std::vector<float> Mode_Vector;   // 1..4 NN: v, theta, v', theta' per node, max |.| = 1
  double Mmax = 0;                  // end moment of largest magnitude, signed, daN.cm
  double xMmax = 0;                 // its position as a fraction of the length
  double N = 0;                     // axial force of largest magnitude, signed, daN
  std::vector<float> Efforts_M;     // 1..2 NB: M1, M2 of each element
  std::vector<float> Efforts_V;     // 1..2 NB: constant shear of each element, twice
  int NB = 0;
  std::vector<float> Restraint_Level;  // 1..NN: z of every node
  std::int16_t Solve_Status = 0;    // 0 right; see the status table
  std::string Error_Text;           // what the status means
  // The method met its tolerance: false when it was stopped, reached its
  // iteration limit, or found no factor. A mucr without it is an estimate.
  bool Converged = false;
  // The texts of the exclamation boxes the vector iteration raised on the
  // way ("Problem of convergence", "The eigenmode may be not accurate"), in
  // order, whether or not a Show_Box was connected.
  std::vector<std::string> Warnings;
};

// How a solve is run and how it talks to the windows.
struct SolveControl {
  double Tol = 0.0001;   // convergence tolerance
  int NbIter = 50;       // iteration limit
  bool Direct_Mode = false;  // batch run: the dichotomy builds no mode
  // Set by the stop button; looked at between iterations.
  bool Stop_Requested = false;
  // Status line and progress; they may serve window events, which is how the
  // stop button gets its chance during a solve.
  std::function<void(const std::string&)> Show_Status;
  std::function<void(int iteration, double value)> Show_Progress;
  // The two exclamation boxes of the vector iteration.
  std::function<void(const std::string& text)> Show_Box;
  // Plain full packed matrices and full scans (the textbook loops): used to
  // check that the profile-skipping routines change nothing.
  bool Reference = false;
  // The dichotomy factorises one trial factor per sweep, as on a processor
  // without 256-bit vectors (the same results, more slowly).
  bool One_Factor_Per_Sweep = false;
};

// Method numbers.
constexpr int Method_Eigen = 1;
constexpr int Method_Dichotomie = 2;

// The single entry of the solver. `res.mucr` stays as passed when the file
// can't be read or the method number is neither 1 nor 2.
void Solve_Problem(const std::string& path, int method, SolverResult& res, SolveControl& ctl);

// Which of the two label sets a problem file is written with.
enum class ProblemLabels { Proceed, SaveFileZVK };

// Writes a problem file in the layout the solver reads (both writers share
// number formats; they differ in the version line and the labels).
std::string Problem_Text(const ProblemData& p, ProblemLabels labels);
bool Write_ProblemFile(const std::string& path, const ProblemData& p, ProblemLabels labels);

}  // namespace zarvek
