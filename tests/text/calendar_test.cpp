#include "qvn/text/calendar.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

Date day(int year, int month, int dayOfMonth) { return Date::fromCivil(year, month, dayOfMonth); }

TEST(Calendar, NamesAndSteps) {
  EXPECT_EQ(Mes(1) + Mes(2) + Mes(9) + Mes(12), "EneroFebreroSeptiembreDiciembre");
  EXPECT_EQ(Mes(0) + Mes(13), "");
  EXPECT_EQ(Dia(day(2023, 2, 27)) + Dia(day(2023, 3, 1)) + Dia(day(2023, 3, 4)) + Dia(day(2023, 3, 5)),
            "LunesMiercolesSabadoDomingo");
  EXPECT_EQ(test::errorNumber([] { Dia(Date(3e6)); }), 5);
  const std::int16_t steps[][3] = {{1, 12, 2}, {12, 11, 1}, {6, 5, 7}, {0, 0, 0}, {13, 0, 0}, {-1, 0, 0}};
  for (const auto& [month, before, after] : steps) {
    EXPECT_EQ(MesAnterior(month), before);
    EXPECT_EQ(MesSiguiente(month), after);
  }
  EXPECT_TRUE(biciesto(1900) && biciesto(2100) && biciesto(-4) && biciesto(0));
  EXPECT_FALSE(biciesto(2023));
}

TEST(Ud, FirstAndLastDays) {
  EXPECT_EQ(Ud(2, 2023), day(2023, 2, 1));
  EXPECT_EQ(Ud(2, 2023, true), day(2023, 2, 28));
  EXPECT_EQ(Ud(4, 2023, true), day(2023, 4, 30));
  EXPECT_EQ(Ud(2, 24, true), day(2024, 2, 29));
  EXPECT_EQ(Ud(12, 30, true), day(1930, 12, 31));
  EXPECT_EQ(Ud(2, 2100, true), day(2100, 3, 1));
  EXPECT_EQ(Ud(13, 2023), Date());
  EXPECT_EQ(test::errorNumber([] { Ud(1, 10000); }), 5);
}

TEST(ElSiguienteMes, CutsAndRollsOver) {
  struct Row {
    std::int16_t month, dayOfMonth;
    std::int32_t year;
    Date expected;
    std::int32_t yearAfter;
  };
  const Row rows[] = {
      {12, 15, 2023, day(2024, 1, 15), 2024}, {1, 31, 2023, day(2023, 2, 28), 2023},
      {1, 31, 2024, day(2024, 2, 29), 2024},  {1, 29, 2023, day(2023, 3, 1), 2023},
      {1, 30, 2023, day(2023, 2, 28), 2023},  {3, 31, 2023, day(2023, 4, 30), 2023},
      {3, 0, 2023, day(2023, 3, 31), 2023},   {6, 32, 2023, day(2023, 8, 1), 2023},
      {12, 5, 99, day(100, 1, 5), 100},       {0, 5, 2023, Date(), 2023},
  };
  for (const Row& row : rows) {
    std::int32_t year = row.year;
    EXPECT_EQ(ElSiguienteMes(row.month, row.dayOfMonth, year), row.expected) << row.month << " " << row.dayOfMonth;
    EXPECT_EQ(year, row.yearAfter);
  }
  std::int32_t last = 2147483647;
  EXPECT_EQ(test::errorNumber([&] { ElSiguienteMes(12, 1, last); }), 6);
}

class FixedClock final : public Clock {
 public:
  Date now() override { return Date::fromCivil(2023, 3, 1, {10, 42, 7}); }  // a Wednesday
  void sleep(std::chrono::milliseconds /*time*/) override {}
};

TEST(PrimerDiaDelaSemana, CountsBackFromToday) {
  FixedClock clock;
  EXPECT_EQ(PrimerDiaDelaSemana(day(2023, 3, 1), clock), day(2023, 2, 27));
  EXPECT_EQ(PrimerDiaDelaSemana(day(2001, 1, 1), clock), day(2023, 3, 1));   // a Monday: none
  EXPECT_EQ(PrimerDiaDelaSemana(day(2023, 3, 5), clock), day(2023, 2, 23));  // a Sunday: six
  EXPECT_EQ(TimeLocal(clock), "10:42:07");
}

TEST(DateTimeSerial, CountsMinutes) {
  struct Row {
    Date date;
    std::string time;
    std::int32_t minutes;
  };
  // clang-format off
  const Row rows[] = {
      {day(2000, 1, 1), "00:00", 0}, {day(2000, 1, 2), "01:30", 1530}, {day(2000, 1, 1), "", 0},
      {day(2000, 1, 1), "xx:15", 15}, {day(2000, 1, 1), "2", 120}, {day(2000, 1, 1), ".5:1.5", 2},
      {day(2000, 1, 1), "ñ1:120", 120}, {Date::fromCivil(1999, 12, 31, {23, 59, 30}), "", -1},
      {Date::fromCivil(2000, 1, 1, {6, 7, 59}), "", 367},
  };
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ(DateTimeSerial(row.date, row.time), row.minutes) << row.time;
  }
  EXPECT_EQ(test::errorNumber([] { DateTimeSerial(day(9999, 1, 1), ""); }), 6);
  EXPECT_EQ(test::errorNumber([] { DateTimeSerial(day(2000, 1, 1), "00:1E300"); }), 6);
}

}  // namespace
}  // namespace qvn::text
