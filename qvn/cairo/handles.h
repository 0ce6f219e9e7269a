// Owners of Cairo's objects, and its statuses as errors.
#pragma once

#include <cairo.h>

#include <memory>
#include <string>

namespace qvn::cairo {

template <auto kDestroy>
struct Destroy {
  template <typename T>
  void operator()(T* object) const noexcept {
    kDestroy(object);
  }
};
using Context = std::unique_ptr<cairo_t, Destroy<cairo_destroy>>;
using Surface = std::unique_ptr<cairo_surface_t, Destroy<cairo_surface_destroy>>;
using Face = std::unique_ptr<cairo_font_face_t, Destroy<cairo_font_face_destroy>>;
using ScaledFont = std::unique_ptr<cairo_scaled_font_t, Destroy<cairo_scaled_font_destroy>>;
using FontOptions = std::unique_ptr<cairo_font_options_t, Destroy<cairo_font_options_destroy>>;

/// Throws RuntimeError 480 with Cairo's words unless `status` is success.
void requireSuccess(cairo_status_t status);

/// A function for Cairo's streams that appends to the std::string in `closure`.
cairo_status_t appendToString(void* closure, const unsigned char* data, unsigned int length) noexcept;

}  // namespace qvn::cairo
