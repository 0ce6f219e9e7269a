// A canvas that notes what is drawn on it, for the adapters that turn it into pictures and paint.
#pragma once

#include "qvn/barcode/canvas.h"
#include "qvn/barcode/drawing.h"

namespace qvn::barcode {

/// Measures the canvas's font, in pixels.
class FontMeasure {
 public:
  virtual ~FontMeasure() = default;
  [[nodiscard]] virtual double height() const = 0;
  [[nodiscard]] virtual double width(std::string_view text) const = 0;
};

/// Scale units are pixels whatever ScaleMode says; what is printed beyond the canvas is kept, for widened pictures.
class DrawingCanvas : public Canvas {
 public:
  /// `font` must outlive the canvas. `twipsPerPixel` is 15 on a screen of 96 dots an inch.
  explicit DrawingCanvas(const FontMeasure& font, double twipsPerPixel = 15)
      : font_(font), twipsPerPixel_(twipsPerPixel) {}

  /// The persistent picture: empty until keepImage().
  [[nodiscard]] const Drawing& kept() const noexcept { return kept_; }

  void clearPicture() override;
  void keepImage() override { kept_ = image_; }
  void BackColor(std::int32_t color) override { image_.background = color; }
  void AutoRedraw(bool /*redraws*/) override {}  // everything is noted, and so always redrawn
  void ScaleMode(std::int16_t /*mode*/) override {}
  void Height(double twips) override { image_.height = pixels(twips); }
  void Width(double twips) override { image_.width = pixels(twips); }
  void CurrentX(double x) override { x_ = x; }
  void CurrentY(double y) override { y_ = y; }
  double TextHeight(std::string_view /*text*/) override { return font_.height(); }
  double TextWidth(std::string_view text) override { return font_.width(text); }
  void Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) override;
  void Print(std::string_view text) override;
  [[nodiscard]] double twipsPerPixelX() const override { return twipsPerPixel_; }
  [[nodiscard]] double twipsPerPixelY() const override { return twipsPerPixel_; }

 private:
  [[nodiscard]] std::int32_t pixels(double twips) const;

  const FontMeasure& font_;
  double twipsPerPixel_;
  Drawing image_;
  Drawing kept_;
  double x_ = 0;
  double y_ = 0;
  std::int32_t drawnEnd_ = 0;  // first column right of every bar
};

}  // namespace qvn::barcode
