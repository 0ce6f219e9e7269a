// Files of reports: which there are, and that nothing half written stays behind.
#include "qvn/reports/report_file.h"

#include <gtest/gtest.h>

#include "tests/exports/shop_rows.h"
#include "tests/reports/written_report.h"
#include "tests/support/error_of.h"
#include "tests/support/file_size_limit.h"

namespace qvn::reports {
namespace {

std::int32_t errorOfSaving(const std::string& path, const ReportFileSettings& settings = {}) {
  return test::errorNumber([&] { Report().save(test::numbersTo(5000), path, settings); });
}

TEST(ReportFile, IsRefusedBeforeAnythingIsWritten) {
  const test::ScratchFolder folder;
  folder.put("otro", "v.txt");
  struct Row {
    const char* why;
    std::string name;
    OnExisting onExisting;
    std::int32_t number;
  };
  const Row rows[] = {
      {"the file exists", "v.txt", OnExisting::Refuse, 58},
      {"no such ending", "v.doc", OnExisting::Replace, 5},
      {"no ending", "v", OnExisting::Replace, 5},
      {"no such folder", "nada/v.html", OnExisting::Replace, 76},
      {"no adapter for PDF in this program", "v.pdf", OnExisting::Replace, 429},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(errorOfSaving(folder.path(row.name), {.onExisting = row.onExisting}), row.number);
    EXPECT_EQ(folder.fileCount(), 1);
  }
  EXPECT_EQ(folder.bytes("v.txt"), "otro");
}

TEST(ReportFile, TakesThePlaceOfAnotherWhenItIsComplete) {
  const test::ScratchFolder folder;
  const std::string path = folder.path("V.TXT");
  EXPECT_EQ(errorOfSaving(path), 0);
  std::int64_t seen = 0;
  const bool isComplete =
      Report().save(test::numbersTo(5000), path, {.onExisting = OnExisting::Replace}, [&](std::int64_t rows) {
        seen = rows;
        return rows < 3000;
      });
  EXPECT_FALSE(isComplete);
  EXPECT_EQ(seen, 3000);
  EXPECT_EQ(folder.fileCount(), 1);
  EXPECT_NE(folder.bytes("V.TXT").find("5000\n"), std::string::npos);
  EXPECT_TRUE(Report().save(test::numbersTo(7), path, {.onExisting = OnExisting::Replace}));
  EXPECT_EQ(folder.bytes("V.TXT").find("5000\n"), std::string::npos);
}

TEST(ReportFile, AFullDiskLeavesNothing) {
  const test::ScratchFolder folder;
  for (const char* name : {"v.txt", "v.html"}) {
    for (const rlim_t limit : {rlim_t{0}, rlim_t{5000}}) {
      SCOPED_TRACE(name + std::to_string(limit));
      const test::FileSizeLimit guard(limit);
      EXPECT_EQ(errorOfSaving(folder.path(name)), error_number::kDiskFull);
      EXPECT_EQ(folder.fileCount(), 0);
    }
  }
}

TEST(ReportFile, AnEngineThatFailsLeavesNothing) {
  const test::ScratchFolder folder;
  EXPECT_NE(test::errorNumber([&] { Report().save(test::failingRows(), folder.path("v.txt")); }), 0);
  EXPECT_EQ(folder.fileCount(), 0);
}

}  // namespace
}  // namespace qvn::reports
