#include <string>

#include "tests/base/pattern/pattern_rows.h"

namespace qvn {
namespace {

constexpr std::size_t kMany = 100000;

std::string repeated(std::string_view piece, std::size_t count) {
  std::string text;
  text.reserve(piece.size() * count);
  for (std::size_t i = 0; i < count; ++i) text.append(piece);
  return text;
}

TEST(HostilePattern, MalformedPatternsKeepTheirMeaning) {
  // clang-format off
  const test::PatternRows rows = {
      {5, "0\"abc;0", "5abc;0"}, {5, "0\"", "5"}, {5, "0\\", "5\\"}, {5, "\\", "\\"}, {-5, "0\\;x", "-5;x"},
      {5, "\xC3\x28 0\xff", "\xC3\x28 5\xff"}, {5, "0\\\xC3", "5\xC3"},
      {5, std::string_view("\0\x30", 2), std::string_view("\0\x35", 2)}, {5, ";;;;;", ""}, {5, "0E+", "5E+"},
      {Date(0.875), "h A/", "21 A/"},
  };
  // clang-format on
  test::expectFormatted("C", rows);
}

TEST(HostilePattern, LengthCostsNoMoreThanItsShare) {
  struct Row {
    const char* why;
    Variant value;
    std::string pattern;
    std::size_t size;  // of the result, in bytes
  };
  const Date evening = Date::fromCivil(2012, 3, 7, {21, 5, 9});
  const Row rows[] = {
      {"places", 5, repeated("0", kMany), kMany},
      {"places and commas", 5, repeated("0,", kMany), kMany + (kMany - 1) / 3},
      {"decimals", 5, "0." + repeated("0", kMany), 2 + kMany},
      {"percents", 5, repeated("%", kMany) + "0", kMany + 1 + 2 * kMany},
      {"scaling commas", 5, "0" + repeated(",", kMany), 1},
      {"places of an exponent", 5, "0E+" + repeated("0", kMany), 3 + kMany},
      {"places before an exponent", 0.5, repeated("#", kMany) + "E+0", kMany + 8},  // 5 and zeros, E-100000
      {"exponents", 5, "0" + repeated("E+0", kMany), 4 + 3 * (kMany - 1)},
      {"sections", 5, repeated(";", kMany), 0},
      {"quotes", 5, repeated("\"", kMany), 0},
      {"backslashes", 5, repeated("\\", kMany), kMany / 2},
      {"years", evening, repeated("yyyy", kMany), 4 * kMany},
      {"general dates", evening, repeated("c", kMany), 22 * kMany},  // 03/07/2012 09:05:09 PM
      {"long dates", evening, repeated("dddddd", kMany), 24 * kMany},
      {"text placeholders", "x", repeated("@", kMany), kMany},
      {"a long text", repeated("ñ", kMany), ">@-@", 2 * kMany + 1},
      {"both long", repeated("ñ", kMany), repeated("&", kMany), 2 * kMany},
  };
  const test::LocaleGuard guard("en_US.UTF-8");
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(formatValue(row.value, row.pattern).size(), row.size);
  }
}

}  // namespace
}  // namespace qvn
