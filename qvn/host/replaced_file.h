// A file that appears under its name when it is complete.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qvn::host {

/// Until it is published the file of the given path stays as it is: the new one is written under name(), and is removed
/// with the object when it was not published. What is no regular file, such as a device, is written in place.
class ReplacedFile {
 public:
  /// `path` as hosts give it.
  explicit ReplacedFile(std::string_view path);
  ~ReplacedFile();
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;

  [[nodiscard]] std::string name() const { return written_.string(); }
  /// Takes the place of a file of that path. Throws RuntimeError when the system refuses.
  void publish();
  /// The same where there must be none: RuntimeError 58 when another one has taken the path meanwhile.
  void publishNew();

 private:
  std::filesystem::path path_;
  std::filesystem::path written_;
  bool isPending_;
};

}  // namespace qvn::host
