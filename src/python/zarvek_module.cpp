// The Python module `zarvek`: projects read, changed field by field and
// solved from Python, with numpy arrays for the mode.
//
// A solve runs without the interpreter lock and shares nothing with another
// solve, so that a thread pool (or a process pool, Dask, Ray ...) spreads a
// study over the cores. The language texts are read once, when the module is
// imported, and never changed afterwards.
#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>
#include <pybind11/eval.h>
#include <pybind11/stl.h>

#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "analysis/Sweep.h"
#include "app/cli_design.h"
#include "design/DesignModel.h"
#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "foundation/Units.h"
#include "model/BeamModel.h"
#include "model/DataEntry.h"
#include "model/FieldTable.h"
#include "model/ProjectFile.h"
#include "model/Validation.h"
#include "section/Catalogue.h"
#include "section/Mod_Section.h"
#include "solver/Mod_StabMat.h"

namespace py = pybind11;
using namespace zarvek;

namespace {

// Where the language files, the catalogue and the examples lie.
std::string Home() {
  const char* h = std::getenv("ZARVEK_HOME");
  return h && *h ? h : ZARVEK_BIN_DIR;
}

// The English texts, from the language file of the start directory when
// there is one; the few a script meets most, otherwise.
void Load_Texts() {
  const std::string file = Home() + "/ZARVEK_UK.MSG";
  if (File_Exists(file)) {
    std::string tmp = "/tmp/zarvek-py-XXXXXX";
    const int fd = ::mkstemp(tmp.data());
    if (fd >= 0) {
      ::close(fd);
      if (Load_LanguageFile(file, tmp)) Load_Messages();
      ::unlink(tmp.c_str());
    }
  }
  static const struct {
    int n;
    const char* text;
  } texts[] = {{2, "Calculation stopped by the user"},
               {3, "The beam carries no bending moment"},
               {43, "This field does not hold a number"},
               {50, "Value out of limits"}};
  for (const auto& t : texts)
    if (Msg(t.n).empty()) Set_Msg(t.n, t.text);
}

std::string Utf8(const std::string& cp1252) { return Cp1252_To_Utf8(cp1252); }

// The three names of the table nearest to a wrong one.
std::string Nearest_Fields(const std::string& name) {
  std::vector<std::pair<size_t, std::string>> all;
  for (const FieldDef& f : Field_Table()) all.push_back({Edit_Distance(name, f.name, true), f.name});
  std::stable_sort(all.begin(), all.end(), [](const auto& x, const auto& y) { return x.first < y.first; });
  std::string t;
  for (size_t i = 0; i < all.size() && i < 3; ++i) t += (i ? ", " : "") + all[i].second;
  return t;
}

const FieldDef& Field_Or_KeyError(const std::string& name) {
  const FieldDef* f = Find_Field(name);
  if (!f) throw py::key_error("no field " + name + " in the field table; nearest: " + Nearest_Fields(name));
  return *f;
}

// A number from Python as the user would type it (the shortest text that
// reads back to it).
std::string Typed_Text(const py::handle& v) {
  if (py::isinstance<py::str>(v)) return v.cast<std::string>();
  if (py::isinstance<py::bool_>(v)) return v.cast<bool>() ? "1" : "0";
  if (py::isinstance<py::int_>(v) || py::isinstance<py::float_>(v)) {
    const double x = v.cast<double>();
    if (!std::isfinite(x)) throw py::value_error("not a finite number");
    return Number_To_Text(x);
  }
  throw py::type_error("a field takes a str, an int or a float");
}

// ---- results ---------------------------------------------------------------

struct Result {
  double mucr = 0, Mcr = 0, Mmax = 0, x_Mmax = 0;
  int status = 0;
  std::string message;
  bool converged = false;
  std::string unit_M;
  std::vector<std::string> warnings;
  std::vector<float> mode;  // 1..4 NN as the solver leaves it
  int NB = 0;
  double N = 0, Ncr = 0;    // axial force and mucr N, in the force unit
  py::object design = py::none();  // the design check, a dict; None for a problem file

  py::array_t<double> Mode() const {
    const int nn = NB + 1;
    py::array_t<double> a({nn, 4});
    auto r = a.mutable_unchecked<2>();
    for (int i = 0; i < nn; ++i)
      for (int k = 0; k < 4; ++k) {
        const size_t j = 4 * (size_t)i + k + 1;
        r(i, k) = j < mode.size() ? mode[j] : 0.0;
      }
    return a;
  }
};

// Raises zarvek.SolveError(status, message).
[[noreturn]] void Raise_Solve_Error(int status, const std::string& message) {
  py::object cls = py::module_::import("zarvek").attr("SolveError");
  py::object err = cls(status, message);
  PyErr_SetObject(cls.ptr(), err.ptr());
  throw py::error_already_set();
}

// ---- projects ----------------------------------------------------------------

struct Project {
  BeamModel m;
  std::string path;

  py::object Get(const std::string& name) {
    const FieldDef& f = Field_Or_KeyError(name);
    return py::str(Utf8(Field_Text(m, f)));
  }

  void Set(const std::string& name, const py::handle& value) {
    const FieldDef& f = Field_Or_KeyError(name);
    const std::string text = Typed_Text(value);
    if (f.kind == FieldKind::Check) {
      if (text != "0" && text != "1") throw py::value_error(name + " is a check box: True, False, 1 or 0");
      *Flag_Member(m, f) = text == "1";
      Data_Changed(m, f.name);
      return;
    }
    std::string why;
    if (!Sweep_Field_OK(name, why)) throw py::type_error(why + ": it can't be set from Python");
    BeamModel next = m;
    if (!Set_Field(next, name, text, why)) throw py::value_error(Utf8(why));
    // the window refuses the value when the check of the data stops at it
    BeamModel checked = next;
    const ValidationResult v = IsDataOK(checked);
    if (!v.ok && v.field == name) throw py::value_error(Utf8(v.Error_Text));
    m = std::move(next);
  }

  Result Solve() {
    BeamModel work = m;
    ModelSolve r;
    DesignRun d;
    {
      py::gil_scoped_release unlocked;
      SolveControl ctl;
      r = Solve_Model(work, ctl);
      if (r.status == 0)
        d = Run_Design(work, r.run.Efforts, r.mucr * std::fabs((double)r.run.Efforts.Efforts_Mmax), ctl);
    }
    if (r.status != 0) Raise_Solve_Error(r.status, Utf8(r.message));
    m = std::move(work);  // the results stand in the project as in the window
    Result out;
    out.mucr = r.mucr;
    out.Mcr = r.Mcr;
    out.Mmax = r.Mmax;
    out.x_Mmax = r.xMmax;
    out.status = r.status;
    out.message = Utf8(r.message);
    out.converged = r.run.Solver.Converged;
    out.unit_M = Utf8(Unit_ItemText(UnitFamily::M, m.Lst_Unit_M));
    for (const auto& w : r.run.Solver.Warnings) out.warnings.push_back(Utf8(w));
    out.mode = r.run.Solver.Mode_Vector;
    out.NB = r.run.Solver.NB;
    out.N = Num_Of_Text(m.Txt_N);
    out.Ncr = Num_Of_Text(m.Txt_Ncr);
    out.design = py::module_::import("json").attr("loads")(
        "{" + Cp1252_To_Utf8(cli::Design_Json(d, m)) + "}")["design"];
    return out;
  }

  void Save(const std::string& file) {
    if (!Save_FileDAT(m, file)) throw py::value_error("can't write " + file);
  }
};

Project Load(const std::string& file) {
  Project p;
  Init_Default(p.m, Home());
  FileReadResult r;
  {
    py::gil_scoped_release unlocked;
    r = Read_FileDAT(p.m, file, Home());
  }
  if (!r.ok) throw py::value_error(Utf8(r.Error_Text.empty() ? "can't read " + file : r.Error_Text));
  p.path = file;
  return p;
}

Project New_Project() {
  Project p;
  Init_Default(p.m, Home());
  return p;
}

// A problem file: solved by the dichotomy, tolerance 0.0001, 50 iterations,
// results in daN and cm.
struct Problem {
  std::string path;
  Result Solve() const {
    SolverResult s;
    {
      py::gil_scoped_release unlocked;
      SolveControl ctl;
      ctl.Tol = 0.0001;
      ctl.NbIter = 50;
      Solve_Problem(path, Method_Dichotomie, s, ctl);
    }
    const bool usable = s.Solve_Status == 0 && s.Converged && std::isfinite(s.mucr) && s.mucr > 0;
    if (!usable)
      Raise_Solve_Error(s.Solve_Status != 0 ? s.Solve_Status : Sweep_NotConverged,
                        Utf8(s.Error_Text.empty() ? "no critical factor was found" : s.Error_Text));
    Result out;
    out.mucr = s.mucr;
    out.Mmax = s.Mmax;
    out.Mcr = s.mucr * s.Mmax;
    out.x_Mmax = s.xMmax;
    out.message = Utf8(s.Error_Text);
    out.converged = s.Converged;
    out.unit_M = "daN.cm";
    for (const auto& w : s.Warnings) out.warnings.push_back(Utf8(w));
    out.mode = s.Mode_Vector;
    out.NB = s.NB;
    return out;
  }
};

Problem Load_Problem(const std::string& file) {
  if (!File_Exists(file)) throw py::value_error("no problem file " + file);
  return Problem{file};
}

// The catalogue's section of that name ("IPE 300", "ipe300"): its series and
// record. KeyError naming the nearest section when there is none.
std::pair<std::string, SectionRecord> Find_Section(const std::string& name) {
  const std::string db = Home() + "/SECTION.DB";
  std::vector<std::string> series;
  if (!File_Exists(db) || !Load_SectionsSeries(db, series))
    throw std::runtime_error("the section catalogue can't be read: " + db);
  const auto key = [](const std::string& s) {
    std::string k;
    for (char c : s)
      if (c != ' ' && c != '\t') k += (char)std::toupper((unsigned char)c);
    return k;
  };
  const std::string wanted = key(name);
  std::string nearest;
  size_t best = (size_t)-1;
  for (const auto& sname : series) {
    std::vector<SectionRecord> recs;
    if (!Load_SerieNumbers(db, sname, recs)) continue;
    for (const auto& rec : recs) {
      const std::string full = sname + " " + rec.name;
      if (key(full) == wanted) return {sname, rec};
      const size_t dist = Edit_Distance(wanted, key(full), true);
      if (dist < best) best = dist, nearest = full;
    }
  }
  throw py::key_error("no section \"" + name + "\" in the catalogue; nearest: " + nearest);
}

py::dict Section(const std::string& name) {
  const auto [series, rec] = Find_Section(name);
  const SectionI s = Calculer_SectionI(rec);
  py::dict d;
  d["name"] = series + " " + rec.name;
  d["series"] = series;
  const std::pair<const char*, float> v[] = {
      {"h", s.h},       {"b", s.b},       {"tf", s.tf},     {"tw", s.tw},     {"r", s.r},   {"A", s.A},
      {"Avz", s.Avz},   {"Avy", s.Avy},   {"Iy", s.Iy},     {"Iz", s.Iz},     {"Wely", s.Wely},
      {"Welz", s.Welz}, {"Wply", s.Wply}, {"Wplz", s.Wplz}, {"It", s.It},     {"Iw", s.Iw}};
  for (const auto& [k, x] : v) d[k] = (double)x;
  return d;
}

// The catalogue route with that section, as the catalogue window hands it over.
void Use_Section(Project& p, const std::string& name) {
  const auto [series, rec] = Find_Section(name);
  BeamModel& m = p.m;
  const SectionTransfer t = Transfer_Section(Calculer_SectionI(rec), series, m.Fact_Izt, m.Fact_Iw);
  Take_CatalogueSection(m, t);
  m.Opt_Catalogue = true;
  m.Opt_Dimensions = m.Opt_Properties = false;
  Data_Changed(m, "Opt_Catalogue");
  InitProcessInfo(m);
}

// Solves the project for every value of one field, on `jobs` threads (every
// core by default), without the interpreter lock.
py::dict Sweep(const Project& p, const std::string& field, const std::vector<double>& values, int jobs) {
  std::string why;
  if (!Find_Field(field)) Field_Or_KeyError(field);
  if (!Sweep_Field_OK(field, why)) throw py::type_error(why);
  std::vector<SweepPoint> pts;
  {
    py::gil_scoped_release unlocked;
    Sweep_Options opt;
    opt.jobs = jobs;
    opt.Design_Check = [](const BeamModel& solved, const ModelSolve& r) {
      return Design_MbRd(solved, r.run.Efforts, r.mucr);
    };
    pts = Run_Sweep(p.m, field, values, opt);
  }
  const size_t n = pts.size();
  py::array_t<double> value(n), mucr(n), Mcr(n), MbRd(n);
  py::array_t<int> status(n);
  py::list message;
  for (size_t i = 0; i < n; ++i) {
    value.mutable_at(i) = pts[i].value;
    mucr.mutable_at(i) = pts[i].ok() ? pts[i].mucr : NAN;
    Mcr.mutable_at(i) = pts[i].ok() ? pts[i].Mcr : NAN;
    MbRd.mutable_at(i) = pts[i].ok() ? pts[i].MbRd : NAN;
    status.mutable_at(i) = pts[i].status;
    message.append(Utf8(pts[i].message));
  }
  py::dict d;
  d["value"] = value;
  d["mucr"] = mucr;
  d["Mcr"] = Mcr;
  d["MbRd"] = MbRd;
  d["status"] = status;
  d["message"] = message;
  return d;
}

}  // namespace

PYBIND11_MODULE(zarvek, mod) {
  mod.doc() =
      "Elastic critical moment Mcr of lateral-torsional buckling of a steel beam by finite elements.\n\n"
      "Projects (.DAT, .DFT) are read with load(), changed by the names of the window's fields\n"
      "(p['Txt_L'] = '8', in the project's units) and solved with p.solve(). Solves release the\n"
      "interpreter lock and share no state: a ThreadPoolExecutor runs them on every core.";
  Load_Texts();

  py::exec(R"(
class SolveError(RuntimeError):
    """A solve without a usable critical moment.

    status: the solver's status (> 0), -1 for data the checks refuse, -2 when no
    converged positive critical factor was found; message: the text the window shows."""
    def __init__(self, status, message):
        super().__init__("status %d: %s" % (status, message))
        self.status = status
        self.message = message
)",
           mod.attr("__dict__"));

  py::class_<Result>(mod, "Result", "The outcome of a solve.")
      .def_readonly("mucr", &Result::mucr, "Critical load factor: the loads times mucr buckle the beam.")
      .def_readonly("Mcr", &Result::Mcr, "Critical moment mucr * Mmax, in the project's moment unit.")
      .def_readonly("Mmax", &Result::Mmax, "Moment of largest magnitude under the loads (signed).")
      .def_readonly("x_Mmax", &Result::x_Mmax, "Its position, as a fraction of the length.")
      .def_readonly("status", &Result::status, "0: solved.")
      .def_readonly("message", &Result::message, "The solver's closing text.")
      .def_readonly("converged", &Result::converged, "The method met its tolerance.")
      .def_readonly("unit_M", &Result::unit_M, "Unit of Mcr and Mmax.")
      .def_readonly("warnings", &Result::warnings, "Warnings of the vector iteration, in order.")
      .def_readonly("NB", &Result::NB, "Number of elements.")
      .def_readonly("N", &Result::N, "Axial force (compression positive), in the project's force unit.")
      .def_readonly("Ncr", &Result::Ncr, "Critical axial force mucr * N, in the project's force unit.")
      .def_readonly("design", &Result::design,
                    "The lateral-torsional buckling check of the solved beam as a dict (grade, fy, gammaM1, "
                    "class, Wy, lambdaLT, curve, alphaLT, phiLT, chiLT, kc, C1, f, chiLTmod, MbRd, "
                    "utilisation, note; None where a value is not computed); None for a problem file.")
      .def_property_readonly("mode", &Result::Mode,
                             "Buckling mode, numpy array (NB + 1, 4): v, theta, v', theta' of every node, "
                             "largest component 1 in magnitude.")
      .def("__repr__", [](const Result& r) {
        return "<zarvek.Result mucr=" + Number_To_Text(r.mucr) + " Mcr=" + Number_To_Text(r.Mcr) + " " +
               r.unit_M + ">";
      });

  py::class_<Project>(mod, "Project", "A beam project: the fields of the main window, by name.")
      .def(py::init(&New_Project), "A new project with the program's defaults.")
      .def("__getitem__", &Project::Get, py::arg("name"),
           "The text of a field of the window ('Txt_L', 'Txt_Iz(1)', 'Lst_v1' ...). KeyError for an "
           "unknown name, naming the nearest ones.")
      .def("__setitem__", &Project::Set, py::arg("name"), py::arg("value"),
           "Types a value into a field, in the project's unit (a str as typed, or a number). The field's "
           "change rule applies (G follows E ...). ValueError with the window's message for a value the "
           "window refuses; KeyError for an unknown name.")
      .def("__contains__", [](const Project&, const std::string& n) { return Find_Field(n) != nullptr; })
      .def_static("fields", &Sweep_Fields, "Names of the fields that take a number.")
      .def("unit", [](const Project& p, const std::string& n) {
        Field_Or_KeyError(n);
        return Utf8(Field_Unit(p.m, n));
      }, py::arg("name"), "The project's unit of a field ('' without one).")
      .def("solve", &Project::Solve,
           "Checks the data as the Proceed button does and solves, without the interpreter lock. Returns "
           "a Result; raises SolveError(status, message) when there is no usable critical moment.")
      .def("use_section", &Use_Section, py::arg("name"),
           "Takes a catalogue section ('IPE 400') on the catalogue route, as the catalogue window does. "
           "KeyError naming the nearest section when there is none.")
      .def("save", &Project::Save, py::arg("path"), "Writes the project file (written beside, then renamed).")
      .def("copy", [](const Project& p) { return p; }, "An independent copy.")
      .def("__copy__", [](const Project& p) { return p; })
      .def("__deepcopy__", [](const Project& p, py::dict) { return p; })
      .def_readonly("path", &Project::path, "The file the project was read from.");

  py::class_<Problem>(mod, "Problem", "A problem file (.ZVK) as the solver reads it, in daN and cm.")
      .def("solve", &Problem::Solve,
           "Solves by the dichotomy (tolerance 0.0001, 50 iterations), without the interpreter lock. "
           "Mcr and Mmax in daN.cm; raises SolveError when there is no usable critical moment.")
      .def_readonly("path", &Problem::path);

  mod.def("load", &Load, py::arg("path"), "Reads a project (.DAT or .DFT). ValueError when it can't be read.");
  mod.def("load_problem", &Load_Problem, py::arg("path"), "A problem file (.ZVK), solved by Problem.solve().");
  mod.def("section", &Section, py::arg("name"),
          "The constants of a catalogue section ('IPE 300') as a dict, in cm, cm2, cm3, cm4 and cm6. "
          "KeyError naming the nearest section when there is none of that name.");
  mod.def("sweep", &Sweep, py::arg("project"), py::arg("field"), py::arg("values"), py::arg("jobs") = 0,
          "Solves the project for every value of one field on `jobs` threads (0: every core). Returns a "
          "dict of numpy arrays value, mucr, Mcr, MbRd (NaN where not solved or not checked), status and a list of messages.");
  mod.attr("home") = Home();
}
