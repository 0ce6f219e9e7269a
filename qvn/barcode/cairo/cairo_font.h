// The font of captions, measured and painted by Cairo.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "qvn/barcode/cairo/caption_font.h"
#include "qvn/barcode/drawing_canvas.h"
#include "qvn/barcode/raster.h"
#include "qvn/cairo/handles.h"

namespace qvn::barcode {

class CairoFont final : public FontMeasure {
 public:
  /// A family that is not installed is replaced by another as the system's settings say.
  /// @throws RuntimeError  5 for a size outside 1 to 1000 pixels; 480 when Cairo refuses the font
  explicit CairoFont(const CaptionFont& font);

  [[nodiscard]] double height() const override { return extents_.height; }
  [[nodiscard]] double width(std::string_view text) const override;

  /// Shows the text in the context's colour, its upper left corner at (x, y).
  void show(cairo_t* context, const Drawing::Text& text) const;
  /// Darkens the pixels that the text covers.
  void paint(Raster& raster, const Drawing::Text& text) const;

 private:
  /// One character's coverage, and where it stands from the upper left corner of its place in a text.
  struct Glyph {
    double advance = 0;
    int left = 0;
    int top = 0;
    Raster coverage = {};
  };
  static constexpr char kFirstKept = ' ';
  static constexpr std::size_t kKept = 95;  // printable ASCII, which is all that the symbologies print

  [[nodiscard]] Glyph drawnGlyph(const std::string& character) const;
  static void blend(const Glyph& glyph, double x, double y, Raster& raster);
  /// Calls `visit` with the glyph of each character.
  template <typename Visit>
  void visitGlyphs(std::string_view text, Visit visit) const;

  cairo::ScaledFont font_;
  cairo_font_extents_t extents_{};
  std::array<Glyph, kKept> kept_;
};

}  // namespace qvn::barcode
