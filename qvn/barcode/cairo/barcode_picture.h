// Pictures of what is drawn on a canvas of their own.
//
//   const auto picture = pictureOf({Symbology::Ean13, 5, "750103131130"}, messages, {.moduleWidth = 3});
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "qvn/barcode/cairo/caption_font.h"
#include "qvn/barcode/picture.h"
#include "qvn/barcode/symbology.h"

namespace qvn::barcode {

/// What hosts' pictures have, unless told otherwise.
struct PictureStyle {
  std::string font = "sans-serif";
  double fontSize = 11;          ///< in pixels
  std::int32_t moduleWidth = 1;  ///< in pixels; 2 and more for printing
  bool isWidened = false;        ///< as wide as the symbol, which the width that hosts know may cut off
};

/// A drawing that becomes pixels or a file when it is asked to.
class DrawnPicture final : public Picture {
 public:
  DrawnPicture(Drawing drawing, std::shared_ptr<const CaptionFont> font)
      : drawing_(std::move(drawing)), font_(std::move(font)) {}

  [[nodiscard]] bool isEmpty() const override { return drawing_.isEmpty(); }
  [[nodiscard]] std::int32_t width() const override { return drawing_.width; }
  [[nodiscard]] std::int32_t height() const override { return drawing_.height; }
  [[nodiscard]] GrayImage image() const override;
  void save(std::string_view path) const override;

  [[nodiscard]] const Drawing& drawing() const noexcept { return drawing_; }
  [[nodiscard]] const CaptionFont& font() const noexcept { return *font_; }

 private:
  Drawing drawing_;
  std::shared_ptr<const CaptionFont> font_;
};

/// Draws the symbol; an empty picture for a caption that cannot be drawn, which is told in `messages`.
///
/// @throws RuntimeError  as odenBarcode; 5 for a module width outside 1 to 100 or a font size outside 1 to 200
[[nodiscard]] std::shared_ptr<const DrawnPicture> pictureOf(const Symbol& symbol, host::MessageBox& messages,
                                                            const PictureStyle& style = {});

}  // namespace qvn::barcode
