#include "qvn/barcode/cairo/caption_font.h"

#include "qvn/base/utf8.h"

namespace qvn::barcode {
namespace {

ScaledFont scaledFont(const std::string& family, double size) {
  constexpr double kSmallest = 1;
  constexpr double kLargest = 200;
  if (!(size >= kSmallest && size <= kLargest)) {
    throw RuntimeError(error_number::kInvalidCall, "El tamaño de la letra va de 1 a 200 puntos");
  }
  const FontFace face(cairo_toy_font_face_create(family.c_str(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL));
  checkCairo(cairo_font_face_status(face.get()));
  cairo_matrix_t scale;
  cairo_matrix_t identity;
  cairo_matrix_init_scale(&scale, size, size);
  cairo_matrix_init_identity(&identity);
  const FontOptions options(cairo_font_options_create());
  cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
  ScaledFont font(cairo_scaled_font_create(face.get(), &scale, &identity, options.get()));
  checkCairo(cairo_scaled_font_status(font.get()));
  return font;
}

// The glyphs of a text, which Cairo allocates.
class Glyphs {
 public:
  Glyphs(cairo_scaled_font_t* font, double x, double y, std::string_view text) {
    const std::string valid = utf8::sanitize(text);
    checkCairo(cairo_scaled_font_text_to_glyphs(font, x, y, valid.data(), static_cast<int>(valid.size()), &glyphs_,
                                                &count_, nullptr, nullptr, nullptr));
  }
  Glyphs(const Glyphs&) = delete;
  Glyphs& operator=(const Glyphs&) = delete;
  ~Glyphs() { cairo_glyph_free(glyphs_); }

  [[nodiscard]] const cairo_glyph_t* data() const { return glyphs_; }
  [[nodiscard]] int count() const { return count_; }

 private:
  cairo_glyph_t* glyphs_ = nullptr;
  int count_ = 0;
};

}  // namespace

CaptionFont::CaptionFont(const std::string& family, double size) : font_(scaledFont(family, size)) {
  cairo_scaled_font_extents(font_.get(), &extents_);
}

double CaptionFont::width(std::string_view text) const {
  const Glyphs glyphs(font_.get(), 0, 0, text);
  cairo_text_extents_t extents;
  cairo_scaled_font_glyph_extents(font_.get(), glyphs.data(), glyphs.count(), &extents);
  return extents.x_advance;
}

void CaptionFont::draw(cairo_t* context, double x, double y, std::string_view text) const {
  const Glyphs glyphs(font_.get(), x, y + extents_.ascent, text);
  cairo_set_scaled_font(context, font_.get());
  cairo_show_glyphs(context, glyphs.data(), glyphs.count());
}

}  // namespace qvn::barcode
