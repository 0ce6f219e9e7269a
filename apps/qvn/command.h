// What the program knows of each of its commands. A command is one file of commands/ that defines a Command and one
// row of the table in commands.cpp.
#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "apps/qvn/options.h"
#include "apps/qvn/output.h"
#include "qvn/lumlibreria.h"

namespace qvn::cli {

/// What the program tells the program that started it.
enum class ExitStatus {
  Done = 0,
  Failed = 1,    ///< the operation failed; standard error says why
  BadUsage = 2,  ///< the program was called in a way that it does not understand; nothing was done
  NoAnswer = 3,  ///< a question was left without an answer
  YesToAll = 4,
};

/// What a command works with.
struct Context {
  Output& out;                   ///< results
  Output& messages;              ///< standard error
  std::string_view programName;  ///< as the person called it
  LumLibreria& library;
  std::function<void()> openWindows;  ///< makes sure that the library's questions are windows, or throws
};

struct Command {
  std::string_view name;
  std::string_view summary;      ///< one line in the list of commands
  std::string_view operands;     ///< of the usage line, such as "DOCUMENTO..."
  std::string_view description;  ///< what it does, reads and writes; lines of at most 80 columns
  std::span<const Option> options;
  std::string_view examples;
  /// Throws UsageError; any other exception is reported as the failure of the operation.
  ExitStatus (*run)(const Arguments& arguments, Context& context);
};

}  // namespace qvn::cli
