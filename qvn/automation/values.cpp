#include "qvn/automation/values.h"

#include <array>
#include <charconv>
#include <string>
#include <type_traits>
#include <utility>

#include "qvn/automation/base64.h"
#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"
#include "qvn/data/iso_date.h"

namespace qvn::automation {
namespace {

Json wrapped(std::string_view name, Json value) {
  Json object = Json::object();
  object.add(name, std::move(value));
  return object;
}

Json typed(std::string_view type, std::string digits) {
  Json object = wrapped("type", type);
  object.add("value", JsonNumber{std::move(digits)});
  return object;
}

[[noreturn]] void refuse(const std::string& description) {
  throw RuntimeError(error_number::kTypeMismatch, description);
}

double readDouble(std::string_view digits) {
  double value = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec == std::errc::result_out_of_range) throw RuntimeError(error_number::kOverflow);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) {
    refuse("No es un número: " + std::string(digits));
  }
  return value;
}

// Without a fraction or an exponent every digit counts, also beyond those of a Double.
Variant readNumber(const std::string& digits) {
  std::int64_t whole = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), whole);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size()) return readDouble(digits);
  if (std::in_range<std::int32_t>(whole)) return static_cast<std::int32_t>(whole);
  return whole;
}

Decimal readDecimal(const std::string& digits) {
  if (auto exact = Decimal::fromText(digits)) return *std::move(exact);
  return Decimal::fromDouble(readDouble(digits));
}

struct NumberType {
  std::string_view name;
  Variant (*read)(const std::string& digits);
};
constexpr auto kNumberTypes = std::to_array<NumberType>({
    {"Byte", [](const std::string& digits) { return Variant(readNumber(digits).toByte()); }},
    {"Integer", [](const std::string& digits) { return Variant(readNumber(digits).toInteger()); }},
    {"Long", [](const std::string& digits) { return Variant(readNumber(digits).toLong()); }},
    {"LongLong", [](const std::string& digits) { return Variant(readNumber(digits).toLongLong()); }},
    {"Single", [](const std::string& digits) { return Variant(readNumber(digits).toSingle()); }},
    {"Double", [](const std::string& digits) { return Variant(readDouble(digits)); }},
    {"Currency", [](const std::string& digits) { return Variant(Variant(readDecimal(digits)).toCurrency()); }},
    {"Decimal", [](const std::string& digits) { return Variant(readDecimal(digits)); }},
});

Variant readTyped(const std::string& name, const Json* value) {
  const auto* digits = value == nullptr             ? nullptr
                       : value->number() != nullptr ? &value->number()->digits
                                                    : value->text();
  if (digits == nullptr) refuse("A un valor de tipo " + name + " le falta su número en «value»");
  for (const NumberType& type : kNumberTypes) {
    if (type.name == name) return type.read(*digits);
  }
  refuse("No hay un tipo «" + name + "»");
}

Variant readDate(const std::string& text) {
  std::string iso = text;
  if (const std::size_t t = iso.find('T'); t != std::string::npos) iso[t] = ' ';
  const auto date = data::parseIsoDate(iso);
  if (!date) throw RuntimeError(error_number::kInvalidCall, "No es una fecha: " + text);
  return *date;
}

Variant readBytes(const std::string& text) {
  auto bytes = fromBase64(text);
  if (!bytes) refuse("No es base64: " + text.substr(0, 40));
  return *std::move(bytes);
}

bool isTrue(const Json* value) { return value != nullptr && value->boolean() != nullptr && *value->boolean(); }

Variant readMembers(const Json& value, const ObjectTable& objects) {
  if (isTrue(value.find("null"))) return Null{};
  if (isTrue(value.find("empty"))) return Empty{};
  if (const Json* date = value.find("date"); date != nullptr && date->text() != nullptr) return readDate(*date->text());
  if (const Json* bytes = value.find("bytes"); bytes != nullptr && bytes->text() != nullptr) {
    return readBytes(*bytes->text());
  }
  if (const Json* number = value.find("object"); number != nullptr && number->whole()) {
    return objects.at(*number->whole());
  }
  if (const Json* type = value.find("type"); type != nullptr && type->text() != nullptr) {
    return readTyped(*type->text(), value.find("value"));
  }
  refuse("No se reconoce el valor " + toText(value).substr(0, 80));
}

Json errorItem(const data::ErrorItem& item) {
  Json object = Json::object();
  object.add("number", item.number);
  object.add("description", toJson(item.description));
  object.add("nativeError", item.nativeError);
  object.add("sqlState", toJson(item.sqlState));
  object.add("source", toJson(item.source));
  object.add("helpFile", toJson(item.helpFile));
  object.add("helpContext", item.helpContext);
  return object;
}

Json writtenItems(const Array& array, ObjectTable& objects) {
  Json items = Json::array();
  for (const Variant& item : array.items) items.add(toJson(item, objects));
  return items;
}

}  // namespace

Json toJson(std::string_view text) { return utf8::isValid(text) ? Json(text) : bytesToJson(text); }

Json bytesToJson(std::string_view bytes) { return wrapped("bytes", toBase64(bytes)); }

Json toJson(Date date) {
  std::string iso = data::isoText(date, data::FieldType::DbTimeStamp, 6);
  iso[iso.find(' ')] = 'T';
  return wrapped("date", std::move(iso));
}

Json errorItems(const std::vector<data::ErrorItem>& items) {
  Json all = Json::array();
  for (const data::ErrorItem& item : items) all.add(errorItem(item));
  return all;
}

Json objectReference(const ObjectPtr& object, ObjectTable& objects) {
  return object ? wrapped("object", objects.numberOf(object)) : Json();
}

Json toJson(const Variant& value, ObjectTable& objects) {
  return std::visit(
      [&](const auto& held) -> Json {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, Empty>) {
          return wrapped("empty", true);
        } else if constexpr (std::is_same_v<Held, Null>) {
          return wrapped("null", true);
        } else if constexpr (std::is_same_v<Held, Currency>) {
          return typed("Currency", Variant(held).toDecimal().toText());
        } else if constexpr (std::is_same_v<Held, Decimal>) {
          return typed("Decimal", held.toText());
        } else if constexpr (std::is_same_v<Held, Array>) {
          return writtenItems(held, objects);
        } else if constexpr (std::is_same_v<Held, ObjectPtr>) {
          return objectReference(held, objects);
        } else if constexpr (std::is_same_v<Held, std::string> || std::is_same_v<Held, Date>) {
          return toJson(held);
        } else {
          return Json(held);
        }
      },
      value.storage());
}

Variant toVariant(const Json& value, const ObjectTable& objects) {
  if (const bool* truth = value.boolean()) return *truth;
  if (const JsonNumber* number = value.number()) return readNumber(number->digits);
  if (const std::string* text = value.text()) return *text;
  if (value.isNull()) return Null{};
  if (const Json::Items* items = value.items()) {
    Array array;
    array.items.reserve(items->size());
    for (const Json& item : *items) array.items.push_back(toVariant(item, objects));
    return array;
  }
  return readMembers(value, objects);
}

}  // namespace qvn::automation
