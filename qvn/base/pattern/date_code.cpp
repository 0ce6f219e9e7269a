#include "qvn/base/pattern/date_code.h"

#include <algorithm>
#include <array>
#include <functional>

namespace qvn::pattern {
namespace {

// Longest first, so that the first row that matches is the longest one.
// clang-format off
constexpr auto kDateCodes = std::to_array<DateCode>({
    {"dddddd", WordField::LongDate},
    {"ddddd", WordField::ShortDate},
    {"ttttt", WordField::Time},
    {"am/pm", WordField::Half},
    {"dddd", WordField::WeekdayLong},
    {"mmmm", WordField::MonthLong},
    {"yyyy", NumberField::Year, 4},
    {"ampm", WordField::HalfSystem},
    {"ddd", WordField::WeekdayShort},
    {"mmm", WordField::MonthShort},
    {"a/p", WordField::HalfLetter},
    {"dd", NumberField::Day, 2},
    {"ww", NumberField::Week},
    {"mm", NumberField::Month, 2},
    {"yy", NumberField::YearOfCentury, 2},
    {"hh", NumberField::Hour, 2},
    {"nn", NumberField::Minute, 2},
    {"ss", NumberField::Second, 2},
    {"c", WordField::General},
    {"d", NumberField::Day},
    {"w", NumberField::Weekday},
    {"m", NumberField::Month},
    {"q", NumberField::Quarter},
    {"y", NumberField::DayOfYear},
    {"h", NumberField::Hour},
    {"n", NumberField::Minute},
    {"s", NumberField::Second},
});
// clang-format on
static_assert(std::ranges::is_sorted(kDateCodes, std::greater{}, [](const DateCode& row) { return row.text.size(); }));

constexpr char lowerAscii(char c) noexcept { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }

bool startsWith(std::string_view text, std::string_view code) noexcept {
  return text.size() >= code.size() &&
         std::equal(code.begin(), code.end(), text.begin(), [](char c, char t) { return c == lowerAscii(t); });
}

}  // namespace

const DateCode* matchDateCode(std::string_view text) noexcept {
  const auto* row =
      std::ranges::find_if(kDateCodes, [text](const DateCode& code) { return startsWith(text, code.text); });
  return row == kDateCodes.end() ? nullptr : row;
}

bool DateCode::isHalfMarker() const noexcept {
  const auto* word = std::get_if<WordField>(&field);
  return word != nullptr &&
         (*word == WordField::Half || *word == WordField::HalfLetter || *word == WordField::HalfSystem);
}

}  // namespace qvn::pattern
