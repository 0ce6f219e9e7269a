// Canvases whose pictures become PNG, SVG and PDF without a display.
//
//   const auto canvas = newCairoCanvas({.family = "Liberation Sans", .sizePixels = 12});
//   odenBarcode(messages).EAN13(*canvas, 5, "400638133393", true);
//   canvas->picture({})->save("etiqueta.svg");
#pragma once

#include <memory>

#include "qvn/barcode/cairo/caption_font.h"
#include "qvn/barcode/picture_canvas.h"

namespace qvn::barcode {

std::unique_ptr<PictureCanvas> newCairoCanvas(const CaptionFont& font);

/// The font of the canvases behind Barcode128, Barcode3de9, BarcodeEAN13 and BarcodeEAN8 from now on.
/// Throws what CairoFont throws; the font then stays as it was.
void setCaptionFont(const CaptionFont& font);

/// A canvas in that font, which is DejaVu Sans of 10 pixels at first.
std::unique_ptr<PictureCanvas> newDefaultCairoCanvas();

}  // namespace qvn::barcode
