#include "qvn/dialogs/qt/message_window.h"

#include "qvn/dialogs/captions.h"
#include "qvn/dialogs/qt/window_parts.h"

namespace qvn::dialogs::qt {
namespace {

constexpr double kHeight = 3900;
constexpr double kGoldenRatio = 1.61803399;
constexpr double kMargin = 50;
constexpr double kTextWidthLess = 100;
constexpr double kTextHeightLess = 700;

}  // namespace

MessageWindow::MessageWindow(std::string_view text, Icon icon)
    : text_(textView(text, *this)),
      accept_(button(kAccept, "cmdAceptar", *this)),
      second_(button(kSecondMessageButton, "Command2", *this)) {
  prepare(*this, kMessageCaption);
  if (icon == Icon::Shown) icon_ = iconLabel(QStyle::SP_MessageBoxInformation, *this);
  for (QPushButton* const closing : {accept_, second_}) {
    closing->adjustSize();
    connect(closing, &QPushButton::clicked, this, &QDialog::accept);
  }
  accept_->setDefault(true);
  accept_->setFocus();
  setMinimumSize(accept_->width() + second_->width() + pixels(*this, 900), pixels(*this, 1500) + accept_->height());
  resize(pixels(*this, kHeight * kGoldenRatio), pixels(*this, kHeight));
}

void MessageWindow::resizeEvent(QResizeEvent* /*event*/) {
  const int margin = pixels(*this, kMargin);
  text_->setGeometry(margin, margin, width() - pixels(*this, kTextWidthLess),
                     height() - accept_->height() - pixels(*this, kTextHeightLess));
  // The rest belongs to the icon and the buttons.
  const int top = text_->geometry().bottom() + 1;
  const int middle = top + (height() - top) / 2;
  const int gap = pixels(*this, 150);
  second_->move(width() - gap - second_->width(), middle - second_->height() / 2);
  accept_->move(second_->x() - gap - accept_->width(), middle - accept_->height() / 2);
  if (icon_ != nullptr) icon_->move(gap, middle - icon_->height() / 2);
}

}  // namespace qvn::dialogs::qt
