#include "qvn/base/variant.h"

#include <array>

namespace qvn {

VariantType Variant::type() const noexcept {
  // In the order of Storage.
  static constexpr std::array<VariantType, std::variant_size_v<Storage>> kTypes = {
      VariantType::Empty,   VariantType::Null,     VariantType::Boolean, VariantType::Byte,   VariantType::Integer,
      VariantType::Long,    VariantType::LongLong, VariantType::Single,  VariantType::Double, VariantType::Currency,
      VariantType::Decimal, VariantType::Date,     VariantType::String,  VariantType::Array,  VariantType::Object};
  return kTypes[value_.index()];
}

bool Variant::isNumeric() const noexcept {
  switch (type()) {
    case VariantType::Integer:
    case VariantType::Long:
    case VariantType::Single:
    case VariantType::Double:
    case VariantType::Currency:
    case VariantType::Date:
    case VariantType::Boolean:
    case VariantType::Decimal:
    case VariantType::Byte:
    case VariantType::LongLong:
      return true;
    case VariantType::Empty:
    case VariantType::Null:
    case VariantType::String:
    case VariantType::Object:
    case VariantType::Array:
      return false;
  }
  return false;
}

Decimal Variant::fromUnsigned(std::uint64_t value) { return *Decimal::fromText(std::to_string(value)); }

}  // namespace qvn
