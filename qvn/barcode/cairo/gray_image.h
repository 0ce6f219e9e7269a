// A drawing in pixels.
#pragma once

#include "qvn/barcode/cairo/caption_font.h"
#include "qvn/barcode/drawing.h"
#include "qvn/barcode/picture.h"

namespace qvn::barcode {

/// @throws RuntimeError  5 for a drawing of more than 32,767 pixels a side or 100 million in all
[[nodiscard]] GrayImage grayImage(const Drawing& drawing, const CaptionFont& font);

}  // namespace qvn::barcode
