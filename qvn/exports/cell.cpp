#include "qvn/exports/cell.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "qvn/base/number_text.h"
#include "qvn/base/runtime_error.h"
#include "qvn/data/iso_date.h"
#include "qvn/exports/cell_text.h"

namespace qvn::exports {
namespace {

using Kind = Cell::Kind;

constexpr std::size_t kMostDigits = 15;
constexpr std::int64_t kLargestWhole = 999'999'999'999'999;
constexpr double kLargestNumber = 9.99999999999999e307;
// Sheets count a 29 February 1900, so that their day counts are ours only from 1 March on.
constexpr std::int32_t kFirstSheetDay = 2;
constexpr std::int32_t kFirstEqualDay = 61;

void setNumber(Cell& cell, double number, Kind kind = Kind::Number) {
  cell.kind = kind;
  cell.number = number;
}

void forceText(Cell& cell, std::string text) {
  cell.kind = Kind::Text;
  cell.text = std::move(text);
  cell.isForcedText = true;
}

// All digits of the integer part count, so that a column of codes of one length is of one kind; decimals count without
// the zeros at their end.
bool fitsNumber(std::string_view trimmed) {
  std::size_t digits = 0;
  for (const char c : trimmed) {
    const bool isDigit = c >= '0' && c <= '9';
    if (isDigit && (digits > 0 || c != '0')) ++digits;
  }
  return digits <= kMostDigits;
}

void setExact(Cell& cell, const std::string& trimmed, double number) {
  if (fitsNumber(trimmed)) {
    setNumber(cell, number);
  } else {
    forceText(cell, trimmed);
  }
}

void setWhole(Cell& cell, std::int64_t number) {
  if (number >= -kLargestWhole && number <= kLargestWhole) {
    setNumber(cell, static_cast<double>(number));
  } else {
    forceText(cell, std::to_string(number));
  }
}

void setFraction(Cell& cell, double number) {
  if (std::isfinite(number) && std::abs(number) <= kLargestNumber) {
    setNumber(cell, number);
  } else {
    forceText(cell, generalNumber(number));
  }
}

// The double that people see in the single, 0.1, and not the one that it is, 0.100000001490116.
double widened(float number) {
  if (!std::isfinite(number)) return static_cast<double>(number);
  const std::string text = shortestNumber(number);
  double wide = 0;
  std::from_chars(text.data(), text.data() + text.size(), wide);
  return wide;
}

bool isTime(Date date, data::FieldType type) {
  return type == data::FieldType::DbTime || (date.dayNumber() == 0 && date.hasTime());
}

Kind dateKind(Date date, data::FieldType type) {
  if (type == data::FieldType::DbDate) return Kind::Date;
  if (type == data::FieldType::DbTimeStamp) return Kind::DateTime;
  return date.hasTime() ? Kind::DateTime : Kind::Date;
}

void setDate(Cell& cell, Date date, data::FieldType type) {
  const double serial = date.serial();
  if (isTime(date, type)) {
    setNumber(cell, std::abs(serial - std::trunc(serial)), Kind::Time);
  } else if (const std::int32_t day = date.dayNumber(); day < kFirstSheetDay) {
    forceText(cell, date.hasTime() ? data::isoDateTime(date) : data::isoDate(date));
  } else {
    setNumber(cell, day < kFirstEqualDay ? serial - 1 : serial, dateKind(date, type));
  }
}

void setText(Cell& cell, std::string_view text, data::FieldType type) {
  cell.kind = Kind::Text;
  cell.isCut = isBinary(type) ? assignCellBytes(cell.text, text) : assignCellText(cell.text, text);
}

}  // namespace

void assignCell(Cell& cell, const Variant& value, data::FieldType type) {
  cell.kind = Kind::Blank;
  cell.number = 0;
  cell.isForcedText = false;
  cell.isCut = false;
  if (value.isNull() || value.isEmpty()) return;
  if (const auto* text = value.getIf<std::string>()) {
    setText(cell, *text, type);
  } else if (const auto* flag = value.getIf<bool>()) {
    setNumber(cell, *flag ? 1 : 0, Kind::Boolean);
  } else if (const auto* date = value.getIf<Date>()) {
    setDate(cell, *date, type);
  } else if (const auto* decimal = value.getIf<Decimal>()) {
    setExact(cell, decimal->toTrimmedText(), decimal->toDouble());
  } else if (const auto* amount = value.getIf<Currency>()) {
    setExact(cell, amount->toText(), amount->toDouble());
  } else if (const auto* single = value.getIf<float>()) {
    setFraction(cell, widened(*single));
  } else if (const auto* number = value.getIf<double>()) {
    setFraction(cell, *number);
  } else {
    setWhole(cell, value.toLongLong());
  }
}

}  // namespace qvn::exports
