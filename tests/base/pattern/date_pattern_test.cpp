#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

using test::expectFormatted;

Date at(int year, int month, int day, TimeOfDay time = {}) { return Date::fromCivil(year, month, day, time); }

const Date kMorning = at(2012, 3, 7, {10, 42, 7});  // a Wednesday

TEST(DatePattern, PrintsEveryCode) {
  expectFormatted("es_MX.UTF-8",
                  {
                      {"day", kMorning, "d dd ddd dddd", "7 07 mié miércoles"},
                      {"weekday from Sunday, week", kMorning, "w ww", "4 10"},
                      {"month", kMorning, "m mm mmm mmmm", "3 03 mar marzo"},
                      {"quarter, day of the year", kMorning, "q y", "1 67"},
                      {"year", kMorning, "yy yyyy", "12 2012"},
                      {"hour, minute, second", kMorning, "h n s", "10 42 7"},
                      {"two digits", at(2012, 3, 7, {1, 2, 3}), "hh nn ss", "01 02 03"},
                      {"whole texts", kMorning, "ddddd|ttttt|c", "07/03/2012|10:42:07|07/03/2012 10:42:07"},
                      {"long date", kMorning, "dddddd", "miércoles, 7 de marzo de 2012"},
                      {"in any case", kMorning, "yyyy-MM-dd DDDD", "2012-03-07 miércoles"},
                      {"without separators", kMorning, "ddMMyyyy", "07032012"},
                      {"runs longer than any code", kMorning, "yyy tttt wwww", "1267 tttt 1010"},
                      {"last quarter", at(2012, 12, 31), "q", "4"},
                      {"year of three digits", at(100, 1, 2), "yyyy yy", "0100 00"},
                  });
}

TEST(DatePattern, TellsMinutesFromMonths) {
  expectFormatted("C", {
                           {"behind the hour", kMorning, "hh:mm:ss", "10:42:07"},
                           {"with capitals", kMorning, "DD/MM/YY HH:MM:SS", "07/03/12 10:42:07"},
                           {"over literals", kMorning, "h \"horas\" m", "10 horas 42"},
                           {"not before the seconds alone", kMorning, "mm:ss", "03:07"},
                           {"not behind another code", kMorning, "hh dd mm", "10 07 03"},
                           {"not behind a name", kMorning, "h ddd m", "10 Wed 3"},
                           {"only the first one", kMorning, "h m m", "10 42 3"},
                           {"the name of a month never", kMorning, "h mmm", "10 Mar"},
                           {"over a marker", kMorning, "h AM/PM mm", "10 AM 42"},
                           {"one digit", at(2012, 3, 7, {10, 5, 0}), "h:m", "10:5"},
                       });
}

TEST(DatePattern, CountsTwelveHoursBesideAMarker) {
  const Date midnight = at(2012, 3, 7);
  const Date noon = at(2012, 3, 7, {12, 0, 0});
  const Date evening = at(2012, 3, 7, {21, 5, 0});
  expectFormatted("es_ES.UTF-8", {
                                     {"evening", evening, "hh:nn AM/PM", "09:05 PM"},
                                     {"small letters", evening, "h:nn am/pm", "9:05 pm"},
                                     {"one letter", evening, "hA/P", "9P"},
                                     {"one small letter", evening, "ha/p", "9p"},
                                     {"the system's own", evening, "h ampm", "9 PM"},
                                     {"marker first", evening, "AM/PM h", "PM 9"},
                                     {"midnight is 12", midnight, "h AM/PM", "12 AM"},
                                     {"noon is 12", noon, "h AM/PM", "12 PM"},
                                     {"no marker: 24 hours", evening, "h \"am/pm\"", "21 am/pm"},
                                     {"half a marker is text", evening, "h a", "21 a"},
                                 });
}

TEST(DatePattern, CountsWeeksFromTheOneWithTheFirstOfJanuary) {
  expectFormatted("C", {
                           {"1 January, a Saturday", at(2011, 1, 1), "ww", "1"},
                           {"the Sunday after it", at(2011, 1, 2), "ww", "2"},
                           {"31 December", at(2011, 12, 31), "ww", "53"},
                           {"a leap year that begins on Saturday", at(2000, 12, 31), "ww", "54"},
                           {"a year that begins on Sunday", at(2012, 1, 7), "ww w", "1 7"},
                       });
}

TEST(DatePattern, KeepsLiterals) {
  expectFormatted("es_ES.UTF-8",
                  {
                      {"quoted and escaped", kMorning, "d \"de\" mmmm \\d\\e yyyy", "7 de marzo de 2012"},
                      {"letters without a meaning", kMorning, "dd de mmmm", "07 7e marzo"},
                      {"digit places", kMorning, "dd 0#.,% hh", "07 0#.,% 10"},
                      {"text placeholders", kMorning, "dd @&<>!", "07 @&<>!"},
                      {"other sections are not used", kMorning, "dd;mm", "07"},
                  });
}

TEST(DatePattern, PrintsTheRegionalDateSeparator) {
  expectFormatted("de_DE.UTF-8", {
                                     {"slash", kMorning, "dd/mm/yyyy hh:nn", "07.03.2012 10:42"},
                                     {"without any code", kMorning, "\"x\"/", "x."},
                                     {"escaped slash", kMorning, "dd\\/mm", "07/03"},
                                     {"names", kMorning, "ddd, dddd mmmm", "Mi, Mittwoch März"},
                                 });
  expectFormatted("en_US.UTF-8", {{"twelve hours in whole texts", kMorning, "c", "03/07/2012 10:42:07 AM"}});
}

TEST(DatePattern, RoundsToTheSecondBeforeAnythingElse) {
  const Date almostMidnight(40975.999999);
  expectFormatted("C", {
                           {"the next day", almostMidnight, "yyyy-mm-dd hh:nn:ss", "2012-03-08 00:00:00"},
                           {"its fraction still counts forward", Date(-1.25), "yyyy-mm-dd hh", "1899-12-29 06"},
                           {"last day", Date(Date::kLastDay), "yyyy-mm-dd", "9999-12-31"},
                           {"first day", Date(Date::kFirstDay), "yyyy-mm-dd", "0100-01-01"},
                       });
}

}  // namespace
}  // namespace qvn
