#include "qvn/reports/exact_sum.h"

#include <optional>

#include "qvn/base/runtime_error.h"

namespace qvn::reports {
namespace {

// Databases write "." as the decimal separator, people write that of their region.
Decimal decimalIn(const Variant& text) {
  const std::optional<Decimal> decimal = Decimal::fromText(*text.getIf<std::string>());
  return decimal ? *decimal : text.toDecimal();
}

}  // namespace

void ExactSum::add(const Variant& value) {
  switch (value.type()) {
    case VariantType::Null:
    case VariantType::Empty:
      return;
    case VariantType::Single:
    case VariantType::Double:
    case VariantType::LongLong:
      total_ = total_ + Variant(value.toDecimal());
      return;
    case VariantType::String:
      total_ = total_ + Variant(decimalIn(value));
      return;
    case VariantType::Boolean:
    case VariantType::Byte:
    case VariantType::Integer:
    case VariantType::Long:  // which the addition of two would turn into a Double past 32 bits
      total_ = total_ + Variant(value.toLongLong());
      return;
    case VariantType::Currency:
    case VariantType::Decimal:
      total_ = total_ + value;
      return;
    case VariantType::Date:
    case VariantType::Object:
    case VariantType::Array:
      throw RuntimeError(error_number::kTypeMismatch);
  }
}

}  // namespace qvn::reports
