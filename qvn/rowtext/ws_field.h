// A named value: the item of a collection read from a record line.
//
//   const auto field = rowtext::newData("articulo", "TORNILLO");   field->Key == "articulo"
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "qvn/base/variant.h"

namespace qvn::rowtext {

/// `value` is Null, a String or a Double when it was read from a record line, anything when it was made by newData.
struct WsField final : Object {
  WsField() = default;
  WsField(std::string_view key, Variant data) : value(std::move(data)), Key(key) {}

  Variant value;
  std::string Key;
};
using WsFieldPtr = std::shared_ptr<WsField>;

/// A field with this key and a copy of the value.
inline WsFieldPtr newData(std::string_view strKey, const Variant& uData) {
  return std::make_shared<WsField>(strKey, uData);
}

/// The field that a collection holds at `item`; null when `item` holds something else.
inline const WsField* fieldOf(const Variant& item) {
  const auto* object = item.getIf<ObjectPtr>();
  return object == nullptr ? nullptr : dynamic_cast<const WsField*>(object->get());
}

}  // namespace qvn::rowtext
