#include "qvn/base/date.h"

#include <chrono>
#include <cmath>

#include "qvn/base/runtime_error.h"

namespace qvn {
namespace {

using std::chrono::sys_days;

constexpr int kSecondsPerDay = 86400;
constexpr sys_days kEpoch = std::chrono::year{1899} / 12 / 30;

// Whole day and second of the day of a date value, rounded to the second.
struct Split {
  std::int64_t day;
  int second;
};

Split split(double serial) {
  // NaN fails this test too.
  if (!(serial > Date::kFirstDay - 1 && serial < Date::kLastDay + 1)) throw RuntimeError(error_number::kInvalidCall);
  const double whole = std::trunc(serial);
  auto day = static_cast<std::int64_t>(whole);
  auto second = static_cast<int>(std::lround(std::abs(serial - whole) * kSecondsPerDay));
  if (second == kSecondsPerDay) {
    ++day;
    second = 0;
    if (day > Date::kLastDay) throw RuntimeError(error_number::kInvalidCall);
  }
  return {day, second};
}

sys_days calendarDay(const Split& value) { return kEpoch + std::chrono::days{value.day}; }

std::chrono::year_month_day toCalendar(int year, int month, int day) {
  return std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(month)} /
         std::chrono::day{static_cast<unsigned>(day)};
}

double withTime(std::int64_t day, TimeOfDay time) {
  const double fraction = (time.hour * 3600 + time.minute * 60 + time.second) / static_cast<double>(kSecondsPerDay);
  return static_cast<double>(day) + (day < 0 ? -fraction : fraction);
}

}  // namespace

bool Date::isCivil(int year, int month, int day) noexcept {
  return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
         toCalendar(year, month, day).ok();
}

Date Date::fromCivil(int year, int month, int day, TimeOfDay time) {
  if (!isCivil(year, month, day)) throw RuntimeError(error_number::kInvalidCall);
  return Date(withTime((sys_days{toCalendar(year, month, day)} - kEpoch).count(), time));
}

Date Date::fromSerialParts(int year, int month, int day) {
  const std::int64_t months = std::int64_t{expandYear(year)} * 12 + month - 1;
  const std::int64_t realYear = months >= 0 ? months / 12 : (months - 11) / 12;
  if (realYear < -32000 || realYear > 32000) throw RuntimeError(error_number::kInvalidCall);
  const auto realMonth = static_cast<int>(months - realYear * 12 + 1);
  const sys_days first = toCalendar(static_cast<int>(realYear), realMonth, 1);
  const std::int64_t serial = (first - kEpoch).count() + std::int64_t{day} - 1;
  if (serial < kFirstDay || serial > kLastDay) throw RuntimeError(error_number::kInvalidCall);
  return Date(static_cast<double>(serial));
}

CivilDate Date::civil() const {
  const std::chrono::year_month_day date{calendarDay(split(serial_))};
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day()))};
}

TimeOfDay Date::time() const {
  const int second = split(serial_).second;
  return {second / 3600, second / 60 % 60, second % 60};
}

int Date::weekday() const {
  return static_cast<int>(std::chrono::weekday{calendarDay(split(serial_))}.c_encoding()) + 1;
}

int Date::dayOfYear() const {
  const sys_days day = calendarDay(split(serial_));
  const std::chrono::year year = std::chrono::year_month_day{day}.year();
  return static_cast<int>((day - sys_days{year / 1 / 1}).count()) + 1;
}

std::int32_t Date::dayNumber() const { return static_cast<std::int32_t>(split(serial_).day); }

bool Date::hasTime() const { return split(serial_).second != 0; }

}  // namespace qvn
