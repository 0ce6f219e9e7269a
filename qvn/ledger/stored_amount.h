// Whether a field holds already what a statement would write into it.
#pragma once

#include <string>
#include <string_view>

#include "qvn/data/field.h"

namespace qvn::ledger {

/// How the engine stores an amount in a column of fixed decimals.
enum class DecimalStorage {
  Rounded,  ///< to the column's decimals
  AsGiven,  ///< declared decimals mean nothing, as in SQLite
};

/// True when the row would be the same after "UPDATE ... SET column = `amount`"; `amount` is what FormatoDecimal wrote.
/// An amount of a type that it cannot judge counts as different.
bool holdsAmount(const data::Field& stored, const std::string& amount, DecimalStorage storage);

/// True when the row would be the same after "UPDATE ... SET column = '`text`'".
bool holdsText(const data::Field& stored, std::string_view text);

}  // namespace qvn::ledger
