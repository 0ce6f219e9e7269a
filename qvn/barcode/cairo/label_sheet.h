// A PDF of many labels, laid out from left to right and from the top as words on a page.
//
//   LabelSheet sheet("etiquetas.pdf", {});
//   sheet.add(picture->drawing());
//   sheet.finish();
#pragma once

#include <memory>
#include <string_view>

#include "qvn/barcode/drawing.h"

namespace qvn::barcode {

/// Lengths in points of 1/72 inch; the page is letter paper.
struct SheetLayout {
  double pageWidth = 612;
  double pageHeight = 792;
  double margin = 36;
  double gap = 12;  ///< between labels
};

class LabelSheet {
 public:
  /// @throws RuntimeError  75 when the file cannot be written
  LabelSheet(std::string_view path, const SheetLayout& layout);
  ~LabelSheet();
  LabelSheet(const LabelSheet&) = delete;
  LabelSheet& operator=(const LabelSheet&) = delete;

  /// Adds a label of 1/96 inch a pixel; one that is larger than a page is made smaller to fit. An empty drawing adds
  /// nothing.
  void add(const Drawing& label);
  /// Completes the file. Throws RuntimeError 75 when it could not be written; without a call the file has no end.
  void finish();
  [[nodiscard]] int pages() const noexcept { return pages_; }

 private:
  void placeFor(double width, double height);

  struct File;
  std::unique_ptr<File> file_;
  SheetLayout layout_;
  int pages_ = 1;
  double x_;
  double y_;
  double rowHeight_ = 0;
};

}  // namespace qvn::barcode
