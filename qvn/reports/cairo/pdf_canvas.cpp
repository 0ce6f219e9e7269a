#include "qvn/reports/cairo/pdf_canvas.h"

#include <cairo-pdf.h>

#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <string>

#include "qvn/base/runtime_error.h"
#include "qvn/reports/cairo/pdf_font.h"

namespace qvn::reports {
namespace {

constexpr double kMarginPoints = 40;
constexpr double kFontPoints = 9;
constexpr double kSmallestFontPoints = 5;
constexpr double kTitleFactor = 1.5;
constexpr double kLineFactor = 1.4;
constexpr double kBaselineFactor = 1.05;  // of the font's size, from the top of the line
// Columns are wider than their digits where the page has room.
constexpr double kWidestFactor = 1.35;
// What a text may take of the gap beside it, in characters.
constexpr double kOverhang = 0.8;

class CairoPdfCanvas final : public PageCanvas {
 public:
  CairoPdfCanvas(Paper paper, ByteSink bytes);

  PageSize begin(std::size_t neededColumns) override;
  void beginPage() override {}
  void put(const PlacedText& text) override;
  void put(const PlacedRule& rule) override;
  void endPage() override;
  void finish() override;

 private:
  struct Fonts {
    explicit Fonts(double points)
        : normal(points, PdfFont::Weight::Normal),
          bold(points, PdfFont::Weight::Bold),
          title(points * kTitleFactor, PdfFont::Weight::Bold) {}
    PdfFont normal;
    PdfFont bold;
    PdfFont title;
  };

  static cairo_status_t take(void* canvas, const unsigned char* data, unsigned int length) noexcept;
  void check();
  [[nodiscard]] const PdfFont& fontOf(TextLook look) const;
  [[nodiscard]] std::string shownText(const PlacedText& text, const PdfFont& font) const;
  void drawLine(double x, double y, double width);

  ByteSink bytes_;
  std::exception_ptr failure_;  // of bytes_, which must not pass through Cairo
  PaperSize paper_;
  double columnPoints_ = 0;
  double linePoints_ = 0;
  double fontPoints_ = kFontPoints;
  std::optional<Fonts> fonts_;
  cairo::Surface surface_;
  cairo::Context context_;
};

CairoPdfCanvas::CairoPdfCanvas(Paper paper, ByteSink bytes)
    : bytes_(std::move(bytes)),
      paper_(sizeOf(paper)),
      surface_(cairo_pdf_surface_create_for_stream(take, this, paper_.widthPoints, paper_.heightPoints)),
      context_(cairo_create(surface_.get())) {
  check();
}

cairo_status_t CairoPdfCanvas::take(void* canvas, const unsigned char* data, unsigned int length) noexcept {
  auto& self = *static_cast<CairoPdfCanvas*>(canvas);
  if (self.failure_) return CAIRO_STATUS_WRITE_ERROR;
  try {
    self.bytes_({reinterpret_cast<const char*>(data), length});
    return CAIRO_STATUS_SUCCESS;
  } catch (...) {
    self.failure_ = std::current_exception();
    return CAIRO_STATUS_WRITE_ERROR;
  }
}

void CairoPdfCanvas::check() {
  if (failure_) std::rethrow_exception(failure_);
  cairo::requireSuccess(cairo_surface_status(surface_.get()));
  if (context_) cairo::requireSuccess(cairo_status(context_.get()));
}

PageSize CairoPdfCanvas::begin(std::size_t neededColumns) {
  const double width = paper_.widthPoints - 2 * kMarginPoints;
  const double digitPoints = PdfFont(kFontPoints, PdfFont::Weight::Normal).width("0");
  columnPoints_ = std::min(digitPoints * kWidestFactor, width / static_cast<double>(neededColumns));
  fontPoints_ = std::min(kFontPoints, kFontPoints * columnPoints_ / digitPoints);
  if (fontPoints_ < kSmallestFontPoints) {
    throw RuntimeError(error_number::kInvalidCall,
                       "Las columnas del informe ocupan " + std::to_string(neededColumns) +
                           " caracteres y no caben en la página; use papel horizontal o columnas más angostas");
  }
  fonts_.emplace(fontPoints_);
  linePoints_ = fontPoints_ * kLineFactor;
  const double height = paper_.heightPoints - 2 * kMarginPoints;
  return {.columns = std::max(neededColumns, static_cast<std::size_t>(width / columnPoints_)),
          .lines = static_cast<std::size_t>(height / linePoints_)};
}

const PdfFont& CairoPdfCanvas::fontOf(TextLook look) const {
  switch (look) {
    case TextLook::Title:
      return fonts_->title;
    case TextLook::Heading:
    case TextLook::Group:
    case TextLook::Total:
      return fonts_->bold;
    case TextLook::Subtitle:
    case TextLook::PageNumber:
    case TextLook::Cell:
    case TextLook::Note:
      break;
  }
  return fonts_->normal;
}

std::string CairoPdfCanvas::shownText(const PlacedText& text, const PdfFont& font) const {
  const double limit = (static_cast<double>(text.width) + kOverhang) * columnPoints_;
  if (text.isNumber && font.width(std::string(text.text)) > limit) return std::string(text.width, '#');
  return font.fitted(text.text, limit);
}

void CairoPdfCanvas::put(const PlacedText& text) {
  if (text.text.empty()) return;
  const PdfFont& font = fontOf(text.look);
  const std::string shown = shownText(text, font);
  double x = kMarginPoints + static_cast<double>(text.at) * columnPoints_;
  const double free = static_cast<double>(text.width) * columnPoints_ - font.width(shown);
  if (text.alignment == Alignment::Right) x += free;
  if (text.alignment == Alignment::Center) x += free / 2;
  const double top = kMarginPoints + static_cast<double>(text.line) * linePoints_;
  font.show(context_.get(), shown, x, top + fontPoints_ * kBaselineFactor);
  check();
}

void CairoPdfCanvas::drawLine(double x, double y, double width) {
  cairo_move_to(context_.get(), x, y);
  cairo_rel_line_to(context_.get(), width, 0);
  cairo_stroke(context_.get());
}

void CairoPdfCanvas::put(const PlacedRule& rule) {
  using Look = PlacedRule::Look;
  const double x = kMarginPoints + static_cast<double>(rule.at) * columnPoints_;
  const double width = static_cast<double>(rule.width) * columnPoints_;
  const double top = kMarginPoints + static_cast<double>(rule.line) * linePoints_;
  // Under headings it stands close to them, above a sum close to the sum.
  const double y = top + linePoints_ * (rule.look == Look::Heading ? 0.2 : 0.75);
  cairo_set_line_width(context_.get(), rule.look == Look::Heading ? 0.9 : 0.5);
  drawLine(x, y, width);
  if (rule.look == Look::Total) drawLine(x, y + 1.6, width);
  check();
}

void CairoPdfCanvas::endPage() {
  cairo_show_page(context_.get());
  check();
}

void CairoPdfCanvas::finish() {
  context_.reset();
  cairo_surface_finish(surface_.get());
  check();
}

}  // namespace

std::unique_ptr<PageCanvas> newCairoPdfCanvas(Paper paper, ByteSink bytes) {
  return std::make_unique<CairoPdfCanvas>(paper, std::move(bytes));
}

}  // namespace qvn::reports
