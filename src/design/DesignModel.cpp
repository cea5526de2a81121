#include "design/DesignModel.h"

#include <cmath>
#include <cstring>
#include <future>
#include <limits>

#include "analysis/Proceed.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/DataEntry.h"
#include "section/Mod_Section.h"

namespace zarvek {

namespace {

// A further text of the loaded language in UTF-8, the English fallback
// (UTF-8) without one. The language files are single-byte: Greek letters and
// signs such as the less-or-equal stay in the program's part of a line.
std::string T(std::string_view key, std::string_view english) {
  const std::string& t = Further_Text(key);
  return t.empty() ? std::string(english) : Cp1252_To_Utf8(t);
}

std::string Fixed(double v, int decimals) {
  return Format_Pattern(v, decimals == 2 ? "0.00" : decimals == 4 ? "0.0000" : "0.000");
}

bool Same(const std::string& a, const std::string& b) { return Num_Of_Text(a) == Num_Of_Text(b); }

// Only end moments (Chk_M) are on, or only one other load: the kinds Table 6.6
// knows. `which` tells the one load.
enum class Single { None, Moments, Force, Dist };

Single Single_Load(const BeamModel& m, int& index) {
  const int n = (int)m.Chk_M + m.Chk_F1 + m.Chk_F2 + m.Chk_F3 + m.Chk_q1 + m.Chk_q2 + m.Chk_CC;
  if (n != 1) return Single::None;
  if (m.Chk_M) return Single::Moments;
  if (m.Chk_F1 || m.Chk_F2 || m.Chk_F3) {
    index = m.Chk_F1 ? 1 : m.Chk_F2 ? 2 : 3;
    return Single::Force;
  }
  if (m.Chk_q1 || m.Chk_q2) {
    index = m.Chk_q1 ? 1 : 2;
    return Single::Dist;
  }
  return Single::None;
}

// The shape's end conditions in the loaded language: the shape is kept in
// the result as a neutral name, so that a change of language after the solve
// still shows it in the new one.
std::string Shape_Text(const std::string& shape) {
  static const std::pair<const char*, const char*> ends[] = {
      {"fixed-pinned", "Design_FixedPinned"}, {"pinned", "Design_Pinned"}, {"fixed", "Design_Fixed"}};
  for (const auto& [word, key] : ends) {
    const std::string tail = std::string(", ") + word;
    if (shape.size() > tail.size() && shape.compare(shape.size() - tail.size(), tail.size(), tail) == 0)
      return shape.substr(0, shape.size() - std::strlen(word)) + T(key, word);
  }
  return shape;
}

}  // namespace

double Table66_Kc(const BeamModel& m, std::string& shape) {
  shape.clear();
  // the table is for the moment diagram between two lateral restraints: the
  // ends only
  if (m.Chk_Punctual1 || m.Chk_Punctual2 || m.Chk_Continuous) return 0;
  int k = 0;
  const int supports = Support_Case(m);
  switch (Single_Load(m, k)) {
    case Single::Moments: {
      // a straight diagram: psi from its end values (M(0) = -M1, M(L) = M2 on
      // a beam pinned in its plane; a propped end keeps M2/2 of the far
      // moment; a cantilever carries M2 throughout)
      const double M1 = Value_Of(m.Txt_M1, 1), M2 = Value_Of(m.Txt_M2, 1);
      const double a = supports == 1 ? -M1 : supports == 2 ? -M2 / 2 : M2, b = M2;
      if (supports == 4) return 0;
      const double big = std::fabs(a) >= std::fabs(b) ? a : b, small = std::fabs(a) >= std::fabs(b) ? b : a;
      if (big == 0) return 0;
      const double psi = small / big;
      shape = "\u03c8 = " + Fixed(psi, 3);
      return Kc_Linear(psi);
    }
    case Single::Force: {
      const std::string& x = k == 1 ? m.Txt_xf1 : k == 2 ? m.Txt_xf2 : m.Txt_xf3;
      if (Num_Of_Text(x) != 0.5) return 0;
      if (supports == 1) return shape = "F, L/2, pinned", 0.86;
      if (supports == 4) return shape = "F, L/2, fixed", 0.77;
      if (supports == 2) return shape = "F, L/2, fixed-pinned", 0.82;
      return 0;
    }
    case Single::Dist: {
      const bool one = k == 1;
      const std::string &qa = one ? m.Txt_q11 : m.Txt_q21, &qb = one ? m.Txt_q12 : m.Txt_q22;
      const std::string &xa = one ? m.Txt_xq11 : m.Txt_xq21, &xb = one ? m.Txt_xq12 : m.Txt_xq22;
      if (!Same(qa, qb) || Num_Of_Text(xa) != 0 || Num_Of_Text(xb) != 1) return 0;
      if (supports == 1) return shape = "q, pinned", 0.94;
      if (supports == 4) return shape = "q, fixed", 0.90;
      if (supports == 2) return shape = "q, fixed-pinned", 0.91;
      return 0;
    }
    default: return 0;
  }
}

bool Welded_Of(const BeamModel& m) { return m.Opt_Dimensions && m.Chk_Welded; }

LtbMethod Method_For(const BeamModel& m) {
  if (m.Lst_LtbMethod == 1) return LtbMethod::General;
  if (m.Lst_LtbMethod == 2) return LtbMethod::Rolled;
  return Welded_Of(m) ? LtbMethod::General : LtbMethod::Rolled;
}

namespace {

LtbSection Section_Of(const BeamModel& m) {
  LtbSection s;
  if (m.Opt_Catalogue) {
    s.h = m.Cat_h;
    s.b1 = s.b2 = m.Cat_b;
    s.tf1 = s.tf2 = m.Cat_tf;
    s.tw = m.Cat_tw;
    s.r1 = s.r2 = m.Cat_r;
    // the catalogue's own moduli, so that the check and the catalogue agree
    SectionRecord rec;
    rec.h = (float)m.Cat_h;
    rec.b = (float)m.Cat_b;
    rec.tf = (float)m.Cat_tf;
    rec.tw = (float)m.Cat_tw;
    rec.r = (float)m.Cat_r;
    const SectionI p = Calculer_SectionI(rec);
    s.Wpl = p.Wply;
    s.Wel_Top = s.Wel_Bottom = p.Wely;
  } else if (m.Opt_Dimensions) {
    const SectionDims d = Dimensions_Of(m);
    s.h = d.h;
    s.tw = d.tw;
    s.b1 = d.bf1;
    s.tf1 = d.tf1;
    s.r1 = d.r1;
    s.b2 = d.bf2;
    s.tf2 = d.tf2;
    s.r2 = d.r2;
    s.welded = Welded_Of(m);
    // the moduli from the plates (a welded section without its fillets)
  }
  return s;
}

}  // namespace

double Fy_Of(const BeamModel& m) {
  if (m.Lst_Grade == Grade_Typed) return Value_Of(m.Txt_fy, m.Fact_EG) / 10.0;
  const LtbSection s = Section_Of(m);
  return Grade_fy(m.Lst_Grade, 10.0 * std::max(s.tf1, s.tf2));
}

LtbInput Design_Input(const BeamModel& m, const EffortsData& e, double Mcr) {
  LtbInput in;
  in.section = Section_Of(m);
  in.fy = Fy_Of(m);
  in.gammaM1 = Num_Of_Text(m.Txt_GammaM1);
  in.method = Method_For(m);
  in.useF = m.Chk_fmod;
  in.Mcr = Mcr;
  in.MEd = e.Efforts_Mmax;
  in.kc = Table66_Kc(m, in.kcShape);
  return in;
}

BeamModel Model_LoadsAtShearCentre(const BeamModel& m) {
  BeamModel c = m;
  for (std::string* z : {&c.Txt_zF1, &c.Txt_zF2, &c.Txt_zF3, &c.Txt_zq1, &c.Txt_zq2}) *z = "0";
  return c;
}

BeamModel Model_UniformMoment(const BeamModel& m, double MEd) {
  BeamModel c = m;
  c.Chk_F1 = c.Chk_F2 = c.Chk_F3 = c.Chk_q1 = c.Chk_q2 = c.Chk_CC = false;
  // end moments on a beam pinned in its plane: M(x) = M2 when M1 = -M2
  c.Opt_AA = true;
  c.Opt_EA = c.Opt_EL = c.Opt_EE = false;
  c.Chk_M = true;
  c.Opt_M2 = true;
  c.Opt_Psi = false;
  // the size of the beam's own largest moment, so that the critical factor
  // lies where the solve of the beam found its own (the solver looks for it
  // below 1000 only: a moment of 1 failed for every Mcr above 1000 units)
  const double size = m.Fact_M > 0 && std::fabs(MEd) > 0 ? std::fabs(MEd) / m.Fact_M : 1.0;
  c.Txt_M1 = Number_To_Text(MEd >= 0 ? -size : size);
  c.Txt_M2 = Number_To_Text(MEd >= 0 ? size : -size);
  c.Txt_Psi = "1";
  return c;
}

namespace {

// Mcr (daN.cm, magnitude) of a further model, 0 when its solve fails. The
// model is solved in memory: the problem file on disk stays the one of the
// user's beam, which the file-data mode and other programs read back. No
// status, progress or box: the solve may run on another thread.
double Solve_Mcr(BeamModel c, const SolveControl& ctl) {
  SolveControl k;
  k.Tol = ctl.Tol;
  k.NbIter = ctl.NbIter;
  ProceedResult p = Proceed(c, "", k);
  if (p.Solve_Status != 0 || p.Stopped || !p.Solver.Converged) return 0;
  const double mcr = p.Solver.mucr * std::fabs((double)p.Efforts.Efforts_Mmax);
  return std::isfinite(mcr) && mcr > 0 ? mcr : 0;
}

}  // namespace

DesignRun Run_Design(const BeamModel& m, const EffortsData& e, double Mcr, const SolveControl& ctl) {
  DesignRun d;
  d.grade = m.Lst_Grade;
  d.propertiesRoute = m.Opt_Properties;
  d.input = Design_Input(m, e, std::fabs(Mcr));
  if (!(std::isfinite(Mcr) && Mcr != 0)) return d;  // nothing computed
  d.run = true;
  if (d.propertiesRoute) {
    d.result.stop = LtbStop::NoDimensions;
    return d;
  }
  d.result = Ltb_Check(d.input);
  // C1 from two further solves when f is used and Table 6.6 has no kc
  if (d.result.stop == LtbStop::NoKc) {
    d.furtherSolves = 2;
    // the two solves are independent: side by side on two cores
    auto sc = std::async(std::launch::async, Solve_Mcr, Model_LoadsAtShearCentre(m), ctl);
    d.Mcr_0 = Solve_Mcr(Model_UniformMoment(m, d.input.MEd), ctl);
    d.Mcr_sc = sc.get();
    if (d.Mcr_sc > 0 && d.Mcr_0 > 0) {
      d.input.C1 = d.Mcr_sc / d.Mcr_0;
    } else {
      d.C1Failed = true;
    }
    d.result = Ltb_Check(d.input);
  }
  return d;
}

double Design_MbRd(const BeamModel& m, const EffortsData& e, double mucr) {
  const double Mcr = mucr * std::fabs((double)e.Efforts_Mmax);
  SolveControl ctl;
  const DesignRun d = Run_Design(m, e, Mcr, ctl);
  if (!d.run || d.result.stop != LtbStop::None) return std::numeric_limits<double>::quiet_NaN();
  return d.result.MbRd / m.Fact_M;
}

DesignRun Design_Of_Record(const BeamModel& m) {
  if (Num_Of_Text(m.Txt_mucr) == 0 || !(m.Mcr_Factor > 0)) return DesignRun{};
  BeamModel c = m;
  EffortsData e;
  Calculer_Efforts(c, e);
  const double Mcr = m.Mcr_Factor * std::fabs((double)e.Efforts_Mmax);
  SolveControl ctl;
  ctl.Tol = Tolerance_Of(m);
  ctl.NbIter = NbIter_Of(m);
  return Run_Design(c, e, Mcr, ctl);
}

// ---- texts ------------------------------------------------------------------

std::string Design_Title() { return T("Design_Title", "Design check (EN 1993-1-1, 6.3.2)"); }

std::vector<DesignLine> Design_Lines(const DesignRun& d, const BeamModel& m) {
  std::vector<DesignLine> out;
  const LtbResult& r = d.result;
  if (!d.run || d.propertiesRoute || r.stop == LtbStop::NoMcr || r.stop == LtbStop::NoDimensions)
    return out;
  const std::string uEG = Unit_ItemText(UnitFamily::EG, m.Lst_Unit_EG);
  const std::string uM = Unit_ItemText(UnitFamily::M, m.Lst_Unit_M);
  const std::string uDim = Unit_ItemText(UnitFamily::Dim, m.Lst_Unit_Dim);
  const double fd = m.Fact_Dim, fW = fd * fd * fd;
  const auto add = [&](std::string label, std::string value, std::string unit = "") {
    out.push_back({std::move(label), std::move(value), std::move(unit)});
  };
  const auto moment = [&](double v) { return Format_Auto(v / m.Fact_M); };

  const double tMax = std::max(d.input.section.tf1, d.input.section.tf2);
  add(T("Design_Grade", "Steel grade"),
      d.grade == Grade_Typed ? T("Design_fyTyped", "fy typed") : std::string(Grade_Name(d.grade)));
  add("fy (t = " + Format_Auto(tMax / fd) + " " + uDim + ")", Format_Auto(r.fy * 10 / m.Fact_EG), uEG);
  if (r.stop == LtbStop::NoFy) return out;
  add("\u03b3M1", Format_Auto(r.gammaM1));
  if (r.stop == LtbStop::BadGamma) return out;
  const ClassResult& c = r.cls;
  add("\u03b5 = \u221a(235/fy)", Fixed(c.eps, 3));
  const auto limits = [&](const double l[3]) {
    std::string s;
    for (int k = 0; k < 3; ++k) s += (k ? " / " : "") + (std::isfinite(l[k]) ? Format_Pattern(l[k], "0.0") : "-");
    return s;
  };
  add(T("Design_Flange", "Compression flange c/t") + " (" + limits(c.flangeLimit) + ")",
      Fixed(c.flangeRatio, 2) + "  \u2192  " + T("Design_ClassWord", "class") + " " +
          std::to_string(c.flangeClass));
  add(T("Design_Web", "Web in bending c/tw") + " (" + limits(c.webLimit) + ")",
      Fixed(c.webRatio, 2) + "  \u2192  " + T("Design_ClassWord", "class") + " " + std::to_string(c.webClass));
  add(T("Design_Class", "Class of the section"), std::to_string(c.cls));
  if (r.stop == LtbStop::Class4) return out;
  add(c.cls <= 2 ? "Wy = Wpl,y" : "Wy = Wel,y", Format_Auto(r.Wy / fW), uDim + "\u00b3");
  add("Mcr", moment(r.Mcr), uM);
  add("\u03bb\u0304LT = \u221a(Wy fy / Mcr)", Fixed(r.lambdaLT, 3));
  add(T("Design_Method", "Method"),
      d.input.method == LtbMethod::General ? T("Design_General", "6.3.2.2 general case")
                                            : T("Design_Rolled", "6.3.2.3 rolled or equivalent welded"));
  add(T("Design_Curve", "Buckling curve") + ", \u03b1LT", std::string(1, r.curve) + ", " + Fixed(r.alphaLT, 2));
  add("\u03bb\u0304LT,0, \u03b2", Fixed(r.lambda0, 2) + ", " + Fixed(r.beta, 2));
  add("\u03a6LT", Fixed(r.phiLT, 3));
  add("\u03c7LT", Fixed(r.chiLT, 3));
  if (r.useF || r.stop == LtbStop::NoKc) {
    if (d.furtherSolves) {
      add("Mcr,sc, Mcr,0", d.C1Failed ? "-" : moment(d.Mcr_sc) + ", " + moment(d.Mcr_0), uM);
      add("C1 = Mcr,sc / Mcr,0", d.C1Failed ? "-" : Fixed(d.input.C1, 3));
    }
    if (r.stop == LtbStop::NoKc) return out;
    add(r.kcShape.empty() ? "kc = 1/\u221aC1" : T("Design_kcTable", "kc, Table 6.6") + " (" + Shape_Text(r.kcShape) + ")",
        Fixed(r.kc, 3));
    add("f", Fixed(r.f, 3));
    add("\u03c7LT,mod", Fixed(r.chiLTmod, 3));
  }
  add(r.useF ? "Mb,Rd = \u03c7LT,mod Wy fy / \u03b3M1" : "Mb,Rd = \u03c7LT Wy fy / \u03b3M1", moment(r.MbRd), uM);
  add("MEd", moment(std::fabs(r.MEd)), uM);
  add("MEd / Mb,Rd", Fixed(r.utilisation, 3));
  return out;
}

std::string Design_Note(const DesignRun& d) {
  const LtbResult& r = d.result;
  if (!d.run) return T("Design_NoMcr", "No usable Mcr: the check is not made.");
  if (d.propertiesRoute)
    return T("Design_NeedDims", "The check needs the dimensions of the section (catalogue or dimensions route).");
  switch (r.stop) {
    case LtbStop::NoMcr: return T("Design_NoMcr", "No usable Mcr: the check is not made.");
    case LtbStop::NoDimensions:
      return T("Design_NeedI", "The check needs an I section with both flanges.");
    case LtbStop::NoFy:
      return T("Design_NoFy", "Table 3.1 gives no fy for flanges thicker than 80 mm: type fy.");
    case LtbStop::BadGamma: return "\u03b3M1: " + T("Design_BadGamma", "must be a positive number.");
    case LtbStop::Class4:
      return T("Design_Class4", "Class 4 section: effective properties are needed, the check stops here.");
    case LtbStop::NoKc:
      return T("Design_NoC1", "C1 could not be computed (a further solve failed): no kc, no f.");
    case LtbStop::None: break;
  }
  std::string s;
  const std::string le = " \u2264 ";
  if (r.mayIgnore)
    s = "\u03bb\u0304LT = " + Fixed(r.lambdaLT, 3) + le + "\u03bb\u0304LT,0 = " + Fixed(r.lambda0, 2) + ": ";
  else if (r.mayIgnoreByMoment)
    s = "MEd/Mcr = " + Fixed(std::fabs(r.MEd) / r.Mcr, 3) + le + "\u03bb\u0304LT,0\u00b2 = " +
        Fixed(r.lambda0 * r.lambda0, 2) + ": ";
  if (!s.empty())
    s += T("Design_Ignore",
           "lateral-torsional buckling may be ignored, only the cross-section checks apply (6.3.2.2(4)).") +
         " ";
  s += "MEd/Mb,Rd = " + Fixed(r.utilisation, 3) + (r.utilisation <= 1 ? le + "1: " : " > 1: ");
  s += r.utilisation <= 1 ? T("Design_OK", "the buckling resistance is sufficient.")
                          : T("Design_NotOK", "the buckling resistance is NOT sufficient.");
  return s;
}

void Report_Design(Rich_Text& rt, const DesignRun& d, const BeamModel& m) {
  if (!d.run) return;
  rt.NewParagraph();
  rt.Tabulate(0.05);
  rt.SetFont_Bold(true);
  rt.SetFont_Underline(true);
  rt.Send_Text(Design_Title());
  rt.SetFont_Normal();
  rt.Keep_With_Next();
  rt.NewParagraph();
  for (const DesignLine& l : Design_Lines(d, m)) {
    rt.Tabulate(0.1);
    rt.Send_Text(l.label);
    rt.Tabulate(0.6);
    rt.Send_Text(l.unit.empty() ? l.value : l.value + " " + l.unit);
    rt.NewParagraph();
  }
  rt.Tabulate(0.1);
  rt.SetFont_Bold(true);
  rt.Send_Text(Design_Note(d));
  rt.SetFont_Normal();
  rt.NewParagraph();
}

}  // namespace zarvek
