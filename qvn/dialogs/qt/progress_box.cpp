#include "qvn/dialogs/qt/progress_box.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "qvn/dialogs/captions.h"
#include "qvn/dialogs/progress_text.h"
#include "qvn/dialogs/qt/window_parts.h"

namespace qvn::dialogs::qt {
namespace {

constexpr double kWidth = 6300;
constexpr int kWhole = 1000;

// Bars count in 32 bits.
int thousandths(const ProgressState& state) {
  const double share = static_cast<double>(state.done) / static_cast<double>(state.total);
  return static_cast<int>(std::clamp(share, 0.0, 1.0) * kWhole);
}

}  // namespace

ProgressBox::ProgressBox()
    : text_(new QLabel(this)),
      bar_(new QProgressBar(this)),
      left_(new QLabel(this)),
      cancel_(button(kCancel, "cmdCancelar", *this)) {
  prepare(*this, kWorkCaption);
  text_->setObjectName("lblMensaje");
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  left_->setObjectName("lblFaltan");
  left_->setTextFormat(Qt::PlainText);
  bar_->setAlignment(Qt::AlignCenter);
  connect(cancel_, &QPushButton::clicked, this, &ProgressBox::reject);
  auto* const lowest = new QHBoxLayout;
  lowest->addWidget(left_, 1);
  lowest->addWidget(cancel_);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(text_, 1);
  layout->addWidget(bar_);
  layout->addLayout(lowest);
  setMinimumWidth(pixels(*this, kWidth));
}

void ProgressBox::display(const ProgressState& state) {
  if (!state.title.empty()) setWindowTitle(shownText(state.title));
  text_->setText(shownText(state.text));
  bar_->setRange(0, state.total > 0 ? kWhole : 0);
  if (state.total > 0) bar_->setValue(thousandths(state));
  bar_->setFormat(QString::number(percentOf(state.done, state.total)) + " %");
  left_->setText(shownText(isCancelled_ ? kCancelling : timeLeft(state.elapsed, state.done, state.total)));
  cancel_->setVisible(state.canCancel);
}

void ProgressBox::reject() {
  if (cancel_->isHidden()) return;
  isCancelled_ = true;
  cancel_->setEnabled(false);
  left_->setText(shownText(kCancelling));
}

}  // namespace qvn::dialogs::qt
