// The two ways to the critical load factor: inverse vector iteration with a
// Rayleigh-type quotient, and bisection on the sign of the factorised
// K + mu KG.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "solver/Mod_StabMat.h"
#include "solver/SkylineLanes.h"
#include "solver/SymMatrix.h"

namespace zarvek {

// Status and message of a method, plus the caller's hooks.
struct MethodState {
  SolveControl* ctl = nullptr;
  std::int16_t Solve_Status = 0;
  std::string Error_Text;
  bool Converged = false;          // the tolerance was met
  std::vector<std::string>* Warnings = nullptr;  // where Box texts are kept
  void Status(const std::string& text) const;
  void Progress(int it, double value) const;
  void Box(const std::string& text) const;
};

// Vector iteration. K is factorised in place; B holds KG on entry and
// K + mu KG at the end. Phi (1..NDL) receives the mode. `failed` is true on
// any exit with a fault. A dominant negative eigenvalue (the reversed loads
// of a mono-symmetric beam) is shifted away and the critical factor taken
// from the Rayleigh quotient; a stiffness matrix that is nearly singular, or
// no positive factor, ends with a text that names the other method.
void Eigen(SymMatrix& K, SymMatrix& B, double& mu, int NDL, int NN, double Tol, int NbIter,
           std::vector<double>& Phi, bool& failed, MethodState& st);

// Skyline (active column) storage: MAXA[j] is the position of the diagonal of
// column j, followed by the rows above it up to the first non-zero one.
struct Skyline {
  std::vector<double> A;     // A[0] is always 0
  std::vector<long> MAXA;    // 1..NDL+1
  std::vector<int> First;    // work of Evaluate_Skyline: first stored row of each column
  std::vector<double> Pivot; // and the pivots found so far, side by side
};

void Build_Skyline(const SymMatrix& K, const SymMatrix& KG, int NDL, double mu, Skyline& S);
// L D L' in place; the determinant as mantissa 10^exponent, exponent 0 when a
// pivot is not positive. `literal` keeps the decimal mantissa pivot by pivot
// (a division per step); otherwise the product is carried with a binary
// exponent and turned decimal at the end, which decides the same.
void Factor_Skyline(Skyline& S, int NDL, double& mantissa, int& exponent, bool literal = true);
// Build_Skyline and Factor_Skyline in one sweep, column by column, for a
// matrix in profile storage; stops at the first pivot that is not positive.
// The determinant is carried in binary form.
void Evaluate_Skyline(const SymMatrix& K, const SymMatrix& KG, int NDL, double mu, Skyline& S,
                      double& mantissa, int& exponent);
// The determinant of a lane of Evaluate_Lanes, as Evaluate_Skyline gives it.
void Lane_Determinant(const Lane_Outcome& o, double& mantissa, int& exponent);
void Solve_Skyline(const Skyline& S, int NDL, std::vector<double>& b);
long Skyline_Position(int i, int j, const std::vector<long>& MAXA);
void Build_Mode(int NDL, Skyline& S, std::vector<double>& Phi);

// Bisection on the positive definiteness of K + mu KG. Where the processor
// allows, the factors it will ask for next are factorised together with the
// one it asks for (Evaluate_Lanes); the decisions are those of one factor
// at a time.
void Dichotomie(const SymMatrix& K, const SymMatrix& KG, int NDL, Skyline& S, double Tol,
                int NbIter, double& mu, std::vector<double>& Phi, MethodState& st);

}  // namespace zarvek
