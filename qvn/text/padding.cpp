#include "qvn/text/padding.h"

#include <cstddef>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/text/internal/text_space.h"
#include "qvn/text/internal/variant_text.h"

namespace qvn::text {
namespace {

std::size_t missingCharacters(std::string_view text, const Variant& width) {
  const std::int64_t missing = std::int64_t{width.toLong()} - static_cast<std::int64_t>(utf8::length(text));
  if (missing <= 0) return 0;
  const auto count = static_cast<std::size_t>(missing);
  internal::requireTextSpace(text.size() + count);
  return count;
}

}  // namespace

std::string PadR(const Variant& str, const Variant& nVeces) {
  const internal::VariantText text(str);
  const std::size_t blanks = missingCharacters(text.view(), nVeces);
  std::string padded;
  padded.reserve(text.view().size() + blanks);
  padded.append(text.view()).append(blanks, ' ');
  return padded;
}

std::string PadL(Variant& str, const Variant& nVeces) {
  if (!str.isText()) str = cNull(str);
  const std::string& text = *str.getIf<std::string>();
  const std::size_t blanks = missingCharacters(text, nVeces);
  std::string padded;
  padded.reserve(text.size() + blanks);
  padded.append(blanks, ' ').append(text);
  return padded;
}

std::string Replicate(std::string_view cChar, std::int32_t nVeces) {
  if (nVeces <= 0) return {};
  const auto times = static_cast<std::size_t>(nVeces);
  internal::requireTextSpace(cChar.size() * times);
  if (cChar.size() == 1) return std::string(times, cChar.front());
  std::string repeated;
  repeated.reserve(cChar.size() * times);
  for (std::size_t i = 0; i < times && !cChar.empty(); ++i) repeated.append(cChar);
  return repeated;
}

std::string strCero(std::int32_t nNumero, std::int16_t nCeros) {
  const std::string digits = std::to_string(nNumero);
  const std::int64_t zeros = std::int64_t{nCeros} - static_cast<std::int64_t>(digits.size());
  // Hosts see this error through the amounts in words, whose cents may round to 100.
  if (zeros < 0) throw RuntimeError(error_number::kInvalidCall);
  return std::string(static_cast<std::size_t>(zeros), '0') + digits;
}

bool clEmpty(std::string_view cDato) { return utf8::trimBlanks(cDato).empty(); }

std::string cNull(const Variant& uDato) { return uDato.isNull() ? std::string() : uDato.toText(); }

}  // namespace qvn::text
