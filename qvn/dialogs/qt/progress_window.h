// The window that is open while something is done.
#pragma once

#include <QDialog>
#include <QLabel>
#include <exception>
#include <string_view>

#include "qvn/dialogs/dialogs.h"

namespace qvn::dialogs::qt {

/// One text, without buttons. A person cannot close it.
class ProgressWindow final : public QDialog {
 public:
  /// `work` must outlive the window.
  ProgressWindow(std::string_view text, const Dialogs::Work& work);

  /// Opens it, does the work once it has been painted, and closes it. Throws what the work throws.
  void run();

  /// Nothing: Escape and the close box have no answer here.
  void reject() override {}

 private:
  void show(std::string_view text);
  void doWork();

  QLabel* label_;
  const Dialogs::Work& work_;
  std::exception_ptr failure_;
};

}  // namespace qvn::dialogs::qt
