// Saving where the system refuses: what it is called, and that nothing stays behind.
#include <gtest/gtest.h>

#include "qvn/data/drivers/persist/new_file.h"
#include "tests/data/drivers/persist/given_rows.h"
#include "tests/support/file_size_limit.h"
#include "tests/support/scratch_folder.h"

namespace qvn::data {
namespace {

test::Refusal save(const std::string& path, std::size_t rowCount = 1) {
  return test::refusalToSave({{{"n", FieldType::Integer}}, {rowCount, {Variant(7)}}}, path);
}

TEST(FailingDisk, LeavesNothingBehindWhereverItFails) {
  const test::ScratchFolder folder;
  // Nothing fits, the beginning, some of the rows, all but the last bytes.
  constexpr std::size_t kRows = 2000;
  ASSERT_EQ(save(folder.path("todo.xml"), kRows).number, 0);
  const auto size = std::filesystem::file_size(folder.path("todo.xml"));
  for (const rlim_t limit : {rlim_t{0}, rlim_t{100}, rlim_t{20'000}, rlim_t{size - 1}}) {
    SCOPED_TRACE(limit);
    test::Refusal failure;
    testing::internal::CaptureStderr();
    {
      const test::FileSizeLimit guard(limit);
      failure = save(folder.path(), kRows);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(failure.number, error_number::kDeviceError);
    EXPECT_NE(failure.words.find("«" + folder.path() + "»"), std::string::npos) << failure.words;
    EXPECT_EQ(folder.fileCount(), 1);
  }
  EXPECT_EQ(save(folder.path(), kRows).number, 0);
}

TEST(FailingDisk, IsNamedByTheNumberThatHostsKnow) {
  struct Row {
    std::errc cause;
    std::int32_t number;
  };
  constexpr Row kRows[] = {
      {std::errc::no_space_on_device, 61},
      {std::errc::file_too_large, 57},
      {std::errc::io_error, 57},
      {std::errc::file_exists, 58},
      {std::errc::too_many_files_open, 67},
      {std::errc::permission_denied, 70},
      {std::errc::read_only_file_system, 70},
      {std::errc::no_such_file_or_directory, 76},
      {std::errc::not_a_directory, 76},
      {std::errc::filename_too_long, 52},
  };
  for (const Row& row : kRows) {
    const std::error_code failure = std::make_error_code(row.cause);
    SCOPED_TRACE(failure.message());
    const RuntimeError error = persist::saveRefusal(failure, "/datos/r.xml");
    EXPECT_EQ(error.number(), row.number);
    EXPECT_NE(error.description().find("«/datos/r.xml»"), std::string::npos);
    EXPECT_NE(error.description().find(failure.message()), std::string::npos);
  }
}

TEST(FailingDisk, SaysWhichPathCannotBe) {
  const test::ScratchFolder folder;
  folder.put("otro");
  const std::string longest(255, 'n');
  struct Row {
    const char* why;
    std::string path;
    std::int32_t number;
  };
  const Row rows[] = {
      {"the file exists", folder.path(), 58},
      {"a folder of that name exists", folder.path("."), 58},
      {"a device exists", "/dev/full", 58},
      {"no such folder", folder.path("nada/r.xml"), 76},
      {"a file in place of the folder", folder.path("r.xml/r.xml"), 76},
      {"a name longer than names may be", folder.path(longest + "n"), 52},
      {"a name as long as names may be", folder.path(longest), 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const test::Refusal failure = save(row.path);
    EXPECT_EQ(failure.number, row.number) << failure.words;
    if (row.number != 0) {
      EXPECT_NE(failure.words.find("«" + row.path + "»"), std::string::npos) << failure.words;
    }
  }
  EXPECT_EQ(folder.fileCount(), 2);
}

TEST(NewFile, YieldsToAnotherThatTookTheNameMeanwhile) {
  const test::ScratchFolder folder;
  {
    persist::NewFile file(folder.path());
    file.write("mío");
    folder.put("ajeno");
    EXPECT_THROW(file.publish(), RuntimeError);
  }
  EXPECT_EQ(folder.fileCount(), 1);
  std::string held;
  std::getline(std::ifstream(folder.path()) >> std::ws, held);
  EXPECT_EQ(held, "ajeno");
}

}  // namespace
}  // namespace qvn::data
