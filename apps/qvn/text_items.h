// Commands that turn each of many texts into one line: their operands, or the lines of standard input.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "apps/qvn/command.h"

namespace qvn::cli {

/// Writes `convert` of each operand on a line of its own; without operands, or for the one operand "-", of each line
/// of standard input as it is read. An operand that fails ends the command before anything is written. A line that
/// fails is reported with its number in `context.messages` and left out; the status is then Failed.
/// @param convert  throws UsageError for a text that it cannot read, RuntimeError for one that it cannot convert
/// @param missing  what is said when there is neither an operand nor a file or program on standard input
ExitStatus convertTexts(const Arguments& arguments, Context& context, std::string_view missing,
                        const std::function<std::string(std::string_view)>& convert);

}  // namespace qvn::cli
