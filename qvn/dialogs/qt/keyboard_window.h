// The on-screen keyboard.
#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

namespace qvn::dialogs::qt {

/// A line over the keys of a Spanish keyboard, with a layer of symbols. The keys of a real keyboard type into the line
/// as well. exec() is Accepted when the text was accepted.
class KeyboardWindow final : public QDialog {
 public:
  KeyboardWindow(const QString& text, QLineEdit::EchoMode echo);
  [[nodiscard]] QString text() const { return line_->text(); }
  void setVisible(bool visible) override;

 private:
  QPushButton* key(const QString& caption, const char* name);
  void label();

  QLineEdit* line_;
  QPushButton* shift_;
  QPushButton* symbols_;
  std::vector<QPushButton*> keys_;  // in the order of the layouts
};

}  // namespace qvn::dialogs::qt
