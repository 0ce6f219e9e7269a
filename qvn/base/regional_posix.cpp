// Regional settings from the POSIX locale of the calling thread.
#include <langinfo.h>

#include <algorithm>
#include <array>
#include <climits>
#include <clocale>
#include <cwchar>
#include <string_view>

#include "qvn/base/regional.h"
#include "qvn/base/utf8.h"

namespace qvn {
namespace {

// Locale texts come in the locale's own character set; ASCII and UTF-8 pass as they are.
std::string localeText(const char* text) {
  if (utf8::isValid(text)) return text;
  std::string converted;
  std::mbstate_t state{};
  std::string_view rest(text);
  while (!rest.empty()) {
    wchar_t character = 0;
    const std::size_t taken = std::mbrtowc(&character, rest.data(), rest.size(), &state);
    if (taken == 0 || taken > rest.size()) break;
    utf8::append(converted, static_cast<char32_t>(character));
    rest.remove_prefix(taken);
  }
  return converted;
}

std::string langinfo(nl_item item) { return localeText(nl_langinfo(item)); }

// The letters of a strftime conversion that stand for the day, the month and the year.
enum class DatePart { None, Day, Month, Year, WholeMonthFirst, WholeYearFirst };

DatePart datePart(char conversion) {
  switch (conversion) {
    case 'd':
    case 'e':
      return DatePart::Day;
    case 'm':
    case 'b':
    case 'B':
    case 'h':
      return DatePart::Month;
    case 'y':
    case 'Y':
    case 'C':
      return DatePart::Year;
    case 'D':
      return DatePart::WholeMonthFirst;
    case 'F':
      return DatePart::WholeYearFirst;
    default:
      return DatePart::None;
  }
}

// Order and separator of the short date, from the locale's strftime format such as "%d/%m/%y".
void readDateFormat(std::string_view format, RegionalSettings& settings) {
  const std::size_t mark = format.find('%');
  if (mark == std::string_view::npos) return;
  std::size_t at = mark + 1;
  while (at < format.size() && std::string_view("-_0^#EO").find(format[at]) != std::string_view::npos) ++at;
  if (at >= format.size()) return;
  const DatePart first = datePart(format[at]);
  switch (first) {
    case DatePart::Day:
      settings.dateOrder = DateOrder::DayMonthYear;
      break;
    case DatePart::Month:
    case DatePart::WholeMonthFirst:
      settings.dateOrder = DateOrder::MonthDayYear;
      break;
    case DatePart::Year:
    case DatePart::WholeYearFirst:
      settings.dateOrder = DateOrder::YearMonthDay;
      break;
    case DatePart::None:
      return;
  }
  if (first == DatePart::WholeMonthFirst) return;
  if (first == DatePart::WholeYearFirst) {
    settings.dateSeparator = "-";
    return;
  }
  const std::size_t end = format.find('%', ++at);
  std::string separator(utf8::trimBlanks(format.substr(at, end == std::string_view::npos ? end : end - at)));
  if (!separator.empty()) settings.dateSeparator = std::move(separator);
}

// What the locale groups digits with. Some locales with a decimal point, Mexico's among them, name a narrow blank;
// people there type and expect a comma, and a number that they typed so must not be refused.
std::string thousandsSeparator(std::string named, const std::string& decimal) {
  static constexpr auto kBlanks = std::to_array<std::string_view>({"", " ", "\u00A0", "\u2009", "\u202F"});
  if (std::ranges::find(kBlanks, named) == kBlanks.end()) return named;
  if (decimal == ".") return ",";
  return named.empty() ? "." : named;
}

}  // namespace

std::string decimalSeparator() {
  std::string separator = langinfo(RADIXCHAR);
  return separator.empty() ? "." : separator;
}

NumberSeparators numberSeparators() {
  NumberSeparators separators;
  separators.decimalSeparator = decimalSeparator();
  separators.thousandsSeparator = thousandsSeparator(langinfo(THOUSEP), separators.decimalSeparator);
  return separators;
}

std::string regionalDateSeparator() {
  RegionalSettings settings;
  readDateFormat(localeText(nl_langinfo(D_FMT)), settings);
  return settings.dateSeparator;
}

RegionalSettings regionalSettings() {
  RegionalSettings settings{numberSeparators()};
  readDateFormat(localeText(nl_langinfo(D_FMT)), settings);
  const std::string_view time = nl_langinfo(T_FMT);
  settings.usesTwelveHours = time.find("%r") != std::string_view::npos || time.find("%I") != std::string_view::npos ||
                             time.find("%l") != std::string_view::npos;
  settings.isSpanish = std::string_view(nl_langinfo(MON_1)) == "enero";
  return settings;
}

CurrencyStyle currencyStyle() {
  CurrencyStyle style;
  const lconv* locale = std::localeconv();
  style.symbol = localeText(locale->currency_symbol);
  if (locale->frac_digits != CHAR_MAX) style.decimals = static_cast<unsigned char>(locale->frac_digits);
  if (locale->p_cs_precedes != CHAR_MAX) style.symbolPrecedes = locale->p_cs_precedes != 0;
  if (locale->p_sep_by_space != CHAR_MAX) style.spaceBetween = locale->p_sep_by_space != 0;
  return style;
}

std::string monthName(int month, bool abbreviated) {
  static constexpr std::array<nl_item, 12> kLong = {MON_1, MON_2, MON_3, MON_4,  MON_5,  MON_6,
                                                    MON_7, MON_8, MON_9, MON_10, MON_11, MON_12};
  static constexpr std::array<nl_item, 12> kShort = {ABMON_1, ABMON_2, ABMON_3, ABMON_4,  ABMON_5,  ABMON_6,
                                                     ABMON_7, ABMON_8, ABMON_9, ABMON_10, ABMON_11, ABMON_12};
  return langinfo((abbreviated ? kShort : kLong).at(static_cast<std::size_t>(month - 1)));
}

std::string weekdayName(int weekday, bool abbreviated) {
  static constexpr std::array<nl_item, 7> kLong = {DAY_1, DAY_2, DAY_3, DAY_4, DAY_5, DAY_6, DAY_7};
  static constexpr std::array<nl_item, 7> kShort = {ABDAY_1, ABDAY_2, ABDAY_3, ABDAY_4, ABDAY_5, ABDAY_6, ABDAY_7};
  return langinfo((abbreviated ? kShort : kLong).at(static_cast<std::size_t>(weekday - 1)));
}

}  // namespace qvn
