// A canvas on which a host in another language lets barcodes be drawn, for a picture.
#pragma once

#include <memory>
#include <utility>

#include "qvn/barcode/picture_canvas.h"
#include "qvn/base/variant.h"

namespace qvn::automation {

class CanvasObject final : public Object {
 public:
  explicit CanvasObject(std::unique_ptr<barcode::PictureCanvas> canvas) : canvas_(std::move(canvas)) {}
  [[nodiscard]] barcode::PictureCanvas& canvas() const { return *canvas_; }

 private:
  std::unique_ptr<barcode::PictureCanvas> canvas_;
};

}  // namespace qvn::automation
