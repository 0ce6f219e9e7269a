#include "qvn/rowtext/read_record.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::rowtext {
namespace {

// "name=S:text|" for a String, "name=D:number|" for a Double, "name=N|" for Null.
std::string contents(std::string_view line) {
  std::string text;
  const auto fields = WsFields(line);
  for (const Variant& item : *fields) {
    const WsField& field = *fieldOf(item);
    text += field.Key + "=";
    text += field.value.isNull() ? "N|" : (field.value.isText() ? "S:" : "D:") + field.value.toText() + "|";
  }
  return text;
}

TEST(WsFields, ReadsValuesByTheirFirstCharacter) {
  static constexpr std::pair<const char*, const char*> kRows[] = {
      {"", ""},
      {"¨ ¨¨  ¨", ""},
      {"¨nombre[&&,]\"ABC\"¨", "nombre=S:ABC|"},
      {"¨a[&&,]\"A\"B\"¨b[&&,]\"\"¨", "a=S:A\"B|b=S:|"},
      {"¨a[&&,]#05/03/2024#¨", "a=S:05/03/2024|"},
      {"¨a[&&,]Null¨b[&&,]null¨", "a=N|b=D:0|"},
      {"x[&&,]abc¨", "x=D:0|"},
      {"x[&&,]¨y[&&,]-1", "x=D:0|y=D:-1|"},
      {"a[&&,]1[&&,]2¨", "a=D:1|"},
      {"[&&,]1¨[&&,]2¨", "=D:1|=D:2|"},
      {" a [&&,]\"b¨", " a =S:|"},
      {"a[&&,]\"xñ¨b[&&,]\"x\xC3¨", "a=S:x|b=S:x|"},
      {"b[&&,]1e3¨c[&&,].5¨d[&&,]+7¨", "b=D:1000|c=D:0.5|d=D:7|"},
  };
  for (const auto& [line, expected] : kRows) EXPECT_EQ(contents(line), expected);
}

// Marks are looked for some bytes at a time: they, and what only begins like them, may stand anywhere.
TEST(WsFields, FindsMarksAtEveryPlace) {
  for (std::size_t before = 0; before < 20; ++before) {
    const std::string name = "[&ª" + std::string(before, 'n');
    for (std::size_t inside = 0; inside < 20; ++inside) {
      const std::string value = std::string(inside, '7') + "[&&,)Â[";
      EXPECT_EQ(contents(name + "[&&,]\"" + value + "\"¨z[&&,]1"), name + "=S:" + value + "|z=D:1|");
      EXPECT_EQ(contents(name + "[&&,]\"" + value + "\"[&&,]x[&&,]y¨"), name + "=S:" + value + "|");
    }
    EXPECT_EQ(test::errorNumber([&] { WsFields(name + "[&&,¨x[&&,]1"); }), 9);
  }
}

TEST(WsFields, RefusesWhatNoLineHolds) {
  static constexpr std::pair<const char*, std::int32_t> kRows[] = {
      {"¨a¨", 9},        {"a[&&,]1\n", 0}, {"a[&&,]1¨\n", 9},   {"¨a[&&,]1¨A[&&,]2¨", 457}, {"ñ[&&,]1¨Ñ[&&,]2", 457},
      {"¨a[&&,]\"¨", 5}, {"¨a[&&,]#¨", 5}, {"¨a[&&,]\xFF¨", 0},
  };
  for (const auto& [line, number] : kRows) EXPECT_EQ(test::errorNumber([&] { WsFields(line); }), number) << line;
}

TEST(WsFields, NumbersReadAlikeUnderEveryLocale) {
  for (const char* locale : {"C", "es_ES.UTF-8", "de_DE.UTF-8", "en_US.UTF-8"}) {
    const test::LocaleGuard guard(locale);
    static constexpr std::pair<const char*, double> kRows[] = {
        {"1234.5", 1234.5},
        {"-0.01", -0.01},
        {"123456789012.345", 123456789012.345},
        {"1E+20", 1e20},
        {"0.000000000000001", 1e-15},
        {"9007199254740993", 9007199254740992},
    };
    for (const auto& [raw, value] : kRows) {
      const auto fields = WsFields("n[&&,]" + std::string(raw));
      EXPECT_EQ(fieldOf(fields->Item(1))->value.toDouble(), value) << locale;
    }
  }
}

TEST(WsFields, ALongLineIsReadInOnePass) {
  std::string line;
  constexpr int kFields = 200000;
  for (int i = 0; i < kFields; ++i) line += "¨f" + std::to_string(i) + "[&&,]\"" + std::string(480, 'x') + "\"";
  const auto fields = WsFields(line += "¨");
  ASSERT_EQ(fields->Count(), kFields);
  EXPECT_EQ(fieldOf(fields->Item("F199999"))->value.toText().size(), 480u);
}

}  // namespace
}  // namespace qvn::rowtext
