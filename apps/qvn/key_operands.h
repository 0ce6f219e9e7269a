// Numbers of documents and payments among the operands of a command.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "apps/qvn/options.h"

namespace qvn::cli {

/// The operands as plain whole numbers: they enter statements unquoted, and nothing else may. Throws UsageError when
/// there is none or one is not such a number; `what` says what is missing then, as "un número de documento".
std::vector<std::int64_t> keyOperands(const Arguments& arguments, std::string_view what);

}  // namespace qvn::cli
