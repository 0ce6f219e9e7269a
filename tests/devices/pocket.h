// A device of the library of pocket_library.cpp, set up for one test at a time.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"

namespace qvn::test {

/// Sets the library's environment; the destructor takes it away.
class Pocket {
 public:
  explicit Pocket(const std::string& faults = "");
  ~Pocket();
  Pocket(const Pocket&) = delete;
  Pocket& operator=(const Pocket&) = delete;

  /// A file of "\My Documents".
  [[nodiscard]] std::filesystem::path file(const std::string& name) const;
  [[nodiscard]] static std::string library() { return QVN_POCKET_LIBRARY; }
  /// The calls since the last time.
  std::vector<std::string> calls();

 private:
  ScratchFolder folder_;
  std::size_t seen_ = 0;
};

std::string bytesOf(const std::filesystem::path& file);
void putBytes(const std::filesystem::path& file, const std::string& bytes);

/// Unlike at every place, so that a block in a wrong place shows.
std::string numbered(std::size_t size);

}  // namespace qvn::test
