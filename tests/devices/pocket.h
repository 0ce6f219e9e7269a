// A device of the library of pocket_library.cpp, set up for one test at a time.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"

namespace qvn::test {

/// Holds the device's files, in which there is a folder "\My Documents", and tells the library where they are.
class Pocket {
 public:
  explicit Pocket(const std::string& faults = "") {
    std::filesystem::create_directories(folder_.path("device/My Documents"));
    setenv("POCKET_FOLDER", root().c_str(), 1);
    setenv("POCKET_LOG", folder_.path("log").c_str(), 1);
    fail(faults);
  }

  [[nodiscard]] static std::string library() { return QVN_POCKET_LIBRARY; }
  [[nodiscard]] std::string root() const { return folder_.path("device"); }
  /// The library's faults from the next session on.
  static void fail(const std::string& faults) { setenv("POCKET_FAULTS", faults.c_str(), 1); }

  // Files below the root, past the library.
  void put(const std::string& name, const std::string& bytes) const { folder_.put(bytes, "device/" + name); }
  [[nodiscard]] std::optional<std::string> get(const std::string& name) const {
    const std::string file = "device/" + name;
    return std::filesystem::exists(folder_.path(file)) ? std::optional(folder_.bytes(file)) : std::nullopt;
  }

  /// The calls since the last time, which are forgotten.
  std::vector<std::string> calls() {
    std::ifstream log(folder_.path("log"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(log, line);) lines.push_back(line);
    folder_.put("", "log");
    return lines;
  }

 private:
  ScratchFolder folder_;
};

/// Unlike at every place, so that a block in a wrong place shows.
inline std::string numbered(std::size_t size) {
  std::string bytes;
  for (int i = 0; bytes.size() < size; ++i) bytes += std::to_string(i) + '\0';
  bytes.resize(size);
  return bytes;
}

}  // namespace qvn::test
