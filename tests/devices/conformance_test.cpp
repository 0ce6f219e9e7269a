// What device_link.h promises of every link, and the whole operations over each.
#include <gtest/gtest.h>

#include "qvn/devices/folder/folder_link.h"
#include "qvn/devices/rapi/rapi_link.h"
#include "qvn/devices/windows_ce.h"
#include "tests/devices/pocket.h"

namespace qvn::devices {
namespace {

constexpr std::chrono::milliseconds kLongEnough{60000};

struct LinkKind {
  const char* name;
  std::unique_ptr<DeviceLink> (*make)(const test::Pocket& pocket);
  bool startsPrograms;
};
void PrintTo(const LinkKind& kind, std::ostream* out) { *out << kind.name; }

class DeviceLinkTest : public ::testing::TestWithParam<LinkKind> {
 protected:
  void begin() { ASSERT_EQ(link_->initialise(kLongEnough), SessionStart::Ready); }
  DeviceHandle open(std::u16string_view path, FileAccess access = FileAccess::Read) {
    return link_->open(path, access, Disposition::OpenExisting);
  }
  DeviceHandle create(std::u16string_view path) { return link_->open(path, FileAccess::Write, Disposition::CreateNew); }
  // What one read of at most `size` bytes gives; "failed" when it does.
  std::string read(DeviceHandle file, std::size_t size) {
    std::string buffer(size, '\0');
    const ReadOutcome outcome = link_->read(file, buffer);
    if (!outcome.succeeded) return "failed";
    buffer.resize(outcome.count);
    return buffer;
  }
  std::size_t write(DeviceHandle file, std::string_view bytes) { return link_->write(file, bytes); }

  const test::Pocket pocket_;
  const std::unique_ptr<DeviceLink> link_ = GetParam().make(pocket_);
};

constexpr std::u16string_view kPath = u"\\a.txt";
constexpr std::u16string_view kMissing = u"\\b.txt";

TEST_P(DeviceLinkTest, DoesNothingWithoutASession) {
  pocket_.put("a.txt", "abc");
  for (const char* when : {"before", "after"}) {
    SCOPED_TRACE(when);
    EXPECT_EQ(open(kPath), kNoFile);
    EXPECT_EQ(create(kMissing), kNoFile);
    EXPECT_FALSE(link_->remove(kPath));
    EXPECT_FALSE(link_->findFirst(kPath).has_value());
    EXPECT_FALSE(link_->createProcess(kPath, u""));
    EXPECT_FALSE(link_->version().has_value());
    EXPECT_EQ(pocket_.get("a.txt"), "abc");
    EXPECT_EQ(pocket_.get("b.txt"), std::nullopt);
    link_->uninitialise();
    begin();
    EXPECT_NE(link_->initialise(kLongEnough), SessionStart::NotReady);  // may not be asked for, and changes nothing
    EXPECT_TRUE(link_->version().has_value());
    link_->uninitialise();
  }
}

TEST_P(DeviceLinkTest, EndsHandlesWithTheirSession) {
  pocket_.put("a.txt", "abc");
  begin();
  const DeviceHandle file = open(kPath);
  const auto found = link_->findFirst(kPath);
  ASSERT_TRUE(found.has_value());
  link_->uninitialise();
  EXPECT_EQ(read(file, 3), "failed");
  begin();
  EXPECT_EQ(read(file, 3), "failed");
  EXPECT_FALSE(link_->close(file));
  EXPECT_FALSE(link_->findClose(found->search));
  EXPECT_NE(open(kPath), kNoFile);
}

TEST_P(DeviceLinkTest, ReadsAndWritesOnFromWhereItWas) {
  begin();
  const DeviceHandle writer = create(kPath);
  EXPECT_EQ(write(writer, "abc"), 3U);
  EXPECT_EQ(write(writer, ""), 0U);
  EXPECT_EQ(write(writer, "de"), 2U);
  EXPECT_TRUE(link_->close(writer));
  EXPECT_EQ(write(writer, "x"), 0U);
  EXPECT_EQ(pocket_.get("a.txt"), "abcde");
  const DeviceHandle reader = open(kPath);
  for (const char* piece : {"abc", "de", "", ""}) EXPECT_EQ(read(reader, 3), piece);
  EXPECT_TRUE(link_->close(reader));
  EXPECT_FALSE(link_->close(reader));
  EXPECT_EQ(read(reader, 3), "failed");
}

TEST_P(DeviceLinkTest, HoldsAFileToItsAccessAndSharesNone) {
  pocket_.put("a.txt", "abcde");
  begin();
  const DeviceHandle reader = open(kPath);
  EXPECT_EQ(write(reader, "x"), 0U);
  EXPECT_EQ(open(kPath), kNoFile);
  EXPECT_EQ(open(kPath, FileAccess::Write), kNoFile);
  EXPECT_TRUE(link_->close(reader));
  const DeviceHandle writer = open(kPath, FileAccess::Write);
  EXPECT_EQ(read(writer, 1), "failed");
  EXPECT_EQ(write(writer, "A"), 1U);
  EXPECT_TRUE(link_->close(writer));
  const DeviceHandle both = open(kPath, FileAccess::ReadWrite);
  EXPECT_EQ(read(both, 2), "Ab");
  EXPECT_EQ(write(both, "C"), 1U);
  EXPECT_EQ(read(both, 2), "de");
  EXPECT_TRUE(link_->close(both));
  EXPECT_EQ(pocket_.get("a.txt"), "AbCde");
}

TEST_P(DeviceLinkTest, OpensRemovesAndStartsWhatIsThereAndCreatesWhatIsNot) {
  pocket_.put("a.txt", "abc");
  begin();
  EXPECT_EQ(open(kMissing), kNoFile);
  EXPECT_EQ(open(u"\\no\\hay.txt"), kNoFile);
  EXPECT_EQ(open(u""), kNoFile);
  EXPECT_FALSE(link_->close(kNoFile));
  EXPECT_EQ(create(kPath), kNoFile);
  EXPECT_EQ(pocket_.get("a.txt"), "abc");
  EXPECT_EQ(link_->createProcess(kPath, u"/x"), GetParam().startsPrograms);
  EXPECT_FALSE(link_->createProcess(kMissing, u""));
  EXPECT_FALSE(link_->remove(kMissing));
  EXPECT_FALSE(link_->remove(u"\\My Documents"));
  EXPECT_TRUE(link_->remove(kPath));
  EXPECT_EQ(pocket_.get("a.txt"), std::nullopt);
  EXPECT_FALSE(link_->remove(kPath));
  EXPECT_NE(create(kMissing), kNoFile);
  EXPECT_EQ(pocket_.get("b.txt"), "");
}

TEST_P(DeviceLinkTest, FindsByNameAndPattern) {
  pocket_.put("My Documents/ñ日😀.txt", std::string(3000, 'x'));
  begin();
  for (const std::u16string_view name : {u"ñ日😀.txt", u"*.txt", u"*", u"?日*"}) {
    const auto found = link_->findFirst(u"\\My Documents\\" + std::u16string(name));
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->size, 3000U);
    EXPECT_TRUE(link_->findClose(found->search));
    EXPECT_FALSE(link_->findClose(found->search));
  }
  for (const std::u16string_view path : {u"\\My Documents\\*.doc", u"\\no\\*", u"\\no\\hay.txt", u"\\"}) {
    EXPECT_FALSE(link_->findFirst(path).has_value());
  }
}

TEST_P(DeviceLinkTest, CopiesThereAndBack) {
  const test::ScratchFolder local;
  const WindowsCe ce(*link_);
  ASSERT_TRUE(ce.Connect());
  EXPECT_TRUE(ce.IsConnected());
  for (const std::size_t size : {0U, 1U, 2048U, 5000U, 100'000'001U}) {
    SCOPED_TRACE(size);
    const std::string name = std::to_string(size) + "ñ日.txt";
    const std::string path = R"(\My Documents\)" + name;
    const std::string bytes = test::numbered(size);
    local.put(bytes, "there");
    EXPECT_TRUE(ce.CopyFileToPocket(local.path("there"), path));
    EXPECT_TRUE(pocket_.get("My Documents/" + name) == bytes);
    EXPECT_TRUE(ce.CopyFileFromPocket(path, local.path(name)));
    EXPECT_TRUE(local.bytes(name) == bytes);
    EXPECT_FALSE(ce.CopyFileToPocket(local.path("there"), path));
    EXPECT_TRUE(ce.ExistFileOnPocket(path));
    EXPECT_TRUE(ce.DeleteFileFromPocket(path));
    EXPECT_FALSE(ce.ExistFileOnPocket(path));
    EXPECT_FALSE(ce.CopyFileFromPocket(path, local.path("there")));
  }
  ce.Disconnect();
  EXPECT_FALSE(ce.IsConnected());
}

std::unique_ptr<DeviceLink> newFolderLink(const test::Pocket& pocket) {
  return std::make_unique<FolderLink>(pocket.root());
}
std::unique_ptr<DeviceLink> newRapiLink(const test::Pocket& pocket) {
  return std::make_unique<RapiLink>(pocket.library());
}

INSTANTIATE_TEST_SUITE_P(Links, DeviceLinkTest,
                         ::testing::Values(LinkKind{"Folder", newFolderLink, false},
                                           LinkKind{"Library", newRapiLink, true}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
}  // namespace qvn::devices
