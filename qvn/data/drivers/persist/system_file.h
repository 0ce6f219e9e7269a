// Writing a new file through the system's own calls, which tell why they fail.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace qvn::data::persist {

/// The first failure is kept for failure(), and nothing is written after it.
class SystemFile {
 public:
  /// Makes the file, which must not exist; failure() tells whether it could.
  explicit SystemFile(const std::filesystem::path& path);
  ~SystemFile();
  SystemFile(const SystemFile&) = delete;
  SystemFile& operator=(const SystemFile&) = delete;

  void write(std::string_view text) noexcept;
  /// Waits until the disk holds what was written, and closes the file.
  void finish() noexcept;

  /// Why not all was written. A used-up quota is a full disk.
  [[nodiscard]] const std::error_code& failure() const noexcept { return failure_; }

 private:
  int descriptor_;  // negative when there is none
  std::error_code failure_;
};

}  // namespace qvn::data::persist
