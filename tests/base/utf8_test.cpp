#include "qvn/base/utf8.h"

#include <gtest/gtest.h>

#include <ctime>
#include <string>

namespace qvn::utf8 {
namespace {

TEST(Utf8, EveryCharacterGoesThereAndBack) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c == 0xD800) c = 0xE000;
    std::string text;
    append(text, c);
    const Decoded decoded = decode(text, 0);
    ASSERT_TRUE(decoded.valid && decoded.codePoint == c && decoded.length == text.size()) << static_cast<unsigned>(c);
    ASSERT_EQ(text.size(), c < 0x80 ? 1U : c < 0x800 ? 2U : c < 0x10000 ? 3U : 4U);
  }
  for (const char32_t c : {char32_t{0xD800}, char32_t{0xDFFF}, char32_t{0x110000}, char32_t{0xFFFFFFFF}}) {
    std::string text;
    append(text, c);
    EXPECT_EQ(text, "\uFFFD");
  }
}

// Each byte that belongs to no well-formed sequence is one character. Sources of the forms: RFC 3629, section 3.
TEST(Utf8, MalformedBytesCountOneByOne) {
  // clang-format off
  struct Row { std::string_view text; std::size_t length; std::string_view sanitized; };
  static constexpr Row kRows[] = {
      {"a\x80z", 3, "a\uFFFDz"},
      // Overlong in two, three and four bytes.
      {"\xC0\x80\xC1\xBF", 4, "\uFFFD\uFFFD\uFFFD\uFFFD"}, {"\xE0\x9F\xBF", 3, "\uFFFD\uFFFD\uFFFD"},
      {"\xF0\x8F\xBF\xBF", 4, "\uFFFD\uFFFD\uFFFD\uFFFD"},
      // The first and the last surrogate, just past the last character, and leads of no sequence.
      {"\xED\xA0\x80", 3, "\uFFFD\uFFFD\uFFFD"}, {"\xED\xBF\xBF", 3, "\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", 4, "\uFFFD\uFFFD\uFFFD\uFFFD"}, {"\xF5\xF8\xFE\xFF", 4, "\uFFFD\uFFFD\uFFFD\uFFFD"},
      // Cut by the end, by the view where the bytes go on, by a letter and by another character.
      {"ñ\xC3", 2, "ñ\uFFFD"}, {"\xE2\x82", 2, "\uFFFD\uFFFD"}, {"\xF0\x9F\x98", 3, "\uFFFD\uFFFD\uFFFD"},
      {std::string_view("€", 2), 2, "\uFFFD\uFFFD"}, {"\xE2\x82z", 3, "\uFFFD\uFFFDz"}, {"\xC3\xC3\xB1", 2, "\uFFFDñ"},
      // In the second block of eight.
      {"12345678\xFF", 9, "12345678\uFFFD"}};
  // clang-format on
  for (const Row& row : kRows) {
    SCOPED_TRACE(testing::PrintToString(row.text));
    EXPECT_EQ(length(row.text), row.length);
    EXPECT_EQ(sanitize(row.text), row.sanitized);
    EXPECT_FALSE(isValid(row.text));
    EXPECT_FALSE(isAscii(row.text));
    EXPECT_EQ(from(row.text, row.length - 1), row.text.substr(offsetOf(row.text, row.length - 1)));
    EXPECT_EQ(offsetOf(row.text, row.length), row.text.size());
  }
  EXPECT_TRUE(isValid("ñandú \uFFFD €\U0001F600"));
  EXPECT_EQ(sanitize("ñandú \uFFFD"), "ñandú \uFFFD");
}

TEST(Utf8, PositionsCountCharacters) {
  // clang-format off
  struct Row { std::string_view text; std::size_t start, count; std::string_view expected; };
  static constexpr Row kRows[] = {
      {"ñandú", 0, 2, "ña"}, {"ñandú", 4, 1, "ú"}, {"ñandú", 3, 99, "dú"}, {"ñandú", 5, 1, ""}, {"ñandú", 1, 0, ""},
      {"ñandú", std::string_view::npos, 1, ""}, {"", 0, 1, ""}, {"abcdefgh€ij", 8, 2, "€i"}, {"abcdefghijkl", 9, 99, "jkl"},
      {"a\U0001F600b", 1, 1, "\U0001F600"}, {std::string_view("a\0ñ", 4), 1, 2, std::string_view("\0ñ", 3)}};
  // clang-format on
  for (const Row& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.text << " from " << row.start);
    EXPECT_EQ(middle(row.text, row.start, row.count), row.expected);
    EXPECT_EQ(left(from(row.text, row.start), row.count), row.expected);
  }
}

TEST(Utf8, LengthOfEveryCutAddsUp) {
  const std::string text = "1234567ñ€89\U0001F600\xFFz";
  for (std::size_t i = 0; i <= length(text); ++i) {
    EXPECT_EQ(length(left(text, i)), i);
    EXPECT_EQ(length(from(text, i)), length(text) - i);
    EXPECT_EQ(std::string(left(text, i)).append(from(text, i)), text);
  }
}

TEST(Utf8, TrimsTheBlankAlone) {
  const std::pair<std::string_view, std::string_view> rows[] = {
      {"  a b ", "a b"}, {"   ", ""}, {"", ""}, {"a", "a"}, {"\t a", "\t a"}, {"\u00A0 ", "\u00A0"}};
  for (const auto& row : rows) EXPECT_EQ(trimBlanks(row.first), row.second);
}

TEST(Utf8, TakesTimeLinearInTheText) {
  std::string text;
  for (int i = 0; i < 200000; ++i) text += "ñ€";
  const std::clock_t start = std::clock();
  EXPECT_EQ(length(text), 400000U);
  EXPECT_EQ(offsetOf(text, 399999), text.size() - 3);
  EXPECT_EQ(sanitize(text), text);
  // Milliseconds; quadratic work would take minutes.
  EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}

}  // namespace
}  // namespace qvn::utf8
