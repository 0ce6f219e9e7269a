// A value as an ODBC driver hands it over, as a Variant.
#pragma once

#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/drivers/odbc/odbc_column.h"

namespace qvn::data::odbc {

/// Reads `bytes`, of a column that is transferred as `transfer`, into `value`, whose memory is used again.
void readValue(std::string_view bytes, const Transfer& transfer, FieldType type, Variant& value);

}  // namespace qvn::data::odbc
