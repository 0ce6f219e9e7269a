#include "qvn/core/environment.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/error_of.h"
#include "tests/support/locale_guard.h"
#include "tests/support/recorded_messages.h"

namespace qvn::core {
namespace {

using Found = std::optional<std::vector<NetworkLink>>;

class FixedLinks final : public NetworkLinks {
 public:
  explicit FixedLinks(Found found) : found_(std::move(found)) {}
  Found list() override { return found_; }

 private:
  Found found_;
};

TEST(OsVersion, IsMajorPointMinorInEveryLocale) {
  static constexpr std::pair<const char*, double> kRows[] = {
      {"6.1.0-13-amd64", 6.1},
      {"6.1", 6.1},
      {"5.10.0", 5.1},
      {"10.0.19041", 10},
      {"4.19-rc1", 4.19},
      {"7", 7},
      {"7.", 7},
      {"7-rc", 7},
      {"3e5.1", 3},
      {".5", 0.5},
      {"-6.1", 0},
      {"", 0},
  };
  for (const char* locale : {"C", "es_ES.UTF-8"}) {
    const test::LocaleGuard guard(locale);
    for (const auto& [release, expected] : kRows) EXPECT_EQ(osVersionOf(release), expected) << release;
    EXPECT_GT(OsVersion(), 0);
  }
}

TEST(IsDevEnv, LooksAtTheLastSevenOf255Characters) {
  const std::string folder = "C:\\POS\\";
  const auto padded = [](std::size_t length) { return std::string(length - 7, 'x') + "VB6.EXE"; };
  struct Row {
    const char* why;
    std::string name;
    bool expected;
  };
  const Row rows[] = {
      {"any version", folder + "VB6.EXE", true},
      {"any case", folder + "vb5.exe", true},
      {"only the end counts", folder + "MiVB6.EXE", true},
      {"one character of two bytes", folder + "VBñ.EXE", true},
      {"nothing but the name", "VB6.EXE", true},
      {"no character", folder + "VB.EXE", false},
      {"two characters", folder + "VB10.EXE", false},
      {"shorter than the pattern", "B6.EXE", false},
      {"no name", "", false},
      {"the point is meant", folder + "VB66EXE", false},
      {"something behind", folder + "VB6.EXE ", false},
      {"255 characters", padded(255), true},
      {"the 256th is cut", padded(256), false},
      {"what stands behind the 255th does not count", padded(255) + ".bak", true},
      {"characters, not bytes", "ñ" + padded(254), true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    EXPECT_EQ(isDevelopmentHost(row.name), row.expected);
  }
  EXPECT_FALSE(IsDevEnv());
}

TEST(Names, UserAndComputerAreThoseOfTheSystem) {
  utsname system{};
  ASSERT_EQ(uname(&system), 0);
  EXPECT_EQ(getMyName(), system.nodename);
  const std::string user = GetUserNameW();
  EXPECT_EQ(user.find('\0'), user.npos);
  EXPECT_EQ(user == "root", geteuid() == 0);

  using std::string_view_literals::operator""sv;
  EXPECT_EQ(untilNul("caja1\0basura\0"sv), "caja1");
  EXPECT_EQ(untilNul("\0caja1"sv), "");
  EXPECT_EQ(untilNul("sin final"sv), "sin final");
}

TEST(EmptySys, GivesSysForBlankTextAndTheValueItselfOtherwise) {
  for (const Variant& value : {Variant(), Variant(""), Variant("   ")}) EXPECT_EQ(EmptySys(value).toText(), "SYS");
  EXPECT_EQ(EmptySys(" A ").toText(), " A ");
  EXPECT_EQ(EmptySys("\t").toText(), "\t") << "only the blank is blank";
  EXPECT_EQ(EmptySys(0).type(), VariantType::Long) << "zero is a value, and keeps its type";
  EXPECT_EQ(EmptySys(false).type(), VariantType::Boolean);
  EXPECT_EQ(test::errorNumber([] { EmptySys(Null{}); }), 94);
  EXPECT_EQ(test::errorNumber([] { EmptySys(Array{}); }), 13);
}

TEST(ConnectionProbes, AnswerFromTheInterfaces) {
  const NetworkLink loopback{.name = "lo", .isUp = true, .isRunning = true, .isLoopback = true, .hasAddress = true};
  const NetworkLink cable{.name = "eth0", .isUp = true, .isRunning = true, .hasAddress = true};
  const NetworkLink dialUp{.name = "ppp0", .isUp = true, .isRunning = true, .isPointToPoint = true, .hasAddress = true};
  const auto with = [](NetworkLink link, bool NetworkLink::*flag, bool value) {
    link.*flag = value;
    return link;
  };
  struct Row {
    const char* why;
    Found links;
    bool canReach;
    bool isDialled;
  };
  const Row rows[] = {
      {"the system tells nothing", std::nullopt, false, false},
      {"no interface", std::vector<NetworkLink>{}, false, false},
      {"loopback alone", {{loopback}}, false, false},
      {"a cable", {{loopback, cable}}, true, false},
      {"a cable switched off", {{with(cable, &NetworkLink::isUp, false)}}, false, false},
      {"a cable pulled out", {{with(cable, &NetworkLink::isRunning, false)}}, false, false},
      {"a cable without an address", {{with(cable, &NetworkLink::hasAddress, false)}}, false, false},
      {"a call beside a cable", {{loopback, cable, dialUp}}, true, true},
      {"a call being answered", {{with(dialUp, &NetworkLink::isRunning, false)}}, false, false},
      {"a line switched off", {{with(dialUp, &NetworkLink::isUp, false)}}, false, false},
      {"a call without an address is a call", {{with(dialUp, &NetworkLink::hasAddress, false)}}, false, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    FixedLinks links(row.links);
    test::RecordedMessages messages;
    EXPECT_EQ(Conectar(links), row.canReach);
    EXPECT_EQ(IsConnected(links, messages), row.isDialled);
    EXPECT_EQ(messages.shown, row.links ? std::vector<std::string>{} : std::vector<std::string>{"ERROR|0|"});
  }
}

TEST(NetworkLinks, ListsEachInterfaceOfTheSystemOnce) {
  const Found links = systemNetworkLinks()->list();
  ASSERT_TRUE(links);
  std::vector<std::string> names;
  for (const NetworkLink& link : *links) names.push_back(link.name);
  std::ranges::sort(names);
  EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
  EXPECT_EQ(std::ranges::count(*links, true, &NetworkLink::isLoopback), 1) << "every station has one way to itself";
}

}  // namespace
}  // namespace qvn::core
