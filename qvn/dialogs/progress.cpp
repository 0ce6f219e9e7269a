#include "qvn/dialogs/progress.h"

#include <algorithm>
#include <utility>

#include "qvn/dialogs/default_progress.h"

namespace qvn::dialogs {
namespace {

constexpr std::chrono::milliseconds kBetween{100};

}  // namespace

Progress::Progress() : Progress(&defaultProgressView) {}

Progress::Progress(ViewMaker makeView, Now now) : makeView_(std::move(makeView)), now_(std::move(now)) {}

Progress::~Progress() = default;

void Progress::setText(std::string text) {
  if (text == state_.text) return;
  state_.text = std::move(text);
  // A text that changes with every step must not be painted with every step.
  if (view_ && now_() - shown_ >= kBetween) refresh();
}

void Progress::setTotal(std::int64_t total) { state_.total = std::max<std::int64_t>(total, 0); }

void Progress::Show() {
  if (!hasBegun_) begun_ = now_();
  hasBegun_ = true;
  if (!view_) view_ = makeView_();
  refresh();
}

void Progress::Hide() { view_.reset(); }

bool Progress::Step(std::int64_t count) { return MoveTo(state_.done + count); }

bool Progress::MoveTo(std::int64_t done) {
  const bool wasComplete = state_.done >= state_.total;
  state_.done = std::max<std::int64_t>(done, 0);
  const bool completes = !wasComplete && state_.done >= state_.total;
  if (view_ && (completes || now_() - shown_ >= kBetween)) refresh();
  return !isCancelled_;
}

void Progress::refresh() {
  shown_ = now_();
  state_.elapsed = shown_ - begun_;
  if (!view_->show(state_) || isCancelled_) return;
  isCancelled_ = true;
  if (onCancel_) onCancel_();
}

}  // namespace qvn::dialogs
