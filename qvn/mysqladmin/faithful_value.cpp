#include "qvn/mysqladmin/faithful_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace qvn::mysqladmin {
namespace {

// What stands behind the backslash for a character that is escaped; 0 for the others. Source: the server's manual on
// string literals.
constexpr auto kEscapes = [] {
  std::array<char, 256> escapes{};
  escapes[0] = '0';
  escapes['\n'] = 'n';
  escapes['\r'] = 'r';
  escapes[0x1A] = 'Z';
  escapes['\''] = '\'';
  escapes['\\'] = '\\';
  return escapes;
}();

void appendQuoted(std::string_view text, std::string& sql) {
  sql.push_back('\'');
  while (!text.empty()) {
    const auto isEscaped = [](char c) { return kEscapes[static_cast<unsigned char>(c)] != 0; };
    const auto plain = static_cast<std::size_t>(std::ranges::find_if(text, isEscaped) - text.begin());
    sql.append(text.substr(0, plain));
    if (plain == text.size()) break;
    sql.push_back('\\');
    sql.push_back(kEscapes[static_cast<unsigned char>(text[plain])]);
    text.remove_prefix(plain + 1);
  }
  sql.push_back('\'');
}

void appendHex(std::string_view bytes, std::string& sql) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  if (bytes.empty()) {
    sql.append("''");
    return;
  }
  const std::size_t start = sql.size() + 2;
  sql.append("0x").resize(start + 2 * bytes.size());
  char* digit = sql.data() + start;
  for (const char byte : bytes) {
    *digit++ = kDigits[static_cast<unsigned char>(byte) >> 4U];
    *digit++ = kDigits[static_cast<unsigned char>(byte) & 0xFU];
  }
}

template <typename Number>
void appendNumber(Number number, std::string& sql) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  sql.append(text.data(), end);
}

void appendDouble(double number, std::string& sql) {
  appendNumber(number, sql);
  // Without an exponent the sign of a zero would be lost.
  if (number == 0 && std::signbit(number)) sql.append("e0");
}

}  // namespace

void appendFaithfully(const Variant& value, ColumnForm form, std::string& sql) {
  if (const auto* const text = value.getIf<std::string>()) {
    switch (form) {
      case ColumnForm::Text:
        appendQuoted(*text, sql);
        return;
      case ColumnForm::Number:
        sql.append(*text);
        return;
      case ColumnForm::Bytes:
        appendHex(*text, sql);
        return;
    }
  }
  if (value.isNull()) {
    sql.append("NULL");
  } else if (const auto* const whole = value.getIf<std::int32_t>()) {
    appendNumber(*whole, sql);
  } else if (const auto* const number = value.getIf<double>()) {
    appendDouble(*number, sql);
  } else if (const auto* const decimal = value.getIf<Decimal>()) {
    sql.append(decimal->toText());
  } else {
    appendNumber(value.toLongLong(), sql);
  }
}

}  // namespace qvn::mysqladmin
