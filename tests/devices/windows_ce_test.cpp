// The operations over the library of pocket_library.cpp, and what they ask of it.
#include "qvn/devices/windows_ce.h"

#include <gtest/gtest.h>

#include "qvn/base/runtime_error.h"
#include "qvn/devices/folder/folder_link.h"
#include "qvn/devices/qvn_mobile.h"
#include "qvn/devices/rapi/rapi_link.h"
#include "tests/devices/pocket.h"
#include "tests/support/error_of.h"

namespace qvn::devices {
namespace {

using Calls = std::vector<std::string>;
using test::numbered;

// A device, and a folder of this machine.
class WindowsCeTest : public ::testing::Test {
 protected:
  // A session with these faults; what was called until then is forgotten.
  void begin(const std::string& faults = "") {
    ce_.Disconnect();
    test::Pocket::fail(faults);
    ASSERT_TRUE(ce_.Connect(std::chrono::minutes(1)));
    pocket_.calls();
  }
  std::string lastCall() {
    const Calls calls = pocket_.calls();
    return calls.empty() ? "" : calls.back();
  }

  const test::ScratchFolder local_;
  test::Pocket pocket_;
  RapiLink link_{test::Pocket::library()};
  const WindowsCe ce_{link_};
};

class CopyFileFromPocket : public WindowsCeTest {
 protected:
  // A whole copy, which asks for blocks: first these failures, then answers of so many bytes.
  void expectCopy(std::size_t size, const std::string& faults, std::size_t failures, const std::vector<int>& answers) {
    SCOPED_TRACE(std::to_string(size) + " " + faults);
    begin(faults);
    pocket_.put("a.txt", numbered(size));
    EXPECT_TRUE(ce_.CopyFileFromPocket(R"(\a.txt)", local_.path()));
    EXPECT_EQ(local_.bytes(), numbered(size));
    Calls expected(1 + failures, "CeReadFile 2048 failed");
    expected.front() = R"(CeCreateFile \a.txt 2 0 3 128 yes)";
    for (const int answer : answers) expected.push_back("CeReadFile 2048 " + std::to_string(answer));
    expected.emplace_back("CeCloseHandle yes");
    EXPECT_EQ(pocket_.calls(), expected);
    std::filesystem::remove(local_.path());
  }
};

TEST_F(CopyFileFromPocket, ReadsBlocksUpToAnEmptyOne) {
  expectCopy(0, "", 0, {0});
  expectCopy(1, "", 0, {1, 0});
  expectCopy(2047, "", 0, {2047, 0});
  expectCopy(2048, "", 0, {2048, 0});
  expectCopy(2049, "", 0, {2048, 1, 0});
  expectCopy(5000, "", 0, {2048, 2048, 904, 0});
}

TEST_F(CopyFileFromPocket, TriesAFailedReadAgain) {
  expectCopy(3000, "reads=500", 500, {2048, 952, 0});
  expectCopy(3000, "reads=2 late=7", 2, {2048, 938, 0});
}

TEST_F(CopyFileFromPocket, KeepsTheRestOfALongerFileAndTheWholeForAMissingOne) {
  begin();
  local_.put("0123456789");
  EXPECT_FALSE(ce_.CopyFileFromPocket("ñ日😀.txt", local_.path()));
  EXPECT_EQ(pocket_.calls(), (Calls{"CeCreateFile ñ日😀.txt 2 0 3 128 no", "CeCloseHandle no"}));
  EXPECT_EQ(local_.bytes(), "0123456789");
  EXPECT_FALSE(ce_.CopyFileFromPocket("ñ", local_.path("no/hay")));  // the local path is not looked at
  pocket_.put("a", "abc");
  EXPECT_TRUE(ce_.CopyFileFromPocket("a", local_.path()));
  EXPECT_EQ(local_.bytes(), "abc3456789");
}

TEST_F(CopyFileFromPocket, RaisesTheErrorsOfTheLocalFile) {
  begin();
  pocket_.put("a", "abc");
  struct Row {
    std::string path;
    std::int32_t number;
  };
  const Row rows[] = {
      {local_.path("no/hay.txt"), 76}, {local_.path(""), 70}, {"/dev/full", 61}, {std::string("a\0b", 3), 52}};
  for (const Row& row : rows) {
    EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileFromPocket("a", row.path); }), row.number) << row.path;
    EXPECT_EQ(lastCall(), "CeCloseHandle yes") << row.path;
  }
}

TEST_F(CopyFileFromPocket, TellsHowFarItIsAndEndsOnWish) {
  begin("reads=2");
  pocket_.put("a", numbered(5000));
  std::vector<std::pair<std::int64_t, std::int64_t>> told;
  EXPECT_FALSE(ce_.CopyFileFromPocket("a", local_.path(), [&](const CopyProgress& at) {
    told.emplace_back(at.bytes, at.failedReads);
    return at.bytes < 4096;
  }));
  EXPECT_EQ(told, (decltype(told){{0, 1}, {0, 2}, {2048, 0}, {4096, 0}}));
  EXPECT_EQ(lastCall(), "CeCloseHandle yes");
  begin("dead-reads");
  local_.put("old");
  EXPECT_FALSE(
      ce_.CopyFileFromPocket("a", local_.path(), [](const CopyProgress& at) { return at.failedReads < 1000; }));
  EXPECT_EQ(pocket_.calls().size(), 1U + 1000 + 1);
  EXPECT_EQ(local_.bytes(), "old");
}

using CopyFileToPocket = WindowsCeTest;

TEST_F(CopyFileToPocket, WritesBlocksFromWhereTheDeviceIs) {
  struct Row {
    std::size_t size;
    const char* faults;
    std::size_t copied;
    std::vector<std::string> writes;  // bytes given, bytes taken
  };
  const Row rows[] = {{0, "", 0, {}},
                      {1, "", 1, {"1 1"}},
                      {2048, "", 2048, {"2048 2048"}},
                      {4096, "", 4096, {"2048 2048", "2048 2048"}},
                      {5000, "", 5000, {"2048 2048", "2048 2048", "904 904"}},
                      {5000, "short=1500", 5000, {"2048 1500", "2048 1500", "2000 1500", "500 500"}},
                      {3, "short=1", 3, {"3 1", "2 1", "1 1"}},
                      {5000, "full=2048", 2048, {"2048 2048", "2048 0"}},
                      {5000, "full=3000", 3000, {"2048 2048", "2048 952", "2000 0"}}};
  for (const Row& row : rows) {
    const std::string name = std::to_string(row.size) + row.faults;
    SCOPED_TRACE(name);
    begin(row.faults);
    local_.put(numbered(row.size));
    EXPECT_EQ(ce_.CopyFileToPocket(local_.path(), name), row.copied == row.size);
    EXPECT_EQ(pocket_.get(name), numbered(row.size).substr(0, row.copied));
    Calls expected = {"CeCreateFile " + name + " 1 0 1 128 yes"};
    for (const std::string& write : row.writes) expected.push_back("CeWriteFile " + write);
    expected.emplace_back("CeCloseHandle yes");
    EXPECT_EQ(pocket_.calls(), expected);
  }
}

TEST_F(CopyFileToPocket, LeavesAFileOfThatNameAlone) {
  begin();
  local_.put("new");
  pocket_.put("a", "old");
  EXPECT_FALSE(ce_.CopyFileToPocket(local_.path(), "a"));
  EXPECT_EQ(pocket_.get("a"), "old");
  EXPECT_EQ(pocket_.calls(), Calls{"CeCreateFile a 1 0 1 128 no"});
}

TEST_F(CopyFileToPocket, RaisesTheErrorsOfTheLocalFile) {
  begin();
  EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileToPocket(local_.path(), "a"); }), 53);
  EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileToPocket(local_.path("no/hay"), "a"); }), 76);
  EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileToPocket(local_.path(""), "a"); }), 70);
  EXPECT_EQ(pocket_.calls(), Calls{});  // the device is not asked before
}

TEST_F(CopyFileToPocket, CopiesTheLengthOfTheBeginning) {
  begin();
  local_.put(numbered(3000));
  EXPECT_TRUE(ce_.CopyFileToPocket(local_.path(), "a", [&](const CopyProgress&) {
    std::ofstream(local_.path(), std::ios::binary | std::ios::app) << "more";
    return true;
  }));
  EXPECT_EQ(pocket_.get("a"), numbered(3000));
  const auto cut = [&](const CopyProgress&) {
    std::filesystem::resize_file(local_.path(), 2100);
    return true;
  };
  EXPECT_EQ(test::errorNumber([&] { ce_.CopyFileToPocket(local_.path(), "b", cut); }), 62);
  EXPECT_EQ(lastCall(), "CeCloseHandle yes");
  EXPECT_FALSE(ce_.CopyFileToPocket(local_.path(), "c", [](const CopyProgress&) { return false; }));
}

TEST_F(WindowsCeTest, TellsTheVersion) {
  struct Row {
    const char* why;
    DeviceVersion version;
    std::string text;
  };
  const Row rows[] = {{"whole", {5, 1, 1700, 3, "Service Pack 2"}, "5.1.1700 Service Pack 2"},
                      {"cut at the first NUL", {5, 1, 1700, 3, std::string("SP\0x\0", 5)}, "5.1.1700 SP"},
                      {"the blank stays", {5, 1, 1700, 3, ""}, "5.1.1700 "},
                      {"nothing before the NUL", {5, 1, 1700, 3, std::string("\0x", 2)}, "5.1.1700 "},
                      {"large numbers", {4294967295, 0, 2147483648, 0, "x"}, "4294967295.0.2147483648 x"}};
  for (const Row& row : rows) {
    FolderLink link(pocket_.root(), row.version);
    EXPECT_TRUE(WindowsCe(link).Connect());
    EXPECT_EQ(WindowsCe(link).Version(), row.text) << row.why;
  }
  begin("no-version");
  EXPECT_EQ(ce_.Version(), "");
  EXPECT_FALSE(ce_.IsConnected());
}

TEST_F(WindowsCeTest, SendsPathsInWholeAndProgramsThroughTheCodePage) {
  begin();
  const std::string text = "ñ€日😀\x81";
  EXPECT_FALSE(ce_.ceCommand(text, text + ".txt"));
  EXPECT_FALSE(ce_.DeleteFileFromPocket(text));
  EXPECT_FALSE(ce_.ExistFileOnPocket(text));
  EXPECT_EQ(pocket_.calls(), (Calls{"CeCreateProcess ñ€???|ñ€???.txt no", "CeDeleteFile ñ€日😀\uFFFD no",
                                    "CeFindFirstFile ñ€日😀\uFFFD"}));
  pocket_.put("a.txt", "");
  EXPECT_TRUE(ce_.ExistFileOnPocket(R"(\a.*)"));
  EXPECT_TRUE(ce_.DeleteFileFromPocket(R"(\a.txt)"));
  EXPECT_TRUE(link_.close(link_.open(u"b", FileAccess::ReadWrite, Disposition::CreateNew)));
  EXPECT_EQ(pocket_.calls(), (Calls{R"(CeFindFirstFile \a.*)", "CeFindClose yes", R"(CeDeleteFile \a.txt yes)",
                                    "CeCreateFile b 3 0 1 128 yes", "CeCloseHandle yes"}));
}

TEST_F(WindowsCeTest, KnowsNoNameWithNul) {
  begin();
  const std::string name("a\0b", 3);
  pocket_.put("a", "abc");
  local_.put("x");
  EXPECT_FALSE(ce_.DeleteFileFromPocket(name));
  EXPECT_FALSE(ce_.ExistFileOnPocket(name));
  EXPECT_FALSE(ce_.ceCommand(name, ""));
  EXPECT_FALSE(ce_.ceCommand("a", name));
  EXPECT_FALSE(ce_.CopyFileFromPocket(name, local_.path()));
  EXPECT_FALSE(ce_.CopyFileToPocket(local_.path(), name));
  EXPECT_EQ(pocket_.calls(), Calls{"CeCloseHandle no"});
  EXPECT_EQ(pocket_.get("a"), "abc");
}

TEST(QvnMobile, ReachesItsOwnOperationAndFailsWithoutALink) {
  const test::ScratchFolder folder;
  folder.put("x");
  const test::Pocket pocket;
  for (const bool hasLink : {true, false}) {
    SCOPED_TRACE(hasLink);
    const QvnMobile mobile(hasLink ? std::make_shared<RapiLink>(test::Pocket::library()) : nullptr);
    EXPECT_FALSE(mobile.IsConnected());
    const Variant isUp = mobile.Connect();
    EXPECT_EQ(isUp.type(), VariantType::Boolean);
    EXPECT_EQ(isUp.toBoolean(), hasLink);
    EXPECT_EQ(mobile.IsConnected(), hasLink);
    EXPECT_EQ(mobile.Version(), hasLink ? "5.1.1700 Edición 2" : "");
    EXPECT_EQ(mobile.CopyFileToPocket(folder.path(), "a"), hasLink);
    EXPECT_EQ(mobile.ExistFileOnPocket("a"), hasLink);
    EXPECT_EQ(mobile.ceCommand("a", "b"), hasLink);
    EXPECT_EQ(mobile.CopyFileFromPocket("a", folder.path("b")), hasLink);
    EXPECT_EQ(mobile.DeleteFileFromPocket("a"), hasLink);
    EXPECT_EQ(std::filesystem::remove(folder.path("b")), hasLink);
    mobile.Disconnect();
    EXPECT_FALSE(mobile.IsConnected());
  }
  EXPECT_EQ(folder.fileCount(), 1);
}

// Notes for how long it is waited for, and is not there.
class AbsentDevice final : public DeviceLink {
 public:
  SessionStart initialise(std::chrono::milliseconds wait) override {
    waited = wait;
    return SessionStart::NotStarted;
  }
  void uninitialise() override {}
  DeviceHandle open(std::u16string_view, FileAccess, Disposition) override { return kNoFile; }
  ReadOutcome read(DeviceHandle, std::span<char>) override { return {}; }
  std::size_t write(DeviceHandle, std::span<const char>) override { return 0; }
  bool close(DeviceHandle) override { return false; }
  bool remove(std::u16string_view) override { return false; }
  std::optional<Found> findFirst(std::u16string_view) override { return {}; }
  bool findClose(SearchHandle) override { return false; }
  bool createProcess(std::u16string_view, std::u16string_view) override { return false; }
  std::optional<DeviceVersion> version() override { return {}; }

  std::chrono::milliseconds waited{};
};

TEST(QvnMobile, WaitsTenSecondsForTheDevice) {
  const auto device = std::make_shared<AbsentDevice>();
  EXPECT_FALSE(QvnMobile(device).Connect().toBoolean());
  EXPECT_EQ(device->waited, std::chrono::seconds(10));
}

}  // namespace
}  // namespace qvn::devices
