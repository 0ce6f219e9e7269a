#include "qvn/exports/cell_text.h"

#include <algorithm>

#include "qvn/base/utf8.h"
#include "qvn/exports/cell.h"

namespace qvn::exports {
namespace {

constexpr std::string_view kEllipsis = "…";

bool isPlain(char c) { return static_cast<unsigned char>(c) >= 0x20 && static_cast<unsigned char>(c) < 0x7F; }

// Characters of XML 1.0 but "\r", which a reader turns into "\n".
bool isKept(char32_t c) {
  if (c < 0x20) return c == '\t' || c == '\n';
  return c != 0x7F && (c < 0xFFFE || c > 0xFFFF);
}

std::size_t unitsOf(char32_t c) { return c > 0xFFFF ? 2 : 1; }

// Makes room for the ellipsis.
void endWithEllipsis(std::string& text) {
  std::size_t last = text.size() - 1;
  while (last > 0 && (static_cast<unsigned char>(text[last]) & 0xC0U) == 0x80U) --last;
  text.resize(last);
  text.append(kEllipsis);
}

bool appendCharacters(std::string& cell, std::string_view text) {
  std::size_t units = 0;
  for (std::size_t at = 0; at < text.size();) {
    const utf8::Decoded next = utf8::decode(text, at);
    char32_t character = next.codePoint;
    at += next.length;
    if (character == '\r') {
      if (at < text.size() && text[at] == '\n') ++at;
      character = '\n';
    }
    if (!isKept(character)) character = utf8::kReplacement;
    units += unitsOf(character);
    if (units > kMostTextUnits) {
      endWithEllipsis(cell);
      return true;
    }
    utf8::append(cell, character);
  }
  return false;
}

}  // namespace

bool assignCellText(std::string& cell, std::string_view text) {
  if (text.size() <= kMostTextUnits && std::ranges::all_of(text, isPlain)) {
    cell.assign(text);
    return false;
  }
  cell.clear();
  return appendCharacters(cell, text);
}

bool assignCellBytes(std::string& cell, std::string_view bytes) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  cell.assign("0x");
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (cell.size() + 2 > kMostTextUnits) {
      endWithEllipsis(cell);
      return true;
    }
    cell.push_back(kDigits[byte >> 4U]);
    cell.push_back(kDigits[byte & 0xFU]);
  }
  return false;
}

}  // namespace qvn::exports
