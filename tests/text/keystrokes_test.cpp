#include "qvn/text/keystrokes.h"

#include <gtest/gtest.h>

#include <string_view>

#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

TEST(ToNumber, FiltersNumericInput) {
  struct Row {
    const char* locale;
    std::string_view boxText;
    std::int16_t key;
    bool allowsDecimals;
    std::int16_t result, keyAfter;
  };
  // clang-format off
  static constexpr Row kRows[] = {
      {"C", "1.5", '0', true, '0', '0'}, {"C", "", '9', false, '9', '9'},
      // the separator: the first one, a second one, where decimals are not allowed
      {"es_MX.UTF-8", "15", '.', true, '.', '.'}, {"es_MX.UTF-8", "1.5", '.', true, 0, 0},
      {"es_MX.UTF-8", "15", '.', false, 0, 0},
      {"de_DE.UTF-8", "1.5", ',', true, ',', ','}, {"de_DE.UTF-8", "1,5", ',', true, 0, 0},
      // the other separator is just another key
      {"es_MX.UTF-8", "15", ',', true, 0, ','}, {"es_ES.UTF-8", "15", '.', true, 0, '.'},
      {"C", "15", '-', true, '-', '-'}, {"C", "1-5", '-', true, 0, 0}, {"C", "", 8, true, 8, 8},
      // other keys leave the caller's; a superscript is no digit
      {"C", "", 'a', true, 0, 'a'}, {"C", "", 13, true, 0, 13}, {"C", "", 0xB2, true, 0, 0xB2},
  };
  // clang-format on
  for (const Row& row : kRows) {
    SCOPED_TRACE(testing::Message() << row.locale << ", key " << row.key << " in " << row.boxText);
    const test::LocaleGuard locale(row.locale);
    std::int16_t key = row.key;
    EXPECT_EQ(ToNumber(key, host::SimpleTextBox{std::string(row.boxText)}, row.allowsDecimals), row.result);
    EXPECT_EQ(key, row.keyAfter);
  }
}

TEST(UEspecial, SwallowsWhatBreaksStatementsAndRecordLines) {
  std::string swallowed = "'\"\\;\xA8\x7F\x81\x8D\x8F\x90\x9D";
  for (char control = 0; control < ' '; ++control) {
    if (control != '\b' && control != '\t' && control != '\r') swallowed += control;
  }
  for (std::int16_t code = 0; code <= 255; ++code) {
    const bool passes = swallowed.find(static_cast<char>(code)) == std::string::npos;
    std::int16_t key = code;
    EXPECT_EQ(UEspecial(key, host::SimpleTextBox()), passes ? code : 0) << code;
    EXPECT_EQ(key, passes ? code : 0);
  }
}

TEST(Keystrokes, RefuseCodesOutsideTheCodePage) {
  const host::SimpleTextBox box;
  for (std::int16_t key : {std::int16_t{-1}, std::int16_t{256}, std::int16_t{32767}}) {
    EXPECT_EQ(test::errorNumber([&] { ToNumber(key, box); }), 5);
    EXPECT_EQ(test::errorNumber([&] { UEspecial(key, box); }), 5);
  }
}

}  // namespace
}  // namespace qvn::text
