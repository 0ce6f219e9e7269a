#include "qvn/text/account.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

struct Layout {
  const char* why;
  std::string_view account;
  std::int32_t levels;
  std::array<std::int32_t, 5> widths;
};

std::string layOut(const Layout& row) {
  return FormateaCuenta(row.account, row.levels, row.widths[0], row.widths[1], row.widths[2], row.widths[3],
                        row.widths[4]);
}

TEST(FormateaCuenta, JoinsSlicesOfTheLevels) {
  struct Row {
    Layout layout;
    std::string_view expected;
  };
  static const Row kRows[] = {
      {{"one level is the text, whatever the widths", "110101001", 1, {3, 2, 4, 0, 0}}, "110101001"},
      {{"one level ignores a negative width", "110", 1, {-1, 0, 0, 0, 0}}, "110"},
      {{"two levels drop the rest", "110101001", 2, {3, 2, 4, 0, 0}}, "110-10"},
      {{"three levels", "110101001", 3, {3, 2, 4, 0, 0}}, "110-10-1001"},
      {{"four levels", "1101010012", 4, {3, 2, 4, 1, 0}}, "110-10-1001-2"},
      {{"five levels", "12345", 5, {1, 1, 1, 1, 1}}, "1-2-3-4-5"},
      {{"the text ends inside a level", "1101", 3, {3, 2, 4, 0, 0}}, "110-1-"},
      {{"no text keeps the dashes", "", 5, {3, 2, 4, 1, 1}}, "----"},
      {{"a level of no width", "123", 3, {1, 0, 2, 0, 0}}, "1--23"},
      {{"widths count characters", "ñandú", 2, {1, 4, 0, 0, 0}}, "ñ-andú"},
      {{"the largest width", "123", 2, {1, 2147483647, 0, 0, 0}}, "1-23"},
      {{"a negative width of a level not shown", "1234", 2, {1, 2, -1, -1, -1}}, "1-23"},
      {{"no level", "110", 0, {3, 2, 4, 0, 0}}, ""},
      {{"six levels", "110101001", 6, {3, 2, 4, 0, 0}}, ""},
      {{"negative levels", "110", -1, {3, 2, 4, 0, 0}}, ""},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.layout.why);
    EXPECT_EQ(layOut(row.layout), row.expected);
  }
}

TEST(FormateaCuenta, RefusesANegativeWidthOfAShownLevel) {
  static const Layout kRows[] = {
      {"the first level", "123", 2, {-1, 1, 0, 0, 0}},
      {"the last level, past the end of the text", "1", 3, {1, 1, -1, 0, 0}},
  };
  for (const Layout& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(test::errorNumber([&] { static_cast<void>(layOut(row)); }), 5);
  }
}

TEST(NivelDeCuenta, IsTheDeepestLevelAboveZero) {
  struct Row {
    const char* why;
    std::array<Variant, 5> segments;
    std::int32_t expected;
  };
  static const Row kRows[] = {
      {"two levels used", {"110", "10", "0", "0", "0"}, 2},
      {"the deepest decides over gaps", {"110", "0", "0", "0", "1"}, 5},
      {"level 4", {"0", "0", "0", "0001", "0"}, 4},
      {"level 3, numbers", {1, 1, 2.5, 0, 0}, 3},
      {"all blanks", {" ", " ", " ", " ", " "}, 1},
      {"all Null", {Null{}, Null{}, Null{}, Null{}, Null{}}, 1},
      {"text that is no number counts as 0", {"abc", "x", "x", "x", "x"}, 1},
      {"a negative first segment", {"-1", "0", "0", "0", "0"}, 0},
      {"negative deeper segments do not count", {"1", "-1", "-1", "-1", "-1"}, 1},
      {"a deeper segment outweighs a negative first", {"-1", "3", "0", "0", "0"}, 2},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const auto& part = row.segments;
    EXPECT_EQ(NivelDeCuenta(part[0], part[1], part[2], part[3], part[4]), row.expected);
  }
}

}  // namespace
}  // namespace qvn::text
