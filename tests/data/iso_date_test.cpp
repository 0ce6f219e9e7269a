#include "qvn/data/iso_date.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

namespace qvn::data {
namespace {

TEST(IsoDate, ReadsWhatEnginesWrite) {
  static constexpr std::pair<const char*, double> kRows[] = {
      {"1899-12-30", 0},
      {"2012-03-07", 40975},
      {"2012-03-07 12:00:00", 40975.5},
      {"2012-03-07T12:00", 40975.5},
      {"2012-03-07 00:00:43.2", 40975.0005},
      {"1899-12-29 06:00:00", -1.25},
      {"18:00:00", 0.75},
      {"0100-01-01", -657434},
  };
  for (const auto& [text, serial] : kRows) {
    SCOPED_TRACE(text);
    const auto date = parseIsoDate(text);
    ASSERT_TRUE(date);
    EXPECT_DOUBLE_EQ(date->serial(), serial);
  }
}

TEST(IsoDate, RefusesEverythingElse) {
  for (const char* text :
       {"", "0000-00-00", "2012-13-01", "2012-02-30", "2012-3-7", "2012-03-07 ", "2012-03-07 1:00:00", "2012-03-07x",
        "24:00:00", "12:60:00", "12:00:60", "12:00:00x", "-838:59:59", "12:00:1e1", "12:", "ayer", "20120307"}) {
    EXPECT_FALSE(parseIsoDate(text)) << text;
  }
}

TEST(IsoDate, WritesWhatAColumnStores) {
  struct Row {
    const char* why;
    Date date;
    FieldType type;
    int fractionDigits;
    const char* expected;
  };
  const Date morning = Date::fromCivil(2012, 3, 7, {10, 42, 7});
  const Date quarter(morning.serial() + 0.25 / 86400);
  const Row rows[] = {
      {"a date", morning, FieldType::Date, 6, "2012-03-07"},
      {"a time of day", morning, FieldType::DbTime, 6, "10:42:07"},
      {"midnight", Date::fromCivil(2012, 3, 7), FieldType::DbTimeStamp, 6, "2012-03-07 00:00:00"},
      {"a fraction of a second", quarter, FieldType::DbTimeStamp, 6, "2012-03-07 10:42:07.25"},
      {"fewer digits than there are", quarter, FieldType::DbTimeStamp, 1, "2012-03-07 10:42:07.2"},
      {"an engine of whole seconds", quarter, FieldType::DbTimeStamp, 0, "2012-03-07 10:42:07"},
      {"the rounding of date arithmetic", Date(std::nextafter(morning.serial(), 0.0)), FieldType::DbTimeStamp, 6,
       "2012-03-07 10:42:07"},
      {"the last moment of a day", Date(std::nextafter(41000.0, 0.0)), FieldType::DbTimeStamp, 6,
       "2012-04-01 00:00:00"},
      {"before day zero", Date::fromCivil(1899, 12, 29, {6, 0, 0}), FieldType::DbTimeStamp, 6, "1899-12-29 06:00:00"},
      {"first day", Date::fromCivil(100, 1, 1), FieldType::DbTimeStamp, 6, "0100-01-01 00:00:00"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(isoText(row.date, row.type, row.fractionDigits), row.expected);
  }
}

TEST(IsoDate, WritesAndReadsBack) {
  for (const double serial : {-657434.0, -1.25, 0.0, 0.75, 40975.446, 2958465.999}) {
    const Date date(serial);
    const auto back = parseIsoDate(isoDateTime(date));
    ASSERT_TRUE(back);
    EXPECT_NEAR(back->serial(), serial, 0.6 / 86400);
  }
  EXPECT_EQ(isoDateTime(Date::fromCivil(105, 2, 3, {4, 5, 6})), "0105-02-03 04:05:06");
}

}  // namespace
}  // namespace qvn::data
