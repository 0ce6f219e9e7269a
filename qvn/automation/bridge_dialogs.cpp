#include "qvn/automation/bridge_dialogs.h"

#include "qvn/automation/values.h"
#include "qvn/base/runtime_error.h"
#include "qvn/dialogs/captions.h"

namespace qvn::automation {
namespace {

[[noreturn]] void refuse(const std::string& expected, const Json& answer) {
  throw RuntimeError(error_number::kTypeMismatch,
                     "La respuesta tiene que ser " + expected + " y es " + std::string(answer.kindName()));
}

}  // namespace

void BridgeDialogs::show(std::string_view text, std::int32_t style, std::string_view title) {
  Json event = textEvent("MessageBox", text);
  event.add("style", style);
  event.add("title", toJson(title));
  conversation_.ask(event);
}

void BridgeDialogs::message(std::string_view text) { conversation_.ask(textEvent("Message", text)); }

void BridgeDialogs::alert(std::string_view text) { conversation_.ask(textEvent("Alert", text)); }

std::int16_t BridgeDialogs::question(std::string_view text, std::int16_t focused) {
  return askButton("Question", text, focused, {.no = 2, .last = dialogs::kQuestionButtons.size()});
}

std::int16_t BridgeDialogs::choice(std::string_view text, std::int16_t focused) {
  return askButton("Choice", text, focused, {.no = 3, .last = dialogs::kChoiceButtons.size()});
}

std::optional<std::string> BridgeDialogs::entry(std::string_view text) { return askText("Entry", text); }

std::optional<std::string> BridgeDialogs::password(std::string_view text, const host::AmbientePtr& /*ambiente*/) {
  return askText("Password", text);
}

std::string BridgeDialogs::keyboard(std::string_view text) {
  return askText("Keyboard", text).value_or(std::string(text));
}

void BridgeDialogs::progress(std::string_view text, const Work& work) {
  const Show show = [this](std::string_view shown) { conversation_.tell(textEvent("Progress", shown)); };
  show(text);
  work(show);
}

std::int16_t BridgeDialogs::askButton(std::string_view event, std::string_view text, std::int16_t focused,
                                      Buttons buttons) {
  Json question = textEvent(event, text);
  question.add("default", focused);
  const Json answer = conversation_.ask(question);
  if (const bool* yes = answer.boolean()) return *yes ? std::int16_t{1} : buttons.no;
  const auto button = answer.whole();
  if (!button || *button < 0 || *button > buttons.last) {
    refuse("true, false o un botón de 0 a " + std::to_string(buttons.last), answer);
  }
  return static_cast<std::int16_t>(*button);
}

std::optional<std::string> BridgeDialogs::askText(std::string_view event, std::string_view text) {
  const Json answer = conversation_.ask(textEvent(event, text));
  if (answer.isNull()) return std::nullopt;
  if (answer.text() == nullptr) refuse("un texto o null", answer);
  return *answer.text();
}

}  // namespace qvn::automation
