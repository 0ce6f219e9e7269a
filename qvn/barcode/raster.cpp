#include "qvn/barcode/raster.h"

#include <algorithm>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

constexpr std::size_t kMostPixels = std::size_t{1} << 28;
constexpr std::int32_t kImageCannotBeMade = 480;

struct Rows {
  std::int32_t first, end;
};

Rows rowsOf(const Drawing::Bar& bar) { return {std::min(bar.top, bar.bottom), std::max(bar.top, bar.bottom)}; }

// Luminance by the weights of ITU-R BT.601, in thousandths.
std::uint8_t grey(std::int32_t color) {
  const std::int32_t red = color & 0xFF;
  const std::int32_t green = (color >> 8) & 0xFF;
  const std::int32_t blue = (color >> 16) & 0xFF;
  return static_cast<std::uint8_t>((red * 299 + green * 587 + blue * 114) / 1000);
}

// Rows at which a bar begins or ends: between two of them all rows are alike.
std::vector<std::int32_t> bandEdges(const Drawing& drawing) {
  std::vector<std::int32_t> edges{0, drawing.height};
  Rows last{0, 0};
  for (const Drawing::Bar& bar : drawing.bars) {
    const Rows rows = rowsOf(bar);
    if (rows.first != last.first || rows.end != last.end) {
      edges.push_back(std::clamp(rows.first, 0, drawing.height));
      edges.push_back(std::clamp(rows.end, 0, drawing.height));
      last = rows;
    }
  }
  std::ranges::sort(edges);
  edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
  return edges;
}

/// False when no bar crosses the row.
bool fillRow(const Drawing& drawing, std::int32_t y, std::span<std::uint8_t> row) {
  bool isCrossed = false;
  for (const Drawing::Bar& bar : drawing.bars) {
    const Rows rows = rowsOf(bar);
    if (y < rows.first || y >= rows.end) {
      continue;
    }
    const std::int32_t from = std::clamp(bar.x, 0, drawing.width);
    const std::int32_t end = std::clamp(bar.x + bar.width, from, drawing.width);
    std::fill(row.begin() + from, row.begin() + end, grey(bar.color));
    isCrossed = true;
  }
  return isCrossed;
}

}  // namespace

Raster rasterOfBars(const Drawing& drawing) {
  Raster raster;
  if (drawing.isEmpty()) {
    return raster;
  }
  raster.width = static_cast<std::size_t>(drawing.width);
  raster.height = static_cast<std::size_t>(drawing.height);
  if (raster.height > kMostPixels / raster.width) {
    throw RuntimeError(kImageCannotBeMade, "La imagen no cabe en la memoria; use menos altura o un texto más corto");
  }
  raster.pixels.assign(raster.width * raster.height, grey(drawing.background));
  const std::vector<std::int32_t> edges = bandEdges(drawing);
  for (std::size_t band = 0; band + 1 < edges.size(); ++band) {
    const auto first = static_cast<std::size_t>(edges[band]);
    const std::span<std::uint8_t> model = raster.row(first);
    if (!fillRow(drawing, edges[band], model)) {
      continue;
    }
    for (std::size_t y = first + 1; y < static_cast<std::size_t>(edges[band + 1]); ++y) {
      std::ranges::copy(model, raster.row(y).begin());
    }
  }
  return raster;
}

}  // namespace qvn::barcode
