// Parametric studies: the critical moment of a project for a range of values
// of one of its fields, solved side by side on several threads.
//
// Every point is a copy of the project with one field changed the way the
// user changes it in the main window (the field's change rule applies, so a
// coupled value such as G from E follows), checked as the Proceed button
// checks it, and solved in memory. A point the checks refuse or the solver
// can't finish is a row with its status and message; the sweep goes on.
//
// The language texts and Dec_Sep are read by every solve: they must not
// change while a sweep runs.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "analysis/Proceed.h"
#include "model/BeamModel.h"

namespace zarvek {

// Status of a point besides the solver's own (0 solved, > 0 the solver's).
constexpr std::int16_t Sweep_Refused = -1;      // the data checks refused the value
constexpr std::int16_t Sweep_NotConverged = -2;  // no usable critical factor (limit, stop, none)

// A field a sweep may vary: a number the user types, or the spring of a
// restraint list. False with the reason for any other name or kind.
bool Sweep_Field_OK(const std::string& name, std::string& why);
// The names of every field a sweep may vary, in the order of the table.
std::vector<std::string> Sweep_Fields();
// The unit of a field in the project ("m", "kN.m" ...); empty without one.
std::string Field_Unit(const BeamModel& m, const std::string& name);

// Writes the text of a field as the user types it and applies the field's
// change rule. False, with the window's message, when the field does not
// exist, can't be typed into, or the key filter refuses a character (a
// minus in an unsigned field).
bool Set_Field(BeamModel& m, const std::string& name, const std::string& text, std::string& why);

// One solve of a record as the Proceed button runs it, without a window and
// without a file: the checks of the data (numbers, validation, a moment that
// is not zero), then the solver in memory. Re-entrant: solves of different
// records may run on several threads at once.
struct ModelSolve {
  std::int16_t status = 0;  // 0, the solver's status, Sweep_Refused or Sweep_NotConverged
  std::string message;      // the window's or the solver's text (language file's set)
  std::string field;        // the field a refusal names, when it names one
  bool usable = false;      // a converged positive critical factor
  double mucr = 0;
  double Mcr = 0;           // mucr Mmax, in the project's moment unit
  double Mmax = 0;          // project's moment unit
  double xMmax = 0;         // fraction of the length
  ProceedResult run;        // everything Proceed left (mode, diagrams)
};
ModelSolve Solve_Model(BeamModel& m, SolveControl& ctl);
// Only the checks of Solve_Model: false with status Sweep_Refused and the
// message filled when the record would be refused.
bool Check_Model(BeamModel& m, ModelSolve& r);

// The values from `from` to `to` by `step`, both ends included (the last one
// within a thousandth of a step of `to` counts as `to`). False with the
// reason for a zero step, a step of the wrong sign, or more than max points.
bool Sweep_Values(double from, double to, double step, std::vector<double>& values, std::string& why,
                  size_t max = 100000);

struct SweepPoint {
  double value = 0;  // the field's value, in the project's unit
  std::int16_t status = 0;
  std::string message;
  double mucr = 0, Mcr = 0;  // 0 unless solved
  // The design buckling resistance Mb,Rd in the moment unit; NaN when the
  // project has no design check (see Sweep_Options::Design_Check).
  double MbRd = std::numeric_limits<double>::quiet_NaN();
  bool ok() const { return status == 0; }
};

struct Sweep_Options {
  int jobs = 0;  // threads; 0: every core
  // Counts the points finished; a window reads it to move its progress bar.
  std::atomic<int>* done = nullptr;
  // Set from any thread: the points not yet started are left as stopped.
  const std::atomic<bool>* stop = nullptr;
  // The design check of a solved point, when the project has one: returns
  // Mb,Rd in the project's moment unit from the solved record (Mcr is in
  // its Txt_Mcr), NaN when there is none. Called on the worker threads.
  std::function<double(const BeamModel& solved, const ModelSolve& r)> Design_Check;
};

// Solves the project for every value; points come back in the order of the
// values whatever the order they were solved in, each the same as a solve of
// that record alone.
std::vector<SweepPoint> Run_Sweep(const BeamModel& project, const std::string& field,
                                  const std::vector<double>& values, const Sweep_Options& opt = {});

// The table of a sweep, comma separated with a point as decimal mark:
// value, mucr, Mcr, status, [Mb,Rd when any point has one,] message. The
// header names the field and the units.
std::string Sweep_Csv(const std::vector<SweepPoint>& points, const std::string& field,
                      const std::string& fieldUnit, const std::string& momentUnit);

}  // namespace zarvek
