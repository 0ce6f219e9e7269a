#include <gtest/gtest.h>

#include <sstream>

#include "apps/qvn/commands.h"
#include "qvn/base/utf8.h"
#include "tests/apps/run_program.h"

namespace qvn::test {
namespace {

constexpr std::size_t kTerminalColumns = 80;

void expectFitsTerminal(const std::string& text) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) EXPECT_LE(utf8::length(line), kTerminalColumns) << line;
}

void expectHolds(const std::string& text, std::string_view piece) {
  EXPECT_NE(text.find(piece), std::string::npos) << "missing: " << piece << "\nin: " << text;
}

TEST(Help, EachCommandTeaches) {
  ASSERT_FALSE(cli::allCommands().empty());
  for (const cli::Command* command : cli::allCommands()) {
    const std::string name(command->name);
    SCOPED_TRACE(name);
    const Outcome help = runQvn({name, "--ayuda"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_TRUE(help.out.starts_with("Uso: qvn " + name)) << help.out;
    for (const cli::Option& option : command->options) expectHolds(help.out, "--" + std::string(option.name));
    expectHolds(help.out, "\nEjemplos:\n  qvn " + name);
    expectHolds(help.out, "\nEstado de salida:\n");
    expectFitsTerminal(help.out);
    EXPECT_EQ(runQvn({name, "--help"}).out, help.out);
    EXPECT_EQ(runQvn({name, "x", "-h"}).out, help.out);
  }
}

TEST(Help, OverviewListsEveryCommand) {
  const Outcome help = runQvn({"--ayuda"});
  EXPECT_EQ(help.status, 0);
  for (const cli::Command* command : cli::allCommands()) {
    expectHolds(help.out, "\n  " + std::string(command->name) + " ");
    expectHolds(help.out, command->summary);
  }
  expectHolds(help.out, "QVN_CONEXION");
  expectFitsTerminal(help.out);
  EXPECT_EQ(runQvn({"--help"}).out, help.out);
  EXPECT_EQ(runQvn({"-h"}).out, help.out);
}

TEST(Help, VersionIsOneLine) {
  const Outcome version = runQvn({"--version"});
  EXPECT_EQ(version.status, 0);
  EXPECT_TRUE(version.out.starts_with("qvn ")) << version.out;
  EXPECT_EQ(version.out.find('\n'), version.out.size() - 1);
}

}  // namespace
}  // namespace qvn::test
