#include "qvn/barcode/cairo/vector_file.h"

#include <cairo/cairo-pdf.h>
#include <cairo/cairo-svg.h>

#include <algorithm>

namespace qvn::barcode {
namespace {

void setGray(cairo_t* context, std::uint8_t gray) {
  const double level = gray / 255.0;
  cairo_set_source_rgb(context, level, level, level);
}

// Bars of one height and shade that touch are one rectangle, so that no seam shows between them.
void paintBars(const Drawing& drawing, cairo_t* context) {
  for (auto bar = drawing.bars.begin(); bar != drawing.bars.end();) {
    const Bar first = *bar;
    std::int32_t end = first.x + first.width;
    for (++bar; bar != drawing.bars.end() && bar->x == end && bar->top == first.top && bar->bottom == first.bottom &&
                bar->gray == first.gray;
         ++bar) {
      end += bar->width;
    }
    if (first.gray == drawing.background) continue;
    setGray(context, first.gray);
    cairo_rectangle(context, first.x, first.top, end - first.x, first.bottom - first.top);
    cairo_fill(context);
  }
}

template <typename MakeSurface>
std::string fileOf(const Drawing& drawing, const CaptionFont& font, MakeSurface makeSurface) {
  std::string file;
  const Surface surface(
      makeSurface(appendBytes, &file, drawing.width * kPointsPerPixel, drawing.height * kPointsPerPixel));
  checkCairo(cairo_surface_status(surface.get()));
  {
    const Context context(cairo_create(surface.get()));
    cairo_scale(context.get(), kPointsPerPixel, kPointsPerPixel);
    paint(drawing, font, context.get());
    checkCairo(cairo_status(context.get()));
  }
  cairo_surface_finish(surface.get());
  checkCairo(cairo_surface_status(surface.get()));
  return file;
}

}  // namespace

void paint(const Drawing& drawing, const CaptionFont& font, cairo_t* context) {
  cairo_save(context);
  cairo_rectangle(context, 0, 0, drawing.width, drawing.height);
  cairo_clip(context);
  setGray(context, drawing.background);
  cairo_paint(context);
  paintBars(drawing, context);
  setGray(context, 0);
  for (const Label& label : drawing.labels) font.draw(context, label.x, label.y, label.text);
  cairo_restore(context);
}

std::string svgFile(const Drawing& drawing, const CaptionFont& font) {
  return fileOf(drawing, font, cairo_svg_surface_create_for_stream);
}

std::string pdfFile(const Drawing& drawing, const CaptionFont& font) {
  return fileOf(drawing, font, cairo_pdf_surface_create_for_stream);
}

cairo_status_t appendBytes(void* file, const unsigned char* bytes, unsigned int count) noexcept {
  try {
    static_cast<std::string*>(file)->append(static_cast<const char*>(static_cast<const void*>(bytes)), count);
    return CAIRO_STATUS_SUCCESS;
  } catch (...) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

}  // namespace qvn::barcode
