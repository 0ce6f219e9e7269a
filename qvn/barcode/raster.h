// The pixels of a drawing as shades of grey.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "qvn/barcode/drawing.h"

namespace qvn::barcode {

/// Rows from the top, pixels from the left, without padding; 0 is black and 255 white.
struct Raster {
  std::size_t width = 0;
  std::size_t height = 0;
  std::vector<std::uint8_t> pixels;

  [[nodiscard]] std::span<const std::uint8_t> row(std::size_t y) const { return {&pixels[y * width], width}; }
  [[nodiscard]] std::span<std::uint8_t> row(std::size_t y) { return {&pixels[y * width], width}; }
};

/// The bars alone; fonts are an adapter's. Throws RuntimeError 480 for more than 268,435,456 pixels.
Raster rasterOfBars(const Drawing& drawing);

}  // namespace qvn::barcode
