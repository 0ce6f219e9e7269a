#include "qvn/barcode/qt/qt_canvas.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace qvn::barcode {
namespace {

constexpr double kTwipsPerInch = 1440;
constexpr int kLongestSide = 32767;  // of a painter's surface

QColor colorOf(std::int32_t color) { return {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF}; }
QString textOf(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

int pixels(double count) { return static_cast<int>(std::clamp<double>(std::round(count), 0, kLongestSide)); }

}  // namespace

void QtCanvas::clearPicture() {
  drawn_ = {};
  width_ = 0;
  height_ = 0;
  control_.clear();
}

void QtCanvas::keepImage() {
  control_.setPixmap(QPixmap::fromImage(drawn_));
  control_.resize(width_, height_);
}

void QtCanvas::BackColor(std::int32_t color) {
  background_ = colorOf(color);
  drawn_.fill(background_);
}

void QtCanvas::Height(double twips) { resize(width_, pixels(twips / twipsPerPixelY())); }
void QtCanvas::Width(double twips) { resize(pixels(twips / twipsPerPixelX()), height_); }

void QtCanvas::resize(int width, int height) {
  width_ = width;
  height_ = height;
  // Bars must begin and end between two pixels of the screen.
  const int ratio = std::max(1, static_cast<int>(std::lround(control_.devicePixelRatioF())));
  QImage resized(width * ratio, height * ratio, QImage::Format_RGB32);
  if (!resized.isNull()) {
    resized.setDevicePixelRatio(ratio);
    resized.fill(background_);
    if (!drawn_.isNull()) QPainter(&resized).drawImage(0, 0, drawn_);
  }
  drawn_ = resized;
}

double QtCanvas::TextHeight(std::string_view /*text*/) { return QFontMetricsF(control_.font()).height(); }
double QtCanvas::TextWidth(std::string_view text) {
  return QFontMetricsF(control_.font()).horizontalAdvance(textOf(text));
}

void QtCanvas::Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) {
  if (drawn_.isNull()) return;
  QPainter(&drawn_).fillRect(x, std::min(top, bottom), 1, std::abs(bottom - top), colorOf(color));
}

void QtCanvas::Print(std::string_view text) {
  if (drawn_.isNull()) return;
  QPainter painter(&drawn_);
  painter.setFont(control_.font());
  painter.setPen(Qt::black);
  painter.drawText(QPointF(x_, y_ + QFontMetricsF(control_.font()).ascent()), textOf(text));
}

double QtCanvas::twipsPerPixelX() const { return kTwipsPerInch / control_.logicalDpiX(); }
double QtCanvas::twipsPerPixelY() const { return kTwipsPerInch / control_.logicalDpiY(); }

void show(const Picture& picture, QLabel& control) {
  const GrayImage image = picture.image();
  if (image.pixels.empty()) {
    control.clear();
    return;
  }
  const QImage pixels(image.pixels.data(), image.width, image.height, image.width, QImage::Format_Grayscale8);
  control.setPixmap(QPixmap::fromImage(pixels));
}

}  // namespace qvn::barcode
