// The four symbologies by name, for callers that take the choice from elsewhere.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "qvn/barcode/canvas.h"
#include "qvn/barcode/caption_fault.h"
#include "qvn/barcode/code128.h"
#include "qvn/host/message_box.h"

namespace qvn::barcode {

enum class Symbology { Code128, Code39, Ean13, Ean8 };

/// What is drawn, and how.
struct Symbol {
  Symbology symbology = Symbology::Code128;
  std::int16_t height = 5;  ///< of the bars, in tens of pixels
  std::string caption;
  bool hasCaption = true;                                ///< shown under the bars
  bool hasCheckCharacter = false;                        ///< Code 39 alone
  TrailingDigits trailing = TrailingDigits::FourOrMore;  ///< Code 128 alone
};

/// "code128", "code39", "ean13" or "ean8" in any case.
[[nodiscard]] std::optional<Symbology> symbologyNamed(std::string_view name);

/// Why the caption cannot be drawn; Code 128 has no such test.
[[nodiscard]] std::optional<CaptionFault> faultOf(const Symbol& symbol);

/// The modules that odenBarcode draws, "1" dark and "0" light. Throws as the encoders do; the caption is one for which
/// faultOf finds nothing.
[[nodiscard]] std::string modulesOf(const Symbol& symbol);

/// Draws with odenBarcode, whose messages go to `messages`. Throws as it does.
void draw(const Symbol& symbol, Canvas& canvas, host::MessageBox& messages);

}  // namespace qvn::barcode
