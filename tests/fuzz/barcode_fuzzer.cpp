// Any caption in any symbology at any height: one of three errors or a symbol, whose bars lie side by side on a drawing
// that becomes pixels. Bytes: symbology and flags, two of the height, module width, then the caption.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "qvn/barcode/drawing_canvas.h"
#include "qvn/barcode/raster.h"
#include "qvn/barcode/symbol.h"
#include "qvn/base/runtime_error.h"

namespace {

using namespace qvn::barcode;

void require(bool holds) {
  if (!holds) std::abort();
}

class FixedFont final : public FontMeasure {
 public:
  [[nodiscard]] double height() const override { return 12; }
  [[nodiscard]] double width(std::string_view text) const override { return 6.0 * static_cast<double>(text.size()); }
};

class CountedMessages final : public qvn::host::MessageBox {
 public:
  int shown = 0;
  void show(std::string_view /*text*/, std::int32_t /*style*/, std::string_view /*title*/) override { ++shown; }
};

void checkDrawing(const Symbol& symbol, const SymbolLook& look, const PictureFit& fit) {
  const FixedFont font;
  DrawingCanvas canvas(font);
  CountedMessages messages;
  drawSymbol(symbol, look, canvas, messages);
  require(messages.shown == (captionFault(symbol) ? 1 : 0));
  if (messages.shown != 0) {
    require(canvas.kept().isEmpty() && canvas.kept().bars.empty());
    return;
  }
  std::size_t dark = 0;
  std::size_t expected = 0;
  for (const Drawing::Bar& bar : canvas.kept().bars) dark += bar.color == 0 ? static_cast<std::size_t>(bar.width) : 0;
  for (const char module : moduleString(symbol)) expected += module == '1' ? 1 : 0;
  require(look.barHeight == 0 || dark == expected);
  const Drawing drawing = fitted(canvas.kept(), fit);
  const std::int64_t pixels = std::int64_t{drawing.width} * drawing.height;
  if (pixels > 4'000'000) return;
  require(rasterOfBars(drawing).pixels.size() == static_cast<std::size_t>(pixels));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 4) return 0;
  const Symbol symbol{.symbology = static_cast<Symbology>(data[0] & 3),
                      .caption = std::string(reinterpret_cast<const char*>(data) + 4, size - 4),
                      .hasCheckCharacter = (data[0] & 4) != 0,
                      .trailing = (data[0] & 8) != 0 ? TrailingDigits::All : TrailingDigits::FourOrMore};
  const SymbolLook look{static_cast<std::int16_t>(data[1] << 8 | data[2]), (data[0] & 16) != 0};
  const PictureFit fit{.moduleWidth = data[3], .isWidened = (data[0] & 32) != 0};
  try {
    checkDrawing(symbol, look, fit);
  } catch (const qvn::RuntimeError& error) {
    require(error.number() == 9 || error.number() == 6 || (error.number() == 5 && (data[3] == 0 || data[3] > 100)));
  }
  return 0;
}
