// Help texts, made from the commands' own descriptions.
#pragma once

#include <string>

#include "apps/qvn/command.h"

namespace qvn::cli {

/// The list of commands, how to give a connection, and where to go on.
std::string overviewHelp();

/// Usage, description, options, examples and exit statuses of one command.
std::string commandHelp(const Command& command);

/// "qvn 0.1.0".
std::string versionText();

}  // namespace qvn::cli
