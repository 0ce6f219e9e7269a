// The seam to what pages are made of: texts at places that count in characters and lines.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>

#include "qvn/reports/paper.h"
#include "qvn/reports/report_settings.h"

namespace qvn::reports {

enum class TextLook { Title, Subtitle, PageNumber, Heading, Group, Cell, Total, Note };

/// A text of more than `width` is cut and ends with "…"; a number that has no room is shown as "#" all over.
struct PlacedText {
  std::string_view text;
  std::size_t line = 0;  ///< of the page, from 0
  std::size_t at = 0;    ///< characters from the left
  std::size_t width = 0;
  Alignment alignment = Alignment::Left;
  TextLook look = TextLook::Cell;
  bool isNumber = false;
};

struct PlacedRule {
  enum class Look { Heading, Subtotal, Total };
  std::size_t line = 0;
  std::size_t at = 0;
  std::size_t width = 0;
  Look look = Look::Heading;
};

struct PageSize {
  std::size_t columns;  ///< characters
  std::size_t lines;    ///< 0: one page without end
};

/// Lines of a page come in their order, and within a line what stands further left comes first. Everything throws
/// RuntimeError when what is written cannot be.
class PageCanvas {
 public:
  virtual ~PageCanvas() = default;
  /// Chooses a size with room for so many characters, before the first page. Throws RuntimeError 5 when none has it.
  virtual PageSize begin(std::size_t neededColumns) = 0;
  virtual void beginPage() = 0;
  virtual void put(const PlacedText& text) = 0;
  virtual void put(const PlacedRule& rule) = 0;
  virtual void endPage() = 0;
  /// Behind the last page.
  virtual void finish() = 0;
};

/// Takes what a canvas has written; throws RuntimeError.
using ByteSink = std::function<void(std::string_view bytes)>;

using PdfCanvasMaker = std::unique_ptr<PageCanvas> (*)(Paper paper, ByteSink bytes);

/// Makes the canvases of PDF files from now on. Adapters register themselves when a host links them.
void registerPdfCanvas(PdfCanvasMaker maker);

/// A canvas by the registered maker. Throws RuntimeError 429 when there is none.
std::unique_ptr<PageCanvas> newPdfCanvas(Paper paper, ByteSink bytes);

}  // namespace qvn::reports
