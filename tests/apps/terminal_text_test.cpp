#include "apps/qvn/terminal_text.h"

#include <gtest/gtest.h>

namespace qvn::cli {
namespace {

using namespace std::string_view_literals;

TEST(SafeText, ShowsWhatATerminalWouldObeyAndCutsByColumns) {
  constexpr std::size_t kAll = 80;
  struct Row {
    const char* why;
    std::string_view text;
    std::size_t widest;
    std::string_view safe;
  };
  // clang-format off
  static constexpr Row kRows[] = {
      {"letters stay", "Ñandú 日本 €", kAll, "Ñandú 日本 €"}, {"line ends and tabs", "a\r\n\tb", kAll, "a\\r\\n\\tb"},
      {"escape sequences", "\x1B[31mrojo", kAll, "\\x1B[31mrojo"}, {"NUL and DEL", "a\0b\x7F"sv, kAll, "a\\x00b\\x7F"},
      {"C1, which some terminals obey", "\u009B31m", kAll, "\\x9B31m"},
      {"bytes that are no UTF-8", "a\xF1o\xC3", kAll, "a\\xF1o\\xC3"},
      {"the direction of writing", "a\u202Eb", kAll, "a\\u202Eb"}, {"line separators", "a\u2028b", kAll, "a\\u2028b"},
      {"a narrow blank is no control", "1\u202F234", kAll, "1\u202F234"},
      {"exactly as wide", "ñandú", 5, "ñandú"}, {"one column too many", "ñandús", 5, "ñand…"},
      {"a wide character is not halved", "日本語", 4, "日…"}, {"neither is an escape", "ab\n\n", 5, "ab\\n…"},
      {"a mark stays on its letter", "cafe\u0301s!", 5, "cafe\u0301…"},
      {"no room but for the ellipsis", "abc", 1, "…"}, {"nothing to cut", "", 1, ""},
  };
  // clang-format on
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const std::string safe = row.widest == kAll ? safeText(row.text) : safeText(row.text, row.widest);
    EXPECT_EQ(safe, row.safe);
    EXPECT_LE(displayWidth(safe), row.widest);
  }
}

}  // namespace
}  // namespace qvn::cli
