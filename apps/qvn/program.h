// The program as a whole: finds the command, runs it and turns its failures into messages and an exit status.
#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "apps/qvn/command.h"

namespace qvn::cli {

/// `words` are the program's arguments without its name; `openWindows` is called before questions that have to be
/// windows. Never throws; `out` is flushed.
ExitStatus runProgram(std::string_view programName, std::span<const std::string_view> words, Output& out,
                      Output& messages, std::function<void()> openWindows) noexcept;

}  // namespace qvn::cli
