// What a backup did and what it had to leave out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/base/runtime_error.h"

namespace qvn::mysqladmin {

/// A step that failed and was passed over, once or several times.
struct SkippedStep {
  std::string table;  ///< "" for a step of the whole dump
  std::string step;   ///< the statement, "escritura", or the column whose value was Null
  std::int64_t times = 0;
  std::int32_t number = 0;  ///< of the last error
  std::string reason;
};

struct BackupReport {
  std::int64_t tables = 0;
  std::int64_t rows = 0;
  std::int64_t bytes = 0;             ///< of text, before compression
  std::int64_t longestStatement = 0;  ///< bytes of the longest INSERT, which a server must accept
  bool wasInterrupted = false;
  std::vector<SkippedStep> skipped;

  /// Notes a failure; one of the same table and step as the last ones is counted there.
  void skip(std::string_view table, std::string_view step, const RuntimeError& error);
  /// Everything is in the file as it was read. Values written in place of Null do not count as left out.
  [[nodiscard]] bool isComplete() const;
};

}  // namespace qvn::mysqladmin
