// Which font captions are printed in.
#pragma once

#include <string>

namespace qvn::barcode {

/// A plain sans-serif that every Debian has. At 10 pixels its digits are 6 wide, and so the six digits of a half fit
/// between the guards of an EAN symbol.
struct CaptionFont {
  std::string family = "DejaVu Sans";
  double sizePixels = 10;
};

}  // namespace qvn::barcode
