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
  const char* why;
  std::string_view inserted;
  std::string_view searched;
  std::string_view target;
  std::string_view expected;
};

TEST(Inserta, ReplacesTheFirstOccurrence) {
  static constexpr Row kRows[] = {
      {"the first of two", "_", "b", "abcb", "a_cb"},
      {"without regard to case", "x", "B", "abc", "axc"},
      {"the inserted text keeps its case", "Xy", "B", "abc", "aXyc"},
      {"none", "_", "z", "abc", "abc"},
      {"removal", "", "b", "abc", "ac"},
      {"letters of two bytes", "ü", "Ñ", "año", "aüo"},
      {"the empty text is found in front", "_", "", "abc", "_abc"},
      {"but not in an empty text", "_", "", "", ""},
      {"the whole text", "_", "ABC", "abc", "_"},
      {"half a letter is not found", "_", "\xB1", "ñ", "ñ"},
      {"a stray byte is", "_", "\xB1", "ñ\xB1", "ñ_"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(Inserta(row.inserted, row.searched, row.target), row.expected);
  }
}

TEST(Cambia, RepeatsUntilNothingIsFound) {
  static constexpr Row kRows[] = {
      {"every occurrence", "_", "b", "abcb", "a_c_"},
      {"without regard to case", "-", "x", "aXbxc", "a-b-c"},
      {"runs of blanks", " ", "  ", "a  b     c", "a b c"},
      {"removal that joins a new occurrence", "", "ab", "aabb", ""},
      {"an inserted text that completes one to its left", "b", "ac", "aaccb", "abcb"},
      {"with the text before it", "c", "abc", "aababcab", "acab"},
      {"with the text behind it", "a", "xx", "xxxxx", "aax"},
      {"letters change places", "ba", "ab", "aabb", "bbaa"},
      {"growth that ends", "bba", "ab", "aab", "bbbbaa"},
      {"a new occurrence in other case", "", "ab", "AaBb", ""},
      {"none", "_", "z", "abc", "abc"},
      {"none, where it could not end", "''", "'", "abc", "abc"},
      {"an empty text", "_", "a", "", ""},
      {"both empty", "_", "", "", ""},
      {"letters of two bytes", "N", "ñ", "Ñañañ", "NaNaN"},
      {"half a letter is not found", "", "\x91", "Ñ\x91Ñ\x91", "ÑÑ"},
      {"other stray bytes stay", "-", "a",
       "\xFF"
       "a\xC3",
       "\xFF-\xC3"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    std::string target(row.target);
    EXPECT_EQ(Cambia(row.inserted, row.searched, target), row.expected);
    EXPECT_EQ(target, row.expected);
  }
}

TEST(Cambia, RefusesWhatWouldNotEnd) {
  static constexpr Row kRows[] = {
      {"the inserted text contains the searched one", "''", "'", "it's", ""},
      {"in other case", "xAbx", "aB", "ab", ""},
      {"both are equal", "a", "A", "a", ""},
      {"an empty searched text", "_", "", "abc", ""},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    std::string target(row.target);
    EXPECT_EQ(test::errorNumber([&] { Cambia(row.inserted, row.searched, target); }), 5);
    EXPECT_EQ(target, row.target);
  }
}

TEST(Cambia, TakesPartsOfTheTargetAsArguments) {
  std::string target = "a-b-c";
  const std::string_view view = target;
  EXPECT_EQ(Cambia(view.substr(0, 1), view.substr(1, 1), target), "aabac");
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

std::string literalCambia(std::string_view inserted, std::string_view searched, std::string target) {
  while (clAt(searched, target) > 0 && target.size() < 2000) target = Inserta(inserted, searched, target);
  return target;
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
    std::string target = randomText(random, 14);
    if (searched.find('\xC3') != std::string::npos) continue;
    if (clAt(searched, inserted) > 0) continue;
    const std::string expected = literalCambia(inserted, searched, target);
    if (expected.size() >= 2000) continue;
    const std::string start = target;
    ASSERT_EQ(Cambia(inserted, searched, target), expected) << inserted << '|' << searched << '|' << start;
    ++compared;
  }
  EXPECT_GT(compared, 50000);
}

TEST(ReplaceString, ReplacesFromLeftToRightOnce) {
  static constexpr Row kRows[] = {
      {"every occurrence", "+", "-", "a-b-c", "a+b+c"},
      {"with regard to case", "_", "a", "aAa", "_A_"},
      {"never inside what was inserted", "''", "'", "it's", "it''s"},
      {"occurrences do not overlap", "b", "aa", "aaa", "ba"},
      {"a joined occurrence stays", "", "ab", "aabb", "ab"},
      {"none", "_", "z", "abc", "abc"},
      {"an empty text", "_", "a", "", ""},
      {"an empty searched text in an empty text", "_", "", "", ""},
      {"letters of two bytes", "n", "ñ", "ñÑñ", "nÑn"},
      {"half a letter is not found", "_", "\xC3", "ñ\xC3", "ñ_"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const Variant result = ReplaceString(row.target, row.searched, row.inserted);
    ASSERT_TRUE(result.isText());
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
