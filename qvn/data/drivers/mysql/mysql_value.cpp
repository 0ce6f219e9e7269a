#include "qvn/data/drivers/mysql/mysql_value.h"

#include <charconv>
#include <optional>

#include "qvn/data/iso_date.h"

namespace qvn::data::mysql {
namespace {

template <typename Number>
void readNumber(std::string_view text, Variant& value) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc{} && stop == end) {
    value = number;
  } else {
    value.assignText(text);
  }
}

template <typename Value>
void readParsed(std::optional<Value> parsed, std::string_view text, Variant& value) {
  if (parsed) {
    value = *std::move(parsed);
  } else {
    value.assignText(text);
  }
}

// '0000-00-00', and any date whose month or day is zero: the engine's way to say that a date is unknown.
bool isZeroDate(std::string_view text) {
  return text.size() >= 10 && (text.substr(5, 2) == "00" || text.substr(8, 2) == "00");
}

void readMoment(std::string_view text, Variant& value) {
  static constexpr std::size_t kWholeSeconds = 19;  // characters of "yyyy-mm-dd hh:nn:ss"
  static constexpr double kHalfSecond = 0.5 / 86400;
  if (isZeroDate(text)) {
    value = Null{};
    return;
  }
  std::optional<Date> date = parseIsoDate(text);
  // So late on the last day the platform's rounding to seconds would leave the calendar.
  if (date && date->serial() >= Date::kLastDay + 1 - kHalfSecond) date = parseIsoDate(text.substr(0, kWholeSeconds));
  readParsed(date, text, value);
}

std::uint64_t bits(std::string_view bytes) {
  std::uint64_t number = 0;
  for (const char byte : bytes) number = number << 8 | static_cast<std::uint8_t>(byte);
  return number;
}

}  // namespace

void readValue(ValueKind kind, std::string_view text, Variant& value) {
  if (text.data() == nullptr) {
    value = Null{};
    return;
  }
  switch (kind) {
    case ValueKind::Null:
      value = Null{};
      break;
    case ValueKind::Integer:
      readNumber<std::int16_t>(text, value);
      break;
    case ValueKind::Long:
      readNumber<std::int32_t>(text, value);
      break;
    case ValueKind::LongLong:
      readNumber<std::int64_t>(text, value);
      break;
    case ValueKind::Single:
      readNumber<float>(text, value);
      break;
    case ValueKind::Double:
      readNumber<double>(text, value);
      break;
    case ValueKind::Decimal:
      readParsed(Decimal::fromText(text), text, value);
      break;
    case ValueKind::Boolean:
      value = bits(text) != 0;
      break;
    case ValueKind::Bits:
      value = bits(text);
      break;
    case ValueKind::Date:
      readMoment(text, value);
      break;
    case ValueKind::Time:
      readParsed(parseIsoDate(text), text, value);
      break;
    case ValueKind::Text:
      value.assignText(text);
      break;
  }
}

}  // namespace qvn::data::mysql
