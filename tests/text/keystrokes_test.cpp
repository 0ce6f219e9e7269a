#include "qvn/text/keystrokes.h"

#include <gtest/gtest.h>

#include <string_view>

#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

TEST(ToNumber, FiltersNumericInput) {
  struct Row {
    const char* why;
    const char* locale;
    std::string_view boxText;
    std::int16_t key;
    bool allowsDecimals;
    std::int16_t result;
    std::int16_t keyAfter;
  };
  static constexpr Row kRows[] = {
      {"a digit", "C", "1.5", '0', true, '0', '0'},
      {"the last digit", "C", "", '9', false, '9', '9'},
      {"the separator", "es_MX.UTF-8", "15", '.', true, '.', '.'},
      {"a second separator", "es_MX.UTF-8", "1.5", '.', true, 0, 0},
      {"a separator where decimals are not allowed", "es_MX.UTF-8", "15", '.', false, 0, 0},
      {"the other separator is just another key", "es_MX.UTF-8", "15", ',', true, 0, ','},
      {"the separator of a comma locale", "es_ES.UTF-8", "15", ',', true, ',', ','},
      {"a second one", "de_DE.UTF-8", "1,5", ',', true, 0, 0},
      {"a point in the box is no separator there", "de_DE.UTF-8", "1.5", ',', true, ',', ','},
      {"the point there is just another key", "es_ES.UTF-8", "15", '.', true, 0, '.'},
      {"a minus sign", "C", "15", '-', true, '-', '-'},
      {"a second one", "C", "1-5", '-', true, 0, 0},
      {"backspace", "C", "", 8, true, 8, 8},
      {"a letter leaves the caller's key", "C", "", 'a', true, 0, 'a'},
      {"enter is another key", "C", "", 13, true, 0, 13},
      {"a superscript is no digit", "C", "", 0xB2, true, 0, 0xB2},
      {"no key", "C", "", 0, true, 0, 0},
      {"the last code", "C", "", 255, true, 0, 255},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const test::LocaleGuard locale(row.locale);
    const host::SimpleTextBox box{std::string(row.boxText)};
    std::int16_t key = row.key;
    EXPECT_EQ(ToNumber(key, box, row.allowsDecimals), row.result);
    EXPECT_EQ(key, row.keyAfter);
  }
}

TEST(UEspecial, SwallowsWhatBreaksStatementsAndRecordLines) {
  const host::SimpleTextBox box;
  const std::string_view swallowed = "'\"\\;\xA8";
  int passed = 0;
  for (std::int16_t code = 0; code <= 255; ++code) {
    SCOPED_TRACE(code);
    const bool isHarmless = code == 8 || code == 9 || code == 13;
    const bool isControl =
        code < 32 || code == 0x7F || code == 0x81 || code == 0x8D || code == 0x8F || code == 0x90 || code == 0x9D;
    const bool passes = isHarmless || (!isControl && swallowed.find(static_cast<char>(code)) == std::string_view::npos);
    const std::int16_t expected = passes ? code : std::int16_t{0};
    std::int16_t key = code;
    EXPECT_EQ(UEspecial(key, box), expected);
    EXPECT_EQ(key, expected);
    passed += passes ? 1 : 0;
  }
  EXPECT_EQ(passed, 256 - 32 - 6 - 5 + 3);
}

TEST(Keystrokes, RefuseCodesOutsideTheCodePage) {
  const host::SimpleTextBox box;
  for (const std::int16_t code : {std::int16_t{-1}, std::int16_t{256}, std::int16_t{32767}}) {
    std::int16_t key = code;
    EXPECT_EQ(test::errorNumber([&] { ToNumber(key, box); }), 5);
    EXPECT_EQ(test::errorNumber([&] { UEspecial(key, box); }), 5);
    EXPECT_EQ(key, code);
  }
}

}  // namespace
}  // namespace qvn::text
