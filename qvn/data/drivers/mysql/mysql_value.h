// A column's value in the engine's text form as a Variant.
#pragma once

#include <string_view>

#include "qvn/base/variant.h"
#include "qvn/data/drivers/mysql/mysql_column.h"

namespace qvn::data::mysql {

/// Stores the value in place; a text reuses the memory that `value` holds. `text` is as the engine sent it; its data()
/// is null for NULL. A text that does not fit its column's type is stored as it is: nothing is lost, as with a time of
/// 30 hours or a year before 100.
void readValue(ValueKind kind, std::string_view text, Variant& value);

}  // namespace qvn::data::mysql
