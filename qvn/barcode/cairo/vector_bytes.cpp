#include "qvn/barcode/cairo/vector_bytes.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>

#include <algorithm>
#include <cstdlib>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

void setColor(cairo_t* context, std::int32_t color) {
  const auto part = [color](int shift) { return ((color >> shift) & 0xFF) / 255.0; };
  cairo_set_source_rgb(context, part(0), part(8), part(16));
}

cairo::Surface surfaceFor(const Drawing& drawing, PictureFormat format, std::string& bytes) {
  if (format == PictureFormat::Pdf) {
    return cairo::Surface(cairo_pdf_surface_create_for_stream(
        cairo::appendToString, &bytes, drawing.width * kPointsPerPixel, drawing.height * kPointsPerPixel));
  }
  cairo::Surface surface(
      cairo_svg_surface_create_for_stream(cairo::appendToString, &bytes, drawing.width, drawing.height));
  cairo_svg_surface_set_document_unit(surface.get(), CAIRO_SVG_UNIT_PX);
  return surface;
}

}  // namespace

void paintDrawing(cairo_t* context, const Drawing& drawing, const CairoFont& font) {
  cairo_rectangle(context, 0, 0, drawing.width, drawing.height);
  setColor(context, drawing.background);
  cairo_fill(context);
  for (const Drawing::Bar& bar : drawing.bars) {
    // Cropped here: clip paths make files of vectors larger and slower to print.
    const std::int32_t left = std::clamp(bar.x, 0, drawing.width);
    const std::int32_t right = std::clamp(bar.x + bar.width, left, drawing.width);
    const std::int32_t top = std::clamp(std::min(bar.top, bar.bottom), 0, drawing.height);
    const std::int32_t bottom = std::clamp(std::max(bar.top, bar.bottom), top, drawing.height);
    if (left == right || top == bottom) {
      continue;
    }
    cairo_rectangle(context, left, top, right - left, bottom - top);
    setColor(context, bar.color);
    cairo_fill(context);
  }
  cairo_set_source_rgb(context, 0, 0, 0);
  for (const Drawing::Text& text : drawing.texts) {
    font.show(context, text);
  }
}

std::string vectorBytes(const Drawing& drawing, const CairoFont& font, PictureFormat format) {
  if (drawing.isEmpty()) {
    throw RuntimeError(error_number::kInvalidCall, "La imagen está vacía; revise el texto del código de barras");
  }
  std::string bytes;
  const cairo::Surface surface = surfaceFor(drawing, format, bytes);
  cairo::requireSuccess(cairo_surface_status(surface.get()));
  {
    const cairo::Context context(cairo_create(surface.get()));
    if (format == PictureFormat::Pdf) {
      cairo_scale(context.get(), kPointsPerPixel, kPointsPerPixel);
    }
    paintDrawing(context.get(), drawing, font);
    cairo_show_page(context.get());
    cairo::requireSuccess(cairo_status(context.get()));
  }
  cairo_surface_finish(surface.get());
  cairo::requireSuccess(cairo_surface_status(surface.get()));
  return bytes;
}

}  // namespace qvn::barcode
