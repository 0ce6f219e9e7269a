#include "qvn/host/collection.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/error_of.h"

namespace qvn::host {
namespace {

// The values in order, each followed by a blank.
std::string contents(const Collection& collection) {
  std::string text;
  for (const Variant& value : collection) text += value.toText() + ' ';
  return text;
}

// "a" under "ka", "b" without a key, "c" under "ñandú".
Collection threeItems() {
  Collection collection;
  collection.Add("a", "ka");
  collection.Add("b");
  collection.Add("c", "ñandú");
  return collection;
}

TEST(Collection, FindsByPositionAndByKeyInAnyCase) {
  struct Row {
    const char* why;
    Variant index;
    const char* expected;
  };
  const Row rows[] = {
      {"the first position", 1, "a"},       {"the last position", 3, "c"},
      {"half to even is 2", 2.5, "b"},      {"a position as a Byte", std::uint8_t{2}, "b"},
      {"a key in another case", "KA", "a"}, {"a key outside ASCII", "ÑANDÚ", "c"},
  };
  const Collection collection = threeItems();
  ASSERT_EQ(collection.Count(), 3);
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(collection.Item(row.index).toText(), row.expected);
  }
}

TEST(Collection, AddsBeforeAndAfter) {
  struct Row {
    const char* why;
    Variant before;
    Variant after;
    const char* expected;
  };
  const Row rows[] = {
      {"at the end", {}, {}, "a b c x "},        {"before the first", 1, {}, "x a b c "},
      {"before a key", "Ñandú", {}, "a b x c "}, {"after the last", {}, 3, "a b c x "},
      {"after a key", {}, "KA", "a x b c "},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    Collection collection = threeItems();
    collection.Add("x", "kx", row.before, row.after);
    EXPECT_EQ(contents(collection), row.expected);
    EXPECT_EQ(collection.Item("kx").toText(), "x");
    EXPECT_EQ(collection.Item("ñandú").toText(), "c") << "keys follow items that move";
  }
}

TEST(Collection, RefusesAndStaysAsItWas) {
  struct Row {
    const char* why;
    std::function<void(Collection&)> call;
    std::int32_t number;
  };
  const Row rows[] = {
      {"key taken", [](Collection& c) { c.Add("x", "KA"); }, 457},
      {"key taken, another case outside ASCII", [](Collection& c) { c.Add("x", "ÑANDÚ", 1); }, 457},
      {"both neighbours", [](Collection& c) { c.Add("x", "kx", 1, 1); }, 5},
      {"before an unknown key", [](Collection& c) { c.Add("x", "kx", "nadie"); }, 5},
      {"after a position too far", [](Collection& c) { c.Add("x", "kx", {}, 4); }, 9},
      {"position 0", [](Collection& c) { c.Remove(0); }, 9},
      {"position below", [](Collection& c) { c.Remove(-1); }, 9},
      {"position past the end", [](Collection& c) { c.Remove(4); }, 9},
      {"Empty is position 0", [](Collection& c) { c.Remove(Variant()); }, 9},
      {"digits are a key", [](Collection& c) { c.Remove("1"); }, 5},
      {"no item has the empty key", [](Collection& c) { c.Remove(""); }, 5},
      {"Null names nothing", [](Collection& c) { c.Remove(Null{}); }, 94},
      {"position past 32 bits", [](Collection& c) { c.Remove(4294967297.0); }, 6},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    Collection collection = threeItems();
    EXPECT_EQ(test::errorNumber([&] { row.call(collection); }), row.number);
    EXPECT_EQ(contents(collection), "a b c ");
    EXPECT_EQ(test::errorNumber([&] { (void)collection.Item("kx"); }), 5) << "a refused key is not kept";
  }
}

TEST(Collection, RemovesByPositionAndKeyAndFreesTheKey) {
  Collection collection = threeItems();
  collection.Remove("Ka");
  EXPECT_EQ(contents(collection), "b c ");
  EXPECT_EQ(collection.Item(1).toText(), "b");
  EXPECT_EQ(test::errorNumber([&] { (void)collection.Item("ka"); }), 5);
  collection.Remove(2);
  collection.Add("d", "ka");
  collection.Add("e", "ñandú");
  EXPECT_EQ(contents(collection), "b d e ");
  EXPECT_EQ(collection.Item("KA").toText(), "d");
}

TEST(Collection, ReferencesOutliveAddsAndRemovalsOfOthers) {
  Collection collection = threeItems();
  Variant& kept = collection.Item("ñandú");
  for (int i = 0; i < 1000; ++i) collection.Add(i, "k" + std::to_string(i), 1);
  collection.Remove(1);
  collection.Remove("ka");
  kept = 7.5;
  EXPECT_EQ(collection.Item("ñandú").toDouble(), 7.5);
  EXPECT_EQ(collection.Item(collection.Count()).toDouble(), 7.5);
  EXPECT_EQ(collection.Item("K500").toLong(), 500);
}

}  // namespace
}  // namespace qvn::host
