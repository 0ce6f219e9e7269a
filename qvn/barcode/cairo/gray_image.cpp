#include "qvn/barcode/cairo/gray_image.h"

#include <algorithm>
#include <cmath>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

void requireDrawable(const Drawing& drawing) {
  constexpr std::int32_t kLongestSide = 32767;  // Cairo's and most readers' limit
  constexpr std::int64_t kMostPixels = 100'000'000;
  if (drawing.width <= kLongestSide && drawing.height <= kLongestSide &&
      std::int64_t{drawing.width} * drawing.height <= kMostPixels) {
    return;
  }
  throw RuntimeError(error_number::kInvalidCall,
                     "El código de barras mediría " + std::to_string(drawing.width) + " x " +
                         std::to_string(drawing.height) +
                         " puntos; baje la altura, acorte el texto o guárdelo como .svg o .pdf");
}

// The rows at which a bar begins or ends: between two of them all rows are alike.
std::vector<std::int32_t> edgesOf(const Drawing& drawing) {
  std::vector<std::int32_t> edges = {0, drawing.height};
  const auto add = [&](std::int32_t row) {
    row = std::clamp(row, 0, drawing.height);
    if (std::ranges::find(edges, row) == edges.end()) edges.push_back(row);
  };
  for (const Bar& bar : drawing.bars) {
    add(bar.top);
    add(bar.bottom);
  }
  std::ranges::sort(edges);
  return edges;
}

void drawBars(const Drawing& drawing, GrayImage& image) {
  const std::vector<std::int32_t> edges = edgesOf(drawing);
  const auto width = static_cast<std::size_t>(image.width);
  std::vector<std::uint8_t> row(width);
  for (std::size_t i = 1; i < edges.size(); ++i) {
    std::ranges::fill(row, drawing.background);
    for (const Bar& bar : drawing.bars) {
      if (bar.top > edges[i - 1] || bar.bottom < edges[i]) continue;
      const std::int32_t from = std::clamp(bar.x, 0, image.width);
      const std::int32_t to = std::clamp(bar.x + bar.width, 0, image.width);
      std::fill(row.begin() + from, row.begin() + to, bar.gray);
    }
    for (std::int32_t y = edges[i - 1]; y < edges[i]; ++y) {
      std::ranges::copy(row, image.pixels.begin() + static_cast<std::ptrdiff_t>(width) * y);
    }
  }
}

// Letters are drawn as a mask of their own cell, then laid over the bars.
void drawLabel(const Label& label, const CaptionFont& font, GrayImage& image) {
  const int left = std::max(0, static_cast<int>(std::floor(label.x)) - 1);
  const int top = std::max(0, static_cast<int>(std::floor(label.y)));
  const int right = std::min<int>(image.width, static_cast<int>(std::ceil(label.x + label.width)) + 2);
  const int bottom = std::min<int>(image.height, static_cast<int>(std::ceil(label.y + font.height())) + 1);
  if (left >= right || top >= bottom) return;
  const Surface mask(cairo_image_surface_create(CAIRO_FORMAT_A8, right - left, bottom - top));
  checkCairo(cairo_surface_status(mask.get()));
  {
    const Context context(cairo_create(mask.get()));
    font.draw(context.get(), label.x - left, label.y - top, label.text);
    checkCairo(cairo_status(context.get()));
  }
  cairo_surface_flush(mask.get());
  const unsigned char* ink = cairo_image_surface_get_data(mask.get());
  const int stride = cairo_image_surface_get_stride(mask.get());
  for (int y = top; y < bottom; ++y, ink += stride) {
    std::uint8_t* pixel = image.pixels.data() + static_cast<std::ptrdiff_t>(image.width) * y + left;
    for (int x = 0; x < right - left; ++x, ++pixel) {
      *pixel = static_cast<std::uint8_t>((*pixel * (255 - ink[x]) + 127) / 255);
    }
  }
}

}  // namespace

GrayImage grayImage(const Drawing& drawing, const CaptionFont& font) {
  if (drawing.isEmpty()) return {};
  requireDrawable(drawing);
  GrayImage image{drawing.width, drawing.height, {}};
  image.pixels.resize(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
  drawBars(drawing, image);
  for (const Label& label : drawing.labels) drawLabel(label, font, image);
  return image;
}

}  // namespace qvn::barcode
