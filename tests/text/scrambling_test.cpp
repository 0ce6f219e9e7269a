#include "qvn/text/scrambling.h"

#include <gtest/gtest.h>

#include "qvn/base/code_page_1252.h"
#include "tests/support/error_of.h"

namespace qvn::text {
namespace {

TEST(Encrypta, ShiftsCodes) {
  struct Row {
    const char* why;
    std::string plain;
    std::int16_t key;
    std::string scrambled;
  };
  const Row rows[] = {
      {"below the first step", " ab ", 31, " ab "},
      {"a tie goes to the even 0", "ab", 32, "ab"},
      {"33 rounds to 1", "ab", 33, "bc"},
      {"a tie goes to the even 2", "ab", 96, "cd"},
      {"1000 is 16", "A", 1000, "Q"},
      {"through the special codes", "~\x7F", 128, "\xE2\x82\xAC\xC2\x81"},
      {"above 255 the last one again", "aÿÿb", 64, "bbbc"},
      {"nothing at the beginning", "ÿÿa", 64, "b"},
      {"below 0 the last one again", "a\x01", -128, "__"},
      {"outside the page and not UTF-8", "日\xFF", 64, "@@"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Encrypta(row.plain, row.key), row.scrambled) << row.why;
  }
}

TEST(Decrypta, UndoesEveryCode) {
  std::string codes(1, 'x');
  for (int code = 0; code < 254; ++code) codes.push_back(static_cast<char>(code));
  codes.push_back('x');
  const std::string text = cp1252::decode(codes);
  EXPECT_EQ(Decrypta(Encrypta(text, 128), 128), text);
  EXPECT_EQ(Decrypta("  a b ", 20), "a b");
}

TEST(Decrypta, RefusesWhatIsNoCode) {
  EXPECT_EQ(test::errorNumber([] { Decrypta("a\x01", 128); }), 5);
  EXPECT_EQ(test::errorNumber([] { Decrypta("ÿ", -64); }), 5);
}

}  // namespace
}  // namespace qvn::text
