#include "qvn/dialogs/terminal_progress.h"

#include <algorithm>
#include <iostream>

#include "qvn/base/readable_text.h"
#include "qvn/dialogs/message_terminal.h"
#include "qvn/dialogs/progress_text.h"

namespace qvn::dialogs {
namespace {

constexpr std::string_view kEraseLine = "\r\x1B[K";

// One line, whatever the texts are.
std::string labelOf(const ProgressState& state) {
  std::string label = state.title;
  if (!label.empty() && !state.text.empty()) label += ": ";
  label = readableText(label + state.text);
  std::ranges::replace(label, '\n', ' ');
  return label;
}

std::string lineOf(const ProgressState& state) {
  if (state.total <= 0) return labelOf(state) + ", " + std::to_string(state.done);
  std::string line = progressLine(labelOf(state), state.done, state.total);
  if (const std::string left = timeLeft(state.elapsed, state.done, state.total); !left.empty()) line += ", " + left;
  return line;
}

class NoProgress final : public ProgressView {
 public:
  bool show(const ProgressState& /*state*/) override { return false; }
};

}  // namespace

TerminalProgress::~TerminalProgress() {
  if (!line_.empty()) out_ << kEraseLine << std::flush;
}

bool TerminalProgress::show(const ProgressState& state) {
  std::string line = lineOf(state);
  if (line == line_) return false;
  out_ << kEraseLine << line << std::flush;
  line_ = std::move(line);
  return false;
}

ProgressViewPtr terminalProgress() {
  if (isMessageTerminal()) return std::make_unique<TerminalProgress>(std::cerr);
  return std::make_unique<NoProgress>();
}

}  // namespace qvn::dialogs
