#include "qvn/system/text_file.h"

#include <gtest/gtest.h>

#include "tests/support/scratch_folder.h"

namespace qvn::system {
namespace {

TEST(TextFile, IsWrittenLineByLine) {
  const test::ScratchFolder folder;
  const Variant file = folder.path("a.txt");
  OutLine(file, "uno");
  OutFile(file, 2.5);
  OutLine(file, "");
  EXPECT_EQ(folder.bytes("a.txt"), "uno\r\n2.5\r\n\r\n");
  Out(file, "otro\nñ");
  EXPECT_EQ(folder.bytes("a.txt"), "otro\nñ\r\n");
  Out(folder.path("") + R"(.\b.txt)", "x");
  EXPECT_EQ(folder.bytes("b.txt"), "x\r\n");
}

TEST(TextFile, IgnoresEveryFailure) {
  const test::ScratchFolder folder;
  const Variant paths[] = {folder.path("no/hay.txt"), folder.path(""), "", Null{}, std::string("a\0b", 3), "/dev/full"};
  for (const Variant& path : paths) {
    OutLine(path, "x");
    Out(path, "x");
  }
  OutLine(folder.path("a.txt"), Null{});
  EXPECT_EQ(folder.fileCount(), 0);
}

}  // namespace
}  // namespace qvn::system
