#include "qvn/base/format_pattern.h"

#include "qvn/base/date_text.h"
#include "qvn/base/number_text.h"
#include "qvn/base/pattern/date_layout.h"
#include "qvn/base/pattern/named_format.h"
#include "qvn/base/pattern/number_pattern.h"
#include "qvn/base/pattern/sections.h"
#include "qvn/base/pattern/significant_digits.h"
#include "qvn/base/pattern/text_layout.h"
#include "qvn/base/regional.h"
#include "qvn/base/runtime_error.h"

namespace qvn {
namespace {

using pattern::NamedFormat;
using pattern::NamedFormatKind;
using pattern::Pattern;
using pattern::PatternKind;
using pattern::Sections;

std::string generalText(const Variant& value) {
  if (value.isNull()) return {};
  if (const auto* number = value.getIf<double>()) return regionalNumber(*number);
  return value.toText();
}

std::string generalNumberText(const Variant& number) {
  const VariantType type = number.type();
  const bool hasOtherText = type == VariantType::Empty || type == VariantType::Boolean || type == VariantType::Date;
  return hasOtherText ? regionalNumber(number.toDouble()) : generalText(number);
}

// Calls `layout` with a number, text being read as one; text that is none is returned as it is, and Null as "".
template <typename Layout>
std::string layoutAsNumber(const Variant& value, Layout layout) {
  if (value.isNull()) return {};
  const auto* text = value.getIf<std::string>();
  if (text == nullptr) return layout(value);
  const auto number = parseNumber(*text);
  return number ? layout(Variant(*number)) : *text;
}

// Calls `layout` with the number's digits; infinities and NaN, which have none, give their general text.
template <typename Layout>
std::string layoutDigits(const Variant& value, Layout layout) {
  return layoutAsNumber(value, [&layout](const Variant& number) {
    const auto digits = pattern::significantDigits(number);
    return digits ? layout(*digits) : generalNumberText(number);
  });
}

std::string formatNumber(const Variant& value, const Sections& sections) {
  if (value.isNull()) return pattern::layoutNumber({}, {sections[pattern::kNullSection]});
  return layoutDigits(value, [&sections](const auto& digits) { return pattern::layoutNumber(digits, sections); });
}

std::string formatDate(const Variant& value, std::string_view section) {
  if (const auto* date = value.getIf<Date>()) return pattern::layoutDate(*date, section);
  if (const auto* text = value.getIf<std::string>()) {
    if (const auto date = parseDate(*text)) return pattern::layoutDate(*date, section);
  }
  return layoutAsNumber(
      value, [section](const Variant& number) { return pattern::layoutDate(Date(number.toDouble()), section); });
}

std::string formatText(const Variant& value, const Pattern& pattern) {
  const std::string converted = value.isNull() || value.isText() ? std::string() : value.toText();
  const std::string& text = value.isText() ? *value.getIf<std::string>() : converted;
  if (text.empty() && pattern.sectionCount > pattern::kNoTextSection) {
    return pattern::layoutText({}, pattern.sections[pattern::kNoTextSection]);
  }
  if (value.isNull()) return {};
  return pattern::layoutText(text, pattern.sections[pattern::kTextSection]);
}

std::string formatByPattern(const Variant& value, std::string_view text) {
  const Pattern pattern = pattern::readPattern(text);
  switch (pattern.kind) {
    case PatternKind::Literal:
      if (value.type() == VariantType::Date) return formatDate(value, pattern.sections[pattern::kDateSection]);
      return formatNumber(value, pattern.sections);
    case PatternKind::Number:
      return formatNumber(value, pattern.sections);
    case PatternKind::Date:
      return formatDate(value, pattern.sections[pattern::kDateSection]);
    case PatternKind::Text:
      return formatText(value, pattern);
  }
  return {};
}

std::string_view chooseWord(const Variant& number, const NamedFormat& format) {
  const pattern::ChoiceWords& words = regionalSettings().isSpanish ? format.spanish : format.english;
  return number.toDouble() != 0 ? words.nonZero : words.zero;
}

std::string formatByName(const Variant& value, const NamedFormat& format) {
  switch (format.kind) {
    case NamedFormatKind::Pattern:
      return formatByPattern(value, format.pattern);
    case NamedFormatKind::GeneralNumber:
      return layoutAsNumber(value, generalNumberText);
    case NamedFormatKind::Currency:
      return layoutDigits(value, pattern::layoutCurrency);
    case NamedFormatKind::Choice:
      return layoutAsNumber(value,
                            [&format](const Variant& number) { return std::string(chooseWord(number, format)); });
  }
  return {};
}

}  // namespace

std::string formatValue(const Variant& value, std::string_view pattern) {
  const VariantType type = value.type();
  if (type == VariantType::Array || type == VariantType::Object) throw RuntimeError(error_number::kTypeMismatch);
  if (pattern.empty()) return generalText(value);
  if (const NamedFormat* format = pattern::findNamedFormat(pattern)) return formatByName(value, *format);
  return formatByPattern(value, pattern);
}

}  // namespace qvn
