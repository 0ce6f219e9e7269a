#include "qvn/devices/windows_ce.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "qvn/base/runtime_error.h"
#include "qvn/devices/qvn_mobile.h"
#include "tests/devices/pocket.h"
#include "tests/devices/scripted_device.h"
#include "tests/support/error_of.h"
#include "tests/support/scratch_folder.h"

namespace qvn::devices {
namespace {

using Calls = std::vector<std::string>;

// A device with a session, and a folder of this machine.
class WindowsCeTest : public ::testing::Test {
 protected:
  WindowsCeTest() {
    EXPECT_TRUE(ce_.Connect());
    device_.calls.clear();
  }

  [[nodiscard]] std::string local() const { return folder_.path("local.txt"); }
  void putLocal(const std::string& bytes) const { test::putBytes(local(), bytes); }
  [[nodiscard]] std::string localBytes() const { return test::bytesOf(local()); }

  const test::ScratchFolder folder_;
  test::ScriptedDevice device_;
  const WindowsCe ce_{device_};
};
using CopyFileFromPocket = WindowsCeTest;
using CopyFileToPocket = WindowsCeTest;

using test::numbered;

TEST(Connect, EndsWhatItBeganInVain) {
  struct Row {
    const char* why;
    SessionStart start;
    bool isLibraryMissing;
    bool result;
    Calls calls;
  };
  const Row rows[] = {
      {"up", SessionStart::Ready, false, true, {"initialise 10000"}},
      {"not in time", SessionStart::NotReady, false, false, {"initialise 10000", "uninitialise"}},
      {"not begun", SessionStart::NotStarted, false, false, {"initialise 10000"}},
      {"error", SessionStart::Ready, true, false, {"initialise 10000"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const auto device = std::make_shared<test::ScriptedDevice>();
    device->start = row.start;
    device->isLibraryMissing = row.isLibraryMissing;
    const QvnMobile mobile(device);
    const Variant result = mobile.Connect();
    EXPECT_EQ(result.type(), VariantType::Boolean);
    EXPECT_EQ(result.toBoolean(), row.result);
    EXPECT_EQ(device->calls, row.calls);
    EXPECT_EQ(mobile.IsConnected(), row.result);
  }
}

TEST_F(CopyFileFromPocket, ReadsBlocksUpToAnEmptyOne) {
  struct Row {
    std::size_t size;
    std::size_t reads;
  };
  for (const Row& row : {Row{0, 1}, Row{1, 2}, Row{2047, 2}, Row{2048, 2}, Row{2049, 3}, Row{5000, 4}}) {
    SCOPED_TRACE(row.size);
    device_.files[u"\\a.txt"] = numbered(row.size);
    device_.calls.clear();
    EXPECT_TRUE(ce_.CopyFileFromPocket(R"(\a.txt)", local()));
    EXPECT_EQ(localBytes(), numbered(row.size));
    Calls expected(row.reads, "read 2048");
    expected.insert(expected.begin(), R"(open 1 \a.txt)");
    expected.emplace_back("close");
    EXPECT_EQ(device_.calls, expected);
    std::filesystem::remove(local());
  }
}

TEST_F(CopyFileFromPocket, KeepsTheRestOfALongerFile) {
  putLocal("0123456789");
  device_.files[u"a"] = "abc";
  EXPECT_TRUE(ce_.CopyFileFromPocket("a", local()));
  EXPECT_EQ(localBytes(), "abc3456789");
}

TEST_F(CopyFileFromPocket, ClosesTheInvalidHandleOfAMissingFile) {
  putLocal("x");
  EXPECT_FALSE(ce_.CopyFileFromPocket("ñ日😀.txt", local()));
  EXPECT_EQ(device_.calls, (Calls{"open 1 ñ日😀.txt", "close none"}));
  EXPECT_EQ(localBytes(), "x");
  EXPECT_FALSE(ce_.CopyFileFromPocket("ñ", folder_.path("no/hay")));  // the local path is not looked at
}

TEST_F(CopyFileFromPocket, TriesAFailedReadAgain) {
  device_.files[u"a"] = numbered(3000);
  device_.failedReads = 500;
  EXPECT_TRUE(ce_.CopyFileFromPocket("a", local()));
  EXPECT_EQ(localBytes(), numbered(3000));
  EXPECT_EQ(device_.calls.size(), 1U + 500 + 3 + 1);
}

TEST_F(CopyFileFromPocket, KeepsTheBytesOfAFailedRead) {
  device_.files[u"a"] = numbered(3000);
  device_.failedReads = 2;
  device_.bytesOfFailedRead = 7;
  EXPECT_TRUE(ce_.CopyFileFromPocket("a", local()));
  EXPECT_EQ(localBytes(), numbered(3000));
}

TEST_F(CopyFileFromPocket, RaisesTheErrorsOfTheLocalFile) {
  device_.files[u"a"] = "abc";
  ASSERT_EQ(mkdir(folder_.path("folder").c_str(), 0777), 0);
  struct Row {
    std::string path;
    std::int32_t number;
  };
  const Row rows[] = {
      {folder_.path("no/hay.txt"), 76}, {folder_.path("folder"), 70}, {"/dev/full", 61}, {std::string("a\0b", 3), 52}};
  for (const Row& row : rows) {
    device_.calls.clear();
    EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileFromPocket("a", row.path); }), row.number) << row.path;
    ASSERT_FALSE(device_.calls.empty());
    EXPECT_EQ(device_.calls.back(), "close") << row.path;
  }
}

TEST_F(CopyFileFromPocket, TellsHowFarItIsAndEndsOnWish) {
  device_.files[u"a"] = numbered(5000);
  device_.failedReads = 2;
  std::vector<std::pair<std::int64_t, std::int64_t>> told;
  EXPECT_FALSE(ce_.CopyFileFromPocket("a", local(), [&](const CopyProgress& at) {
    told.emplace_back(at.bytes, at.failedReads);
    return at.bytes < 4096;
  }));
  EXPECT_EQ(told, (decltype(told){{0, 1}, {0, 2}, {2048, 0}, {4096, 0}}));
  EXPECT_EQ(device_.calls.back(), "close");
}

TEST_F(CopyFileToPocket, WritesBlocksAndTheRemainder) {
  struct Row {
    std::size_t size;
    Calls writes;
  };
  const Row rows[] = {{0, {}},
                      {1, {"write 1"}},
                      {2048, {"write 2048"}},
                      {4096, {"write 2048", "write 2048"}},
                      {5000, {"write 2048", "write 2048", "write 904"}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.size);
    putLocal(numbered(row.size));
    device_.files.clear();
    device_.calls.clear();
    EXPECT_TRUE(ce_.CopyFileToPocket(local(), R"(\a.txt)"));
    EXPECT_EQ(device_.files.at(u"\\a.txt"), numbered(row.size));
    Calls expected = row.writes;
    expected.insert(expected.begin(), R"(create 2 \a.txt)");
    expected.emplace_back("close");
    EXPECT_EQ(device_.calls, expected);
  }
}

TEST_F(CopyFileToPocket, GoesOnFromTheBytesThatWereTaken) {
  putLocal(numbered(5000));
  device_.taken = {1000, 2048, 1};
  EXPECT_TRUE(ce_.CopyFileToPocket(local(), "a"));
  EXPECT_EQ(device_.files.at(u"a"), numbered(5000));
  EXPECT_EQ(device_.calls, (Calls{"create 2 a", "write 2048", "write 2048", "write 1952", "write 1951", "close"}));
}

TEST_F(CopyFileToPocket, EndsWhenTheDeviceTakesNothing) {
  putLocal(numbered(5000));
  device_.taken = {2048, 0};
  EXPECT_FALSE(ce_.CopyFileToPocket(local(), "a"));
  EXPECT_EQ(device_.files.at(u"a"), numbered(2048));
  EXPECT_EQ(device_.calls.back(), "close");
}

TEST_F(CopyFileToPocket, LeavesAFileOfThatNameAlone) {
  putLocal("new");
  device_.files[u"a"] = "old";
  EXPECT_FALSE(ce_.CopyFileToPocket(local(), "a"));
  EXPECT_EQ(device_.files.at(u"a"), "old");
  EXPECT_EQ(device_.calls, Calls{"create 2 a"});
}

TEST_F(CopyFileToPocket, RaisesTheErrorsOfTheLocalFile) {
  EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileToPocket(local(), "a"); }), 53);
  EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileToPocket(folder_.path("no/hay"), "a"); }), 76);
  EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileToPocket(folder_.path(""), "a"); }), 70);
  EXPECT_EQ(device_.calls, Calls{});  // the device is not asked before
}

TEST_F(CopyFileToPocket, CopiesTheLengthOfTheBeginning) {
  putLocal(numbered(3000));
  EXPECT_TRUE(ce_.CopyFileToPocket(local(), "a", [&](const CopyProgress&) {
    std::ofstream(local(), std::ios::binary | std::ios::app) << "more";
    return true;
  }));
  EXPECT_EQ(device_.files.at(u"a"), numbered(3000));
  const auto cut = [&](const CopyProgress&) {
    std::filesystem::resize_file(local(), 2100);
    return true;
  };
  EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileToPocket(local(), "b", cut); }), 62);
  EXPECT_EQ(device_.calls.back(), "close");
  EXPECT_FALSE(ce_.CopyFileToPocket(local(), "c", [](const CopyProgress&) { return false; }));
}

TEST_F(WindowsCeTest, TellsTheVersion) {
  struct Row {
    const char* why;
    std::string servicePack;
    std::string text;
  };
  const Row rows[] = {{"whole", "Service Pack 2", "5.1.1700 Service Pack 2"},
                      {"cut at the first NUL", std::string("SP\0x\0", 5), "5.1.1700 SP"},
                      {"the blank stays", "", "5.1.1700 "},
                      {"nothing before the NUL", std::string("\0x", 2), "5.1.1700 "}};
  for (const Row& row : rows) {
    device_.answer.servicePack = row.servicePack;
    EXPECT_EQ(ce_.Version(), row.text) << row.why;
  }
  device_.answer = {4294967295, 0, 2147483648, 0, "x"};
  EXPECT_EQ(ce_.Version(), "4294967295.0.2147483648 x");
}

TEST_F(WindowsCeTest, SendsPathsInWholeAndProgramsThroughTheCodePage) {
  const std::string text = "ñ€日😀\x81";
  EXPECT_FALSE(ce_.ceCommand(text, text + ".txt"));
  EXPECT_FALSE(ce_.DeleteFileFromPocket(text));
  EXPECT_FALSE(ce_.ExistFileOnPocket(text));
  EXPECT_EQ(device_.calls, (Calls{"run ñ€???|ñ€???.txt", "remove ñ€日😀\uFFFD", "find ñ€日😀\uFFFD"}));
}

TEST_F(WindowsCeTest, ClosesTheSearchOfWhatItFound) {
  device_.files[u"\\a.txt"] = "";
  EXPECT_TRUE(ce_.ExistFileOnPocket(R"(\a.*)"));
  EXPECT_EQ(device_.calls, (Calls{R"(find \a.*)", "find-close"}));
}

TEST_F(WindowsCeTest, KnowsNoNameWithNul) {
  const std::string name("a\0b", 3);
  device_.files[u"a"] = "abc";
  putLocal("x");
  EXPECT_FALSE(ce_.DeleteFileFromPocket(name));
  EXPECT_FALSE(ce_.ExistFileOnPocket(name));
  EXPECT_FALSE(ce_.ceCommand(name, ""));
  EXPECT_FALSE(ce_.ceCommand("a", name));
  EXPECT_FALSE(ce_.CopyFileFromPocket(name, local()));
  EXPECT_FALSE(ce_.CopyFileToPocket(local(), name));
  EXPECT_EQ(device_.calls, Calls{"close none"});
  EXPECT_EQ(device_.files, (decltype(device_.files){{u"a", "abc"}}));
}

TEST(QvnMobile, FailsWithoutALink) {
  const test::ScratchFolder folder;
  folder.put("x");
  const QvnMobile mobile;
  EXPECT_FALSE(mobile.Connect().toBoolean());
  EXPECT_EQ(mobile.Version(), "");
  EXPECT_FALSE(mobile.IsConnected());
  EXPECT_FALSE(mobile.CopyFileFromPocket("a", folder.path("b")));
  EXPECT_FALSE(mobile.CopyFileToPocket(folder.path(), "a"));
  EXPECT_FALSE(mobile.DeleteFileFromPocket("a"));
  EXPECT_FALSE(mobile.ExistFileOnPocket("a"));
  EXPECT_FALSE(mobile.ceCommand("a", "b"));
  mobile.Disconnect();
  EXPECT_EQ(folder.fileCount(), 1);
}

TEST(QvnMobile, ReachesItsOwnOperation) {
  const test::ScratchFolder folder;
  folder.put("x");
  const auto device = std::make_shared<test::ScriptedDevice>();
  const QvnMobile mobile(device);
  EXPECT_FALSE(mobile.IsConnected());
  EXPECT_TRUE(mobile.Connect().toBoolean());
  EXPECT_EQ(mobile.Version(), "5.1.1700 SP");
  EXPECT_TRUE(mobile.CopyFileToPocket(folder.path(), "a"));
  EXPECT_TRUE(mobile.ExistFileOnPocket("a"));
  EXPECT_TRUE(mobile.ceCommand("a", "b"));
  EXPECT_TRUE(mobile.CopyFileFromPocket("a", folder.path("b")));
  EXPECT_TRUE(mobile.DeleteFileFromPocket("a"));
  EXPECT_EQ(folder.fileCount(), 2);
  mobile.Disconnect();
  EXPECT_FALSE(mobile.IsConnected());
}

}  // namespace
}  // namespace qvn::devices
