// The window that shows how far something has come.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include "qvn/dialogs/progress_view.h"

namespace qvn::dialogs::qt {

/// A text, a bar, the time that is left and a button to cancel. While it is open, other windows take no input.
class ProgressBox final : public QDialog {
 public:
  ProgressBox();

  void display(const ProgressState& state);
  [[nodiscard]] bool isCancelled() const { return isCancelled_; }

  /// Escape and the close box cancel, as the button does; the window stays until the work has ended.
  void reject() override;

 private:
  QLabel* text_;
  QProgressBar* bar_;
  QLabel* left_;
  QPushButton* cancel_;
  bool isCancelled_ = false;
};

}  // namespace qvn::dialogs::qt
