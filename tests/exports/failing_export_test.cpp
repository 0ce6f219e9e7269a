// Where the system refuses: what it is called, and that nothing stays behind.
#include <gtest/gtest.h>

#include "qvn/exports/spreadsheet.h"
#include "tests/exports/shop_rows.h"
#include "tests/support/error_of.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/scratch_folder.h"

namespace qvn::exports {
namespace {

constexpr auto kReplace = SpreadsheetExport::OnExisting::Replace;
constexpr int kRows = 3000;

void save(const std::string& path, SpreadsheetExport::OnExisting onExisting = SpreadsheetExport::OnExisting::Refuse) {
  SpreadsheetExport excel;
  excel.Open(path, onExisting);
  excel.AddSheet(test::numbersTo(kRows, "n, 'renglón ' || n AS texto"));
  excel.Close();
}

// Wherever the disk is full: in the rows' temporary file, in the one that gathers the sheet, in the workbook.
TEST(FailingExport, LeavesNothingBehindWhereverItFails) {
  const test::ScratchFolder folder;
  save(folder.path("todo.xlsx"));
  const auto size = std::filesystem::file_size(folder.path("todo.xlsx"));
  ASSERT_GT(size, 20'000U);
  std::vector<rlim_t> limits = {0, 100, 20'000, size - 1};
  for (rlim_t limit = 150'000; limit < 420'000; limit += 27'011) limits.push_back(limit);
  int failures = 0;
  for (const rlim_t limit : limits) {
    SCOPED_TRACE(limit);
    const test::FileSizeLimit guard(limit);
    const std::int32_t number = test::errorNumber([&] { save(folder.path("parte.xlsx")); });
    EXPECT_TRUE(number == error_number::kDiskFull || number == 0) << number;
    EXPECT_EQ(folder.fileCount(), number == 0 ? 2 : 1);
    std::filesystem::remove(folder.path("parte.xlsx"));
    failures += number == 0 ? 0 : 1;
  }
  EXPECT_GE(failures, 6);
}

TEST(FailingExport, AFullDeviceIsSaid) {
  EXPECT_EQ(test::errorNumber([] { save("/dev/full", kReplace); }), error_number::kDiskFull);
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(FailingExport, SaysWhichPathCannotBe) {
  const test::ScratchFolder folder;
  folder.put("otro");
  const std::string existing = folder.path();
  struct Row {
    const char* why;
    std::string path;
    SpreadsheetExport::OnExisting onExisting;
    std::int32_t number;
  };
  const Row rows[] = {
      {"the file exists", existing, SpreadsheetExport::OnExisting::Refuse, 58},
      {"a device exists", "/dev/full", SpreadsheetExport::OnExisting::Refuse, 58},
      {"no such folder", folder.path("nada/v.xlsx"), kReplace, 76},
      {"a file in place of the folder", existing + "/v.xlsx", kReplace, 76},
      {"a folder of that name", folder.path("."), kReplace, 70},
      {"a name longer than names may be", folder.path(std::string(256, 'n')), kReplace, 52},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(test::errorNumber([&] { SpreadsheetExport().Open(row.path, row.onExisting); }), row.number);
  }
  EXPECT_EQ(folder.fileCount(), 1);
  EXPECT_EQ(folder.bytes(), "otro");
}

TEST(FailingExport, AnOlderFileStaysUntilTheNewOneIsComplete) {
  const test::ScratchFolder folder;
  folder.put("otro");
  SpreadsheetExport excel;
  excel.Open(folder.path(), kReplace);
  excel.AddSheet(test::numbersTo(1));
  EXPECT_EQ(folder.bytes(), "otro");
  excel.Cancel();
  EXPECT_EQ(folder.bytes(), "otro");
  save(folder.path(), kReplace);
  EXPECT_NE(folder.bytes(), "otro");
  EXPECT_EQ(folder.fileCount(), 1);
}

TEST(FailingExport, YieldsToAFileThatAppearedMeanwhile) {
  const test::ScratchFolder folder;
  SpreadsheetExport excel;
  excel.Open(folder.path());
  excel.AddSheet(test::numbersTo(1));
  folder.put("otro");
  EXPECT_EQ(test::errorNumber([&] { excel.Close(); }), error_number::kFileExists);
  EXPECT_EQ(folder.bytes(), "otro");
  EXPECT_EQ(folder.fileCount(), 1);
}

TEST(FailingExport, AnEngineThatFailsLeavesNothing) {
  const test::ScratchFolder folder;
  SpreadsheetExport excel;
  excel.Open(folder.path());
  EXPECT_NE(test::errorNumber([&] { excel.AddSheet(test::failingRows()); }), 0);
  EXPECT_EQ(folder.fileCount(), 0);
}

}  // namespace
}  // namespace qvn::exports
