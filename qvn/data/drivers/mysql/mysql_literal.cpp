#include "qvn/data/drivers/mysql/mysql_literal.h"

#include <cmath>

#include "qvn/base/runtime_error.h"
#include "qvn/data/iso_date.h"
#include "qvn/data/sql_text.h"

namespace qvn::data::mysql {
namespace {

constexpr std::int64_t kMicrosecondsPerSecond = 1'000'000;
constexpr std::int64_t kMicrosecondsPerDay = 86400 * kMicrosecondsPerSecond;
// Two steps of a Double near today's day numbers.
constexpr std::int64_t kRoundingMicroseconds = 2;
constexpr std::size_t kFractionDigits = 6;

std::string textLiteral(MYSQL* handle, std::string_view text) {
  std::string quoted(2 * text.size() + 3, '\'');  // every byte escaped, two quotes, the library's closing NUL
  const unsigned long length = mysql_real_escape_string(handle, quoted.data() + 1, text.data(), text.size());
  quoted.resize(length + 1);
  quoted.push_back('\'');
  return quoted;
}

// A day and the microseconds since its midnight. What is nearer to a whole second than the rounding of date arithmetic
// counts as that second: servers that cut fractions off would store the second before.
struct Moment {
  std::int64_t day;
  std::int64_t microseconds;
};

Moment splitMoment(Date date) {
  const double whole = std::trunc(date.serial());
  // NaN fails this test too.
  if (!(whole >= Date::kFirstDay && whole <= Date::kLastDay)) throw RuntimeError(error_number::kInvalidCall);
  std::int64_t time = std::llround(std::abs(date.serial() - whole) * static_cast<double>(kMicrosecondsPerDay));
  const std::int64_t beyond = time % kMicrosecondsPerSecond;
  if (beyond <= kRoundingMicroseconds) time -= beyond;
  if (beyond >= kMicrosecondsPerSecond - kRoundingMicroseconds) time += kMicrosecondsPerSecond - beyond;
  return {static_cast<std::int64_t>(whole) + time / kMicrosecondsPerDay, time % kMicrosecondsPerDay};
}

std::string dateLiteral(Date date, FieldType type) {
  const Moment moment = splitMoment(date);
  const std::int64_t second = moment.microseconds / kMicrosecondsPerSecond;
  std::string text = "'";
  if (type != FieldType::DbTime) text.append(isoDate(Date(static_cast<double>(moment.day)))).push_back(' ');
  text.append(isoTime(Date(static_cast<double>(second) / 86400)));
  if (const std::int64_t fraction = moment.microseconds % kMicrosecondsPerSecond; fraction != 0) {
    const std::string digits = std::to_string(fraction);
    text.append(".").append(kFractionDigits - digits.size(), '0').append(digits);
  }
  text.push_back('\'');
  return text;
}

}  // namespace

std::string literal(MYSQL* handle, const Variant& value, FieldType type) {
  if (const auto* date = value.getIf<Date>()) return dateLiteral(*date, type);
  if (const auto* text = value.getIf<std::string>()) {
    return isBinary(type) ? hexLiteral(*text) : textLiteral(handle, *text);
  }
  return plainLiteral(value);
}

}  // namespace qvn::data::mysql
