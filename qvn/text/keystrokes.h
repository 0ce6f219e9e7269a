// Filters for the keys typed into an input box. A key is a code of code page 1252; 0 means that it is swallowed.
#pragma once

#include <cstdint>

#include "qvn/host/text_box.h"

namespace qvn::text {

/// The key to let through into a box for numbers: digits, "-" once, the regional decimal separator once and only with
/// `bolDecimales`, and backspace.
///
/// A second "-", and a separator that is not allowed, also set `KeyAscii` to 0; any other key that is swallowed leaves
/// it as it was, and the host assigns the result. Throws RuntimeError 5 for a code outside 0 to 255.
std::int16_t ToNumber(std::int16_t& KeyAscii, const host::TextBox& Control, bool bolDecimales = true);

/// The key to let through into a box whose text becomes part of statements and record lines, which escape nothing.
///
/// Swallowed, with `KeyAscii` set to 0: both quotes ' and ", backslash, the field terminator "¨", ";", and control
/// characters other than backspace, tab and enter (so also the shortcuts that paste and cut). Everything else passes:
/// letters of all kinds, digits, blanks and the other punctuation. `Control` takes part in no decision.
/// Throws RuntimeError 5 for a code outside 0 to 255.
std::int16_t UEspecial(std::int16_t& KeyAscii, const host::TextBox& Control);

}  // namespace qvn::text
