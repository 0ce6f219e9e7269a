// Code 39: nine elements a character, three of them wide.
//
//   ModuleString symbol;
//   encodeCode39("PLU-17", WithCheckCharacter::No, symbol);
#pragma once

#include <optional>
#include <string_view>

#include "qvn/barcode/caption_fault.h"
#include "qvn/barcode/module_sink.h"

namespace qvn::barcode {

enum class WithCheckCharacter { No, Yes };

/// The fault of a caption with a character outside the alphabet; lower case is outside, "*" is inside.
std::optional<CaptionFault> code39Fault(std::string_view caption) noexcept;

/// Start, caption, check character (values modulo 43) when asked for, and stop; each followed by a light module.
///
/// @param caption  one for which code39Fault finds nothing
/// @throws RuntimeError  6 beyond 32,767 characters; 9 for a character outside the alphabet
void encodeCode39(std::string_view caption, WithCheckCharacter check, ModuleSink& sink);

}  // namespace qvn::barcode
