// How far a long command has come, on one line of a terminal.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "apps/qvn/output.h"

namespace qvn::cli {

/// Says nothing where `messages` is no terminal, or when `isWanted` is false.
class ProgressBar {
 public:
  ProgressBar(Output& messages, bool isWanted) : messages_(messages), isShown_(isWanted && messages.isTerminal()) {}
  ~ProgressBar() { clear(); }
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

  void show(std::string_view label, std::int64_t done, std::int64_t total);
  /// A line without a bar, where nobody knows the total.
  void show(std::string line);
  /// Removes the line, so that others can be written in its place.
  void clear();

 private:
  Output& messages_;
  bool isShown_;
  std::string line_;
};

}  // namespace qvn::cli
