// A file that appears under its name only when it is complete.
#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

namespace qvn::data::persist {

/// Writes beside the name it will have; what was written is gone unless publish() was called.
class NewFile {
 public:
  /// Throws RuntimeError 58 when the file exists, 76 without its folder, 70 when it cannot be made.
  explicit NewFile(std::filesystem::path path);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// False when the system refused.
  bool write(std::string_view text);
  /// Gives the file its name. Throws RuntimeError 58 when another one took it meanwhile, 61 when not all was written.
  void publish();

 private:
  std::filesystem::path path_;
  std::filesystem::path draft_;
  std::ofstream stream_;
};

}  // namespace qvn::data::persist
