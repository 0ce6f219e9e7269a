#include "qvn/dialogs/scripted_dialogs.h"

#include <utility>

namespace qvn::dialogs {

void ScriptedDialogs::keep(std::string_view kind, std::string_view text, std::int32_t detail) {
  shown_.push_back({std::string(kind), std::string(text), detail});
}

std::int16_t ScriptedDialogs::nextButton() {
  if (buttons_.empty()) return 0;
  const std::int16_t button = buttons_.front();
  buttons_.pop_front();
  return button;
}

std::optional<std::string> ScriptedDialogs::nextText() {
  if (texts_.empty()) return std::nullopt;
  std::string text = std::move(texts_.front());
  texts_.pop_front();
  return text;
}

void ScriptedDialogs::show(std::string_view text, std::int32_t style, std::string_view /*title*/) {
  keep("box", text, style);
}

void ScriptedDialogs::message(std::string_view text) { keep("message", text); }

void ScriptedDialogs::alert(std::string_view text) { keep("alert", text); }

std::int16_t ScriptedDialogs::question(std::string_view text, std::int16_t focused) {
  keep("question", text, focused);
  return nextButton();
}

std::int16_t ScriptedDialogs::choice(std::string_view text, std::int16_t focused) {
  keep("choice", text, focused);
  return nextButton();
}

std::optional<std::string> ScriptedDialogs::entry(std::string_view text) {
  keep("entry", text);
  return nextText();
}

std::optional<std::string> ScriptedDialogs::password(std::string_view text, const host::AmbientePtr& /*ambiente*/) {
  keep("password", text);
  return nextText();
}

std::string ScriptedDialogs::keyboard(std::string_view text) {
  keep("keyboard", text);
  return nextText().value_or(std::string(text));
}

void ScriptedDialogs::progress(std::string_view text, const Work& work) {
  keep("progress", text);
  work([this](std::string_view next) { keep("progress", next); });
}

}  // namespace qvn::dialogs
