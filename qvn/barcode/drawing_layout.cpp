#include "qvn/barcode/drawing_layout.h"

#include <algorithm>
#include <cmath>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {

Drawing widened(Drawing drawing) {
  constexpr std::int32_t kQuietZone = 10;
  if (drawing.isEmpty()) return drawing;
  double left = 0;
  double right = drawing.width;
  for (const Bar& bar : drawing.bars) {
    // The light modules that end a symbol are part of its quiet zone.
    if (bar.gray < 255) right = std::max<double>(right, bar.x + bar.width + kQuietZone);
  }
  for (const Label& label : drawing.labels) {
    left = std::min(left, label.x);
    right = std::max(right, label.x + label.width);
  }
  const auto shift = static_cast<std::int32_t>(std::ceil(-left));
  for (Bar& bar : drawing.bars) bar.x += shift;
  for (Label& label : drawing.labels) label.x += shift;
  drawing.width = static_cast<std::int32_t>(std::ceil(right)) + shift;
  return drawing;
}

Drawing stretched(Drawing drawing, std::int32_t moduleWidth) {
  constexpr std::int32_t kWidest = 100;
  if (moduleWidth < 1 || moduleWidth > kWidest) {
    throw RuntimeError(error_number::kInvalidCall, "El ancho de un módulo va de 1 a 100 puntos");
  }
  drawing.width *= moduleWidth;
  for (Bar& bar : drawing.bars) {
    bar.x *= moduleWidth;
    bar.width *= moduleWidth;
  }
  for (Label& label : drawing.labels) label.x = (label.x + label.width / 2) * moduleWidth - label.width / 2;
  return drawing;
}

}  // namespace qvn::barcode
