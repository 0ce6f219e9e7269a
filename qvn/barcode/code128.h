// Code 128 with code sets B and C, as the hosts' labels carry it.
//
//   ModuleString symbol;
//   encodeCode128("AB1234", TrailingDigits::FourOrMore, symbol);
#pragma once

#include <cstdint>
#include <string_view>

#include "qvn/barcode/module_sink.h"

namespace qvn::barcode {

/// What becomes of one to three digits at the caption's end.
enum class TrailingDigits {
  FourOrMore,  ///< they are left out of the bars, as on every label the hosts have printed
  All,         ///< they are encoded in set B
};

/// Symbols that the caption is expected to take, by the rough rule that sizes the picture.
///
/// A character that follows digits is not counted, so the picture of such a caption crops the symbol.
/// @throws RuntimeError  6 when a count passes 32,767
std::int16_t estimatedSymbols(std::string_view caption);

/// Start, caption, check symbol and stop. Digits go pairwise in set C only where they end the caption and are four or
/// more; an empty caption gives the check symbol of value 0 and the stop.
///
/// @throws RuntimeError  9 for a character outside set B, after the symbols before it reached the sink; 6 when a
///                       count passes 32,767
void encodeCode128(std::string_view caption, TrailingDigits trailing, ModuleSink& sink);

}  // namespace qvn::barcode
