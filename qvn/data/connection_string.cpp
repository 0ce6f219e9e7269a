#include "qvn/data/connection_string.h"

#include <algorithm>
#include <array>
#include <ranges>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/data/provider_error.h"

namespace qvn::data {
namespace {

[[noreturn]] void refuse(const char* reason) {
  throw ProviderError(provider_number::kBadConnectionString,
                      std::string("La cadena de conexión no es válida: ") + reason +
                          ". Se espera «nombre=valor;nombre=valor;…», con el valor entre comillas si lleva «;»");
}

// One part as it stands in the text, still with its quotes.
struct RawPart {
  std::string_view name;  // trimmed; the whole part when there is no "="
  std::string_view value;
  bool hasValue;
};

// Where the quoted value that opens at `start` ends: the offset after its closing mark, npos when it is not closed.
std::size_t skipQuoted(std::string_view text, std::size_t start) {
  const char close = text[start] == '{' ? '}' : text[start];
  for (std::size_t i = start + 1; i < text.size(); ++i) {
    if (text[i] != close) continue;
    if (i + 1 < text.size() && text[i + 1] == close) {
      ++i;
    } else {
      return i + 1;
    }
  }
  return std::string_view::npos;
}

bool opensQuote(char c) { return c == '"' || c == '\'' || c == '{'; }

// Names whose values nobody may see.
constexpr auto kSecretNames = std::to_array<std::string_view>({"PWD", "PASSWORD", "DATABASE PASSWORD"});

bool isSecret(std::string_view name) {
  const std::string upper = upperCase(name);
  return std::ranges::any_of(kSecretNames, [&](std::string_view word) { return upper.ends_with(word); });
}

// Whether a plain value goes on into a password, as in "Provider=MySQL PWD=x" where a ";" was forgotten.
bool runsIntoPassword(std::string_view value) {
  const std::string upper = upperCase(value);
  for (const std::string_view word : kSecretNames) {
    for (std::size_t at = upper.find(word); at != std::string::npos; at = upper.find(word, at + 1)) {
      const std::size_t sign = upper.find_first_not_of(' ', at + word.size());
      if (sign != std::string::npos && upper[sign] == '=') return true;
    }
  }
  return false;
}

// Takes the next part and the ";" after it off the front of `text`.
RawPart takePart(std::string_view& text) {
  const std::size_t stop = text.find_first_of(";=");
  if (stop == std::string_view::npos || text[stop] == ';') {
    const RawPart bare{utf8::trimBlanks(text.substr(0, stop)), {}, false};
    text.remove_prefix(stop == std::string_view::npos ? text.size() : stop + 1);
    return bare;
  }
  const std::string_view name = utf8::trimBlanks(text.substr(0, stop));
  std::size_t start = text.find_first_not_of(' ', stop + 1);
  if (start == std::string_view::npos) start = text.size();
  std::size_t end = std::min(text.find(';', start), text.size());
  if (start < text.size() && opensQuote(text[start])) {
    const std::size_t after = skipQuoted(text, start);
    if (after == std::string_view::npos) refuse("falta cerrar unas comillas o una llave");
    end = std::min(text.find(';', after), text.size());
    if (!utf8::trimBlanks(text.substr(after, end - after)).empty())
      refuse("hay texto después de un valor entre comillas");
  }
  const std::string_view value = utf8::trimBlanks(text.substr(start, end - start));
  const bool isPlain = value.empty() || !opensQuote(value.front());
  if (isPlain && !isSecret(name) && runsIntoPassword(value)) refuse("falta un «;» antes de la contraseña");
  text.remove_prefix(std::min(end + 1, text.size()));
  return {name, value, true};
}

std::string unquote(std::string_view value) {
  if (value.empty() || !opensQuote(value.front())) return std::string(value);
  const char close = value.back();
  std::string plain;
  plain.reserve(value.size());
  for (std::size_t i = 1; i + 1 < value.size(); ++i) {
    plain.push_back(value[i]);
    if (value[i] == close && i + 2 < value.size() && value[i + 1] == close) ++i;
  }
  return plain;
}

std::string hideFromFirstSecretWord(std::string_view text) {
  const std::string upper = upperCase(text);
  std::size_t cut = std::string::npos;
  for (const std::string_view word : kSecretNames) cut = std::min(cut, upper.find(word));
  if (cut == std::string::npos) return std::string(text);
  return std::string(text.substr(0, cut)) + "***";
}

}  // namespace

ConnectionString::ConnectionString(std::string_view text) {
  bool isFirst = true;
  while (!text.empty()) {
    const RawPart part = takePart(text);
    if (part.hasValue) {
      if (part.name.empty()) refuse("un valor no tiene nombre");
      parts_.push_back({std::string(part.name), unquote(part.value)});
    } else if (!part.name.empty()) {
      if (!isFirst) refuse("a una parte le falta el signo «=»");
      driverName_ = part.name;
    }
    isFirst = false;
  }
  if (driverName_.empty()) driverName_ = value({"PROVIDER", "DRIVER"}).value_or("");
}

std::optional<std::string> ConnectionString::value(std::initializer_list<std::string_view> names) const {
  for (const std::string_view name : names) {
    const auto found = std::find_if(parts_.rbegin(), parts_.rend(),
                                    [&](const Part& part) { return equalIgnoringCase(part.name, name); });
    if (found != parts_.rend()) return found->value;
  }
  return std::nullopt;
}

std::string withoutPassword(std::string_view text) {
  const std::string_view whole = text;
  std::string clean;
  try {
    while (!text.empty()) {
      const RawPart part = takePart(text);
      if (!clean.empty()) clean.push_back(';');
      clean.append(part.name);
      if (part.hasValue) clean.append("=").append(isSecret(part.name) ? "***" : part.value);
    }
  } catch (const ProviderError&) {
    return hideFromFirstSecretWord(whole);
  }
  return clean;
}

}  // namespace qvn::data
