// Runs console commands and hands over what they write.
//
//   DOSOutputs console;
//   console.onReceiveOutputs([](std::string_view chunk) { std::cout << chunk; });
//   const std::string all = console.ExecuteCommand("mariadb --version");
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/host/message_box.h"

namespace qvn::system {

/// A command line is a program and its arguments, see splitCommandLine; no shell reads it. Standard output and standard
/// error are joined. Each call comes back when the command and all that it started have closed their outputs, however
/// long that takes; the command itself is not waited for and its exit code is not asked for.
///
/// Output is bytes: it arrives in the pieces in which the pipe gave it, at most 256 bytes each, and a piece may end
/// inside a line or inside a character. The last piece is always empty.
class DOSOutputs final : public Object {
 public:
  using Listener = std::function<void(std::string_view)>;

  /// Failures of ExecuteCommand are shown in `messages`.
  explicit DOSOutputs(std::shared_ptr<host::MessageBox> messages);

  [[nodiscard]] const std::string& CommandLine() const { return commandLine_; }
  void setCommandLine(std::string_view line) { commandLine_ = line; }

  /// All that the last ExecuteCommand read, also when its listener threw; "" after ExecuteToFile.
  [[nodiscard]] Variant Outputs() const { return outputs_; }

  /// The event `ReceiveOutputs`: called with each piece, in the thread of the caller, before the command line goes on.
  void onReceiveOutputs(Listener listener) { receiveOutputs_ = std::move(listener); }

  /// Runs `line`, or CommandLine when it is empty; a line that is given becomes CommandLine. Returns Outputs, "" when
  /// the command could not be started: a message then says so. What the listener throws ends the call.
  std::string ExecuteCommand(std::string_view line = {});

  /// Runs a command as ExecuteCommand does and appends each piece, the empty one too, to a file with a line end behind
  /// it; see OutLine. No event, no message: `strError` says what went wrong and is left alone otherwise. False only
  /// when there is no command line.
  bool ExecuteToFile(std::string_view line, const Variant& fileName, std::string& strError);

  /// Appends the text and a line end (CR LF) to a file; see text_file.h.
  void OutLine(const Variant& fileName, const Variant& text) const;

 private:
  std::shared_ptr<host::MessageBox> messages_;
  std::string commandLine_;
  std::string outputs_;
  Listener receiveOutputs_;
};

/// Runs a command into a file as ExecuteToFile does; nobody learns of a failure.
void CommandToFile(std::string_view commandLine, const Variant& fileName);

}  // namespace qvn::system
