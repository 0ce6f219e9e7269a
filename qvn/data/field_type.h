// Type codes of fields, as the data-access platform numbers them.
#pragma once

namespace qvn::data {

enum class FieldType {
  SmallInt = 2,
  Integer = 3,
  Single = 4,
  Double = 5,
  Currency = 6,
  Date = 7,
  Boolean = 11,
  TinyInt = 16,
  UnsignedTinyInt = 17,
  UnsignedSmallInt = 18,
  UnsignedInt = 19,
  BigInt = 20,
  UnsignedBigInt = 21,
  Binary = 128,
  Char = 129,
  WChar = 130,
  Numeric = 131,
  DbDate = 133,
  DbTime = 134,
  DbTimeStamp = 135,
  VarChar = 200,
  LongVarChar = 201,
  VarWChar = 202,
  LongVarWChar = 203,
  VarBinary = 204,
  LongVarBinary = 205,
};

/// True for the types whose values are bytes: such a value is a text Variant that holds the bytes as they are.
constexpr bool isBinary(FieldType type) {
  return type == FieldType::Binary || type == FieldType::VarBinary || type == FieldType::LongVarBinary;
}

}  // namespace qvn::data
