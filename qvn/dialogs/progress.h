// The progress of something that takes its time: a window, a line on the terminal, or what else the host chose.
//
//   auto progress = library.NewProgress();
//   progress->setTitle("Exportación");
//   progress->setTotal(documents.size());
//   progress->Show();
//   for (const auto& document : documents) {
//     progress->setText("Documento " + document.number);
//     if (!progress->Step()) break;  // the person cancelled
//   }
//   progress->Hide();
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "qvn/base/variant.h"
#include "qvn/dialogs/progress_view.h"

namespace qvn::dialogs {

/// Belongs to one thread; with windows that of the application. It is shown only between Show() and Hide(), or to its
/// end, and so often that it costs no time: ten times in a second at most, and at once when its total is reached.
class Progress final : public Object {
 public:
  using ViewMaker = std::function<ProgressViewPtr()>;
  /// What time it is, for measuring.
  using Now = std::function<std::chrono::steady_clock::time_point()>;

  /// A window where the host has windows, else a line on the terminal (default_progress.h).
  Progress();
  explicit Progress(ViewMaker makeView, Now now = std::chrono::steady_clock::now);
  ~Progress() override;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // These are seen when it is shown again.
  void setTitle(std::string title) { state_.title = std::move(title); }
  void setText(std::string text);
  /// 0 while nobody knows it; less than that counts as 0.
  void setTotal(std::int64_t total);
  /// Without it the person has no button to cancel; there is one at first.
  void setCanCancel(bool canCancel) { state_.canCancel = canCancel; }
  /// Called once, when the person cancels.
  void setOnCancel(std::function<void()> onCancel) { onCancel_ = std::move(onCancel); }

  /// Begins to count the time, from the first call on, and shows what there is.
  void Show();
  void Hide();

  /// So much more is done. False once the person has cancelled.
  bool Step(std::int64_t count = 1);
  /// So much is done in all. False likewise.
  bool MoveTo(std::int64_t done);

  [[nodiscard]] std::int64_t Done() const { return state_.done; }
  [[nodiscard]] std::int64_t Total() const { return state_.total; }
  [[nodiscard]] bool IsVisible() const { return view_ != nullptr; }
  [[nodiscard]] bool Cancelled() const { return isCancelled_; }

 private:
  void refresh();

  ViewMaker makeView_;
  Now now_;
  ProgressViewPtr view_;
  ProgressState state_;
  std::function<void()> onCancel_;
  std::chrono::steady_clock::time_point begun_;
  std::chrono::steady_clock::time_point shown_;
  bool hasBegun_ = false;
  bool isCancelled_ = false;
};

}  // namespace qvn::dialogs
