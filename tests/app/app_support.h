// Runs the built program as a child process in a start directory of its own,
// without a display, and collects what it leaves behind.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace app_test {

namespace fs = std::filesystem;

inline std::string Read_All(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

inline void Write_All(const std::string& name, const std::string& content) {
  std::ofstream(name, std::ios::binary) << content;
}

inline std::vector<std::string> Lines_Of(const std::string& text) {
  std::vector<std::string> lines;
  size_t b = 0;
  while (b < text.size()) {
    size_t e = text.find('\n', b);
    if (e == std::string::npos) e = text.size();
    lines.push_back(text.substr(b, e - b));
    b = e + 1;
  }
  return lines;
}

// A temporary directory, removed at the end.
struct TempDir {
  std::string path;
  TempDir() {
    std::string tmpl = (fs::temp_directory_path() / "zvk-app-XXXXXX").string();
    path = ::mkdtemp(tmpl.data());
  }
  ~TempDir() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  std::string operator/(const std::string& name) const { return path + "/" + name; }
};

// A start directory holding a copy of what the installation supplies.
struct StartDir : TempDir {
  StartDir() {
    for (const char* f : {"Zarvek.INI", "ZARVEK_UK.MSG", "ZARVEK_FR.MSG", "SECTION.DB", "EXAMPLE.ZVK"})
      fs::copy_file(std::string(ZARVEK_BIN_DIR) + "/" + f, *this / f);
  }
};

struct RunResult {
  int exit_code = -1;  // -1: killed (timed out or crashed)
  std::string out, err;
};

// A child started in `startDir` with no display; its standard streams go to
// files in a directory of their own.
struct Child {
  pid_t pid = -1;
  TempDir streams;

  Child(const std::string& startDir, const std::vector<std::string>& args) {
    const std::string program = std::string(ZARVEK_BIN_DIR) + "/Zarvek";
    const std::string out = streams / "out", err = streams / "err";
    pid = ::fork();
    if (pid == 0) {
      if (::chdir(startDir.c_str()) != 0) ::_exit(126);
      ::unsetenv("DISPLAY");
      ::unsetenv("WAYLAND_DISPLAY");
      ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
      int fo = ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
      int fe = ::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
      ::dup2(fo, 1);
      ::dup2(fe, 2);
      std::vector<char*> argv;
      argv.push_back(const_cast<char*>(program.c_str()));
      for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
      argv.push_back(nullptr);
      ::execv(program.c_str(), argv.data());
      ::_exit(127);
    }
  }

  RunResult Wait(int timeoutSeconds = 60) {
    RunResult r;
    int status = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(timeoutSeconds);
    for (;;) {
      pid_t w = ::waitpid(pid, &status, WNOHANG);
      if (w == pid) break;
      if (std::chrono::steady_clock::now() > end) {
        ::kill(pid, SIGKILL);
        ::waitpid(pid, &status, 0);
        ADD_FAILURE() << "the program did not end";
        break;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    if (WIFEXITED(status)) r.exit_code = WEXITSTATUS(status);
    r.out = Read_All(streams / "out");
    r.err = Read_All(streams / "err");
    return r;
  }
};

inline RunResult Run_Zarvek(const std::string& startDir, const std::vector<std::string>& args) {
  return Child(startDir, args).Wait();
}

}  // namespace app_test
