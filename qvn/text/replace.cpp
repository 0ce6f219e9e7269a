#include "qvn/text/replace.h"

#include <algorithm>
#include <cstddef>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/internal/folded_search.h"
#include "qvn/text/internal/repeated_replacement.h"
#include "qvn/text/internal/stray_bytes.h"
#include "qvn/text/internal/text_space.h"
#include "qvn/text/search.h"

namespace qvn::text {
namespace {

constexpr auto kNowhere = std::string_view::npos;

// Refuses a result past the limit before any of it is written.
void requireSpaceForReplaced(std::string_view text, std::string_view searched, std::string_view replacement) {
  const std::size_t mostOccurrences = text.size() / searched.size();
  if (mostOccurrences <= (internal::kMostTextBytes - text.size()) / std::max<std::size_t>(replacement.size(), 1))
    return;
  std::size_t kept = text.size();
  std::size_t inserted = 0;
  for (std::size_t at = 0; (at = internal::findBytes(text, searched, at)) != kNowhere; at += searched.size()) {
    kept -= searched.size();
    inserted += replacement.size();
  }
  internal::requireTextSpace(kept + inserted);
}

std::string replaceBytes(std::string_view text, std::string_view searched, std::string_view replacement) {
  internal::requireTextSpace(text.size());
  requireSpaceForReplaced(text, searched, replacement);
  std::string replaced;
  replaced.reserve(text.size());
  std::size_t done = 0;
  for (std::size_t at = 0; (at = internal::findBytes(text, searched, done)) != kNowhere; done = at + searched.size()) {
    replaced.append(text, done, at - done).append(replacement);
  }
  replaced.append(text, done);
  return replaced;
}

std::string replaceEach(std::string_view text, std::string_view searched, std::string_view replacement) {
  if (text.empty()) return {};
  if (searched.empty()) throw RuntimeError(error_number::kInvalidCall);
  if (utf8::isValid(searched)) return replaceBytes(text, searched, replacement);
  return internal::restoreStrayBytes(replaceBytes(internal::spellStrayBytes(text), internal::spellStrayBytes(searched),
                                                  internal::spellStrayBytes(replacement)));
}

}  // namespace

std::string Inserta(std::string_view cInserta, std::string_view cBusca, std::string_view cTarget) {
  const std::size_t at = findIgnoringCase(cBusca, cTarget);
  if (at == kNowhere) return std::string(cTarget);
  std::string result;
  result.reserve(cTarget.size() - cBusca.size() + cInserta.size());
  result.append(cTarget, 0, at).append(cInserta).append(cTarget, at + cBusca.size());
  return result;
}

std::string Cambia(std::string_view cInserta, std::string_view cBusca, std::string& cTarget) {
  if (findIgnoringCase(cBusca, cTarget) == kNowhere) return cTarget;
  if (cBusca.empty()) throw RuntimeError(error_number::kInvalidCall, "El texto que se busca está vacío");
  if (findIgnoringCase(cBusca, cInserta) != kNowhere) {
    throw RuntimeError(error_number::kInvalidCall, "El texto que se inserta contiene el texto que se busca");
  }
  cTarget = internal::replaceUntilGone(cInserta, cBusca, cTarget);
  return cTarget;
}

Variant ReplaceString(std::string_view strSearch, std::string_view strSearchFor, std::string_view strReplaceWith) {
  try {
    return replaceEach(strSearch, strSearchFor, strReplaceWith);
  } catch (const RuntimeError&) {
    return {};  // Hosts tell failure by the Empty result.
  }
}

}  // namespace qvn::text
