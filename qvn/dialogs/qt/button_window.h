// The window of questions and choices.
#pragma once

#include <QDialog>
#include <span>
#include <string_view>

namespace qvn::dialogs::qt {

/// A text over a row of buttons. exec() gives the number of the button that was pressed, from 1, and 0 when the window
/// was closed in another way.
class ButtonWindow final : public QDialog {
 public:
  /// @param focused  number of the button that has the focus, from 1
  ButtonWindow(std::string_view caption, std::string_view text, std::span<const std::string_view> buttons,
               std::size_t focused);
};

}  // namespace qvn::dialogs::qt
