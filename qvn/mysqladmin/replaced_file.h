// A file that takes another one's place when it is complete.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qvn::mysqladmin {

/// Until publish() the file of the given path stays as it is: the new one is written under name(), and is removed with
/// the object when it was not published. What is no regular file, such as a device, is written in place.
class ReplacedFile {
 public:
  /// `path` as hosts give it.
  explicit ReplacedFile(std::string_view path);
  ~ReplacedFile();
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;

  [[nodiscard]] std::string name() const { return written_.string(); }
  /// Throws RuntimeError when the system refuses.
  void publish();

 private:
  std::filesystem::path path_;
  std::filesystem::path written_;
  bool isPending_;
};

}  // namespace qvn::mysqladmin
