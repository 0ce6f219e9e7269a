// An image as the bytes of a PNG file.
#pragma once

#include <string>

#include "qvn/barcode/picture.h"

namespace qvn::barcode {

/// In shades of gray, with 96 pixels an inch. The image is not empty. Throws RuntimeError 57 when libpng fails.
[[nodiscard]] std::string pngFile(const GrayImage& image);

}  // namespace qvn::barcode
