#include "qvn/dialogs/qt/button_window.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "qvn/dialogs/qt/window_parts.h"

namespace qvn::dialogs::qt {

ButtonWindow::ButtonWindow(std::string_view caption, std::string_view text, std::span<const std::string_view> buttons,
                           std::size_t focused) {
  prepare(*this, caption);
  auto* const rows = new QGridLayout(this);
  QPlainTextEdit* const view = textView(text, *this);
  view->setFrameShape(QFrame::NoFrame);
  view->viewport()->setAutoFillBackground(false);
  rows->addWidget(iconLabel(QStyle::SP_MessageBoxQuestion, *this), 0, 0, Qt::AlignTop);
  rows->addWidget(view, 0, 1);
  auto* const row = new QHBoxLayout();
  row->addStretch();
  rows->addLayout(row, 1, 0, 1, 2);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    QPushButton* const pressed = button(buttons[i], "cmdBoton", *this);
    pressed->setProperty("Index", static_cast<int>(i));
    connect(pressed, &QPushButton::clicked, this, [this, i] { done(static_cast<int>(i + 1)); });
    row->addWidget(pressed);
    if (i + 1 == focused) {
      pressed->setDefault(true);
      pressed->setFocus();
    }
  }
  resize(minimumSizeHint().expandedTo({pixels(*this, 6000), pixels(*this, 2400)}));
}

}  // namespace qvn::dialogs::qt
