// Values as literals that give back exactly what was read.
#pragma once

#include <string>

#include "qvn/base/variant.h"
#include "qvn/mysqladmin/schema.h"

namespace qvn::mysqladmin {

/// Appends the literal: NULL; a number with "." and as many digits as tell it from every other; a text between quotes
/// on one line, with backslash escapes; bytes as 0xFF00, or '' when there are none.
void appendFaithfully(const Variant& value, ColumnForm form, std::string& sql);

}  // namespace qvn::mysqladmin
