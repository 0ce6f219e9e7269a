#include "qvn/reports/page_canvas.h"

#include "qvn/base/runtime_error.h"

namespace qvn::reports {
namespace {

constexpr std::int32_t kCannotCreateObject = 429;

PdfCanvasMaker& registered() {
  static PdfCanvasMaker maker = nullptr;
  return maker;
}

}  // namespace

void registerPdfCanvas(PdfCanvasMaker maker) { registered() = maker; }

std::unique_ptr<PageCanvas> newPdfCanvas(Paper paper, ByteSink bytes) {
  if (registered() == nullptr) {
    throw RuntimeError(kCannotCreateObject,
                       "No hay con qué hacer archivos PDF: enlace qvn::reports_cairo o registre otro lienzo");
  }
  return registered()(paper, std::move(bytes));
}

}  // namespace qvn::reports
