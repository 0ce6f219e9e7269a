#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "qvn/automation/parse_json.h"
#include "qvn/automation/values.h"
#include "qvn/base/runtime_error.h"
#include "tests/support/error_of.h"

namespace qvn::automation {
namespace {

TEST(Json, ReadsAndWritesTheSameText) {
  for (const std::string text :
       {R"(null)", R"(true)", R"(12345678901234567890.123456789012345678)", R"(-0.5e+3)", R"("ñ\"\\\n\u0001")", R"([])",
        R"([1,[2,{}]])", R"({"a":{"b":[true,false,null]},"":0})"}) {
    EXPECT_EQ(toText(parseJson(text)), text);
  }
  EXPECT_EQ(toText(parseJson(" { \"a\" : [ 1 , \"\\u00f1\\ud83d\\ude00\" ] } \r")), R"({"a":[1,"ñ😀"]})");
}

TEST(Json, RefusesWhatIsNoJson) {
  const std::string nul("{\"a\":1}\0{", 9);
  for (const std::string& text :
       {std::string(), std::string("{"), std::string("{\"a\":}"), std::string("[1,]"), std::string("'a'"),
        std::string("01"), std::string("1 2"), std::string("{\"a\":\"\x80\"}"), std::string("\"\t\""),
        std::string("NaN"), nul, std::string(65, '[') + std::string(65, ']'), std::string(1000000, '[')}) {
    SCOPED_TRACE(text.substr(0, 40));
    EXPECT_EQ(test::errorNumber([&] { parseJson(text); }), 5);
  }
  EXPECT_NO_THROW(parseJson(std::string(64, '[') + std::string(64, ']')));
}

TEST(Json, LastOfEqualNamesCounts) { EXPECT_EQ(parseJson(R"({"a":1,"a":2})").find("a")->whole(), 2); }

TEST(Json, NumbersAreTheShortestThatReadBack) {
  EXPECT_EQ(toText(Json(0.1)), "0.1");
  EXPECT_EQ(toText(Json(0.1F)), "0.1");
  EXPECT_EQ(toText(Json(-0.0)), "0");
  EXPECT_EQ(toText(Json(1e300)), "1e+300");
  EXPECT_EQ(toText(Json(std::numeric_limits<double>::infinity())), "null");
  EXPECT_EQ(toText(Json(std::numeric_limits<std::int64_t>::min())), "-9223372036854775808");
}

TEST(Values, ArriveAsTheyWereSent) {
  struct Row {
    const char* json;
    VariantType type;
    const char* text;
    const char* back;  ///< "" when it is the same
  };
  static constexpr Row kRows[] = {
      {"5", VariantType::Long, "5", ""},
      {"2147483648", VariantType::LongLong, "2147483648", ""},
      {"5.5", VariantType::Double, "5.5", ""},
      {"1e2", VariantType::Double, "100", "100"},
      {"true", VariantType::Boolean, "True", ""},
      {R"("ñ")", VariantType::String, "ñ", ""},
      {R"({"empty":true})", VariantType::Empty, "", ""},
      {R"({"date":"2012-03-07T10:42:07"})", VariantType::Date, nullptr, ""},
      {R"({"date":"2012-03-07"})", VariantType::Date, nullptr, R"({"date":"2012-03-07T00:00:00"})"},
      {R"({"type":"Currency","value":10.5})", VariantType::Currency, "10.5", ""},
      {R"({"type":"Decimal","value":"12345678901234567890.12"})", VariantType::Decimal, "12345678901234567890.12",
       R"({"type":"Decimal","value":12345678901234567890.12})"},
      {R"({"type":"Byte","value":255})", VariantType::Byte, "255", "255"},
      {R"({"type":"Integer","value":-3})", VariantType::Integer, "-3", "-3"},
      {R"({"type":"LongLong","value":3})", VariantType::LongLong, "3", "3"},
      {R"({"type":"Single","value":0.1})", VariantType::Single, "0.1", "0.1"},
      {R"({"type":"Double","value":3})", VariantType::Double, "3", "3"},
      {R"({"bytes":"AP9h"})", VariantType::String, nullptr, ""},
      {R"({"bytes":"YQ=="})", VariantType::String, "a", R"("a")"},
  };
  ObjectTable objects;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.json);
    const Variant value = toVariant(parseJson(row.json), objects);
    EXPECT_EQ(value.type(), row.type);
    if (row.text != nullptr) {
      EXPECT_EQ(value.toText(), row.text);
    }
    EXPECT_EQ(toText(toJson(value, objects)), *row.back == '\0' ? row.json : row.back);
  }
  for (const char* null : {"null", R"({"null":true})"}) EXPECT_TRUE(toVariant(parseJson(null), objects).isNull());
}

TEST(Values, RefuseWhatTheyCannotBe) {
  struct Row {
    const char* json;
    std::int32_t error;
  };
  static constexpr Row kRows[] = {
      {"{}", 13},
      {R"({"null":false})", 13},
      {R"({"date":"2012-02-30"})", 5},
      {R"({"date":7})", 13},
      {R"({"type":"Byte","value":256})", 6},
      {R"({"type":"Long","value":2147483648})", 6},
      {R"({"type":"Long"})", 13},
      {R"({"type":"Long","value":"x"})", 13},
      {R"({"type":"Money","value":1})", 13},
      {R"({"bytes":"a"})", 13},
      {R"({"bytes":"a=b="})", 13},
      {R"({"object":1})", 91},
      {"1e999", 5},
      {R"([1,{"object":1}])", 91},
  };
  const ObjectTable objects;
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.json);
    EXPECT_EQ(test::errorNumber([&] { toVariant(parseJson(row.json), objects); }), row.error);
  }
}

}  // namespace
}  // namespace qvn::automation
