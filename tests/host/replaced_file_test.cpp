#include "qvn/host/replaced_file.h"

#include <gtest/gtest.h>

#include "tests/support/error_of.h"
#include "tests/support/scratch_folder.h"

namespace qvn::host {
namespace {

void put(const std::string& path, std::string_view text) { std::ofstream(path, std::ios::binary) << text; }

std::string contentsOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(ReplacedFile, LeavesTheOlderOneUntilItIsComplete) {
  const test::ScratchFolder folder;
  folder.put("older");
  {
    const ReplacedFile file(folder.path());
    put(file.name(), "new");
    EXPECT_EQ(contentsOf(folder.path()), "older");
  }
  EXPECT_EQ(folder.fileCount(), 1);
  ReplacedFile file(folder.path());
  put(file.name(), "new");
  file.publish();
  EXPECT_EQ(contentsOf(folder.path()), "new");
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
      put(file.name(), "new");
      if (!older.empty()) folder.put(older);
      EXPECT_EQ(test::errorNumber([&] { file.publish(); }), older.empty() ? 0 : error_number::kFileExists);
    }
    EXPECT_EQ(contentsOf(folder.path()), older.empty() ? "new" : older);
    EXPECT_EQ(folder.fileCount(), 1);
  }
  EXPECT_EQ(test::errorNumber([&] { ReplacedFile(folder.path(), OnExisting::Refuse); }), error_number::kFileExists);
  EXPECT_EQ(folder.fileCount(), 1);
}

}  // namespace
}  // namespace qvn::host
