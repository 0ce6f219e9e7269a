#include "qvn/exports/xlsxwriter/escaped_text.h"

#include <algorithm>

namespace qvn::exports::xlsxwriter {
namespace {

constexpr std::string_view kBegin = "_x";
constexpr std::size_t kEscapeSize = 7;  // "_xHHHH_"

bool isHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

// Where the first escape from `from` on begins.
std::size_t findEscape(std::string_view text, std::size_t from) {
  for (std::size_t at = text.find(kBegin, from); at != std::string_view::npos; at = text.find(kBegin, at + 1)) {
    const std::string_view found = text.substr(at, kEscapeSize);
    if (found.size() == kEscapeSize && found.back() == '_' && std::ranges::all_of(found.substr(2, 4), isHexDigit)) {
      return at;
    }
  }
  return std::string_view::npos;
}

}  // namespace

bool needsEscape(std::string_view text) { return findEscape(text, 0) != std::string_view::npos; }

std::string escapedText(std::string_view text) {
  std::string escaped;
  std::size_t done = 0;
  for (std::size_t at = findEscape(text, 0); at != std::string_view::npos; at = findEscape(text, at + 1)) {
    escaped.append(text.substr(done, at - done)).append("_x005F");
    done = at;
  }
  return escaped.append(text.substr(done));
}

}  // namespace qvn::exports::xlsxwriter
