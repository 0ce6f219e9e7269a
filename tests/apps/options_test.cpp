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
  const Row rows[] = {
      {"nothing", {}, std::nullopt, false, {}},
      {"value in the next word", {"--conexion", "a;b=c", "x"}, "a;b=c", false, {"x"}},
      {"value after =, which may hold = itself", {"--conexion=a=b"}, "a=b", false, {}},
      {"an empty value", {"--conexion="}, "", false, {}},
      {"short, apart and together", {"-c", "uno", "-cdos"}, "dos", false, {}},
      {"a value that looks like an option", {"-c", "--completo"}, "--completo", false, {}},
      {"options behind operands", {"x", "--completo", "y"}, std::nullopt, true, {"x", "y"}},
      {"negative numbers are operands", {"-5", "-.5", "-,5", "-"}, std::nullopt, false, {"-5", "-.5", "-,5", "-"}},
      {"-- ends the options", {"--", "--completo", "--"}, std::nullopt, false, {"--completo", "--"}},
      {"no help is asked for behind --", {"--", "--help"}, std::nullopt, false, {"--help"}},
      {"an empty word is an operand", {""}, std::nullopt, false, {""}},
  };
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
  struct Row {
    const char* why;
    Words words;
    std::string said;
  };
  const Row rows[] = {
      {"unknown long option", {"--nada=1"}, "«--nada»"},
      {"names are not completed", {"--complet"}, "«--complet»"},
      {"unknown letter", {"-x1"}, "«-x»"},
      {"the letter 0 is nobody's", {"-\0"sv}, "no existe"},
      {"value missing at the end", {"x", "-c"}, "falta el valor de la opción «-c»"},
      {"value for an option without one", {"--completo=sí"}, "«--completo» no lleva valor"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.why);
    try {
      parseArguments(kOptions, row.words);
      ADD_FAILURE() << "accepted";
    } catch (const UsageError& error) {
      EXPECT_NE(std::string(error.what()).find(row.said), std::string::npos) << error.what();
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
