#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

Date at(int year, int month, int day, TimeOfDay time = {}) { return Date::fromCivil(year, month, day, time); }

const Date kMorning = at(2012, 3, 7, {10, 42, 7});  // a Wednesday

TEST(DatePattern, PrintsEveryCode) {
  // clang-format off
  const test::PatternPairs pairs = {
      {"d dd ddd dddd", "7 07 mié miércoles"}, {"m mm mmm mmmm", "3 03 mar marzo"}, {"w ww q y", "4 10 1 67"},
      {"yy yyyy", "12 2012"}, {"h n s", "10 42 7"}, {"ddddd|ttttt", "07/03/2012|10:42:07"},
      {"c", "07/03/2012 10:42:07"}, {"dddddd", "miércoles, 7 de marzo de 2012"},
      {"yyyy-MM-dd DDDD", "2012-03-07 miércoles"}, {"ddMMyyyy", "07032012"}, {"yyy tttt wwww", "1267 tttt 1010"},
  };
  // clang-format on
  expectFormatted("es_MX.UTF-8", kMorning, pairs);
  expectFormatted("C", {{at(2012, 3, 7, {1, 2, 3}), "hh nn ss", "01 02 03"},
                        {at(2012, 12, 31), "q", "4"},
                        {at(100, 1, 2), "yyyy yy", "0100 00"}});
}

// "m" means minutes behind the hour, over literals and markers but not over another code, and only the first time.
TEST(DatePattern, TellsMinutesFromMonths) {
  // clang-format off
  const test::PatternPairs pairs = {
      {"hh:mm:ss", "10:42:07"}, {"DD/MM/YY HH:MM:SS", "07/03/12 10:42:07"}, {"h \"horas\" m", "10 horas 42"},
      {"mm:ss", "03:07"}, {"hh dd mm", "10 07 03"}, {"h ddd m", "10 Wed 3"}, {"h m m", "10 42 3"},
      {"h mmm", "10 Mar"}, {"h AM/PM mm", "10 AM 42"},
  };
  // clang-format on
  expectFormatted("C", kMorning, pairs);
  expectFormatted("C", {{at(2012, 3, 7, {10, 5, 0}), "h:m", "10:5"}});
}

TEST(DatePattern, CountsTwelveHoursBesideAMarker) {
  const test::PatternPairs pairs = {
      {"hh:nn AM/PM", "09:05 PM"}, {"h:nn am/pm", "9:05 pm"},   {"hA/P", "9P"}, {"ha/p", "9p"}, {"h ampm", "9 PM"},
      {"AM/PM h", "PM 9"},         {"h \"am/pm\"", "21 am/pm"}, {"h a", "21 a"}};
  expectFormatted("es_ES.UTF-8", at(2012, 3, 7, {21, 5, 0}), pairs);
  expectFormatted("es_ES.UTF-8",
                  {{at(2012, 3, 7), "h AM/PM", "12 AM"}, {at(2012, 3, 7, {12, 0, 0}), "h AM/PM", "12 PM"}});
}

// 2000, a leap year, and 2011 begin on a Saturday, 2012 on a Sunday.
TEST(DatePattern, CountsWeeksFromTheOneWithTheFirstOfJanuary) {
  const test::PatternRows rows = {{at(2011, 1, 1), "ww", "1"},    {at(2011, 1, 2), "ww", "2"},
                                  {at(2011, 12, 31), "ww", "53"}, {at(2000, 12, 31), "ww", "54"},
                                  {at(2012, 1, 7), "ww", "1"},    {at(2012, 1, 7), "w", "7"}};
  expectFormatted("C", rows);
}

TEST(DatePattern, KeepsLiteralsAndPutsTheRegionalSeparatorIn) {
  // clang-format off
  const test::PatternPairs pairs = {
      {"d \"de\" mmmm \\d\\e yyyy", "7 de März de 2012"}, {"dd de mmmm", "07 7e März"},
      {"dd 0#.,% hh", "07 0#.,% 10"}, {"dd @&<>!", "07 @&<>!"}, {"dd;mm", "07"},
      {"dd/mm/yyyy hh:nn", "07.03.2012 10:42"}, {"\"x\"/", "x."}, {"dd\\/mm", "07/03"}, {"ddd, dddd", "Mi, Mittwoch"},
  };
  // clang-format on
  expectFormatted("de_DE.UTF-8", kMorning, pairs);
  expectFormatted("en_US.UTF-8", kMorning, {{"c", "03/07/2012 10:42:07 AM"}});
}

// Before day zero the fraction still counts forward: -1.25 is six in the morning of day -1.
TEST(DatePattern, RoundsToTheSecondBeforeAnythingElse) {
  expectFormatted("C", {{Date(40975.999999), "yyyy-mm-dd hh:nn:ss", "2012-03-08 00:00:00"},
                        {Date(-1.25), "yyyy-mm-dd hh", "1899-12-29 06"},
                        {Date(Date::kLastDay), "yyyy-mm-dd", "9999-12-31"},
                        {Date(Date::kFirstDay), "yyyy-mm-dd", "0100-01-01"}});
}

}  // namespace
}  // namespace qvn
