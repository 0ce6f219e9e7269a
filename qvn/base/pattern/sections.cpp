#include "qvn/base/pattern/sections.h"

#include "qvn/base/pattern/date_code.h"
#include "qvn/base/pattern/symbol_reader.h"

namespace qvn::pattern {
namespace {

// What the front of `text`, an unquoted place of a pattern, makes of the pattern.
PatternKind kindAt(std::string_view text) noexcept {
  switch (text.front()) {
    case '0':
    case '#':
      return PatternKind::Number;
    case '@':
    case '&':
    case '<':
    case '>':
    case '!':
      return PatternKind::Text;
    default:
      return matchDateCode(text) != nullptr ? PatternKind::Date : PatternKind::Literal;
  }
}

}  // namespace

Pattern readPattern(std::string_view text) noexcept {
  Pattern pattern;
  SymbolReader reader(text);
  std::size_t start = 0;
  for (std::size_t offset = 0; const auto symbol = reader.next(); offset = reader.offset()) {
    if (symbol->code() == ';') {
      pattern.sections[pattern.sectionCount - 1] = text.substr(start, offset - start);
      if (pattern.sectionCount == kMostSections) return pattern;
      ++pattern.sectionCount;
      start = reader.offset();
    } else if (pattern.kind == PatternKind::Literal) {
      pattern.kind = kindAt(text.substr(offset));
    }
  }
  pattern.sections[pattern.sectionCount - 1] = text.substr(start);
  return pattern;
}

}  // namespace qvn::pattern
