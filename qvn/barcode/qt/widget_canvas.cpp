#include "qvn/barcode/qt/widget_canvas.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace qvn::barcode {
namespace {

constexpr double kTwipsPerInch = 1440;

QString qtText(std::string_view text) { return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())); }

QColor qtColor(std::int32_t color) { return {color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF}; }

int wholePixels(double twips, double twipsPerPixel) {
  return static_cast<int>(std::clamp(std::round(twips / twipsPerPixel), 0.0, double{QWIDGETSIZE_MAX}));
}

}  // namespace

void paintDrawing(QPainter& painter, const Drawing& drawing) {
  painter.save();
  painter.setClipRect(0, 0, drawing.width, drawing.height, Qt::IntersectClip);
  painter.fillRect(0, 0, drawing.width, drawing.height, qtColor(drawing.background));
  for (const Drawing::Bar& bar : drawing.bars) {
    painter.fillRect(bar.x, std::min(bar.top, bar.bottom), bar.width, std::abs(bar.bottom - bar.top),
                     qtColor(bar.color));
  }
  painter.setPen(Qt::black);
  const double ascent = QFontMetricsF(painter.font()).ascent();
  for (const Drawing::Text& text : drawing.texts) {
    painter.drawText(QPointF(text.x, text.y + ascent), qtText(text.text));
  }
  painter.restore();
}

double WidgetFontMeasure::height() const { return QFontMetricsF(widget_.font()).height(); }

double WidgetFontMeasure::width(std::string_view text) const {
  return QFontMetricsF(widget_.font()).horizontalAdvance(qtText(text));
}

WidgetCanvas::WidgetCanvas(QWidget& widget)
    : QObject(&widget),
      WidgetFontMeasure(widget),
      DrawingCanvas(static_cast<const FontMeasure&>(*this), kTwipsPerInch / widget.logicalDpiX()),
      widget_(widget) {
  widget.installEventFilter(this);
}

void WidgetCanvas::clearPicture() {
  DrawingCanvas::clearPicture();
  widget_.update();
}

void WidgetCanvas::keepImage() {
  DrawingCanvas::keepImage();
  widget_.update();
}

void WidgetCanvas::Height(double twips) {
  DrawingCanvas::Height(twips);
  widget_.resize(widget_.width(), wholePixels(twips, twipsPerPixelY()));
}

void WidgetCanvas::Width(double twips) {
  DrawingCanvas::Width(twips);
  widget_.resize(wholePixels(twips, twipsPerPixelX()), widget_.height());
}

bool WidgetCanvas::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::Paint || watched != &widget_ || kept().isEmpty()) {
    return QObject::eventFilter(watched, event);
  }
  QPainter painter(&widget_);
  paintDrawing(painter, kept());
  return true;
}

}  // namespace qvn::barcode
