#include "apps/qvn/terminal_text.h"

#include <algorithm>

#include "apps/qvn/character_width.h"
#include "qvn/base/readable_text.h"
#include "qvn/base/utf8.h"

namespace qvn::cli {
namespace {

constexpr std::string_view kEllipsis = "…";

}  // namespace

std::string safeText(std::string_view text, std::size_t widest) {
  std::string safe;
  safe.reserve(std::min(text.size(), widest));
  std::size_t width = 0;
  std::size_t cut = 0;  // bytes of `safe` that leave a column free for the ellipsis
  for (std::size_t offset = 0; offset < text.size();) {
    const utf8::Decoded character = utf8::decode(text, offset);
    const std::string shown = escapedForm(character, static_cast<unsigned char>(text[offset]));
    if (shown.empty()) {
      safe.append(text.substr(offset, character.length));
      width += static_cast<std::size_t>(characterWidth(character.codePoint));
    } else {
      safe.append(shown);
      width += shown.size();
    }
    if (width > widest) return safe.substr(0, cut).append(kEllipsis);
    if (width < widest) cut = safe.size();
    offset += character.length;
  }
  return safe;
}

std::size_t displayWidth(std::string_view safe) noexcept {
  if (utf8::isAscii(safe)) return safe.size();
  std::size_t width = 0;
  for (std::size_t offset = 0; offset < safe.size();) {
    const utf8::Decoded character = utf8::decode(safe, offset);
    width += static_cast<std::size_t>(characterWidth(character.codePoint));
    offset += character.length;
  }
  return width;
}

}  // namespace qvn::cli
