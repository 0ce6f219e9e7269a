#include <limits>
#include <memory>

#include "qvn/base/runtime_error.h"
#include "tests/base/pattern/pattern_rows.h"
#include "tests/support/error_of.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(FormatValue, KeepsEveryDigitOfExactTypes) {
  expectFormatted("C",
                  {
                      {"LongLong", std::int64_t{9223372036854775807}, "#,##0", "9,223,372,036,854,775,807"},
                      {"lowest LongLong", std::numeric_limits<std::int64_t>::min(), "0", "-9223372036854775808"},
                      {"Decimal", *Decimal::fromText("12345678901234567890.125"), "0.00", "12345678901234567890.13"},
                      {"Currency", Currency::fromScaled(9223372036854775807), "0.0000", "922337203685477.5807"},
                      {"Single by its own digits", 0.1F, "0.##########", "0.1"},
                      {"Byte", std::uint8_t{255}, "0", "255"},
                  });
}

TEST(FormatValue, ReadsValuesAsNumbers) {
  expectFormatted("es_ES.UTF-8", {
                                     {"Boolean", true, "0", "-1"},
                                     {"Empty", Empty{}, "0.0", "0,0"},
                                     {"Null", Null{}, "0.0", ""},
                                     {"text of a number", "1.234,5", "0.00", "1234,50"},
                                     {"other text", "abc", "0.00", "abc"},
                                     {"text of a date is no number", "07/03/2012", "0", "07/03/2012"},
                                     {"infinity", std::numeric_limits<double>::infinity(), "0.00", "INF"},
                                     {"minus infinity", -std::numeric_limits<double>::infinity(), "Currency", "-INF"},
                                     {"not a number", std::numeric_limits<float>::quiet_NaN(), "0.00", "NAN"},
                                 });
}

TEST(FormatValue, ReadsValuesAsDates) {
  expectFormatted("es_ES.UTF-8", {
                                     {"text of a date", "7/3/2012 10:42", "yyyy-mm-dd hh:mm", "2012-03-07 10:42"},
                                     {"text of a number", "40975,5", "yyyy-mm-dd hh", "2012-03-07 12"},
                                     {"other text", "abc", "yyyy", "abc"},
                                     {"Empty is day zero", Empty{}, "yyyy-mm-dd", "1899-12-30"},
                                     {"Null", Null{}, "yyyy", ""},
                                     {"Boolean", true, "yyyy-mm-dd", "1899-12-29"},
                                 });
}

TEST(FormatValue, GivesTheGeneralTextForAnEmptyPattern) {
  expectFormatted("es_ES.UTF-8", {
                                     {"Double, at most 15 digits", 0.1 + 0.2, "", "0,3"},
                                     {"LongLong", std::int64_t{9223372036854775807}, "", "9223372036854775807"},
                                     {"Decimal", *Decimal::fromText("12.50"), "", "12,5"},
                                     {"Boolean", true, "", "True"},
                                     {"Boolean as a number", true, "General Number", "-1"},
                                     {"date", Date::fromCivil(2012, 3, 7), "", "07/03/2012"},
                                     {"date as a number", Date(40975.5), "General Number", "40975,5"},
                                     {"text", "1.50", "", "1.50"},
                                     {"text of a number", "1,50", "General Number", "1,5"},
                                     {"Empty", Empty{}, "", ""},
                                     {"Empty as a number", Empty{}, "General Number", "0"},
                                     {"Null", Null{}, "", ""},
                                 });
}

TEST(FormatValue, RefusesWhatHasNoText) {
  struct Row {
    const char* why;
    Variant value;
    std::string_view pattern;
    std::int32_t number;
  };
  const Row rows[] = {
      {"array", Array{}, "", error_number::kTypeMismatch},
      {"array under a name", Array{}, "Yes/No", error_number::kTypeMismatch},
      {"object", std::make_shared<Object>(), "0", error_number::kTypeMismatch},
      {"null object", ObjectPtr{}, "@", error_number::kTypeMismatch},
      {"day after the last", Date::kLastDay + 1, "yyyy", error_number::kInvalidCall},
      {"day before the first", Date(Date::kFirstDay - 1), "Short Date", error_number::kInvalidCall},
      {"text of too many days", "3000000", "hh", error_number::kInvalidCall},
      {"infinity", std::numeric_limits<double>::infinity(), "hh", error_number::kInvalidCall},
      {"in range", Date::kLastDay, "yyyy", 0},
      {"a number pattern has no range", Date(3e6), "0", 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(test::errorNumber([&row] { formatValue(row.value, row.pattern); }), row.number);
  }
}

}  // namespace
}  // namespace qvn
