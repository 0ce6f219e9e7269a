// Regional settings: how this station writes numbers and dates. They are read from the C locale that the host set
// (`setlocale` or `uselocale`) at every call and never kept.
#pragma once

#include <string>

namespace qvn {

enum class DateOrder { DayMonthYear, MonthDayYear, YearMonthDay };

struct NumberSeparators {
  std::string decimalSeparator = ".";    ///< UTF-8, never empty
  std::string thousandsSeparator = ",";  ///< UTF-8; beside a decimal "." a "," where the locale has none or a blank
};

struct RegionalSettings : NumberSeparators {
  std::string dateSeparator = "/";
  DateOrder dateOrder = DateOrder::MonthDayYear;
  bool usesTwelveHours = false;
  bool isSpanish = false;  ///< the language of dates is Spanish
};

// Parts of regionalSettings() for callers that need no more.
/// The separator between the integer part and the decimals.
std::string decimalSeparator();
NumberSeparators numberSeparators();
/// What stands between day, month and year.
std::string regionalDateSeparator();

/// All settings of the locale in force on this thread.
RegionalSettings regionalSettings();

/// How the locale writes amounts of money.
struct CurrencyStyle {
  std::string symbol;
  bool symbolPrecedes = true;
  bool spaceBetween = false;
  int decimals = 2;
};
CurrencyStyle currencyStyle();

/// Name of a month (1 to 12) in the locale's language, Spanish or English among them.
std::string monthName(int month, bool abbreviated);
/// Name of a weekday (1 = Sunday to 7 = Saturday).
std::string weekdayName(int weekday, bool abbreviated);

}  // namespace qvn
