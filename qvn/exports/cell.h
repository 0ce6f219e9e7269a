// What a cell of a sheet shows of a field's value.
#pragma once

#include <string>

#include "qvn/base/variant.h"
#include "qvn/data/field_type.h"

namespace qvn::exports {

/// Sheets hold numbers as doubles and dates as counts of days, and what they cannot hold exactly is a text.
struct Cell {
  enum class Kind { Blank, Number, Date, DateTime, Time, Boolean, Text };
  Kind kind = Kind::Blank;
  double number = 0;          ///< also the day count of a date, and 1 for true
  std::string text;           ///< of Kind::Text alone; its memory is used again
  bool isForcedText = false;  ///< a number or date that a sheet does not hold
  bool isCut = false;         ///< a text that is longer than a cell holds, and ends with "…"
};

/// Most characters of a cell's text, counted as UTF-16 counts them.
inline constexpr std::size_t kMostTextUnits = 32767;

/// Puts `value`, of a field of type `type`, into `cell`:
///
/// - Null and Empty are blank.
/// - Whole numbers, decimals and currencies of more than 15 digits are texts, and so are doubles beyond 9.99E+307,
/// which
///   sheets take for errors.
/// - Dates before 1900 are texts, "1899-12-31"; a time of day on day zero is a time. Fractions of a second are kept.
/// - Texts are cut to what a cell holds; line ends become "\n", and bytes that are not UTF-8, control characters and
///   others that no XML file holds become U+FFFD.
/// - Bytes are "0x" and hexadecimal digits.
///
/// Throws RuntimeError 13 for arrays and objects.
void assignCell(Cell& cell, const Variant& value, data::FieldType type);

}  // namespace qvn::exports
