#include "apps/qvn/terminal_text.h"

#include <gtest/gtest.h>

namespace qvn::cli {
namespace {

using namespace std::string_view_literals;

TEST(SafeText, ShowsWhatATerminalWouldObey) {
  struct Row {
    const char* why;
    std::string_view text;
    std::string_view safe;
  };
  static constexpr Row kRows[] = {
      {"letters stay", "Ñandú 日本 €", "Ñandú 日本 €"},
      {"line ends and tabs", "a\r\n\tb", "a\\r\\n\\tb"},
      {"escape sequences", "\x1B[31mrojo", "\\x1B[31mrojo"},
      {"NUL and DEL", "a\0b\x7F"sv, "a\\x00b\\x7F"},
      {"C1, which some terminals obey",
       "\xC2\x9B"
       "31m",
       "\\x9B31m"},
      {"bytes that are no UTF-8", "a\xF1o\xC3", "a\\xF1o\\xC3"},
      {"the direction of writing",
       "a\xE2\x80\xAE"
       "b",
       "a\\u202Eb"},
      {"line separators",
       "a\xE2\x80\xA8"
       "b",
       "a\\u2028b"},
      {"a narrow blank is no control",
       "1\xE2\x80\xAF"
       "234",
       "1\xE2\x80\xAF"
       "234"},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(safeText(row.text), row.safe);
  }
}

TEST(SafeText, CutsByColumns) {
  struct Row {
    const char* why;
    std::string_view text;
    std::size_t widest;
    std::string_view safe;
  };
  static constexpr Row kRows[] = {
      {"exactly as wide", "ñandú", 5, "ñandú"},
      {"one column too many", "ñandús", 5, "ñand…"},
      {"a wide character is not halved", "日本語", 4, "日…"},
      {"a mark stays on its letter", "cafe\xCC\x81s!", 5, "cafe\xCC\x81…"},
      {"neither is an escape", "ab\n\n", 5, "ab\\n…"},
      {"no room but for the ellipsis", "abc", 1, "…"},
      {"nothing to cut", "", 1, ""},
  };
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    const std::string safe = safeText(row.text, row.widest);
    EXPECT_EQ(safe, row.safe);
    EXPECT_LE(displayWidth(safe), row.widest);
  }
}

}  // namespace
}  // namespace qvn::cli
