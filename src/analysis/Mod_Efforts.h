// Bending moment and shear along the beam by closed-form statics, from the
// in-plane support scheme and the loads, before any buckling analysis.
//
// The beam is sampled twice per element, just inside both ends, so that a
// jump at a node (under a point load or a couple) shows as two values.
// Arrays are 1-based (index 0 unused), single precision, M in daN.cm and V in
// daN; lengths in cm, forces in daN, span loads in daN/cm.
//
// Sign rule, the same for every load: on a beam pinned at both ends a
// positive force or span load gives a negative moment between the supports,
// and V = -dM/dx.
#pragma once

#include <vector>

namespace zarvek {

// In-plane support schemes (Opt_AA, Opt_EA, Opt_EL, Opt_EE).
constexpr int Case_AA = 1;  // pinned - pinned
constexpr int Case_EA = 2;  // fixed (left) - pinned (right)
constexpr int Case_EL = 3;  // fixed (left) - free (right): cantilever
constexpr int Case_EE = 4;  // fixed - fixed

// Offset of the samples inside the element ends, as a fraction of the length.
constexpr double Efforts_Offset = 1e-6;

// Sampling points X(1..2 NB), fractions of the length: for element i,
// X(2i-1) = (i-1)/NB + 1e-6 and X(2i) = i/NB - 1e-6.
void Init_EffortsX(int NB, std::vector<float>& X);

// End moments M1 (left) and M2 (right). With a pinned beam M(0) = -M1 and
// M(L) = M2, so M1 = -M2 is a uniform moment. A beam fixed at both ends takes
// no end moments.
void Add_EndMoments(int Case, double L, int NB, const std::vector<float>& X, double M1, double M2,
                    std::vector<float>& M, std::vector<float>& V);

// Point force F at xrel (fraction of L), moved first onto the nearest node.
// Nothing happens when xrel is outside 0..1 or F is 0.
void Add_Force(int Case, double L, int NB, const std::vector<float>& X, double F, double xrel,
               std::vector<float>& M, std::vector<float>& V);

// Span load varying linearly from qa at xa to qb at xb (fractions of L).
// Nothing happens when both intensities are 0 or the load has no length.
void Add_DistLoad(int Case, double L, int NB, const std::vector<float>& X, double qa, double xa,
                  double qb, double xb, std::vector<float>& M, std::vector<float>& V);

// Point couple C at xc (fraction of L). M jumps by -C going through xc.
void Add_Couple(int Case, double L, int NB, const std::vector<float>& X, double C, double xc,
                std::vector<float>& M, std::vector<float>& V);

// The sampled moment of largest magnitude, signed, and its index j in 1..2 NB
// (the first of equal magnitudes); j = 0 and Mmax = 0 when every M is 0.
int Find_Mmax(int NB, const std::vector<float>& M, float& Mmax);

}  // namespace zarvek
