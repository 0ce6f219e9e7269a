// A canvas that keeps what is drawn on it: the picture control of methods that give a picture back.
#pragma once

#include <utility>

#include "qvn/barcode/canvas.h"
#include "qvn/barcode/drawing.h"

namespace qvn::barcode {

/// Sizes of texts in the font that the pictures will have, in pixels.
class TextMeasure {
 public:
  virtual ~TextMeasure() = default;
  [[nodiscard]] virtual double width(std::string_view text) const = 0;
  [[nodiscard]] virtual double height() const = 0;
};

/// Of a screen of 96 pixels an inch, as hosts' labels were laid out for: 15 twips a pixel.
class DrawingCanvas final : public Canvas {
 public:
  /// `measure` must outlive the canvas.
  explicit DrawingCanvas(const TextMeasure& measure) : measure_(measure) {}

  /// Takes what had been drawn when the image was kept; empty when it never was.
  [[nodiscard]] Drawing takePicture() { return std::move(picture_); }

  void clearPicture() override;
  void keepImage() override { picture_ = drawn_; }
  void BackColor(std::int32_t color) override;
  void AutoRedraw(bool /*redraws*/) override {}
  void ScaleMode(std::int16_t /*mode*/) override {}
  void Height(double twips) override;
  void Width(double twips) override;
  void CurrentX(double x) override { x_ = x; }
  void CurrentY(double y) override { y_ = y; }
  double TextHeight(std::string_view /*text*/) override { return measure_.height(); }
  double TextWidth(std::string_view text) override { return measure_.width(text); }
  void Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) override;
  void Print(std::string_view text) override;
  [[nodiscard]] double twipsPerPixelX() const override { return kTwipsPerPixel; }
  [[nodiscard]] double twipsPerPixelY() const override { return kTwipsPerPixel; }

 private:
  static constexpr double kTwipsPerPixel = 15;

  const TextMeasure& measure_;
  Drawing drawn_;
  Drawing picture_;
  double x_ = 0;
  double y_ = 0;
};

}  // namespace qvn::barcode
