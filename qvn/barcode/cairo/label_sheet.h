// Many labels on the pages of a PDF file, for printing on sheets.
//
//   LabelSheet sheet({.columns = 3, .rows = 8});
//   for (const auto& picture : pictures) sheet.add(*picture);
//   writePictureFile("etiquetas.pdf", sheet.finish());
#pragma once

#include <memory>
#include <string>

#include "qvn/barcode/cairo/barcode_picture.h"

namespace qvn::barcode {

struct SheetLayout {
  double pageWidth = 612;  ///< points of 1/72 inch; letter paper
  double pageHeight = 792;
  double margin = 36;
  int columns = 3;
  int rows = 10;
};

/// Labels fill rows from the upper left corner on; one that is larger than its place is made smaller.
class LabelSheet {
 public:
  /// @throws RuntimeError  5 for a layout without room for a label of 20 points
  explicit LabelSheet(const SheetLayout& layout);
  LabelSheet(const LabelSheet&) = delete;
  LabelSheet& operator=(const LabelSheet&) = delete;
  ~LabelSheet();

  void add(const DrawnPicture& picture);
  /// Pages begun so far.
  [[nodiscard]] int pages() const noexcept;
  /// The bytes of the file; nothing can be added any more.
  [[nodiscard]] std::string finish();

 private:
  struct Document;

  SheetLayout layout_;
  int next_ = 0;  // place of the next label, counted from the first page on
  std::unique_ptr<Document> document_;
};

}  // namespace qvn::barcode
