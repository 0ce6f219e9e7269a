#include <gtest/gtest.h>

#include <sstream>

#include "apps/qvn/commands.h"
#include "qvn/base/utf8.h"
#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

// The help that this call gives and each of the others repeats; it fits a terminal.
std::string expectHelp(const std::vector<std::string>& arguments, const std::vector<std::vector<std::string>>& others) {
  const std::string help = expectRun(0, {.arguments = arguments}).out;
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(utf8::length(line), 80U) << line;
  for (const auto& other : others) EXPECT_EQ(runQvn(other).out, help);
  return help;
}

TEST(Help, TheOverviewListsEveryCommandAndEachTeaches) {
  const std::string overview = expectHelp({"--ayuda"}, {{"--help"}, {"-h"}});
  expectHolds(overview, {"QVN_CONEXION"});
  ASSERT_FALSE(cli::allCommands().empty());
  for (const cli::Command* command : cli::allCommands()) {
    const std::string name(command->name);
    expectHolds(overview, {"\n  " + name + " ", std::string(command->summary)});
    const std::string help = expectHelp({name, "--ayuda"}, {{name, "--help"}, {name, "x", "-h"}});
    EXPECT_TRUE(help.starts_with("Uso: qvn " + name)) << help;
    for (const cli::Option& option : command->options) expectHolds(help, {"--" + std::string(option.name)});
    expectHolds(help, {"\nEjemplos:\n  qvn " + name, "\nEstado de salida:\n"});
  }
}

TEST(Help, VersionIsOneLine) {
  const std::string version = expectRun(0, {.arguments = {"--version"}}).out;
  EXPECT_TRUE(version.starts_with("qvn ")) << version;
  EXPECT_EQ(version.find('\n'), version.size() - 1);
}

}  // namespace
}  // namespace qvn::test
