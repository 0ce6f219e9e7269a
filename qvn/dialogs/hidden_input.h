// Typing that the terminal does not show.
#pragma once

#include <memory>

namespace qvn::dialogs {

/// While it lives, a terminal at standard input does not show what is typed; other inputs are left alone.
class HiddenInput {
 public:
  HiddenInput();
  ~HiddenInput();
  HiddenInput(const HiddenInput&) = delete;
  HiddenInput& operator=(const HiddenInput&) = delete;

 private:
  struct Settings;
  std::unique_ptr<Settings> before_;  // null when nothing was changed
};

}  // namespace qvn::dialogs
