// A file that appears under its name when it is complete.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "qvn/base/runtime_error.h"

namespace qvn::host {

/// What becomes of a file that stands at the path already.
enum class OnExisting { Refuse, Replace };

/// Until it is published the file of the given path stays as it is: the new one is written under name(), and is removed
/// with the object when it was not published. What is no regular file, such as a device, is written in place.
class ReplacedFile {
 public:
  /// `path` as hosts give it; `purpose` is what refusals say was tried.
  /// @throws RuntimeError  58 when there is a file that is not to be replaced; nothing is made beside it then
  explicit ReplacedFile(std::string_view path, OnExisting onExisting = OnExisting::Replace,
                        std::string_view purpose = "reemplazar el archivo");
  ~ReplacedFile();
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;

  [[nodiscard]] std::string name() const { return written_.string(); }
  /// Appears at the path. Throws RuntimeError 58 when a file that is not to be replaced has appeared there meanwhile,
  /// or what the system refuses.
  void publish();

 private:
  [[nodiscard]] RuntimeError refusal(const std::error_code& code) const;

  std::filesystem::path path_;
  OnExisting onExisting_;
  std::string purpose_;
  std::filesystem::path written_;
  bool isPending_;
};

}  // namespace qvn::host
