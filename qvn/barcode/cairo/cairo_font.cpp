#include "qvn/barcode/cairo/cairo_font.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "qvn/base/runtime_error.h"
#include "qvn/base/utf8.h"

namespace qvn::barcode {
namespace {

cairo::ScaledFont scaledFont(const CaptionFont& font) {
  if (!(font.sizePixels >= 1 && font.sizePixels <= 1000)) {
    throw RuntimeError(error_number::kInvalidCall, "El tamaño de la letra va de 1 a 1000 pixeles");
  }
  const cairo::Face face(
      cairo_toy_font_face_create(font.family.c_str(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL));
  const cairo::FontOptions options(cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_ON);
  cairo_matrix_t size;
  cairo_matrix_t identity;
  cairo_matrix_init_scale(&size, font.sizePixels, font.sizePixels);
  cairo_matrix_init_identity(&identity);
  return cairo::ScaledFont(cairo_scaled_font_create(face.get(), &size, &identity, options.get()));
}

}  // namespace

template <typename Visit>
void CairoFont::visitGlyphs(std::string_view text, Visit visit) const {
  for (std::size_t at = 0; at < text.size();) {
    const auto index = static_cast<std::size_t>(static_cast<unsigned char>(text[at])) - kFirstKept;
    if (index < kKept) {
      visit(kept_[index]);
      ++at;
      continue;
    }
    const utf8::Decoded decoded = utf8::decode(text, at);
    std::string character;
    utf8::append(character, decoded.codePoint);
    visit(drawnGlyph(character));
    at += decoded.length;
  }
}

CairoFont::CairoFont(const CaptionFont& font) : font_(scaledFont(font)) {
  cairo::requireSuccess(cairo_scaled_font_status(font_.get()));
  cairo_scaled_font_extents(font_.get(), &extents_);
  for (std::size_t i = 0; i < kKept; ++i) {
    kept_[i] = drawnGlyph(std::string(1, static_cast<char>(kFirstKept + static_cast<char>(i))));
  }
}

double CairoFont::width(std::string_view text) const {
  double width = 0;
  visitGlyphs(text, [&](const Glyph& glyph) { width += glyph.advance; });
  return width;
}

void CairoFont::show(cairo_t* context, const Drawing::Text& text) const {
  cairo_set_scaled_font(context, font_.get());
  cairo_move_to(context, text.x, text.y + extents_.ascent);
  cairo_show_text(context, text.text.c_str());
  cairo::requireSuccess(cairo_status(context));
}

void CairoFont::paint(Raster& raster, const Drawing::Text& text) const {
  double x = text.x;
  visitGlyphs(text.text, [&](const Glyph& glyph) {
    blend(glyph, x, text.y, raster);
    x += glyph.advance;
  });
}

CairoFont::Glyph CairoFont::drawnGlyph(const std::string& character) const {
  cairo_text_extents_t extents;
  cairo_scaled_font_text_extents(font_.get(), character.c_str(), &extents);
  cairo::requireSuccess(cairo_scaled_font_status(font_.get()));
  Glyph glyph{.advance = extents.x_advance,
              .left = static_cast<int>(std::floor(extents.x_bearing)),
              .top = static_cast<int>(std::floor(extents_.ascent + extents.y_bearing))};
  const int width = static_cast<int>(std::ceil(extents.x_bearing + extents.width)) - glyph.left;
  const int height = static_cast<int>(std::ceil(extents_.ascent + extents.y_bearing + extents.height)) - glyph.top;
  if (width <= 0 || height <= 0) {
    return glyph;
  }
  const int stride = cairo_format_stride_for_width(CAIRO_FORMAT_A8, width);
  glyph.coverage.width = static_cast<std::size_t>(stride);
  glyph.coverage.height = static_cast<std::size_t>(height);
  glyph.coverage.pixels.assign(glyph.coverage.width * glyph.coverage.height, 0);
  const cairo::Surface surface(
      cairo_image_surface_create_for_data(glyph.coverage.pixels.data(), CAIRO_FORMAT_A8, width, height, stride));
  cairo::requireSuccess(cairo_surface_status(surface.get()));
  const cairo::Context context(cairo_create(surface.get()));
  show(context.get(),
       {.x = static_cast<double>(-glyph.left), .y = static_cast<double>(-glyph.top), .width = 0, .text = character});
  cairo_surface_flush(surface.get());
  return glyph;
}

void CairoFont::blend(const Glyph& glyph, double x, double y, Raster& raster) {
  const auto left = static_cast<std::int64_t>(std::lround(x)) + glyph.left;
  const auto top = static_cast<std::int64_t>(std::lround(y)) + glyph.top;
  const auto cut = [](std::int64_t at, std::size_t count, std::size_t limit) {
    return std::pair(std::max<std::int64_t>(0, -at),
                     std::min(static_cast<std::int64_t>(count), static_cast<std::int64_t>(limit) - at));
  };
  const auto [firstX, endX] = cut(left, glyph.coverage.width, raster.width);
  const auto [firstY, endY] = cut(top, glyph.coverage.height, raster.height);
  for (std::int64_t glyphY = firstY; glyphY < endY; ++glyphY) {
    const auto coverage = glyph.coverage.row(static_cast<std::size_t>(glyphY));
    const auto row = raster.row(static_cast<std::size_t>(top + glyphY));
    for (std::int64_t glyphX = firstX; glyphX < endX; ++glyphX) {
      std::uint8_t& pixel = row[static_cast<std::size_t>(left + glyphX)];
      pixel = static_cast<std::uint8_t>(pixel * (255 - coverage[static_cast<std::size_t>(glyphX)]) / 255);
    }
  }
}

}  // namespace qvn::barcode
