// Numbers and codes among the operands of a command, read so that they can enter statements.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "apps/qvn/options.h"

namespace qvn::cli {

/// The operands as plain whole numbers: they enter statements unquoted, and nothing else may. Throws UsageError when
/// there is none or one is not such a number; `what` says what is missing then, as "un número de documento".
std::vector<std::int64_t> keyOperands(const Arguments& arguments, std::string_view what);

/// One of them, of the 32 bits that the library's methods take. Throws UsageError.
std::int32_t keyOperand(std::string_view operand, std::string_view what);

/// A name or code that the library puts between quotes as it is: throws UsageError when it is empty or holds what would
/// end the quotes.
std::string codeOperand(std::string_view operand, std::string_view what);

/// Tells whether a text may stand between quotes in a statement as it is.
bool isQuotable(std::string_view text);

/// A number with "." before its decimals, whatever the regional settings are: "12", "-0.5". Throws UsageError.
double decimalOperand(std::string_view operand, std::string_view what);

}  // namespace qvn::cli
