// Owners of Cairo's objects.
#pragma once

#include <cairo/cairo.h>

#include <memory>
#include <string>

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {

struct CairoRelease {
  void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
  void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
  void operator()(cairo_scaled_font_t* font) const noexcept { cairo_scaled_font_destroy(font); }
  void operator()(cairo_font_face_t* face) const noexcept { cairo_font_face_destroy(face); }
  void operator()(cairo_font_options_t* options) const noexcept { cairo_font_options_destroy(options); }
};
using Context = std::unique_ptr<cairo_t, CairoRelease>;
using Surface = std::unique_ptr<cairo_surface_t, CairoRelease>;
using ScaledFont = std::unique_ptr<cairo_scaled_font_t, CairoRelease>;
using FontFace = std::unique_ptr<cairo_font_face_t, CairoRelease>;
using FontOptions = std::unique_ptr<cairo_font_options_t, CairoRelease>;

/// Throws RuntimeError 57 with Cairo's own words when `status` is a failure.
inline void checkCairo(cairo_status_t status) {
  if (status == CAIRO_STATUS_SUCCESS) return;
  throw RuntimeError(error_number::kDeviceError,
                     std::string("No se pudo dibujar el código de barras: ") + cairo_status_to_string(status));
}

}  // namespace qvn::barcode
