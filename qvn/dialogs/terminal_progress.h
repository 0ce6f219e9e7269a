// Progress on one line of a terminal, for programs without windows.
#pragma once

#include <ostream>
#include <string>

#include "qvn/dialogs/progress_view.h"

namespace qvn::dialogs {

/// "Ventas: clientes  [██████░░░░░░░░░░░░░░]  31 %, faltan 0:42", or "Ventas: clientes, 1234" without a total. Nothing
/// is asked, so that nobody cancels here.
class TerminalProgress final : public ProgressView {
 public:
  explicit TerminalProgress(std::ostream& out) : out_(out) {}
  ~TerminalProgress() override;
  TerminalProgress(const TerminalProgress&) = delete;
  TerminalProgress& operator=(const TerminalProgress&) = delete;

  bool show(const ProgressState& state) override;

 private:
  std::ostream& out_;
  std::string line_;
};

/// On standard error where that is a terminal; elsewhere it says nothing.
ProgressViewPtr terminalProgress();

}  // namespace qvn::dialogs
