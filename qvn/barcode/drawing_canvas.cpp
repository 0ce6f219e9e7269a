#include "qvn/barcode/drawing_canvas.h"

#include <algorithm>
#include <cmath>

#include "qvn/base/utf8.h"

namespace qvn::barcode {

void DrawingCanvas::clearPicture() {
  image_ = {};
  kept_ = {};
  drawnEnd_ = 0;
}

void DrawingCanvas::Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) {
  if (top == bottom || (color == image_.background && x >= drawnEnd_)) {
    return;
  }
  drawnEnd_ = std::max(drawnEnd_, x + 1);
  if (!image_.bars.empty()) {
    Drawing::Bar& last = image_.bars.back();
    if (x == last.x + last.width && top == last.top && bottom == last.bottom && color == last.color) {
      ++last.width;
      return;
    }
  }
  image_.bars.push_back({x, 1, top, bottom, color});
}

void DrawingCanvas::Print(std::string_view text) {
  image_.texts.push_back({x_, y_, font_.width(text), utf8::sanitize(text)});
}

std::int32_t DrawingCanvas::pixels(double twips) const {
  return static_cast<std::int32_t>(std::max(0.0, std::round(twips / twipsPerPixel_)));
}

}  // namespace qvn::barcode
