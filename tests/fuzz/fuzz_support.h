// The readers under test take a file name: each input goes to a scratch file
// in memory-backed storage first. One scratch folder per process, removed
// on the way out.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace fuzz_support {

struct Scratch {
  std::string dir;
  Scratch() {
    const char* base = std::filesystem::exists("/dev/shm") ? "/dev/shm" : "/tmp";
    std::string t = std::string(base) + "/zarvek-fuzz-XXXXXX";
    if (::mkdtemp(t.data())) dir = t;
    else std::abort();
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
  FILE* f = std::fopen(path.c_str(), "wb");
  if (!f) std::abort();
  if (size && std::fwrite(data, 1, size, f) != size) std::abort();
  std::fclose(f);
  return path;
}

}  // namespace fuzz_support
