#include "qvn/dialogs/terminal_dialogs.h"

#include <gtest/gtest.h>

#include <sstream>

namespace qvn::dialogs {
namespace {

struct Terminal {
  explicit Terminal(const std::string& typed) : in(typed) {}
  std::istringstream in;
  std::ostringstream out;
  TerminalDialogs dialogs{in, out, [this](std::string& line) { return bool{std::getline(in, line)}; }};
};

TEST(TerminalDialogs, ButtonsAreNamedByLetterNumberOrCaption) {
  struct Row {
    const char* typed;
    std::int16_t question;
    std::int16_t choice;
  };
  static constexpr Row kRows[] = {
      {"s\n", 1, 1},        {"S\r\n", 1, 1},      {" Sí \n", 1, 1}, {"si\n", 1, 1}, {"1\n", 1, 1},
      {"no\n", 2, 3},       {"N\n", 2, 3},        {"2\n", 2, 2},    {"\n", 2, 2},   {"  \n", 2, 2},
      {"¿qué?\nn\n", 2, 3}, {"sino\n9\ns", 1, 1}, {"", 0, 0},       {"x\n", 0, 0},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(Terminal(row.typed).dialogs.question("¿Borrar?", 2), row.question) << row.typed;
    EXPECT_EQ(Terminal(row.typed).dialogs.choice("¿Borrar?", 2), row.choice) << row.typed;
  }
  EXPECT_EQ(Terminal("ToDO").dialogs.choice("?", 1), 0);
  EXPECT_EQ(Terminal("t").dialogs.choice("?", 1), 2);
  EXPECT_EQ(Terminal("si a ToDO").dialogs.choice("?", 1), 2);
  EXPECT_EQ(Terminal("c").dialogs.choice("?", 1), 4);
}

TEST(TerminalDialogs, Prompts) {
  Terminal question("x\ns\n");
  question.dialogs.question("¿Borrar?", 2);
  const std::string prompt = "[S]i  [N]o  (Enter: No): ";
  EXPECT_EQ(question.out.str(), "¿Borrar?\n" + prompt + prompt);
  Terminal choice("");
  choice.dialogs.choice("¿Borrar?", 1);
  EXPECT_EQ(choice.out.str(), "¿Borrar?\n[S]i  Si a [t]odo  [N]o  [C]ancelar  (Enter: Si): \n");
}

TEST(TerminalDialogs, EntriesAreLines) {
  Terminal terminal("Ana María \r\nsecreto\nnuevo\n\n");
  EXPECT_EQ(terminal.dialogs.entry("Nombre"), "Ana María ");
  EXPECT_EQ(terminal.dialogs.password("Clave", nullptr), "secreto");
  EXPECT_EQ(terminal.dialogs.keyboard("viejo"), "nuevo");
  EXPECT_EQ(terminal.dialogs.keyboard("viejo"), "viejo");
  EXPECT_EQ(terminal.dialogs.entry("Nombre"), std::nullopt);
  EXPECT_EQ(terminal.dialogs.password("Clave", nullptr), std::nullopt);
  EXPECT_EQ(terminal.out.str().find("secreto"), std::string::npos);
}

TEST(TerminalDialogs, ProgressIsALinePerText) {
  Terminal terminal("");
  terminal.dialogs.progress("uno", [](const Dialogs::Show& show) { show("dos\r\ntres"); });
  EXPECT_EQ(terminal.out.str(), "uno\ndos\ntres\n");
}

TEST(TerminalDialogs, TextsSteerNothing) {
  Terminal terminal("");
  terminal.dialogs.message("<b>uno</b>\r\ndos\t\x1B[2J\x07 \xFF\u202E");
  EXPECT_EQ(terminal.out.str(), "<b>uno</b>\ndos\t\\x1B[2J\\x07 \\xFF\\u202E\n");
}

}  // namespace
}  // namespace qvn::dialogs
