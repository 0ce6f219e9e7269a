// Loosely typed values in JSON and back.
//
//   toJson(Variant(Null{}), objects)          {"null":true}
//   toJson(Variant(Date(40975.5)), objects)   {"date":"2012-03-07T12:00:00"}
//
// Booleans, texts, arrays and the numbers Byte, Integer, Long, LongLong, Single and Double stand for themselves; Empty
// is
// {"empty":true}, Null {"null":true}, a text that is not UTF-8 {"bytes":"<base64>"}, an object {"object":7}, and exact
// numbers name their type: {"type":"Currency","value":10.5}. What is read may name the type of any number, write its
// value as a text, and use plain null for Null; a plain whole number is a Long, LongLong where it does not fit, and any
// other number a Double.
#pragma once

#include <string_view>
#include <vector>

#include "qvn/automation/json.h"
#include "qvn/automation/object_table.h"
#include "qvn/base/variant.h"
#include "qvn/data/provider_error.h"

namespace qvn::automation {

/// Objects enter the table. An array loses its lower bound.
Json toJson(const Variant& value, ObjectTable& objects);
Json toJson(std::string_view text);
Json toJson(Date date);
/// {"bytes":"..."}
Json bytesToJson(std::string_view bytes);
/// The errors of a provider, each an object.
Json errorItems(const std::vector<data::ErrorItem>& items);
Json objectReference(const ObjectPtr& object, ObjectTable& objects);

/// Throws RuntimeError 13 for what is none of these forms, 6 for a number that its type cannot hold, 5 for a date that
/// does not exist, 91 for an object that is not in the table.
Variant toVariant(const Json& value, const ObjectTable& objects);

}  // namespace qvn::automation
