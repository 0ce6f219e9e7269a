#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "qvn/base/variant.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn {
namespace {

// What a conversion gave: its value as text, or "error" with its number.
template <typename Conversion>
std::string outcome(Conversion convert) {
  std::string text;
  const std::int32_t error = test::errorNumber([&] { text = Variant(convert()).toText(); });
  return error == 0 ? text : "error " + std::to_string(error);
}

const Currency kCent = Currency::fromScaled(100);
const Currency kMostMoney = Currency::fromScaled(std::numeric_limits<std::int64_t>::max());
Decimal decimal(std::string_view text) { return Decimal::fromText(text).value(); }

struct WholeRow {
  const char* why;
  Variant value;
  std::string_view asByte, asInteger, asLong, asLongLong;
};

void expectWhole(std::initializer_list<WholeRow> rows) {
  for (const WholeRow& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(outcome([&] { return row.value.toByte(); }), row.asByte);
    EXPECT_EQ(outcome([&] { return row.value.toInteger(); }), row.asInteger);
    EXPECT_EQ(outcome([&] { return row.value.toLong(); }), row.asLong);
    EXPECT_EQ(outcome([&] { return row.value.toLongLong(); }), row.asLongLong);
  }
}

TEST(VariantToWhole, RoundsHalfToEven) {
  expectWhole({{"half above even", 0.5, "0", "0", "0", "0"},
               {"half above odd", 1.5, "2", "2", "2", "2"},
               {"half below zero", -0.5, "0", "0", "0", "0"},
               {"half below odd", -2.5, "error 6", "-2", "-2", "-2"},
               {"just above a half", 2.5000000001, "3", "3", "3", "3"},
               {"Single", 3.5F, "4", "4", "4", "4"},
               {"Currency", Currency::fromScaled(25000), "2", "2", "2", "2"},
               {"Decimal that no Double tells from a half", decimal("0.50000000000000000001"), "1", "1", "1", "1"},
               {"text", "  4.5 ", "4", "4", "4", "4"},
               {"Date at noon", Date(1.5), "2", "2", "2", "2"},
               {"True", true, "error 6", "-1", "-1", "-1"},
               {"Empty", Empty{}, "0", "0", "0", "0"}});
}

TEST(VariantToWhole, OverflowsAtEachWidth) {
  expectWhole(
      {{"rounds down to the largest Byte", 255.4, "255", "255", "255", "255"},
       {"half beyond the largest Byte", 255.5, "error 6", "256", "256", "256"},
       {"half beyond the largest Integer", 32767.5, "error 6", "error 6", "32768", "32768"},
       {"half below the smallest Integer goes to even", -32768.5, "error 6", "-32768", "-32768", "-32768"},
       {"half beyond the largest Long", 2147483647.5, "error 6", "error 6", "error 6", "2147483648"},
       {"below the half beyond the largest Long", 2147483647.25, "error 6", "error 6", "2147483647", "2147483647"},
       {"half below the smallest Long", -2147483648.5, "error 6", "error 6", "-2147483648", "-2147483648"},
       {"a 64-bit number", std::int64_t{2147483648}, "error 6", "error 6", "error 6", "2147483648"},
       {"2^63", 0x1p63, "error 6", "error 6", "error 6", "error 6"},
       {"-2^63", -0x1p63, "error 6", "error 6", "error 6", "-9223372036854775808"},
       {"beyond a Double's digits", "9007199254740993", "error 6", "error 6", "error 6", "9007199254740993"},
       {"the largest unsigned", ~std::uint64_t{0}, "error 6", "error 6", "error 6", "error 6"},
       {"the largest Currency", kMostMoney, "error 6", "error 6", "error 6", "922337203685478"},
       {"not a number", std::numeric_limits<double>::quiet_NaN(), "error 6", "error 6", "error 6", "error 6"}});
}

TEST(VariantToReal, ReadsEveryType) {
  struct Row {
    const char* why;
    Variant value;
    std::string_view asDouble, asSingle, asCurrency, asDecimal;
  };
  const Row rows[] = {
      {"Empty", Empty{}, "0", "0", "0", "0"},
      {"Null", Null{}, "error 94", "error 94", "error 94", "error 94"},
      {"True", true, "-1", "-1", "-1", "-1"},
      {"Single", 0.25F, "0.25", "0.25", "0.25", "0.25"},
      {"a third", 1.0 / 3, "0.3333333333333333", "0.33333334", "0.3333", "0.333333333333333"},
      {"Currency", kCent, "0.01", "0.01", "0.01", "0.01"},
      {"Currency's half goes to even", 0.00025, "0.00025", "0.00025", "0.0002", "0.00025"},
      {"exact text", " 922337203685477.5807", "922337203685477.6", "922337200000000", "922337203685477.5807",
       "922337203685477.5807"},
      {"beyond Currency", 922337203685477.7, "922337203685477.8", "922337200000000", "error 6", "922337203685478"},
      {"beyond Single", 1e39, "1E+39", "error 6", "error 6", "1000000000000000000000000000000000000000"},
      {"beyond Decimal", -1e300, "-1E+300", "error 6", "error 6", "error 6"},
      {"text with E", "1E5", "100000", "100000", "100000", "100000"},
      {"text with D", "1.5d-1", "0.15", "0.15", "0.15", "0.15"},
      {"text with thousands", "-1,234.5", "-1234.5", "-1234.5", "-1234.5", "-1234.5"},
      {"two signs", "+-1", "error 13", "error 13", "error 13", "error 13"},
      {"a word", "True", "error 13", "error 13", "error 13", "error 13"},
      {"blank text", "  ", "error 13", "error 13", "error 13", "error 13"},
      {"Array", Array{}, "error 13", "error 13", "error 13", "error 13"},
      {"Object", ObjectPtr{}, "error 13", "error 13", "error 13", "error 13"},
      {"64 bits", std::int64_t{9007199254740993}, "9.007199254740992E+15", "9.007199E+15", "error 6",
       "9007199254740993"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(outcome([&] { return row.value.toDouble(); }), row.asDouble);
    EXPECT_EQ(outcome([&] { return row.value.toSingle(); }), row.asSingle);
    EXPECT_EQ(outcome([&] { return row.value.toCurrency(); }), row.asCurrency);
    EXPECT_EQ(outcome([&] { return row.value.toDecimal(); }), row.asDecimal);
  }
}

TEST(VariantToBoolean, KnowsWordsAndNumbers) {
  const std::pair<Variant, std::string_view> rows[] = {
      {"True", "True"}, {" fALSE ", "False"},  {"0.0", "False"},
      {"-3", "True"},   {0.1, "True"},         {Empty{}, "False"},
      {kCent, "True"},  {Null{}, "error 94"},  {"verdadero", "error 13"},
      {"", "error 13"}, {Array{}, "error 13"}, {Date(0), "False"}};
  for (const auto& row : rows) EXPECT_EQ(outcome([&] { return row.first.toBoolean(); }), row.second) << row.second;
}

TEST(VariantToDate, ReadsTextsAndSerials) {
  const test::LocaleGuard guard("es_MX.UTF-8");
  const std::pair<Variant, std::string_view> rows[] = {
      {"07/03/2012", "07/03/2012"}, {"2012-03-07", "07/03/2012"},
      {40975, "07/03/2012"},        {"40975.5", "07/03/2012 12:00:00"},
      {Empty{}, "00:00:00"},        {2958465.99, "31/12/9999 23:45:36"},
      {2958466, "error 6"},         {-657434.99, "01/01/0100 23:45:36"},
      {-657435, "error 6"},         {"hoy", "error 13"},
      {Null{}, "error 94"},         {ObjectPtr{}, "error 13"}};
  for (const auto& row : rows) EXPECT_EQ(outcome([&] { return row.first.toDate(); }), row.second) << row.second;
}

TEST(VariantFromText, FollowsTheLocaleAtEachCall) {
  struct Row {
    const char* locale;
    const char* text;
    std::string_view asDouble, asDecimal;
  };
  const Row rows[] = {{"C", "1,234.5", "1234.5", "1234.5"},
                      {"es_MX.UTF-8", "1234.5", "1234.5", "1234.5"},
                      {"es_MX.UTF-8", "1,234.5", "1234.5", "1234.5"},
                      {"es_ES.UTF-8", "1.234,5", "1234,5", "1234,5"},
                      {"de_DE.UTF-8", "0,12345678901234567890", "0,12345678901234568", "0,1234567890123456789"},
                      {"es_ES.UTF-8", "1,234.5", "error 13", "error 13"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::Message() << row.locale << ": " << row.text);
    const test::LocaleGuard guard(row.locale);
    EXPECT_EQ(outcome([&] { return Variant(row.text).toDouble(); }), row.asDouble);
    EXPECT_EQ(outcome([&] { return Variant(row.text).toDecimal(); }), row.asDecimal);
  }
}

TEST(VariantFromIntegral, TakesTheTypeOfItsWidth) {
  const std::pair<Variant, VariantType> rows[] = {{true, VariantType::Boolean},
                                                  {std::uint8_t{200}, VariantType::Byte},
                                                  {std::int8_t{-1}, VariantType::Integer},
                                                  {std::int16_t{-1}, VariantType::Integer},
                                                  {std::uint16_t{65535}, VariantType::Long},
                                                  {-1, VariantType::Long},
                                                  {4294967295U, VariantType::LongLong},
                                                  {std::int64_t{-1}, VariantType::LongLong},
                                                  {~std::uint64_t{0}, VariantType::Decimal},
                                                  {"text", VariantType::String}};
  for (const auto& row : rows) {
    EXPECT_EQ(row.first.type(), row.second);
    EXPECT_EQ(row.first.isNumeric(), row.second != VariantType::String);
  }
  EXPECT_EQ(Variant(~std::uint64_t{0}).toText(), "18446744073709551615");
  EXPECT_EQ(Variant(4294967295U).toText(), "4294967295");
}

TEST(VariantAssignText, UsesTheMemoryOfTheTextBefore) {
  Variant value(std::string(1000, 'x'));
  const char* const before = value.getIf<std::string>()->data();
  value.assignText(std::string(500, 'y'));
  EXPECT_EQ(value.getIf<std::string>()->data(), before);
  EXPECT_EQ(value.toText(), std::string(500, 'y'));
  value.assignText(std::string_view(*value.getIf<std::string>()).substr(490));
  EXPECT_EQ(value.toText(), std::string(10, 'y'));
  Variant number(1);
  number.assignText("uno");
  EXPECT_EQ(number.toText(), "uno");
}

}  // namespace
}  // namespace qvn
