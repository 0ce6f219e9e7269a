#include "qvn/base/date_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"

namespace qvn {
namespace {

std::string padded(int number, std::size_t width) {
  std::string digits = std::to_string(number);
  if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
  return digits;
}

// A piece of a date text: a number, or a word in capitals.
struct Piece {
  bool isNumber;
  std::string text;
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isMark(char c) { return c == '/' || c == '-' || c == '.' || c == ','; }
bool isSeparator(char c) { return isMark(c) || c == ' '; }

// Takes the separators off the front of `text`: blanks and one mark. False when there are more marks.
bool takeSeparators(std::string_view& text) {
  std::size_t end = 0;
  std::size_t marks = 0;
  for (; end < text.size() && isSeparator(text[end]); ++end) marks += isMark(text[end]) ? 1U : 0U;
  text.remove_prefix(end);
  return marks <= 1;
}

// Cuts the date part into pieces; nothing when it is more than a date, or separators are doubled or stand at an end.
std::optional<std::vector<Piece>> cutDate(std::string_view text) {
  constexpr std::size_t kMostPieces = 5;  // "7 de marzo de 2012"
  std::vector<Piece> pieces;
  if (!text.empty() && isSeparator(text.back())) return std::nullopt;
  while (!text.empty()) {
    const bool isNumber = isDigit(text.front());
    std::size_t end = 0;
    while (end < text.size() && !isSeparator(text[end]) && isDigit(text[end]) == isNumber) ++end;
    if (end == 0 || pieces.size() == kMostPieces) return std::nullopt;
    pieces.push_back({isNumber, upperCase(text.substr(0, end))});
    text.remove_prefix(end);
    if (!takeSeparators(text)) return std::nullopt;
  }
  return pieces;
}

// The number that `digits`, without a sign, are.
std::optional<int> toNumber(std::string_view digits) {
  int number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc{} || end != digits.data() + digits.size() || digits.front() == '-') return std::nullopt;
  return number;
}

// Month named by `word` in capitals: the locale's names and the English ones, whole or abbreviated.
std::optional<int> monthOf(std::string_view word) {
  static constexpr std::array<std::string_view, 12> kEnglish = {"JANUARY",   "FEBRUARY", "MARCH",    "APRIL",
                                                                "MAY",       "JUNE",     "JULY",     "AUGUST",
                                                                "SEPTEMBER", "OCTOBER",  "NOVEMBER", "DECEMBER"};
  for (int month = 1; month <= 12; ++month) {
    const std::string_view english = kEnglish[static_cast<std::size_t>(month) - 1];
    if (word == english || word == english.substr(0, 3)) return month;
    if (equalIgnoringCase(word, monthName(month, false)) || equalIgnoringCase(word, monthName(month, true))) {
      return month;
    }
  }
  return std::nullopt;
}

struct YearMonthDay {
  int year;
  int month;
  int day;
};

YearMonthDay arrange(const std::array<int, 3>& numbers, DateOrder order) {
  switch (order) {
    case DateOrder::DayMonthYear:
      return {numbers[2], numbers[1], numbers[0]};
    case DateOrder::MonthDayYear:
      return {numbers[2], numbers[0], numbers[1]};
    case DateOrder::YearMonthDay:
      return {numbers[0], numbers[1], numbers[2]};
  }
  return {};
}

std::optional<Date> fromNumbers(const std::vector<Piece>& pieces, const RegionalSettings& regional) {
  if (pieces.size() != 3) return std::nullopt;
  std::array<int, 3> numbers{};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto number = toNumber(pieces[i].text);
    if (!pieces[i].isNumber || !number) return std::nullopt;
    numbers[i] = *number;
  }
  YearMonthDay date = arrange(numbers, pieces[0].text.size() > 2 ? DateOrder::YearMonthDay : regional.dateOrder);
  date.year = expandYear(date.year);
  // As the platform does, a month that cannot be one is taken for the day.
  if (date.month > 12 && date.day <= 12) std::swap(date.month, date.day);
  if (!Date::isCivil(date.year, date.month, date.day)) return std::nullopt;
  return Date::fromCivil(date.year, date.month, date.day);
}

// "7 de marzo de 2012", "7-mar-12", "March 7, 2012".
std::optional<Date> fromNamedMonth(const std::vector<Piece>& pieces) {
  std::optional<int> month;
  std::vector<int> numbers;
  for (const Piece& piece : pieces) {
    if (piece.isNumber) {
      const auto number = toNumber(piece.text);
      if (!number) return std::nullopt;
      numbers.push_back(*number);
    } else if (piece.text != "DE" && !month) {
      month = monthOf(piece.text);
      if (!month) return std::nullopt;
    } else if (piece.text != "DE") {
      return std::nullopt;
    }
  }
  if (!month || numbers.size() != 2) return std::nullopt;
  const int year = expandYear(numbers[1]);
  if (!Date::isCivil(year, *month, numbers[0])) return std::nullopt;
  return Date::fromCivil(year, *month, numbers[0]);
}

std::optional<Date> parseDay(std::string_view text, const RegionalSettings& regional) {
  const auto pieces = cutDate(text);
  if (!pieces) return std::nullopt;
  const bool hasName = std::ranges::any_of(*pieces, [](const Piece& piece) { return !piece.isNumber; });
  return hasName ? fromNamedMonth(*pieces) : fromNumbers(*pieces, regional);
}

// Takes "AM" or "PM" off the end of `text`: 0 for AM, 12 for PM.
std::optional<int> takeHalf(std::string_view& text) {
  if (text.size() < 2) return std::nullopt;
  const std::string_view tail = text.substr(text.size() - 2);
  const bool isPm = equalIgnoringCase(tail, "PM");
  if (!isPm && !equalIgnoringCase(tail, "AM")) return std::nullopt;
  text = utf8::trimBlanks(text.substr(0, text.size() - 2));
  return isPm ? 12 : 0;
}

// The fraction of a day of "HH:MM[:SS]", optionally followed by AM or PM.
std::optional<double> parseTime(std::string_view text) {
  const auto half = takeHalf(text);
  std::array<int, 3> parts{};
  std::size_t count = 0;
  while (true) {
    const std::size_t colon = text.find(':');
    const std::string_view digits = text.substr(0, colon);
    const auto number = toNumber(digits);
    if (!number || digits.size() > 2 || count == parts.size()) return std::nullopt;
    parts[count++] = *number;
    if (colon == std::string_view::npos) break;
    text.remove_prefix(colon + 1);
  }
  if (count < 2 && !half) return std::nullopt;
  if (half && (parts[0] < 1 || parts[0] > 12)) return std::nullopt;
  const int hour = half ? parts[0] % 12 + *half : parts[0];
  if (hour > 23 || parts[1] > 59 || parts[2] > 59) return std::nullopt;
  return (hour * 3600 + parts[1] * 60 + parts[2]) / 86400.0;
}

}  // namespace

std::string shortDateText(Date date, const RegionalSettings& regional) {
  const CivilDate civil = date.civil();
  const std::string day = padded(civil.day, 2);
  const std::string month = padded(civil.month, 2);
  const std::string year = padded(civil.year, 4);
  const std::string& mark = regional.dateSeparator;
  switch (regional.dateOrder) {
    case DateOrder::DayMonthYear:
      return day + mark + month + mark + year;
    case DateOrder::MonthDayYear:
      return month + mark + day + mark + year;
    case DateOrder::YearMonthDay:
      return year + mark + month + mark + day;
  }
  return {};
}

std::string longDateText(Date date, const RegionalSettings& regional) {
  const CivilDate civil = date.civil();
  const std::string day = std::to_string(civil.day);
  const std::string month = monthName(civil.month, false);
  const std::string weekday = weekdayName(date.weekday(), false);
  const std::string year = padded(civil.year, 4);
  if (regional.isSpanish) return weekday + ", " + day + " de " + month + " de " + year;
  return weekday + ", " + month + " " + day + ", " + year;
}

std::string timeText(Date date, const RegionalSettings& regional) {
  const TimeOfDay time = date.time();
  const std::string rest = ":" + padded(time.minute, 2) + ":" + padded(time.second, 2);
  if (!regional.usesTwelveHours) return padded(time.hour, 2) + rest;
  return padded(time.hour % 12 == 0 ? 12 : time.hour % 12, 2) + rest + (time.hour < 12 ? " AM" : " PM");
}

std::string dateText(Date date) {
  const RegionalSettings regional = regionalSettings();
  if (!date.hasTime()) return date.dayNumber() == 0 ? timeText(date, regional) : shortDateText(date, regional);
  if (date.dayNumber() == 0) return timeText(date, regional);
  return shortDateText(date, regional) + " " + timeText(date, regional);
}

std::optional<Date> parseDate(std::string_view text, const RegionalSettings& regional) {
  text = utf8::trimBlanks(text);
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) {
    if (const auto day = parseDay(text, regional)) return day;
    const auto time = parseTime(text);
    return time ? std::optional(Date(*time)) : std::nullopt;
  }
  // The hour's digits end the date part; ISO texts join both with a "T", others may with a comma.
  std::size_t start = colon;
  while (start > 0 && isDigit(text[start - 1])) --start;
  const auto time = parseTime(text.substr(start));
  if (!time) return std::nullopt;
  std::string_view dayText = utf8::trimBlanks(text.substr(0, start));
  if (dayText.empty()) return Date(*time);
  if (dayText.ends_with('T') || dayText.ends_with(',')) dayText.remove_suffix(1);
  const auto day = parseDay(dayText, regional);
  if (!day) return std::nullopt;
  return Date(day->serial() + (day->serial() < 0 ? -*time : *time));
}

std::optional<Date> parseDate(std::string_view text) { return parseDate(text, regionalSettings()); }

}  // namespace qvn
