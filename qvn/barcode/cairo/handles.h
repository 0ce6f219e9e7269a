// Owners of Cairo's objects, and its statuses as errors.
#pragma once

#include <cairo.h>

#include <memory>
#include <string>

namespace qvn::barcode {

template <auto kDestroy>
struct CairoDestroy {
  template <typename T>
  void operator()(T* object) const noexcept {
    kDestroy(object);
  }
};
using CairoContext = std::unique_ptr<cairo_t, CairoDestroy<cairo_destroy>>;
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoDestroy<cairo_surface_destroy>>;
using CairoFace = std::unique_ptr<cairo_font_face_t, CairoDestroy<cairo_font_face_destroy>>;
using CairoScaledFont = std::unique_ptr<cairo_scaled_font_t, CairoDestroy<cairo_scaled_font_destroy>>;
using CairoFontOptions = std::unique_ptr<cairo_font_options_t, CairoDestroy<cairo_font_options_destroy>>;

/// Throws RuntimeError 480 with Cairo's words unless `status` is success.
void requireCairo(cairo_status_t status);

/// A function for Cairo's streams that appends to the std::string in `closure`.
cairo_status_t appendToString(void* closure, const unsigned char* data, unsigned int length) noexcept;

}  // namespace qvn::barcode
