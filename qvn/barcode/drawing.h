// A symbol as it was drawn, before it becomes a picture: bars and texts in pixels from the upper left corner.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qvn::barcode {

/// A filled rectangle; `bottom` lies outside it.
struct Bar {
  std::int32_t x;
  std::int32_t width;
  std::int32_t top;
  std::int32_t bottom;
  std::uint8_t gray;  ///< 0 black to 255 white
};

/// A text in black; `x` and `y` are the upper left corner of its cell.
struct Label {
  double x;
  double y;
  double width;
  std::string text;
};

/// What lies outside width and height is not shown.
struct Drawing {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::uint8_t background = 255;
  std::vector<Bar> bars;  ///< a later one covers an earlier one
  std::vector<Label> labels;

  [[nodiscard]] bool isEmpty() const noexcept { return width <= 0 || height <= 0; }
};

}  // namespace qvn::barcode
