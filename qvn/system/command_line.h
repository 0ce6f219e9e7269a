// A command line as its program and arguments.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qvn::system {

/// Blanks and tabs separate; what stands between double or single quotes belongs together, also inside a word. Between
/// double quotes \" is a quote; any other backslash is itself everywhere, as in paths. Quotes that are not closed reach
/// to the end. Nothing else is interpreted: no variables, no wildcards, no redirections.
std::vector<std::string> splitCommandLine(std::string_view line);

/// One argument as splitCommandLine reads it back, whatever it holds.
std::string quotedArgument(std::string_view argument);

}  // namespace qvn::system
