#include "solver/Mod_StabMat.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <locale.h>
#include <cmath>
#include <cstdio>
#include <limits>
#include <new>
#include <sstream>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "solver/ElementMatrices.h"
#include "solver/Faults.h"
#include "solver/Mod_Eigen.h"
#include "solver/SymMatrix.h"

namespace zarvek {

void ProblemData::Resize(int nb, int nf, int nq) {
  NB = nb;
  NF = nf;
  NQ = nq;
  const int nn = nb + 1;
  for (auto* v : {&L, &Iz, &It, &Iw, &Betaz, &M1, &M2, &Kt, &Kvp, &Ktp, &N, &A, &Iy, &zC})
    v->assign(nb + 1, 0.0);
  for (auto* v : {&Rv, &Rt, &Rvp, &Rtp, &z}) v->assign(nn + 1, 0.0);
  for (auto* v : {&F, &xF, &zF}) v->assign(nf + 1, 0.0);
  for (auto* v : {&q1, &x1, &q2, &x2, &zq}) v->assign(nq + 1, 0.0);
}

bool ProblemData::Has_Axial() const {
  for (size_t e = 1; e < N.size(); ++e)
    if (N[e] != 0) return true;
  return false;
}

// ------------------------------------------------------------------ reading

namespace {

struct Read_Error {};
struct Check_Failed {
  std::int16_t status;
};
// The status of a malformed axial force block.
constexpr std::int16_t Axial_Block_Status = 121;

// Free-format reader: numbers are separated by any run of blanks, tabs,
// commas or line ends; a label line is skipped whatever it says.
class Problem_Reader {
 public:
  explicit Problem_Reader(std::string text) : s_(std::move(text)) {
    for (unsigned char c : {' ', '\t', '\r', '\n', ','}) sep_[c] = true;
  }

  void Skip_Line() {
    if (p_ >= s_.size()) throw Read_Error{};
    const void* nl = std::memchr(s_.data() + p_, '\n', s_.size() - p_);
    p_ = nl ? (size_t)((const char*)nl - s_.data()) + 1 : s_.size();
  }

  double Number() {
    const char* s = s_.data();
    const size_t n = s_.size();
    size_t p = p_;
    while (p < n && sep_[(unsigned char)s[p]]) ++p;
    if (p >= n) throw Read_Error{};
    const size_t b = p;
    const double v = Parse(s, n, p);  // p moves to the end of the number
    if (p < n && !sep_[(unsigned char)s[p]]) throw Read_Error{};
    if (p - b >= 100) throw Read_Error{};
    // the rest of the line, when it holds only separators, belongs to this
    // number: the next label line is then the next line
    while (p < n && s[p] != '\n' && sep_[(unsigned char)s[p]]) ++p;
    p_ = (p < n && s[p] == '\n') ? p + 1 : p;
    return v;
  }

  // Only separators remain.
  bool At_End() {
    while (p_ < s_.size() && sep_[(unsigned char)s_[p_]]) ++p_;
    return p_ >= s_.size();
  }

  int Integer() {
    double v = Number();
    if (!(std::fabs(v) < 2147483647.0)) throw Read_Error{};
    return (int)std::nearbyint(v);
  }

 private:
  // Decimal text, correctly rounded, read from s[p]; p moves past it.
  // Anything that is not a finite number is a read error.
  static double Parse(const char* s, size_t n, size_t& p) {
    // Fast path for the usual file numbers: at most 15 significant digits and
    // a small power of ten are exact in a double, so one multiplication or
    // division rounds correctly.
    static const double pow10[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                   1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                   1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const size_t b = p;
    size_t i = p;
    bool neg = false;
    if (i < n && (s[i] == '+' || s[i] == '-')) neg = s[i++] == '-';
    // all digits into one integer (at most 19 of them fit), the point's place
    // kept as a power of ten
    unsigned long long mant = 0;
    int nd = 0, scale = 0;
    while (i < n && (unsigned)(s[i] - '0') < 10) mant = mant * 10 + (unsigned)(s[i++] - '0'), ++nd;
    if (i < n && s[i] == '.') {
      ++i;
      const size_t f = i;
      while (i < n && (unsigned)(s[i] - '0') < 10) mant = mant * 10 + (unsigned)(s[i++] - '0');
      scale = -(int)(i - f);
      nd += (int)(i - f);
    }
    if (nd == 0) throw Read_Error{};
    int ex = 0;
    if (i < n && (s[i] == 'e' || s[i] == 'E')) {
      ++i;
      bool eneg = false;
      if (i < n && (s[i] == '+' || s[i] == '-')) eneg = s[i++] == '-';
      int ed = 0;
      for (; i < n && (unsigned)(s[i] - '0') < 10; ++i, ++ed)
        if (ex < 100000) ex = ex * 10 + (s[i] - '0');
      if (ed == 0) throw Read_Error{};
      if (eneg) ex = -ex;
    }
    p = i;
    const int e10 = scale + ex;
    if (nd <= 19 && mant <= (1ull << 53) && e10 >= -22 && e10 <= 22) {
      double v = (double)mant;
      v = e10 >= 0 ? v * pow10[e10] : v / pow10[-e10];
      return neg ? -v : v;
    }
    static locale_t c_locale = newlocale(LC_ALL_MASK, "C", nullptr);
    char buf[128];
    const size_t len = i - b;
    if (len >= sizeof buf) throw Read_Error{};
    std::memcpy(buf, s + b, len);
    buf[len] = '\0';
    char* end = nullptr;
    const double v = strtod_l(buf, &end, c_locale);
    if (end != buf + len || !std::isfinite(v)) throw Read_Error{};
    return v;
  }

  std::string s_;
  size_t p_ = 0;
  bool sep_[256] = {};
};

void Fail(std::int16_t status) { throw Check_Failed{status}; }

// The optional axial force block after the span loads: a title line, then
// one line per element: n, N, A, Iy, zC. Nothing after the span loads is a
// beam without axial force; anything else that does not make a whole block
// within its limits is refused with a status of its own.
void Read_Axial_Block(Problem_Reader& in, ProblemData& P, SolverResult& res) {
  if (in.At_End()) return;
  try {
    in.Skip_Line();
    double Nmax = 0;
    for (int n = 1; n <= P.NB; ++n) {
      const int idx = in.Integer();
      const double N = (float)in.Number(), A = (float)in.Number(), Iy = (float)in.Number(),
                   zC = (float)in.Number();
      if (idx != n) Fail(Axial_Block_Status);
      if (!(std::fabs(N) <= 1.0001e10) || !(std::fabs(zC) <= 150.015)) Fail(Axial_Block_Status);
      // the constants count only where a force acts
      if (N != 0 && (!(0.009999 <= A && A <= 1.0001e6) || !(9.999e-5 <= Iy && Iy <= 1.0001e10)))
        Fail(Axial_Block_Status);
      P.N[n] = N;
      P.A[n] = A;
      P.Iy[n] = Iy;
      P.zC[n] = zC;
      if (std::fabs(N) > std::fabs(Nmax)) Nmax = N;
    }
    if (!in.At_End()) Fail(Axial_Block_Status);
    res.N = Nmax;
  } catch (const Read_Error&) {
    Fail(Axial_Block_Status);
  }
}

// Reads and checks a problem file. Fills the moment arrays of the result on
// the way. Throws Read_Error or Check_Failed.
void Read_Problem(std::string text, ProblemData& P, SolverResult& res) {
  Problem_Reader in(std::move(text));
  in.Skip_Line();
  in.Skip_Line();
  in.Skip_Line();
  const int NB = in.Integer();
  const double E = in.Number();
  const double G = in.Number();
  if (NB < 50 || NB > 300) Fail(102);
  if (E < 999.9 || E > 1.0001e7) Fail(103);
  if (G / E > 0.50005 || G / E < 0.09999) Fail(104);
  P.Resize(NB, 0, 0);
  P.E = E;
  P.G = G;
  const int NN = NB + 1;
  res.NB = NB;
  res.Efforts_M.assign(2 * NB + 1, 0.0f);
  res.Efforts_V.assign(2 * NB + 1, 0.0f);
  res.Restraint_Level.assign(NN + 1, 0.0f);

  auto bad_link = [](double k) { return k < 0 && k != -1; };
  in.Skip_Line();
  for (int n = 1; n <= NB; ++n) {
    const int idx = in.Integer();
    const float L = (float)in.Number(), Iz = (float)in.Number(), It = (float)in.Number(),
                Iw = (float)in.Number(), Bz = (float)in.Number();
    const double Kt = in.Number(), Kvp = in.Number(), Ktp = in.Number();
    if (idx != n) Fail(105);
    if (!(0.9999 <= L && L <= 300.03)) Fail(106);
    if (!(9.999e-5 <= Iz && Iz <= 1.0001e10) || !(0.0009999 <= It && It <= 1.0001e10)) Fail(107);
    if (!(0 <= Iw && Iw <= 1.0001e15)) Fail(108);
    if (std::fabs(Bz) > 150.015) Fail(120);
    if (bad_link(Kt) || bad_link(Kvp) || bad_link(Ktp)) Fail(109);
    P.L[n] = L;
    P.Iz[n] = Iz;
    P.It[n] = It;
    P.Iw[n] = Iw;
    P.Betaz[n] = Bz;
    P.Kt[n] = Kt;
    P.Kvp[n] = Kvp;
    P.Ktp[n] = Ktp;
  }
  // The total length in the precision of the lengths, so that an abscissa
  // moved onto the right end is exactly the end.
  float Ltot = 0;
  for (int n = 1; n <= NB; ++n) Ltot += (float)P.L[n];

  in.Skip_Line();
  for (int n = 1; n <= NN; ++n) {
    const int idx = in.Integer();
    const double Rv = in.Number(), Rt = in.Number(), Rvp = in.Number(), Rtp = in.Number();
    const float z = (float)in.Number();
    if (idx != n) throw Read_Error{};  // no status of its own: stays 1
    if (bad_link(Rv) || bad_link(Rt) || bad_link(Rvp) || bad_link(Rtp)) Fail(110);
    P.Rv[n] = Rv;
    P.Rt[n] = Rt;
    P.Rvp[n] = Rvp;
    P.Rtp[n] = Rtp;
    P.z[n] = z;
    res.Restraint_Level[n] = z;
  }

  in.Skip_Line();
  double Mmax = 0;
  int nodeMax = 1;
  for (int n = 1; n <= NB; ++n) {
    const int idx = in.Integer();
    const float M1 = (float)in.Number(), M2 = (float)in.Number();
    if (idx != n) Fail(111);
    const float L_n = (float)P.L[n];
    P.M1[n] = M1;
    P.M2[n] = M2;
    const float V = (float)(-(M2 - M1) / L_n);
    res.Efforts_M[2 * n - 1] = M1;
    res.Efforts_M[2 * n] = M2;
    res.Efforts_V[2 * n - 1] = V;
    res.Efforts_V[2 * n] = V;
    if (std::fabs(M1) > std::fabs(Mmax)) {
      Mmax = M1;
      nodeMax = n;
    }
    if (std::fabs(M2) > std::fabs(Mmax)) {
      Mmax = M2;
      nodeMax = n + 1;
    }
  }
  float before = 0;
  for (int n = 1; n < nodeMax; ++n) before += (float)P.L[n];
  res.Mmax = Mmax;
  res.xMmax = (double)before / Ltot;

  in.Skip_Line();
  in.Skip_Line();
  const int NF = in.Integer();
  const int NQ = in.Integer();
  if (NF < 0 || NF > NN) Fail(113);
  if (NQ < 0 || NQ > 10) Fail(114);
  P.NF = NF;
  P.NQ = NQ;
  for (auto* v : {&P.F, &P.xF, &P.zF}) v->assign(NF + 1, 0.0);
  for (auto* v : {&P.q1, &P.x1, &P.q2, &P.x2, &P.zq}) v->assign(NQ + 1, 0.0);
  // an abscissa within 1 % of the right end is taken as the end itself
  auto snap = [Ltot](float x) { return (x > 0.99 * Ltot && x < 1.01 * Ltot) ? Ltot : x; };
  if (NF > 0) {
    in.Skip_Line();
    for (int k = 1; k <= NF; ++k) {
      const float F = (float)in.Number();
      const float x = snap((float)in.Number());
      const float z = (float)in.Number();
      if (x < 0 || x > Ltot) throw Read_Error{};
      P.F[k] = F;
      P.xF[k] = x;
      P.zF[k] = z;
    }
  }
  if (NQ > 0) {
    in.Skip_Line();
    for (int k = 1; k <= NQ; ++k) {
      const float q1 = (float)in.Number(), x1 = (float)in.Number(), q2 = (float)in.Number();
      const float x2 = snap((float)in.Number());
      const float z = (float)in.Number();
      if (x1 < 0 || x1 >= x2 - Ltot / 100) Fail(115);
      if (x2 < 0 || x2 > Ltot) Fail(116);
      P.q1[k] = q1;
      P.x1[k] = x1;
      P.q2[k] = q2;
      P.x2[k] = x2;
      P.zq[k] = z;
    }
  }
  Read_Axial_Block(in, P, res);
  if (Mmax == 0 && res.N == 0) Fail(112);
}

// ------------------------------------------------------------ distribution

// Load entries of every element, [k][e] flattened as k * (NB + 1) + e.
struct ElementLoadTable {
  int NB = 0, NF = 0, NQ = 0;
  std::vector<double> F, xF, zF, q1, x1, q2, x2, zq;
  size_t At(int k, int e) const { return (size_t)k * (NB + 1) + e; }
};

void Distribute_Loads(const ProblemData& P, ElementLoadTable& T) {
  T.NB = P.NB;
  T.NF = P.NF;
  T.NQ = P.NQ;
  const size_t nf = (size_t)(P.NF + 1) * (P.NB + 1), nq = (size_t)(P.NQ + 1) * (P.NB + 1);
  for (auto* v : {&T.F, &T.xF, &T.zF}) v->assign(nf, 0.0);
  for (auto* v : {&T.q1, &T.x1, &T.q2, &T.x2, &T.zq}) v->assign(nq, 0.0);
  for (int k = 1; k <= P.NF; ++k) {
    double pos = 0;
    for (int e = 1; e <= P.NB; ++e) {
      // a load on a node belongs to the element on its left
      if (pos + P.L[e] >= P.xF[k]) {
        const size_t i = T.At(k, e);
        T.xF[i] = (P.xF[k] - pos) / P.L[e];
        T.F[i] = P.F[k];
        T.zF[i] = P.zF[k];
        break;
      }
      pos += P.L[e];
    }
  }
  for (int k = 1; k <= P.NQ; ++k) {
    double pos = 0;
    bool started = false;
    double qEnd = 0;
    for (int e = 1; e <= P.NB; ++e) {
      if (P.x1[k] < pos + P.L[e]) {
        const size_t i = T.At(k, e);
        double xi1, qin;
        if (started) {
          xi1 = 0;
          qin = qEnd;
        } else {
          xi1 = (P.x1[k] - pos) / P.L[e];
          qin = P.q1[k];
          started = true;
        }
        T.x1[i] = xi1;
        T.q1[i] = qin;
        T.zq[i] = P.zq[k];
        if (P.x2[k] < pos + P.L[e]) {
          T.x2[i] = (P.x2[k] - pos) / P.L[e];
          T.q2[i] = P.q2[k];
          break;
        }
        T.x2[i] = 1;
        qEnd = qin + (1 - xi1) * P.L[e] * (P.q2[k] - P.q1[k]) / (P.x2[k] - P.x1[k]);
        T.q2[i] = qEnd;
      }
      pos += P.L[e];
    }
  }
}

// ----------------------------------------------------------------- assembly

void Add_Element(int e, const ElemMatrix& Me, SymMatrix& M) {
  const int a = 4 * e - 3, b = 4 * e + 1;
  for (int c = a; c <= a + 3; ++c)
    for (int r = a; r <= c; ++r) M(r, c) += Me[Packed_Index(c - a + 1, r - a + 1)];
  for (int c = b; c <= b + 3; ++c)
    for (int r = b; r <= c; ++r) M(r, c) += Me[Packed_Index(c - b + 5, r - b + 5)];
  for (int c = b; c <= b + 3; ++c)
    for (int r = a; r <= a + 3; ++r) M(r, c) += Me[Packed_Index(c - b + 5, r - a + 1)];
}

// Moves node i's degrees to the height z: A := T' A T.
void Transform_Node(int i, double z, SymMatrix& A) {
  const int NDL = A.N();
  const int r1 = 4 * i - 3, r2 = r1 + 1, r3 = r1 + 2, r4 = r1 + 3;
  for (int j = r2; j <= NDL; ++j) {
    if (r2 < A.First(j)) break;
    A(r2, j) += z * A.Get(r1, j);
  }
  for (int j = A.First(r2); j <= r2; ++j) A(j, r2) += z * A.Get(j, r1);
  for (int j = r4; j <= NDL; ++j) {
    if (r4 < A.First(j)) break;
    A(r4, j) += z * A.Get(r3, j);
  }
  for (int j = A.First(r4); j <= r4; ++j) A(j, r4) += z * A.Get(j, r3);
}

}  // namespace

// ------------------------------------------------------------ Solve_Problem

void Solve_Problem(const std::string& path, int method, SolverResult& res, SolveControl& ctl) {
  MethodState st;
  st.ctl = &ctl;
  res.Solve_Status = 0;
  res.Error_Text.clear();
  res.Converged = false;
  res.Warnings.clear();
  st.Warnings = &res.Warnings;
  st.Status(Msg(80));
  res.Solve_Status = 1;

  // Phases 1-4: read and check
  ProblemData P;
  {
    std::string text;
    bool opened = false;
    if (FILE* f = std::fopen(path.c_str(), "rb")) {
      opened = true;
      char buf[65536];
      size_t n;
      while ((n = std::fread(buf, 1, sizeof buf, f)) > 0) text.append(buf, n);
      if (std::ferror(f)) opened = false;
      std::fclose(f);
    }
    try {
      if (!opened) throw Read_Error{};
      Read_Problem(std::move(text), P, res);
    } catch (const Check_Failed& c) {
      res.Solve_Status = c.status;
      res.Error_Text = c.status == Axial_Block_Status
                           ? Further_Text("Axial_Block_Refused",
                                          "The axial force block of the problem file is malformed.")
                           : Msg(57);
      return;
    } catch (...) {
      res.Solve_Status = 1;
      res.Error_Text = Msg(57);
      return;
    }
    res.Solve_Status = 0;
  }
  const int NB = P.NB, NN = P.NN(), NDL = P.NDL();
  res.Mode_Vector.assign(NDL + 1, 0.0f);

  try {
    Clear_FP();
    // 5.
    ElementLoadTable T;
    Distribute_Loads(P, T);
    // 6.
    st.Status(Msg(1));
    SymMatrix K, KG;
    if (ctl.Reference) {
      K.Init_Full(NDL);
      KG.Init_Full(NDL);
    } else {
      K.Init_BeamProfile(NDL);
      KG.Init_BeamProfile(NDL);
    }
    std::vector<double> F(P.NF + 1), xF(P.NF + 1), zF(P.NF + 1);
    std::vector<double> q1(P.NQ + 1), x1(P.NQ + 1), q2(P.NQ + 1), x2(P.NQ + 1), zq(P.NQ + 1);
    ElementLoads ld{P.NF, P.NQ, F.data(), xF.data(), zF.data(), q1.data(), x1.data(), q2.data(), x2.data(), zq.data()};
    for (int e = 1; e <= NB; ++e) {
      std::array<double, 9> Link;
      Link.fill(1e30);
      Link[2] = Rigid(P.Kt[e]);
      Link[3] = Rigid(P.Kvp[e]);
      Link[4] = Rigid(P.Ktp[e]);
      ElemMatrix Ke, Kg;
      Build_Ke(P.E, P.G, P.L[e], P.Iz[e], P.It[e], P.Iw[e], Link, Ke);
      Add_Element(e, Ke, K);
      for (int k = 1; k <= P.NF; ++k) {
        const size_t i = T.At(k, e);
        F[k] = T.F[i];
        xF[k] = T.xF[i];
        zF[k] = T.zF[i];
      }
      for (int k = 1; k <= P.NQ; ++k) {
        const size_t i = T.At(k, e);
        q1[k] = T.q1[i];
        x1[k] = T.x1[i];
        q2[k] = T.q2[i];
        x2[k] = T.x2[i];
        zq[k] = T.zq[i];
      }
      double V1 = 0, V2 = 0;
      Build_Kg(P.L[e], P.Betaz[e], 0.0, P.M1[e], P.M2[e], V1, V2, ld, Kg);
      if (P.N[e] != 0)
        Add_Axial_Kg(P.L[e], P.N[e], (P.Iy[e] + P.Iz[e]) / P.A[e] + P.zC[e] * P.zC[e], P.zC[e], Kg);
      Add_Element(e, Kg, KG);
    }
    // 7. restraint heights, then the restraints themselves
    for (int i = 1; i <= NN; ++i) {
      if (P.z[i] != 0) {
        Transform_Node(i, P.z[i], K);
        Transform_Node(i, P.z[i], KG);
      }
    }
    for (int i = 1; i <= NN; ++i) {
      K(4 * i - 3, 4 * i - 3) += Rigid(P.Rv[i]);
      K(4 * i - 2, 4 * i - 2) += Rigid(P.Rt[i]);
      K(4 * i - 1, 4 * i - 1) += Rigid(P.Rvp[i]);
      K(4 * i, 4 * i) += Rigid(P.Rtp[i]);
    }
    Check_FP();
    // 8.-9.
    st.Status(Msg(70));
    std::vector<double> Phi(NDL + 1, 0.0);
    // 10.
    if (method == Method_Eigen) {
      double mu = 0;
      res.mucr = 0;
      bool failed = true;
      SymMatrix& B = KG;
      Eigen(K, B, mu, NDL, NN, ctl.Tol, ctl.NbIter, Phi, failed, st);
      res.Solve_Status = st.Solve_Status;
      res.Error_Text = st.Error_Text;
      res.Converged = st.Converged && !failed;
      if (failed) {
        res.mucr = 0;
        return;
      }
      res.mucr = mu;
    } else if (method == Method_Dichotomie) {
      Skyline S;
      double mu = 0;
      Dichotomie(K, KG, NDL, S, ctl.Tol, ctl.NbIter, mu, Phi, st);
      res.Solve_Status = st.Solve_Status;
      res.Error_Text = st.Error_Text;
      res.Converged = st.Converged && st.Solve_Status == 0;
      res.mucr = mu;
      if (mu == 0 || ctl.Direct_Mode) return;
    } else {
      res.Solve_Status = 0;
      return;
    }
    // 11. back to the shear centre, then the largest component becomes 1
    for (int i = 1; i <= NN; ++i) {
      const double z = P.z[i];
      if (z != 0) {
        Phi[4 * i - 3] += z * Phi[4 * i - 2];
        Phi[4 * i - 1] += z * Phi[4 * i];
      }
    }
    double mx = 0;
    for (int i = 1; i <= NDL; ++i)
      if (std::fabs(Phi[i]) >= mx) mx = std::fabs(Phi[i]);
    Check_FP();
    if (mx != 0)
      for (int i = 1; i <= NDL; ++i) res.Mode_Vector[i] = (float)(Phi[i] / mx);
  } catch (...) {
    // overflow, division by zero, exhausted memory ...
    res.Solve_Status = 11;
    res.Error_Text = "Problem in solving Mcr";
    res.Converged = false;
  }
}

// ------------------------------------------------------------------ writing

namespace {

// One field of a problem file: right-aligned in its width, as the reader's
// neighbours expect; a text that fills the width or passes it gets one blank
// in front, so that it never runs into the field before it.
std::string Field(double v, int width, int decimals) {
  std::string t = Format_Fixed(v, width, decimals);
  if (t.empty() || t[0] != ' ') t.insert(t.begin(), ' ');
  return t;
}
std::string Field(const std::string& text, int width) {
  std::string t = To_DotText(text, width);
  if (t.empty() || t[0] != ' ') t.insert(t.begin(), ' ');
  return t;
}

}  // namespace

std::string Problem_Text(const ProblemData& p, ProblemLabels labels) {
  const bool pr = labels == ProblemLabels::Proceed;
  std::string s;
  auto line = [&s](const std::string& t) { s += t; s += "\n"; };
  line(std::string(Program_Name()) + (pr ? " Version " : "Version ") + Version_Text());
  line("Units : daN cm");
  line(pr ? "Nb Elements   E   G" : "Nb Elements, E, G");
  line(std::to_string(p.NB) + Field(Number_To_Text(p.E), 15) + Field(Number_To_Text(p.G), 15));
  line(pr ? "Elements : i  Li  Izi  Iti  Iwi  Betazi  Kti  Kvpi  Ktpi"
          : "Elements : n, L, Iz, It, Iw, Betaz, Kt, Kvp, Ktp");
  for (int n = 1; n <= p.NB; ++n)
    line(Format_Fixed(n, 3, 0) + Field(p.L[n], 9, 2) + Field(p.Iz[n], 12, 2) +
         Field(p.It[n], 12, 2) + Field(p.Iw[n], 14, 1) + Field(p.Betaz[n], 8, 2) +
         Field(p.Kt[n], 14, 2) + Field(p.Kvp[n], 14, 2) + Field(p.Ktp[n], 14, 2));
  line(pr ? "Nodes : i  Rvi  Rti  Rvpi  Rtpi  zi" : "Nodes : n, Rv, Rt, Rvp, Rtp, z");
  for (int n = 1; n <= p.NN(); ++n)
    line(Format_Fixed(n, 3, 0) + Field(p.Rv[n], 15, 2) + Field(p.Rt[n], 15, 2) +
         Field(p.Rvp[n], 15, 2) + Field(p.Rtp[n], 15, 2) + Field(p.z[n], 10, 2));
  line(pr ? "Elements : i   M1i   M2i" : "Elements : n, M1, M2");
  for (int n = 1; n <= p.NB; ++n)
    line(Format_Fixed(n, 3, 0) + Field(p.M1[n], 14, 1) + Field(p.M2[n], 14, 1));
  line("Member Loads");
  line("NF NQ");
  line(std::to_string(p.NF) + " " + std::to_string(p.NQ));
  if (p.NF > 0) {
    line(pr ? "Fi  xi  zFi" : "F, x, z");
    for (int k = 1; k <= p.NF; ++k)
      line(Field(p.F[k], 12, 1) + Field(p.xF[k], 10, 2) + Field(p.zF[k], 10, 2));
  }
  if (p.NQ > 0) {
    line(pr ? "q1i  x1i  q2i  x2i  zqi" : "q1, x1, q2, x2, z");
    for (int k = 1; k <= p.NQ; ++k)
      line(Field(p.q1[k], 12, 3) + Field(p.x1[k], 10, 2) + Field(p.q2[k], 12, 3) +
           Field(p.x2[k], 10, 2) + Field(p.zq[k], 10, 2));
  }
  if (p.Has_Axial()) {
    line(pr ? "Axial force : i  Ni  Ai  Iyi  zCi" : "Axial force : n, N, A, Iy, zC");
    for (int n = 1; n <= p.NB; ++n)
      line(Format_Fixed(n, 3, 0) + Field(p.N[n], 14, 1) + Field(p.A[n], 12, 2) +
           Field(p.Iy[n], 12, 2) + Field(p.zC[n], 10, 2));
  }
  return s;
}

bool Write_ProblemFile(const std::string& path, const ProblemData& p, ProblemLabels labels) {
  return Write_File_Atomic(path, Problem_Text(p, labels));
}

}  // namespace zarvek
