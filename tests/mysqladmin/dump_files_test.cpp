// Dumps as files: who can read them, compressed forms, and what the system or a damage makes of them.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <vector>

#include "qvn/mysqladmin/dump_file.h"
#include "qvn/mysqladmin/dump_formats.h"
#include "tests/mysqladmin/shop_server.h"
#include "tests/support/error_of.h"

namespace qvn::mysqladmin {
namespace {

void put(const std::string& path, std::string_view text) {
  const DumpSinkPtr sink = compressedFor(path, createDumpFile(path));
  // In uneven pieces.
  for (std::size_t at = 0; at < text.size(); at += 70'001) sink->write(text.substr(at, 70'001));
  sink->finish();
}

// Read into rooms of one size.
std::string get(const std::string& path, std::size_t room) {
  const DumpSourcePtr source = expandedFor(path, openDumpFile(path));
  std::vector<char> block(room);
  std::string text;
  while (const std::size_t count = source->read(block)) text.append(block.data(), count);
  return text;
}

std::string longText() {
  std::string text;
  for (int i = 0; i < 60'000; ++i) text += std::to_string(i * 7919) + ",";
  return text;
}

TEST(DumpFiles, ComeBackThroughEveryFormat) {
  const test::ScratchFolder folder;
  const std::string text = longText();
  for (const char* name : {"a.sql", "a.sql.gz", "a.sql.zst", "a.GZ"}) {
    SCOPED_TRACE(name);
    const std::string path = folder.path(name);
    put(path, text);
    EXPECT_EQ(get(path, 65'536), text);
    EXPECT_EQ(get(path, 1'000), text);
    put(path, "");
    EXPECT_EQ(get(path, 10), "");
  }
}

TEST(DumpFiles, AreCompressedAsTheirNamesSay) {
  const test::ScratchFolder folder;
  const std::string text = longText();
  put(folder.path("a.gz"), text);
  EXPECT_EQ(test::bytesOf(folder.path("a.gz")).substr(0, 2), "\x1F\x8B");
  EXPECT_LT(std::filesystem::file_size(folder.path("a.gz")), text.size() / 2);
}

TEST(DumpFiles, JoinedCompressedFilesAreReadToTheEnd) {
  const test::ScratchFolder folder;
  for (const char* name : {"a.gz", "a.zst"}) {
    const std::string path = folder.path(name);
    put(path, "uno ");
    const std::string once = test::bytesOf(path);
    std::ofstream(path, std::ios::binary) << once << once;
    EXPECT_EQ(get(path, 100), "uno uno ");
  }
}

TEST(DumpFiles, DamagedOrCutCompressedFilesAreRefused) {
  const test::ScratchFolder folder;
  for (const char* name : {"a.gz", "a.zst"}) {
    SCOPED_TRACE(name);
    const std::string path = folder.path(name);
    put(path, longText());
    const std::string whole = test::bytesOf(path);
    std::string damaged = whole;
    damaged[whole.size() / 2] = static_cast<char>(damaged[whole.size() / 2] ^ 0x55);
    for (const std::string& bytes : {whole.substr(0, whole.size() - 1), whole.substr(0, whole.size() / 2),
                                     whole.substr(0, 3), std::string(), damaged, "SELECT 1;" + whole}) {
      std::ofstream(path, std::ios::binary) << bytes;
      EXPECT_EQ(test::errorNumber([&] { get(path, 4096); }), error_number::kDeviceError) << bytes.size();
    }
  }
}

TEST(DumpFiles, BelongToTheirOwnerAlone) {
  const test::ScratchFolder folder;
  const std::string path = folder.path("a.sql");
  std::ofstream(path) << "an older and longer one";
  ASSERT_EQ(chmod(path.c_str(), 0644), 0);
  put(path, "new");
  struct stat status {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  EXPECT_EQ(test::bytesOf(path), "new");
}

TEST(DumpFiles, SayWhyTheyCannotBe) {
  const test::ScratchFolder folder;
  struct Row {
    std::string path;
    std::int32_t number;
  };
  for (const Row& row :
       {Row{folder.path("nada/a.sql"), error_number::kPathNotFound},
        Row{folder.path("."), error_number::kPermissionDenied}, Row{"/dev/full", error_number::kDiskFull}}) {
    EXPECT_EQ(test::errorNumber([&] { put(row.path, "x"); }), row.number) << row.path;
  }
  EXPECT_EQ(test::errorNumber([&] { get(folder.path("nada.sql"), 10); }), error_number::kFileNotFound);
  EXPECT_EQ(test::errorNumber([&] { get(folder.path("."), 10); }), error_number::kPermissionDenied);
}

}  // namespace
}  // namespace qvn::mysqladmin
