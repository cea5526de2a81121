#include "report/Report.h"

#include <cmath>
#include <cstdio>
#include <map>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Units.h"
#include "model/Axial.h"

namespace zarvek {

namespace {

// The English texts the report uses, for a program that runs without a
// language file (section * 1000 + line; messages under section 11).
const std::map<int, const char*>& English() {
  static const std::map<int, const char*> t = {
      {1021, "Loads"},
      {1023, "Length L"},
      {1024, "Number of elements N"},
      {1025, "Young's modulus E"},
      {1026, "Shear modulus G"},
      {1027, "Poisson's ratio"},
      {1029, "Level z above the shear centre"},
      {1030, "Position x/L"},
      {1031, "N\xB0 Iteration"},
      {1034, "Critical moment Mcr"},
      {1035, "Beam"},
      {1036, "Section"},
      {1037, "Steel"},
      {1038, "Section properties"},
      {1039, "End 1 (left)"},
      {1040, "End 2 (right)"},
      {1044, "Intermediate lateral restraints"},
      {1046, "In-plane supports"},
      {1047, "End moments"},
      {1048, "Point loads"},
      {1049, "Point moment"},
      {1050, "Distributed loads"},
      {1052, "Bending moment M and shear force V"},
      {1054, "Eigenvalue solving process"},
      {1055, "Critical moment"},
      {1056, "Buckling mode"},
      {1058, "By Dimensions"},
      {1059, "By Properties"},
      {2005, "Convergence tolerance"},
      {2028, "Dichotomic process on Determinant"},
      {2029, "Vector iteration method (Rayleigh quotient)"},
      {3001, "Results report"},
      {11005, "Continuous restraint along the beam"},
      {11020, "Fixed"},
      {11021, "Clamped - hinged"},
      {11022, "Cantilever (clamped - free)"},
      {11023, "Clamped - clamped"},
      {11028, "Free"},
      {11029, "Simply supported (hinged - hinged)"},
      {11058, "Intermediate restraint"},
      {11067, "Section given by its properties: no drawing"},
      {11068, "Shear centre not at the centroid"},
      {11077, "Maximum moment"},
      {11083, "Critical factor"},
      {11088, "Version"},
      {11091, "Lateral displacement v"},
      {11092, "Twist"},
      {11093, "Lateral rotation v'"},
      {11094, "Warping"},
  };
  return t;
}

std::string Fallback(int key) {
  const auto it = English().find(key);
  return it == English().end() ? std::string() : Cp1252_To_Utf8(it->second);
}

// Captions of the main window by their control.
std::string Lbl_Trad(int i) { return Caption(1, 23 + i); }
std::string Cdr_Trad(int i) { return Caption(1, 35 + i); }

std::string Unit_Text(const BeamModel& m, UnitFamily f) { return Unit_ItemText(f, Unit_Index(m, f)); }

// Value of a restraint list as the report shows it, with its unit when it
// holds a spring.
struct Restraint_Row {
  std::string value, unit;
};
Restraint_Row Restraint_Value(const BeamModel& m, const RestraintList& l, UnitFamily f) {
  if (l.index == 0) return {Msg_Utf8(28), ""};
  if (l.index == 1) return {Msg_Utf8(20), ""};
  return {l.text, Unit_Text(m, f)};
}

void Title(Rich_Text& rt, const std::string& text) {
  rt.NewParagraph();
  rt.Tabulate(0.05);
  rt.SetFont_Bold(true);
  rt.SetFont_Underline(true);
  rt.Send_Text(text);
  rt.SetFont_Normal();
  rt.Keep_With_Next();
  rt.NewParagraph();
}

void Picture(Rich_Text& rt, const Report_Inputs& in, Report_PictureKind kind) {
  if (!in.Pictures) return;
  const Report_Picture p = in.Pictures(kind);
  if (p.empty()) return;
  rt.SetAlignment(Align_Centre);
  rt.Send_Image(p);
  rt.NewParagraph();
  rt.SetAlignment(Align_Left);
}

void Restraint_Line(Rich_Text& rt, const BeamModel& m, const std::string& label, const std::string& symbol,
                    const RestraintList& l, UnitFamily f) {
  const Restraint_Row r = Restraint_Value(m, l, f);
  rt.WriteLine(label, symbol, r.value, r.unit);
}

const std::string Theta_Prime = "*q \xC2\xA2";  // q, blank, 0xA2: theta prime in the Greek font

// A key of a diagram: a short text in the colour of its curve.
void Key(Rich_Text& rt, const std::string& text, Rich_Colour c, bool greek) {
  rt.SetFont_Bold(true);
  rt.SetFont_Color(c);
  if (greek) rt.SetFont_Name("Symbol");
  rt.Send_Text(text);
  rt.SetFont_Normal();
  rt.Send_Text("  ");
}

}  // namespace

const char* Report_PictureName(Report_PictureKind kind) {
  switch (kind) {
    case Report_PictureKind::Beam: return "beam";
    case Report_PictureKind::Section: return "section";
    case Report_PictureKind::Forces: return "forces";
    case Report_PictureKind::Mode: return "mode";
  }
  return "";
}

std::string Caption(int section, int line) {
  const std::string& t = Section_Line(section, line);
  if (!t.empty()) return Cp1252_To_Utf8(t);
  return Fallback(section * 1000 + line);
}

std::string Msg_Utf8(int n) {
  const std::string& t = Msg(n);
  if (!t.empty()) return Cp1252_To_Utf8(t);
  return Fallback(11000 + n);
}

std::string Report_DateTime(const std::tm& when, const std::string& Language_Code) {
  char date[16], time[8];
  const int d = when.tm_mday, mo = when.tm_mon + 1, y = when.tm_year + 1900;
  if (Upper(Trim(Language_Code)) == "UK")
    std::snprintf(date, sizeof date, "%02d-%02d-%04d", mo % 100, d % 100, y % 10000);
  else
    std::snprintf(date, sizeof date, "%02d/%02d/%04d", d % 100, mo % 100, y % 10000);
  std::snprintf(time, sizeof time, "%02d:%02d", when.tm_hour % 100, when.tm_min % 100);
  return std::string(date) + "  " + time;
}

bool Report_ForcesComputed(const BeamModel& m) { return Num_Of_Text(m.Txt_Mmax[0]) != 0; }
bool Report_Solved(const BeamModel& m) { return Num_Of_Text(m.Txt_mucr) != 0; }

Rich_Text Report_Builder() {
  Rich_CharFormat normal;
  normal.font = "Arial";
  normal.size = 8;
  return Rich_Text(normal);
}

void Edit_Results(Rich_Text& rt, const BeamModel& m, const Report_Inputs& in) {
  const std::string uL = Unit_Text(m, UnitFamily::L), uEG = Unit_Text(m, UnitFamily::EG),
                    uIzt = Unit_Text(m, UnitFamily::Izt), uIw = Unit_Text(m, UnitFamily::Iw),
                    uDim = Unit_Text(m, UnitFamily::Dim), uM = Unit_Text(m, UnitFamily::M),
                    uF = Unit_Text(m, UnitFamily::F), uq = Unit_Text(m, UnitFamily::q);

  // 1. header: the maker, then date and time in the right-hand column
  rt.SetFont_Name("Arial");
  rt.SetFont_Size(12);
  rt.SetFont_Bold(true);
  rt.Send_Text("NORVE");
  rt.Tabulate(0.75);
  rt.Send_Text(Report_DateTime(in.When, in.Language_Code));
  rt.SetFont_Normal();

  // 2. title, program and version
  rt.NewParagraph();
  rt.NewParagraph();
  rt.SetFont_Size(16);
  rt.SetFont_Bold(true);
  rt.Send_Text(Caption(3, 1));
  rt.SetFont_Normal();
  rt.NewParagraph();
  rt.Send_Text(std::string(Program_Name()) + " " + Msg_Utf8(88) + " " + Version_Text());
  rt.NewParagraph();

  // 3. the beam and its loads
  Picture(rt, in, Report_PictureKind::Beam);

  // 4. beam
  Title(rt, Cdr_Trad(0));
  rt.WriteLine(Lbl_Trad(0), "L", m.Txt_L, uL);
  rt.WriteLine(Lbl_Trad(1), "N", NB_Text(m), "");

  // 5. steel
  Title(rt, Cdr_Trad(2));
  rt.WriteLine(Lbl_Trad(2), "E", m.Txt_E, uEG);
  rt.WriteLine(Lbl_Trad(4), "*n", m.Txt_Nu, "");
  rt.WriteLine(Lbl_Trad(3), "G", m.Txt_G, uEG);

  // 6. section: how it was given, and its drawing
  const int slot = Section_Slot(m);
  std::string kind;
  if (slot == 1) kind = m.Lbl_SelectedProfile;
  else if (slot == 2) kind = Remove_FirstHotKey(Caption(1, 58));
  else kind = Remove_FirstHotKey(Caption(1, 59));
  Title(rt, Cdr_Trad(1) + " - " + kind);

  // 7. dimensions of the shape chosen on the dimensions route
  if (slot == 2) {
    rt.WriteLine("", "h", m.Txt_h, uDim);
    rt.WriteLine("", "tw", m.Txt_tw, uDim);
    switch (m.Tab_Dim) {
      case 1:
        rt.WriteLine("", "bf1", m.Txt_bf1, uDim);
        rt.WriteLine("", "tf1", m.Txt_tf1, uDim);
        rt.WriteLine("", "r1", m.Txt_r1, uDim);
        rt.WriteLine("", "bf2", m.Txt_bf2, uDim);
        rt.WriteLine("", "tf2", m.Txt_tf2, uDim);
        rt.WriteLine("", "r2", m.Txt_r2, uDim);
        break;
      case 3:
        rt.WriteLine("", "bf", m.Txt_bf2, uDim);
        rt.WriteLine("", "tf", m.Txt_tf2, uDim);
        rt.WriteLine("", "r", m.Txt_r2, uDim);
        break;
      default:
        rt.WriteLine("", "bf", m.Txt_bf1, uDim);
        rt.WriteLine("", "tf", m.Txt_tf1, uDim);
        rt.WriteLine("", "r", m.Txt_r1, uDim);
        break;
    }
  }

  // 8. the section constants of the route, and the shear centre when it is
  // off the centroid
  Title(rt, Cdr_Trad(3));
  rt.WriteLine("", "Iz", m.Txt_Iz[slot], uIzt);
  rt.WriteLine("", "It", m.Txt_It[slot], uIzt);
  rt.WriteLine("", "Iw", m.Txt_Iw[slot], uIw);
  rt.WriteLine("", "\xCE\xB2z", m.Txt_Betaz[slot], uDim);  // beta z, as on the screen
  if (slot <= 2 && Num_Of_Text(m.Txt_zS[slot]) != 0) rt.WriteLine(Msg_Utf8(68), "zS", m.Txt_zS[slot], uDim);
  // the drawing closes the section's rows; a section given by its
  // properties has none, and says so where it would stand
  if (slot != 3) {
    Picture(rt, in, Report_PictureKind::Section);
  } else {
    rt.SetAlignment(Align_Centre);
    rt.Send_Text(Msg_Utf8(67));
    rt.NewParagraph();
    rt.SetAlignment(Align_Left);
  }

  // 9. lateral restraints at the ends
  struct End {
    int frame;
    const RestraintList &v, &t, &vp, &tp;
    const std::string& z;
  };
  const End ends[2] = {{4, m.Lst_v1, m.Lst_t1, m.Lst_vp1, m.Lst_tp1, m.Txt_zend1},
                       {5, m.Lst_v2, m.Lst_t2, m.Lst_vp2, m.Lst_tp2, m.Txt_zend2}};
  for (const End& e : ends) {
    Title(rt, Cdr_Trad(e.frame));
    Restraint_Line(rt, m, Msg_Utf8(91), "v", e.v, UnitFamily::v);
    Restraint_Line(rt, m, Msg_Utf8(92), "*q", e.t, UnitFamily::t);
    Restraint_Line(rt, m, Msg_Utf8(93), "v'", e.vp, UnitFamily::vp);
    Restraint_Line(rt, m, Msg_Utf8(94), Theta_Prime, e.tp, UnitFamily::tp);
    if (e.v.index != 0) rt.WriteLine(Lbl_Trad(6), "z", e.z, uDim);
  }

  // 10. intermediate punctual restraints
  struct Punctual {
    bool on;
    const char* n;
    const std::string &x, &z;
    const RestraintList &v, &t;
  };
  const Punctual punctual[2] = {{m.Chk_Punctual1, " 1", m.Txt_xfint1, m.Txt_zint_p1, m.Lst_vi_p1, m.Lst_ti_p1},
                                {m.Chk_Punctual2, " 2", m.Txt_xfint2, m.Txt_zint_p2, m.Lst_vi_p2, m.Lst_ti_p2}};
  for (const Punctual& p : punctual) {
    if (!p.on) continue;
    Title(rt, Msg_Utf8(58) + p.n);
    rt.WriteLine(Lbl_Trad(7), "x/L", p.x, "");
    Restraint_Line(rt, m, Msg_Utf8(91), "v", p.v, UnitFamily::v);
    Restraint_Line(rt, m, Msg_Utf8(92), "*q", p.t, UnitFamily::t);
    if (p.v.index != 0) rt.WriteLine(Lbl_Trad(6), "z", p.z, uDim);
  }

  // 11. continuous restraint
  if (m.Chk_Continuous) {
    Title(rt, Cdr_Trad(9) + " - " + Msg_Utf8(5));
    Restraint_Line(rt, m, Msg_Utf8(91), "v", m.Lst_vi_c, UnitFamily::v_c);
    Restraint_Line(rt, m, Msg_Utf8(92), "*q", m.Lst_ti_c, UnitFamily::t_c);
    Restraint_Line(rt, m, Msg_Utf8(93), "v'", m.Lst_vpi_c, UnitFamily::vp_c);
    if (m.Lst_vi_c.index != 0) rt.WriteLine(Lbl_Trad(6), "z", m.Txt_zint_c, uDim);
  }

  // 12. loads: the in-plane supports
  Title(rt, Remove_FirstHotKey(Caption(1, 21)));
  const int supports = m.Opt_EE ? 23 : m.Opt_EA ? 21 : m.Opt_EL ? 22 : 29;
  rt.WriteLine(Cdr_Trad(11), "", Msg_Utf8(supports), "");

  // 13. end moments, with the ratio of the smaller to the larger
  if (m.Chk_M) {
    Title(rt, Cdr_Trad(12));
    rt.WriteLine("", "M1", m.Txt_M1, uM);
    rt.WriteLine("", "M2", m.Txt_M2, uM);
    const bool m2Smaller = std::abs(Num_Of_Text(m.Txt_M2)) <= std::abs(Num_Of_Text(m.Txt_M1));
    rt.WriteLine(m2Smaller ? "(-M2/M1)" : "(-M1/M2)", "*y", m.Txt_Psi, "");
  }

  // 14. distributed loads
  struct Distributed {
    bool on;
    const char* n;
    const std::string &q1, &q2, &x1, &x2, &z;
  };
  const Distributed dist[2] = {{m.Chk_q1, " 1", m.Txt_q11, m.Txt_q12, m.Txt_xq11, m.Txt_xq12, m.Txt_zq1},
                               {m.Chk_q2, " 2", m.Txt_q21, m.Txt_q22, m.Txt_xq21, m.Txt_xq22, m.Txt_zq2}};
  for (const Distributed& d : dist) {
    if (!d.on) continue;
    Title(rt, Cdr_Trad(15) + d.n);
    rt.WriteLine("", "q1", d.q1, uq);
    rt.WriteLine("", "q2", d.q2, uq);
    rt.WriteLine(Lbl_Trad(7), "xf1", d.x1, "");
    rt.WriteLine("", "xf2", d.x2, "");
    rt.WriteLine(Lbl_Trad(6), "z", d.z, uDim);
  }

  // 15. point loads
  struct Point {
    bool on;
    const char* n;
    const std::string &F, &x, &z;
  };
  const Point points[3] = {{m.Chk_F1, "1", m.Txt_F1, m.Txt_xf1, m.Txt_zF1},
                           {m.Chk_F2, "2", m.Txt_F2, m.Txt_xf2, m.Txt_zF2},
                           {m.Chk_F3, "3", m.Txt_F3, m.Txt_xf3, m.Txt_zF3}};
  if (m.Chk_F1 || m.Chk_F2 || m.Chk_F3) {
    Title(rt, Cdr_Trad(13));
    for (const Point& p : points) {
      if (!p.on) continue;
      rt.WriteLine("", std::string("F") + p.n, p.F, uF);
      rt.WriteLine(Lbl_Trad(7), std::string("xf") + p.n, p.x, "");
      rt.WriteLine(Lbl_Trad(6), std::string("zF") + p.n, p.z, uDim);
    }
  }

  // 16. point moment
  if (m.Chk_CC) {
    Title(rt, Cdr_Trad(14));
    rt.WriteLine("", "C", m.Txt_CC, uM);
    rt.WriteLine(Lbl_Trad(7), "xfC", m.Txt_xfC, "");
  }

  // axial force at the centroid, compression positive
  if (Num_Of_Text(m.Txt_N) != 0) {
    Title(rt, Cp1252_To_Utf8(Further_Text("DirectData_AxialTab", "Axial force")));
    rt.WriteLine(Cp1252_To_Utf8(Further_Text("Lbl_N", "Axial force N (compression +)")), "N", m.Txt_N,
                 uF);
  }

  // 17, 18. internal forces: keys, diagram, largest moment
  if (Report_ForcesComputed(m)) {
    Title(rt, Cdr_Trad(17));
    rt.Tabulate(0.1);
    if (m.Chk_EffM) Key(rt, " M", Key_M, false);
    if (m.Chk_EffV) Key(rt, " V", Key_V, false);
    rt.Keep_With_Next();
    rt.NewParagraph();
    Picture(rt, in, Report_PictureKind::Forces);
    rt.WriteLine(Msg_Utf8(77), "Mmax", m.Txt_Mmax[0], uM);
    rt.WriteLine(Lbl_Trad(7), "x/L", m.Lbl_xfMmax[0], "");
  }

  if (Report_Solved(m)) {
    // 19. solver
    Title(rt, Cdr_Trad(19));
    rt.Tabulate(0.1);
    rt.Send_Text(Caption(2, m.Opt_Eigen ? 29 : 28));
    rt.NewParagraph();
    rt.WriteLine(Caption(2, 5), "*e", m.Lbl_Tolerance, "");
    rt.WriteLine(Lbl_Trad(8), "nit", m.Lbl_Iteration, "");
    rt.WriteLine(Msg_Utf8(83), "*m", m.Txt_mucr, "");

    // 20. result
    Title(rt, Cdr_Trad(20));
    rt.SetFont_Bold(true);
    rt.WriteLine(Lbl_Trad(11), "Mcr", m.Txt_Mcr, uM);
    rt.SetFont_Normal();
    if (Num_Of_Text(m.Txt_N) != 0) {
      rt.WriteLine(Cp1252_To_Utf8(Further_Text("Lbl_Ncr", "Critical axial force Ncr")), "Ncr", m.Txt_Ncr,
                   uF);
      if (N_Of(m) > 0) {
        // what the model leaves out, for comparison
        rt.NewParagraph();
        rt.Send_Text(Cp1252_To_Utf8(Further_Text("Axial_InPlane_Note",
                                                 "In-plane buckling about the strong axis y is not part "
                                                 "of this model: pi\xB2" "EIy/L\xB2 =")) +
                     " " + Format_Auto(Ncr_y_Of(m) / m.Fact_F) + " " + uF);
        rt.NewParagraph();
      }
    }

    // 21. the buckling mode: keys of the curves shown, then the diagram
    if (m.Mode_Max > 0) {
      Title(rt, Cdr_Trad(21));
      rt.Tabulate(0.1);
      if (m.Chk_v) Key(rt, " v", Key_v, false);
      if (m.Chk_t) Key(rt, " q", Key_t, true);
      if (m.Chk_vp) Key(rt, " v'", Key_vp, false);
      if (m.Chk_tp) Key(rt, " q \xC2\xA2", Key_tp, true);
      rt.Keep_With_Next();
      rt.NewParagraph();
      Picture(rt, in, Report_PictureKind::Mode);
    }
  }

  if (in.After_Results) in.After_Results(rt);

  // 22. closing line
  rt.NewParagraph();
  rt.Send_Text("___________________");
  rt.NewParagraph();
}

}  // namespace zarvek
