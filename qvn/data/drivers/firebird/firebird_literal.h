// Values as literals of the engine's statements.
#pragma once

#include <string>

#include "qvn/base/variant.h"
#include "qvn/data/field_type.h"

namespace qvn::data::firebird {

/// See Session::literal. Dates have ten-thousandths of a second when there are any; a time in a DATE column is left
/// out. Throws RuntimeError 6 for a number that is infinite or none, 5 for a date out of range, 13 for arrays and
/// objects.
std::string literal(const Variant& value, FieldType type);

}  // namespace qvn::data::firebird
