#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

TEST(FormatoCommand, TakesTheValueForWhatItReadsAs) {
  struct Row {
    std::string locale;
    std::vector<std::string> arguments;
    std::string shown;
  };
  // clang-format off
  const Row rows[] = {
      {"C", {"formato", "-1234.5", "#,##0.00;(#,##0.00)"}, "(1,234.50)"},
      {"es_ES.UTF-8", {"formato", "1234,5", "#,##0.00"}, "1.234,50"},
      {"es_MX.UTF-8", {"formato", "07/03/2012", "d mmmm yyyy"}, "7 marzo 2012"},
      {"C", {"formato", "2012-03-07", "dd/mm/yyyy"}, "07/03/2012"}, {"C", {"formato", "ñandú", ">"}, "ÑANDÚ"},
      {"C", {"formato", "--tipo", "texto", "00123", "@@@@@@@@"}, "   00123"},
      {"C", {"formato", "00123", "@@@@@@@@"}, "     123"},
      {"C", {"formato", "--tipo=fecha", "2012-03-07", "yyyy"}, "2012"}, {"C", {"formato", "", ""}, ""},
  };
  // clang-format on
  for (const Row& row : rows) {
    EXPECT_EQ(expectRun(0, {.arguments = row.arguments, .environment = {"LC_ALL=" + row.locale}}).out,
              row.shown + "\n");
  }
}

}  // namespace
}  // namespace qvn::test
