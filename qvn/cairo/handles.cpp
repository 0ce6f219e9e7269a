#include "qvn/cairo/handles.h"

#include <new>

#include "qvn/base/runtime_error.h"

namespace qvn::cairo {
namespace {

constexpr std::int32_t kImageCannotBeMade = 480;

}  // namespace

void requireSuccess(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS) {
    throw RuntimeError(kImageCannotBeMade,
                       std::string("No se pudo hacer la imagen: ") + cairo_status_to_string(status));
  }
}

cairo_status_t appendToString(void* closure, const unsigned char* data, unsigned int length) noexcept {
  try {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

}  // namespace qvn::cairo
