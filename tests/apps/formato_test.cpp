#include <gtest/gtest.h>

#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

TEST(FormatoCommand, TakesTheValueForWhatItReadsAs) {
  struct Row {
    const char* why;
    std::string locale;
    std::vector<std::string> arguments;
    std::string shown;
  };
  const Row rows[] = {
      {"a number", "C", {"1234.5", "#,##0.00"}, "1,234.50"},
      {"a negative number needs no care", "C", {"-1234.5", "#,##0.00;(#,##0.00)"}, "(1,234.50)"},
      {"a number of Spain", "es_ES.UTF-8", {"1234,5", "#,##0.00"}, "1.234,50"},
      {"a date by the order of Mexico", "es_MX.UTF-8", {"07/03/2012", "d mmmm yyyy"}, "7 marzo 2012"},
      {"an ISO date", "C", {"2012-03-07", "dd/mm/yyyy"}, "07/03/2012"},
      {"a text", "C", {"ñandú", ">"}, "ÑANDÚ"},
      {"digits that are a text", "C", {"--tipo", "texto", "00123", "@@@@@@@@"}, "   00123"},
      {"digits that are a number", "C", {"00123", "@@@@@@@@"}, "     123"},
      {"a number that is a date", "C", {"--tipo=fecha", "2012-03-07", "yyyy"}, "2012"},
      {"a named pattern", "C", {"0.5", "Percent"}, "50.00%"},
      {"nothing at all", "C", {"", ""}, ""},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    std::vector<std::string> arguments{"formato"};
    arguments.insert(arguments.end(), row.arguments.begin(), row.arguments.end());
    const Outcome outcome = run({.arguments = arguments, .environment = {"LC_ALL=" + row.locale}});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, row.shown + "\n");
    EXPECT_EQ(outcome.err, "");
  }
}

}  // namespace
}  // namespace qvn::test
