// Progress that nobody sees, with a person's wish to cancel prepared in advance, for programs that run unattended and
// for tests.
#pragma once

#include <limits>
#include <memory>
#include <vector>

#include "qvn/dialogs/progress_view.h"

namespace qvn::dialogs {

/// Outlives the views that it belongs to.
struct ProgressScript {
  std::int64_t cancelAt = std::numeric_limits<std::int64_t>::max();  ///< cancels once so much is done
  std::vector<ProgressState> shown = {};
  bool isVisible = false;
};

class ScriptedProgress final : public ProgressView {
 public:
  explicit ScriptedProgress(std::shared_ptr<ProgressScript> script) : script_(std::move(script)) {}
  ~ScriptedProgress() override { script_->isVisible = false; }
  ScriptedProgress(const ScriptedProgress&) = delete;
  ScriptedProgress& operator=(const ScriptedProgress&) = delete;

  bool show(const ProgressState& state) override {
    script_->isVisible = true;
    script_->shown.push_back(state);
    return state.canCancel && state.done >= script_->cancelAt;
  }

 private:
  std::shared_ptr<ProgressScript> script_;
};

}  // namespace qvn::dialogs
