#include "qvn/text/split.h"

#include <cstddef>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/internal/folded_search.h"
#include "qvn/text/internal/stray_bytes.h"

namespace qvn::text {
namespace {

void store(std::string& item, std::string_view text) { item.assign(text); }
void store(Variant& item, std::string_view text) { item.assignText(text); }

// Calls `take` with every piece of `text` that a separator closes.
template <typename Take>
void forEachPiece(std::string_view text, std::string_view separator, Take take) {
  std::size_t done = 0;
  for (std::size_t at = 0; (at = internal::findBytes(text, separator, done)) != std::string_view::npos;
       done = at + separator.size()) {
    take(text.substr(done, at - done));
  }
}

template <typename Item>
std::int32_t split(std::string_view text, std::string_view separator, std::vector<Item>& items) {
  if (items.empty()) items.emplace_back();
  std::size_t count = 0;
  const auto take = [&](std::string_view piece) {
    if (++count == items.size()) items.emplace_back();
    store(items[count], piece);
  };
  if (utf8::isValid(separator)) {
    forEachPiece(text, separator, take);
  } else {
    forEachPiece(internal::spellStrayBytes(text), internal::spellStrayBytes(separator),
                 [&](std::string_view piece) { take(internal::restoreStrayBytes(piece)); });
  }
  items.resize(count + 1);
  return static_cast<std::int32_t>(count);
}

void requireSeparator(std::string_view separator) {
  if (separator.empty()) throw RuntimeError(error_number::kInvalidCall, "El separador está vacío");
}

}  // namespace

std::int32_t Separador(std::string_view Separator, std::string& strSearch, std::vector<std::string>& List) {
  if (Separator.empty() && strSearch.empty()) return 0;
  requireSeparator(Separator);
  const std::string separator(Separator);  // the argument may be a part of strSearch
  strSearch.append(separator);
  return split(strSearch, separator, List);
}

std::int32_t DataSeparator(const Variant& Separator, Variant& strSearch, std::vector<Variant>& List) {
  const std::string separator = Separator.toText();
  std::string text = strSearch.toText();
  if (separator.empty() && text.empty()) {
    strSearch = std::move(text);
    return 0;
  }
  requireSeparator(separator);
  strSearch = text.append(separator);
  return split(text, separator, List);
}

}  // namespace qvn::text
