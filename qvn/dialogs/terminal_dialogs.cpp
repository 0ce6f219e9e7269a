#include "qvn/dialogs/terminal_dialogs.h"

#include <iostream>
#include <string>
#include <utility>

#include "qvn/base/letter_case.h"
#include "qvn/base/readable_text.h"
#include "qvn/base/utf8.h"
#include "qvn/dialogs/captions.h"
#include "qvn/dialogs/hidden_input.h"

namespace qvn::dialogs {
namespace {

struct Button {
  std::string caption;   // without the mark of its mnemonic
  std::string mnemonic;  // one letter
  std::string shown;     // "Si a [t]odo"
};

Button buttonOf(std::string_view caption) {
  const std::size_t mark = caption.find('&');
  const std::string before(caption.substr(0, mark));
  const std::string letter(caption.substr(mark + 1, 1));
  const std::string after(caption.substr(mark + 2));
  return {before + letter + after, letter, before + "[" + letter + "]" + after};
}

// The number of the button that an answer names, 0 when it names none.
std::int16_t pressed(std::string_view answer, std::span<const std::string_view> captions) {
  for (std::size_t i = 0; i < captions.size(); ++i) {
    const Button button = buttonOf(captions[i]);
    const bool isNamed = equalIgnoringCase(answer, button.caption) || equalIgnoringCase(answer, button.mnemonic) ||
                         answer == std::to_string(i + 1);
    if (isNamed) return static_cast<std::int16_t>(i + 1);
  }
  // As people write it.
  return equalIgnoringCase(answer, "sí") ? std::int16_t{1} : std::int16_t{0};
}

bool readLine(std::istream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  if (line.ends_with('\r')) line.pop_back();
  return true;
}

}  // namespace

TerminalDialogs::TerminalDialogs(std::istream& in, std::ostream& out, HiddenReader readHidden)
    : in_(in), out_(out), readHidden_(std::move(readHidden)) {}

void TerminalDialogs::tell(std::string_view text) { out_ << readableText(text) << '\n' << std::flush; }

void TerminalDialogs::show(std::string_view text, std::int32_t /*style*/, std::string_view /*title*/) { tell(text); }
void TerminalDialogs::message(std::string_view text) { tell(text); }
void TerminalDialogs::alert(std::string_view text) { tell(text); }

std::int16_t TerminalDialogs::ask(std::string_view text, std::span<const std::string_view> buttons,
                                  std::int16_t focused) {
  tell(text);
  std::string prompt;
  for (const std::string_view caption : buttons) prompt += buttonOf(caption).shown + "  ";
  prompt += "(Enter: " + buttonOf(buttons[static_cast<std::size_t>(focused - 1)]).caption + "): ";
  std::string line;
  while (true) {
    out_ << prompt << std::flush;
    if (!readLine(in_, line)) {
      out_ << '\n';
      return 0;
    }
    const std::string_view answer = utf8::trimBlanks(line);
    if (answer.empty()) return focused;
    if (const std::int16_t button = pressed(answer, buttons)) return button;
  }
}

std::int16_t TerminalDialogs::question(std::string_view text, std::int16_t focused) {
  return ask(text, kQuestionButtons, focused);
}

std::int16_t TerminalDialogs::choice(std::string_view text, std::int16_t focused) {
  return ask(text, kChoiceButtons, focused);
}

std::optional<std::string> TerminalDialogs::entry(std::string_view text) {
  out_ << readableText(text) << ": " << std::flush;
  std::string line;
  if (readLine(in_, line)) return line;
  out_ << '\n';
  return std::nullopt;
}

std::optional<std::string> TerminalDialogs::password(std::string_view text, const host::AmbientePtr& /*ambiente*/) {
  out_ << readableText(text) << ": " << std::flush;
  std::string line;
  const bool isRead = readHidden_(line);
  out_ << '\n' << std::flush;
  return isRead ? std::optional(line) : std::nullopt;
}

std::string TerminalDialogs::keyboard(std::string_view text) {
  tell(text);
  const auto line = entry("Texto nuevo (Enter: el mismo)");
  return line && !line->empty() ? *line : std::string(text);
}

void TerminalDialogs::progress(std::string_view text, const Work& work) {
  tell(text);
  work([this](std::string_view next) { tell(next); });
}

DialogsPtr terminalDialogs() {
  return std::make_shared<TerminalDialogs>(std::cin, std::cerr, [](std::string& line) {
    const HiddenInput hidden;
    return readLine(std::cin, line);
  });
}

}  // namespace qvn::dialogs
