#include "qvn/devices/wide_text.h"

#include <cstddef>

#include "qvn/base/utf8.h"

namespace qvn::devices {
namespace {

constexpr char32_t kFirstHigh = 0xD800;
constexpr char32_t kFirstLow = 0xDC00;
constexpr char32_t kBehindLow = 0xE000;
constexpr char32_t kFirstPaired = 0x10000;

bool isHigh(char16_t unit) { return unit >= kFirstHigh && unit < kFirstLow; }
bool isLow(char16_t unit) { return unit >= kFirstLow && unit < kBehindLow; }

}  // namespace

std::u16string toWide(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const utf8::Decoded character = utf8::decode(text, i);
    i += character.length;
    if (character.codePoint < kFirstPaired) {
      wide.push_back(static_cast<char16_t>(character.codePoint));
      continue;
    }
    const char32_t paired = character.codePoint - kFirstPaired;
    wide.push_back(static_cast<char16_t>(kFirstHigh + (paired >> 10U)));
    wide.push_back(static_cast<char16_t>(kFirstLow + (paired & 0x3FFU)));
  }
  return wide;
}

std::string fromWide(std::u16string_view text) {
  std::string narrow;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1])) {
      utf8::append(narrow, kFirstPaired + ((text[i] - kFirstHigh) << 10U) + (text[i + 1] - kFirstLow));
      ++i;
    } else {
      const bool isAlone = isHigh(text[i]) || isLow(text[i]);
      utf8::append(narrow, isAlone ? utf8::kReplacement : char32_t{text[i]});
    }
  }
  return narrow;
}

}  // namespace qvn::devices
