#include "qvn/text/replace.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "qvn/text/internal/repeated_replacement.h"
#include "qvn/text/search.h"
#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

struct Row {
  std::string_view inserted, searched, target, expected;
};

// Without regard to case; the empty text is found in front of any text but an empty one; no half of a letter is found.
TEST(Inserta, ReplacesTheFirstOccurrence) {
  EXPECT_EQ(Inserta("Xy", "B", "abcb"), "aXycb");
  EXPECT_EQ(Inserta("", "z", "abc"), "abc");
  EXPECT_EQ(Inserta("ü", "Ñ", "año"), "aüo");
  EXPECT_EQ(Inserta("_", "", "abc"), "_abc");
  EXPECT_EQ(Inserta("_", "", ""), "");
  EXPECT_EQ(Inserta("_", "\xB1", "ñ\xB1"), "ñ_");
}

TEST(Cambia, RepeatsUntilNothingIsFound) {
  // clang-format off
  static constexpr Row kRows[] = {
      {"-", "x", "aXbxc", "a-b-c"}, {" ", "  ", "a  b     c", "a b c"}, {"_", "z", "abc", "abc"},
      // new occurrences: by removal, with the text to the left, with more of it, with the text behind
      {"", "ab", "AaBb", ""}, {"b", "ac", "aaccb", "abcb"}, {"c", "abc", "aababcab", "acab"}, {"a", "xx", "xxxxx", "aax"},
      // the result is as long or longer, but there is an end
      {"ba", "ab", "aabb", "bbaa"}, {"bba", "ab", "aab", "bbbbaa"},
      // nothing found, where it could not end
      {"''", "'", "abc", "abc"}, {"_", "a", "", ""}, {"_", "", "", ""},
      // letters of two bytes and bytes that are not UTF-8
      {"N", "ñ", "Ñañañ", "NaNaN"}, {"", "\x91", "Ñ\x91Ñ\x91", "ÑÑ"}, {"-", "o", "\xFFo\xC3", "\xFF-\xC3"},
  };
  // clang-format on
  for (const Row& row : kRows) {
    std::string target(row.target);
    EXPECT_EQ(Cambia(row.inserted, row.searched, target), row.expected) << row.searched << " in " << row.target;
    EXPECT_EQ(target, row.expected);
  }
  std::string target = "a-b-c";
  const std::string_view view = target;
  EXPECT_EQ(Cambia(view.substr(0, 1), view.substr(1, 1), target), "aabac") << "arguments that are parts of the target";
}

TEST(Cambia, RefusesWhatWouldNotEnd) {
  static constexpr Row kRows[] = {
      {"''", "'", "it's", ""}, {"xAbx", "aB", "ab", ""}, {"a", "A", "a", ""}, {"_", "", "abc", ""}};
  for (const Row& row : kRows) {
    std::string target(row.target);
    EXPECT_EQ(test::errorNumber([&] { Cambia(row.inserted, row.searched, target); }), 5) << row.searched;
    EXPECT_EQ(target, row.target);
  }
}

// Growth is only refused past what replacing each occurrence once explains.
TEST(ReplaceUntilGone, LetsGrowthPassTheLimitWhenItEnds) {
  const std::string text(1000, 'x');
  EXPECT_EQ(internal::replaceUntilGone("abc", "x", text, 0).size(), 3000u);
  const auto endless = [](std::size_t limit) { internal::replaceUntilGone("bbaa", "ab", "aab", limit); };
  EXPECT_EQ(test::errorNumber([&] { endless(100); }), 5);
  // Seven replacements of three bytes: "ab" moves a "b" over each "a" and doubles it.
  EXPECT_EQ(internal::replaceUntilGone("bba", "ab", "aaab", 18), std::string(8, 'b') + "aaa");
  EXPECT_EQ(test::errorNumber([] { internal::replaceUntilGone("bba", "ab", "aaab", 14); }), 5);
}

std::string randomText(std::mt19937& random, std::size_t longest) {
  static constexpr std::string_view kLetters[] = {"a", "b", "A", "ñ", "Ñ", "\xC3"};
  std::string text;
  const std::size_t length = random() % (longest + 1);
  for (std::size_t i = 0; i < length; ++i) text += kLetters[random() % 5 + (random() % 16 == 0 ? 1 : 0)];
  return text;
}

TEST(Cambia, GivesWhatRepeatingInsertaGives) {
  std::mt19937 random(20120307);
  int compared = 0;
  for (int round = 0; round < 200000; ++round) {
    const std::string searched = "a" + randomText(random, 3);
    const std::string inserted = randomText(random, 4);
    const std::string start = randomText(random, 14);
    if (searched.find('\xC3') != std::string::npos || clAt(searched, inserted) > 0) continue;
    std::string expected = start;
    while (clAt(searched, expected) > 0 && expected.size() < 2000) expected = Inserta(inserted, searched, expected);
    if (expected.size() >= 2000) continue;
    std::string target = start;
    ASSERT_EQ(Cambia(inserted, searched, target), expected) << inserted << '|' << searched << '|' << start;
    ++compared;
  }
  EXPECT_GT(compared, 50000);
}

// With regard to case; neither inside what was inserted nor across it.
TEST(ReplaceString, ReplacesFromLeftToRightOnce) {
  // clang-format off
  static constexpr Row kRows[] = {
      {"+", "-", "a-b-c", "a+b+c"}, {"_", "a", "aAa", "_A_"}, {"''", "'", "it's", "it''s"}, {"b", "aa", "aaa", "ba"},
      {"", "ab", "aabb", "ab"}, {"_", "z", "abc", "abc"}, {"_", "", "", ""}, {"n", "ñ", "ñÑñ", "nÑn"},
      {"_", "\xC3", "ñ\xC3", "ñ_"},
  };
  // clang-format on
  for (const Row& row : kRows) {
    const Variant result = ReplaceString(row.target, row.searched, row.inserted);
    ASSERT_TRUE(result.isText()) << row.searched;
    EXPECT_EQ(result.toText(), row.expected);
  }
}

TEST(ReplaceString, GivesEmptyInsteadOfAnError) {
  EXPECT_TRUE(ReplaceString("abc", "", "x").isEmpty());
  const std::string longText(std::size_t{1} << 16U, 'a');
  EXPECT_TRUE(ReplaceString(longText, "a", longText).isEmpty());  // 4 GiB
}

}  // namespace
}  // namespace qvn::text
