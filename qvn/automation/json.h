// A JSON value, as hosts in other languages send and receive it.
//
//   Json answer = Json::object();
//   answer.add("id", 1);  answer.add("text", "ñandú");
//   toText(answer) == R"({"id":1,"text":"ñandú"})"
#pragma once

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace qvn::automation {

/// A number in the digits in which it was written, so that none is lost on the way.
struct JsonNumber {
  std::string digits;
};

/// A member of an object.
template <typename Value>
struct NamedValue {
  std::string name;
  Value value;
};

class Json {
 public:
  using Member = NamedValue<Json>;
  using Items = std::vector<Json>;
  using Members = std::vector<Member>;

  /// null
  Json() = default;
  Json(std::string text) : value_(std::move(text)) {}         // NOLINT(google-explicit-constructor): values convert
  Json(std::string_view text) : value_(std::string(text)) {}  // NOLINT(google-explicit-constructor)
  Json(const char* text) : value_(std::string(text)) {}       // NOLINT(google-explicit-constructor)
  Json(JsonNumber number) : value_(std::move(number)) {}      // NOLINT(google-explicit-constructor)
  Json(float number) : value_(shortest(number)) {}            // NOLINT(google-explicit-constructor)
  Json(double number) : value_(shortest(number)) {}           // NOLINT(google-explicit-constructor)
  Json(Items items) : value_(std::move(items)) {}             // NOLINT(google-explicit-constructor)
  Json(Members members) : value_(std::move(members)) {}       // NOLINT(google-explicit-constructor)
  template <std::integral Number>
  Json(Number number) {  // NOLINT(google-explicit-constructor)
    if constexpr (std::same_as<Number, bool>) {
      value_ = number;
    } else {
      value_ = JsonNumber{std::to_string(number)};
    }
  }

  static Json object();
  static Json array() { return Json(Items{}); }

  [[nodiscard]] bool isNull() const noexcept { return std::holds_alternative<std::monostate>(value_); }
  [[nodiscard]] bool isObject() const noexcept { return members() != nullptr; }
  [[nodiscard]] const bool* boolean() const noexcept { return std::get_if<bool>(&value_); }
  [[nodiscard]] const std::string* text() const noexcept { return std::get_if<std::string>(&value_); }
  [[nodiscard]] const JsonNumber* number() const noexcept { return std::get_if<JsonNumber>(&value_); }
  [[nodiscard]] const Items* items() const noexcept { return std::get_if<Items>(&value_); }
  [[nodiscard]] const Members* members() const noexcept { return std::get_if<Members>(&value_); }

  /// The member of an object; the last one when the name stands twice. Null when there is none.
  [[nodiscard]] const Json* find(std::string_view name) const noexcept;
  /// The value of a number without a fraction that fits in 64 bits.
  [[nodiscard]] std::optional<std::int64_t> whole() const noexcept;
  /// What kind of value it is, in Spanish, for messages: "un texto".
  [[nodiscard]] std::string_view kindName() const noexcept;

  /// Adds a member to an object, or an item to an array; on any other value it is a mistake of the caller.
  void add(std::string_view name, Json value);
  void add(Json item) { std::get<Items>(value_).push_back(std::move(item)); }

 private:
  using Storage = std::variant<std::monostate, bool, JsonNumber, std::string, Items, Members>;
  // The shortest digits that read back to the number. An infinity and what is no number have none; they become null.
  template <typename Number>
  static Storage shortest(Number number);

  Storage value_;
};

/// Appends the value in one line. Bytes of texts that are not UTF-8 become U+FFFD.
void append(std::string& line, const Json& value);
/// Appends a text with its quotes, likewise.
void appendJsonText(std::string& line, std::string_view text);
std::string toText(const Json& value);

}  // namespace qvn::automation
