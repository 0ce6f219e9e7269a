// Help texts, made from the commands' own descriptions.
#pragma once

#include <string>
#include <string_view>

#include "apps/qvn/command.h"

namespace qvn::cli {

/// The list of commands, how to give a connection, and where to go on.
std::string overviewHelp();

/// Usage, description, options, examples and exit statuses of one command.
std::string commandHelp(const Command& command);

/// How a connection is given, and what the exit statuses mean: parts of the texts above, each beginning with an empty
/// line.
std::string_view connectionHelp();
std::string_view exitStatuses();

/// "qvn 0.1.0".
std::string versionText();

}  // namespace qvn::cli
