// Sheets of paper that reports are printed on.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace qvn::reports {

enum class Paper { Letter, A4, LetterLandscape, A4Landscape };

struct PaperSize {
  double widthPoints;  ///< of 1/72 inch
  double heightPoints;
  std::size_t textLines;  ///< at six lines an inch
};
PaperSize sizeOf(Paper paper);

/// "carta", "a4", "carta horizontal" or "a4 horizontal".
std::string_view nameOf(Paper paper);
/// In any case; nothing for other names.
std::optional<Paper> paperNamed(std::string_view name);

}  // namespace qvn::reports
