// A symbol as block characters, two modules a column, for looking at it in a terminal.
#pragma once

#include <string>
#include <string_view>

namespace qvn::cli {

/// Columns of the preview of so many modules.
std::size_t previewColumns(std::string_view modules) noexcept;

/// Six lines of bars with quiet zones of ten modules, and the caption centred below them unless it is empty.
/// @param modules   "1" for each dark module, "0" for each light one
/// @param caption   safe for a terminal
/// @param isColored black on white by escape codes; else dark modules are in the terminal's own foreground
std::string barcodePreview(std::string_view modules, std::string_view caption, bool isColored);

}  // namespace qvn::cli
