// Shared set-up of the beam model tests: messages with recognisable texts
// and scratch files.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>

#include "foundation/Language.h"
#include "foundation/Mod_Zarvek.h"
#include "model/BeamModel.h"

namespace zarvek_test {

inline void Load_Test_Messages() {
  using zarvek::Set_Msg;
  Set_Msg(17, "Error reading file");
  Set_Msg(20, "Fixed");
  Set_Msg(27, "Continuous restraint locks the beam");
  Set_Msg(28, "Free");
  Set_Msg(43, "Not a number");
  Set_Msg(50, "Value out of limits");
  Set_Msg(51, "Restraint out of the beam");
  Set_Msg(55, "Punctual restraints too close");
  Set_Msg(56, "Position out of 0.05 .. 0.95");
  Set_Msg(71, "Spring");
  Set_Msg(90, "No result");
  Set_Msg(95, "Section proportions refused");
  Set_Msg(96, "Section not computed");
}

// The record of a new document.
inline zarvek::BeamModel Default_Model(const std::string& dir = "/tmp") {
  zarvek::BeamModel m;
  zarvek::Init_Default(m, dir);
  return m;
}

// Decimal separator of a comma locale for the life of the object.
struct Comma_Locale {
  Comma_Locale() { zarvek::Dec_Sep = ','; }
  ~Comma_Locale() { zarvek::Dec_Sep = '.'; }
};

// A fresh directory, removed with its files at the end.
struct Scratch_Dir {
  std::string path;
  Scratch_Dir() {
    char tmpl[] = "/tmp/zvk-model-XXXXXX";
    path = ::mkdtemp(tmpl);
  }
  ~Scratch_Dir() { std::system(("rm -rf '" + path + "'").c_str()); }
  std::string File(const std::string& name) const { return path + "/" + name; }
};

inline std::string Read_All(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

inline void Write_All(const std::string& path, const std::string& text) {
  std::ofstream out(path, std::ios::binary);
  out << text;
}

}  // namespace zarvek_test
