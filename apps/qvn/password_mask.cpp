#include "apps/qvn/password_mask.h"

#include <algorithm>
#include <array>

#include "qvn/base/letter_case.h"

namespace qvn::cli {
namespace {

constexpr auto kSecretNames = std::to_array<std::string_view>({"PWD", "PASSWORD"});
constexpr auto kValueEnds = std::to_array<std::string_view>({"»", "\n"});
constexpr std::string_view kMask = "***";

// Where the value begins that a secret name at `name` introduces; npos when it introduces none.
std::size_t secretValue(std::string_view upper, std::size_t name, std::size_t nameLength) {
  const std::size_t sign = upper.find_first_not_of(' ', name + nameLength);
  return sign != std::string_view::npos && upper[sign] == '=' ? sign + 1 : std::string_view::npos;
}

// The first secret value from `from` on.
std::size_t findSecret(std::string_view upper, std::size_t from) {
  std::size_t first = std::string_view::npos;
  for (const std::string_view name : kSecretNames) {
    for (std::size_t at = upper.find(name, from); at != std::string_view::npos; at = upper.find(name, at + 1)) {
      const std::size_t value = secretValue(upper, at, name.size());
      if (value == std::string_view::npos) continue;
      first = std::min(first, value);
      break;
    }
  }
  return first;
}

// A value may hold ";" in quotes that do not show here, so only one that is masked already ends before the text does.
std::size_t valueEnd(std::string_view text, std::size_t from) {
  if (text.substr(from).starts_with(kMask)) return from + kMask.size();
  std::size_t end = text.size();
  for (const std::string_view mark : kValueEnds) end = std::min(end, text.find(mark, from));
  return end;
}

}  // namespace

std::string maskPasswords(std::string_view text) {
  // Letters whose other case takes a different number of bytes would move the positions found in it.
  std::string upper(text);
  std::ranges::transform(upper, upper.begin(),
                         [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
  std::string masked;
  std::size_t done = 0;
  for (std::size_t secret = findSecret(upper, 0); secret != std::string_view::npos; secret = findSecret(upper, done)) {
    masked.append(text.substr(done, secret - done)).append(kMask);
    done = valueEnd(text, secret);
  }
  return masked.append(text.substr(done));
}

}  // namespace qvn::cli
