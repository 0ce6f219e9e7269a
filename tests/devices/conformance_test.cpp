// What device_link.h promises of every link, and the whole operations over each.
#include <gtest/gtest.h>

#include "qvn/devices/windows_ce.h"
#include "tests/devices/device_under_test.h"
#include "tests/devices/pocket.h"

namespace qvn::devices {
namespace {

constexpr std::chrono::milliseconds kLongEnough{60000};

class DeviceLinkTest : public ::testing::TestWithParam<test::DeviceKind> {
 protected:
  void begin() { ASSERT_EQ(link().initialise(kLongEnough), SessionStart::Ready); }
  DeviceLink& link() { return device_->link(); }
  DeviceHandle open(std::u16string_view path, FileAccess access = FileAccess::Read) {
    return link().open(path, access, Disposition::OpenExisting);
  }
  DeviceHandle create(std::u16string_view path) { return link().open(path, FileAccess::Write, Disposition::CreateNew); }
  // What one read of at most `size` bytes gives; "failed" when it does.
  std::string read(DeviceHandle file, std::size_t size) {
    std::string buffer(size, '\0');
    const ReadOutcome outcome = link().read(file, buffer);
    if (!outcome.succeeded) return "failed";
    buffer.resize(outcome.count);
    return buffer;
  }
  std::size_t write(DeviceHandle file, std::string_view bytes) { return link().write(file, bytes); }

  const std::unique_ptr<test::DeviceUnderTest> device_ = GetParam().make();
  const test::ScratchFolder local_;
};

constexpr std::u16string_view kPath = u"\\My Documents\\a.txt";
constexpr std::u16string_view kMissing = u"\\My Documents\\b.txt";

TEST_P(DeviceLinkTest, DoesNothingWithoutASession) {
  device_->put("a.txt", "abc");
  for (const char* when : {"before", "after"}) {
    SCOPED_TRACE(when);
    EXPECT_EQ(open(kPath), kNoFile);
    EXPECT_EQ(create(kMissing), kNoFile);
    EXPECT_FALSE(link().remove(kPath));
    EXPECT_FALSE(link().findFirst(kPath).has_value());
    EXPECT_FALSE(link().createProcess(kPath, u""));
    EXPECT_FALSE(link().version().has_value());
    EXPECT_EQ(device_->get("a.txt"), "abc");
    EXPECT_EQ(device_->get("b.txt"), std::nullopt);
    link().uninitialise();
    begin();
    EXPECT_TRUE(link().version().has_value());
    link().uninitialise();
  }
}

TEST_P(DeviceLinkTest, EndsHandlesWithTheirSession) {
  device_->put("a.txt", "abc");
  begin();
  const DeviceHandle file = open(kPath);
  const auto found = link().findFirst(kPath);
  ASSERT_TRUE(found.has_value());
  link().uninitialise();
  EXPECT_EQ(read(file, 3), "failed");
  begin();
  EXPECT_EQ(read(file, 3), "failed");
  EXPECT_FALSE(link().close(file));
  EXPECT_FALSE(link().findClose(found->search));
  EXPECT_NE(open(kPath), kNoFile);
}

TEST_P(DeviceLinkTest, KeepsTheSessionWhenAnotherIsBegun) {
  begin();
  EXPECT_NE(link().initialise(kLongEnough), SessionStart::NotReady);
  EXPECT_TRUE(link().version().has_value());
}

TEST_P(DeviceLinkTest, ReadsOnFromWhereItWas) {
  device_->put("a.txt", "abcde");
  begin();
  const DeviceHandle file = open(kPath);
  EXPECT_EQ(read(file, 3), "abc");
  EXPECT_EQ(read(file, 3), "de");
  EXPECT_EQ(read(file, 3), "");
  EXPECT_EQ(read(file, 3), "");
  EXPECT_TRUE(link().close(file));
  EXPECT_FALSE(link().close(file));
  EXPECT_EQ(read(file, 3), "failed");
}

TEST_P(DeviceLinkTest, WritesOnFromWhereItWas) {
  begin();
  const DeviceHandle file = create(kPath);
  EXPECT_EQ(write(file, "abc"), 3U);
  EXPECT_EQ(write(file, ""), 0U);
  EXPECT_EQ(write(file, "de"), 2U);
  EXPECT_TRUE(link().close(file));
  EXPECT_EQ(write(file, "x"), 0U);
  EXPECT_EQ(device_->get("a.txt"), "abcde");
}

TEST_P(DeviceLinkTest, HoldsAFileToItsAccess) {
  device_->put("a.txt", "abcde");
  begin();
  const DeviceHandle reader = open(kPath);
  EXPECT_EQ(write(reader, "x"), 0U);
  EXPECT_TRUE(link().close(reader));
  const DeviceHandle writer = open(kPath, FileAccess::Write);
  EXPECT_EQ(read(writer, 1), "failed");
  EXPECT_EQ(write(writer, "A"), 1U);
  EXPECT_TRUE(link().close(writer));
  const DeviceHandle both = open(kPath, FileAccess::ReadWrite);
  EXPECT_EQ(read(both, 2), "Ab");
  EXPECT_EQ(write(both, "C"), 1U);
  EXPECT_EQ(read(both, 2), "de");
  EXPECT_TRUE(link().close(both));
  EXPECT_EQ(device_->get("a.txt"), "AbCde");
}

TEST_P(DeviceLinkTest, SharesNoOpenFile) {
  device_->put("a.txt", "abc");
  begin();
  const DeviceHandle file = open(kPath);
  EXPECT_EQ(open(kPath), kNoFile);
  EXPECT_EQ(open(kPath, FileAccess::Write), kNoFile);
  EXPECT_TRUE(link().close(file));
  EXPECT_NE(open(kPath), kNoFile);
}

TEST_P(DeviceLinkTest, OpensWhatIsThereAndCreatesWhatIsNot) {
  device_->put("a.txt", "abc");
  begin();
  EXPECT_EQ(open(kMissing), kNoFile);
  EXPECT_EQ(open(u"\\no\\hay.txt"), kNoFile);
  EXPECT_EQ(open(u""), kNoFile);
  EXPECT_FALSE(link().close(kNoFile));
  EXPECT_EQ(create(kPath), kNoFile);
  EXPECT_EQ(device_->get("a.txt"), "abc");
  EXPECT_NE(create(kMissing), kNoFile);
  EXPECT_EQ(device_->get("b.txt"), "");
}

TEST_P(DeviceLinkTest, FindsByNameAndPattern) {
  device_->put("ñ日😀.txt", std::string(3000, 'x'));
  begin();
  for (const std::u16string_view name : {u"ñ日😀.txt", u"*.txt", u"*", u"?日*"}) {
    const auto found = link().findFirst(u"\\My Documents\\" + std::u16string(name));
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->size, 3000U);
    EXPECT_TRUE(link().findClose(found->search));
    EXPECT_FALSE(link().findClose(found->search));
  }
  for (const std::u16string_view path : {u"\\My Documents\\*.doc", u"\\no\\*", u"\\no\\hay.txt", u"\\"}) {
    EXPECT_FALSE(link().findFirst(path).has_value());
  }
}

TEST_P(DeviceLinkTest, RemovesFiles) {
  device_->put("a.txt", "abc");
  begin();
  EXPECT_FALSE(link().remove(kMissing));
  EXPECT_FALSE(link().remove(u"\\My Documents"));
  EXPECT_TRUE(link().remove(kPath));
  EXPECT_EQ(device_->get("a.txt"), std::nullopt);
  EXPECT_FALSE(link().remove(kPath));
}

TEST_P(DeviceLinkTest, StartsProgramsThatAreThere) {
  device_->put("a.exe", "");
  begin();
  EXPECT_EQ(link().createProcess(u"\\My Documents\\a.exe", u"/x"), GetParam().startsPrograms);
  EXPECT_FALSE(link().createProcess(u"\\My Documents\\b.exe", u""));
}

TEST_P(DeviceLinkTest, CopiesThereAndBack) {
  const WindowsCe ce(link());
  ASSERT_TRUE(ce.Connect());
  EXPECT_TRUE(ce.IsConnected());
  for (const std::size_t size : {0U, 1U, 2048U, 5000U}) {
    SCOPED_TRACE(size);
    const std::string path = R"(\My Documents\)" + std::to_string(size) + "ñ日.txt";
    test::putBytes(local_.path("there"), test::numbered(size));
    EXPECT_TRUE(ce.CopyFileToPocket(local_.path("there"), path));
    EXPECT_EQ(device_->get(std::to_string(size) + "ñ日.txt"), test::numbered(size));
    EXPECT_TRUE(ce.CopyFileFromPocket(path, local_.path(path.substr(14))));
    EXPECT_EQ(test::bytesOf(local_.path(path.substr(14))), test::numbered(size));
    EXPECT_FALSE(ce.CopyFileToPocket(local_.path("there"), path));
    EXPECT_TRUE(ce.ExistFileOnPocket(path));
    EXPECT_TRUE(ce.DeleteFileFromPocket(path));
    EXPECT_FALSE(ce.ExistFileOnPocket(path));
    EXPECT_FALSE(ce.CopyFileFromPocket(path, local_.path("there")));
  }
  ce.Disconnect();
  EXPECT_FALSE(ce.IsConnected());
}

using LargeCopies = DeviceLinkTest;

TEST_P(LargeCopies, CarryAHundredMegabytes) {
  constexpr std::size_t kSize = 100'000'001;
  const std::string bytes = test::numbered(kSize);
  test::putBytes(local_.path("there"), bytes);
  const WindowsCe ce(link());
  ASSERT_TRUE(ce.Connect());
  EXPECT_TRUE(ce.CopyFileToPocket(local_.path("there"), R"(\My Documents\a.txt)"));
  EXPECT_TRUE(device_->get("a.txt") == bytes);
  EXPECT_TRUE(ce.CopyFileFromPocket(R"(\My Documents\a.txt)", local_.path("back")));
  EXPECT_TRUE(test::bytesOf(local_.path("back")) == bytes);
}

constexpr test::DeviceKind kScripted{"Scripted", test::newScriptedDevice, true};
constexpr test::DeviceKind kFolder{"Folder", test::newFolderDevice, false};
constexpr test::DeviceKind kLibrary{"Library", test::newLibraryDevice, true};
const auto kNameOf = [](const auto& tested) { return std::string(tested.param.name); };

INSTANTIATE_TEST_SUITE_P(Links, DeviceLinkTest, ::testing::Values(kScripted, kFolder, kLibrary), kNameOf);
INSTANTIATE_TEST_SUITE_P(Links, LargeCopies, ::testing::Values(kFolder, kLibrary), kNameOf);

}  // namespace
}  // namespace qvn::devices
