// Values of fields as text: for people by regional settings, for programs with "." and ISO dates.
#pragma once

#include <cstddef>
#include <string>

#include "apps/qvn/table_writer.h"
#include "apps/qvn/terminal_text.h"
#include "qvn/data/recordset.h"

namespace qvn::cli {

/// The field's value for a table. Numbers have the regional separator and at least the decimals that their column
/// declares, and are never cut; texts are made safe and cut at `widest` columns; bytes are "0x" and hexadecimal digits.
Cell fieldCell(const data::Field& field, std::size_t widest = kNoLimit);

/// An amount with two decimals and thousands separators by regional settings, as the library's own pattern writes it.
Cell amountCell(const Variant& amount);

/// A value as programs exchange it.
struct PortableValue {
  enum class Kind { Null, Number, Boolean, Text };
  Kind kind = Kind::Null;
  /// A number in JSON's form; "true" or "false"; a date as "yyyy-mm-dd", "hh:mm:ss" or both with "T" between them; a
  /// text as it is stored, which may be no UTF-8; bytes as "0x" and hexadecimal digits.
  std::string text;
};
PortableValue portableValue(const data::Field& field);

}  // namespace qvn::cli
