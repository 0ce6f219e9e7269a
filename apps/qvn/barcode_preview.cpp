#include "apps/qvn/barcode_preview.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "apps/qvn/terminal_text.h"

namespace qvn::cli {
namespace {

constexpr std::size_t kQuietModules = 10;
constexpr int kBarLines = 6;
constexpr std::string_view kBlackOnWhite = "\x1b[30;107m";
constexpr std::string_view kPlain = "\x1b[0m";
// By left and right module: none, right, left, both.
constexpr std::array<std::string_view, 4> kBlocks{" ", "▐", "▌", "█"};

std::string barLine(std::string_view modules, std::size_t columns) {
  const auto isDark = [&](std::size_t at) {
    return at >= kQuietModules && at - kQuietModules < modules.size() && modules[at - kQuietModules] == '1';
  };
  std::string line;
  for (std::size_t column = 0; column < columns; ++column) {
    line += kBlocks[(isDark(2 * column) ? 2U : 0U) + (isDark(2 * column + 1) ? 1U : 0U)];
  }
  return line;
}

}  // namespace

std::size_t previewColumns(std::string_view modules) noexcept { return (modules.size() + 2 * kQuietModules + 1) / 2; }

std::string barcodePreview(std::string_view modules, std::string_view caption, bool isColored) {
  const std::size_t columns = previewColumns(modules);
  std::string preview;
  const auto addLine = [&](std::string_view line) {
    if (isColored) {
      preview.append(kBlackOnWhite).append(line).append(kPlain);
    } else {
      preview += line;
    }
    preview += "\n";
  };
  const std::string bars = barLine(modules, columns);
  for (int i = 0; i < kBarLines; ++i) {
    addLine(bars);
  }
  if (!caption.empty()) {
    const std::size_t width = displayWidth(caption);
    const std::size_t left = width < columns ? (columns - width) / 2 : 0;
    const std::size_t right = width + left < columns ? columns - width - left : 0;
    addLine(std::string(left, ' ') + std::string(caption) + std::string(right, ' '));
  }
  return preview;
}

}  // namespace qvn::cli
