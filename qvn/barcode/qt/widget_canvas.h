// Barcodes painted into a host's widget, or anywhere a QPainter paints.
//
//   auto* canvas = new WidgetCanvas(*label);   // belongs to the widget
//   odenBarcode(messages).Code128(*canvas, 5, "AB1234", true);
#pragma once

#include <QObject>
#include <QWidget>

#include "qvn/barcode/drawing_canvas.h"

class QPainter;

namespace qvn::barcode {

/// Paints background, bars and texts from the painter's origin in its own font, cropped to the drawing's size.
void paintDrawing(QPainter& painter, const Drawing& drawing);

/// Measures a widget's font.
class WidgetFontMeasure : public FontMeasure {
 public:
  explicit WidgetFontMeasure(const QWidget& widget) : widget_(widget) {}
  [[nodiscard]] double height() const override;
  [[nodiscard]] double width(std::string_view text) const override;

 private:
  const QWidget& widget_;
};

/// Makes a widget a canvas: it takes the size that is drawn and paints the picture over its own background whenever it
/// is shown. Belongs to the widget and goes with it. A scale unit is a pixel of the widget's own coordinates; captions
/// are in the widget's font.
class WidgetCanvas final : public QObject, private WidgetFontMeasure, public DrawingCanvas {
 public:
  explicit WidgetCanvas(QWidget& widget);

  void clearPicture() override;
  void keepImage() override;
  void Height(double twips) override;
  void Width(double twips) override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget& widget_;
};

}  // namespace qvn::barcode
