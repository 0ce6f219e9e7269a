// The font of captions.
#pragma once

#include <string>

#include "qvn/barcode/cairo/handles.h"
#include "qvn/barcode/drawing_canvas.h"

namespace qvn::barcode {

/// Characters that the font lacks are drawn with another font or as a box; bytes that are not UTF-8 as U+FFFD.
class CaptionFont final : public TextMeasure {
 public:
  /// `family` as fontconfig knows it; one that is not installed is replaced by the nearest. `size` in pixels.
  ///
  /// @throws RuntimeError  5 for a size outside 1 to 200; 57 when the machine has no font at all
  CaptionFont(const std::string& family, double size);

  [[nodiscard]] double width(std::string_view text) const override;
  [[nodiscard]] double height() const override { return extents_.ascent + extents_.descent; }

  /// Draws in the context's colour; `x` and `y` are the upper left corner of the text's cell.
  void draw(cairo_t* context, double x, double y, std::string_view text) const;

 private:
  ScaledFont font_;
  cairo_font_extents_t extents_{};
};

}  // namespace qvn::barcode
