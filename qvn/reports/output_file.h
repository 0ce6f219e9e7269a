// The file of a report, which appears when it is complete.
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "qvn/host/replaced_file.h"

namespace qvn::reports {

using OnExisting = host::OnExisting;

/// Without publish() nothing is left of it; an older file of that path stays as it is until then.
class OutputFile {
 public:
  /// @throws RuntimeError  58 when there is a file of that path that is not to be replaced, or what the system refuses:
  ///         70, 76, ...
  OutputFile(std::string_view path, OnExisting onExisting);

  /// Throws RuntimeError 61 when the disk is full, or what else the system refuses.
  void write(std::string_view bytes);
  /// Throws likewise, and 58 when a file has appeared there that is not to be replaced.
  void publish();

 private:
  struct Close {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };
  [[noreturn]] void refuse() const;

  std::string path_;
  host::ReplacedFile file_;
  std::unique_ptr<std::FILE, Close> stream_;  // goes before the file that it writes
};

}  // namespace qvn::reports
