// The surface that a symbol is drawn on: a picture control of the host, or a picture of this library's own.
// Its members bear the names that hosts know; a scale unit is a pixel once ScaleMode is 3.
#pragma once

#include <cstdint>
#include <string_view>

namespace qvn::barcode {

class Canvas {
 public:
  virtual ~Canvas() = default;
  /// Picture = nothing: what was drawn is gone.
  virtual void clearPicture() = 0;
  /// Picture = image: what has been drawn so far persists.
  virtual void keepImage() = 0;
  virtual void BackColor(std::int32_t color) = 0;
  virtual void AutoRedraw(bool redraws) = 0;
  virtual void ScaleMode(std::int16_t mode) = 0;
  virtual void Height(double twips) = 0;
  virtual void Width(double twips) = 0;
  /// The text cursor, in scale units.
  virtual void CurrentX(double x) = 0;
  virtual void CurrentY(double y) = 0;
  virtual double TextHeight(std::string_view text) = 0;
  virtual double TextWidth(std::string_view text) = 0;
  /// A line one pixel wide in column `x` from `top` to `bottom`; of no length when the two are equal.
  virtual void Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) = 0;
  /// Writes `text` at the text cursor in the canvas's font.
  virtual void Print(std::string_view text) = 0;
  /// Of the screen.
  virtual double twipsPerPixelX() const = 0;
  virtual double twipsPerPixelY() const = 0;
};

}  // namespace qvn::barcode
