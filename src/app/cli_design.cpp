#include "cli_design.h"

#include <charconv>
#include <cmath>

#include "foundation/Units.h"

namespace zarvek::cli {

namespace {

std::string Num(double v) {
  if (!std::isfinite(v)) return "null";
  char b[64];
  const auto r = std::to_chars(b, b + sizeof b, v);
  return std::string(b, r.ptr);
}

std::string Str(const std::string& s) {
  std::string r = "\"";
  for (unsigned char c : s) {
    if (c == '"' || c == '\\') r += '\\';
    if (c < 0x20) continue;
    r += (char)c;
  }
  return r + "\"";
}

}  // namespace

std::string Design_Json(const DesignRun& d, const BeamModel& m) {
  const LtbResult& r = d.result;
  const bool done = d.run && !d.propertiesRoute && r.stop == LtbStop::None;
  const bool classed = d.run && !d.propertiesRoute && r.cls.cls > 0;
  const double fW = std::pow((double)m.Fact_Dim, 3);
  const auto val = [&](bool known, double v) { return known ? Num(v) : std::string("null"); };
  std::string s = "\"design\":{";
  s += "\"grade\":" + Str(d.grade == Grade_Typed ? "typed" : Grade_Name(d.grade));
  s += ",\"fy\":" + val(d.run && r.fy > 0, r.fy * 10 / m.Fact_EG);
  s += ",\"unit_fy\":" + Str(Unit_ItemText(UnitFamily::EG, m.Lst_Unit_EG));
  s += ",\"gammaM1\":" + val(d.run && r.gammaM1 > 0, r.gammaM1);
  s += ",\"class\":" + val(classed, r.cls.cls);
  s += ",\"Wy\":" + val(done, r.Wy / fW);
  s += ",\"unit_W\":" + Str(Unit_ItemText(UnitFamily::Dim, m.Lst_Unit_Dim) + "3");
  s += ",\"lambdaLT\":" + val(done, r.lambdaLT);
  s += ",\"curve\":" + (done ? Str(std::string(1, r.curve)) : std::string("null"));
  s += ",\"alphaLT\":" + val(done, r.alphaLT);
  s += ",\"phiLT\":" + val(done, r.phiLT);
  s += ",\"chiLT\":" + val(done, r.chiLT);
  s += ",\"kc\":" + val(done && r.useF, r.kc);
  s += ",\"C1\":" + val(d.input.C1 > 0, d.input.C1);
  s += ",\"f\":" + val(done && r.useF, r.f);
  s += ",\"chiLTmod\":" + val(done, r.chiLTmod);
  s += ",\"MbRd\":" + val(done, r.MbRd / m.Fact_M);
  s += ",\"utilisation\":" + val(done, r.utilisation);
  s += ",\"note\":" + Str(Design_Note(d));
  return s + "}";
}

std::string Design_Text(const DesignRun& d, const BeamModel& m) {
  std::string s;
  for (const DesignLine& l : Design_Lines(d, m)) {
    s += l.label + "   " + l.value;
    if (!l.unit.empty()) s += " " + l.unit;
    s += "\n";
  }
  return s + Design_Note(d) + "\n";
}

}  // namespace zarvek::cli
