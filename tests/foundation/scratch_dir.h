// A scratch directory, removed with its files at the end of the test; names resolve inside it.
#pragma once

#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string>
#include <unistd.h>

namespace foundation_test {

namespace fs = std::filesystem;

inline std::string Read_File(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

struct Scratch {
  std::string path = fs::canonical(::mkdtemp(std::string("/tmp/zvk-test-XXXXXX").data())).string();
  ~Scratch() { std::error_code ec; fs::remove_all(path, ec); }
  std::string operator/(const std::string& name) const { return path + "/" + name; }
  // the file's path
  std::string Write(const std::string& name, const std::string& bytes) const {
    fs::create_directories(fs::path(*this / name).parent_path());
    std::ofstream(*this / name, std::ios::binary) << bytes;
    return *this / name;
  }
  std::string Read(const std::string& name) const { return Read_File(*this / name); }
  // the real data files of the build, as an installation ships them
  void Ship(const std::string& dir, std::initializer_list<const char*> files) const {
    fs::create_directories(*this / dir);
    for (const char* f : files) fs::copy_file(fs::path(ZARVEK_BIN_DIR) / f, fs::path(*this / dir) / f);
  }
};

}  // namespace foundation_test
