#include "qvn/text/text_box_format.h"

#include <gtest/gtest.h>

#include "qvn/base/runtime_error.h"
#include "qvn/text/pattern.h"
#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"

namespace qvn::text {
namespace {

host::SimpleAmbiente patterns() {
  host::SimpleAmbiente environment;
  environment.setFormatoA("0.00");
  environment.setFormatoB("0.0");
  environment.setFormatoC("0.000");
  return environment;
}

TEST(AplicaFormato, FormatsByTag) {
  struct Row {
    const char* why;
    std::string_view tag;
    std::string_view text;
    std::string_view given;
    std::string_view expected;
  };
  static constexpr Row kRows[] = {
      {"pattern B", "N", "1234.5", "", "1234.5"},
      {"pattern A", "SD", "1234.5", "", "1234.50"},
      {"pattern C", "FE", "1234.5", "", "1234.500"},
      {"a given pattern as B", "N", "1234.5", "0.0000", "1234.5000"},
      {"a given pattern as A", "SD", "1234.5", "0.0000", "1234.5000"},
      {"a given pattern does not replace C", "FE", "1234.5", "0.0000", "1234.500"},
      {"a blank pattern counts as none", "SD", "1234.5", "  ", "1234.50"},
      {"general number", "D", " 1234.50 ", "", "1234.5"},
      {"general number, no number", "SN", "abc", "", "0"},
      {"pattern B leaves text that is no number", "N", "abc", "", "abc"},
      {"nothing is done", "SF", "1234.5", "", ""},
      {"thousands", "ND", "1234567.8", "", "1,234,568"},
      {"no tag", "", " abc ", "", " abc "},
      {"tags are compared exactly", "sd", "1234.50", "", "1234.50"},
      {"with their blanks", "SD ", "1234.5", "", "1234.5"},
  };
  const test::LocaleGuard states("en_US.UTF-8");
  const host::SimpleAmbiente environment = patterns();
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.why);
    host::SimpleTextBox box{std::string(row.text), std::string(row.tag), 3};
    EXPECT_EQ(AplicaFormato(box, &environment, row.given), row.expected);
    EXPECT_EQ(box.text, row.text);
    EXPECT_EQ(box.selStart, 3);
  }
}

TEST(AplicaFormato, UsesTheRegionalSeparator) {
  const test::LocaleGuard spain("es_ES.UTF-8");
  const host::SimpleAmbiente environment = patterns();
  host::SimpleTextBox box("1234,5", "SD");
  EXPECT_EQ(AplicaFormato(box, &environment), "1234,50");
  box.tag = "SN";
  EXPECT_EQ(AplicaFormato(box, &environment), "1234,5");
}

// A box that moves its caret whenever its text is read, and fails where it is told to.
class AwkwardBox final : public host::TextBox {
 public:
  [[nodiscard]] std::string Text() const override {
    caret = 0;
    return answer(failsAtText, "1234.5");
  }
  [[nodiscard]] std::string Tag() const override { return answer(failsAtTag, "SN"); }
  [[nodiscard]] std::int32_t SelStart() const override {
    static_cast<void>(answer(failsAtCaret, ""));
    return caret;
  }
  void setSelStart(std::int32_t position) override {
    static_cast<void>(answer(failsAtCaret, ""));
    caret = position;
  }

  mutable std::int32_t caret = 4;
  bool failsAtText = false;
  bool failsAtTag = false;
  bool failsAtCaret = false;

 private:
  static std::string answer(bool fails, const char* text) {
    if (fails) throw RuntimeError(error_number::kObjectNotSet);
    return text;
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
}

TEST(AplicaFormato, WorksWithoutAnEnvironment) {
  const test::LocaleGuard states("en_US.UTF-8");
  host::SimpleTextBox box("1234.5", "SD");
  EXPECT_EQ(AplicaFormato(box, nullptr, "0.00"), "1234.50");
  EXPECT_EQ(AplicaFormato(box, nullptr), "1234.5");
  box.tag = "FE";
  EXPECT_EQ(AplicaFormato(box, nullptr, "0.00"), "1234.5");
}

TEST(Formato, TakesThePatternAsText) {
  const test::LocaleGuard states("en_US.UTF-8");
  EXPECT_EQ(Formato(1234.5, "#,##0.00").toText(), "1,234.50");
  EXPECT_EQ(Formato(7, 0).toText(), "7");
  EXPECT_EQ(test::errorNumber([] { Formato(1, Null{}); }), 94);
}

}  // namespace
}  // namespace qvn::text
