#include "qvn/barcode/cairo/cairo_canvas.h"

#include <utility>

#include "qvn/barcode/cairo/cairo_font.h"
#include "qvn/barcode/cairo/vector_bytes.h"
#include "qvn/barcode/png/png_bytes.h"

namespace qvn::barcode {
namespace {

using FontPtr = std::shared_ptr<const CairoFont>;

class CairoPicture final : public Picture {
 public:
  CairoPicture(Drawing drawing, FontPtr font) : drawing_(std::move(drawing)), font_(std::move(font)) {}

  [[nodiscard]] const Drawing& drawing() const noexcept override { return drawing_; }
  [[nodiscard]] Raster raster() const override {
    Raster raster = rasterOfBars(drawing_);
    for (const Drawing::Text& text : drawing_.texts) {
      font_->paint(raster, text);
    }
    return raster;
  }
  [[nodiscard]] std::string encoded(PictureFormat format) const override {
    return format == PictureFormat::Png ? pngBytes(raster()) : vectorBytes(drawing_, *font_, format);
  }

 private:
  Drawing drawing_;
  FontPtr font_;
};

class CairoCanvas final : public PictureCanvas {
 public:
  explicit CairoCanvas(FontPtr font) : PictureCanvas(*font), font_(std::move(font)) {}
  [[nodiscard]] PicturePtr picture(const PictureFit& fit) const override {
    return std::make_shared<CairoPicture>(fitted(kept(), fit), font_);
  }

 private:
  FontPtr font_;
};

FontPtr& defaultFont() {
  static FontPtr font;
  return font;
}

}  // namespace

std::unique_ptr<PictureCanvas> newCairoCanvas(const CaptionFont& font) {
  return std::make_unique<CairoCanvas>(std::make_shared<const CairoFont>(font));
}

void setCaptionFont(const CaptionFont& font) { defaultFont() = std::make_shared<const CairoFont>(font); }

std::unique_ptr<PictureCanvas> newDefaultCairoCanvas() {
  if (!defaultFont()) {
    setCaptionFont({});
  }
  return std::make_unique<CairoCanvas>(defaultFont());
}

}  // namespace qvn::barcode
