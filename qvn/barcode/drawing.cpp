#include "qvn/barcode/drawing.h"

#include <algorithm>
#include <cmath>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

constexpr std::int32_t kWidestModule = 100;
constexpr std::int32_t kQuietModules = 10;

void widen(Drawing& drawing) {
  for (const Drawing::Bar& bar : drawing.bars) {
    drawing.width = std::max(drawing.width, bar.x + bar.width + kQuietModules);
  }
}

void magnify(Drawing& drawing, std::int32_t moduleWidth) {
  drawing.width *= moduleWidth;
  for (Drawing::Bar& bar : drawing.bars) {
    bar.x *= moduleWidth;
    bar.width *= moduleWidth;
  }
  for (Drawing::Text& text : drawing.texts) {
    text.x = std::round((text.x + text.width / 2) * moduleWidth - text.width / 2);
  }
}

// A caption may be wider than its bars.
void widenForTexts(Drawing& drawing) {
  double leftmost = 0;
  double rightmost = drawing.width;
  for (const Drawing::Text& text : drawing.texts) {
    leftmost = std::min(leftmost, text.x);
    rightmost = std::max(rightmost, text.x + text.width);
  }
  const auto shift = static_cast<std::int32_t>(std::ceil(-leftmost));
  drawing.width = static_cast<std::int32_t>(std::ceil(rightmost)) + shift;
  for (Drawing::Bar& bar : drawing.bars) {
    bar.x += shift;
  }
  for (Drawing::Text& text : drawing.texts) {
    text.x += shift;
  }
}

}  // namespace

Drawing fitted(Drawing drawing, const PictureFit& fit) {
  if (fit.moduleWidth < 1 || fit.moduleWidth > kWidestModule) {
    throw RuntimeError(error_number::kInvalidCall, "El ancho del módulo va de 1 a 100 pixeles");
  }
  if (fit.isWidened) {
    widen(drawing);
  }
  if (fit.moduleWidth > 1) {
    magnify(drawing, fit.moduleWidth);
  }
  if (fit.isWidened) {
    widenForTexts(drawing);
  }
  return drawing;
}

}  // namespace qvn::barcode
