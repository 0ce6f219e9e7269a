#include "qvn/dialogs/default_progress.h"

#include "qvn/dialogs/terminal_progress.h"

namespace qvn::dialogs {
namespace {

ProgressViewMaker& registered() {
  static ProgressViewMaker maker = nullptr;
  return maker;
}

}  // namespace

void registerProgressView(ProgressViewMaker maker) { registered() = maker; }

ProgressViewPtr defaultProgressView() {
  ProgressViewPtr window = registered() == nullptr ? nullptr : registered()();
  return window ? std::move(window) : terminalProgress();
}

}  // namespace qvn::dialogs
