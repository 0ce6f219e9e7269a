// Text from a database or from an error, made safe to show on a terminal.
//
//   safeText("a\nb") == "a\\nb";  safeText("Ferretería Muñoz", 10) == "Ferreterí…";  displayWidth("ñ") == 1
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qvn::cli {

inline constexpr std::size_t kNoLimit = static_cast<std::size_t>(-1);

/// `text` on one line and without anything that steers a terminal: "\n", "\r" and "\t" as those two characters, other
/// control characters and bytes that are not UTF-8 as "\xHH", characters that change the direction of writing or break
/// lines as "\uHHHH". A text of more than `widest` columns is cut there, with "…" as its last column.
std::string safeText(std::string_view text, std::size_t widest = kNoLimit);

/// Columns that a safe text takes.
std::size_t displayWidth(std::string_view safe) noexcept;

}  // namespace qvn::cli
