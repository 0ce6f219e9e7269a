// The window in which a line is typed.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <string_view>

namespace qvn::dialogs::qt {

/// A title, a line, and a button that opens the on-screen keyboard. exec() is Accepted when the line was accepted.
class EntryWindow final : public QDialog {
 public:
  enum class Kind { Text, Password };
  EntryWindow(std::string_view title, Kind kind);
  [[nodiscard]] QString text() const { return line_->text(); }

 private:
  void openKeyboard();
  QLineEdit* line_;
};

}  // namespace qvn::dialogs::qt
