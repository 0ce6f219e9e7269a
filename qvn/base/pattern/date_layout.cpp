#include "qvn/base/pattern/date_layout.h"

#include <optional>

#include "qvn/base/date_text.h"
#include "qvn/base/pattern/date_code.h"
#include "qvn/base/pattern/symbol_reader.h"
#include "qvn/base/regional.h"

namespace qvn::pattern {
namespace {

constexpr int kDaysPerWeek = 7;
constexpr int kMonthsPerQuarter = 3;
constexpr int kYearsPerCentury = 100;
constexpr int kNoon = 12;

// Calls `take` with each code (and the text that it stands in) or, with a null code, each other symbol of the section.
template <typename Take>
void forEachPart(std::string_view section, Take take) {
  SymbolReader reader(section);
  while (!reader.rest().empty()) {
    const std::string_view rest = reader.rest();
    if (const DateCode* code = matchDateCode(rest)) {
      take(code, Symbol{rest.substr(0, code->text.size()), false});
      reader.skip(code->text.size());
    } else {
      take(nullptr, *reader.next());
    }
  }
}

bool hasHalfMarker(std::string_view section) {
  // Every marker begins with this letter, which few patterns have.
  if (section.find_first_of("aA") == std::string_view::npos) return false;
  bool found = false;
  forEachPart(section, [&found](const DateCode* code, const Symbol&) {
    found = found || (code != nullptr && code->isHalfMarker());
  });
  return found;
}

class DateWriter {
 public:
  DateWriter(Date date, bool hasTwelveHours, std::string& text)
      : date_(date), civil_(date.civil()), time_(date.time()), hasTwelveHours_(hasTwelveHours), text_(text) {}

  void writeCode(const DateCode& code, std::string_view marker) {
    if (const auto* word = std::get_if<WordField>(&code.field)) {
      text_.append(wordsOf(*word, marker));
      // A marker may stand between the hour and its minutes.
      if (!code.isHalfMarker()) followsHour_ = false;
      return;
    }
    const NumberField own = std::get<NumberField>(code.field);
    const NumberField field = own == NumberField::Month && followsHour_ ? NumberField::Minute : own;
    followsHour_ = field == NumberField::Hour;
    const std::string digits = std::to_string(numberOf(field));
    if (digits.size() < code.width) text_.append(code.width - digits.size(), '0');
    text_.append(digits);
  }

  void writeOther(const Symbol& symbol) {
    text_.append(symbol.code() == '/' ? std::string_view(regional().dateSeparator) : symbol.text);
  }

 private:
  [[nodiscard]] int numberOf(NumberField field) const;
  [[nodiscard]] std::string wordsOf(WordField field, std::string_view marker);

  [[nodiscard]] int week() const {
    // Days of the first week that lie in the year before: the weekday of 1 January counted from Sunday.
    const int missing = ((date_.weekday() - date_.dayOfYear()) % kDaysPerWeek + kDaysPerWeek) % kDaysPerWeek;
    return (date_.dayOfYear() - 1 + missing) / kDaysPerWeek + 1;
  }

  [[nodiscard]] int hour() const {
    if (!hasTwelveHours_) return time_.hour;
    return time_.hour % kNoon == 0 ? kNoon : time_.hour % kNoon;
  }

  // "AM" or "PM", in small letters where the marker begins with one.
  [[nodiscard]] std::string half(std::string_view marker) const {
    const bool isMorning = time_.hour < kNoon;
    if (marker.front() == 'a') return isMorning ? "am" : "pm";
    return isMorning ? "AM" : "PM";
  }

  const RegionalSettings& regional() {
    if (!regional_) regional_ = regionalSettings();
    return *regional_;
  }

  Date date_;
  CivilDate civil_;
  TimeOfDay time_;
  bool hasTwelveHours_;
  std::string& text_;
  bool followsHour_ = false;
  // Read when first needed, once for each date that is laid out.
  std::optional<RegionalSettings> regional_;
  std::optional<std::string> general_;
};

int DateWriter::numberOf(NumberField field) const {
  switch (field) {
    case NumberField::Day:
      return civil_.day;
    case NumberField::Weekday:
      return date_.weekday();
    case NumberField::Week:
      return week();
    case NumberField::Month:
      return civil_.month;
    case NumberField::Quarter:
      return (civil_.month - 1) / kMonthsPerQuarter + 1;
    case NumberField::DayOfYear:
      return date_.dayOfYear();
    case NumberField::YearOfCentury:
      return civil_.year % kYearsPerCentury;
    case NumberField::Year:
      return civil_.year;
    case NumberField::Hour:
      return hour();
    case NumberField::Minute:
      return time_.minute;
    case NumberField::Second:
      return time_.second;
  }
  return 0;
}

std::string DateWriter::wordsOf(WordField field, std::string_view marker) {
  switch (field) {
    case WordField::WeekdayShort:
      return weekdayName(date_.weekday(), true);
    case WordField::WeekdayLong:
      return weekdayName(date_.weekday(), false);
    case WordField::MonthShort:
      return monthName(civil_.month, true);
    case WordField::MonthLong:
      return monthName(civil_.month, false);
    case WordField::General:
      if (!general_) general_ = dateText(date_);
      return *general_;
    case WordField::ShortDate:
      return shortDateText(date_, regional());
    case WordField::LongDate:
      return longDateText(date_, regional());
    case WordField::Time:
      return timeText(date_, regional());
    case WordField::Half:
      return half(marker);
    case WordField::HalfLetter:
      return half(marker).substr(0, 1);
    case WordField::HalfSystem:
      return half("AMPM");
  }
  return {};
}

}  // namespace

std::string layoutDate(Date date, std::string_view section) {
  std::string text;
  DateWriter writer(date, hasHalfMarker(section), text);
  forEachPart(section, [&writer](const DateCode* code, const Symbol& symbol) {
    if (code != nullptr) {
      writer.writeCode(*code, symbol.text);
    } else {
      writer.writeOther(symbol);
    }
  });
  return text;
}

}  // namespace qvn::pattern
