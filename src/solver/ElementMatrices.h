// Element matrices of a thin-walled beam element with lateral bending and
// torsion: four degrees at each node (v, theta, v', theta'), eight in all.
// Matrices are packed upper triangles of 36 entries, (r, c) at c(c-1)/2 + r.
#pragma once

#include <array>

namespace zarvek {

using ElemMatrix = std::array<double, 37>;  // positions 1..36

inline int Packed_Index(int c, int r) {
  if (r > c) { int t = r; r = c; c = t; }
  return c * (c - 1) / 2 + r;
}

// Restraint or link code: 0 free, -1 rigid (1e30), otherwise the spring.
inline double Rigid(double k) { return k == 0 ? 0.0 : (k == -1 ? 1e30 : k); }

// Elastic stiffness with the element's end links applied (Link[1..8]).
void Build_Ke(double E, double G, double L, double Iz, double It, double Iw,
              const std::array<double, 9>& Link, ElemMatrix& Ke);

// Series connection of the links with the element: S (K + S)^-1 K.
void Apply_Links(const std::array<double, 9>& Link, ElemMatrix& Ke);

// The loads that act on one element, local abscissae 0..1.
struct ElementLoads {
  int NF = 0, NQ = 0;
  const double* F = nullptr;   // [1..NF]
  const double* xF = nullptr;
  const double* zF = nullptr;
  const double* q1 = nullptr;  // [1..NQ]
  const double* x1 = nullptr;
  const double* q2 = nullptr;
  const double* x2 = nullptr;
  const double* zq = nullptr;
};

// Geometric stiffness. V1, V2 are overwritten on entry by the constant shear
// -(M2 - M1)/L (and given back on exit), z0 is 0 in use.
void Build_Kg(double L, double Betaz, double z0, double M1, double M2, double& V1, double& V2,
              const ElementLoads& loads, ElemMatrix& Kg);

// Geometric stiffness of an axial force N at the centroid (compression
// positive), added to Kg (which enters as K + mu Kg): -N times the element
// integral of
//   v'^2 + 2 zC v' theta' + i0^2 theta'^2,
// with zC the shear centre above the centroid and i0^2 = (Iy + Iz)/A + zC^2
// the polar radius of gyration about the shear centre (docs/axial-force.md).
void Add_Axial_Kg(double L, double N, double i0sq, double zC, ElemMatrix& Kg);

// P(xb) - P(xa), P(x) = x^p (c0 + c1 x + ... + c6 x^6), in single precision.
float Primitive(double xa, double xb, int p, double c0, double c1, double c2, double c3,
                double c4, double c5, double c6);

}  // namespace zarvek
