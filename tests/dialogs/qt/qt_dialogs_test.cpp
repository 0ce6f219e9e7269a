// The windows, worked by mouse and keyboard as a person does.
#include "qvn/dialogs/qt/qt_dialogs.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest/QTest>
#include <cmath>
#include <functional>
#include <optional>
#include <stdexcept>

#include "apps/qvn/program.h"
#include "qvn/dialogs/ask.h"
#include "qvn/dialogs/default_dialogs.h"
#include "qvn/dialogs/qt/window_parts.h"

namespace qvn::dialogs {
namespace {

// Does something to the window that opens next.
void onNextWindow(std::function<void(QWidget&)> act) {
  QTimer::singleShot(0, qApp, [act = std::move(act)] {
    QWidget* const window = QApplication::activeModalWidget();
    if (window == nullptr) {
      onNextWindow(act);
      return;
    }
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    act(*window);
    if (window->isVisible()) window->close();
  });
}

QPushButton* buttonNamed(QWidget& window, const QString& caption) {
  for (QPushButton* const button : window.findChildren<QPushButton*>()) {
    if (button->text() == caption) return button;
  }
  ADD_FAILURE() << "no button " << caption.toStdString();
  return nullptr;
}

void click(QWidget& window, const QString& caption) { QTest::mouseClick(buttonNamed(window, caption), Qt::LeftButton); }

void type(QWidget& widget, const QString& text) {
  for (const QChar character : text) {
    QKeyEvent pressed(QEvent::KeyPress, 0, Qt::NoModifier, character);
    QApplication::sendEvent(&widget, &pressed);
  }
}

class QtDialogs : public testing::Test {
 protected:
  DialogsPtr dialogs_ = qtDialogs();
};

TEST_F(QtDialogs, AreTheDefaultOfAProcessWithWindows) {
  ASSERT_NE(dialogs_, nullptr);
  const DialogsPtr held = defaultDialogs();
  const Dialogs& chosen = *held;
  const Dialogs& windows = *dialogs_;
  EXPECT_STREQ(typeid(chosen).name(), typeid(windows).name());
}

TEST_F(QtDialogs, ButtonsGiveTheirNumbers) {
  struct Row {
    const char* pressed;  // null: the close box
    std::int16_t answer;
  };
  static constexpr Row kQuestions[] = {{"&Si", 1}, {"&No", 2}, {nullptr, 0}};
  static constexpr Row kChoices[] = {{"&Si", 1}, {"Si a &todo", 2}, {"&No", 3}, {"&Cancelar", 4}, {nullptr, 0}};
  const auto press = [](const char* caption, const char* title) {
    onNextWindow([=](QWidget& window) {
      EXPECT_EQ(window.windowTitle(), title);
      EXPECT_EQ(window.findChild<QPlainTextEdit*>()->toPlainText(), "¿Borrar?");
      if (caption != nullptr) click(window, caption);
    });
  };
  for (const Row& row : kQuestions) {
    press(row.pressed, "Pregunta");
    EXPECT_EQ(dialogs_->question("¿Borrar?", 1), row.answer);
  }
  for (const Row& row : kChoices) {
    press(row.pressed, "Que hacer");
    EXPECT_EQ(dialogs_->choice("¿Borrar?", 1), row.answer);
  }
}

TEST_F(QtDialogs, KeysWorkTheButtons) {
  struct Row {
    std::int16_t focused;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    std::int16_t answer;
  };
  static constexpr Row kRows[] = {
      {1, Qt::Key_Return, Qt::NoModifier, 1}, {2, Qt::Key_Return, Qt::NoModifier, 2},
      {4, Qt::Key_Enter, Qt::NoModifier, 4},  {3, Qt::Key_Space, Qt::NoModifier, 3},
      {1, Qt::Key_Escape, Qt::NoModifier, 0}, {1, Qt::Key_T, Qt::AltModifier, 2},
      {1, Qt::Key_C, Qt::AltModifier, 4},
  };
  for (const Row& row : kRows) {
    onNextWindow([&](QWidget& window) {
      auto* const focused = qobject_cast<QPushButton*>(window.focusWidget());
      ASSERT_NE(focused, nullptr);
      EXPECT_EQ(focused->property("Index").toInt(), row.focused - 1);
      QTest::keyClick(focused, row.key, row.modifiers);
      // A mnemonic shows its button pressed for a moment.
      EXPECT_TRUE(QTest::qWaitFor([&] { return !window.isVisible(); }));
    });
    EXPECT_EQ(Question2("¿Sobrescribir?", row.focused, *dialogs_), row.answer);
  }
  onNextWindow([](QWidget& window) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(window.focusWidget(), Qt::Key_Space);
  });
  EXPECT_FALSE(Question("¿Borrar?", 1, *dialogs_));
}

TEST_F(QtDialogs, MessagesKeepTheirProportions) {
  struct Row {
    void (Dialogs::*show)(std::string_view);
    const char* closing;
    qsizetype icons;
  };
  static const Row kRows[] = {{&Dialogs::message, "&Aceptar", 1},
                              {&Dialogs::message, "Command2", 1},
                              {&Dialogs::alert, "&Aceptar", 0},
                              {&Dialogs::alert, nullptr, 0}};
  for (const Row& row : kRows) {
    onNextWindow([&](QWidget& window) {
      EXPECT_EQ(window.windowTitle(), "Mensaje");
      EXPECT_EQ(window.findChildren<QLabel*>().size(), row.icons);
      auto* const text = window.findChild<QPlainTextEdit*>("txtMensaje");
      EXPECT_EQ(text->toPlainText(), "<b>uno</b> &dos\ntres \\x07");
      EXPECT_TRUE(text->isReadOnly());
      EXPECT_NEAR(window.width(), window.height() * 1.61803399, 2);
      const auto checkText = [&] {
        const QWidget* const accept = window.findChild<QPushButton*>("cmdAceptar");
        EXPECT_NEAR(qt::twips(window, text->width()), qt::twips(window, window.width()) - 100, 15);
        EXPECT_NEAR(qt::twips(window, text->height()), qt::twips(window, window.height() - accept->height()) - 700, 15);
      };
      checkText();
      window.resize(700, 500);
      checkText();
      EXPECT_EQ(window.focusWidget()->objectName(), "cmdAceptar");
      if (row.closing != nullptr) click(window, row.closing);
    });
    ((*dialogs_).*row.show)("<b>uno</b> &dos\r\ntres \a");
  }
}

TEST_F(QtDialogs, EntriesGiveWhatWasAccepted) {
  struct Row {
    const char* pressed;
    std::optional<std::string> answer;
  };
  const Row rows[] = {{"&Aceptar", "Añón"}, {"&Cancelar", std::nullopt}, {nullptr, std::nullopt}};
  for (const bool isPassword : {false, true}) {
    for (const Row& row : rows) {
      onNextWindow([&](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), "Quorvin POS");
        EXPECT_EQ(window.findChild<QLabel*>("lblTitulo")->text(), "<i>Nombre</i>");
        EXPECT_EQ(window.findChild<QLabel*>("ImagenLector") != nullptr, isPassword);
        auto* const line = qobject_cast<QLineEdit*>(window.focusWidget());
        ASSERT_NE(line, nullptr);
        EXPECT_EQ(line->echoMode() == QLineEdit::Password, isPassword);
        type(*line, "Añón");
        if (row.pressed != nullptr) click(window, row.pressed);
      });
      EXPECT_EQ(isPassword ? dialogs_->password("<i>Nombre</i>", nullptr) : dialogs_->entry("<i>Nombre</i>"),
                row.answer);
    }
  }
  onNextWindow([](QWidget& window) { QTest::keyClick(window.focusWidget(), Qt::Key_Return); });
  EXPECT_EQ(dialogs_->entry("Nombre"), "");
}

TEST_F(QtDialogs, TheKeyboardOnTheScreenTypes) {
  const auto press = [](QWidget& window) {
    for (const char* const key : {"ñ", "Mayús", "Á", "1", "Símbolos", "&&", "Símbolos", "Espacio", "x", "Borrar"}) {
      click(window, QString::fromUtf8(key));
    }
  };
  onNextWindow([&](QWidget& window) {
    press(window);
    click(window, "&Aceptar");
  });
  EXPECT_EQ(dialogs_->keyboard("abc"), "abcñÁ1& ");
  onNextWindow([&](QWidget& window) {
    press(window);
    click(window, "&Cancelar");
  });
  EXPECT_EQ(dialogs_->keyboard("abc"), "abc");
  // From an entry, over which it opens.
  onNextWindow([&](QWidget& entry) {
    type(*entry.focusWidget(), "ab");
    onNextWindow([&](QWidget& window) {
      EXPECT_NE(&window, &entry);
      press(window);
      click(window, "&Aceptar");
    });
    click(entry, "&Teclado");
    QTest::keyClick(entry.focusWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(dialogs_->entry("Nombre"), "abñÁ1& ");
}

TEST_F(QtDialogs, ProgressStaysWhileTheWorkRuns) {
  std::vector<std::string> seen;
  const auto look = [&](const char* why) {
    QWidget* const window = QApplication::activeModalWidget();
    ASSERT_NE(window, nullptr) << why;
    EXPECT_TRUE(window->isVisible()) << why;
    EXPECT_EQ(window->windowTitle(), "Reparando");
    window->close();
    EXPECT_TRUE(window->isVisible()) << why;
    seen.push_back(window->findChild<QLabel*>("lblMensaje")->text().toStdString());
  };
  dialogs_->progress("Reparando: <b>clients</b>", [&](const Dialogs::Show& show) {
    look("at first");
    show("Reparando: clients\r\nstatus OK");
    look("afterwards");
  });
  EXPECT_EQ(seen, (std::vector<std::string>{"Reparando: <b>clients</b>", "Reparando: clients\nstatus OK"}));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_THROW(dialogs_->progress("x", [](const Dialogs::Show&) { throw std::out_of_range("work"); }),
               std::out_of_range);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(QtDialogs, LongTextsScroll) {
  const std::string text(1 << 20, 'x');
  onNextWindow([](QWidget& window) { EXPECT_LT(window.height(), 1000); });
  dialogs_->message(text);
  onNextWindow([](QWidget& window) {
    EXPECT_LT(window.height(), 1000);
    click(window, "&Si");
  });
  EXPECT_EQ(dialogs_->question(text, 1), 1);
}

TEST(QtProgram, CommandsAskInWindows) {
  cli::Output out(STDERR_FILENO, cli::Output::OnFailure::Throw);
  int asked = 0;
  const auto answer = [&](std::initializer_list<std::string_view> words, const QString& button) {
    onNextWindow([=](QWidget& window) { click(window, button); });
    return cli::runProgram("qvn", words, out, out, [&] { ++asked; });
  };
  EXPECT_EQ(answer({"pregunta", "--ventana", "¿Sigue?"}, "&No"), cli::ExitStatus::Failed);
  EXPECT_EQ(answer({"pregunta", "-v", "--todo", "¿Sigue?"}, "Si a &todo"), cli::ExitStatus::YesToAll);
  EXPECT_EQ(answer({"entrada", "-v", "Nombre"}, "&Aceptar"), cli::ExitStatus::NoAnswer);
  EXPECT_EQ(asked, 3);
}

}  // namespace
}  // namespace qvn::dialogs

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // No screen is needed; QT_QPA_PLATFORM=xcb tries one.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
