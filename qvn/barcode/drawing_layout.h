// Changes to a finished drawing that labels for printing want and hosts' pictures do not have.
#pragma once

#include <cstdint>

#include "qvn/barcode/drawing.h"

namespace qvn::barcode {

/// As wide as what was drawn, with the quiet zone of 10 modules to its right, where the picture would cut it off; and
/// with everything moved to the right where a caption begins left of the picture.
[[nodiscard]] Drawing widened(Drawing drawing);

/// Each module `moduleWidth` pixels wide, and its captions under the same bars.
///
/// @throws RuntimeError  5 for a width outside 1 to 100
[[nodiscard]] Drawing stretched(Drawing drawing, std::int32_t moduleWidth);

}  // namespace qvn::barcode
