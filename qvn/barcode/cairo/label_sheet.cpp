#include "qvn/barcode/cairo/label_sheet.h"

#include <cairo-pdf.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <string>
#include <system_error>

#include "qvn/barcode/cairo/cairo_font.h"
#include "qvn/barcode/cairo/vector_bytes.h"
#include "qvn/base/path.h"
#include "qvn/base/runtime_error.h"

namespace qvn::barcode {
namespace {

constexpr std::int32_t kPathAccessError = 75;

cairo_status_t writeToFile(void* closure, const unsigned char* data, unsigned int length) noexcept {
  auto& file = *static_cast<std::ofstream*>(closure);
  file.write(reinterpret_cast<const char*>(data), length);
  return file ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

}  // namespace

// Members are released from the last to the first: Cairo writes the end of the file while its surface goes.
struct LabelSheet::File {
  std::string path;
  std::ofstream stream;
  CairoFont font{CaptionFont{}};
  cairo::Surface surface;
  cairo::Context context;

  void require(bool isGood) const {
    if (!isGood) {
      throw RuntimeError(kPathAccessError,
                         "No se pudo escribir «" + path + "»: " + std::generic_category().message(errno));
    }
  }
};

LabelSheet::LabelSheet(std::string_view path, const SheetLayout& layout)
    : file_(std::make_unique<File>()), layout_(layout), x_(layout.margin), y_(layout.margin) {
  file_->path = path;
  file_->stream.open(hostPath(path), std::ios::binary | std::ios::trunc);
  file_->require(file_->stream.is_open());
  file_->surface.reset(
      cairo_pdf_surface_create_for_stream(writeToFile, &file_->stream, layout.pageWidth, layout.pageHeight));
  file_->context.reset(cairo_create(file_->surface.get()));
  cairo::requireSuccess(cairo_status(file_->context.get()));
}

LabelSheet::~LabelSheet() = default;

void LabelSheet::placeFor(double width, double height) {
  if (x_ > layout_.margin && x_ + width > layout_.pageWidth - layout_.margin) {
    x_ = layout_.margin;
    y_ += rowHeight_ + layout_.gap;
    rowHeight_ = 0;
  }
  if (y_ > layout_.margin && y_ + height > layout_.pageHeight - layout_.margin) {
    cairo_show_page(file_->context.get());
    ++pages_;
    x_ = y_ = layout_.margin;
    rowHeight_ = 0;
  }
}

void LabelSheet::add(const Drawing& label) {
  if (label.isEmpty()) {
    return;
  }
  const double scale = std::min({kPointsPerPixel, (layout_.pageWidth - 2 * layout_.margin) / label.width,
                                 (layout_.pageHeight - 2 * layout_.margin) / label.height});
  placeFor(label.width * scale, label.height * scale);
  cairo_t* const context = file_->context.get();
  cairo_save(context);
  cairo_translate(context, x_, y_);
  cairo_scale(context, scale, scale);
  paintDrawing(context, label, file_->font);
  cairo_restore(context);
  x_ += label.width * scale + layout_.gap;
  rowHeight_ = std::max(rowHeight_, label.height * scale);
  file_->require(cairo_status(context) == CAIRO_STATUS_SUCCESS && file_->stream.good());
}

void LabelSheet::finish() {
  cairo_surface_finish(file_->surface.get());
  file_->stream.close();
  file_->require(cairo_surface_status(file_->surface.get()) == CAIRO_STATUS_SUCCESS && !file_->stream.fail());
}

}  // namespace qvn::barcode
