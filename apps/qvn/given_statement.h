// The SQL statement that a command was given, and how long it may take.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "apps/qvn/options.h"

namespace qvn::cli {

inline constexpr Option kWaitOption{"espera", 0, "SEGUNDOS", "lo más que espera el resultado (30; 0: sin fin)"};

/// The operand, or standard input when it is missing or "-". Throws UsageError when a person would have to type it
/// there, and for an empty statement.
std::string readStatement(std::optional<std::string_view> operand);

/// What the option says, if anything. Throws UsageError when it is no number of seconds.
std::optional<std::chrono::seconds> chosenWait(const Arguments& arguments);

}  // namespace qvn::cli
