#include "qvn/automation/json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "qvn/base/utf8.h"

namespace qvn::automation {
namespace {

void appendEscaped(std::string& line, char c) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(c);
  switch (c) {
    case '"':
      line.append("\\\"");
      break;
    case '\\':
      line.append("\\\\");
      break;
    case '\n':
      line.append("\\n");
      break;
    case '\r':
      line.append("\\r");
      break;
    case '\t':
      line.append("\\t");
      break;
    default:
      line.append("\\u00").append(1, kHexDigits[code >> 4U]).append(1, kHexDigits[code & 0xFU]);
  }
}

bool isPlain(char c) { return static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\'; }

void appendItems(std::string& line, const Json::Items& items) {
  line.push_back('[');
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) line.push_back(',');
    append(line, items[i]);
  }
  line.push_back(']');
}

void appendMembers(std::string& line, const Json::Members& members) {
  line.push_back('{');
  for (std::size_t i = 0; i < members.size(); ++i) {
    if (i > 0) line.push_back(',');
    appendJsonText(line, members[i].name);
    line.push_back(':');
    append(line, members[i].value);
  }
  line.push_back('}');
}

}  // namespace

Json Json::object() { return Json(Members{}); }

template <typename Number>
Json::Storage Json::shortest(Number number) {
  if (!std::isfinite(number)) return std::monostate{};
  if (number == 0) return JsonNumber{"0"};
  std::array<char, 32> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): to_chars fills what is read
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return JsonNumber{std::string(buffer.data(), written.ptr)};
}
template Json::Storage Json::shortest(float number);
template Json::Storage Json::shortest(double number);

const Json* Json::find(std::string_view name) const noexcept {
  const Members* all = members();
  if (all == nullptr) return nullptr;
  const auto found = std::find_if(all->rbegin(), all->rend(), [&](const Member& m) { return m.name == name; });
  return found == all->rend() ? nullptr : &found->value;
}

std::optional<std::int64_t> Json::whole() const noexcept {
  if (number() == nullptr) return std::nullopt;
  const std::string& digits = number()->digits;
  std::int64_t value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return std::nullopt;
  return value;
}

std::string_view Json::kindName() const noexcept {
  constexpr std::array<std::string_view, 6> kNames = {"null",     "un booleano", "un número",
                                                      "un texto", "un arreglo",  "un objeto"};
  static_assert(kNames.size() == std::variant_size_v<Storage>);
  return kNames[value_.index()];
}

void Json::add(std::string_view name, Json value) {
  std::get<Members>(value_).push_back({std::string(name), std::move(value)});
}

void appendJsonText(std::string& line, std::string_view text) {
  std::string repaired;
  if (!utf8::isValid(text)) {
    repaired = utf8::sanitize(text);
    text = repaired;
  }
  line.push_back('"');
  while (!text.empty()) {
    const auto* end = std::ranges::find_if_not(text, isPlain);
    line.append(text.begin(), end);
    text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
    if (text.empty()) break;
    appendEscaped(line, text.front());
    text.remove_prefix(1);
  }
  line.push_back('"');
}

void append(std::string& line, const Json& value) {
  if (const bool* truth = value.boolean()) {
    line.append(*truth ? "true" : "false");
  } else if (const JsonNumber* number = value.number()) {
    line.append(number->digits);
  } else if (const std::string* text = value.text()) {
    appendJsonText(line, *text);
  } else if (const Json::Items* items = value.items()) {
    appendItems(line, *items);
  } else if (const Json::Members* members = value.members()) {
    appendMembers(line, *members);
  } else {
    line.append("null");
  }
}

std::string toText(const Json& value) {
  std::string line;
  append(line, value);
  return line;
}

}  // namespace qvn::automation
