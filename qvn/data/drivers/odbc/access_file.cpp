#include "qvn/data/drivers/odbc/access_file.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <numeric>

#include "qvn/base/code_page_1252.h"
#include "qvn/base/utf8.h"
#include "qvn/data/drivers/odbc/odbc_error.h"

namespace qvn::data::odbc {
namespace {

constexpr std::size_t kFormatAt = 0x14;
constexpr std::size_t kMaskedAt = 0x18;
constexpr std::size_t kMaskedSize = 126;
constexpr std::size_t kPasswordAt = 0x42;
constexpr std::size_t kDateAt = 0x72;
constexpr std::array<std::uint8_t, 4> kMaskKey = {0xC7, 0xDA, 0x39, 0x6B};
constexpr std::size_t kOldPasswordSize = 20;     // bytes of code page 1252
constexpr std::size_t kPasswordCharacters = 20;  // of UTF-16, from the second format on
// What the first format lays over its password besides.
constexpr std::array<std::uint8_t, kOldPasswordSize> kOldMask = {0x86, 0xFB, 0xEC, 0x37, 0x5D, 0x44, 0x9C,
                                                                 0xFA, 0xC6, 0x5E, 0x28, 0xE6, 0x13, 0xB6,
                                                                 0x8A, 0x60, 0x54, 0x94, 0x7B, 0x36};

// The stream cipher RC4, which is its own inverse.
void applyCipher(std::string& bytes, std::size_t from, std::size_t size) {
  std::array<std::uint8_t, 256> state{};
  std::iota(state.begin(), state.end(), std::uint8_t{0});
  std::uint8_t j = 0;
  for (std::size_t i = 0; i < state.size(); ++i) {
    j = static_cast<std::uint8_t>(j + state[i] + kMaskKey[i % kMaskKey.size()]);
    std::swap(state[i], state[j]);
  }
  std::uint8_t i = 0;
  j = 0;
  for (std::size_t at = from; at < from + size; ++at) {
    j = static_cast<std::uint8_t>(j + state[++i]);
    std::swap(state[i], state[j]);
    const std::uint8_t key = state[static_cast<std::uint8_t>(state[i] + state[j])];
    bytes[at] = static_cast<char>(static_cast<std::uint8_t>(bytes[at]) ^ key);
  }
}

std::uint8_t byteAt(std::string_view text, std::size_t at) { return static_cast<std::uint8_t>(text[at]); }

std::string oldPassword(std::string_view page) {
  std::string bytes;
  for (std::size_t i = 0; i < kOldPasswordSize; ++i) {
    const auto byte = static_cast<char>(byteAt(page, kPasswordAt + i) ^ kOldMask[i]);
    if (byte == '\0') break;
    bytes.push_back(byte);
  }
  return cp1252::decode(bytes);
}

std::string widePassword(std::string_view page) {
  double created = 0;
  std::memcpy(&created, page.data() + kDateAt, sizeof created);
  const bool isDate = created > -1e9 && created < 1e9;
  const auto mask = static_cast<std::uint32_t>(isDate ? static_cast<std::int32_t>(created) : 0);
  std::string password;
  for (std::size_t i = 0; i < kPasswordCharacters; ++i) {
    const std::size_t at = kPasswordAt + 2 * i;
    const auto stored = static_cast<std::uint32_t>(byteAt(page, at) | byteAt(page, at + 1) << 8U);
    const std::uint32_t character = stored ^ (i % 2 == 0 ? mask & 0xFFFFU : mask >> 16U);
    if (character == 0) break;
    utf8::append(password, character);
  }
  return password;
}

}  // namespace

std::string accessFilePassword(std::string_view page) {
  std::string plain(page.substr(0, kAccessHeaderSize));
  applyCipher(plain, kMaskedAt, kMaskedSize);
  return byteAt(plain, kFormatAt) == 0 ? oldPassword(plain) : widePassword(plain);
}

void requireAccessFile(const std::filesystem::path& file, std::string_view password) {
  const std::string shown = "No se pudo abrir la base de datos «" + file.string() + "»: ";
  std::string page(kAccessHeaderSize, '\0');
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    throw ownError(provider_number::kUnspecified, "08001", shown + "no existe o no se puede leer; revise la ruta");
  }
  stream.read(page.data(), static_cast<std::streamsize>(page.size()));
  const std::string_view mark = std::string_view(page).substr(4, 12);
  if (!stream || (mark != "Standard Jet" && mark != "Standard ACE")) {
    throw ownError(provider_number::kUnspecified, "08001", shown + "no es un archivo de Access");
  }
  const std::string stored = accessFilePassword(page);
  if (!stored.empty() && stored != password) {
    throw ownError(provider_number::kLoginRefused, "28000",
                   shown + "la contraseña no es la del archivo; désela en la propiedad «Jet OLEDB:Database Password»");
  }
}

}  // namespace qvn::data::odbc
