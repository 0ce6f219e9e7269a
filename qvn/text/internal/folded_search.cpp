#include "qvn/text/internal/folded_search.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/text/internal/stray_bytes.h"

namespace qvn::text::internal {
namespace {

// A long text is upper-cased a window at a time, the first one small, so that an early occurrence is found early.
constexpr std::size_t kFirstWindow = std::size_t{1} << 10U;
constexpr std::size_t kLargestWindow = std::size_t{1} << 16U;

// Upper-casing keeps the length of every character in bytes, so offsets in the window are offsets in the text. A
// character that the end of a window cuts can only end an occurrence that the next window, which overlaps this one,
// holds whole.
std::size_t findInWindows(std::string_view text, std::string_view upperSearched) {
  std::string window;
  // Windows of several times the searched text keep the part that is upper-cased twice small.
  const std::size_t smallest = upperSearched.size() * 4;
  std::size_t start = 0;
  for (std::size_t size = kFirstWindow;; size = std::min(size * 4, kLargestWindow)) {
    const std::size_t end = std::min(start + std::max(size, smallest), text.size());
    upperCaseInto(text.substr(start, end - start), window);
    const std::size_t found = findBytes(window, upperSearched);
    if (found != std::string_view::npos) return start + found;
    if (end == text.size()) return std::string_view::npos;
    start = end - upperSearched.size() + 1;
  }
}

using Find = std::size_t (*)(std::string_view text, std::string_view searched);

std::size_t findSpelled(std::string_view text, std::string_view searched, Find find) {
  const std::string spelled = spellStrayBytes(text);
  const std::size_t found = find(spelled, spellStrayBytes(searched));
  if (found == std::string_view::npos) return found;
  return restoreStrayBytes(std::string_view(spelled).substr(0, found)).size();
}

std::size_t findUpperCasedBytes(std::string_view text, std::string_view searched) {
  return findInWindows(text, upperCase(searched));
}

std::size_t findFirstBytes(std::string_view text, std::string_view searched) { return findBytes(text, searched); }

}  // namespace

std::size_t findBytes(std::string_view text, std::string_view searched, std::size_t from) {
  if (from >= text.size()) return std::string_view::npos;
  if (searched.size() == 1) return text.find(searched.front(), from);
  // memmem, because string_view::find takes time proportional to the product of both lengths in bad cases.
  const void* found = memmem(text.data() + from, text.size() - from, searched.data(), searched.size());
  if (found == nullptr) return std::string_view::npos;
  return static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
}

std::size_t findExact(std::string_view text, std::string_view searched) {
  return utf8::isValid(searched) ? findBytes(text, searched) : findSpelled(text, searched, findFirstBytes);
}

std::size_t findUpperCased(std::string_view text, std::string_view searched) {
  return utf8::isValid(searched) ? findUpperCasedBytes(text, searched)
                                 : findSpelled(text, searched, findUpperCasedBytes);
}

}  // namespace qvn::text::internal
