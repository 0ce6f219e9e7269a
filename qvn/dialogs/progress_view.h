// The seam to what shows how far something has come. Adapters: a terminal, scripted cancelling, a window.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

namespace qvn::dialogs {

struct ProgressState {
  std::string title = {};
  std::string text = {};
  std::int64_t done = 0;
  std::int64_t total = 0;  ///< 0 while nobody knows it
  std::chrono::duration<double> elapsed{};
  bool canCancel = true;
};

class ProgressView {
 public:
  /// Takes it away.
  virtual ~ProgressView() = default;
  /// Shows this state in place of the one before, at once. True when the person has asked to cancel.
  virtual bool show(const ProgressState& state) = 0;
};
using ProgressViewPtr = std::unique_ptr<ProgressView>;

}  // namespace qvn::dialogs
