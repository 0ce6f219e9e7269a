#include "qvn/mysqladmin/dump_value.h"

#include <algorithm>
#include <string_view>

#include "qvn/base/format_pattern.h"
#include "qvn/base/runtime_error.h"
#include "qvn/data/iso_date.h"

namespace qvn::mysqladmin {
namespace {

constexpr int kFractionDigits = 6;
constexpr std::string_view kChanged = "\\'\n\r";

void appendEscaped(std::string_view plain, std::string& text) {
  while (!plain.empty()) {
    const std::size_t end = std::min(plain.find_first_of(kChanged), plain.size());
    text.append(plain.substr(0, end));
    if (end == plain.size()) return;
    switch (plain[end]) {
      case '\r':
        text.append("\\r\\n");
        break;
      case '\n':
        break;
      default:
        text.push_back('\\');
        text.push_back(plain[end]);
    }
    plain.remove_prefix(end + 1);
  }
}

std::string plainText(const Variant& value, data::FieldType type) {
  if (const auto* const date = value.getIf<Date>()) return data::isoText(*date, type, kFractionDigits);
  if (type != data::FieldType::Numeric) return value.toText();
  std::string number = formatValue(value, "0.00");
  std::ranges::replace(number, ',', '.');
  return number;
}

}  // namespace

void writeDumpValue(const Variant& value, data::FieldType type, std::string& text) {
  if (value.isNull()) throw RuntimeError(error_number::kInvalidUseOfNull);
  const auto* const held = value.getIf<std::string>();
  const std::string made = held == nullptr ? plainText(value, type) : std::string();
  text.clear();
  appendEscaped(held == nullptr ? std::string_view(made) : std::string_view(*held), text);
}

}  // namespace qvn::mysqladmin
