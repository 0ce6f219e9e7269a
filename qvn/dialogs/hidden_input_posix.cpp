#include <termios.h>
#include <unistd.h>

#include "qvn/dialogs/hidden_input.h"

namespace qvn::dialogs {

struct HiddenInput::Settings {
  termios values{};
};

HiddenInput::HiddenInput() {
  Settings settings;
  if (tcgetattr(STDIN_FILENO, &settings.values) != 0) return;
  before_ = std::make_unique<Settings>(settings);
  settings.values.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  tcsetattr(STDIN_FILENO, TCSAFLUSH, &settings.values);
}

HiddenInput::~HiddenInput() {
  if (before_) tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_->values);
}

}  // namespace qvn::dialogs
