#include "qvn/data/drivers/firebird/firebird_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "qvn/base/utf8.h"
#include "qvn/data/iso_date.h"

namespace qvn::data::firebird {
namespace {

// The engine counts days from 17 November 1858, and the day in units of a ten-thousandth of a second.
constexpr std::int32_t kDayZero = 15018;    // 30 December 1899
constexpr std::int32_t kUnixEpoch = 40587;  // 1 January 1970
constexpr std::uint32_t kUnitsPerSecond = ISC_TIME_SECONDS_PRECISION;
constexpr double kUnitsPerDay = 86400.0 * kUnitsPerSecond;

template <typename Value>
Value load(const unsigned char* bytes) {
  Value value;
  std::memcpy(&value, bytes, sizeof(value));
  return value;
}

void readScaled(std::int64_t number, int scale, Variant& value) {
  std::array<char, 48> text{};  // a sign, a point, 20 digits and up to 18 zeros before them
  const std::uint64_t magnitude =
      number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
  std::array<char, 20> digits{};
  const auto count = std::to_chars(digits.begin(), digits.end(), magnitude).ptr - digits.begin();
  char* to = text.begin();
  if (number < 0) *to++ = '-';
  const auto whole = count - scale;
  if (whole <= 0) {
    to = std::strcpy(to, "0.") + 2;
    to = std::fill_n(to, -whole, '0');
    to = std::copy_n(digits.begin(), count, to);
  } else {
    to = std::copy_n(digits.begin(), whole, to);
    if (scale > 0) *to++ = '.';
    to = std::copy_n(digits.begin() + whole, scale, to);
  }
  value = *Decimal::fromText({text.begin(), static_cast<std::size_t>(to - text.begin())});
}

std::string isoDateOf(ISC_DATE date) {
  const std::chrono::year_month_day day(std::chrono::sys_days(std::chrono::days(date - kUnixEpoch)));
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(day.year()),
                static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
  return text.data();
}

double fractionOfDay(ISC_TIME time) { return time / kUnitsPerDay; }

void readMoment(ISC_DATE date, ISC_TIME time, bool hasTime, Variant& value) {
  const std::int32_t day = date - kDayZero;
  if (day < Date::kFirstDay) {
    std::string text = isoDateOf(date);
    if (hasTime) text += " " + isoTime(Date(fractionOfDay(time - time % kUnitsPerSecond)));
    value = std::move(text);
    return;
  }
  // So late on the last day the platform's rounding to seconds would leave the calendar.
  if (day == Date::kLastDay) time -= time % kUnitsPerSecond;
  value = Date(day < 0 ? day - fractionOfDay(time) : day + fractionOfDay(time));
}

}  // namespace

bool isNull(const unsigned char* row, const Cell& cell) { return load<std::int16_t>(row + cell.nullOffset) != 0; }

void readValue(const unsigned char* row, const Cell& cell, Variant& value) {
  const unsigned char* const bytes = row + cell.offset;
  const auto* const text = reinterpret_cast<const char*>(bytes);
  switch (cell.kind) {
    case ValueKind::Integer:
      value = load<std::int16_t>(bytes);
      break;
    case ValueKind::Long:
      value = load<std::int32_t>(bytes);
      break;
    case ValueKind::LongLong:
      value = load<std::int64_t>(bytes);
      break;
    case ValueKind::Scaled16:
      readScaled(load<std::int16_t>(bytes), cell.scale, value);
      break;
    case ValueKind::Scaled32:
      readScaled(load<std::int32_t>(bytes), cell.scale, value);
      break;
    case ValueKind::Scaled64:
      readScaled(load<std::int64_t>(bytes), cell.scale, value);
      break;
    case ValueKind::Single:
      value = load<float>(bytes);
      break;
    case ValueKind::Double:
      value = load<double>(bytes);
      break;
    case ValueKind::Boolean:
      value = *bytes != 0;
      break;
    case ValueKind::Date:
      readMoment(load<ISC_DATE>(bytes), 0, false, value);
      break;
    case ValueKind::Time:
      value = Date(fractionOfDay(load<ISC_TIME>(bytes)));
      break;
    case ValueKind::TimeStamp: {
      const auto moment = load<ISC_TIMESTAMP>(bytes);
      readMoment(moment.timestamp_date, moment.timestamp_time, true, value);
      break;
    }
    case ValueKind::FixedText:
      // The engine pads to as many bytes as that many characters may take.
      value.assignText(utf8::left({text, cell.byteLength}, cell.characters));
      break;
    case ValueKind::FixedBytes:
      value.assignText({text, cell.byteLength});
      break;
    case ValueKind::Varying:
      value.assignText({text + sizeof(std::uint16_t), load<std::uint16_t>(bytes)});
      break;
    case ValueKind::Blob:
      break;
  }
}

}  // namespace qvn::data::firebird
