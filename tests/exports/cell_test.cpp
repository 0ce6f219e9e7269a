// What a cell makes of a value.
#include "qvn/exports/cell.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "qvn/base/utf8.h"
#include "tests/support/error_of.h"

namespace qvn::exports {
namespace {

using data::FieldType;
using Kind = Cell::Kind;

Cell cellOf(const Variant& value, FieldType type) {
  // What an earlier value left must not show.
  Cell cell{.kind = Kind::Text, .number = 7, .text = "anterior", .isForcedText = true, .isCut = true};
  assignCell(cell, value, type);
  return cell;
}

struct Row {
  const char* why;
  Variant value;
  Kind kind;
  double number = 0;
  std::string text = {};
  FieldType type = FieldType::VarWChar;
};

// Texts in place of numbers and dates are forced.
void expectCells(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const Cell cell = cellOf(row.value, row.type);
    ASSERT_EQ(cell.kind, row.kind);
    EXPECT_EQ(cell.isForcedText, row.kind == Kind::Text && row.value.type() != VariantType::String);
    EXPECT_FALSE(cell.isCut);
    if (row.kind == Kind::Text) {
      EXPECT_EQ(cell.text, row.text);
    } else {
      EXPECT_EQ(cell.number, row.number);
    }
  }
}

Decimal decimal(std::string_view text) { return Decimal::fromText(text).value(); }

TEST(Cell, NumbersAreNumbersAsLongAsSheetsHoldThem) {
  expectCells({
      {"15 digits", std::int64_t{999'999'999'999'999}, Kind::Number, 999'999'999'999'999.0},
      {"16 digits", std::int64_t{-1'000'000'000'000'000}, Kind::Text, 0, "-1000000000000000"},
      {"the least of all", std::numeric_limits<std::int64_t>::min(), Kind::Text, 0, "-9223372036854775808"},
      {"a byte", std::uint8_t{255}, Kind::Number, 255},
      {"decimals are digits", decimal("1234567890.12345"), Kind::Number, 1234567890.12345},
      {"one more is too many", decimal("1234567890.123456"), Kind::Text, 0, "1234567890.123456"},
      {"zeros behind the point are none", decimal("12345678901234.50000"), Kind::Number, 12345678901234.5},
      {"zeros in front are none", decimal("0.00000000123456789"), Kind::Number, 1.23456789e-9},
      {"codes of one length are of one kind", decimal("1234567890123450"), Kind::Text, 0, "1234567890123450"},
      {"a currency", Currency::fromScaled(-125'000), Kind::Number, -12.5},
      {"a long one", Currency::fromScaled(9'223'372'036'854'775'807), Kind::Text, 0, "922337203685477.5807"},
      {"a single is what people see", 0.1F, Kind::Number, 0.1},
      {"a double", 0.1, Kind::Number, 0.1},
      {"an error of sheets", 1e308, Kind::Text, 0, "1E+308"},
      {"infinity", -std::numeric_limits<double>::infinity(), Kind::Text, 0, "-INF"},
      {"no number", std::nan(""), Kind::Text, 0, "NAN"},
      {"an infinite single", std::numeric_limits<float>::infinity(), Kind::Text, 0, "INF"},
      {"true", true, Kind::Boolean, 1},
      {"false", false, Kind::Boolean, 0},
      {"Null", Null{}, Kind::Blank},
      {"Empty", Empty{}, Kind::Blank},
  });
}

// Day counts by a spreadsheet program: 1 January 1900 is 1, 28 February 59, 1 March 61.
TEST(Cell, DatesAreDayCountsOfSheetsFrom1900On) {
  const Date day = Date::fromCivil(2012, 3, 7);
  const Date noon = Date::fromCivil(2012, 3, 7, {12, 0, 0});
  const Date early = Date::fromCivil(1810, 9, 16, {5, 30, 0});
  const FieldType stamp = FieldType::DbTimeStamp;
  expectCells({
      {"a date", day, Kind::Date, 40975, "", FieldType::DbDate},
      {"a date of the general type", day, Kind::Date, 40975, "", FieldType::Date},
      {"a time stamp at midnight", day, Kind::DateTime, 40975, "", stamp},
      {"half a day", noon, Kind::DateTime, 40975.5, "", FieldType::Date},
      {"a fraction of a second", Date(40975.000001), Kind::DateTime, 40975.000001, "", stamp},
      {"before the day that never was", Date::fromCivil(1900, 2, 28), Kind::Date, 59, "", FieldType::DbDate},
      {"the first after it", Date::fromCivil(1900, 3, 1), Kind::Date, 61, "", FieldType::DbDate},
      {"the first of sheets", Date::fromCivil(1900, 1, 1), Kind::Date, 1, "", FieldType::DbDate},
      {"before it", Date::fromCivil(1899, 12, 31), Kind::Text, 0, "1899-12-31", FieldType::DbDate},
      {"before it, with a time", early, Kind::Text, 0, "1810-09-16 05:30:00", stamp},
      {"day zero without a time", Date(0), Kind::Text, 0, "1899-12-30", FieldType::Date},
      {"a time", Date(0.25), Kind::Time, 0.25, "", FieldType::Date},
      {"midnight", Date(0), Kind::Time, 0, "", FieldType::DbTime},
      {"the last day", Date::fromCivil(9999, 12, 31), Kind::Date, 2958465, "", FieldType::DbDate},
  });
}

TEST(Cell, TextsStayTexts) {
  expectCells({
      {"digits", "00120", Kind::Text, 0, "00120"},
      {"a formula", "=1+1", Kind::Text, 0, "=1+1"},
      {"nothing", "", Kind::Text, 0, ""},
      {"accents", "Muñoz", Kind::Text, 0, "Muñoz"},
      {"line ends of any kind", "a\r\nb\rc\nd\r", Kind::Text, 0, "a\nb\nc\nd\n"},
      {"a tab", "a\tb", Kind::Text, 0, "a\tb"},
      {"what XML does not hold", std::string("a\x01\0\x7F", 4), Kind::Text, 0, "a\uFFFD\uFFFD\uFFFD"},
      {"no characters", "a\xEF\xBF\xBE\xEF\xBF\xBF", Kind::Text, 0, "a\uFFFD\uFFFD"},
      {"bytes that are not UTF-8", "Mu\xF1oz", Kind::Text, 0, "Mu\uFFFDoz"},
      {"bytes of a binary field", std::string("\0\xFE", 2), Kind::Text, 0, "0x00FE", FieldType::VarBinary},
  });
}

std::string repeated(std::string_view part, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) text.append(part);
  return text;
}

TEST(Cell, LongTextsAreCutAndSaySo) {
  struct Long {
    const char* why;
    std::string value;
    std::size_t characters;
    bool isCut;
    FieldType type = FieldType::VarWChar;
  };
  const Long rows[] = {
      {"as long as may be", std::string(32767, 'x'), 32767, false},
      {"one more", std::string(32768, 'x'), 32767, true},
      {"accents count once", repeated("ñ", 32767), 32767, false},
      {"one more of them", repeated("ñ", 32768), 32767, true},
      {"characters of two units", repeated("\U0001F600", 16383), 16383, false},
      {"one more of two", repeated("\U0001F600", 16384), 16383, true},
      {"bytes", std::string(16382, '\0'), 32766, false, FieldType::LongVarBinary},
      {"one byte more", std::string(16383, '\0'), 32766, true, FieldType::LongVarBinary},
  };
  for (const Long& row : rows) {
    SCOPED_TRACE(row.why);
    const Cell cell = cellOf(row.value, row.type);
    EXPECT_EQ(utf8::length(cell.text), row.characters);
    EXPECT_TRUE(utf8::isValid(cell.text));
    EXPECT_EQ(cell.isCut, row.isCut);
    EXPECT_EQ(cell.text.ends_with("…"), row.isCut);
  }
}

TEST(Cell, HoldsNoObjects) {
  EXPECT_EQ(test::errorNumber([] { cellOf(Array{}, FieldType::VarWChar); }), error_number::kTypeMismatch);
}

}  // namespace
}  // namespace qvn::exports
