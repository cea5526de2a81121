// Runs the built programs as child processes in a start directory of their own, without a display.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "model/ProjectFile.h"
#include "solver/solver_support.h"

namespace app_test {

namespace fs = std::filesystem;
using Args = std::vector<std::string>;

inline std::string Read_All(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}
inline void Write_All(const std::string& f, const std::string& s) { std::ofstream(f, std::ios::binary) << s; }
inline std::vector<std::string> Lines_Of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}
inline bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// The number after "key": in a one-line JSON object.
inline double Json_Value(const std::string& json, const std::string& key) {
  const auto p = json.find("\"" + key + "\":");
  return p == std::string::npos ? NAN : std::strtod(json.c_str() + p + key.size() + 3, nullptr);
}

// The example beam, IPE 300 of L cm (10 m), uniform moment, fork supports: Mcr by the closed form, daN.cm.
inline double Mcr_Example(double L = 1000) { return zarvek::test::Mcr_Uniform(L) * 100; }

// A temporary directory, removed at the end.
struct TempDir {
  std::string path = ::mkdtemp(std::string("/tmp/zvk-app-XXXXXX").data());
  ~TempDir() { std::error_code ec; fs::remove_all(path, ec); }
  std::string operator/(const std::string& name) const { return path + "/" + name; }
};

// The built-in beam (IPE 300, 10 m, 100 kN.m, fork supports), changed by `change`, saved as a project.
inline std::string Save(const TempDir& files, const std::string& name,
                        const std::function<void(zarvek::BeamModel&)>& change = {}) {
  zarvek::BeamModel m;
  zarvek::Init_Default(m, "/tmp");
  if (change) change(m);
  EXPECT_TRUE(zarvek::Save_FileDAT(m, files / name));
  return files / name;
}

// A start directory holding a copy of what the installation supplies.
struct StartDir : TempDir {
  StartDir() {
    for (const char* f : {"Zarvek.INI", "ZARVEK_UK.MSG", "ZARVEK_FR.MSG", "SECTION.DB", "EXAMPLE.ZVK"})
      fs::copy_file(std::string(ZARVEK_BIN_DIR) + "/" + f, *this / f);
  }
};

struct RunResult { int exit_code = -1; std::string out, err; };  // exit_code -1: killed (timed out, crashed)

// A program (a bare name: of the build) run in `startDir` with no display; its standard streams go to files.
struct Child {
  pid_t pid = -1;
  TempDir streams;

  Child(const std::string& startDir, const Args& args, const std::string& name = "Zarvek") {
    const std::string program = name.find('/') == std::string::npos ? std::string(ZARVEK_BIN_DIR) + "/" + name : name;
    if ((pid = ::fork()) != 0) return;
    int fo = ::open((streams / "out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    int fe = ::open((streams / "err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (::chdir(startDir.c_str()) != 0 || fo < 0 || fe < 0 || ::dup2(fo, 1) < 0 || ::dup2(fe, 2) < 0) ::_exit(126);
    ::unsetenv("DISPLAY"), ::unsetenv("WAYLAND_DISPLAY"), ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::alarm(60);  // the pending alarm outlives exec and ends a program that hangs
    std::vector<char*> argv{const_cast<char*>(program.c_str())};
    for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    ::execv(program.c_str(), argv.data());
    ::_exit(127);
  }

  RunResult Wait() {
    int status = 0;
    ::waitpid(pid, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read_All(streams / "out"), Read_All(streams / "err")};
  }
};

inline RunResult Run_Zarvek(const std::string& startDir, const Args& args, const std::string& program = "Zarvek") {
  return Child(startDir, args, program).Wait();
}

// zarvek-cli (or another copy of it) run in an empty directory of its own, which it must leave empty.
inline RunResult Cli(const Args& args, const std::string& program = "zarvek-cli") {
  TempDir dir;
  RunResult r = Run_Zarvek(dir.path, args, program);
  EXPECT_TRUE(fs::is_empty(dir.path)) << "a file was left where the program ran";
  return r;
}

// Cli that must end with `code`, with `err` in its standard error and `out` in its standard output.
inline RunResult Expect_Cli(const Args& args, int code, const std::string& err = "", const std::string& out = "") {
  std::string line = "zarvek-cli";
  for (const auto& a : args) line += " " + a;
  RunResult r = Cli(args);
  EXPECT_EQ(r.exit_code, code) << line << "\n" << r.err;
  EXPECT_TRUE(Has(r.err, err)) << line << ":\n" << r.err;
  EXPECT_TRUE(Has(r.out, out)) << line << ":\n" << r.out;
  return r;
}

}  // namespace app_test
