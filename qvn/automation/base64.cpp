#include "qvn/automation/base64.h"

#include <array>
#include <cstdint>

namespace qvn::automation {
namespace {

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
static_assert(kDigits.size() == 64);

constexpr std::array<std::int8_t, 256> kValues = [] {
  std::array<std::int8_t, 256> values{};
  values.fill(-1);
  for (std::size_t i = 0; i < kDigits.size(); ++i) {
    values[static_cast<unsigned char>(kDigits[i])] = static_cast<std::int8_t>(i);
  }
  return values;
}();

std::uint32_t byteAt(std::string_view bytes, std::size_t i) {
  return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
}

}  // namespace

std::string toBase64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::uint32_t group = byteAt(bytes, i) << 16U | byteAt(bytes, i + 1) << 8U | byteAt(bytes, i + 2);
    for (const unsigned shift : {18U, 12U, 6U, 0U}) text.push_back(kDigits[group >> shift & 63U]);
  }
  const std::size_t padding = (3 - bytes.size() % 3) % 3;
  text.replace(text.size() - padding, padding, padding, '=');
  return text;
}

std::optional<std::string> fromBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  const std::size_t padding = text.ends_with("==") ? 2 : text.ends_with('=') ? 1 : 0;
  text.remove_suffix(padding);
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3 + 2);
  std::uint32_t group = 0;
  unsigned bits = 0;
  for (const char c : text) {
    const std::int8_t value = kValues[static_cast<unsigned char>(c)];
    if (value < 0) return std::nullopt;
    group = group << 6U | static_cast<std::uint32_t>(value);
    bits += 6;
    if (bits >= 8) {
      bits -= 8;
      bytes.push_back(static_cast<char>(group >> bits & 0xFFU));
    }
  }
  return bytes;
}

}  // namespace qvn::automation
