#include "apps/qvn/barcode_preview.h"

#include <array>
#include <cstddef>

namespace qvn::cli {
namespace {

constexpr std::size_t kQuietZone = 10;  // modules
constexpr int kRows = 6;
constexpr std::string_view kBlackOnWhite = "\033[38;5;16;48;5;231m";
constexpr std::string_view kOwnColors = "\033[0m";

// By the left module, then the right one.
constexpr std::array<std::string_view, 4> kBlocks = {" ", "▐", "▌", "█"};

std::string rowOf(std::string_view modules) {
  const std::string zone(kQuietZone, '0');
  std::string wide = zone + std::string(modules) + zone;
  if (wide.size() % 2 != 0) wide.push_back('0');
  std::string row;
  for (std::size_t i = 0; i < wide.size(); i += 2) {
    row += kBlocks[(wide[i] == '1' ? 2U : 0U) + (wide[i + 1] == '1' ? 1U : 0U)];
  }
  return row;
}

std::string centred(std::string_view text, std::size_t width) {
  const std::size_t taken = text.size();
  if (taken >= width) return std::string(text);
  const std::size_t before = (width - taken) / 2;
  return std::string(before, ' ').append(text).append(width - taken - before, ' ');
}

}  // namespace

std::string barcodePreview(std::string_view modules, std::string_view caption, bool isColored) {
  const auto line = [&](const std::string& text) {
    return isColored ? std::string(kBlackOnWhite).append(text).append(kOwnColors).append("\n") : text + "\n";
  };
  const std::string row = rowOf(modules);
  std::string preview;
  for (int i = 0; i < kRows; ++i) preview += line(row);
  if (!caption.empty()) preview += line(centred(caption, (modules.size() + 2 * kQuietZone + 1) / 2));
  return preview;
}

}  // namespace qvn::cli
