#include "qvn/text/split.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

struct Row {
  const char* why;
  std::string_view separator;
  std::string_view text;
  std::vector<std::string> items;  // from index 1
};

const Row kRows[] = {
    {"adjacent separators keep an empty item", ",", "a,b,,c", {"a", "b", "", "c"}},
    {"no separator", ",", "abc", {"abc"}},
    {"an empty text is one empty item", ",", "", {""}},
    {"a separator at the end gives a last empty item", ",", "a,", {"a", ""}},
    {"a separator at the start", ",", ",a", {"", "a"}},
    {"separators alone", ",", ",,", {"", "", ""}},
    {"a separator of several characters", "[&&,]", "a[&&,]b", {"a", "b"}},
    {"case matters", "x", "aXbxc", {"aXb", "c"}},
    {"a separator of two bytes", "¨", "¨a¨ñ", {"", "a", "ñ"}},
    {"overlapping separators are taken from the left", "aa", "xaaay", {"x", "ay"}},
    {"what the closing separator leaves over is no item", "aa", "xa", {"x"}},
    {"a stray byte is not found inside a letter", "\xB1", "ñ\xB1z\xFF", {"ñ", "z\xFF"}},
};

TEST(Separador, FillsFromIndexOne) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    std::string text(row.text);
    std::vector<std::string> list;
    ASSERT_EQ(Separador(row.separator, text, list), static_cast<std::int32_t>(row.items.size()));
    EXPECT_EQ(text, std::string(row.text) + std::string(row.separator));
    std::vector<std::string> expected = row.items;
    expected.insert(expected.begin(), "");
    EXPECT_EQ(list, expected);
  }
}

TEST(DataSeparator, FillsTheSameItemsAsTexts) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    Variant text = row.text;
    std::vector<Variant> list;
    ASSERT_EQ(DataSeparator(row.separator, text, list), static_cast<std::int32_t>(row.items.size()));
    EXPECT_EQ(text.toText(), std::string(row.text) + std::string(row.separator));
    ASSERT_EQ(list.size(), row.items.size() + 1);
    EXPECT_TRUE(list[0].isEmpty());
    for (std::size_t i = 0; i < row.items.size(); ++i) {
      ASSERT_TRUE(list[i + 1].isText());
      EXPECT_EQ(list[i + 1].toText(), row.items[i]);
    }
  }
}

TEST(Separador, KeepsIndexZeroAndDropsWhatLiesBeyond) {
  std::string text = "x,y";
  std::vector<std::string> list = {"zero", "one", "two", "three", "four"};
  EXPECT_EQ(Separador(",", text, list), 2);
  EXPECT_EQ(list, (std::vector<std::string>{"zero", "x", "y"}));
  // The text kept its separator, so a second call finds one item more.
  EXPECT_EQ(Separador(",", text, list), 3);
  EXPECT_EQ(list, (std::vector<std::string>{"zero", "x", "y", ""}));
  EXPECT_EQ(text, "x,y,,");
}

// Appending to the text moves it, and with it the separator that the caller gave.
TEST(Separador, TakesAPartOfTheTextAsSeparator) {
  std::string text = "a long text that needs memory of its own - and a second part";
  text.shrink_to_fit();
  std::vector<std::string> list;
  EXPECT_EQ(Separador(std::string_view(text).substr(40, 3), text, list), 2);
  EXPECT_EQ(list, (std::vector<std::string>{"", "a long text that needs memory of its own", "and a second part"}));
}

TEST(DataSeparator, TakesValuesAsTexts) {
  Variant number = 15251;
  std::vector<Variant> list = {7, Null{}};
  EXPECT_EQ(DataSeparator(5, number, list), 3);
  EXPECT_EQ(number.toText(), "152515");
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list[0].toLong(), 7);
  EXPECT_EQ(list[1].toText(), "1");
  EXPECT_EQ(list[2].toText(), "2");
  EXPECT_EQ(list[3].toText(), "1");
}

TEST(Splitting, RefusesAnEmptySeparatorAndNull) {
  std::string text = "abc";
  std::vector<std::string> list = {"zero"};
  EXPECT_EQ(test::errorNumber([&] { Separador("", text, list); }), 5);
  EXPECT_EQ(text, "abc");
  EXPECT_EQ(list.size(), 1u);
  text.clear();
  EXPECT_EQ(Separador("", text, list), 0);
  EXPECT_EQ(list.size(), 1u);

  Variant value = 12;
  std::vector<Variant> values;
  EXPECT_EQ(test::errorNumber([&] { DataSeparator("", value, values); }), 5);
  EXPECT_EQ(test::errorNumber([&] { DataSeparator(Null{}, value, values); }), 94);
  EXPECT_FALSE(value.isText());
  value = Null{};
  EXPECT_EQ(test::errorNumber([&] { DataSeparator(",", value, values); }), 94);
  EXPECT_TRUE(value.isNull());
  EXPECT_TRUE(values.empty());
}

}  // namespace
}  // namespace qvn::text
