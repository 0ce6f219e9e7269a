#include "qvn/base/code_page_1252.h"

#include <gtest/gtest.h>

#include "qvn/base/utf8.h"

namespace qvn::cp1252 {
namespace {

TEST(CodePage1252, AllCodesGoThereAndBack) {
  std::string codes;
  for (int code = 0; code < 256; ++code) codes.push_back(static_cast<char>(code));
  const std::string text = decode(codes);
  EXPECT_TRUE(utf8::isValid(text));
  EXPECT_EQ(utf8::length(text), 256U);
  EXPECT_EQ(encode(text), codes);
}

// Source: the Unicode Consortium's CP1252.TXT.
TEST(CodePage1252, KnowsThePublishedCodes) {
  // clang-format off
  const std::pair<int, std::string_view> rows[] = {
      {0x41, "A"}, {0x7F, "\x7F"}, {0x80, "€"}, {0x82, "‚"}, {0x83, "ƒ"}, {0x85, "…"}, {0x88, "ˆ"}, {0x89, "‰"},
      {0x8A, "Š"}, {0x8C, "Œ"}, {0x8E, "Ž"}, {0x91, "‘"}, {0x92, "’"}, {0x95, "•"}, {0x97, "—"}, {0x98, "˜"},
      {0x99, "™"}, {0x9A, "š"}, {0x9C, "œ"}, {0x9E, "ž"}, {0x9F, "Ÿ"}, {0xA0, "\u00A0"}, {0xA8, "¨"}, {0xBF, "¿"},
      {0xD1, "Ñ"}, {0xF1, "ñ"}, {0xFF, "ÿ"}, {0x81, "\u0081"}, {0x9D, "\u009D"}};
  // clang-format on
  for (const auto& row : rows) {
    const std::string code(1, static_cast<char>(row.first));
    EXPECT_EQ(decode(code), row.second) << row.first;
    EXPECT_EQ(encode(row.second), code) << row.first;
  }
}

TEST(CodePage1252, WritesAQuestionMarkForWhatItLacks) {
  EXPECT_EQ(encode("a\u0080\u0100Ω\U0001F600ñ\xFF\xC3"), "a????\xF1??");
}

}  // namespace
}  // namespace qvn::cp1252
