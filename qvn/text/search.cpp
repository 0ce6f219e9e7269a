#include "qvn/text/search.h"

#include <limits>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/internal/folded_search.h"
#include "qvn/text/internal/variant_text.h"

namespace qvn::text {
namespace {

std::int32_t positionOf(std::string_view text, std::size_t offset) {
  if (offset == std::string_view::npos) return 0;
  const std::size_t before = utf8::length(text.substr(0, offset));
  if (before >= std::numeric_limits<std::int32_t>::max()) throw RuntimeError(error_number::kOverflow);
  return static_cast<std::int32_t>(before + 1);
}

}  // namespace

std::int32_t At(const Variant& strSearch, std::string_view strText) {
  if (strSearch.isNull()) return 0;
  const internal::VariantText searched(strSearch);
  if (utf8::length(searched.view()) != 1) return 0;
  return positionOf(strText, internal::findExact(strText, searched.view()));
}

std::int32_t clAt(const Variant& strSearch, std::string_view strText) {
  const internal::VariantText searched(strSearch);
  return positionOf(strText, findIgnoringCase(searched.view(), strText));
}

std::size_t findIgnoringCase(std::string_view searched, std::string_view text) {
  if (searched.empty()) return text.empty() ? std::string_view::npos : 0;
  return internal::findUpperCased(text, searched);
}

}  // namespace qvn::text
