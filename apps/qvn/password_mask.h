// Passwords in texts that people will read.
#pragma once

#include <string>
#include <string_view>

namespace qvn::cli {

/// `text` with what follows "PWD=" or "PASSWORD=" (in any case, also with blanks before the sign) replaced by "***", up
/// to the next "»" or line end; a value that is "***" already ends there. An error may repeat a piece of a connection
/// string in which a ";" was forgotten, as in "Provider=MySQL PWD=...", where no name tells that it holds a password.
std::string maskPasswords(std::string_view text);

}  // namespace qvn::cli
