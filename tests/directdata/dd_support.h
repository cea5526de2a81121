// Files of the direct data tests: read whole, written whole.
#pragma once

#include <fstream>
#include <sstream>
#include <string>

inline std::string Slurp(const std::string& path) {
  std::ostringstream ss;
  ss << std::ifstream(path, std::ios::binary).rdbuf();
  return ss.str();
}

inline void Put(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}
