// What the shell offers at the Tab key.
#pragma once

#include <string>

namespace qvn::cli {

/// A script for bash: the commands, and after each of them its options. File names stand for everything else.
std::string bashCompletion();

}  // namespace qvn::cli
