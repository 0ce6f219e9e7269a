#include "qvn/text/keystrokes.h"

#include <string>
#include <string_view>

#include "qvn/base/code_page_1252.h"
#include "qvn/base/runtime_error.h"
#include "qvn/text/decimal_text.h"

namespace qvn::text {
namespace {

constexpr std::int16_t kBackspace = 8;

char32_t characterOf(std::int16_t key) {
  if (key < 0 || key > 255)
    throw RuntimeError(error_number::kInvalidCall, "El código de la tecla no está entre 0 y 255");
  return cp1252::toCharacter(static_cast<std::uint8_t>(key));
}

std::int16_t swallow(std::int16_t& key) {
  key = 0;
  return 0;
}

bool isControl(char32_t character) { return character < 0x20 || (character >= 0x7F && character < 0xA0); }

}  // namespace

std::int16_t ToNumber(std::int16_t& KeyAscii, const host::TextBox& Control, bool bolDecimales) {
  const char32_t key = characterOf(KeyAscii);
  if (key >= '0' && key <= '9') return KeyAscii;
  const char separator = SeparadorDecimal().front();
  const auto isTyped = [&Control](char character) { return Control.Text().find(character) != std::string::npos; };
  if (key == static_cast<char32_t>(separator)) {
    return !bolDecimales || isTyped(separator) ? swallow(KeyAscii) : KeyAscii;
  }
  if (key == '-') return isTyped('-') ? swallow(KeyAscii) : KeyAscii;
  return KeyAscii == kBackspace ? kBackspace : std::int16_t{0};
}

std::int16_t UEspecial(std::int16_t& KeyAscii, const host::TextBox& /*Control*/) {
  static constexpr std::u32string_view kSwallowed = U"'\"\\;\u00A8";
  static constexpr std::u32string_view kHarmlessControls = U"\b\t\r";
  const char32_t key = characterOf(KeyAscii);
  const bool passes = isControl(key) ? kHarmlessControls.find(key) != std::u32string_view::npos
                                     : kSwallowed.find(key) == std::u32string_view::npos;
  return passes ? KeyAscii : swallow(KeyAscii);
}

}  // namespace qvn::text
