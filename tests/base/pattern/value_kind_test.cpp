#include <limits>
#include <memory>

#include "qvn/base/runtime_error.h"
#include "tests/base/pattern/pattern_rows.h"
#include "tests/support/error_of.h"

namespace qvn {
namespace {

using test::expectFormatted;

TEST(FormatValue, KeepsEveryDigitOfExactTypes) {
  const test::PatternRows rows = {{std::int64_t{9223372036854775807}, "#,##0", "9,223,372,036,854,775,807"},
                                  {std::numeric_limits<std::int64_t>::min(), "0", "-9223372036854775808"},
                                  {*Decimal::fromText("12345678901234567890.125"), "0.00", "12345678901234567890.13"},
                                  {Currency::fromScaled(9223372036854775807), "0.0000", "922337203685477.5807"},
                                  {0.1F, "0.##########", "0.1"},
                                  {std::uint8_t{255}, "0", "255"}};
  expectFormatted("C", rows);
}

TEST(FormatValue, ReadsValuesAsNumbers) {
  // clang-format off
  const test::PatternRows rows = {
      {true, "0", "-1"}, {Empty{}, "0.0", "0,0"}, {Null{}, "0.0", ""}, {"1.234,5", "0.00", "1234,50"},
      {"abc", "0.00", "abc"}, {"07/03/2012", "0", "07/03/2012"},
      {std::numeric_limits<double>::infinity(), "0.00", "INF"},
      {-std::numeric_limits<double>::infinity(), "Currency", "-INF"},
      {std::numeric_limits<float>::quiet_NaN(), "0.00", "NAN"},
  };
  // clang-format on
  expectFormatted("es_ES.UTF-8", rows);
}

TEST(FormatValue, ReadsValuesAsDates) {
  const test::PatternRows rows = {{"7/3/2012 10:42", "yyyy-mm-dd hh:mm", "2012-03-07 10:42"},
                                  {"40975,5", "yyyy-mm-dd hh", "2012-03-07 12"},
                                  {"abc", "yyyy", "abc"},
                                  {Empty{}, "yyyy-mm-dd", "1899-12-30"},
                                  {Null{}, "yyyy", ""},
                                  {true, "yyyy-mm-dd", "1899-12-29"}};
  expectFormatted("es_ES.UTF-8", rows);
}

TEST(FormatValue, GivesTheGeneralTextForAnEmptyPattern) {
  // clang-format off
  const test::PatternRows rows = {
      {0.1 + 0.2, "", "0,3"}, {std::int64_t{9223372036854775807}, "", "9223372036854775807"},
      {*Decimal::fromText("12.50"), "", "12,5"}, {true, "", "True"}, {true, "General Number", "-1"},
      {Date::fromCivil(2012, 3, 7), "", "07/03/2012"}, {Date(40975.5), "General Number", "40975,5"},
      {"1.50", "", "1.50"}, {"1,50", "General Number", "1,5"}, {Empty{}, "", ""}, {Empty{}, "General Number", "0"},
      {Null{}, "", ""},
  };
  // clang-format on
  expectFormatted("es_ES.UTF-8", rows);
}

TEST(FormatValue, RefusesWhatHasNoText) {
  const auto error = [](const Variant& value, std::string_view pattern) {
    return test::errorNumber([&] { formatValue(value, pattern); });
  };
  EXPECT_EQ(error(Array{}, ""), error_number::kTypeMismatch);
  EXPECT_EQ(error(Array{}, "Yes/No"), error_number::kTypeMismatch);
  EXPECT_EQ(error(std::make_shared<Object>(), "0"), error_number::kTypeMismatch);
  EXPECT_EQ(error(ObjectPtr{}, "@"), error_number::kTypeMismatch);
  EXPECT_EQ(error(Date::kLastDay + 1, "yyyy"), error_number::kInvalidCall);
  EXPECT_EQ(error(Date(Date::kFirstDay - 1), "Short Date"), error_number::kInvalidCall);
  EXPECT_EQ(error("3000000", "hh"), error_number::kInvalidCall);
  EXPECT_EQ(error(std::numeric_limits<double>::infinity(), "hh"), error_number::kInvalidCall);
  EXPECT_EQ(error(Date::kLastDay, "yyyy"), 0);
  EXPECT_EQ(error(Date(3e6), "0"), 0) << "a number pattern has no range";
}

}  // namespace
}  // namespace qvn
