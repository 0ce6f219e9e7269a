// The manual page qvn(1), made from the same descriptions as the help texts.
#pragma once

#include <string>

namespace qvn::cli {

/// In the language of the man macros, UTF-8.
std::string manualPage();

}  // namespace qvn::cli
