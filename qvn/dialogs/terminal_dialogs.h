// Dialogs as prompts, for programs without windows.
#pragma once

#include <functional>
#include <istream>
#include <ostream>
#include <span>

#include "qvn/dialogs/dialogs.h"

namespace qvn::dialogs {

/// Texts are written to `out`, answers are lines of `in`. A button is named by its mnemonic, its number, or its caption
/// without regard to case; an empty line presses the one with the focus, anything else is asked again. The end of the
/// input closes a dialog without a button.
class TerminalDialogs final : public Dialogs {
 public:
  /// Reads a line that must not be seen; false at the end of the input.
  using HiddenReader = std::function<bool(std::string&)>;

  TerminalDialogs(std::istream& in, std::ostream& out, HiddenReader readHidden);

  void show(std::string_view text, std::int32_t style, std::string_view title) override;
  void message(std::string_view text) override;
  void alert(std::string_view text) override;
  std::int16_t question(std::string_view text, std::int16_t focused) override;
  std::int16_t choice(std::string_view text, std::int16_t focused) override;
  std::optional<std::string> entry(std::string_view text) override;
  std::optional<std::string> password(std::string_view text, const host::AmbientePtr& ambiente) override;
  /// Shows the text; an empty line leaves it as it was.
  std::string keyboard(std::string_view text) override;
  void progress(std::string_view text, const Work& work) override;

 private:
  void tell(std::string_view text);
  std::int16_t ask(std::string_view text, std::span<const std::string_view> buttons, std::int16_t focused);

  std::istream& in_;
  std::ostream& out_;
  HiddenReader readHidden_;
};

/// On standard input and standard error; on a terminal a password is typed without echo.
DialogsPtr terminalDialogs();

}  // namespace qvn::dialogs
