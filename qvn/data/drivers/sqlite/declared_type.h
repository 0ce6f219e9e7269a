// What a column's declared type means for its values.
#pragma once

#include <string_view>

#include "qvn/data/driver.h"

namespace qvn::data::sqlite {

/// Sets type, size, precision and scale of `column` from a declaration such as "VARCHAR(20)" or "decimal(12, 2)". A
/// word that is not known leaves a text column.
void applyDeclaredType(std::string_view declaration, Column& column);

}  // namespace qvn::data::sqlite
