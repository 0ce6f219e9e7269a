#include "qvn/text/search.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

struct Row {
  Variant searched;
  std::string_view text;
  std::int32_t expected;
};

TEST(At, FindsOneCharacterWithRegardToCase) {
  // clang-format off
  static const Row kRows[] = {
      {"b", "abcb", 2}, {"B", "abcB", 4}, {5, "a5", 2}, {std::string(1, '\0'), std::string_view("a\0", 2), 2},
      // never a match: two characters, none, Null
      {"ab", "abab", 0}, {15, "15", 0}, {"", "abc", 0}, {Empty{}, "abc", 0}, {Null{}, "abc", 0},
      // letters of two bytes, and bytes that are not UTF-8, which are not found inside a letter
      {"c", "ñác", 3}, {"ñ", "aÑñ", 3}, {"\xB1", "ñ\xB1", 2}, {"\xC3", "ñ", 0}, {"z", "\xE2\x82z", 3},
  };
  // clang-format on
  for (const Row& row : kRows) EXPECT_EQ(At(row.searched, row.text), row.expected) << row.text;
  EXPECT_EQ(test::errorNumber([] { At(Array{}, "a"); }), 13);
}

TEST(ClAt, FindsTextsWithoutRegardToCase) {
  // clang-format off
  static const Row kRows[] = {
      {"MYSQL", "driver=mysql;", 8}, {"b", "ABC", 2}, {"abc", "ABC", 1}, {"abcd", "ABC", 0}, {"x", "ABC", 0},
      {"aab", "AAAB", 2}, {12, "a12", 2},
      // the empty text is found at once, but not in an empty text
      {"", "abc", 1}, {Empty{}, "abc", 1}, {"", "", 0},
      // letters of more than one byte; the sharp s has no capital of one character
      {"ÑANDÚ", "un ñandú", 4}, {"n", "ñÑ", 0}, {"=", "ñá€=", 4}, {"σд", "ΑΣД", 2}, {"SS", "ß", 0},
      // bytes that are not UTF-8 stand for themselves
      {"\xB1x", "ñ\xB1X", 2}, {"\xB1", "ñ", 0}, {"a\xC3", "añ", 0}, {"Ñ", "\xFF\xC3ñ", 3},
  };
  // clang-format on
  for (const Row& row : kRows) EXPECT_EQ(clAt(row.searched, row.text), row.expected) << row.text;
  EXPECT_EQ(test::errorNumber([] { clAt(Null{}, "abc"); }), 94);
  const test::LocaleGuard spain("es_ES.UTF-8");
  EXPECT_EQ(clAt(1.5, "a1,5"), 2);
}

// Long texts are read in windows; an occurrence must not get lost where two of them meet.
TEST(ClAt, FindsOccurrencesWhereverTheyLie) {
  const std::string searched = "Ñandú€";  // 6 characters, 10 bytes
  for (const std::string_view filler : {"x", "ñ", "€", "\x80"}) {
    for (const std::size_t around : {1024u, 5120u, 21504u}) {
      for (std::size_t before = around - 12; before <= around + 2; ++before) {
        std::string text;
        while (text.size() < before) text += filler;
        const std::size_t offset = text.size();
        text += "ñANDÚ€";
        text.append(3000, 'y');
        ASSERT_EQ(findIgnoringCase(searched, text), offset) << filler << before;
        ASSERT_EQ(clAt(searched, text), utf8::length(text.substr(0, offset)) + 1);
      }
    }
  }
}

TEST(ClAt, FindsTextsLongerThanAWindow) {
  std::string searched;
  for (int i = 0; i < 20000; ++i) searched += std::to_string(i);
  const std::string text = "abc" + searched.substr(0, 5000) + searched + "z";
  EXPECT_EQ(findIgnoringCase(searched, text), 5003u);
  EXPECT_EQ(findIgnoringCase(searched + "y", text), std::string::npos);
}

// The search takes offsets in the upper-cased text for offsets in the text.
TEST(UpperCase, KeepsTheLengthOfEveryCharacter) {
  std::string text;
  std::string upper;
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    text.clear();
    utf8::append(text, character);
    upperCaseInto(text, upper);
    ASSERT_EQ(upper.size(), text.size()) << static_cast<std::uint32_t>(character);
  }
}

}  // namespace
}  // namespace qvn::text
