// Every field type with its limits, saved and read again.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

#include "qvn/data/drivers/persist/saved_value.h"
#include "qvn/data/iso_date.h"
#include "tests/data/drivers/persist/given_rows.h"
#include "tests/support/column_types.h"
#include "tests/support/locale_guard.h"
#include "tests/support/scratch_folder.h"

namespace qvn::data {
namespace {

using test::decimal;
Variant moment(std::string_view text) { return *parseIsoDate(text); }

// The same type and every bit of it; 1.50 is not 1.5.
void expectIdentical(const Variant& actual, const Variant& expected) {
  ASSERT_EQ(actual.type(), expected.type());
  if (const auto* number = expected.getIf<double>()) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(*actual.getIf<double>()), std::bit_cast<std::uint64_t>(*number));
  } else if (const auto* date = expected.getIf<Date>()) {
    EXPECT_EQ(actual.getIf<Date>()->serial(), date->serial());
  } else if (const auto* digits = expected.getIf<Decimal>()) {
    EXPECT_EQ(actual.getIf<Decimal>()->toText(), digits->toText());
  } else if (!expected.isNull()) {
    EXPECT_TRUE(equals(actual, expected));
  }
}

struct TypeCase {
  FieldType type;
  std::vector<Variant> values;
};

template <typename Whole>
std::vector<Variant> limits() {
  return {std::numeric_limits<Whole>::min(), std::numeric_limits<Whole>::max(), Whole{0}, Whole{7}};
}

template <typename Real>
std::vector<Variant> realLimits() {
  using Limits = std::numeric_limits<Real>;
  return {Limits::lowest(), Limits::max(), Limits::min(), Limits::denorm_min(), Real{0}, Real{1} / 3, Real{-12.5}};
}

std::vector<Variant> texts() {
  return {"",
          "María Muñoz",
          "& < > \" ' &amp; &#65; ]]> <!-- <!DOCTYPE <?xml",
          " \t\r\n\r\r\n dos  blancos \n\t ",
          "\xF0\x9F\x9B\x92\xF0\x9F\x87\xB2\xF0\x9F\x87\xBD",
          "\x7F\xC2\x80\xC2\x85\xE2\x80\xA8\xEF\xBB\xBF\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF4\x8F\xBF\xBD",
          std::string(1U << 20U, 'x') + "ñ"};
}

std::vector<Variant> bytes() { return {"", test::allBytes(), std::string(3, '\0'), "abc"}; }

std::vector<TypeCase> everyType() {
  const std::string nines(65, '9');
  return {
      {FieldType::SmallInt, limits<std::int16_t>()},
      {FieldType::Integer, limits<std::int32_t>()},
      {FieldType::Single, realLimits<float>()},
      {FieldType::Double, realLimits<double>()},
      {FieldType::Currency,
       {Currency::fromScaled(INT64_MIN), Currency::fromScaled(INT64_MAX), Currency::fromScaled(-1), Currency()}},
      {FieldType::Date, {Date(-657434), Date(-1.25), Date(0), Date(2958465.5), moment("2012-03-07 10:42:07.25")}},
      {FieldType::Boolean, {true, false}},
      {FieldType::TinyInt, {std::int16_t{-128}, std::int16_t{127}, std::int16_t{0}}},
      {FieldType::UnsignedTinyInt, limits<std::uint8_t>()},
      {FieldType::UnsignedSmallInt, {0, 65535, 7}},
      {FieldType::UnsignedInt, {std::int64_t{0}, std::int64_t{4294967295}, std::int64_t{7}}},
      {FieldType::BigInt, limits<std::int64_t>()},
      {FieldType::UnsignedBigInt, {decimal("0"), decimal("18446744073709551615"), decimal("7")}},
      {FieldType::Binary, bytes()},
      {FieldType::Char, texts()},
      {FieldType::WChar, texts()},
      {FieldType::Numeric,
       {decimal(nines), decimal("-" + nines), decimal("0." + nines.substr(1)), decimal("-0.00"), decimal("12.30")}},
      {FieldType::DbDate, {Date(-657434), Date(-1), Date(0), Date(2958465), Date(40975)}},
      {FieldType::DbTime, {Date(0), moment("23:59:59.999"), moment("10:42:07.123456"), Date(0.5)}},
      {FieldType::DbTimeStamp,
       {moment("0100-01-01 23:59:59.999"), moment("9999-12-31 23:59:59"), moment("1899-12-29 06:00:00.5"),
        moment("1899-12-30 00:00:01"), moment("2012-03-07 10:42:07.123456")}},
      {FieldType::VarChar, texts()},
      {FieldType::LongVarChar, texts()},
      {FieldType::VarWChar, texts()},
      {FieldType::LongVarWChar, texts()},
      {FieldType::VarBinary, bytes()},
      {FieldType::LongVarBinary, bytes()},
  };
}

void expectRoundTrip(const TypeCase& tested) {
  const test::ScratchFolder folder;
  std::vector<std::vector<Variant>> rows{{Null{}}};
  for (const Variant& value : tested.values) rows.push_back({value});
  rows.push_back({Null{}});
  const Column column{"valor", tested.type, 40, 65, 30};
  const RecordsetPtr again = test::saveAndLoad({{column}, rows}, folder.path());
  const Field& field = again->Fields(0);
  EXPECT_EQ(field.Type(), tested.type);
  EXPECT_EQ(field.DefinedSize(), 40);
  EXPECT_EQ(field.Precision(), 65);
  EXPECT_EQ(field.NumericScale(), 30);
  ASSERT_EQ(again->RecordCount(), static_cast<std::int64_t>(rows.size()));
  for (const std::vector<Variant>& row : rows) {
    SCOPED_TRACE(again->AbsolutePosition());
    expectIdentical(field.Value(), row[0]);
    again->MoveNext();
  }
}

TEST(SavedFieldTypes, ComeBackWithTheirLimits) {
  const std::vector<TypeCase> cases = everyType();
  ASSERT_EQ(cases.size(), 26u);
  for (const TypeCase& tested : cases) {
    SCOPED_TRACE(static_cast<int>(tested.type));
    expectRoundTrip(tested);
  }
}

TEST(SavedFieldTypes, DoNotDependOnRegionalSettings) {
  const test::LocaleGuard locale("de_DE.UTF-8");
  expectRoundTrip({FieldType::Double, {1234.5}});
  expectRoundTrip({FieldType::Currency, {Currency::fromScaled(-12345678)}});
  expectRoundTrip({FieldType::Numeric, {decimal("1234.50")}});
}

// An engine may hold any type in a column of text; its text is the same on every station.
TEST(SavedFieldTypes, OtherValuesInAColumnOfTextAreWrittenAlikeEverywhere) {
  struct Row {
    Variant value;
    const char* text;
  };
  const Row rows[] = {{1234.5, "1234.5"},
                      {0.25F, "0.25"},
                      {decimal("-1234.50"), "-1234.50"},
                      {Currency::fromScaled(15000), "1.5"},
                      {Date(40975.25), "2012-03-07T06:00:00"},
                      {70000, "70000"}};
  const test::LocaleGuard locale("de_DE.UTF-8");
  for (const FieldType type : {FieldType::VarWChar, FieldType::VarBinary}) {
    for (const Row& row : rows) {
      SCOPED_TRACE(row.text);
      const test::ScratchFolder folder;
      const RecordsetPtr again = test::saveAndLoad({{{"valor", type}}, {{row.value}}}, folder.path());
      expectIdentical(again->Fields(0).Value(), row.text);
    }
  }
}

// A date value's fraction runs forward before day zero too, so that these are less than a microsecond before midnight.
TEST(SavedFieldTypes, AMomentBeforeMidnightIsMidnight) {
  struct Row {
    double serial;
    double expected;
  };
  for (const Row& row : {Row{-1.9999999999999, 0}, Row{40974.9999999999927, 40975}, Row{-0.25, 0.25}}) {
    SCOPED_TRACE(row.serial);
    const test::ScratchFolder folder;
    const RecordsetPtr again =
        test::saveAndLoad({{{"valor", FieldType::DbTimeStamp}}, {{Date(row.serial)}}}, folder.path());
    expectIdentical(again->Fields(0).Value(), Date(row.expected));
  }
}

TEST(SavedFieldTypes, RefusesWhatATypeCannotHold) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  struct Row {
    const char* why;
    FieldType type;
    Variant value;
  };
  const Row rows[] = {
      {"not a number", FieldType::Double, std::nan("")},
      {"infinite", FieldType::Double, kInfinity},
      {"infinite below", FieldType::Double, -kInfinity},
      {"a single that is not a number", FieldType::Single, std::nanf("")},
      {"wider than a single", FieldType::Single, 1e300},
      {"finer than a single", FieldType::Single, 0.1},
      {"too large for its type", FieldType::SmallInt, 32768},
      {"too large for any whole type", FieldType::BigInt, 1e30},
      {"below zero without a sign", FieldType::UnsignedBigInt, -1},
      {"too many digits", FieldType::Numeric, 1e70},
      {"too large an amount", FieldType::Currency, 1e18},
      {"too fine an amount", FieldType::Currency, decimal("0.00005")},
      {"after the last day", FieldType::DbTimeStamp, Date(2958466)},
      {"not a date at all", FieldType::DbTimeStamp, "0000-00-00"},
      {"neither true nor false", FieldType::Boolean, 2},
      {"a fraction in a whole type", FieldType::Integer, 1.5},
      {"a text in a whole type", FieldType::Integer, "abc"},
      {"a time in a day", FieldType::DbDate, Date(40975.5)},
      {"a day in a time", FieldType::DbTime, Date(40975.5)},
      {"NUL in a text", FieldType::VarWChar, std::string("a\0b", 3)},
      {"half a character", FieldType::VarWChar, "\xC3"},
      {"half of a pair", FieldType::VarWChar, "\xED\xA0\x80"},
      {"no character by definition", FieldType::VarWChar, "\xEF\xBF\xBE"},
      {"an array", FieldType::VarWChar, Array{}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const test::ScratchFolder folder;
    const test::Refusal refusal = test::refusalToSave({{{"importe", row.type}}, {{row.value}}}, folder.path());
    EXPECT_EQ(refusal.number, error_number::kTypeMismatch);
    EXPECT_NE(refusal.words.find("«importe»"), std::string::npos) << refusal.words;
    EXPECT_EQ(folder.fileCount(), 0);
  }
}

TEST(SavedFieldTypes, AreWrittenAsOtherProgramsReadThem) {
  struct Row {
    FieldType type;
    Variant value;
    const char* text;
  };
  const Row rows[] = {
      {FieldType::SmallInt, std::int16_t{-32768}, "-32768"},
      {FieldType::UnsignedTinyInt, std::uint8_t{255}, "255"},
      {FieldType::BigInt, INT64_MIN, "-9223372036854775808"},
      {FieldType::UnsignedBigInt, decimal("18446744073709551615"), "18446744073709551615"},
      {FieldType::Single, 0.1F, "0.1"},
      {FieldType::Double, 0.1 + 0.2, "0.30000000000000004"},
      {FieldType::Currency, Currency::fromScaled(INT64_MIN), "-922337203685477.5808"},
      {FieldType::Numeric, decimal("12.30"), "12.30"},
      {FieldType::Boolean, true, "True"},
      {FieldType::Date, Date(-1.25), "1899-12-29T06:00:00"},
      {FieldType::DbDate, Date(40975), "2012-03-07"},
      {FieldType::DbTime, Date(0.5), "12:00:00"},
      {FieldType::VarWChar, "", ""},
  };
  for (const Row& row : rows) EXPECT_EQ(persist::formatValue(row.value, row.type), row.text);
}

TEST(SavedColumns, KeepTheirNames) {
  const char* const names[] = {
      "id",  "ID",  "Id",    "id",          "",    "un nombre", "año",   " ñ ",  "a&<>\"'b",        "c4",
      "c4_", "xml", "xmlns", "XMLns_lista", "1ro", "rs:x",      "a.b-c", "\t\n", "\xF0\x9F\x9B\x92"};
  std::vector<Column> columns;
  std::vector<Variant> row;
  for (const char* name : names) {
    columns.push_back({name, FieldType::VarWChar});
    row.emplace_back(std::to_string(columns.size()));
  }
  const test::ScratchFolder folder;
  const RecordsetPtr again = test::saveAndLoad({columns, {row}}, folder.path());
  ASSERT_EQ(again->FieldCount(), columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    EXPECT_EQ(again->Fields(i).Name(), columns[i].name);
    EXPECT_EQ(again->Fields(i).Value().toText(), std::to_string(i + 1));
  }
}

TEST(SavedColumns, RefusesANameThatTheFileCannotHold) {
  const test::ScratchFolder folder;
  EXPECT_EQ(test::refusalToSave({{{"uno\x01", FieldType::Integer}}, {}}, folder.path()).number,
            error_number::kTypeMismatch);
  EXPECT_EQ(folder.fileCount(), 0);
}

}  // namespace
}  // namespace qvn::data
