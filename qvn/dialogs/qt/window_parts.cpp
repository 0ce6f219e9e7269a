#include "qvn/dialogs/qt/window_parts.h"

#include <QScreen>
#include <QTextOption>
#include <cmath>

#include "qvn/base/readable_text.h"

namespace qvn::dialogs::qt {
namespace {

constexpr double kTwipsPerInch = 1440;

double dotsPerInch(const QWidget& widget) {
  const QScreen* const screen = widget.screen();
  return screen == nullptr ? widget.logicalDpiX() : screen->logicalDotsPerInch();
}

// Lines far longer than any window are cut: laying one out takes time that grows with the square of its length.
QString inLines(const QString& text) {
  constexpr qsizetype kLongest = 2000;
  QString lines;
  for (QStringView line : QStringView(text).split('\n')) {
    for (; line.size() > kLongest; line = line.sliced(kLongest)) lines.append(line.first(kLongest)).append('\n');
    lines.append(line).append('\n');
  }
  lines.chop(1);
  return lines;
}

}  // namespace

int pixels(const QWidget& widget, double twips) {
  return static_cast<int>(std::lround(twips * dotsPerInch(widget) / kTwipsPerInch));
}

double twips(const QWidget& widget, int pixels) { return pixels * kTwipsPerInch / dotsPerInch(widget); }

QString shownText(std::string_view text) {
  const std::string readable = readableText(text);
  return QString::fromUtf8(readable.data(), static_cast<qsizetype>(readable.size()));
}

void prepare(QDialog& window, std::string_view caption) {
  window.setWindowTitle(shownText(caption));
  window.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  window.setModal(true);
}

QPlainTextEdit* textView(std::string_view text, QWidget& parent) {
  auto* const view = new QPlainTextEdit(inLines(shownText(text)), &parent);
  view->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  view->setObjectName("txtMensaje");
  view->setReadOnly(true);
  view->setTabChangesFocus(true);
  return view;
}

QLabel* iconLabel(QStyle::StandardPixmap icon, QWidget& parent) {
  auto* const label = new QLabel(&parent);
  const int size = parent.style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
  label->setPixmap(parent.style()->standardIcon(icon).pixmap(size));
  label->setFixedSize(size, size);
  return label;
}

QPushButton* button(std::string_view caption, const char* name, QWidget& parent) {
  auto* const button = new QPushButton(shownText(caption), &parent);
  button->setObjectName(name);
  button->setAutoDefault(true);
  return button;
}

}  // namespace qvn::dialogs::qt
