// Drawings as files of bars and letters, which printers and screens of any resolution draw sharp.
#pragma once

#include <string>

#include "qvn/barcode/cairo/caption_font.h"
#include "qvn/barcode/drawing.h"

namespace qvn::barcode {

/// Points of 1/72 inch that a pixel takes, at 96 pixels an inch.
inline constexpr double kPointsPerPixel = 0.75;

/// Draws with the context's units as pixels; nothing outside the drawing is touched.
void paint(const Drawing& drawing, const CaptionFont& font, cairo_t* context);

/// The bytes of a file with this drawing alone. Throws RuntimeError 57 when Cairo fails.
[[nodiscard]] std::string svgFile(const Drawing& drawing, const CaptionFont& font);
[[nodiscard]] std::string pdfFile(const Drawing& drawing, const CaptionFont& font);

/// Cairo's way to write into a std::string, given as the closure.
cairo_status_t appendBytes(void* file, const unsigned char* bytes, unsigned int count) noexcept;

}  // namespace qvn::barcode
