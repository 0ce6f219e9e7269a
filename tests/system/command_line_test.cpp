#include "qvn/system/command_line.h"

#include <gtest/gtest.h>

namespace qvn::system {
namespace {

TEST(CommandLine, IsSplitByQuotesAlone) {
  struct Row {
    const char* line;
    std::vector<std::string> words;
  };
  const Row rows[] = {
      {"", {}},
      {" \t ", {}},
      {"ls", {"ls"}},
      {"  ls   -l\t/tmp ", {"ls", "-l", "/tmp"}},
      {R"(copia "mis datos" b)", {"copia", "mis datos", "b"}},
      {R"(sh -c 'echo "hola"; echo $HOME')", {"sh", "-c", "echo \"hola\"; echo $HOME"}},
      {R"("C:\mis datos\a.exe" C:\b\)", {R"(C:\mis datos\a.exe)", R"(C:\b\)"}},
      {R"("dijo \"si\"" 'a\')", {R"(dijo "si")", R"(a\)"}},
      {R"(--a="b c"d "" x'' )", {"--a=b cd", "", "x"}},
      {R"("sin fin )", {"sin fin "}},
      {"*.txt | sort > x; $A", {"*.txt", "|", "sort", ">", "x;", "$A"}},
      {"año ñandú€", {"año", "ñandú€"}},
  };
  for (const Row& row : rows) EXPECT_EQ(splitCommandLine(row.line), row.words) << row.line;
}

TEST(CommandLine, QuotedArgumentsComeBack) {
  for (const char* const argument : {"", "a", "dos palabras", "d'Or", "'", "\"x\\\"", "\\", "'\\'\" '"}) {
    EXPECT_EQ(splitCommandLine("x " + quotedArgument(argument) + " y"), (std::vector<std::string>{"x", argument, "y"}));
  }
}

}  // namespace
}  // namespace qvn::system
