#include "qvn/host/replaced_file.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"
#include "tests/support/scratch_folder.h"

namespace qvn::host {
namespace {

TEST(ReplacedFile, LeavesTheOlderOneUntilItIsComplete) {
  const test::ScratchFolder folder;
  folder.put("older");
  {
    const ReplacedFile file(folder.path());
    test::putBytes(file.name(), "new");
    EXPECT_EQ(test::bytesOf(folder.path()), "older");
  }
  EXPECT_EQ(folder.fileCount(), 1);
  ReplacedFile file(folder.path());
  test::putBytes(file.name(), "new");
  file.publish();
  EXPECT_EQ(test::bytesOf(folder.path()), "new");
  EXPECT_EQ(folder.fileCount(), 1);
  EXPECT_EQ(ReplacedFile("/dev/null").name(), "/dev/null");
}

TEST(ReplacedFile, ANewOneTakesNobodysPlace) {
  const test::ScratchFolder folder;
  for (const std::string_view older : {"", "older"}) {
    SCOPED_TRACE(older);
    std::filesystem::remove(folder.path());
    {
      ReplacedFile file(folder.path(), OnExisting::Refuse);
      test::putBytes(file.name(), "new");
      if (!older.empty()) folder.put(older);
      EXPECT_EQ(test::errorNumber([&] { file.publish(); }), older.empty() ? 0 : error_number::kFileExists);
    }
    EXPECT_EQ(test::bytesOf(folder.path()), older.empty() ? "new" : older);
    EXPECT_EQ(folder.fileCount(), 1);
  }
  EXPECT_EQ(test::errorNumber([&] { ReplacedFile(folder.path(), OnExisting::Refuse); }), error_number::kFileExists);
  EXPECT_EQ(folder.fileCount(), 1);
}

}  // namespace
}  // namespace qvn::host
