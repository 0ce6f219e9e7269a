// A barcode in the characters of a terminal.
#pragma once

#include <string>
#include <string_view>

namespace qvn::cli {

/// Lines of block characters, two modules in each, with quiet zones, and the caption, which is ASCII, under them when
/// there is one.
/// `isColored` asks for black on white whatever the terminal's colours are; without it dark modules are the blocks.
std::string barcodePreview(std::string_view modules, std::string_view caption, bool isColored);

}  // namespace qvn::cli
