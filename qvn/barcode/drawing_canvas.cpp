#include "qvn/barcode/drawing_canvas.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace qvn::barcode {
namespace {

std::int32_t pixels(double count) {
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(std::round(count), 0.0, kMost));
}

// Hosts' colours are blue, green and red from the highest byte down; weights of ITU-R BT.601.
std::uint8_t grayOf(std::int32_t color) {
  const int red = color & 0xFF;
  const int green = color >> 8 & 0xFF;
  const int blue = color >> 16 & 0xFF;
  return static_cast<std::uint8_t>((red * 299 + green * 587 + blue * 114 + 500) / 1000);
}

}  // namespace

void DrawingCanvas::clearPicture() {
  drawn_ = {};
  picture_ = {};
}

void DrawingCanvas::BackColor(std::int32_t color) { drawn_.background = grayOf(color); }
void DrawingCanvas::Height(double twips) { drawn_.height = pixels(twips / kTwipsPerPixel); }
void DrawingCanvas::Width(double twips) { drawn_.width = pixels(twips / kTwipsPerPixel); }

void DrawingCanvas::Line(std::int32_t x, std::int32_t top, std::int32_t bottom, std::int32_t color) {
  if (top == bottom) return;
  drawn_.bars.push_back({x, 1, std::min(top, bottom), std::max(top, bottom), grayOf(color)});
}

void DrawingCanvas::Print(std::string_view text) {
  drawn_.labels.push_back({x_, y_, measure_.width(text), std::string(text)});
}

}  // namespace qvn::barcode
