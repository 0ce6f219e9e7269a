// How values of each C++ type travel between JSON and the library: their name for people, reading, writing.
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "qvn/automation/class_names.h"
#include "qvn/automation/session.h"
#include "qvn/automation/values.h"
#include "qvn/base/runtime_error.h"
#include "qvn/exports/sheet_settings.h"
#include "qvn/mysqladmin/backup_report.h"
#include "qvn/mysqladmin/database_restore.h"
#include "qvn/text/shell_sort.h"

namespace qvn::automation {

template <typename Type>
struct Travel;

/// Throws RuntimeError 13: `expected` (as in "un texto") was asked for and `value` came.
[[noreturn]] void refuseKind(std::string_view expected, const Json& value);

/// The number that a plain or typed JSON number holds. Throws RuntimeError 94 for Null, 13 for what is no number.
Variant readNumber(const Json& value, const Session& session);

// Numbers: rounded as the platform rounds them, error 6 beyond the type's range.

template <>
struct Travel<double> {
  static std::string name() { return "Double"; }
  static double read(const Json& value, const Session& session) { return readNumber(value, session).toDouble(); }
  static Json write(double value, const Session& /*session*/) { return value; }
};
template <>
struct Travel<std::int16_t> {
  static std::string name() { return "Integer"; }
  static std::int16_t read(const Json& value, const Session& session) { return readNumber(value, session).toInteger(); }
  static Json write(std::int16_t value, const Session& /*session*/) { return value; }
};
template <>
struct Travel<std::int32_t> {
  static std::string name() { return "Long"; }
  static std::int32_t read(const Json& value, const Session& session) { return readNumber(value, session).toLong(); }
  static Json write(std::int32_t value, const Session& /*session*/) { return value; }
};
template <>
struct Travel<std::int64_t> {
  static std::string name() { return "LongLong"; }
  static std::int64_t read(const Json& value, const Session& session) {
    return readNumber(value, session).toLongLong();
  }
  static Json write(std::int64_t value, const Session& /*session*/) { return value; }
};

template <>
struct Travel<bool> {
  static std::string name() { return "Boolean"; }
  static bool read(const Json& value, const Session& session);
  static Json write(bool value, const Session& /*session*/) { return value; }
};
template <>
struct Travel<std::string> {
  static std::string name() { return "String"; }
  static std::string read(const Json& value, const Session& session);
  static Json write(std::string_view value, const Session& /*session*/) { return toJson(value); }
};
template <>
struct Travel<Date> {
  static std::string name() { return "Date"; }
  /// A date, or a number that is its day count.
  static Date read(const Json& value, const Session& session);
  static Json write(Date value, const Session& /*session*/) { return toJson(value); }
};
template <>
struct Travel<Variant> {
  static std::string name() { return "Variant"; }
  static Variant read(const Json& value, const Session& session) { return toVariant(value, session.objects); }
  static Json write(const Variant& value, const Session& session) { return toJson(value, session.objects); }
};
template <>
struct Travel<text::SortDirection> {
  static std::string name() { return "SortDirection"; }
  static text::SortDirection read(const Json& value, const Session& session);
};

/// {"field":"importe","title":"Importe","format":"#,##0.00","width":14,"total":true}; all but the field may be missing.
template <>
struct Travel<exports::ColumnSettings> {
  static std::string name() { return "Column"; }
  static exports::ColumnSettings read(const Json& value, const Session& session);
};

/// What is put together for the host as it is.
template <>
struct Travel<Json> {
  static std::string name() { return "Object"; }
  static Json write(Json value, const Session& /*session*/) { return value; }
};
template <>
struct Travel<mysqladmin::BackupReport> {
  static std::string name() { return "BackupReport"; }
  static Json write(const mysqladmin::BackupReport& report, const Session& session);
};
template <>
struct Travel<mysqladmin::RestoreReport> {
  static std::string name() { return "RestoreReport"; }
  static Json write(const mysqladmin::RestoreReport& report, const Session& session);
};

template <typename Item>
struct Travel<std::vector<Item>> {
  static std::string name() { return "Array of " + Travel<Item>::name(); }
  static std::vector<Item> read(const Json& value, const Session& session) {
    if (value.items() == nullptr) refuseKind("un arreglo", value);
    std::vector<Item> items;
    items.reserve(value.items()->size());
    for (const Json& item : *value.items()) items.push_back(Travel<Item>::read(item, session));
    return items;
  }
  static Json write(const std::vector<Item>& items, const Session& session) {
    Json array = Json::array();
    for (const Item& item : items) array.add(Travel<Item>::write(item, session));
    return array;
  }
};

/// null when it was not given.
template <typename Value>
struct Travel<std::optional<Value>> {
  static std::string name() { return Travel<Value>::name(); }
  static std::optional<Value> read(const Json& value, const Session& session) {
    if (value.isNull()) return std::nullopt;
    return Travel<Value>::read(value, session);
  }
};

/// The object that {"object":7} means; nothing for null.
ObjectPtr readObject(const Json& value, std::string_view className, const Session& session);
[[noreturn]] void refuseClass(std::string_view expected, const Object& object);

template <typename Class>
struct Travel<std::shared_ptr<Class>> {
  static std::string name() { return std::string(kClassName<Class>); }
  static std::shared_ptr<Class> read(const Json& value, const Session& session) {
    const ObjectPtr object = readObject(value, kClassName<Class>, session);
    auto right = std::dynamic_pointer_cast<Class>(object);
    if (object && !right) refuseClass(kClassName<Class>, *object);
    return right;
  }
  static Json write(const std::shared_ptr<Class>& object, const Session& session) {
    return objectReference(object, session.objects);
  }
};

}  // namespace qvn::automation
