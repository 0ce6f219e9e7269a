// Values of a saved recordset, which are texts in its attributes.
#pragma once

#include <string>
#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/field_type.h"

namespace qvn::data::persist {

/// Reads `text` as a value of this type into `value`, using again the memory of a text that it holds; false when the
/// type cannot hold it.
bool parseValue(std::string_view text, FieldType type, Variant& value);

/// `value`, which is not Null, as the text that parseValue reads back; dates to the microsecond. What stands in a
/// column of text or bytes without being text is written as text, the same whatever the regional settings. Throws
/// RuntimeError 13 when the type or the file's form cannot hold it: nothing is rounded or left out.
std::string formatValue(const Variant& value, FieldType type);

}  // namespace qvn::data::persist
