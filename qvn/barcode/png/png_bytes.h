// A raster as the bytes of a PNG file.
#pragma once

#include <string>

#include "qvn/barcode/raster.h"

namespace qvn::barcode {

/// Shades of grey: one bit a pixel when all are black or white, else eight. The resolution is 96 dots an inch.
/// @throws RuntimeError  5 for an empty raster, 480 when libpng refuses it, with its words
std::string pngBytes(const Raster& raster);

}  // namespace qvn::barcode
