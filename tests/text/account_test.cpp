#include "qvn/text/account.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

using Widths = std::array<std::int32_t, 5>;

std::string layOut(std::string_view account, std::int32_t levels, const Widths& widths) {
  return FormateaCuenta(account, levels, widths[0], widths[1], widths[2], widths[3], widths[4]);
}

TEST(FormateaCuenta, JoinsSlicesOfTheLevels) {
  struct Row {
    std::string_view account;
    std::int32_t levels;
    Widths widths;
    std::string_view expected;
  };
  // clang-format off
  static constexpr Row kRows[] = {
      // one level is the text whatever the widths; two and more drop the rest
      {"110101001", 1, {-1, 2, 4}, "110101001"}, {"110101001", 2, {3, 2, 4}, "110-10"},
      {"110101001", 3, {3, 2, 4}, "110-10-1001"}, {"1101010012", 4, {3, 2, 4, 1}, "110-10-1001-2"},
      {"12345", 5, {1, 1, 1, 1, 1}, "1-2-3-4-5"},
      // no such number of levels
      {"110", 0, {3, 2, 4}, ""}, {"110101001", 6, {3, 2, 4}, ""}, {"110", -1, {3, 2, 4}, ""},
      // the text ends early, a level of no width, the largest width before negative ones that are not shown
      {"1101", 3, {3, 2, 4}, "110-1-"}, {"", 5, {3, 2, 4, 1, 1}, "----"}, {"123", 3, {1, 0, 2}, "1--23"},
      {"ñandú", 2, {1, 4}, "ñ-andú"}, {"123", 2, {1, 2147483647, -1, -1, -1}, "1-23"},
  };
  // clang-format on
  for (const Row& row : kRows) {
    EXPECT_EQ(layOut(row.account, row.levels, row.widths), row.expected) << row.account << ", levels " << row.levels;
  }
  EXPECT_EQ(test::errorNumber([] { layOut("123", 2, {-1, 1}); }), 5);
  EXPECT_EQ(test::errorNumber([] { layOut("1", 3, {1, 1, -1}); }), 5) << "past the end of the text";
}

// Blanks, Null and text that is no number count as 0; gaps do not matter, and deeper segments outweigh the first.
TEST(NivelDeCuenta, IsTheDeepestLevelAboveZero) {
  struct Row {
    std::array<Variant, 5> parts;
    std::int32_t expected;
  };
  // clang-format off
  static const Row kRows[] = {
      {{"110", "10", "0", "0", "0"}, 2}, {{"110", "0", "0", "0", "1"}, 5}, {{"0", "0", "0", "0001", "0"}, 4},
      {{1, 1, 2.5, 0, 0}, 3}, {{" ", " ", " ", " ", " "}, 1}, {{Null{}, "x", Null{}, "x", Null{}}, 1},
      {{"-1", "0", "0", "0", "0"}, 0}, {{"1", "-1", "-1", "-1", "-1"}, 1}, {{"-1", "3", "0", "0", "0"}, 2},
  };
  // clang-format on
  for (const Row& row : kRows) EXPECT_EQ(std::apply(NivelDeCuenta, row.parts), row.expected) << "row " << &row - kRows;
}

}  // namespace
}  // namespace qvn::text
