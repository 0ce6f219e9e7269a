#include "qvn/text/split.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

struct Row {
  std::string_view separator, text;
  std::vector<std::string> items;  // from index 1
};

// clang-format off
const Row kRows[] = {
    {",", "a,b,,c", {"a", "b", "", "c"}}, {",", "abc", {"abc"}}, {",", "", {""}}, {",", ",a,", {"", "a", ""}},
    {"x", "aXbxc", {"aXb", "c"}}, {"[&&,]", "a[&&,]b", {"a", "b"}}, {"¨", "¨a¨ñ", {"", "a", "ñ"}},
    // separators that overlap are taken from the left, and what the closing one leaves over is no item
    {"aa", "xaaay", {"x", "ay"}}, {"aa", "xa", {"x"}},
    // a stray byte is not found inside a letter
    {"\xB1", "ñ\xB1z\xFF", {"ñ", "z\xFF"}},
};
// clang-format on

TEST(Splitting, FillsFromIndexOneAndAppendsTheSeparator) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.text);
    const std::string extended = std::string(row.text) + std::string(row.separator);
    std::vector<std::string> expected = row.items;
    expected.insert(expected.begin(), "");

    std::string text(row.text);
    std::vector<std::string> list;
    ASSERT_EQ(Separador(row.separator, text, list), static_cast<std::int32_t>(row.items.size()));
    EXPECT_EQ(text, extended);
    EXPECT_EQ(list, expected);

    Variant value = row.text;
    std::vector<Variant> values;
    ASSERT_EQ(DataSeparator(row.separator, value, values), static_cast<std::int32_t>(row.items.size()));
    EXPECT_EQ(value.toText(), extended);
    ASSERT_EQ(values.size(), expected.size());
    EXPECT_TRUE(values[0].isEmpty());
    for (std::size_t i = 1; i < expected.size(); ++i) EXPECT_EQ(values[i].toText(), expected[i]);
  }
}

TEST(Splitting, KeepsIndexZeroAndDropsWhatLiesBeyond) {
  std::string text = "x,y";
  std::vector<std::string> list = {"zero", "one", "two", "three", "four"};
  EXPECT_EQ(Separador(",", text, list), 2);
  EXPECT_EQ(list, (std::vector<std::string>{"zero", "x", "y"}));
  EXPECT_EQ(Separador(",", text, list), 3) << "the text kept its separator";
  EXPECT_EQ(text, "x,y,,");

  Variant number = 15251;  // values are taken as texts
  std::vector<Variant> values = {7, Null{}};
  EXPECT_EQ(DataSeparator(5, number, values), 3);
  EXPECT_EQ(number.toText(), "152515");
  ASSERT_EQ(values.size(), 4u);
  EXPECT_EQ(values[0].toLong(), 7);
  EXPECT_TRUE(values[1].isText() && values[2].isText() && values[3].isText());
}

// Appending to the text moves it, and with it the separator that the caller gave.
TEST(Separador, TakesAPartOfTheTextAsSeparator) {
  std::string text = "a long text that needs memory of its own - and a second part";
  text.shrink_to_fit();
  std::vector<std::string> list;
  EXPECT_EQ(Separador(std::string_view(text).substr(40, 3), text, list), 2);
  EXPECT_EQ(list, (std::vector<std::string>{"", "a long text that needs memory of its own", "and a second part"}));
}

TEST(Splitting, RefusesAnEmptySeparatorAndNullAndChangesNothing) {
  std::string text = "abc";
  std::vector<std::string> list = {"zero"};
  EXPECT_EQ(test::errorNumber([&] { Separador("", text, list); }), 5);
  EXPECT_EQ(text, "abc");
  text.clear();
  EXPECT_EQ(Separador("", text, list), 0);
  EXPECT_EQ(list.size(), 1u);

  Variant value = 12;
  Variant null = Null{};
  std::vector<Variant> values;
  EXPECT_EQ(test::errorNumber([&] { DataSeparator("", value, values); }), 5);
  EXPECT_EQ(test::errorNumber([&] { DataSeparator(Null{}, value, values); }), 94);
  EXPECT_EQ(test::errorNumber([&] { DataSeparator(",", null, values); }), 94);
  EXPECT_TRUE(!value.isText() && null.isNull() && values.empty());
}

}  // namespace
}  // namespace qvn::text
