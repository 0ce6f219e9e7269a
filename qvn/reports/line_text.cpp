#include "qvn/reports/line_text.h"

#include <algorithm>

#include "qvn/base/utf8.h"

namespace qvn::reports {
namespace {

constexpr std::string_view kEllipsis = "…";

bool isPlain(char c) { return static_cast<unsigned char>(c) >= 0x20 && static_cast<unsigned char>(c) < 0x7F; }

// Control characters of both sets, and the separators of lines and paragraphs.
bool breaksLines(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029; }

}  // namespace

std::string oneLine(std::string_view text) {
  if (std::ranges::all_of(text, isPlain)) return std::string(text);
  std::string line;
  for (std::size_t at = 0; at < text.size();) {
    const utf8::Decoded next = utf8::decode(text, at);
    utf8::append(line, breaksLines(next.codePoint) ? U' ' : next.codePoint);
    // The two characters of one line end are one blank.
    at += text.substr(at).starts_with("\r\n") ? 2 : next.length;
  }
  return line;
}

std::string cutText(std::string_view text, std::size_t width) {
  if (utf8::length(text) <= width) return std::string(text);
  if (width == 0) return {};
  return std::string(utf8::left(text, width - 1)).append(kEllipsis);
}

}  // namespace qvn::reports
