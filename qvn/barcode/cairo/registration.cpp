// The picture-returning methods of the library draw on Cairo.
#include "qvn/barcode/cairo/cairo_canvas.h"
#include "qvn/barcode/picture_canvas.h"

namespace {

[[maybe_unused]] const bool kIsRegistered =
    (qvn::barcode::registerPictureCanvas(&qvn::barcode::newDefaultCairoCanvas), true);

}  // namespace
