// Dialogs with answers prepared in advance, for programs that run unattended and for tests.
#pragma once

#include <deque>
#include <vector>

#include "qvn/dialogs/dialogs.h"

namespace qvn::dialogs {

/// Gives its answers in order; without one left, a dialog is closed without a button. Keeps what was shown.
class ScriptedDialogs final : public Dialogs {
 public:
  struct Shown {
    std::string kind;  ///< "message", "alert", "question", "choice", "entry", "password", "keyboard", "progress" or
                       ///< "box"
    std::string text;
    std::int32_t detail = 0;  ///< the focused button, or the style of a box
    friend bool operator==(const Shown&, const Shown&) = default;
  };

  /// The number of a button, or a text that is accepted.
  void answerWithButton(std::int16_t button) { buttons_.push_back(button); }
  void answerWithText(std::string text) { texts_.push_back(std::move(text)); }
  [[nodiscard]] const std::vector<Shown>& shown() const { return shown_; }

  void show(std::string_view text, std::int32_t style, std::string_view title) override;
  void message(std::string_view text) override;
  void alert(std::string_view text) override;
  std::int16_t question(std::string_view text, std::int16_t focused) override;
  std::int16_t choice(std::string_view text, std::int16_t focused) override;
  std::optional<std::string> entry(std::string_view text) override;
  std::optional<std::string> password(std::string_view text, const host::AmbientePtr& ambiente) override;
  std::string keyboard(std::string_view text) override;
  void progress(std::string_view text, const Work& work) override;

 private:
  void keep(std::string_view kind, std::string_view text, std::int32_t detail = 0);
  std::int16_t nextButton();
  std::optional<std::string> nextText();

  std::deque<std::int16_t> buttons_;
  std::deque<std::string> texts_;
  std::vector<Shown> shown_;
};

}  // namespace qvn::dialogs
