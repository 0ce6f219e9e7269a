// Where a command writes its results and messages.
#pragma once

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qvn::cli {

/// The reader of the output went away, as "head" does: there is nobody to write for any more.
class OutputClosed : public std::exception {};

/// The output could not be written, as on a full disk. `what()` holds the system's words.
class OutputFailed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// UTF-8 text to an open descriptor, gathered in a buffer of fixed size. Nothing is written by the destructor: whoever
/// ends the program calls flush() and learns of a failure.
class Output {
 public:
  enum class OnFailure {
    Throw,   ///< OutputClosed or OutputFailed
    Ignore,  ///< for messages: where they cannot be written there is nowhere to complain either
  };

  Output(int descriptor, OnFailure onFailure) : descriptor_(descriptor), onFailure_(onFailure) {}
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  Output& operator<<(std::string_view text);
  void flush();
  /// True when a person sees what is written, and not a file or a program.
  [[nodiscard]] bool isTerminal() const;
  /// How wide the terminal is; nothing where there is none or it does not say.
  [[nodiscard]] std::optional<std::size_t> terminalColumns() const;

 private:
  void writeAll(std::string_view bytes);

  int descriptor_;
  OnFailure onFailure_;
  std::string buffer_;
};

/// Everything that standard input holds. Throws RuntimeError 75 when it cannot be read.
std::string readStandardInput();

/// True when a person would have to type the standard input.
bool isInputTerminal();

/// From here on, writing to a reader that went away, or beyond what the system lets a file grow to, is an error of that
/// write and does not end the process. Programs
/// that this one starts are not affected.
void surviveBrokenPipes();

}  // namespace qvn::cli
