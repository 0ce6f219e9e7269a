#include "qvn/barcode/picture_canvas.h"

#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

constexpr std::int32_t kCannotCreateObject = 429;

PictureCanvasMaker& registered() {
  static PictureCanvasMaker maker = nullptr;
  return maker;
}

}  // namespace

void registerPictureCanvas(PictureCanvasMaker maker) { registered() = maker; }

std::unique_ptr<PictureCanvas> newPictureCanvas() {
  if (registered() == nullptr) {
    throw RuntimeError(kCannotCreateObject,
                       "No hay con qué hacer imágenes: enlace qvn::barcode_cairo o registre otro lienzo");
  }
  return registered()();
}

}  // namespace qvn::barcode
