#include "qvn/data/iso_date.h"

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "qvn/base/runtime_error.h"

namespace qvn::data {
namespace {

constexpr double kSecondsPerDay = 86400;
constexpr std::int64_t kMicrosecondsPerSecond = 1'000'000;
constexpr std::int64_t kMicrosecondsPerDay = 86400 * kMicrosecondsPerSecond;
constexpr std::size_t kMostFractionDigits = 6;

// A day and the microseconds since its midnight.
struct Moment {
  std::int64_t day;
  std::int64_t microseconds;
};

Moment splitMoment(Date date) {
  // Two steps of a Double near today's day numbers.
  constexpr std::int64_t kRounding = 2;
  const double whole = std::trunc(date.serial());
  // NaN fails this test too.
  if (!(whole >= Date::kFirstDay && whole <= Date::kLastDay)) throw RuntimeError(error_number::kInvalidCall);
  std::int64_t time = std::llround(std::abs(date.serial() - whole) * static_cast<double>(kMicrosecondsPerDay));
  const std::int64_t beyond = time % kMicrosecondsPerSecond;
  if (beyond <= kRounding) time -= beyond;
  if (beyond >= kMicrosecondsPerSecond - kRounding) time += kMicrosecondsPerSecond - beyond;
  return {static_cast<std::int64_t>(whole) + time / kMicrosecondsPerDay, time % kMicrosecondsPerDay};
}

// Takes exactly `width` digits off the front.
std::optional<int> takeDigits(std::string_view& text, std::size_t width) {
  if (text.size() < width) return std::nullopt;
  int number = 0;
  for (const char c : text.substr(0, width)) {
    if (c < '0' || c > '9') return std::nullopt;
    number = number * 10 + (c - '0');
  }
  text.remove_prefix(width);
  return number;
}

bool takeMark(std::string_view& text, char mark) {
  if (!text.starts_with(mark)) return false;
  text.remove_prefix(1);
  return true;
}

// The fraction of a day of "hh:mm[:ss[.ffffff]]", which must fill the text.
std::optional<double> readTime(std::string_view text) {
  const auto hour = takeDigits(text, 2);
  if (!hour || *hour > 23 || !takeMark(text, ':')) return std::nullopt;
  const auto minute = takeDigits(text, 2);
  if (!minute || *minute > 59) return std::nullopt;
  double second = 0;
  if (takeMark(text, ':')) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), second, std::chars_format::fixed);
    if (error != std::errc{} || !(second >= 0 && second < 60)) return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  }
  if (!text.empty()) return std::nullopt;
  return (*hour * 3600 + *minute * 60 + second) / kSecondsPerDay;
}

std::string padded(int number, std::size_t width) {
  std::string digits = std::to_string(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

}  // namespace

std::optional<Date> parseIsoDate(std::string_view text) {
  if (text.size() > 2 && text[2] == ':') {
    const auto time = readTime(text);
    return time ? std::optional(Date(*time)) : std::nullopt;
  }
  const auto year = takeDigits(text, 4);
  if (!year || !takeMark(text, '-')) return std::nullopt;
  const auto month = takeDigits(text, 2);
  if (!month || !takeMark(text, '-')) return std::nullopt;
  const auto day = takeDigits(text, 2);
  if (!day || !Date::isCivil(*year, *month, *day)) return std::nullopt;
  const Date date = Date::fromCivil(*year, *month, *day);
  if (text.empty()) return date;
  if (!takeMark(text, ' ') && !takeMark(text, 'T')) return std::nullopt;
  const auto time = readTime(text);
  if (!time) return std::nullopt;
  return Date(date.serial() + (date.serial() < 0 ? -*time : *time));
}

std::string isoDate(Date date) {
  const CivilDate civil = date.civil();
  return padded(civil.year, 4) + "-" + padded(civil.month, 2) + "-" + padded(civil.day, 2);
}

std::string isoTime(Date date) {
  const TimeOfDay time = date.time();
  return padded(time.hour, 2) + ":" + padded(time.minute, 2) + ":" + padded(time.second, 2);
}

std::string isoDateTime(Date date) { return isoDate(date) + " " + isoTime(date); }

std::string isoText(Date date, FieldType type, int fractionDigits) {
  const Moment moment = splitMoment(date);
  const std::int64_t second = moment.microseconds / kMicrosecondsPerSecond;
  std::string text;
  if (type != FieldType::DbTime) text = isoDate(Date(static_cast<double>(moment.day)));
  if (type == FieldType::Date) return text;
  if (!text.empty()) text.push_back(' ');
  text.append(isoTime(Date(static_cast<double>(second) / kSecondsPerDay)));
  std::string fraction = padded(static_cast<int>(moment.microseconds % kMicrosecondsPerSecond), kMostFractionDigits);
  fraction.resize(static_cast<std::size_t>(fractionDigits));
  fraction.resize(fraction.find_last_not_of('0') + 1);
  if (!fraction.empty()) text.append(".").append(fraction);
  return text;
}

}  // namespace qvn::data
