#include "qvn/base/pattern/symbol_reader.h"

namespace qvn::pattern {

std::optional<Symbol> SymbolReader::next() noexcept {
  const std::string_view text = rest();
  if (text.empty()) return std::nullopt;
  if (text.front() == '"') {
    const std::size_t close = text.find('"', 1);
    const bool isClosed = close != std::string_view::npos;
    offset_ += isClosed ? close + 1 : text.size();
    return Symbol{isClosed ? text.substr(1, close - 1) : text.substr(1), true};
  }
  if (text.front() == '\\' && text.size() > 1) {
    // Of a character of several bytes the rest follows as unquoted bytes, which have no meaning either.
    offset_ += 2;
    return Symbol{text.substr(1, 1), true};
  }
  ++offset_;
  return Symbol{text.substr(0, 1), false};
}

}  // namespace qvn::pattern
