// Names and values in the embedded engine's SQL.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/field_type.h"

namespace qvn::data::sqlite {

std::string quoteName(std::string_view name);

/// See Session::literal. Dates are written as ISO text.
std::string literal(const Variant& value, FieldType type);

}  // namespace qvn::data::sqlite
