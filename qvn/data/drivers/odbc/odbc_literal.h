// Values in the SQL of the engine behind an ODBC driver.
#pragma once

#include <string>

#include "qvn/base/variant.h"
#include "qvn/data/drivers/odbc/engine_kind.h"
#include "qvn/data/field_type.h"

namespace qvn::data::odbc {

/// See Session::literal.
std::string literal(EngineKind engine, const Variant& value, FieldType type);

}  // namespace qvn::data::odbc
