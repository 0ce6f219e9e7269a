#include "qvn/reports/cairo/pdf_font.h"

#include "qvn/base/utf8.h"
#include "qvn/reports/line_text.h"

namespace qvn::reports {
namespace {

constexpr const char* kFamily = "DejaVu Sans";

cairo::ScaledFont scaledFont(double sizePoints, PdfFont::Weight weight) {
  const cairo::Face face(
      cairo_toy_font_face_create(kFamily, CAIRO_FONT_SLANT_NORMAL,
                                 weight == PdfFont::Weight::Bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL));
  const cairo::FontOptions options(cairo_font_options_create());
  // Places on paper are not rounded to those of a screen.
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_matrix_t size;
  cairo_matrix_t identity;
  cairo_matrix_init_scale(&size, sizePoints, sizePoints);
  cairo_matrix_init_identity(&identity);
  return cairo::ScaledFont(cairo_scaled_font_create(face.get(), &size, &identity, options.get()));
}

}  // namespace

PdfFont::PdfFont(double sizePoints, Weight weight) : font_(scaledFont(sizePoints, weight)) {
  cairo::requireSuccess(cairo_scaled_font_status(font_.get()));
}

double PdfFont::width(const std::string& text) const {
  cairo_text_extents_t extents;
  cairo_scaled_font_text_extents(font_.get(), text.c_str(), &extents);
  cairo::requireSuccess(cairo_scaled_font_status(font_.get()));
  return extents.x_advance;
}

std::string PdfFont::fitted(std::string_view text, double limit) const {
  std::string whole(text);
  if (width(whole) <= limit) return whole;
  std::size_t fitting = 0;
  std::size_t tooMany = utf8::length(text);
  while (fitting + 1 < tooMany) {
    const std::size_t count = fitting + (tooMany - fitting) / 2;
    (width(cutText(text, count)) <= limit ? fitting : tooMany) = count;
  }
  return cutText(text, fitting);
}

void PdfFont::show(cairo_t* context, const std::string& text, double x, double baseline) const {
  cairo_set_scaled_font(context, font_.get());
  cairo_move_to(context, x, baseline);
  cairo_show_text(context, text.c_str());
}

}  // namespace qvn::reports
