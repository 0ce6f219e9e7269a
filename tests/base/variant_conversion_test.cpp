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

using Outcomes = std::initializer_list<std::pair<Variant, std::string_view>>;

template <typename Result>
void expectOutcomes(Result (Variant::*convert)() const, Outcomes rows) {
  for (const auto& row : rows) {
    EXPECT_EQ(outcome([&] { return (row.first.*convert)(); }), row.second) << "row " << &row - rows.begin();
  }
}

enum Width { Byte, Integer, Long, LongLong, Beyond };

// Types narrower than the narrowest that takes the value overflow.
// clang-format off
struct WholeRow { Variant value; std::string_view expected; Width narrowest; };
// clang-format on

void expectWhole(std::initializer_list<WholeRow> rows) {
  for (const WholeRow& row : rows) {
    SCOPED_TRACE(testing::Message() << "row " << &row - rows.begin());
    const auto expected = [&row](Width width) { return width < row.narrowest ? "error 6" : row.expected; };
    EXPECT_EQ(outcome([&] { return row.value.toByte(); }), expected(Byte));
    EXPECT_EQ(outcome([&] { return row.value.toInteger(); }), expected(Integer));
    EXPECT_EQ(outcome([&] { return row.value.toLong(); }), expected(Long));
    EXPECT_EQ(outcome([&] { return row.value.toLongLong(); }), expected(LongLong));
  }
}

TEST(VariantToWhole, RoundsHalfToEvenAndOverflowsAtEachWidth) {
  // clang-format off
  expectWhole({
      {0.5, "0", Byte}, {1.5, "2", Byte}, {-0.5, "0", Byte}, {-2.5, "-2", Integer}, {2.5000000001, "3", Byte},
      {3.5F, "4", Byte}, {Currency::fromScaled(25000), "2", Byte}, {decimal("0.50000000000000000001"), "1", Byte},
      {"  4.5 ", "4", Byte}, {Date(1.5), "2", Byte}, {true, "-1", Integer}, {Empty{}, "0", Byte},
      // On both sides of each half beyond a limit.
      {255.4, "255", Byte}, {255.5, "256", Integer}, {32767.5, "32768", Long}, {-32768.5, "-32768", Integer},
      {2147483647.25, "2147483647", Long}, {2147483647.5, "2147483648", LongLong}, {-2147483648.5, "-2147483648", Long},
      {std::int64_t{2147483648}, "2147483648", LongLong}, {-0x1p63, "-9223372036854775808", LongLong},
      {"9007199254740993", "9007199254740993", LongLong}, {kMostMoney, "922337203685478", LongLong},
      {0x1p63, "", Beyond}, {~std::uint64_t{0}, "", Beyond}, {std::numeric_limits<double>::quiet_NaN(), "", Beyond},
  });
  // clang-format on
}

constexpr std::string_view k6 = "error 6", k13 = "error 13", k94 = "error 94", kMoney = "922337203685477.5807";

// clang-format off
struct RealRow { Variant value; std::string_view asDouble, asSingle, asCurrency, asDecimal; };
// clang-format on

void expectReals(const char* locale, std::initializer_list<RealRow> rows) {
  const test::LocaleGuard guard(locale);
  for (const RealRow& row : rows) {
    SCOPED_TRACE(testing::Message() << locale << ", row " << &row - rows.begin());
    EXPECT_EQ(outcome([&] { return row.value.toDouble(); }), row.asDouble);
    EXPECT_EQ(outcome([&] { return row.value.toSingle(); }), row.asSingle);
    EXPECT_EQ(outcome([&] { return row.value.toCurrency(); }), row.asCurrency);
    EXPECT_EQ(outcome([&] { return row.value.toDecimal(); }), row.asDecimal);
  }
}

TEST(VariantToReal, ReadsEveryTypeAndTextsByTheLocaleAtEachCall) {
  // clang-format off
  expectReals("C", {
      {Empty{}, "0", "0", "0", "0"}, {true, "-1", "-1", "-1", "-1"}, {0.25F, "0.25", "0.25", "0.25", "0.25"},
      {1.0 / 3, "0.3333333333333333", "0.33333334", "0.3333", "0.333333333333333"},
      {kCent, "0.01", "0.01", "0.01", "0.01"}, {0.00025, "0.00025", "0.00025", "0.0002", "0.00025"},
      {" 922337203685477.5807", "922337203685477.6", "922337200000000", kMoney, kMoney},
      {"1E5", "100000", "100000", "100000", "100000"}, {"1.5d-1", "0.15", "0.15", "0.15", "0.15"},
      {"-1,234.5", "-1234.5", "-1234.5", "-1234.5", "-1234.5"},
      // Beyond Currency, Single and Decimal.
      {922337203685477.7, "922337203685477.8", "922337200000000", k6, "922337203685478"},
      {std::int64_t{9007199254740993}, "9.007199254740992E+15", "9.007199E+15", k6, "9007199254740993"},
      {1e39, "1E+39", k6, k6, "1000000000000000000000000000000000000000"}, {-1e300, "-1E+300", k6, k6, k6},
      {Null{}, k94, k94, k94, k94}, {"+-1", k13, k13, k13, k13}, {"True", k13, k13, k13, k13},
      {"  ", k13, k13, k13, k13}, {Array{}, k13, k13, k13, k13}, {ObjectPtr{}, k13, k13, k13, k13},
  });
  expectReals("es_MX.UTF-8", {{"1,234.5", "1234.5", "1234.5", "1234.5", "1234.5"}, {"1.234,5", k13, k13, k13, k13}});
  expectReals("es_ES.UTF-8", {{"1.234,5", "1234,5", "1234,5", "1234,5", "1234,5"}, {"1,234.5", k13, k13, k13, k13}});
  expectReals("de_DE.UTF-8", {
      {"0,12345678901234567890", "0,12345678901234568", "0,12345679", "0,1235", "0,1234567890123456789"}, {"", k13, k13, k13, k13},
  });
  // clang-format on
}

TEST(VariantToBoolean, KnowsWordsAndNumbers) {
  // clang-format off
  expectOutcomes(&Variant::toBoolean, {
      {"True", "True"}, {" fALSE ", "False"}, {"0.0", "False"}, {"-3", "True"}, {0.1, "True"}, {Empty{}, "False"},
      {kCent, "True"}, {Date(0), "False"}, {Null{}, k94}, {"verdadero", k13}, {"", k13}, {Array{}, k13},
  });
  // clang-format on
}

TEST(VariantToDate, ReadsTextsAndSerials) {
  const test::LocaleGuard guard("es_MX.UTF-8");
  // clang-format off
  expectOutcomes(&Variant::toDate, {
      {"07/03/2012", "07/03/2012"}, {"2012-03-07", "07/03/2012"}, {40975, "07/03/2012"},
      {"40975.5", "07/03/2012 12:00:00"}, {Empty{}, "00:00:00"},
      // The last and the first moment, and one day beyond.
      {2958465.99, "31/12/9999 23:45:36"}, {2958466, k6}, {-657434.99, "01/01/0100 23:45:36"}, {-657435, k6},
      {"hoy", k13}, {Null{}, k94}, {ObjectPtr{}, k13},
  });
  // clang-format on
}

TEST(VariantFromIntegral, TakesTheTypeOfItsWidth) {
  using Type = VariantType;
  // clang-format off
  const std::pair<Variant, Type> rows[] = {
      {true, Type::Boolean}, {std::uint8_t{200}, Type::Byte}, {std::int8_t{-1}, Type::Integer},
      {std::int16_t{-1}, Type::Integer}, {std::uint16_t{65535}, Type::Long}, {-1, Type::Long},
      {4294967295U, Type::LongLong}, {std::int64_t{-1}, Type::LongLong}, {~std::uint64_t{0}, Type::Decimal},
      {"text", Type::String}};
  // clang-format on
  for (const auto& row : rows) {
    EXPECT_EQ(row.first.type(), row.second);
    EXPECT_EQ(row.first.isNumeric(), row.second != Type::String);
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
