// A value of the engine's rows as a Variant.
#pragma once

#include "qvn/base/variant.h"
#include "qvn/data/drivers/firebird/firebird_column.h"

namespace qvn::data::firebird {

/// True when the row holds NULL there.
bool isNull(const unsigned char* row, const Cell& cell);

/// Stores a value that is not NULL and no blob in place; a text reuses the memory that `value` holds. A date that a
/// date value does not reach becomes its ISO text.
void readValue(const unsigned char* row, const Cell& cell, Variant& value);

}  // namespace qvn::data::firebird
