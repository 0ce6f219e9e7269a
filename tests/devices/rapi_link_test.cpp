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
using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
constexpr milliseconds kLongEnough{60000};

TEST(RapiLink, EndsASessionThatDoesNotComeUp) {
  struct Row {
    const char* faults;
    milliseconds wait;
    Calls calls;
  };
  const Calls ended = {"CeRapiInitEx 12", "CeRapiUninit"};
  const Row rows[] = {{"no-start", kLongEnough, {"CeRapiInitEx 12"}},
                      {"no-event", kLongEnough, ended},
                      {"no-signal", milliseconds(300), ended},
                      {"closed-event", kLongEnough, ended},
                      {"failed", kLongEnough, ended}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.faults);
    test::Pocket pocket(row.faults);
    RapiLink link(test::Pocket::library());
    const WindowsCe ce(link);
    const auto begun = Clock::now();
    EXPECT_FALSE(ce.Connect(row.wait));
    EXPECT_EQ(Clock::now() - begun >= row.wait, std::string_view(row.faults) == "no-signal");
    EXPECT_EQ(pocket.calls(), row.calls);
    EXPECT_FALSE(ce.IsConnected());
    EXPECT_FALSE(ce.ExistFileOnPocket("a"));
    EXPECT_EQ(pocket.calls(), Calls{});  // without a session the library is left alone
  }
}

TEST(RapiLink, EndsASessionThatIsStillComingUp) {
  const test::Pocket pocket;
  RapiLink link(test::Pocket::library());
  for (int i = 0; i < 100; ++i) {
    EXPECT_NE(link.initialise(milliseconds(0)), SessionStart::NotStarted);
    link.uninitialise();
    EXPECT_FALSE(link.version().has_value());
  }
}

TEST(RapiLink, ComesUpAfterAFailedSessionAndEndsWhenItGoes) {
  test::Pocket pocket("failed");
  {
    RapiLink link(test::Pocket::library());
    const WindowsCe ce(link);
    EXPECT_FALSE(ce.Connect(kLongEnough));
    test::Pocket::fail("");
    EXPECT_TRUE(ce.Connect(kLongEnough));
    pocket.calls();
    EXPECT_FALSE(ce.Connect(kLongEnough));  // this library refuses a second one
    EXPECT_EQ(ce.Version(), "5.1.1700 Edición 2");
    ce.Disconnect();
    ce.Disconnect();
    EXPECT_FALSE(ce.ExistFileOnPocket("a"));
    EXPECT_EQ(pocket.calls(), (Calls{"CeRapiInitEx 12", "CeRapiUninit"}));
    EXPECT_TRUE(ce.Connect(kLongEnough));
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
    test::Pocket pocket;
    RapiLink link(row.library);
    const WindowsCe ce(link);
    EXPECT_EQ(test::errorNumber([&] { link.load(); }), row.number);
    const std::string error = test::errorText([&] { link.initialise(kLongEnough); });
    EXPECT_NE(error.find(row.piece), std::string::npos) << error;
    EXPECT_FALSE(ce.Connect(kLongEnough));
    EXPECT_FALSE(ce.IsConnected());
    ce.Disconnect();
    EXPECT_EQ(pocket.calls(), Calls{});
  }
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
