#include "qvn/barcode/cairo/cairo_font.h"

#include <algorithm>
#include <cmath>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::barcode {
namespace {

constexpr int kTilePixels = 4096;  // Cairo's images end at 32,767

CairoScaledFont scaledFont(const CaptionFont& font) {
  if (!(font.sizePixels >= 1 && font.sizePixels <= 1000)) {
    throw RuntimeError(error_number::kInvalidCall, "El tamaño de la letra va de 1 a 1000 pixeles");
  }
  const CairoFace face(
      cairo_toy_font_face_create(font.family.c_str(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL));
  const CairoFontOptions options(cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_ON);
  cairo_matrix_t size;
  cairo_matrix_t identity;
  cairo_matrix_init_scale(&size, font.sizePixels, font.sizePixels);
  cairo_matrix_init_identity(&identity);
  return CairoScaledFont(cairo_scaled_font_create(face.get(), &size, &identity, options.get()));
}

// One grey column strip of the text, darkened into the raster.
void blendTile(const Raster& mask, std::size_t left, std::size_t top, Raster& raster) {
  for (std::size_t y = 0; y < mask.height && top + y < raster.height; ++y) {
    const auto coverage = mask.row(y);
    const auto row = raster.row(top + y);
    for (std::size_t x = 0; x < mask.width && left + x < raster.width; ++x) {
      row[left + x] = static_cast<std::uint8_t>(row[left + x] * (255 - coverage[x]) / 255);
    }
  }
}

}  // namespace

CairoFont::CairoFont(const CaptionFont& font) : font_(scaledFont(font)) {
  requireCairo(cairo_scaled_font_status(font_.get()));
  cairo_scaled_font_extents(font_.get(), &extents_);
}

double CairoFont::width(std::string_view text) const {
  cairo_text_extents_t extents;
  // A NUL ends the text for Cairo, here as when it is shown.
  cairo_scaled_font_text_extents(font_.get(), utf8::sanitize(text).c_str(), &extents);
  requireCairo(cairo_scaled_font_status(font_.get()));
  return extents.x_advance;
}

void CairoFont::show(cairo_t* context, const Drawing::Text& text) const {
  cairo_set_scaled_font(context, font_.get());
  cairo_move_to(context, text.x, text.y + extents_.ascent);
  cairo_show_text(context, text.text.c_str());
  requireCairo(cairo_status(context));
}

void CairoFont::paint(Raster& raster, const Drawing::Text& text) const {
  const double right = std::min(std::ceil(text.x + text.width) + 1, static_cast<double>(raster.width));
  const double top = std::max(std::floor(text.y), 0.0);
  const double bottom = std::min(std::ceil(text.y + extents_.height) + 1, static_cast<double>(raster.height));
  if (top >= bottom) {
    return;
  }
  const int height = static_cast<int>(bottom - top);
  for (double left = std::max(std::floor(text.x) - 1, 0.0); left < right; left += kTilePixels) {
    const int width = static_cast<int>(std::min<double>(kTilePixels, right - left));
    const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_A8, width);
    Raster mask{.width = static_cast<std::size_t>(stride), .height = static_cast<std::size_t>(height), .pixels = {}};
    mask.pixels.assign(mask.width * mask.height, 0);
    const CairoSurface surface(
        cairo_image_surface_create_for_data(mask.pixels.data(), CAIRO_FORMAT_A8, width, height, stride));
    requireCairo(cairo_surface_status(surface.get()));
    const CairoContext context(cairo_create(surface.get()));
    Drawing::Text shifted = text;
    shifted.x -= left;
    shifted.y -= top;
    show(context.get(), shifted);
    cairo_surface_flush(surface.get());
    blendTile(mask, static_cast<std::size_t>(left), static_cast<std::size_t>(top), raster);
  }
}

}  // namespace qvn::barcode
