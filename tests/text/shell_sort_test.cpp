#include "qvn/text/shell_sort.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

std::string sorted(std::vector<Variant> items, SortDirection direction = SortDirection::SortAscending) {
  Variant array = Array{std::move(items), 3};
  ShellSortAny(array, direction);
  EXPECT_EQ(array.getIf<Array>()->lowerBound, 3);
  std::string shown;
  for (const Variant& item : array.getIf<Array>()->items) {
    shown += (item.isNull() ? "Null" : item.isText() ? "'" + item.toText() + "'" : item.toText()) + " ";
  }
  return shown;
}

TEST(ShellSortAny, OrdersMixedElements) {
  EXPECT_EQ(sorted({}), "");
  EXPECT_EQ(sorted({1}), "1 ");
  EXPECT_EQ(sorted({"b", 10, "B", 2.5, "á", true, "10"}), "True 2.5 10 '10' 'B' 'b' 'á' ");
  EXPECT_EQ(sorted({1, "a", 3, 2}, SortDirection::SortDescending), "'a' 3 2 1 ");
  EXPECT_EQ(sorted({3, Null{}, 1, 2}), "3 Null 1 2 ");  // nothing passes a Null
}

TEST(ShellSortAny, MovesEqualElementsAsTheGapsDo) {
  // Equal numbers of different types tell where each element went: a date shows as such.
  const Variant date = Date::fromCivil(1900, 1, 1);  // 2
  // Gap 4: (date, 1) change places, so the date passes the 2 that stood behind it.
  EXPECT_EQ(sorted({date, 2, 4, 3, 1}), "1 2 " + date.toText() + " 3 4 ");
}

TEST(ShellSortAny, RefusesArraysInsideAndLeavesAll) {
  Variant array = Array{{2, 1, Array{}}};
  EXPECT_EQ(test::errorNumber([&] { ShellSortAny(array); }), 13);
  EXPECT_EQ(array.getIf<Array>()->items[0].toLong(), 2);
  Variant number = 5;
  EXPECT_EQ(test::errorNumber([&] { ShellSortAny(number); }), 13);
}

}  // namespace
}  // namespace qvn::text
