// The SQL statement that a command was given, and how long it may take.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "apps/qvn/options.h"

namespace qvn::cli {

inline constexpr Option kWaitOption{"espera", 0, "SEGUNDOS", "lo más que espera el resultado (30; 0: sin fin)"};

/// The operand, or standard input when it is missing or "-". Throws UsageError when a person would have to type it
/// there, and for an empty statement.
std::string readStatement(std::optional<std::string_view> operand);

}  // namespace qvn::cli
