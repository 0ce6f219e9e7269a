// EAN-13 and EAN-8. Captions come without the check digit, which is computed and drawn here.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "qvn/barcode/caption_fault.h"
#include "qvn/barcode/module_sink.h"

namespace qvn::barcode {

/// The fault of a caption that is not 12 digits.
std::optional<CaptionFault> ean13Fault(std::string_view caption) noexcept;
/// The fault of a caption that is not 7 digits.
std::optional<CaptionFault> ean8Fault(std::string_view caption) noexcept;

/// Check digit '0' to '9' of a caption of digits; weights 3 and 1 from the right (GS1 General Specifications).
char checkDigit(std::string_view digits) noexcept;

/// The check digit as hosts compute it: of the first 12 characters, 10 (not 0) when the sum is a multiple of ten, -1
/// for fewer than 12. A character that is no digit counts as 0.
std::int16_t getEAN13ChekDigit(std::string_view text) noexcept;

/// 95 modules. @param caption  one for which ean13Fault finds nothing
void encodeEan13(std::string_view caption, ModuleSink& sink);
/// 67 modules. @param caption  one for which ean8Fault finds nothing
void encodeEan8(std::string_view caption, ModuleSink& sink);

}  // namespace qvn::barcode
