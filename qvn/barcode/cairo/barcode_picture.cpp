#include "qvn/barcode/cairo/barcode_picture.h"

#include <algorithm>
#include <array>
#include <mutex>

#include "qvn/barcode/cairo/gray_image.h"
#include "qvn/barcode/cairo/picture_file.h"
#include "qvn/barcode/cairo/png_file.h"
#include "qvn/barcode/cairo/vector_file.h"
#include "qvn/barcode/drawing_canvas.h"
#include "qvn/barcode/drawing_layout.h"
#include "qvn/base/letter_case.h"

namespace qvn::barcode {
namespace {

std::string bytesAsPng(const Drawing& drawing, const CaptionFont& font) { return pngFile(grayImage(drawing, font)); }

struct FileKind {
  std::string_view ending;
  std::string (*bytes)(const Drawing&, const CaptionFont&);
};
constexpr auto kFileKinds = std::to_array<FileKind>({{".png", bytesAsPng}, {".svg", svgFile}, {".pdf", pdfFile}});

const FileKind& kindOf(std::string_view path) {
  const std::string_view ending = path.substr(std::min(path.rfind('.'), path.size()));
  const auto* kind =
      std::ranges::find_if(kFileKinds, [&](const FileKind& known) { return equalIgnoringCase(known.ending, ending); });
  if (kind != kFileKinds.end()) return *kind;
  throw RuntimeError(error_number::kInvalidCall,
                     "El nombre «" + std::string(path) + "» debe terminar en .png, .svg o .pdf");
}

// Finding a font takes longer than drawing a symbol, and most pictures have the same one.
std::shared_ptr<const CaptionFont> fontOf(const PictureStyle& style) {
  static std::mutex guard;
  static std::string family;
  static double size = 0;
  static std::shared_ptr<const CaptionFont> last;
  const std::lock_guard lock(guard);
  if (last == nullptr || family != style.font || size != style.fontSize) {
    last = std::make_shared<CaptionFont>(style.font, style.fontSize);
    family = style.font;
    size = style.fontSize;
  }
  return last;
}

}  // namespace

GrayImage DrawnPicture::image() const { return grayImage(drawing_, *font_); }

void DrawnPicture::save(std::string_view path) const {
  const FileKind& kind = kindOf(path);
  if (isEmpty()) {
    throw RuntimeError(error_number::kInvalidCall, "No hay nada que guardar: el código de barras no se dibujó");
  }
  writePictureFile(path, kind.bytes(drawing_, *font_));
}

std::shared_ptr<const DrawnPicture> pictureOf(const Symbol& symbol, host::MessageBox& messages,
                                              const PictureStyle& style) {
  std::shared_ptr<const CaptionFont> font = fontOf(style);
  DrawingCanvas canvas(*font);
  draw(symbol, canvas, messages);
  Drawing drawing = canvas.takePicture();
  if (style.isWidened) drawing = widened(std::move(drawing));
  return std::make_shared<DrawnPicture>(stretched(std::move(drawing), style.moduleWidth), std::move(font));
}

}  // namespace qvn::barcode
