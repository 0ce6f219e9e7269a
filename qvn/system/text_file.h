// Text files written line by line. Each call opens the file and closes it again, and ignores every failure: an
// unwritable path, or a value that is no text, leaves the text unwritten.
#pragma once

#include "qvn/base/variant.h"

namespace qvn::system {

/// Appends the text and a line end (CR LF) to a file, which is created when it is missing. What one call appends stays
/// together, also when other processes append at the same time.
void OutLine(const Variant& fileName, const Variant& text);

/// The same.
void OutFile(const Variant& fileName, const Variant& text);

/// Makes the text and a line end the whole contents of a file.
void Out(const Variant& fileName, const Variant& text);

}  // namespace qvn::system
