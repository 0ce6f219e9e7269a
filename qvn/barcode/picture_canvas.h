// The canvas of the library's own from which the picture-returning methods take their pictures.
#pragma once

#include <memory>

#include "qvn/barcode/drawing_canvas.h"
#include "qvn/barcode/picture.h"

namespace qvn::barcode {

class PictureCanvas : public DrawingCanvas {
 public:
  using DrawingCanvas::DrawingCanvas;
  /// What keepImage() kept, with `fit` applied.
  [[nodiscard]] virtual PicturePtr picture(const PictureFit& fit) const = 0;
};
using PictureCanvasMaker = std::unique_ptr<PictureCanvas> (*)();

/// Makes the canvases from now on. Adapters register themselves when a host links them.
void registerPictureCanvas(PictureCanvasMaker maker);

/// A canvas by the registered maker. Throws RuntimeError 429 when there is none.
std::unique_ptr<PictureCanvas> newPictureCanvas();

}  // namespace qvn::barcode
