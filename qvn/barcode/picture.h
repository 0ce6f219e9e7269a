// A finished picture that a host can save, show or take pixels from.
//
//   const auto picture = library.BarcodeEAN13(5, "400638133393", true);
//   picture->save("etiqueta.png");
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "qvn/barcode/drawing.h"
#include "qvn/barcode/raster.h"
#include "qvn/base/variant.h"

namespace qvn::barcode {

enum class PictureFormat { Png, Svg, Pdf };

/// By the ending of `path`, in either case. Throws RuntimeError 5 for another one.
PictureFormat pictureFormat(std::string_view path);

class Picture : public Object {
 public:
  /// Bars and texts, for who paints them; empty after an invalid caption.
  [[nodiscard]] virtual const Drawing& drawing() const noexcept = 0;
  /// The pixels, with the caption. Throws RuntimeError 480 when they do not fit in memory.
  [[nodiscard]] virtual Raster raster() const = 0;
  /// The bytes of a file. Throws RuntimeError 5 for an empty picture, 480 for one that is too large.
  [[nodiscard]] virtual std::string encoded(PictureFormat format) const = 0;

  /// Writes the file in the format of its ending: ".png", ".svg" or ".pdf".
  /// @throws RuntimeError  5 for another ending or an empty picture, 75 when the file cannot be written
  void save(std::string_view path) const;
};
using PicturePtr = std::shared_ptr<Picture>;

}  // namespace qvn::barcode
