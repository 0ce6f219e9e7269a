// How the engine's column types appear to hosts, and how their values are read.
#pragma once

#include <mysql.h>

#include "qvn/data/driver.h"

namespace qvn::data::mysql {

/// How the text form of a value becomes a Variant.
enum class ValueKind {
  Null,
  Integer,
  Long,
  LongLong,
  Single,
  Double,
  Decimal,
  Boolean,  ///< one bit
  Bits,     ///< up to eight bytes, the highest first; a Decimal
  Date,     ///< with or without a time
  Time,
  Text,  ///< texts and bytes
};

struct ColumnKind {
  FieldType type;
  ValueKind kind;
};

ColumnKind columnKind(const MYSQL_FIELD& field);
Column describeColumn(const MYSQL_FIELD& field);
ColumnOrigin columnOrigin(const MYSQL_FIELD& field);

}  // namespace qvn::data::mysql
