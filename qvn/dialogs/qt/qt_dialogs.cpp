#include "qvn/dialogs/qt/qt_dialogs.h"

#include <QApplication>
#include <QMessageBox>

#include "qvn/dialogs/captions.h"
#include "qvn/dialogs/qt/button_window.h"
#include "qvn/dialogs/qt/entry_window.h"
#include "qvn/dialogs/qt/keyboard_window.h"
#include "qvn/dialogs/qt/message_window.h"
#include "qvn/dialogs/qt/progress_window.h"
#include "qvn/dialogs/qt/window_parts.h"

namespace qvn::dialogs {
namespace {

// The platform's codes of icons in a style.
QMessageBox::Icon iconOf(std::int32_t style) {
  switch (style & 0x70) {
    case 16:
      return QMessageBox::Critical;
    case 32:
      return QMessageBox::Question;
    case 48:
      return QMessageBox::Warning;
    case 64:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

class QtDialogs final : public Dialogs {
 public:
  void show(std::string_view text, std::int32_t style, std::string_view title) override {
    QMessageBox box(iconOf(style), title.empty() ? QGuiApplication::applicationDisplayName() : qt::shownText(title),
                    qt::shownText(text), QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
  }
  void message(std::string_view text) override { qt::MessageWindow(text, qt::MessageWindow::Icon::Shown).exec(); }
  void alert(std::string_view text) override { qt::MessageWindow(text, qt::MessageWindow::Icon::None).exec(); }
  std::int16_t question(std::string_view text, std::int16_t focused) override {
    return ask(kQuestionCaption, text, kQuestionButtons, focused);
  }
  std::int16_t choice(std::string_view text, std::int16_t focused) override {
    return ask(kChoiceCaption, text, kChoiceButtons, focused);
  }
  std::optional<std::string> entry(std::string_view text) override { return read(text, qt::EntryWindow::Kind::Text); }
  std::optional<std::string> password(std::string_view text, const host::AmbientePtr& /*ambiente*/) override {
    return read(text, qt::EntryWindow::Kind::Password);
  }
  std::string keyboard(std::string_view text) override {
    qt::KeyboardWindow window(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())), QLineEdit::Normal);
    return window.exec() == QDialog::Accepted ? window.text().toStdString() : std::string(text);
  }
  void progress(std::string_view text, const Work& work) override { qt::ProgressWindow(text, work).run(); }

 private:
  static std::int16_t ask(std::string_view caption, std::string_view text, std::span<const std::string_view> buttons,
                          std::int16_t focused) {
    qt::ButtonWindow window(caption, text, buttons, static_cast<std::size_t>(focused));
    return static_cast<std::int16_t>(window.exec());
  }
  static std::optional<std::string> read(std::string_view title, qt::EntryWindow::Kind kind) {
    qt::EntryWindow window(title, kind);
    if (window.exec() != QDialog::Accepted) return std::nullopt;
    return window.text().toStdString();
  }
};

}  // namespace

DialogsPtr qtDialogs() {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return nullptr;
  return std::make_shared<QtDialogs>();
}

}  // namespace qvn::dialogs
