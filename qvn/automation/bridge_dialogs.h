// Dialogs that a host in another language shows: each is an event, and the host's answer is the person's.
#pragma once

#include "qvn/automation/conversation.h"
#include "qvn/dialogs/dialogs.h"

namespace qvn::automation {

/// Every dialog but `progress` waits for its answer. A button is answered by its number, or by true and false for "Si"
/// and "No"; a text by a text, or null when it was not accepted. What was only shown is answered by
/// anything. An answer of another kind is RuntimeError 13.
class BridgeDialogs final : public dialogs::Dialogs {
 public:
  /// `conversation` must outlive the object.
  explicit BridgeDialogs(Conversation& conversation) : conversation_(conversation) {}

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
  struct Buttons {
    std::int16_t no;    // the button of "No"
    std::int16_t last;  // the highest number
  };
  std::int16_t askButton(std::string_view event, std::string_view text, std::int16_t focused, Buttons buttons);
  std::optional<std::string> askText(std::string_view event, std::string_view text);

  Conversation& conversation_;
};

}  // namespace qvn::automation
