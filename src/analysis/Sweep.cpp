#include "analysis/Sweep.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <thread>

#include "analysis/Calculer_Efforts.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Units.h"
#include "model/DataEntry.h"
#include "model/FieldTable.h"
#include "model/Validation.h"

namespace zarvek {

namespace {

bool Sweepable(const FieldDef& f) {
  return (f.kind == FieldKind::Text && f.filter != KeyFilter::None) || f.kind == FieldKind::Restraint;
}

// A number for the table: shortest text that reads back to the same double.
std::string Csv_Number(double v) {
  if (!std::isfinite(v)) return "";
  char buf[40];
  for (int digits = 6; digits <= 17; ++digits) {
    std::snprintf(buf, sizeof buf, "%.*g", digits, v);
    if (std::strtod(buf, nullptr) == v) break;
  }
  return buf;
}

// A text field of the table: quoted when it holds a comma, a quote or a line end.
std::string Csv_Text(const std::string& s) {
  if (s.find_first_of(",\"\n\r") == std::string::npos) return s;
  std::string q = "\"";
  for (char c : s) q += c == '"' ? std::string("\"\"") : std::string(1, c);
  return q + "\"";
}

}  // namespace

bool Sweep_Field_OK(const std::string& name, std::string& why) {
  const FieldDef* f = Find_Field(name);
  if (!f) {
    why = "no field " + name + " in the field table";
    return false;
  }
  if (!Sweepable(*f)) {
    why = "the field " + name + " does not hold a number the user types";
    return false;
  }
  return true;
}

std::vector<std::string> Sweep_Fields() {
  std::vector<std::string> names;
  for (const FieldDef& f : Field_Table())
    if (Sweepable(f)) names.push_back(f.name);
  return names;
}

std::string Field_Unit(const BeamModel& m, const std::string& name) {
  const FieldDef* f = Find_Field(name);
  if (!f || !f->hasUnit()) return "";
  return Unit_ItemText(f->family(), Unit_Index(m, f->family()));
}

bool Set_Field(BeamModel& m, const std::string& name, const std::string& text, std::string& why) {
  const FieldDef* f = Find_Field(name);
  if (!f || !Sweepable(*f)) return Sweep_Field_OK(name, why);
  // the key filter of the window: '.' and ',' become the decimal separator,
  // 'e' an 'E', and an unsigned field takes no minus
  std::string typed;
  for (char c : text) {
    int key = (unsigned char)c;
    if (c == ' ') continue;
    if (!Filter_NumericKey(key, f->filter == KeyFilter::Signed ? 0 : 1)) {
      why = Further_Text("Sweep_KeyRefused", "This field does not take the character") + " '" +
            std::string(1, c) + "': " + name;
      return false;
    }
    typed += (char)key;
  }
  ValidationResult v;
  if (!IsNumValid(typed, name, f->page, v)) {
    why = v.Error_Text;
    return false;
  }
  if (f->kind == FieldKind::Restraint) {
    RestraintList& l = *Restraint_Member(m, *f);
    l.text = typed;
    l.index = -1;  // a typed spring
  } else {
    *Text_Member(m, *f) = typed;
  }
  Data_Changed(m, f->name);
  return true;
}

bool Check_Model(BeamModel& m, ModelSolve& r) {
  auto refuse = [&](const std::string& text, const std::string& field = "") {
    r.status = Sweep_Refused;
    r.message = text;
    r.field = field;
    return false;
  };
  if (!m.Opt_Eigen && !m.Opt_Dichotomie)
    return refuse("no solving method chosen: the project sets neither Opt_Eigen nor Opt_Dichotomie");
  const ValidationResult v = IsDataOK(m);
  if (!v.ok) {
    std::string text;
    for (const auto& s : v.Shown) text += s + "\n";
    return refuse(text + v.Error_Text, v.field);
  }
  InitProcessInfo(m);
  EffortsData e;
  Calculer_Efforts(m, e);
  if (Num_Of_Text(m.Txt_Mmax[0]) == 0) return refuse("Mmax = 0 ! - " + Msg(3));
  return true;
}

ModelSolve Solve_Model(BeamModel& m, SolveControl& ctl) {
  ModelSolve r;
  if (!Check_Model(m, r)) return r;
  // no problem file: nothing is shared with a solve on another thread
  r.run = Proceed(m, "", ctl);
  const ProceedResult& p = r.run;
  const SolverResult& s = p.Solver;
  r.status = p.Solve_Status;
  r.message = p.Message;
  r.mucr = s.mucr;
  r.Mmax = p.Efforts.Efforts_Mmax / m.Fact_M;
  r.Mcr = s.mucr * p.Efforts.Efforts_Mmax / m.Fact_M;
  r.xMmax = p.Efforts.xfMmax;
  r.usable = p.Solve_Status == 0 && s.Converged && !p.Stopped && std::isfinite(s.mucr) && s.mucr > 0;
  if (r.status == 0 && !r.usable) {
    r.status = Sweep_NotConverged;
    if (r.message.empty() && !s.Warnings.empty()) r.message = s.Warnings.front();
    if (r.message.empty()) r.message = "no critical factor was found";
  }
  return r;
}

bool Sweep_Values(double from, double to, double step, std::vector<double>& values, std::string& why,
                  size_t max) {
  values.clear();
  if (!std::isfinite(from) || !std::isfinite(to) || !std::isfinite(step)) {
    why = "the range and the step must be numbers";
    return false;
  }
  if (step == 0 || (to - from) * step < 0) {
    why = "the step must be non-zero and lead from the first value to the last";
    return false;
  }
  // counted rather than accumulated: 0.1 added 30 times is not 3
  const double n = std::floor((to - from) / step + 1e-3);
  if (!(n + 1 <= (double)max)) {
    why = "too many points: at most " + std::to_string(max);
    return false;
  }
  for (long i = 0; i <= (long)n; ++i) values.push_back(from + (double)i * step);
  // the last value a rounding away from `to` is `to`
  if (std::fabs(values.back() - to) < 1e-3 * std::fabs(step)) values.back() = to;
  return true;
}

std::vector<SweepPoint> Run_Sweep(const BeamModel& project, const std::string& field,
                                  const std::vector<double>& values, const Sweep_Options& opt) {
  std::vector<SweepPoint> points(values.size());
  std::atomic<size_t> next{0};
  auto work = [&]() {
    for (size_t i; (i = next.fetch_add(1)) < values.size();) {
      SweepPoint& pt = points[i];
      pt.value = values[i];
      if (opt.stop && opt.stop->load()) {
        pt.status = Sweep_NotConverged;
        pt.message = Msg(2);
      } else {
        BeamModel m = project;
        std::string why;
        if (!Set_Field(m, field, Number_To_Text(values[i]), why)) {
          pt.status = Sweep_Refused;
          pt.message = why;
        } else {
          SolveControl ctl;
          if (opt.stop)
            ctl.Show_Progress = [&ctl, stop = opt.stop](int, double) {
              if (stop->load()) ctl.Stop_Requested = true;
            };
          const ModelSolve r = Solve_Model(m, ctl);
          pt.status = r.status;
          pt.message = r.message;
          if (r.usable) {
            pt.mucr = r.mucr;
            pt.Mcr = r.Mcr;
            if (opt.Design_Check) pt.MbRd = opt.Design_Check(m, r);
          }
        }
      }
      if (opt.done) opt.done->fetch_add(1);
    }
  };
  int jobs = opt.jobs > 0 ? opt.jobs : (int)std::max(1u, std::thread::hardware_concurrency());
  jobs = (int)std::min<size_t>(jobs, std::max<size_t>(1, values.size()));
  std::vector<std::thread> pool;
  for (int j = 1; j < jobs; ++j) pool.emplace_back(work);
  work();
  for (auto& t : pool) t.join();
  return points;
}

std::string Sweep_Csv(const std::vector<SweepPoint>& points, const std::string& field,
                      const std::string& fieldUnit, const std::string& momentUnit) {
  const bool design = std::any_of(points.begin(), points.end(), [](const SweepPoint& p) { return std::isfinite(p.MbRd); });
  const auto unit = [](const std::string& u) { return u.empty() ? std::string() : " [" + u + "]"; };
  std::string t = Csv_Text(field + unit(fieldUnit)) + ",mucr," + Csv_Text("Mcr" + unit(momentUnit)) + ",status";
  if (design) t += "," + Csv_Text("Mb,Rd" + unit(momentUnit));
  t += ",message\n";
  for (const SweepPoint& p : points) {
    t += Csv_Number(p.value) + ",";
    t += p.ok() ? Csv_Number(p.mucr) + "," + Csv_Number(p.Mcr) : std::string(",");
    t += "," + std::to_string(p.status);
    if (design) t += "," + Csv_Number(p.MbRd);
    t += "," + Csv_Text(Cp1252_To_Utf8(p.message)) + "\n";
  }
  return t;
}

}  // namespace zarvek
