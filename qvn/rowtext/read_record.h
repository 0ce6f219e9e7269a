// A record line back as named values.
//
//   const auto fields = rowtext::WsFields("¨articulo[&&,]\"TORNILLO\"¨precio[&&,]1234.5¨");
//   rowtext::fieldOf(fields->Item("PRECIO"))->value.toDouble() == 1234.5
#pragma once

#include <memory>
#include <string_view>

#include "qvn/host/collection.h"
#include "qvn/rowtext/ws_field.h"

namespace qvn::rowtext {

/// A new collection with one WsField for each field of the line, in its order and under its name. A value in quotes is
/// a String, "#05/03/2024#" the String between the marks, Null is Null, everything else is a Double as text::Fn reads
/// it: 0 when it is no number. A line of blanks and terminators gives an empty collection. A field without a name has
/// no key.
///
/// Fields are allocated a few at a time: one that a host keeps holds the memory of its neighbours.
///
/// @throws RuntimeError  9 for a piece without the marker "[&&,]", 457 for a name that comes twice (in any case), 5 for
///                       a value that is a lone quote or a lone "#"
std::shared_ptr<host::Collection> WsFields(std::string_view strWinsock);

}  // namespace qvn::rowtext
