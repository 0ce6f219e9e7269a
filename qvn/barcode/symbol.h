// One symbol of any of the four symbologies, described by data.
//
//   const Symbol symbol{.symbology = Symbology::Ean13, .caption = "400638133393"};
//   moduleString(symbol);  // "1010001101..."
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "qvn/barcode/canvas.h"
#include "qvn/barcode/caption_fault.h"
#include "qvn/barcode/code128.h"
#include "qvn/host/message_box.h"

namespace qvn::barcode {

enum class Symbology { Code128, Code39, Ean13, Ean8 };

struct Symbol {
  Symbology symbology = Symbology::Code128;
  std::string caption = {};
  bool hasCheckCharacter = false;                        ///< Code 39 alone
  TrailingDigits trailing = TrailingDigits::FourOrMore;  ///< Code 128 alone
};

/// How tall its bars are, in tens of pixels, and whether the caption is printed.
struct SymbolLook {
  std::int16_t barHeight = 0;
  bool hasCaption = true;
};

/// Code 128 knows no fault: what it cannot encode is an error while it encodes.
std::optional<CaptionFault> captionFault(const Symbol& symbol) noexcept;

/// "1" for each dark module and "0" for each light one.
/// @throws RuntimeError  5 for a caption with a fault; else what the symbology's encoder raises
std::string moduleString(const Symbol& symbol);

/// Draws it as the method of odenBarcode for its symbology does.
void drawSymbol(const Symbol& symbol, const SymbolLook& look, Canvas& canvas, host::MessageBox& messages);

}  // namespace qvn::barcode
