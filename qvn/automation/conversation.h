// What passes between the bridge and its host: requests, answers, events, and the answers to questions.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "qvn/automation/channel.h"
#include "qvn/automation/json.h"

namespace qvn::automation {

class Conversation {
 public:
  /// `channel` must outlive the object.
  explicit Conversation(LineChannel& channel) : channel_(channel) {}

  /// The host's next line; nothing at the end. Throws RuntimeError 5 for one that is too long.
  std::optional<std::string> nextLine();
  void write(const Json& line);

  /// Sends an event, which reaches the host at once.
  void tell(const Json& event);
  /// Sends an event and waits for the host's {"answer":...}. A line that is no answer ends the call that asks, and a
  /// request among them is the next line again, so that it is not lost.
  /// @throws RuntimeError  13 when the line is no answer, 5 when it is no JSON or too long, 62 at the end
  Json ask(const Json& event);

 private:
  LineChannel& channel_;
  std::optional<std::string> putBack_;
  std::string line_;
};

/// {"event":"...","text":"..."}
Json textEvent(std::string_view name, std::string_view text);

}  // namespace qvn::automation
