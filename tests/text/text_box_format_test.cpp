#include "qvn/text/text_box_format.h"

#include <gtest/gtest.h>

#include "qvn/base/runtime_error.h"
#include "qvn/text/pattern.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

TEST(AplicaFormato, FormatsByTag) {
  struct Row {
    std::string_view tag, text, given, expected;
  };
  // clang-format off
  static constexpr Row kRows[] = {
      {"N", "1234.5", "", "1234.5"}, {"SD", "1234.5", "", "1234.50"}, {"FE", "1234.5", "", "1234.500"},
      // a given pattern stands for A and B, not for C; a blank one counts as none
      {"N", "1234.5", "0.0000", "1234.5000"}, {"SD", "1234.5", "0.0000", "1234.5000"},
      {"FE", "1234.5", "0.0000", "1234.500"}, {"SD", "1234.5", "  ", "1234.50"},
      {"D", " 1234.50 ", "", "1234.5"}, {"SN", "abc", "", "0"}, {"N", "abc", "", "abc"}, {"SF", "1234.5", "", ""},
      {"ND", "1234567.8", "", "1,234,568"},
      // any other tag; tags are compared exactly, with their blanks
      {"", " abc ", "", " abc "}, {"sd", "1234.50", "", "1234.50"}, {"SD ", "1234.5", "", "1234.5"},
  };
  // clang-format on
  const test::LocaleGuard states("en_US.UTF-8");
  host::SimpleAmbiente environment;
  environment.setFormatoA("0.00");
  environment.setFormatoB("0.0");
  environment.setFormatoC("0.000");
  for (const Row& row : kRows) {
    host::SimpleTextBox box{std::string(row.text), std::string(row.tag), 3};
    EXPECT_EQ(AplicaFormato(box, &environment, row.given), row.expected) << row.tag << ": " << row.text;
    EXPECT_EQ(box.text, row.text);
    EXPECT_EQ(box.selStart, 3);
  }
  const test::LocaleGuard spain("es_ES.UTF-8");
  host::SimpleTextBox box("1234,5", "SD");
  EXPECT_EQ(AplicaFormato(box, &environment), "1234,50");
}

// A box that moves its caret whenever its text is read, and fails where it is told to.
class AwkwardBox final : public host::TextBox {
 public:
  [[nodiscard]] std::string Text() const override {
    caret = 0;
    return answer(failsAtText, "1234.5");
  }
  [[nodiscard]] std::string Tag() const override { return answer(failsAtTag, "SN"); }
  [[nodiscard]] std::int32_t SelStart() const override { return answer(failsAtCaret, caret); }
  void setSelStart(std::int32_t position) override { caret = answer(failsAtCaret, position); }

  mutable std::int32_t caret = 4;
  bool failsAtText = false;
  bool failsAtTag = false;
  bool failsAtCaret = false;

 private:
  template <typename Value>
  static Value answer(bool fails, Value value) {
    if (fails) throw RuntimeError(error_number::kObjectNotSet);
    return value;
  }
};

TEST(AplicaFormato, GoesOnAfterAFailingProperty) {
  const test::LocaleGuard states("en_US.UTF-8");
  AwkwardBox box;
  EXPECT_EQ(AplicaFormato(box, nullptr, "0"), "1234.5");
  EXPECT_EQ(box.caret, 4) << "the caret is put back";
  box.failsAtTag = true;
  EXPECT_EQ(AplicaFormato(box, nullptr, "0"), "1234.5") << "no tag leaves the text";
  box.failsAtText = true;
  EXPECT_EQ(AplicaFormato(box, nullptr, "0"), "");
  AwkwardBox caretless;
  caretless.failsAtCaret = true;
  EXPECT_EQ(AplicaFormato(caretless, nullptr, "0"), "1234.5");

  host::SimpleTextBox withoutEnvironment("1234.5", "SD");
  EXPECT_EQ(AplicaFormato(withoutEnvironment, nullptr, "0.00"), "1234.50");
  EXPECT_EQ(AplicaFormato(withoutEnvironment, nullptr), "1234.5");
  withoutEnvironment.tag = "FE";
  EXPECT_EQ(AplicaFormato(withoutEnvironment, nullptr, "0.00"), "1234.5");
}

TEST(Formato, TakesThePatternAsText) {
  const test::LocaleGuard states("en_US.UTF-8");
  EXPECT_EQ(Formato(1234.5, "#,##0.00").toText(), "1,234.50");
  EXPECT_EQ(Formato(7, 0).toText(), "7");
  EXPECT_EQ(test::errorNumber([] { Formato(1, Null{}); }), 94);
}

}  // namespace
}  // namespace qvn::text
