// Drawings as vectors: SVG and PDF, which print sharply at any size.
#pragma once

#include <string>

#include "qvn/barcode/cairo/cairo_font.h"
#include "qvn/barcode/drawing.h"
#include "qvn/barcode/picture.h"

namespace qvn::barcode {

/// A pixel is 1/96 inch.
inline constexpr double kPointsPerPixel = 0.75;

/// Paints background, bars and texts at the context's origin, a pixel being one unit; what lies beyond is cropped.
void paintDrawing(cairo_t* context, const Drawing& drawing, const CairoFont& font);

/// @param format  Svg or Pdf
/// @throws RuntimeError  5 for an empty drawing, 480 when Cairo fails
std::string vectorBytes(const Drawing& drawing, const CairoFont& font, PictureFormat format);

}  // namespace qvn::barcode
