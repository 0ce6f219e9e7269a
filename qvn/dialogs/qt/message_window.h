// The window of messages and alerts.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <string_view>

namespace qvn::dialogs::qt {

/// A text and two buttons that close it. The window opens as wide as its height times the golden ratio; the text takes
/// the window's width less 100 twips, and its height less that of the accept button and 700 twips.
class MessageWindow final : public QDialog {
 public:
  enum class Icon { Shown, None };
  MessageWindow(std::string_view text, Icon icon);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QPlainTextEdit* text_;
  QPushButton* accept_;
  QPushButton* second_;
  QLabel* icon_ = nullptr;
};

}  // namespace qvn::dialogs::qt
