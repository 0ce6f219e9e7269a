// Finding programs.
#pragma once

#include <string>

namespace qvn::system {

/// True for a file that may be run, or, for a name without "/", when a folder of PATH holds one.
bool isProgram(const std::string& name);

}  // namespace qvn::system
