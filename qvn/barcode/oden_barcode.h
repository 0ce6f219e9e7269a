// odenBarcode: draws a symbol and its caption on a canvas that the host supplies.
//
//   qvn::barcode::odenBarcode barcode(messages);
//   barcode.EAN13(canvas, 5, "400638133393", true);
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/barcode/canvas.h"
#include "qvn/barcode/code128.h"
#include "qvn/host/message_box.h"

namespace qvn::barcode {

/// Bars begin 10 pixels from the top and are `zBarH` x 10 pixels high, each module one pixel wide. The canvas is
/// cleared first and sized for the symbol. A caption that cannot be drawn is told in the message box and leaves it
/// cleared. All methods throw RuntimeError 6 for captions of more than 32,767 characters that they would draw.
class odenBarcode {  // NOLINT(readability-identifier-naming): its documented name
 public:
  /// `messages` must outlive the object. `trailing` is for Code 128 labels that must carry the whole caption.
  explicit odenBarcode(host::MessageBox& messages, TrailingDigits trailing = TrailingDigits::FourOrMore)
      : messages_(messages), trailing_(trailing) {}

  /// Leaves out one to three digits at the caption's end, though the text under the bars shows them.
  /// @throws RuntimeError  9 for a character outside set B, after the symbols before it were drawn
  void Code128(Canvas& zObj, std::int16_t zBarH, std::string_view BarText, bool HasCaption) const;
  void Code39(Canvas& zObj, std::int16_t zBarH, std::string_view BarText, bool zWithCheckSum, bool HasCaption) const;
  /// `BarText` is 12 digits; the first one is printed nowhere.
  void EAN13(Canvas& zObj, std::int16_t zBarH, std::string_view BarText, bool HasCaption) const;
  /// `BarText` is 7 digits.
  void EAN8(Canvas& zObj, std::int16_t zBarH, std::string_view BarText, bool HasCaption) const;

 private:
  host::MessageBox& messages_;
  TrailingDigits trailing_;
};

}  // namespace qvn::barcode
