// What was drawn on a canvas, before it becomes pixels, vectors or paint: bars and texts in pixels.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qvn::barcode {

struct Drawing {
  /// Rows from the smaller of `top` and `bottom` up to but not including the larger. Modules side by side that look the
  /// same are one bar.
  struct Bar {
    std::int32_t x, width, top, bottom;
    std::int32_t color;  ///< 0xBBGGRR
  };
  struct Text {
    double x, y;  ///< of its upper left corner
    double width;
    std::string text;  ///< UTF-8
  };

  std::int32_t width = 0;  ///< bars and texts beyond the size are cropped
  std::int32_t height = 0;
  std::int32_t background = 0xFFFFFF;
  std::vector<Bar> bars;
  std::vector<Text> texts;

  /// Nothing was drawn, or there is no place to draw on.
  [[nodiscard]] bool isEmpty() const noexcept { return width <= 0 || height <= 0; }
};

/// Departures from what hosts have always printed, for printers and scanners that want more. The defaults change
/// nothing.
struct PictureFit {
  std::int32_t moduleWidth = 1;  ///< pixels of a module, at least 1; texts stay centred where they were
  bool isWidened = false;        ///< widens the picture until nothing is cropped and the right quiet zone is whole
};

/// Throws RuntimeError 5 for a module width outside 1 to 100.
Drawing fitted(Drawing drawing, const PictureFit& fit);

}  // namespace qvn::barcode
