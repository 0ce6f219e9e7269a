#include "qvn/automation/conversation.h"

#include <utility>

#include "qvn/automation/parse_json.h"
#include "qvn/automation/values.h"
#include "qvn/base/runtime_error.h"

namespace qvn::automation {

std::optional<std::string> Conversation::nextLine() {
  if (putBack_) return std::exchange(putBack_, std::nullopt);
  switch (channel_.read(line_)) {
    case LineChannel::Received::Line:
      return std::move(line_);
    case LineChannel::Received::TooLong:
      throw RuntimeError(error_number::kInvalidCall, "El renglón es demasiado largo; no se leyó");
    case LineChannel::Received::End:
      break;
  }
  return std::nullopt;
}

void Conversation::write(const Json& line) { channel_.write(toText(line)); }

void Conversation::tell(const Json& event) {
  write(event);
  channel_.flush();
}

Json Conversation::ask(const Json& event) {
  write(event);
  std::optional<std::string> line = nextLine();
  if (!line) {
    throw RuntimeError(error_number::kInputPastEnd, "La entrada terminó y una pregunta se quedó sin respuesta");
  }
  const Json reply = parseJson(*line);
  if (const Json* answer = reply.find("answer")) return *answer;
  if (reply.find("op") != nullptr) putBack_ = std::move(line);
  throw RuntimeError(error_number::kTypeMismatch, "Se esperaba la respuesta a la pregunta: {\"answer\":...}");
}

Json textEvent(std::string_view name, std::string_view text) {
  Json event = Json::object();
  event.add("event", name);
  event.add("text", toJson(text));
  return event;
}

}  // namespace qvn::automation
