#include "qvn/dialogs/qt/qt_progress.h"

#include <QApplication>

#include "qvn/dialogs/qt/progress_box.h"

namespace qvn::dialogs {
namespace {

class QtProgress final : public ProgressView {
 public:
  bool show(const ProgressState& state) override {
    box_.display(state);
    if (!box_.isVisible()) box_.show();
    // The host's own work does not come back to the event loop until it has ended.
    QCoreApplication::processEvents();
    return box_.isCancelled();
  }

 private:
  qt::ProgressBox box_;
};

}  // namespace

ProgressViewPtr qtProgress() {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return nullptr;
  return std::make_unique<QtProgress>();
}

}  // namespace qvn::dialogs
