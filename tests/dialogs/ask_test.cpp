#include "qvn/dialogs/ask.h"

#include <gtest/gtest.h>

#include "qvn/dialogs/default_dialogs.h"
#include "qvn/dialogs/scripted_dialogs.h"
#include "qvn/dialogs/terminal_dialogs.h"
#include "tests/support/error_of.h"

namespace qvn::dialogs {
namespace {

using Shown = ScriptedDialogs::Shown;

TEST(Ask, QuestionsAndChoices) {
  struct Row {
    std::int16_t defaultButton;
    std::int16_t pressed;  // 0: closed without a button
    bool expected;
    std::int32_t focused;
  };
  static constexpr Row kRows[] = {{1, 1, true, 1},  {1, 2, false, 1}, {1, 0, false, 1}, {2, 1, true, 2},
                                  {2, 2, false, 2}, {0, 1, true, 2},  {-7, 0, false, 2}};
  for (const Row& row : kRows) {
    ScriptedDialogs dialogs;
    if (row.pressed != 0) dialogs.answerWithButton(row.pressed);
    EXPECT_EQ(Question("¿Borrar?", row.defaultButton, dialogs), row.expected);
    EXPECT_EQ(dialogs.shown(), (std::vector<Shown>{{"question", "¿Borrar?", row.focused}}));
  }
  ScriptedDialogs dialogs;
  for (const std::int16_t button : std::initializer_list<std::int16_t>{1, 2, 3, 4}) {
    dialogs.answerWithButton(button);
    EXPECT_EQ(Question2("¿Sobrescribir?", button, dialogs), button);
    EXPECT_EQ(dialogs.shown().back(), (Shown{"choice", "¿Sobrescribir?", button}));
  }
  EXPECT_EQ(Question2("¿Sobrescribir?", 1, dialogs), 0);
  for (const std::int16_t button : std::initializer_list<std::int16_t>{0, 5, -1}) {
    EXPECT_EQ(test::errorNumber([&] { Question2("?", button, dialogs); }), error_number::kSubscriptOutOfRange);
  }
  EXPECT_EQ(dialogs.shown().size(), 5U);
}

TEST(Ask, WhatIsNotAcceptedIsEmpty) {
  ScriptedDialogs dialogs;
  dialogs.answerWithText("ñandú");
  dialogs.answerWithText("secreto");
  EXPECT_EQ(MyInputBox("Nombre", dialogs), "ñandú");
  EXPECT_EQ(MyInputPasswordBox("Clave", nullptr, dialogs), "secreto");
  EXPECT_EQ(MyInputBox("Nombre", dialogs), "");
  EXPECT_EQ(MyInputPasswordBox("Clave", nullptr, dialogs), "");
  EXPECT_EQ(dialogs.keyboard("igual"), "igual");
  EXPECT_EQ(MyMessage2("nada", 3), 0);
  EXPECT_EQ(dialogs.shown().size(), 5U);
}

TEST(DefaultDialogs, AreWindowsWhereTheHostHasThem) {
  EXPECT_NE(std::dynamic_pointer_cast<TerminalDialogs>(defaultDialogs()), nullptr);
  registerDialogs([]() -> DialogsPtr { return nullptr; });
  EXPECT_NE(std::dynamic_pointer_cast<TerminalDialogs>(defaultDialogs()), nullptr);
  registerDialogs([]() -> DialogsPtr { return std::make_shared<ScriptedDialogs>(); });
  EXPECT_NE(std::dynamic_pointer_cast<ScriptedDialogs>(defaultDialogs()), nullptr);
  registerDialogs(nullptr);
}

}  // namespace
}  // namespace qvn::dialogs
