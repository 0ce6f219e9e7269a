#include "qvn/host/collection.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

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
  // A position rounds half to even.
  const std::pair<Variant, const char*> rows[] = {{1, "a"},    {3, "c"},      {2.5, "b"}, {std::uint8_t{2}, "b"},
                                                  {"KA", "a"}, {"ÑANDÚ", "c"}};
  const Collection collection = threeItems();
  ASSERT_EQ(collection.Count(), 3);
  for (const auto& [index, expected] : rows) EXPECT_EQ(collection.Item(index).toText(), expected) << index.toText();
}

TEST(Collection, AddsBeforeAndAfter) {
  struct Row {
    const char* why;
    Variant before, after;
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
    std::int32_t number;
    std::function<void(Collection&)> call;
  };
  // clang-format off
  const Row rows[] = {
      {"key taken", 457, [](auto& c) { c.Add("x", "KA"); }}, {"not ASCII", 457, [](auto& c) { c.Add("x", "ÑANDÚ", 1); }},
      {"no key", 5, [](auto& c) { c.Add("x", "kx", "?"); }}, {"both", 5, [](auto& c) { c.Add("x", "kx", 1, 1); }},
      {"too far", 9, [](auto& c) { c.Add("x", "kx", {}, 4); }}, {"past the end", 9, [](auto& c) { c.Remove(4); }},
      {"below", 9, [](auto& c) { c.Remove(-1); }}, {"Empty is position 0", 9, [](auto& c) { c.Remove(Variant()); }},
      {"digits are a key", 5, [](auto& c) { c.Remove("1"); }}, {"an empty key", 5, [](auto& c) { c.Remove(""); }},
      {"Null", 94, [](auto& c) { c.Remove(Null{}); }}, {"past 32 bits", 6, [](auto& c) { c.Remove(4294967297.0); }},
  };
  // clang-format on
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
  EXPECT_EQ(collection.Item(collection.Count()).toDouble(), 7.5);
  EXPECT_EQ(collection.Item("K500").toLong(), 500);
}

}  // namespace
}  // namespace qvn::host
