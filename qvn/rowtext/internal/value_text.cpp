#include "qvn/rowtext/internal/value_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <concepts>
#include <type_traits>

#include "qvn/base/number_text.h"
#include "qvn/base/regional.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/rowtext/internal/marks.h"
#include "qvn/text/decimal_text.h"

namespace qvn::rowtext::internal {
namespace {

void appendInteger(std::string& line, std::integral auto number) {
  std::array<char, 24> buffer;  // a 64-bit number with its sign, and to spare
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  line.append(buffer.data(), end.ptr);
}

void appendTwoDigits(std::string& line, int number) {
  line.push_back(static_cast<char>('0' + number / 10));
  line.push_back(static_cast<char>('0' + number % 10));
}

// Where the last character of a text that is not empty begins; bytes that are no character are one each.
std::size_t lastCharacter(std::string_view text) {
  constexpr std::size_t kLongestCharacter = 4;
  if (static_cast<unsigned char>(text.back()) < 0x80) return text.size() - 1;
  const std::size_t first = text.size() - std::min(text.size(), kLongestCharacter);
  for (std::size_t at = first; at < text.size(); ++at) {
    const utf8::Decoded character = utf8::decode(text, at);
    if (character.valid && at + character.length == text.size()) return at;
  }
  return text.size() - 1;
}

// Without the mark in front and the last character, whatever that is.
std::string_view insideMarks(std::string_view raw) {
  if (raw.size() == 1) {
    throw RuntimeError(error_number::kInvalidCall, "el valor «" + std::string(raw) + "» no termina", "WsFields");
  }
  raw.remove_prefix(1);
  return raw.substr(0, lastCharacter(raw));
}

}  // namespace

void ValueWriter::append(const Variant& value) {
  std::visit(
      [&](const auto& held) {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::same_as<Held, Empty> || std::same_as<Held, Null>) {
          line_.append(kNull);
        } else if constexpr (std::same_as<Held, bool>) {
          line_.append(held ? "-1" : "0");
        } else if constexpr (std::integral<Held>) {
          appendInteger(line_, held);
        } else if constexpr (std::floating_point<Held>) {
          appendGeneralNumber(line_, static_cast<double>(held));
        } else if constexpr (std::same_as<Held, Currency> || std::same_as<Held, Decimal>) {
          appendGeneralNumber(line_, held.toDouble());
        } else if constexpr (std::same_as<Held, Date>) {
          appendDate(held);
        } else if constexpr (std::same_as<Held, std::string>) {
          line_.push_back(kQuote);
          line_.append(held).push_back(kQuote);
        } else {
          line_.append(value.toText());
        }
      },
      value.storage());
}

void ValueWriter::appendDate(Date date) {
  if (dateSeparator_.empty()) dateSeparator_ = regionalDateSeparator();
  const CivilDate civil = date.civil();
  line_.push_back(kDateMark);
  appendTwoDigits(line_, civil.day);
  line_.append(dateSeparator_);
  appendTwoDigits(line_, civil.month);
  line_.append(dateSeparator_);
  appendTwoDigits(line_, civil.year / 100);
  appendTwoDigits(line_, civil.year % 100);
  line_.push_back(kDateMark);
}

void readValue(std::string_view raw, Variant& value) {
  if (raw.starts_with(kQuote) || raw.starts_with(kDateMark)) {
    value.assignText(insideMarks(raw));
  } else if (raw == kNull) {
    value = Null{};
  } else {
    value = text::Fn(raw);
  }
}

}  // namespace qvn::rowtext::internal
