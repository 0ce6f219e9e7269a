#include "qvn/devices/folder/folder_link.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/devices/pocket.h"

namespace qvn::devices {
namespace {

namespace fs = std::filesystem;
constexpr std::chrono::milliseconds kNoWait{0};

// A device folder beside one that it must not reach, with a secret in it.
class FolderLinkTest : public ::testing::Test {
 protected:
  FolderLinkTest() {
    fs::create_directories(root_ / "My Documents");
    fs::create_directories(outside_);
    test::putBytes(outside_ / "secret", "secret");
    EXPECT_EQ(link_.initialise(kNoWait), SessionStart::Ready);
  }
  DeviceHandle open(std::u16string_view path) { return link_.open(path, FileAccess::Read, Disposition::OpenExisting); }
  DeviceHandle create(std::u16string_view path) { return link_.open(path, FileAccess::Write, Disposition::CreateNew); }

  const test::ScratchFolder folder_;
  const fs::path root_ = folder_.path("device");
  const fs::path outside_ = folder_.path("outside");
  FolderLink link_{root_};
};

TEST_F(FolderLinkTest, ReadsPathsFromItsRoot) {
  test::putBytes(root_ / "My Documents" / "x.txt", "x");
  for (const std::u16string_view path : {u"\\My Documents\\x.txt", u"My Documents/x.txt", u"/My Documents\\x.txt",
                                         u"\\\\My Documents\\\\.\\x.txt", u".\\My Documents\\x.txt"}) {
    const DeviceHandle file = open(path);
    EXPECT_NE(file, kNoFile);
    EXPECT_TRUE(link_.close(file));
  }
  EXPECT_NE(create(u"\\etc"), kNoFile);
  EXPECT_TRUE(fs::exists(root_ / "etc"));
}

TEST_F(FolderLinkTest, DoesNotLeaveItsFolder) {
  fs::create_directory_symlink(outside_, root_ / "folder-link");
  fs::create_symlink(outside_ / "secret", root_ / "file-link");
  fs::create_symlink(outside_ / "new", root_ / "new-link");
  fs::create_symlink("../outside", root_ / "My Documents" / "relative");
  const std::u16string absolute = (outside_ / "secret").u16string();
  const std::u16string_view paths[] = {u"..\\outside\\secret",
                                       u"\\My Documents\\..\\..\\outside\\secret",
                                       u"/../outside/secret",
                                       absolute,
                                       u"\\folder-link\\secret",
                                       u"\\file-link",
                                       u"\\new-link",
                                       u"\\My Documents\\relative\\secret",
                                       u"..",
                                       std::u16string_view(u"a\0b", 3)};
  for (const std::u16string_view path : paths) {
    SCOPED_TRACE(fs::path(path).string());
    EXPECT_EQ(open(path), kNoFile);
    EXPECT_EQ(create(path), kNoFile);
    EXPECT_FALSE(link_.findFirst(path).has_value());
    EXPECT_FALSE(link_.remove(path));
  }
  EXPECT_EQ(create(u"\\folder-link\\new"), kNoFile);
  EXPECT_FALSE(link_.findFirst(u"\\folder-link\\*").has_value());
  EXPECT_FALSE(link_.findFirst(u"\\*-link").has_value());
  EXPECT_EQ(test::bytesOf(outside_ / "secret"), "secret");
  EXPECT_FALSE(fs::exists(outside_ / "new"));
}

TEST_F(FolderLinkTest, OpensPlainFilesAlone) {
  ASSERT_EQ(mkfifo((root_ / "pipe").c_str(), 0666), 0);
  for (const std::u16string_view path : {u"\\pipe", u"\\My Documents"}) {
    EXPECT_EQ(open(path), kNoFile);
    EXPECT_EQ(create(path), kNoFile);
    EXPECT_FALSE(link_.remove(path));
  }
  EXPECT_FALSE(link_.findFirst(u"\\pipe").has_value());
  EXPECT_EQ(link_.findFirst(u"\\My Documents")->size, 0U);
  EXPECT_EQ(open(u"\\My Documents\\x.txt\\y"), kNoFile);
}

TEST_F(FolderLinkTest, IsNoDeviceWithoutItsFolder) {
  EXPECT_EQ(link_.version()->servicePack, "carpeta");
  fs::rename(root_, folder_.path("away"));
  EXPECT_FALSE(link_.version().has_value());
  fs::create_directory(root_);
  EXPECT_FALSE(link_.version().has_value());  // the empty place where it was mounted
  link_.uninitialise();
  EXPECT_EQ(link_.initialise(kNoWait), SessionStart::Ready);
  FolderLink missing(folder_.path("no/hay"));
  EXPECT_EQ(missing.initialise(kNoWait), SessionStart::NotStarted);
  EXPECT_FALSE(missing.version().has_value());
}

TEST_F(FolderLinkTest, GivesTheVersionItWasGiven) {
  FolderLink link(root_, {.major = 6, .minor = 5, .build = 9, .platform = 3, .servicePack = "x"});
  ASSERT_EQ(link.initialise(kNoWait), SessionStart::Ready);
  EXPECT_EQ(link.version()->build, 9U);
}

}  // namespace
}  // namespace qvn::devices
