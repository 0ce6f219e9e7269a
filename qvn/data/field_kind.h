// What the values of a field are, whatever its engine calls the type.
#pragma once

#include "qvn/data/field_type.h"

namespace qvn::data {

enum class FieldKind {
  Whole,  ///< numbers without decimals
  Exact,  ///< amounts with decimals, all of whose digits count
  Real,   ///< Singles and Doubles
  Boolean,
  Moment,  ///< dates and times
  Text,
  Bytes,
};

constexpr FieldKind kindOf(FieldType type) {
  switch (type) {
    case FieldType::SmallInt:
    case FieldType::Integer:
    case FieldType::TinyInt:
    case FieldType::UnsignedTinyInt:
    case FieldType::UnsignedSmallInt:
    case FieldType::UnsignedInt:
    case FieldType::BigInt:
    case FieldType::UnsignedBigInt:
      return FieldKind::Whole;
    case FieldType::Currency:
    case FieldType::Numeric:
      return FieldKind::Exact;
    case FieldType::Single:
    case FieldType::Double:
      return FieldKind::Real;
    case FieldType::Boolean:
      return FieldKind::Boolean;
    case FieldType::Date:
    case FieldType::DbDate:
    case FieldType::DbTime:
    case FieldType::DbTimeStamp:
      return FieldKind::Moment;
    case FieldType::Binary:
    case FieldType::VarBinary:
    case FieldType::LongVarBinary:
      return FieldKind::Bytes;
    case FieldType::Char:
    case FieldType::WChar:
    case FieldType::VarChar:
    case FieldType::LongVarChar:
    case FieldType::VarWChar:
    case FieldType::LongVarWChar:
      break;
  }
  return FieldKind::Text;
}

constexpr bool hasDecimals(FieldKind kind) { return kind == FieldKind::Exact || kind == FieldKind::Real; }
constexpr bool isNumber(FieldKind kind) { return kind == FieldKind::Whole || hasDecimals(kind); }

}  // namespace qvn::data
