// PDF files of reports are drawn by Cairo.
#include "qvn/reports/cairo/pdf_canvas.h"
#include "qvn/reports/page_canvas.h"

namespace {

[[maybe_unused]] const bool kIsRegistered = (qvn::reports::registerPdfCanvas(&qvn::reports::newCairoPdfCanvas), true);

}  // namespace
