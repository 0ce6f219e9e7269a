#include "qvn/base/letter_case.h"

#include <gtest/gtest.h>
#include <wctype.h>

#include <algorithm>

#include "qvn/base/utf8.h"
#include "tests/support/locale_guard.h"

namespace qvn {
namespace {

TEST(LetterCase, MapsTexts) {
  // clang-format off
  struct Row { std::string_view text, upper, lower; };
  static constexpr Row kRows[] = {
      {"aZ[`{@/0", "AZ[`{@/0", "az[`{@/0"}, {"", "", ""},
      {"ñandú ÁÉÍÓÚÜÑ áéíóúü", "ÑANDÚ ÁÉÍÓÚÜÑ ÁÉÍÓÚÜ", "ñandú áéíóúüñ áéíóúü"},
      // The ends of Latin-1, and neighbours of one capital and small letter each.
      {"àöøþÿ÷×", "ÀÖØÞŸ÷×", "àöøþÿ÷×"}, {"ĹĺŽžŁł", "ĹĹŽŽŁŁ", "ĺĺžžłł"}, {"άλφα Ώ ґяё", "ΆΛΦΑ Ώ ҐЯЁ", "άλφα ώ ґяё"},
      // Letters without a capital or a small letter of their own.
      {"ßµıſ\u0149ĸς", "ßµıſ\u0149ĸς", "ßµıſ\u0149ĸς"}, {"İẞ", "İẞ", "İẞ"},
      // Bytes that are not UTF-8, and a NUL.
      {"a\xF1\xC3ñ\x80", "A\xF1\xC3Ñ\x80", "a\xF1\xC3ñ\x80"},
      {std::string_view("a\0ñ", 4), std::string_view("A\0Ñ", 4), std::string_view("a\0ñ", 4)}};
  // clang-format on
  std::string memory = "what was there before, and longer than any of the texts that are to come into its place";
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(upperCase(row.text), row.upper);
    EXPECT_EQ(lowerCase(row.text), row.lower);
    upperCaseInto(row.text, memory);
    EXPECT_EQ(memory, row.upper);
    EXPECT_TRUE(equalIgnoringCase(row.text, row.upper));
    EXPECT_TRUE(equalIgnoringCase(row.lower, row.text));
    EXPECT_EQ(hashIgnoringCase(row.text), hashIgnoringCase(row.upper));
    EXPECT_EQ(hashIgnoringCase(row.text), hashIgnoringCase(row.lower));
  }
}

// Texts are changed some bytes at a time: any character, at any place of a text of any length.
TEST(LetterCase, EveryCharacterChangesAtEveryPlace) {
  for (std::size_t size = 1; size <= 17; ++size) {
    for (std::size_t at = 0; at < size; ++at) {
      for (char32_t c = 0; c < 0x100; ++c) {
        std::string text(size - 1, 'q');
        std::string character;
        utf8::append(character, c);
        text.insert(at, character);
        std::string upper;
        utf8::append(upper, upperCase(c));
        ASSERT_EQ(upperCase(text), std::string(at, 'Q') + upper + std::string(size - 1 - at, 'Q')) << at << ' ' << size;
        ASSERT_EQ(lowerCase(upperCase(text)).substr(at + upper.size()), std::string(size - 1 - at, 'q'));
      }
    }
  }
}

TEST(LetterCase, CapitalsAndSmallLettersAreInverse) {
  int letters = 0;
  for (char32_t c = 0; c <= 0x1FFF; ++c) {
    const char32_t upper = upperCase(c);
    if (upper != c) {
      ++letters;
      ASSERT_EQ(lowerCase(upper), c) << static_cast<unsigned>(c);
    }
    ASSERT_EQ(upperCase(lowerCase(c)), upper) << static_cast<unsigned>(c);
  }
  EXPECT_GT(letters, 400);
}

// The system's own tables know the same letters, but also the capitals that the header leaves out.
TEST(LetterCase, AgreesWithTheSystemInItsBlocks) {
  const test::LocaleGuard guard("es_MX.UTF-8");
  constexpr std::u32string_view kLeftOut = U"\u00B5\u0131\u017F\u03C2\u1E9B";
  const std::pair<char32_t, char32_t> blocks[] = {{0, 0x17F}, {0x386, 0x3CE}, {0x400, 0x52F}, {0x1E00, 0x1EFF}};
  for (const auto& block : blocks) {
    for (char32_t c = block.first; c <= block.second; ++c) {
      const bool isLeftOut = kLeftOut.find(c) != std::u32string_view::npos;
      const auto system = static_cast<char32_t>(towupper(static_cast<wint_t>(c)));
      ASSERT_EQ(upperCase(c), isLeftOut ? c : system) << static_cast<unsigned>(c);
    }
  }
}

TEST(LetterCase, UnequalTexts) {
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"n", "ñ"},    {"a", "ab"},      {"ab", "a"},        {"", "a"},       {"ss", "ß"},
      {"\xF1", "ñ"}, {"\xF1", "\xD1"}, {"\xFF", "\uFFFD"}, {"k", "\u212A"}, {"i", "ı"}};
  for (const auto& row : rows) EXPECT_FALSE(equalIgnoringCase(row.first, row.second)) << row.first << row.second;
}

}  // namespace
}  // namespace qvn
