// How the engine's column types appear to hosts, and where their values stand in a row.
#pragma once

#include <cstddef>
#include <vector>

#include "qvn/data/driver.h"
#include "qvn/data/drivers/firebird/firebird_link.h"

namespace qvn::data::firebird {

/// How the bytes of a value become a Variant.
enum class ValueKind {
  Integer,
  Long,
  LongLong,
  Scaled16,  ///< a NUMERIC in 16 bits
  Scaled32,
  Scaled64,
  Single,
  Double,
  Boolean,
  Date,
  Time,
  TimeStamp,
  FixedText,
  FixedBytes,
  Varying,  ///< texts and bytes
  Blob,
};

/// A value in the message that holds a row.
struct Cell {
  ValueKind kind;
  unsigned offset;
  unsigned nullOffset;
  unsigned byteLength;
  unsigned characters;  ///< of a FixedText
  int scale;            ///< digits after the point
};

struct RowShape {
  std::vector<Column> columns;
  std::vector<Cell> cells;
  std::size_t messageLength = 0;
};

/// Throws ProviderError kNotSupported for a type that this client library does not know.
RowShape rowShape(FirebirdLink& link, Firebird::IMessageMetadata& metadata);

}  // namespace qvn::data::firebird
