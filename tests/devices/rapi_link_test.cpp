#include "qvn/devices/rapi/rapi_link.h"

#include <gtest/gtest.h>

#include "qvn/devices/links/process_link.h"
#include "qvn/devices/qvn_mobile.h"
#include "qvn/devices/windows_ce.h"
#include "tests/devices/pocket.h"
#include "tests/support/error_of.h"

namespace qvn::devices {
namespace {

using Calls = std::vector<std::string>;
constexpr std::chrono::milliseconds kShort{50};
constexpr std::chrono::milliseconds kLongEnough{60000};

TEST(RapiLink, EndsASessionThatDoesNotComeUp) {
  struct Row {
    const char* faults;
    Calls calls;
  };
  const Calls ended = {"CeRapiInitEx 12", "CeRapiUninit"};
  const Row rows[] = {{"no-start", {"CeRapiInitEx 12"}},
                      {"no-event", ended},
                      {"no-signal", ended},
                      {"closed-event", ended},
                      {"failed", ended}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.faults);
    test::Pocket pocket(row.faults);
    RapiLink link(test::Pocket::library());
    const WindowsCe ce(link);
    EXPECT_FALSE(ce.Connect(std::string_view(row.faults) == "failed" ? kLongEnough : kShort));
    EXPECT_EQ(pocket.calls(), row.calls);
    EXPECT_FALSE(ce.IsConnected());
    EXPECT_FALSE(ce.ExistFileOnPocket("a"));
    EXPECT_EQ(pocket.calls(), Calls{});  // without a session the library is left alone
  }
}

TEST(RapiLink, WaitsAsLongAsItIsTold) {
  using Clock = std::chrono::steady_clock;
  const test::Pocket pocket("no-signal");
  RapiLink link(test::Pocket::library());
  const Clock::time_point begun = Clock::now();
  EXPECT_EQ(link.initialise(std::chrono::milliseconds(300)), SessionStart::NotReady);
  EXPECT_GE(Clock::now() - begun, std::chrono::milliseconds(300));
}

TEST(RapiLink, ComesUpAfterAFailedSession) {
  RapiLink link(test::Pocket::library());
  const WindowsCe ce(link);
  {
    const test::Pocket pocket("failed");
    EXPECT_FALSE(ce.Connect(kLongEnough));
  }
  test::Pocket pocket;
  EXPECT_TRUE(ce.Connect(kLongEnough));
  EXPECT_FALSE(ce.Connect(kLongEnough));  // this library refuses a second one
  EXPECT_EQ(ce.Version(), "5.1.1700 Edición 2");
  ce.Disconnect();
  ce.Disconnect();
  EXPECT_FALSE(ce.ExistFileOnPocket("a"));  // does not reach the library
  EXPECT_EQ(pocket.calls(), (Calls{"CeRapiInitEx 12", "CeRapiInitEx 12", "CeRapiUninit"}));
}

TEST(RapiLink, EndsItsSessionWhenItGoes) {
  test::Pocket pocket;
  {
    RapiLink link(test::Pocket::library());
    ASSERT_TRUE(WindowsCe(link).Connect(kLongEnough));
  }
  EXPECT_EQ(pocket.calls(), (Calls{"CeRapiInitEx 12", "CeRapiUninit"}));
}

TEST(RapiLink, SaysWhatIsWrongWithTheLibrary) {
  const test::ScratchFolder text;
  text.put("this is no library, however long it is made for the loader's sake, which reads its first bytes only");
  struct Row {
    std::string library;
    std::int32_t number;
    std::string piece;
  };
  const Row rows[] = {{"/no/hay.so", 53, "«/no/hay.so»"},
                      {"", 53, "«»"},
                      {QVN_LACKING_LIBRARY, 453, "CeGetVersionEx"},
                      {text.path(), 53, "ELF"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.library);
    RapiLink link(row.library);
    EXPECT_EQ(test::errorNumber([&] { link.load(); }), row.number);
    try {
      link.initialise(kShort);
      ADD_FAILURE() << "a session began";
    } catch (const RuntimeError& error) {
      EXPECT_NE(error.description().find(row.piece), std::string::npos) << error.description();
    }
    EXPECT_FALSE(WindowsCe(link).Connect(kShort));
    EXPECT_FALSE(WindowsCe(link).IsConnected());
    WindowsCe(link).Disconnect();
  }
}

class RapiCopies : public ::testing::Test {
 protected:
  // A session with these faults; what was called until then is forgotten.
  void begin(const std::string& faults = "") {
    setenv("POCKET_FAULTS", faults.c_str(), 1);
    ASSERT_TRUE(ce_.Connect(kLongEnough));
    pocket_.calls();
  }

  test::Pocket pocket_;
  const test::ScratchFolder local_;
  RapiLink link_{test::Pocket::library()};
  const WindowsCe ce_{link_};
};

TEST_F(RapiCopies, AskForBlocksUpToAnEmptyOne) {
  begin();
  test::putBytes(pocket_.file("a"), test::numbered(5000));
  EXPECT_TRUE(ce_.CopyFileFromPocket(R"(\My Documents\a)", local_.path("a")));
  EXPECT_EQ(pocket_.calls(), (Calls{R"(CeCreateFile \My Documents\a 2 0 3 128 yes)", "CeReadFile 2048",
                                    "CeReadFile 2048", "CeReadFile 904", "CeReadFile 0", "CeCloseHandle yes"}));
  EXPECT_FALSE(ce_.CopyFileFromPocket(R"(\no)", local_.path("b")));
  EXPECT_EQ(pocket_.calls(), (Calls{R"(CeCreateFile \no 2 0 3 128 no)", "CeCloseHandle no"}));
}

TEST_F(RapiCopies, TryAFailedReadAgain) {
  begin("reads=3");
  test::putBytes(pocket_.file("a"), "abc");
  EXPECT_TRUE(ce_.CopyFileFromPocket(R"(\My Documents\a)", local_.path("a")));
  EXPECT_EQ(pocket_.calls(),
            (Calls{R"(CeCreateFile \My Documents\a 2 0 3 128 yes)", "CeReadFile failed", "CeReadFile failed",
                   "CeReadFile failed", "CeReadFile 3", "CeReadFile 0", "CeCloseHandle yes"}));
}

TEST_F(RapiCopies, CanBeEndedWhenTheDeviceIsDead) {
  begin("dead-reads");
  test::putBytes(pocket_.file("a"), "abc");
  test::putBytes(local_.path("a"), "old");
  EXPECT_FALSE(ce_.CopyFileFromPocket(R"(\My Documents\a)", local_.path("a"),
                                      [](const CopyProgress& at) { return at.failedReads < 1000; }));
  EXPECT_EQ(pocket_.calls().size(), 1U + 1000 + 1);
  EXPECT_EQ(test::bytesOf(local_.path("a")), "old");
}

TEST_F(RapiCopies, WriteFromWhereTheDeviceIs) {
  begin("short=1500");
  test::putBytes(local_.path("a"), test::numbered(5000));
  EXPECT_TRUE(ce_.CopyFileToPocket(local_.path("a"), R"(\My Documents\a)"));
  EXPECT_EQ(pocket_.calls(),
            (Calls{R"(CeCreateFile \My Documents\a 1 0 1 128 yes)", "CeWriteFile 2048 1500", "CeWriteFile 2048 1500",
                   "CeWriteFile 2000 1500", "CeWriteFile 500 500", "CeCloseHandle yes"}));
  EXPECT_EQ(test::bytesOf(pocket_.file("a")), test::numbered(5000));
  EXPECT_FALSE(ce_.CopyFileToPocket(local_.path("a"), R"(\My Documents\a)"));
  EXPECT_EQ(pocket_.calls(), Calls{R"(CeCreateFile \My Documents\a 1 0 1 128 no)"});
}

TEST_F(RapiCopies, EndWhenTheDeviceIsFull) {
  begin("full=3000");
  test::putBytes(local_.path("a"), test::numbered(5000));
  EXPECT_FALSE(ce_.CopyFileToPocket(local_.path("a"), R"(\My Documents\a)"));
  EXPECT_EQ(pocket_.calls(), (Calls{R"(CeCreateFile \My Documents\a 1 0 1 128 yes)", "CeWriteFile 2048 2048",
                                    "CeWriteFile 2048 952", "CeWriteFile 2000 0", "CeCloseHandle yes"}));
}

TEST_F(RapiCopies, PassOnPathsAndPrograms) {
  begin();
  const DeviceHandle file = link_.open(u"\\My Documents\\b", FileAccess::ReadWrite, Disposition::CreateNew);
  EXPECT_TRUE(link_.close(file));
  EXPECT_TRUE(ce_.ExistFileOnPocket(R"(\My Documents\b)"));
  EXPECT_TRUE(ce_.DeleteFileFromPocket(R"(\My Documents\b)"));
  EXPECT_FALSE(ce_.ceCommand("\\año日", "\"€\" 😀"));
  EXPECT_EQ(pocket_.calls(), (Calls{R"(CeCreateFile \My Documents\b 3 0 1 128 yes)", "CeCloseHandle yes",
                                    R"(CeFindFirstFile \My Documents\b)", "CeFindClose",
                                    R"(CeDeleteFile \My Documents\b yes)", "CeCreateProcess \\año?|\"€\" ?"}));
}

TEST_F(RapiCopies, KnowNoVersionWithoutAnAnswer) {
  begin("no-version");
  EXPECT_EQ(ce_.Version(), "");
  EXPECT_FALSE(ce_.IsConnected());
}

TEST(ProcessLink, IsTheHostsOrThatOfTheEnvironment) {
  const test::Pocket pocket;
  unsetenv("QVN_RAPI");
  setDeviceLink(nullptr);
  EXPECT_EQ(deviceLink(), nullptr);
  setenv("QVN_RAPI", "", 1);
  EXPECT_EQ(deviceLink(), nullptr);
  setenv("QVN_RAPI", QVN_POCKET_LIBRARY, 1);
  const DeviceLinkPtr found = deviceLink();
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(deviceLink(), found);
  EXPECT_TRUE(QvnMobile(found).Connect().toBoolean());
  EXPECT_TRUE(QvnMobile(deviceLink()).IsConnected());  // one session for all
  const DeviceLinkPtr own = noDeviceLink();
  setDeviceLink(own);
  EXPECT_EQ(deviceLink(), own);
  setDeviceLink(nullptr);
  unsetenv("QVN_RAPI");
}

}  // namespace
}  // namespace qvn::devices
