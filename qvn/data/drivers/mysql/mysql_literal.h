// Values as literals of the engine's statements.
#pragma once

#include <mysql.h>

#include <string>

#include "qvn/base/variant.h"
#include "qvn/data/field_type.h"

namespace qvn::data::mysql {

/// See Session::literal. Texts are quoted as the session's present settings (NO_BACKSLASH_ESCAPES) ask; dates have
/// microseconds when there are any; a date for a TIME column is its time of day.
/// Throws RuntimeError 6 for a number that is infinite or none, 5 for a date out of range, 13 for arrays and objects.
std::string literal(MYSQL* handle, const Variant& value, FieldType type);

}  // namespace qvn::data::mysql
