#include "qvn/core/environment.h"

#include <algorithm>
#include <charconv>

#include "qvn/base/letter_case.h"
#include "qvn/base/utf8.h"
#include "qvn/text/padding.h"

namespace qvn::core {
namespace {

// The module name comes from a buffer of this many characters.
constexpr std::size_t kModuleNameLimit = 255;

constexpr std::string_view kDevelopmentSuffix = "VB?.EXE";  // "?" is any one character

std::size_t digitsFrom(std::string_view text, std::size_t start) {
  const std::size_t end = text.find_first_not_of("0123456789", start);
  return std::min(end, text.size()) - start;
}

}  // namespace

double osVersionOf(std::string_view release) {
  std::size_t length = digitsFrom(release, 0);
  if (length < release.size() && release[length] == '.') length += 1 + digitsFrom(release, length + 1);
  double version = 0;
  std::from_chars(release.data(), release.data() + length, version);
  return version;
}

bool isDevelopmentHost(std::string_view moduleFileName) {
  const std::string_view name = utf8::left(moduleFileName, kModuleNameLimit);
  const std::size_t length = utf8::length(name);
  const std::size_t suffixLength = kDevelopmentSuffix.size();
  if (length < suffixLength) return false;
  const std::string ending = upperCase(utf8::from(name, length - suffixLength));
  return utf8::left(ending, 2) == kDevelopmentSuffix.substr(0, 2) &&
         utf8::from(ending, 3) == kDevelopmentSuffix.substr(3);
}

std::string_view untilNul(std::string_view buffer) { return buffer.substr(0, buffer.find('\0')); }

Variant EmptySys(const Variant& value) {
  const auto* held = value.getIf<std::string>();
  const bool isBlank = held != nullptr ? text::clEmpty(*held) : text::clEmpty(value.toText());
  return isBlank ? Variant("SYS") : value;
}

bool Conectar(NetworkLinks& links) {
  const auto found = links.list();
  return found && std::ranges::any_of(*found, [](const NetworkLink& link) {
           return !link.isLoopback && link.isUp && link.isRunning && link.hasAddress;
         });
}

bool IsConnected(NetworkLinks& links, host::MessageBox& messages) {
  const auto found = links.list();
  if (!found) {
    messages.show("ERROR", 0, "");
    return false;
  }
  return std::ranges::any_of(
      *found, [](const NetworkLink& link) { return link.isPointToPoint && link.isUp && link.isRunning; });
}

}  // namespace qvn::core
