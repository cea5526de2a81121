// The readers under test take a file name: each input goes to a scratch file
// in memory-backed storage first. One scratch folder per process, removed
// on the way out.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace fuzz_support {

struct Scratch {
  std::string dir = std::string(std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp") + "/zarvek-fuzz-XXXXXX";
  Scratch() {
    if (!::mkdtemp(dir.data())) std::abort();
  }
  ~Scratch() {
    std::error_code ec;
    std::filesystem::remove_all(dir, ec);
  }
  std::string File(const std::string& name) const { return dir + "/" + name; }
};

inline const Scratch& Dir() {
  static Scratch s;
  return s;
}

// Writes the input to `name` in the scratch folder and returns its path.
inline std::string Put(const std::string& name, const uint8_t* data, size_t size) {
  const std::string path = Dir().File(name);
  std::ofstream f(path, std::ios::binary);
  if (!f.write(reinterpret_cast<const char*>(data), size).flush()) std::abort();
  return path;
}

}  // namespace fuzz_support
