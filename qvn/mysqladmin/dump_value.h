// The text of a field's value in a dump.
#pragma once

#include <string>

#include "qvn/base/variant.h"
#include "qvn/data/field_type.h"

namespace qvn::mysqladmin {

/// Replaces `text` by what stands between the quotes of a dump: exact decimals with two decimals and ".", dates in ISO
/// form, everything else as its text; then "\" and "'" with a "\" in front, without line feeds, a carriage return as
/// the four characters "\r\n". Throws RuntimeError 94 for Null, and leaves `text` as it was.
void writeDumpValue(const Variant& value, data::FieldType type, std::string& text);

}  // namespace qvn::mysqladmin
