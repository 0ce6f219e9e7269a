// A file that appears under its name only when it is complete.
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

#include "qvn/base/runtime_error.h"
#include "qvn/data/drivers/persist/system_file.h"

namespace qvn::data::persist {

/// Why `path` could not be saved, in words for people and with the system's own. Its number is 58 when the file exists,
/// 76 without its folder, 52 for a name that cannot be, 61 on a full disk, 67 with too many open files, 70 where it may
/// not be written and 57 for anything else.
RuntimeError saveRefusal(const std::error_code& failure, const std::filesystem::path& path);

/// Writes beside the name it will have; what was written is gone unless publish() was called.
class NewFile {
 public:
  /// Throws saveRefusal().
  explicit NewFile(std::filesystem::path path);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// What the system refuses is kept for requireWritten().
  void write(std::string_view text) noexcept { file_.write(text); }
  /// Throws saveRefusal() when something was not written.
  void requireWritten() const;
  /// Gives the file its name. Throws saveRefusal(), also when another one took the name meanwhile.
  void publish();

 private:
  std::filesystem::path path_;
  std::filesystem::path draft_;
  SystemFile file_;
};

}  // namespace qvn::data::persist
