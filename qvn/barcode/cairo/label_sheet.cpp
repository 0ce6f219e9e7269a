#include "qvn/barcode/cairo/label_sheet.h"

#include <cairo/cairo-pdf.h>

#include <algorithm>

#include "qvn/barcode/cairo/vector_file.h"

namespace qvn::barcode {
namespace {

double placeWidth(const SheetLayout& layout) { return (layout.pageWidth - 2 * layout.margin) / layout.columns; }
double placeHeight(const SheetLayout& layout) { return (layout.pageHeight - 2 * layout.margin) / layout.rows; }

const SheetLayout& checked(const SheetLayout& layout) {
  constexpr double kSmallest = 20;
  const bool hasRoom = layout.columns > 0 && layout.rows > 0 && layout.margin >= 0 && placeWidth(layout) >= kSmallest &&
                       placeHeight(layout) >= kSmallest;
  if (hasRoom) return layout;
  throw RuntimeError(error_number::kInvalidCall,
                     "No caben tantas etiquetas en la hoja; pida menos columnas o renglones");
}

}  // namespace

struct LabelSheet::Document {
  explicit Document(const SheetLayout& layout)
      : surface(cairo_pdf_surface_create_for_stream(appendBytes, &file, layout.pageWidth, layout.pageHeight)),
        context(cairo_create(surface.get())) {
    checkCairo(cairo_status(context.get()));
  }

  std::string file;  // outlives the surface that writes into it
  Surface surface;
  Context context;
};

LabelSheet::LabelSheet(const SheetLayout& layout)
    : layout_(checked(layout)), document_(std::make_unique<Document>(layout)) {}

LabelSheet::~LabelSheet() = default;

int LabelSheet::pages() const noexcept {
  const int perPage = layout_.columns * layout_.rows;
  return (next_ + perPage - 1) / perPage;
}

void LabelSheet::add(const DrawnPicture& picture) {
  constexpr double kGap = 4;  // points between two labels, half of it on each side
  cairo_t* const context = document_->context.get();
  const int place = next_ % (layout_.columns * layout_.rows);
  if (place == 0 && next_ > 0) cairo_show_page(context);
  ++next_;
  if (picture.isEmpty()) return;
  const double width = placeWidth(layout_);
  const double height = placeHeight(layout_);
  const double scale =
      std::min({kPointsPerPixel, (width - kGap) / picture.width(), (height - kGap) / picture.height()});
  const int column = place % layout_.columns;
  const int row = place / layout_.columns;
  cairo_save(context);
  cairo_translate(context, layout_.margin + column * width + (width - picture.width() * scale) / 2,
                  layout_.margin + row * height + (height - picture.height() * scale) / 2);
  cairo_scale(context, scale, scale);
  paint(picture.drawing(), picture.font(), context);
  cairo_restore(context);
  checkCairo(cairo_status(context));
}

std::string LabelSheet::finish() {
  cairo_show_page(document_->context.get());
  cairo_surface_finish(document_->surface.get());
  checkCairo(cairo_surface_status(document_->surface.get()));
  return std::move(document_->file);
}

}  // namespace qvn::barcode
