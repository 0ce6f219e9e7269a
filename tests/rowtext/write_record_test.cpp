#include "qvn/rowtext/write_record.h"

#include "qvn/rowtext/internal/value_text.h"
#include "qvn/rowtext/read_record.h"
#include "tests/conformance/conformance.h"
#include "tests/support/locale_guard.h"

namespace qvn::test {
namespace {

std::string valueText(const Variant& value) {
  std::string text;
  rowtext::internal::ValueWriter(text).append(value);
  return text;
}

TEST(WsRecordSet, WritesEachTypeOfVariant) {
  const std::pair<Variant, const char*> rows[] = {
      {Empty{}, "Null"},
      {Null{}, "Null"},
      {true, "-1"},
      {false, "0"},
      {std::uint8_t{255}, "255"},
      {std::int16_t{-5}, "-5"},
      {std::int32_t{-2147483647 - 1}, "-2147483648"},
      {std::int64_t{9007199254740993}, "9007199254740993"},
      {0.1F, "0.100000001490116"},
      {1234.5, "1234.5"},
      {0.1 + 0.2, "0.3"},
      {-0.0, "0"},
      {1e15, "1E+15"},
      {999999999999999.0, "999999999999999"},
      {-0.0001, "-0.0001"},
      {100000.00005, "100000.00005"},
      {20.0, "20"},
      {Currency::fromScaled(105000), "10.5"},
      {*Decimal::fromText("12.30"), "12.3"},
      {"A\"B", "\"A\"B\""},
      {"", "\"\""},
      {"\xFF", "\"\xFF\""},
  };
  for (const char* locale : {"C", "es_ES.UTF-8"}) {
    const LocaleGuard guard(locale);
    for (const auto& [value, text] : rows) EXPECT_EQ(valueText(value), text) << locale;
  }
  EXPECT_EQ(errorNumber([] { valueText(Array{}); }), 13);
  EXPECT_EQ(errorNumber([] { valueText(Date(1e9)); }), 5);
}

TEST(WsRecordSet, DatesHaveTheRegionalSeparatorAndNoTime) {
  const Date date = Date::fromCivil(2024, 3, 5, {23, 59, 59});
  const std::pair<const char*, const char*> rows[] = {{"es_ES.UTF-8", "#05/03/2024#"}, {"de_DE.UTF-8", "#05.03.2024#"}};
  for (const auto& [locale, text] : rows) {
    const LocaleGuard guard(locale);
    EXPECT_EQ(valueText(date), text);
  }
}

using RecordLine = Conformance;

TEST_P(RecordLine, EveryDriversRowReadsBack) {
  createProducts();
  for (const char* locale : {"es_ES.UTF-8", "en_US.UTF-8"}) {
    const LocaleGuard guard(locale);
    for (const auto location : {data::CursorLocation::Server, data::CursorLocation::Client}) {
      const auto rows = open("SELECT * FROM prods ORDER BY articulo", location);
      rows->MoveNext();
      EXPECT_TRUE(rowtext::fieldOf(rowtext::WsFields(rowtext::WsRecordSet(rows))->Item("precio1"))->value.isNull());
      rows->MoveNext();
      const std::string line = rowtext::WsRecordSet(rows);
      EXPECT_EQ(rowtext::WsRecordSet(rows), line) << "the recordset does not move";
      const auto fields = rowtext::WsFields(line);
      ASSERT_EQ(fields->Count(), 4) << line;
      EXPECT_EQ(rowtext::fieldOf(fields->Item("Nombre"))->value.toText(), "Cañería de ½\"");
      EXPECT_EQ(rowtext::fieldOf(fields->Item("PRECIO1"))->value.toDouble(), 80.25);
      EXPECT_EQ(rowtext::fieldOf(fields->Item(4))->value.toDouble(), 0);
      rows->MoveNext();
      EXPECT_EQ(rowtext::WsRecordSet(rows), "");
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Engines, RecordLine, testing::ValuesIn(engines()), engineName);

}  // namespace
}  // namespace qvn::test
