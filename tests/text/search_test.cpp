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
  const char* why;
  Variant searched;
  std::string_view text;
  std::int32_t expected;
};

TEST(At, FindsOneCharacterWithRegardToCase) {
  static const Row kRows[] = {
      {"the first of two", "b", "abcb", 2},
      {"case matters", "B", "abcB", 4},
      {"two characters never match", "ab", "abab", 0},
      {"the empty text never matches", "", "abc", 0},
      {"nor in an empty text", "", "", 0},
      {"Null", Null{}, "abc", 0},
      {"Empty", Empty{}, "abc", 0},
      {"positions count characters", "c", "ñác", 3},
      {"one character of two bytes", "ñ", "aÑñ", 3},
      {"a digit given as a number", 5, "a5", 2},
      {"a number of two digits", 15, "15", 0},
      {"a stray byte", "\xB1", "a\xB1", 2},
      {"a stray byte is not found inside a letter", "\xB1", "ñ\xB1", 2},
      {"a lead byte is not found inside a letter", "\xC3", "ñ", 0},
      {"characters after stray bytes", "a",
       "\xE2\x82"
       "a",
       3},
      {"a NUL", std::string(1, '\0'), std::string_view("a\0", 2), 2},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(At(row.searched, row.text), row.expected);
  }
  EXPECT_EQ(test::errorNumber([] { At(Array{}, "a"); }), 13);
}

TEST(ClAt, FindsTextsWithoutRegardToCase) {
  static const Row kRows[] = {
      {"upper against lower", "MYSQL", "driver=mysql;", 8},
      {"lower against upper", "b", "ABC", 2},
      {"at the end", "c", "ABC", 3},
      {"the whole text", "abc", "ABC", 1},
      {"longer than the text", "abcd", "ABC", 0},
      {"absent", "x", "ABC", 0},
      {"the empty text is found at once", "", "abc", 1},
      {"but not in an empty text", "", "", 0},
      {"Empty reads as the empty text", Empty{}, "abc", 1},
      {"accented letters", "ÑANDÚ", "un ñandú", 4},
      {"an accent matters", "n", "ñÑ", 0},
      {"positions count characters", "=", "ñá€=", 4},
      {"greek and cyrillic", "σд", "ΑΣД", 2},
      {"sharp s has no capital of one character", "SS", "ß", 0},
      {"a number", 12, "a12", 2},
      {"a false start", "aab", "AAAB", 2},
      {"stray bytes stand for themselves", "\xB1x", "ñ\xB1X", 2},
      {"a stray byte is not found inside a letter", "\xB1", "ñ", 0},
      {"a text that ends in half a letter", "a\xC3", "añ", 0},
      {"stray bytes before the occurrence", "Ñ", "\xFF\xC3ñ", 3},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(clAt(row.searched, row.text), row.expected);
  }
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
