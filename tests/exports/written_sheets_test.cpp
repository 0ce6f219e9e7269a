// A workbook that was cut is not taken for a whole one.
#include "qvn/exports/xlsxwriter/written_sheets.h"

#include <gtest/gtest.h>

#include "qvn/exports/spreadsheet.h"
#include "tests/exports/shop_rows.h"
#include "tests/support/scratch_folder.h"

namespace qvn::exports::xlsxwriter {
namespace {

TEST(WrittenSheets, AreCountedRowByRow) {
  const test::ScratchFolder folder;
  const std::string path = folder.path("v.xlsx");
  SpreadsheetExport excel;
  excel.Open(path);
  excel.AddSheet(test::numbersTo(20'000, "n, '<row r=\"7\">' AS marca"));
  // Libraries leave rows without cells out.
  excel.AddSheet(test::rowsOf("SELECT NULL AS n UNION ALL SELECT 2"));
  excel.Close();
  struct Row {
    const char* why;
    std::vector<std::int64_t> rows;
    bool holds;
  };
  const Row rows[] = {
      {"all of them", {20'001, 2}, true},      {"a row less", {20'002, 2}, false},
      {"a row more", {20'001, 1}, false},      {"another order", {2, 20'001}, false},
      {"a sheet less", {20'001, 2, 1}, false}, {"a sheet more", {20'001}, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(holdsSheets(path, row.rows), row.holds);
  }
}

TEST(WrittenSheets, AreMissedInAFileThatWasCutOrOverwritten) {
  const test::ScratchFolder folder;
  SpreadsheetExport excel;
  excel.Open(folder.path("v.xlsx"));
  excel.AddSheet(test::numbersTo(200));
  excel.Close();
  const std::string whole = folder.bytes("v.xlsx");
  ASSERT_GT(whole.size(), 1000U);
  for (std::size_t size = 0; size < whole.size(); size += 61) {
    SCOPED_TRACE(size);
    folder.put(whole.substr(0, size));
    EXPECT_FALSE(holdsSheets(folder.path(), {201}));
  }
  std::string damaged = whole;
  damaged.replace(whole.find("xl/worksheets/sheet1.xml") + 40, 40, 40, '\xFF');
  folder.put(damaged);
  EXPECT_FALSE(holdsSheets(folder.path(), {201}));
  EXPECT_FALSE(holdsSheets(folder.path("nada.xlsx"), {201}));
}

}  // namespace
}  // namespace qvn::exports::xlsxwriter
