// Field types by the names that a saved recordset gives them.
#pragma once

#include <string_view>

#include "qvn/data/field_type.h"

namespace qvn::data::persist {

/// How many characters or bytes the values have; it tells apart the types of text and of bytes alone.
enum class Length { Fixed, Variable, Long };

struct SavedType {
  std::string_view dataType;  ///< dt:type
  std::string_view dbType;    ///< rs:dbtype, "" when the data type says enough
  Length length = Length::Variable;
};

/// How a type is written. Every FieldType has a row of its own.
const SavedType& savedType(FieldType type);

/// The type that a file means; null when its data type is not known.
const FieldType* fieldType(const SavedType& saved);

}  // namespace qvn::data::persist
