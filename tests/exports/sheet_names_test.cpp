#include "qvn/exports/sheet_names.h"

#include <gtest/gtest.h>

#include "qvn/exports/workbook_writer.h"
#include "tests/support/error_of.h"

namespace qvn::exports {
namespace {

const std::string kLongest(31, 'n');

TEST(SheetNames, AreThoseThatSheetsCanHave) {
  SheetNames names;
  for (const std::string& name : {std::string("Ventas"), std::string("Año 2026"), std::string("O'Hara"), kLongest}) {
    EXPECT_EQ(names.take(name), name);
  }
  const std::string refused[] = {kLongest + "n", "a/b",  "a\\b",     "a?b",
                                 "a*b",          "a[b",  "a]b",      "a:b",
                                 "'a",           "a'",   "a\nb",     "ventas",
                                 "HISTORY",      "\xF1", "AÑO 2026", std::string(29, 'x') + "\U0001F600\U0001F600"};
  for (const std::string& name : refused) {
    SCOPED_TRACE(name);
    EXPECT_EQ(test::errorNumber([&] { names.take(name); }), error_number::kInvalidCall);
  }
}

TEST(SheetNames, CountTheSheetsThatHaveNone) {
  SheetNames names;
  EXPECT_EQ(names.take(""), "Hoja1");
  EXPECT_EQ(names.take("HOJA3"), "HOJA3");
  EXPECT_EQ(names.take(""), "Hoja4");
}

TEST(SheetNames, CountTheSheetsThatGoOn) {
  SheetNames names;
  names.take("Ventas (3)");
  EXPECT_EQ(names.takeNext("Ventas"), "Ventas (2)");
  EXPECT_EQ(names.takeNext("Ventas"), "Ventas (4)");
  EXPECT_EQ(names.takeNext(kLongest), std::string(27, 'n') + " (2)");
  // A character of two units does not come apart.
  EXPECT_EQ(names.takeNext(std::string(26, 'x') + "\U0001F600"), std::string(26, 'x') + " (2)");
}

TEST(SheetNames, InFormulas) {
  EXPECT_EQ(quotedSheetName("O'Hara (2)"), "'O''Hara (2)'");
  struct Row {
    std::size_t column;
    const char* letters;
  };
  constexpr Row kRows[] = {{0, "A"},   {25, "Z"},   {26, "AA"},   {51, "AZ"},
                           {52, "BA"}, {701, "ZZ"}, {702, "AAA"}, {16383, "XFD"}};
  for (const Row& row : kRows) EXPECT_EQ(columnLetters(row.column), row.letters);
}

// This program links no adapter.
TEST(WorkbookWriter, IsMissedWhereNoneIsLinked) {
  EXPECT_EQ(test::errorNumber([] { workbookMaker(); }), 429);
}

}  // namespace
}  // namespace qvn::exports
