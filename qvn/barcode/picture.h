// A finished picture: what the methods that draw a barcode of their own give to a host.
//
//   const auto picture = library.BarcodeEAN13(5, "750103131130", true);
//   picture->save("etiqueta.png");
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "qvn/base/variant.h"

namespace qvn::barcode {

/// Rows from the top, each of `width` pixels from the left, 0 black to 255 white.
struct GrayImage {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint8_t> pixels;
};

class Picture : public Object {
 public:
  /// True after a caption that could not be drawn.
  [[nodiscard]] virtual bool isEmpty() const = 0;
  /// In pixels.
  [[nodiscard]] virtual std::int32_t width() const = 0;
  [[nodiscard]] virtual std::int32_t height() const = 0;

  /// @throws RuntimeError  5 for a picture of more than 32,767 pixels a side or 100 million in all
  [[nodiscard]] virtual GrayImage image() const = 0;

  /// Writes a file of the kind that its ending names: ".png" of these pixels, ".svg" or ".pdf" of bars and letters
  /// that any printer draws sharp, 96 pixels an inch. A file that is there is replaced; a failure leaves it as it was.
  ///
  /// @throws RuntimeError  5 for an empty picture, for another ending, and as image(); 52, 57, 61, 70 or 76 when the
  ///                       file cannot be written
  virtual void save(std::string_view path) const = 0;
};
using PicturePtr = std::shared_ptr<const Picture>;

}  // namespace qvn::barcode
