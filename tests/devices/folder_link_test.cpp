#include "qvn/devices/folder/folder_link.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/scratch_folder.h"

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
    folder_.put("secret", "outside/secret");
    folder_.put("x", "device/My Documents/x.txt");
    EXPECT_EQ(link_.initialise(kNoWait), SessionStart::Ready);
  }
  DeviceHandle open(std::u16string_view path) { return link_.open(path, FileAccess::Read, Disposition::OpenExisting); }
  DeviceHandle create(std::u16string_view path) { return link_.open(path, FileAccess::Write, Disposition::CreateNew); }
  void expectOutOfReach(std::u16string_view path) {
    SCOPED_TRACE(fs::path(path).string());
    EXPECT_EQ(open(path), kNoFile);
    EXPECT_EQ(create(path), kNoFile);
    EXPECT_FALSE(link_.remove(path));
  }

  const test::ScratchFolder folder_;
  const fs::path root_ = folder_.path("device");
  const fs::path outside_ = folder_.path("outside");
  FolderLink link_{root_};
};

TEST_F(FolderLinkTest, ReadsPathsFromItsRoot) {
  for (const std::u16string_view path : {u"\\My Documents\\x.txt", u"My Documents/x.txt", u"/My Documents\\x.txt",
                                         u"\\\\My Documents\\\\.\\x.txt", u".\\My Documents\\x.txt"}) {
    EXPECT_TRUE(link_.close(open(path)));
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
                                       u"\\folder-link\\new",
                                       u"\\file-link",
                                       u"\\new-link",
                                       u"\\My Documents\\relative\\secret",
                                       u"..",
                                       std::u16string_view(u"a\0b", 3)};
  for (const std::u16string_view path : paths) {
    expectOutOfReach(path);
    EXPECT_FALSE(link_.findFirst(path).has_value());
  }
  EXPECT_FALSE(link_.findFirst(u"\\folder-link\\*").has_value());
  EXPECT_FALSE(link_.findFirst(u"\\*-link").has_value());
  EXPECT_EQ(folder_.bytes("outside/secret"), "secret");
  EXPECT_FALSE(fs::exists(outside_ / "new"));
}

TEST_F(FolderLinkTest, OpensPlainFilesAlone) {
  ASSERT_EQ(mkfifo((root_ / "pipe").c_str(), 0666), 0);
  for (const std::u16string_view path : {u"\\pipe", u"\\My Documents", u"\\My Documents\\x.txt\\y"}) {
    expectOutOfReach(path);
  }
  EXPECT_FALSE(link_.findFirst(u"\\pipe").has_value());
  EXPECT_EQ(link_.findFirst(u"\\My Documents")->size, 0U);
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

}  // namespace
}  // namespace qvn::devices
