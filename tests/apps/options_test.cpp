#include "apps/qvn/options.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace qvn::cli {
namespace {

using namespace std::string_view_literals;
using Words = std::vector<std::string_view>;

constexpr auto kOptions = std::to_array<Option>({
    {"conexion", 'c', "CADENA", ""},
    {"completo", 0, "", ""},
});

TEST(ParseArguments, TakesOptionsAndOperandsInAnyOrder) {
  struct Row {
    const char* why;
    Words words;
    std::optional<std::string_view> connection;
    bool isWhole;
    Words operands;
  };
  // clang-format off
  const Row rows[] = {
      {"nothing", {}, {}, false, {}}, {"an empty value", {"--conexion="}, "", false, {}},
      {"value in the next word", {"--conexion", "a;b=c", "x"}, "a;b=c", false, {"x"}},
      {"value after =, which may hold = itself", {"--conexion=a=b"}, "a=b", false, {}},
      {"short, apart and together", {"-c", "uno", "-cdos"}, "dos", false, {}},
      {"a value that looks like an option", {"-c", "--completo"}, "--completo", false, {}},
      {"options behind operands", {"x", "--completo", "y"}, {}, true, {"x", "y"}},
      {"operands all", {"-5", "-.5", "-,5", "-", ""}, {}, false, {"-5", "-.5", "-,5", "-", ""}},
      {"-- ends the options", {"--", "--help", "--"}, {}, false, {"--help", "--"}},
  };
  // clang-format on
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    const Arguments arguments = parseArguments(kOptions, row.words);
    EXPECT_EQ(arguments.value("conexion"), row.connection);
    EXPECT_EQ(arguments.has("completo"), row.isWhole);
    EXPECT_EQ(arguments.operands(), row.operands);
    EXPECT_FALSE(arguments.has(kHelpOption.name));
  }
}

TEST(ParseArguments, RefusesWhatItDoesNotKnow) {
  // clang-format off
  const std::pair<Words, std::string> rows[] = {
      {{"--nada=1"}, "«--nada»"}, {{"-x1"}, "«-x»"}, {{"--complet"}, "«--complet»"},  // names are not completed
      {{"-\0"sv}, "no existe"}, {{"x", "-c"}, "falta el valor de la opción «-c»"},    // letter 0 is nobody's
      {{"--completo=sí"}, "«--completo» no lleva valor"},
  };
  // clang-format on
  for (const auto& [words, said] : rows) {
    SCOPED_TRACE(said);
    try {
      parseArguments(kOptions, words);
      ADD_FAILURE() << "accepted";
    } catch (const UsageError& error) {
      EXPECT_NE(std::string(error.what()).find(said), std::string::npos) << error.what();
    }
  }
}

TEST(ParseArguments, HelpGoesBeforeEverythingElse) {
  for (const Words& words : {Words{"--nada", "--ayuda"}, Words{"x", "--help"}, Words{"-h", "-c"}}) {
    EXPECT_TRUE(parseArguments(kOptions, words).has(kHelpOption.name));
  }
}

}  // namespace
}  // namespace qvn::cli
