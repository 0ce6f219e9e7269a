#include "qvn/dialogs/qt/progress_window.h"

#include <QCoreApplication>
#include <QTimer>
#include <QVBoxLayout>

#include "qvn/dialogs/captions.h"
#include "qvn/dialogs/qt/window_parts.h"

namespace qvn::dialogs::qt {
namespace {

constexpr double kWidth = 6000;
constexpr double kHeight = 1800;

}  // namespace

ProgressWindow::ProgressWindow(std::string_view text, const Dialogs::Work& work)
    : label_(new QLabel(shownText(text), this)), work_(work) {
  prepare(*this, kProgressCaption);
  label_->setObjectName("lblMensaje");
  label_->setTextFormat(Qt::PlainText);
  label_->setAlignment(Qt::AlignCenter);
  label_->setWordWrap(true);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(label_);
  resize(pixels(*this, kWidth), pixels(*this, kHeight));
}

void ProgressWindow::run() {
  // Behind what opens and paints the window.
  QTimer::singleShot(0, this, [this] { doWork(); });
  exec();
  if (failure_) std::rethrow_exception(failure_);
}

void ProgressWindow::doWork() {
  try {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    work_([this](std::string_view text) { show(text); });
  } catch (...) {
    // It must not pass through the event loop.
    failure_ = std::current_exception();
  }
  accept();
}

void ProgressWindow::show(std::string_view text) {
  label_->setText(shownText(text));
  label_->repaint();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace qvn::dialogs::qt
